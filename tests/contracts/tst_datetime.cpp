// SPDX-License-Identifier: MIT
#include "datetime.h"

#include "testmain.h"

namespace {

constexpr unsigned long long Second = 1000000;                    // us
constexpr unsigned long long Noon = 1709208000 * Second + 123456; // 2024-02-29 12:00:00.123456 UTC
constexpr unsigned long long LastStamp = 0xFFFFFFFFFFFFFFFFULL;   // the highest that can be held

} // namespace

class tst_DateTime : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void construction();
    void formats_data();
    void formats();
    void anyLocale();
    void zones_data();
    void zones();
    void ownOffsetOfACall();
    void standardForms();
    void seconds_data();
    void seconds();
    void reads_data();
    void reads();
    void refuses_data();
    void refuses();
    void readsWhatItShows_data();
    void readsWhatItShows();
};

void tst_DateTime::construction()
{
    QCOMPARE(Orim::DateTime().getTimeStamp(), 0ULL);
    QCOMPARE(Orim::DateTime().toMSString(), QStringLiteral("1970-01-01 00:00:00.000"));
    Orim::DateTime time(Noon);
    QCOMPARE(time.getTimeStamp(), Noon);
    time.setTime_ts(5);
    QCOMPARE(time.getTimeStamp(), 5ULL);
    time.setTime_ts(LastStamp);
    QCOMPARE(time.getTimeStamp(), LastStamp);
}

void tst_DateTime::formats_data()
{
    QTest::addColumn<unsigned long long>("stamp");
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("text");
    auto const row = [](char const * name, char const * format, char const * text) {
        QTest::newRow(name) << Noon << QString::fromLatin1(format) << QString::fromLatin1(text);
    };
    row("date and time", "yyyy-MM-dd hh:mm:ss.zzz", "2024-02-29 12:00:00.123");
    row("day", "dd", "29");
    row("day and hour", "dd / hh", "29 / 12");
    row("hour", "hh", "12");
    row("mm are minutes", "mm", "00");
    row("MM are months", "MM", "02");
    row("minutes and seconds", "mm:ss", "00:00");
    row("seconds and milliseconds", "ss.zzz", "00.123");
    row("names are English", "dddd d MMMM yy", "Thursday 29 February 24");
    row("short names", "ddd MMM", "Thu Feb");
    row("half days", "h AP", "12 PM");
    row("quoted letters stay", "'day' d", "day 29");
    row("other characters stay", "yyyy/MM_dd|", "2024/02_29|");
    row("three micro signs stay", "\xB5\xB5\xB5", "\xB5\xB5\xB5");
    row("empty", "", "");
    auto const later = [](char const * name, char const * format, char const * text) {
        QTest::newRow(name) << 1709211845 * Second + 7000 << QString::fromLatin1(format) << QString::fromLatin1(text);
    };
    later("hours, minutes and seconds", "hh:mm:ss", "13:04:05");
    later("hours and minutes", "hh:mm", "13:04");
    later("minutes and seconds below ten", "mm:ss", "04:05");
    later("milliseconds below ten", "ss.zzz", "05.007");
    later("behind a bracket", "[mm:ss.zzz", "[04:05.007");
    later("behind dots", "... mm:ss.zzz", "... 04:05.007");
    QTest::newRow("milliseconds are cut, not rounded") << 1999ULL << QStringLiteral("zzz") << QStringLiteral("001");
    QTest::newRow("the highest stamp is a time")
        << LastStamp << QStringLiteral("MM-dd hh:mm:ss.zzz") << QStringLiteral("01-19 08:01:49.551");
    QTest::newRow("the last second of 2038's 31 bits")
        << 2147483648 * Second << QStringLiteral("yyyy-MM-dd hh:mm:ss") << QStringLiteral("2038-01-19 03:14:08");
}

void tst_DateTime::formats()
{
    QFETCH(unsigned long long, stamp);
    QFETCH(QString, format);
    QFETCH(QString, text);
    QCOMPARE(Orim::DateTime(stamp).toString(format), text);
}

void tst_DateTime::anyLocale()
{
    QLocale::setDefault(QLocale(QLocale::Arabic, QLocale::Egypt));
    QString const text = Orim::DateTime(Noon).toString(QStringLiteral("dddd MMMM yyyy-MM-dd hh:mm:ss.zzz AP"));
    QLocale::setDefault(QLocale::c());
    QCOMPARE(text, QStringLiteral("Thursday February 2024-02-29 12:00:00.123 PM"));
}

void tst_DateTime::zones_data()
{
    QTest::addColumn<qint64>("offset");
    QTest::addColumn<QString>("text");
    auto const row = [](char const * name, qint64 offset, char const * text) {
        QTest::newRow(name) << offset << QString::fromLatin1(text);
    };
    row("UTC", 0, "2024-02-29 12:00:00.123");
    row("an hour east", 3600, "2024-02-29 13:00:00.123");
    row("half an hour west", -1800, "2024-02-29 11:30:00.123");
    row("over midnight to the next month", 43200, "2024-03-01 00:00:00.123");
    row("back over midnight", -43201, "2024-02-28 23:59:59.123");
    row("a second less than a day", 86399, "2024-03-01 11:59:59.123");
    row("a second less than a day west", -86399, "2024-02-28 12:00:01.123");
    row("a day is no zone", 86400, "2024-02-29 12:00:07.123");
    row("a day west is no zone", -86400, "2024-02-29 12:00:07.123");
    row("the lowest number is no zone", std::numeric_limits<qint64>::lowest(), "2024-02-29 12:00:07.123");
    row("the highest number is no zone", std::numeric_limits<qint64>::max(), "2024-02-29 12:00:07.123");
}

void tst_DateTime::zones()
{
    QFETCH(qint64, offset);
    QFETCH(QString, text);
    Orim::DateTime time(Noon);
    time.setOffsetFromUTC(7); // what stays when the next is no zone
    time.setOffsetFromUTC(offset);
    QCOMPARE(time.toMSString(), text);
    QCOMPARE(time.toString(QStringLiteral("yyyy-MM-dd hh:mm:ss.zzz")), text);
    QCOMPARE(time.getTimeStamp(), Noon);
    time.setOffsetFromUTC(7);
    QCOMPARE(time.toString(QStringLiteral("yyyy-MM-dd hh:mm:ss.zzz"), offset), text);
    QCOMPARE(time.toString(offset), text.left(19));
}

void tst_DateTime::ownOffsetOfACall()
{
    Orim::DateTime time(Noon);
    time.setOffsetFromUTC(3600);
    QCOMPARE(time.toString(QStringLiteral("hh"), 7200), QStringLiteral("14"));
    QCOMPARE(time.toString(QStringLiteral("hh")), QStringLiteral("13"));
    Orim::DateTime early(0);
    QCOMPARE(early.toString(-60), QStringLiteral("1969-12-31 23:59:00"));
}

void tst_DateTime::standardForms()
{
    Orim::DateTime time(Noon);
    time.setOffsetFromUTC(3600);
    QCOMPARE(time.toMSString(), QStringLiteral("2024-02-29 13:00:00.123"));
    QCOMPARE(time.toString(0LL), QStringLiteral("2024-02-29 12:00:00"));
}

void tst_DateTime::seconds_data()
{
    QTest::addColumn<unsigned long long>("stamp");
    QTest::addColumn<int>("offset");
    QTest::addColumn<int>("second");
    QTest::newRow("start") << 0ULL << 0 << 0;
    QTest::newRow("just before a second") << Second - 1 << 0 << 0;
    QTest::newRow("on a second") << Second << 0 << 1;
    QTest::newRow("last of a minute") << 59 * Second << 0 << 59;
    QTest::newRow("next minute") << 60 * Second << 0 << 0;
    QTest::newRow("a zone of whole minutes shows the same") << 5 * Second << 19800 << 5;
    QTest::newRow("a zone with seconds") << 5 * Second << 3610 << 15;
    QTest::newRow("a zone west with seconds") << 5 * Second << -10 << 55;
}

void tst_DateTime::seconds()
{
    QFETCH(unsigned long long, stamp);
    QFETCH(int, offset);
    QFETCH(int, second);
    Orim::DateTime time(stamp);
    time.setOffsetFromUTC(offset);
    QCOMPARE(time.second(), second);
    QCOMPARE(time.toString(QStringLiteral("s")).toInt(), second);
}

void tst_DateTime::reads_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<unsigned long long>("stamp");
    auto const row = [](char const * text, unsigned long long stamp) {
        QTest::newRow(text) << QString::fromLatin1(text) << stamp;
    };
    unsigned long long const day = 1709164800 * Second; // 2024-02-29
    row("2024-02-29", day);
    row("2024-02-29 12:00", Noon - 123456);
    row("2024-02-29T12:00", Noon - 123456);
    row("2024-02-29 12:00:07", Noon - 123456 + 7 * Second);
    row("2024-02-29 12:00:00.1", Noon - 23456);
    row("2024-02-29 12:00:00.12", Noon - 3456);
    row("2024-02-29 12:00:00.123", Noon - 456);
    row("2024-02-29 12:00:00.123456", Noon);
    row("2024-02-29 12:00:00.000001", Noon - 123455);
    row("  2024-02-29 12:00 ", Noon - 123456);
    row("1970-01-01", 0);
    row("9999-12-31 23:59:59.999999", 253402300800ULL * Second - 1);
}

void tst_DateTime::reads()
{
    QFETCH(QString, text);
    QFETCH(unsigned long long, stamp);
    Orim::DateTime time(42);
    QCOMPARE(time.fromString(text), stamp);
    QCOMPARE(time.getTimeStamp(), stamp);
}

void tst_DateTime::refuses_data()
{
    QTest::addColumn<QString>("text");
    for (char const * text : { "",
                               "noon",
                               "2023-02-29",
                               "2024-13-01",
                               "2024-00-10",
                               "2024-01-32",
                               "2024-1-1",
                               "24-01-01",
                               "12024-01-01",
                               "2024-02-29 24:00",
                               "2024-02-29 12:60",
                               "2024-02-29 12:00:60",
                               "2024-02-29 12",
                               "2024-02-29 12:00:00.",
                               "2024-02-29 12:00:00.1234567",
                               "2024-02-29 12:00:00,5",
                               "2024-02-29 12:00 x",
                               "2024-02-29\n12:00",
                               "-2024-02-29",
                               "1969-12-31 23:59:59.999999",
                               "0000-01-01",
                               "2024-02-29 1e:00",
                               "2024-02-29 +1:00" })
        QTest::newRow(text) << QString::fromLatin1(text);
    QTest::newRow("digits of another script") << QString::fromUtf8("\xd9\xa2\xd9\xa0\xd9\xa2\xd9\xa4-02-29");
}

void tst_DateTime::refuses()
{
    QFETCH(QString, text);
    Orim::DateTime time(42);
    QCOMPARE(time.fromString(text), 42ULL);
    QCOMPARE(time.getTimeStamp(), 42ULL);
}

void tst_DateTime::readsWhatItShows_data()
{
    QTest::addColumn<int>("offset");
    QTest::newRow("UTC") << 0;
    QTest::newRow("east") << 20700;
    QTest::newRow("west") << -34200;
}

void tst_DateTime::readsWhatItShows()
{
    QFETCH(int, offset);
    Orim::DateTime time(Noon);
    time.setOffsetFromUTC(offset);
    Orim::DateTime read;
    read.setOffsetFromUTC(offset);
    QCOMPARE(read.fromString(time.toMSString()), Noon - 456);
    QCOMPARE(read.fromString(time.toString(offset)), Noon - 123456);
    read.setTime_ts(42);
    read.setOffsetFromUTC(1);
    QCOMPARE(read.fromString(QStringLiteral("1970-01-01 00:00:00")), 42ULL); // a second before 1970 in UTC
    QCOMPARE(read.fromString(QStringLiteral("1970-01-01 00:00:01")), 0ULL);
}

ORIM_CORE_TEST_MAIN(tst_DateTime)
#include "tst_datetime.moc"
