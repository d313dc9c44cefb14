// SPDX-License-Identifier: MIT
#include "vcscrollbuttons.h"

#include "toint.h"

#include <QBoxLayout>
#include <QPointer>
#include <QToolButton>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

// Ranges that count as endless: that of all int, and what no quantity fills.
constexpr double WholeRange = 4294967295.0;
constexpr double RealRange = 1e300;

using Wide = ValueNumeric<long long>; // beyond 2^53 a double does not tell its numbers apart

//! The number one step up or down, not beyond the ends of the type.
long long StepOf(long long number, long long step, bool up)
{
    using Limits = std::numeric_limits<long long>;
    if (up)
        return number > Limits::max() - step ? Limits::max() : number + step;
    return number < Limits::min() + step ? Limits::min() : number - step;
}

struct Room
{
    bool below;
    bool above;
};

Room RoomOf(IValueNumeric const * value)
{
    if (!value)
        return { false, false };
    if (auto const * const wide = dynamic_cast<Wide const *>(value))
        return { wide->GetValue() > wide->GetMin(), wide->GetValue() < wide->GetMax() };
    double const number = value->GetNumericValue();
    return { number > value->GetNumericMin(), number < value->GetNumericMax() };
}

} // namespace

VCScrollButtons::VCScrollButtons(QWidget * parent, char const * name, Qt::Orientation orientation)
    : QWidget(parent)
    , m_pDown(new QToolButton(this))
    , m_pUp(new QToolButton(this))
{
    setObjectName(QString::fromLatin1(name));
    bool const horizontal = orientation == Qt::Horizontal;
    m_pDown->setObjectName(QStringLiteral("down"));
    m_pDown->setArrowType(horizontal ? Qt::LeftArrow : Qt::DownArrow);
    m_pUp->setObjectName(QStringLiteral("up"));
    m_pUp->setArrowType(horizontal ? Qt::RightArrow : Qt::UpArrow);
    auto * const layout =
        new QBoxLayout(horizontal ? QBoxLayout::LeftToRight : QBoxLayout::BottomToTop, this); // down comes first
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    for (QToolButton * const button : { m_pDown, m_pUp }) {
        button->setAutoRepeat(true);
        button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
        layout->addWidget(button);
    }
    connect(m_pDown, &QToolButton::clicked, this, &VCScrollButtons::slotStepDown);
    connect(m_pUp, &QToolButton::clicked, this, &VCScrollButtons::slotStepUp);
    ShowLimits();
}

VCScrollButtons::~VCScrollButtons() = default;

bool VCScrollButtons::Set_ValuePath(QString const & path)
{
    bool const found = m_value.BindPath(path);
    ShowLimits();
    return found;
}

double VCScrollButtons::GetStep() const
{
    IValueNumeric const * const value = m_value.Get();
    if (!value)
        return 0.0;
    if (value->GetNumericStep() > 0.0)
        return value->GetNumericStep();
    double const range = value->GetNumericMax() - value->GetNumericMin();
    bool const whole = !dynamic_cast<ValueNumeric<double> const *>(value);
    if (!(range > 0.0) || range >= (whole ? WholeRange : RealRange))
        return 1.0;
    return whole ? std::max(1.0, std::floor(range / 100.0)) : range / 100.0;
}

void VCScrollButtons::Update(Observable * subject, TChangeCode code)
{
    m_value.Hears(subject, code);
    ShowLimits();
}

void VCScrollButtons::slotStepDown() { StepBy(-1); }

void VCScrollButtons::slotStepUp() { StepBy(1); }

void VCScrollButtons::StepBy(int direction)
{
    IValueNumeric * const value = m_value.Get();
    if (!value)
        return;
    QPointer<VCScrollButtons> const self(this);
    {
        GuiUndoRecordingHelper const recording(this, tr("Step %1").arg(value->GetValueBase()->GetName()));
        if (auto * const wide = dynamic_cast<Wide *>(value)) {
            long long const step = wide->GetStep() > 0 ? wide->GetStep() : toInt<long long>(GetStep());
            wide->SetValue(StepOf(wide->GetValue(), step, direction > 0), this);
        } else {
            value->SetNumericValue(value->GetNumericValue() + direction * GetStep(), this);
        }
    }
    if (self)
        ShowLimits();
}

void VCScrollButtons::ShowLimits()
{
    Room const room = RoomOf(m_value.Get());
    m_pDown->setEnabled(room.below);
    m_pUp->setEnabled(room.above);
}
