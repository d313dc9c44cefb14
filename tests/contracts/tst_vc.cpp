// SPDX-License-Identifier: MIT
#include "vc.h"

#include "ihasmultiplepropertypages.h"
#include "ihaspersistantpropertypage.h"
#include "ihaspropertypage.h"
#include "testmain.h"

#include <memory>
#include <type_traits>
#include <utility>
#include <vector>

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
    void severalPages();
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

//! A provider of two pages.
class Pages : public IHasMultiplePropertyPages
{
public:
    explicit Pages(bool & isGone) : m_isGone(isGone) {}

    Pages(Pages const &) = delete;
    Pages & operator=(Pages const &) = delete;

    ~Pages() override { m_isGone = true; }

    std::vector<short> GetPropertyPageIds() override { return { 7, 3 }; }

    QString GetPropertyPagePath(short id) override
    {
        return id == 7 ? QStringLiteral("A/B") : id == 3 ? QStringLiteral("A") : QString();
    }

    QWidget * GetPropertyPage(short, QWidget *, char const *) override { return nullptr; }

private:
    bool & m_isGone;
};

static_assert(std::is_same<decltype(std::declval<IHasPropertyPage &>().GetPropertyPagePath()), QString const &>::value,
              "the path is lent");
static_assert(std::has_virtual_destructor<IHasPropertyPage>::value, "deleted through the interface");
static_assert(std::has_virtual_destructor<IHasMultiplePropertyPages>::value, "deleted through the interface");
static_assert(std::has_virtual_destructor<IHasPersistantPropertyPage>::value, "deleted through the interface");

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

void tst_VC::severalPages()
{
    bool isGone = false;
    std::unique_ptr<IHasMultiplePropertyPages> owned = std::make_unique<Pages>(isGone);
    IHasMultiplePropertyPages & provider = *owned;
    QVERIFY(provider.GetPropertyPageIds() == (std::vector<short>{ 7, 3 }));
    QCOMPARE(provider.GetPropertyPagePath(7), QStringLiteral("A/B"));
    QVERIFY(provider.GetPropertyPagePath(4).isEmpty());
    QCOMPARE(provider.GetPropertyPage(4, nullptr, nullptr), nullptr);
    owned.reset();
    QVERIFY(isGone);
}

ORIM_CORE_TEST_MAIN(tst_VC)
#include "tst_vc.moc"
