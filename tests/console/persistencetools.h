// SPDX-License-Identifier: MIT
#ifndef ORIM_PERSISTENCETOOLS_H
#define ORIM_PERSISTENCETOOLS_H

#include "agedimage.h"
#include "consolevalues.h"
#include "panetools.h"
#include "persistencepane.h"
#include "traceraster.h"

#include <QCoreApplication>
#include <QTest>
#include <QTimerEvent>

#include <limits>

//! Looks inside the ageing image.
class AgedImageAccess
{
public:
    static int SwitchTimer(AgedImage const & image) { return image.m_SwitchTimerId; }

    static int UpdateTimer(AgedImage const & image) { return image.m_UpdateTimerId; }

    static int ColorsABlock(AgedImage const & image) { return image.m_ColorsPerQualityStep; }
};

//! What the tests of the persistence share: a pane, its pixels, its lines.
namespace PersistenceTools {

constexpr double Inf = std::numeric_limits<double>::infinity();
constexpr double NaN = std::numeric_limits<double>::quiet_NaN();
constexpr int Bins = 64;
constexpr double Low = -100.0; // dBFS
constexpr double High = 0.0;
constexpr int FirstBackground = 254; // index

inline QString Path(char const * path) { return QLatin1String(path); }

//! A pane that is shown, bound to the values of a console, over 64 Hz and 100 dB.
struct Pane : PersistencePane
{
    explicit Pane(bool shown = true)
    {
        SetColors(PaneTools::Colors());
        SetHold_ValuePath(Path(ConsolePaths::Hold));
        SetQuality_ValuePath(Path(ConsolePaths::Quality));
        SetAgeing_ValuePath(Path(ConsolePaths::Ageing));
        SetFrequencyRange({ 0.0, Bins });
        SetLevelRange(Low, High);
        resize(500, 300);
        if (!shown)
            return;
        show();
        QTest::qWaitForWindowExposed(this) ? grab() : QPixmap();
    }

    int Height() { return GetImage().height(); }

    int Row(double level) { return TraceRaster::RowOf({ GetLevelMin(), GetLevelMax(), Height() }, level); }

    int Index(int x, int y) { return GetImage().GetImage()->pixelIndex(x, y); }

    bool IsLit(int x, int y) { return Index(x, y) < FirstBackground; }

    QRgb Color(int x, int y) { return GetImage().GetImage()->color(Index(x, y)); }

    //! Lit pixels of the whole picture.
    int Lit()
    {
        int count = 0;
        for (int y = 0; y < Height(); ++y) {
            for (int x = 0; x < GetImage().width(); ++x)
                count += IsLit(x, y) ? 1 : 0;
        }
        return count;
    }

    void Tick(int timer)
    {
        QTimerEvent event(timer);
        QCoreApplication::sendEvent(&GetImage(), &event);
    }
};

//! A line over the whole view, so many seconds from the beginning, far from whose centre nothing is marked.
inline PaneTools::Line Flat(double level, double seconds = 0.0)
{
    return PaneTools::LineOf(0.0, std::vector<double>(static_cast<std::size_t>(Bins), level), seconds);
}

} // namespace PersistenceTools

#endif
