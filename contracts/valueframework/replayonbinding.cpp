// SPDX-License-Identifier: MIT
#include "replayonbinding.h"

#include "valueselection.h"

void ReplayOnBinding(ValueBase * value, IObserver * observer)
{
    if (!value || !observer)
        return;
    LifeWatch const valueWatch(value->GetLifetime());
    LifeWatch const observerWatch(observer->GetObserverLifetime());
    bool const isSelection = dynamic_cast<ValueSelection const *>(value);
    for (TChangeCode const code : { eStateChanged, eRangeChanged, eItemsChanged, eValueChanged }) {
        if (code == eItemsChanged && !isSelection)
            continue;
        observer->Update(value, code);
        if (valueWatch.IsOver() || observerWatch.IsOver())
            return;
    }
}
