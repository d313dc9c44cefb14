// SPDX-License-Identifier: MIT
// The time span of a waterfall in the centre, and its time on the left.

#include "captionprobe.h"

#include "guibase.h"
#include "specialdoubles.h"
#include "testmain.h"
#include "valueselection.h"
#include "vcselectionpopup.h"

namespace {

constexpr double Start = 1.7e15;         // 2023-11-14 22:13:20, in us
constexpr double Stop = 1.7e15 + 12.5e6; // 12.5 s later

QString Span() { return QStringLiteral("2023-11-14 22:13:20.000... 13:32.500[00:12.500"); }

ValueSelection * Zone() { return GuiBase::Instance().GetTimeZone(); }

constexpr long TwoHours = 7200; // key and offset of a zone, s

} // namespace

class tst_vccaption_time : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void initTestCase() { TestStage::HushPopups(); }

    void cleanup();

    void defaults();
    void span();
    void anyOrder();
    void equalEnds();
    void formats();
    void badFormats_data();
    void badFormats();
    void badStamps_data();
    void badStamps();
    void everyPairOfDoubles();

    void reservedWidth();
    void reservedWidthInANarrowBar();
    void laterPaintsMeasure();
    void nothingIsMeasured();
    void repaints();

    void zone();
    void zoneChanges();
    void zoneOtherCodes();
    void centerTextEndsTheSpan();
    void startOfMinusOneIsNone();
    void zoneGoesAway();
    void zoneGoesAwayFromTheMenu();
    void endsWhileObserving();

    void timeLeft();
    void timeLeftInTheZone();
    void timeLeftBesideASpan();
    void timeLeftStamps_data();
    void timeLeftStamps();
};

void tst_vccaption_time::cleanup()
{
    if (Zone())
        Zone()->Select(0L, nullptr);
}

void tst_vccaption_time::defaults()
{
    CaptionProbe const bar;
    QCOMPARE(bar.m_TimeFormat1, QStringLiteral("yyyy-MM-dd hh:mm:ss.zzz"));
    QCOMPARE(bar.m_TimeFormat2, QStringLiteral("... mm:ss.zzz"));
    QCOMPARE(bar.m_TimeFormat3, QStringLiteral("[mm:ss.zzz"));
    QCOMPARE(bar.m_TimeStart, -1.0);
    QCOMPARE(bar.m_TimeStop, -1.0);
    QVERIFY(!bar.m_pDateTime && !bar.m_pTimeZone.Get());
    QVERIFY(!Zone()->HasObserver(&bar));
    QString const sizing = QStringLiteral("9999-99-99 99:99:99.999.999  ... 99:99.999.999 [99:99.999.999]");
    QCOMPARE(bar.m_TimeWidth, QFontMetrics(bar.m_Font).boundingRect(sizing).width());
}

void tst_vccaption_time::span()
{
    CaptionProbe bar;
    bar.SetTimeCaption(Start, Stop);
    QCOMPARE(bar.GetCaptionCenter(), Span());
    QCOMPARE(bar.m_TimeStart, Start);
    QCOMPARE(bar.m_TimeStop, Stop);
    QVERIFY(bar.m_pDateTime && bar.m_pTimeZone.Get() == Zone());
    QVERIFY(Zone()->HasObserver(&bar));
}

void tst_vccaption_time::anyOrder()
{
    CaptionProbe forward;
    CaptionProbe backward;
    forward.SetTimeCaption(2, 9);
    backward.SetTimeCaption(9, 2);
    QCOMPARE(backward.GetCaptionCenter(), forward.GetCaptionCenter());
    QCOMPARE(backward.m_TimeStart, 2.0);
    QCOMPARE(backward.m_TimeStop, 9.0);
    backward.SetTimeCaption(Stop, Start);
    QCOMPARE(backward.GetCaptionCenter(), Span());
}

void tst_vccaption_time::equalEnds()
{
    CaptionProbe bar;
    bar.SetTimeCaption(5, 5);
    QVERIFY(!bar.m_pDateTime && bar.GetCaptionCenter().isEmpty());
    bar.SetTimeCaption(Start, Stop);
    bar.SetTimeCaption(5, 5);
    QCOMPARE(bar.GetCaptionCenter(), Span());
    QCOMPARE(bar.m_TimeStart, Start);
    QCOMPARE(bar.m_TimeStop, Stop);
    bar.SetCaptionCenter(QStringLiteral("text"));
    bar.SetTimeCaption(0.0, -0.0);
    QCOMPARE(bar.GetCaptionCenter(), QStringLiteral("text"));
}

void tst_vccaption_time::formats()
{
    CaptionProbe bar;
    bar.SetTimeCaption(Start, Stop);
    bar.SetTimeCaptionFormat(QStringLiteral("hh:mm"), QStringLiteral(" - hh:mm:ss"), QStringLiteral(" (s.zzz"));
    QCOMPARE(bar.GetCaptionCenter(), Span()); // for the next one
    bar.SetTimeCaption(Start, Stop);
    QCOMPARE(bar.GetCaptionCenter(), QStringLiteral("22:13 - 22:13:32 (12.500"));
}

void tst_vccaption_time::badFormats_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << QString() << QString();
    QTest::newRow("open quote") << QStringLiteral("'hh") << QStringLiteral("hhhhhh");
    QTest::newRow("no letters of a format") << QStringLiteral("%1%n\\") << QStringLiteral("%1%n\\%1%n\\%1%n\\");
    QTest::newRow("long") << QString(10000, QLatin1Char('.')) << QString(30000, QLatin1Char('.'));
}

void tst_vccaption_time::badFormats()
{
    QFETCH(QString, format);
    CaptionProbe bar;
    bar.ShowAt(300);
    bar.SetTimeCaptionFormat(format, format, format);
    bar.SetTimeCaption(Start, Stop);
    QTEST(bar.GetCaptionCenter(), "text");
}

void tst_vccaption_time::badStamps_data()
{
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("stop");
    QTest::addColumn<QString>("text");
    QString const none = QStringLiteral("1970-01-01 00:00:00.000... 00:00.000[00:00.000");
    double const nan = std::numeric_limits<double>::quiet_NaN();
    double const infinite = std::numeric_limits<double>::infinity();
    QTest::newRow("NaN") << nan << nan << none;
    QTest::newRow("start NaN") << nan << 2e6 << QStringLiteral("1970-01-01 00:00:00.000... 00:02.000[00:00.000");
    QTest::newRow("infinite") << -infinite << infinite << none;
    QTest::newRow("past 64 bits") << 0x1p64 << 1e300 << none;
    QTest::newRow("negative") << -5e6 << -2e6 << QStringLiteral("1970-01-01 00:00:00.000... 00:00.000[00:03.000");
    QTest::newRow("negative start") << -5e6 << 2e6 << QStringLiteral("1970-01-01 00:00:00.000... 00:02.000[00:07.000");
    QTest::newRow("fraction of a ms") << 0.1 << 999.9 << none;
}

void tst_vccaption_time::badStamps()
{
    QFETCH(double, start);
    QFETCH(double, stop);
    CaptionProbe bar;
    bar.SetTimeCaption(start, stop);
    QTEST(bar.GetCaptionCenter(), "text");
}

void tst_vccaption_time::everyPairOfDoubles()
{
    CaptionProbe bar;
    bar.ShowAt(600);
    std::vector<double> const all = SpecialDoubles();
    for (double const start : all)
        for (double const stop : all) {
            bar.SetTimeCaption(start, stop);
            Zone()->Select(Zone()->GetCurrentKey() == 0 ? TwoHours : 0L, nullptr); // rebuilt with the stored span
            QVERIFY(start == stop || !bar.GetCaptionCenter().isEmpty());
            QVERIFY(bar.m_TimeStart <= bar.m_TimeStop || std::isnan(bar.m_TimeStart) || std::isnan(bar.m_TimeStop));
        }
}

// Painting

void tst_vccaption_time::reservedWidth()
{
    CaptionProbe bar;
    bar.m_charWidth = 10;
    bar.ShowAt(900);
    bar.SetCaptionCenter(QStringLiteral("123"));
    QCOMPARE(bar.m_CenterWidth, 30);
    bar.m_measured = 0;
    bar.SetTimeCaption(Start, Stop);
    QCOMPARE(bar.m_CenterWidth, 30); // restored
    QCOMPARE(bar.m_CenterOld, QStringLiteral("123"));
    QCOMPARE(bar.m_measured, 0);
    QPixmap expected(bar.size());
    QPainter painter(&expected);
    painter.fillRect(bar.rect(), bar.m_NoFocusBrush);
    painter.setFont(bar.m_Font);
    painter.setPen(bar.m_NoFocusTextPen);
    painter.drawText((899 - bar.m_TimeWidth + 1) / 2, bar.m_BaseLine, Span());
    painter.end();
    QCOMPARE(bar.Picture(), expected.toImage());
}

void tst_vccaption_time::reservedWidthInANarrowBar()
{
    CaptionProbe bar;
    bar.m_charWidth = 1;
    bar.ShowAt(bar.m_TimeWidth + 2);
    bar.SetCaptionLeft(QStringLiteral("abc")); // one too wide beside it
    bar.SetTimeCaption(Start, Stop);
    QPixmap expected(bar.size());
    QPainter painter(&expected);
    painter.fillRect(bar.rect(), bar.m_NoFocusBrush);
    painter.setFont(bar.m_Font);
    painter.setPen(bar.m_NoFocusTextPen);
    painter.drawText(0, bar.m_BaseLine, Span());
    painter.end();
    QCOMPARE(bar.Picture(), expected.toImage());
}

void tst_vccaption_time::laterPaintsMeasure()
{
    CaptionProbe bar;
    bar.m_charWidth = 10;
    bar.ShowAt(900);
    bar.SetTimeCaption(Start, Stop);
    QImage const reserved = bar.Picture();
    bar.BuildPixmap();
    QCOMPARE(bar.m_CenterWidth, 10 * static_cast<int>(Span().size()));
    QVERIFY(bar.Picture() != reserved);
    bar.SetTimeCaption(Start, Stop);
    QCOMPARE(bar.Picture(), reserved); // where it was
}

void tst_vccaption_time::nothingIsMeasured()
{
    CaptionProbe bar;
    bar.ShowAt(1920);
    bar.BuildPixmap();
    bar.m_measured = 0;
    for (int i = 1; i < 2000; ++i)
        bar.SetTimeCaption(Start, Start + i * 20000.0);
    QCOMPARE(bar.m_measured, 0);
}

void tst_vccaption_time::repaints()
{
    CaptionProbe bar;
    bar.ShowAt(900);
    QVERIFY(QTest::qWaitForWindowExposed(&bar));
    QTRY_VERIFY(bar.m_paints > 0);
    QCoreApplication::processEvents();
    int const before = bar.m_paints;
    bar.SetTimeCaption(Start, Stop);
    QCOMPARE(bar.m_paints, before);
    QTRY_COMPARE(bar.m_paints, before + 1);
}

// The zone

void tst_vccaption_time::zone()
{
    Zone()->Select(TwoHours, nullptr);
    CaptionProbe bar;
    bar.SetTimeCaption(Start, Stop);
    // the span has no zone
    QCOMPARE(bar.GetCaptionCenter(), QStringLiteral("2023-11-15 00:13:20.000... 13:32.500[00:12.500"));
    bar.SetTimeCaptionFormat(QStringLiteral("hh "), QString(), QStringLiteral("hh"));
    bar.SetTimeCaption(Start, Stop);
    QCOMPARE(bar.GetCaptionCenter(), QStringLiteral("00 00"));
}

void tst_vccaption_time::zoneChanges()
{
    CaptionProbe bar;
    bar.SetTimeCaption(Start, Stop);
    bar.SetCaptionLeft(QStringLiteral("left"));
    Zone()->Select(TwoHours, nullptr);
    QCOMPARE(bar.GetCaptionCenter(), QStringLiteral("2023-11-15 00:13:20.000... 13:32.500[00:12.500"));
    QCOMPARE(bar.m_TimeStart, Start);
    QCOMPARE(bar.m_TimeStop, Stop);
    QCOMPARE(bar.GetCaptionLeft(), QStringLiteral("left"));
    Zone()->Select(0L, nullptr);
    QCOMPARE(bar.GetCaptionCenter(), Span());
}

void tst_vccaption_time::zoneOtherCodes()
{
    CaptionProbe bar;
    bar.SetTimeCaption(Start, Stop);
    bar.m_Center = QStringLiteral("mark");
    Zone()->SetState(eStateDisabled, nullptr);
    QVERIFY(Zone()->HasObserver(&bar) && bar.m_pTimeZone.Get() == Zone());
    Zone()->SetState(eStateValid, nullptr);
    for (TChangeCode const code : { eStateChanged, eRangeChanged, eItemsChanged, eInterimChanged })
        Zone()->NotifyObservers(code, nullptr);
    QCOMPARE(bar.GetCaptionCenter(), QStringLiteral("mark"));
    Zone()->NotifyObservers(eValueChanged, nullptr);
    QCOMPARE(bar.GetCaptionCenter(), Span());
}

void tst_vccaption_time::centerTextEndsTheSpan()
{
    CaptionProbe bar;
    bar.SetTimeCaption(Start, Stop);
    bar.SetCaptionCenter(QStringLiteral("text"));
    QCOMPARE(bar.m_TimeStart, -1.0);
    QCOMPARE(bar.m_TimeStop, -1.0);
    Zone()->Select(TwoHours, nullptr);
    QCOMPARE(bar.GetCaptionCenter(), QStringLiteral("text"));
    bar.SetTimeCaption(Start, Stop); // the zone was taken over all the same
    QVERIFY(bar.GetCaptionCenter().startsWith(QStringLiteral("2023-11-15 00:13:20.000")));
    bar.SetCaptionLeft(QStringLiteral("left"));
    bar.SetCaptionRight(QStringLiteral("right"));
    QCOMPARE(bar.m_TimeStart, Start); // the other texts end nothing
}

void tst_vccaption_time::startOfMinusOneIsNone()
{
    CaptionProbe bar;
    bar.SetTimeCaptionFormat(QStringLiteral("hh"), QString(), QString());
    bar.SetTimeCaption(-1.0, 5.0);
    QCOMPARE(bar.GetCaptionCenter(), QStringLiteral("00"));
    Zone()->Select(TwoHours, nullptr);
    QCOMPARE(bar.GetCaptionCenter(), QStringLiteral("00"));
    bar.SetTimeCaption(-2.0, 5.0);
    QCOMPARE(bar.GetCaptionCenter(), QStringLiteral("02"));
    Zone()->Select(0L, nullptr);
    QCOMPARE(bar.GetCaptionCenter(), QStringLiteral("00"));
}

void tst_vccaption_time::zoneGoesAway()
{
    CaptionProbe bar;
    bar.SetTimeCaption(Start, Stop);
    Zone()->Select(TwoHours, nullptr);
    QString const text = bar.GetCaptionCenter();
    QVERIFY(Tree::Instance()->Remove(Zone()->GetPathName()));
    QVERIFY(!bar.m_pTimeZone.Get());
    QCOMPARE(bar.GetCaptionCenter(), text);
    bar.SetTimeCaption(Stop, Start); // fetches what there is now
    QCOMPARE(bar.GetCaptionCenter().isEmpty(), false);
    QVERIFY(bar.m_pTimeZone.Get() == Zone());
}

void tst_vccaption_time::zoneGoesAwayFromTheMenu()
{
    CaptionProbe bar(nullptr, nullptr, VCCaption::StyleTimeZonePopup);
    bar.ShowAt(200);
    auto * const popup = dynamic_cast<VCSelectionPopup *>(bar.GetContextMenu());
    QVERIFY(popup);
    QVERIFY(Tree::Instance()->Remove(Zone()->GetPathName()));
    QVERIFY(!popup->GetFirstSelection() && popup->actions().isEmpty());
    QVERIFY(Zone());
    for (int i = 0; i < 2; ++i) {
        popup->popup(QPoint(5, 5));
        QVERIFY(popup->isVisible());
        QVERIFY(popup->GetFirstSelection() == Zone()); // the one that there is now
        QCOMPARE(static_cast<int>(popup->actions().size()), Zone()->GetItemCount());
        popup->hide();
    }
}

void tst_vccaption_time::endsWhileObserving()
{
    int const observers = Zone()->GetObserverCount();
    {
        CaptionProbe bar;
        bar.SetTimeCaption(Start, Stop);
        QCOMPARE(Zone()->GetObserverCount(), observers + 1);
    }
    QCOMPARE(Zone()->GetObserverCount(), observers);
    Zone()->Select(TwoHours, nullptr);
}

// The time on the left

void tst_vccaption_time::timeLeft()
{
    CaptionProbe bar;
    unsigned long long time = 1700000000000000ULL;
    bar.SetWFTimeLeft(time);
    QCOMPARE(bar.GetCaptionLeft(), QStringLiteral("2023-11-14 22:13:20"));
    QCOMPARE(time, 1700000000000000ULL);
    bar.SetCaptionLeft(QStringLiteral("mark"));
    time += 999999;
    bar.SetWFTimeLeft(time);
    QCOMPARE(bar.GetCaptionLeft(), QStringLiteral("mark")); // the same second
    time += 1;
    bar.SetWFTimeLeft(time);
    QCOMPARE(bar.GetCaptionLeft(), QStringLiteral("2023-11-14 22:13:21"));
    time += 60000000;
    bar.SetWFTimeLeft(time); // the same second of the next minute
    QCOMPARE(bar.GetCaptionLeft(), QStringLiteral("2023-11-14 22:14:21"));
    time -= 1000000;
    bar.SetWFTimeLeft(time);
    QCOMPARE(bar.GetCaptionLeft(), QStringLiteral("2023-11-14 22:14:20"));
    QVERIFY(bar.GetCaptionCenter().isEmpty());
}

void tst_vccaption_time::timeLeftInTheZone()
{
    Zone()->Select(TwoHours, nullptr);
    CaptionProbe bar;
    unsigned long long time = 1700000000000000ULL;
    bar.SetWFTimeLeft(time);
    QCOMPARE(bar.GetCaptionLeft(), QStringLiteral("2023-11-15 00:13:20"));
    Zone()->Select(0L, nullptr);
    QVERIFY(bar.GetCaptionCenter().isEmpty()); // there is no span to rebuild
    time += 1000000;
    bar.SetWFTimeLeft(time);
    QCOMPARE(bar.GetCaptionLeft(), QStringLiteral("2023-11-14 22:13:21"));
}

void tst_vccaption_time::timeLeftBesideASpan()
{
    CaptionProbe bar;
    unsigned long long time = static_cast<unsigned long long>(Stop);
    bar.SetTimeCaption(Start, Stop);
    bar.SetWFTimeLeft(time); // the end of the span
    QCOMPARE(bar.GetCaptionLeft(), QStringLiteral("2023-11-14 22:13:32"));
    bar.SetTimeCaption(Start, Stop + 1e6);
    time += 1000000;
    bar.SetWFTimeLeft(time);
    QCOMPARE(bar.GetCaptionLeft(), QStringLiteral("2023-11-14 22:13:33"));
    QVERIFY(bar.GetCaptionCenter().startsWith(QStringLiteral("2023-11-14 22:13:20.000... 13:33.500")));
    bar.SetCaptionLeft(QStringLiteral("mark"));
    bar.SetTimeCaption(0.0, Start);
    bar.SetWFTimeLeft(time); // the same second, whatever the span tells
    QCOMPARE(bar.GetCaptionLeft(), QStringLiteral("mark"));
}

void tst_vccaption_time::timeLeftStamps_data()
{
    QTest::addColumn<qulonglong>("stamp");
    QTest::addColumn<QString>("text");
    QTest::newRow("0") << qulonglong(0) << QStringLiteral("1970-01-01 00:00:00");
    QTest::newRow("a us short of a second") << qulonglong(999999) << QStringLiteral("1970-01-01 00:00:00");
    QTest::newRow("2038") << qulonglong(2147483648000000) << QStringLiteral("2038-01-19 03:14:08");
    QTest::newRow("past an int of ms") << qulonglong(4294967296000) << QStringLiteral("1970-02-19 17:02:47");
}

void tst_vccaption_time::timeLeftStamps()
{
    QFETCH(qulonglong, stamp);
    CaptionProbe bar;
    unsigned long long time = stamp;
    bar.SetWFTimeLeft(time);
    QTEST(bar.GetCaptionLeft(), "text");
    bar.ShowAt(300);
    for (unsigned long long const odd : { 0ULL, ~0ULL, ~0ULL >> 1U, (~0ULL >> 1U) + 1, 1ULL }) {
        time = odd;
        bar.SetWFTimeLeft(time); // any stamp is taken
    }
    QCOMPARE(bar.GetCaptionLeft(), QStringLiteral("1970-01-01 00:00:00"));
}

ORIM_TEST_MAIN(tst_vccaption_time)
#include "tst_vccaption_time.moc"
