// SPDX-License-Identifier: MIT
// What is typed into the page of an axis, what it takes over and when, and who may end meanwhile.
#include "axispropertypageprobe.h"

#include "azimuthaccess.h"
#include "specialdoubles.h"
#include "testmain.h"
#include "unitprovider.h"
#include "vccomboboxclassic.h"

#include <QCheckBox>
#include <QMenu>
#include <QPointer>
#include <QSignalSpy>

#include <cmath>
#include <memory>
#include <utility>
#include <vector>

namespace {

static_assert(QEvent::FocusOut == 9 && Qt::OtherFocusReason == 7);

//! Notes who loses the focus, and why.
class FocusLog : public QObject
{
public:
    bool eventFilter(QObject * watched, QEvent * event) override
    {
        if (event->type() == QEvent::FocusOut)
            m_seen.emplace_back(watched, static_cast<int>(static_cast<QFocusEvent *>(event)->reason()));
        return false;
    }

    std::vector<std::pair<QObject *, int>> m_seen;
};

} // namespace

class tst_axispropertypage_input : public QObject
{
    Q_OBJECT
private Q_SLOTS:

    void initTestCase() { TestStage::HushPopups(); }

    void init() { AzimuthMode(5); }

    void typedNumbers_data();
    void typedNumbers();
    void typedWithoutLimitsInAzimuthMode_data();
    void typedWithoutLimitsInAzimuthMode();
    void checks_data();
    void checks();
    void limitsOfOneEndAreNotThoseOfTheOther();
    void readByTheProvider();
    void providerReadsNonsense_data();
    void providerReadsNonsense();
    void finishedMakesModified_data();
    void finishedMakesModified();
    void focusOutOfTheSameText_data();
    void focusOutOfTheSameText();
    void focusOutTakesOver_data();
    void focusOutTakesOver();
    void focusOutIntoItsMenu_data();
    void focusOutIntoItsMenu();
    void focusOutKeepsUndo_data();
    void focusOutKeepsUndo();
    void unmodifiedValueIsKept_data();
    void unmodifiedValueIsKept();
    void updateAfterEditFinished_data();
    void updateAfterEditFinished();
    void otherNumberOfAForeignObject_data();
    void otherNumberOfAForeignObject();
    void filterConsumesNothing();
    void doKillFocus();
    void killFocusIsToldToBothEdits();
    void specialNumbers_data();
    void specialNumbers();
    void specialLimits_data();
    void specialLimits();
    void providerGoesFirst();
    void providerIsEnding();
    void providerDeletesThePage_data();
    void providerDeletesThePage();
    void focusedEditDiesWithThePage();
    void editsAndBoxAreGone();
};

void tst_axispropertypage_input::typedNumbers_data()
{
    QTest::addColumn<int>("end");
    QTest::addColumn<double>("minimum");
    QTest::addColumn<double>("maximum");
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("shown");
    for (int const end : { eStart, eStop }) {
        char const * const name = end == eStart ? "start" : "stop";
        QTest::addRow("%s: within", name) << end << 0.0 << 100.0 << "50" << 50.0 << "50";
        QTest::addRow("%s: above the maximum", name) << end << 0.0 << 100.0 << "150" << 100.0 << "100";
        QTest::addRow("%s: below the minimum", name) << end << 0.0 << 100.0 << "-1" << 0.0 << "0";
        QTest::addRow("%s: on the maximum", name) << end << 0.0 << 100.0 << "100" << 100.0 << "100";
        QTest::addRow("%s: no maximum", name) << end << 0.0 << NoLimit << "150" << 150.0 << "150";
        QTest::addRow("%s: no minimum", name) << end << NoLimit << 100.0 << "-1e5" << -1e5 << "-100000";
        QTest::addRow("%s: no limit at all", name) << end << NoLimit << NoLimit << "-20000" << -20000.0 << "-20000";
        QTest::addRow("%s: a limit beside the mark", name)
            << end << NoLimit << -9999.764 << "5" << -9999.764 << "-9999.76";
        QTest::addRow("%s: the minimum is the last", name) << end << 50.0 << 20.0 << "30" << 50.0 << "50";
        QTest::addRow("%s: written anew", name) << end << NoLimit << NoLimit << "1e2" << 100.0 << "100";
        QTest::addRow("%s: no number is 0", name) << end << NoLimit << NoLimit << "abc" << 0.0 << "0";
        QTest::addRow("%s: no number is 0, limited", name) << end << 3.0 << NoLimit << "abc" << 3.0 << "3";
        QTest::addRow("%s: a comma is no number", name) << end << NoLimit << NoLimit << "1,5" << 0.0 << "0";
        QTest::addRow("%s: nan is no number", name) << end << NoLimit << NoLimit << "nan" << 0.0 << "0";
        QTest::addRow("%s: inf is no number", name) << end << NoLimit << NoLimit << "inf" << 0.0 << "0";
        QTest::addRow("%s: beyond all doubles", name) << end << NoLimit << NoLimit << "1e999" << 0.0 << "0";
    }
}

void tst_axispropertypage_input::typedNumbers()
{
    QFETCH(int, end);
    QFETCH(double, minimum);
    QFETCH(double, maximum);
    QFETCH(QString, text);
    QFETCH(double, value);
    QFETCH(QString, shown);
    AxisPropertyPage page(nullptr, "page", QString(), false);
    Set(page, end, 60.0, minimum, maximum);
    Set(page, 1 - end, 70.0, 1000.0, 1000.0);
    Type(EditOf(page, end), text);
    QCOMPARE(Get(page, end), value);
    QCOMPARE(EditOf(page, end)->text(), shown);
    QCOMPARE(Get(page, 1 - end), 70.0);
}

void tst_axispropertypage_input::typedWithoutLimitsInAzimuthMode_data() { TwoEnds(); }

void tst_axispropertypage_input::typedWithoutLimitsInAzimuthMode()
{
    QFETCH(int, end);
    AxisPropertyPage page(nullptr, "page", QString(), false);
    Set(page, end, 60.0, 0.0, 100.0);
    page.SetAzimuthMode(true);
    Type(EditOf(page, end), QStringLiteral("150"));
    QCOMPARE(Get(page, end), 150.0);
    Type(EditOf(page, end), QStringLiteral("-150"));
    QCOMPARE(Get(page, end), -150.0);
    page.SetAzimuthMode(false);
    Type(EditOf(page, end), QStringLiteral("150"));
    QCOMPARE(Get(page, end), 100.0);
}

void tst_axispropertypage_input::checks_data() { TwoEnds(); }

void tst_axispropertypage_input::checks()
{
    QFETCH(int, end);
    AxisPropertyPage page(nullptr, "page", QString(), false);
    auto const check = [&page, end] { end == eStart ? page.CheckStart() : page.CheckStop(); };
    Set(page, 1 - end, 900.0, 0.0, 100.0);
    Set(page, end, 150.0, 0.0, 100.0);
    page.SetAzimuthMode(true);
    check();
    QCOMPARE(Get(page, end), 150.0);
    page.SetAzimuthMode(false);
    check();
    QCOMPARE(Get(page, end), 100.0);
    QCOMPARE(EditOf(page, end)->text(), QStringLiteral("150"));
    Set(page, end, -5.0, 0.0, 100.0);
    check();
    QCOMPARE(Get(page, end), 0.0);
    Set(page, end, 30.0, 50.0, 20.0);
    check();
    QCOMPARE(Get(page, end), 50.0);
    Set(page, end, -30000.0);
    check();
    QCOMPARE(Get(page, end), -30000.0);
    QCOMPARE(Get(page, 1 - end), 900.0);
    QVERIFY(!page.GetDirty());
}

void tst_axispropertypage_input::limitsOfOneEndAreNotThoseOfTheOther()
{
    AxisPropertyPage page(nullptr, "page", QString(), false);
    page.SetStart(0.0, 0.0, 10.0, 1.0);
    page.SetStop(0.0, 100.0, 110.0, 2.0);
    Type(EditOf(page, eStart), QStringLiteral("50"));
    Type(EditOf(page, eStop), QStringLiteral("50"));
    QCOMPARE(page.GetStart(), 10.0);
    QCOMPARE(page.GetStop(), 100.0);
}

void tst_axispropertypage_input::readByTheProvider()
{
    UnitProvider provider;
    AxisPropertyPage page(nullptr, "page", &provider, false);
    page.SetStart(1.0, NoLimit, NoLimit, NoLimit);
    Type(EditOf(page, eStart), QStringLiteral("<42>"));
    QCOMPARE(page.GetStart(), 42.0);
    QCOMPARE(EditOf(page, eStart)->text(), QStringLiteral("<42>"));
    QVERIFY(provider.m_reads > 0);
}

void tst_axispropertypage_input::providerReadsNonsense_data()
{
    QTest::addColumn<QString>("text");
    for (char const * const text : { "nan", "inf", "-inf" })
        QTest::newRow(text) << QString::fromLatin1(text);
}

void tst_axispropertypage_input::providerReadsNonsense()
{
    QFETCH(QString, text);
    UnitProvider provider; // hands on what toDouble() makes of it
    AxisPropertyPage page(nullptr, "page", &provider, false);
    page.SetStart(7.0, NoLimit, NoLimit, NoLimit);
    Type(EditOf(page, eStart), text);
    QCOMPARE(page.GetStart(), 7.0);
    QCOMPARE(EditOf(page, eStart)->text(), QStringLiteral("<7>"));
}

void tst_axispropertypage_input::finishedMakesModified_data() { TwoEnds(); }

void tst_axispropertypage_input::finishedMakesModified()
{
    QFETCH(int, end);
    AxisPropertyPage page(nullptr, "page", QString(), false);
    Set(page, end, 5.0);
    QVERIFY(!page.GetDirty());
    Q_EMIT EditOf(page, end)->editingFinished(); // of a text that is the same
    QVERIFY(page.GetDirty());
    QCOMPARE(Get(page, end), 5.0);
    AxisPropertyPage limited(nullptr, "page", QString(), false);
    Set(limited, end, 5.0, 10.0, 20.0); // outside its limits
    Q_EMIT EditOf(limited, end)->editingFinished();
    QCOMPARE(Get(limited, end), 10.0); // taken over, though the text is the same
    QCOMPARE(EditOf(limited, end)->text(), QStringLiteral("10"));
}

void tst_axispropertypage_input::focusOutOfTheSameText_data() { TwoEnds(); }

void tst_axispropertypage_input::focusOutOfTheSameText()
{
    QFETCH(int, end);
    Page page(nullptr, "page", QString(), false);
    Set(page, end, 5.0);
    QFocusEvent event(QEvent::FocusOut, Qt::TabFocusReason);
    page.eventFilter(EditOf(page, end), &event); // the part of it that is the filter's
    QVERIFY(!page.GetDirty());
    EditOf(page, end)->setText(QStringLiteral("6"));
    page.eventFilter(EditOf(page, end), &event);
    QVERIFY(page.GetDirty());
    QCOMPARE(Get(page, end), 6.0);
}

void tst_axispropertypage_input::focusOutTakesOver_data() { TwoEnds(); }

void tst_axispropertypage_input::focusOutTakesOver()
{
    QFETCH(int, end);
    AxisPropertyPage page(nullptr, "page", QString(), false);
    Set(page, end, 5.0, 0.0, 50.0);
    EditOf(page, end)->selectAll();
    QTest::keyClicks(EditOf(page, end), QStringLiteral("70"));
    QCOMPARE(Get(page, end), 5.0); // not while it is typed
    FocusOut(EditOf(page, end));
    QCOMPARE(Get(page, end), 50.0);
    QCOMPARE(EditOf(page, end)->text(), QStringLiteral("50"));
    QVERIFY(page.GetDirty());
}

void tst_axispropertypage_input::focusOutIntoItsMenu_data() { TwoEnds(); }

void tst_axispropertypage_input::focusOutIntoItsMenu()
{
    QFETCH(int, end);
    AxisPropertyPage page(nullptr, "page", QString(), false);
    Set(page, end, 5.0);
    QLineEdit * const edit = EditOf(page, end);
    QMenu menu(edit);
    menu.addAction(QStringLiteral("Copy"));
    menu.popup(QPoint());
    QSignalSpy const finished(edit, &QLineEdit::editingFinished);
    edit->selectAll();
    for (auto const & [text, value] : { std::pair{ "5", 5.0 }, std::pair{ "6", 6.0 } }) {
        if (edit->text() != QLatin1String(text))
            edit->setText(QLatin1String(text));
        QFocusEvent out(QEvent::FocusOut, Qt::PopupFocusReason);
        QCoreApplication::sendEvent(edit, &out);
        QCOMPARE(Get(page, end), value);
        QCOMPARE(page.GetDirty(), value != 5.0);
        QCOMPARE(edit->hasSelectedText(), value == 5.0); // what the menu is to copy
    }
    QCOMPARE(finished.count(), 0); // the filter alone took it over
    menu.hide();
}

void tst_axispropertypage_input::focusOutKeepsUndo_data() { TwoEnds(); }

void tst_axispropertypage_input::focusOutKeepsUndo()
{
    QFETCH(int, end);
    AxisPropertyPage page(nullptr, "page", QString(), false);
    Set(page, end, 5.0);
    QLineEdit * const edit = EditOf(page, end);
    QTest::keyClicks(edit, QStringLiteral("7"));
    FocusOut(edit);
    QCOMPARE(Get(page, end), 57.0);
    QVERIFY(edit->isUndoAvailable());
}

void tst_axispropertypage_input::unmodifiedValueIsKept_data() { TwoEnds(); }

void tst_axispropertypage_input::unmodifiedValueIsKept()
{
    QFETCH(int, end);
    Page page(nullptr, "page", QString(), false);
    Set(page, end, 5.0, 10.0, 20.0); // outside its limits, and not edited
    EditOf(page, end)->setText(QStringLiteral(" 5.0"));
    page.UpdateAfterEditFinished(QStringLiteral(" 5.0"), 5.0, EditOf(page, end));
    QCOMPARE(Get(page, end), 5.0);
    QCOMPARE(EditOf(page, end)->text(), QStringLiteral("5")); // shown anew all the same
    QVERIFY(!page.GetDirty());
    page.SetAutoScale(true); // no box: nothing
    QVERIFY(!page.GetDirty());
}

void tst_axispropertypage_input::updateAfterEditFinished_data() { TwoEnds(); }

void tst_axispropertypage_input::updateAfterEditFinished()
{
    QFETCH(int, end);
    Page page(nullptr, "page", QString(), false);
    Set(page, end, 5.0);
    QLineEdit other;
    page.UpdateAfterEditFinished(QStringLiteral("9"), 9.0, &other); // the same as before, and no edit of the page
    QVERIFY(!page.GetDirty());
    page.UpdateAfterEditFinished(QStringLiteral("9"), 9.0, nullptr);
    QCOMPARE(Get(page, end), 5.0);
    page.UpdateAfterEditFinished(QStringLiteral("9"), 8.0, EditOf(page, end));
    QVERIFY(page.GetDirty());
    QCOMPARE(Get(page, end), 9.0);
    page.UpdateAfterEditFinished(QStringLiteral("11"), 11.0, EditOf(page, end)); // modified stays
    QCOMPARE(Get(page, end), 11.0);
    QCOMPARE(other.text(), QString());
}

void tst_axispropertypage_input::otherNumberOfAForeignObject_data()
{
    QTest::addColumn<bool>("isNull");
    QTest::newRow("another edit") << false;
    QTest::newRow("null") << true;
}

void tst_axispropertypage_input::otherNumberOfAForeignObject()
{
    QFETCH(bool, isNull);
    Page page(nullptr, "page", QString(), false);
    QLineEdit other;
    page.UpdateAfterEditFinished(QStringLiteral("9"), 8.0, isNull ? nullptr : &other);
    QVERIFY(page.GetDirty());
    QCOMPARE(page.GetStart(), 0.0);
    QCOMPARE(page.GetStop(), 0.0);
    QCOMPARE(other.text(), QString());
}

void tst_axispropertypage_input::filterConsumesNothing()
{
    Page page(nullptr, "page", QString(), true);
    page.SetStart(5.0, NoLimit, NoLimit, NoLimit);
    QLineEdit other(QStringLiteral("9"));
    QFocusEvent out(QEvent::FocusOut, Qt::TabFocusReason);
    QFocusEvent in(QEvent::FocusIn, Qt::TabFocusReason);
    QEvent enter(QEvent::Enter);
    QVERIFY(!page.eventFilter(EditOf(page, eStart), &out));
    QVERIFY(!page.eventFilter(EditOf(page, eStop), &out));
    QVERIFY(!page.eventFilter(EditOf(page, eStart), &enter));
    QVERIFY(!page.eventFilter(&other, &out));
    EditOf(page, eStart)->setText(QStringLiteral("7"));
    QVERIFY(!page.eventFilter(EditOf(page, eStart), &in));
    QCOMPARE(page.GetStart(), 5.0); // only a focus that leaves
    QVERIFY(!page.GetDirty());
}

void tst_axispropertypage_input::doKillFocus()
{
    AxisPropertyPage page(nullptr, "page", QString(), false);
    page.SetStart(1.0, NoLimit, NoLimit, NoLimit);
    page.SetStop(2.0, NoLimit, NoLimit, NoLimit);
    QTest::keyClicks(EditOf(page, eStart), QStringLiteral("5")); // behind the 1
    QTest::keyClicks(EditOf(page, eStop), QStringLiteral("7"));
    QSignalSpy const start(EditOf(page, eStart), &QLineEdit::editingFinished);
    QSignalSpy const stop(EditOf(page, eStop), &QLineEdit::editingFinished);
    page.DoKillFocus();
    QCOMPARE(page.GetStart(), 15.0);
    QCOMPARE(page.GetStop(), 27.0);
    QCOMPARE(start.count(), 1);
    QCOMPARE(stop.count(), 1);
    QVERIFY(page.GetDirty());
}

void tst_axispropertypage_input::killFocusIsToldToBothEdits()
{
    AxisPropertyPage page(nullptr, "page", QString(), false);
    FocusLog log;
    EditOf(page, eStart)->installEventFilter(&log);
    EditOf(page, eStop)->installEventFilter(&log);
    page.DoKillFocus();
    QCOMPARE(static_cast<int>(log.m_seen.size()), 2);
    QCOMPARE(log.m_seen.front().first, static_cast<QObject *>(EditOf(page, eStart)));
    QCOMPARE(log.m_seen.back().first, static_cast<QObject *>(EditOf(page, eStop)));
    QCOMPARE(log.m_seen.front().second, 7);
    QCOMPARE(log.m_seen.back().second, 7);
}

void tst_axispropertypage_input::specialNumbers_data() { TwoEnds(); }

void tst_axispropertypage_input::specialNumbers()
{
    QFETCH(int, end);
    AxisPropertyPage page(nullptr, "page", QString(), false);
    double held = 0.0;
    for (double const value : SpecialDoubles()) {
        Set(page, end, value);
        if (std::isfinite(value))
            held = value;
        QCOMPARE(Get(page, end), held);
        QCOMPARE(EditOf(page, end)->text(), QString::number(held));
        Type(EditOf(page, end), QString::number(value, 'g', 17));
        held = std::isfinite(value) ? value : 0.0;
        QCOMPARE(Get(page, end), held);
    }
}

void tst_axispropertypage_input::specialLimits_data() { TwoEnds(); }

void tst_axispropertypage_input::specialLimits()
{
    QFETCH(int, end);
    AxisPropertyPage page(nullptr, "page", QString(), false);
    std::vector<double> const all = SpecialDoubles();
    for (double const minimum : all)
        for (double const maximum : all) {
            Set(page, end, 1.0, minimum, maximum);
            QCOMPARE(Get(page, end), 1.0);
            end == eStart ? page.CheckStart() : page.CheckStop();
            double expected = maximum < 1.0 ? maximum : 1.0;
            expected = minimum > expected ? minimum : expected;
            QCOMPARE(Get(page, end), expected);
        }
    for (double const lastShown : all)
        page.SetStart(2.0, NoLimit, NoLimit, lastShown);
    QCOMPARE(page.GetStart(), 2.0);
}

void tst_axispropertypage_input::providerGoesFirst()
{
    auto provider = std::make_unique<WatchedProvider>();
    AxisPropertyPage page(nullptr, "page", static_cast<IUnitTextProvider *>(provider.get()), false);
    page.SetStart(1.0, NoLimit, NoLimit, NoLimit);
    QCOMPARE(EditOf(page, eStart)->text(), QStringLiteral("<1>"));
    provider.reset();
    page.SetStart(2.0, NoLimit, NoLimit, NoLimit);
    QCOMPARE(EditOf(page, eStart)->text(), QStringLiteral("2"));
    Type(EditOf(page, eStart), QStringLiteral("3.5"));
    QCOMPARE(page.GetStart(), 3.5);
    QCOMPARE(TextAt(page, 2, 2), QStringLiteral("[page unit]"));
}

void tst_axispropertypage_input::providerIsEnding()
{
    auto provider = std::make_unique<WidgetProvider>();
    AxisPropertyPage page(nullptr, "page", static_cast<IUnitTextProvider *>(provider.get()), false);
    page.SetStart(1.0, NoLimit, NoLimit, NoLimit);
    QCOMPARE(EditOf(page, eStart)->text(), QStringLiteral("<1>"));
    connect(provider.get(), &QObject::destroyed, &page, [&page] {
        page.SetStart(2.0, NoLimit, NoLimit, NoLimit);
        Type(EditOf(page, eStop), QStringLiteral("8"));
    });
    provider.reset();
    QCOMPARE(EditOf(page, eStart)->text(), QStringLiteral("2"));
    QCOMPARE(page.GetStop(), 8.0);
}

void tst_axispropertypage_input::providerDeletesThePage_data()
{
    QTest::addColumn<int>("way");
    QTest::addColumn<bool>("onRead");
    char const * const ways[] = { "focus out", "editing finished", "kill focus", "set", "show", "stop finished" };
    for (int way = 0; way < 6; ++way)
        for (bool const onRead : { true, false })
            if (onRead ? way < 3 || way == 5 : true)
                QTest::addRow("%s, as it %s", ways[way], onRead ? "reads" : "writes") << way << onRead;
}

void tst_axispropertypage_input::providerDeletesThePage()
{
    QFETCH(int, way);
    QFETCH(bool, onRead);
    UnitProvider provider;
    QPointer<Page> page = new Page(nullptr, "page", &provider, true);
    QPointer<QLineEdit> const edit = page->GetStartEdit();
    edit->setText(QStringLiteral("<4>"));
    (onRead ? provider.m_onRead : provider.m_onWrite) = [&page] { delete page.data(); };
    switch (way) {
    case 0:
        FocusOut(edit);
        break;
    case 1:
        page->SlotStartEditFinished();
        break;
    case 2:
        page->DoKillFocus();
        break;
    case 3:
        page->SetStart(1.0, NoLimit, NoLimit, NoLimit);
        break;
    case 4:
        page->Show(1.0, edit);
        break;
    default:
        page->SlotStopEditFinished();
        break;
    }
    QVERIFY(!page);
    QVERIFY(!edit);
}

void tst_axispropertypage_input::focusedEditDiesWithThePage()
{
    UnitProvider provider;
    auto page = std::make_unique<AxisPropertyPage>(nullptr, "page", &provider, false);
    QPointer<QLineEdit> const edit = page->GetStartEdit();
    page->show();
    page->activateWindow();
    edit->setFocus();
    QTRY_VERIFY(edit->hasFocus());
    QTest::keyClicks(edit, QStringLiteral("77"));
    int const reads = provider.m_reads;
    page.reset();
    QVERIFY(!edit);
    QCOMPARE(provider.m_reads, reads); // what was being typed is dropped
}

void tst_axispropertypage_input::editsAndBoxAreGone()
{
    Page page(nullptr, "page", QString(), true);
    delete page.findChild<QLineEdit *>(QStringLiteral("start"));
    page.SetStart(3.0, NoLimit, NoLimit, NoLimit);
    QCOMPARE(page.GetStart(), 3.0);
    page.SlotStartEditFinished();
    page.DoKillFocus();
    page.SetAutoScale(true);
    delete page.findChild<QLineEdit *>(QStringLiteral("stop"));
    delete page.findChild<VCComboBoxClassic *>();
    delete page.findChild<QCheckBox *>();
    page.SetStop(4.0, NoLimit, NoLimit, NoLimit);
    page.SlotStopEditFinished();
    page.SlotEnableAutoScale();
    page.SetAutoScale(false);
    page.SetAzimuthMode(true);
    page.DoKillFocus();
    long key = -1;
    QVERIFY(page.GetAzimuthMode(key));
    QCOMPARE(key, 0L);
    QCOMPARE(page.GetStop(), 4.0);
    QVERIFY(page.GetAutoScale());
    QVERIFY(page.GetDirty());
    page.UpdateAfterEditFinished(QStringLiteral("8"), 4.0, nullptr);
    QCOMPARE(page.GetStop(), 4.0);
}

ORIM_TEST_MAIN(tst_axispropertypage_input)
#include "tst_axispropertypage_input.moc"
