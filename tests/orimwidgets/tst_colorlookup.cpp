// SPDX-License-Identifier: MIT
#include "colorlookup.h"

#include "testmain.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

namespace {

constexpr double NaN = std::numeric_limits<double>::quiet_NaN();
constexpr double Infinity = std::numeric_limits<double>::infinity();

struct Reading
{
    ColorRule rule;
    double min = 0.0;
    double max = 1.0;
    bool inverse = false;

    double Low() const { return rule.fixed ? rule.start : min; }

    double High() const { return rule.fixed ? rule.stop : max; }
};

std::vector<QRgb> RandomColors(int length, std::uint64_t seed)
{
    std::mt19937_64 random(seed);
    std::vector<QRgb> colors(static_cast<std::size_t>(length));
    for (QRgb & color : colors)
        color = 0xff000000U | (static_cast<QRgb>(random()) & 0xffffffU);
    return colors;
}

//! The rule, value by value.
std::vector<QRgb> Reference(Reading const & reading, std::vector<QRgb> const & colors,
                            std::vector<double> const & values)
{
    std::vector<QRgb> out;
    out.reserve(values.size());
    for (double const value : values)
        out.push_back(PickedRgb(
            PickColor(reading.rule, static_cast<int>(colors.size()), value, reading.min, reading.max, reading.inverse),
            colors.data()));
    return out;
}

int Distance(QRgb a, QRgb b)
{
    return std::max({ std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)), std::abs(qBlue(a) - qBlue(b)) });
}

//! Whether every value has its colour within \a tolerance, by vectors, without them, and from the first entry on.
QString Compare(Reading const & reading, std::vector<QRgb> const & colors, std::vector<double> const & values,
                int tolerance)
{
    ColorLookup lookup;
    lookup.SetColors(colors);
    lookup.Prepare(reading.rule, reading.min, reading.max, reading.inverse);
    std::vector<QRgb> const wanted = Reference(reading, colors, values);
    std::vector<QRgb> out(values.size());
    for (bool const portable : { false, true }) {
        std::fill(out.begin(), out.end(), 0U);
        if (portable)
            lookup.MapPortable(values.data(), out.data(), values.size());
        else
            lookup.Map(values.data(), out.data(), values.size());
        for (std::size_t i = 0; i < values.size(); ++i)
            if (Distance(out[i], wanted[i]) > tolerance || qAlpha(out[i]) != 255)
                return QStringLiteral("%1 gives %2 instead of %3%4")
                    .arg(values[i], 0, 'g', 17)
                    .arg(out[i], 8, 16)
                    .arg(wanted[i], 8, 16)
                    .arg(QLatin1String(portable ? " without vectors" : ""));
    }
    return {};
}

Reading ReadingOf(QString const & mode)
{
    Reading reading;
    reading.rule.start = -30.0;
    reading.rule.stop = 330.0;
    reading.min = -117.3;
    reading.max = -20.1;
    reading.rule.fixed = mode == QLatin1String("fixed") || mode == QLatin1String("wrap");
    reading.rule.wrap = mode == QLatin1String("wrap");
    reading.rule.pureIndex = mode == QLatin1String("index");
    if (mode == QLatin1String("falling"))
        std::swap(reading.min, reading.max);
    if (mode == QLatin1String("offset"))
        reading.rule.offset = 13.7;
    return reading;
}

void AddModes()
{
    QTest::addColumn<QString>("mode");
    QTest::addColumn<int>("length");
    QTest::addColumn<bool>("smooth");
    QTest::addColumn<bool>("inverse");
    for (char const * const mode : { "plain", "falling", "offset", "fixed", "wrap", "index" })
        for (int const length : { 1, 2, 3, 20, 34, 180, 255 })
            for (bool const smooth : { false, true })
                for (bool const inverse : { false, true })
                    QTest::addRow("%s, %d colours, %s%s", mode, length, smooth ? "blended" : "bands",
                                  inverse ? ", inverse" : "")
                        << QString::fromLatin1(mode) << length << smooth << inverse;
}

void AddNeighbours(std::vector<double> & values, double value)
{
    values.push_back(std::nextafter(value, -Infinity));
    values.push_back(value);
    values.push_back(std::nextafter(value, Infinity));
}

} // namespace

class tst_colorlookup : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void everyEdgeIsExact_data() { AddModes(); }

    void everyEdgeIsExact();

    void theEndsAreExact_data() { AddModes(); }

    void theEndsAreExact();

    void randomValues_data() { AddModes(); }

    void randomValues();
    void oddRanges_data();
    void oddRanges();
    void longLists_data();
    void longLists();
    void equalNeighbours();
    void theTableGrowsWithTheSet();
    void theTableIsKept();
    void everyCountIsColoured();
    void floats();
    void singleColour();
};

void tst_colorlookup::everyEdgeIsExact()
{
    QFETCH(QString, mode);
    QFETCH(int, length);
    QFETCH(bool, smooth);
    QFETCH(bool, inverse);
    Reading reading = ReadingOf(mode);
    reading.rule.smooth = smooth;
    reading.inverse = inverse;
    std::vector<double> values;
    double const extent = reading.High() - reading.Low();
    for (int turn = reading.rule.wrap ? -3 : 0; turn <= (reading.rule.wrap ? 3 : 0); ++turn)
        for (int edge = 0; edge <= length; ++edge) {
            double const value = reading.Low() + turn * extent + extent * edge / length - reading.rule.offset;
            AddNeighbours(values, value);
            // the double at which the band really changes lies some spacings off
            double below = value;
            double above = value;
            for (int i = 0; i < 8; ++i) {
                values.push_back(below = std::nextafter(below, -Infinity));
                values.push_back(above = std::nextafter(above, Infinity));
            }
        }
    if (mode == QLatin1String("index"))
        for (int entry = -2; entry <= length + 2; ++entry) {
            AddNeighbours(values, entry);
            AddNeighbours(values, entry - 0.5);
        }
    bool const blends = smooth && mode != QLatin1String("index") && length > 1;
    QString const difference = Compare(reading, RandomColors(length, 7), values, blends ? 1 : 0);
    QVERIFY2(difference.isEmpty(), qPrintable(difference));
}

void tst_colorlookup::theEndsAreExact()
{
    QFETCH(QString, mode);
    QFETCH(int, length);
    QFETCH(bool, smooth);
    QFETCH(bool, inverse);
    Reading reading = ReadingOf(mode);
    reading.rule.smooth = smooth;
    reading.inverse = inverse;
    std::vector<double> values{ NaN,          Infinity,     -Infinity,    1e300,         -1e300,
                                1e18,         -1e18,        0.0,          -0.0,          5e-324,
                                2147483647.0, 2147483647.5, 2147483648.0, -2147483648.0, -2147483649.0 };
    double const extent = reading.High() - reading.Low();
    for (double const end : { reading.Low() - reading.rule.offset, reading.High() - reading.rule.offset }) {
        AddNeighbours(values, end);
        if (reading.rule.wrap)
            continue; // folded, they are values inside
        for (double const outside : { 1e-9, 0.001, 0.1, 1.0, 2.0, 1e6 })
            values.push_back(end + (end > reading.Low() + extent / 2 - reading.rule.offset ? outside : -outside) *
                                       std::fabs(extent));
    }
    if (mode == QLatin1String("falling")) // outside lies on the other sides
        for (double const outside : { 1e-9, 0.001, 0.1, 1.0, 2.0, 1e6 }) {
            values.push_back(reading.Low() + outside * std::fabs(extent));
            values.push_back(reading.High() - outside * std::fabs(extent));
        }
    std::vector<double> shuffled = values;
    std::shuffle(shuffled.begin(), shuffled.end(), std::mt19937_64(TestStage::Seed()));
    values.insert(values.end(), shuffled.begin(), shuffled.end());
    auto const inside = [&reading](double value) {
        double const t = (value + reading.rule.offset - reading.Low()) / (reading.High() - reading.Low());
        return (t > 0.0 && t < 1.0) || (reading.rule.wrap && std::isfinite(value));
    };
    // at and beyond the ends, and for NaN, blended sets are exact too
    if (smooth)
        values.erase(std::remove_if(values.begin(), values.end(), inside), values.end());
    QString const difference = Compare(reading, RandomColors(length, 8), values, 0);
    QVERIFY2(difference.isEmpty(), qPrintable(difference));
}

void tst_colorlookup::randomValues()
{
    QFETCH(QString, mode);
    QFETCH(int, length);
    QFETCH(bool, smooth);
    QFETCH(bool, inverse);
    Reading reading = ReadingOf(mode);
    reading.rule.smooth = smooth;
    reading.inverse = inverse;
    std::mt19937_64 random(TestStage::Seed() + static_cast<unsigned>(length));
    double const extent = reading.High() - reading.Low();
    double const margin = reading.rule.wrap ? 10.0 * extent : 0.1 * extent;
    double const first = reading.rule.pureIndex ? -2.0 : reading.Low() - margin;
    double const last = reading.rule.pureIndex ? length + 2.0 : reading.High() + margin;
    std::uniform_real_distribution<double> uniform(std::min(first, last), std::max(first, last));
    bool const listed = length == 2 || length == 20 || length == 34 || length == 180 || length == 255;
    long long const million = listed && mode == QLatin1String("plain") && !inverse ? 1'000'000 : 20'000;
    std::vector<double> values(
        static_cast<std::size_t>(TestStage::Turns(TestStage::Sanitized() ? million / 10 : million, million)));
    for (double & value : values)
        value = uniform(random) - reading.rule.offset;
    bool const blends = smooth && !reading.rule.pureIndex;
    QString const difference = Compare(reading, RandomColors(length, 9), values, blends ? 1 : 0);
    QVERIFY2(difference.isEmpty(), qPrintable(difference));
}

void tst_colorlookup::oddRanges_data()
{
    QTest::addColumn<double>("low");
    QTest::addColumn<double>("high");
    QTest::addColumn<double>("offset");
    QTest::newRow("far from zero") << 1e15 << 1e15 + 100.0 << 0.0;
    QTest::newRow("one spacing wide") << 1.0 << std::nextafter(1.0, 2.0) << 0.0;
    QTest::newRow("denormal") << 0.0 << 5e-324 << 0.0;
    QTest::newRow("as wide as doubles go") << -1e308 << 1e308 << 0.0;
    QTest::newRow("almost as wide") << -1e307 << 1e307 << 0.0;
    QTest::newRow("an infinite end") << 0.0 << Infinity << 0.0;
    QTest::newRow("NaN as an end") << NaN << 1.0 << 0.0;
    QTest::newRow("a huge offset") << 0.0 << 1.0 << 1e300;
    QTest::newRow("an infinite offset") << 0.0 << 1.0 << Infinity;
    QTest::newRow("NaN as offset") << 0.0 << 1.0 << NaN;
    QTest::newRow("an offset that rounds") << 0.0 << 1.0 << 1e16;
    QTest::newRow("tenths") << 0.1 << 0.7 << 0.05;
}

void tst_colorlookup::oddRanges()
{
    QFETCH(double, low);
    QFETCH(double, high);
    QFETCH(double, offset);
    std::vector<double> values{ NaN, Infinity, -Infinity, 0.0, 5e-324, -5e-324, 1e308, -1e308, 1e15, 1e16, -1e16 };
    for (int i = -20; i <= 40; ++i)
        AddNeighbours(values, low + (high - low) * i / 20.0 - offset);
    for (int const mode : { 0, 1, 2 })
        for (bool const smooth : { false, true })
            for (bool const inverse : { false, true }) {
                Reading reading;
                reading.rule = { smooth, mode > 0, mode > 1, false, low, high, offset };
                reading.min = low;
                reading.max = high;
                reading.inverse = inverse;
                QString const difference = Compare(reading, RandomColors(5, 10), values, smooth ? 1 : 0);
                QVERIFY2(difference.isEmpty(), qPrintable(difference));
            }
}

void tst_colorlookup::longLists_data()
{
    QTest::addColumn<int>("length");
    QTest::newRow("5,000 colours") << 5000;
    QTest::newRow("65,536 colours") << 65536;
    QTest::newRow("too long for a table of blends") << 70000;
    QTest::newRow("too long for a table of bands") << 1100000;
}

void tst_colorlookup::longLists()
{
    QFETCH(int, length);
    std::mt19937_64 random(TestStage::Seed());
    std::uniform_real_distribution<double> uniform(-0.1, 1.1);
    std::vector<double> values(20000);
    for (double & value : values)
        value = uniform(random);
    for (bool const smooth : { false, true }) {
        Reading reading;
        reading.rule.smooth = smooth;
        QString const difference = Compare(reading, RandomColors(length, 11), values, smooth ? 1 : 0);
        QVERIFY2(difference.isEmpty(), qPrintable(difference));
    }
}

void tst_colorlookup::equalNeighbours()
{
    std::vector<QRgb> colors(180, 0xff102030U);
    colors[90] = 0xff405060U;
    Reading reading;
    reading.rule.smooth = false;
    std::vector<double> values;
    for (int i = 0; i <= 1800; ++i)
        AddNeighbours(values, i / 1800.0);
    QString const difference = Compare(reading, colors, values, 0);
    QVERIFY2(difference.isEmpty(), qPrintable(difference));
}

void tst_colorlookup::theTableGrowsWithTheSet()
{
    auto const tableOf = [](int length, bool smooth) {
        ColorLookup lookup;
        lookup.SetColors(RandomColors(length, 12));
        ColorRule rule;
        rule.smooth = smooth;
        lookup.Prepare(rule, 0.0, 1.0, false);
        return lookup.GetTableSize();
    };
    QVERIFY(tableOf(2, true) >= 1024);
    QVERIFY(tableOf(255, true) > tableOf(34, true));
    QVERIFY(tableOf(255, true) >= 254 * 127);                         // two levels of a channel a cell
    QVERIFY(tableOf(255, false) >= 255 && tableOf(255, false) < 300); // an entry a band
    QVERIFY(tableOf(65536, false) <= 300000);                         // bounded
    QCOMPARE(tableOf(1100000, false), std::size_t{ 0 });
    QCOMPARE(tableOf(65536, true), std::size_t{ 0 });
    QVERIFY(tableOf(1, true) > 0);
}

void tst_colorlookup::theTableIsKept()
{
    ColorLookup lookup;
    std::vector<QRgb> const colors{ 0xff000000U, 0xffffffffU };
    lookup.SetColors(colors);
    ColorRule rule;
    double const value = 0.75;
    QRgb out = 0;
    auto const map = [&] {
        lookup.Map(&value, &out, 1);
        return qRed(out);
    };
    lookup.Prepare(rule, 0.0, 1.0, false);
    QVERIFY(std::abs(map() - 191) <= 1);
    lookup.Prepare(rule, 0.5, 1.0, false); // only the range moved
    QVERIFY(std::abs(map() - 127) <= 1);
    lookup.Prepare(rule, 0.75, 0.75, false);
    QCOMPARE(lookup.GetTableSize(), std::size_t{ 0 });
    QCOMPARE(map(), 0);
    lookup.Prepare(rule, 0.0, 1.0, true);
    QVERIFY(std::abs(map() - 63) <= 1);
    lookup.SetColors({ 0xffffffffU, 0xff000000U });
    lookup.Prepare(rule, 0.0, 1.0, true);
    QVERIFY(std::abs(map() - 191) <= 1);
    QCOMPARE(lookup.GetColors(), (std::vector<QRgb>{ 0xffffffffU, 0xff000000U }));
}

void tst_colorlookup::everyCountIsColoured()
{
    ColorLookup lookup;
    lookup.SetColors(RandomColors(20, 13));
    ColorRule rule;
    rule.smooth = false;
    lookup.Prepare(rule, 0.0, 40.0, false);
    std::vector<double> values(40);
    for (std::size_t i = 0; i < values.size(); ++i)
        values[i] = static_cast<double>(i) + 0.5;
    for (std::size_t count = 0; count <= values.size(); ++count) {
        std::vector<QRgb> out(values.size() + 1, 0x12345678U);
        lookup.Map(values.data(), out.data(), count);
        for (std::size_t i = 0; i < out.size(); ++i)
            QCOMPARE(out[i], i < count ? lookup.GetColors()[i / 2] : 0x12345678U);
    }
}

void tst_colorlookup::floats()
{
    Reading const reading = ReadingOf(QStringLiteral("plain"));
    std::vector<float> levels;
    for (int i = 0; i <= 1000; ++i)
        levels.push_back(-120.0F + 0.11F * static_cast<float>(i));
    std::vector<double> const values(levels.begin(), levels.end());
    for (bool const smooth : { false, true }) {
        ColorRule rule = reading.rule;
        rule.smooth = smooth;
        ColorLookup lookup;
        lookup.SetColors(RandomColors(34, 14));
        lookup.Prepare(rule, reading.min, reading.max, false);
        std::vector<QRgb> fromFloats(levels.size());
        std::vector<QRgb> fromDoubles(levels.size());
        lookup.Map(levels.data(), fromFloats.data(), levels.size());
        lookup.Map(values.data(), fromDoubles.data(), values.size());
        QCOMPARE(fromFloats, fromDoubles);
    }
}

void tst_colorlookup::singleColour()
{
    Reading reading;
    reading.min = 5.0;
    reading.max = 5.0;
    for (bool const inverse : { false, true })
        for (bool const smooth : { false, true }) {
            reading.inverse = inverse;
            reading.rule.smooth = smooth;
            QString const difference =
                Compare(reading, RandomColors(4, 15), { 5.0, 4.0, NaN, Infinity, 1.0, 2.0, 3.0, 4.0, 5.0 }, 0);
            QVERIFY2(difference.isEmpty(), qPrintable(difference));
        }
}

ORIM_CORE_TEST_MAIN(tst_colorlookup)
#include "tst_colorlookup.moc"
