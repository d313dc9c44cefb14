// SPDX-License-Identifier: MIT
#include "shadingcolorset.h"

#include "testmain.h"

#include <cmath>
#include <limits>
#include <type_traits>

namespace {

constexpr double NaN = std::numeric_limits<double>::quiet_NaN();
constexpr double Infinity = std::numeric_limits<double>::infinity();

QColor const Red("#ff0000");
QColor const Green("#00ff00");
QColor const Blue("#0000ff");
QColor const Grey(Qt::lightGray);

QString const Ramp = QStringLiteral("V02;2;1;0;0;100;0;0;0;#000000;#000000;#ffffff;");
QString const Bands = QStringLiteral("V02;3;0;0;0;100;0;0;0;#000000;#ff0000;#00ff00;#0000ff;");
QString const FixedRamp = QStringLiteral("V02;2;1;1;10;20;0;0;0;#000000;#000000;#ffffff;");
QString const FixedBands = QStringLiteral("V02;3;0;1;10;22;0;0;0;#000000;#ff0000;#00ff00;#0000ff;");
QString const Compass = QStringLiteral("V02;3;0;1;0;360;0;1;0;#000000;#ff0000;#00ff00;#0000ff;");
QString const CompassRamp = QStringLiteral("V02;2;1;1;0;360;0;1;0;#000000;#000000;#ffffff;");

QColor GreyLevel(int level) { return { level, level, level }; }

ShadingColorSet SetOf(QString const & line)
{
    ShadingColorSet set;
    set.SetString(line);
    return set;
}

ShadingColorSet * refilled = nullptr;
int hookCalls = 0;

void CountHook() { ++hookCalls; }

void RefillHook()
{
    ++hookCalls;
    *refilled = SetOf(Bands);
}

void AskingHook()
{
    ++hookCalls;
    ShadingColorSet empty(0, true);
    empty.GetColor(0.0, 0.0, 1.0, false);
}

static_assert(std::is_polymorphic_v<ShadingColorSet>);
static_assert(!std::has_virtual_destructor_v<ShadingColorSet>);

//! Answers every value with one colour.
class GreenSet final : public ShadingColorSet
{
public:
    QColor GetColor(double /*value*/, double /*min*/, double /*max*/, bool /*inverse*/) override { return Green; }
};

} // namespace

class tst_shadingcolorset : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void init() { ShadingColorSet::SetEmptyListHook(nullptr); }

    void aDefaultSet();
    void aSetOfGivenLength();
    void onlyTheCountOfATextIsCapped();
    void getColor_data();
    void getColor();
    void anOverrideIsCalledThroughTheBase();
    void theResultOfBlendingIsOpaque();
    void rangeIsNormalised_data();
    void rangeIsNormalised();
    void theIndexLeavesTheRangeAlone();
    void getColorNr();
    void setColorNr();
    void resize();
    void background();
    void theBackgroundOfAnEmptyList();
    void accessors();
    void theListIsGivenByReference();
    void textOfADefaultSet();
    void textReadBack();
    void textOfEveryMember();
    void setString_data();
    void setString();
    void colorsBeyondTheFieldLimitStayWhite();
    void aShortLineChangesNothing();
    void aLineWithoutHeaderStillGivesAColor();
    void aCopyTakesEverything();
    void anAssignmentPassesThroughTheText();
    void selfAssignment();
    void emptyListWithoutHook();
    void emptyListCallsTheHook();
    void hookRefillsTheSetThatAsks();
    void hookIsNotCalledFromItself();
    void rowOfAnEmptyList();
    void rowsFollowTheSet();
    void rowsFollowALentList();
    void rowsOfNothing();
    void rowsOfFloats();
    void rowsPutTheRangeInOrder();
    void aCopyMapsLikeItsSource();
};

void tst_shadingcolorset::aDefaultSet()
{
    ShadingColorSet set;
    QCOMPARE(set.GetLength(), std::size_t{ 2 });
    QCOMPARE(set.GetVector().at(0), QColor(Qt::black));
    QCOMPARE(set.GetVector().at(1), QColor(Qt::black));
    QVERIFY(set.GetSmooth());
    QVERIFY(!set.GetFixed());
    QCOMPARE(set.GetStart(), 0.0);
    QCOMPARE(set.GetStop(), 100.0);
    QCOMPARE(set.GetOffset(), 0.0);
    QVERIFY(!set.GetWrap());
    QVERIFY(set.GetName().isEmpty());
    QVERIFY(!set.GetWriteable());
    QVERIFY(!set.GetUseMinIndexBackground());
    // an index would give the last colour here, a range gives the colour out of range
    QCOMPARE(set.GetColor(2.0, 0.0, 1.0, false), Grey);
}

void tst_shadingcolorset::aSetOfGivenLength()
{
    ShadingColorSet bands(7, false);
    QCOMPARE(bands.GetLength(), std::size_t{ 7 });
    QVERIFY(!bands.GetSmooth());
    for (QColor const & color : bands.GetVector())
        QVERIFY(!color.isValid());
    QVERIFY(ShadingColorSet(1, true).GetSmooth());
    QCOMPARE(bands.GetStop(), 100.0);
    QCOMPARE(ShadingColorSet(0, true).GetLength(), std::size_t{ 0 });
}

void tst_shadingcolorset::onlyTheCountOfATextIsCapped()
{
    QCOMPARE(SetOf(QStringLiteral("V02;70000;1;0;0;100;0;0;0;#000000;")).GetLength(), std::size_t{ 65536 });
    ShadingColorSet set(70000, false);
    QCOMPARE(set.GetLength(), std::size_t{ 70000 });
    set.Resize(80000);
    QCOMPARE(set.GetLength(), std::size_t{ 80000 });
    set.SetPureIndexUse(true);
    QVERIFY(set.SetColorNr(79999, Red));
    double const last = 79999.0;
    QRgb out = 0;
    set.GetColors(&last, &out, 1, 0.0, 1.0, false);
    QCOMPARE(out, Red.rgb());
    QCOMPARE(set.GetColor(last, 0.0, 1.0, false), Red);
}

void tst_shadingcolorset::getColor_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<bool>("index");
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("min");
    QTest::addColumn<double>("max");
    QTest::addColumn<bool>("inverse");
    QTest::addColumn<QColor>("color");

    auto const range = [](char const * name, QString const & line, double value, double max, bool inverse,
                          QColor const & c) {
        QTest::newRow(name) << line << false << value << 0.0 << max << inverse << c;
    };
    range("blend: the low end is the first colour", Ramp, 0.0, 10.0, false, GreyLevel(0));
    range("blend: the high end is the last colour", Ramp, 10.0, 10.0, false, GreyLevel(255));
    range("blend: the middle is cut, not rounded", Ramp, 5.0, 10.0, false, GreyLevel(127));
    range("blend: a quarter", Ramp, 2.5, 10.0, false, GreyLevel(63));
    range("blend: a quarter, inverse", Ramp, 2.5, 10.0, true, GreyLevel(191));
    range("blend: the low end, inverse, is the last colour", Ramp, 0.0, 10.0, true, GreyLevel(255));
    range("blend: the high end, inverse, is the first colour", Ramp, 10.0, 10.0, true, GreyLevel(0));
    range("blend: below the range is light grey", Ramp, -0.001, 10.0, false, Grey);
    range("blend: above the range is light grey", Ramp, 10.001, 10.0, false, Grey);
    range("blend: below the range, inverse, is light grey", Ramp, -0.001, 10.0, true, Grey);
    range("blend: infinite is light grey", Ramp, Infinity, 10.0, false, Grey);
    range("blend: minus infinite is light grey", Ramp, -Infinity, 10.0, false, Grey);
    range("blend: NaN is no colour", Ramp, NaN, 10.0, false, QColor());
    range("blend: NaN, inverse, is no colour", Ramp, NaN, 10.0, true, QColor());
    range("blend: min equal to max is the first colour", Ramp, 77.0, 0.0, false, GreyLevel(0));
    range("blend: min equal to max, inverse, is the last colour", Ramp, 77.0, 0.0, true, GreyLevel(255));
    range("blend: min equal to max, NaN, is the first colour", Ramp, NaN, 0.0, false, GreyLevel(0));
    range("blend: a range that falls", Ramp, -2.5, -10.0, false, GreyLevel(63));
    range("blend: the inner colours are at equal distances",
          QStringLiteral("V02;3;1;0;0;100;0;0;0;#000000;#ff0000;#00ff00;#0000ff;"), 5.0, 10.0, false, Green);
    range("blend: between the last two of three",
          QStringLiteral("V02;3;1;0;0;100;0;0;0;#000000;#ff0000;#00ff00;#0000ff;"), 7.5, 10.0, false,
          QColor(0, 127, 127));
    range("blend: one colour", QStringLiteral("V02;1;1;0;0;100;0;0;0;#000000;#112233;"), 3.0, 10.0, false,
          QColor("#112233"));
    range("blend: one colour, NaN", QStringLiteral("V02;1;1;0;0;100;0;0;0;#000000;#112233;"), NaN, 10.0, false,
          QColor("#112233"));
    range("blend: the offset is added", QStringLiteral("V02;2;1;0;0;100;2.5;0;0;#000000;#000000;#ffffff;"), 0.0, 10.0,
          false, GreyLevel(63));
    range("blend: the offset can lead out of the range",
          QStringLiteral("V02;2;1;0;0;100;2.5;0;0;#000000;#000000;#ffffff;"), 8.0, 10.0, false, Grey);

    range("bands: the low end is the first", Bands, 0.0, 3.0, false, Red);
    range("bands: just below the first edge", Bands, 0.999999, 3.0, false, Red);
    range("bands: the edge belongs to the upper band", Bands, 1.0, 3.0, false, Green);
    range("bands: the last", Bands, 2.5, 3.0, false, Blue);
    range("bands: the high end is the last", Bands, 3.0, 3.0, false, Blue);
    range("bands: out of range is light grey", Bands, 3.1, 3.0, false, Grey);
    range("bands, inverse: the very bottom is the first", Bands, 0.0, 3.0, true, Red);
    range("bands, inverse: just above the bottom is the last", Bands, 0.001, 3.0, true, Blue);
    range("bands, inverse: the middle", Bands, 1.5, 3.0, true, Green);
    range("bands, inverse: just below the top is the first", Bands, 2.999, 3.0, true, Red);
    range("bands, inverse: the very top is the last", Bands, 3.0, 3.0, true, Blue);
    range("bands: min equal to max is the first", Bands, 9.0, 0.0, false, Red);
    range("bands, inverse: min equal to max is the first", Bands, 9.0, 0.0, true, Red);
    range("bands: NaN is the first", Bands, NaN, 3.0, false, Red);
    range("bands, inverse: NaN is the first", Bands, NaN, 3.0, true, Red);

    range("fixed blend: its own range counts", FixedRamp, 12.5, 1.0, false, GreyLevel(63));
    range("fixed blend: inverse", FixedRamp, 12.5, 1.0, true, GreyLevel(191));
    range("fixed blend: below is the first colour", FixedRamp, -5.0, 1.0, false, GreyLevel(0));
    range("fixed blend: below, inverse, is the last colour", FixedRamp, -5.0, 1.0, true, GreyLevel(255));
    range("fixed blend: above is the last colour", FixedRamp, 1e300, 1.0, false, GreyLevel(255));
    range("fixed blend: above, inverse, is the first colour", FixedRamp, Infinity, 1.0, true, GreyLevel(0));
    range("fixed blend: min equal to max means nothing", FixedRamp, 15.0, 0.0, false, GreyLevel(127));
    range("fixed blend: NaN is no colour", FixedRamp, NaN, 1.0, false, QColor());
    range("fixed bands: the start is the first", FixedBands, 10.0, 1.0, false, Red);
    range("fixed bands, inverse: the start is the last", FixedBands, 10.0, 1.0, true, Blue);
    range("fixed bands, inverse: just above the start is the last", FixedBands, 10.01, 1.0, true, Blue);
    range("fixed bands: an edge", FixedBands, 14.0, 1.0, false, Green);
    range("fixed bands: the stop is the last", FixedBands, 22.0, 1.0, false, Blue);
    range("fixed bands, inverse: the stop is the first", FixedBands, 22.0, 1.0, true, Red);
    range("fixed bands: NaN is the first", FixedBands, NaN, 1.0, false, Red);

    range("wrap: the start folds onto itself", Compass, 0.0, 1.0, false, Red);
    range("wrap: the stop folds onto the start", Compass, 360.0, 1.0, false, Red);
    range("wrap: two turns up", Compass, 720.0, 1.0, false, Red);
    range("wrap: one turn down", Compass, -360.0, 1.0, false, Red);
    range("wrap: just below the start is the last", Compass, -1.0, 1.0, false, Blue);
    range("wrap: a hair below the start rounds onto it", Compass, -1e-17, 1.0, false, Red);
    range("wrap: an edge one turn up", Compass, 480.0, 1.0, false, Green);
    range("wrap: many turns", Compass, 360e6 + 250.0, 1.0, false, Blue);
    range("wrap, inverse: the start is the first", Compass, 0.0, 1.0, true, Red);
    range("wrap, inverse: just above the start is the last", Compass, 1.0, 1.0, true, Blue);
    range("wrap: infinite is as NaN, the first", Compass, Infinity, 1.0, false, Red);
    range("wrap: NaN is the first", Compass, NaN, 1.0, false, Red);
    range("wrap blend: half a turn", CompassRamp, 540.0, 1.0, false, GreyLevel(127));
    range("wrap blend: NaN is no colour", CompassRamp, NaN, 1.0, false, QColor());
    range("wrap blend: minus infinite is no colour", CompassRamp, -Infinity, 1.0, false, QColor());
    range("wrap blend, inverse: a whole turn is the last colour", CompassRamp, 360.0, 1.0, true, GreyLevel(255));
    range("wrap: the offset is added before folding",
          QStringLiteral("V02;3;0;1;0;360;120;1;0;#000000;#ff0000;#00ff00;#0000ff;"), 300.0, 1.0, false, Red);
    range("fixed blend: the offset is added", QStringLiteral("V02;2;1;1;10;20;2.5;0;0;#000000;#000000;#ffffff;"), 10.0,
          1.0, false, GreyLevel(63));
    range("wrap without a fixed range does not fold", QStringLiteral("V02;2;1;0;0;10;0;1;0;#000000;#000000;#ffffff;"),
          12.0, 10.0, false, Grey);

    auto const entry = [](char const * name, double value, bool inverse, QColor const & c) {
        QTest::newRow(name) << Bands << true << value << 0.0 << 1.0 << inverse << c;
    };
    entry("index: zero", 0.0, false, Red);
    entry("index: below one half", 0.49, false, Red);
    entry("index: one half rounds up", 0.5, false, Green);
    entry("index: one", 1.0, false, Green);
    entry("index: the last", 2.0, false, Blue);
    entry("index: beyond the last", 1000.0, false, Blue);
    entry("index: negative", -3.0, false, Red);
    entry("index: a little negative", -0.7, false, Red);
    entry("index: inverse means nothing", 2.0, true, Blue);
    entry("index: more than an int holds is the first", 1e300, false, Red);
    entry("index: one more than the largest int is the first", 2147483648.0, false, Red);
    entry("index: the largest int", 2147483647.0, false, Blue);
    entry("index: infinite is the first", Infinity, false, Red);
    entry("index: NaN is the first", NaN, false, Red);
    QTest::newRow("index: the offset means nothing")
        << QStringLiteral("V02;3;0;0;0;100;2;0;0;#000000;#ff0000;#00ff00;#0000ff;") << true << 0.0 << 0.0 << 1.0
        << false << Red;
}

void tst_shadingcolorset::getColor()
{
    QFETCH(QString, line);
    QFETCH(bool, index);
    QFETCH(double, value);
    QFETCH(double, min);
    QFETCH(double, max);
    QFETCH(bool, inverse);
    QFETCH(QColor, color);
    ShadingColorSet set = SetOf(line);
    set.SetPureIndexUse(index);
    QColor const result = set.GetColor(value, min, max, inverse);
    QCOMPARE(result.isValid(), color.isValid());
    QCOMPARE(result.rgb(), color.rgb());

    double const row[9] = { value, value, value, value, value, value, value, value, value };
    QRgb out[9];
    set.GetColors(row, out, 9, min, max, inverse);
    for (QRgb const pixel : out) {
        QVERIFY(std::abs(qRed(pixel) - result.red()) <= (set.GetSmooth() ? 1 : 0));
        QVERIFY(std::abs(qGreen(pixel) - result.green()) <= (set.GetSmooth() ? 1 : 0));
        QVERIFY(std::abs(qBlue(pixel) - result.blue()) <= (set.GetSmooth() ? 1 : 0));
        QCOMPARE(qAlpha(pixel), 255);
    }
}

void tst_shadingcolorset::anOverrideIsCalledThroughTheBase()
{
    GreenSet green;
    ShadingColorSet & base = green;
    QCOMPARE(base.GetColor(0.0, 0.0, 1.0, false), Green);
}

void tst_shadingcolorset::theResultOfBlendingIsOpaque()
{
    ShadingColorSet set;
    set.SetColorNr(0, QColor(255, 0, 0, 10));
    set.SetColorNr(1, QColor(255, 0, 0, 20));
    QCOMPARE(set.GetColor(5.0, 0.0, 10.0, false).alpha(), 255);
    QCOMPARE(set.GetColor(10.0, 0.0, 10.0, false).alpha(), 20); // a colour of the list, as it stands
    double const value = 10.0;
    QRgb out = 0;
    set.GetColors(&value, &out, 1, 0.0, 10.0, false);
    QCOMPARE(qAlpha(out), 255);
}

void tst_shadingcolorset::rangeIsNormalised_data()
{
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("stop");
    QTest::addColumn<double>("newStart");
    QTest::addColumn<double>("newStop");
    QTest::newRow("in order: stays") << 1.0 << 2.0 << 1.0 << 2.0;
    QTest::newRow("stop below start: swapped") << 30.0 << -30.0 << -30.0 << 30.0;
    QTest::newRow("equal: stop becomes start + 1") << 5.0 << 5.0 << 5.0 << 6.0;
}

void tst_shadingcolorset::rangeIsNormalised()
{
    QFETCH(double, start);
    QFETCH(double, stop);
    for (bool const fixed : { false, true }) {
        ShadingColorSet set;
        set.SetFixed(fixed);
        set.SetStart(start);
        set.SetStop(stop);
        QCOMPARE(set.GetStart(), start);
        set.GetColor(0.0, 0.0, 1.0, false);
        QTEST(set.GetStart(), "newStart");
        QTEST(set.GetStop(), "newStop");
    }
}

void tst_shadingcolorset::theIndexLeavesTheRangeAlone()
{
    ShadingColorSet set;
    set.SetPureIndexUse(true);
    set.SetStart(3.0);
    set.SetStop(1.0);
    set.GetColor(0.0, 0.0, 1.0, false);
    double const value = 0.0;
    QRgb out = 0;
    set.GetColors(&value, &out, 1, 0.0, 1.0, false);
    QCOMPARE(set.GetStart(), 3.0);
    QCOMPARE(set.GetStop(), 1.0);
}

void tst_shadingcolorset::getColorNr()
{
    ShadingColorSet const set = SetOf(Bands);
    bool ok = false;
    QCOMPARE(set.GetColorNr(2, ok), Blue);
    QVERIFY(ok);
    QCOMPARE(set.GetColorNr(3, ok), Red);
    QVERIFY(!ok);
    ok = true;
    QCOMPARE(set.GetColorNr(-1, ok), Red);
    QVERIFY(!ok);
    ok = true;
    QVERIFY(!ShadingColorSet(0, true).GetColorNr(0, ok).isValid());
    QVERIFY(!ok);
}

void tst_shadingcolorset::setColorNr()
{
    ShadingColorSet set = SetOf(Bands);
    QString const before = set.GetString();
    QVERIFY(!set.SetColorNr(3, Qt::white));
    QVERIFY(!set.SetColorNr(-1, Qt::white));
    QCOMPARE(set.GetString(), before);
    QVERIFY(set.SetColorNr(2, Qt::white));
    bool ok = false;
    QCOMPARE(set.GetColorNr(2, ok), QColor(Qt::white));
}

void tst_shadingcolorset::resize()
{
    ShadingColorSet set = SetOf(Bands);
    set.Resize(5);
    QCOMPARE(set.GetVector(), (std::vector<QColor>{ Red, Green, Blue, Qt::white, Qt::white }));
    set.Resize(1);
    QCOMPARE(set.GetVector(), std::vector<QColor>{ Red });
    set.Resize(0);
    QCOMPARE(set.GetLength(), std::size_t{ 0 });
}

void tst_shadingcolorset::background()
{
    ShadingColorSet set = SetOf(Bands);
    QColor color(Qt::yellow);
    set.SetBackgroundColor(Qt::cyan, false);
    QVERIFY(!set.GetUseMinIndexBackground());
    QCOMPARE(&set.GetBackgroundColor(color), &color);
    QCOMPARE(color, QColor(Qt::yellow)); // the caller's default
    QVERIFY(set.GetString().contains(QLatin1String(";#00ffff;")));

    set.SetBackgroundColor(Qt::magenta, true);
    QVERIFY(set.GetUseMinIndexBackground());
    QVERIFY(set.GetString().contains(QLatin1String(";1;#ff00ff;"))); // stored although the flag is set
    QCOMPARE(set.GetBackgroundColor(color), Blue);
    QVERIFY(set.GetString().contains(QLatin1String(";1;#0000ff;"))); // asking copies the last colour

    set.SetBackgroundColor(Qt::magenta, false);
    set.SetUseMinIndexBackground(false);
    QVERIFY(set.GetString().contains(QLatin1String(";0;#ff00ff;")));
    set.SetUseMinIndexBackground(true);
    QVERIFY(set.GetString().contains(QLatin1String(";1;#0000ff;"))); // the setter copies the last colour
}

void tst_shadingcolorset::theBackgroundOfAnEmptyList()
{
    ShadingColorSet set(0, true);
    set.SetBackgroundColor(Qt::magenta, true);
    set.SetUseMinIndexBackground(true);
    QColor color(Qt::yellow);
    QCOMPARE(set.GetBackgroundColor(color), QColor(Qt::magenta));
}

void tst_shadingcolorset::accessors()
{
    ShadingColorSet set;
    set.SetSmooth(false);
    QVERIFY(!set.GetSmooth());
    set.SetFixed(true);
    QVERIFY(set.GetFixed());
    set.SetStart(-7.5);
    QCOMPARE(set.GetStart(), -7.5);
    set.SetStop(8.5);
    QCOMPARE(set.GetStop(), 8.5);
    set.SetOffset(0.25);
    QCOMPARE(set.GetOffset(), 0.25);
    set.SetWrap(true);
    QVERIFY(set.GetWrap());
    set.SetName(QStringLiteral("Rainbow"));
    QCOMPARE(set.GetName(), QStringLiteral("Rainbow"));
    set.SetWriteable(true);
    QVERIFY(set.GetWriteable());
}

void tst_shadingcolorset::theListIsGivenByReference()
{
    ShadingColorSet set;
    set.GetVector().push_back(Red);
    QCOMPARE(set.GetLength(), std::size_t{ 3 });
    ShadingColorSet const & constant = set;
    QCOMPARE(&constant.GetVector(), &set.GetVector());
}

void tst_shadingcolorset::textOfADefaultSet()
{
    QCOMPARE(ShadingColorSet(1, false).GetString(), QStringLiteral("V02;1;0;0;0;100;0;0;0;#000000;#000000;"));
    QCOMPARE(ShadingColorSet().GetString(), QStringLiteral("V02;2;1;0;0;100;0;0;0;#000000;#000000;#000000;"));
}

void tst_shadingcolorset::textReadBack()
{
    ShadingColorSet set = SetOf(QStringLiteral("V02;3;0;1;1;2;3;1;1;#123456;#ff0000;#00ff00;#0000ff;"));
    set.SetString(ShadingColorSet().GetString());
    QCOMPARE(set.GetString(), ShadingColorSet().GetString());
    QCOMPARE(set.GetOffset(), 0.0);
    QCOMPARE(set.GetVector(), ShadingColorSet().GetVector());
}

void tst_shadingcolorset::textOfEveryMember()
{
    ShadingColorSet set(1, false);
    set.SetColorNr(0, QColor(1, 2, 3));
    set.SetFixed(true);
    set.SetStart(-1.5);
    set.SetStop(1234567.0);
    set.SetOffset(1e-7);
    set.SetWrap(true);
    set.SetBackgroundColor(QColor("#ABCDEF"), true);
    QCOMPARE(set.GetString(), QStringLiteral("V02;1;0;1;-1.5;1.23457e+06;1e-07;1;1;#abcdef;#010203;"));
}

void tst_shadingcolorset::setString_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("printed");
    // all are read into a set with offset 7, background flag set, background #123456 and three colours
    QTest::newRow("oldest layout leaves offset and background")
        << QStringLiteral("2;0;1;0;360;1;#fe0000;#fe0077;")
        << QStringLiteral("V02;2;0;1;0;360;7;1;1;#123456;#fe0000;#fe0077;");
    QTest::newRow("V01 leaves the background") << QStringLiteral("V01;2;0;1;0;360;5;1;#fe0000;#fe0077;")
                                               << QStringLiteral("V02;2;0;1;0;360;5;1;1;#123456;#fe0000;#fe0077;");
    QTest::newRow("V02 takes both; the background as stored")
        << QStringLiteral("V02;2;0;1;0;360;5;1;1;#654321;#fe0000;#fe0077;")
        << QStringLiteral("V02;2;0;1;0;360;5;1;1;#654321;#fe0000;#fe0077;");
    QTest::newRow("fewer colours than counted: those that were there stay, new ones are white")
        << QStringLiteral("V02;4;1;0;0;1;0;0;0;#000000;#fe0077;")
        << QStringLiteral("V02;4;1;0;0;1;0;0;0;#000000;#fe0077;#00ff00;#0000ff;#ffffff;");
    QTest::newRow("more colours than counted are dropped")
        << QStringLiteral("V02;1;1;0;0;1;0;0;0;#000000;#fe0077;#fe0000;#fe0000;")
        << QStringLiteral("V02;1;1;0;0;1;0;0;0;#000000;#fe0077;");
    QTest::newRow("a negative count is none")
        << QStringLiteral("V02;-1;1;0;0;1;0;0;0;#000000;#fe0077;") << QStringLiteral("V02;0;1;0;0;1;0;0;0;#000000;");
}

void tst_shadingcolorset::setString()
{
    QFETCH(QString, line);
    ShadingColorSet set = SetOf(QStringLiteral("V02;3;0;1;1;2;7;1;1;#123456;#ff0000;#00ff00;#0000ff;"));
    set.SetString(line);
    QTEST(set.GetString(), "printed");
}

void tst_shadingcolorset::colorsBeyondTheFieldLimitStayWhite()
{
    QString line = QStringLiteral("V02;40;1;0;0;100;0;0;0;#000000;");
    for (int i = 0; i < 40; ++i)
        line += QStringLiteral("#0000%1;").arg(i + 16, 2, 16);
    ShadingColorSet const set = SetOf(line);
    QCOMPARE(set.GetLength(), std::size_t{ 40 });
    bool ok = false;
    QCOMPARE(set.GetColorNr(33, ok), QColor(0, 0, 33 + 16));
    for (int i = 34; i < 40; ++i)
        QCOMPARE(set.GetColorNr(i, ok), QColor(Qt::white));

    ShadingColorSet assigned;
    assigned = SetOf(line);
    QCOMPARE(assigned.GetLength(), std::size_t{ 40 });
    QCOMPARE(assigned.GetColorNr(34, ok), QColor(Qt::white));

    ShadingColorSet full = SetOf(line);
    QVERIFY(full.SetColorNr(34, Red));
    assigned = full;
    QCOMPARE(assigned.GetColorNr(33, ok), full.GetColorNr(33, ok));
    QCOMPARE(assigned.GetColorNr(34, ok), QColor(Qt::white));
}

void tst_shadingcolorset::aShortLineChangesNothing()
{
    ShadingColorSet set = SetOf(Bands);
    for (QString const & line :
         { QString(), QStringLiteral(";"), QStringLiteral("5;1"), QStringLiteral("V02;5"), QStringLiteral("V01;5") }) {
        set.SetString(line);
        QCOMPARE(set.GetString(), SetOf(Bands).GetString());
    }
}

void tst_shadingcolorset::aLineWithoutHeaderStillGivesAColor()
{
    ShadingColorSet set = SetOf(Bands);
    set.SetString(QStringLiteral("9;1;1;5;6;1;#abcdef")); // seven fields: one too few for the header
    QCOMPARE(set.GetLength(), std::size_t{ 3 });
    QCOMPARE(set.GetStart(), 0.0);
    QCOMPARE(set.GetVector(), (std::vector<QColor>{ QColor("#abcdef"), Green, Blue }));
}

void tst_shadingcolorset::aCopyTakesEverything()
{
    ShadingColorSet set = SetOf(QStringLiteral("V02;3;0;1;1;2;3;1;1;#123456;#ff0000;#00ff00;#0000ff;"));
    set.SetStart(1.0 / 3.0);
    set.SetColorNr(0, QColor(9, 8, 7, 6));
    set.SetName(QStringLiteral("Mine"));
    set.SetWriteable(true);
    set.SetPureIndexUse(true);
    ShadingColorSet copy(set);
    QCOMPARE(copy.GetString(), set.GetString());
    QCOMPARE(copy.GetStart(), 1.0 / 3.0);
    QCOMPARE(copy.GetVector(), set.GetVector());
    QCOMPARE(copy.GetName(), QStringLiteral("Mine"));
    QVERIFY(copy.GetWriteable());
    QCOMPARE(copy.GetColor(1.0, 0.0, 0.0, false), Green); // as an index
    copy.SetColorNr(0, Green);
    QCOMPARE(set.GetVector().at(0), QColor(9, 8, 7, 6));
}

void tst_shadingcolorset::anAssignmentPassesThroughTheText()
{
    ShadingColorSet source = SetOf(QStringLiteral("V02;3;0;1;1;2;3;1;1;#123456;#ff0000;#00ff00;#0000ff;"));
    source.SetStop(1234567.0);
    source.SetColorNr(0, QColor(9, 8, 7, 6));
    source.SetName(QStringLiteral("Theirs"));
    source.SetWriteable(true);
    source.SetPureIndexUse(true);
    ShadingColorSet target;
    target.SetName(QStringLiteral("Mine"));
    ShadingColorSet & result = (target = source);
    QCOMPARE(&result, &target);
    QCOMPARE(target.GetString(), source.GetString());
    QCOMPARE(target.GetStop(), 1234570.0);
    QCOMPARE(target.GetVector().at(0), QColor(9, 8, 7));
    QCOMPARE(target.GetName(), QStringLiteral("Mine"));
    QVERIFY(!target.GetWriteable());
    QCOMPARE(target.GetColor(1.0, 0.0, 0.0, false), QColor(9, 8, 7)); // near the low end, not entry 1
}

void tst_shadingcolorset::selfAssignment()
{
    ShadingColorSet set = SetOf(Bands);
    set.SetStop(1234567.0);
    set.SetName(QStringLiteral("Mine"));
    ShadingColorSet const & same = set;
    set = same;
    QCOMPARE(set.GetStop(), 1234570.0);
    QCOMPARE(set.GetName(), QStringLiteral("Mine"));
    QCOMPARE(set.GetVector(), (std::vector<QColor>{ Red, Green, Blue }));
}

void tst_shadingcolorset::emptyListWithoutHook()
{
    ShadingColorSet set(0, true);
    QCOMPARE(set.GetColor(1.0, 0.0, 1.0, false), QColor(Qt::black));
    set.SetPureIndexUse(true);
    QCOMPARE(set.GetColor(1.0, 0.0, 1.0, false), QColor(Qt::black));
}

void tst_shadingcolorset::emptyListCallsTheHook()
{
    hookCalls = 0;
    ShadingColorSet::SetEmptyListHook(CountHook);
    ShadingColorSet set(0, true);
    set.SetStart(5.0);
    set.SetStop(1.0);
    QCOMPARE(set.GetColor(1.0, 0.0, 1.0, false), QColor(Qt::black));
    QCOMPARE(hookCalls, 1);
    QCOMPARE(set.GetStart(), 5.0); // the range is not touched
    set.GetColor(1.0, 0.0, 1.0, false);
    QCOMPARE(hookCalls, 2);
    SetOf(Bands).GetColor(1.0, 0.0, 1.0, false);
    QCOMPARE(hookCalls, 2);
}

void tst_shadingcolorset::hookRefillsTheSetThatAsks()
{
    ShadingColorSet set(0, true);
    refilled = &set;
    ShadingColorSet::SetEmptyListHook(RefillHook);
    QCOMPARE(set.GetColor(3.0, 0.0, 3.0, false), QColor(Qt::black));
    QCOMPARE(set.GetColor(3.0, 0.0, 3.0, false), Blue);
}

void tst_shadingcolorset::hookIsNotCalledFromItself()
{
    hookCalls = 0;
    ShadingColorSet::SetEmptyListHook(AskingHook);
    ShadingColorSet set(0, true);
    QCOMPARE(set.GetColor(3.0, 0.0, 3.0, false), QColor(Qt::black));
    QCOMPARE(hookCalls, 1);
}

void tst_shadingcolorset::rowOfAnEmptyList()
{
    hookCalls = 0;
    double const values[3] = { 3.0, 3.0, 1.0 };
    QRgb out[3] = { 1, 1, 1 };
    ShadingColorSet set(0, true);
    set.GetColors(values, out, 3, 0.0, 3.0, false);
    QCOMPARE(QVector<QRgb>({ out[0], out[1], out[2] }), QVector<QRgb>(3, 0xff000000U));
    ShadingColorSet::SetEmptyListHook(CountHook);
    set.GetColors(values, out, 3, 0.0, 3.0, false);
    QCOMPARE(hookCalls, 1);

    refilled = &set;
    ShadingColorSet::SetEmptyListHook(RefillHook);
    set.GetColors(values, out, 3, 0.0, 3.0, false);
    QCOMPARE(hookCalls, 2);
    QCOMPARE(QVector<QRgb>({ out[0], out[1], out[2] }), QVector<QRgb>({ 0xff000000U, Blue.rgb(), Green.rgb() }));
    set.Resize(0);
    set.GetColors(values, out, 1, 0.0, 3.0, false);
    QCOMPARE(hookCalls, 3);
    QCOMPARE(out[0], 0xff000000U);
}

void tst_shadingcolorset::rowsFollowTheSet()
{
    ShadingColorSet set = SetOf(Bands);
    double const value = 1.5;
    auto const map = [&set, &value](double max, bool inverse) {
        QRgb out = 0;
        set.GetColors(&value, &out, 1, 0.0, max, inverse);
        return QColor(out);
    };
    QCOMPARE(map(3.0, false), Green);
    QCOMPARE(map(6.0, false), Red); // another range
    QCOMPARE(map(6.0, true), Blue); // the other way round
    QCOMPARE(map(3.0, false), Green);
    set.SetColorNr(1, Qt::cyan);
    QCOMPARE(map(3.0, false), QColor(Qt::cyan));
    set.Resize(1);
    QCOMPARE(map(3.0, false), Red);
    set.SetString(Bands);
    QCOMPARE(map(3.0, false), Green);
    set.SetOffset(1.0);
    QCOMPARE(map(3.0, false), Blue);
    set.SetOffset(0.0);
    set.SetFixed(true);
    QCOMPARE(map(3.0, false), Red); // 0 .. 100 now
    set.SetStop(2.0);
    QCOMPARE(map(3.0, false), Blue);
    set.SetStart(1.4);
    QCOMPARE(map(3.0, false), Red);
    set.SetStart(0.0);
    set.SetStop(1.25);
    set.SetWrap(true);
    QCOMPARE(map(3.0, false), Red); // 0.25 of 1.25
    set.SetPureIndexUse(true);
    QCOMPARE(map(3.0, false), Blue);
    set.SetPureIndexUse(false);
    set.SetFixed(false);
    set.SetSmooth(true);
    QCOMPARE(map(6.0, false), QColor(127, 127, 0));
}

void tst_shadingcolorset::rowsFollowALentList()
{
    ShadingColorSet set = SetOf(Bands);
    std::vector<QColor> & list = set.GetVector();
    double const value = 1.5;
    QRgb out = 0;
    set.GetColors(&value, &out, 1, 0.0, 3.0, false);
    QCOMPARE(QColor(out), Green);
    list[1] = Qt::cyan;
    set.GetColors(&value, &out, 1, 0.0, 3.0, false);
    QCOMPARE(QColor(out), QColor(Qt::cyan));
    list.clear();
    set.GetColors(&value, &out, 1, 0.0, 3.0, false);
    QCOMPARE(QColor(out), QColor(Qt::black));
}

void tst_shadingcolorset::rowsOfNothing()
{
    hookCalls = 0;
    ShadingColorSet::SetEmptyListHook(CountHook);
    ShadingColorSet empty(0, true);
    double const value = 1.0;
    QRgb out = 42;
    empty.GetColors(&value, &out, 0, 0.0, 1.0, false);
    empty.GetColors(static_cast<double const *>(nullptr), &out, 1, 0.0, 1.0, false);
    empty.GetColors(&value, nullptr, 1, 0.0, 1.0, false);
    QCOMPARE(out, QRgb{ 42 });
    QCOMPARE(hookCalls, 0);
}

void tst_shadingcolorset::rowsOfFloats()
{
    ShadingColorSet set = SetOf(Bands);
    std::vector<float> const levels{ -1.0F, 0.0F, 0.5F, 1.0F, 1.5F, 2.0F, 3.0F, 3.5F, std::nanf(""), 2.5F, 0.25F };
    std::vector<double> const values(levels.begin(), levels.end());
    std::vector<QRgb> fromFloats(levels.size());
    std::vector<QRgb> fromDoubles(levels.size());
    for (bool const smooth : { false, true }) {
        set.SetSmooth(smooth);
        set.GetColors(levels.data(), fromFloats.data(), levels.size(), 0.0, 3.0, false);
        set.GetColors(values.data(), fromDoubles.data(), values.size(), 0.0, 3.0, false);
        QCOMPARE(fromFloats, fromDoubles);
    }
}

void tst_shadingcolorset::rowsPutTheRangeInOrder()
{
    ShadingColorSet set = SetOf(FixedBands);
    set.SetStart(22.0);
    set.SetStop(10.0);
    double const value = 14.0;
    QRgb out = 0;
    set.GetColors(&value, &out, 1, 0.0, 1.0, false);
    QCOMPARE(QColor(out), Green);
    QCOMPARE(set.GetStart(), 10.0);
    QCOMPARE(set.GetStop(), 22.0);
}

void tst_shadingcolorset::aCopyMapsLikeItsSource()
{
    ShadingColorSet set = SetOf(Bands);
    double const value = 1.5;
    QRgb out = 0;
    set.GetColors(&value, &out, 1, 0.0, 3.0, false);
    ShadingColorSet copy(set);
    set.SetColorNr(1, Red);
    copy.GetColors(&value, &out, 1, 0.0, 3.0, false);
    QCOMPARE(QColor(out), Green);
    set.GetColors(&value, &out, 1, 0.0, 3.0, false);
    QCOMPARE(QColor(out), Red);
}

ORIM_CORE_TEST_MAIN(tst_shadingcolorset)
#include "tst_shadingcolorset.moc"
