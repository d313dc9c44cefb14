// SPDX-License-Identifier: MIT
#include "indexsweep.h"

#include "testmain.h"

#include <algorithm>
#include <limits>
#include <random>
#include <vector>

Q_DECLARE_METATYPE(IndexSweep::Hits)

namespace {

using Bytes = std::vector<unsigned char>;

constexpr int Guard = 64;            // bytes before and behind a picture that nobody may write
constexpr unsigned char Shade = 199; // what they hold, and the padding of rows

//! A picture of random indices with padded rows and guards about it.
struct Canvas
{
    Canvas(int width, int height, int padding, unsigned int seed)
        : m_size(width, height)
        , m_stride(width + padding)
        , m_bytes(static_cast<std::size_t>(m_stride * height + 2 * Guard), Shade)
    {
        std::mt19937 random(seed);
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                Row(y)[x] = static_cast<unsigned char>(random());
    }

    unsigned char * Bits() { return m_bytes.data() + Guard; }

    unsigned char * Row(int y) { return Bits() + y * m_stride; }

    void Fill(unsigned char index)
    {
        for (int y = 0; y < m_size.height(); ++y)
            std::fill_n(Row(y), m_size.width(), index);
    }

    QSize m_size;
    qsizetype m_stride;
    Bytes m_bytes;
};

Bytes RandomLine(int width, unsigned int seed)
{
    std::mt19937 random(seed);
    Bytes line(static_cast<std::size_t>(std::max(width, 1)));
    for (unsigned char & byte : line)
        byte = static_cast<unsigned char>(random());
    return line;
}

//! The rule, pixel by pixel.
Canvas Reference(Canvas canvas, IndexSweep::Hits const & hits, Bytes const & line)
{
    for (int y = 0; y < canvas.m_size.height(); ++y)
        for (int x = 0; x < canvas.m_size.width(); ++x)
            if (hits[canvas.Row(y)[x]])
                canvas.Row(y)[x] = line[static_cast<std::size_t>(x)];
    return canvas;
}

//! Empty when a picture swept by vectors and one swept without them are both what the rule gives, guards included.
QString Compare(Canvas const & canvas, IndexSweep::Hits const & hits, Bytes const & line)
{
    Canvas const wanted = Reference(canvas, hits, line);
    Canvas wide = canvas;
    IndexSweep::Replace(wide.Bits(), wide.m_stride, wide.m_size, hits, line.data());
    Canvas narrow = canvas;
    IndexSweep::ReplacePortable(narrow.Bits(), narrow.m_stride, narrow.m_size, hits, line.data());
    for (bool const portable : { false, true }) {
        Bytes const & given = portable ? narrow.m_bytes : wide.m_bytes;
        auto const at = std::mismatch(given.begin(), given.end(), wanted.m_bytes.begin());
        if (at.first == given.end())
            continue;
        int const offset = static_cast<int>(at.first - given.begin()) - Guard;
        return QStringLiteral("%1 instead of %2, byte %3 of %4 x %5%6")
            .arg(*at.first)
            .arg(*at.second)
            .arg(offset)
            .arg(canvas.m_stride)
            .arg(canvas.m_size.height())
            .arg(QLatin1String(portable ? " without vectors" : ""));
    }
    return {};
}

int CountOf(IndexSweep::Hits const & hits) { return static_cast<int>(std::count(hits.begin(), hits.end(), true)); }

} // namespace

class tst_indexsweep : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void hits_data();
    void hits();
    void everyWidth_data();
    void everyWidth();
    void everyIndex();
    void everyModulus();
    void theEndOfTheTable();
    void oddSets_data();
    void oddSets();
    void fewHits();
    void backgroundThatIsHit();
    void aLineOfHits();
    void copyLine_data();
    void copyLine();
    void badInput_data();
    void badInput();
};

void tst_indexsweep::hits_data()
{
    QTest::addColumn<IndexSweep::Hits>("hits");
    QTest::addColumn<QVector<int>>("in");
    QTest::addColumn<QVector<int>>("out");
    QTest::addColumn<int>("count");
    using Ints = QVector<int>;
    QTest::newRow("one index") << IndexSweep::HitOne(7) << Ints{ 7 } << Ints{ 6, 8, 15 } << 1;
    QTest::newRow("the first index") << IndexSweep::HitOne(0) << Ints{ 0 } << Ints{ 1, 255 } << 1;
    QTest::newRow("the last index") << IndexSweep::HitOne(255) << Ints{ 255 } << Ints{ 254, 0 } << 1;
    QTest::newRow("an index below all") << IndexSweep::HitOne(-1) << Ints{} << Ints{ 0, 255 } << 0;
    QTest::newRow("an index above all") << IndexSweep::HitOne(256) << Ints{} << Ints{ 0, 255 } << 0;
    QTest::newRow("every eighth") << IndexSweep::HitEvery(3, 8) << Ints{ 3, 11, 251 } << Ints{ 0, 8, 255 } << 32;
    QTest::newRow("every one") << IndexSweep::HitEvery(0, 1) << Ints{ 0, 1, 255 } << Ints{} << 256;
    QTest::newRow("a remainder of 0") << IndexSweep::HitEvery(0, 127) << Ints{ 0, 127, 254 } << Ints{ 1, 255 } << 3;
    QTest::newRow("the largest remainder") << IndexSweep::HitEvery(126, 127) << Ints{ 126, 253 } << Ints{ 0, 127 } << 2;
    QTest::newRow("a modulus beyond the table") << IndexSweep::HitEvery(9, 1 << 30) << Ints{ 9 } << Ints{ 0, 10 } << 1;
    QTest::newRow("the largest modulus") << IndexSweep::HitEvery(1000, std::numeric_limits<int>::max()) << Ints{}
                                         << Ints{ 0, 232 } << 0;
    QTest::newRow("a remainder as large as the modulus") << IndexSweep::HitEvery(8, 8) << Ints{} << Ints{ 0, 8 } << 0;
    QTest::newRow("a negative remainder") << IndexSweep::HitEvery(-1, 8) << Ints{} << Ints{ 7, 255 } << 0;
    QTest::newRow("a modulus of 0") << IndexSweep::HitEvery(0, 0) << Ints{} << Ints{ 0 } << 0;
    QTest::newRow("a negative modulus") << IndexSweep::HitEvery(0, -8) << Ints{} << Ints{ 0, 8 } << 0;
    QTest::newRow("from marker to background") << IndexSweep::HitFrom(254) << Ints{ 254, 255 } << Ints{ 253, 0 } << 2;
    QTest::newRow("from the first on") << IndexSweep::HitFrom(0) << Ints{ 0, 255 } << Ints{} << 256;
    QTest::newRow("from below the first on") << IndexSweep::HitFrom(-5) << Ints{ 0, 255 } << Ints{} << 256;
    QTest::newRow("from beyond the last on") << IndexSweep::HitFrom(256) << Ints{} << Ints{ 0, 255 } << 0;
}

void tst_indexsweep::hits()
{
    QFETCH(IndexSweep::Hits, hits);
    QFETCH(QVector<int>, in);
    QFETCH(QVector<int>, out);
    QFETCH(int, count);
    QCOMPARE(CountOf(hits), count);
    for (int const index : in)
        QVERIFY(hits[static_cast<std::size_t>(index)]);
    for (int const index : out)
        QVERIFY(!hits[static_cast<std::size_t>(index)]);
}

void tst_indexsweep::everyWidth_data()
{
    QTest::addColumn<IndexSweep::Hits>("hits");
    QTest::newRow("one block") << IndexSweep::HitOne(3);
    QTest::newRow("blocks of eight colours") << IndexSweep::HitEvery(5, 8);
    QTest::newRow("blocks of thirty colours") << IndexSweep::HitEvery(29, 30);
    QTest::newRow("marker and background") << IndexSweep::HitFrom(254);
    QTest::newRow("all indices") << IndexSweep::HitFrom(0);
    QTest::newRow("none") << IndexSweep::HitFrom(256);
}

void tst_indexsweep::everyWidth()
{
    QFETCH(IndexSweep::Hits, hits);
    for (int width = 0; width <= 70; ++width)
        for (int const padding : { 0, 1, 3, 20 })
            for (int const height : { 0, 1, 5 })
                QCOMPARE(Compare(Canvas(width, height, padding, 1U + static_cast<unsigned int>(width)), hits,
                                 RandomLine(width, 2)),
                         QString());
    for (int const width : { 127, 128, 129, 143, 144, 145, 256, 259, 383, 1920 })
        QCOMPARE(Compare(Canvas(width, 3, 2, 3), hits, RandomLine(width, 4)), QString());
}

void tst_indexsweep::everyIndex()
{
    Canvas const canvas(149, 4, 3, 5);
    Bytes const line = RandomLine(149, 6);
    for (int index = 0; index < 256; ++index)
        QCOMPARE(Compare(canvas, IndexSweep::HitOne(index), line), QString());
}

//! Every number of colours that a quality block can have, and every one of them as the oldest.
void tst_indexsweep::everyModulus()
{
    Canvas canvas(256, 1, 0, 0);
    for (int x = 0; x < 256; ++x)
        canvas.Bits()[x] = static_cast<unsigned char>(x);
    Bytes line = RandomLine(256, 7);
    for (int modulus = 1; modulus <= 256; ++modulus)
        for (int remainder = 0; remainder < modulus; remainder += modulus < 40 ? 1 : 7)
            QCOMPARE(Compare(canvas, IndexSweep::HitEvery(remainder, modulus), line), QString());
}

void tst_indexsweep::theEndOfTheTable()
{
    Canvas const canvas(300, 2, 0, 8);
    Bytes const line = RandomLine(300, 9);
    for (int first = 0; first <= 256; ++first)
        QCOMPARE(Compare(canvas, IndexSweep::HitFrom(first), line), QString());
}

void tst_indexsweep::oddSets_data()
{
    QTest::addColumn<QVector<int>>("indices");
    QTest::newRow("two neighbours across a bit") << QVector<int>{ 127, 128 };
    QTest::newRow("first and last") << QVector<int>{ 0, 255 };
    QTest::newRow("three of a square") << QVector<int>{ 0, 1, 2 };
    QTest::newRow("four of an eight") << QVector<int>{ 0, 3, 5, 6 };
    QTest::newRow("a remainder with one more") << QVector<int>{ 10, 110, 210, 211 };
    QTest::newRow("a remainder with one less") << QVector<int>{ 10, 60, 160, 210 };
    QTest::newRow("a step that starts late") << QVector<int>{ 100, 110, 120 };
    QTest::newRow("two") << QVector<int>{ 3, 203 };
}

void tst_indexsweep::oddSets()
{
    QFETCH(QVector<int>, indices);
    IndexSweep::Hits hits{};
    for (int const index : indices)
        hits[static_cast<std::size_t>(index)] = true;
    Canvas canvas(512, 1, 0, 0);
    for (int x = 0; x < 512; ++x)
        canvas.Bits()[x] = static_cast<unsigned char>(x);
    QCOMPARE(Compare(canvas, hits, RandomLine(512, 10)), QString());
    QCOMPARE(Compare(Canvas(70, 9, 1, 11), hits, RandomLine(70, 12)), QString());
}

//! One pixel that is hit, at every place of a picture that is background otherwise.
void tst_indexsweep::fewHits()
{
    Canvas canvas(150, 2, 1, 0);
    Bytes const line = RandomLine(150, 13);
    for (auto const & hits : { IndexSweep::HitOne(37), IndexSweep::HitEvery(7, 30) })
        for (int y = 0; y < 2; ++y)
            for (int x = 0; x < 150; ++x) {
                canvas.Fill(255);
                canvas.Row(y)[x] = 37;
                QCOMPARE(Compare(canvas, hits, line), QString());
            }
}

void tst_indexsweep::backgroundThatIsHit()
{
    Canvas canvas(200, 2, 0, 0);
    canvas.Fill(255);
    for (auto const & hits : { IndexSweep::HitEvery(0, 3), IndexSweep::HitEvery(15, 30), IndexSweep::HitOne(255) })
        QCOMPARE(Compare(canvas, hits, RandomLine(200, 14)), QString());
}

//! The byte that a pixel takes may be one that is hit: it stays, also where the last vector of a row overlaps.
void tst_indexsweep::aLineOfHits()
{
    Bytes line(150);
    for (std::size_t x = 0; x < line.size(); ++x)
        line[x] = x % 2 ? 37 : 7;
    for (int const width : { 5, 17, 31, 150 })
        QCOMPARE(Compare(Canvas(width, 3, 0, 15), IndexSweep::HitEvery(7, 30), line), QString());
}

void tst_indexsweep::copyLine_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("height");
    QTest::addColumn<int>("padding");
    QTest::newRow("one pixel") << 1 << 1 << 0;
    QTest::newRow("rows without padding") << 64 << 7 << 0;
    QTest::newRow("padded rows") << 61 << 5 << 3;
    QTest::newRow("no rows") << 61 << 0 << 3;
    QTest::newRow("no columns") << 0 << 4 << 4;
}

void tst_indexsweep::copyLine()
{
    QFETCH(int, width);
    QFETCH(int, height);
    QFETCH(int, padding);
    Canvas canvas(width, height, padding, 16);
    Bytes const line = RandomLine(width, 17);
    Canvas const wanted = Reference(canvas, IndexSweep::HitFrom(0), line);
    IndexSweep::CopyLine(canvas.Bits(), canvas.m_stride, canvas.m_size, line.data());
    QVERIFY(canvas.m_bytes == wanted.m_bytes);
}

void tst_indexsweep::badInput_data()
{
    QTest::addColumn<bool>("hasBits");
    QTest::addColumn<bool>("hasLine");
    QTest::addColumn<int>("bytesPerLine");
    QTest::addColumn<QSize>("size");
    QTest::newRow("no picture") << false << true << 40 << QSize(40, 4);
    QTest::newRow("no line") << true << false << 40 << QSize(40, 4);
    QTest::newRow("rows that overlap") << true << true << 39 << QSize(40, 4);
    QTest::newRow("rows that go back") << true << true << -40 << QSize(40, 4);
    QTest::newRow("a negative width") << true << true << 40 << QSize(-1, 4);
    QTest::newRow("a negative height") << true << true << 40 << QSize(40, -4);
    QTest::newRow("an invalid size") << true << true << 40 << QSize();
}

void tst_indexsweep::badInput()
{
    QFETCH(bool, hasBits);
    QFETCH(bool, hasLine);
    QFETCH(int, bytesPerLine);
    QFETCH(QSize, size);
    Canvas canvas(40, 4, 0, 18);
    Canvas const before = canvas;
    Bytes const line = RandomLine(40, 19);
    unsigned char * const bits = hasBits ? canvas.Bits() : nullptr;
    unsigned char const * const from = hasLine ? line.data() : nullptr;
    IndexSweep::Replace(bits, bytesPerLine, size, IndexSweep::HitFrom(0), from);
    IndexSweep::ReplacePortable(bits, bytesPerLine, size, IndexSweep::HitFrom(0), from);
    IndexSweep::CopyLine(bits, bytesPerLine, size, from);
    QVERIFY(canvas.m_bytes == before.m_bytes);
}

ORIM_CORE_TEST_MAIN(tst_indexsweep)

#include "tst_indexsweep.moc"
