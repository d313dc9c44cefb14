// SPDX-License-Identifier: MIT
#include "errorhandler.h"

#include "krexception.h"
#include "testmain.h"

#include <QLoggingCategory>

namespace {

struct Line
{
    QtMsgType type;
    QByteArray category;
    QString text;
};

QVector<Line> * s_lines = nullptr;

void Note(QtMsgType type, QMessageLogContext const & context, QString const & text)
{
    s_lines->append({ type, context.category, text });
}

//! Catches what is logged while it lives.
struct Net
{
    Net() : m_before((s_lines = &m_lines, qInstallMessageHandler(Note))) {}

    ~Net() { qInstallMessageHandler(m_before); }

    QVector<Line> m_lines;
    QtMessageHandler m_before;
};

KRException Sample() { return { std::string("t"), "c", "s", "f", 3, 4 }; }

} // namespace

class tst_ErrorHandler : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void oneObject();
    void traceMask();
    void traces();
    void traceOfAnyText();
    void records();
    void reports();
    void reportsWithoutTheFifth();
    void silentWhenTheCategoryIsOff();
    void opensNoWindow();
};

void tst_ErrorHandler::oneObject()
{
    QCOMPARE(&ErrorHandler::Instance(), &ErrorHandler::Instance());
    QCOMPARE(ErrorHandler::Interface(), static_cast<IErrorHandler *>(&ErrorHandler::Instance()));
}

void tst_ErrorHandler::traceMask()
{
    QCOMPARE(ErrorHandler::TraceBit, 32u);
    QCOMPARE(ErrorHandler::Interface()->GetTraceMask(), 0u);
    ErrorHandler::Instance().SetTraceMask(32);
    QCOMPARE(ErrorHandler::Interface()->GetTraceMask(), 32u);
    QCOMPARE(ErrorHandler::Instance().GetTraceMask() & ErrorHandler::TraceBit, 32u);
    ErrorHandler::Instance().SetTraceMask(0xFFFFFFFFu);
    QCOMPARE(ErrorHandler::Instance().GetTraceMask(), 0xFFFFFFFFu);
    ErrorHandler::Instance().SetTraceMask(0);
}

void tst_ErrorHandler::traces()
{
    Net net;
    _Q_Trace(QStringLiteral("Marker 3"), QStringLiteral("controls/orimwidgets/marker"), 298);
    QCOMPARE(net.m_lines.size(), 1);
    QCOMPARE(net.m_lines[0].type, QtInfoMsg);
    QCOMPARE(net.m_lines[0].category, QByteArray("orim.trace"));
    QCOMPARE(net.m_lines[0].text, QStringLiteral("controls/orimwidgets/marker(298): Marker 3"));
}

void tst_ErrorHandler::traceOfAnyText()
{
    Net net;
    _Q_Trace(QStringLiteral("100 %s %n ") + QChar(0x20ac), QStringLiteral("%1"), 65535);
    QCOMPARE(net.m_lines[0].text, QStringLiteral("%1(65535): 100 %s %n ") + QChar(0x20ac));
}

void tst_ErrorHandler::records()
{
    Net net;
    ErrorHandler::Interface()->Record(Sample());
    QCOMPARE(net.m_lines.size(), 1);
    QCOMPARE(net.m_lines[0].type, QtWarningMsg);
    QCOMPARE(net.m_lines[0].category, QByteArray("orim.error"));
    QCOMPARE(net.m_lines[0].text, QStringLiteral("t [c::f, s:3, code 4]"));
}

void tst_ErrorHandler::reports()
{
    Net net;
    ErrorHandler::Interface()->Report(Sample(), 0, -1, 1, 0, 0x100);
    QCOMPARE(net.m_lines.size(), 1);
    QCOMPARE(net.m_lines[0].type, QtCriticalMsg);
    QCOMPARE(net.m_lines[0].category, QByteArray("orim.error"));
    QCOMPARE(net.m_lines[0].text, QStringLiteral("t [c::f, s:3, code 4] (0, -1, 1, 0, 256)"));
}

void tst_ErrorHandler::reportsWithoutTheFifth()
{
    Net net;
    ErrorHandler::Interface()->Report(Sample(), 1, 2, 3, 4);
    QCOMPARE(net.m_lines[0].text, QStringLiteral("t [c::f, s:3, code 4] (1, 2, 3, 4, 0)"));
}

void tst_ErrorHandler::silentWhenTheCategoryIsOff()
{
    Net net;
    QLoggingCategory::setFilterRules(QStringLiteral("orim.*=false"));
    ErrorHandler::Interface()->Record(Sample());
    ErrorHandler::Interface()->Report(Sample(), 1, 2, 3, 4);
    _Q_Trace(QStringLiteral("t"), QStringLiteral("p"), 1);
    QLoggingCategory::setFilterRules(QString());
    QCOMPARE(net.m_lines.size(), 0);
}

void tst_ErrorHandler::opensNoWindow()
{
    QTest::ignoreMessage(QtCriticalMsg, "t [c::f, s:3, code 4] (0, -1, 1, 0, 0)");
    ErrorHandler::Interface()->Report(Sample(), 0, -1, 1, 0); // a modal box would not return
    QCOMPARE(QApplication::topLevelWidgets().size(), 0);
    QVERIFY(!QApplication::activeModalWidget());
}

ORIM_TEST_MAIN(tst_ErrorHandler)
#include "tst_errorhandler.moc"
