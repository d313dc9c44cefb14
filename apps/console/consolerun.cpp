// SPDX-License-Identifier: MIT
#include "consolerun.h"

#include "colorset.h"
#include "consolewindow.h"
#include "signalwindows.h"
#include "toint.h"

#include <QCoreApplication>
#include <QImageWriter>
#include <QPixmap>
#include <QTimer>
#include <QTimerEvent>

#include <algorithm>
#include <array>
#include <cstdio>

namespace {

constexpr int ReportPeriod = 1000; // ms
constexpr int CodeFailed = 2;
constexpr double MillisecondsASecond = 1e3;

struct PaneRow
{
    char const * name; // as in the options
    char const * shown;
};

constexpr std::array<PaneRow, 3> PaneRows{ {
    { "persistence", ConsolePaths::PersistenceShown },
    { "azimuth", ConsolePaths::AzimuthShown },
    { "elevation", ConsolePaths::ElevationShown },
} };

int ToMilliseconds(double seconds) { return toInt(seconds * MillisecondsASecond); }

} // namespace

ConsoleRun::ConsoleRun(ConsoleWindow & window, ConsoleOptions const & options, QObject * parent)
    : QObject(parent)
    , m_window(window)
    , m_options(options)
    , m_settings(window)
{}

ConsoleRun::~ConsoleRun() = default;

bool ConsoleRun::Start()
{
    if (!HasRoom())
        return false;
    ApplyOptions();
    m_window.show();
    m_window.Start();
    if (m_options.verbose)
        m_reportTimer.start(ReportPeriod, this);
    m_reportClock.start();
    if (!m_options.screenshot.isEmpty())
        QTimer::singleShot(ToMilliseconds(m_options.after), Qt::PreciseTimer, this, &ConsoleRun::slotScreenshot);
    else if (m_options.runSeconds > 0.0)
        QTimer::singleShot(ToMilliseconds(m_options.runSeconds), Qt::PreciseTimer, this, [this] { End(0); });
    return true;
}

//! Whether the layout can be as small as the size that was asked for.
bool ConsoleRun::HasRoom() const
{
    QSize const least = m_window.minimumSizeHint();
    QSize const size = m_options.size.value_or(least);
    if (size.width() >= least.width() && size.height() >= least.height())
        return true;
    std::fprintf(stderr, "orim-console: --size %dx%d: the window needs at least %dx%d\n", size.width(), size.height(),
                 least.width(), least.height());
    return false;
}

int ConsoleRun::Finish(int code)
{
    if (!m_options.EndsByItself() && !m_settings.Write())
        std::fprintf(stderr, "orim-console: the settings could not be stored\n");
    return code;
}

void ConsoleRun::ShowPanes()
{
    for (PaneRow const & row : PaneRows) {
        if (m_options.panes.contains(QLatin1String(row.name)))
            ConsoleValues::SetFlag(row.shown, true);
    }
}

void ConsoleRun::ApplyOptions()
{
    bool const hasLevels = !m_options.EndsByItself() && m_settings.Read();
    ShowPanes(); // whatever is stored
    if (m_options.size)
        m_window.resize(*m_options.size);
    if (m_options.colors)
        ColorSet::Instance().Load(static_cast<int>(*m_options.colors));
    ConsoleValues::Set(ConsolePaths::Speed, m_options.speed);
    for (char const * const shown :
         { ConsolePaths::Marker1Shown, ConsolePaths::Marker2Shown, ConsolePaths::LevelMarkerShown,
           ConsolePaths::Time1Shown, ConsolePaths::Time2Shown }) {
        if (m_options.markers)
            ConsoleValues::SetFlag(shown, true);
    }
    if (m_options.windows)
        m_window.Windows().MarkWhenShown();
    if (m_options.rate)
        ConsoleValues::Set(ConsolePaths::LineRate, *m_options.rate);
    if (m_options.bins)
        ConsoleValues::Select(ConsolePaths::Bins, *m_options.bins);
    if (m_options.levelMin && m_options.levelMax)
        m_window.Values().SetLevels(*m_options.levelMin, *m_options.levelMax);
    else if (!hasLevels)
        m_window.FitLevelRange();
}

void ConsoleRun::slotScreenshot()
{
    // the grab paints once more: the figures are those of the run before it
    ConsoleFigures const figures = m_window.Figures();
    QImageWriter writer(m_options.screenshot, "png");
    bool const written = writer.write(m_window.grab().toImage());
    if (!written)
        std::fprintf(stderr, "orim-console: %s: cannot write the picture: %s\n", qPrintable(m_options.screenshot),
                     qPrintable(writer.errorString()));
    std::printf("%s\n", qPrintable(figures.ToText()));
    std::fflush(stdout);
    QCoreApplication::exit(written ? 0 : CodeFailed);
}

void ConsoleRun::End(int code)
{
    std::printf("%s\n", qPrintable(m_window.Figures().ToText()));
    std::fflush(stdout);
    QCoreApplication::exit(code);
}

void ConsoleRun::Report()
{
    ConsoleFigures const figures = m_window.Figures();
    double const seconds = static_cast<double>(std::max<qint64>(1, m_reportClock.restart())) / MillisecondsASecond;
    std::printf("%.1f lines/s, %llu drops, frame time %.2f ms\n",
                static_cast<double>(figures.taken - m_takenAtReport) / seconds,
                static_cast<unsigned long long>(figures.dropped + figures.skipped), figures.frameMean);
    std::fflush(stdout);
    m_takenAtReport = figures.taken;
}

void ConsoleRun::timerEvent(QTimerEvent * event)
{
    if (event->timerId() == m_reportTimer.timerId())
        Report();
    else
        QObject::timerEvent(event);
}
