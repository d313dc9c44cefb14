// SPDX-License-Identifier: MIT
// A time axis and its range display while the clock of the computer jumps and its time zone changes.

#include "axisprobe.h"

#include "axisrangedisplay.h"
#include "guibase.h"
#include "testmain.h"
#include "valueselection.h"
#include "vclabel.h"

#include <QDateTime>

#include <cstdio>
#include <ctime>
#include <random>
#include <sys/syscall.h>
#include <sys/time.h>
#include <unistd.h>

namespace {

long long ClockOffset = 0; // s, that the wall clock is ahead

} // namespace

// The wall clock of this process; the steady one runs on.

extern "C" {
__attribute__((visibility("default"))) int clock_gettime(clockid_t clock, struct timespec * time) noexcept
{
    long const result = syscall(SYS_clock_gettime, clock, time);
    if (result == 0 && clock == CLOCK_REALTIME)
        time->tv_sec += ClockOffset;
    return static_cast<int>(result);
}

__attribute__((visibility("default"))) int gettimeofday(struct timeval * time, void * /*zone*/) noexcept
{
    struct timespec now = {};
    clock_gettime(CLOCK_REALTIME, &now);
    time->tv_sec = now.tv_sec;
    time->tv_usec = now.tv_nsec / 1000;
    return 0;
}

__attribute__((visibility("default"))) time_t time(time_t * target) noexcept
{
    struct timespec now = {};
    clock_gettime(CLOCK_REALTIME, &now);
    if (target)
        *target = now.tv_sec;
    return now.tv_sec;
}
}

namespace {

constexpr double Second = 1e6; // us

struct Jump
{
    char const * name;
    long long to;      // s since 1970; 0: from here on by
    long long by;      // s
    char const * zone; // null: stays
};

constexpr long long Hour = 3600;
constexpr long long Decade = 315576000;

//! What clocks do: they are set, they drift, countries change theirs twice a year, and counters run out.
constexpr Jump Jumps[] = {
    { "a second ahead", 0, 1, nullptr },
    { "a second back", 0, -1, nullptr },
    { "an hour ahead", 0, Hour, nullptr },
    { "an hour back", 0, -Hour, nullptr },
    { "ten years ahead", 0, Decade, nullptr },
    { "ten years back", 0, -Decade, nullptr },
    { "the start of 1970", 1, 0, nullptr },
    { "a minute after it", 60, 0, nullptr },
    { "today", 1795273200, 0, nullptr },
    { "a second before 2^31", 2147483647, 0, nullptr },
    { "2^31", 2147483648LL, 0, nullptr },
    { "past 2^31 by a minute", 2147483708LL, 0, nullptr },
    { "past 2^32", 4294967300LL, 0, nullptr },
    { "2100", 4102444800LL, 0, nullptr },
    { "today in Berlin", 1795273200, 0, "Europe/Berlin" },
    { "before summer time", 1774745999, 0, nullptr },
    { "summer time", 1774746000, 0, nullptr },
    { "before winter time", 1792889999, 0, nullptr },
    { "winter time", 1792890000, 0, nullptr },
    { "back into summer time", 0, -2 * Hour, nullptr },
    { "before a leap second", 1483228799, 0, nullptr },
    { "the leap second", 1483228800, 0, nullptr },
    { "behind it", 0, 1, nullptr },
    { "New York", 0, 0, "America/New_York" },
    { "before summer time there", 1772953199, 0, nullptr },
    { "summer time there", 1772953200, 0, nullptr },
    { "Kathmandu", 0, 0, "Asia/Kathmandu" },
    { "Lord Howe", 0, 0, "Australia/Lord_Howe" },
    { "half an hour of summer time", 1790000000, 0, nullptr },
    { "the date line", 0, 0, "Pacific/Kiritimati" },
    { "its other side", 0, 0, "Pacific/Pago_Pago" },
    { "a zone by rule", 0, 0, "XYZ-3:30" },
    { "a zone that is none", 0, 0, "No/Where" },
    { "UTC", 0, 0, "UTC" },
    { "a day ahead", 0, 86400, nullptr },
    { "a day back", 0, -86400, nullptr },
    { "end of a year", 1798761599, 0, nullptr },
    { "New Year", 1798761600, 0, nullptr },
    { "29 February", 1835395200, 0, nullptr },
    { "today again", 1795273200, 0, nullptr },
};

void SetClock(long long seconds)
{
    struct timespec real = {};
    syscall(SYS_clock_gettime, CLOCK_REALTIME, &real);
    ClockOffset = seconds - real.tv_sec;
}

//! What the clock on the wall shows, by the C library. \param format  as strftime() takes it.
QString WallText(double stamp, char const * format)
{
    time_t const now = std::time(nullptr);
    struct tm local = {};
    localtime_r(&now, &local);
    time_t const shown = static_cast<time_t>(stamp / Second) + local.tm_gmtoff; // the offset of now, for all tics
    struct tm parts = {};
    gmtime_r(&shown, &parts);
    char text[64];
    return QString::fromLatin1(text, static_cast<int>(std::strftime(text, sizeof(text), format, &parts)));
}

} // namespace

class tst_axis_clock : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void clockIsOurs();
    void jumps();
    void cleanupTestCase();

private:
    void Check(AxisProbe & axis, AxisRangeDisplay & display, char const * name);

    long long m_jumps = 0;
    long long m_labels = 0;
    int m_mostRepairs = 0;
};

void tst_axis_clock::initTestCase() { GuiBase::Instance().GetTimeZone()->Select(1L, nullptr); } // local time

void tst_axis_clock::clockIsOurs()
{
    SetClock(1000000);
    QVERIFY(std::abs(QDateTime::currentMSecsSinceEpoch() - 1000000000LL) < 60000);
    SetClock(1795273200);
    QCOMPARE(QDateTime::currentDateTimeUtc().date(), QDate(2026, 11, 21));
}

//! The last minute, and then the last day, as a waterfall shows them.
void tst_axis_clock::Check(AxisProbe & axis, AxisRangeDisplay & display, char const * name)
{
    axis.m_repairs = 0;
    GuiBase::Instance().slotUpdateLocalTime();
    QVERIFY2(axis.m_repairs <= 1, name); // one for the zone, none for the clock
    m_mostRepairs = std::max(m_mostRepairs, axis.m_repairs);
    double const now = static_cast<double>(QDateTime::currentMSecsSinceEpoch() / 1000 * 1000) * 1000.0;

    struct View
    {
        double length;
        char const * format;
    };

    for (View const view : { View{ 70.0 * Second, "%M:%S" }, View{ 86400.0 * Second, "%H" } }) {
        axis.SetRange(now - view.length, now);
        QVERIFY2(axis.m_ticCount >= 3 && axis.m_ticCount <= 10, name);
        double before = axis.m_firstTic - 1.0;
        for (int i = 0; i < axis.m_ticCount; ++i) {
            double const tic = i * axis.m_ticStep + axis.m_firstTic + axis.m_ticOffset;
            QVERIFY2(tic > before && tic <= now, name);
            before = tic;
            if (tic < 0.0)
                continue;
            QString label;
            axis.BuildFormatString(label, tic, nullptr);
            if (label != WallText(tic, view.format))
                QFAIL(qPrintable(
                    QStringLiteral("%1: %2 is not %3").arg(QLatin1String(name), label, WallText(tic, view.format))));
            ++m_labels;
        }
    }
    display.SetFormatString(QStringLiteral("yyyy-MM-dd hh:mm:ss"));
    Tree::Instance()->FindAs<ValueNumeric<double>>(QStringLiteral("/axis/early"))->SetValue(now - 1e6, nullptr);
    Tree::Instance()->FindAs<ValueNumeric<double>>(QStringLiteral("/axis/late"))->SetValue(now, nullptr);
    display.ShowValues();
    QCOMPARE(display.findChild<VCLabel *>(QStringLiteral("First Ruler"))->text(), WallText(now, "%Y-%m-%d %H:%M:%S"));
}

void tst_axis_clock::jumps()
{
    Planted<ValueNumeric<double>> early("early");
    Planted<ValueNumeric<double>> late("late");
    AxisProbe axis(AxisBase::AxisHorizontal | AxisBase::AxisTimeStamps, 600, 40);
    auto * const display = new AxisRangeDisplay(&axis, nullptr, 5);
    QVERIFY(display->SetRuler1_ValuePath(early.Path()) && display->SetRuler2_ValuePath(late.Path()));
    axis.show();
    std::mt19937_64 random(TestStage::Seed());
    long long const turns = TestStage::Turns(static_cast<long long>(std::size(Jumps)), 10000);
    for (long long turn = 0; turn < turns; ++turn) {
        bool const isListed = turn < static_cast<long long>(std::size(Jumps));
        Jump const & jump = isListed ? Jumps[turn] : Jumps[random() % std::size(Jumps)];
        long long const now = QDateTime::currentMSecsSinceEpoch() / 1000;
        long long const random64 = static_cast<long long>(random() % 8000000000ULL);
        SetClock(!isListed ? random64 : jump.to != 0 ? jump.to : now + jump.by);
        if (jump.zone) {
            qputenv("TZ", jump.zone);
            tzset();
        }
        axis.m_repairDrawings = 0;
        axis.Repair(); // a picture that waits for its timer while the clock jumps
        Check(axis, *display, isListed ? jump.name : "random");
        if (QTest::currentTestFailed())
            return;
        if (isListed)
            QTRY_COMPARE_WITH_TIMEOUT(axis.m_repairDrawings, 1, 2000);
        ++m_jumps;
    }
}

void tst_axis_clock::cleanupTestCase()
{
    qputenv("TZ", "UTC");
    tzset();
    std::printf("figures: %lld jumps of clock and zone, %lld labels compared, at most %d repairs a jump; seed %llu\n",
                m_jumps, m_labels, m_mostRepairs, TestStage::Seed());
}

ORIM_TEST_MAIN(tst_axis_clock)
#include "tst_axis_clock.moc"
