// SPDX-License-Identifier: MIT
#ifndef ORIM_RANGETOOLS_H
#define ORIM_RANGETOOLS_H

#include "guibase.h"
#include "lineplayer.h"
#include "panetools.h"
#include "sessiontools.h"

#include <QUndoStack>

#include <cmath>

//! A console whose ranges are to be moved, and what they are then.
namespace RangeTools {

using Range = std::array<double, 2>;

inline QUndoStack & Steps() { return *GuiBase::Instance().UndoStack(); }

inline bool IsNear(double a, double b, double most) { return std::abs(a - b) <= most; }

//! Whether a range lies at parts of another one, to within a pixel or two.
inline bool LiesAt(Range const & range, Range const & whole, double first, double last)
{
    double const span = whole[1] - whole[0];
    return IsNear(range[0], whole[0] + first * span, 0.01 * span) &&
           IsNear(range[1], whole[0] + last * span, 0.01 * span);
}

//! A window that plays a source.
template <class Source = PaneTools::ToneSource>
std::unique_ptr<ConsoleWindow> ToneWindow()
{
    auto window = std::make_unique<ConsoleWindow>(std::make_unique<LinePlayer>(std::make_unique<Source>()),
                                                  QStringLiteral("tone"));
    ConsoleValues::Select(ConsolePaths::Bins, 256);
    ConsoleValues::Set(ConsolePaths::LineRate, 100.0);
    window->resize(1000, 700);
    window->show();
    window->activateWindow();
    window->Start();
    return window;
}

//! A window that shows some lines and stands still; null when it shows none.
template <class Source = PaneTools::ToneSource>
std::unique_ptr<ConsoleWindow> StandingWindow()
{
    auto window = ToneWindow<Source>();
    if (!QTest::qWaitFor([&] { return window->Figures().painted > 3; }))
        return nullptr;
    window->Player().Stop();
    if (!QTest::qWaitFor([&] { return window->Figures().taken == window->Figures().produced; }))
        return nullptr;
    ConsoleValues::Set(ConsolePaths::LevelMin, -120.0);
    ConsoleValues::Set(ConsolePaths::LevelMax, 0.0);
    Steps().clear();
    return window;
}

//! All panes and scales show what the values hold.
inline bool PanesAgree(ConsoleWindow & window)
{
    using namespace SessionTools;
    window.grab();
    bool agree = true;
    for (Place const place : { eSpectrum, eWaterfall }) {
        RangePane & pane = PaneOf(window, place);
        Range const frequencies = RangeOf(eSpectrum);
        Range const levels = RangeOf(eLevelScale);
        agree = agree && pane.GetFrequencyRange().start == frequencies[0] &&
                pane.GetFrequencyRange().span == frequencies[1] - frequencies[0] &&
                pane.GetFrequencyAxis().Start() == frequencies[0] && pane.GetFrequencyAxis().Stop() == frequencies[1] &&
                pane.GetLevelMin() == levels[0] && pane.GetLevelMax() == levels[1] &&
                pane.GetLevelScale().Start() == levels[0] && pane.GetLevelScale().Stop() == levels[1];
    }
    return agree && IsNear(ConsoleValues::Get(ConsolePaths::Span), RangeOf(eSpectrum)[1] - RangeOf(eSpectrum)[0], 1e-6);
}

} // namespace RangeTools

#endif
