// SPDX-License-Identifier: MIT
#include "guardedbuild.h"

#include "errorhandler.h"
#include "krexception.h"
#include "testmain.h"

#include <stdexcept>

namespace {

QStringList s_lines; // "type: text" of what is logged

//! Catches what is logged while it lives.
class Net
{
public:
    Net() : m_before(qInstallMessageHandler(Note)) { s_lines.clear(); }

    Net(Net const &) = delete;
    Net & operator=(Net const &) = delete;

    ~Net() { qInstallMessageHandler(m_before); }

private:
    static void Note(QtMsgType type, QMessageLogContext const &, QString const & text)
    {
        s_lines << QString::number(type) + QLatin1String(": ") + text;
    }

    QtMessageHandler m_before;
};

//! An exception without a text.
class Mute : public std::exception
{
public:
    char const * what() const noexcept override { return nullptr; }
};

QString const Where = QStringLiteral("controls/orimwidgets/guicentral");

void ThrowOurs() { throw KRException(std::string("lost"), "Editor", "editor.cpp", "Build", 7, 9); }

void ThrowStandard() { throw std::runtime_error("no memory"); }

void ThrowMute() { throw Mute(); }

} // namespace

class tst_GuardedBuild : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void failure_data();
    void failure();
    void success();
    void passesOthersUp();
};

void tst_GuardedBuild::failure_data()
{
    // the numbers before the texts are QtInfoMsg 4, QtWarningMsg 1, QtCriticalMsg 2
    QTest::addColumn<QString>("kind");
    QTest::addColumn<unsigned int>("mask");
    QTest::addColumn<QStringList>("lines");
    QString const ours = QStringLiteral("lost [Editor::Build, editor.cpp:7, code 9]");
    QString const standard =
        QStringLiteral("no memory [class::method, ") + Where + QStringLiteral(":357, code 4294967295]");
    QString const mute =
        QStringLiteral("Unknown exception [class::method, ") + Where + QStringLiteral(":357, code 4294967295]");
    QString const oursTrace =
        QStringLiteral("4: ") + Where + QStringLiteral("(357): KRException caught in standard catch-block");
    QString const standardTrace =
        QStringLiteral("4: ") + Where + QStringLiteral("(357): Standard C++ Exception caught in standard catch-block");
    QString const plain = QStringLiteral(" (0, -1, 1, 0, 0)");
    QString const marked = QStringLiteral(" (0, -1, 1, 256, 0)");
    QTest::newRow("ours") << "ours" << 0u << QStringList{ "1: " + ours, "2: " + ours + plain };
    QTest::newRow("ours, traced") << "ours" << 0x20u << QStringList{ oursTrace, "1: " + ours, "2: " + ours + plain };
    QTest::newRow("ours, other traces") << "ours" << 0xFFFFFFDFu << QStringList{ "1: " + ours, "2: " + ours + plain };
    QTest::newRow("standard") << "standard" << 0u << QStringList{ "1: " + standard, "2: " + standard + marked };
    QTest::newRow("standard, traced") << "standard" << 0x20u
                                      << QStringList{ standardTrace, "1: " + standard, "2: " + standard + marked };
    QTest::newRow("without a text") << "mute" << 0u << QStringList{ "1: " + mute, "2: " + mute + marked };
    QTest::newRow("without a text, traced")
        << "mute" << 0xFFu << QStringList{ standardTrace, "1: " + mute, "2: " + mute + marked };
}

void tst_GuardedBuild::failure()
{
    QFETCH(QString, kind);
    QFETCH(unsigned int, mask);
    QFETCH(QStringList, lines);
    int built = 42;
    auto const build = [&] {
        if (kind == QLatin1String("ours"))
            ThrowOurs();
        else if (kind == QLatin1String("standard"))
            ThrowStandard();
        else
            ThrowMute();
        built = 0;
    };
    ErrorHandler::Instance().SetTraceMask(mask);
    bool isBuilt = true;
    {
        Net const net;
        isBuilt = BuildGuarded(build);
    }
    ErrorHandler::Instance().SetTraceMask(0);
    QVERIFY(!isBuilt);
    QCOMPARE(built, 42); // what was there stays
    QCOMPARE(s_lines, lines);
    QVERIFY(QApplication::topLevelWidgets().isEmpty());
}

void tst_GuardedBuild::success()
{
    int built = 42;
    Net const net;
    QVERIFY(BuildGuarded([&] { built = 7; }));
    QCOMPARE(built, 7);
    QCOMPARE(s_lines, QStringList());
}

void tst_GuardedBuild::passesOthersUp()
{
    bool caught = false;
    try {
        BuildGuarded([] { throw 5; });
    } catch (int number) {
        caught = number == 5;
    }
    QVERIFY(caught);
}

ORIM_TEST_MAIN(tst_GuardedBuild)
#include "tst_guardedbuild.moc"
