// SPDX-License-Identifier: MIT
#include "bearingaxis.h"

#include "azimuthdisplayselect.h"
#include "azimuthview.h"
#include "bearingvalues.h"
#include "resortpopupmenu.h"
#include "toint.h"

#include <QFontMetrics>
#include <QMouseEvent>

#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr int UnitInset = 8;         // px, from the picture beside
constexpr double LabelSpacing = 1.6; // heights of a label, from one to the next

struct AngleStep
{
    double degrees;
    int minor; // between two tics
};

constexpr std::array<AngleStep, 9> AngleSteps{ {
    { 1.0, 1 },
    { 2.0, 1 },
    { 5.0, 4 },
    { 10.0, 1 },
    { 15.0, 2 },
    { 30.0, 2 },
    { 45.0, 2 },
    { 90.0, 2 },
    { 180.0, 1 },
} };

unsigned int TypeOf(BearingAxis::Kind kind)
{
    return kind == BearingAxis::Kind::eAzimuth ? AxisBase::AxisVertical | AxisBase::AxisWrapped
                                               : static_cast<unsigned int>(AxisBase::AxisVertical);
}

char const * NameOf(BearingAxis::Kind kind)
{
    return kind == BearingAxis::Kind::eAzimuth ? "azimuthAxis" : "elevationAxis";
}

} // namespace

BearingAxis::BearingAxis(QWidget * parent, Kind kind)
    : ScaleAxis(parent, NameOf(kind), TypeOf(kind), ScaleStrip::eLineAtFarEdge)
    , m_kind(kind)
{
    SetUnitText(QString(QChar(0xb0)));
    SetLeastSpan(BearingValues::LeastSpan);
    connect(this, &ScaleAxis::signalBest, this, &BearingAxis::ShowAll);
    setAccessibleName(IsCircle() ? tr("Azimuth scale") : tr("Elevation scale"));
    if (!IsCircle())
        return;
    SetWrapValue(AzimuthView::Turn);
    SetDisplayAzimuth_ValuePath(AzimuthDisplaySelect::Instance().CurrentValueSelection());
    BuildMenu();
}

BearingAxis::~BearingAxis() = default;

void BearingAxis::ShowAll()
{
    if (IsCircle())
        BearingValues::ShowAllAzimuths();
    else
        BearingValues::ShowElevations();
}

void BearingAxis::BuildMenu()
{
    ScaleAxis::BuildMenu();
    ResortPopupMenu * const menu = IsCircle() ? GetContextMenu() : nullptr;
    if (!menu)
        return;
    menu->addSeparator();
    menu->addMenu(AzimuthDisplaySelect::Instance().CreateMenu(menu));
}

QString BearingAxis::RangeText() const
{
    return IsCircle() ? tr("Change of the azimuth range") : tr("Change of the elevation range");
}

QRect BearingAxis::ScaleRect() const { return innerRect().adjusted(IsCircle() ? m_ticLength : 0, 0, 0, 0); }

QRect BearingAxis::UnitRect() const
{
    QFontMetrics const metrics = fontMetrics();
    int const extent = metrics.horizontalAdvance(m_unitText);
    QRect const rect(width() - UnitInset - extent, (innerRect().top() - metrics.height()) / 2, extent,
                     metrics.height());
    return this->rect().contains(rect) ? rect : QRect();
}

ScaleTics BearingAxis::Tics() const
{
    ScaleTics tics = ScaleAxis::Tics();
    double const span = tics.stop - tics.start;
    double const room = innerRect().height() / (LabelSpacing * std::max(1, fontMetrics().height()));
    bool const isAngle = std::isfinite(span) && span > 0.0 && span <= 2.0 * AzimuthView::Turn && room > 0.0;
    double const least = isAngle ? span / room : 0.0;
    if (!(least >= 0.5)) // finer steps are decimal
        return tics;
    auto const fits = [least](AngleStep const & row) { return row.degrees >= least; };
    auto const found = std::find_if(AngleSteps.begin(), AngleSteps.end(), fits);
    AngleStep const step = found != AngleSteps.end() ? *found : AngleSteps.back();
    tics.ticStep = step.degrees;
    tics.ticOffset = 0.0;
    tics.firstTic = std::ceil(tics.start / step.degrees) * step.degrees;
    tics.ticCount = toInt(std::floor((tics.stop - tics.firstTic) / step.degrees)) + 1;
    tics.minorTics = step.minor;
    return tics;
}

void BearingAxis::mouseDoubleClickEvent(QMouseEvent * event)
{
    if (!IsCircle())
        ScaleAxis::mouseDoubleClickEvent(event);
}
