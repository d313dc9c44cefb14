// SPDX-License-Identifier: MIT
#include "memorycfg.h"

#include "persistant.h"
#include "testmain.h"

class tst_MemoryCfg : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void missingKeyGivesTheFallback();
    void readsWhatWasWritten();
    void emptyIsNotMissing();
    void keys();
    void theStageUsesIt();
    void aStoreThatDiesIsForgotten();
};

void tst_MemoryCfg::missingKeyGivesTheFallback()
{
    MemoryCfg store;
    QCOMPARE(store.ReadString(QStringLiteral("k"), QStringLiteral("f")), QStringLiteral("f"));
    QVERIFY(store.ReadString(QStringLiteral("k"), QString()).isNull());
    QVERIFY(!store.Contains(QStringLiteral("k")));
}

void tst_MemoryCfg::readsWhatWasWritten()
{
    MemoryCfg store;
    store.WriteString(QStringLiteral("a/b"), QStringLiteral("1"));
    store.WriteString(QStringLiteral("a/b"), QStringLiteral("2"));
    QCOMPARE(store.ReadString(QStringLiteral("a/b"), QStringLiteral("f")), QStringLiteral("2"));
    QCOMPARE(store.ReadString(QStringLiteral("a"), QStringLiteral("f")), QStringLiteral("f"));
    QVERIFY(store.Flush());
}

void tst_MemoryCfg::emptyIsNotMissing()
{
    MemoryCfg store;
    store.WriteString(QStringLiteral("k"), QString());
    QVERIFY(store.Contains(QStringLiteral("k")));
    QCOMPARE(store.ReadString(QStringLiteral("k"), QStringLiteral("f")), QString());
    QVERIFY(!store.ReadString(QStringLiteral("k"), QStringLiteral("f")).isNull());
}

void tst_MemoryCfg::keys()
{
    MemoryCfg store;
    store.WriteString(QStringLiteral("b"), QString());
    store.WriteString(QStringLiteral("a"), QString());
    QCOMPARE(store.GetKeys(), QStringList({ QStringLiteral("a"), QStringLiteral("b") }));
    store.Clear();
    QCOMPARE(store.GetKeys(), QStringList());
}

void tst_MemoryCfg::theStageUsesIt() { QVERIFY(dynamic_cast<MemoryCfg *>(Persistant::Store())); }

void tst_MemoryCfg::aStoreThatDiesIsForgotten()
{
    ICfg * const before = Persistant::Store();
    ICfg * dead = nullptr;
    {
        MemoryCfg store;
        dead = &store;
        Persistant::SetStore(&store);
        QCOMPARE(Persistant::Store(), dead);
        MemoryCfg other; // its end changes nothing
    }
    QVERIFY(Persistant::Store() != dead);
    Persistant::SetStore(before);
}

ORIM_TEST_MAIN(tst_MemoryCfg)
#include "tst_memorycfg.moc"
