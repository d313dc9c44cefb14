// SPDX-License-Identifier: MIT
#include "windowvalues.h"

#include "testmain.h"
#include "tree.h"
#include "valuenumeric.h"

#include <array>
#include <limits>
#include <memory>

class tst_WindowValues : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void init() { m_values = std::make_unique<WindowValues>(); }

    void cleanup() { m_values.reset(); }

    void everyWindowHasItsValues();
    void valuesLeaveTheTree();
    void badIndexHasNothing_data();
    void badIndexHasNothing();
    void hiddenAtTheStart();
    void atMostOneHasTheFocus();
    void hiddenWindowHasNoFocus();
    void startNeverPassesStop_data();
    void startNeverPassesStop();
    void rangeIsInOrder();
    void numbersThatAreNoneAreIgnored_data();
    void numbersThatAreNoneAreIgnored();
    void windowKeepsItsFrequency_data();
    void windowKeepsItsFrequency();
    void bandWithoutAWidthIsIgnored();
    void bandLeavesWithTheValues();
    void focusFromOutsideLeavesTheOthers_data();
    void focusFromOutsideLeavesTheOthers();
    void nextByFrequency();

private:
    std::unique_ptr<WindowValues> m_values;
};

namespace {

constexpr double NoNumber = std::numeric_limits<double>::quiet_NaN();
constexpr double Endless = std::numeric_limits<double>::infinity();

//! Looks at both ends whenever one moves.
class Watch : public IObserver
{
public:
    Watch()
    {
        Start()->AddObserver(this);
        Stop()->AddObserver(this);
    }

    void Update(Observable *, TChangeCode) override { m_good = m_good && Start()->GetValue() <= Stop()->GetValue(); }

    bool IsGood() const { return m_good; }

    static ValueNumeric<double> * At(WindowValues::Item item)
    {
        return Tree::Instance()->FindAs<ValueNumeric<double>>(WindowValues::PathOf(1, item));
    }

    static ValueNumeric<double> * Start() { return At(WindowValues::eStart); }

    static ValueNumeric<double> * Stop() { return At(WindowValues::eStop); }

private:
    bool m_good = true;
};

} // namespace

void tst_WindowValues::everyWindowHasItsValues()
{
    for (int window = 0; window < WindowValues::Count; ++window) {
        QString const folder = QStringLiteral("/console/windows/%1/").arg(window + 1);
        QCOMPARE(WindowValues::PathOf(window, WindowValues::eStart), folder + QStringLiteral("start"));
        QCOMPARE(WindowValues::PathOf(window, WindowValues::eStop), folder + QStringLiteral("stop"));
        QCOMPARE(WindowValues::PathOf(window, WindowValues::eVisible), folder + QStringLiteral("visible"));
        QCOMPARE(WindowValues::PathOf(window, WindowValues::eFocus), folder + QStringLiteral("focus"));
        QCOMPARE(WindowValues::PathOf(window, WindowValues::eText), folder + QStringLiteral("text"));
        Tree const & tree = *Tree::Instance();
        QVERIFY(tree.FindAs<ValueNumeric<double>>(folder + QStringLiteral("start")));
        QVERIFY(tree.FindAs<ValueNumeric<double>>(folder + QStringLiteral("stop")));
        QVERIFY(tree.FindAs<Value<bool>>(folder + QStringLiteral("visible")));
        QVERIFY(tree.FindAs<Value<bool>>(folder + QStringLiteral("focus")));
        auto const * const text = tree.FindAs<Value<QString>>(folder + QStringLiteral("text"));
        QVERIFY(text);
        QCOMPARE(text->GetValue(), QString::number(window + 1));
    }
    QCOMPARE(WindowValues::Count, 5);
}

void tst_WindowValues::valuesLeaveTheTree()
{
    {
        WindowValues second; // finds the paths in use
    }
    QVERIFY(Tree::Instance()->Find(WindowValues::PathOf(4, WindowValues::eText)));
    m_values.reset();
    for (int window = 0; window < WindowValues::Count; ++window) {
        for (int item = 0; item < WindowValues::eItemCount; ++item)
            QVERIFY(!Tree::Instance()->Find(WindowValues::PathOf(window, static_cast<WindowValues::Item>(item))));
    }
    // nothing to write to, nothing to read
    WindowValues::SetRange(0, { 1.0, 2.0 });
    WindowValues::Show(0, true);
    WindowValues::Focus(0);
    QVERIFY(!WindowValues::IsVisible(0));
    QCOMPARE(WindowValues::Next(true), -1);
    QVERIFY(WindowValues::RangeOf(0) == (FrequencyRange{ 0.0, 0.0 }));
    QVERIFY(WindowValues::LimitsOf(0) == (FrequencyRange{ 0.0, 0.0 }));
}

void tst_WindowValues::badIndexHasNothing_data()
{
    QTest::addColumn<int>("window");
    QTest::newRow("below") << -1;
    QTest::newRow("above") << 5;
    QTest::newRow("far above") << std::numeric_limits<int>::max();
    QTest::newRow("far below") << std::numeric_limits<int>::lowest();
}

void tst_WindowValues::badIndexHasNothing()
{
    QFETCH(int, window);
    WindowValues::Show(window, true);
    WindowValues::SetRange(window, { 1.0, 2.0 });
    QVERIFY(WindowValues::PathOf(window, WindowValues::eStart).isEmpty());
    QVERIFY(!WindowValues::IsVisible(window));
    WindowValues::Show(1, true);
    WindowValues::Focus(1);
    WindowValues::Focus(window);
    QCOMPARE(WindowValues::Focused(), -1);
}

void tst_WindowValues::hiddenAtTheStart()
{
    for (int window = 0; window < WindowValues::Count; ++window)
        QVERIFY(!WindowValues::IsVisible(window));
    QCOMPARE(WindowValues::Focused(), -1);
    QCOMPARE(WindowValues::Next(true), -1);
}

void tst_WindowValues::atMostOneHasTheFocus()
{
    for (int window = 0; window < WindowValues::Count; ++window) {
        WindowValues::Show(window, true);
        WindowValues::Focus(window);
        QCOMPARE(WindowValues::Focused(), window);
    }
    int focused = 0;
    for (int window = 0; window < WindowValues::Count; ++window) {
        QString const path = WindowValues::PathOf(window, WindowValues::eFocus);
        focused += Tree::Instance()->FindAs<Value<bool>>(path)->GetValue() ? 1 : 0;
    }
    QCOMPARE(focused, 1);
    WindowValues::Focus(-1);
    QCOMPARE(WindowValues::Focused(), -1);
}

void tst_WindowValues::hiddenWindowHasNoFocus()
{
    WindowValues::Show(0, true);
    WindowValues::Focus(0);
    WindowValues::Focus(1); // hidden
    QCOMPARE(WindowValues::Focused(), -1);
    WindowValues::Focus(0);
    WindowValues::Show(0, false);
    QCOMPARE(WindowValues::Focused(), -1);
    WindowValues::Show(0, true);
    QCOMPARE(WindowValues::Focused(), -1); // it does not come back with it
}

void tst_WindowValues::startNeverPassesStop_data()
{
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("span");
    QTest::newRow("upward beyond the stop") << 500.0 << 10.0;
    QTest::newRow("downward below the start") << -500.0 << 10.0;
    QTest::newRow("a little up") << 105.0 << 10.0;
    QTest::newRow("a little down") << 95.0 << 10.0;
    QTest::newRow("wider") << 90.0 << 30.0;
    QTest::newRow("narrower") << 102.0 << 1.0;
    QTest::newRow("from its stop on") << 110.0 << 10.0;
}

void tst_WindowValues::startNeverPassesStop()
{
    QFETCH(double, start);
    QFETCH(double, span);
    WindowValues::SetRange(1, { 100.0, 10.0 });
    Watch const watch;
    WindowValues::SetRange(1, { start, span });
    QVERIFY(watch.IsGood());
    QVERIFY(WindowValues::RangeOf(1) == (FrequencyRange{ start, span }));
    QCOMPARE(Watch::Start()->GetValue(), start);
}

void tst_WindowValues::rangeIsInOrder()
{
    WindowValues::SetRange(1, { 100.0, -10.0 });
    QVERIFY(WindowValues::RangeOf(1) == (FrequencyRange{ 90.0, 10.0 }));
    // also when somebody else has turned the ends round
    Watch::Start()->SetValue(150.0, nullptr);
    QVERIFY(WindowValues::RangeOf(1) == (FrequencyRange{ 100.0, 50.0 }));
}

void tst_WindowValues::numbersThatAreNoneAreIgnored_data()
{
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("span");
    QTest::newRow("start is no number") << NoNumber << 1.0;
    QTest::newRow("span is no number") << 1.0 << NoNumber;
    QTest::newRow("endless start") << -Endless << 1.0;
    QTest::newRow("endless span") << 1.0 << Endless;
}

void tst_WindowValues::numbersThatAreNoneAreIgnored()
{
    QFETCH(double, start);
    QFETCH(double, span);
    WindowValues::SetRange(1, { 100.0, 10.0 });
    WindowValues::SetRange(1, { start, span });
    QVERIFY(WindowValues::RangeOf(1) == (FrequencyRange{ 100.0, 10.0 }));
    m_values->SetBand({ 0.0, 1000.0 });
    m_values->SetBand({ start, span });
    QVERIFY(WindowValues::LimitsOf(1) == (FrequencyRange{ 0.0, 1000.0 }));
}

void tst_WindowValues::windowKeepsItsFrequency_data()
{
    QTest::addColumn<double>("start"); // of the band
    QTest::addColumn<double>("span");
    QTest::newRow("band around it") << 0.0 << 1000.0;
    QTest::newRow("band within it") << 100.0 << 50.0;
    QTest::newRow("band across its stop") << 150.0 << 500.0;
    QTest::newRow("band above it") << 1e6 << 1000.0;
    QTest::newRow("band below it") << -1e6 << 1000.0;
}

void tst_WindowValues::windowKeepsItsFrequency()
{
    QFETCH(double, start);
    QFETCH(double, span);
    m_values->SetBand({ 0.0, 500.0 });
    for (int window = 0; window < WindowValues::Count; ++window)
        WindowValues::SetRange(window, { 90.0, 100.0 });
    m_values->SetBand({ start, span });
    for (int window = 0; window < WindowValues::Count; ++window) {
        QVERIFY(WindowValues::RangeOf(window) == (FrequencyRange{ 90.0, 100.0 }));
        QVERIFY(WindowValues::LimitsOf(window) == (FrequencyRange{ start, span }));
    }
    m_values->SetBand({ 0.0, 500.0 }); // and back
    QVERIFY(WindowValues::RangeOf(0) == (FrequencyRange{ 90.0, 100.0 }));
    QVERIFY(WindowValues::LimitsOf(0) == (FrequencyRange{ 0.0, 500.0 }));
}

void tst_WindowValues::bandWithoutAWidthIsIgnored()
{
    m_values->SetBand({ 100.0, 50.0 });
    m_values->SetBand({ 0.0, 0.0 });
    m_values->SetBand({ 0.0, -10.0 });
    QVERIFY(WindowValues::LimitsOf(0) == (FrequencyRange{ 100.0, 50.0 }));
}

void tst_WindowValues::bandLeavesWithTheValues()
{
    FrequencyRange const everywhere = WindowValues::LimitsOf(0);
    QVERIFY(everywhere.start < -1e9 && everywhere.start + everywhere.span > 1e9);
    m_values->SetBand({ 100.0, 50.0 });
    m_values.reset();
    m_values = std::make_unique<WindowValues>();
    QVERIFY(WindowValues::LimitsOf(0) == everywhere);
}

void tst_WindowValues::focusFromOutsideLeavesTheOthers_data()
{
    QTest::addColumn<bool>("shownBefore");
    QTest::newRow("set while it is shown") << true;
    QTest::newRow("set while it is hidden, then shown") << false;
}

void tst_WindowValues::focusFromOutsideLeavesTheOthers()
{
    QFETCH(bool, shownBefore);
    auto const focusOf = [](int window) {
        return Tree::Instance()->FindAs<Value<bool>>(WindowValues::PathOf(window, WindowValues::eFocus));
    };
    WindowValues::Show(1, true);
    WindowValues::Show(3, shownBefore);
    WindowValues::Focus(1);
    focusOf(3)->SetValue(true, nullptr);
    QCOMPARE(focusOf(1)->GetValue(), !shownBefore);
    WindowValues::Show(3, true);
    QCOMPARE(WindowValues::Focused(), 3);
    QVERIFY(!focusOf(1)->GetValue());
    focusOf(1)->SetValue(true, nullptr); // and back
    QCOMPARE(WindowValues::Focused(), 1);
    QVERIFY(!focusOf(3)->GetValue());
}

void tst_WindowValues::nextByFrequency()
{
    std::array<double, 3> const starts{ { 300.0, 100.0, 200.0 } };
    for (int window = 0; window < 3; ++window) {
        WindowValues::SetRange(window, { starts[static_cast<std::size_t>(window)], 10.0 });
        WindowValues::Show(window, true);
    }
    QCOMPARE(WindowValues::Next(true), 1);
    QCOMPARE(WindowValues::Next(false), 0);
    for (int const expected : { 1, 2, 0, 1 }) {
        WindowValues::Focus(WindowValues::Next(true));
        QCOMPARE(WindowValues::Focused(), expected);
    }
    for (int const expected : { 0, 2, 1 }) {
        WindowValues::Focus(WindowValues::Next(false));
        QCOMPARE(WindowValues::Focused(), expected);
    }
}

ORIM_CORE_TEST_MAIN(tst_WindowValues)
#include "tst_windowvalues.moc"
