// SPDX-License-Identifier: MIT
#include "inicfg.h"
#include "storesoak.h"

#include "testmain.h"

#include <QDir>

#include <csignal>
#include <dlfcn.h>
#include <fcntl.h>
#include <grp.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>

//! Real limits of the system: the store is old or new, "saved" is never told for the old one, the texts stay in memory,
//! the user is told once. Each case runs in a process of its own.
class tst_StoreLimits : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();
    void fileSizeIsLimited();
    void handlesAreLimited();
    void theDiskIsFull();
    void foldersAndFilesAreReadOnly_data();
    void foldersAndFilesAreReadOnly();
    void oddTargets_data();
    void oddTargets();
    void thingsChangeWhileRunning_data();
    void thingsChangeWhileRunning();
    void cleanupTestCase();

private:
    //! What a case may end in.
    enum EExpect
    {
        eEither,
        eMustFail,
        eMustSave
    };

    struct Case
    {
        QString name;
        EExpect expect = eEither;
        std::function<bool()> before; // in the child, before the store opens; false: cannot be had here
        std::function<bool()> limit;  // in the child, before the save
    };

    int Save(Case const & limited) const;
    //! Runs a case in a child and judges it. \return false when it cannot be had here.
    bool Run(Case const & limited);

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_path;
    int m_cases = 0;
    int m_saved = 0;
    int m_byShim = 0;
    qint64 m_slowest = 0; // ms of a save
};

namespace {

constexpr int Keys = 24;
constexpr int Padding = 30;

enum EResult : int
{
    eFailedWell = 0,
    eSavedWell = 1,
    eNotHere = 2,
    eFirstProblem = 10,
    eTorn = eFirstProblem,
    eToldOldAsSaved,
    eMemoryLost,
    eToldTwice,
    eNotTold,
    eTooSlow
};

using Arm = void (*)(char const *, int, int, int);

bool Limit(__rlimit_resource resource, rlim_t limit)
{
    rlimit const limits{ limit, limit };
    ::signal(SIGXFSZ, SIG_IGN);
    return ::setrlimit(resource, &limits) == 0;
}

//! Becomes a user for whom mode bits count.
bool BecomeNobody()
{
    if (::geteuid() != 0)
        return true;
    constexpr uid_t Nobody = 65534;
    return ::setgroups(0, nullptr) == 0 && ::setresgid(Nobody, Nobody, Nobody) == 0 &&
           ::setresuid(Nobody, Nobody, Nobody) == 0;
}

} // namespace

void tst_StoreLimits::initTestCase() { QVERIFY(::dlsym(RTLD_DEFAULT, "orim_fault_arm")); }

void tst_StoreLimits::init()
{
    m_folder = std::make_unique<QTemporaryDir>(StoreSoak::Template());
    m_path = m_folder->filePath(QStringLiteral("store.ini"));
}

//! Saves generation 2 over what is there, three times while that fails. \return an EResult.
int tst_StoreLimits::Save(Case const & limited) const
{
    StoreSoak::CountLines();
    if (limited.before && !limited.before())
        return eNotHere;
    auto const onDisk = [this] {
        return StoreSoak::GenerationOf(IniText::Parse(StoreSoak::Bytes(m_path)).entries, Keys);
    };
    QByteArray const old = QFileInfo(m_path).isFile() ? StoreSoak::Bytes(m_path) : QByteArray();
    IniCfg store(m_path);
    if (limited.limit && !limited.limit())
        return eNotHere;
    IniText::Entries const next = StoreSoak::Generation(2, Keys, Padding);
    for (auto entry = next.cbegin(); entry != next.cend(); ++entry)
        store.WriteString(entry.key(), entry.value());
    QElapsedTimer timer;
    timer.start();
    bool saved = store.Flush();
    qint64 const first = timer.elapsed();
    for (int i = 0; i < 2 && !saved; ++i)
        saved = store.Flush();
    rlimit ample{ RLIM_INFINITY, RLIM_INFINITY };
    ::getrlimit(RLIMIT_NOFILE, &ample);
    for (auto entry = next.cbegin(); entry != next.cend(); ++entry)
        if (store.ReadString(entry.key(), QString()) != entry.value())
            return eMemoryLost;
    if (StoreSoak::Lines() > 1)
        return eToldTwice;
    if (!saved && StoreSoak::Lines() == 0)
        return eNotTold;
    if (first > 1000)
        return eTooSlow;
    if (saved && onDisk() != 2 && ample.rlim_cur > 16)
        return eToldOldAsSaved;
    bool const whole = !QFileInfo(m_path).isFile() || !QFileInfo(m_path).isReadable() ||
                       StoreSoak::Bytes(m_path) == old || onDisk() == 2 || ample.rlim_cur <= 16;
    if (!whole)
        return eTorn;
    return saved ? eSavedWell : eFailedWell;
}

bool tst_StoreLimits::Run(Case const & limited)
{
    QElapsedTimer timer;
    timer.start();
    int const result = StoreSoak::InChild([&] { return Save(limited); });
    m_slowest = std::max(m_slowest, timer.elapsed());
    if (result == eNotHere)
        return false;
    ++m_cases;
    m_saved += result == eSavedWell ? 1 : 0;
    bool const good =
        result == eFailedWell ? limited.expect != eMustSave : result == eSavedWell && limited.expect != eMustFail;
    if (!good)
        QTest::qFail(qPrintable(QStringLiteral("%1: result %2").arg(limited.name).arg(result)), __FILE__, __LINE__);
    return true;
}

void tst_StoreLimits::fileSizeIsLimited()
{
    QByteArray const old = IniText::Print(StoreSoak::Generation(1, Keys, Padding));
    auto const step = static_cast<int>(TestStage::Turns(64, 8));
    for (int size = 0; size <= 2 * old.size(); size += step) {
        QVERIFY(StoreSoak::Put(m_path, old));
        QVERIFY(
            Run({ QStringLiteral("files of %1 bytes").arg(size), size < old.size() ? eMustFail : eMustSave, {}, [size] {
                     return Limit(RLIMIT_FSIZE, static_cast<rlim_t>(size));
                 } }));
        int const found = StoreSoak::GenerationOf(IniText::Parse(StoreSoak::Bytes(m_path)).entries, Keys);
        QCOMPARE(found, size < old.size() ? 1 : 2);
    }
}

void tst_StoreLimits::handlesAreLimited()
{
    for (rlim_t handles = 3; handles <= 12; ++handles) {
        QVERIFY(StoreSoak::Put(m_path, IniText::Print(StoreSoak::Generation(1, Keys, Padding))));
        QVERIFY(Run({ QStringLiteral("%1 handles").arg(handles), eEither, {}, [handles] {
                         return Limit(RLIMIT_NOFILE, handles);
                     } }));
        int const found = StoreSoak::GenerationOf(IniText::Parse(StoreSoak::Bytes(m_path)).entries, Keys);
        QVERIFY(found == 1 || found == 2);
    }
}

void tst_StoreLimits::theDiskIsFull()
{
    auto const fill = [this](int keep) { // leaves some KiB on a disk of 64
        QFile file(m_folder->filePath(QStringLiteral("ballast")));
        return file.open(QIODevice::WriteOnly) && file.write(QByteArray((60 - keep) * 1024, 'x')) > 0 && file.flush();
    };
    auto const mountAndFill = [this, fill](int keep, char const * options) {
        bool const apart = ::unshare(CLONE_NEWNS) == 0 || ::unshare(CLONE_NEWUSER | CLONE_NEWNS) == 0;
        QByteArray const folder = QFile::encodeName(m_folder->path());
        if (!apart || ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
            ::mount("tmpfs", folder.constData(), "tmpfs", 0, options) != 0)
            return false;
        StoreSoak::Put(m_path, IniText::Print(StoreSoak::Generation(1, Keys, Padding)));
        fill(keep);
        return true;
    };
    auto const byShim = [this](int kind) {
        StoreSoak::Put(m_path, IniText::Print(StoreSoak::Generation(1, Keys, Padding)));
        reinterpret_cast<Arm>(::dlsym(RTLD_DEFAULT, "orim_fault_arm"))(qPrintable(m_folder->path()), 2, kind, 1);
        return true;
    };
    for (int keep = 0; keep <= 28; keep += 4) {
        Case full{ QStringLiteral("%1 KiB left").arg(keep),
                   keep == 0 ? eMustFail : eEither,
                   [=] { return mountAndFill(keep, "size=64k"); },
                   {} };
        if (Run(full))
            continue;
        full.before = [=] { return byShim(1); };
        m_byShim += Run(full) ? 1 : 0;
    }
    for (char const * options : { "size=64k,nr_inodes=3", "size=64k,nr_inodes=4" }) {
        Case noInodes{ QString::fromLatin1(options), eEither, [=] { return mountAndFill(30, options); }, {} };
        if (Run(noInodes))
            continue;
        noInodes.before = [=] { return byShim(1); };
        m_byShim += Run(noInodes) ? 1 : 0;
    }
}

void tst_StoreLimits::foldersAndFilesAreReadOnly_data()
{
    QTest::addColumn<int>("folderMode");
    QTest::addColumn<int>("fileMode");
    QTest::addColumn<int>("expect");
    QTest::newRow("all may be written") << 0777 << 0666 << static_cast<int>(eMustSave);
    QTest::newRow("read-only folder") << 0555 << 0666 << static_cast<int>(eMustFail);
    QTest::newRow("read-only file") << 0777 << 0444 << static_cast<int>(eMustFail);
    QTest::newRow("both") << 0555 << 0444 << static_cast<int>(eMustFail);
    QTest::newRow("unreadable file") << 0777 << 0000 << static_cast<int>(eMustFail);
    QTest::newRow("file that may only be written") << 0777 << 0222 << static_cast<int>(eMustFail);
    QTest::newRow("folder that may not be entered") << 0444 << 0666 << static_cast<int>(eMustFail);
    QTest::newRow("folder without any right") << 0000 << 0666 << static_cast<int>(eMustFail);
}

void tst_StoreLimits::foldersAndFilesAreReadOnly()
{
    QFETCH(int, folderMode);
    QFETCH(int, fileMode);
    QFETCH(int, expect);
    QByteArray const folder = QFile::encodeName(m_folder->path());
    QByteArray const old = IniText::Print(StoreSoak::Generation(1, Keys, Padding));
    QVERIFY(StoreSoak::Put(m_path, old));
    QCOMPARE(::chmod(QFile::encodeName(m_path).constData(), static_cast<mode_t>(fileMode)), 0);
    QCOMPARE(::chmod(folder.constData(), static_cast<mode_t>(folderMode)), 0);
    bool const ran =
        Run({ QString::fromLatin1(QTest::currentDataTag()), static_cast<EExpect>(expect), BecomeNobody, {} });
    QCOMPARE(::chmod(folder.constData(), 0700), 0);
    QCOMPARE(::chmod(QFile::encodeName(m_path).constData(), 0600), 0);
    QVERIFY(ran);
    if (expect == eMustFail)
        QCOMPARE(StoreSoak::Bytes(m_path), old);
}

void tst_StoreLimits::oddTargets_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<int>("expect");
    auto const row = [](char const * kind, EExpect expect) {
        QTest::newRow(kind) << QString::fromLatin1(kind) << static_cast<int>(expect);
    };
    row("a folder", eMustFail);
    row("a dangling link", eMustSave);
    row("a link into a missing folder", eMustSave);
    row("a link to itself", eMustFail);
    row("two links to each other", eMustFail);
    row("a link to a folder", eMustFail);
    row("a link to a pipe", eMustFail);
    row("a link to a device", eMustFail);
    row("a pipe", eMustFail);
    row("a name of 300 characters", eMustFail);
    row("a name of 255 characters", eEither);
    row("a file for a folder", eMustFail);
    row("an empty file", eMustSave);
    row("a chain of 30 links", eMustSave);
}

void tst_StoreLimits::oddTargets()
{
    QFETCH(QString, kind);
    QFETCH(int, expect);
    auto const at = [this](char const * name) { return m_folder->filePath(QString::fromLatin1(name)); };
    auto const link = [this](QString const & to) { return QFile::link(to, m_path); };
    bool ready = true;
    if (kind == QLatin1String("a folder"))
        ready = QDir().mkdir(m_path);
    else if (kind == QLatin1String("a dangling link"))
        ready = link(at("absent.ini"));
    else if (kind == QLatin1String("a link into a missing folder"))
        ready = link(at("missing/absent.ini"));
    else if (kind == QLatin1String("a link to itself"))
        ready = link(m_path);
    else if (kind == QLatin1String("two links to each other"))
        ready = link(at("other")) && QFile::link(m_path, at("other"));
    else if (kind == QLatin1String("a link to a folder"))
        ready = link(m_folder->path());
    else if (kind == QLatin1String("a link to a device"))
        ready = link(QStringLiteral("/dev/null"));
    else if (kind.endsWith(QLatin1String("a pipe")))
        ready = ::mkfifo(QFile::encodeName(kind.startsWith(QLatin1String("a pipe")) ? m_path : at("pipe")).constData(),
                         0600) == 0 &&
                (kind.startsWith(QLatin1String("a pipe")) || link(at("pipe")));
    else if (kind.contains(QLatin1String("characters")))
        m_path = m_folder->filePath(QString(kind.contains(QLatin1String("300")) ? 300 : 255, QLatin1Char('n')));
    else if (kind == QLatin1String("a file for a folder"))
        ready = StoreSoak::Put(m_path, "x") && !(m_path += QLatin1String("/store.ini")).isEmpty();
    else if (kind == QLatin1String("an empty file"))
        ready = StoreSoak::Put(m_path, "");
    else
        for (int i = 0; i < 30 && ready; ++i)
            ready = QFile::link(at(qPrintable(QStringLiteral("l%1").arg(i + 1))),
                                i == 0 ? m_path : at(qPrintable(QStringLiteral("l%1").arg(i))));
    QVERIFY(ready);
    QVERIFY(Run({ kind, static_cast<EExpect>(expect), {}, {} }));
}

void tst_StoreLimits::thingsChangeWhileRunning_data()
{
    QTest::addColumn<QString>("what");
    QTest::addColumn<int>("expect");
    auto const row = [](char const * what, EExpect expect) {
        QTest::newRow(what) << QString::fromLatin1(what) << static_cast<int>(expect);
    };
    row("the file is deleted", eMustSave);
    row("the folder is deleted", eMustSave);
    row("the folder and its parent are deleted", eMustSave);
    row("the file becomes a folder", eMustFail);
    row("the folder becomes a file", eMustFail);
    row("the file is emptied", eMustSave);
    row("the working folder changes", eMustSave);
}

void tst_StoreLimits::thingsChangeWhileRunning()
{
    QFETCH(QString, what);
    QFETCH(int, expect);
    QString const parent = m_folder->filePath(QStringLiteral("parent"));
    QString const folder = parent + QLatin1String("/folder");
    QVERIFY(QDir().mkpath(folder));
    m_path = folder + QLatin1String("/store.ini");
    QVERIFY(StoreSoak::Put(m_path, IniText::Print(StoreSoak::Generation(1, Keys, Padding))));
    QString const path = m_path;
    auto const change = [=] {
        if (what == QLatin1String("the file is deleted"))
            return QFile::remove(path);
        if (what == QLatin1String("the folder is deleted"))
            return QDir(folder).removeRecursively();
        if (what == QLatin1String("the folder and its parent are deleted"))
            return QDir(parent).removeRecursively();
        if (what == QLatin1String("the file becomes a folder"))
            return QFile::remove(path) && QDir().mkdir(path);
        if (what == QLatin1String("the folder becomes a file"))
            return QDir(folder).removeRecursively() && StoreSoak::Put(folder, "x");
        if (what == QLatin1String("the file is emptied"))
            return StoreSoak::Put(path, "");
        return QDir::setCurrent(QStringLiteral("/"));
    };
    QVERIFY(Run({ what, static_cast<EExpect>(expect), {}, change }));
}

void tst_StoreLimits::cleanupTestCase()
{
    QVERIFY2(m_cases >= 80, qPrintable(QString::number(m_cases)));
    std::printf("figures: store limits: %d cases, %d of them saved, %s%d by shim: 0 torn, 0 told wrongly, 0 lost; "
                "slowest case %lld ms\n",
                m_cases, m_saved, m_byShim > 0 ? "the full disk " : "", m_byShim, static_cast<long long>(m_slowest));
}

int main(int argc, char * argv[])
{
    if (!::dlsym(RTLD_DEFAULT, "orim_fault_arm") && !qEnvironmentVariableIsSet("LD_PRELOAD")) {
        qputenv("LD_PRELOAD", ORIM_FAULT_SHIM);
        ::execv(argv[0], argv);
    }
    TestStage::BeforeApplication();
    QCoreApplication application(argc, argv);
    tst_StoreLimits test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_storelimits.moc"
