// SPDX-License-Identifier: MIT
#include "azimuthview.h"

#include "azimuthbutton.h"
#include "azimuthdisplayselect.h"
#include "bearingpane.h"
#include "colorset.h"
#include "consolewindow.h"
#include "lineplayer.h"
#include "markertools.h"
#include "panetools.h"
#include "persistencepane.h"
#include "resortpopupmenu.h"
#include "spectrumpane.h"
#include "testmain.h"
#include "waterfallpane.h"

#include <QMenu>
#include <QToolButton>

#include <limits>

using namespace MarkerTools;
using namespace PaneTools;

class tst_AzimuthView : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void initTestCase() { TestStage::HushPopups(); }

    void init() { AzimuthDisplaySelect::Instance().slotRestoreDefaultPersistant(); }

    void textOfABearing_data();
    void textOfABearing();
    void shownBearing_data();
    void shownBearing();
    void nameOfTheMode_data();
    void nameOfTheMode();
    void followsModeAndHeading();
    void rangeFollowsTheMode_data();
    void rangeFollowsTheMode();
    void rangeStaysWithinTheCircle();
    void rangesKeepALeastSpan();
    void elevationsAreShownFromTheHorizon();
    void headingTellsInRelativeModesAlone();
    void buttonChoosesForGood();
    void menuOfTheAxisChooses();
    void menuOfElevationHasNoModes();
    void modeSwitchesEveryText_data();
    void modeSwitchesEveryText();
    void headingTurnsWhatIsRelative();
    void modeRepaintsAtOnce();
};

namespace {

constexpr double NaN = std::numeric_limits<double>::quiet_NaN();
constexpr double Infinite = std::numeric_limits<double>::infinity();
constexpr long Absolute360 = 5;
constexpr long Absolute180 = 9;
constexpr long Relative360 = 6;
constexpr long Relative180 = 10;
constexpr double Start = ToneSource::Centre - ToneSource::Rate / 2.0; // Hz

QString Degree(QString const & text) { return QString(text).replace(QLatin1Char('*'), QChar(0xb0)); }

void Choose(long key) { AzimuthDisplaySelect::Instance().Select(key); }

//! A window with two results, of which the first is selected, that shows all panes.
class Stage
{
public:
    Stage() : m_window(std::make_unique<LinePlayer>(std::make_unique<ToneSource>()), QStringLiteral("tone"))
    {
        ConsoleValues::SetFlag(ConsolePaths::AzimuthShown, true);
        ConsoleValues::SetFlag(ConsolePaths::ElevationShown, true);
        ConsoleValues::SetFlag(ConsolePaths::PersistenceShown, true);
        m_window.resize(1000, 900);
        m_window.show();
        m_window.Values().SetBand({ Start, ToneSource::Rate });
        auto * const list = Tree::Instance()->FindAs<ValueList<BearingResult>>(QLatin1String(ConsolePaths::Bearings));
        double const quarter = ToneSource::Rate / 4.0;
        list->SetEntries(
            { BearingResult({ 350.04, -4.5, Start + quarter, 95.0, -30.0, 0.0 }, QStringLiteral("Tower")),
              BearingResult({ 41.3, 8.0, Start + 3.0 * quarter, 95.0, -30.0, 0.0 }, QStringLiteral("Taxi")) },
            nullptr);
        ConsoleBearings::Select(0);
        ConsoleValues::Set(ConsolePaths::Heading, 30.0);
        ConsoleValues::Set(ConsolePaths::Marker1, Start + quarter);
        ConsoleValues::SetFlag(ConsolePaths::Marker1Shown, true);
        m_window.grab();
    }

    ConsoleWindow & Window() { return m_window; }

    //! Texts of the flag of a marker as it is painted now.
    static QString FlagOf(RangePane & pane, int marker)
    {
        pane.grab();
        for (MarkerRulers::Ruler const & ruler : pane.GetRulers()) {
            if (ruler.index == marker)
                return ruler.texts.join(QLatin1Char('|'));
        }
        return QStringLiteral("none");
    }

private:
    ConsoleWindow m_window;
};

} // namespace

void tst_AzimuthView::textOfABearing_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<double>("bearing");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<QString>("text");
    auto const row = [](char const * name, long key, double bearing, int decimals, char const * text) {
        QTest::newRow(name) << static_cast<int>(key) << bearing << decimals << Degree(QLatin1String(text));
    };
    row("absolute, three digits", Absolute360, 41.3, 1, "041.3*");
    row("absolute, whole", Absolute360, 41.3, 0, "041*");
    row("absolute, below 0", Absolute360, -10.0, 1, "350.0*");
    row("absolute, a turn", Absolute360, 360.0, 1, "000.0*");
    row("absolute, rounds to north", Absolute360, 359.96, 1, "000.0*");
    row("absolute, does not round to north", Absolute360, 359.94, 1, "359.9*");
    row("absolute, many turns", Absolute360, 3641.5, 1, "041.5*");
    row("signed, starboard", Absolute180, 41.3, 1, "+041.3*");
    row("signed, port", Absolute180, 190.0, 1, "-170.0*");
    row("signed, north has no sign", Absolute180, 0.0, 1, "000.0*");
    row("signed, what rounds to north has none", Absolute180, -0.04, 1, "000.0*");
    row("signed, south is the lower end", Absolute180, 180.0, 1, "-180.0*");
    row("signed, rounds to south", Absolute180, 179.96, 1, "-180.0*");
    row("relative, ahead", Relative360, 30.0, 1, "000.0* rel");
    row("relative, to starboard", Relative360, 41.3, 0, "011* rel");
    row("relative, to port", Relative360, 20.0, 1, "350.0* rel");
    row("relative signed, to starboard", Relative180, 41.3, 1, "+011.3* rel");
    row("relative signed, to port", Relative180, 350.0, 1, "-040.0* rel");
    row("relative signed, astern", Relative180, 210.0, 0, "-180* rel");
    row("decimals below 0", Absolute360, 41.3, -5, "041*");
    row("decimals above 3", Absolute360, 41.3, 50, "041.300*");
    row("no number", Relative180, NaN, 1, "--");
    row("endless", Absolute360, Infinite, 1, "--");
    row("endless below 0", Absolute180, -Infinite, 0, "--");
}

void tst_AzimuthView::textOfABearing()
{
    QFETCH(int, key);
    QFETCH(double, bearing);
    QFETCH(int, decimals);
    QFETCH(QString, text);
    AzimuthView const view{ key, 30.0 };
    QCOMPARE(view.Text(bearing, decimals), text);
}

void tst_AzimuthView::shownBearing_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<double>("bearing");
    QTest::addColumn<double>("shown");
    QTest::newRow("absolute") << 5 << 350.0 << 350.0;
    QTest::newRow("absolute, a turn") << 5 << 720.0 << 0.0;
    QTest::newRow("absolute, just below 0") << 5 << -1e-20 << 0.0;
    QTest::newRow("signed") << 9 << 350.0 << -10.0;
    QTest::newRow("signed, south") << 9 << 180.0 << -180.0;
    QTest::newRow("relative") << 6 << 10.0 << 340.0;
    QTest::newRow("relative signed") << 10 << 10.0 << -20.0;
    QTest::newRow("without a range it is signed") << 1 << 350.0 << -10.0;
}

void tst_AzimuthView::shownBearing()
{
    QFETCH(int, key);
    QFETCH(double, bearing);
    QFETCH(double, shown);
    AzimuthView const view{ key, 30.0 };
    QCOMPARE(view.Shown(bearing), shown);
    QVERIFY(std::isnan(view.Shown(NaN)));
    QVERIFY(std::isnan(view.Shown(Infinite)));
    QCOMPARE(view.Stop() - view.Start(), 360.0);
}

void tst_AzimuthView::nameOfTheMode_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("name");
    QTest::newRow("absolute") << 5 << Degree(QStringLiteral("abs 0..360*"));
    QTest::newRow("absolute signed") << 9 << Degree(QStringLiteral("abs -180..180*"));
    QTest::newRow("relative") << 6 << Degree(QStringLiteral("rel 0..360*"));
    QTest::newRow("relative signed") << 10 << Degree(QStringLiteral("rel -180..180*"));
}

void tst_AzimuthView::nameOfTheMode()
{
    QFETCH(int, key);
    QFETCH(QString, name);
    QCOMPARE((AzimuthView{ key, 0.0 }).Name(), name);
}

void tst_AzimuthView::followsModeAndHeading()
{
    QCOMPARE(AzimuthView::Current().key, Absolute360);
    QCOMPARE(AzimuthView::Current().north, 0.0); // nobody tells
    ConsoleValues const values;
    ConsoleValues::Set(ConsolePaths::Heading, 77.0);
    Choose(Relative180);
    QCOMPARE(AzimuthView::Current().key, Relative180);
    QCOMPARE(AzimuthView::Current().north, 77.0);
    QVERIFY(AzimuthView::Current().IsRelative());
    Choose(Absolute180);
    QVERIFY(!AzimuthView::Current().IsRelative());
}

void tst_AzimuthView::rangeFollowsTheMode_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<double>("start");
    QTest::newRow("absolute") << 5 << 0.0;
    QTest::newRow("absolute signed") << 9 << -180.0;
    QTest::newRow("relative") << 6 << 0.0;
    QTest::newRow("relative signed") << 10 << -180.0;
}

void tst_AzimuthView::rangeFollowsTheMode()
{
    QFETCH(int, key);
    QFETCH(double, start);
    ConsoleValues const values;
    Choose(key);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::AzimuthMin), start);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::AzimuthMax), start + 360.0);
    // a part of the circle stays while the circle does
    ConsoleValues::Set(ConsolePaths::AzimuthMin, 20.0);
    ConsoleValues::Set(ConsolePaths::AzimuthMax, 50.0);
    Choose(key ^ 3); // from where bearings count
    QCOMPARE(ConsoleValues::Get(ConsolePaths::AzimuthMin), 20.0);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::AzimuthMax), 50.0);
    Choose(key ^ 12); // the other circle
    QCOMPARE(ConsoleValues::Get(ConsolePaths::AzimuthMin), -180.0 - start);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::AzimuthMax), 180.0 - start);
}

void tst_AzimuthView::rangeStaysWithinTheCircle()
{
    Choose(Absolute180); // before there are values
    ConsoleValues const values;
    QCOMPARE(ConsoleValues::Get(ConsolePaths::AzimuthMin), -180.0);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::AzimuthMax), 180.0);
    ConsoleValues::Set(ConsolePaths::AzimuthMin, -1e300);
    ConsoleValues::Set(ConsolePaths::AzimuthMax, 1e300);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::AzimuthMin), -180.0);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::AzimuthMax), 180.0);
    Choose(Absolute360);
    ConsoleValues::Set(ConsolePaths::AzimuthMin, -1.0);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::AzimuthMin), 0.0);
    ConsoleValues::Set(ConsolePaths::AzimuthMin, 200.0);
    BearingValues::ShowAllAzimuths();
    QCOMPARE(ConsoleValues::Get(ConsolePaths::AzimuthMin), 0.0);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::AzimuthMax), 360.0);
}

void tst_AzimuthView::rangesKeepALeastSpan()
{
    ConsoleValues const values;
    ConsoleValues::Set(ConsolePaths::AzimuthMax, 90.0);
    ConsoleValues::Set(ConsolePaths::AzimuthMin, 200.0);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::AzimuthMin), 89.0);
    ConsoleValues::Set(ConsolePaths::AzimuthMax, 0.0);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::AzimuthMax), 90.0);
    ConsoleValues::Set(ConsolePaths::ElevationMin, 100.0);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::ElevationMin), 89.0);
    ConsoleValues::Set(ConsolePaths::ElevationMax, -100.0);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::ElevationMax), 90.0);
}

void tst_AzimuthView::elevationsAreShownFromTheHorizon()
{
    ConsoleValues const values;
    QCOMPARE(ConsoleValues::Get(ConsolePaths::ElevationMin), BearingValues::Horizon);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::ElevationMax), BearingValues::Zenith);
    ConsoleValues::Set(ConsolePaths::ElevationMin, -90.0);
    ConsoleValues::Set(ConsolePaths::ElevationMax, -80.0);
    BearingValues::ShowElevations(); // although both ends lie below
    QCOMPARE(ConsoleValues::Get(ConsolePaths::ElevationMin), -30.0);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::ElevationMax), 90.0);
}

void tst_AzimuthView::headingTellsInRelativeModesAlone()
{
    ConsoleValues const values;
    QSignalSpy const changed(&AzimuthDisplaySelect::Instance(), &AzimuthDisplaySelect::signalAzimuthModeChanged);
    ConsoleValues::Set(ConsolePaths::Heading, 10.0);
    QCOMPARE(changed.count(), 0);
    Choose(Relative360);
    QCOMPARE(changed.count(), 1);
    ConsoleValues::Set(ConsolePaths::Heading, 11.0);
    QCOMPARE(changed.count(), 2);
    ConsoleValues::Set(ConsolePaths::Heading, 11.0);
    QCOMPARE(changed.count(), 2);
}

void tst_AzimuthView::buttonChoosesForGood()
{
    AzimuthDisplaySelect & select = AzimuthDisplaySelect::Instance();
    AzimuthButton button;
    QCOMPARE(button.text(), Degree(QStringLiteral("abs 0..360*")));
    auto * const menu = qobject_cast<ResortPopupMenu *>(button.menu());
    QVERIFY(menu);
    for (long const key : { Relative180, Absolute180, Relative360, Absolute360, Relative180 }) {
        menu->FindItem(static_cast<int>(key))->trigger();
        QCOMPARE(select.GetCurrentSelected(), key);
        auto const * const kept = Tree::Instance()->FindAs<ValueSelection>(select.DefaultValueSelection());
        QCOMPARE(kept->GetCurrentKey(), key);
        QCOMPARE(button.text(), (AzimuthView{ key, 0.0 }).Name());
    }
    QSize const room = button.sizeHint();
    Choose(Absolute180); // by someone else, for now
    QCOMPARE(button.sizeHint(), room);
    QVERIFY(room.width() > button.fontMetrics().horizontalAdvance((AzimuthView{ Relative180, 0.0 }).Name()));
    QCOMPARE(button.text(), Degree(QStringLiteral("abs -180..180*")));
    QCOMPARE(button.popupMode(), QToolButton::InstantPopup);
}

void tst_AzimuthView::menuOfTheAxisChooses()
{
    BearingAxis axis(nullptr, BearingAxis::Kind::eAzimuth);
    for (int turn = 0; turn < 2; ++turn) {
        auto const menus = axis.GetContextMenu()->findChildren<ResortPopupMenu *>(QStringLiteral("AzimuthMenu"));
        QCOMPARE(menus.size(), 1);
        QCOMPARE(menus[0]->title(), QStringLiteral("Azimuth selector"));
        QVERIFY(axis.GetContextMenu()->actions().contains(menus[0]->menuAction()));
        QList<QAction *> const items = menus[0]->actions();
        QCOMPARE(items.size(), 4);
        long const keys[]{ Absolute360, Absolute180, Relative360, Relative180 };
        for (int i = 0; i < 4; ++i) {
            items[i]->trigger();
            QCOMPARE(AzimuthDisplaySelect::Instance().GetCurrentSelected(), keys[i]);
        }
        GuiBase::Instance().emit_signalColorsChanged(); // has the menu built anew
    }
}

void tst_AzimuthView::menuOfElevationHasNoModes()
{
    BearingAxis axis(nullptr, BearingAxis::Kind::eElevation);
    QVERIFY(axis.GetContextMenu()->findChildren<ResortPopupMenu *>().isEmpty());
}

void tst_AzimuthView::modeSwitchesEveryText_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("first");  // of the result at 350.04, one digit
    QTest::addColumn<QString>("second"); // of the one at 41.3, whole
    QTest::addColumn<QString>("mode");
    auto const row = [](char const * name, long key, char const * first, char const * second, char const * mode) {
        QTest::newRow(name) << static_cast<int>(key) << Degree(QLatin1String(first)) << Degree(QLatin1String(second))
                            << Degree(QLatin1String(mode));
    };
    row("absolute", Absolute360, "350.0*", "041*", "abs 0..360*");
    row("absolute signed", Absolute180, "-010.0*", "+041*", "abs -180..180*");
    row("relative", Relative360, "320.0* rel", "011* rel", "rel 0..360*  heading 030*");
    row("relative signed", Relative180, "-040.0* rel", "+011* rel", "rel -180..180*  heading 030*");
}

void tst_AzimuthView::modeSwitchesEveryText()
{
    QFETCH(int, key);
    QFETCH(QString, first);
    QFETCH(QString, second);
    QFETCH(QString, mode);
    Stage stage;
    ConsoleWindow & window = stage.Window();
    Choose(key == Absolute360 ? Relative180 : Absolute360);
    window.grab();
    Choose(key);
    // flags of results
    QVERIFY(Stage::FlagOf(window.Spectrum(), eFree33).startsWith(first + QLatin1Char('|')));
    QCOMPARE(Stage::FlagOf(window.Spectrum(), eFree33 + 1), second);
    QCOMPARE(Stage::FlagOf(window.Waterfall(), eFree33), first);
    QCOMPARE(Stage::FlagOf(window.Persistence(), eFree33), first);
    QCOMPARE(Stage::FlagOf(window.Persistence(), eFree33 + 1), QString());
    QCOMPARE(Stage::FlagOf(window.Azimuth(), eFree33), first + QStringLiteral("|95 %"));
    QCOMPARE(Stage::FlagOf(window.Azimuth(), eFree33 + 1), QString());
    QCOMPARE(Stage::FlagOf(window.Elevation(), eFree33), Degree(QStringLiteral("-4.5*|95 %")));
    // flags of markers
    QVERIFY(Stage::FlagOf(window.Azimuth(), eYellowX).endsWith(QStringLiteral("  ") + first));
    QVERIFY(Stage::FlagOf(window.Elevation(), eYellowX).endsWith(Degree(QStringLiteral("  -4.5*"))));
    // read-outs
    QVERIFY(window.Spectrum().BearingReadOut().contains(QStringLiteral("bearing ") + first + QStringLiteral("  ")));
    QCOMPARE(window.Azimuth().ReadOut(),
             QStringLiteral("Tower  ") + first + Degree(QStringLiteral(" \u00b10.6*  95 %")));
    QCOMPARE(window.Elevation().ReadOut(), Degree(QStringLiteral("Tower  -4.5* \u00b10.3*  95 %")));
    QCOMPARE(window.Azimuth().ModeText(), mode);
    QCOMPARE(window.Elevation().ModeText(), QString());
    auto const * const button = window.findChild<QToolButton *>(QStringLiteral("azimuthMode"));
    QVERIFY(button);
    QCOMPARE(button->text(), mode.section(QStringLiteral("  "), 0, 0));
    // the axis
    AzimuthView const view = AzimuthView::Current();
    QCOMPARE(window.Azimuth().GetLevelScale().GetStart(), view.Start());
    QCOMPARE(window.Azimuth().GetLevelScale().GetStop(), view.Stop());
    QString label;
    window.Azimuth().GetLevelScale().BuildFormatString(label, 270.0, nullptr);
    QCOMPARE(label.trimmed(), view.Start() < 0.0 ? QStringLiteral("-90") : QStringLiteral("270"));
}

void tst_AzimuthView::headingTurnsWhatIsRelative()
{
    Stage stage;
    ConsoleWindow & window = stage.Window();
    Choose(Relative360);
    QCOMPARE(Stage::FlagOf(window.Spectrum(), eFree33 + 1), Degree(QStringLiteral("011* rel")));
    window.Azimuth().grab();
    int const line = window.Azimuth().GetBands()[1].line.top();
    ConsoleValues::Set(ConsolePaths::Heading, 100.0);
    QCOMPARE(Stage::FlagOf(window.Spectrum(), eFree33 + 1), Degree(QStringLiteral("301* rel")));
    QCOMPARE(Stage::FlagOf(window.Waterfall(), eFree33), Degree(QStringLiteral("250.0* rel")));
    QCOMPARE(Stage::FlagOf(window.Persistence(), eFree33), Degree(QStringLiteral("250.0* rel")));
    QVERIFY(Stage::FlagOf(window.Azimuth(), eYellowX).endsWith(Degree(QStringLiteral("  250.0* rel"))));
    QVERIFY(window.Azimuth().GetBands()[1].line.top() < line);
    QVERIFY(window.Azimuth().ModeText().endsWith(Degree(QStringLiteral("heading 100*"))));
}

//! Nothing waits for a timer: what is painted next is all new.
void tst_AzimuthView::modeRepaintsAtOnce()
{
    Stage stage;
    ConsoleWindow & window = stage.Window();
    for (long const key : { Absolute180, Relative180, Relative360, Absolute360, Relative360 }) {
        Choose(key);
        QImage const axis = Rendered(window.Azimuth().GetLevelScale());
        QImage const pane = Rendered(window.Azimuth());
        window.Azimuth().GetLevelScale().RepairDrawing();
        window.Azimuth().SetColors(window.Azimuth().GetColors());
        QVERIFY(Rendered(window.Azimuth().GetLevelScale()) == axis);
        QVERIFY(Rendered(window.Azimuth()) == pane);
        // colours of starboard and port at the far edge of the scale while bearings count from the vehicle
        QRect const inner = window.Azimuth().GetLevelScale().innerRect();
        bool const isPositive = AzimuthView::Current().Start() == 0.0;
        QColor const low = axis.pixelColor(2, inner.top() + inner.height() * 3 / 4);
        QColor const high = axis.pixelColor(2, inner.top() + inner.height() / 4);
        bool const isRelative = AzimuthView::Current().IsRelative();
        QColor const starboard = ColorSet::Instance()[IColorBase::eColorBearingStarboard];
        QColor const port = ColorSet::Instance()[IColorBase::eColorBearingPort];
        QCOMPARE(isPositive ? low == starboard : high == starboard, isRelative);
        QCOMPARE(isPositive ? high == port : low == port, isRelative);
    }
}

ORIM_TEST_MAIN(tst_AzimuthView)
#include "tst_azimuthview.moc"
