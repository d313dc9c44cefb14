// SPDX-License-Identifier: MIT
// What the picture gets from others: its colours, its hold time with the axis that shows it, and values of the tree.

#include "agedimageaccess.h"
#include "axisprobe.h"
#include "guibase.h"
#include "guicentral.h"
#include "ownstore.h"
#include "testmain.h"
#include "valueagedimage.h"
#include "valuenumeric.h"
#include "valueselection.h"

#include <QAbstractEventDispatcher>
#include <QSignalSpy>

#include <climits>
#include <cstddef>
#include <limits>
#include <utility>

namespace {

using Call = std::function<void(AgedImage &)>;

ShadingColorSet & SetOfRole(unsigned int role)
{
    GuiCentral & central = GuiCentral::Instance();
    return central.GetWaterfallColorSets()[static_cast<std::size_t>(central.GetColorSetIdForRoleId(role))];
}

QColor & SingleColor(int number) { return ColorSet::Instance()[static_cast<IColorBase::ECOLOR>(number)]; }

//! Hears the codes that it is told.
class HearingImage : public AgedImageAccess
{
public:
    using AgedImageAccess::AgedImageAccess;

    void Update(Observable * subject, TChangeCode code) override
    {
        m_heard << static_cast<int>(code);
        AgedImageAccess::Update(subject, code);
    }

    Indices m_heard;
};

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
    void paletteHasItsSizeAtEachStep();
    void changedColoursBuildThePalette();
    void colourSlotHasItsName();
    void holdTime_data();
    void holdTime();
    void holdTimeSeesTheSectionsBefore();
    void holdTimeClearsThePicture();
    void noHoldTimeKeepsPixels_data();
    void noHoldTimeKeepsPixels();
    void halvesWhatDoesNotFit();
    void axisShowsTheHoldTime_data();
    void axisShowsTheHoldTime();
    void axisSetCountsTheColours();
    void axisSetTellsNobody();
    void axisKeepsItsScale();
    void axisIsRepainted();
    void axisMayEndFirst();
    void bindingReplays();
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

void tst_AgedImageValues::paletteHasItsSizeAtEachStep()
{
    AgedImageAccess image(7, 5);
    for (int const count : { 10, 300 }) {
        image.GetImage()->setColorCount(count);
        image.SwitchColors();
        QCOMPARE(image.GetImage()->colorCount(), 256);
        QCOMPARE(image.Entry(255), image.Colors()[255]);
        QCOMPARE(image.Entry(254), image.Colors()[254]);
    }
}

//! The connection can be found, and cut, by name.
void tst_AgedImageValues::colourSlotHasItsName()
{
    AgedImageAccess image(7, 5);
    QVERIFY(AgedImage::staticMetaObject.indexOfSlot("slotSetColorGradingPen()") >= 0);
    QVERIFY(QObject::disconnect(&GuiBase::Instance(), SIGNAL(signalColorsChanged()), &image,
                                SLOT(slotSetColorGradingPen())));
    image.ClearDirty();
    GuiBase::Instance().emit_signalColorsChanged();
    QVERIFY(!image.GetDirty());
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

//! With the sections of before, and for the next palette.
void tst_AgedImageValues::axisSetCountsTheColours()
{
    AgedImageAccess image(7, 5);
    image.SetSteps(0);
    QCOMPARE(image.ColorsPerSection(), 1);
    image.SetAgeingAxis(nullptr);
    QCOMPARE(image.ColorsPerSection(), 2);
    QCOMPARE(image.Count(), 1);
    image.slotSetColorGradingPen();
    QCOMPARE(image.Count(), 2);
    image.SetSteps(255); // 51 sections of five are one too many
    QCOMPARE(image.ColorsPerSection(), 2);
    image.SetAgeingAxis(nullptr);
    QCOMPARE(image.ColorsPerSection(), 4);
    QCOMPARE(image.GetSwitchTime(), 2000);
}

void tst_AgedImageValues::axisSetTellsNobody()
{
    auto * const start = PlantAged<ValueNumeric<double>>("start");
    auto * const stop = PlantAged<ValueNumeric<double>>("stop");
    start->SetValue(-7.0, nullptr);
    stop->SetValue(9.0, nullptr);
    AgedImageAccess image;
    AxisProbe axis;
    QVERIFY(axis.SetStart_ValuePath(AgedPath("start")));
    QVERIFY(axis.SetStop_ValuePath(AgedPath("stop")));
    axis.m_unZoom.emplace_back(-3.0, 5.0, 8.0);
    double const before = start->GetValue();
    QSignalSpy const ranges(&axis, SIGNAL(signalRangeChanged()));
    QSignalSpy const bars(&axis, SIGNAL(redrawBars()));
    QVERIFY(ranges.isValid() && bars.isValid());
    image.SetSteps(25);
    image.SetAgeingAxis(&axis);
    QCOMPARE(axis.Stop(), 25.0);
    QVERIFY(axis.m_fixedRange);
    QCOMPARE(ranges.size(), 0);
    QCOMPARE(bars.size(), 0);
    QCOMPARE(start->GetValue(), before);
    QVERIFY(axis.m_unZoom.empty());
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

void tst_AgedImageValues::bindingReplays()
{
    PlantAged<Value<bool>>("active");
    PlantAged<ValueSelection>("steps");
    PlantAged<ValueAgedImage>("driver");
    HearingImage image;
    QVERIFY(image.SetAgeingActive_ValuePath(AgedPath("active")));
    QCOMPARE(image.m_heard, (Indices{ 2, 4, 3 }));
    image.m_heard.clear();
    QVERIFY(image.SetAgeingSteps_ValuePath(AgedPath("steps")));
    QCOMPARE(image.m_heard, (Indices{ 2, 4, 7, 3 }));
    image.m_heard.clear();
    QVERIFY(image.Set_ValuePath(AgedPath("driver")));
    QCOMPARE(image.m_heard, (Indices{ 3, 2, 4, 3 })); // the first one as it takes the value
}

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
