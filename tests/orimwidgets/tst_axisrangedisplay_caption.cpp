// SPDX-License-Identifier: MIT
#include "rangescene.h"

#include "testmain.h"
#include "valueselection.h"
#include "vccaption.h"

#include <memory>

class tst_axisrangedisplay_caption : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void captionTakesTheTimes_data();
    void captionTakesTheTimes();
    void captionOfNumbersIsLeftAlone();
    void captionFollowsADraggedRuler();
    void captionKeepsItsSpanForEqualRulers();
    void captionTakesTheTimesAtOnce();
    void captionOfAHiddenDisplay();
    void captionEndsFirst();
};

void tst_axisrangedisplay_caption::cleanup() { GuiBase::Instance().GetTimeZone()->Select(0L, nullptr); }

void tst_axisrangedisplay_caption::captionTakesTheTimes_data()
{
    QTest::addColumn<unsigned int>("style");
    QTest::addColumn<QVector<double>>("rulers");
    QTest::addColumn<QString>("text");
    QTest::newRow("times") << 5U << QVector<double>{ Today, Today + 90.25 * Second }
                           << QStringLiteral("2026-11-21 15:00:00.000... 01:30.250[01:30.250");
    QTest::newRow("upright") << 4U << QVector<double>{ Today, Today + Second }
                             << QStringLiteral("2026-11-21 15:00:00.000... 00:01.000[00:01.000");
    QTest::newRow("crossed") << 5U << QVector<double>{ Today + 90.25 * Second, Today }
                             << QStringLiteral("2026-11-21 15:00:00.000... 01:30.250[01:30.250");
    QTest::newRow("spans") << 3U << QVector<double>{ 5e6, 7.5e6 }
                           << QStringLiteral("1970-01-01 00:00:05.000... 00:07.500[00:02.500");
    QTest::newRow("both bits") << 7U << QVector<double>{ 5e6, 7.5e6 }
                               << QStringLiteral("1970-01-01 00:00:05.000... 00:07.500[00:02.500");
    QTest::newRow("before the start of time")
        << 5U << QVector<double>{ -5e6, 5e6 } << QStringLiteral("1970-01-01 00:00:00.000... 00:05.000[00:10.000");
}

void tst_axisrangedisplay_caption::captionTakesTheTimes()
{
    QFETCH(unsigned int, style);
    QFETCH(QVector<double>, rulers);
    Stage stage(style, AcrossTime);
    VCCaption caption;
    stage.display->SetCaption(&caption);
    stage.Rulers(rulers[0], rulers[1]);
    stage.display->ShowValues(); // also while it is hidden
    QTEST(caption.GetCaptionCenter(), "text");
    caption.SetCaptionCenter(QString());
    stage.Show();
    QTEST(caption.GetCaptionCenter(), "text");
}

void tst_axisrangedisplay_caption::captionOfNumbersIsLeftAlone()
{
    Stage stage;
    VCCaption caption;
    caption.SetCaptionCenter(QStringLiteral("mine"));
    stage.display->SetCaption(&caption);
    stage.Rulers(1e6, 2e6);
    stage.Show();
    stage.display->ShowValues();
    QCOMPARE(caption.GetCaptionCenter(), QStringLiteral("mine"));
}

void tst_axisrangedisplay_caption::captionFollowsADraggedRuler()
{
    Stage stage(5U, AcrossTime);
    VCCaption caption;
    stage.display->SetCaption(&caption);
    stage.Rulers(Today, Today + Second);
    stage.Show();
    stage.ruler2->SetInterimValue(Today + 2.0 * Second, nullptr);
    QCOMPARE(caption.GetCaptionCenter(), QStringLiteral("2026-11-21 15:00:00.000... 00:02.000[00:02.000"));
    stage.ruler2->SetInterimValue(Today + 3.0 * Second, nullptr);
    stage.ruler2->CommitInterimValue(nullptr);
    QCOMPARE(caption.GetCaptionCenter(), QStringLiteral("2026-11-21 15:00:00.000... 00:03.000[00:03.000"));
    stage.center->SetValue(Today + 60.0 * Second, nullptr);
    QCOMPARE(caption.GetCaptionCenter(), QStringLiteral("2026-11-21 15:00:58.500... 01:01.500[00:03.000"));
}

void tst_axisrangedisplay_caption::captionKeepsItsSpanForEqualRulers()
{
    Stage stage(5U, AcrossTime);
    VCCaption caption;
    stage.display->SetCaption(&caption);
    stage.Rulers(Today, Today + Second);
    stage.Show();
    stage.ruler1->SetValue(Today + Second, nullptr);
    QCOMPARE(stage.Text("Difference"), QStringLiteral("00:00"));
    QCOMPARE(caption.GetCaptionCenter(), QStringLiteral("2026-11-21 15:00:00.000... 00:01.000[00:01.000"));
}

void tst_axisrangedisplay_caption::captionTakesTheTimesAtOnce()
{
    Stage stage(5U, AcrossTime);
    stage.Rulers(Today, Today + Second);
    stage.Show();
    VCCaption first;
    VCCaption second;
    stage.display->SetCaption(&first);
    QCOMPARE(first.GetCaptionCenter(), QStringLiteral("2026-11-21 15:00:00.000... 00:01.000[00:01.000"));
    stage.display->SetCaption(&second);
    stage.ruler2->SetValue(Today + 2.0 * Second, nullptr);
    QCOMPARE(first.GetCaptionCenter(), QStringLiteral("2026-11-21 15:00:00.000... 00:01.000[00:01.000"));
    QCOMPARE(second.GetCaptionCenter(), QStringLiteral("2026-11-21 15:00:00.000... 00:02.000[00:02.000"));
    stage.display->SetCaption(nullptr);
    stage.ruler2->SetValue(Today + 3.0 * Second, nullptr);
    QCOMPARE(second.GetCaptionCenter(), QStringLiteral("2026-11-21 15:00:00.000... 00:02.000[00:02.000"));
}

void tst_axisrangedisplay_caption::captionOfAHiddenDisplay()
{
    Stage stage(5U, AcrossTime);
    VCCaption caption;
    caption.SetCaptionCenter(QStringLiteral("of the waterfall"));
    stage.display->SetCaption(&caption);
    stage.Rulers(Today, Today + Second);
    stage.axis.SetRange(Today, Today + 7.0 * 3600.0 * Second); // a format of its own
    stage.display->SetFormatString(QStringLiteral("hh:mm:ss"));
    stage.display->SetFormatStringForFixedSize(QStringLiteral("hh:mm:ss"));
    stage.display->SetFormat(3, 2);
    stage.display->SetConverter(nullptr);
    stage.display->SetPixelToValueServer(&stage.axis);
    GuiBase::Instance().GetTimeZone()->Select(7200L, nullptr);
    QCOMPARE(caption.GetCaptionCenter(), QStringLiteral("of the waterfall"));
}

void tst_axisrangedisplay_caption::captionEndsFirst()
{
    Stage stage(5U, AcrossTime);
    stage.Rulers(Today, Today + Second);
    auto caption = std::make_unique<VCCaption>();
    stage.display->SetCaption(caption.get());
    stage.Show();
    caption.reset();
    stage.ruler2->SetValue(Today + 2.0 * Second, nullptr);
    QCOMPARE(stage.Text("Difference"), QStringLiteral("00:02"));
    VCCaption lives;
    stage.display->SetCaption(&lives);
    delete stage.display;
    QVERIFY(!lives.GetCaptionCenter().isEmpty());
}

ORIM_TEST_MAIN(tst_axisrangedisplay_caption)
#include "tst_axisrangedisplay_caption.moc"
