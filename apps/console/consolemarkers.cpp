// SPDX-License-Identifier: MIT
#include "consolemarkers.h"

#include "connectmarkervisibilityflags.h"
#include "consolevalues.h"
#include "frequencyaxis.h"
#include "panestack.h"
#include "spectrumpane.h"

#include <algorithm>
#include <cmath>

namespace {

struct MarkerRow
{
    EMarkerID id;
    int gap; // the marker that it is compared with; -1 for none
    unsigned int special;
    IColorBase::ECOLOR color;
    char const * name;
    char const * path;
    char const * shownPath;
};

constexpr std::array<MarkerRow, 3> MarkerRows{ {
    { ConsoleMarkers::First, -1, eSpecialX, IColorBase::eColorMarker, QT_TRANSLATE_NOOP("ConsoleMarkers", "M1"),
      ConsolePaths::Marker1, ConsolePaths::Marker1Shown },
    { ConsoleMarkers::Second, ConsoleMarkers::First, eSpecialX, IColorBase::eColorClientSecond,
      QT_TRANSLATE_NOOP("ConsoleMarkers", "M2"), ConsolePaths::Marker2, ConsolePaths::Marker2Shown },
    { ConsoleMarkers::Level, -1, eSpecialY, IColorBase::eColorResult, QT_TRANSLATE_NOOP("ConsoleMarkers", "Level"),
      ConsolePaths::LevelMarker, ConsolePaths::LevelMarkerShown },
} };

constexpr double Apart = 0.02; // of the span: two markers are placed at least as far from each other

bool IsLevel(MarkerRow const & row) { return (row.special & eSpecialY) != 0; }

} // namespace

ConsoleMarkers::ConsoleMarkers(SpectrumPane & spectrum, PaneStack const & panes, QObject * parent)
    : QObject(parent)
    , m_spectrum(spectrum)
    , m_rulers({ ConsolePaths::Marker1, ConsolePaths::Marker2, ConsolePaths::MarkerLower, ConsolePaths::MarkerUpper })
{
    static_assert(MarkerRows.size() == Count, "one row a marker");
    AddLists(panes);
    for (MarkerList * const list : m_lists)
        connect(list, &MarkerList::signalSetState, this, &ConsoleMarkers::slotState);
    for (std::size_t row = 0; row < Count; ++row) {
        m_shown.push_back(std::make_unique<ValueFollower>([this, row] { Show(row, m_shown[row]->Flag(false)); }));
        m_shown.back()->Bind(QLatin1String(MarkerRows[row].shownPath));
    }
}

ConsoleMarkers::~ConsoleMarkers() = default;

//! First the panes, then their frequency scales, then their level scales.
void ConsoleMarkers::AddLists(PaneStack const & panes)
{
    std::vector<MarkerList *> frequencyScales;
    std::vector<MarkerList *> levelScales;
    for (PaneFrame const * const frame : panes.Frames()) {
        auto * const pane = qobject_cast<RangePane *>(&frame->Pane());
        if (!pane)
            continue;
        AddTo(*pane, false);
        AddTo(pane->GetFrequencyAxis(), false);
        m_lists.push_back(pane);
        frequencyScales.push_back(&pane->GetFrequencyAxis());
        if (frame->Form().levels == PaneLevels::eRows)
            AddTo(*pane, true);
        if (frame->Form().levels == PaneLevels::eNone)
            continue;
        AddTo(pane->GetLevelScale(), true);
        levelScales.push_back(&pane->GetLevelScale());
    }
    m_lists.insert(m_lists.end(), frequencyScales.begin(), frequencyScales.end());
    m_lists.insert(m_lists.end(), levelScales.begin(), levelScales.end());
    std::array<MarkerList *, 17> mesh{};
    std::copy_n(m_lists.begin(), std::min(m_lists.size(), mesh.size()), mesh.begin());
    ConnectMarkerVisibilityFlags(mesh[0], mesh[1], mesh[2], mesh[3], mesh[4], mesh[5], mesh[6], mesh[7], mesh[8],
                                 mesh[9], mesh[10], mesh[11], mesh[12], mesh[13], mesh[14], mesh[15], mesh[16]);
}

void ConsoleMarkers::AddTo(MarkerList & list, bool levels)
{
    for (MarkerRow const & row : MarkerRows) {
        if (IsLevel(row) != levels)
            continue;
        list.AddMarker(row.id, false, row.color, true, row.special | eSpecialInMenu, tr(row.name));
        list.SetMarker_ValuePath(row.id, QLatin1String(row.path));
        list.SetGapMarkerId(row.id, row.gap);
    }
    list.BuildMenu();
}

void ConsoleMarkers::Show(std::size_t row, bool on)
{
    MarkerRow const & marker = MarkerRows[row];
    if (on)
        Place(row);
    for (MarkerList * const list : m_lists) {
        Marker * const current = list->GetMarker(list->GetCurrentMarker());
        if (list->isIndexValid(marker.id)) {
            list->SetShowMarker(marker.id, on);
            bool const isCurrent = list->GetCurrentMarker() == marker.id; // hiding one leaves another current
            if (on || (isCurrent && list->isVisible()))
                list->SetCurrentMarker(marker.id, on);
            else if (isCurrent)
                current->SetCurrentMarker(false, true); // what a hidden list holds current is not so elsewhere
        } else if (on && current) {
            current->SetCurrentMarker(false, true); // a hidden list does not hear of it
        }
        list->updateWidget();
    }
}

bool ConsoleMarkers::IsInView(std::size_t row) const
{
    MarkerRow const & marker = MarkerRows[row];
    double const value = ConsoleValues::Get(marker.path);
    double const low = ConsoleValues::Get(IsLevel(marker) ? ConsolePaths::LevelMin : ConsolePaths::Start);
    double const high = ConsoleValues::Get(IsLevel(marker) ? ConsolePaths::LevelMax : ConsolePaths::Stop);
    return value >= low && value <= high;
}

void ConsoleMarkers::Place(std::size_t row)
{
    m_spectrum.Refresh(); // peaks of the present range
    SpectrumPane::Peak peak = m_spectrum.GetPeak();
    if (std::isnan(peak.level) || (m_placed[row] && IsInView(row)))
        return;
    MarkerRow const & marker = MarkerRows[row];
    m_placed[row] = true;
    if (IsLevel(marker)) {
        ConsoleValues::Set(marker.path, peak.level);
        return;
    }
    double const span = ConsoleValues::Get(ConsolePaths::Span);
    for (MarkerRow const & other : MarkerRows) {
        bool const competes = other.id != marker.id && !IsLevel(other) && ConsoleValues::GetFlag(other.shownPath);
        if (competes)
            peak = m_spectrum.FindPeakBeside(ConsoleValues::Get(other.path), Apart * span);
    }
    ConsoleValues::Set(marker.path, std::isnan(peak.level) ? ConsoleValues::Get(ConsolePaths::Centre) : peak.frequency);
}

void ConsoleMarkers::slotLineShown()
{
    for (std::size_t row = 0; row < Count; ++row) {
        if (!m_placed[row] && ConsoleValues::GetFlag(MarkerRows[row].shownPath))
            Place(row);
    }
}

void ConsoleMarkers::slotState(QString const & path, EMarkerState state, bool value)
{
    bool const areRulers =
        path == QLatin1String(ConsolePaths::MarkerLower) || path == QLatin1String(ConsolePaths::MarkerUpper);
    for (MarkerRow const & row : MarkerRows) {
        bool const isMeant = path == QLatin1String(row.path) || (areRulers && !IsLevel(row));
        if (state == eMarkerShow && isMeant)
            ConsoleValues::SetFlag(row.shownPath, value);
    }
}
