// SPDX-License-Identifier: MIT
#include "parkinglist.h"

#include "testmain.h"

#include <QProcess>

#include <cstdio>
#include <cstring>

//! Parking is seen at process exit, so the test starts itself as a child that parks.
class tst_ParkingList : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void freedAtExit();
};

namespace {

struct Speaker : QObject
{
    explicit Speaker(char const * text, QObject * parent = nullptr) : QObject(parent), m_text(text) {}

    ~Speaker() override { std::puts(m_text); }

    char const * m_text;
};

int Child()
{
    ParkingList::Park(new Speaker("parked"));
    auto * const early = new Speaker("early");
    ParkingList::Park(early);
    delete early;
    ParkingList::Park([] {
        for (int i = 0; i < 100; ++i)
            ParkingList::Park([i] { std::fputs(i == 99 ? "late\n" : "", stdout); });
        ParkingList::Park(new Speaker("late object"));
        std::puts("released");
    });
    ParkingList::Park(static_cast<QObject *>(nullptr));
    ParkingList::Park(std::function<void()>());
    std::puts("main ends");
    return 0;
}

} // namespace

void tst_ParkingList::freedAtExit()
{
    QProcess child;
    child.start(QCoreApplication::applicationFilePath(), { QStringLiteral("--child") });
    QVERIFY(child.waitForFinished(10000));
    QCOMPARE(child.exitCode(), 0);
    QCOMPARE(child.readAllStandardOutput(), QByteArray("early\nmain ends\nparked\nreleased\nlate object\nlate\n"));
}

int main(int argc, char * argv[])
{
    if (argc > 1 && std::strcmp(argv[1], "--child") == 0)
        return Child();
    TestStage::BeforeApplication();
    QCoreApplication application(argc, argv);
    tst_ParkingList test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_parkinglist.moc"
