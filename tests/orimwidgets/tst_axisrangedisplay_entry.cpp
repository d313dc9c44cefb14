// SPDX-License-Identifier: MIT
#include "rangescene.h"

#include "colorset.h"
#include "guicentral.h"
#include "marker.h"
#include "specialdoubles.h"
#include "testmain.h"
#include "valueselection.h"

#include <QFocusEvent>

#include <cmath>
#include <utility>

namespace {

void Type(QWidget * widget, QString const & text)
{
    QTest::keyClick(widget, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(widget, text);
    QTest::keyClick(widget, Qt::Key_Return);
}

} // namespace

class tst_axisrangedisplay_entry : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    // operation
    void buttonShowsRulers();
    void buttonBringsRulersIntoTheRange_data();
    void buttonBringsRulersIntoTheRange();
    void buttonWithoutAMarkerTellsOthers();
    void defaultsReleaseTheButton();
    void typedNumbers();
    void typedTimes();
    void typedSpansOfDays();
    void typingLeft();
    void typingElsewhere();
    void typingWithoutRoom();
    void typingGivenUp();
    void typingCanBeUndone();
    void slotsByName();

    // bad input
    void everyPairOfNumbers_data();
    void everyPairOfNumbers();
    void withoutAnAxis();
};

void tst_axisrangedisplay_entry::cleanup()
{
    GuiBase::Instance().GetTimeZone()->Select(0L, nullptr);
    GuiBase::Instance().SetShowFrequencyInHz(false);
    GuiBase::Instance().UndoStack()->clear();
}

// Operation

void tst_axisrangedisplay_entry::buttonShowsRulers()
{
    Stage stage;
    stage.axis.AddMarker(eRangeXStart);
    stage.axis.AddMarker(eRangeXStop);
    QVERIFY(stage.axis.SetMarker_ValuePath(eRangeXStart, stage.ruler1.Path()));
    QVERIFY(stage.axis.SetMarker_ValuePath(eRangeXStop, stage.ruler2.Path()));
    stage.axis.SetShowMarker(eRangeXStart, false);
    stage.axis.SetShowMarker(eRangeXStop, false);
    stage.Rulers(10.0, 30.0);
    stage.Show();
    stage.Button()->click();
    QVERIFY(stage.axis.GetShowMarkerFlag(eRangeXStart) && stage.axis.GetShowMarkerFlag(eRangeXStop));
    QCOMPARE(stage.ruler1->GetValue(), 10.0);
    stage.Button()->click();
    QVERIFY(!stage.axis.GetShowMarkerFlag(eRangeXStart) && !stage.axis.GetShowMarkerFlag(eRangeXStop));
    stage.display->slotShowDiffRuler(true);
    QVERIFY(stage.Button()->isChecked());
    QVERIFY(stage.axis.GetShowMarkerFlag(eRangeXStart) && stage.axis.GetShowMarkerFlag(eRangeXStop));
    stage.display->slotShowDiffRuler(false);
    QVERIFY(!stage.Button()->isChecked() && !stage.axis.GetShowMarkerFlag(eRangeXStop));
}

void tst_axisrangedisplay_entry::buttonBringsRulersIntoTheRange_data()
{
    QTest::addColumn<QVector<double>>("range");
    QTest::addColumn<QVector<double>>("before");
    QTest::addColumn<QVector<double>>("after");
    QVector<double> const range{ 0.0, 100.0 };
    QVector<double> const quarters{ 25.0, 75.0 };
    QTest::newRow("inside: as they are") << range << QVector<double>{ 0, 100 } << QVector<double>{ 0, 100 };
    QTest::newRow("equal") << range << QVector<double>{ 50, 50 } << quarters;
    QTest::newRow("one below") << range << QVector<double>{ -1, 50 } << quarters;
    QTest::newRow("one above") << range << QVector<double>{ 50, 101 } << quarters;
    QTest::newRow("both above") << range << QVector<double>{ 500, 600 } << quarters;
    QTest::newRow("the second at its place") << range << QVector<double>{ -1, 75 } << quarters;
    QTest::newRow("the first at its place") << range << QVector<double>{ 25, 101 } << quarters;
    QTest::newRow("falling range") << QVector<double>{ 100, 0 } << QVector<double>{ 500, 600 } << quarters;
    QTest::newRow("no range") << QVector<double>{ 5, 5 } << QVector<double>{ 50, 60 } << QVector<double>{ 50, 60 };
}

void tst_axisrangedisplay_entry::buttonBringsRulersIntoTheRange()
{
    QFETCH(QVector<double>, range);
    QFETCH(QVector<double>, before);
    Stage stage;
    stage.axis.SetRange(range[0], range[1]);
    stage.Rulers(before[0], before[1]);
    stage.Show();
    stage.Button()->click();
    QTEST(QVector<double>({ stage.ruler1->GetValue(), stage.ruler2->GetValue() }), "after");
    QCOMPARE(stage.difference->GetValue(), stage.ruler2->GetValue() - stage.ruler1->GetValue());
    QCOMPARE(stage.center->GetValue(), (stage.ruler1->GetValue() + stage.ruler2->GetValue()) / 2.0);
    QCOMPARE(stage.Text("First Ruler"), QString::number(stage.ruler1->GetValue(), 'f', 1));
    stage.Button()->click(); // hides them, and moves nothing
    QTEST(QVector<double>({ stage.ruler1->GetValue(), stage.ruler2->GetValue() }), "after");
}

void tst_axisrangedisplay_entry::buttonWithoutAMarkerTellsOthers()
{
    Stage stage;
    stage.Rulers(10.0, 30.0);
    stage.Show();
    QStringList told;
    connect(&stage.axis, &MarkerList::signalSetState, this, [&](QString const & path, EMarkerState state, bool on) {
        told << QStringLiteral("%1 %2 %3").arg(path).arg(int(state)).arg(on);
    });
    stage.Button()->click();
    QCOMPARE(told, QStringList(
                       { stage.ruler1.Path() + QStringLiteral(" 0 1"), stage.ruler2.Path() + QStringLiteral(" 0 1") }));
    told.clear();
    stage.Button()->click();
    QCOMPARE(told, QStringList(
                       { stage.ruler1.Path() + QStringLiteral(" 0 0"), stage.ruler2.Path() + QStringLiteral(" 0 0") }));
}

void tst_axisrangedisplay_entry::defaultsReleaseTheButton()
{
    Stage stage;
    stage.Rulers(10.0, 30.0);
    stage.Show();
    stage.Button()->click();
    stage.display->slotRestoreDefaultPersistant();
    QVERIFY(!stage.Button()->isChecked());
    stage.Button()->click();
    Q_EMIT GuiCentral::Instance().signalRestoreDefaultPersistant();
    QVERIFY(!stage.Button()->isChecked());
    QCOMPARE(stage.ruler1->GetValue(), 10.0);
}

void tst_axisrangedisplay_entry::typedNumbers()
{
    Stage stage;
    stage.Rulers(10.0, 30.0);
    stage.Show();
    QVERIFY(!stage.Entry()->isVisible());
    QTest::mouseDClick(stage.Part("Difference"), Qt::LeftButton);
    QVERIFY(stage.Entry()->isVisible());
    QCOMPARE(stage.Entry()->geometry(), stage.Part("Difference")->geometry());
    QCOMPARE(stage.Entry()->text(), QStringLiteral("20"));
    Type(stage.Entry(), QStringLiteral("40"));
    QVERIFY(!stage.Entry()->isVisible());
    QCOMPARE(stage.ruler1->GetValue(), 0.0);
    QCOMPARE(stage.ruler2->GetValue(), 40.0);
    QTest::keyClick(stage.Part("Center"), Qt::Key_Return);
    QCOMPARE(stage.Entry()->geometry(), stage.Part("Center")->geometry());
    Type(stage.Entry(), QStringLiteral("50.5"));
    QCOMPARE(stage.ruler1->GetValue(), 30.5);
    for (char const * const bad : { "nan", "inf", "x", "1e999", "" }) {
        QTest::keyClick(stage.Part("Center"), Qt::Key_F2);
        Type(stage.Entry(), QString());
        QTest::keyClick(stage.Part("Center"), Qt::Key_F2);
        Type(stage.Entry(), QLatin1String(bad));
        QVERIFY(!stage.Entry()->isVisible());
        QCOMPARE(stage.center->GetValue(), 50.5);
    }
    stage.axis.SetConverter(new SuffixedDouble(SuffixedDouble::eSuffixMega));
    QTest::keyClick(stage.Part("Center"), Qt::Key_Enter);
    Type(stage.Entry(), QStringLiteral("100 MHz"));
    QCOMPARE(stage.center->GetValue(), 100e6);
    stage.axis.SetConverter(nullptr);
    stage.axis.SetDisplayFactor(1e-6);
    QTest::keyClick(stage.Part("Center"), Qt::Key_Enter);
    QCOMPARE(stage.Entry()->text(), QStringLiteral("100"));
    Type(stage.Entry(), QStringLiteral("200"));
    QCOMPARE(stage.center->GetValue(), 200e6);
}

void tst_axisrangedisplay_entry::typedTimes()
{
    GuiBase::Instance().GetTimeZone()->Select(7200L, nullptr);
    Stage stage(AxisRangeDisplay::StyleHorizontal | AxisRangeDisplay::StyleTime, AcrossTime);
    stage.Rulers(Today - 30.0 * Second, Today + 30.0 * Second);
    stage.Show();
    QTest::mouseDClick(stage.Part("Difference"), Qt::LeftButton);
    QCOMPARE(stage.Entry()->text(), QStringLiteral("00:01:00.000"));
    Type(stage.Entry(), QStringLiteral("1:30.5"));
    QCOMPARE(stage.difference->GetValue(), 90.5 * Second);
    QTest::mouseDClick(stage.Part("Difference"), Qt::LeftButton);
    Type(stage.Entry(), QStringLiteral("1:00:02"));
    QCOMPARE(stage.difference->GetValue(), 3602.0 * Second);
    for (char const * const bad : { "1:2:3:4", "::", "1:x", "nan", "inf", "1:inf", "--5", "1:-30", "-" }) {
        QTest::mouseDClick(stage.Part("Difference"), Qt::LeftButton);
        Type(stage.Entry(), QLatin1String(bad));
        QCOMPARE(stage.difference->GetValue(), 3602.0 * Second);
    }
    QTest::mouseDClick(stage.Part("Center"), Qt::LeftButton);
    QCOMPARE(stage.Entry()->text(), QStringLiteral("2026-11-21 17:00:00.000"));
    Type(stage.Entry(), QStringLiteral("2026-11-21 18:00"));
    QCOMPARE(stage.center->GetValue(), Today + 3600.0 * Second);
    QTest::mouseDClick(stage.Part("Center"), Qt::LeftButton);
    Type(stage.Entry(), QStringLiteral("never"));
    QCOMPARE(stage.center->GetValue(), Today + 3600.0 * Second);
    QCOMPARE(stage.ruler2->GetValue(), Today + (3600.0 + 1801.0) * Second);
}

void tst_axisrangedisplay_entry::typedSpansOfDays()
{
    Stage stage(AxisRangeDisplay::StyleHorizontal | AxisRangeDisplay::StyleTime, AcrossTime);
    stage.Rulers(Today, Today + 25.0 * 3600.0 * Second);
    stage.Show();
    QTest::mouseDClick(stage.Part("Difference"), Qt::LeftButton);
    QCOMPARE(stage.Entry()->text(), QStringLiteral("25:00:00.000"));
    Type(stage.Entry(), QStringLiteral("25:00:01"));
    QCOMPARE(stage.ruler2->GetValue() - stage.ruler1->GetValue(), 90001.0 * Second);
    for (auto const & [text, seconds] : { std::pair("-1:30", 90.0), std::pair("-0:30", 30.0) }) {
        QTest::mouseDClick(stage.Part("Difference"), Qt::LeftButton);
        Type(stage.Entry(), QLatin1String(text));
        QCOMPARE(stage.ruler2->GetValue() - stage.ruler1->GetValue(), seconds * Second);
        QCOMPARE(stage.difference->GetValue(), -seconds * Second);
    }
}

void tst_axisrangedisplay_entry::typingLeft()
{
    for (bool const isDeleted : { false, true }) {
        Stage stage;
        stage.Rulers(10.0, 30.0);
        stage.Show();
        QPointer<AxisRangeDisplay> const display(stage.display);
        Listener const killer(stage.ruler1.Get(), [&](TChangeCode) {
            if (isDeleted)
                delete display.data();
        });
        QTest::mouseDClick(stage.Part("Difference"), Qt::LeftButton);
        QTest::keyClicks(stage.Entry(), QStringLiteral("40"));
        QFocusEvent popup(QEvent::FocusOut, Qt::PopupFocusReason); // its menu
        QCoreApplication::sendEvent(stage.Entry(), &popup);
        QCoreApplication::processEvents();
        QVERIFY(stage.Entry()->isVisible());
        QFocusEvent out(QEvent::FocusOut, Qt::TabFocusReason);
        QCoreApplication::sendEvent(stage.Entry(), &out);
        QCOMPARE(stage.ruler1->GetValue(), 10.0); // the line edit is not done with the event
        QCoreApplication::processEvents();
        QCOMPARE(stage.ruler1->GetValue(), 0.0);
        QCOMPARE(display.isNull(), isDeleted);
        QVERIFY(isDeleted || !stage.Entry()->isVisible());
    }
}

void tst_axisrangedisplay_entry::typingElsewhere()
{
    Stage stage;
    stage.Rulers(10.0, 30.0);
    stage.Show();
    QTest::mouseDClick(stage.Part("Difference"), Qt::LeftButton);
    QTest::keyClicks(stage.Entry(), QStringLiteral("40"));
    QTest::mouseDClick(stage.Part("Center"), Qt::LeftButton); // takes the first, and opens the second
    QCOMPARE(stage.difference->GetValue(), 40.0);
    QCoreApplication::processEvents();
    QVERIFY(stage.Entry()->isVisible());
    QCOMPARE(stage.Entry()->geometry(), stage.Part("Center")->geometry());
    Type(stage.Entry(), QStringLiteral("50"));
    QCOMPARE(stage.ruler1->GetValue(), 30.0);
    QTest::mouseDClick(stage.Part("Difference"), Qt::LeftButton);
    QTest::keyClicks(stage.Entry(), QStringLiteral("10"));
    QPointer<AxisRangeDisplay> const display(stage.display);
    Listener const killer(stage.ruler1.Get(), [&](TChangeCode) { delete display.data(); });
    QTest::keyClick(stage.Part("Center"), Qt::Key_F2);
    QVERIFY(!display);
}

void tst_axisrangedisplay_entry::typingWithoutRoom()
{
    Stage stage;
    stage.Rulers(10.0, 30.0);
    stage.Show();
    QTest::mouseDClick(stage.Part("Center"), Qt::LeftButton);
    QTest::keyClicks(stage.Entry(), QStringLiteral("50"));
    stage.axis.resize(550, 40);
    QVERIFY(stage.Entry()->isVisible());
    QCOMPARE(stage.Entry()->geometry(), stage.Part("Center")->geometry());
    stage.axis.resize(90, 40);
    QVERIFY(!stage.Entry()->isVisible());
    QCoreApplication::processEvents();
    QCOMPARE(stage.center->GetValue(), 20.0);
}

void tst_axisrangedisplay_entry::typingGivenUp()
{
    Stage stage;
    stage.Rulers(10.0, 30.0);
    stage.Show();
    QTest::mouseDClick(stage.Part("Difference"), Qt::LeftButton);
    QTest::keyClicks(stage.Entry(), QStringLiteral("5"));
    QTest::keyClick(stage.Entry(), Qt::Key_Escape);
    QVERIFY(!stage.Entry()->isVisible());
    QCOMPARE(stage.difference->GetValue(), 20.0);
    QTest::mouseDClick(stage.Part("Difference"), Qt::LeftButton);
    QTest::keyClicks(stage.Entry(), QStringLiteral("5"));
    stage.axis.slotHideAxisRangeDisplay();
    QCOMPARE(stage.difference->GetValue(), 20.0);
    stage.axis.slotShowAxisRangeDisplay();
    QVERIFY(!stage.Entry()->isVisible());
    QTest::mouseDClick(stage.Part("Difference"), Qt::LeftButton);
    QTest::keyClick(stage.Entry(), Qt::Key_Return); // nothing typed
    QCOMPARE(stage.ruler1->GetValue(), 10.0);
    QTest::mouseDClick(stage.Part("First Ruler"), Qt::LeftButton); // a ruler is dragged, not entered
    QVERIFY(!stage.Entry()->isVisible());
    QVERIFY(!stage.display->SetRuler1_ValuePath(QString()));
    QTest::mouseDClick(stage.Part("Difference"), Qt::LeftButton);
    QVERIFY(!stage.Entry()->isVisible());
}

void tst_axisrangedisplay_entry::typingCanBeUndone()
{
    Stage stage;
    stage.Rulers(10.0, 30.0);
    stage.Show();
    QUndoStack * const undo = GuiBase::Instance().UndoStack();
    QTest::mouseDClick(stage.Part("Center"), Qt::LeftButton);
    Type(stage.Entry(), QStringLiteral("60"));
    QCOMPARE(undo->count(), 1);
    QCOMPARE(stage.ruler1->GetValue(), 50.0);
    undo->undo();
    QCOMPARE(stage.ruler1->GetValue(), 10.0);
    QCOMPARE(stage.ruler2->GetValue(), 30.0);
    QCOMPARE(stage.center->GetValue(), 20.0);
}

void tst_axisrangedisplay_entry::slotsByName()
{
    for (char const * const slot : { "slotShowDiffRuler(bool)", "slotRestoreDefaultPersistant()" })
        QVERIFY2(AxisRangeDisplay::staticMetaObject.indexOfSlot(slot) >= 0, slot);
}

// Bad input

void tst_axisrangedisplay_entry::everyPairOfNumbers_data()
{
    QTest::addColumn<unsigned int>("style");
    QTest::addColumn<unsigned int>("type");
    QTest::newRow("numbers") << 1U << Across;
    QTest::newRow("times") << 5U << AcrossTime;
}

void tst_axisrangedisplay_entry::everyPairOfNumbers()
{
    QFETCH(unsigned int, style);
    QFETCH(unsigned int, type);
    Stage stage(style, type);
    stage.Show();
    std::vector<double> const numbers = SpecialDoubles();
    std::size_t const every = TestStage::Sanitized() ? 4 : 1; // one of so many pairs, along the diagonals
    for (std::size_t i = 0; i < numbers.size(); ++i)
        for (std::size_t j = i % every; j < numbers.size(); j += every) {
            double const a = numbers[i];
            double const b = numbers[j];
            stage.Rulers(a, b);
            double const low = stage.ruler1->GetValue();
            double const high = stage.ruler2->GetValue();
            if (!(low <= high))
                QFAIL(qPrintable(QStringLiteral("%1 and %2: %3 above %4").arg(a).arg(b).arg(low).arg(high)));
            QVERIFY(!std::isnan(stage.difference->GetValue()) && !std::isnan(stage.center->GetValue()));
            stage.difference->SetValue(b, nullptr);
            stage.center->SetValue(a, nullptr);
            QVERIFY(!std::isnan(stage.ruler1->GetValue()) && !std::isnan(stage.ruler2->GetValue()));
        }
    for (double const a : SpecialDoubles()) {
        stage.axis.SetDisplayFactor(a);
        stage.axis.SetRange(a, 5.0);
        stage.display->slotShowDiffRuler(true);
        stage.display->slotShowDiffRuler(false);
        stage.display->ShowValues();
    }
}

void tst_axisrangedisplay_entry::withoutAnAxis()
{
    AxisRangeDisplay display(nullptr, "alone", 1);
    display.resize(500, 30);
    display.show();
    display.ShowValues();
    QCOMPARE(display.findChild<VCLabel *>(QStringLiteral("Center"))->text(), QStringLiteral("0.0"));
    display.slotShowDiffRuler(true);
    display.SetConverter(nullptr);
    display.SetFormatString(QString());
    display.SetFormatStringForFixedSize(QString());
    QImage image(500, 30, QImage::Format_RGB32);
    for (QSize const & size : { QSize(0, 0), QSize(1, 1), QSize(500, 30) }) {
        display.resize(size);
        display.render(&image);
    }
    QCOMPARE(image.pixelColor(250, 0), ColorSet::Instance()[IColorBase::eColorAxisScale]);
}

ORIM_TEST_MAIN(tst_axisrangedisplay_entry)
#include "tst_axisrangedisplay_entry.moc"
