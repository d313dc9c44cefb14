// SPDX-License-Identifier: MIT
// Numbers at which computations break, two at a time, as every number that an ageing picture takes; and pictures that
// are made, used and deleted over and over.

#include "agedimageaccess.h"
#include "axisbase.h"
#include "krexception.h"
#include "testmain.h"
#include "valueagedimage.h"
#include "valueselection.h"

#include <QFile>

#include <unistd.h>

#include <algorithm>
#include <climits>
#include <cstdio>
#include <ctime>
#include <iterator>
#include <vector>

namespace {

constexpr int Specials[] = { INT_MIN,  INT_MIN + 1, -2147483, -1000000,    -65537, -65536, -65535,  -32769,  -32768,
                             -1275,    -256,        -255,     -254,        -128,   -30,    -8,      -4,      -2,
                             -1,       0,           1,        2,           3,      4,      5,       7,       8,
                             9,        19,          20,       21,          25,     29,     30,      31,      63,
                             64,       100,         127,      128,         253,    254,    255,     256,     257,
                             639,      640,         1000,     1270,        1274,   1275,   1276,    4095,    4096,
                             8192,     32767,       32768,    65535,       65536,  65537,  1000000, 2147483, 2147484,
                             16777215, 1 << 25,     1 << 30,  INT_MAX - 1, INT_MAX };

constexpr unsigned long long Times[] = { 0,
                                         1,
                                         999,
                                         1000,
                                         1001,
                                         999999,
                                         1000000,
                                         2147483647,
                                         2147483648,
                                         4294967295,
                                         4294967296,
                                         2147483647000,
                                         2147483648000,
                                         1760000000000000,
                                         9007199254740993,
                                         9223372036854775807ULL,
                                         9223372036854775808ULL,
                                         18446744073709551615ULL };

constexpr long long LargestMade = 1 << 25; // pixels; larger ones take more time and memory than they show

//! Memory of this process that is in use, KiB.
long long ResidentSize()
{
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    return file.readAll().split(' ').value(1).toLongLong() * sysconf(_SC_PAGESIZE) / 1024;
}

} // namespace

class tst_AgedImageTorture : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void everyPairOfNumbers();
    void everySize();
    void leavesNothingBehind();
    void cleanupTestCase();

private:
    //! Calls, and lets the exception pass that a setting which does not fit gives.
    template <class Function>
    void Call(Function function);
    void Use(AgedImageAccess & image, int a, int b);
    void Turn(ValueAgedImage & driver, ValueSelection & steps, AxisBase & axis, int number);

    std::vector<unsigned char> m_bytes = std::vector<unsigned char>(1 << 16);
    long long m_calls = 0;
    long long m_refused = 0;
    long long m_longest = 0; // us
    long long m_largest = 0; // pixels
    long long m_pictures = 0;
    long long m_growth = 0; // KiB
};

template <class Function>
void tst_AgedImageTorture::Call(Function function)
{
    ++m_calls;
    std::clock_t const begin = std::clock(); // of this process: others may hold the processor
    try {
        function();
    } catch (KRException const & exception) {
        ++m_refused;
        QCOMPARE(exception.GetCode(), 0xffffffffU);
    }
    m_longest = std::max(m_longest, (std::clock() - begin) * 1000000LL / CLOCKS_PER_SEC);
}

//! What is left of a picture that was given two numbers works, and none of its pixels leaves the palette.
void tst_AgedImageTorture::Use(AgedImageAccess & image, int a, int b)
{
    Call([&] { image.SetPixel(a, b, b); });
    Call([&] { image.SetPixel(b & 7, a & 3, a); });
    Call([&] { image.SetPixel(QPoint(b, a), a); });
    std::fill_n(m_bytes.begin(), 32, static_cast<unsigned char>(a));
    Call([&] { image.SetPixel(m_bytes.data(), static_cast<unsigned int>(b)); });
    if (b <= static_cast<int>(m_bytes.size()))
        Call([&] { image.SetPixel(m_bytes.data(), a, b, b); });
    Call([&] { image.Clear(static_cast<unsigned char>(b)); });
    Call([&] { image.SwitchColors(); });
    QVERIFY(image.Count() >= 0 && image.Count() <= 254);
    QVERIFY(image.Position() >= 0 && image.Position() <= std::max(image.Count() - 1, 0));
    QVERIFY(image.Current() >= 0 && image.Current() <= std::max(image.Count() - 1, 0));
    QCOMPARE(image.GetImage()->size(), QSize(8, 4));
}

void tst_AgedImageTorture::everyPairOfNumbers()
{
    for (int const a : Specials) {
        AxisBase axis;
        for (int const b : Specials) {
            AgedImageAccess image(8, 4);
            image.SetAgeingAxis(&axis);
            Call([&] { image.SetQualitySteps(a); });
            Use(image, a, b);
            Call([&] { image.SetSteps(b); });
            Use(image, a, b);
            Call([&] { image.SetSteps(b); }); // with the sections of the first time
            Use(image, b, a);
            Call([&] { image.SetHoldTime(a, b, 4); });
            Call([&] { image.SetHoldTime(a, 2, b); });
            Call([&] { image.SetHoldTime(4, a, b); });
            Use(image, a, b);
            Call([&] { image.Initialize(8, 4, a, b, 4, a); });
            Call([&] { image.Initialize(8, 4, 4, a, b, b); });
            Use(image, b, a);
            for (unsigned long long const time : Times)
                Call([&] { image.SetCurrentTime(time + static_cast<unsigned int>(a)); });
            Use(image, b, b);
            if (QTest::currentTestFailed())
                return;
        }
    }
    QVERIFY(m_refused > 0);
    if (!TestStage::Sanitized())
        QVERIFY(m_longest <= 10000);
}

void tst_AgedImageTorture::everySize()
{
    AgedImageAccess image;
    for (int const width : Specials)
        for (int const height : Specials) {
            bool const isTaken =
                width > 0 && height > 0 && static_cast<long long>(width) * height <= AgedImage::m_sMostPixels;
            long long const pixels = isTaken ? static_cast<long long>(width) * height : 0;
            // of the large ones, which take their time, every seventh is made
            if (pixels > LargestMade || (pixels > 1 << 20 && (width + height) % 7 != 0))
                continue;
            image.resize(width, height);
            QCOMPARE(image.GetImage() && image.GetImage()->size() == QSize(width, height), isTaken);
            image.ensureSize(width, height);
            m_largest = std::max(m_largest, pixels);
        }
    QVERIFY(m_largest > 1 << 20);
}

//! One display that comes, is used and goes.
void tst_AgedImageTorture::Turn(ValueAgedImage & driver, ValueSelection & steps, AxisBase & axis, int number)
{
    CountingClient client;
    LineServer server("\xfe\xff");
    AgedImageAccess image(&client, number % 2 == 0);
    image.SetAgeingAxis(&axis);
    image.Initialize(16, 8, 4, 2, 4, number % 3 + 1);
    image.SetAgeingSteps_ValuePath(steps.GetPathName());
    image.Set_ValuePath(driver.GetPathName());
    if (number % 4 == 0)
        image.SetBackgroundColorObject(&server);
    for (int i = 0; i < 12; ++i) {
        image.SetPixel(i, i % 8, i);
        image.SetCurrentTime(1000000ULL + static_cast<unsigned int>(i) * 600000ULL);
    }
    image.Tick(image.UpdateTimer());
    image.resize(8 + number % 5, 8);
    image.ResetBackground();
    QCOMPARE(client.m_asked, 1);
}

void tst_AgedImageTorture::leavesNothingBehind()
{
    auto * const driver = PlantAged<ValueAgedImage>("driver");
    auto * const steps = PlantAged<ValueSelection>("steps");
    steps->AddItem(SelectionItem(QStringLiteral("9 s"), 9.0, 9));
    steps->Select(9L, nullptr);
    AxisBase axis;
    long long const turns = TestStage::Turns(20000, 2000000);
    for (int i = 0; i < 2000; ++i) // warm up
        Turn(*driver, *steps, axis, i);
    long long const before = ResidentSize();
    for (long long i = 0; i < turns; ++i)
        Turn(*driver, *steps, axis, static_cast<int>(i % 1000000));
    long long const growth = ResidentSize() - before;
    m_pictures = turns;
    m_growth = growth;
    QCOMPARE(driver->GetObserverCount(), 0);
    QCOMPARE(steps->GetObserverCount(), 0);
    QVERIFY(!driver->GetApplyAgedImage());
    if (!TestStage::Sanitized()) // the sanitizers keep what was freed
        QVERIFY2(growth <= 256, QByteArray::number(growth).constData());
    Tree::Instance()->RemoveFolder(QStringLiteral("/aged"));
}

void tst_AgedImageTorture::cleanupTestCase()
{
    std::printf("figures: numbers=%d calls=%lld refused=%lld longest_us=%lld largest_pixels=%lld pictures=%lld "
                "growth_kib=%lld\n",
                static_cast<int>(std::size(Specials)), m_calls, m_refused, m_longest, m_largest, m_pictures, m_growth);
}

ORIM_TEST_MAIN(tst_AgedImageTorture)
#include "tst_agedimage_torture.moc"
