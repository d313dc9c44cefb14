// SPDX-License-Identifier: MIT
#include "frequencyaxis.h"

#include "numbertexts.h"

#include <QFontMetrics>

#include <algorithm>
#include <cmath>

namespace {

constexpr int TicsAndGaps = 10; // px

} // namespace

FrequencyAxis::FrequencyAxis(QWidget * parent)
    : ScaleAxis(parent, "frequencyAxis", AxisHorizontal | AxisFrequency, ScaleStrip::eLineAtNearEdge)
{
    setAccessibleName(tr("Frequency scale"));
    connect(this, &AxisBase::signalRangeChanged, this, &FrequencyAxis::TakeUnit);
    TakeUnit();
}

FrequencyAxis::~FrequencyAxis() = default;

QString FrequencyAxis::RangeText() const { return tr("Change of the frequency range"); }

int FrequencyAxis::Thickness() const { return TicsAndGaps + fontMetrics().height(); }

void FrequencyAxis::TakeUnit()
{
    NumberTexts::FrequencyUnit const unit = NumberTexts::UnitOf(std::max(std::abs(GetStart()), std::abs(GetStop())));
    QString const name = QLatin1String(unit.name);
    if (name == GetPureUnitText())
        return;
    SetDisplayFactor(1.0 / unit.hertz);
    SetUnitText(name); // finds the tics anew
}
