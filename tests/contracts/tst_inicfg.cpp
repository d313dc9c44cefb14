// SPDX-License-Identifier: MIT
#include "inicfg.h"

#include "storefile.h"
#include "testmain.h"

#include <QElapsedTimer>
#include <QRegularExpression>
#include <QSettings>
#include <QTemporaryDir>

#include <sys/stat.h>

#include <algorithm>
#include <limits>

namespace {

QString Latin(char const * text) { return QString::fromLatin1(text); }

} // namespace

class tst_IniCfg : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void missingKeyGivesTheFallback();
    void readsBackAtOnceAndAfterAStart();
    void emptyIsNotMissing();
    void makesItsFolder();
    void writesNothingUnasked();
    void sameTextIsNoWrite();
    void writesWhenItEnds();
    void isReadByQt();
    void readsWhatPeopleWrite();
    void takesAlongWhatAnotherSaved();
    void ownKeysWinOverAnothers();
    void comesBackAfterItsFileWasDeleted();
    void comesBackAfterItsFolderWasDeleted();
    void damageIsPutAside();
    void damageOfAnotherWriterIsPutAside();
    void damageThatCannotBePutAside();
    void followsLinks();
    void followsALinkThatLeadsNowhere();
    void refuses_data();
    void refuses();
    void failureIsToldOnceAndOvercome();
    void waitsForNoLock();
    void sweepsAtStart();
    void modeIsKept();

private:
    QString Path() const { return m_folder->filePath(Latin("store.ini")); }

    QByteArray Bytes(char const * name = "store.ini") const
    {
        QFile file(m_folder->filePath(Latin(name)));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(none)");
    }

    bool Put(QByteArray const & bytes, char const * name = "store.ini") const
    {
        QFile file(m_folder->filePath(Latin(name)));
        return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
    }

    //! Announces one line about the store.
    void Expect(char const * text) const
    {
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QRegularExpression::escape(m_folder->path()) +
                                                              Latin(".*") + QRegularExpression::escape(Latin(text))));
    }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void tst_IniCfg::init() { m_folder = std::make_unique<QTemporaryDir>(); }

void tst_IniCfg::missingKeyGivesTheFallback()
{
    IniCfg store(Path());
    QCOMPARE(store.ReadString(Latin("k"), Latin("f")), Latin("f"));
    QVERIFY(store.ReadString(Latin("k"), QString()).isNull());
    QVERIFY(store.Flush());
    QCOMPARE(store.GetProblem(), QString());
}

void tst_IniCfg::readsBackAtOnceAndAfterAStart()
{
    QString const text = Latin("V02;2;1;\xb5 \"x\"\n@") + QChar(0x20ac);
    {
        IniCfg store(Path());
        store.WriteString(Latin("GuiCentral/UserColor0"), text);
        QCOMPARE(store.ReadString(Latin("GuiCentral/UserColor0"), Latin("f")), text);
        QVERIFY(store.Flush());
    }
    IniCfg store(Path());
    QCOMPARE(store.ReadString(Latin("GuiCentral/UserColor0"), Latin("f")), text);
    QCOMPARE(store.GetEntries().size(), 1);
}

void tst_IniCfg::emptyIsNotMissing()
{
    {
        IniCfg store(Path());
        store.WriteString(Latin("a"), QString());
        store.WriteString(Latin("b"), Latin(""));
        QCOMPARE(store.ReadString(Latin("a"), Latin("f")), QString());
    }
    IniCfg store(Path());
    QCOMPARE(store.ReadString(Latin("a"), Latin("f")), Latin(""));
    QCOMPARE(store.ReadString(Latin("b"), Latin("f")), Latin(""));
    QVERIFY(!store.ReadString(Latin("a"), Latin("f")).isNull());
}

void tst_IniCfg::makesItsFolder()
{
    QString const path = m_folder->filePath(Latin("a/b/store.ini"));
    IniCfg store(path);
    QVERIFY(!QFileInfo::exists(m_folder->filePath(Latin("a"))));
    store.WriteString(Latin("k"), Latin("1"));
    QVERIFY(store.Flush());
    QVERIFY(QFileInfo::exists(path));
}

void tst_IniCfg::writesNothingUnasked()
{
    {
        IniCfg store(Path());
        QVERIFY(store.Flush());
    }
    QCOMPARE(Bytes(), QByteArray("(none)"));
    QVERIFY(Put("; by hand\nk = 1"));
    {
        IniCfg store(Path());
        QVERIFY(store.Flush());
    }
    QCOMPARE(Bytes(), QByteArray("; by hand\nk = 1"));
}

void tst_IniCfg::sameTextIsNoWrite()
{
    QVERIFY(Put("; by hand\nk = 1"));
    IniCfg store(Path());
    store.WriteString(Latin("k"), Latin("1"));
    QVERIFY(store.Flush());
    QCOMPARE(Bytes(), QByteArray("; by hand\nk = 1"));
    store.WriteString(Latin("k"), Latin("2"));
    QCOMPARE(Bytes(), QByteArray("; by hand\nk = 1")); // not before the flush
    QVERIFY(store.Flush());
    QCOMPARE(Bytes(), QByteArray("[General]\nk=2\n"));
}

void tst_IniCfg::writesWhenItEnds()
{
    {
        IniCfg store(Path());
        store.WriteString(Latin("k"), Latin("1"));
    }
    QCOMPARE(Bytes(), QByteArray("[General]\nk=1\n"));
}

void tst_IniCfg::isReadByQt()
{
    {
        IniCfg store(Path());
        store.WriteString(Latin("Display/Level"), Latin("0.1"));
        store.WriteString(Latin("GuiCentral/UserColor0"), Latin("V02;2;1;\xb5"));
    }
    QSettings settings(Path(), QSettings::IniFormat);
    QCOMPARE(settings.allKeys(), QStringList({ Latin("Display/Level"), Latin("GuiCentral/UserColor0") }));
    QCOMPARE(settings.value(Latin("Display/Level")).toString(), Latin("0.1"));
    QCOMPARE(settings.value(Latin("GuiCentral/UserColor0")).toString(), Latin("V02;2;1;\xb5"));
}

void tst_IniCfg::readsWhatPeopleWrite()
{
    QVERIFY(Put("\xef\xbb\xbf; mine\r\n[ Display ]\r\nLevel = 5\r\n"));
    IniCfg store(Path());
    QCOMPARE(store.ReadString(Latin("Display/Level"), QString()), Latin("5"));
    QCOMPARE(Bytes("store.ini.corrupt"), QByteArray("(none)"));
}

void tst_IniCfg::takesAlongWhatAnotherSaved()
{
    IniCfg first(Path());
    IniCfg second(Path());
    first.WriteString(Latin("a"), Latin("1"));
    QVERIFY(first.Flush());
    second.WriteString(Latin("b"), Latin("2"));
    QVERIFY(second.Flush());
    QCOMPARE(Bytes(), QByteArray("[General]\na=1\nb=2\n"));
    QCOMPARE(second.ReadString(Latin("a"), QString()), Latin("1"));
    first.WriteString(Latin("c"), Latin("3"));
    QVERIFY(first.Flush());
    QCOMPARE(Bytes(), QByteArray("[General]\na=1\nb=2\nc=3\n"));
}

void tst_IniCfg::ownKeysWinOverAnothers()
{
    IniCfg first(Path());
    IniCfg second(Path());
    first.WriteString(Latin("a"), Latin("1"));
    second.WriteString(Latin("a"), Latin("2"));
    QVERIFY(first.Flush());
    QVERIFY(second.Flush());
    QCOMPARE(Bytes(), QByteArray("[General]\na=2\n"));
}

void tst_IniCfg::comesBackAfterItsFileWasDeleted()
{
    IniCfg store(Path());
    store.WriteString(Latin("a"), Latin("1"));
    QVERIFY(store.Flush());
    QVERIFY(QFile::remove(Path()));
    QVERIFY(store.Flush()); // nothing new was written
    QCOMPARE(Bytes(), QByteArray("[General]\na=1\n"));
}

void tst_IniCfg::comesBackAfterItsFolderWasDeleted()
{
    QString const path = m_folder->filePath(Latin("a/store.ini"));
    IniCfg store(path);
    store.WriteString(Latin("a"), Latin("1"));
    QVERIFY(store.Flush());
    QVERIFY(QDir(m_folder->filePath(Latin("a"))).removeRecursively());
    store.WriteString(Latin("b"), Latin("2"));
    QVERIFY(store.Flush());
    QCOMPARE(Bytes("a/store.ini"), QByteArray("[General]\na=1\nb=2\n"));
}

void tst_IniCfg::damageIsPutAside()
{
    QByteArray const damaged("[a]\nk=1\nbroken\n[b]\nl=\"2\n");
    QVERIFY(Put(damaged));
    QVERIFY(Put("older", "store.ini.corrupt"));
    {
        Expect("2 damaged lines, the first is 3; the rest is used, and the file is kept as .corrupt");
        IniCfg store(Path());
        QCOMPARE(store.GetEntries(), (IniText::Entries{ { Latin("a/k"), Latin("1") } }));
        QCOMPARE(Bytes("store.ini.corrupt"), damaged);
        QCOMPARE(Bytes(), QByteArray("[a]\nk=1\n")); // at once: a crash loses nothing
    }
    IniCfg second(Path()); // the second start is clean
    QCOMPARE(second.GetEntries(), (IniText::Entries{ { Latin("a/k"), Latin("1") } }));
    QCOMPARE(Bytes("store.ini.corrupt"), damaged);
}

void tst_IniCfg::damageOfAnotherWriterIsPutAside()
{
    IniCfg store(Path());
    store.WriteString(Latin("a"), Latin("1"));
    QVERIFY(store.Flush());
    QVERIFY(Put("[General]\na=5\nbroken\nb=2\n"));
    store.WriteString(Latin("c"), Latin("3"));
    Expect("1 damaged lines, the first is 3; the rest is used, and the file is kept as .corrupt");
    QVERIFY(store.Flush());
    QCOMPARE(Bytes(), QByteArray("[General]\na=5\nb=2\nc=3\n"));
    QCOMPARE(Bytes("store.ini.corrupt"), QByteArray("[General]\na=5\nbroken\nb=2\n"));
}

void tst_IniCfg::damageThatCannotBePutAside()
{
    QVERIFY(QDir(m_folder->path()).mkdir(Latin("store.ini.corrupt")));
    QVERIFY(Put("k=1\nbroken\n"));
    Expect(
        "1 damaged lines, the first is 2; the rest is used, and the file cannot be put aside: it is no regular file");
    {
        IniCfg store(Path());
        QCOMPARE(store.ReadString(Latin("k"), QString()), Latin("1"));
        QVERIFY(store.Flush());
    }
    QCOMPARE(Bytes(), QByteArray("k=1\nbroken\n")); // the only copy stays while nothing is to be saved
    Expect(
        "1 damaged lines, the first is 2; the rest is used, and the file cannot be put aside: it is no regular file");
    IniCfg store(Path());
    store.WriteString(Latin("k"), Latin("2"));
    QVERIFY(store.Flush());
    QCOMPARE(Bytes(), QByteArray("[General]\nk=2\n"));
}

void tst_IniCfg::followsLinks()
{
    QVERIFY(Put("k=1\n", "real.ini"));
    QVERIFY(QFile::link(m_folder->filePath(Latin("real.ini")), Path()));
    IniCfg store(Path());
    store.WriteString(Latin("k"), Latin("2"));
    QVERIFY(store.Flush());
    QVERIFY(QFileInfo(Path()).isSymLink());
    QCOMPARE(Bytes("real.ini"), QByteArray("[General]\nk=2\n"));
}

void tst_IniCfg::followsALinkThatLeadsNowhere()
{
    QVERIFY(QFile::link(m_folder->filePath(Latin("later/real.ini")), Path()));
    IniCfg store(Path());
    store.WriteString(Latin("k"), Latin("2"));
    QVERIFY(store.Flush());
    QVERIFY(QFileInfo(Path()).isSymLink());
    QCOMPARE(Bytes("later/real.ini"), QByteArray("[General]\nk=2\n"));
}

void tst_IniCfg::refuses_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("problem");
    QTest::newRow("a folder") << Latin("folder") << Latin("it is no regular file");
    QTest::newRow("a pipe") << Latin("pipe") << Latin("it is no regular file");
    QTest::newRow("a loop of links") << Latin("loop") << Latin("its links lead nowhere");
    QTest::newRow("a huge file") << Latin("huge") << Latin("it is larger than 64 MiB");
    QTest::newRow("a file for a folder") << Latin("file") << Latin("its folder cannot be made");
}

void tst_IniCfg::refuses()
{
    QFETCH(QString, kind);
    QFETCH(QString, problem);
    QString path = Path();
    if (kind == Latin("folder"))
        QVERIFY(QDir().mkdir(path));
    else if (kind == Latin("pipe"))
        QCOMPARE(::mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    else if (kind == Latin("loop"))
        QVERIFY(QFile::link(path, path));
    else if (kind == Latin("huge"))
        QVERIFY(Put("k=1\n") && QFile::resize(path, (64LL << 20) + 1));
    else
        QVERIFY(Put("x", "file"));
    if (kind == Latin("file"))
        path = m_folder->filePath(Latin("file/store.ini"));
    Expect(qPrintable(problem));
    IniCfg store(path);
    QCOMPARE(store.ReadString(Latin("k"), Latin("f")), Latin("f"));
    store.WriteString(Latin("k"), Latin("2"));
    QVERIFY(!store.Flush());
    QCOMPARE(store.GetProblem(), problem);
    QCOMPARE(store.ReadString(Latin("k"), Latin("f")), Latin("2"));
    if (kind == Latin("huge"))
        QCOMPARE(QFileInfo(path).size(), (64LL << 20) + 1);
}

void tst_IniCfg::failureIsToldOnceAndOvercome()
{
    Expect("it is no regular file"); // a second line would fail this test
    QVERIFY(QDir().mkdir(Path()));
    IniCfg store(Path());
    store.WriteString(Latin("k"), Latin("1"));
    QVERIFY(!store.Flush());
    store.WriteString(Latin("l"), Latin("2"));
    QVERIFY(!store.Flush());
    QVERIFY(QDir().rmdir(Path()));
    QVERIFY(store.Flush());
    QCOMPARE(store.GetProblem(), QString());
    QCOMPARE(Bytes(), QByteArray("[General]\nk=1\nl=2\n"));
    QVERIFY(QFile::remove(Path()));
    QVERIFY(QDir().mkdir(Path()));
    store.WriteString(Latin("k"), Latin("3"));
    Expect("it is no regular file"); // a new failure is told again
    QVERIFY(!store.Flush());
}

void tst_IniCfg::waitsForNoLock()
{
    QVERIFY(Put("k=1\n"));
    auto lock = std::make_unique<StoreFile::FolderLock>(m_folder->path(), 90);
    QVERIFY(lock->IsHeld());
    auto const best = [](auto && call) { // ms; the machine may stop the program in one of the rounds, not in all
        qint64 least = std::numeric_limits<qint64>::max();
        for (int round = 0; round < 5 && least >= 100 + 50; ++round) {
            QElapsedTimer timer;
            timer.start();
            call();
            least = std::min(least, timer.elapsed());
        }
        return least;
    };
    QVERIFY(best([&] { IniCfg const store(Path()); }) < 100 + 50); // the rule is 100 ms; the rest is for a busy machine
    IniCfg store(Path());
    QCOMPARE(store.ReadString(Latin("k"), QString()), Latin("1")); // reads without the lock
    store.WriteString(Latin("k"), Latin("2"));
    Expect("its folder cannot be locked");
    QVERIFY(best([&] { QVERIFY(!store.Flush()); }) < 100 + 50);
    QCOMPARE(Bytes(), QByteArray("k=1\n"));
    lock.reset();
    QVERIFY(store.Flush());
    QCOMPARE(Bytes(), QByteArray("[General]\nk=2\n"));
}

void tst_IniCfg::sweepsAtStart()
{
    QVERIFY(Put("x", "store.ini.aBcDeF"));
    QVERIFY(Put("x", "store.ini.corrupt.aBcDeF"));
    QVERIFY(Put("x", "store.ini.backup"));
    {
        StoreFile::FolderLock const lock(m_folder->path(), 90);
        IniCfg const store(Path()); // another process may be about to use them
        QCOMPARE(Bytes("store.ini.aBcDeF"), QByteArray("x"));
    }
    IniCfg const store(Path());
    QCOMPARE(Bytes("store.ini.aBcDeF"), QByteArray("(none)"));
    QCOMPARE(Bytes("store.ini.corrupt.aBcDeF"), QByteArray("(none)"));
    QCOMPARE(Bytes("store.ini.backup"), QByteArray("x"));
}

void tst_IniCfg::modeIsKept()
{
    QVERIFY(Put("k=1\n"));
    QVERIFY(QFile::setPermissions(Path(), QFile::ReadOwner | QFile::WriteOwner));
    IniCfg store(Path());
    store.WriteString(Latin("k"), Latin("2"));
    QVERIFY(store.Flush());
    QCOMPARE(QFile::permissions(Path()) & (QFile::ReadGroup | QFile::ReadOther), QFile::Permissions());
}

ORIM_CORE_TEST_MAIN(tst_IniCfg)
#include "tst_inicfg.moc"
