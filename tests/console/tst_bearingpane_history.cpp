// SPDX-License-Identifier: MIT
#include "bearingpane.h"

#include "bearingtools.h"
#include "consolebearings.h"
#include "frequencyaxis.h"
#include "markertools.h"
#include "testmain.h"

#include <algorithm>
#include <cmath>

using namespace BearingTools;
using namespace MarkerTools;
using namespace PaneTools;

class tst_BearingPaneHistory : public QObject, private Stage
{
    Q_OBJECT

private Q_SLOTS:

    void initTestCase() { TestStage::HushPopups(); }

    void init() { Begin(); }

    void cleanup() { End(); }

    void pointsHaveTheColorOfTheirQuality();
    void pointsCanBeToldFromTheGround_data();
    void pointsCanBeToldFromTheGround();
    void pointsFadeWithAge();
    void hiddenPaneFollowsNothing();
    void heldPaneFollowsNothing();
    void historyMayEndFirst();
    void heldPictureOutlivesChanges_data();
    void heldPictureOutlivesChanges();
    void heldTextsStand();
    void clickInAHeldPaneSelectsItsEmitter_data();
    void clickInAHeldPaneSelectsItsEmitter();
    void pointsTurnWithTheHeading();
    void textsAreThoseOfTheBands();
};

void tst_BearingPaneHistory::pointsHaveTheColorOfTheirQuality()
{
    BearingPane & pane = Make();
    std::vector<BearingMeasurement> singles;
    for (int quality = 0; quality <= 100; quality += 10)
        singles.push_back(SingleAt(50e3 + 8e3 * quality, 100.5, quality));
    singles.push_back(SingleAt(905e3, 100.5, 49.6));
    Measure(singles, 1.0);
    int const y = pane.GetPictureRect().bottom() - 100;
    for (int quality = 0; quality <= 100; quality += 10)
        QCOMPARE(PixelOf(pane, ColumnIn(pane, 50e3 + 8e3 * quality), y), pane.ColorOf(quality));
    QCOMPARE(PixelOf(pane, ColumnIn(pane, 905e3), y), pane.ColorOf(50));
    QVERIFY(pane.ColorOf(0) != pane.ColorOf(50));
    QVERIFY(pane.ColorOf(50) != pane.ColorOf(100));
    QCOMPARE(pane.ColorOf(-5), pane.ColorOf(0));
    QCOMPARE(pane.ColorOf(500), pane.ColorOf(100));
}

void tst_BearingPaneHistory::pointsCanBeToldFromTheGround_data()
{
    QTest::addColumn<QColor>("ground");
    QTest::addColumn<QColor>("text");
    QTest::newRow("white") << QColor(Qt::white) << QColor(Qt::black);
    QTest::newRow("black") << QColor(Qt::black) << QColor(Qt::white);
    QTest::newRow("blue") << QColor(0, 0, 40) << QColor(255, 160, 60);
}

void tst_BearingPaneHistory::pointsCanBeToldFromTheGround()
{
    QFETCH(QColor, ground);
    QFETCH(QColor, text);
    BearingPane & pane = Make();
    PaneColors colors = Colors();
    colors.ground = ground;
    colors.text = text;
    pane.SetColors(colors);
    pane.grab();
    for (int quality = 0; quality <= 100; ++quality) {
        QColor const color = pane.ColorOf(quality);
        int const apart = std::max({ std::abs(color.red() - ground.red()), std::abs(color.green() - ground.green()),
                                     std::abs(color.blue() - ground.blue()) });
        QVERIFY2(apart > 100, qPrintable(color.name()));
        QVERIFY2(std::abs(qGray(color.rgb()) - qGray(ground.rgb())) > 35, qPrintable(color.name()));
    }
}

void tst_BearingPaneHistory::pointsFadeWithAge()
{
    constexpr int steps = BearingPane::AgeSteps;
    BearingPane & pane = Make();
    QImage const empty = pane.GetPicture();
    Measure({ SingleAt(305e3, 100.5, 50.0) }, 10.0);
    int const x = ColumnIn(pane, 305e3);
    int const y = RowIn(pane, 100.5 / 360.0);
    QColor const ground = empty.pixelColor(x, y);
    for (int step = 0; step < steps; ++step) {
        Measure({}, 10.0 + (step + 0.5) * BearingHistory::Hold / steps);
        QColor const color = PaneLayout::Mix(ground, pane.ColorOf(50), 1.0 - static_cast<double>(step) / steps);
        QVERIFY2(IsNear(PixelOf(pane, x, y), color), qPrintable(QString::number(step)));
        QCOMPARE(pane.GetSparkles()[0].step, step);
    }
    Measure({}, 10.0 + BearingHistory::Hold);
    QCOMPARE(pane.GetSparkles().size(), std::size_t(1));
    Measure({}, 10.01 + BearingHistory::Hold);
    QVERIFY(pane.GetSparkles().empty());
    QVERIFY(pane.GetPicture() == empty);
}

void tst_BearingPaneHistory::hiddenPaneFollowsNothing()
{
    BearingPane & pane = Make();
    Measure({ SingleAt(305e3, 100.5) }, 1.0);
    pane.hide();
    quint64 const before = pane.GetPaintedPixels();
    QImage const picture = pane.GetPicture();
    Measure({ SingleAt(405e3, 100.5) }, 2.0);
    SetResults({ ResultAt(505e3, 200.5) });
    ConsoleBearings::Select(0);
    QCOMPARE(pane.GetPaintedPixels(), before);
    QCOMPARE(pane.GetSparkles().size(), std::size_t(1));
    QVERIFY(pane.GetBands().empty());
    QVERIFY(pane.GetPicture() == picture);
    pane.show();
    QCOMPARE(pane.GetSparkles().size(), std::size_t(2));
    QCOMPARE(PixelOf(pane, ColumnIn(pane, 405e3), pane.GetPictureRect().bottom() - 100), pane.ColorOf(100));
    QCOMPARE(PixelOf(pane, ColumnIn(pane, 505e3), pane.GetPictureRect().bottom() - 200), ResultColor(true));
}

void tst_BearingPaneHistory::heldPaneFollowsNothing()
{
    BearingPane & pane = Make();
    Measure({ SingleAt(305e3, 100.5) }, 1.0);
    pane.Hold(true);
    QImage const picture = pane.GetPicture();
    Measure({ SingleAt(405e3, 100.5) }, 2.0);
    SetResults({ ResultAt(505e3, 200.5) });
    QVERIFY(pane.GetPicture() == picture);
    pane.Hold(true);
    QVERIFY(pane.GetPicture() == picture);
    Measure({ SingleAt(605e3, 100.5) }, 1.1 + BearingHistory::Hold);
    pane.Hold(false);
    QCOMPARE(pane.GetSparkles().size(), std::size_t(2)); // the first one went meanwhile
    QVERIFY(PixelOf(pane, ColumnIn(pane, 305e3), pane.GetPictureRect().bottom() - 100) != pane.ColorOf(100));
    QCOMPARE(PixelOf(pane, ColumnIn(pane, 605e3), pane.GetPictureRect().bottom() - 100), pane.ColorOf(100));
    QCOMPARE(PixelOf(pane, ColumnIn(pane, 505e3), pane.GetPictureRect().bottom() - 200), ResultColor());
    // held and hidden, it waits for both
    pane.Hold(true);
    pane.hide();
    pane.show();
    SetResults({});
    QCOMPARE(pane.GetBands().size(), std::size_t(1));
    pane.Hold(false);
    QVERIFY(pane.GetBands().empty());
}

void tst_BearingPaneHistory::historyMayEndFirst()
{
    BearingPane & pane = Make();
    Measure({ SingleAt(305e3, 100.5) }, 1.0);
    m_history.reset();
    pane.SetColors(Colors());
    pane.grab();
    QVERIFY(pane.GetSparkles().empty());
    pane.hide();
    pane.show();
    pane.SetHistory(nullptr);
    pane.grab();
    // another one begins anew
    m_history = std::make_unique<BearingHistory>();
    Measure({ SingleAt(505e3, 10.5) }, 1.0);
    pane.SetHistory(m_history.get());
    pane.grab();
    QCOMPARE(pane.GetSparkles().size(), std::size_t(1));
}

void tst_BearingPaneHistory::heldPictureOutlivesChanges_data()
{
    QTest::addColumn<int>("deed");
    QTest::addColumn<bool>("isBack"); // it looks as before then
    QTest::newRow("zoom and back") << 0 << true;
    QTest::newRow("another band and back") << 1 << true;
    QTest::newRow("size") << 2 << false;
    QTest::newRow("size and back") << 3 << true;
    QTest::newRow("colours") << 4 << true;
    QTest::newRow("mode") << 5 << false;
    QTest::newRow("mode and back") << 6 << true;
    QTest::newRow("heading in a relative mode") << 7 << true;
    QTest::newRow("hidden and shown") << 8 << true;
    QTest::newRow("the measurements go away") << 9 << true;
}

//! All is gone from what is measured meanwhile.
void tst_BearingPaneHistory::heldPictureOutlivesChanges()
{
    QFETCH(int, deed);
    QFETCH(bool, isBack);
    BearingPane & pane = Make();
    ConsoleValues::Set(ConsolePaths::Heading, 30.0);
    if (deed == 7)
        AzimuthDisplaySelect::Instance().Select(6);
    Measure({ SingleAt(305e3, 100.5) }, 1.0);
    Measure({}, 2.75);
    SetResults({ ResultAt(505e3, 200.5) });
    pane.grab();
    QImage const before = pane.GetPicture();
    QSize const size = pane.size();
    int const step = pane.GetSparkles()[0].step;
    pane.Hold(true);
    Measure({}, 9.0);
    SetResults({});
    switch (deed) {
    case 0:
    case 1:
        pane.SetFrequencyRange({ deed == 0 ? 250e3 : 7e6, Span / 2.0 });
        pane.grab();
        QCOMPARE(pane.GetSparkles()[0].at.x() < 0, deed == 1);
        pane.SetFrequencyRange({ 0.0, Span });
        break;
    case 2:
    case 3:
        pane.resize(500, 200);
        pane.grab();
        pane.resize(deed == 2 ? QSize(600, 250) : size);
        break;
    case 4:
        pane.SetColors(Colors());
        break;
    case 5:
    case 6:
        AzimuthDisplaySelect::Instance().Select(10);
        pane.grab();
        QVERIFY(pane.GetPicture() != before);
        AzimuthDisplaySelect::Instance().Select(deed == 5 ? 9 : 5);
        break;
    case 7:
        ConsoleValues::Set(ConsolePaths::Heading, 77.0);
        break;
    case 8:
        pane.hide();
        pane.grab();
        pane.show();
        break;
    default:
        m_history.reset();
        break;
    }
    pane.grab();
    QCOMPARE(pane.GetBands().size(), std::size_t(1));
    QCOMPARE(pane.GetSparkles().size(), std::size_t(1));
    QCOMPARE(pane.GetSparkles()[0].step, step);
    QVERIFY(pane.GetSparkles()[0].at.x() > 0);
    QCOMPARE(pane.GetPicture() == before, isBack);
    pane.Hold(false);
    pane.grab();
    QVERIFY(pane.GetBands().empty());
    QVERIFY(pane.GetSparkles().empty());
}

void tst_BearingPaneHistory::heldTextsStand()
{
    BearingPane & pane = Make();
    pane.AddMarker(eYellowX, true, IColorBase::eColorMarker, true, eSpecialX, QStringLiteral("M1"));
    pane.GetMarker(eYellowX)->SetValue(305e3);
    SetResults({ ResultAt(305e3, 100.5), ResultAt(505e3, 200.5) });
    ConsoleBearings::Select(1);
    AzimuthDisplaySelect::Instance().Select(6);
    auto const texts = [&pane] {
        pane.updateWidget();
        pane.grab();
        QStringList all{ pane.ReadOut(), pane.ModeText() };
        for (MarkerRulers::Ruler const & ruler : pane.GetRulers())
            all += QString::number(ruler.index) + QString::number(ruler.line) + ruler.texts.join(QLatin1Char('|'));
        return all;
    };
    QStringList const before = texts();
    QVERIFY(before.join(QLatin1Char(' ')).contains(QStringLiteral("100.5")));
    QVERIFY(before[0].contains(QStringLiteral("200.5")));
    pane.Hold(true);
    SetResults({ ResultAt(305e3, 10.5), ResultAt(405e3, 20.5), ResultAt(705e3, 30.5) });
    ConsoleBearings::Select(0);
    ConsoleValues::Set(ConsolePaths::Heading, 77.0);
    QCOMPARE(texts(), before);
    pane.hide();
    pane.show();
    QCOMPARE(texts(), before);
    pane.Hold(false);
    QStringList const after = texts();
    QCOMPARE(after.size(), before.size() + 1);
    QVERIFY(after[0].contains(QStringLiteral("293.5"))); // 10.5 less 77
    QVERIFY(after[1].contains(QStringLiteral("077")));
}

void tst_BearingPaneHistory::clickInAHeldPaneSelectsItsEmitter_data()
{
    QTest::addColumn<int>("clicked"); // of those that are held
    QTest::addColumn<bool>("onMarker");
    QTest::addColumn<int>("selected"); // of those that are there now
    QTest::newRow("band of one that is there") << 1 << false << 0;
    QTest::newRow("band of one that has gone") << 0 << false << 1;
    QTest::newRow("marker of one that is there") << 1 << true << 0;
    QTest::newRow("marker of one that has gone") << 0 << true << 1;
}

void tst_BearingPaneHistory::clickInAHeldPaneSelectsItsEmitter()
{
    QFETCH(int, clicked);
    QFETCH(bool, onMarker);
    QFETCH(int, selected);
    BearingPane & pane = Make();
    SetResults({ ResultAt(305e3, 100.5), ResultAt(505e3, 200.5) });
    pane.grab();
    pane.Hold(true);
    SetResults({ ResultAt(505e3, 200.5), ResultAt(705e3, 300.5) });
    ConsoleBearings::Select(1);
    pane.grab();
    QPoint at = pane.GetBands()[static_cast<std::size_t>(clicked)].parts[0].center() / pane.GetRatio();
    if (onMarker)
        at.ry() = 5 + static_cast<int>(pane.GetPictureRect().top() / pane.GetRatio());
    Press(pane, at);
    QCOMPARE(ConsoleBearings::Selected(), selected);
    QCOMPARE(pane.GetFrequencyRange().span, Span);
}

void tst_BearingPaneHistory::pointsTurnWithTheHeading()
{
    BearingPane & pane = Make();
    AzimuthDisplaySelect::Instance().Select(6);
    Measure({ SingleAt(305e3, 200.5) }, 1.0);
    pane.grab();
    int const bottom = pane.GetPictureRect().bottom();
    QCOMPARE(pane.GetSparkles()[0].at.y(), bottom - 200);
    ConsoleValues::Set(ConsolePaths::Heading, 77.0);
    pane.grab();
    QCOMPARE(pane.GetSparkles()[0].at.y(), bottom - 123);
    Measure({ SingleAt(605e3, 200.5) }, 1.1);
    QCOMPARE(pane.GetSparkles()[1].at.y(), bottom - 123);
}

//! At once, and before anything is painted.
void tst_BearingPaneHistory::textsAreThoseOfTheBands()
{
    BearingPane & pane = Make();
    QVERIFY(pane.ReadOut().isEmpty());
    SetResults({ ResultAt(305e3, 100.5), ResultAt(505e3, 200.5) });
    ConsoleBearings::Select(0);
    QVERIFY(pane.ReadOut().contains(QStringLiteral("100.5")));
    ConsoleBearings::Select(1);
    QVERIFY(pane.ReadOut().contains(QStringLiteral("200.5")));
    AzimuthDisplaySelect::Instance().Select(6);
    ConsoleValues::Set(ConsolePaths::Heading, 100.0);
    QVERIFY(pane.ReadOut().contains(QStringLiteral("100.5")));
    QVERIFY(pane.ModeText().contains(QStringLiteral("100")));
    SetResults({});
    QVERIFY(pane.ReadOut().isEmpty());
}

ORIM_TEST_MAIN(tst_BearingPaneHistory)
#include "tst_bearingpane_history.moc"
