// SPDX-License-Identifier: MIT
#include "vc.h"

#include "ihasmultiplepropertypages.h"
#include "ihaspersistantpropertypage.h"
#include "ihaspropertypage.h"
#include "testmain.h"

#include <type_traits>

class tst_VC : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void roles_data();
    void roles();
    void ids();
    void paneNamesThemWithoutPrefix();
    void pageOperationsThatMayStayEmpty();
    void persistantPageIsFoundByCast();
};

namespace {

class Pane : public VC
{
public:
    EShadingColor m_role = eShadingAgeing;
    ID m_id = eIdNone;
};

class Page : public IHasPropertyPage, public IHasPersistantPropertyPage
{
public:
    QWidget * GetPropertyPage(QWidget *, char const *) override { return nullptr; }

    void slotAcceptPropertyChanges() override {}

    QString const & GetPropertyPagePath() override { return m_path; }

    void BeforePersistantWrite() override { m_calls += 'w'; }

    void AfterPersistantRead() override { m_calls += 'r'; }

    QString m_path = QStringLiteral("Display/Axis");
    QByteArray m_calls;
};

class PlainPage : public IHasPropertyPage
{
public:
    QWidget * GetPropertyPage(QWidget *, char const *) override { return nullptr; }

    void slotAcceptPropertyChanges() override {}

    QString const & GetPropertyPagePath() override { return m_path; }

    QString m_path;
};

} // namespace

void tst_VC::roles_data()
{
    QTest::addColumn<int>("role");
    QTest::addColumn<int>("number");
    QTest::newRow("none") << int(VC::eShadingNone) << 0;
    QTest::newRow("level") << int(VC::eShadingLevel) << 1;
    QTest::newRow("azimuth") << int(VC::eShadingAzimuth) << 2;
    QTest::newRow("elevation") << int(VC::eShadingElevation) << 3;
    QTest::newRow("bit stream") << int(VC::eShadingBitStream) << 4;
    QTest::newRow("ageing") << int(VC::eShadingAgeing) << 5;
    QTest::newRow("quality") << int(VC::eShadingQuality) << 6;
    QTest::newRow("polychrome") << int(VC::eShadingPolychrome) << 7;
    QTest::newRow("difference") << int(VC::eShadingDifference) << 8;
}

void tst_VC::roles()
{
    QFETCH(int, role);
    QTEST(role, "number");
}

void tst_VC::ids()
{
    QCOMPARE(int(VC::eIdNone), 0);
    static_assert(std::is_same<std::underlying_type_t<VC::ID>, int>::value, "any int may be cast to it");
    QCOMPARE(int(static_cast<VC::ID>(-2000000000)), -2000000000);
}

void tst_VC::paneNamesThemWithoutPrefix()
{
    Pane const pane;
    QCOMPARE(int(pane.m_role), 5);
    QCOMPARE(int(pane.m_id), 0);
}

void tst_VC::pageOperationsThatMayStayEmpty()
{
    PlainPage page;
    IHasPropertyPage & provider = page;
    provider.slotCancelPropertyChanges();
    provider.slotDefaultPropertyChanges();
    QCOMPARE(provider.GetPropertyPage(nullptr, nullptr), nullptr);
    QVERIFY(provider.GetPropertyPagePath().isEmpty());
}

void tst_VC::persistantPageIsFoundByCast()
{
    Page page;
    IHasPropertyPage * const provider = &page;
    auto * const persistant = dynamic_cast<IHasPersistantPropertyPage *>(provider);
    QVERIFY(persistant);
    persistant->BeforePersistantWrite();
    persistant->AfterPersistantRead();
    QCOMPARE(page.m_calls, QByteArray("wr"));
    PlainPage plain;
    QVERIFY(!dynamic_cast<IHasPersistantPropertyPage *>(static_cast<IHasPropertyPage *>(&plain)));
}

ORIM_CORE_TEST_MAIN(tst_VC)
#include "tst_vc.moc"
