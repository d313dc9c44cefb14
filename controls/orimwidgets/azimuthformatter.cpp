// SPDX-License-Identifier: MIT
#include "azimuthformatter.h"

#include "azimuthdisplayselect.h"
#include "rangefold.h"
#include "tree.h"
#include "valuewrap.h"

#include <cmath>

namespace {

constexpr double Turn = 360.0; // degrees
constexpr double PositiveEnd = 359.9999;
constexpr double SignedStart = -180.0;
constexpr double SignedEnd = 179.9999;

double Wrap(double degrees, long mode)
{
    if (!std::isfinite(degrees))
        return degrees;
    bool const positive = (mode & eAzimuthPositive) != 0;
    return FoldByTurns(degrees, positive ? 0.0 : SignedStart, positive ? PositiveEnd : SignedEnd, Turn);
}

} // namespace

AzimuthFormatter::AzimuthFormatter() = default;

AzimuthFormatter::~AzimuthFormatter() { Unbind(); }

void AzimuthFormatter::Unbind()
{
    if (m_pNorth)
        m_pNorth->DeleteObserver(this);
    m_pNorth = nullptr;
}

void AzimuthFormatter::SetNorth(double degrees)
{
    if (!std::isfinite(degrees) || degrees == m_north)
        return;
    m_north = degrees;
    AzimuthDisplaySelect::Instance().NorthOffsetChanged();
}

bool AzimuthFormatter::SetNorth_ValuePath(QString const & path)
{
    Unbind();
    Tree * const tree = Tree::Instance();
    m_pNorth = tree ? tree->FindAs<IValueNumeric>(path) : nullptr;
    if (!m_pNorth || !m_pNorth->AddObserver(this)) {
        m_pNorth = nullptr; // one that is going away takes no observer
        return false;
    }
    SetNorth(m_pNorth->GetNumericValue());
    return true;
}

QString const & AzimuthFormatter::convert(double degrees)
{
    long const mode = AzimuthDisplaySelect::Instance().GetCurrentSelected();
    double const shown = (mode & eAzimuthRelative) != 0 ? degrees - m_north : degrees;
    m_text = QStringLiteral("%1").arg(Wrap(shown, mode), 0, 'f', 1, QLatin1Char(' '));
    return m_text;
}

QString const & AzimuthFormatter::convertSuffixed(double degrees)
{
    m_suffixedText = convert(degrees) + QLatin1Char(' ') + QChar(0xB0);
    return m_suffixedText;
}

void AzimuthFormatter::Update(Observable * subject, TChangeCode code)
{
    if (!m_pNorth || subject != m_pNorth)
        return;
    if (code == eStateChanged && m_pNorth->GetState() == eStateGoingAway)
        Unbind();
    else if (code == eValueChanged)
        SetNorth(m_pNorth->GetNumericValue());
}
