// SPDX-License-Identifier: MIT
#include "rangescene.h"

#include "testmain.h"
#include "valueselection.h"

class tst_axisrangedisplay_values : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    // rulers, difference and centre
    void rulerChanges_data();
    void rulerChanges();
    void equalRulers();
    void centreOfLargeRulers();
    void crossedRulers();
    void draggedRulers();
    void entries_data();
    void entries();
    void entriesForCrossedRulers();
    void draggedEntries();
    void smallDeviations_data();
    void smallDeviations();
    void notWhileHidden();
    void notWhileOneIsMissing();
    void otherCodesShowOnly();
    void excludedFromItsWrites();
    void ownWritesComeToRest();
    void writerInside();
    void deletedInside();
    void unboundInside();

    // binding
    void badPaths();
    void bindingWhileVisibleMovesNoRuler();
    void bindingADifferenceOrCentreMovesRulers();
    void crossedAtBinding();
    void valuesGoAway_data();
    void valuesGoAway();
    void oneValueInTwoRoles();
    void integerRulers();
};

void tst_axisrangedisplay_values::cleanup()
{
    GuiBase::Instance().GetTimeZone()->Select(0L, nullptr);
    GuiBase::Instance().SetShowFrequencyInHz(false);
    GuiBase::Instance().UndoStack()->clear();
}

// Rulers, difference and centre

void tst_axisrangedisplay_values::rulerChanges_data()
{
    QTest::addColumn<bool>("first");
    QTest::addColumn<double>("value");
    QTest::addColumn<QVector<double>>("after"); // rulers, difference, centre
    QTest::newRow("ruler 1 up") << true << 20.0 << QVector<double>{ 20, 30, 10, 25 };
    QTest::newRow("ruler 1 down") << true << -10.0 << QVector<double>{ -10, 30, 40, 10 };
    QTest::newRow("ruler 2 up") << false << 50.0 << QVector<double>{ 10, 50, 40, 30 };
    QTest::newRow("ruler 1 across ruler 2") << true << 40.0 << QVector<double>{ 30, 40, 10, 35 };
    QTest::newRow("ruler 2 across ruler 1") << false << 0.0 << QVector<double>{ 0, 10, 10, 5 };
    QTest::newRow("ruler 1 onto ruler 2") << true << 30.0 << QVector<double>{ 30, 30, 0, 20 };
}

void tst_axisrangedisplay_values::rulerChanges()
{
    QFETCH(bool, first);
    QFETCH(double, value);
    Stage stage;
    stage.Rulers(10.0, 30.0);
    stage.Show();
    QCOMPARE(stage.difference->GetValue(), 20.0);
    QCOMPARE(stage.center->GetValue(), 20.0);
    (first ? stage.ruler1 : stage.ruler2)->SetValue(value, nullptr);
    QVector<double> const after{ stage.ruler1->GetValue(), stage.ruler2->GetValue(), stage.difference->GetValue(),
                                 stage.center->GetValue() };
    QTEST(after, "after");
    QCOMPARE(stage.Text("Difference"), QString::number(after[2], 'f', 1));
}

void tst_axisrangedisplay_values::equalRulers()
{
    Stage stage;
    stage.Rulers(10.0, 30.0);
    stage.Show();
    Listener center(stage.center.Get());
    stage.ruler1->SetValue(30.0, nullptr);
    QCOMPARE(stage.difference->GetValue(), 0.0);
    QCOMPARE(stage.center->GetValue(), 20.0);
    QCOMPARE(center.m_told, 0);
}

void tst_axisrangedisplay_values::centreOfLargeRulers()
{
    Stage stage;
    stage.Show();
    stage.ruler2->SetValue(1.5e308, nullptr);
    stage.ruler1->SetValue(1.0e308, nullptr);
    QCOMPARE(stage.center->GetValue(), 1.25e308);          // their sum is beyond the doubles
    QCOMPARE(stage.Text("Center"), QStringLiteral("---")); // the read-out adds them
}

void tst_axisrangedisplay_values::crossedRulers()
{
    Stage stage;
    stage.Show();
    stage.Rulers(0.0, 50.0);
    QVector<double> seen; // by the time the difference is written, the rulers are in order
    Listener const difference(stage.difference.Get(), [&](TChangeCode) {
        seen = { stage.ruler1->GetValue(), stage.ruler2->GetValue() };
    });
    stage.ruler1->SetValue(80.0, nullptr);
    QCOMPARE(seen, QVector<double>({ 50.0, 80.0 }));
    QCOMPARE(stage.Texts(), QStringLiteral("50.0|30.0|80.0|65.0").split(QLatin1Char('|')));
}

void tst_axisrangedisplay_values::draggedRulers()
{
    Stage stage;
    stage.Rulers(10.0, 30.0);
    stage.Show();
    stage.ruler2->SetInterimValue(50.0, nullptr);
    QCOMPARE(stage.ruler2->GetValue(), 30.0);
    QCOMPARE(stage.difference->GetValue(), 40.0);
    QCOMPARE(stage.center->GetValue(), 30.0);
    QCOMPARE(stage.Text("Second Ruler"), QStringLiteral("50.0"));
    stage.ruler2->CommitInterimValue(nullptr);
    QCOMPARE(stage.difference->GetValue(), 40.0);
    stage.ruler1->SetInterimValue(20.0, nullptr);
    stage.ruler1->NotifyObservers(eValueChanged, nullptr); // the value, not the interim one
    QCOMPARE(stage.difference->GetValue(), 40.0);
    stage.ruler1->CommitInterimValue(nullptr);
    stage.Rulers(10.0, 30.0);
    stage.ruler1->SetInterimValue(40.0, nullptr); // across the other
    QCOMPARE(stage.ruler1->GetValue(), 30.0);
    QCOMPARE(stage.ruler2->GetValue(), 40.0);
    QCOMPARE(stage.difference->GetValue(), 10.0);
    QCOMPARE(stage.center->GetValue(), 35.0);
}

void tst_axisrangedisplay_values::entries_data()
{
    QTest::addColumn<bool>("isDifference");
    QTest::addColumn<double>("value");
    QTest::addColumn<QVector<double>>("after"); // rulers; 10 and 30 before
    QTest::newRow("wider") << true << 40.0 << QVector<double>{ 0, 40 };
    QTest::newRow("narrower") << true << 2.0 << QVector<double>{ 19, 21 };
    QTest::newRow("negative counts by its magnitude") << true << -40.0 << QVector<double>{ 0, 40 };
    QTest::newRow("0 moves nothing") << true << 0.0 << QVector<double>{ 10, 30 };
    QTest::newRow("centre up") << false << 25.0 << QVector<double>{ 15, 35 };
    QTest::newRow("centre below 0") << false << -100.0 << QVector<double>{ -110, -90 };
}

void tst_axisrangedisplay_values::entries()
{
    QFETCH(bool, isDifference);
    QFETCH(double, value);
    Stage stage;
    stage.Rulers(10.0, 30.0);
    stage.Show();
    stage.Part("Difference")->setText(QString()); // shown anew, moved or not
    (isDifference ? stage.difference : stage.center)->SetValue(value, nullptr);
    QVector<double> const after{ stage.ruler1->GetValue(), stage.ruler2->GetValue() };
    QTEST(after, "after");
    QCOMPARE(stage.Text("First Ruler"), QString::number(after[0], 'f', 1));
    QCOMPARE(stage.Text("Difference"), QString::number(after[1] - after[0], 'f', 1));
}

void tst_axisrangedisplay_values::entriesForCrossedRulers()
{
    Stage stage;
    stage.Rulers(5.0, 10.0);
    stage.Show();
    stage.ruler1->SetValue(30.0, stage.display); // crossed, and unheard
    stage.difference->SetValue(20.0, stage.display);
    stage.center->SetValue(20.0, stage.display);
    stage.difference->NotifyObservers(eValueChanged, nullptr);
    QCOMPARE(stage.ruler1->GetValue(), 30.0); // they stand there already
    QCOMPARE(stage.ruler2->GetValue(), 10.0);
    stage.center->SetValue(50.0, nullptr);
    QCOMPARE(stage.ruler1->GetValue(), 40.0); // and are written in order
    QCOMPARE(stage.ruler2->GetValue(), 60.0);
}

void tst_axisrangedisplay_values::draggedEntries()
{
    Stage stage;
    stage.Rulers(10.0, 30.0);
    stage.Show();
    stage.center->SetInterimValue(40.0, nullptr);
    QCOMPARE(stage.center->GetValue(), 20.0);
    QCOMPARE(stage.ruler1->GetValue(), 30.0);
    QCOMPARE(stage.ruler2->GetValue(), 50.0);
    stage.difference->SetInterimValue(40.0, nullptr);
    QCOMPARE(stage.ruler1->GetValue(), 20.0);
    QCOMPARE(stage.ruler2->GetValue(), 60.0);
}

void tst_axisrangedisplay_values::smallDeviations_data()
{
    QTest::addColumn<double>("center"); // the rulers stand at -1 and 1
    QTest::addColumn<bool>("moves");
    QTest::newRow("none") << 0.0 << false;
    QTest::newRow("half of what counts, twice") << 0x1p-35 << false; // 2.9e-11
    QTest::newRow("what counts, twice") << 0x1p-34 << true;          // 5.8e-11
    QTest::newRow("more") << 1e-3 << true;
    QTest::newRow("less than none") << -0x1p-34 << true;
}

void tst_axisrangedisplay_values::smallDeviations()
{
    QFETCH(double, center);
    QFETCH(bool, moves);
    Stage stage;
    stage.Rulers(-1.0, 1.0);
    stage.Show();
    QCOMPARE(stage.center->GetValue(), 0.0);
    stage.center->SetValue(center, nullptr);
    QCOMPARE(stage.ruler1->GetValue() != -1.0, moves);
    QCOMPARE(stage.ruler2->GetValue() != 1.0, moves);
    QVERIFY(!moves || stage.ruler1->GetValue() == center - 1.0);
}

void tst_axisrangedisplay_values::notWhileHidden()
{
    Stage stage;
    stage.Rulers(30.0, 10.0);
    QCOMPARE(stage.ruler1->GetValue(), 30.0);
    QCOMPARE(stage.difference->GetValue(), 0.0);
    QCOMPARE(stage.Text("First Ruler"), QString());
    stage.Show();
    QCOMPARE(stage.ruler1->GetValue(), 10.0);
    QCOMPARE(stage.difference->GetValue(), 20.0);
    stage.axis.slotHideAxisRangeDisplay();
    stage.ruler1->SetValue(50.0, nullptr);
    stage.difference->SetValue(1.0, nullptr);
    QCOMPARE(stage.ruler1->GetValue(), 50.0);
    QCOMPARE(stage.Text("First Ruler"), QStringLiteral("10.0"));
}

void tst_axisrangedisplay_values::notWhileOneIsMissing()
{
    using Set = bool (AxisRangeDisplay::*)(QString const &);
    Set const setters[] = { &AxisRangeDisplay::SetRuler1_ValuePath, &AxisRangeDisplay::SetRuler2_ValuePath,
                            &AxisRangeDisplay::SetCenter_ValuePath, &AxisRangeDisplay::SetExportDifference_ValuePath };
    for (Set const set : setters) {
        Stage stage;
        stage.Rulers(10.0, 30.0);
        stage.Show();
        QVERIFY(!(stage.display->*set)(QStringLiteral("/none")));
        stage.Rulers(50.0, 40.0);
        stage.difference->SetValue(7.0, nullptr);
        stage.display->ShowValues();
        QCOMPARE(stage.ruler1->GetValue(), 50.0);
        QCOMPARE(stage.center->GetValue(), 20.0);
        QCOMPARE(stage.Text("First Ruler"), QStringLiteral("10.0"));
    }
}

void tst_axisrangedisplay_values::otherCodesShowOnly()
{
    Stage stage;
    stage.Rulers(10.0, 30.0);
    stage.Show();
    for (TChangeCode const code : { eRangeChanged, eItemsChanged, static_cast<TChangeCode>(99) }) {
        stage.Part("Difference")->setText(QString());
        stage.ruler1->NotifyObservers(code, nullptr);
        QCOMPARE(stage.Text("Difference"), QStringLiteral("20.0"));
    }
    stage.Part("Difference")->setText(QString());
    stage.ruler1->NotifyObservers(eStateChanged, nullptr); // it stays: nothing at all
    QCOMPARE(stage.Text("Difference"), QString());
    QVERIFY(stage.ruler1->HasObserver(stage.display));
    stage.display->Update(nullptr, eValueChanged); // of a stranger
    QCOMPARE(stage.Text("Difference"), QStringLiteral("20.0"));
    stage.display->Update(nullptr, eStateChanged);
}

void tst_axisrangedisplay_values::excludedFromItsWrites()
{
    Stage stage;
    stage.Rulers(10.0, 30.0);
    stage.Show();
    Listener const ruler1(stage.ruler1.Get());
    Listener const ruler2(stage.ruler2.Get());
    Listener const center(stage.center.Get());
    stage.difference->SetValue(10.0, nullptr);
    QCOMPARE(stage.ruler1->GetValue(), 15.0);
    QCOMPARE(stage.ruler2->GetValue(), 25.0);
    QCOMPARE(ruler1.m_told, 1); // had it heard of itself, the difference of the half way would have been written
    QCOMPARE(ruler2.m_told, 1);
    QCOMPARE(center.m_told, 0);
    QCOMPARE(stage.difference->GetValue(), 10.0);
}

void tst_axisrangedisplay_values::ownWritesComeToRest()
{
    Stage stage;
    stage.ruler1->SetMinMax(0.0, 100.0, 10.0, nullptr); // what is entered is not what they can hold
    stage.ruler2->SetMinMax(0.0, 100.0, 10.0, nullptr);
    stage.Rulers(10.0, 30.0);
    stage.Show();
    stage.difference->SetValue(27.0, nullptr);
    QCOMPARE(stage.ruler1->GetValue(), 10.0);
    QCOMPARE(stage.ruler2->GetValue(), 30.0);
    QCOMPARE(stage.Text("Difference"), QStringLiteral("20.0")); // what is
    QCOMPARE(stage.difference->GetValue(), 27.0);
}

void tst_axisrangedisplay_values::writerInside()
{
    Stage stage;
    stage.Rulers(10.0, 30.0);
    stage.Show();
    Listener const limiter(stage.difference.Get(), [&](TChangeCode) {
        if (stage.difference->GetValue() > 50.0)
            stage.ruler2->SetValue(stage.ruler1->GetValue() + 50.0, nullptr);
    });
    stage.ruler2->SetValue(90.0, nullptr);
    QCOMPARE(stage.ruler2->GetValue(), 60.0);
    QCOMPARE(stage.difference->GetValue(), 50.0);
    QCOMPARE(stage.center->GetValue(), 35.0); // of the later computation
    QCOMPARE(stage.Texts(), QStringLiteral("10.0|50.0|60.0|35.0").split(QLatin1Char('|')));
}

void tst_axisrangedisplay_values::deletedInside()
{
    for (int victim = 0; victim < 4; ++victim) {
        Stage stage;
        stage.Rulers(10.0, 30.0);
        stage.Show();
        Number * const values[] = { stage.ruler1.Get(), stage.ruler2.Get(), stage.difference.Get(),
                                    stage.center.Get() };
        QPointer<AxisRangeDisplay> const display(stage.display);
        Listener const killer(values[victim], [&](TChangeCode) { delete display.data(); });
        stage.ruler1->SetValue(60.0, nullptr); // crossed: all four are written
        QVERIFY(!display);
        QVERIFY(!stage.axis.GetAxisRangeDisplay());
    }
    for (int victim = 0; victim < 2; ++victim) {
        Stage stage;
        stage.Rulers(10.0, 30.0);
        stage.Show();
        QPointer<AxisRangeDisplay> const display(stage.display);
        Listener const killer((victim == 0 ? stage.ruler1 : stage.ruler2).Get(),
                              [&](TChangeCode) { delete display.data(); });
        stage.difference->SetValue(60.0, nullptr);
        QVERIFY(!display);
    }
}

void tst_axisrangedisplay_values::unboundInside()
{
    for (int victim = 0; victim < 4; ++victim) {
        Stage stage;
        stage.Rulers(10.0, 30.0);
        stage.Show();
        Number * const values[] = { stage.ruler1.Get(), stage.ruler2.Get(), stage.difference.Get(),
                                    stage.center.Get() };
        Listener const remover(values[victim], [&](TChangeCode) {
            for (Planted<Number> const * const value : { &stage.difference, &stage.center })
                Tree::Instance()->Remove(value->Path());
        });
        stage.ruler1->SetValue(60.0, nullptr);
        QVERIFY(stage.Text("First Ruler") == QStringLiteral("10.0"));
    }
}

// Binding

void tst_axisrangedisplay_values::badPaths()
{
    Stage stage;
    Planted<Value<QString>> text("text");
    for (QString const & path : { QString(), QStringLiteral("/none"), text.Path() }) {
        QVERIFY(stage.display->SetRuler1_ValuePath(stage.ruler1.Path()));
        QVERIFY(stage.ruler1->HasObserver(stage.display));
        QVERIFY(!stage.display->SetRuler1_ValuePath(path));
        QVERIFY(!stage.ruler1->HasObserver(stage.display));
        QVERIFY(!stage.display->SetRuler2_ValuePath(path) && !stage.display->SetCenter_ValuePath(path));
        QVERIFY(!stage.display->SetExportDifference_ValuePath(path));
    }
    QVERIFY(stage.display->SetCenter_ValuePath(stage.center.Path()));
}

void tst_axisrangedisplay_values::bindingWhileVisibleMovesNoRuler()
{
    Stage stage;
    stage.Show();
    Planted<Number> low("low");
    Planted<Number> high("high");
    low->SetValue(88.0, nullptr);
    high->SetValue(101.0, nullptr);
    QVERIFY(stage.display->SetRuler1_ValuePath(low.Path())); // above the other ruler, until that is bound as well
    QCOMPARE(low->GetValue(), 88.0);
    QVERIFY(stage.display->SetRuler2_ValuePath(high.Path()));
    QCOMPARE(stage.difference->GetValue(), 13.0);
    QCOMPARE(stage.Text("First Ruler"), QStringLiteral("88.0"));
    QCoreApplication::processEvents();
    QCOMPARE(low->GetValue(), 88.0);
    QCOMPARE(high->GetValue(), 101.0);
    QCOMPARE(stage.ruler1->GetValue() + stage.ruler2->GetValue(), 0.0);
}

void tst_axisrangedisplay_values::bindingADifferenceOrCentreMovesRulers()
{
    Stage stage;
    stage.Rulers(10.0, 30.0);
    stage.Show();
    Planted<Number> wide("wide");
    wide->SetValue(40.0, nullptr);
    QVERIFY(stage.display->SetExportDifference_ValuePath(wide.Path()));
    QCOMPARE(wide->GetValue(), 40.0);
    QCOMPARE(stage.ruler1->GetValue(), 0.0);
    QCOMPARE(stage.ruler2->GetValue(), 40.0);
    Planted<Number> middle("middle");
    middle->SetValue(70.0, nullptr);
    QVERIFY(stage.display->SetCenter_ValuePath(middle.Path()));
    QCOMPARE(middle->GetValue(), 70.0);
    QCOMPARE(stage.ruler1->GetValue(), 50.0);
    QCOMPARE(stage.ruler2->GetValue(), 90.0);
    QCOMPARE(stage.Texts(), QStringLiteral("50.0|40.0|90.0|70.0").split(QLatin1Char('|')));
}

void tst_axisrangedisplay_values::crossedAtBinding()
{
    Stage stage;
    stage.Show();
    Planted<Number> low("low");
    low->SetValue(88.0, nullptr);
    QVERIFY(stage.display->SetRuler1_ValuePath(low.Path()));
    QTRY_COMPARE(low->GetValue(), 0.0);
    QCOMPARE(stage.ruler2->GetValue(), 88.0);
    QCOMPARE(stage.difference->GetValue(), 88.0);
}

void tst_axisrangedisplay_values::valuesGoAway_data()
{
    QTest::addColumn<int>("which");
    QTest::newRow("ruler 1") << 0;
    QTest::newRow("ruler 2") << 1;
    QTest::newRow("difference") << 2;
    QTest::newRow("centre") << 3;
}

void tst_axisrangedisplay_values::valuesGoAway()
{
    QFETCH(int, which);
    Stage stage;
    stage.Rulers(10.0, 30.0);
    stage.Show();
    QStringList const paths{ stage.ruler1.Path(), stage.ruler2.Path(), stage.difference.Path(), stage.center.Path() };
    QVERIFY(Tree::Instance()->Remove(paths[which]));
    for (QString const & path : paths)
        if (auto * const left = Tree::Instance()->FindAs<Number>(path))
            left->SetValue(77.0, nullptr);
    stage.display->ShowValues();
    QCOMPARE(stage.Texts(), QStringLiteral("10.0|20.0|30.0|20.0").split(QLatin1Char('|')));
    auto * const again = new Number(paths[which].section(QLatin1Char('/'), -1));
    QVERIFY(Tree::Instance()->Insert(QStringLiteral("/axis"), again));
    QVERIFY(!again->HasObserver(stage.display)); // nothing binds by itself
}

void tst_axisrangedisplay_values::oneValueInTwoRoles()
{
    Stage stage;
    stage.Rulers(10.0, 30.0);
    stage.Show();
    QVERIFY(stage.display->SetRuler2_ValuePath(stage.ruler1.Path()));
    stage.ruler1->SetValue(12.0, nullptr);
    QCOMPARE(stage.difference->GetValue(), 0.0);
    QVERIFY(stage.display->SetRuler1_ValuePath(stage.ruler2.Path()));
    QVERIFY(stage.ruler1->HasObserver(stage.display)); // still ruler 2
    QCoreApplication::processEvents();
    stage.ruler1->SetValue(50.0, nullptr);
    QCOMPARE(stage.Texts().first(), stage.ruler2->GetStringValue().toDouble() < 50.0
                                        ? QString::number(stage.ruler2->GetValue(), 'f', 1)
                                        : QStringLiteral("50.0"));
    QVERIFY(stage.display->SetRuler1_ValuePath(stage.ruler1.Path()));
    QVERIFY(Tree::Instance()->Remove(stage.ruler1.Path()));
    stage.ruler2->SetValue(1.0, nullptr);
    stage.display->ShowValues();
}

void tst_axisrangedisplay_values::integerRulers()
{
    Stage stage;
    Planted<ValueNumeric<int>> low("low");
    Planted<ValueNumeric<int>> high("high");
    low->SetValue(3, nullptr);
    high->SetValue(8, nullptr);
    QVERIFY(stage.display->SetRuler1_ValuePath(low.Path()) && stage.display->SetRuler2_ValuePath(high.Path()));
    stage.Show();
    QCOMPARE(stage.difference->GetValue(), 5.0);
    QCOMPARE(stage.center->GetValue(), 5.5);
    low->SetValue(20, nullptr);
    QCOMPARE(low->GetValue(), 8);
    QCOMPARE(high->GetValue(), 20);
}

ORIM_TEST_MAIN(tst_axisrangedisplay_values)
#include "tst_axisrangedisplay_values.moc"
