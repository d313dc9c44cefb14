// SPDX-License-Identifier: MIT
#include "testmain.h"
#include "ytypedefinition.h"

class tst_YTypeDefinition : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Dimensions_data();
    void Dimensions();
    void BadKindIsEmpty_data();
    void BadKindIsEmpty();
};

void tst_YTypeDefinition::Dimensions_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<std::vector<QString>>("curve");
    QTest::addColumn<std::vector<QString>>("waterfall");
    using Names = std::vector<QString>;
    QTest::newRow("spectrum") << 0 << Names{ "Level" } << Names{ "Level" };
    QTest::newRow("direction finder") << 1 << Names{ "Level", "Azimuth", "Elevation", "Quality" }
                                      << Names{ "Level", "Azimuth", "Elevation", "Quality" };
    QTest::newRow("azimuth finder keeps the place of elevation empty")
        << 2 << Names{ "Level", "Azimuth", "", "Quality" } << Names{ "Level", "Azimuth", "", "Quality" };
    QTest::newRow("time signal") << 3 << Names{ "Level", "", "", "", "Frequency", "Phase" } << Names{ "Level" };
}

void tst_YTypeDefinition::Dimensions()
{
    QFETCH(int, kind);
    QFETCH(std::vector<QString>, curve);
    QFETCH(std::vector<QString>, waterfall);
    QCOMPARE(YTypeDefinition::GetCurveDimensions(kind), curve);
    QCOMPARE(YTypeDefinition::GetWaterfallDimensions(kind), waterfall);
}

void tst_YTypeDefinition::BadKindIsEmpty_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("below the first") << -1;
    QTest::newRow("past the last") << 4;
    QTest::newRow("lowest int") << std::numeric_limits<int>::min();
    QTest::newRow("highest int") << std::numeric_limits<int>::max();
}

void tst_YTypeDefinition::BadKindIsEmpty()
{
    QFETCH(int, kind);
    QVERIFY(YTypeDefinition::GetCurveDimensions(kind).empty());
    QVERIFY(YTypeDefinition::GetWaterfallDimensions(kind).empty());
}

ORIM_CORE_TEST_MAIN(tst_YTypeDefinition)

#include "tst_ytypedefinition.moc"
