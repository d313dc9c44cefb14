// SPDX-License-Identifier: MIT
#include "persistencepane.h"

#include "agescale.h"
#include "colorset.h"
#include "consolevalues.h"
#include "framestats.h"
#include "guicentral.h"
#include "levelaxis.h"
#include "panecolors.h"
#include "panetools.h"
#include "persistencetools.h"
#include "testmain.h"
#include "traceraster.h"
#include "tree.h"
#include "valueselection.h"

#include <cmath>
#include <limits>

using namespace PaneTools;
using namespace PersistenceTools;

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

    void cleanPictureIsNotPainted();
    void offPaintsEveryBatch();
    void centreIsMarked();
    void markFollowsTheView();

    void agesFollowTheHoldTime();
    void coloursOfTheSets_data();
    void coloursOfTheSets();
    void otherColoursStartAnew();
    void levelMarkerHasNoFlag();

private:
    int m_paints = 0;
};

namespace {

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

ORIM_TEST_MAIN(tst_PersistencePane)
#include "tst_persistencepane.moc"
