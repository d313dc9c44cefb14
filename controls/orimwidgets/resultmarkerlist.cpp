// SPDX-License-Identifier: MIT
#include "resultmarkerlist.h"

#include "markerlist.h"
#include "replayonbinding.h"
#include "resultmarker.h"
#include "toint.h"
#include "tree.h"
#include "valuenumeric.h"

#include <algorithm>

namespace {

constexpr int MaxMarkers = 8;
constexpr int FirstResult = eFree33; // takes the first entry of the list

//! An id of a marker; -1 for a number that is none.
int MarkerId(long long number) { return number >= 0 && number <= eMouseMove ? static_cast<int>(number) : -1; }

//! Whether QString::arg() finds a place to fill.
bool HasPlace(QString const & text)
{
    for (int i = 0; i + 1 < text.size(); ++i) {
        if (text[i] != QLatin1Char('%'))
            continue;
        int const digit = text[i + 1] == QLatin1Char('L') ? i + 2 : i + 1;
        if (digit < text.size() && text[digit] >= QLatin1Char('0') && text[digit] <= QLatin1Char('9'))
            return true;
    }
    return false;
}

} // namespace

ResultMarkerList::ResultMarkerList(MarkerList * parent, int firstId, bool show, IColorBase::ECOLOR color, bool moveable,
                                   unsigned int special, QString const & name)
    : m_show(show)
    , m_color(color)
    , m_moveable(moveable)
    , m_special(special)
    , m_name(name)
    , m_firstId(firstId)
{
    SetParent(parent);
}

ResultMarkerList::~ResultMarkerList() = default; // the base unbinds

void ResultMarkerList::SetParent(MarkerList * parent)
{
    m_pParent = parent;
    m_parentLife = parent ? LifeWatch(parent->GetObserverLifetime()) : LifeWatch();
}

bool ResultMarkerList::Set_ValuePath(QString const & path)
{
    if (m_pList)
        m_pList->DeleteObserver(this);
    Tree const * const tree = Tree::Instance();
    auto * const list = tree ? tree->FindAs<ValueList<BearingResult>>(path) : nullptr;
    m_pList = list && list->AddObserver(this) ? list : nullptr;
    LifeWatch const life(GetObserverLifetime());
    ReplayOnBinding(m_pList, this);
    return !life.IsOver() && m_pList;
}

bool ResultMarkerList::SetSelector_ValuePath(QString const & path)
{
    if (m_pSelector)
        m_pSelector->DeleteObserver(this);
    Tree const * const tree = Tree::Instance();
    auto * const selector = tree ? tree->FindAs<IValueNumeric>(path) : nullptr;
    m_pSelector = selector && selector->AddObserver(this) ? selector : nullptr;
    if (m_pSelector)
        ReplayOnBinding(m_pSelector->GetValueBase(), this);
    return m_pSelector;
}

QString ResultMarkerList::NameOf(int number) const
{
    return HasPlace(m_name) ? m_name.arg(number, 0, 10, QLatin1Char(' ')) : m_name;
}

void ResultMarkerList::Resize(int n)
{
    LifeWatch const life(GetObserverLifetime());
    unsigned int const resize = ++m_resizes;
    int const wanted = std::clamp(n, 0, MaxMarkers);
    for (int i = 0; i < MaxMarkers; ++i) {
        MarkerList * const parent = life.IsOver() ? nullptr : GetParent();
        if (!parent || m_resizes != resize) // who heard of a marker resized anew
            return;
        int const id = MarkerId(static_cast<long long>(m_firstId) + i);
        if (i < wanted)
            parent->AddResultMarker(id, m_show, m_color, m_moveable, m_special, NameOf(i));
        else
            parent->DeleteMarker(id);
    }
    if (!life.IsOver() && GetParent())
        GetParent()->RebuildMarkerList();
}

void ResultMarkerList::Update(Observable * subject, TChangeCode code)
{
    if (code == eStateChanged) {
        HearState(subject);
        return;
    }
    if (!subject || !GetParent() || !GetParent()->isVisible())
        return;
    if (code == eValueChanged && subject == m_pSelector)
        m_selected = toInt(m_pSelector->GetNumericValue());
    else if (code == eItemsChanged && subject == m_pList)
        ShowResults();
}

//! Gives up a value that goes away.
void ResultMarkerList::HearState(Observable const * subject)
{
    if (m_pList && subject == m_pList && m_pList->GetState() == eStateGoingAway) {
        m_pList->DeleteObserver(this);
        m_pList = nullptr;
    } else if (m_pSelector && subject == m_pSelector && m_pSelector->GetState() == eStateGoingAway) {
        m_pSelector->DeleteObserver(this);
        m_pSelector = nullptr;
    }
}

void ResultMarkerList::ShowResults()
{
    LifeWatch const life(GetObserverLifetime());
    Resize(m_pList->Size());
    MarkerList * const parent = life.IsOver() ? nullptr : GetParent();
    if (!parent)
        return;
    if (m_pList)
        HandOver(*parent);
    parent->updateWidget(); // may end this
}

//! Hands each entry of the list to its marker. Entries without a marker are passed over.
void ResultMarkerList::HandOver(MarkerList & parent)
{
    long long id = FirstResult;
    for (m_pList->ToBegin(); !m_pList->IsLast(); m_pList->Next(), ++id) {
        auto * const marker = dynamic_cast<ResultMarker *>(parent.GetMarker(MarkerId(id)));
        if (!marker)
            continue;
        marker->SetMarkerValue(m_pList->Current(), false);
        bool const isSelected = id - FirstResult == m_selected;
        marker->SetColor(isSelected ? IColorBase::eColorSelectedResult : IColorBase::eColorResult);
    }
}
