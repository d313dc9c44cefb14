// SPDX-License-Identifier: MIT
#include "separatestring.h"

#include "testmain.h"

#include <array>

class tst_SeparateString : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void splits_data();
    void splits();
    void lackingFieldsKeep();
    void dropsBeyondTheLimit();
    void theLargestLimit();
    void nullArray();
};

void tst_SeparateString::splits_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("fields");
    auto const row = [](char const * name, QString const & text, QStringList const & fields) {
        QTest::newRow(name) << text << fields;
    };
    QString const none;
    row("one field", QStringLiteral("a"), { QStringLiteral("a") });
    row("two fields", QStringLiteral("a;b"), { QStringLiteral("a"), QStringLiteral("b") });
    row("a closing separator counts one more", QStringLiteral("a;b;"),
        { QStringLiteral("a"), QStringLiteral("b"), none });
    row("two closing separators count two more", QStringLiteral("a;;"), { QStringLiteral("a"), none, none });
    row("an opening separator is behind an empty field", QStringLiteral(";a"), { none, QStringLiteral("a") });
    row("an empty field between", QStringLiteral("a;;b"), { QStringLiteral("a"), none, QStringLiteral("b") });
    row("only a separator", QStringLiteral(";"), { none, none });
    row("an empty text is one empty field", QStringLiteral(""), { none });
    row("a null text is one empty field", QString(), { none });
    row("blanks stay", QStringLiteral(" a ; b "), { QStringLiteral(" a "), QStringLiteral(" b ") });
    row("quotes are nothing special", QStringLiteral("\"a;b\""), { QStringLiteral("\"a"), QStringLiteral("b\"") });
    row("commas and line ends do not split", QStringLiteral("a,b\nc"), { QStringLiteral("a,b\nc") });
    row("beyond ASCII", QString(QChar(0x20ac)) + QLatin1Char(';') + QChar(0xb5),
        { QString(QChar(0x20ac)), QString(QChar(0xb5)) });
    row("a colour set line", QStringLiteral("V02;2;1;0;0;100;0;0;0;#000000;#000000;#000000;"),
        { QStringLiteral("V02"), QStringLiteral("2"), QStringLiteral("1"), QStringLiteral("0"), QStringLiteral("0"),
          QStringLiteral("100"), QStringLiteral("0"), QStringLiteral("0"), QStringLiteral("0"),
          QStringLiteral("#000000"), QStringLiteral("#000000"), QStringLiteral("#000000"), none });
}

void tst_SeparateString::splits()
{
    QFETCH(QString, text);
    QFETCH(QStringList, fields);
    std::array<QString, 20> array;
    int const count = Orim::separateString(text, array.data(), 20);
    QStringList read;
    for (int i = 0; i < count; ++i)
        read << array[static_cast<size_t>(i)];
    QCOMPARE(read, fields);
}

void tst_SeparateString::lackingFieldsKeep()
{
    std::array<QString, 4> array;
    array.fill(QStringLiteral(";"));
    QCOMPARE(Orim::separateString(QStringLiteral("a;"), array.data(), 4), 2);
    QCOMPARE(array[0], QStringLiteral("a"));
    QCOMPARE(array[1], QString());
    QCOMPARE(array[2], QStringLiteral(";"));
    QCOMPARE(array[3], QStringLiteral(";"));
}

void tst_SeparateString::dropsBeyondTheLimit()
{
    std::array<QString, 3> array;
    array.fill(QStringLiteral("kept"));
    QCOMPARE(Orim::separateString(QStringLiteral("a;b;c;d"), array.data(), 2), 2);
    QCOMPARE(array[0], QStringLiteral("a"));
    QCOMPARE(array[1], QStringLiteral("b")); // not "b;c;d"
    QCOMPARE(array[2], QStringLiteral("kept"));
    QCOMPARE(Orim::separateString(QStringLiteral("x"), array.data(), 0), 0);
    QCOMPARE(array[0], QStringLiteral("a"));
}

void tst_SeparateString::theLargestLimit()
{
    std::array<QString, 256> array;
    array[255] = QStringLiteral("kept");
    QCOMPARE(Orim::separateString(QString(1000, QLatin1Char(';')), array.data(), 255), 255);
    QCOMPARE(array[255], QStringLiteral("kept"));
}

void tst_SeparateString::nullArray() { QCOMPARE(Orim::separateString(QStringLiteral("a;b"), nullptr, 2), 0); }

ORIM_CORE_TEST_MAIN(tst_SeparateString)
#include "tst_separatestring.moc"
