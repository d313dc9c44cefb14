// SPDX-License-Identifier: MIT
#include "guicentral.h"

#include "ownstore.h"
#include "testmain.h"
#include "uniquevalues.h"

//! The end of unique values and of the operations on them.
class tst_GuiCentralRemoval : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void removalOrder();
    void removalInTheMiddleOfTermination();
    void removalAsksForTheBoolBeforeTheFirst_data();
    void removalAsksForTheBoolBeforeTheFirst();
    void removalSkipsWhatWentBefore();
    void removalLeavesForeignValues();
    void numbersBeginAnewAfterTermination_data();
    void numbersBeginAnewAfterTermination();
    void namesGoOnAfterTermination();
    void terminationTwice();
    void operationsAfterTermination();
    void destructorRemoves();
    void resultRemovedInItsOwnNotification();
    void sourceRemovedInTheNotificationOfTheResult();
    void everythingEndsInTheNotificationOfAResult_data();
    void everythingEndsInTheNotificationOfAResult();
    void farewellRemovesTheNext();
    void farewellCreatesOfItsKind();
    void farewellCreatesOfAKindThatIsDone();
    void farewellCreatesWithoutEnd();
    void farewellTerminates();
    void farewellTerminatesAndCreates_data();
    void farewellTerminatesAndCreates();

private:
    OwnStore<> m_store;
};

void tst_GuiCentralRemoval::init() { m_store.Begin(); }

void tst_GuiCentralRemoval::cleanup()
{
    Tree::Instance()->RemoveFolder(QStringLiteral("/central"));
    QCOMPARE(Left(), QStringList());
    m_store.End();
}

void tst_GuiCentralRemoval::removalOrder()
{
    GuiCentralAccess central;
    QStringList paths;
    for (Creator const & creator : Creators)
        for (int i = 0; i < (creator.type == eTypeString || creator.type == eTypeCString ? 1 : 2); ++i)
            paths << creator.create(central);
    QStringList gone;
    Witness witness(eStateChanged, [&](ValueBase * value) { gone << value->GetPathName(); });
    for (auto path = paths.crbegin(); path != paths.crend(); ++path)
        witness.Hear(*path);
    central.aboutToTerminate();
    QCOMPARE(gone, paths); // boolean, char, float, int, int64, selection, string, by rising number
    QCOMPARE(Left(), QStringList());
}

void tst_GuiCentralRemoval::removalInTheMiddleOfTermination()
{
    GuiCentralAccess central;
    Insert<Whole>("source");
    Insert<Flag>("flag");
    QStringList const paths{ OfInt(central, 0), central.CreateNumericOperation(Path("source"), 1.0, 0U),
                             central.CreateSelectionCoupledToBool(Path("flag"), false) };
    QStringList seen;
    Witness witness(eStateChanged, [&](ValueBase *) {
        seen << QStringLiteral("%1 %2 %3 %4")
                    .arg(GuiCentralAccess::Group(central) != nullptr)
                    .arg(GuiCentralAccess::BoolOperations(central).size())
                    .arg(GuiCentralAccess::NumericOperations(central).size())
                    .arg(GuiCentralAccess::SelectionCouplers(central).size());
    });
    for (QString const & path : paths)
        witness.Hear(path);
    central.aboutToTerminate();
    QString const middle = QStringLiteral("0 0 1 1"); // written, bool operations gone, the others not yet
    QCOMPARE(seen, QStringList({ middle, middle, middle }));
    QVERIFY(GuiCentralAccess::NumericOperations(central).empty());
    QVERIFY(GuiCentralAccess::SelectionCouplers(central).empty());
}

void tst_GuiCentralRemoval::removalAsksForTheBoolBeforeTheFirst_data()
{
    QTest::addColumn<QString>("path"); // of a value that was not made here
    QTest::addColumn<bool>("isRemoved");
    QString const unique = QStringLiteral("/GuiCentral/unique/");
    QTest::newRow("bool") << unique + QStringLiteral("boolean/UNIQUE_BOOL_-1") << true;
    QTest::newRow("second bool before") << unique + QStringLiteral("boolean/UNIQUE_BOOL_-2") << false;
    QTest::newRow("char") << unique + QStringLiteral("char/UNIQUE_CHAR_-1") << false;
    QTest::newRow("float") << unique + QStringLiteral("float/UNIQUE_FLOAT_-1") << false;
    QTest::newRow("int") << unique + QStringLiteral("int/UNIQUE_INT_-1") << false;
    QTest::newRow("int64") << unique + QStringLiteral("int64/UNIQUE_INT64_-1") << false;
    QTest::newRow("selection") << unique + QStringLiteral("selection/UNIQUE_SELECTION_-1") << false;
    QTest::newRow("string") << unique + QStringLiteral("string/UNIQUE_STRING_-1") << false;
    QTest::newRow("first bool") << unique + QStringLiteral("boolean/UNIQUE_BOOL_0") << false;
    QTest::newRow("first int") << unique + QStringLiteral("int/UNIQUE_INT_0") << false;
}

void tst_GuiCentralRemoval::removalAsksForTheBoolBeforeTheFirst()
{
    QFETCH(QString, path);
    QFETCH(bool, isRemoved);
    GuiCentralAccess central; // no number was handed out
    auto const slash = path.lastIndexOf(QLatin1Char('/'));
    Tree::Instance()->Insert(path.left(slash), new Flag(path.mid(slash + 1)));
    central.aboutToTerminate();
    QCOMPARE(Tree::Instance()->Find(path) == nullptr, isRemoved);
    Tree::Instance()->Remove(path);
}

void tst_GuiCentralRemoval::removalSkipsWhatWentBefore()
{
    for (Creator const & creator : Creators) {
        GuiCentralAccess central;
        QStringList paths;
        for (int i = 0; i < 4; ++i)
            paths << creator.create(central);
        Tree::Instance()->Remove(paths[0]);
        Tree::Instance()->Remove(paths[2]);
        QStringList gone;
        Witness witness(eStateChanged, [&](ValueBase * value) { gone << value->GetPathName(); });
        witness.Hear(paths[1]);
        witness.Hear(paths[3]);
        central.aboutToTerminate();
        QCOMPARE(gone, QStringList({ paths[1], paths[3] }));
    }
}

void tst_GuiCentralRemoval::removalLeavesForeignValues()
{
    GuiCentralAccess central;
    central.CreateUniqueValueInt(0, 0, 1, 0);
    QString const folder = QStringLiteral("/GuiCentral/unique/int");
    for (char const * const name : { "UNIQUE_INT_1", "UNIQUE_INT_00", "other" })
        Tree::Instance()->Insert(folder, new Flag(QLatin1String(name)));
    central.aboutToTerminate();
    QCOMPARE(Left(), QStringList({ folder + QStringLiteral("/UNIQUE_INT_00"), folder + QStringLiteral("/UNIQUE_INT_1"),
                                   folder + QStringLiteral("/other") }));
    Tree::Instance()->RemoveFolder(folder);
}

void tst_GuiCentralRemoval::numbersBeginAnewAfterTermination_data()
{
    QTest::addColumn<int>("index");
    int index = 0;
    for (Creator const & creator : Creators)
        QTest::newRow(creator.row) << index++;
}

void tst_GuiCentralRemoval::numbersBeginAnewAfterTermination()
{
    QFETCH(int, index);
    Creator const & creator = Creators[index];
    GuiCentralAccess central;
    for (int i = 0; i < 3; ++i)
        creator.create(central);
    central.aboutToTerminate();
    QCOMPARE(Left(), QStringList());
    auto const counts = GuiCentralAccess::Counts(central);
    for (std::size_t i = 0; i < 7; ++i)
        QCOMPARE(*counts[i], 0);
    QString const path = creator.create(central);
    QCOMPARE(path, QLatin1String(creator.path) + QStringLiteral("0"));
    QVERIFY(Tree::Instance()->Find(path));
}

void tst_GuiCentralRemoval::namesGoOnAfterTermination()
{
    GuiCentralAccess central;
    QCOMPARE(central.CreateUniqueName(), QStringLiteral("UNIQUE_NAME_0"));
    QCOMPARE(central.CreateUniqueName(), QStringLiteral("UNIQUE_NAME_1"));
    central.aboutToTerminate();
    QCOMPARE(central.CreateUniqueName(), QStringLiteral("UNIQUE_NAME_2"));
}

void tst_GuiCentralRemoval::terminationTwice()
{
    GuiCentralAccess central;
    central.CreateUniqueValueBoolean(true);
    central.aboutToTerminate();
    QString const path = central.CreateUniqueValueBoolean(true);
    central.aboutToTerminate(); // what was made in between goes
    QVERIFY(!Tree::Instance()->Find(path));
    central.aboutToTerminate();
    QCOMPARE(Left(), QStringList());
}

void tst_GuiCentralRemoval::operationsAfterTermination()
{
    GuiCentralAccess central;
    auto * const source = Insert<Whole>("source");
    OfInt(central, BoolOperation::eEqual);
    central.aboutToTerminate();
    QCOMPARE(source->GetObserverCount(), 0);
    QString const path = OfInt(central, BoolOperation::eEqual);
    source->SetValue(5, nullptr);
    QVERIFY(Find<Flag>(path)->GetValue());
}

void tst_GuiCentralRemoval::destructorRemoves()
{
    auto * const source = Insert<Whole>("source");
    {
        GuiCentralAccess central;
        for (Creator const & creator : Creators)
            creator.create(central);
        OfInt(central, BoolOperation::eEqual);
        central.CreateNumericOperation(Path("source"), 1.0, 0U);
        central.CreateNumericCoupler(Path("source"), 1.0, 0U);
        QCOMPARE(source->GetObserverCount(), 3);
    }
    QCOMPARE(Left(), QStringList());
    QCOMPARE(source->GetObserverCount(), 0);
}

void tst_GuiCentralRemoval::resultRemovedInItsOwnNotification()
{
    GuiCentralAccess central;
    auto * const source = Insert<Whole>("source");
    QString const path = OfInt(central, BoolOperation::eEqual);
    QString const number = central.CreateNumericOperation(Path("source"), 1.0, 0U);
    Witness witness(eValueChanged, [&](ValueBase * value) { Tree::Instance()->Remove(value->GetPathName()); });
    witness.Hear(path);
    witness.Hear(number);
    source->SetValue(5, nullptr); // the operation ends inside its own write
    QVERIFY(!Tree::Instance()->Find(path));
    QVERIFY(!Tree::Instance()->Find(number));
    QVERIFY(GuiCentralAccess::BoolOperations(central).empty());
    QCOMPARE(source->GetObserverCount(), 1); // the numeric operation, until termination
    source->SetValue(6, nullptr);
    source->SetValue(5, nullptr);
}

void tst_GuiCentralRemoval::sourceRemovedInTheNotificationOfTheResult()
{
    GuiCentralAccess central;
    auto * const source = Insert<Whole>("source");
    Insert<Whole>("operand")->SetValue(5, nullptr);
    QString const path = OfPath(central, BoolOperation::eEqual);
    Witness witness(eValueChanged, [&](ValueBase *) {
        Tree::Instance()->Remove(Path("source"));
        Tree::Instance()->Remove(Path("operand"));
    });
    witness.Hear(path);
    source->SetValue(5, nullptr);
    QVERIFY(!Tree::Instance()->Find(Path("source")));
    QVERIFY(Find<Flag>(path)->GetValue());
    QCOMPARE(GuiCentralAccess::BoolOperations(central).size(), std::size_t(1));
}

void tst_GuiCentralRemoval::everythingEndsInTheNotificationOfAResult_data()
{
    QTest::addColumn<int>("result");
    QTest::newRow("of a bool operation") << 0;
    QTest::newRow("of a numeric operation") << 1;
    QTest::newRow("of a coupler") << 2;
    QTest::newRow("of a coupled selection") << 3;
}

void tst_GuiCentralRemoval::everythingEndsInTheNotificationOfAResult()
{
    QFETCH(int, result);
    GuiCentralAccess central;
    auto * const source = Insert<Whole>("source");
    auto * const flag = Insert<Flag>("flag");
    QStringList const paths{ OfInt(central, BoolOperation::eEqual),
                             central.CreateNumericOperation(Path("source"), 1.0, 0U),
                             central.CreateNumericCoupler(Path("source"), 1.0, 0U),
                             central.CreateSelectionCoupledToBool(Path("flag"), false) };
    int ends = 0;
    Witness witness(eValueChanged, [&](ValueBase *) {
        ++ends;
        central.aboutToTerminate(); // the operation is in the middle of its write
    });
    witness.Hear(paths[result]);
    source->SetValue(5, nullptr);
    flag->SetValue(true, nullptr);
    QCOMPARE(ends, 1);
    QCOMPARE(Left(), QStringList());
    QCOMPARE(source->GetObserverCount(), 0);
    QCOMPARE(flag->GetObserverCount(), 0);
}

void tst_GuiCentralRemoval::farewellRemovesTheNext()
{
    GuiCentralAccess central;
    QStringList paths;
    for (int i = 0; i < 4; ++i)
        paths << central.CreateUniqueValueString(QString());
    QStringList gone;
    Witness witness(eStateChanged, [&](ValueBase * value) {
        gone << value->GetName();
        Tree::Instance()->Remove(paths[paths.indexOf(value->GetPathName()) + 1]);
    });
    witness.Hear(paths[0]);
    witness.Hear(paths[2]);
    central.aboutToTerminate();
    QCOMPARE(gone, QStringList({ QStringLiteral("UNIQUE_STRING_0"), QStringLiteral("UNIQUE_STRING_2") }));
    QCOMPARE(Left(), QStringList());
}

void tst_GuiCentralRemoval::farewellCreatesOfItsKind()
{
    GuiCentralAccess central;
    QStringList created;
    Witness witness(eStateChanged, [&](ValueBase *) {
        created << central.CreateUniqueValueInt(1, 0, 2, 0) << central.CreateUniqueValueString(QString());
    });
    witness.Hear(central.CreateUniqueValueInt(1, 0, 2, 0));
    central.aboutToTerminate();
    QCOMPARE(created, QStringList({ QStringLiteral("/GuiCentral/unique/int/UNIQUE_INT_1"),
                                    QStringLiteral("/GuiCentral/unique/string/UNIQUE_STRING_0") }));
    QCOMPARE(Left(), QStringList());
    QCOMPARE(*GuiCentralAccess::Counts(central)[3], 0);
}

void tst_GuiCentralRemoval::farewellCreatesOfAKindThatIsDone()
{
    GuiCentralAccess central;
    QString created;
    Witness witness(eStateChanged, [&](ValueBase *) { created = central.CreateUniqueValueBoolean(true); });
    witness.Hear(central.CreateUniqueValueInt(1, 0, 2, 0));
    central.aboutToTerminate();
    QCOMPARE(created, QStringLiteral("/GuiCentral/unique/boolean/UNIQUE_BOOL_0"));
    QVERIFY(Tree::Instance()->Find(created));
    QCOMPARE(central.CreateUniqueValueBoolean(true), QStringLiteral("/GuiCentral/unique/boolean/UNIQUE_BOOL_1"));
}

void tst_GuiCentralRemoval::farewellCreatesWithoutEnd()
{
    GuiCentralAccess central;
    bool isStubborn = true;
    int gone = 0;
    Witness witness(eStateChanged, [&](ValueBase *) {
        ++gone;
        if (isStubborn)
            witness.Hear(central.CreateUniqueValueInt(1, 0, 2, 0));
    });
    witness.Hear(central.CreateUniqueValueInt(1, 0, 2, 0));
    central.aboutToTerminate(); // gives up
    QVERIFY2(gone > 1 && gone < 10000, QByteArray::number(gone).constData());
    QCOMPARE(Left().size(), 1);
    isStubborn = false;
    QString const path = central.CreateUniqueValueInt(2, 0, 2, 0);
    QCOMPARE(Find<Whole>(path)->GetValue(), 2); // takes nobody else's place
    central.aboutToTerminate();
    QCOMPARE(Left(), QStringList());
}

void tst_GuiCentralRemoval::farewellTerminates()
{
    GuiCentralAccess central;
    for (int i = 0; i < 3; ++i)
        for (Creator const & creator : Creators)
            creator.create(central);
    int gone = 0;
    Witness witness(eStateChanged, [&](ValueBase *) {
        ++gone;
        central.aboutToTerminate();
    });
    for (QString const & path : Left())
        witness.Hear(path);
    central.aboutToTerminate();
    QCOMPARE(gone, 24);
    QCOMPARE(Left(), QStringList());
    for (Creator const & creator : Creators)
        if (creator.type != eTypeCString)
            QCOMPARE(creator.create(central), QLatin1String(creator.path) + QStringLiteral("0"));
}

void tst_GuiCentralRemoval::farewellTerminatesAndCreates_data()
{
    QTest::addColumn<int>("count"); // created, where three were
    QTest::newRow("fewer") << 1;
    QTest::newRow("as many") << 3;
    QTest::newRow("more") << 5;
}

void tst_GuiCentralRemoval::farewellTerminatesAndCreates()
{
    QFETCH(int, count);
    GuiCentralAccess central;
    QStringList paths;
    for (int i = 0; i < 3; ++i)
        paths << central.CreateUniqueValueString(QStringLiteral("old"));
    QStringList created;
    Witness witness(eStateChanged, [&](ValueBase *) {
        central.aboutToTerminate();
        for (int i = 0; i < count; ++i)
            created << central.CreateUniqueValueString(QStringLiteral("new"));
    });
    witness.Hear(paths[1]);
    central.aboutToTerminate();
    QCOMPARE(created.size(), count);
    QCOMPARE(created[0], paths[0]);
    QVERIFY(!created.contains(central.CreateUniqueValueString(QStringLiteral("newer"))));
    for (QString const & path : created) {
        auto const * const value = Find<Value<QString>>(path);
        QVERIFY(value);
        QCOMPARE(value->GetValue(), QStringLiteral("new"));
    }
    central.aboutToTerminate();
    QCOMPARE(Left(), QStringList());
    QCOMPARE(central.CreateUniqueValueString(QString()), paths[0]);
}

ORIM_TEST_MAIN(tst_GuiCentralRemoval)
#include "tst_guicentral_removal.moc"
