// SPDX-License-Identifier: MIT
#include "axisbase.h"

#include "axisaccessible.h"
#include "axisrangedisplay.h"
#include "axistext.h"
#include "clientwindow.h"
#include "colorset.h"
#include "datetime.h"
#include "guibase.h"
#include "guicentral.h"
#include "handlerbase.h"
#include "marker.h"
#include "suffixeddouble.h"
#include "toint.h"
#include "valueselection.h"
#include "valuewrap.h"
#include "vcscrollbuttons.h"

#include <QPalette>
#include <QResizeEvent>
#include <QToolButton>

#include <cmath>
#include <utility>

AxisBase::AxisBase(QWidget * parent, char const * name, unsigned int axisType, int fixedSidePixels, int ticLength,
                   int fontPointSize)
    : MarkerList(parent, name)
    , m_fixedSidePixels(fixedSidePixels)
    , m_ticLength(ticLength)
    , m_fontPointSize(fontPointSize)
    , m_axisType(axisType)
    , m_forceRebuild(3)
    , m_shadingColor((axisType & AxisShading) != 0 ? VC::eShadingLevel : VC::eShadingNone)
{
    setMouseTracking(true);
    AxisAccessible::Install();
    GuiCentral::Instance(); // the colours must be there before the first axis
    QString const family = GuiBase::Instance().GetFontFamily();
    m_font = QFont(family, fontPointSize);
    m_fontLarger = QFont(family, ClampToInt(fontPointSize + 1LL));
    m_fontBold = QFont(family, ClampToInt(fontPointSize + 4LL), QFont::Bold);
    slotRefreshPixmapNow();
    connect(&GuiBase::Instance(), &GuiBase::signalColorsChanged, this, &AxisBase::slotRefreshPixmapNow);
    if ((m_axisType & AxisTimeStamps) != 0)
        StartTimeAxis();
}

void AxisBase::StartTimeAxis()
{
    m_pDateTime = std::make_unique<Orim::DateTime>(0ULL);
    m_pTimeZone = GuiBase::Instance().GetTimeZone();
    if (!m_pTimeZone)
        return;
    m_pTimeZone->AddObserver(this);
    m_pDateTime->setOffsetFromUTC(toInt<long long>(m_pTimeZone->GetCurrentValue()));
}

void AxisBase::slotRefreshPixmapNow()
{
    QColor const ground = ColorSet::Instance()[IColorBase::eColorAxisScale];
    QPalette palette;
    palette.setColor(backgroundRole(), ground);
    setPalette(palette);
    m_bgBrush = QBrush(ground);
    m_bgPen = QPen(ground);
    m_textPen = QPen(ColorSet::Instance()[IColorBase::eColorAxisForeground]);
    BuildMenu();
    CalcValues();
    SetMustRecalcRulers(true);
    RepairDrawing();
}

void AxisBase::RepairDrawing()
{
    m_pPixmap.reset();
    update();
}

bool AxisBase::bMustRebuildPixMap() { return true; }

int AxisBase::ScrollYPixelOffset() const { return 0; }

bool AxisBase::UpperBorder(double /*value*/) { return false; }

// Range

void AxisBase::CalcValues()
{
    m_calcStart = m_start;
    m_calcStop = m_stop;
    m_ticCount = GetAxisValues(&m_calcStart, &m_calcStop, &m_minorTics, &m_leftDigits, &m_rightDigits, &m_firstTic,
                               &m_ticStep, &m_ticOffset, 1);
}

void AxisBase::SetStartValue(double value) { StoreEnd(m_start, m_pStart, value); }

void AxisBase::SetStopValue(double value) { StoreEnd(m_stop, m_pStop, value); }

void AxisBase::StoreEnd(double & end, ValueNumeric<double> *& bound, double value)
{
    LifeWatch const life(GetObserverLifetime());
    end = value;
    if (bound)
        bound->SetValue(value, this);
    if (life.IsOver())
        return;
    if (bound)
        end = bound->GetValue();
    CalcValues();
    Repair();
    Q_EMIT redrawBars();
    if (!life.IsOver())
        Q_EMIT signalRangeChanged();
}

double AxisBase::GetStart() { return m_start; }

double AxisBase::GetStop() { return m_stop; }

void AxisBase::SetRange(double start, double stop)
{
    m_fixedRange = false;
    if (!SetEnds(start, stop))
        return;
    CalcValues();
    update();
}

bool AxisBase::SetEnds(double start, double stop)
{
    LifeWatch const life(GetObserverLifetime());
    SetStartValue(start);
    if (!life.IsOver())
        SetStopValue(stop);
    return !life.IsOver();
}

void AxisBase::SetFixedRange(double start, double stop, int ticCount, int leftDigits, int rightDigits, double firstTic,
                             double ticStep)
{
    m_leftDigits = leftDigits;
    m_rightDigits = rightDigits;
    m_calcStart = firstTic;
    m_calcStop = stop;
    m_start = start;
    m_stop = stop;
    m_ticStep = ticStep;
    m_firstTic = firstTic;
    m_ticCount = ticCount;
    m_ticOffset = 0.0;
    m_fixedRange = true;
    update();
}

void AxisBase::SetDefaultRange(double start, double stop)
{
    ClearUnZoom();
    m_defaultStart = start;
    m_defaultStop = stop;
}

void AxisBase::GetDefaultRange(double & start, double & stop) const
{
    start = m_defaultStart;
    stop = m_defaultStop;
}

void AxisBase::SetDeviceRange(double start, double stop)
{
    m_deviceStart = start;
    m_deviceStop = stop;
}

void AxisBase::GetDeviceRange(double & start, double & stop) const
{
    start = m_deviceStart;
    stop = m_deviceStop;
}

void AxisBase::GetCurrentStartStop(int /*section*/, double & start, double & stop)
{
    start = m_start;
    stop = m_stop;
}

void AxisBase::SetOffset(double offset)
{
    LifeWatch const life(GetObserverLifetime());
    m_offset = offset;
    if (m_pOffset)
        m_pOffset->SetValue(offset, this);
    if (!life.IsOver() && m_pOffset2)
        m_pOffset2->SetNumericValue(offset, nullptr);
    if (!life.IsOver())
        MoveScrolledRange();
}

void AxisBase::SetPixPerSecond(double pixels)
{
    LifeWatch const life(GetObserverLifetime());
    m_pixPerSecond = pixels;
    if (m_pPixPerSecondValue)
        m_pPixPerSecondValue->SetValue(pixels, nullptr);
    if (!life.IsOver())
        MoveScrolledRange();
}

void AxisBase::MoveScrolledRange()
{
    if (!m_pPixPerSecondValue || !(m_pOffset || m_pOffset2) || !IsHorizontal()) {
        CalcValues();
        Repair();
        return;
    }
    LifeWatch const life(GetObserverLifetime());
    SetStartValue(m_offset);
    if (!life.IsOver())
        SetStopValue(TimeSpanEnd());
}

double AxisBase::TimeSpanEnd() const
{
    double const pixels =
        static_cast<double>(geometry().right()) - m_leftTopOffset - m_rightBottomOffset - geometry().left() + 1.0;
    return pixels / m_pixPerSecond + m_start;
}

void AxisBase::resizeEvent(QResizeEvent * event)
{
    LifeWatch const life(GetObserverLifetime());
    MarkerList::resizeEvent(event);
    SetMustRecalcRulers(true);
    if (m_pPixPerSecondValue)
        SetStopValue(TimeSpanEnd());
    if (life.IsOver())
        return;
    if (IsAxisRangeVisible())
        m_pAxisRangeDisplay->resize(event->size());
    Q_EMIT redrawBars();
}

// Look

void AxisBase::SetDisplayFactor(double factor)
{
    m_displayFactor = factor;
    Repair();
    if (IsAxisRangeVisible())
        m_pAxisRangeDisplay->ShowValues();
}

void AxisBase::SetRelative(bool relative)
{
    if (relative == m_relative)
        return;
    m_relative = relative;
    Repair();
}

void AxisBase::toggleAbsoluteRelative()
{
    m_relative = !m_relative;
    Repair();
}

void AxisBase::SetPixOffset(int leftTop, int rightBottom)
{
    m_leftTopOffset = leftTop;
    m_rightBottomOffset = rightBottom;
    Repair();
}

void AxisBase::SetFixedTicWidth(int width)
{
    m_fixedTicWidth = width;
    if (!isVisible())
        return;
    CalcValues();
    RepairDrawing();
}

std::vector<int> & AxisBase::GetTicsVector()
{
    RepairDrawing();
    return m_tics;
}

void AxisBase::EnableDraw(bool on)
{
    m_drawEnabled = on;
    update();
}

void AxisBase::SetBgColor(QColor & color)
{
    m_bgBrush = QBrush(color);
    m_bgPen = QPen(color);
}

void AxisBase::SetTextColor(QColor & color) { m_textPen = QPen(color); }

void AxisBase::SetResultPanelPixelValue(int pixel, double value)
{
    m_resultPanelPixel = pixel;
    m_resultPanelValue = value;
    update();
}

void AxisBase::SetShadingColor(VC::EShadingColor const & color)
{
    if (m_pShadingColor)
        m_pShadingColor->Select(static_cast<long>(color), nullptr);
    else
        StoreShadingColor(color, color != VC::eShadingNone);
}

void AxisBase::StoreShadingColor(int color, bool active)
{
    m_shadingColor = color;
    if (active)
        m_axisType |= AxisShading;
    else
        m_axisType &= ~static_cast<unsigned int>(AxisShading);
    Repair();
}

// Unit and numbers

void AxisBase::SetConverter(SuffixedDouble * converter)
{
    if (converter != m_pConverter.get())
        m_pConverter.reset(converter);
    Repair();
    if (IsAxisRangeVisible())
        m_pAxisRangeDisplay->ShowValues();
}

SuffixedDouble * AxisBase::GetConverter() const { return m_pConverter.get(); }

VCScrollButtons * AxisBase::GetScrollButtons() const { return m_pScrollButtons.get(); }

void AxisBase::setFocusProxy(QWidget * proxy)
{
    if (m_pScrollButtons)
        for (QToolButton * const button : m_pScrollButtons->findChildren<QToolButton *>())
            button->setFocusProxy(proxy);
    MarkerList::setFocusProxy(proxy);
}

void AxisBase::SetUnitText(QString unit)
{
    m_unitText = std::move(unit);
    CalcValues();
    Repair();
}

QString AxisBase::GetUnitText() { return QLatin1Char('[') + GetPureUnitText() + QLatin1Char(']'); }

QString AxisBase::GetPropertyPageUnitText()
{
    return (m_axisType & AxisTimeStamps) != 0 ? QStringLiteral("[Timestamp in UTC]") : GetUnitText();
}

QString AxisBase::GetPureUnitText()
{
    if (m_useHandlerBaseSuffix)
        return HandlerBase::GetLevelUnit();
    if (m_pUnitSelection && m_pUnitSelection->GetCurrentItem())
        return m_pUnitSelection->GetCurrentItem()->GetName();
    if (m_pConverter)
        m_unitText = m_pConverter->GetPureSuffix();
    return m_unitText;
}

double AxisBase::String2double(QString text)
{
    if (m_pConverter)
        return m_pConverter->GetValue(text);
    if (IsTimeAxis()) {
        m_pDateTime->setTime_ts(0); // which a text that is no time leaves
        return static_cast<double>(m_pDateTime->fromString(text));
    }
    double const value = text.toDouble();
    return std::isfinite(value) ? value : 0.0;
}

QString AxisBase::double2String(double value, char const * format)
{
    if (m_pConverter)
        return m_pConverter->GetSignificantStringNoSuffix(value);
    if (!IsTimeAxis())
        return AxisText::Number(value, m_rightDigits);
    m_pDateTime->setTime_ts(AxisText::TimeStamp(value));
    long long const zone = GuiBase::Instance().GetTimeZoneValue();
    return format ? m_pDateTime->toString(QString::fromLatin1(format), zone) : m_pDateTime->toString(zone);
}

void AxisBase::WrapValue4Display(double & value) const
{
    if (m_pDisplayAzimuth)
        value = WrapForDisplay(value, m_pDisplayAzimuth->GetCurrentKey());
}

void AxisBase::BuildFormatString(QString & out, double value, Marker * marker)
{
    WrapValue4Display(value);
    if (m_pConverter) {
        out = m_pConverter->GetSignificantStringNoSuffix(value);
    } else if (IsTimeAxis()) {
        m_pDateTime->setTime_ts(AxisText::TimeStamp(value));
        out = m_pDateTime->toString(m_timeFormatString);
    } else if (marker) {
        out = marker->GetStringValue(value, nullptr);
    } else {
        out = AxisText::Label(value, m_leftDigits, m_rightDigits);
    }
}
