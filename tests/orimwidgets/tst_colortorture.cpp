// SPDX-License-Identifier: MIT
// Special doubles as every number that a colour set takes, two at a time: no undefined conversion, no long call, and
// rows that agree with single colours.

#include "shadingcolorset.h"

#include "testmain.h"

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <limits>
#include <vector>

namespace {

std::vector<double> SpecialDoubles()
{
    double const infinity = std::numeric_limits<double>::infinity();
    std::vector<double> positive{ 0.0,
                                  DBL_TRUE_MIN,
                                  DBL_MIN,
                                  DBL_EPSILON,
                                  1e-300,
                                  1e-9,
                                  0.1,
                                  0.5,
                                  1.0,
                                  2.0,
                                  3.0,
                                  99.0,
                                  100.0,
                                  255.0,
                                  360.0,
                                  1e4,
                                  1e13,
                                  1e13 + 1e-3,
                                  1e15,
                                  1e18,
                                  1e300,
                                  DBL_MAX,
                                  infinity,
                                  0x1p31 - 1,
                                  0x1p31,
                                  0x1p31 + 1,
                                  0x1p53 - 1,
                                  0x1p53,
                                  0x1p53 + 2,
                                  0x1p63,
                                  std::nextafter(1.0, 0.0),
                                  std::nextafter(1.0, 2.0),
                                  std::nextafter(100.0, 0.0),
                                  std::nextafter(100.0, 200.0),
                                  std::nextafter(360.0, 0.0) };
    std::vector<double> all(positive);
    for (double const value : positive)
        all.push_back(-value);
    all.push_back(std::numeric_limits<double>::quiet_NaN());
    all.push_back(-std::numeric_limits<double>::quiet_NaN());
    return all;
}

//! The numbers that a colour depends on.
enum ENumber
{
    eValue,
    eMin,
    eMax,
    eStart,
    eStop,
    eOffset,
    eNumbers
};

struct Call
{
    double m_numbers[eNumbers] = { 42.0, 0.0, 100.0, 0.0, 100.0, 0.0 };
};

int Distance(QColor const & color, QRgb pixel)
{
    return std::max({ std::abs(color.red() - qRed(pixel)), std::abs(color.green() - qGreen(pixel)),
                      std::abs(color.blue() - qBlue(pixel)) });
}

} // namespace

class tst_colortorture : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void initTestCase() { m_specials = SpecialDoubles(); }

    void everyPairOfNumbers_data();
    void everyPairOfNumbers();
    void cleanupTestCase();

private:
    void Try(ShadingColorSet & set, Call const & call, bool inverse);

    std::vector<double> m_specials;
    long long m_calls = 0;
    long long m_longest = 0; // us
};

void tst_colortorture::everyPairOfNumbers_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<bool>("smooth");
    char const * const modes[] = { "caller's range", "fixed", "wrap", "index" };
    for (int mode = 0; mode < 4; ++mode)
        for (bool const smooth : { false, true })
            QTest::addRow("%s, %s", modes[mode], smooth ? "blended" : "bands") << mode << smooth;
}

void tst_colortorture::Try(ShadingColorSet & set, Call const & call, bool inverse)
{
    double const * const n = call.m_numbers;
    set.SetStart(n[eStart]);
    set.SetStop(n[eStop]);
    set.SetOffset(n[eOffset]);
    std::clock_t const begin = std::clock(); // of this process: others may hold the processor
    QColor const single = set.GetColor(n[eValue], n[eMin], n[eMax], inverse);
    QRgb pixel = 0;
    set.GetColors(&n[eValue], &pixel, 1, n[eMin], n[eMax], inverse);
    m_longest = std::max(m_longest, (std::clock() - begin) * 1'000'000LL / CLOCKS_PER_SEC);
    m_calls += 2;
    if (Distance(single, pixel) > (set.GetSmooth() ? 1 : 0))
        QFAIL(qPrintable(QStringLiteral("value %1, range %2 .. %3, own %4 .. %5, offset %6")
                             .arg(n[eValue], 0, 'g', 17)
                             .arg(n[eMin], 0, 'g', 17)
                             .arg(n[eMax], 0, 'g', 17)
                             .arg(n[eStart], 0, 'g', 17)
                             .arg(n[eStop], 0, 'g', 17)
                             .arg(n[eOffset], 0, 'g', 17)));
}

void tst_colortorture::everyPairOfNumbers()
{
    QFETCH(int, mode);
    QFETCH(bool, smooth);
    ShadingColorSet set;
    set.SetString(QStringLiteral("V02;5;0;0;0;100;0;0;0;#000000;#ff0000;#00ff00;#0000ff;#ffffff;#102030;"));
    set.SetSmooth(smooth);
    set.SetFixed(mode == 1 || mode == 2);
    set.SetWrap(mode == 2);
    set.SetPureIndexUse(mode == 3);
    for (int a = 0; a < eNumbers; ++a)
        for (int b = a + 1; b < eNumbers; ++b)
            for (std::size_t i = 0; i < m_specials.size(); ++i)
                for (std::size_t k = 0; k < m_specials.size(); ++k) {
                    Call call;
                    call.m_numbers[a] = m_specials[i];
                    call.m_numbers[b] = m_specials[k];
                    Try(set, call, i % 2 == 0);
                    if (QTest::currentTestFailed())
                        return;
                }
    QVERIFY(!set.GetString().isEmpty());
}

void tst_colortorture::cleanupTestCase()
{
    std::printf("figures: %d special doubles, %lld calls, longest pair of calls %lld us\n",
                static_cast<int>(m_specials.size()), m_calls, m_longest);
    QVERIFY(m_longest <= 10000);
}

ORIM_CORE_TEST_MAIN(tst_colortorture)
#include "tst_colortorture.moc"
