// SPDX-License-Identifier: MIT
#include "statusline.h"

#include "testmain.h"

#include <QLabel>

class tst_StatusLine : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void initTestCase() { TestStage::HushPopups(); }

    void startsEmpty();
    void figures_data();
    void figures();
    void frequency();
    void nameIsShownWhole();
    void longNameIsShortened();
    void longNameNeedsNoRoom();
    void nameIsNoMarkup();
};

namespace {

QLabel * Label(StatusLine const & line, char const * name) { return line.findChild<QLabel *>(QLatin1String(name)); }

} // namespace

void tst_StatusLine::startsEmpty()
{
    StatusLine const line;
    QCOMPARE(Label(line, "source")->text(), QString());
    QCOMPARE(Label(line, "frequency")->text(), QString());
    QCOMPARE(Label(line, "figures")->text(), QStringLiteral("0.0 lines/s   0 drops   0.00 ms/frame"));
}

void tst_StatusLine::figures_data()
{
    QTest::addColumn<double>("rate");
    QTest::addColumn<qulonglong>("drops");
    QTest::addColumn<double>("time");
    QTest::addColumn<QString>("text");
    QTest::newRow("a round rate") << 50.0 << qulonglong{ 0 } << 2.0 << "50.0 lines/s   0 drops   2.00 ms/frame";
    QTest::newRow("rounded") << 24.96 << qulonglong{ 3 } << 1.237 << "25.0 lines/s   3 drops   1.24 ms/frame";
    QTest::newRow("most drops") << 0.1 << qulonglong{ 18446744073709551615U } << 0.0
                                << "0.1 lines/s   18446744073709551615 drops   0.00 ms/frame";
}

void tst_StatusLine::figures()
{
    QFETCH(double, rate);
    QFETCH(qulonglong, drops);
    QFETCH(double, time);
    StatusLine line;
    line.SetFigures(rate, drops, time);
    QTEST(Label(line, "figures")->text(), "text");
}

void tst_StatusLine::frequency()
{
    StatusLine line;
    line.SetFrequency(QStringLiteral("Centre 100 MHz"));
    QCOMPARE(Label(line, "frequency")->text(), QStringLiteral("Centre 100 MHz"));
    line.SetFrequency(QString());
    QCOMPARE(Label(line, "frequency")->text(), QString());
}

void tst_StatusLine::nameIsShownWhole()
{
    StatusLine line;
    line.resize(1000, 24);
    line.show();
    line.SetSource(QStringLiteral("tone.sigmf-meta"));
    QCOMPARE(Label(line, "source")->text(), QStringLiteral("tone.sigmf-meta"));
    QCOMPARE(Label(line, "source")->toolTip(), QStringLiteral("tone.sigmf-meta"));
}

void tst_StatusLine::longNameIsShortened()
{
    QString const name = QStringLiteral("first") + QString(500, QLatin1Char('x')) + QStringLiteral("last");
    StatusLine line;
    line.resize(600, 24);
    line.show();
    line.SetSource(name);
    QString const narrow = Label(line, "source")->text();
    QVERIFY2(narrow.size() < 100 && narrow.startsWith(QLatin1String("first")) && narrow.endsWith(QLatin1String("last")),
             qPrintable(narrow));
    QCOMPARE(Label(line, "source")->toolTip(), name);
    line.resize(900, 24);
    QTRY_VERIFY(Label(line, "source")->text().size() > narrow.size());
    line.resize(600, 24);
    QTRY_COMPARE(Label(line, "source")->text(), narrow);
}

void tst_StatusLine::longNameNeedsNoRoom()
{
    StatusLine line;
    int const width = line.minimumSizeHint().width();
    line.SetSource(QString(500, QLatin1Char('x')));
    QCOMPARE(line.minimumSizeHint().width(), width);
}

void tst_StatusLine::nameIsNoMarkup()
{
    StatusLine line;
    line.SetSource(QStringLiteral("<b>x</b>"));
    QCOMPARE(Label(line, "source")->textFormat(), Qt::PlainText);
}

ORIM_TEST_MAIN(tst_StatusLine)
#include "tst_statusline.moc"
