// SPDX-License-Identifier: MIT
#include "signalwindows.h"

#include "consolevalues.h"
#include "spectrumpane.h"
#include "undorecording.h"
#include "windowframes.h"
#include "windowvalues.h"

#include <QApplication>

#include <utility>

namespace {

constexpr double MiddlePart = 0.1; // of the view, where there is no signal

} // namespace

SignalWindows::SignalWindows(SpectrumPane & spectrum, std::vector<RangePane *> panes, QObject * parent)
    : QObject(parent)
    , m_spectrum(spectrum)
    , m_panes(std::move(panes))
{
    for (RangePane * const pane : m_panes) {
        pane->GetWindowFrames().Bind();
        connect(pane, &RangePane::signalMark, this, [this] { Mark(); });
    }
    for (int window = 0; window < WindowValues::Count; ++window) {
        for (int item = 0; item < WindowValues::eItemCount; ++item) {
            m_followers.push_back(std::make_unique<ValueFollower>([this] {
                for (RangePane * const pane : m_panes)
                    pane->updateWidget();
            }));
            m_followers.back()->Bind(WindowValues::PathOf(window, static_cast<WindowValues::Item>(item)));
        }
    }
}

SignalWindows::~SignalWindows() = default;

FrequencyRange SignalWindows::FindPlace()
{
    m_spectrum.Refresh(); // columns of the present view
    std::vector<FrequencyRange> marked;
    for (int window = 0; window < WindowValues::Count; ++window) {
        if (WindowValues::IsVisible(window))
            marked.push_back(WindowValues::RangeOf(window));
    }
    FrequencyRange const found = m_spectrum.FindSignalBeside(marked);
    double const span = ConsoleValues::Get(ConsolePaths::Span) * MiddlePart;
    bool const isFound = found.span > 0.0;
    return isFound ? found : FrequencyRange{ ConsoleValues::Get(ConsolePaths::Centre) - span / 2.0, span };
}

int SignalWindows::NextHidden() const { return m_spectrum.GetWindowFrames().GetWindows().FirstNotVisible(); }

void SignalWindows::Put(int window)
{
    WindowValues::SetRange(window, FindPlace());
    WindowValues::Show(window, true);
}

bool SignalWindows::Mark()
{
    int const window = NextHidden();
    if (window < 0) {
        QApplication::beep();
        return false;
    }
    GuiUndoRecordingHelper const step(nullptr, tr("Mark a signal with window %1").arg(window + 1));
    Put(window);
    WindowValues::Focus(window);
    return true;
}

void SignalWindows::slotLineShown()
{
    if (!m_due)
        return;
    m_due = false;
    for (int turn = 0; turn < WindowValues::Count && NextHidden() >= 0; ++turn)
        Put(NextHidden());
}
