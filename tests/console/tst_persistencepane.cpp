// SPDX-License-Identifier: MIT
#include "persistencepane.h"

#include "agescale.h"
#include "colorset.h"
#include "consolesettings.h"
#include "consolevalues.h"
#include "consolewindow.h"
#include "framestats.h"
#include "guicentral.h"
#include "levelaxis.h"
#include "lineplayer.h"
#include "memorycfg.h"
#include "panecolors.h"
#include "panetools.h"
#include "testmain.h"
#include "traceraster.h"
#include "tree.h"
#include "valueselection.h"

#include <QComboBox>
#include <QToolButton>

#include <cmath>
#include <limits>

using namespace PaneTools;

//! Looks inside the ageing image.
class AgedImageAccess
{
public:
    static int SwitchTimer(AgedImage const & image) { return image.m_SwitchTimerId; }

    static int UpdateTimer(AgedImage const & image) { return image.m_UpdateTimerId; }

    static int ColorsABlock(AgedImage const & image) { return image.m_ColorsPerQualityStep; }
};

class tst_PersistencePane : public QObject
{
    Q_OBJECT

public:
    bool eventFilter(QObject * object, QEvent * event) override;

private Q_SLOTS:

    void initTestCase() { TestStage::HushPopups(); }

    void init();
    void cleanup();

    void lineLightsItsPixels_data();
    void lineLightsItsPixels();
    void onePixelAColumn();
    void pixelsAreShownWhereTheyAre();
    void lineNextToTheViewLightsNothing();

    void pixelsFadeAndGo();
    void clockMakesTheSteps();
    void holdTimes_data();
    void holdTimes();
    void qualityKeepsTheHoldTime_data();
    void qualityKeepsTheHoldTime();
    void offShowsThePresentLineAlone();
    void infiniteKeepsAll();
    void changedHoldTimeLeavesNoTimers();

    void qualityIsTheHeightOverTheNoise_data();
    void qualityIsTheHeightOverTheNoise();
    void unknownQualityIsOne_data();
    void unknownQualityIsOne();

    void clearEmpties();
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

    void cleanPictureIsNotPainted();
    void offPaintsEveryBatch();
    void centreIsMarked();
    void markFollowsTheView();

    void agesFollowTheHoldTime();
    void coloursOfTheSets_data();
    void coloursOfTheSets();
    void otherColoursStartAnew();
    void levelMarkerHasNoFlag();

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

constexpr double Inf = std::numeric_limits<double>::infinity();
constexpr double NaN = std::numeric_limits<double>::quiet_NaN();
constexpr int Bins = 64;
constexpr double Low = -100.0; // dBFS
constexpr double High = 0.0;
constexpr int FirstBackground = 254; // index

QString Path(char const * path) { return QLatin1String(path); }

//! A pane that is shown, bound to the values of a console, over 64 Hz and 100 dB.
struct Pane : PersistencePane
{
    explicit Pane(bool shown = true)
    {
        SetColors(Colors());
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
Line Flat(double level, double seconds = 0.0)
{
    return LineOf(0.0, std::vector<double>(static_cast<std::size_t>(Bins), level), seconds);
}

std::unique_ptr<ConsoleValues> g_values;

} // namespace

bool tst_PersistencePane::eventFilter(QObject * object, QEvent * event)
{
    m_paints += event->type() == QEvent::Paint ? 1 : 0;
    return QObject::eventFilter(object, event);
}

void tst_PersistencePane::init()
{
    GuiCentral::Instance().slotRestoreFactoryColors();
    ColorSet::Instance().Load(0);
    g_values = std::make_unique<ConsoleValues>();
    m_paints = 0;
}

void tst_PersistencePane::cleanup() { g_values.reset(); }

void tst_PersistencePane::lineLightsItsPixels_data()
{
    QTest::addColumn<double>("level");
    QTest::addColumn<double>("part"); // of the height, from the top; below 0: nothing is lit
    QTest::newRow("the middle") << -50.0 << 0.5;
    QTest::newRow("a quarter from the top") << -25.0 << 0.25;
    QTest::newRow("the top") << 0.0 << 0.0;
    QTest::newRow("the bottom") << -100.0 << 1.0;
    QTest::newRow("above the range") << 0.001 << -1.0;
    QTest::newRow("below the range") << -100.001 << -1.0;
    QTest::newRow("NaN") << NaN << -1.0;
    QTest::newRow("infinite") << Inf << -1.0;
    QTest::newRow("minus infinite") << -Inf << -1.0;
}

void tst_PersistencePane::lineLightsItsPixels()
{
    QFETCH(double, level);
    QFETCH(double, part);
    Pane pane;
    pane.AppendLines({ Flat(level) });
    QCOMPARE(pane.GetLinesDrawn(), quint64(1));
    if (part < 0.0) {
        QCOMPARE(pane.Lit(), 0);
        return;
    }
    int const row = std::min(static_cast<int>(part * pane.Height()), pane.Height() - 1);
    for (int x = 0; x < pane.GetImage().width(); ++x)
        QVERIFY(pane.IsLit(x, row));
    QCOMPARE(pane.Lit(), pane.GetImage().width());
}

void tst_PersistencePane::onePixelAColumn()
{
    Pane pane;
    pane.AppendLines({ PeakLine(Bins, 16, -80.0, -20.0) });
    int const width = pane.GetImage().width();
    int const peak = (2 * 16 + 1) * width / (2 * Bins); // the middle of the columns that show bin 16 at its left
    QCOMPARE(pane.Lit(), width);
    QVERIFY(pane.IsLit(16 * width / Bins, pane.Row(-20.0)) || pane.IsLit(peak, pane.Row(-20.0)));
    int high = 0;
    for (int x = 0; x < width; ++x)
        high += pane.IsLit(x, pane.Row(-20.0)) ? 1 : 0;
    QVERIFY(std::abs(high - width / Bins) <= 1);
}

void tst_PersistencePane::pixelsAreShownWhereTheyAre()
{
    Pane pane;
    pane.AppendLines({ Flat(-50.0) });
    QImage const image = Rendered(pane);
    QRect const picture = pane.GetPictureRect();
    QCOMPARE(picture.size(), QSize(pane.GetImage().width(), pane.Height()));
    int const row = pane.Row(-50.0);
    for (int const x : { 0, 7, picture.width() - 1 }) {
        QCOMPARE(QColor(image.pixel(picture.left() + x, picture.top() + row)).name(),
                 QColor(pane.Color(x, row)).name());
        QVERIFY(image.pixel(picture.left() + x, picture.top() + row - 1) !=
                image.pixel(picture.left() + x, picture.top() + row));
    }
    QCOMPARE(QColor(image.pixel(picture.left() - 1, picture.bottom() + 1)).isValid(), true);
}

void tst_PersistencePane::lineNextToTheViewLightsNothing()
{
    Pane pane;
    pane.AppendLines({ LineOf(1000.0, std::vector<double>(Bins, -50.0)) });
    QCOMPARE(pane.Lit(), 0);
    pane.AppendLines({ LineOf(Bins / 2, std::vector<double>(Bins, -50.0)) });
    int const half = pane.GetImage().width() / 2;
    QVERIFY(std::abs(pane.Lit() - half) <= 2 * pane.GetImage().width() / Bins);
    QVERIFY(pane.IsLit(pane.GetImage().width() - 1, pane.Row(-50.0)));
    QVERIFY(!pane.IsLit(0, pane.Row(-50.0)));
}

void tst_PersistencePane::pixelsFadeAndGo()
{
    ConsoleValues::Select(ConsolePaths::Hold, 4);
    Pane pane;
    pane.AppendLines({ Flat(-50.0) });
    int const row = pane.Row(-50.0);
    constexpr int steps = 8;
    auto const & ages = pane.GetAgeScale().GetAges();
    QCOMPARE(ages.size(), std::size_t(1));
    QCOMPARE(ages[0].size(), std::size_t(4));
    for (int step = 0; step < steps; ++step) {
        QVERIFY(pane.IsLit(0, row));
        QCOMPARE(QColor(pane.Color(0, row)).name(), QColor(ages[0][static_cast<std::size_t>(step) / 2]).name());
        pane.GetImage().SwitchColors();
    }
    QCOMPARE(pane.Lit(), 0);
    // a fresh line over an old one
    pane.AppendLines({ Flat(-30.0) });
    pane.GetImage().SwitchColors();
    pane.GetImage().SwitchColors();
    pane.AppendLines({ Flat(-50.0) });
    QCOMPARE(QColor(pane.Color(0, pane.Row(-30.0))).name(), QColor(ages[0][1]).name());
    QCOMPARE(QColor(pane.Color(0, row)).name(), QColor(ages[0][0]).name());
    QCOMPARE(QColor(ages[0][0]).name(), CurrentPaneColors().trace.name());
}

void tst_PersistencePane::clockMakesTheSteps()
{
    Pane pane;
    pane.AppendLines({ Flat(-50.0) });
    QVERIFY(AgedImageAccess::SwitchTimer(pane.GetImage()) > 0);
    for (int step = 0; step < 8; ++step) {
        QVERIFY(pane.Lit() > 0);
        pane.Tick(AgedImageAccess::SwitchTimer(pane.GetImage()));
    }
    QCOMPARE(pane.Lit(), 0);
}

void tst_PersistencePane::holdTimes_data()
{
    QTest::addColumn<long>("key");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("switchTime"); // ms
    QTest::addColumn<int>("colors");
    QTest::newRow("off") << 0L << QStringLiteral("Off: present line") << 0 << 1;
    QTest::newRow("1 s") << 1L << QStringLiteral("1 s") << 500 << 2;
    QTest::newRow("2 s") << 2L << QStringLiteral("2 s") << 500 << 4;
    QTest::newRow("3 s") << 3L << QStringLiteral("3 s") << 500 << 6;
    QTest::newRow("4 s") << 4L << QStringLiteral("4 s") << 500 << 8;
    QTest::newRow("5 s") << 5L << QStringLiteral("5 s") << 500 << 10;
    QTest::newRow("10 s") << 10L << QStringLiteral("10 s") << 500 << 20;
    QTest::newRow("20 s") << 20L << QStringLiteral("20 s") << 1000 << 20;
    QTest::newRow("30 s") << 30L << QStringLiteral("30 s") << 1000 << 30;
    QTest::newRow("60 s") << 60L << QStringLiteral("60 s") << 1000 << 60;
    QTest::newRow("infinite") << -1L << QStringLiteral("Infinite: until cleared") << 0 << 1;
}

void tst_PersistencePane::holdTimes()
{
    QFETCH(long, key);
    QFETCH(QString, text);
    QFETCH(int, switchTime);
    QFETCH(int, colors);
    Pane pane;
    ConsoleValues::Select(ConsolePaths::Hold, key);
    auto const * const hold = Tree::Instance()->FindAs<ValueSelection>(Path(ConsolePaths::Hold));
    QCOMPARE(hold->GetCurrentItem()->GetName(), text);
    QCOMPARE(hold->GetCurrentValue(), static_cast<double>(key));
    QCOMPARE(hold->GetItemCount(), 11);
    QCOMPARE(pane.GetImage().GetSteps(), static_cast<int>(key));
    QCOMPARE(pane.GetImage().GetSwitchTime(), switchTime);
    QCOMPARE(AgedImageAccess::ColorsABlock(pane.GetImage()), colors);
    QCOMPARE(AgedImageAccess::SwitchTimer(pane.GetImage()) > 0, switchTime > 0);
    pane.AppendLines({ Flat(-50.0) });
    for (int step = 0; step < colors; ++step) {
        QVERIFY(pane.Lit() > 0);
        pane.GetImage().SwitchColors();
    }
    QCOMPARE(pane.Lit(), 0);
}

void tst_PersistencePane::qualityKeepsTheHoldTime_data()
{
    QTest::addColumn<long>("quality");
    for (long const quality : { 1L, 2L, 4L, 8L })
        QTest::newRow(QByteArray::number(static_cast<int>(quality)).append(" steps").constData()) << quality;
}

//! The clock, the data and the colours agree on how long a pixel stays.
void tst_PersistencePane::qualityKeepsTheHoldTime()
{
    QFETCH(long, quality);
    Pane pane;
    ConsoleValues::Select(ConsolePaths::Quality, quality);
    for (long const hold : { 1L, 60L, 5L, 30L, 10L, 20L, 4L }) {
        ConsoleValues::Select(ConsolePaths::Hold, hold);
        QCOMPARE(pane.GetImage().GetQualitySteps(), static_cast<int>(quality));
        int const colors = AgedImageAccess::ColorsABlock(pane.GetImage());
        QVERIFY(colors * quality <= 254);
        QCOMPARE(static_cast<long>(colors * pane.GetImage().GetSwitchTime()), hold * 1000);
        // the other order of the two boxes
        ConsoleValues::Select(ConsolePaths::Quality, quality == 1 ? 2 : 1);
        ConsoleValues::Select(ConsolePaths::Quality, quality);
        QCOMPARE(AgedImageAccess::ColorsABlock(pane.GetImage()), colors);
        QCOMPARE(static_cast<long>(colors * pane.GetImage().GetSwitchTime()), hold * 1000);
    }
}

void tst_PersistencePane::offShowsThePresentLineAlone()
{
    ConsoleValues::Select(ConsolePaths::Hold, 0);
    for (long const quality : { 1L, 4L }) {
        ConsoleValues::Select(ConsolePaths::Quality, quality);
        Pane pane;
        pane.AppendLines({ Flat(-20.0), Flat(-30.0) });
        pane.AppendLines({ Flat(-70.0) });
        QCOMPARE(pane.Lit(), pane.GetImage().width());
        QVERIFY(pane.IsLit(0, pane.Row(-70.0)));
    }
}

void tst_PersistencePane::infiniteKeepsAll()
{
    ConsoleValues::Select(ConsolePaths::Hold, -1);
    Pane pane;
    pane.SetSource(1000.0); // and the times of a recording do not end it
    for (int level = 10; level < 90; level += 10)
        pane.AppendLines({ Flat(-level, 100.0 + level) });
    QCOMPARE(pane.Lit(), 8 * pane.GetImage().width());
    pane.Age(1000000);
    QCOMPARE(pane.Lit(), 8 * pane.GetImage().width());
    pane.Clear();
    QCOMPARE(pane.Lit(), 0);
}

void tst_PersistencePane::changedHoldTimeLeavesNoTimers()
{
    Pane pane;
    auto const timers = [&pane] {
        QAbstractEventDispatcher * const dispatcher = QAbstractEventDispatcher::instance();
        return dispatcher->registeredTimers(&pane.GetImage()).size();
    };
    auto const before = timers();
    for (int turn = 0; turn < 20; ++turn) {
        ConsoleValues::Select(ConsolePaths::Hold, turn % 5);
        ConsoleValues::Select(ConsolePaths::Quality, turn % 2 == 0 ? 8 : 1);
    }
    ConsoleValues::Select(ConsolePaths::Hold, 4);
    QCOMPARE(timers(), before);
}

void tst_PersistencePane::qualityIsTheHeightOverTheNoise_data()
{
    QTest::addColumn<long>("steps");
    QTest::addColumn<double>("height"); // dB over the noise
    QTest::addColumn<int>("block");
    QTest::newRow("noise") << 4L << 0.0 << 0;
    QTest::newRow("no signal yet") << 4L << 5.0 << 0;
    QTest::newRow("second of four") << 4L << 11.0 << 1;
    QTest::newRow("best of four") << 4L << 60.0 << 3;
    QTest::newRow("second of eight") << 8L << 8.0 << 1;
    QTest::newRow("best of eight") << 8L << 60.0 << 7;
    QTest::newRow("best of two") << 2L << 9.0 << 1;
    QTest::newRow("one step: one block") << 1L << 60.0 << 0;
}

void tst_PersistencePane::qualityIsTheHeightOverTheNoise()
{
    QFETCH(long, steps);
    QFETCH(double, height);
    QFETCH(int, block);
    ConsoleValues::Select(ConsolePaths::Quality, steps);
    Pane pane;
    pane.AppendLines({ PeakLine(Bins, 16, -90.0, -90.0 + height) });
    int const colors = AgedImageAccess::ColorsABlock(pane.GetImage());
    int const row = pane.Row(-90.0 + height);
    int found = 0;
    for (int x = 0; x < pane.GetImage().width(); ++x) {
        if (height > 0.0 && pane.IsLit(x, row)) {
            QCOMPARE(pane.Index(x, row) / colors, block);
            ++found;
        }
        if (pane.IsLit(x, pane.Row(-90.0)))
            QCOMPARE(pane.Index(x, pane.Row(-90.0)) / colors, 0);
    }
    QCOMPARE(found > 0, height > 0.0);
}

void tst_PersistencePane::unknownQualityIsOne_data()
{
    QTest::addColumn<long>("key");
    QTest::newRow("none") << 0L;
    QTest::newRow("below") << -8L;
    QTest::newRow("no power of two") << 3L;
    QTest::newRow("more than there is room for") << 16L;
    QTest::newRow("beyond an int") << 4294967304L; // 8 in its low half
}

void tst_PersistencePane::unknownQualityIsOne()
{
    QFETCH(long, key);
    Pane pane;
    ConsoleValues::Select(ConsolePaths::Quality, 8);
    auto * const quality = Tree::Instance()->FindAs<ValueSelection>(Path(ConsolePaths::Quality));
    quality->AddItem(SelectionItem(QStringLiteral("odd"), 0.0, key));
    quality->Select(key, nullptr);
    QCOMPARE(pane.GetImage().GetQualitySteps(), 1);
    pane.AppendLines({ Flat(-50.0) });
    QVERIFY(pane.Lit() > 0);
}

void tst_PersistencePane::clearEmpties()
{
    Pane pane;
    pane.AppendLines({ Flat(-50.0) });
    Rendered(pane);
    pane.Clear();
    QCOMPARE(pane.Lit(), 0);
    QImage const image = Rendered(pane);
    QRect const picture = pane.GetPictureRect();
    QCOMPARE(image.pixel(picture.left() + 3, picture.top() + pane.Row(-50.0) + 2),
             image.pixel(picture.left() + 3, picture.top() + pane.Row(-50.0) - 2));
    // and goes on with the newest colour
    pane.AppendLines({ Flat(-50.0) });
    QCOMPARE(QColor(pane.Color(0, pane.Row(-50.0))).name(), CurrentPaneColors().trace.name());
}

void tst_PersistencePane::otherPixelsClear_data()
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

void tst_PersistencePane::otherPixelsClear()
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

void tst_PersistencePane::samePixelsStay()
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

void tst_PersistencePane::endlessPictureKeepsItsPixels_data()
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
void tst_PersistencePane::endlessPictureKeepsItsPixels()
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

void tst_PersistencePane::recordingAgesByItsPosition()
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

void tst_PersistencePane::pausedRecordingDoesNotFade()
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

void tst_PersistencePane::jumpBackClears()
{
    Pane pane;
    pane.SetSource(600.0);
    pane.AppendLines({ Flat(-50.0, 20.0) });
    pane.AppendLines({ Flat(-20.0, 10.0) });
    QVERIFY(!pane.IsLit(0, pane.Row(-50.0)));
    QVERIFY(pane.IsLit(0, pane.Row(-20.0)));
    QCOMPARE(pane.Lit(), pane.GetImage().width());
}

void tst_PersistencePane::endOfTheRingGoesOn()
{
    Pane pane;
    pane.SetSource(10.0);
    pane.AppendLines({ Flat(-50.0, 9.9) });
    pane.AppendLines({ Flat(-20.0, 0.1) });
    QCOMPARE(pane.Lit(), 2 * pane.GetImage().width());
    pane.AppendLines({ Flat(-20.0, 4.1) });
    QVERIFY(!pane.IsLit(0, pane.Row(-50.0)));
}

void tst_PersistencePane::timeOfAHeldRecordingStandsStill()
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

void tst_PersistencePane::hiddenPaneTakesNoLines()
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

void tst_PersistencePane::hiddenPaneAgesWhenItIsShown_data()
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

void tst_PersistencePane::hiddenPaneAgesWhenItIsShown()
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

void tst_PersistencePane::hiddenRecordingAgesWithItsNextLine()
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

void tst_PersistencePane::heldPictureStands()
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

void tst_PersistencePane::heldPictureOutlivesChanges_data()
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
void tst_PersistencePane::heldPictureOutlivesChanges()
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

void tst_PersistencePane::heldPictureFollowsTheView()
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

void tst_PersistencePane::clearedHeldPictureIsEmpty()
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

void tst_PersistencePane::heldPictureGoesOn()
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

void tst_PersistencePane::flagStopsTheAgeing()
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

void tst_PersistencePane::heldPictureDoesNotHearTheFlag()
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

void tst_PersistencePane::cleanPictureIsNotPainted()
{
    Pane pane;
    QTRY_VERIFY(!pane.GetImage().GetDirty());
    QCoreApplication::processEvents();
    pane.installEventFilter(this);
    pane.ImageUpdated(&pane.GetImage());
    QCoreApplication::processEvents();
    QCOMPARE(m_paints, 0);
    pane.AppendLines({ Flat(-50.0) });
    QVERIFY(pane.GetImage().GetDirty());
    pane.ImageUpdated(nullptr);
    pane.Tick(AgedImageAccess::UpdateTimer(pane.GetImage()));
    QTRY_VERIFY(m_paints > 0);
    QVERIFY(!pane.GetImage().GetDirty());
    pane.removeEventFilter(this);
}

void tst_PersistencePane::offPaintsEveryBatch()
{
    ConsoleValues::Select(ConsolePaths::Hold, 0);
    Pane pane;
    QTRY_VERIFY(!pane.GetImage().GetDirty());
    pane.AppendLines({ Flat(-50.0), Flat(-40.0) });
    QTRY_VERIFY(!pane.GetImage().GetDirty());
    FrameStats stats;
    pane.SetFrameStats(&stats);
    pane.grab();
    stats.EndFrame();
    QVERIFY(stats.MaxMilliseconds() > 0.0);
    pane.SetFrameStats(nullptr);
}

void tst_PersistencePane::centreIsMarked()
{
    Pane pane;
    pane.AppendLines({ Flat(-50.0) });
    int const centre = pane.GetImage().width() / 2;
    int marked = 0;
    for (int x = 0; x < pane.GetImage().width(); ++x)
        marked += pane.Index(x, 3) == 254 ? 1 : 0;
    QCOMPARE(marked, 1);
    QVERIFY(pane.Index(centre, 3) == 254 || pane.Index(centre - 1, 3) == 254);
    int const column = pane.Index(centre, 3) == 254 ? centre : centre - 1;
    QVERIFY(pane.IsLit(column, pane.Row(-50.0))); // signals stand over it
    QImage const image = Rendered(pane);
    QRect const picture = pane.GetPictureRect();
    QCOMPARE(image.pixelColor(picture.left() + column, picture.top() + 3),
             ColorSet::Instance()[IColorBase::eColorAgedMarker]);
    QCOMPARE(pane.GetBackgroundLine(0), std::string());
    QCOMPARE(pane.GetBackgroundLine(-5), std::string());
    QCOMPARE(pane.GetBackgroundLine(3), std::string(3, '\xff'));
}

void tst_PersistencePane::markFollowsTheView()
{
    Pane pane;
    auto const marks = [&pane] {
        int count = 0;
        for (int x = 0; x < pane.GetImage().width(); ++x)
            count += pane.Index(x, 3) == 254 ? 1 : 0;
        return count;
    };
    QCOMPARE(marks(), 0); // no line yet
    pane.AppendLines({ Flat(-50.0) });
    QCOMPARE(marks(), 1);
    pane.SetFrequencyRange({ Bins / 2.0, Bins });
    pane.Refresh();
    QCOMPARE(pane.Index(0, 3), 254);
    pane.SetFrequencyRange({ 40.0, 10.0 });
    pane.Refresh();
    QCOMPARE(marks(), 0);
    pane.AppendLines({ LineOf(13.0, std::vector<double>(Bins, -50.0)) }); // around 45 Hz
    QCOMPARE(marks(), 1);
    auto const odd = std::make_shared<SpectrumLine>(*Flat(-50.0));
    odd->centre = NaN;
    pane.AppendLines({ odd });
    QCOMPARE(marks(), 0);
}

void tst_PersistencePane::agesFollowTheHoldTime()
{
    Pane pane;
    QCOMPARE(pane.GetAgeScale().GetStop(), 4.0);
    ConsoleValues::Select(ConsolePaths::Hold, 60);
    QCOMPARE(pane.GetAgeScale().GetStop(), 60.0);
    QCOMPARE(pane.GetAgeScale().GetAges()[0].size(), std::size_t(12));
    ConsoleValues::Select(ConsolePaths::Quality, 8);
    QCOMPARE(pane.GetAgeScale().GetAges().size(), std::size_t(8));
    QCOMPARE(pane.GetAgeScale().GetAges()[0].size(), std::size_t(12));
    ConsoleValues::Select(ConsolePaths::Hold, -1);
    QCOMPARE(pane.GetAgeScale().GetStop(), 0.0);
    QCOMPARE(pane.GetAgeScale().GetAges()[0].size(), std::size_t(1));
    QRect const picture = pane.GetPictureRect();
    QCOMPARE(pane.GetAgeScale().geometry().left(), picture.right() + 1);
    QCOMPARE(pane.GetAgeScale().GetBarRect().height(), picture.height());
    QCOMPARE(pane.GetLevelScale().geometry(), QRect(0, 0, picture.left(), picture.bottom() + 1));
}

void tst_PersistencePane::coloursOfTheSets_data()
{
    QTest::addColumn<int>("set");
    QTest::addColumn<long>("quality");
    for (int set = 0; set < ColorSet::GetSetCount(); ++set) {
        QByteArray const name = QByteArray("set ").append(QByteArray::number(set));
        QTest::newRow(name.constData()) << set << 1L;
        QTest::newRow((name + ", by quality").constData()) << set << 4L;
    }
}

void tst_PersistencePane::coloursOfTheSets()
{
    QFETCH(int, set);
    QFETCH(long, quality);
    ConsoleValues::Select(ConsolePaths::Quality, quality);
    Pane pane;
    ColorSet::Instance().Load((set + 1) % ColorSet::GetSetCount());
    ColorSet::Instance().Load(set);
    pane.SetColors(CurrentPaneColors());
    pane.AppendLines({ Flat(-50.0) });
    QImage const image = Rendered(pane);
    QPoint const at = pane.GetPictureRect().topLeft();
    int const row = pane.Row(-50.0);
    QColor const ground = quality > 1 ? QColor(Qt::black) : CurrentPaneColors().ground;
    QCOMPARE(image.pixelColor(at.x() + 3, at.y() + row + 3), ground);
    QColor const newest(pane.GetAgeScale().GetAges()[0][0]);
    QCOMPARE(image.pixelColor(at.x() + 3, at.y() + row), newest);
    if (quality == 1)
        QCOMPARE(newest, CurrentPaneColors().trace);
    QCOMPARE(image.pixelColor(at.x() + 3, 1), CurrentPaneColors().frame);
}

//! The turn of the colours begins anew; what does not fade has none.
void tst_PersistencePane::otherColoursStartAnew()
{
    Pane pane;
    pane.AppendLines({ Flat(-50.0) });
    ColorSet::Instance().Load(1);
    QCOMPARE(pane.Lit(), 0);
    pane.AppendLines({ Flat(-50.0) });
    QCOMPARE(QColor(pane.Color(0, pane.Row(-50.0))).name(), CurrentPaneColors().trace.name());
    ConsoleValues::Select(ConsolePaths::Hold, -1);
    pane.AppendLines({ Flat(-50.0) });
    ColorSet::Instance().Load(2);
    QCOMPARE(pane.Lit(), pane.GetImage().width());
    QCOMPARE(QColor(pane.Color(0, pane.Row(-50.0))).name(), CurrentPaneColors().trace.name());
}

void tst_PersistencePane::levelMarkerHasNoFlag()
{
    Pane pane;
    pane.AddMarker(eYellowY, true, IColorBase::eColorResult, true, eSpecialY, QStringLiteral("Level"));
    pane.SetMarker_ValuePath(eYellowY, Path(ConsolePaths::LevelMarker));
    pane.AddMarker(eYellowX, true, IColorBase::eColorMarker, true, eSpecialX, QStringLiteral("M1"));
    ConsoleValues::Set(ConsolePaths::Marker1, 0.0);
    pane.SetMarker_ValuePath(eYellowX, Path(ConsolePaths::Marker1));
    pane.grab();
    QCOMPARE(pane.ValueToPixel(eMarkerY, -60.0), pane.GetPictureRect().top() + pane.Row(-60.0));
    QCOMPARE(pane.GetRulers().size(), std::size_t(2));
    for (MarkerRulers::Ruler const & ruler : pane.GetRulers())
        QCOMPARE(ruler.texts.isEmpty(), ruler.index == eYellowY);
    QVERIFY(std::abs(pane.PixelToValue(eMarkerY, pane.GetPictureRect().top()) - High) < 1.0);
}

void tst_PersistencePane::oddSizes_data()
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

void tst_PersistencePane::oddSizes()
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

void tst_PersistencePane::oddRangesAreIgnored_data()
{
    QTest::addColumn<double>("low");
    QTest::addColumn<double>("high");
    QTest::newRow("NaN low") << NaN << 0.0;
    QTest::newRow("NaN high") << 0.0 << NaN;
    QTest::newRow("infinite") << -Inf << Inf;
    QTest::newRow("empty") << -5.0 << -5.0;
    QTest::newRow("turned round") << 5.0 << -5.0;
}

void tst_PersistencePane::oddRangesAreIgnored()
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

void tst_PersistencePane::oddLinesAreHarmless_data()
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

void tst_PersistencePane::oddLinesAreHarmless()
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

void tst_PersistencePane::unknownPathsAreTold()
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

void tst_PersistencePane::windowHasIt()
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

void tst_PersistencePane::controlsMoveTheValues()
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

void tst_PersistencePane::controlsOfAHiddenPaneAreDisabled()
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

void tst_PersistencePane::settingsComeBack()
{
    g_values.reset();
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
    Persistant::SetStore(nullptr);
}

ORIM_TEST_MAIN(tst_PersistencePane)
#include "tst_persistencepane.moc"
