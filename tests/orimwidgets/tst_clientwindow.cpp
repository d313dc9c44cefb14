// SPDX-License-Identifier: MIT
#include "clientwindow.h"

#include "clientscene.h"
#include "testmain.h"

#include <QPointer>

#include <limits>
#include <memory>

namespace {

//! Writes down the codes that it hears.
class CodeWindow : public ClientWindow
{
public:
    using ClientWindow::ClientWindow;

    void Update(Observable * subject, TChangeCode code) override
    {
        m_codes << static_cast<int>(code);
        ClientWindow::Update(subject, code);
    }

    QList<int> m_codes;
};

using Binder = bool (*)(ClientWindow & window, QString const & path);

} // namespace

Q_DECLARE_METATYPE(Binder)

class tst_clientwindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fresh();
    void binding_data();
    void binding();
    void replay();
    void borderMarkers_data();
    void borderMarkers();
    void borderOfAnUnknownPath();
    void borderAtAnotherId();
    void boundAnewAfterASwitch_data();
    void boundAnewAfterASwitch();
    void badMarkerIds_data();
    void badMarkerIds();
    void connected_data();
    void connected();
    void valid_data();
    void valid();
    void points_data();
    void points();
    void pointsWherePixelsFall();
    void show_data();
    void show();
    void text();
    void focus();
    void newStartAndStop();
    void newVisible();
    void newFocus();
    void otherCodesAndSubjects();
    void withoutParent();
    void parentEnds();
    void oneValueTwice();
    void departure_data();
    void departure();
    void departureOfOneValueTwice();
    void otherStates();
    void awayAndBack();
    void markersStay();
    void endsWhileMarkersAreShown_data();
    void endsWhileMarkersAreShown();
};

void tst_clientwindow::fresh()
{
    TestMarkerList list;
    ClientWindow const window(&list, eMarkerY);
    int a = 0;
    int b = 0;
    QVERIFY(!window.IsValid(a, b));
    QCOMPARE(a, -1);
    QCOMPARE(b, -1);
    QVERIFY(!window.Connected());
    QVERIFY(!window.IsVisible());
    QVERIFY(!window.HasPoint(-1));
    QVERIFY(!window.GetFocus());
    QCOMPARE(window.GetText(), QString());
    QCOMPARE(window.GetParent(), &list);
    QCOMPARE(window.GetDirection(), eMarkerY);
    QCOMPARE(window.GetStartMarkerId(), -1);
    QCOMPARE(window.GetStopMarkerId(), -1);
}

void tst_clientwindow::binding_data()
{
    QTest::addColumn<Binder>("bind");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("otherType");
    Binder const start = [](ClientWindow & window, QString const & path) {
        return window.SetStart_ValuePath(path, 16);
    };
    Binder const stop = [](ClientWindow & window, QString const & path) { return window.SetStop_ValuePath(path, 17); };
    Binder const visible = [](ClientWindow & window, QString const & path) {
        return window.SetVisible_ValuePath(path);
    };
    Binder const focus = [](ClientWindow & window, QString const & path) { return window.SetHasFocus_ValuePath(path); };
    Binder const text = [](ClientWindow & window, QString const & path) { return window.SetText_ValuePath(path); };
    QTest::newRow("start") << start << QStringLiteral("/test/start") << QStringLiteral("/test/visible");
    QTest::newRow("stop") << stop << QStringLiteral("/test/stop") << QStringLiteral("/test/text");
    QTest::newRow("visible") << visible << QStringLiteral("/test/visible") << QStringLiteral("/test/start");
    QTest::newRow("focus") << focus << QStringLiteral("/test/focus") << QStringLiteral("/test/text");
    QTest::newRow("text") << text << QStringLiteral("/test/text") << QStringLiteral("/test/focus");
}

void tst_clientwindow::binding()
{
    QFETCH(Binder, bind);
    QFETCH(QString, path);
    QFETCH(QString, otherType);
    ClientScene scene;
    auto const hears = [&](QString const & where) { return Tree::Instance()->Find(where)->HasObserver(&scene.window); };
    QVERIFY(!bind(scene.window, QString()));
    QVERIFY(!bind(scene.window, QStringLiteral("/test/unknown")));
    QVERIFY(!bind(scene.window, otherType));
    QVERIFY(!hears(otherType));
    QVERIFY(bind(scene.window, path));
    QVERIFY(hears(path));
    QVERIFY(bind(scene.window, path));
    QVERIFY(hears(path));
    QVERIFY(!bind(scene.window, QStringLiteral("/test/unknown")));
    QVERIFY(!hears(path));
    auto other = std::make_unique<ClientWindow>(&scene.list, eMarkerX);
    bind(*other, path);
    QVERIFY(Tree::Instance()->Find(path)->HasObserver(other.get()));
    int const observers = Tree::Instance()->Find(path)->GetObserverCount();
    other.reset();
    QCOMPARE(Tree::Instance()->Find(path)->GetObserverCount(), observers - 1);
}

void tst_clientwindow::replay()
{
    TreeNumber const start("start");
    TreeValue<Value<bool>> const visible("visible");
    CodeWindow window(nullptr, eMarkerX);
    QList<int> const codes{ 2, 4, 3 };
    window.SetStart_ValuePath(start.Path(), 16);
    QCOMPARE(window.m_codes, codes);
    window.m_codes.clear();
    window.SetVisible_ValuePath(visible.Path());
    QCOMPARE(window.m_codes, codes);
}

void tst_clientwindow::borderMarkers_data()
{
    QTest::addColumn<int>("direction");
    QTest::addColumn<bool>("isStart");
    QTest::addColumn<unsigned int>("special");
    QTest::addColumn<int>("color");
    QTest::newRow("start along X") << 0 << true << 0x108U << 30;
    QTest::newRow("stop along X") << 0 << false << 0x108U << 31;
    QTest::newRow("start along Y") << 1 << true << 0x104U << 31;
    QTest::newRow("stop along Y") << 1 << false << 0x104U << 30;
}

void tst_clientwindow::borderMarkers()
{
    QFETCH(int, direction);
    QFETCH(bool, isStart);
    QFETCH(unsigned int, special);
    QFETCH(int, color);
    ClientScene scene(static_cast<EMarkerXYType>(direction));
    scene.list.AddMarker(21, false, IColorBase::eColorGood, false, 0x800, QStringLiteral("name"));
    QString const path = isStart ? scene.start.Path() : scene.stop.Path();
    QVERIFY(isStart ? scene.window.SetStart_ValuePath(path, 21) : scene.window.SetStop_ValuePath(path, 21));
    Marker const * const marker = scene.list.GetMarker(21);
    QCOMPARE(isStart ? scene.window.GetStartMarkerId() : scene.window.GetStopMarkerId(), 21);
    QCOMPARE(isStart ? scene.window.GetStopMarkerId() : scene.window.GetStartMarkerId(), -1);
    QVERIFY(marker->GetShowMarkerFlag());
    QVERIFY(marker->GetMoveable());
    QCOMPARE(marker->GetSpecial(), special);
    QCOMPARE(static_cast<int>(marker->GetColor()), color);
    QCOMPARE(marker->GetValuePath(), path);
    QCOMPARE(marker->GetIValueNumeric()->GetNumericValue(), isStart ? 20.0 : 40.0);
    QVERIFY(scene.list.m_asked.back() == direction);
}

void tst_clientwindow::borderOfAnUnknownPath()
{
    ClientScene scene;
    QVERIFY(!scene.window.SetStart_ValuePath(QStringLiteral("/test/unknown"), 16));
    QVERIFY(scene.list.isIndexValid(16)); // the marker is there, and follows nothing
    QVERIFY(!scene.list.isIndexValidConnected(16));
    QCOMPARE(scene.list.GetValueTreePath(16), QStringLiteral("/test/unknown"));
    QVERIFY(scene.window.SetStart_ValuePath(scene.start.Path(), 16));
    QVERIFY(scene.list.isIndexValidConnected(16));
    QVERIFY(!scene.window.SetStart_ValuePath(QStringLiteral("/test/unknown"), 16));
    QVERIFY(!scene.list.isIndexValidConnected(16));
    scene.BindBorders();
    QVERIFY(!scene.window.SetStart_ValuePath(QStringLiteral("/test/unknown"), 16));
    QCOMPARE(scene.Pixels(), QStringLiteral("-1 40")); // it keeps no pixel of the value before
    scene.BindBorders();
    QVERIFY(!scene.window.SetStop_ValuePath(QStringLiteral("/test/unknown"), 17));
    QCOMPARE(scene.Pixels(), QStringLiteral("20 -1"));
}

void tst_clientwindow::borderAtAnotherId()
{
    ClientScene scene;
    scene.BindBorders();
    QVERIFY(scene.window.SetStart_ValuePath(scene.start.Path(), 20));
    QCOMPARE(scene.window.GetStartMarkerId(), 20);
    QVERIFY(scene.list.isIndexValid(16)); // the earlier marker stays
    scene.window.Show(false);
    QVERIFY(!scene.list.GetShowMarkerFlag(20));
    QVERIFY(scene.list.GetShowMarkerFlag(16));
}

void tst_clientwindow::boundAnewAfterASwitch_data()
{
    QTest::addColumn<int>("direction");
    QTest::addColumn<bool>("isStart");
    for (int const direction : { 0, 1 })
        for (bool const isStart : { true, false })
            QTest::addRow("%s along %s", isStart ? "start" : "stop", direction == 0 ? "X" : "Y")
                << direction << isStart;
}

//! The marker that the other border had goes back, with its colour.
void tst_clientwindow::boundAnewAfterASwitch()
{
    QFETCH(int, direction);
    QFETCH(bool, isStart);
    int const startColor = 30 + direction;
    ClientScene scene(static_cast<EMarkerXYType>(direction));
    scene.Bind();
    scene.window.SwitchBorders();
    QVERIFY(isStart ? scene.window.SetStart_ValuePath(scene.start.Path(), 16)
                    : scene.window.SetStop_ValuePath(scene.stop.Path(), 17));
    QCOMPARE(scene.window.GetStartMarkerId(), 16);
    QCOMPARE(scene.window.GetStopMarkerId(), 17);
    QCOMPARE(static_cast<int>(scene.list.GetMarker(16)->GetColor()), startColor);
    QCOMPARE(static_cast<int>(scene.list.GetMarker(17)->GetColor()), 61 - startColor);
    QCOMPARE(scene.Pixels(), QStringLiteral("20 40"));
    scene.window.Show(false);
    QVERIFY(!scene.list.GetShowMarkerFlag(16));
    QVERIFY(!scene.list.GetShowMarkerFlag(17));
}

void tst_clientwindow::badMarkerIds_data()
{
    QTest::addColumn<unsigned int>("id");
    QTest::newRow("behind the last") << 43U;
    QTest::newRow("above every int") << 0x80000000U;
    QTest::newRow("highest") << std::numeric_limits<unsigned int>::max();
}

void tst_clientwindow::badMarkerIds()
{
    QFETCH(unsigned int, id);
    ClientScene scene;
    QVERIFY(scene.window.SetStart_ValuePath(scene.start.Path(), id)); // the value is bound all the same
    QVERIFY(scene.window.SetStop_ValuePath(scene.stop.Path(), id));
    QCOMPARE(scene.window.GetStartMarkerId(), -1);
    QCOMPARE(scene.window.GetStopMarkerId(), -1);
    for (int i = 0; i < 43; ++i)
        QVERIFY(!scene.list.isIndexValid(i));
    scene.window.Show(true);
    scene.window.SetStartStop(10.0, 30.0, true);
    scene.window.SwitchBorders();
    QCOMPARE(scene.Pixels(), QStringLiteral("10 30"));
    QVERIFY(scene.window.SetStop_ValuePath(scene.stop.Path(), 42)); // the last one
    QCOMPARE(scene.window.GetStopMarkerId(), 42);
    QVERIFY(scene.list.isIndexValid(42));
}

void tst_clientwindow::connected_data()
{
    QTest::addColumn<bool>("start");
    QTest::addColumn<bool>("stop");
    QTest::addColumn<bool>("visible");
    for (int i = 0; i < 8; ++i)
        QTest::addRow("start %d, stop %d, visible %d", i & 1, i >> 1 & 1, i >> 2)
            << ((i & 1) != 0) << ((i & 2) != 0) << ((i & 4) != 0);
}

void tst_clientwindow::connected()
{
    QFETCH(bool, start);
    QFETCH(bool, stop);
    QFETCH(bool, visible);
    ClientScene scene;
    scene.visible->SetValue(true, nullptr);
    scene.window.SetHasFocus_ValuePath(scene.focus.Path());
    scene.window.SetText_ValuePath(scene.text.Path());
    if (start)
        scene.window.SetStart_ValuePath(scene.start.Path(), 16);
    if (stop)
        scene.window.SetStop_ValuePath(scene.stop.Path(), 17);
    if (visible)
        scene.window.SetVisible_ValuePath(scene.visible.Path());
    bool const all = start && stop && visible;
    QCOMPARE(scene.window.Connected(), all);
    QCOMPARE(scene.IsValid(), all);
    QCOMPARE(scene.window.HasPoint(30), all);
    QCOMPARE(scene.window.IsVisible(), visible);
    scene.window.SetStartStop(10.0, 30.0, true); // what is missing does no harm
    scene.window.Show(true);
    scene.window.MovePixelOffset(5);
    scene.window.RecalcBorders();
    scene.window.SwitchBorders();
    QCOMPARE(scene.Values(), start && stop ? QStringLiteral("15 35") : QStringLiteral("20 40"));
    QCOMPARE(scene.IsValid(), all);
}

void tst_clientwindow::valid_data()
{
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("stop");
    QTest::addColumn<bool>("visible");
    QTest::addColumn<bool>("isValid");
    QTest::addColumn<QString>("pixels");
    QTest::newRow("inside") << 20.0 << 40.0 << true << true << QStringLiteral("20 40");
    QTest::newRow("the whole range") << 0.0 << 100.0 << true << true << QStringLiteral("0 100");
    QTest::newRow("not visible") << 20.0 << 40.0 << false << false << QStringLiteral("20 40");
    QTest::newRow("start outside") << -1.0 << 40.0 << true << false << QStringLiteral("-1 40");
    QTest::newRow("stop outside") << 20.0 << 101.0 << true << false << QStringLiteral("20 -1");
    QTest::newRow("both outside") << -1.0 << 101.0 << true << false << QStringLiteral("-1 -1");
    QTest::newRow("empty") << 20.0 << 20.0 << true << true << QStringLiteral("20 20");
    QTest::newRow("start above stop") << 40.0 << 20.0 << true << true << QStringLiteral("40 20");
}

void tst_clientwindow::valid()
{
    QFETCH(double, start);
    QFETCH(double, stop);
    QFETCH(bool, visible);
    QFETCH(bool, isValid);
    QFETCH(QString, pixels);
    ClientScene scene;
    scene.start->SetValue(start, nullptr);
    scene.stop->SetValue(stop, nullptr);
    scene.Bind(visible);
    QCOMPARE(scene.Pixels(), pixels);
    QCOMPARE(scene.IsValid(), isValid);
    QCOMPARE(scene.window.HasPoint(20), isValid && start <= 20.0);
    for (int const pixel : { -1, 0, 10, 20, 40 })
        QVERIFY(isValid || !scene.window.HasPoint(pixel));
}

void tst_clientwindow::points_data()
{
    QTest::addColumn<int>("pixel");
    QTest::addColumn<bool>("has");
    QTest::newRow("before") << 19 << false;
    QTest::newRow("start") << 20 << true;
    QTest::newRow("between") << 30 << true;
    QTest::newRow("stop") << 40 << true;
    QTest::newRow("behind") << 41 << false;
    QTest::newRow("none") << -1 << false;
    QTest::newRow("lowest") << std::numeric_limits<int>::min() << false;
    QTest::newRow("highest") << std::numeric_limits<int>::max() << false;
}

void tst_clientwindow::points()
{
    QFETCH(int, pixel);
    QFETCH(bool, has);
    ClientScene scene;
    scene.Bind();
    QCOMPARE(scene.window.HasPoint(pixel), has);
    scene.visible->SetValue(false, nullptr);
    QVERIFY(!scene.window.HasPoint(pixel));
}

//! The start pixel lies above the stop pixel then, and no pixel between.
void tst_clientwindow::pointsWherePixelsFall()
{
    ClientScene scene(eMarkerY);
    std::swap(scene.list.m_start, scene.list.m_stop);
    scene.Bind();
    QCOMPARE(scene.Pixels(), QStringLiteral("80 60"));
    QVERIFY(scene.IsValid());
    for (int const pixel : { 59, 60, 70, 80, 81 })
        QVERIFY(!scene.window.HasPoint(pixel));
    scene.stop->SetValue(20.0, nullptr); // unless both are one
    QVERIFY(scene.window.HasPoint(80));
}

void tst_clientwindow::show_data()
{
    QTest::addColumn<bool>("bound");
    QTest::newRow("visible bound") << true;
    QTest::newRow("visible not bound") << false;
}

void tst_clientwindow::show()
{
    QFETCH(bool, bound);
    ClientScene scene;
    if (bound)
        scene.Bind();
    else
        scene.BindBorders();
    Listener listener;
    scene.visible->AddObserver(&listener);
    for (bool const on : { false, true, false }) {
        scene.window.Show(on);
        QCOMPARE(scene.visible->GetValue(), on && bound);
        QCOMPARE(scene.list.GetShowMarkerFlag(16), on);
        QCOMPARE(scene.list.GetShowMarkerFlag(17), on);
        QCOMPARE(scene.window.IsVisible(), on && bound);
    }
    QCOMPARE(listener.m_heard.size(), bound ? 3 : 0);
    scene.list.SetShowMarker(16, true);
    scene.window.Show(false); // also with the value held already
    QVERIFY(!scene.list.GetShowMarkerFlag(16));
}

void tst_clientwindow::text()
{
    ClientScene scene;
    scene.window.SetText(QStringLiteral("own"));
    QCOMPARE(scene.window.GetText(), QStringLiteral("own"));
    scene.text->SetValue(QStringLiteral("bound"), nullptr);
    QCOMPARE(scene.window.GetText(), QStringLiteral("own"));
    QVERIFY(scene.window.SetText_ValuePath(scene.text.Path()));
    QCOMPARE(scene.window.GetText(), QStringLiteral("bound"));
    scene.text->SetValue(QStringLiteral("changed"), nullptr);
    QCOMPARE(scene.window.GetText(), QStringLiteral("changed"));
    scene.window.SetText(QStringLiteral("written"));
    QCOMPARE(scene.text->GetValue(), QStringLiteral("written"));
    scene.text->SetValue(QStringLiteral("last"), nullptr);
    scene.text.Remove();
    QCOMPARE(scene.window.GetText(), QStringLiteral("last"));
    scene.window.SetText(QString());
    QVERIFY(scene.window.GetText().isEmpty());
}

void tst_clientwindow::focus()
{
    ClientScene scene;
    scene.window.SetFocus(true);
    QVERIFY(scene.window.GetFocus());
    QVERIFY(!scene.focus->GetValue());
    scene.window.SetHasFocus_ValuePath(scene.focus.Path());
    QVERIFY(!scene.window.GetFocus()); // the value wins
    scene.window.SetFocus(true);
    QVERIFY(scene.window.GetFocus());
    QVERIFY(scene.focus->GetValue());
    scene.window.SetFocus(false);
    QVERIFY(!scene.focus->GetValue());
    scene.focus->SetValue(true, nullptr);
    scene.focus.Remove();
    QVERIFY(scene.window.GetFocus()); // as it was last
}

void tst_clientwindow::newStartAndStop()
{
    for (EMarkerXYType const direction : { eMarkerX, eMarkerY }) {
        ClientScene scene(direction);
        scene.Bind();
        scene.start->SetValue(30.0, nullptr);
        QVERIFY(scene.list.m_asked.size() == 1 && scene.list.m_asked[0] == direction);
        QCOMPARE(scene.Pixels(), QStringLiteral("30 40"));
        scene.stop->SetValue(50.0, nullptr);
        QCOMPARE(scene.Pixels(), QStringLiteral("30 50"));
        scene.stop->SetValue(500.0, nullptr); // not clipped
        QCOMPARE(scene.Pixels(), QStringLiteral("30 -1"));
        scene.start->SetInterimValue(35.0, nullptr);
        QCOMPARE(scene.Pixels(), QStringLiteral("30 -1"));
    }
}

void tst_clientwindow::newVisible()
{
    ClientScene scene;
    scene.Bind();
    scene.visible->SetValue(false, nullptr);
    QVERIFY(!scene.list.GetShowMarkerFlag(16));
    QVERIFY(!scene.list.GetShowMarkerFlag(17));
    scene.visible->SetValue(true, nullptr);
    QVERIFY(scene.list.GetShowMarkerFlag(16));
    QVERIFY(scene.list.GetShowMarkerFlag(17));
    scene.visible->SetValue(false, nullptr);
    scene.list.SetShowMarker(16, true);
    QVERIFY(scene.window.SetVisible_ValuePath(scene.visible.Path())); // taken at once
    QVERIFY(!scene.list.GetShowMarkerFlag(16));
}

void tst_clientwindow::newFocus()
{
    ClientScene scene;
    scene.focus->SetValue(true, nullptr);
    scene.window.SetHasFocus_ValuePath(scene.focus.Path());
    QVERIFY(scene.window.GetFocus());
    scene.focus->SetValue(false, nullptr);
    QVERIFY(!scene.window.GetFocus());
}

void tst_clientwindow::otherCodesAndSubjects()
{
    ClientScene scene;
    scene.Bind();
    TreeNumber const stranger("stranger", 70.0);
    scene.list.m_pixels = 51; // what is mapped anew would show
    for (TChangeCode const code : { eRangeChanged, eItemsChanged, eInterimChanged }) {
        scene.start->HasChanged(code, nullptr);
        scene.visible->HasChanged(code, nullptr);
    }
    for (TChangeCode const code : { eStateChanged, eValueChanged, eInterimChanged }) {
        scene.window.Update(nullptr, code);
        scene.window.Update(stranger.Get(), code);
    }
    QCOMPARE(scene.Pixels(), QStringLiteral("20 40"));
    QVERIFY(scene.window.Connected());
    ClientWindow unbound(&scene.list, eMarkerX);
    unbound.Update(nullptr, eValueChanged); // an empty field is nobody
    unbound.Update(nullptr, eStateChanged);
}

void tst_clientwindow::withoutParent()
{
    ClientScene scene;
    ClientWindow window(nullptr, eMarkerX);
    QVERIFY(window.SetStart_ValuePath(scene.start.Path(), 16));
    QVERIFY(window.SetStop_ValuePath(scene.stop.Path(), 17));
    QVERIFY(window.SetVisible_ValuePath(scene.visible.Path()));
    scene.focus->SetValue(true, nullptr);
    QVERIFY(window.SetHasFocus_ValuePath(scene.focus.Path()));
    QVERIFY(window.Connected());
    QVERIFY(!window.GetFocus()); // nothing is followed without a parent
    QCOMPARE(window.ValueToPixel(0, 5.0), -1);
    window.Show(true);
    QVERIFY(scene.visible->GetValue());
    window.SetStartStop(30.0, 10.0, true);
    QCOMPARE(scene.Values(), QStringLiteral("10 30"));
    window.RecalcBorders();
    window.MovePixelOffset(5);
    window.SwitchBorders();
    window.DrawFrame(0, 10, IColorBase::eColorGood, nullptr);
    int a = 0;
    int b = 0;
    QVERIFY(!window.IsValid(a, b));
    QCOMPARE(scene.Values(), QStringLiteral("10 30"));
    window.SetParent(&scene.list);
    QCOMPARE(window.GetParent(), &scene.list);
    QVERIFY(!scene.list.isIndexValid(16));
    window.RecalcBorders();
    QVERIFY(window.IsValid(a, b));
    QCOMPARE(window.ValueToPixel(0, 5.0), 5);
}

void tst_clientwindow::parentEnds()
{
    ClientScene scene;
    auto list = std::make_unique<TestMarkerList>();
    ClientWindow window(list.get(), eMarkerX);
    window.SetStart_ValuePath(scene.start.Path(), 16);
    window.SetStop_ValuePath(scene.stop.Path(), 17);
    window.SetVisible_ValuePath(scene.visible.Path());
    list.reset();
    QVERIFY(!window.GetParent());
    scene.start->SetValue(30.0, nullptr);
    scene.visible->SetValue(true, nullptr);
    window.SetStartStop(10.0, 15.0, false);
    window.MovePixelOffset(5);
    window.Show(true);
    window.SwitchBorders();
    QCOMPARE(scene.Values(), QStringLiteral("10 15"));
    QVERIFY(window.Connected());
}

void tst_clientwindow::oneValueTwice()
{
    ClientScene scene;
    scene.window.SetStart_ValuePath(scene.start.Path(), 16);
    scene.window.SetStop_ValuePath(scene.start.Path(), 17);
    scene.window.SetVisible_ValuePath(scene.visible.Path());
    scene.window.SetHasFocus_ValuePath(scene.visible.Path());
    scene.visible->SetValue(true, nullptr);
    QVERIFY(scene.window.GetFocus());
    QVERIFY(scene.IsValid());
    scene.start->SetValue(30.0, nullptr);
    QCOMPARE(scene.Pixels(), QStringLiteral("30 30"));
    scene.window.SetStart_ValuePath(QString(), 16); // the other field still hears
    scene.window.SetHasFocus_ValuePath(QString());
    scene.start->SetValue(50.0, nullptr);
    QCOMPARE(scene.Pixels(), QStringLiteral("-1 50"));
    scene.visible->SetValue(false, nullptr);
    QVERIFY(!scene.list.GetShowMarkerFlag(17));
    QVERIFY(scene.window.GetFocus());
}

void tst_clientwindow::departure_data()
{
    QTest::addColumn<int>("which");
    QTest::addColumn<bool>("connected");
    QTest::addColumn<QString>("pixels");
    QTest::newRow("start") << 0 << false << QStringLiteral("-1 40");
    QTest::newRow("stop") << 1 << false << QStringLiteral("20 -1");
    QTest::newRow("visible") << 2 << false << QStringLiteral("20 40");
    QTest::newRow("focus") << 3 << true << QStringLiteral("20 40");
    QTest::newRow("text") << 4 << true << QStringLiteral("20 40");
}

void tst_clientwindow::departure()
{
    QFETCH(int, which);
    QFETCH(bool, connected);
    QFETCH(QString, pixels);
    for (bool const byState : { false, true }) {
        ClientScene scene;
        scene.Bind();
        scene.window.SetHasFocus_ValuePath(scene.focus.Path());
        scene.window.SetText_ValuePath(scene.text.Path());
        ValueBase * const values[] = { scene.start.Get(), scene.stop.Get(), scene.visible.Get(), scene.focus.Get(),
                                       scene.text.Get() };
        ValueBase * const value = values[which];
        if (byState)
            value->SetState(eStateGoingAway, nullptr);
        else
            Tree::Instance()->Remove(value->GetPathName());
        if (byState)
            QVERIFY(!value->HasObserver(&scene.window));
        QCOMPARE(scene.window.Connected(), connected);
        QCOMPARE(scene.IsValid(), connected);
        QCOMPARE(scene.Pixels(), pixels);
        scene.window.SetStartStop(10.0, 30.0, true);
        scene.window.MovePixelOffset(1);
        scene.window.SetFocus(true);
        scene.window.SetText(QStringLiteral("text"));
        scene.window.Show(false);
        QVERIFY(scene.window.GetFocus());
        QCOMPARE(scene.window.GetText(), QStringLiteral("text"));
    }
}

void tst_clientwindow::departureOfOneValueTwice()
{
    ClientScene scene;
    scene.Bind();
    scene.window.SetStop_ValuePath(scene.start.Path(), 17);
    scene.window.SetHasFocus_ValuePath(scene.visible.Path());
    scene.start.Remove();
    scene.visible.Remove();
    QCOMPARE(scene.Pixels(), QStringLiteral("-1 -1"));
    QVERIFY(scene.window.GetFocus());
    QVERIFY(!scene.window.IsVisible());
    scene.window.SetStartStop(1.0, 2.0, true);
    scene.window.SetFocus(false);
    QVERIFY(!scene.window.Connected());
}

void tst_clientwindow::otherStates()
{
    ClientScene scene;
    scene.Bind();
    for (ValueBase * const value :
         { static_cast<ValueBase *>(scene.start.Get()), static_cast<ValueBase *>(scene.visible.Get()) }) {
        value->SetState(eStateDisabled, nullptr);
        value->SetState(eStateValid, nullptr);
    }
    QVERIFY(scene.IsValid());
    scene.start->SetValue(30.0, nullptr);
    QCOMPARE(scene.Pixels(), QStringLiteral("30 40"));
}

void tst_clientwindow::awayAndBack()
{
    ClientScene scene;
    scene.Bind();
    scene.window.SetText_ValuePath(scene.text.Path());
    scene.window.SetHasFocus_ValuePath(scene.focus.Path());
    ValueNumeric<double> * start = nullptr;
    for (int turn = 0; turn < 100; ++turn) {
        Tree::Instance()->Remove(scene.start.Path());
        scene.visible.Remove();
        scene.text.Remove();
        scene.focus.Remove();
        start = new ValueNumeric<double>(QStringLiteral("start"));
        Tree::Instance()->Insert(QStringLiteral("/test"), start);
        scene.visible.Return();
        scene.text.Return();
        scene.focus.Return();
        start->SetValue(turn % 30, nullptr);
        scene.visible->SetValue(true, nullptr);
        scene.focus->SetValue(true, nullptr);
        QVERIFY(!scene.window.Connected()); // nothing is bound by itself
        QVERIFY(!scene.window.GetFocus());
        QCOMPARE(scene.Pixels(), QStringLiteral("-1 40"));
        QCOMPARE(start->GetObserverCount() + scene.visible->GetObserverCount() + scene.text->GetObserverCount(), 0);
        QVERIFY(scene.window.SetStart_ValuePath(scene.start.Path(), 16));
        QVERIFY(scene.window.SetVisible_ValuePath(scene.visible.Path()));
        QVERIFY(scene.window.SetText_ValuePath(scene.text.Path()));
        QVERIFY(scene.window.SetHasFocus_ValuePath(scene.focus.Path()));
        QVERIFY(scene.IsValid());
        QCOMPARE(scene.Pixels(), QStringLiteral("%1 40").arg(turn % 30));
        scene.focus->SetValue(false, nullptr);
    }
    Tree::Instance()->Remove(scene.start.Path());
}

void tst_clientwindow::markersStay()
{
    ClientScene scene;
    {
        ClientWindow window(&scene.list, eMarkerX);
        window.SetStart_ValuePath(scene.start.Path(), 16);
        window.SetVisible_ValuePath(scene.visible.Path());
    }
    QVERIFY(scene.list.isIndexValidConnected(16));
    QCOMPARE(scene.visible->GetObserverCount(), 0);
    QCOMPARE(scene.start->GetObserverCount(), 1); // the marker
}

void tst_clientwindow::endsWhileMarkersAreShown_data()
{
    QTest::addColumn<int>("what");
    QTest::addColumn<int>("how");
    char const * const whats[] = { "window", "parent", "start", "visible", "marker" };
    char const * const hows[] = { "shown", "set", "told", "bound", "moved to another marker" };
    for (int what = 0; what < 5; ++what)
        for (int how = 0; how < 5; ++how)
            QTest::addRow("%s while %s", whats[what], hows[how]) << what << how;
}

//! The markers tell others of their show flag, who may end anything.
void tst_clientwindow::endsWhileMarkersAreShown()
{
    QFETCH(int, what);
    QFETCH(int, how);
    TreeNumber start("start", 20.0);
    TreeNumber const stop("stop", 40.0);
    TreeValue<Value<bool>> visible("visible");
    auto * const list = new TestMarkerList;
    QPointer<TestMarkerList> const guard(list);
    auto window = std::make_unique<ClientWindow>(list, eMarkerX);
    ClientWindow * const p = window.get();
    p->SetStart_ValuePath(start.Path(), 16);
    p->SetStop_ValuePath(stop.Path(), 17);
    p->SetVisible_ValuePath(visible.Path());
    bool done = false;
    connect(list, &MarkerList::signalSetState, this, [&] {
        if (done)
            return;
        done = true;
        if (what == 0)
            window.reset();
        else if (what == 1)
            delete list;
        else if (what == 2)
            start.Remove();
        else if (what == 3)
            visible.Remove();
        else
            list->DeleteMarker(16);
    });
    if (how == 0)
        p->Show(true);
    else if (how == 1)
        p->SetStartStop(50.0, 60.0, true);
    else if (how == 2)
        visible->SetValue(true, nullptr);
    else if (how == 3) {
        bool const bound = p->SetStart_ValuePath(start.Path(), 16); // the marker is hidden, so it is shown
        QCOMPARE(bound, what == 3 || what == 4 || what == 1);
    } else {
        list->AddMarker(20)->SetShowMarker(false, true);
        bool const bound = p->SetStop_ValuePath(stop.Path(), 20);
        QCOMPARE(bound, what != 0);
    }
    QVERIFY(done);
    QCOMPARE(guard.isNull(), what == 1);
    if (window) {
        window->SetStartStop(1.0, 2.0, false);
        QCOMPARE(window->GetParent(), guard.data());
    }
    delete guard.data();
}

ORIM_TEST_MAIN(tst_clientwindow)
#include "tst_clientwindow.moc"
