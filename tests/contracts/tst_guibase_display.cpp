// SPDX-License-Identifier: MIT
#include "guibase.h"

#include "testmain.h"
#include "tree.h"
#include "valuenumeric.h"
#include "valueselection.h"

#include <QTimer>

#include <ctime>
#include <vector>

class tst_GuiBaseDisplay : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void displayMode();
    void frequencyUnit_data();
    void frequencyUnit();
    void frequencyUnitStart();
    void frequencyUnitRefuses();
    void frequencyResolution_data();
    void frequencyResolution();
    void showFrequencyInHz();
    void positionFormat();
    void timeZoneItems();
    void timeZoneNames_data();
    void timeZoneNames();
    void timeZoneStart();
    void timeZoneValue();
    void localTimeFollows();
    void localTimeFollowsEachMinute();
    void selectionsStandInTheTree_data();
    void selectionsStandInTheTree();
    void selectionThatWasRemovedIsMadeAnew();
    void selectionOfTheApplicationIsTaken();
    void localTimeOfTheApplicationStays();
    void foreignValueAtThePath();
    void signalTypes_data();
    void signalTypes();
};

namespace {

GuiBase & Gui() { return GuiBase::Instance(); }

//! Puts another time zone into the environment while it lives.
class LocalZone
{
public:
    explicit LocalZone(char const * zone) { Set(zone); }

    ~LocalZone() { Set("UTC"); }

    LocalZone(LocalZone const &) = delete;
    LocalZone & operator=(LocalZone const &) = delete;

    static void Set(char const * zone)
    {
        qputenv("TZ", zone);
        tzset();
    }
};

class CodeCounter : public IObserver
{
public:
    void Update(Observable *, TChangeCode code) override { m_codes.push_back(code); }

    std::vector<int> m_codes;
};

} // namespace

void tst_GuiBaseDisplay::init() { Gui().SetApplication(qApp); }

void tst_GuiBaseDisplay::cleanup()
{
    Gui().SetApplication(nullptr);
    Tree::Instance()->RemoveFolder(QStringLiteral("/GuiBase"));
}

void tst_GuiBaseDisplay::displayMode()
{
    QCOMPARE(Gui().GetDisplayMode(), 0);
    Gui().SetDisplayMode(-7);
    QCOMPARE(Gui().GetDisplayMode(), -7);
    Gui().SetDisplayMode(0);
}

void tst_GuiBaseDisplay::frequencyUnit_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("name");
    QTest::addColumn<double>("factor");
    QTest::addColumn<int>("suffix");
    QTest::newRow("Hz") << 0 << "Hz" << 1.0 << int(SuffixedDouble::eSuffixNone);
    QTest::newRow("kHz") << 1 << "kHz" << 1e3 << int(SuffixedDouble::eSuffixKilo);
    QTest::newRow("MHz") << 2 << "MHz" << 1e6 << int(SuffixedDouble::eSuffixMega);
    QTest::newRow("GHz") << 3 << "GHz" << 1e9 << int(SuffixedDouble::eSuffixGiga);
}

void tst_GuiBaseDisplay::frequencyUnit()
{
    QFETCH(int, index);
    QFETCH(int, suffix);
    ValueSelection * const unit = Gui().GetFrequencyUnit();
    QVERIFY(unit);
    QCOMPARE(unit->GetItemCount(), 4);
    SelectionItem const * const item = unit->GetItemAt(index);
    QTEST(item->GetName(), "name");
    QTEST(item->GetValue(), "factor");
    QCOMPARE(item->GetKey(), static_cast<long>(suffix));
    Gui().SetFrequencyUnit(static_cast<SuffixedDouble::ESuffix>(suffix));
    QCOMPARE(unit->GetCurrentIndex(), index);
    QCOMPARE(SuffixedDouble(static_cast<SuffixedDouble::ESuffix>(suffix)).GetPureSuffix(), item->GetName());
}

void tst_GuiBaseDisplay::frequencyUnitStart()
{
    QCOMPARE(Gui().GetFrequencyUnit()->GetStringValue(), QStringLiteral("MHz"));
}

void tst_GuiBaseDisplay::frequencyUnitRefuses()
{
    for (int const suffix : { -3, -1, 4, 100, 12345 }) {
        Gui().SetFrequencyUnit(static_cast<SuffixedDouble::ESuffix>(suffix));
        QCOMPARE(Gui().GetFrequencyUnit()->GetStringValue(), QStringLiteral("MHz"));
    }
}

void tst_GuiBaseDisplay::frequencyResolution_data()
{
    QTest::addColumn<int>("suffix");
    QTest::addColumn<int>("held");
    QTest::newRow("hertz") << 0 << 0;
    QTest::newRow("kilohertz") << 1 << 1;
    QTest::newRow("megahertz") << 2 << 2;
    QTest::newRow("gigahertz") << 3 << 3;
    QTest::newRow("terahertz is refused") << 4 << 1;
    QTest::newRow("millihertz is refused") << -1 << 1;
    QTest::newRow("auto is refused") << 100 << 1;
}

void tst_GuiBaseDisplay::frequencyResolution()
{
    QFETCH(int, suffix);
    Gui().SetFrequencyResolution(SuffixedDouble::eSuffixKilo);
    Gui().SetFrequencyResolution(static_cast<SuffixedDouble::ESuffix>(suffix));
    QTEST(int(Gui().GetFrequencyResolution()), "held");
    Gui().SetFrequencyResolution(SuffixedDouble::eSuffixNone);
}

void tst_GuiBaseDisplay::showFrequencyInHz()
{
    QCOMPARE(Gui().GetShowFrequencyInHz(), 0);
    Gui().SetShowFrequencyInHz(true);
    QCOMPARE(Gui().GetShowFrequencyInHz(), 1);
    Gui().SetShowFrequencyInHz(false);
    QCOMPARE(Gui().GetShowFrequencyInHz(), 0);
}

void tst_GuiBaseDisplay::positionFormat()
{
    ValueSelection * const format = Gui().GetPositionFormat();
    QStringList const names{ "Degrees", "Degrees, minutes", "Degrees, minutes, seconds", "UTM", "MGRS" };
    QCOMPARE(format->GetItemCount(), 5);
    for (int i = 0; i < 5; ++i) {
        QCOMPARE(format->GetItemAt(i)->GetName(), names.at(i));
        QCOMPARE(format->GetItemAt(i)->GetKey(), static_cast<long>(i));
    }
    QCOMPARE(format->GetCurrentKey(), 0L);
}

void tst_GuiBaseDisplay::timeZoneItems()
{
    ValueSelection * const zone = Gui().GetTimeZone();
    QCOMPARE(zone->GetItemCount(), 54);
    QCOMPARE(zone->GetItemAt(0)->GetName(), QStringLiteral("UTC"));
    QCOMPARE(zone->GetItemAt(1)->GetName(), QStringLiteral("Local time"));
    double earlier = -13.0 * 3600.0;
    for (int i = 2; i < 54; ++i) {
        SelectionItem const * const item = zone->GetItemAt(i);
        QCOMPARE(item->GetKey(), static_cast<long>(item->GetValue()));
        QVERIFY(item->GetValue() > earlier && item->GetKey() % 1800 == 0 && item->GetKey() != 0);
        earlier = item->GetValue();
    }
}

void tst_GuiBaseDisplay::timeZoneNames_data()
{
    QTest::addColumn<long>("key");
    QTest::addColumn<QString>("name");
    QTest::addColumn<double>("seconds");
    QTest::newRow("UTC") << 0L << "UTC" << 0.0;
    QTest::newRow("local") << 1L << "Local time" << 0.0;
    QTest::newRow("the first") << -43200L << "UTC-12:00" << -43200.0;
    QTest::newRow("half an hour west") << -1800L << "UTC-00:30" << -1800.0;
    QTest::newRow("half an hour east") << 1800L << "UTC+00:30" << 1800.0;
    QTest::newRow("a whole hour") << 3600L << "UTC+01:00" << 3600.0;
    QTest::newRow("west with a half") << -12600L << "UTC-03:30" << -12600.0;
    QTest::newRow("east with a half") << 19800L << "UTC+05:30" << 19800.0;
    QTest::newRow("the last") << 50400L << "UTC+14:00" << 50400.0;
}

void tst_GuiBaseDisplay::timeZoneNames()
{
    QFETCH(long, key);
    SelectionItem const * const item = Gui().GetTimeZone()->GetItem(key);
    QVERIFY(item);
    QTEST(item->GetName(), "name");
    QTEST(item->GetValue(), "seconds");
}

void tst_GuiBaseDisplay::timeZoneStart()
{
    QCOMPARE(Gui().GetTimeZone()->GetCurrentKey(), 0L);
    QVERIFY(Gui().GetTimeZone()->GetCurrentItem());
    QCOMPARE(Gui().GetTimeZoneValue(), 0LL);
}

void tst_GuiBaseDisplay::timeZoneValue()
{
    QVERIFY(Gui().GetTimeZone()->Select(19800L, nullptr));
    QCOMPARE(Gui().GetTimeZone()->GetCurrentValue(), 19800.0);
    QCOMPARE(Gui().GetTimeZoneValue(), 19800LL);
    QVERIFY(Gui().GetTimeZone()->Select(QStringLiteral("UTC-03:30"), nullptr));
    QCOMPARE(Gui().GetTimeZoneValue(), -12600LL);
}

void tst_GuiBaseDisplay::localTimeFollows()
{
    LocalZone const zone("XXX-2");
    ValueSelection * const selection = Gui().GetTimeZone();
    QCOMPARE(selection->GetItem(1L)->GetValue(), 7200.0);
    CodeCounter utc;
    selection->AddObserver(&utc);
    LocalZone::Set("XXX-3");
    Gui().slotUpdateLocalTime();
    QCOMPARE(selection->GetItem(1L)->GetValue(), 10800.0);
    QCOMPARE(selection->GetCurrentKey(), 0L);
    QVERIFY(utc.m_codes == std::vector<int>{ eItemsChanged }); // what is shown in UTC stays
    selection->Select(1L, nullptr);
    QCOMPARE(Gui().GetTimeZoneValue(), 10800LL);
    utc.m_codes.clear();
    LocalZone::Set("XXX5:30");
    Gui().slotUpdateLocalTime();
    QCOMPARE(Gui().GetTimeZoneValue(), -19800LL);
    QVERIFY(utc.m_codes == (std::vector<int>{ eItemsChanged, eValueChanged }));
    utc.m_codes.clear();
    Gui().slotUpdateLocalTime();
    QVERIFY(utc.m_codes.empty());
}

void tst_GuiBaseDisplay::localTimeFollowsEachMinute()
{
    QTimer * watch = nullptr;
    for (auto * const timer : qApp->findChildren<QTimer *>())
        if (timer->interval() == 60000)
            watch = timer;
    QVERIFY(watch && watch->isActive());
    Gui().GetTimeZone()->Select(1L, nullptr);
    LocalZone const zone("XXX-4");
    QTimerEvent tick(watch->timerId());
    QCoreApplication::sendEvent(watch, &tick);
    QCOMPARE(Gui().GetTimeZoneValue(), 14400LL);
    Gui().SetApplication(nullptr);
    for (auto const * const timer : qApp->findChildren<QTimer *>())
        QVERIFY(timer->interval() != 60000);
}

void tst_GuiBaseDisplay::selectionsStandInTheTree_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("frequency unit") << "FrequencyUnit";
    QTest::newRow("position format") << "PositionFormat";
    QTest::newRow("time zone") << "TimeZone";
}

void tst_GuiBaseDisplay::selectionsStandInTheTree()
{
    QFETCH(QString, name);
    ValueSelection const * const held = name == "FrequencyUnit"    ? Gui().GetFrequencyUnit()
                                        : name == "PositionFormat" ? Gui().GetPositionFormat()
                                                                   : Gui().GetTimeZone();
    QCOMPARE(Tree::Instance()->FindAs<ValueSelection>(QStringLiteral("/GuiBase/") + name), held);
}

void tst_GuiBaseDisplay::selectionThatWasRemovedIsMadeAnew()
{
    Gui().GetTimeZone()->Select(3600L, nullptr);
    QVERIFY(Tree::Instance()->Remove(QStringLiteral("/GuiBase/TimeZone")));
    QVERIFY(Gui().GetTimeZone());
    QCOMPARE(Gui().GetTimeZoneValue(), 0LL);
}

void tst_GuiBaseDisplay::selectionOfTheApplicationIsTaken()
{
    auto * const own = new ValueSelection(QStringLiteral("TimeZone"));
    own->AddItem(SelectionItem(QStringLiteral("Ship"), 1234.0, 9L));
    own->Select(9L, nullptr);
    QVERIFY(Tree::Instance()->Insert(QStringLiteral("/GuiBase"), own));
    QCOMPARE(Gui().GetTimeZone(), own);
    QCOMPARE(Gui().GetTimeZoneValue(), 1234LL);
    Gui().slotUpdateLocalTime(); // it has no local time
    QCOMPARE(own->GetItemCount(), 1);
}

void tst_GuiBaseDisplay::localTimeOfTheApplicationStays()
{
    LocalZone const zone("XXX-2");
    QVERIFY(Gui().GetTimeZone()); // one of its own, which makes way
    QVERIFY(Tree::Instance()->Remove(QStringLiteral("/GuiBase/TimeZone")));
    auto * const theirs = new ValueSelection(QStringLiteral("TimeZone"));
    theirs->AddItem(SelectionItem(QStringLiteral("Aboard"), 0.0, 1L));
    theirs->AddItem(SelectionItem(QStringLiteral("Ashore"), 1234.0, 2L));
    theirs->Select(1L, nullptr);
    QVERIFY(Tree::Instance()->Insert(QStringLiteral("/GuiBase"), theirs));
    CodeCounter counter;
    theirs->AddObserver(&counter);
    Gui().slotUpdateLocalTime();
    QCOMPARE(Gui().GetTimeZone(), theirs);
    QCOMPARE(theirs->GetItemCount(), 2);
    QCOMPARE(theirs->GetItem(1L)->GetValue(), 0.0);
    QVERIFY(counter.m_codes.empty());
    QVERIFY(Tree::Instance()->Remove(QStringLiteral("/GuiBase/TimeZone")));
    QCOMPARE(Gui().GetTimeZone()->GetItem(1L)->GetValue(), 7200.0); // its own again, which follows
    LocalZone::Set("XXX-3");
    Gui().slotUpdateLocalTime();
    QCOMPARE(Gui().GetTimeZone()->GetItem(1L)->GetValue(), 10800.0);
}

void tst_GuiBaseDisplay::foreignValueAtThePath()
{
    auto * const number = new ValueNumeric<double>(QStringLiteral("TimeZone"));
    QVERIFY(Tree::Instance()->Insert(QStringLiteral("/GuiBase"), number));
    QVERIFY(!Gui().GetTimeZone());
    QCOMPARE(Gui().GetTimeZoneValue(), 0LL);
    Gui().slotUpdateLocalTime();
}

void tst_GuiBaseDisplay::signalTypes_data()
{
    QTest::addColumn<char>("letter");
    QTest::addColumn<QString>("text");
    QTest::newRow("A") << 'A' << "Amplitude modulation, double sideband";
    QTest::newRow("B") << 'B' << "Amplitude modulation, independent sidebands";
    QTest::newRow("C") << 'C' << "Amplitude modulation, vestigial sideband";
    QTest::newRow("D") << 'D' << "Amplitude and angle modulation";
    QTest::newRow("F") << 'F' << "Frequency modulation";
    QTest::newRow("G") << 'G' << "Phase modulation";
    QTest::newRow("H") << 'H' << "Single sideband, full carrier";
    QTest::newRow("J") << 'J' << "Single sideband, suppressed carrier";
    QTest::newRow("K") << 'K' << "Pulses, amplitude modulated";
    QTest::newRow("L") << 'L' << "Pulses, width modulated";
    QTest::newRow("M") << 'M' << "Pulses, position modulated";
    QTest::newRow("N") << 'N' << "Unmodulated carrier";
    QTest::newRow("P") << 'P' << "Pulses, unmodulated";
    QTest::newRow("Q") << 'Q' << "Pulses, angle modulated";
    QTest::newRow("R") << 'R' << "Single sideband, reduced carrier";
    QTest::newRow("V") << 'V' << "Pulses, several modulations";
    QTest::newRow("W") << 'W' << "Several modulations";
    QTest::newRow("X") << 'X' << "Other modulation";
    QTest::newRow("lower case") << 'f' << "Frequency modulation";
    QTest::newRow("E is none") << 'E' << "";
    QTest::newRow("a digit") << '3' << "";
    QTest::newRow("null") << '\0' << "";
    QTest::newRow("beyond ASCII") << '\xE4' << "";
}

void tst_GuiBaseDisplay::signalTypes()
{
    QFETCH(char, letter);
    QTEST(Gui().GetSignalType(letter), "text");
}

ORIM_TEST_MAIN(tst_GuiBaseDisplay)
#include "tst_guibase_display.moc"
