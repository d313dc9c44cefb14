// SPDX-License-Identifier: MIT
#include "consolemarkers.h"

#include "connectmarkervisibilityflags.h"
#include "consolevalues.h"
#include "frequencyaxis.h"
#include "panestack.h"
#include "spectrumpane.h"
#include "timeaxis.h"
#include "waterfallpane.h"

#include <algorithm>
#include <cmath>

namespace {

enum MarkerKind
{
    eFrequencyMarker,
    eLevelMarker,
    eTimeMarker
};

struct MarkerRow
{
    EMarkerID id;
    int gap; // the marker that it is compared with; -1 for none
    MarkerKind kind;
    IColorBase::ECOLOR color;
    char const * name;
    char const * path;
    char const * shownPath;
};

constexpr std::array<MarkerRow, 5> MarkerRows{ {
    { ConsoleMarkers::First, -1, eFrequencyMarker, IColorBase::eColorMarker, QT_TRANSLATE_NOOP("ConsoleMarkers", "M1"),
      ConsolePaths::Marker1, ConsolePaths::Marker1Shown },
    { ConsoleMarkers::Second, ConsoleMarkers::First, eFrequencyMarker, IColorBase::eColorClientSecond,
      QT_TRANSLATE_NOOP("ConsoleMarkers", "M2"), ConsolePaths::Marker2, ConsolePaths::Marker2Shown },
    { ConsoleMarkers::Level, -1, eLevelMarker, IColorBase::eColorResult, QT_TRANSLATE_NOOP("ConsoleMarkers", "Level"),
      ConsolePaths::LevelMarker, ConsolePaths::LevelMarkerShown },
    { ConsoleMarkers::Time1, -1, eTimeMarker, IColorBase::eColorMarker, QT_TRANSLATE_NOOP("ConsoleMarkers", "T1"),
      ConsolePaths::Time1, ConsolePaths::Time1Shown },
    { ConsoleMarkers::Time2, -1, eTimeMarker, IColorBase::eColorClientSecond, QT_TRANSLATE_NOOP("ConsoleMarkers", "T2"),
      ConsolePaths::Time2, ConsolePaths::Time2Shown },
} };

constexpr int LeastRows = 4;   // of a picture on which two times stand apart
constexpr double Apart = 0.02; // of the span: two markers are placed at least as far from each other

bool IsLevel(MarkerRow const & row) { return row.kind == eLevelMarker; }

bool IsFrequency(MarkerRow const & row) { return row.kind == eFrequencyMarker; }

} // namespace

ConsoleMarkers::ConsoleMarkers(SpectrumPane & spectrum, PaneStack const & panes, QObject * parent)
    : QObject(parent)
    , m_spectrum(spectrum)
    , m_rulers({ ConsolePaths::Marker1, ConsolePaths::Marker2, ConsolePaths::MarkerLower, ConsolePaths::MarkerUpper })
    , m_timeRulers({ ConsolePaths::Time1, ConsolePaths::Time2, ConsolePaths::TimeLower, ConsolePaths::TimeUpper })
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

//! First the panes, then their frequency scales, then their level scales, then the time scale.
void ConsoleMarkers::AddLists(PaneStack const & panes)
{
    std::vector<MarkerList *> frequencyScales;
    std::vector<MarkerList *> levelScales;
    for (PaneFrame const * const frame : panes.Frames()) {
        auto * const pane = qobject_cast<RangePane *>(&frame->Pane());
        if (!pane)
            continue;
        AddTo(*pane, eFrequencyMarker);
        AddTo(pane->GetFrequencyAxis(), eFrequencyMarker);
        m_lists.push_back(pane);
        if (auto * const waterfall = qobject_cast<WaterfallPane *>(pane))
            m_pWaterfall = waterfall;
        frequencyScales.push_back(&pane->GetFrequencyAxis());
        if (frame->Form().levels == PaneLevels::eRows)
            AddTo(*pane, eLevelMarker);
        if (frame->Form().levels == PaneLevels::eNone)
            continue;
        AddTo(pane->GetLevelScale(), eLevelMarker);
        levelScales.push_back(&pane->GetLevelScale());
    }
    m_lists.insert(m_lists.end(), frequencyScales.begin(), frequencyScales.end());
    m_lists.insert(m_lists.end(), levelScales.begin(), levelScales.end());
    if (m_pWaterfall) {
        AddTo(*m_pWaterfall, eTimeMarker);
        AddTo(m_pWaterfall->GetTimeAxis(), eTimeMarker);
        m_lists.push_back(&m_pWaterfall->GetTimeAxis());
    }
    std::array<MarkerList *, 17> mesh{};
    std::copy_n(m_lists.begin(), std::min(m_lists.size(), mesh.size()), mesh.begin());
    ConnectMarkerVisibilityFlags(mesh[0], mesh[1], mesh[2], mesh[3], mesh[4], mesh[5], mesh[6], mesh[7], mesh[8],
                                 mesh[9], mesh[10], mesh[11], mesh[12], mesh[13], mesh[14], mesh[15], mesh[16]);
}

void ConsoleMarkers::AddTo(MarkerList & list, int kind)
{
    for (MarkerRow const & row : MarkerRows) {
        if (row.kind != kind)
            continue;
        unsigned int const special = IsFrequency(row) ? eSpecialX : eSpecialY;
        list.AddMarker(row.id, false, row.color, true, special | eSpecialInMenu, tr(row.name));
        list.SetMarker_ValuePath(row.id, QLatin1String(row.path));
        list.SetGapMarkerId(row.id, row.gap);
    }
    if (kind != eTimeMarker) // a menu of the time scale would be about times, which cannot be zoomed
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

//! A quarter and three quarters down the rows, unless it stands on one of them.
void ConsoleMarkers::PlaceTime(std::size_t row)
{
    if (!m_pWaterfall)
        return;
    m_pWaterfall->Refresh();
    MarkerRow const & marker = MarkerRows[row];
    WaterfallImage const & image = m_pWaterfall->GetImage();
    double const time = ConsoleValues::Get(marker.path);
    bool const isInView = time >= image.Stamp(image.Filled() - 1) && time <= image.Stamp(0);
    if (image.Filled() < LeastRows || (m_placed[row] && isInView))
        return;
    m_placed[row] = true;
    int const quarters = marker.id == Time1 ? 3 : 1;
    ConsoleValues::Set(marker.path, image.Stamp(image.Filled() * quarters / 4));
}

void ConsoleMarkers::Place(std::size_t row)
{
    if (MarkerRows[row].kind == eTimeMarker) {
        PlaceTime(row);
        return;
    }
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
        bool const competes = other.id != marker.id && IsFrequency(other) && ConsoleValues::GetFlag(other.shownPath);
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
    auto const isOneOf = [&path](char const * one, char const * other) {
        return path == QLatin1String(one) || path == QLatin1String(other);
    };
    bool const areRulers = isOneOf(ConsolePaths::MarkerLower, ConsolePaths::MarkerUpper);
    bool const areTimes = isOneOf(ConsolePaths::TimeLower, ConsolePaths::TimeUpper);
    for (MarkerRow const & row : MarkerRows) {
        bool const isMeant =
            path == QLatin1String(row.path) || (areRulers && IsFrequency(row)) || (areTimes && row.kind == eTimeMarker);
        if (state == eMarkerShow && isMeant)
            ConsoleValues::SetFlag(row.shownPath, value);
    }
}
