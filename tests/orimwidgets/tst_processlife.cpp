// SPDX-License-Identifier: MIT
#include "initext.h"
#include "testmain.h"

#include <QDirIterator>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

//! Programs that use the library and end in many ways: each must end with its code, say nothing, and have its colours
//! in the store.
class tst_ProcessLife : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void uses_data();
    void uses();
    void loads_data();
    void loads();

private:
    //! Starts a program and waits for its end. \return what it had to say.
    QByteArray Run(QString const & program, QStringList const & arguments, QString const & life);
    //! Text of a key in the one store below the configuration folder; empty when there is none.
    QString Stored(QString const & key) const;

    std::unique_ptr<QTemporaryDir> m_config;
    QTemporaryDir m_counts;
    int m_code = -1; // of the program run last
};

void tst_ProcessLife::init() { m_config = std::make_unique<QTemporaryDir>(); }

QByteArray tst_ProcessLife::Run(QString const & program, QStringList const & arguments, QString const & life)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), m_config->path());
    environment.insert(QStringLiteral("ORIM_LIFE"), life);
    // a library that counts its branches leaks this text when it is unloaded; the counts go to the folder then
    environment.remove(QStringLiteral("LLVM_PROFILE_FILE"));
    QProcess process;
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(m_counts.path());
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program, arguments);
    bool const isOver = process.waitForFinished(60000);
    m_code = isOver && process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    QByteArray said;
    for (QByteArray const & line : process.readAll().split('\n'))
        if (!line.isEmpty() && !line.startsWith("This plugin does not support "))
            said += line + '\n';
    return said;
}

QString tst_ProcessLife::Stored(QString const & key) const
{
    QStringList files;
    QDirIterator folder(m_config->path(), QDir::Files, QDirIterator::Subdirectories);
    while (folder.hasNext())
        files << folder.next();
    if (files.size() != 1)
        return QStringLiteral("files: ") + files.join(QLatin1Char(' '));
    QFile file(files.first());
    if (!file.open(QIODevice::ReadOnly))
        return QStringLiteral("unreadable");
    return IniText::Parse(file.readAll()).entries.value(key);
}

void tst_ProcessLife::uses_data()
{
    QTest::addColumn<int>("code");
    QTest::newRow("never told") << 0;
    QTest::newRow("told twice") << 0;
    QTest::newRow("told by the application") << 0;
    QTest::newRow("exit in a slot") << 3;
    QTest::newRow("no application") << 0;
    QTest::newRow("used before the application") << 0;
    QTest::newRow("used after the application") << 0;
    QTest::newRow("used before main") << 0;
    QTest::newRow("two applications") << 0;
    QTest::newRow("static widget") << 0;
    QTest::newRow("static axis") << 0;
    QTest::newRow("tree ends first") << 0;
    QTest::newRow("tree ends last") << 0;
    QTest::newRow("told with operations") << 0;
    QTest::newRow("store dies first") << 0;
    QTest::newRow("menu open") << 0;
    QTest::newRow("empty set at the end") << 0;
    QTest::newRow("empty set first") << 0;
}

void tst_ProcessLife::uses()
{
    QFETCH(int, code);
    QByteArray const said = Run(QStringLiteral(ORIM_LIFE_CHILD), {}, QLatin1String(QTest::currentDataTag()));
    QCOMPARE(said, QByteArray());
    QCOMPARE(m_code, code);
    QCOMPARE(Stored(QStringLiteral("GuiCentral/UserColor0")),
             QStringLiteral("V02;3;1;0;0;100;0;0;0;#000000;#010000;#00ff00;#0000ff;"));
    QCOMPARE(Stored(QStringLiteral("GuiCentral/ColorSetA")), QStringLiteral("9"));
}

void tst_ProcessLife::loads_data()
{
    QTest::addColumn<int>("code");
    QTest::newRow("loaded before the application") << 0;
    QTest::newRow("unloaded before the application") << 0;
    QTest::newRow("loaded after the application") << 0;
    QTest::newRow("unloaded after the application") << 0;
    QTest::newRow("loaded twice") << 0;
    QTest::newRow("loaded again and again") << 0;
    QTest::newRow("exit in a slot") << 3;
    QTest::newRow("no application") << 0;
    QTest::newRow("left open") << 0;
    QTest::newRow("unloaded with its central object") << 0;
    QTest::newRow("unloaded with a parked filter") << 0;
    QTest::newRow("captions loaded after the application") << 0;
    QTest::newRow("captions loaded before the application") << 0;
}

void tst_ProcessLife::loads()
{
    QFETCH(int, code);
    QString const library = QStringLiteral(ORIM_LIFE_LIBRARY);
    if (library.isEmpty())
        QSKIP("the library is linked into the program", );
    QByteArray const said =
        Run(QStringLiteral(ORIM_LIFE_LOADER), { library, QLatin1String(QTest::currentDataTag()) }, QString());
    QCOMPARE(said, QByteArray());
    QCOMPARE(m_code, code);
    if (QLatin1String(QTest::currentDataTag()) == QLatin1String("unloaded with its central object"))
        QCOMPARE(Stored(QStringLiteral("GuiCentral/ColorSetA")), QStringLiteral("9"));
}

ORIM_CORE_TEST_MAIN(tst_ProcessLife)
#include "tst_processlife.moc"
