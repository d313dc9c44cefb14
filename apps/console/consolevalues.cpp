// SPDX-License-Identifier: MIT
#include "consolevalues.h"

#include "levelgradients.h"
#include "spectrumengine.h"
#include "tree.h"
#include "valuelist.h"
#include "valuenumeric.h"
#include "valueselection.h"

#include <QCoreApplication>
#include <QScopedValueRollback>

#include <algorithm>
#include <array>
#include <cmath>

namespace {

struct NumberRow
{
    char const * path;
    double min;
    double max;
    double step; // 0: none
    double start;
};

constexpr std::array<NumberRow, 23> NumberRows{ {
    { ConsolePaths::Centre, -1e12, 1e12, 0.0, 0.0 },
    { ConsolePaths::Span, 1e-3, 1e12, 0.0, 1.0 },
    { ConsolePaths::Start, -1e12, 1e12, 0.0, -0.5 },
    { ConsolePaths::Stop, -1e12, 1e12, 0.0, 0.5 },
    { ConsolePaths::BandStart, -1e12, 1e12, 0.0, -0.5 },
    { ConsolePaths::BandStop, -1e12, 1e12, 0.0, 0.5 },
    { ConsolePaths::DeviceStart, -1e12, 1e12, 0.0, -0.5 },
    { ConsolePaths::DeviceStop, -1e12, 1e12, 0.0, 0.5 },
    { ConsolePaths::LevelMin, -160.0, 59.0, 0.0, -120.0 },
    { ConsolePaths::LevelMax, -159.0, 60.0, 0.0, 0.0 },
    { ConsolePaths::LineRate, 1.0, 200.0, 0.0, 25.0 },
    { ConsolePaths::Speed, 0.01, 100.0, 0.0, 1.0 },
    { ConsolePaths::Averaging, 0.0, 64.0, 1.0, 0.0 },
    { ConsolePaths::Marker1, -1e12, 1e12, 0.0, 0.0 },
    { ConsolePaths::Marker2, -1e12, 1e12, 0.0, 0.0 },
    { ConsolePaths::MarkerLower, -1e12, 1e12, 0.0, 0.0 },
    { ConsolePaths::MarkerUpper, -1e12, 1e12, 0.0, 0.0 },
    { ConsolePaths::Time1, 0.0, 1e18, 0.0, 0.0 },
    { ConsolePaths::Time2, 0.0, 1e18, 0.0, 0.0 },
    { ConsolePaths::TimeLower, 0.0, 1e18, 0.0, 0.0 },
    { ConsolePaths::TimeUpper, 0.0, 1e18, 0.0, 0.0 },
    { ConsolePaths::LevelMarker, -160.0, 60.0, 0.0, -60.0 },
    { ConsolePaths::SelectedBearing, -1.0, 7.0, 1.0, -1.0 },
} };

struct HoldRow
{
    char const * name;
    long seconds;
};

constexpr std::array<HoldRow, 11> HoldRows{ {
    { QT_TRANSLATE_NOOP("ConsoleValues", "Off: present line"), 0 },
    { QT_TRANSLATE_NOOP("ConsoleValues", "1 s"), 1 },
    { QT_TRANSLATE_NOOP("ConsoleValues", "2 s"), 2 },
    { QT_TRANSLATE_NOOP("ConsoleValues", "3 s"), 3 },
    { QT_TRANSLATE_NOOP("ConsoleValues", "4 s"), 4 },
    { QT_TRANSLATE_NOOP("ConsoleValues", "5 s"), 5 },
    { QT_TRANSLATE_NOOP("ConsoleValues", "10 s"), 10 },
    { QT_TRANSLATE_NOOP("ConsoleValues", "20 s"), 20 },
    { QT_TRANSLATE_NOOP("ConsoleValues", "30 s"), 30 },
    { QT_TRANSLATE_NOOP("ConsoleValues", "60 s"), 60 },
    { QT_TRANSLATE_NOOP("ConsoleValues", "Infinite: until cleared"), -1 },
} };

constexpr std::array<long, 4> QualitySteps{ 1, 2, 4, 8 };
constexpr long StartHold = 4; // s
constexpr long StartQuality = 1;

constexpr double LowestLevel = -160.0; // dBFS
constexpr double HighestLevel = 60.0;  // dBFS
constexpr long FirstBins = 64;
constexpr long LastBins = 65536;
constexpr long StartBins = 2048;

//! Folder and name of a path.
std::pair<QString, QString> Split(char const * path)
{
    QString const text = QLatin1String(path);
    return { text.section(QLatin1Char('/'), 0, -2), text.section(QLatin1Char('/'), -1) };
}

ValueNumeric<double> * Number(char const * path)
{
    Tree const * const tree = Tree::Instance();
    return tree ? tree->FindAs<ValueNumeric<double>>(QLatin1String(path)) : nullptr;
}

ValueSelection * Selection(char const * path)
{
    Tree const * const tree = Tree::Instance();
    return tree ? tree->FindAs<ValueSelection>(QLatin1String(path)) : nullptr;
}

Value<bool> * Flag(char const * path)
{
    Tree const * const tree = Tree::Instance();
    return tree ? tree->FindAs<Value<bool>>(QLatin1String(path)) : nullptr;
}

//! Puts a value into the tree; gives its path, empty when the tree did not take it.
QString Insert(char const * path, std::unique_ptr<ValueBase> value)
{
    Tree * const tree = Tree::Instance();
    if (!tree || !tree->Insert(Split(path).first, value.get()))
        return {};
    value.release(); // the tree owns it
    return QLatin1String(path);
}

} // namespace

ConsoleValues::ConsoleValues()
    : m_levelMin([this] { LimitLevels(); })
    , m_levelMax([this] { LimitLevels(); })
    , m_centre([this] { TellEnds(); })
    , m_span([this] {
        LimitCentre();
        TellEnds();
    })
    , m_start([this] { TakeEnds(true); })
    , m_stop([this] { TakeEnds(false); })
{
    for (NumberRow const & row : NumberRows) {
        auto value = std::make_unique<ValueNumeric<double>>(Split(row.path).second);
        value->SetMinMax(row.min, row.max, row.step, nullptr);
        value->SetValue(row.start, nullptr);
        m_paths.push_back(Insert(row.path, std::move(value)));
    }
    InsertSelections();
    InsertFlags();
    m_levelMin.Bind(QLatin1String(ConsolePaths::LevelMin));
    m_levelMax.Bind(QLatin1String(ConsolePaths::LevelMax));
    m_span.Bind(QLatin1String(ConsolePaths::Span));
    m_centre.Bind(QLatin1String(ConsolePaths::Centre));
    m_start.Bind(QLatin1String(ConsolePaths::Start));
    m_stop.Bind(QLatin1String(ConsolePaths::Stop));
}

ConsoleValues::~ConsoleValues()
{
    Tree * const tree = Tree::Instance();
    for (QString const & path : m_paths) {
        if (tree && !path.isEmpty())
            tree->Remove(path);
    }
}

void ConsoleValues::InsertSelections()
{
    auto bins = std::make_unique<ValueSelection>(Split(ConsolePaths::Bins).second);
    for (long count = FirstBins; count <= LastBins; count *= 2)
        bins->AddItem(SelectionItem(QString::number(count), static_cast<double>(count), count));
    bins->Select(StartBins, nullptr);
    m_paths.push_back(Insert(ConsolePaths::Bins, std::move(bins)));

    auto window = std::make_unique<ValueSelection>(Split(ConsolePaths::Window).second);
    for (int index = 0; index < SpectrumEngine::eWindowCount; ++index) {
        QString const name = SpectrumEngine::WindowText(static_cast<SpectrumEngine::Window>(index));
        window->AddItem(SelectionItem(name, index, index));
    }
    window->Select(static_cast<long>(SpectrumEngine::eWindowHann), nullptr);
    m_paths.push_back(Insert(ConsolePaths::Window, std::move(window)));

    auto gradient = std::make_unique<ValueSelection>(Split(ConsolePaths::Gradient).second);
    for (int index = 0; index < LevelGradients::Count(); ++index) {
        QString const name = QCoreApplication::translate("LevelGradients", LevelGradients::At(index).name);
        gradient->AddItem(SelectionItem(name, index, index));
    }
    gradient->Select(0L, nullptr);
    m_paths.push_back(Insert(ConsolePaths::Gradient, std::move(gradient)));
    InsertPersistence();
}

void ConsoleValues::InsertPersistence()
{
    auto hold = std::make_unique<ValueSelection>(Split(ConsolePaths::Hold).second);
    for (HoldRow const & row : HoldRows)
        hold->AddItem(SelectionItem(QCoreApplication::translate("ConsoleValues", row.name),
                                    static_cast<double>(row.seconds), row.seconds));
    hold->Select(StartHold, nullptr);
    m_paths.push_back(Insert(ConsolePaths::Hold, std::move(hold)));

    auto quality = std::make_unique<ValueSelection>(Split(ConsolePaths::Quality).second);
    for (long const steps : QualitySteps)
        quality->AddItem(SelectionItem(QString::number(steps), static_cast<double>(steps), steps));
    quality->Select(StartQuality, nullptr);
    m_paths.push_back(Insert(ConsolePaths::Quality, std::move(quality)));

    m_paths.push_back(Insert(ConsolePaths::Ageing, std::make_unique<Value<bool>>(Split(ConsolePaths::Ageing).second)));
    SetFlag(ConsolePaths::Ageing, true);
}

void ConsoleValues::InsertFlags()
{
    for (char const * const path :
         { ConsolePaths::Marker1Shown, ConsolePaths::Marker2Shown, ConsolePaths::LevelMarkerShown,
           ConsolePaths::Time1Shown, ConsolePaths::Time2Shown, ConsolePaths::PersistenceShown,
           ConsolePaths::AzimuthShown, ConsolePaths::ElevationShown })
        m_paths.push_back(Insert(path, std::make_unique<Value<bool>>(Split(path).second)));
    m_paths.push_back(Insert(ConsolePaths::Bearings,
                             std::make_unique<ValueList<BearingResult>>(Split(ConsolePaths::Bearings).second)));
}

void ConsoleValues::SetBand(FrequencyRange band)
{
    bool const good = std::isfinite(band.start) && std::isfinite(band.span) && band.span > 0.0;
    ValueNumeric<double> * const span = Number(ConsolePaths::Span);
    if (!good || !span || band == m_band)
        return;
    bool const whole = span->GetValue() >= m_band.span;
    m_band = band;
    span->SetMinMax(band.span / MostZoom, band.span, 0.0, nullptr);
    if (whole)
        span->SetValue(band.span, nullptr);
    LimitCentre();
    LimitToBand();
    TellEnds();
    TellBand();
}

void ConsoleValues::SetLevels(double min, double max)
{
    if (!(max - min >= LeastLevelSpan))
        return;
    // apart first, so that neither bound holds the other back
    Set(ConsolePaths::LevelMin, LowestLevel);
    Set(ConsolePaths::LevelMax, max);
    Set(ConsolePaths::LevelMin, min);
}

void ConsoleValues::Set(char const * path, double number)
{
    if (ValueNumeric<double> * const value = Number(path))
        value->SetValue(number, nullptr);
}

void ConsoleValues::Select(char const * path, long key)
{
    if (ValueSelection * const value = Selection(path))
        value->Select(key, nullptr);
}

void ConsoleValues::SetFlag(char const * path, bool on)
{
    if (Value<bool> * const value = Flag(path))
        value->SetValue(on, nullptr);
}

double ConsoleValues::Get(char const * path)
{
    ValueNumeric<double> const * const value = Number(path);
    return value ? value->GetValue() : 0.0;
}

long ConsoleValues::GetKey(char const * path)
{
    ValueSelection const * const value = Selection(path);
    return value ? value->GetCurrentKey() : 0;
}

bool ConsoleValues::GetFlag(char const * path)
{
    Value<bool> const * const value = Flag(path);
    return value && value->GetValue();
}

void ConsoleValues::LimitLevels()
{
    ValueNumeric<double> * const low = Number(ConsolePaths::LevelMin);
    ValueNumeric<double> * const high = Number(ConsolePaths::LevelMax);
    if (!low || !high)
        return;
    low->SetMinMax(LowestLevel, high->GetValue() - LeastLevelSpan, 0.0, nullptr);
    high->SetMinMax(low->GetValue() + LeastLevelSpan, HighestLevel, 0.0, nullptr);
}

void ConsoleValues::LimitCentre()
{
    ValueNumeric<double> * const centre = Number(ConsolePaths::Centre);
    ValueNumeric<double> * const span = Number(ConsolePaths::Span);
    if (!centre || !span)
        return;
    double const half = span->GetValue() / 2.0;
    double const least = m_band.start + half;
    double const most = m_band.start + m_band.span - half;
    centre->SetMinMax(std::min(least, most), std::max(least, most), 0.0, nullptr);
}

void ConsoleValues::LimitToBand()
{
    QScopedValueRollback<bool> const guard(m_coupling, true); // the ends follow when the limits hold
    for (char const * const path : { ConsolePaths::Start, ConsolePaths::Stop, ConsolePaths::Marker1,
                                     ConsolePaths::Marker2, ConsolePaths::MarkerLower, ConsolePaths::MarkerUpper }) {
        if (ValueNumeric<double> * const value = Number(path))
            value->SetMinMax(m_band.start, m_band.start + m_band.span, 0.0, nullptr);
    }
    m_windows.SetBand(m_band);
}

//! Centre and span have moved: the ends follow, in the order that keeps the start below the stop.
void ConsoleValues::TellEnds()
{
    if (m_coupling)
        return;
    QScopedValueRollback<bool> const guard(m_coupling, true);
    double const start = Get(ConsolePaths::Centre) - Get(ConsolePaths::Span) / 2.0;
    double const stop = Get(ConsolePaths::Centre) + Get(ConsolePaths::Span) / 2.0;
    bool const upward = start >= Get(ConsolePaths::Stop);
    if (upward)
        Set(ConsolePaths::Stop, stop);
    Set(ConsolePaths::Start, start);
    if (!upward)
        Set(ConsolePaths::Stop, stop);
}

//! Axes take a range over when its stop moves: it moves in any case, and last.
void ConsoleValues::TellBand()
{
    Set(ConsolePaths::BandStart, m_band.start);
    Set(ConsolePaths::BandStop, m_band.start);
    Set(ConsolePaths::BandStop, m_band.start + m_band.span);
    Set(ConsolePaths::DeviceStart, m_band.start);
    Set(ConsolePaths::DeviceStop, m_band.start);
    Set(ConsolePaths::DeviceStop, m_band.start + m_band.span);
}

void ConsoleValues::TakeEnds(bool startMoved)
{
    ValueNumeric<double> const * const span = Number(ConsolePaths::Span);
    if (m_coupling || !span)
        return;
    QScopedValueRollback<bool> const guard(m_coupling, true);
    double const least = span->GetMin();
    double start = Get(ConsolePaths::Start);
    double stop = Get(ConsolePaths::Stop);
    if (stop - start < least) {
        start = std::min(start, m_band.start + m_band.span - least);
        stop = startMoved ? start + least : std::max(stop, m_band.start + least);
        start = stop - least;
        Set(ConsolePaths::Start, start);
        Set(ConsolePaths::Stop, stop);
    }
    Set(ConsolePaths::Span, stop - start);
    Set(ConsolePaths::Centre, start + (stop - start) / 2.0);
}
