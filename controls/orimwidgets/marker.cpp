// SPDX-License-Identifier: MIT
#include "marker.h"

#include "errorhandler.h"
#include "markerlist.h"
#include "parkinglist.h"
#include "replayonbinding.h"
#include "samevalue.h"
#include "toint.h"
#include "tree.h"
#include "undorecording.h"
#include "valuenumeric.h"

#include <QBrush>
#include <QPen>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <limits>

namespace {

constexpr int MovingTime = 1000;   // ms
constexpr int LongestField = 1100; // characters; a double has at most 309 digits and 1074 decimals
constexpr unsigned short TraceLine = 298;

struct IndexText
{
    int id; // an EMarkerID
    char const * text;
};

// Index 31 bears the text of 30.
constexpr std::array<IndexText, 24> IndexTexts{ {
    { eYellowX, "eYellowX\t" },
    { eYellowY, "eYellowY \t" },
    { eYellowXY, "eYellowXY \t" },
    { eWhiteX, "eWhiteX\t" },
    { eWhiteY, "eWhiteY\t" },
    { eRangeXStart, "eRangeXStart\t" },
    { eRangeXStop, "eRangeXStop\t" },
    { eRangeXCenter, "eRangeXCenter\t" },
    { eRangeYStart, "eRangeYStart\t" },
    { eRangeYStop, "eRangeYStop \t" },
    { eRangeYCenter, "eRangeYCenter \t" },
    { eBlueX, "eBlueX \t" },
    { eBlueY, "eBlueY \t" },
    { eRedX, "eRedX \t" },
    { eRedY, "eRedY \t" },
    { eTemp, "eTemp \t" },
    { eTemp1, "eTemp+1\t" },
    { eTemp2, "eTemp+2\t" },
    { eTemp3, "eTemp+3\t" },
    { eAddYellow, "eAddYellow\t" },
    { eAddYellow1, "eAddYellow+1\t" },
    { eAddYellow2, "eAddYellow+2\t" },
    { eAddYellow3, "eAddYellow+2\t" },
    { eMouseMove, "eMouseMove\t" },
} };

QString TextOfIndex(int index)
{
    for (IndexText const & row : IndexTexts)
        if (row.id == index)
            return QString::fromLatin1(row.text);
    return QStringLiteral("unknown\t");
}

//! A number in the C locale.
QString NumberText(double value, long long fieldWidth, int decimals)
{
    auto const width = static_cast<int>(std::clamp<long long>(fieldWidth, -LongestField, LongestField));
    return QStringLiteral("%1").arg(value, width, 'f', std::clamp(decimals, -1, LongestField), QLatin1Char(' '));
}

//! Leaves an object behind until the process ends: somebody may still use it.
template <class T>
void LeaveBehind(T *& object)
{
    if (object)
        ParkingList::Park([object] { delete object; });
    object = nullptr;
}

template <class T>
void Delete(T *& object)
{
    delete object;
    object = nullptr;
}

//! How many pixels an axis may have, at least 1.
int CountPixels(MarkerList & axis, int direction)
{
    double start = 0.0;
    double stop = 0.0;
    axis.GetCurrentStartStop(direction, start, stop);
    int const from = axis.ValueToPixel(direction, start);
    int const to = axis.ValueToPixel(direction, stop);
    int const mapped = from >= 0 && to >= 0 ? std::abs(to - from) : 0;
    return std::min(std::max({ mapped, axis.width(), axis.height() }), QWIDGETSIZE_MAX) + 1;
}

} // namespace

QBrush * Marker::m_GrayBrush = nullptr;

void Marker::Bond::Set(IValueNumeric * value)
{
    m_pValue = value;
    m_life = value ? LifeWatch(value->GetLifetime()) : LifeWatch();
}

Marker::Marker() = default;

Marker::Marker(Marker & other) : IObserver(other) { CopyState(other); }

Marker & Marker::operator=(Marker const & other)
{
    if (this == &other)
        return *this;
    IObserver::operator=(other);
    LeaveBehind(m_pTextPen);
    LeaveBehind(m_pBrush);
    LeaveBehind(m_pPen);
    CopyState(other);
    return *this;
}

Marker::~Marker()
{
    StopTimer();
    ClearInternals();
    if (m_pOwner)
        m_pOwner->Forget(this);
}

void Marker::CopyState(Marker const & other)
{
    m_rect = m_rulerRect = QRect(QPoint(0, 0), QPoint(-2, -2));
    m_color = IColorBase::eColorMarker;
    m_pixel = m_resultPixel = -1;
    m_pParent = nullptr;
    m_value = other.m_value;
    m_showFlag = other.m_showFlag;
    m_formatWidth = other.m_formatWidth;
    m_formatPrecision = other.m_formatPrecision;
    m_moveable = other.m_moveable;
    m_showOffset = other.m_showOffset;
    m_offsetPixels = other.m_offsetPixels;
    m_wrapAround = other.m_wrapAround;
    m_valuePath = other.m_valuePath;
    m_enabled = other.m_enabled;
    m_useMovingValue = other.m_useMovingValue;
    m_gapId = other.m_gapId;
    m_current = other.m_current;
    m_neverShow = other.m_neverShow;
    m_showResult = other.m_showResult;
    m_factor = other.m_factor;
    m_fillBelow = other.m_fillBelow;
    Unbind(m_boundValue, m_boundOffset);
    Unbind(m_boundOffset, m_boundValue);
    Hold(m_boundValue, other.m_boundValue.Get());
    Hold(m_boundOffset, other.m_boundOffset.Get());
}

void Marker::Update(Observable * subject, TChangeCode code)
{
    bool const isBound = subject && (subject == m_boundValue.Get() || subject == m_boundOffset.Get());
    LifeWatch const life(GetObserverLifetime());
    if (isBound && code == eStateChanged)
        HearState(subject);
    if (life.IsOver() || !GetParent() || !GetParent()->isVisible())
        return;
    InvalidatePixel();
    if (!isBound)
        return;
    if (code == eValueChanged || code == eInterimChanged)
        TakeNumber(subject, code == eInterimChanged);
    else if (code != eStateChanged)
        return;
    if (!life.IsOver())
        MoveIntoRangeAndDraw(true);
}

void Marker::HearState(Observable const * subject)
{
    IValueNumeric const * const value = subject == m_boundValue.Get() ? m_boundValue.Get() : m_boundOffset.Get();
    switch (value->GetState()) {
    case eStateValid:
        setEnabled(true);
        break;
    case eStateGoingAway:
        if (subject == m_boundValue.Get())
            Unbind(m_boundValue, m_boundOffset);
        if (subject == m_boundOffset.Get())
            Unbind(m_boundOffset, m_boundValue);
        break;
    case eStateDisabled:
        setEnabled(false);
        break;
    }
}

//! Takes over what a bound value holds, or its interim value, which is not written back.
void Marker::TakeNumber(Observable const * subject, bool interim)
{
    LifeWatch const life(GetObserverLifetime());
    bool const isOffset = subject == m_boundOffset.Get();
    if (subject == m_boundValue.Get()) {
        IValueNumeric * const value = m_boundValue.Get();
        m_value = (interim ? value->GetInterimValue() : value->GetNumericValue()) * m_factor;
        SetMoving(true, true);
        if (!interim)
            value->SetInterimValue(value->GetNumericValue(), this); // dividing would miss it by a rounding
        if (!life.IsOver())
            TellLastMovingIndex();
    }
    IValueNumeric const * const offset = isOffset && !life.IsOver() ? m_boundOffset.Get() : nullptr;
    if (!offset)
        return;
    m_offset = interim ? offset->GetInterimValue() : offset->GetNumericValue();
    SetMoving(true, true);
}

double Marker::GetValue() { return m_value; }

bool Marker::GetConnected() { return m_boundValue.Get() != nullptr; }

void Marker::setEnabled(bool enabled) { m_enabled = enabled; }

bool Marker::Set_ValuePath(QString const & path)
{
    QString const kept = path; // the argument may be a member of this
    Unbind(m_boundValue, m_boundOffset);
    m_valuePath = kept;
    InvalidatePixel();
    return BindPath(m_boundValue, kept);
}

bool Marker::SetOffset_ValuePath(QString const & path)
{
    Unbind(m_boundOffset, m_boundValue);
    InvalidatePixel();
    return BindPath(m_boundOffset, path);
}

//! The marker stays an observer of a value that the other bond holds too.
void Marker::Unbind(Bond & bond, Bond const & other)
{
    IValueNumeric * const value = bond.Get();
    bond.Set(nullptr);
    if (value && value != other.Get())
        value->DeleteObserver(this);
}

bool Marker::BindPath(Bond & bond, QString const & path)
{
    Tree const * const tree = Tree::Instance();
    Hold(bond, tree ? tree->FindAs<IValueNumeric>(path) : nullptr);
    IValueNumeric * const value = bond.Get();
    if (!value)
        return false;
    ReplayOnBinding(value->GetValueBase(), this); // may end this
    return true;
}

void Marker::Hold(Bond & bond, IValueNumeric * value)
{
    bool const hears = value && (value->AddObserver(this) || value->HasObserver(this));
    bond.Set(hears ? value : nullptr);
}

void Marker::Update()
{
    LifeWatch const life(GetObserverLifetime());
    if (IValueNumeric * const value = m_boundValue.Get()) {
        m_value = value->GetNumericValue() * m_factor;
        SetMoving(true, true);
        value->SetInterimValue(value->GetNumericValue(), this);
        if (!life.IsOver())
            TellLastMovingIndex();
    }
    if (life.IsOver())
        return;
    if (IValueNumeric const * const offset = m_boundOffset.Get())
        m_offset = offset->GetNumericValue();
    MoveIntoRangeAndDraw(false);
    if (MarkerList * const parent = GetParent())
        parent->updateWidget();
}

double Marker::SetValue(double v)
{
    double const product = v * m_factor;
    if (sameValue(m_value, product))
        return m_value;
    m_value = product;
    InvalidatePixel();
    LifeWatch const life(GetObserverLifetime());
    double const kept = m_boundValue.Get() ? WriteBoundValue(product) : product;
    if (!life.IsOver())
        TellLastMovingIndex();
    return kept;
}

double Marker::WriteBoundValue(double product)
{
    GuiUndoRecordingHelper const recording(GetParent(), QString());
    LifeWatch const life(GetObserverLifetime());
    m_boundValue.Get()->SetNumericValue(product, nullptr);
    if (life.IsOver())
        return product;
    if (!m_boundValue.Get())
        return m_value;
    double kept = m_boundValue.Get()->GetNumericValue();
    m_value = kept;
    m_boundValue.Get()->SetInterimValue(product, nullptr);
    if (!life.IsOver() && m_boundValue.Get()) {
        kept = m_boundValue.Get()->GetNumericValue() / m_factor;
        m_value = kept;
    }
    return kept;
}

void Marker::TellLastMovingIndex()
{
    if (MarkerList * const parent = GetParent())
        parent->SetLastMovingIndex(parent->GetIndex(this));
}

double Marker::SetMovingValue(double v)
{
    if (!m_useMovingValue)
        return SetValue(v);
    if (!m_boundValue.Get())
        return m_value;
    double const product = v * m_factor;
    LifeWatch const life(GetObserverLifetime());
    m_boundValue.Get()->SetInterimValue(product, nullptr);
    if (life.IsOver())
        return product;
    if (IValueNumeric const * const value = m_boundValue.Get())
        m_value = value->GetInterimValue() / m_factor;
    return m_value;
}

double Marker::GetDrawValue() const
{
    IValueNumeric const * const value = m_boundValue.Get();
    return value ? value->GetInterimValue() * m_factor : 0.0;
}

double Marker::GetUnWrappedValue() const
{
    double const wrap = GetParent() ? GetParent()->GetWrapValue() : -1.0;
    return wrap != -1.0 && m_value < 0.0 ? m_value + wrap : m_value;
}

bool Marker::Changing() const
{
    IValueNumeric const * const value = m_boundValue.Get();
    return value && value->GetInterimValue() != value->GetNumericValue();
}

void Marker::EndMoving()
{
    IValueNumeric * const value = m_boundValue.Get();
    if (!value)
        return;
    GuiUndoRecordingHelper const recording(GetParent(), QString());
    value->CommitInterimValue(nullptr);
}

bool Marker::Move2NextPixel(bool forward)
{
    MarkerList * const parent = GetParent();
    IValueNumeric const * const value = m_boundValue.Get();
    if (!parent || !value)
        return false;
    int const direction = m_special & eSpecialX ? eMarkerX : eMarkerY;
    int const start = m_pixel == -1 ? parent->ValueToPixel(direction, m_value) : m_pixel;
    int const count = CountPixels(*parent, direction);
    if (start < 0 || start > std::numeric_limits<int>::max() - count)
        return false;
    bool const isReversed = m_special & eSpecialY;
    int const step = forward != isReversed ? 1 : -1;
    for (int turn = 1; turn <= count; ++turn) {
        InvalidatePixel();
        double const wanted = parent->PixelToValue(direction, start + turn * step);
        if (parent->ValueToPixel(direction, value->Snap(wanted)) != start)
            return wanted != -1.0 && MoveWithinRange(direction, wanted);
    }
    return false;
}

bool Marker::MoveWithinRange(int direction, double value)
{
    double start = 0.0;
    double stop = 0.0;
    GetParent()->GetCurrentStartStop(direction, start, stop);
    if (start > stop)
        std::swap(start, stop);
    SetMovingValue(std::clamp(value, start, stop)); // may end this
    return true;
}

bool Marker::Moved() const { return !sameValue(m_lastDrawnValue, m_value); }

void Marker::SetWrapAround(int period)
{
    m_wrapAround = period;
    MoveIntoRangeAndDraw(true);
}

void Marker::SetWrapIntoRange(int start, int stop)
{
    m_wrapStart = start;
    m_wrapStop = stop;
    MoveIntoRangeAndDraw(true);
}

void Marker::GetWrapIntoRange(int & start, int & stop) const
{
    start = m_wrapStart;
    stop = m_wrapStop;
}

void Marker::MoveIntoRangeAndDraw(bool draw)
{
    bool wrapped = false;
    if (m_wrapAround != -1 && m_wrapStart < m_wrapStop) {
        if (m_value + m_offset < m_wrapStart) {
            m_value += m_wrapAround;
            wrapped = true;
        }
        if (m_value + m_offset > m_wrapStop) {
            m_value -= m_wrapAround;
            wrapped = true;
        }
    }
    if (wrapped && (m_special & eSpecialShowMoving))
        SetMoving(true, true);
    MarkerList * const parent = GetParent();
    if (draw && parent)
        parent->updateWidget();
}

bool Marker::GetShowMarker() const
{
    if (m_special & eSpecialAlwaysShow)
        return true;
    if (m_neverShow)
        return false;
    return m_showFlag || ((m_special & eSpecialShowMoving) && m_moving);
}

bool Marker::GetShowResult() const
{
    return !m_neverShow && m_showFlag && (m_special & eSpecialResult) && m_showResult;
}

bool Marker::SetShowMarker(bool show, bool noSignal)
{
    LifeWatch const life(GetObserverLifetime());
    if (show != m_showFlag) {
        m_showFlag = show;
        InvalidatePixel();
        if (GetParent() && !noSignal)
            GetParent()->sendSignalSetState(m_valuePath, eMarkerShow, show);
        if (life.IsOver())
            return show;
        if (MarkerList * const parent = GetParent()) {
            parent->RebuildMarkerList();
            parent->SetMustRecalcRulers(true);
        }
    }
    Update();
    return show;
}

void Marker::SetMoving(bool moving, bool noSignal)
{
    bool const wasShown = GetShowMarker();
    if (moving != m_moving) {
        m_moving = moving;
        if (!GetParent())
            return;
        LifeWatch const life(GetObserverLifetime());
        if (!noSignal)
            GetParent()->sendSignalSetState(m_valuePath, eMarkerMoving, moving);
        if (life.IsOver())
            return;
        if (GetParent() && GetShowMarker() != wasShown)
            GetParent()->RebuildMarkerList();
    }
    if (moving)
        RestartTimer();
}

bool Marker::SetCurrentMarker(bool current, bool noSignal)
{
    LifeWatch const life(GetObserverLifetime());
    if (GetParent() && !noSignal)
        GetParent()->sendSignalSetState(m_valuePath, eMarkerCurrent, current);
    if (life.IsOver())
        return current;
    m_current = current;
    if (!current || !(m_special & eSpecialShowMoving))
        return current;
    RestartTimer();
    SetMoving(true, false);
    if (!life.IsOver() && GetParent())
        GetParent()->QWidget::update();
    return current;
}

void Marker::RestartTimer()
{
    MarkerList * const parent = GetParent();
    if (!parent)
        return;
    StopTimer();
    m_timerId = parent->startTimer(MovingTime);
    m_pTimerHost = parent;
}

void Marker::StopTimer()
{
    if (m_timerId > 0 && m_pTimerHost)
        m_pTimerHost->killTimer(m_timerId);
    m_timerId = -1;
}

void Marker::SetParent(MarkerList * parent) { m_pParent = parent; }

MarkerList * Marker::GetParent() const { return m_pParent; }

void Marker::InvalidatePixel()
{
    m_pixel = -1;
    m_resultPixel = -1;
    MarkerList * const parent = GetParent();
    if (parent && parent->isVisible() && GetShowMarker())
        parent->SetMustRecalcRulers(true);
}

void Marker::SetShowOffset(bool show, int pixels)
{
    m_showOffset = show;
    m_offsetPixels = pixels;
    InvalidatePixel();
}

bool Marker::GetShowOffset(int & pixels) const
{
    if (!m_enabled)
        return false;
    pixels = m_offsetPixels;
    return m_showOffset;
}

int Marker::GetFlagOffsetLine() const { return m_special & eSpecialFlagOnTop ? m_rect.top() : m_rect.bottom(); }

void Marker::SetFormat(int width, int precision)
{
    m_formatWidth = width;
    m_formatPrecision = precision;
}

void Marker::GetFormat(int & width, int & precision) const
{
    width = m_formatWidth;
    precision = m_formatPrecision;
}

QString Marker::GetStringValue(bool * formatted) const
{
    bool const hasFormat = m_formatWidth != -1 || m_formatPrecision != -1;
    if (formatted)
        *formatted = hasFormat;
    if (!hasFormat)
        return NumberText(GetUnWrappedValue(), 6, 3);
    long long const fieldWidth = static_cast<long long>(m_formatWidth) + m_formatPrecision;
    return NumberText(GetUnWrappedValue(), fieldWidth, m_formatPrecision);
}

QString Marker::GetStringValue(double /*unused*/, bool * formatted) const
{
    if (m_formatPrecision != 0)
        return GetStringValue(formatted);
    if (formatted)
        *formatted = true;
    double const value = GetUnWrappedValue();
    return QString::number(toInt<long long>(value > 0.0 ? value + 0.5 : value - 0.5));
}

void Marker::TraceIndexAndName()
{
    MarkerList * const parent = GetParent();
    if (!parent || !(ErrorHandler::Instance().GetTraceMask() & ErrorHandler::TraceBit))
        return;
    QString const text = QStringLiteral("Marker ") + TextOfIndex(parent->GetIndex(this)) + m_markerName +
                         QLatin1Char('\t') + NumberText(m_value, 0, -1) + QLatin1Char('\t') + m_valuePath;
    _Q_Trace(text, QStringLiteral("controls/orimwidgets/marker"), TraceLine);
}

bool Marker::isMeasurementId(EMarkerID const & id) { return id >= eRangeXStart && id <= eRangeYCenter; }

void Marker::SetColor(IColorBase::ECOLOR color)
{
    if (color == m_color)
        return;
    m_color = color;
    Delete(m_pTextPen);
    Delete(m_pPen);
    Delete(m_pBrush);
}

QColor Marker::GetQColor() const { return ColorSet::Instance()[m_color]; }

QBrush * Marker::GetBrush()
{
    if (!m_enabled) {
        if (!m_GrayBrush)
            m_GrayBrush = new QBrush(Qt::gray);
        return m_GrayBrush;
    }
    if (!m_pBrush)
        m_pBrush = new QBrush(GetQColor());
    return m_pBrush;
}

QPen * Marker::GetPen()
{
    if (!m_pPen)
        m_pPen = new QPen(GetQColor());
    return m_pPen;
}

QPen * Marker::GetTextPen()
{
    if (!m_pTextPen) {
        QRgb const rgb = GetQColor().rgb();
        double const brightness = ((11 * qRed(rgb) + 16 * qGreen(rgb) + 5 * qBlue(rgb)) >> 5) / 255.0;
        m_pTextPen = new QPen(brightness < 0.3 ? Qt::white : Qt::black);
    }
    return m_pTextPen;
}

void Marker::clearColors()
{
    Delete(m_pTextPen);
    Delete(m_pBrush);
    Delete(m_GrayBrush);
    Delete(m_pPen);
}

void Marker::ClearInternals()
{
    clearColors();
    Unbind(m_boundValue, m_boundOffset);
    Unbind(m_boundOffset, m_boundValue);
}
