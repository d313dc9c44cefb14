// SPDX-License-Identifier: MIT
#include "storefile.h"

#include "testmain.h"

#include <QTemporaryDir>

#include <sys/stat.h>

namespace {

QString Latin(char const * text) { return QString::fromLatin1(text); }

bool Put(QString const & path, QByteArray const & bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

QByteArray Get(QString const & path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(none)");
}

} // namespace

class tst_StoreFile : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void targetOfAPlainPath();
    void targetOfLinks();
    void targetOfALoop();
    void readsAFile();
    void readsAnAbsentFileAsNothing();
    void readsNoFolderAndNoPipe();
    void readsNothingTooLarge();
    void replacesAndMakes();
    void replaceKeepsTheMode();
    void replaceLeavesNothingBeside();
    void replaceRefusesWhatIsNoFile();
    void replaceTellsOfAMissingFolder();
    void sweeps_data();
    void sweeps();
    void sweepsOnlyBesideTheTarget();
    void sweepsByTheNameAsItStands();
    void locksAgainstAnother();
    void lockOfAMissingFolder();
    void lockLeavesNothing();

private:
    QString At(char const * name) const { return m_folder->filePath(Latin(name)); }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void tst_StoreFile::init() { m_folder = std::make_unique<QTemporaryDir>(); }

void tst_StoreFile::targetOfAPlainPath()
{
    QCOMPARE(StoreFile::Target(At("a")), At("a"));
    QVERIFY(QDir::isAbsolutePath(StoreFile::Target(Latin("relative.ini"))));
}

void tst_StoreFile::targetOfLinks()
{
    QVERIFY(QFile::link(At("c"), At("b"))); // b leads to c, which is not there
    QVERIFY(QFile::link(At("b"), At("a")));
    QCOMPARE(StoreFile::Target(At("a")), At("c"));
    QVERIFY(Put(At("c"), "x"));
    QCOMPARE(StoreFile::Target(At("a")), At("c"));
}

void tst_StoreFile::targetOfALoop()
{
    QVERIFY(QFile::link(At("b"), At("a")));
    QVERIFY(QFile::link(At("a"), At("b")));
    QCOMPARE(StoreFile::Target(At("a")), QString());
}

void tst_StoreFile::readsAFile()
{
    QByteArray const content("a\0b\r\n", 5);
    QVERIFY(Put(At("f"), content));
    QByteArray bytes;
    QCOMPARE(StoreFile::Read(At("f"), bytes), QString());
    QCOMPARE(bytes, content);
}

void tst_StoreFile::readsAnAbsentFileAsNothing()
{
    QByteArray bytes("left");
    QCOMPARE(StoreFile::Read(At("f"), bytes), QString());
    QCOMPARE(bytes, QByteArray());
}

void tst_StoreFile::readsNoFolderAndNoPipe()
{
    QByteArray bytes;
    QCOMPARE(StoreFile::Read(m_folder->path(), bytes), Latin("it is no regular file"));
    QCOMPARE(::mkfifo(QFile::encodeName(At("pipe")).constData(), 0600), 0);
    QCOMPARE(StoreFile::Read(At("pipe"), bytes), Latin("it is no regular file"));
}

void tst_StoreFile::readsNothingTooLarge()
{
    QVERIFY(Put(At("f"), "x"));
    QVERIFY(QFile::resize(At("f"), (64LL << 20) + 1)); // a hole, no blocks
    QByteArray bytes;
    QCOMPARE(StoreFile::Read(At("f"), bytes), Latin("it is larger than 64 MiB"));
}

void tst_StoreFile::replacesAndMakes()
{
    QCOMPARE(StoreFile::Replace(At("f"), "one"), QString());
    QCOMPARE(Get(At("f")), QByteArray("one"));
    QCOMPARE(StoreFile::Replace(At("f"), "2"), QString());
    QCOMPARE(Get(At("f")), QByteArray("2"));
    QCOMPARE(StoreFile::Replace(At("f"), QByteArray()), QString());
    QCOMPARE(Get(At("f")), QByteArray());
}

void tst_StoreFile::replaceKeepsTheMode()
{
    QVERIFY(Put(At("f"), "x"));
    QVERIFY(QFile::setPermissions(At("f"), QFile::ReadOwner | QFile::WriteOwner));
    QCOMPARE(StoreFile::Replace(At("f"), "y"), QString());
    QCOMPARE(QFile::permissions(At("f")) & (QFile::ReadGroup | QFile::ReadOther | QFile::WriteOther),
             QFile::Permissions());
}

void tst_StoreFile::replaceLeavesNothingBeside()
{
    QCOMPARE(StoreFile::Replace(At("f"), "one"), QString());
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
             QStringList(Latin("f")));
}

void tst_StoreFile::replaceRefusesWhatIsNoFile()
{
    QCOMPARE(StoreFile::Replace(m_folder->path(), "x"), Latin("it is no regular file"));
    QCOMPARE(::mkfifo(QFile::encodeName(At("pipe")).constData(), 0600), 0);
    QCOMPARE(StoreFile::Replace(At("pipe"), "x"), Latin("it is no regular file"));
}

void tst_StoreFile::replaceTellsOfAMissingFolder()
{
    QVERIFY(!StoreFile::Replace(At("missing/f"), "x").isEmpty());
    QVERIFY(!QFileInfo::exists(At("missing")));
}

void tst_StoreFile::sweeps_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("swept");
    auto const row = [](char const * name, bool swept) { QTest::newRow(name) << Latin(name) << swept; };
    row("f.aBcDeF", true);
    row("f.ABCDEf", true);
    row("f.abcdeF", true);
    row("f.ABcdef", true);
    row("f.backup", false);
    row("f.Backup", false);
    row("f.BACKUP", false);
    row("f.corrupt", false);
    row("f.aBcDe", false);
    row("f.aBcDeFg", false);
    row("f.aBcDe1", false);
    row("f.aBc.eF", false);
    row("f.corrupt.aBcDeF", false);
    row("F.aBcDeF", false);
    row("g.aBcDeF", false);
    row("ff.aBcDeF", false);
    row("faBcDeF", false);
    row("f", false);
}

void tst_StoreFile::sweeps()
{
    QFETCH(QString, name);
    QFETCH(bool, swept);
    QVERIFY(Put(m_folder->filePath(name), "x"));
    StoreFile::Sweep(At("f"));
    QCOMPARE(QFileInfo::exists(m_folder->filePath(name)), !swept);
}

void tst_StoreFile::sweepsOnlyBesideTheTarget()
{
    QVERIFY(QDir(m_folder->path()).mkdir(Latin("sub")));
    QVERIFY(QDir(m_folder->path()).mkdir(Latin("f.aBcDeF"))); // a folder
    QVERIFY(Put(At("sub/f.aBcDeF"), "x"));
    QVERIFY(Put(At("kept"), "x"));
    QVERIFY(QFile::link(At("kept"), At("f.aBcDeG"))); // a link
    StoreFile::Sweep(At("f"));
    QVERIFY(QFileInfo::exists(At("f.aBcDeF")));
    QVERIFY(QFileInfo::exists(At("f.aBcDeG")));
    QVERIFY(QFileInfo::exists(At("sub/f.aBcDeF")));
}

void tst_StoreFile::sweepsByTheNameAsItStands()
{
    QVERIFY(Put(At("f[1]*.aBcDeF"), "x"));
    QVERIFY(Put(At("f1.aBcDeF"), "x"));
    QVERIFY(Put(At("f1*.aBcDeF"), "x"));
    StoreFile::Sweep(At("f[1]*"));
    QVERIFY(!QFileInfo::exists(At("f[1]*.aBcDeF")));
    QVERIFY(QFileInfo::exists(At("f1.aBcDeF")));
    QVERIFY(QFileInfo::exists(At("f1*.aBcDeF")));
}

void tst_StoreFile::locksAgainstAnother()
{
    auto first = std::make_unique<StoreFile::FolderLock>(m_folder->path(), 90);
    QVERIFY(first->IsHeld());
    QElapsedTimer timer;
    timer.start();
    StoreFile::FolderLock const second(m_folder->path(), 90);
    QVERIFY(!second.IsHeld());
    QVERIFY(timer.elapsed() >= 90);
    first.reset();
    StoreFile::FolderLock const third(m_folder->path(), 90);
    QVERIFY(third.IsHeld());
}

void tst_StoreFile::lockOfAMissingFolder()
{
    StoreFile::FolderLock const lock(At("missing"), 90);
    QVERIFY(!lock.IsHeld());
}

void tst_StoreFile::lockLeavesNothing()
{
    StoreFile::FolderLock const lock(m_folder->path(), 90);
    QVERIFY(QDir(m_folder->path()).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot));
}

ORIM_CORE_TEST_MAIN(tst_StoreFile)
#include "tst_storefile.moc"
