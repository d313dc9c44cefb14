// SPDX-License-Identifier: MIT
#include "consolebearings.h"

#include "consolevalues.h"
#include "toint.h"
#include "tree.h"

#include <algorithm>

namespace {

ValueList<BearingResult> * List()
{
    Tree const * const tree = Tree::Instance();
    return tree ? tree->FindAs<ValueList<BearingResult>>(QLatin1String(ConsolePaths::Bearings)) : nullptr;
}

} // namespace

void ConsoleBearings::Find(std::vector<SimulatedEmitter> emitters, quint64 seed)
{
    m_pFinder = std::make_unique<DirectionFinder>(std::move(emitters), seed);
}

void ConsoleBearings::Take(SpectrumLine const & line, double now)
{
    if (!m_pFinder)
        return;
    ConsoleValues::Set(ConsolePaths::Heading, DirectionFinder::Heading(now));
    std::vector<BearingMeasurement> singles;
    if (m_pFinder->TakeSingles(line, now, singles))
        m_history.Append(singles, now);
    if (m_pFinder->Take(line, now))
        TakeResults();
}

void ConsoleBearings::TakeResults()
{
    std::vector<BearingResult> results = m_pFinder->GetResults();
    BearingResult const * const selected = At(Selected());
    int index = -1;
    if (selected) {
        auto const same = std::find_if(results.begin(), results.end(), [selected](BearingResult const & result) {
            return result.GetText() == selected->GetText();
        });
        index = same != results.end() ? static_cast<int>(same - results.begin()) : -1;
    }
    // first the number: who hears of the list then highlights the right one
    ConsoleValues::Set(ConsolePaths::SelectedBearing, index < Most ? index : -1);
    if (ValueList<BearingResult> * const list = List())
        list->SetEntries(std::move(results), nullptr);
}

int ConsoleBearings::Count()
{
    ValueList<BearingResult> const * const list = List();
    return list ? std::min(list->Size(), Most) : 0;
}

BearingResult const * ConsoleBearings::At(int index)
{
    bool const exists = index >= 0 && index < Count();
    return exists ? &List()->GetEntries()[static_cast<std::size_t>(index)] : nullptr;
}

int ConsoleBearings::Selected()
{
    int const index = toInt(ConsoleValues::Get(ConsolePaths::SelectedBearing));
    return index < Count() ? std::max(index, -1) : -1;
}

void ConsoleBearings::Select(int index) { ConsoleValues::Set(ConsolePaths::SelectedBearing, At(index) ? index : -1); }

void ConsoleBearings::SelectNext(bool forward)
{
    int const count = Count();
    int const selected = Selected();
    if (count == 0)
        return;
    if (selected < 0)
        Select(forward ? 0 : count - 1);
    else
        Select((selected + (forward ? 1 : count - 1)) % count);
}
