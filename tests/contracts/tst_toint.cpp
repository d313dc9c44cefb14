// SPDX-License-Identifier: MIT
#include "samevalue.h"
#include "toint.h"

#include "testmain.h"

class tst_ToInt : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void toInt32_data();
    void toInt32();
    void otherTypes();
    void same();
};

void tst_ToInt::toInt32_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("expected");
    int const lowest = std::numeric_limits<int>::lowest();
    QTest::newRow("truncates down") << 2.9 << 2;
    QTest::newRow("truncates towards zero") << -2.9 << -2;
    QTest::newRow("minus a half is zero") << -0.5 << 0;
    QTest::newRow("highest") << 2147483647.0 << 2147483647;
    QTest::newRow("highest with a fraction") << 2147483647.9 << 2147483647;
    QTest::newRow("one past the highest") << 2147483648.0 << lowest;
    QTest::newRow("lowest") << -2147483648.0 << lowest;
    QTest::newRow("lowest with a fraction") << -2147483648.9 << lowest;
    QTest::newRow("NaN") << qQNaN() << lowest;
    QTest::newRow("infinite") << qInf() << lowest;
    QTest::newRow("huge") << 1e300 << lowest;
}

void tst_ToInt::toInt32()
{
    QFETCH(double, value);
    QFETCH(int, expected);
    QCOMPARE(toInt(value), expected);
}

void tst_ToInt::otherTypes()
{
    QCOMPARE(toInt<unsigned int>(-1.0), 0u);
    QCOMPARE(toInt<unsigned int>(-0.9), 0u);
    QCOMPARE(toInt<unsigned int>(4294967295.0), 4294967295u);
    QCOMPARE(toInt<unsigned int>(4294967296.0), 0u);
    QCOMPARE(toInt<short>(32768.0), std::numeric_limits<short>::lowest());
    QCOMPARE(toInt<long long>(9223372036854774784.0), 9223372036854774784LL);
    QCOMPARE(toInt<long long>(9223372036854775808.0), std::numeric_limits<long long>::lowest());
    QCOMPARE(toInt<unsigned long long>(qQNaN()), 0ULL);
}

void tst_ToInt::same()
{
    QVERIFY(sameValue(qQNaN(), qQNaN()));
    QVERIFY(sameValue(0.0, -0.0));
    QVERIFY(!sameValue(qQNaN(), 0.0));
    QVERIFY(!sameValue(1.0, 1.0 + std::numeric_limits<double>::epsilon()));
    QVERIFY(sameValue(QStringLiteral("a"), QStringLiteral("a")));
}

ORIM_CORE_TEST_MAIN(tst_ToInt)
#include "tst_toint.moc"
