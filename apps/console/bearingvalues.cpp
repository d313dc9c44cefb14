// SPDX-License-Identifier: MIT
#include "bearingvalues.h"

#include "azimuthdisplayselect.h"
#include "azimuthview.h"
#include "consolevalues.h"
#include "tree.h"
#include "valuenumeric.h"

#include <QScopedValueRollback>

#include <array>
#include <memory>

namespace {

constexpr double Turn = AzimuthView::Turn;
constexpr double Lowest = -Turn / 2.0; // deg, of both circles
constexpr double Highest = Turn;       // deg

struct Row
{
    char const * path;
    double min;
    double max;
    double start;
};

constexpr std::array<Row, 5> Rows{ {
    { ConsolePaths::AzimuthMin, Lowest, Highest, 0.0 },
    { ConsolePaths::AzimuthMax, Lowest, Highest, Turn },
    { ConsolePaths::ElevationMin, -BearingValues::Zenith, BearingValues::Zenith, BearingValues::Horizon },
    { ConsolePaths::ElevationMax, -BearingValues::Zenith, BearingValues::Zenith, BearingValues::Zenith },
    { ConsolePaths::Heading, -Turn, Turn, 0.0 },
} };

ValueNumeric<double> * At(char const * path)
{
    Tree const * const tree = Tree::Instance();
    return tree ? tree->FindAs<ValueNumeric<double>>(QLatin1String(path)) : nullptr;
}

void SetLimits(char const * path, double min, double max)
{
    if (ValueNumeric<double> * const value = At(path))
        value->SetMinMax(min, max, 0.0, nullptr);
}

//! Keeps two ends apart and within limits.
void Limit(char const * low, char const * high, double least, double most)
{
    if (!At(low) || !At(high))
        return;
    SetLimits(low, least, ConsoleValues::Get(high) - BearingValues::LeastSpan);
    SetLimits(high, ConsoleValues::Get(low) + BearingValues::LeastSpan, most);
}

//! The upper end first, which becomes the highest there is: neither holds the other back.
void SetRange(char const * low, char const * high, double start, double stop)
{
    ConsoleValues::Set(high, stop);
    ConsoleValues::Set(low, start);
}

} // namespace

BearingValues::BearingValues()
    : m_mode([this] { TakeMode(); })
    , m_azimuthMin([this] { LimitAzimuths(); })
    , m_azimuthMax([this] { LimitAzimuths(); })
    , m_elevationMin([this] { LimitElevations(); })
    , m_elevationMax([this] { LimitElevations(); })
{
    Tree * const tree = Tree::Instance();
    for (Row const & row : Rows) {
        QString const path = QLatin1String(row.path);
        auto value = std::make_unique<ValueNumeric<double>>(path.section(QLatin1Char('/'), -1));
        value->SetMinMax(row.min, row.max, 0.0, nullptr);
        value->SetValue(row.start, nullptr);
        if (!tree || !tree->Insert(path.section(QLatin1Char('/'), 0, -2), value.get()))
            continue;
        static_cast<void>(value.release()); // the tree owns it
        m_paths.push_back(path);
    }
    m_formatter.SetNorth_ValuePath(QLatin1String(ConsolePaths::Heading));
    m_azimuthMin.Bind(QLatin1String(ConsolePaths::AzimuthMin));
    m_azimuthMax.Bind(QLatin1String(ConsolePaths::AzimuthMax));
    m_elevationMin.Bind(QLatin1String(ConsolePaths::ElevationMin));
    m_elevationMax.Bind(QLatin1String(ConsolePaths::ElevationMax));
    m_mode.Bind(AzimuthDisplaySelect::Instance().CurrentValueSelection());
}

BearingValues::~BearingValues()
{
    Tree * const tree = Tree::Instance();
    for (QString const & path : m_paths) {
        if (tree)
            tree->Remove(path);
    }
}

void BearingValues::ShowAllAzimuths()
{
    AzimuthView const view = AzimuthView::Current();
    SetRange(ConsolePaths::AzimuthMin, ConsolePaths::AzimuthMax, view.Start(), view.Stop());
}

void BearingValues::ShowElevations()
{
    SetRange(ConsolePaths::ElevationMin, ConsolePaths::ElevationMax, Horizon, Zenith);
}

void BearingValues::TakeMode()
{
    double const start = AzimuthView::Current().Start();
    if (start == m_start)
        return;
    m_start = start;
    {
        QScopedValueRollback<bool> const guard(m_moving, true);
        SetLimits(ConsolePaths::AzimuthMin, Lowest, Highest);
        SetLimits(ConsolePaths::AzimuthMax, Lowest, Highest);
        ShowAllAzimuths();
    }
    LimitAzimuths();
}

void BearingValues::LimitAzimuths()
{
    if (!m_moving)
        Limit(ConsolePaths::AzimuthMin, ConsolePaths::AzimuthMax, m_start, m_start + Turn);
}

void BearingValues::LimitElevations()
{
    Limit(ConsolePaths::ElevationMin, ConsolePaths::ElevationMax, -Zenith, Zenith);
}
