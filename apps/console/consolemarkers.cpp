// SPDX-License-Identifier: MIT
#include "consolemarkers.h"

#include "connectmarkervisibilityflags.h"
#include "consolevalues.h"
#include "frequencyaxis.h"
#include "shadingbar.h"
#include "spectrumpane.h"
#include "waterfallpane.h"

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

ConsoleMarkers::ConsoleMarkers(SpectrumPane & spectrum, WaterfallPane & waterfall, QObject * parent)
    : QObject(parent)
    , m_spectrum(spectrum)
    , m_lists{ &spectrum,
               &waterfall,
               &spectrum.GetFrequencyAxis(),
               &waterfall.GetFrequencyAxis(),
               &spectrum.GetLevelScale(),
               &waterfall.GetLevelScale() }
{
    static_assert(MarkerRows.size() == Count, "one row a marker");
    for (MarkerList * const list : m_lists) {
        bool const isScale = list == &spectrum.GetLevelScale() || list == &waterfall.GetLevelScale();
        if (!isScale)
            AddTo(*list, false);
        if (isScale || list == &spectrum)
            AddTo(*list, true);
        connect(list, &MarkerList::signalSetState, this, &ConsoleMarkers::slotState);
    }
    ConnectMarkerVisibilityFlags(m_lists[0], m_lists[1], m_lists[2], m_lists[3], m_lists[4], m_lists[5]);
    for (std::size_t row = 0; row < Count; ++row) {
        m_shown.push_back(std::make_unique<ValueFollower>([this, row] { Show(row, m_shown[row]->Flag(false)); }));
        m_shown.back()->Bind(QLatin1String(MarkerRows[row].shownPath));
    }
}

ConsoleMarkers::~ConsoleMarkers() = default;

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
            if (on || list->GetCurrentMarker() == marker.id) // hiding one leaves another current
                list->SetCurrentMarker(marker.id, on);
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
    for (MarkerRow const & row : MarkerRows) {
        if (state == eMarkerShow && path == QLatin1String(row.path))
            ConsoleValues::SetFlag(row.shownPath, value);
    }
}
