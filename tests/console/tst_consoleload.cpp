// SPDX-License-Identifier: MIT
#include "consolewindow.h"
#include "lineplayer.h"
#include "persistencepane.h"
#include "simulator.h"
#include "spectrumpane.h"
#include "testmain.h"
#include "waterfallpane.h"

#include <cstdio>
#include <set>

//! A minute of the console at full rate, with a persistence: every line is shown, and one core is half idle.
class tst_ConsoleLoad : public QObject
{
    Q_OBJECT

public:
    bool eventFilter(QObject * object, QEvent * event) override;

private Q_SLOTS:

    void initTestCase() { TestStage::HushPopups(); }

    void showsEveryLineForAMinute();

private:
    ConsoleWindow * m_pWindow = nullptr;
    quint64 m_rows = 0; // appended when the last frame was seen
    quint64 m_frames = 0;
    std::set<std::size_t> m_hashes; // of the frames
};

namespace {

constexpr quint64 Lines = 3000;
constexpr double LineRate = 50.0;
constexpr long Bins = 4096;
constexpr double MostProcessor = 50.0; // percent of one core

} // namespace

//! What a pane paints is finished before it is painted: the picture of the trace and the newest row.
bool tst_ConsoleLoad::eventFilter(QObject * object, QEvent * event)
{
    if (event->type() != QEvent::Paint || m_rows == m_pWindow->Waterfall().GetRowsAppended())
        return QObject::eventFilter(object, event);
    m_rows = m_pWindow->Waterfall().GetRowsAppended();
    ++m_frames;
    QImage const & picture = m_pWindow->Spectrum().GetPicture();
    WaterfallImage const & rows = m_pWindow->Waterfall().GetImage();
    std::size_t const trace = qHashBits(picture.constBits(), static_cast<std::size_t>(picture.sizeInBytes()), 1);
    std::size_t const row = qHashBits(rows.Pixels(0), static_cast<std::size_t>(rows.Columns()) * sizeof(QRgb), 2);
    m_hashes.insert(trace ^ (row * 31));
    return QObject::eventFilter(object, event);
}

void tst_ConsoleLoad::showsEveryLineForAMinute()
{
    ConsoleWindow window(std::make_unique<LinePlayer>(std::make_unique<Simulator>(TestStage::Seed())),
                         QStringLiteral("simulated"));
    m_pWindow = &window;
    window.resize(1280, 800);
    ConsoleValues::Select(ConsolePaths::Bins, Bins);
    ConsoleValues::Set(ConsolePaths::LineRate, LineRate);
    ConsoleValues::SetFlag(ConsolePaths::PersistenceShown, true);
    window.Waterfall().installEventFilter(this);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    window.Start();
    QTRY_VERIFY_WITH_TIMEOUT(window.Figures().taken >= Lines, 75000);
    double const processor = window.Figures().processor;
    window.Player().Stop();
    QVERIFY(window.Persistence().GetLinesDrawn() > Lines / 2);
    QTRY_COMPARE(window.Figures().painted, window.Figures().produced);
    ConsoleFigures const figures = window.Figures();
    std::printf("figures: %llu frames, %zu of them different; cpu in the run: %.1f %%; %s\n",
                static_cast<unsigned long long>(m_frames), m_hashes.size(), processor, qPrintable(figures.ToText()));
    QVERIFY(figures.produced >= Lines);
    QCOMPARE(figures.taken, figures.produced);
    QCOMPARE(figures.painted, figures.produced);
    QCOMPARE(figures.dropped, quint64(0));
    QCOMPARE(figures.skipped, quint64(0));
    QCOMPARE(m_frames, figures.frames);
    QCOMPARE(static_cast<quint64>(m_hashes.size()), m_frames);
    QVERIFY2(processor < MostProcessor, qPrintable(QString::number(processor)));
}

ORIM_TEST_MAIN(tst_ConsoleLoad)
#include "tst_consoleload.moc"
