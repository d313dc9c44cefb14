// SPDX-License-Identifier: MIT
// Settings with more colours than the palette holds.

#include "agedimageaccess.h"
#include "guibase.h"
#include "krexception.h"
#include "ownstore.h"
#include "testmain.h"
#include "valueselection.h"

#include <climits>
#include <cstddef>
#include <optional>

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

} // namespace

Q_DECLARE_METATYPE(Call)

class tst_AgedImageRefused : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void throws_data();
    void throws();
    void refusedSettingStays();
    void waysOutOfARefusal();
    void refusedObjectIsSafe();
    void refusedChoiceReachesWhoChose();
    void hugeHoldTimes();

private:
    OwnStore<> m_store;
};

void tst_AgedImageRefused::init() { m_store.BeginWithFactoryColors(); }

void tst_AgedImageRefused::cleanup()
{
    Tree::Instance()->RemoveFolder(QStringLiteral("/aged"));
    m_store.End();
}

void tst_AgedImageRefused::throws_data()
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

void tst_AgedImageRefused::throws()
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
void tst_AgedImageRefused::refusedSettingStays()
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
    QObject other;
    QObject::connect(&other, SIGNAL(objectNameChanged(QString)), &image, SLOT(slotSetColorGradingPen()));
    other.setObjectName(QStringLiteral("a signal of another"));
    QVERIFY(Kept(image) == before);
    QVERIFY(Thrown(image, [](AgedImage & each) { each.slotSetColorGradingPen(); })); // no signal any more
    QVERIFY(!Thrown(image, [](AgedImage & each) { each.SetQualitySteps(2); }));
    QCOMPARE(image.Count(), 8);
    QCOMPARE(image.Colors()[15], 0xffff0000U);
}

//! Initialize() fails at its resize(), and has stored nothing yet; other settings that fit repair the object.
void tst_AgedImageRefused::waysOutOfARefusal()
{
    AgedImageAccess image(7, 5);
    QVERIFY(Thrown(image, [](AgedImage & each) { each.SetQualitySteps(64); }));
    QVERIFY(Thrown(image, [](AgedImage & each) { each.Initialize(7, 5, 6, 3, 4, 1); }));
    QCOMPARE(image.ColorsPerSection(), 2);
    QCOMPARE(image.GetQualitySteps(), 64);
    QVERIFY(!Thrown(image, [](AgedImage & each) { each.SetHoldTime(4, 1, 3); }));
    QCOMPARE(image.Count(), 3);
    AgedImageAccess other(7, 5);
    QVERIFY(Thrown(other, [](AgedImage & each) { each.SetHoldTime(512, 64, 8); }));
    QVERIFY(!Thrown(other, [](AgedImage & each) { each.SetSteps(4); }));
    QCOMPARE(other.Sections(), 4);
}

void tst_AgedImageRefused::refusedObjectIsSafe()
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

void tst_AgedImageRefused::refusedChoiceReachesWhoChose()
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

void tst_AgedImageRefused::hugeHoldTimes()
{
    AgedImageAccess image(7, 5);
    QVERIFY(Thrown(image, [](AgedImage & each) { each.SetSteps(1275); }));  // 255 sections of 5, or of 2
    QVERIFY(!Thrown(image, [](AgedImage & each) { each.SetSteps(1275); })); // the 255 sections leave room for one
    QCOMPARE(image.ColorsPerSection(), 0);                                  // which is halved
    QCOMPARE(image.Count(), 0);
    QCOMPARE(image.GetSwitchTime(), 10000);
    image.SetPixel(1, 1, 0);
    image.ClearDirty();
    image.Tick(image.SwitchTimer()); // runs, with nothing to turn
    QCOMPARE(image.m_switches, 1);
    QVERIFY(image.GetDirty());
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

ORIM_TEST_MAIN(tst_AgedImageRefused)
#include "tst_agedimage_refused.moc"
