// SPDX-License-Identifier: MIT
#include "axisrangedisplay.h"
#include "consolemarkers.h"
#include "consolewindow.h"
#include "guibase.h"
#include "lineplayer.h"
#include "panestack.h"
#include "panetools.h"
#include "positionbar.h"
#include "rangebar.h"
#include "rangetools.h"
#include "resortpopupmenu.h"
#include "testmain.h"
#include "tree.h"
#include "valueselection.h"
#include "vccaption.h"
#include "vclabel.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QImage>
#include <QLayout>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimerEvent>
#include <QToolButton>

using namespace RangeTools;
using PaneTools::ToneSource;

class tst_ConsolePanes : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void initTestCase() { TestStage::HushPopups(); }

    void init();
    void cleanup();

    void buttonsAndPlayControlAgree_data();
    void buttonsAndPlayControlAgree();
    void statesAreTold();
    void endOfARecordingIsTold();
    void waterfallTellsItsRate();
    void heldPaneStandsWhileOthersGoOn_data();
    void heldPaneStandsWhileOthersGoOn();
    void fullSizeByKey_data();
    void fullSizeByKey();
    void keysOutsideReachThePaneAtHand_data();
    void keysOutsideReachThePaneAtHand();
    void keyLeavesWhatAButtonMadeFull();
    void hiddenPanesRest();
    void everyPaneTellsItsTimes();
    void persistenceThatKeepsTellsNoTimes_data();
    void persistenceThatKeepsTellsNoTimes();
    void spanIsThatOfTheRows();
    void spanFollowsTheZone();
    void clearedRowsHaveNoSpan();
    void entryMovesTheMarkers_data();
    void entryMovesTheMarkers();
    void centerButtonHidesTheMarkers();
    void rangesStandBelowThePictures();
    void rangesStandBelowFivePanes();
    void timeMarkersStandOnRows();
    void timeMarkersWaitForRows();
    void timeFlagsFollowTheZone();
    void timesAreAsFineAsTheRows();
    void captionFollowsTheTimeRange();
    void timeMarkerIsDragged();
    void captionTellsTheTimesOfTheMarkers();
    void entryMovesTheTimes();
    void centerButtonHidesTheTimes();
    void switchesShowPanes_data();
    void switchesShowPanes();
    void anySizeIsTaken_data();
    void anySizeIsTaken();
    void anyRatioGivesAPicture_data();
    void anyRatioGivesAPicture();
    void windowGoneWithPanes_data();
    void windowGoneWithPanes();

private:
    PaneFrame & FrameOf(QString const & name);
    QPushButton * ButtonOf(QString const & frame, char const * name);
    QWidget & PaneOf(bool spectrum);
    void Rows(int count, double apart = 1e6);
    QString TextOf(int marker);

    std::unique_ptr<ConsoleWindow> m_window;
};

namespace {

QString const Spectrum = QStringLiteral("spectrumPaneFrame");
QString const Waterfall = QStringLiteral("waterfallPaneFrame");

void ShowMarkers(bool on)
{
    ConsoleValues::SetFlag(ConsolePaths::Marker1Shown, on);
    ConsoleValues::SetFlag(ConsolePaths::Marker2Shown, on);
}

void ShowTimes(bool on)
{
    ConsoleValues::SetFlag(ConsolePaths::Time1Shown, on);
    ConsoleValues::SetFlag(ConsolePaths::Time2Shown, on);
}

} // namespace

//! Has the waterfall show rows from noon on. \param apart  us.
void tst_ConsolePanes::Rows(int count, double apart)
{
    m_window->Waterfall().Clear();
    SpectrumLine line(*PaneTools::LineOf(0.0, std::vector<double>(16, -50.0)));
    PaneLines lines;
    for (int row = 0; row < count; ++row) {
        line.time = PaneTools::Noon + row * apart;
        lines.push_back(std::make_shared<SpectrumLine>(line));
    }
    m_window->Waterfall().AppendLines(lines);
}

//! Flag of a marker in the waterfall as it is painted; empty without one.
QString tst_ConsolePanes::TextOf(int marker)
{
    m_window->grab();
    for (MarkerRulers::Ruler const & ruler : m_window->Waterfall().GetRulers()) {
        if (ruler.index == marker)
            return ruler.texts.join(QLatin1Char('|'));
    }
    return {};
}

void tst_ConsolePanes::init()
{
    m_window = StandingWindow();
    QVERIFY(m_window);
}

void tst_ConsolePanes::cleanup()
{
    m_window.reset();
    Steps().clear();
}

PaneFrame & tst_ConsolePanes::FrameOf(QString const & name) { return *m_window->findChild<PaneFrame *>(name); }

QPushButton * tst_ConsolePanes::ButtonOf(QString const & frame, char const * name)
{
    return FrameOf(frame).Caption().findChild<QPushButton *>(QLatin1String(name));
}

QWidget & tst_ConsolePanes::PaneOf(bool spectrum)
{
    return spectrum ? static_cast<QWidget &>(m_window->Spectrum()) : m_window->Waterfall();
}

// The data stream

void tst_ConsolePanes::buttonsAndPlayControlAgree_data()
{
    QTest::addColumn<int>("who");
    QTest::newRow("the button over the spectrum") << 0;
    QTest::newRow("the button over the waterfall") << 1;
    QTest::newRow("the buttons of the position bar") << 2;
    QTest::newRow("Space in the spectrum") << 3;
    QTest::newRow("Space in the waterfall") << 4;
    QTest::newRow("the player") << 5;
}

void tst_ConsolePanes::buttonsAndPlayControlAgree()
{
    QFETCH(int, who);
    auto const turn = [&](bool play) {
        switch (who) {
        case 0:
        case 1:
            QTest::mouseClick(ButtonOf(who == 0 ? Spectrum : Waterfall, "StartStopDatastream"), Qt::LeftButton);
            break;
        case 2:
            QTest::mouseClick(
                m_window->findChild<QToolButton *>(play ? QStringLiteral("play") : QStringLiteral("pause")),
                Qt::LeftButton);
            break;
        case 3:
        case 4:
            QTest::keyClick(&PaneOf(who == 3), Qt::Key_Space);
            break;
        default:
            if (play)
                m_window->Player().Play();
            else
                m_window->Player().Pause();
        }
    };
    for (bool const play : { false, true, false }) {
        QSignalSpy const told(&m_window->Player(), &LinePlayer::signalPlaying);
        turn(play);
        QCOMPARE(told.count(), 1);
        QCOMPARE(m_window->Player().IsPlaying(), play);
        QCOMPARE(m_window->Position().IsPlaying(), play);
        QCOMPARE(ButtonOf(Spectrum, "StartStopDatastream")->isChecked(), play);
        QCOMPARE(ButtonOf(Waterfall, "StartStopDatastream")->isChecked(), play);
        QCOMPARE(FrameOf(Spectrum).Caption().GetCaptionRight(),
                 play ? QStringLiteral("Running") : QStringLiteral("Paused"));
    }
}

void tst_ConsolePanes::statesAreTold()
{
    auto const state = [this](QString const & frame) { return FrameOf(frame).Caption().GetCaptionRight(); };
    QCOMPARE(state(Spectrum), QStringLiteral("Running"));
    QVERIFY(state(Waterfall).startsWith(QStringLiteral("Running")));
    QTest::mouseClick(ButtonOf(Spectrum, "stop"), Qt::LeftButton);
    QCOMPARE(state(Spectrum), QStringLiteral("Held"));
    QVERIFY(state(Waterfall).startsWith(QStringLiteral("Running")));
    m_window->Player().Pause();
    QCOMPARE(state(Spectrum), QStringLiteral("Held"));
    QCOMPARE(state(Waterfall), QStringLiteral("Paused"));
    QTest::mouseClick(ButtonOf(Spectrum, "stop"), Qt::LeftButton);
    QCOMPARE(state(Spectrum), QStringLiteral("Paused"));
}

void tst_ConsolePanes::endOfARecordingIsTold()
{
    auto const state = [this] { return FrameOf(Waterfall).Caption().GetCaptionRight(); };
    m_window->Player().Pause();
    Q_EMIT m_window->Position().signalSeek(1.9999);
    QCOMPARE(state(), QStringLiteral("End of recording"));
    Q_EMIT m_window->Position().signalSeek(1.0);
    QCOMPARE(state(), QStringLiteral("Paused"));
    Q_EMIT m_window->Position().signalSeek(1.9999);
    m_window->Player().Play(); // from the beginning
    QVERIFY(state().startsWith(QStringLiteral("Running")));
}

void tst_ConsolePanes::waterfallTellsItsRate()
{
    m_window->Start();
    quint64 const taken = m_window->Figures().taken;
    QTRY_VERIFY(m_window->Figures().taken > taken + 5);
    QTimerEvent tick(m_window->GetStatusTimerId());
    QCoreApplication::sendEvent(m_window.get(), &tick);
    QString const text = FrameOf(Waterfall).Caption().GetCaptionRight();
    QVERIFY2(text.startsWith(QStringLiteral("Running  ")) && text.endsWith(QStringLiteral(" lines/s")),
             qPrintable(text));
    QVERIFY2(text.section(QLatin1Char(' '), 2, 2).toDouble() > 0.0, qPrintable(text));
    QCOMPARE(FrameOf(Spectrum).Caption().GetCaptionRight(), QStringLiteral("Running"));
}

// Held pictures

void tst_ConsolePanes::heldPaneStandsWhileOthersGoOn_data()
{
    QTest::addColumn<bool>("spectrum");
    QTest::addColumn<bool>("byKey");
    QTest::newRow("the spectrum by its button") << true << false;
    QTest::newRow("the waterfall by its button") << false << false;
    QTest::newRow("the spectrum by its key") << true << true;
    QTest::newRow("the waterfall by its key") << false << true;
}

void tst_ConsolePanes::heldPaneStandsWhileOthersGoOn()
{
    QFETCH(bool, spectrum);
    QFETCH(bool, byKey);
    auto const turn = [&] {
        if (byKey)
            QTest::keyClick(&PaneOf(spectrum), Qt::Key_H);
        else
            QTest::mouseClick(ButtonOf(spectrum ? Spectrum : Waterfall, "stop"), Qt::LeftButton);
    };
    auto const take = [this] {
        quint64 const before = m_window->Figures().taken;
        m_window->Start();
        bool const taken = QTest::qWaitFor([&] { return m_window->Figures().taken > before + 3; });
        m_window->Player().Stop();
        return taken && QTest::qWaitFor([&] { return m_window->Figures().taken == m_window->Figures().produced; });
    };
    WaterfallPane & waterfall = m_window->Waterfall();
    turn();
    quint64 const rows = waterfall.GetRowsAppended();
    double const newest = waterfall.GetImage().Stamp(0);
    QImage const trace = PaneTools::Rendered(m_window->Spectrum());
    QVERIFY(take());
    QCOMPARE(waterfall.GetRowsAppended() == rows, !spectrum);
    QCOMPARE(waterfall.GetImage().Stamp(0) == newest, !spectrum);
    QCOMPARE(PaneTools::Rendered(m_window->Spectrum()) == trace, spectrum); // the level falls from line to line
    quint64 const missed = m_window->Figures().taken;
    turn();
    QVERIFY(take());
    quint64 const came = m_window->Figures().taken - missed;
    QVERIFY(PaneTools::Rendered(m_window->Spectrum()) != trace);
    if (!spectrum)
        QCOMPARE(waterfall.GetRowsAppended(), rows + came); // the missed ones are not made up for
}

// All the room for one

void tst_ConsolePanes::fullSizeByKey_data()
{
    QTest::addColumn<bool>("spectrum");
    QTest::newRow("the spectrum") << true;
    QTest::newRow("the waterfall") << false;
}

void tst_ConsolePanes::fullSizeByKey()
{
    QFETCH(bool, spectrum);
    PaneFrame & frame = FrameOf(spectrum ? Spectrum : Waterfall);
    PaneFrame & other = FrameOf(spectrum ? Waterfall : Spectrum);
    QList<int> const before = m_window->Splitter().sizes();
    PaneOf(spectrum).setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_F11);
    QVERIFY(frame.isVisible() && !other.isVisible());
    QTRY_COMPARE(frame.height(), m_window->Splitter().height());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_F11);
    QVERIFY(frame.isVisible() && other.isVisible());
    QVERIFY(qAbs(m_window->Splitter().sizes()[0] - before[0]) <= 1); // the splitter rounds
    // the scales of a pane belong to it
    static_cast<RangePane &>(PaneOf(spectrum)).GetFrequencyAxis().setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_F11);
    QCOMPARE(m_window->Splitter().GetFull(), &frame);
}

void tst_ConsolePanes::keysOutsideReachThePaneAtHand_data()
{
    QTest::addColumn<QString>("focus"); // empty: the window
    QTest::newRow("in a number") << "centre";
    QTest::newRow("in a switch") << "marker1";
    QTest::newRow("nowhere") << "";
}

void tst_ConsolePanes::keysOutsideReachThePaneAtHand()
{
    QFETCH(QString, focus);
    PaneOf(false).setFocus();
    QWidget * const outside = focus.isEmpty() ? m_window.get() : m_window->findChild<QWidget *>(focus);
    QVERIFY(outside);
    outside->setFocus();
    for (PaneFrame * const frame : m_window->Splitter().Frames())
        frame->setAttribute(Qt::WA_UnderMouse, false);
    auto const press = [outside](int key) { QTest::keyClick(outside, Qt::Key(key)); };
    press(Qt::Key_F11);
    QCOMPARE(m_window->Splitter().GetFull(), &FrameOf(Waterfall)); // it was used last
    press(Qt::Key_F11);
    QVERIFY(!m_window->Splitter().GetFull());
    FrameOf(Waterfall).setAttribute(Qt::WA_UnderMouse, false);
    FrameOf(Spectrum).setAttribute(Qt::WA_UnderMouse);
    press(Qt::Key_F11);
    QCOMPARE(m_window->Splitter().GetFull(), &FrameOf(Spectrum));
    press(Qt::Key_F11);
    QVERIFY(!m_window->Splitter().GetFull());
    if (focus == QLatin1String("centre"))
        return; // a number takes letters and blanks
    FrameOf(Waterfall).setAttribute(Qt::WA_UnderMouse, false);
    FrameOf(Spectrum).setAttribute(Qt::WA_UnderMouse);
    press(Qt::Key_H);
    QVERIFY(FrameOf(Spectrum).IsHeld() && !FrameOf(Waterfall).IsHeld());
    press(Qt::Key_H);
    QVERIFY(!FrameOf(Spectrum).IsHeld());
    if (focus.isEmpty()) {
        press(Qt::Key_Space);
        QVERIFY(!m_window->Player().IsPlaying());
        press(Qt::Key_Space);
        QVERIFY(m_window->Player().IsPlaying());
    }
}

void tst_ConsolePanes::keyLeavesWhatAButtonMadeFull()
{
    auto * const centre = m_window->findChild<QWidget *>(QStringLiteral("centre"));
    centre->setFocus();
    QTest::mouseClick(ButtonOf(Spectrum, "Waterfall only"), Qt::LeftButton);
    QCOMPARE(m_window->Splitter().GetFull(), &FrameOf(Spectrum));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_F11);
    QVERIFY(FrameOf(Spectrum).isVisible() && FrameOf(Waterfall).isVisible());
}

void tst_ConsolePanes::hiddenPanesRest()
{
    WaterfallPane & waterfall = m_window->Waterfall();
    Rows(50);
    m_window->Splitter().SetFull(&FrameOf(Spectrum));
    QString const before = FrameOf(Waterfall).Caption().GetCaptionCenter();
    QSignalSpy const told(&waterfall, &WaterfallPane::signalTimes);
    Rows(100);
    QCOMPARE(told.count(), 0);
    QCOMPARE(FrameOf(Waterfall).Caption().GetCaptionCenter(), before);
    m_window->Splitter().SetFull(nullptr);
    QVERIFY(FrameOf(Waterfall).Caption().GetCaptionCenter().contains(QStringLiteral(" - 12:01:39")));
    QCOMPARE(waterfall.GetImage().Stamp(0), PaneTools::Noon + 99e6);
    QImage const trace = PaneTools::Rendered(m_window->Spectrum());
    m_window->Splitter().SetFull(&FrameOf(Waterfall));
    m_window->Spectrum().SetLine(PaneTools::PeakLine(64, 8, -100.0, -20.0));
    m_window->Splitter().SetFull(nullptr);
    m_window->grab();
    QVERIFY(PaneTools::Rendered(m_window->Spectrum()) != trace); // the newest line is caught up with
}

// Times

void tst_ConsolePanes::everyPaneTellsItsTimes()
{
    for (char const * const path :
         { ConsolePaths::PersistenceShown, ConsolePaths::AzimuthShown, ConsolePaths::ElevationShown })
        ConsoleValues::SetFlag(path, true);
    quint64 const taken = m_window->Figures().taken;
    m_window->Start();
    QTRY_VERIFY(m_window->Figures().taken > taken);
    for (PaneFrame * const frame : m_window->Splitter().Frames()) {
        VCCaption const & caption = frame->Caption();
        QVERIFY2(caption.GetCaptionLeft().startsWith(frame->Form().name), qPrintable(caption.GetCaptionLeft()));
        if (frame == &FrameOf(Waterfall) || frame == &FrameOf(Spectrum))
            continue;
        QVERIFY2(caption.GetCaptionCenter().endsWith(QStringLiteral("  [00:04]")),
                 qPrintable(caption.GetCaptionCenter()));
    }
    QCOMPARE(FrameOf(Spectrum).Caption().GetCaptionCenter(), QString()); // a line has no span
}

void tst_ConsolePanes::persistenceThatKeepsTellsNoTimes_data()
{
    QTest::addColumn<long>("hold");
    QTest::newRow("off") << 0L;
    QTest::newRow("infinite") << -1L;
}

void tst_ConsolePanes::persistenceThatKeepsTellsNoTimes()
{
    QFETCH(long, hold);
    ConsoleValues::SetFlag(ConsolePaths::PersistenceShown, true);
    m_window->Start();
    auto const center = [this] { return FrameOf(QStringLiteral("persistencePaneFrame")).Caption().GetCaptionCenter(); };
    QTRY_VERIFY(!center().isEmpty());
    ConsoleValues::Select(ConsolePaths::Hold, hold);
    QTRY_VERIFY(center().isEmpty());
}

void tst_ConsolePanes::spanIsThatOfTheRows()
{
    VCCaption & caption = FrameOf(Waterfall).Caption();
    WaterfallImage const & image = m_window->Waterfall().GetImage();
    auto const text = [](double time) {
        return QDateTime::fromMSecsSinceEpoch(static_cast<qint64>(time / 1e3), Qt::UTC)
            .toString(QStringLiteral("hh:mm:ss"));
    };
    QVERIFY(image.Filled() > 3);
    QString const shown = caption.GetCaptionCenter();
    QVERIFY2(shown.contains(text(image.Stamp(image.Filled() - 1)) + QStringLiteral(" - ") + text(image.Stamp(0))),
             qPrintable(shown));
    // rows that have no room any more are not told
    SpectrumLine line(*PaneTools::LineOf(0.0, std::vector<double>(16, -50.0)));
    PaneLines lines;
    for (int row = 0; row < 400; ++row) {
        line.time = PaneTools::Noon + row * 1e6;
        lines.push_back(std::make_shared<SpectrumLine>(line));
    }
    m_window->Waterfall().AppendLines(lines);
    m_window->Waterfall().Refresh();
    QVERIFY(image.Filled() < 400);
    QString const oldest = text(PaneTools::Noon + (400 - image.Filled()) * 1e6);
    QVERIFY2(caption.GetCaptionCenter().contains(oldest + QStringLiteral(" - 12:06:39")),
             qPrintable(caption.GetCaptionCenter()));
}

void tst_ConsolePanes::spanFollowsTheZone()
{
    m_window->Waterfall().Clear();
    SpectrumLine line(*PaneTools::LineOf(0.0, std::vector<double>(16, -50.0)));
    PaneLines lines;
    for (double const second : { 0.0, 5.0 }) {
        line.time = PaneTools::Noon + second * 1e6;
        lines.push_back(std::make_shared<SpectrumLine>(line));
    }
    m_window->Waterfall().AppendLines(lines);
    VCCaption & caption = FrameOf(Waterfall).Caption();
    QString const before = QStringLiteral("2026-10-22 12:00:00 - 12:00:05  [00:05]");
    QCOMPARE(caption.GetCaptionCenter(), before);
    auto * const box = m_window->findChild<QComboBox *>(QStringLiteral("timeZone"));
    box->setFocus();
    QTest::keyClick(box, Qt::Key_End); // the zone that is furthest east
    QCOMPARE(caption.GetCaptionCenter(), QStringLiteral("2026-10-23 02:00:00 - 02:00:05  [00:05]"));
    ValueSelection * const zone = GuiBase::Instance().GetTimeZone();
    zone->Select(0L, nullptr);
    QCOMPARE(caption.GetCaptionCenter(), before);
}

void tst_ConsolePanes::clearedRowsHaveNoSpan()
{
    QVERIFY(!FrameOf(Waterfall).Caption().GetCaptionCenter().isEmpty());
    m_window->Waterfall().Clear();
    QCOMPARE(FrameOf(Waterfall).Caption().GetCaptionCenter(), QString());
}

// Ranges

void tst_ConsolePanes::entryMovesTheMarkers_data()
{
    QTest::addColumn<QString>("pane");
    QTest::addColumn<QString>("part");
    QTest::addColumn<QString>("entry");
    QTest::addColumn<double>("first"); // Hz beyond the middle of the band
    QTest::addColumn<double>("second");
    QTest::newRow("difference below the waterfall") << Waterfall << "Difference"
                                                    << "0.001" << 100.0 << -900.0;
    QTest::newRow("centre below the waterfall") << Waterfall << "Center"
                                                << "100.001" << 1500.0 << 500.0;
}

void tst_ConsolePanes::entryMovesTheMarkers()
{
    QFETCH(QString, pane);
    QFETCH(QString, part);
    QFETCH(QString, entry);
    QFETCH(double, first);
    QFETCH(double, second);
    ShowMarkers(true);
    ConsoleValues::Set(ConsolePaths::Marker1, ToneSource::Centre + 100.0); // the first one is the upper one
    ConsoleValues::Set(ConsolePaths::Marker2, ToneSource::Centre - 900.0);
    if (part == QLatin1String("Difference")) {
        ConsoleValues::Set(ConsolePaths::Marker1, ToneSource::Centre + 600.0);
        ConsoleValues::Set(ConsolePaths::Marker2, ToneSource::Centre - 1400.0);
    }
    QCoreApplication::processEvents(); // the display takes over what it missed
    Steps().clear();
    auto * const label = FrameOf(pane).Ranges().findChild<VCLabel *>(part);
    QVERIFY(label && label->isVisible());
    QTest::keyClick(label, Qt::Key_Return);
    auto * const edit = FrameOf(pane).Ranges().findChild<QLineEdit *>();
    QVERIFY(edit && edit->isVisible());
    QTest::keyClicks(edit, entry); // over what is selected
    QTest::keyClick(edit, Qt::Key_Return);
    QTRY_VERIFY(!edit->isVisible());
    QVERIFY(IsNear(ConsoleValues::Get(ConsolePaths::Marker1) - ToneSource::Centre, first, 1e-3));
    QVERIFY(IsNear(ConsoleValues::Get(ConsolePaths::Marker2) - ToneSource::Centre, second, 1e-3));
    QCOMPARE(Steps().count(), 1);
    Steps().undo();
    double const former = part == QLatin1String("Difference") ? 600.0 : 100.0;
    QVERIFY(IsNear(ConsoleValues::Get(ConsolePaths::Marker1) - ToneSource::Centre, former, 1e-3));
}

void tst_ConsolePanes::centerButtonHidesTheMarkers()
{
    ShowMarkers(true);
    auto * const display = FrameOf(Waterfall).findChild<AxisRangeDisplay *>(QStringLiteral("frequencyRange"));
    QVERIFY(display && display->isVisible());
    auto * const button = display->findChild<QPushButton *>();
    QVERIFY(button->isChecked());
    QTest::mouseClick(button, Qt::LeftButton);
    QVERIFY(!ConsoleValues::GetFlag(ConsolePaths::Marker1Shown));
    QVERIFY(!ConsoleValues::GetFlag(ConsolePaths::Marker2Shown));
    QVERIFY(!display->isVisible());
}

void tst_ConsolePanes::rangesStandBelowThePictures()
{
    ShowMarkers(true);
    m_window->resize(1280, 800);
    QTRY_COMPARE(m_window->width(), 1280);
    m_window->grab();
    PaneFrame & frame = FrameOf(Waterfall);
    QWidget const & display = *frame.findChild<AxisRangeDisplay *>();
    auto const standsBelow = [&] {
        QRect const picture = m_window->Waterfall().GetPictureRect();
        QRect const place(display.mapTo(&frame, QPoint(0, 0)), display.size());
        return display.isVisible() && place.left() == picture.left() && place.right() == picture.right() &&
               place.top() > frame.Pane().geometry().bottom() && frame.rect().contains(place);
    };
    QTRY_VERIFY(standsBelow());
    QVERIFY(!FrameOf(Spectrum).Ranges().isVisible()); // it has no room to spare
    m_window->Splitter().SetFull(&FrameOf(Spectrum));
    QTRY_VERIFY(FrameOf(Spectrum).Ranges().isVisible());
    m_window->Splitter().SetFull(nullptr);
    QTRY_VERIFY(standsBelow());
    m_window->resize(m_window->minimumSizeHint());
    QTRY_VERIFY(!frame.Ranges().isVisible());
}

// Times of markers

void tst_ConsolePanes::rangesStandBelowFivePanes()
{
    for (char const * const path :
         { ConsolePaths::PersistenceShown, ConsolePaths::AzimuthShown, ConsolePaths::ElevationShown })
        ConsoleValues::SetFlag(path, true);
    ShowMarkers(true);
    ShowTimes(true);
    for (QSize const size : { QSize(1280, 800) }) {
        m_window->resize(size);
        for (QString const & name : { QStringLiteral("frequencyRange"), QStringLiteral("timeRange") })
            QTRY_VERIFY(FrameOf(Waterfall).findChild<AxisRangeDisplay *>(name)->isVisible());
    }
}

void tst_ConsolePanes::timeMarkersStandOnRows()
{
    WaterfallImage const & image = m_window->Waterfall().GetImage();
    ShowTimes(true);
    double const earlier = ConsoleValues::Get(ConsolePaths::Time1);
    double const later = ConsoleValues::Get(ConsolePaths::Time2);
    QVERIFY(earlier >= image.Stamp(image.Filled() - 1) && later <= image.Stamp(0) && earlier < later);
    m_window->grab();
    int lines = 0;
    for (MarkerRulers::Ruler const & ruler : m_window->Waterfall().GetRulers())
        lines += ruler.level ? 1 : 0;
    QCOMPARE(lines, 2);
    for (MarkerRulers::Ruler const & ruler : m_window->Waterfall().GetRulers()) {
        if (ruler.level)
            QVERIFY(image.Stamp(ruler.line) == (ruler.index == ConsoleMarkers::Time1 ? earlier : later));
    }
    // a line moves with its row
    SpectrumLine line(*PaneTools::LineOf(0.0, std::vector<double>(16, -50.0)));
    line.time = image.Stamp(0) + 1e6;
    m_window->Waterfall().AppendLines({ std::make_shared<SpectrumLine>(line) });
    m_window->grab();
    for (MarkerRulers::Ruler const & ruler : m_window->Waterfall().GetRulers()) {
        if (ruler.index != ConsoleMarkers::Time1)
            continue;
        QCOMPARE(image.Stamp(ruler.line), earlier);
        QString const time = QDateTime::fromMSecsSinceEpoch(static_cast<qint64>(earlier / 1e3), Qt::UTC)
                                 .toString(QStringLiteral("hh:mm:ss.zzz"));
        QCOMPARE(ruler.texts, QStringList{ QStringLiteral("T1 ") + time });
    }
}

void tst_ConsolePanes::timeMarkersWaitForRows()
{
    auto * const markers = m_window->findChild<ConsoleMarkers *>();
    QVERIFY(markers);
    Rows(1);
    ShowTimes(true);
    Rows(8);
    markers->slotLineShown();
    QCOMPARE(ConsoleValues::Get(ConsolePaths::Time1), PaneTools::Noon + 1e6);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::Time2), PaneTools::Noon + 5e6);
}

void tst_ConsolePanes::timeFlagsFollowTheZone()
{
    Rows(100);
    ShowTimes(true);
    ConsoleValues::Set(ConsolePaths::Time1, PaneTools::Noon + 40e6);
    QCOMPARE(TextOf(ConsoleMarkers::Time1), QStringLiteral("T1 12:00:40"));
    ValueSelection * const zone = GuiBase::Instance().GetTimeZone();
    zone->Select(3600L, nullptr);
    QCOMPARE(TextOf(ConsoleMarkers::Time1), QStringLiteral("T1 13:00:40"));
    zone->Select(0L, nullptr);
    QCOMPARE(TextOf(ConsoleMarkers::Time1), QStringLiteral("T1 12:00:40"));
}

void tst_ConsolePanes::timesAreAsFineAsTheRows()
{
    Rows(100, 40e3);
    ShowTimes(true);
    ConsoleValues::Set(ConsolePaths::Time1, PaneTools::Noon + 40e3);
    ConsoleValues::Set(ConsolePaths::Time2, PaneTools::Noon + 1.2e6);
    QCOMPARE(TextOf(ConsoleMarkers::Time1), QStringLiteral("T1 12:00:00.040"));
    QCoreApplication::processEvents();
    auto const shown = [this](QString const & text) {
        bool isShown = false;
        for (char const * const name : { "First Ruler", "Second Ruler" }) {
            auto const * const label = FrameOf(Waterfall)
                                           .findChild<AxisRangeDisplay *>(QStringLiteral("timeRange"))
                                           ->findChild<VCLabel *>(QLatin1String(name));
            isShown = isShown || label->text().trimmed() == text;
        }
        return isShown;
    };
    QVERIFY(shown(QStringLiteral("12:00:00.040")));
    Rows(100);
    QVERIFY(shown(QStringLiteral("12:00:00")));
    QCOMPARE(TextOf(ConsoleMarkers::Time2), QStringLiteral("T2 12:00:01"));
}

void tst_ConsolePanes::captionFollowsTheTimeRange()
{
    Rows(100);
    VCCaption const & caption = FrameOf(Waterfall).Caption();
    QString const rows = caption.GetCaptionCenter();
    ShowTimes(true);
    ConsoleValues::Set(ConsolePaths::Time1, PaneTools::Noon + 40e6);
    ConsoleValues::Set(ConsolePaths::Time2, PaneTools::Noon + 20e6);
    QString const marked = QStringLiteral("2026-10-22 12:00:20 - 12:00:40  [00:20]");
    QCOMPARE(caption.GetCaptionCenter(), marked);
    RangeBar & bar = FrameOf(Waterfall).Ranges();
    bar.SetRoom(QSize(1000, 50), 50, 50); // too low for a display
    QCOMPARE(caption.GetCaptionCenter(), rows);
    bar.SetRoom(QSize(1000, 400), 50, 50);
    QCOMPARE(caption.GetCaptionCenter(), marked);
}

void tst_ConsolePanes::timeMarkerIsDragged()
{
    Rows(300);
    ShowTimes(true);
    WaterfallPane & pane = m_window->Waterfall();
    m_window->grab();
    Steps().clear();
    QRect const picture = pane.GetPictureRect();
    int const from = pane.ValueToPixel(eMarkerY, ConsoleValues::Get(ConsolePaths::Time1));
    QPoint const at(picture.left() + 20, from);
    SessionTools::Mouse(pane, QEvent::MouseButtonPress, at);
    SessionTools::Mouse(pane, QEvent::MouseMove, at - QPoint(0, 10));
    SessionTools::Mouse(pane, QEvent::MouseMove, at - QPoint(0, 30));
    SessionTools::Mouse(pane, QEvent::MouseButtonRelease, at - QPoint(0, 30));
    QCOMPARE(ConsoleValues::Get(ConsolePaths::Time1), pane.GetImage().Stamp(from - 30));
    QCOMPARE(Steps().count(), 1);
}

void tst_ConsolePanes::captionTellsTheTimesOfTheMarkers()
{
    Rows(100);
    VCCaption const & caption = FrameOf(Waterfall).Caption();
    QString const rows = caption.GetCaptionCenter();
    ShowTimes(true);
    ConsoleValues::Set(ConsolePaths::Time1, PaneTools::Noon + 40e6);
    ConsoleValues::Set(ConsolePaths::Time2, PaneTools::Noon + 20e6);
    QString const marked = QStringLiteral("2026-10-22 12:00:20 - 12:00:40  [00:20]");
    QCOMPARE(caption.GetCaptionCenter(), marked);
    m_window->Waterfall().Refresh();
    Q_EMIT m_window->Waterfall().signalTimes();
    QCOMPARE(caption.GetCaptionCenter(), marked);
    ShowTimes(false);
    QCOMPARE(caption.GetCaptionCenter(), rows);
}

void tst_ConsolePanes::entryMovesTheTimes()
{
    Rows(100);
    ShowTimes(true);
    ConsoleValues::Set(ConsolePaths::Time1, PaneTools::Noon + 40e6);
    ConsoleValues::Set(ConsolePaths::Time2, PaneTools::Noon + 20e6);
    QCoreApplication::processEvents();
    auto * const display = FrameOf(Waterfall).findChild<AxisRangeDisplay *>(QStringLiteral("timeRange"));
    QVERIFY(display && display->isVisible());
    QTest::keyClick(display->findChild<VCLabel *>(QStringLiteral("Difference")), Qt::Key_Return);
    QTest::keyClicks(display->findChild<QLineEdit *>(), QStringLiteral("10"));
    QTest::keyClick(display->findChild<QLineEdit *>(), Qt::Key_Return);
    QTRY_COMPARE(ConsoleValues::Get(ConsolePaths::Time1), PaneTools::Noon + 35e6);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::Time2), PaneTools::Noon + 25e6);
}

void tst_ConsolePanes::centerButtonHidesTheTimes()
{
    ShowTimes(true);
    ShowMarkers(true);
    auto * const display = FrameOf(Waterfall).findChild<AxisRangeDisplay *>(QStringLiteral("timeRange"));
    QString const folder = qEnvironmentVariable("ORIM_PICTURES");
    if (!folder.isEmpty())
        m_window->grab().save(folder + QStringLiteral("/ranges.png"));
    QTest::mouseClick(display->findChild<QPushButton *>(), Qt::LeftButton);
    QVERIFY(!ConsoleValues::GetFlag(ConsolePaths::Time1Shown) && !ConsoleValues::GetFlag(ConsolePaths::Time2Shown));
    QVERIFY(ConsoleValues::GetFlag(ConsolePaths::Marker1Shown) && ConsoleValues::GetFlag(ConsolePaths::Marker2Shown));
}

// Switches

void tst_ConsolePanes::switchesShowPanes_data()
{
    QTest::addColumn<QString>("box");
    QTest::addColumn<QString>("path");
    auto const path = [](char const * text) { return QString(QLatin1String(text)); };
    QTest::newRow("persistence") << "persistence" << path(ConsolePaths::PersistenceShown);
    QTest::newRow("azimuth") << "azimuth" << path(ConsolePaths::AzimuthShown);
    QTest::newRow("elevation") << "elevation" << path(ConsolePaths::ElevationShown);
}

void tst_ConsolePanes::switchesShowPanes()
{
    QFETCH(QString, box);
    QFETCH(QString, path);
    QByteArray const name = path.toLatin1();
    auto * const check = m_window->findChild<QCheckBox *>(box);
    QVERIFY(check && check->isVisible());
    PaneFrame * frame = nullptr;
    for (PaneFrame * const each : m_window->Splitter().Frames())
        frame = each->Form().shownPath == path ? each : frame;
    for (bool const on : { true, false }) {
        check->setChecked(on);
        QCOMPARE(ConsoleValues::GetFlag(name.constData()), on);
        if (frame)
            QCOMPARE(frame->isVisible(), on);
        ConsoleValues::SetFlag(name.constData(), !on);
        QCOMPARE(check->isChecked(), !on);
    }
}

// Sizes and ends

void tst_ConsolePanes::anySizeIsTaken_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("nothing") << QSize(0, 0);
    QTest::newRow("one pixel") << QSize(1, 1);
    QTest::newRow("low") << QSize(800, 200);
    QTest::newRow("narrow") << QSize(120, 900);
    QTest::newRow("small") << QSize(800, 500);
    QTest::newRow("usual") << QSize(1280, 800);
    QTest::newRow("wide") << QSize(4000, 300);
}

void tst_ConsolePanes::anySizeIsTaken()
{
    QFETCH(QSize, size);
    ShowMarkers(true);
    m_window->centralWidget()->layout()->setSizeConstraint(QLayout::SetNoConstraint);
    m_window->centralWidget()->setMinimumSize(1, 1);
    m_window->layout()->setSizeConstraint(QLayout::SetNoConstraint);
    m_window->setMinimumSize(1, 1);
    for (int round = 0; round < 3; ++round) {
        m_window->resize(size);
        m_window->grab();
        PaneFrame * const full = round == 1 ? &FrameOf(Waterfall) : nullptr;
        m_window->Splitter().SetFull(full);
        m_window->grab();
    }
    m_window->resize(1000, 700);
    QTRY_COMPARE(m_window->size(), QSize(1000, 700));
    m_window->grab();
    QVERIFY(m_window->Spectrum().GetPictureRect().width() > 500);
    QVERIFY(m_window->Waterfall().GetPictureRect().height() > 100);
    PaneFrame const & frame = FrameOf(Waterfall);
    bool const hasRoom = frame.height() - frame.Caption().height() >= RangeBar::LeastPaneHeight;
    QVERIFY(frame.Ranges().isVisible() || !hasRoom);
}

void tst_ConsolePanes::anyRatioGivesAPicture_data()
{
    QTest::addColumn<double>("ratio");
    for (double const ratio : { 1.0, 1.25, 1.5, 2.0, 3.0 })
        QTest::addRow("%g", ratio) << ratio;
}

void tst_ConsolePanes::anyRatioGivesAPicture()
{
    QFETCH(double, ratio);
    QTemporaryDir const folder;
    QString const picture = folder.filePath(QStringLiteral("picture.png"));
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_SCALE_FACTOR"), QString::number(ratio));
    program.setProcessEnvironment(environment);
    program.start(QStringLiteral(ORIM_CONSOLE_PROGRAM),
                  { QStringLiteral("--markers"), QStringLiteral("--screenshot"), picture, QStringLiteral("--after"),
                    QStringLiteral("0.3"), QStringLiteral("--size"), QStringLiteral("1000x700") });
    QVERIFY(program.waitForFinished(60000));
    QByteArray const said = program.readAllStandardError();
    QVERIFY2(program.exitStatus() == QProcess::NormalExit && program.exitCode() == 0, said.constData());
    QVERIFY2(!said.contains("ERROR"), said.constData()); // of the sanitizers
    QCOMPARE(QImage(picture).size(), QSize(qRound(1000 * ratio), qRound(700 * ratio)));
}

void tst_ConsolePanes::windowGoneWithPanes_data()
{
    QTest::addColumn<int>("deed");
    QTest::newRow("as it is") << 0;
    QTest::newRow("a pane full") << 1;
    QTest::newRow("a pane held") << 2;
    QTest::newRow("paused") << 3;
    QTest::newRow("the menu of the caption open") << 4;
    QTest::newRow("an entry open") << 5;
    QTest::newRow("its values gone ahead") << 6;
    QTest::newRow("another zone behind it") << 7;
}

void tst_ConsolePanes::windowGoneWithPanes()
{
    QFETCH(int, deed);
    PaneFrame & frame = FrameOf(Waterfall);
    ShowMarkers(true);
    switch (deed) {
    case 1:
        m_window->Splitter().SetFull(&frame);
        break;
    case 2:
        frame.SetHeld(true);
        break;
    case 3:
        m_window->Player().Pause();
        break;
    case 4:
        SessionTools::RightClick(frame.Caption(), QPoint(5, 5));
        QVERIFY(QApplication::activePopupWidget());
        break;
    case 5:
        QTest::keyClick(frame.Ranges().findChild<VCLabel *>(QStringLiteral("Center")), Qt::Key_Return);
        break;
    case 6:
        for (char const * const path : { ConsolePaths::Marker1, ConsolePaths::MarkerUpper, ConsolePaths::Marker2Shown,
                                         ConsolePaths::PersistenceShown })
            QVERIFY(Tree::Instance()->Remove(QLatin1String(path)));
        break;
    default:
        break;
    }
    m_window.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
    QVERIFY(!QApplication::activePopupWidget());
    GuiBase::Instance().emit_signalColorsChanged();
    if (ValueSelection * const zone = deed == 7 ? GuiBase::Instance().GetTimeZone() : nullptr) {
        zone->Select(3600L, nullptr);
        zone->Select(0L, nullptr);
    }
    QVERIFY(!Tree::Instance()->Find(QLatin1String(ConsolePaths::MarkerLower)));
}

ORIM_TEST_MAIN(tst_ConsolePanes)
#include "tst_consolepanes.moc"
