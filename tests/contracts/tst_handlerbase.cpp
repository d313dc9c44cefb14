// SPDX-License-Identifier: MIT
#include "handlerbase.h"
#include "testmain.h"

class tst_HandlerBase : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void UnitOfLevels();
};

void tst_HandlerBase::UnitOfLevels()
{
    QString const & unit = HandlerBase::GetLevelUnit();
    QCOMPARE(unit, QStringLiteral("dB\u00b5V"));
    HandlerBase::SetLevelUnit(QStringLiteral("dBm"));
    QCOMPARE(HandlerBase::GetLevelUnit(), QStringLiteral("dBm"));
    QCOMPARE(&HandlerBase::GetLevelUnit(), &unit); // the reference stays good
}

ORIM_CORE_TEST_MAIN(tst_HandlerBase)

#include "tst_handlerbase.moc"
