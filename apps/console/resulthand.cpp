// SPDX-License-Identifier: MIT
#include "resulthand.h"

#include "consolebearings.h"
#include "markerhand.h"
#include "markerlist.h"

#include <QKeyEvent>

#include <cstdlib>

int ResultHand::ResultOf(int marker)
{
    return marker >= eFree33 && marker < eFree33 + ConsoleBearings::Most ? marker - eFree33 : -1;
}

int ResultHand::Under(QPoint at) const
{
    constexpr int reach = MarkerHand::Reach;
    int best = -1;
    int nearest = 0;
    for (int const index : m_list.GetShownIndices()) {
        Marker const * const marker = m_list.GetMarker(index);
        if (!marker || ResultOf(index) < 0)
            continue;
        QRect const line = marker->GetRulerRect();
        bool const onFlag = marker->GetRect().isValid() && marker->GetRect().contains(at);
        bool const onLine = line.isValid() && line.adjusted(-reach, 0, reach, 0).contains(at);
        int const distance = onFlag ? 0 : std::abs(at.x() - line.center().x());
        if ((onFlag || onLine) && (best < 0 || distance < nearest)) {
            best = ResultOf(index);
            nearest = distance;
        }
    }
    return best;
}

bool ResultHand::KeyPress(QKeyEvent const * event)
{
    Qt::KeyboardModifiers const modifiers = event->modifiers();
    bool const isPlain = modifiers == Qt::NoModifier || modifiers == Qt::ShiftModifier;
    if (event->key() != Qt::Key_R || !isPlain)
        return false;
    ConsoleBearings::SelectNext(modifiers == Qt::NoModifier);
    return true;
}
