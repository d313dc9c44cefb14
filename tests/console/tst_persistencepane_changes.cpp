// SPDX-License-Identifier: MIT
#include "persistencepane.h"

#include "agescale.h"
#include "colorset.h"
#include "consolesettings.h"
#include "consolevalues.h"
#include "consolewindow.h"
#include "guicentral.h"
#include "levelaxis.h"
#include "lineplayer.h"
#include "memorycfg.h"
#include "panecolors.h"
#include "panetools.h"
#include "persistencetools.h"
#include "testmain.h"
#include "traceraster.h"
#include "tree.h"
#include "valueselection.h"

#include <QComboBox>
#include <QToolButton>

#include <limits>

using namespace PaneTools;
using namespace PersistenceTools;

class tst_PersistencePaneChanges : public QObject
{
    Q_OBJECT

public:
    bool eventFilter(QObject * object, QEvent * event) override;

private Q_SLOTS:

    void initTestCase() { TestStage::HushPopups(); }

    void init();
    void cleanup();

    void otherPixelsClear_data();
    void otherPixelsClear();
    void samePixelsStay();
    void endlessPictureKeepsItsPixels_data();
    void endlessPictureKeepsItsPixels();

    void recordingAgesByItsPosition();
    void pausedRecordingDoesNotFade();
    void jumpBackClears();
    void endOfTheRingGoesOn();
    void timeOfAHeldRecordingStandsStill();

    void hiddenPaneTakesNoLines();
    void hiddenPaneAgesWhenItIsShown_data();
    void hiddenPaneAgesWhenItIsShown();
    void hiddenRecordingAgesWithItsNextLine();
    void heldPictureStands();
    void heldPictureOutlivesChanges_data();
    void heldPictureOutlivesChanges();
    void heldPictureFollowsTheView();
    void clearedHeldPictureIsEmpty();
    void heldPictureGoesOn();
    void flagStopsTheAgeing();
    void heldPictureDoesNotHearTheFlag();

    void oddSizes_data();
    void oddSizes();
    void oddRangesAreIgnored_data();
    void oddRangesAreIgnored();
    void oddLinesAreHarmless_data();
    void oddLinesAreHarmless();
    void unknownPathsAreTold();

    void windowHasIt();
    void controlsMoveTheValues();
    void controlsOfAHiddenPaneAreDisabled();
    void settingsComeBack();

private:
    int m_paints = 0;
};

namespace {

std::unique_ptr<ConsoleValues> g_values;

} // namespace

bool tst_PersistencePaneChanges::eventFilter(QObject * object, QEvent * event)
{
    m_paints += event->type() == QEvent::Paint ? 1 : 0;
    return QObject::eventFilter(object, event);
}

void tst_PersistencePaneChanges::init()
{
    GuiCentral::Instance().slotRestoreFactoryColors();
    ColorSet::Instance().Load(0);
    g_values = std::make_unique<ConsoleValues>();
    m_paints = 0;
}

void tst_PersistencePaneChanges::cleanup() { g_values.reset(); }

void tst_PersistencePaneChanges::otherPixelsClear_data()
{
    QTest::addColumn<int>("what");
    QTest::newRow("zoom of the frequencies") << 0;
    QTest::newRow("pan of the frequencies") << 1;
    QTest::newRow("lower level") << 2;
    QTest::newRow("upper level") << 3;
    QTest::newRow("width") << 4;
    QTest::newRow("height") << 5;
    QTest::newRow("hold time") << 6;
    QTest::newRow("quality steps") << 7;
    QTest::newRow("source") << 8;
    QTest::newRow("another band") << 9;
}

void tst_PersistencePaneChanges::otherPixelsClear()
{
    QFETCH(int, what);
    Pane pane;
    pane.AppendLines({ Flat(-50.0) });
    QVERIFY(pane.Lit() > 0);
    std::array<std::function<void()>, 10> const changes{ {
        [&pane] {
            pane.SetFrequencyRange({ 0.0, Bins / 2 });
        },
        [&pane] {
            pane.SetFrequencyRange({ 4.0, Bins });
        },
        [&pane] { pane.SetLevelRange(-90.0, High); },
        [&pane] { pane.SetLevelRange(Low, 10.0); },
        [&pane] { pane.resize(pane.width() + 50, pane.height()); },
        [&pane] { pane.resize(pane.width(), pane.height() - 50); },
        [] { ConsoleValues::Select(ConsolePaths::Hold, 10); },
        [] { ConsoleValues::Select(ConsolePaths::Quality, 2); },
        [&pane] { pane.SetSource(60.0); },
        [&pane] {
            pane.SetFrequencyRange({ 1e6, 1e6 });
        },
    } };
    changes[static_cast<std::size_t>(what)]();
    pane.Refresh();
    QCOMPARE(pane.Lit(), 0);
    QCOMPARE(QSize(pane.GetImage().width(), pane.Height()), pane.GetPictureRect().size());
    // and what comes next is lit again
    FrequencyRange const view = pane.GetFrequencyRange();
    auto const line = std::make_shared<SpectrumLine>(*Flat(-40.0));
    line->centre = view.start + view.span / 2.0;
    line->span = 2.0 * view.span;
    pane.AppendLines({ line });
    QCOMPARE(pane.Lit(), pane.GetImage().width());
    QVERIFY(pane.IsLit(0, pane.Row(-40.0)));
}

void tst_PersistencePaneChanges::samePixelsStay()
{
    Pane pane;
    pane.AppendLines({ Flat(-50.0) });
    int const lit = pane.Lit();
    pane.SetFrequencyRange({ 0.0, Bins });
    pane.SetLevelRange(Low, High);
    pane.SetColors(Colors());
    pane.setFont(pane.font());
    pane.Refresh();
    pane.hide();
    pane.show();
    pane.Refresh();
    QCOMPARE(pane.Lit(), lit);
}

void tst_PersistencePaneChanges::endlessPictureKeepsItsPixels_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<long>("quality");
    QTest::newRow("lower by a row of ranges") << QSize(500, 278) << 1L;
    QTest::newRow("higher") << QSize(500, 431) << 1L;
    QTest::newRow("wider") << QSize(777, 300) << 1L;
    QTest::newRow("narrower") << QSize(333, 300) << 1L;
    QTest::newRow("larger, by quality") << QSize(777, 431) << 8L;
    QTest::newRow("smaller, by quality") << QSize(333, 250) << 8L;
}

//! Lines of hours are not lost by a pane that gets another size.
void tst_PersistencePaneChanges::endlessPictureKeepsItsPixels()
{
    QFETCH(QSize, size);
    QFETCH(long, quality);
    ConsoleValues::Select(ConsolePaths::Hold, -1);
    ConsoleValues::Select(ConsolePaths::Quality, quality);
    Pane pane;
    pane.AppendLines({ PeakLine(Bins, 16, -90.0, -30.0), Flat(-70.0) });
    QImage const before = pane.GetImage().GetImage()->copy();
    int const peak = pane.Index(16 * pane.GetImage().width() / Bins, pane.Row(-30.0));
    QVERIFY(peak < FirstBackground);
    pane.resize(size);
    pane.Refresh();
    QCOMPARE(QSize(pane.GetImage().width(), pane.Height()), pane.GetPictureRect().size());
    auto const isNear = [&pane](int x, double level) {
        int const row = pane.Row(level);
        return pane.IsLit(x, row) || pane.IsLit(x, row - 1) || pane.IsLit(x, row + 1);
    };
    for (int x = 0; x < pane.GetImage().width(); ++x)
        QVERIFY(isNear(x, -70.0));
    int const column = 16 * pane.GetImage().width() / Bins;
    QVERIFY(isNear(column, -30.0));
    QVERIFY(!isNear(column + 30, -30.0));
    bool isPeak = false;
    for (int row = pane.Row(-30.0) - 1; row <= pane.Row(-30.0) + 1; ++row)
        isPeak = isPeak || pane.Index(column, row) == peak;
    QVERIFY(isPeak);
    bool const isLarger = size.width() >= 500 && size.height() >= 300;
    pane.resize(500, 300);
    pane.Refresh();
    if (isLarger)
        QVERIFY(*pane.GetImage().GetImage() == before); // nothing wanders
    pane.AppendLines({ Flat(-20.0) });
    QVERIFY(pane.IsLit(0, pane.Row(-20.0)));
    pane.Clear();
    QCOMPARE(pane.Lit(), 0);
}

void tst_PersistencePaneChanges::recordingAgesByItsPosition()
{
    Pane pane;
    pane.SetSource(600.0);
    pane.AppendLines({ Flat(-50.0, 20.0) });
    int const row = pane.Row(-50.0);
    auto const & ages = pane.GetAgeScale().GetAges()[0];
    pane.AppendLines({ Flat(-20.0, 20.4) }); // steps of 500 ms: none is full
    QCOMPARE(QColor(pane.Color(0, row)).name(), QColor(ages[0]).name());
    pane.AppendLines({ Flat(-20.0, 21.1) });
    QCOMPARE(QColor(pane.Color(0, row)).name(), QColor(ages[1]).name());
    pane.AppendLines({ Flat(-20.0, 23.2) });
    QVERIFY(pane.IsLit(0, row));
    pane.AppendLines({ Flat(-20.0, 24.2) });
    QVERIFY(!pane.IsLit(0, row));
}

void tst_PersistencePaneChanges::pausedRecordingDoesNotFade()
{
    Pane pane;
    pane.SetSource(600.0);
    pane.AppendLines({ Flat(-50.0, 20.0) });
    QRgb const color = pane.Color(0, pane.Row(-50.0));
    QVERIFY(AgedImageAccess::SwitchTimer(pane.GetImage()) <= 0);
    pane.Age(100000);
    pane.Tick(AgedImageAccess::UpdateTimer(pane.GetImage()));
    pane.AppendLines({});
    pane.AppendLines({ nullptr });
    QCOMPARE(pane.Color(0, pane.Row(-50.0)), color);
    QCOMPARE(pane.Lit(), pane.GetImage().width());
}

void tst_PersistencePaneChanges::jumpBackClears()
{
    Pane pane;
    pane.SetSource(600.0);
    pane.AppendLines({ Flat(-50.0, 20.0) });
    pane.AppendLines({ Flat(-20.0, 10.0) });
    QVERIFY(!pane.IsLit(0, pane.Row(-50.0)));
    QVERIFY(pane.IsLit(0, pane.Row(-20.0)));
    QCOMPARE(pane.Lit(), pane.GetImage().width());
}

void tst_PersistencePaneChanges::endOfTheRingGoesOn()
{
    Pane pane;
    pane.SetSource(10.0);
    pane.AppendLines({ Flat(-50.0, 9.9) });
    pane.AppendLines({ Flat(-20.0, 0.1) });
    QCOMPARE(pane.Lit(), 2 * pane.GetImage().width());
    pane.AppendLines({ Flat(-20.0, 4.1) });
    QVERIFY(!pane.IsLit(0, pane.Row(-50.0)));
}

void tst_PersistencePaneChanges::timeOfAHeldRecordingStandsStill()
{
    Pane pane;
    pane.SetSource(600.0);
    pane.AppendLines({ Flat(-50.0, 20.0) });
    pane.SetHeld(true);
    pane.SetHeld(false); // lines of the time between did not come
    pane.AppendLines({ Flat(-20.0, 60.0) });
    QVERIFY(pane.IsLit(0, pane.Row(-50.0)));
    ConsoleValues::SetFlag(ConsolePaths::Ageing, false);
    pane.AppendLines({ Flat(-20.0, 100.0) });
    ConsoleValues::SetFlag(ConsolePaths::Ageing, true);
    pane.AppendLines({ Flat(-20.0, 100.1) });
    QVERIFY(pane.IsLit(0, pane.Row(-50.0)));
    pane.AppendLines({ Flat(-20.0, 104.1) });
    QVERIFY(!pane.IsLit(0, pane.Row(-50.0)));
}

void tst_PersistencePaneChanges::hiddenPaneTakesNoLines()
{
    Pane pane(false);
    pane.AppendLines({ Flat(-50.0) });
    QCOMPARE(pane.GetLinesDrawn(), quint64(0));
    pane.show();
    QVERIFY(QTest::qWaitForWindowExposed(&pane));
    pane.AppendLines({ Flat(-50.0) });
    QCOMPARE(pane.GetLinesDrawn(), quint64(1));
    pane.hide();
    pane.installEventFilter(this);
    for (int turn = 0; turn < 1000; ++turn)
        pane.AppendLines({ Flat(-turn % 100) });
    pane.Tick(AgedImageAccess::UpdateTimer(pane.GetImage()));
    pane.Tick(AgedImageAccess::SwitchTimer(pane.GetImage()));
    QCoreApplication::processEvents();
    QCOMPARE(pane.GetLinesDrawn(), quint64(1));
    QCOMPARE(pane.Lit(), pane.GetImage().width());
    QCOMPARE(m_paints, 0);
    QVERIFY(!pane.GetImage().GetAgeing());
    pane.removeEventFilter(this);
}

void tst_PersistencePaneChanges::hiddenPaneAgesWhenItIsShown_data()
{
    QTest::addColumn<int>("passed"); // ms
    QTest::addColumn<int>("age");    // section; -1: gone
    QTest::newRow("no time") << 0 << 0;
    QTest::newRow("a step and a half") << 750 << 0;
    QTest::newRow("three steps") << 1500 << 1;
    QTest::newRow("seven steps") << 3999 << 3;
    QTest::newRow("the hold time") << 4000 << -1;
    QTest::newRow("a day") << 86400000 << -1;
}

void tst_PersistencePaneChanges::hiddenPaneAgesWhenItIsShown()
{
    QFETCH(int, passed);
    QFETCH(int, age);
    Pane pane;
    pane.AppendLines({ Flat(-50.0) });
    pane.Age(passed);
    QCOMPARE(pane.IsLit(0, pane.Row(-50.0)), age >= 0);
    if (age >= 0)
        QCOMPARE(QColor(pane.Color(0, pane.Row(-50.0))).name(),
                 QColor(pane.GetAgeScale().GetAges()[0][static_cast<std::size_t>(age)]).name());
}

void tst_PersistencePaneChanges::hiddenRecordingAgesWithItsNextLine()
{
    Pane pane;
    pane.SetSource(600.0);
    pane.AppendLines({ Flat(-50.0, 20.0) });
    pane.hide();
    pane.AppendLines({ Flat(-20.0, 40.0) });
    pane.show();
    QVERIFY(pane.IsLit(0, pane.Row(-50.0)));
    pane.AppendLines({ Flat(-20.0, 40.1) });
    QVERIFY(!pane.IsLit(0, pane.Row(-50.0)));
    QVERIFY(pane.IsLit(0, pane.Row(-20.0)));
}

void tst_PersistencePaneChanges::heldPictureStands()
{
    Pane pane;
    pane.AppendLines({ Flat(-50.0) });
    QRgb const color = pane.Color(0, pane.Row(-50.0));
    pane.SetHeld(true);
    pane.AppendLines({ Flat(-20.0) });
    for (int step = 0; step < 20; ++step)
        pane.Tick(AgedImageAccess::SwitchTimer(pane.GetImage()));
    QCOMPARE(pane.Lit(), pane.GetImage().width());
    QCOMPARE(pane.Color(0, pane.Row(-50.0)), color);
    pane.SetHeld(false);
    pane.AppendLines({ Flat(-20.0) });
    QCOMPARE(pane.Lit(), 2 * pane.GetImage().width());
}

void tst_PersistencePaneChanges::heldPictureOutlivesChanges_data()
{
    QTest::addColumn<int>("what");
    QTest::newRow("zoom of the frequencies") << 0;
    QTest::newRow("pan and back") << 1;
    QTest::newRow("another band and back") << 2;
    QTest::newRow("levels") << 3;
    QTest::newRow("higher") << 4;
    QTest::newRow("much smaller") << 5;
    QTest::newRow("hold time") << 6;
    QTest::newRow("quality") << 7;
    QTest::newRow("colours") << 8;
    QTest::newRow("hidden and shown") << 9;
}

//! What is held is there to be looked at closely.
void tst_PersistencePaneChanges::heldPictureOutlivesChanges()
{
    QFETCH(int, what);
    Pane pane;
    pane.AppendLines({ Flat(-50.0) });
    QColor const trace = QColor(pane.Color(0, pane.Row(-50.0)));
    pane.SetHeld(true);
    auto const tune = [&pane](double start, double span) {
        pane.SetFrequencyRange({ start, span });
        pane.grab();
    };
    std::array<std::function<void()>, 10> const changes{ {
        [&tune] { tune(16.0, 8.0); },
        [&tune] {
            tune(40.0, Bins);
            tune(0.0, Bins);
        },
        [&tune] {
            tune(1e6, 1e6);
            tune(0.0, Bins);
        },
        [&pane] { pane.SetLevelRange(-70.0, -40.0); },
        [&pane] { pane.resize(500, 410); },
        [&pane] { pane.resize(270, 150); },
        [] { ConsoleValues::Select(ConsolePaths::Hold, 10); },
        [] { ConsoleValues::Select(ConsolePaths::Quality, 4); },
        [] { ColorSet::Instance().Load(1); },
        [&pane] {
            pane.hide();
            pane.show();
        },
    } };
    changes[static_cast<std::size_t>(what)]();
    QImage const image = Rendered(pane);
    QRect const picture = pane.GetPictureRect();
    int const row =
        picture.top() + TraceRaster::RowOf({ pane.GetLevelMin(), pane.GetLevelMax(), picture.height() }, -50.0);
    for (int const x : { picture.left() + 1, picture.left() + picture.width() / 3, picture.right() - 1 }) {
        bool isThere = false;
        for (int y = row - 1; y <= row + 1; ++y)
            isThere = isThere || image.pixelColor(x, y) == trace;
        QVERIFY(isThere);
        QVERIFY(image.pixelColor(x, row + 9) != trace);
    }
}

void tst_PersistencePaneChanges::heldPictureFollowsTheView()
{
    Pane pane;
    pane.AppendLines({ PeakLine(Bins, 16, -80.0, -20.0) });
    QImage const before = Rendered(pane);
    QColor const trace = QColor(pane.Color(0, pane.Row(-80.0)));
    pane.SetHeld(true);
    QVERIFY(Rendered(pane) == before);
    // in the quarter from bin 16 on, four times as wide, the right half of the peak stands at the left
    pane.SetFrequencyRange({ 16.0, 16.0 });
    QImage const zoomed = Rendered(pane);
    QRect const picture = pane.GetPictureRect();
    int const bin = picture.width() / 16;
    int const high = picture.top() + pane.Row(-20.0);
    QCOMPARE(zoomed.pixelColor(picture.left() + bin / 4, high), trace);
    QVERIFY(zoomed.pixelColor(picture.left() + 3 * bin, high) != trace);
    QCOMPARE(zoomed.pixelColor(picture.left() + 3 * bin, picture.top() + pane.Row(-80.0)), trace);
    // beside what was held there is nothing
    pane.SetFrequencyRange({ 0.0, 2.0 * Bins });
    QImage const wide = Rendered(pane);
    int const low = picture.top() + pane.Row(-80.0);
    QCOMPARE(wide.pixelColor(picture.left() + picture.width() / 4, low), trace);
    QVERIFY(wide.pixelColor(picture.left() + picture.width() * 3 / 4, low) != trace);
    pane.SetFrequencyRange({ 0.0, Bins });
    QVERIFY(Rendered(pane) == before);
}

void tst_PersistencePaneChanges::clearedHeldPictureIsEmpty()
{
    Pane pane;
    pane.AppendLines({ Flat(-50.0) });
    QColor const trace = QColor(pane.Color(0, pane.Row(-50.0)));
    pane.SetHeld(true);
    pane.Clear();
    QImage const image = Rendered(pane);
    QRect const picture = pane.GetPictureRect();
    QVERIFY(image.pixelColor(picture.left() + 1, picture.top() + pane.Row(-50.0)) != trace);
}

void tst_PersistencePaneChanges::heldPictureGoesOn()
{
    Pane pane;
    pane.AppendLines({ Flat(-50.0) });
    QColor const trace = QColor(pane.Color(0, pane.Row(-50.0)));
    QRect const picture = pane.GetPictureRect();
    auto const shown = [&](double level) {
        return Rendered(pane).pixelColor(picture.left() + 1, picture.top() + pane.Row(level)) == trace;
    };
    pane.SetHeld(true);
    pane.SetHeld(false);
    pane.AppendLines({ Flat(-20.0) });
    QVERIFY(shown(-50.0) && shown(-20.0));
    pane.SetHeld(true);
    pane.SetFrequencyRange({ 0.0, Bins / 2.0 });
    QVERIFY(shown(-50.0));
    pane.SetHeld(false); // it could not be gone on with
    QVERIFY(!shown(-50.0));
    pane.AppendLines({ Flat(-20.0) });
    QVERIFY(shown(-20.0));
}

void tst_PersistencePaneChanges::flagStopsTheAgeing()
{
    Pane pane;
    QVERIFY(pane.GetImage().GetAgeing());
    ConsoleValues::SetFlag(ConsolePaths::Ageing, false);
    QVERIFY(!pane.GetImage().GetAgeing());
    ConsoleValues::Select(ConsolePaths::Hold, 10); // another picture
    QVERIFY(!pane.GetImage().GetAgeing());
    pane.AppendLines({ Flat(-50.0) });
    QCOMPARE(pane.Lit(), 0);
    ConsoleValues::SetFlag(ConsolePaths::Ageing, true);
    QVERIFY(pane.GetImage().GetAgeing());
    pane.AppendLines({ Flat(-50.0) });
    QVERIFY(pane.Lit() > 0);
}

void tst_PersistencePaneChanges::heldPictureDoesNotHearTheFlag()
{
    Pane pane;
    pane.SetHeld(true);
    ConsoleValues::SetFlag(ConsolePaths::Ageing, false);
    ConsoleValues::SetFlag(ConsolePaths::Ageing, true);
    QVERIFY(!pane.GetImage().GetAgeing());
    ConsoleValues::Select(ConsolePaths::Hold, 10);
    ConsoleValues::SetFlag(ConsolePaths::Ageing, false);
    ConsoleValues::SetFlag(ConsolePaths::Ageing, true);
    QVERIFY(!pane.GetImage().GetAgeing());
    pane.SetHeld(false);
    QVERIFY(pane.GetImage().GetAgeing());
    pane.hide();
    ConsoleValues::SetFlag(ConsolePaths::Ageing, false);
    ConsoleValues::SetFlag(ConsolePaths::Ageing, true);
    QVERIFY(!pane.GetImage().GetAgeing());
}

void tst_PersistencePaneChanges::oddSizes_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("nothing") << QSize(0, 0);
    QTest::newRow("one pixel") << QSize(1, 1);
    QTest::newRow("one column") << QSize(1, 300);
    QTest::newRow("one row") << QSize(600, 1);
    QTest::newRow("no room for the picture") << QSize(60, 300);
    QTest::newRow("low") << QSize(600, 50);
    QTest::newRow("wide") << QSize(9000, 60);
}

void tst_PersistencePaneChanges::oddSizes()
{
    QFETCH(QSize, size);
    Pane pane;
    pane.AppendLines({ Flat(-50.0) });
    pane.resize(size);
    pane.grab();
    pane.AppendLines({ Flat(-40.0) });
    pane.ImageUpdated(&pane.GetImage());
    pane.grab();
    pane.hide();
    pane.resize(500, 300);
    pane.show();
    pane.grab();
    QCOMPARE(pane.Lit(), 0);
    pane.AppendLines({ Flat(-50.0) });
    QCOMPARE(pane.Lit(), pane.GetImage().width());
    QCOMPARE(QSize(pane.GetImage().width(), pane.Height()), pane.GetPictureRect().size());
}

void tst_PersistencePaneChanges::oddRangesAreIgnored_data()
{
    QTest::addColumn<double>("low");
    QTest::addColumn<double>("high");
    QTest::newRow("NaN low") << NaN << 0.0;
    QTest::newRow("NaN high") << 0.0 << NaN;
    QTest::newRow("infinite") << -Inf << Inf;
    QTest::newRow("empty") << -5.0 << -5.0;
    QTest::newRow("turned round") << 5.0 << -5.0;
}

void tst_PersistencePaneChanges::oddRangesAreIgnored()
{
    QFETCH(double, low);
    QFETCH(double, high);
    Pane pane;
    pane.AppendLines({ Flat(-50.0) });
    int const lit = pane.Lit();
    pane.SetLevelRange(low, high);
    pane.SetFrequencyRange({ low, high - low });
    pane.grab();
    QCOMPARE(pane.GetLevelMin(), Low);
    QCOMPARE(pane.GetLevelMax(), High);
    QCOMPARE(pane.Lit(), lit);
}

void tst_PersistencePaneChanges::oddLinesAreHarmless_data()
{
    QTest::addColumn<QVector<double>>("levels");
    QTest::addColumn<double>("centre");
    QTest::addColumn<double>("span");
    QTest::addColumn<bool>("lit");
    QVector<double> const flat(Bins, -50.0);
    QTest::newRow("no levels") << QVector<double>{} << 32.0 << 64.0 << false;
    QTest::newRow("one level") << QVector<double>{ -50.0 } << 32.0 << 64.0 << true;
    QTest::newRow("all NaN") << QVector<double>(Bins, NaN) << 32.0 << 64.0 << false;
    QTest::newRow("one that is a number") << QVector<double>{ NaN, Inf, -Inf, -50.0 } << 32.0 << 64.0 << true;
    QTest::newRow("span 0") << flat << 32.0 << 0.0 << false;
    QTest::newRow("span below 0") << flat << 32.0 << -64.0 << false;
    QTest::newRow("span NaN") << flat << 32.0 << NaN << false;
    QTest::newRow("span infinite") << flat << 32.0 << Inf << false;
    QTest::newRow("centre NaN") << flat << NaN << 64.0 << false;
    QTest::newRow("centre infinite") << flat << -Inf << 64.0 << false;
    QTest::newRow("tiny span") << flat << 32.0 << 1e-300 << true;
    QTest::newRow("huge span") << flat << 0.0 << 1e300 << true;
}

void tst_PersistencePaneChanges::oddLinesAreHarmless()
{
    QFETCH(QVector<double>, levels);
    QFETCH(double, centre);
    QFETCH(double, span);
    QFETCH(bool, lit);
    for (long const quality : { 1L, 8L }) {
        ConsoleValues::Select(ConsolePaths::Quality, quality);
        Pane pane;
        auto const line = std::make_shared<SpectrumLine>();
        line->levels.assign(levels.begin(), levels.end());
        line->centre = centre;
        line->span = span;
        line->seconds = NaN;
        pane.AppendLines({ line, nullptr });
        pane.grab();
        QCOMPARE(pane.Lit() > 0, lit);
        pane.SetSource(Inf);
        pane.AppendLines({ line });
        pane.SetSource(NaN);
        pane.AppendLines({ line });
    }
}

void tst_PersistencePaneChanges::unknownPathsAreTold()
{
    PersistencePane pane;
    QVERIFY(!pane.SetHold_ValuePath(QStringLiteral("/nowhere")));
    QVERIFY(!pane.SetQuality_ValuePath(QStringLiteral("/nowhere")));
    QVERIFY(!pane.SetAgeing_ValuePath(QString()));
    QCOMPARE(pane.GetImage().GetSteps(), 4);
    QCOMPARE(pane.GetImage().GetQualitySteps(), 1);
    QVERIFY(pane.SetHold_ValuePath(Path(ConsolePaths::Hold)));
    QVERIFY(pane.SetQuality_ValuePath(Path(ConsolePaths::Quality)));
    QVERIFY(pane.SetAgeing_ValuePath(Path(ConsolePaths::Ageing)));
    ConsoleValues::Select(ConsolePaths::Hold, 10);
    g_values.reset(); // the values go away
    QCOMPARE(pane.GetImage().GetSteps(), 10);
    pane.SetSource(0.0);
    QCOMPARE(pane.GetImage().GetQualitySteps(), 1);
}

void tst_PersistencePaneChanges::windowHasIt()
{
    g_values.reset();
    ConsoleWindow window(std::make_unique<LinePlayer>(std::make_unique<ToneSource>()), QStringLiteral("tone"));
    window.resize(1100, 900);
    PersistencePane & pane = window.Persistence();
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QVERIFY(!pane.isVisible());
    ConsoleValues::SetFlag(ConsolePaths::PersistenceShown, true);
    QVERIFY(pane.isVisible());
    QCOMPARE(pane.GetColors().trace, CurrentPaneColors().trace);
    window.Start();
    QTRY_VERIFY(pane.GetLinesDrawn() > 3);
    QCOMPARE(pane.GetFrequencyRange(), window.Values().GetBand());
    QVERIFY(AgedImageAccess::SwitchTimer(pane.GetImage()) <= 0); // a recording: two seconds of a tone
    window.Player().Stop();
    ConsoleValues::Set(ConsolePaths::LevelMin, -90.0);
    QCOMPARE(pane.GetLevelMin(), -90.0);
}

void tst_PersistencePaneChanges::controlsMoveTheValues()
{
    g_values.reset();
    ConsoleWindow window(std::make_unique<LinePlayer>(std::make_unique<ToneSource>()), QStringLiteral("tone"));
    window.resize(1100, 900);
    ConsoleValues::SetFlag(ConsolePaths::PersistenceShown, true);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    auto * const hold = window.findChild<QComboBox *>(QStringLiteral("hold"));
    auto * const quality = window.findChild<QComboBox *>(QStringLiteral("quality"));
    auto * const clear = window.findChild<QToolButton *>(QStringLiteral("clearPersistence"));
    QVERIFY(hold && quality && clear);
    QCOMPARE(hold->itemText(0), QStringLiteral("Off: present line"));
    QCOMPARE(hold->itemText(10), QStringLiteral("Infinite: until cleared"));
    QCOMPARE(hold->currentText(), QStringLiteral("4 s"));
    QCOMPARE(quality->currentText(), QStringLiteral("1"));
    hold->setCurrentIndex(10);
    Q_EMIT hold->activated(10);
    QCOMPARE(ConsoleValues::GetKey(ConsolePaths::Hold), -1L);
    QCOMPARE(window.Persistence().GetImage().GetSteps(), -1);
    quality->setCurrentIndex(3);
    Q_EMIT quality->activated(3);
    QCOMPARE(window.Persistence().GetImage().GetQualitySteps(), 8);
    window.Persistence().SetFrequencyRange({ 0.0, Bins });
    window.Persistence().SetLevelRange(Low, High);
    window.Persistence().AppendLines({ Flat(-50.0) });
    auto const isEmpty = [&window] {
        QImage const & image = *window.Persistence().GetImage().GetImage();
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (image.pixelIndex(x, y) < FirstBackground)
                    return false;
            }
        }
        return true;
    };
    QVERIFY(!isEmpty());
    clear->click();
    QVERIFY(isEmpty());
}

void tst_PersistencePaneChanges::controlsOfAHiddenPaneAreDisabled()
{
    g_values.reset();
    ConsoleWindow window(std::make_unique<LinePlayer>(std::make_unique<ToneSource>()), QStringLiteral("tone"));
    for (char const * name : { "hold", "quality", "ageing", "clearPersistence" }) {
        auto const * const control = window.findChild<QWidget *>(QLatin1String(name));
        QVERIFY(control);
        QVERIFY(!control->isEnabled());
        QCOMPARE(control->toolTip(), QStringLiteral("The persistence is not shown"));
        ConsoleValues::SetFlag(ConsolePaths::PersistenceShown, true);
        QVERIFY(control->isEnabled());
        QVERIFY(control->toolTip() != QStringLiteral("The persistence is not shown"));
        ConsoleValues::SetFlag(ConsolePaths::PersistenceShown, false);
        QVERIFY(!control->isEnabled());
    }
}

void tst_PersistencePaneChanges::settingsComeBack()
{
    g_values.reset();
    ICfg * const before = Persistant::Store();
    MemoryCfg store;
    Persistant::SetStore(&store);
    auto const make = [] {
        return std::make_unique<ConsoleWindow>(std::make_unique<LinePlayer>(std::make_unique<ToneSource>()),
                                               QStringLiteral("tone"));
    };
    {
        auto window = make();
        ConsoleSettings settings(*window);
        ConsoleValues::Select(ConsolePaths::Hold, -1);
        ConsoleValues::Select(ConsolePaths::Quality, 4);
        ConsoleValues::SetFlag(ConsolePaths::Ageing, false);
        QVERIFY(settings.Write());
    }
    auto window = make();
    ConsoleSettings settings(*window);
    settings.Read();
    QCOMPARE(ConsoleValues::GetKey(ConsolePaths::Hold), -1L);
    QCOMPARE(ConsoleValues::GetKey(ConsolePaths::Quality), 4L);
    QVERIFY(ConsoleValues::GetFlag(ConsolePaths::Ageing)); // a picture that stood would puzzle the next day
    Persistant::SetStore(before);
}

ORIM_TEST_MAIN(tst_PersistencePaneChanges)
#include "tst_persistencepane_changes.moc"
