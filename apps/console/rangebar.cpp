// SPDX-License-Identifier: MIT
#include "rangebar.h"

#include "axisbase.h"
#include "axisrangedisplay.h"
#include "numbertexts.h"

#include <QHBoxLayout>
#include <QPointer>
#include <QPushButton>
#include <QSignalBlocker>

#include <algorithm>
#include <cmath>

namespace {

constexpr int Spare = 7;  // px, of the row above and below its texts
constexpr int Apart = 12; // px between displays

} // namespace

RangeBar::RangeBar(QWidget * parent) : QWidget(parent), m_pLayout(new QHBoxLayout(this))
{
    setObjectName(QStringLiteral("rangeBar"));
    setFixedHeight(fontMetrics().height() + Spare);
    m_pLayout->setContentsMargins(0, 0, 0, 0);
    m_pLayout->setSpacing(Apart);
    hide();
}

RangeBar::~RangeBar() = default;

AxisRangeDisplay * RangeBar::Add(Range const & range)
{
    auto * const display = new AxisRangeDisplay(range.axis, range.name, range.style);
    range.axis->SetAxisRangeDisplay(nullptr); // which would give it the size of the axis
    m_pLayout->addWidget(display, 1);
    display->SetRuler1_ValuePath(QLatin1String(range.lower));
    display->SetRuler2_ValuePath(QLatin1String(range.upper));
    Entry entry{ display, std::make_unique<ValueFollower>([this] { ShowDisplays(); }),
                 std::make_unique<ValueFollower>([this] { ShowDisplays(); }) };
    ValueFollower & first = *entry.firstShown;
    ValueFollower & second = *entry.secondShown;
    m_entries.push_back(std::move(entry));
    first.Bind(QLatin1String(range.firstShown));
    second.Bind(QLatin1String(range.secondShown));
    bool const isNumber = (range.style & (AxisRangeDisplay::StyleTime | AxisRangeDisplay::StyleTimeSpan)) == 0;
    if (isNumber) {
        auto const takeStep = [display, axis = range.axis] {
            double const step = std::abs(axis->Stop() - axis->Start()) / std::max(1, axis->innerRect().width());
            display->SetFormat(0, NumberTexts::Decimals(step * axis->GetDisplayFactor()));
        };
        connect(range.axis, &AxisBase::signalRangeChanged, display, takeStep);
        takeStep();
    }
    return display;
}

void RangeBar::SetLeastHeight(int height)
{
    m_leastHeight = height;
    ShowDisplays();
}

void RangeBar::SetRoom(QSize const & room, int left, int right)
{
    m_room = room;
    m_left = left;
    m_right = right;
    ShowDisplays();
}

void RangeBar::ShowDisplays()
{
    int free = m_room.height() < m_leastHeight ? 0 : m_room.width() - m_left - m_right;
    m_pLayout->setContentsMargins(m_left, 0, m_right, 0);
    bool isAnyShown = false;
    bool isOther = false;
    for (Entry const & entry : m_entries) {
        bool const isWanted = entry.firstShown->Flag(false) && entry.secondShown->Flag(false);
        bool const isShown = isWanted && free >= LeastWidth;
        free -= isShown ? LeastWidth + Apart : 0;
        if (auto * const button = entry.display->findChild<QPushButton *>()) {
            QSignalBlocker const quiet(button);
            button->setChecked(isWanted);
        }
        isOther = isOther || entry.display->isHidden() == isShown;
        entry.display->setVisible(isShown);
        isAnyShown = isAnyShown || isShown;
    }
    setVisible(isAnyShown);
    if (isOther)
        Q_EMIT signalShown();
}
