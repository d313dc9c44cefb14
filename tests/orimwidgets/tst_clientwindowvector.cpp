// SPDX-License-Identifier: MIT
#include "clientwindowvector.h"

#include "clientwindow.h"
#include "resultscene.h"
#include "testmain.h"

#include <limits>
#include <memory>

namespace {

//! Five windows on a list, each with values of its own: 20 n to 20 n + 10.
struct Scene
{
    Scene()
    {
        for (int i = 0; i < 5; ++i) {
            Plant(i, "start", 20.0 * i);
            Plant(i, "stop", 20.0 * i + 10);
            Tree::Instance()->Insert(Folder(i), new Value<bool>(QStringLiteral("visible")));
            Tree::Instance()->Insert(Folder(i), new Value<bool>(QStringLiteral("focus")));
        }
    }

    Scene(Scene const &) = delete;
    Scene & operator=(Scene const &) = delete;

    ~Scene() { Tree::Instance()->RemoveFolder(QStringLiteral("/windows")); }

    static QString Folder(int i) { return QStringLiteral("/windows/%1").arg(i); }

    static void Plant(int i, char const * name, double value)
    {
        auto * const number = new ValueNumeric<double>(QLatin1String(name));
        number->SetValue(value, nullptr);
        Tree::Instance()->Insert(Folder(i), number);
    }

    void Bind(int i)
    {
        ClientWindow * const window = windows.GetWindow(i);
        window->SetStart_ValuePath(Folder(i) + QStringLiteral("/start"), static_cast<unsigned int>(16 + 2 * i));
        window->SetStop_ValuePath(Folder(i) + QStringLiteral("/stop"), static_cast<unsigned int>(17 + 2 * i));
        window->SetVisible_ValuePath(Folder(i) + QStringLiteral("/visible"));
        window->SetHasFocus_ValuePath(Folder(i) + QStringLiteral("/focus"));
    }

    void BindAll()
    {
        for (int i = 0; i < 5; ++i)
            Bind(i);
    }

    static Value<bool> * Visible(int i)
    {
        return Tree::Instance()->FindAs<Value<bool>>(Folder(i) + QStringLiteral("/visible"));
    }

    static Value<bool> * Focus(int i)
    {
        return Tree::Instance()->FindAs<Value<bool>>(Folder(i) + QStringLiteral("/focus"));
    }

    //! One letter a window: F with the focus, - without.
    QString Focused() const
    {
        QString letters;
        for (int i = 0; i < 5; ++i)
            letters += QLatin1Char(windows.GetWindow(i)->GetFocus() ? 'F' : '-');
        return letters;
    }

    TestMarkerList list;
    ClientWindowVector windows{ &list, eMarkerX };
};

//! Counts how often more than one window has the focus.
class FocusWatch : public IObserver
{
public:
    FocusWatch()
    {
        for (int i = 0; i < 5; ++i)
            Scene::Focus(i)->AddObserver(this);
    }

    void Update(Observable * /*subject*/, TChangeCode /*code*/) override
    {
        int count = 0;
        for (int i = 0; i < 5; ++i)
            count += Scene::Focus(i)->GetValue() ? 1 : 0;
        m_doubled += count > 1 ? 1 : 0;
        ++m_heard;
    }

    int m_heard = 0;
    int m_doubled = 0;
};

} // namespace

class tst_clientwindowvector : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fresh();
    void window_data();
    void window();
    void direction_data();
    void direction();
    void connectedCount();
    void visibleCount();
    void firstNotVisible();
    void currentWindowHasPoint();
    void hideAll();
    void recalculates();
    void focus_data();
    void focus();
    void focusIsNeverDoubled();
    void focusChosenAnewWhileTold_data();
    void focusChosenAnewWhileTold();
    void withoutParent();
    void endsWhileWindowsChange_data();
    void endsWhileWindowsChange();
};

void tst_clientwindowvector::fresh()
{
    Scene const scene;
    QCOMPARE(ClientWindowVector::WindowCount, 5);
    QCOMPARE(scene.windows.GetCurrentIndex(), -1);
    QCOMPARE(scene.windows.ConnectedCnt(), 0);
    QCOMPARE(scene.windows.VisibleCnt(), 0);
    QCOMPARE(scene.windows.FirstNotVisible(), 0);
    QVERIFY(!scene.windows.CurrentWindowHasPoint(0));
    QCOMPARE(scene.Focused(), QStringLiteral("-----"));
    QStringList texts;
    for (int i = 0; i < 5; ++i)
        texts << scene.windows.GetWindow(i)->GetText();
    QCOMPARE(texts.join(QLatin1Char(' ')), QStringLiteral("1 2 3 4 5"));
}

void tst_clientwindowvector::window_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<bool>("exists");
    QTest::newRow("first") << 0 << true;
    QTest::newRow("last") << 4 << true;
    QTest::newRow("behind the last") << 5 << false;
    QTest::newRow("negative") << -1 << false;
    QTest::newRow("lowest") << std::numeric_limits<int>::min() << false;
    QTest::newRow("highest") << std::numeric_limits<int>::max() << false;
}

void tst_clientwindowvector::window()
{
    QFETCH(int, index);
    QFETCH(bool, exists);
    Scene const scene;
    QCOMPARE(scene.windows.GetWindow(index) != nullptr, exists);
}

void tst_clientwindowvector::direction_data()
{
    QTest::addColumn<int>("direction");
    QTest::newRow("X") << 0;
    QTest::newRow("Y") << 1;
}

void tst_clientwindowvector::direction()
{
    QFETCH(int, direction);
    TestMarkerList list;
    ClientWindowVector const windows(&list, static_cast<EMarkerXYType>(direction));
    for (int i = 0; i < 5; ++i) {
        QCOMPARE(static_cast<int>(windows.GetWindow(i)->GetDirection()), direction);
        QCOMPARE(windows.GetWindow(i)->GetParent(), &list);
    }
}

void tst_clientwindowvector::connectedCount()
{
    Scene scene;
    scene.Bind(1);
    QCOMPARE(scene.windows.ConnectedCnt(), 1);
    scene.Bind(4);
    QCOMPARE(scene.windows.ConnectedCnt(), 2);
    scene.BindAll();
    QCOMPARE(scene.windows.ConnectedCnt(), 5);
    Tree::Instance()->Remove(Scene::Folder(2) + QStringLiteral("/stop"));
    QCOMPARE(scene.windows.ConnectedCnt(), 4);
    scene.windows.GetWindow(3)->SetVisible_ValuePath(QString());
    QCOMPARE(scene.windows.ConnectedCnt(), 3);
}

void tst_clientwindowvector::visibleCount()
{
    Scene scene;
    scene.BindAll();
    QCOMPARE(scene.windows.VisibleCnt(), 0);
    Scene::Visible(1)->SetValue(true, nullptr);
    Scene::Visible(4)->SetValue(true, nullptr);
    QCOMPARE(scene.windows.VisibleCnt(), 2);
    Tree::Instance()->Remove(Scene::Folder(1) + QStringLiteral("/start"));
    QCOMPARE(scene.windows.VisibleCnt(), 2); // visible is one thing, connected another
    Tree::Instance()->Remove(Scene::Folder(1) + QStringLiteral("/visible"));
    QCOMPARE(scene.windows.VisibleCnt(), 1);
}

void tst_clientwindowvector::firstNotVisible()
{
    Scene scene;
    scene.BindAll();
    for (int i = 0; i < 5; ++i) {
        QCOMPARE(scene.windows.FirstNotVisible(), i);
        scene.windows.GetWindow(i)->Show(true);
    }
    QCOMPARE(scene.windows.FirstNotVisible(), -1);
    scene.windows.GetWindow(3)->Show(false);
    QCOMPARE(scene.windows.FirstNotVisible(), 3);
    scene.windows.GetWindow(1)->SetVisible_ValuePath(QString());
    QCOMPARE(scene.windows.FirstNotVisible(), 1);
}

void tst_clientwindowvector::currentWindowHasPoint()
{
    Scene scene;
    scene.BindAll();
    for (int i = 0; i < 5; ++i)
        scene.windows.GetWindow(i)->Show(true);
    QVERIFY(!scene.windows.CurrentWindowHasPoint(45));
    scene.windows.SetFocus(2);
    for (int const pixel : { 40, 45, 50 })
        QVERIFY(scene.windows.CurrentWindowHasPoint(pixel));
    for (int const pixel : { 5, 39, 51, 65, -1 })
        QVERIFY(!scene.windows.CurrentWindowHasPoint(pixel));
    scene.windows.GetWindow(2)->Show(false);
    QVERIFY(!scene.windows.CurrentWindowHasPoint(45));
    scene.windows.SetFocus(0);
    QVERIFY(scene.windows.CurrentWindowHasPoint(5));
}

void tst_clientwindowvector::hideAll()
{
    Scene scene;
    scene.BindAll();
    for (int i = 0; i < 5; ++i)
        scene.windows.GetWindow(i)->Show(true);
    QCOMPARE(scene.windows.VisibleCnt(), 5);
    scene.windows.HideAll();
    QCOMPARE(scene.windows.VisibleCnt(), 0);
    for (int i = 0; i < 5; ++i) {
        QVERIFY(!Scene::Visible(i)->GetValue());
        QVERIFY(!scene.list.GetShowMarkerFlag(16 + 2 * i));
        QVERIFY(!scene.list.GetShowMarkerFlag(17 + 2 * i));
    }
}

void tst_clientwindowvector::recalculates()
{
    Scene scene;
    scene.BindAll();
    scene.list.m_stop = 200.0;
    scene.windows.RecalcBorders();
    for (int i = 0; i < 5; ++i) {
        int a = 0;
        int b = 0;
        scene.windows.GetWindow(i)->IsValid(a, b);
        QCOMPARE(a, 10 * i);
        QCOMPARE(b, 10 * i + 5);
    }
}

void tst_clientwindowvector::focus_data()
{
    QTest::addColumn<int>("before");
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("focused");
    QTest::addColumn<int>("current");
    QTest::newRow("first") << -1 << 0 << QStringLiteral("F----") << 0;
    QTest::newRow("last") << -1 << 4 << QStringLiteral("----F") << 4;
    QTest::newRow("from one to another") << 4 << 1 << QStringLiteral("-F---") << 1;
    QTest::newRow("the same") << 2 << 2 << QStringLiteral("--F--") << 2;
    QTest::newRow("from one to none") << 2 << -1 << QStringLiteral("-----") << -1;
    QTest::newRow("behind the last") << 2 << 5 << QStringLiteral("--F--") << 2;
    QTest::newRow("below none") << 2 << -2 << QStringLiteral("--F--") << 2;
    QTest::newRow("lowest") << 2 << std::numeric_limits<int>::min() << QStringLiteral("--F--") << 2;
    QTest::newRow("highest") << 2 << std::numeric_limits<int>::max() << QStringLiteral("--F--") << 2;
}

void tst_clientwindowvector::focus()
{
    QFETCH(int, before);
    QFETCH(int, index);
    QFETCH(QString, focused);
    QFETCH(int, current);
    for (bool const bound : { false, true }) {
        Scene scene;
        if (bound)
            scene.BindAll();
        scene.windows.SetFocus(before);
        scene.windows.SetFocus(index);
        QCOMPARE(scene.Focused(), focused);
        QCOMPARE(scene.windows.GetCurrentIndex(), current);
        for (int i = 0; i < 5; ++i)
            QCOMPARE(Scene::Focus(i)->GetValue(), bound && i == current);
    }
}

void tst_clientwindowvector::focusIsNeverDoubled()
{
    Scene scene;
    scene.BindAll();
    FocusWatch const watch;
    for (int const index : { 3, 0, 4, 1, 2, -1, 2 })
        scene.windows.SetFocus(index);
    QCOMPARE(watch.m_heard, 11); // one loses it, one gets it
    QCOMPARE(watch.m_doubled, 0);
}

void tst_clientwindowvector::focusChosenAnewWhileTold_data()
{
    QTest::addColumn<int>("anew");
    QTest::addColumn<QString>("focused");
    QTest::newRow("another") << 4 << "----F";
    QTest::newRow("the same") << 3 << "---F-";
    QTest::newRow("none") << -1 << "-----";
}

//! Who hears that one loses the focus chooses another; the last choice wins.
void tst_clientwindowvector::focusChosenAnewWhileTold()
{
    QFETCH(int, anew);
    QFETCH(QString, focused);
    Scene scene;
    scene.BindAll();
    scene.windows.SetFocus(1);
    Meddler meddler([&] { scene.windows.SetFocus(anew); });
    meddler.m_code = eValueChanged;
    Scene::Focus(1)->AddObserver(&meddler);
    scene.windows.SetFocus(3);
    QCOMPARE(scene.windows.GetCurrentIndex(), anew);
    QCOMPARE(scene.Focused(), focused);
}

void tst_clientwindowvector::withoutParent()
{
    Scene const values;
    ClientWindowVector windows(nullptr, eMarkerX);
    for (int i = 0; i < 5; ++i)
        windows.GetWindow(i)->SetVisible_ValuePath(Scene::Folder(i) + QStringLiteral("/visible"));
    windows.SetFocus(2);
    windows.RecalcBorders();
    windows.GetWindow(1)->Show(true);
    QCOMPARE(windows.VisibleCnt(), 1);
    windows.HideAll();
    QCOMPARE(windows.VisibleCnt(), 0);
    QVERIFY(!windows.CurrentWindowHasPoint(0));
}

void tst_clientwindowvector::endsWhileWindowsChange_data()
{
    QTest::addColumn<int>("what");
    QTest::addColumn<bool>("focused");
    QTest::newRow("windows while hidden") << 0 << false;
    QTest::newRow("list while hidden") << 1 << false;
    QTest::newRow("value while hidden") << 2 << false;
    QTest::newRow("windows while focused") << 0 << true;
    QTest::newRow("list while focused") << 1 << true;
    QTest::newRow("value while focused") << 2 << true;
}

void tst_clientwindowvector::endsWhileWindowsChange()
{
    QFETCH(int, what);
    QFETCH(bool, focused);
    Scene const values;
    auto list = std::make_unique<TestMarkerList>();
    auto windows = std::make_unique<ClientWindowVector>(list.get(), eMarkerX);
    for (int i = 0; i < 5; ++i) {
        windows->GetWindow(i)->SetVisible_ValuePath(Scene::Folder(i) + QStringLiteral("/visible"));
        windows->GetWindow(i)->SetHasFocus_ValuePath(Scene::Folder(i) + QStringLiteral("/focus"));
        windows->GetWindow(i)->Show(true);
    }
    windows->SetFocus(1);
    ClientWindowVector * const p = windows.get();
    Meddler meddler([&] {
        if (what == 0)
            windows.reset();
        else if (what == 1)
            list.reset();
        else
            Tree::Instance()->RemoveFolder(QStringLiteral("/windows/1"));
    });
    meddler.m_code = eValueChanged;
    (focused ? Scene::Focus(1) : Scene::Visible(1))->AddObserver(&meddler);
    if (focused)
        p->SetFocus(3);
    else
        p->HideAll();
    QCOMPARE(windows == nullptr, what == 0);
    bool const went = focused ? Scene::Focus(3)->GetValue() : !Scene::Visible(4)->GetValue();
    QCOMPARE(went, what != 0); // the windows that are left hear of it
}

ORIM_TEST_MAIN(tst_clientwindowvector)
#include "tst_clientwindowvector.moc"
