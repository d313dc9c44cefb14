// SPDX-License-Identifier: MIT
// What the picture gets from others: its colours, its hold time with the axis that shows it, and values of the tree.

#include "agedimageaccess.h"
#include "axisprobe.h"
#include "guibase.h"
#include "guicentral.h"
#include "krexception.h"
#include "ownstore.h"
#include "testmain.h"
#include "valueagedimage.h"
#include "valuenumeric.h"
#include "valueselection.h"

#include <QAbstractEventDispatcher>

#include <climits>
#include <cstddef>
#include <limits>
#include <optional>
#include <utility>

namespace {

//! What an exception must leave: the palette and its pace.
struct Kept
{
    explicit Kept(AgedImageAccess & image)
        : m_colors(image.Colors())
        , m_table(image.GetImage() ? image.GetImage()->colorTable() : decltype(m_table)())
        , m_count(image.Count())
        , m_position(image.Position())
        , m_current(image.Current())
    {}

    bool operator==(Kept const & other) const
    {
        return m_colors == other.m_colors && m_table == other.m_table && m_count == other.m_count &&
               m_position == other.m_position && m_current == other.m_current;
    }

    std::vector<unsigned int> m_colors;
    decltype(QImage().colorTable()) m_table;
    int m_count;
    int m_position;
    int m_current;
};

using Call = std::function<void(AgedImage &)>;

//! The exception of a call; none when it throws none.
std::optional<KRException> Thrown(AgedImage & image, Call const & call)
{
    try {
        call(image);
    } catch (KRException const & exception) {
        return exception;
    }
    return std::nullopt;
}

ShadingColorSet & SetOfRole(unsigned int role)
{
    GuiCentral & central = GuiCentral::Instance();
    return central.GetWaterfallColorSets()[static_cast<std::size_t>(central.GetColorSetIdForRoleId(role))];
}

QColor & SingleColor(int number) { return ColorSet::Instance()[static_cast<IColorBase::ECOLOR>(number)]; }

//! An observer that does something when it hears.
class Listener : public IObserver
{
public:
    void Update(Observable * /*subject*/, TChangeCode code) override
    {
        if (code == eValueChanged && m_then)
            m_then();
    }

    std::function<void()> m_then;
};

} // namespace

Q_DECLARE_METATYPE(Call)

class tst_AgedImageValues : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void coloursOfOneBlock_data();
    void coloursOfOneBlock();
    void coloursOfSeveralBlocks_data();
    void coloursOfSeveralBlocks();
    void coloursMoveThroughThePalette();
    void backgroundColour();
    void markerColourIsReadAtEachStep();
    void changedColoursBuildThePalette();
    void holdTime_data();
    void holdTime();
    void holdTimeSeesTheSectionsBefore();
    void holdTimeClearsThePicture();
    void noHoldTimeKeepsPixels_data();
    void noHoldTimeKeepsPixels();
    void halvesWhatDoesNotFit();
    void throws_data();
    void throws();
    void refusedSettingStays();
    void refusedObjectIsSafe();
    void refusedChoiceReachesWhoChose();
    void hugeHoldTimes();
    void axisShowsTheHoldTime_data();
    void axisShowsTheHoldTime();
    void axisKeepsItsScale();
    void axisIsRepainted();
    void axisMayEndFirst();
    void bindsActive();
    void bindsSteps_data();
    void bindsSteps();
    void bindsStepsToAnything();
    void badPathsUnbind_data();
    void badPathsUnbind();
    void valuesGoAway();
    void bindsADriver();
    void driverIsTakenBack();
    void driverMayDeleteThePicture();
    void otherSubjectsAreIgnored();

private:
    OwnStore<> m_store;
};

void tst_AgedImageValues::init() { m_store.BeginWithFactoryColors(); }

void tst_AgedImageValues::cleanup()
{
    GuiCentral::Instance().slotRestoreFactoryColors();
    Tree::Instance()->RemoveFolder(QStringLiteral("/aged"));
    m_store.End();
}

// Colours

void tst_AgedImageValues::coloursOfOneBlock_data()
{
    QTest::addColumn<int>("colors");
    QTest::addColumn<int>("sections");
    QTest::newRow("four sections of two") << 2 << 4;
    QTest::newRow("one colour") << 1 << 1;
    QTest::newRow("seven of five") << 5 << 7;
    QTest::newRow("all entries") << 2 << 127;
}

void tst_AgedImageValues::coloursOfOneBlock()
{
    QFETCH(int, colors);
    QFETCH(int, sections);
    AgedImageAccess image(7, 5);
    image.SetHoldTime(4, colors, sections);
    QCOMPARE(image.Count(), colors * sections);
    for (int i = 0; i < sections; ++i)
        for (int j = 0; j < colors; ++j)
            QCOMPARE(image.Colors()[static_cast<std::size_t>(i * colors + j)],
                     SetOfRole(4).GetColor((i + 1) * colors, 0, sections * colors, true).rgb());
    QCOMPARE(image.Colors()[static_cast<std::size_t>(image.Count() - 1)], 0xffffffffU); // the set is white at its end
}

void tst_AgedImageValues::coloursOfSeveralBlocks_data()
{
    QTest::addColumn<int>("qualitySteps");
    for (int const qualitySteps : { 2, 3, 8, 31 })
        QTest::addRow("%d", qualitySteps) << qualitySteps;
}

void tst_AgedImageValues::coloursOfSeveralBlocks()
{
    QFETCH(int, qualitySteps);
    AgedImageAccess image(7, 5, qualitySteps);
    QCOMPARE(image.Count(), 8);
    for (int quality = 0; quality < qualitySteps; ++quality) {
        QRgb const full = SetOfRole(5).GetColor(quality, 0, qualitySteps - 1, true).rgb();
        for (int i = 0; i < 8; ++i) { // four sections of two
            double const part = (i / 2 + 1) / 4.0;
            QRgb const faded = qRgb(static_cast<int>(qRed(full) * part), static_cast<int>(qGreen(full) * part),
                                    static_cast<int>(qBlue(full) * part));
            QCOMPARE(image.Colors()[static_cast<std::size_t>(quality * 8 + i)], faded);
        }
    }
    // the set goes from red to blue, and is turned round
    QCOMPARE(image.Colors()[7], 0xff0000ffU);
    QCOMPARE(image.Colors()[0], 0xff00003fU);
    QCOMPARE(image.Colors()[static_cast<std::size_t>(qualitySteps * 8 - 1)], 0xffff0000U);
}

void tst_AgedImageValues::coloursMoveThroughThePalette()
{
    AgedImageAccess image(7, 5, 3);
    for (int step = 0; step < 17; ++step) {
        int const position = (16 - step + 8) % 8;
        QCOMPARE(image.Position(), position);
        for (int quality = 0; quality < 3; ++quality)
            for (int i = 0; i < 8; ++i)
                QCOMPARE(image.Entry(quality * 8 + (position - i + 8) % 8),
                         image.Colors()[static_cast<std::size_t>(quality * 8 + i)]);
        QCOMPARE(image.Entry(255), image.Colors()[255]);
        QCOMPARE(image.GetImage()->colorCount(), 256);
        image.SwitchColors();
    }
}

void tst_AgedImageValues::backgroundColour()
{
    SingleColor(3) = QColor(1, 2, 3);
    SingleColor(42) = QColor(4, 5, 6);
    AgedImageAccess image(7, 5);
    QCOMPARE(image.Entry(255), 0xff010203U);
    QCOMPARE(image.Entry(254), 0xff040506U);
    SetOfRole(4).SetUseMinIndexBackground(true); // of the ageing set: its last colour
    image.slotSetColorGradingPen();
    QCOMPARE(image.Entry(255), 0xff606060U);
    AgedImageAccess transparent(nullptr, true);
    transparent.resize(7, 5);
    QCOMPARE(transparent.Entry(255), 0U);
    QCOMPARE(transparent.Entry(254), 0xff040506U);
    AgedImageAccess opaque(nullptr, false);
    opaque.resize(7, 5);
    QCOMPARE(opaque.Entry(255), 0xff606060U);
}

void tst_AgedImageValues::markerColourIsReadAtEachStep()
{
    AgedImageAccess image(7, 5);
    SingleColor(42) = QColor(4, 5, 6);
    SingleColor(3) = QColor(1, 2, 3);
    QRgb const background = image.Entry(255);
    image.SwitchColors();
    QCOMPARE(image.Entry(254), 0xff040506U);
    QCOMPARE(image.Colors()[254], 0xff040506U);
    QCOMPARE(image.Entry(255), background); // waits for the signal
}

void tst_AgedImageValues::changedColoursBuildThePalette()
{
    AgedImageAccess image(7, 5);
    image.SwitchColors();
    image.SwitchColors();
    image.SetPixel(1, 1, 0);
    image.ClearDirty();
    SetOfRole(4).SetColorNr(0, QColor(9, 8, 7));
    SingleColor(3) = QColor(1, 2, 3);
    GuiBase::Instance().emit_signalColorsChanged();
    QCOMPARE(image.Colors()[7], 0xff090807U);
    QCOMPARE(image.Entry(255), 0xff010203U);
    QCOMPARE(image.Position(), 0);
    QCOMPARE(image.Current(), 0);
    QVERIFY(image.GetDirty());
    QCOMPARE(image.At(1, 1), 7); // the pixels stay
    image.ClearDirty();
    image.slotSetColorGradingPen();
    QVERIFY(image.GetDirty());
}

// Hold time

void tst_AgedImageValues::holdTime_data()
{
    QTest::addColumn<int>("steps");
    QTest::addColumn<int>("distance"); // of tics, s
    QTest::addColumn<int>("tics");
    QTest::addColumn<int>("sections");
    QTest::addColumn<int>("colors");
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("time");
    QTest::newRow("1 s") << 1 << 1 << 2 << 1 << 2 << 2 << 500;
    QTest::newRow("4 s") << 4 << 1 << 5 << 4 << 2 << 8 << 500;
    QTest::newRow("19 s") << 19 << 1 << 20 << 19 << 2 << 38 << 500;
    QTest::newRow("20 s") << 20 << 2 << 11 << 10 << 2 << 20 << 1000;
    QTest::newRow("25 s") << 25 << 2 << 13 << 12 << 2 << 24 << 1041;
    QTest::newRow("29 s") << 29 << 2 << 15 << 14 << 2 << 28 << 1035;
    QTest::newRow("30 s") << 30 << 5 << 7 << 6 << 5 << 30 << 1000;
    QTest::newRow("254 s") << 254 << 5 << 51 << 50 << 5 << 250 << 1016;
    QTest::newRow("255 s has half of its colours") << 255 << 5 << 52 << 51 << 2 << 102 << 2000;
    QTest::newRow("639 s has all entries") << 639 << 5 << 128 << 127 << 2 << 254 << 2012;
    QTest::newRow("off") << 0 << 1 << 1 << 1 << 1 << 1 << 0;
    QTest::newRow("infinite") << -1 << 1 << 1 << 1 << 1 << 1 << 0;
    QTest::newRow("lowest") << INT_MIN << 1 << 1 << 1 << 1 << 1 << 0;
}

void tst_AgedImageValues::holdTime()
{
    QFETCH(int, steps);
    QFETCH(int, distance);
    QFETCH(int, tics);
    AgedImageAccess image(7, 5);
    AxisProbe axis;
    image.SetAgeingAxis(&axis);
    image.SetSteps(steps);
    QCOMPARE(image.GetSteps(), steps);
    QCOMPARE(axis.m_ticStep, static_cast<double>(distance));
    QCOMPARE(axis.m_ticCount, tics);
    QTEST(image.Sections(), "sections");
    QTEST(image.ColorsPerSection(), "colors");
    QTEST(image.Count(), "count");
    QTEST(image.GetSwitchTime(), "time");
    QCOMPARE(image.SwitchTimer() != -1, steps > 0);
}

void tst_AgedImageValues::holdTimeSeesTheSectionsBefore()
{
    AgedImageAccess image(7, 5);
    image.SetSteps(639); // 127 sections of two colours
    image.SetSteps(30);  // of the five only two fit 127 sections, though there will be 6
    QCOMPARE(image.Sections(), 6);
    QCOMPARE(image.ColorsPerSection(), 2);
    QCOMPARE(image.GetSwitchTime(), 2500);
    image.SetHoldTime(1, 1, 127);
    image.SetQualitySteps(2);
    image.SetSteps(4); // two would be 508
    QCOMPARE(image.Sections(), 4);
    QCOMPARE(image.ColorsPerSection(), 1);
    QCOMPARE(image.GetSwitchTime(), 1000);
    image.SetSteps(4);
    QCOMPARE(image.ColorsPerSection(), 2);
}

void tst_AgedImageValues::holdTimeClearsThePicture()
{
    AgedImageAccess image(7, 5);
    for (Call const & call :
         { Call([](AgedImage & each) { each.SetSteps(4); }), Call([](AgedImage & each) { each.SetHoldTime(4, 2, 4); }),
           Call([](AgedImage & each) { each.SetQualitySteps(2); }) }) {
        image.SwitchColors();
        image.SetPixel(1, 1, 0);
        image.ClearDirty();
        call(image);
        QCOMPARE(image.SetPixels(), 0);
        QCOMPARE(image.Position(), 0);
        QVERIFY(image.GetDirty());
    }
    AgedImageAccess empty; // all of it works without a picture
    empty.ClearDirty();
    empty.SetSteps(25);
    QVERIFY(empty.GetDirty());
    QCOMPARE(empty.GetSwitchTime(), 1041);
    empty.SwitchColors();
    QCOMPARE(empty.Position(), 23);
}

void tst_AgedImageValues::noHoldTimeKeepsPixels_data()
{
    QTest::addColumn<int>("steps");
    QTest::newRow("0") << 0;
    QTest::newRow("infinite") << -1;
}

void tst_AgedImageValues::noHoldTimeKeepsPixels()
{
    QFETCH(int, steps);
    AgedImageAccess image(7, 5);
    int const clock = image.SwitchTimer();
    image.SetSteps(steps);
    QCOMPARE(image.SwitchTimer(), -1);
    QCOMPARE(image.Count(), 1);
    image.SetPixel(1, 1, 0);
    QCOMPARE(image.GetImage()->pixel(1, 1), 0xffffffffU); // the one colour
    image.Tick(clock);
    image.Tick(image.UpdateTimer());
    QCOMPARE(image.SetPixels(), 1);
    for (auto const & timer : QAbstractEventDispatcher::instance()->registeredTimers(&image))
        QCOMPARE(timer.interval, 200);
    image.Clear(255);
    QCOMPARE(image.SetPixels(), 0);
}

void tst_AgedImageValues::halvesWhatDoesNotFit()
{
    AgedImageAccess image(7, 5);
    int const clock = image.SwitchTimer();
    image.SetQualitySteps(32); // 32 * 8 are 256
    QCOMPARE(image.ColorsPerSection(), 1);
    QCOMPARE(image.Count(), 4);
    QCOMPARE(image.GetSwitchTime(), 1000);
    QCOMPARE(image.SwitchTimer(), clock); // runs on at its old pace
    for (auto const & timer : QAbstractEventDispatcher::instance()->registeredTimers(&image))
        QCOMPARE(timer.interval, timer.timerId == clock ? 500 : 200);
    image.SetCurrentTime(1000000);
    image.SetCurrentTime(1999000);
    QCOMPARE(image.m_switches, 0);
    image.SetCurrentTime(2000000);
    QCOMPARE(image.m_switches, 1);
    image.slotSetColorGradingPen();
    QCOMPARE(image.GetSwitchTime(), 1000); // not again
}

// What does not fit

void tst_AgedImageValues::throws_data()
{
    QTest::addColumn<Call>("call"); // from 4 s, one block, 7 x 5 pixels
    QTest::addColumn<int>("steps"); // afterwards
    QTest::addColumn<int>("qualitySteps");
    QTest::addColumn<int>("sections");
    QTest::addColumn<int>("colors");
    QTest::addColumn<int>("time");
    QTest::newRow("SetQualitySteps") << Call([](AgedImage & image) { image.SetQualitySteps(64); }) << 4 << 64 << 4 << 2
                                     << 500;
    QTest::newRow("SetQualitySteps, highest")
        << Call([](AgedImage & image) { image.SetQualitySteps(INT_MAX); }) << 4 << INT_MAX << 4 << 2 << 500;
    QTest::newRow("SetHoldTime") << Call([](AgedImage & image) { image.SetHoldTime(512, 64, 8); }) << 4 << 1 << 8 << 64
                                 << 1000;
    QTest::newRow("SetSteps") << Call([](AgedImage & image) { image.SetSteps(640); }) << 640 << 1 << 128 << 5 << 1000;
    QTest::newRow("Initialize, by its hold time")
        << Call([](AgedImage & image) { image.Initialize(9, 9, 512, 64, 8, 2); }) << 4 << 1 << 8 << 64 << 1000;
    QTest::newRow("Initialize, by its blocks")
        << Call([](AgedImage & image) { image.Initialize(9, 9, 4, 2, 4, 64); }) << 4 << 64 << 4 << 2 << 500;
}

void tst_AgedImageValues::throws()
{
    QFETCH(Call, call);
    AgedImageAccess image(7, 5);
    image.SwitchColors();
    image.SetPixel(1, 1, 0);
    bool const isBuiltOnTheWay = QByteArray(QTest::currentDataTag()).startsWith("Initialize");
    if (isBuiltOnTheWay)
        image.slotSetColorGradingPen(); // what resize() does
    Kept const before(image);
    auto const exception = Thrown(image, call);
    QVERIFY(exception);
    QCOMPARE(exception->GetText(), QStringLiteral("AgedImage: m_QualitySteps * m_ColorsPerQualityStep > 254!"));
    QCOMPARE(exception->GetClass(), QStringLiteral("AgedImage"));
    QCOMPARE(exception->GetSource(), QStringLiteral("controls/orimwidgets/agedimage"));
    QCOMPARE(exception->GetFunction(), QStringLiteral("slotSetColorGradingPen"));
    QCOMPARE(exception->GetCode(), static_cast<unsigned int>(-1));
    QVERIFY(exception->GetLine() > 0);
    QVERIFY(Kept(image) == before);
    QTEST(image.GetSteps(), "steps");
    QTEST(image.GetQualitySteps(), "qualitySteps");
    QTEST(image.Sections(), "sections");
    QTEST(image.ColorsPerSection(), "colors");
    QTEST(image.GetSwitchTime(), "time");
    QCOMPARE(image.SetPixels(), 0); // cleared before
}

//! Each operation that builds the palette tells of it once more, until the setting is another one.
void tst_AgedImageValues::refusedSettingStays()
{
    AgedImageAccess image(7, 5);
    QVERIFY(Thrown(image, [](AgedImage & each) { each.SetQualitySteps(64); }));
    Kept const before(image);
    for (int round = 0; round < 2; ++round) {
        QVERIFY(Thrown(image, [](AgedImage & each) { each.slotSetColorGradingPen(); }));
        QVERIFY(Thrown(image, [](AgedImage & each) { each.resize(7, 5); }));
        QVERIFY(Thrown(image, [](AgedImage & each) { each.ClearAll(); }));
        QVERIFY(Thrown(image, [](AgedImage & each) { each.reset(); }));
        QVERIFY(Thrown(image, [](AgedImage & each) { each.SetHoldTime(4, 2, 4); }));
        QVERIFY(Kept(image) == before);
        QCOMPARE(image.GetSwitchTime(), 500);
    }
    QVERIFY(!Thrown(image, [](AgedImage & each) { each.ensureSize(7, 5); })); // it has that size
    QVERIFY(Thrown(image, [](AgedImage & each) { each.ensureSize(11, 3); }));
    QCOMPARE(image.width(), 11); // the new picture is there, empty, in the colours of before
    QCOMPARE(image.SetPixels(), 0);
    QVERIFY(Kept(image) == before);
    GuiBase::Instance().emit_signalColorsChanged(); // nobody could catch it
    QVERIFY(Kept(image) == before);
    QVERIFY(!Thrown(image, [](AgedImage & each) { each.SetQualitySteps(2); }));
    QCOMPARE(image.Count(), 8);
    QCOMPARE(image.Colors()[15], 0xffff0000U);
}

void tst_AgedImageValues::refusedObjectIsSafe()
{
    AgedImageAccess image(7, 5);
    QVERIFY(Thrown(image, [](AgedImage & each) { each.SetQualitySteps(1000); }));
    std::vector<unsigned char> bytes(35, 200);
    for (int step = 0; step < 20; ++step) {
        image.SetPixel(1, 1, 3);
        image.SetPixel(2, 2, 999); // no such block
        image.SetPixel(bytes.data(), 0U);
        image.SwitchColors();
    }
    QCOMPARE(image.At(2, 2), 255);
    image.SetPixel(1, 1, 3);
    QCOMPARE(image.At(1, 1), image.Current() + 24);
    QCOMPARE(image.SetPixels(), 1);
}

void tst_AgedImageValues::refusedChoiceReachesWhoChose()
{
    auto * const selection = PlantAged<ValueSelection>("steps");
    selection->AddItem(SelectionItem(QStringLiteral("long"), 640.0, 640));
    selection->AddItem(SelectionItem(QStringLiteral("short"), 4.0, 4));
    selection->Select(4L, nullptr);
    AgedImageAccess image(7, 5);
    QVERIFY(image.SetAgeingSteps_ValuePath(AgedPath("steps")));
    Kept const before(image);
    QVERIFY(Thrown(image, [selection](AgedImage &) { selection->Select(640L, nullptr); }));
    QVERIFY(Kept(image) == before);
    QCOMPARE(image.GetSteps(), 640);
    selection->Select(4L, nullptr);
    QCOMPARE(image.GetSwitchTime(), 1000); // the 128 sections before left room for one colour
    selection->Select(640L, &image);
    AgedImageAccess late(7, 5);
    QVERIFY(Thrown(late, [](AgedImage & each) { each.SetAgeingSteps_ValuePath(AgedPath("steps")); })); // by the replay
}

void tst_AgedImageValues::hugeHoldTimes()
{
    AgedImageAccess image(7, 5);
    QVERIFY(Thrown(image, [](AgedImage & each) { each.SetSteps(1275); }));  // 255 sections of 5, or of 2
    QVERIFY(!Thrown(image, [](AgedImage & each) { each.SetSteps(1275); })); // the 255 sections leave room for one
    QCOMPARE(image.ColorsPerSection(), 0);                                  // which is halved
    QCOMPARE(image.Count(), 0);
    QCOMPARE(image.GetSwitchTime(), 10000);
    image.SetPixel(1, 1, 0);
    image.SwitchColors();
    QCOMPARE(image.At(1, 1), 0);
    image.SetCurrentTime(1000000);
    image.SetCurrentTime(~0ULL);
    QCOMPARE(image.At(1, 1), 0);
    AgedImageAccess below(7, 5);
    QVERIFY(Thrown(below, [](AgedImage & each) { each.SetSteps(1274); }));
    QVERIFY(!Thrown(below, [](AgedImage & each) { each.SetSteps(1274); }));
    QCOMPARE(below.Count(), 254);
    AgedImageAccess highest(7, 5);
    QVERIFY(Thrown(highest, [](AgedImage & each) { each.SetSteps(INT_MAX); }));
    QCOMPARE(highest.Count(), 8);
}

// The axis

void tst_AgedImageValues::axisShowsTheHoldTime_data()
{
    QTest::addColumn<int>("steps");
    QTest::addColumn<double>("stop");
    QTest::addColumn<double>("distance");
    QTest::addColumn<int>("count");
    QTest::newRow("4 s") << 4 << 4.0 << 1.0 << 5;
    QTest::newRow("25 s") << 25 << 25.0 << 2.0 << 13;
    QTest::newRow("30 s") << 30 << 30.0 << 5.0 << 7;
    QTest::newRow("off") << 0 << 0.0 << 1.0 << 1;
    QTest::newRow("infinite") << -1 << 0.0 << 1.0 << 1;
}

void tst_AgedImageValues::axisShowsTheHoldTime()
{
    QFETCH(int, steps);
    QFETCH(double, stop);
    AgedImageAccess image;
    image.SetSteps(steps);
    for (bool const isSetAgain : { false, true }) {
        AxisProbe axis;
        axis.SetRange(-50.0, 70.0);
        axis.SetDefaultRange(-50.0, 70.0);
        axis.SetDeviceRange(-60.0, 80.0);
        axis.m_ticOffset = 3.0;
        axis.SetMustRecalcRulers(false);
        image.SetAgeingAxis(&axis);
        if (isSetAgain)
            image.SetSteps(steps);
        QCOMPARE(axis.Start(), 0.0);
        QCOMPARE(axis.Stop(), stop);
        QCOMPARE(axis.m_calcStart, 0.0);
        QCOMPARE(axis.m_calcStop, stop);
        QCOMPARE(axis.m_defaultStart, 0.0);
        QCOMPARE(axis.m_defaultStop, stop);
        QCOMPARE(axis.m_deviceStart, 0.0);
        QCOMPARE(axis.m_deviceStop, 0.0);
        QTEST(axis.m_ticStep, "distance");
        QTEST(axis.m_ticCount, "count");
        QCOMPARE(axis.m_firstTic, 0.0);
        QCOMPARE(axis.m_ticOffset, 0.0);
        QCOMPARE(axis.m_leftDigits, 0);
        QCOMPARE(axis.m_rightDigits, 0);
        QVERIFY(axis.GetMustRecalcRulers());
    }
}

void tst_AgedImageValues::axisKeepsItsScale()
{
    AgedImageAccess image;
    AxisProbe axis;
    image.SetSteps(25);
    image.SetAgeingAxis(&axis);
    GuiBase::Instance().emit_signalColorsChanged(); // the axis finds its tics
    axis.CalcValues();
    QCOMPARE(axis.m_ticCount, 13);
    QCOMPARE(axis.m_ticStep, 2.0);
    QVERIFY(axis.ValueToPixel(24.0) > 0); // the last tic
    QString label;
    axis.BuildFormatString(label, 24.0, nullptr);
    QCOMPARE(label.trimmed(), QStringLiteral("24"));
    image.SetAgeingAxis(nullptr);
    image.SetSteps(4);
    QCOMPARE(axis.Stop(), 25.0);
}

void tst_AgedImageValues::axisIsRepainted()
{
    AgedImageAccess image;
    AxisProbe axis;
    axis.show();
    QVERIFY(QTest::qWaitForWindowExposed(&axis));
    QTRY_VERIFY(axis.m_paints > 0);
    QCoreApplication::sendPostedEvents();
    axis.m_paints = 0;
    image.SetAgeingAxis(&axis);
    QTRY_VERIFY(axis.m_paints > 0);
}

void tst_AgedImageValues::axisMayEndFirst()
{
    AgedImageAccess image;
    auto axis = std::make_unique<AxisProbe>();
    image.SetAgeingAxis(axis.get());
    axis.reset();
    image.SetSteps(25);
    QCOMPARE(image.GetSwitchTime(), 1041);
}

// Values

void tst_AgedImageValues::bindsActive()
{
    auto * const active = PlantAged<Value<bool>>("active");
    AgedImageAccess image(7, 5);
    QVERIFY(image.SetAgeingActive_ValuePath(AgedPath("active")));
    QVERIFY(!image.GetAgeing()); // it was told at once
    QVERIFY(image.GetDirty());
    image.ClearDirty();
    active->SetValue(true, nullptr);
    QVERIFY(image.GetAgeing());
    QVERIFY(image.GetDirty());
    image.ClearDirty();
    image.Update(active, eRangeChanged);
    image.Update(active, eItemsChanged);
    image.Update(active, eInterimChanged);
    active->SetState(eStateDisabled, nullptr); // nothing
    QVERIFY(!image.GetDirty());
    QVERIFY(active->HasObserver(&image));
    auto * const other = PlantAged<Value<bool>>("other");
    QVERIFY(image.SetAgeingActive_ValuePath(AgedPath("other")));
    QVERIFY(!active->HasObserver(&image));
    QVERIFY(other->HasObserver(&image));
    QVERIFY(!image.GetAgeing());
    active->SetValue(false, nullptr);
    active->SetValue(true, nullptr);
    QVERIFY(!image.GetAgeing());
}

void tst_AgedImageValues::bindsSteps_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("steps");
    QTest::newRow("4 s") << 4.0 << 4;
    QTest::newRow("cut, not rounded") << 25.9 << 25;
    QTest::newRow("cut towards zero") << -0.9 << 0;
    QTest::newRow("infinite") << -1.0 << -1;
    QTest::newRow("no number") << std::numeric_limits<double>::quiet_NaN() << INT_MIN;
    QTest::newRow("beyond an int") << -1e300 << INT_MIN;
}

void tst_AgedImageValues::bindsSteps()
{
    QFETCH(double, value);
    auto * const selection = PlantAged<ValueSelection>("steps");
    selection->AddItem(SelectionItem(QStringLiteral("first"), 7.0, 7));
    selection->AddItem(SelectionItem(QStringLiteral("row"), value, 1));
    selection->Select(7L, nullptr);
    AgedImageAccess image(7, 5);
    QVERIFY(image.SetAgeingSteps_ValuePath(AgedPath("steps")));
    QCOMPARE(image.GetSteps(), 7); // it was told at once
    image.SetPixel(1, 1, 0);
    selection->Select(1L, nullptr);
    QTEST(image.GetSteps(), "steps");
    QCOMPARE(image.SetPixels(), 0);
    QCOMPARE(image.SwitchTimer() != -1, image.GetSteps() > 0);
}

//! The selection that the central object makes, through and through.
void tst_AgedImageValues::bindsStepsToAnything()
{
    QString const path = GuiCentral::Instance().CreateUniqueAgeingStepsSelection();
    auto * const selection = Tree::Instance()->FindAs<ValueSelection>(path);
    AgedImageAccess image(7, 5);
    QVERIFY(image.SetAgeingSteps_ValuePath(path));
    for (int i = 0; i < selection->GetItemCount(); ++i) {
        selection->SelectIndex(i, nullptr);
        QCOMPARE(image.GetSteps(), static_cast<int>(selection->GetItemAt(i)->GetKey()));
    }
    QCOMPARE(image.GetSteps(), -1); // the last one is infinite
    Tree::Instance()->Remove(path);
    QVERIFY(!image.IsBound());
}

void tst_AgedImageValues::badPathsUnbind_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("empty") << QString();
    QTest::newRow("unknown") << QStringLiteral("/aged/unknown");
    QTest::newRow("another type") << QStringLiteral("/aged/number");
}

void tst_AgedImageValues::badPathsUnbind()
{
    QFETCH(QString, path);
    PlantAged<ValueNumeric<double>>("number");
    auto * const active = PlantAged<Value<bool>>("active");
    auto * const steps = PlantAged<ValueSelection>("steps");
    auto * const driver = PlantAged<ValueAgedImage>("driver");
    AgedImageAccess image(7, 5);
    for (bool const isGood : { false, true, false }) {
        QCOMPARE(image.SetAgeingActive_ValuePath(isGood ? AgedPath("active") : path), isGood);
        QCOMPARE(image.SetAgeingSteps_ValuePath(isGood ? AgedPath("steps") : path), isGood);
        QCOMPARE(image.Set_ValuePath(isGood ? AgedPath("driver") : path), isGood);
        QCOMPARE(image.IsBound(), isGood);
        for (ValueBase * const value : std::initializer_list<ValueBase *>{ active, steps, driver })
            QCOMPARE(value->HasObserver(&image), isGood);
    }
}

void tst_AgedImageValues::valuesGoAway()
{
    PlantAged<Value<bool>>("active");
    PlantAged<ValueSelection>("steps");
    PlantAged<ValueAgedImage>("driver");
    AgedImageAccess image(7, 5);
    QVERIFY(image.SetAgeingActive_ValuePath(AgedPath("active")));
    QVERIFY(image.SetAgeingSteps_ValuePath(AgedPath("steps")));
    QVERIFY(image.Set_ValuePath(AgedPath("driver")));
    QCOMPARE(image.GetSteps(), 0); // nothing is chosen
    Tree::Instance()->Remove(AgedPath("active"));
    Tree::Instance()->Remove(AgedPath("steps"));
    Tree::Instance()->Remove(AgedPath("driver"));
    QVERIFY(!image.IsBound());
    auto * const driver = PlantAged<ValueAgedImage>("driver");
    QVERIFY(image.Set_ValuePath(AgedPath("driver")));
    driver->SetState(eStateGoingAway, nullptr); // and yet it goes on
    QVERIFY(!image.IsBound());
    QVERIFY(!driver->HasObserver(&image));
    QVERIFY(!driver->GetApplyAgedImage());
}

void tst_AgedImageValues::bindsADriver()
{
    auto * const driver = PlantAged<ValueAgedImage>("driver");
    CountingClient client;
    AgedImageAccess image(&client);
    image.resize(7, 5);
    image.SetPixel(1, 1, 0);
    image.ClearDirty();
    int const clock = image.SwitchTimer();
    QVERIFY(image.Set_ValuePath(AgedPath("driver")));
    QVERIFY(driver->GetApplyAgedImage() == &image);
    QVERIFY(driver->HasObserver(&image));
    QCOMPARE(image.SetPixels(), 0);
    QCOMPARE(image.SwitchTimer(), -1);
    QVERIFY(image.GetDirty());
    image.Tick(clock);
    QCOMPARE(image.m_switches, 0);
    image.Tick(image.UpdateTimer());
    QCOMPARE(client.m_asked, 1); // is asked all the same
    driver->GetApplyAgedImage()->SetCurrentTime(1000000);
    driver->GetApplyAgedImage()->SetCurrentTime(1500000);
    QCOMPARE(image.m_switches, 1);
    AgedImageAccess empty;
    empty.ClearDirty();
    QVERIFY(empty.Set_ValuePath(AgedPath("driver"))); // without a picture
    QVERIFY(empty.GetDirty());
}

void tst_AgedImageValues::driverIsTakenBack()
{
    auto * const driver = PlantAged<ValueAgedImage>("driver");
    auto * const other = PlantAged<ValueAgedImage>("other");
    {
        AgedImageAccess image(7, 5);
        QVERIFY(image.Set_ValuePath(AgedPath("driver")));
        QVERIFY(image.Set_ValuePath(AgedPath("other")));
        QVERIFY(!driver->GetApplyAgedImage());
        QVERIFY(other->GetApplyAgedImage() == &image);
        QVERIFY(image.Set_ValuePath(AgedPath("other"))); // once more
        QVERIFY(other->GetApplyAgedImage() == &image);
    }
    QVERIFY(!other->GetApplyAgedImage());
    QCOMPARE(other->GetObserverCount(), 0);
    AgedImageAccess second(7, 5);
    {
        AgedImageAccess first(7, 5);
        QVERIFY(first.Set_ValuePath(AgedPath("driver")));
        QVERIFY(second.Set_ValuePath(AgedPath("driver"))); // takes it over
    }
    QVERIFY(driver->GetApplyAgedImage() == &second); // it stays with that one
    QVERIFY(!second.Set_ValuePath(QString()));
}

void tst_AgedImageValues::driverMayDeleteThePicture()
{
    auto * const driver = PlantAged<ValueAgedImage>("driver");
    Listener listener;
    driver->AddObserver(&listener);
    auto * const image = new AgedImageAccess(7, 5);
    QPointer<AgedImage> const watch(image);
    bool isDone = false;
    listener.m_then = [image, &isDone] {
        if (!std::exchange(isDone, true))
            delete image;
    };
    QVERIFY(!image->Set_ValuePath(AgedPath("driver")));
    QVERIFY(!watch);
    QVERIFY(!driver->GetApplyAgedImage());
    AgedImageAccess left(7, 5);
    listener.m_then = [] { Tree::Instance()->Remove(AgedPath("driver")); };
    QVERIFY(!left.Set_ValuePath(AgedPath("driver")));
    QVERIFY(!left.IsBound());
}

void tst_AgedImageValues::otherSubjectsAreIgnored()
{
    Value<bool> stranger;
    AgedImageAccess image(7, 5);
    for (TChangeCode const code : { eStateChanged, eValueChanged, eRangeChanged, eItemsChanged, eInterimChanged }) {
        image.Update(&stranger, code);
        image.Update(nullptr, code);
    }
    QVERIFY(image.GetAgeing());
    QVERIFY(!image.GetDirty());
}

ORIM_TEST_MAIN(tst_AgedImageValues)
#include "tst_agedimage_values.moc"
