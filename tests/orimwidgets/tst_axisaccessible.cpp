// SPDX-License-Identifier: MIT
// What a screen reader is told of an axis, its menu and its page.

#include "axisaccessible.h"

#include "axisbase.h"
#include "coloryrulerleft.h"
#include "guibase.h"
#include "marker.h"
#include "resortpopupmenu.h"
#include "suffixeddouble.h"
#include "testmain.h"

#include <QAccessible>
#include <QLineEdit>

#include <limits>
#include <memory>

namespace {

QString ValueOf(AxisBase & axis) { return QAccessible::queryAccessibleInterface(&axis)->text(QAccessible::Value); }

} // namespace

class tst_AxisAccessible : public QObject
{
    Q_OBJECT
private Q_SLOTS:

    void initTestCase() { TestStage::HushPopups(); }

    void roleAndName();
    void valueIsTheRange_data();
    void valueIsTheRange();
    void valueInTheDisplayedUnit();
    void valueByTheConverter();
    void valueOfATimeAxis();
    void valueOfOddRanges_data();
    void valueOfOddRanges();
    void derivedAxesAreServed();
    void otherWidgetsAreNot();
    void endsWithTheAxis();
    void otherTexts();
    void menu();
    void page();
};

void tst_AxisAccessible::roleAndName()
{
    AxisBase axis(nullptr, "axis");
    QAccessibleInterface const * const answer = QAccessible::queryAccessibleInterface(&axis);
    QVERIFY(answer);
    QVERIFY(answer->isValid());
    QCOMPARE(answer->role(), QAccessible::Indicator);
    QCOMPARE(answer->text(QAccessible::Name), QStringLiteral("Scale"));
    axis.setAccessibleName(QStringLiteral("Frequency scale"));
    QCOMPARE(answer->text(QAccessible::Name), QStringLiteral("Frequency scale"));
    QCOMPARE(answer->object(), &axis);
    QCOMPARE(QAccessible::queryAccessibleInterface(&axis), answer);
}

void tst_AxisAccessible::valueIsTheRange_data()
{
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("stop");
    QTest::addColumn<QString>("unit");
    QTest::addColumn<QString>("value");
    QTest::newRow("with a unit") << 88.5 << 108.25 << "MHz"
                                 << "88.5 to 108.25 MHz";
    QTest::newRow("without") << 0.5 << 10.25 << QString() << "0.5 to 10.25";
    QTest::newRow("downward") << -20.5 << -120.25 << "dBm"
                              << "-20.5 to -120.25 dBm";
    QTest::newRow("a unit that looks like a place") << 0.5 << 1.25 << "%1"
                                                    << "0.5 to 1.25 %1";
}

void tst_AxisAccessible::valueIsTheRange()
{
    QFETCH(double, start);
    QFETCH(double, stop);
    QFETCH(QString, unit);
    QFETCH(QString, value);
    AxisBase axis;
    axis.SetUnitText(unit);
    axis.SetFixedRange(start, stop, 3, 3, 2, start, 1.0);
    QCOMPARE(ValueOf(axis), value);
}

void tst_AxisAccessible::valueInTheDisplayedUnit()
{
    AxisBase axis;
    axis.SetUnitText(QStringLiteral("kHz"));
    axis.SetFixedRange(1.5, 2.25, 3, 3, 2, 1.5, 1.0);
    axis.SetDisplayFactor(1000.0);
    QCOMPARE(ValueOf(axis), QStringLiteral("1500 to 2250 kHz"));
}

void tst_AxisAccessible::valueByTheConverter()
{
    AxisBase axis;
    axis.SetRange(1e6, 2e6);
    auto * const converter = new SuffixedDouble;
    axis.SetConverter(converter);
    QCOMPARE(ValueOf(axis), QStringLiteral("%1 to %2 %3")
                                .arg(converter->GetSignificantStringNoSuffix(1e6),
                                     converter->GetSignificantStringNoSuffix(2e6), converter->GetPureSuffix())
                                .trimmed());
}

void tst_AxisAccessible::valueOfATimeAxis()
{
    AxisBase axis(nullptr, "time", AxisBase::AxisHorizontal | AxisBase::AxisTimeStamps);
    axis.SetRange(0.0, 60e6);
    QString const value = ValueOf(axis);
    QVERIFY2(value.contains(QLatin1String("1970")), qPrintable(value));
    QCOMPARE(value.count(QLatin1String("1970")), 2);
}

void tst_AxisAccessible::valueOfOddRanges_data()
{
    QTest::addColumn<double>("end");
    QTest::newRow("NaN") << qQNaN();
    QTest::newRow("infinite") << qInf();
    QTest::newRow("highest") << std::numeric_limits<double>::max();
    QTest::newRow("lowest") << std::numeric_limits<double>::lowest();
}

void tst_AxisAccessible::valueOfOddRanges()
{
    QFETCH(double, end);
    for (unsigned int const type : { 0x11U, 0x20010U }) {
        AxisBase axis(nullptr, "odd", type);
        for (int const digits : { 0, 2 }) {
            axis.SetFixedRange(end, -end, 3, 3, digits, 0.0, 1.0);
            QVERIFY(ValueOf(axis).contains(QLatin1String(" to ")));
        }
    }
}

void tst_AxisAccessible::derivedAxesAreServed()
{
    ColorYRulerLeft ruler;
    QAccessibleInterface const * const answer = QAccessible::queryAccessibleInterface(&ruler);
    QCOMPARE(answer->role(), QAccessible::Indicator);
    QVERIFY(answer->text(QAccessible::Value).contains(QLatin1String(" to ")));
}

void tst_AxisAccessible::otherWidgetsAreNot()
{
    AxisBase const axis;
    QWidget widget;
    QLineEdit edit;
    QVERIFY(QAccessible::queryAccessibleInterface(&widget)->role() != QAccessible::Indicator);
    QCOMPARE(QAccessible::queryAccessibleInterface(&edit)->role(), QAccessible::EditableText);
}

void tst_AxisAccessible::endsWithTheAxis()
{
    auto axis = std::make_unique<AxisBase>();
    QAccessible::Id const id = QAccessible::uniqueId(QAccessible::queryAccessibleInterface(axis.get()));
    QVERIFY(QAccessible::accessibleInterface(id));
    axis.reset();
    QVERIFY(!QAccessible::accessibleInterface(id));
}

void tst_AxisAccessible::otherTexts()
{
    AxisBase axis;
    axis.setAccessibleDescription(QStringLiteral("of the receiver"));
    QAccessibleInterface const * const answer = QAccessible::queryAccessibleInterface(&axis);
    QCOMPARE(answer->text(QAccessible::Description), QStringLiteral("of the receiver"));
    QCOMPARE(answer->text(QAccessible::Accelerator), QString());
}

void tst_AxisAccessible::menu()
{
    AxisBase axis;
    axis.SetAxisZoomEnable(true, true);
    ResortPopupMenu * const menu = axis.GetContextMenu();
    QVERIFY(menu);
    menu->popup(QPoint());
    QAccessibleInterface * const answer = QAccessible::queryAccessibleInterface(menu);
    QCOMPARE(answer->role(), QAccessible::PopupMenu);
    QStringList names;
    for (int i = 0; i < answer->childCount(); ++i) {
        QAccessibleInterface * const item = answer->child(i);
        QCOMPARE(item->role() == QAccessible::Separator, menu->actions().at(i)->isSeparator());
        if (item->role() != QAccessible::Separator)
            names.append(item->text(QAccessible::Name));
    }
    menu->hide();
    QCOMPARE(names, (QStringList{ "Maximum Range", "Default Range", "UnZoom", "Properties..." }));
}

void tst_AxisAccessible::page()
{
    AxisBase axis;
    axis.SetAxisZoomEnable(true, false);
    axis.SetFixedRange(1.5, 2.25, 3, 3, 2, 1.5, 1.0);
    std::unique_ptr<QWidget> const page(axis.GetPropertyPage(nullptr, "page"));
    QVERIFY(page);
    for (auto const & [object, value] : { std::pair{ "start", "1.5" }, { "stop", "2.25" } }) {
        auto * const edit = page->findChild<QLineEdit *>(QString::fromLatin1(object));
        QAccessibleInterface * const answer = QAccessible::queryAccessibleInterface(edit);
        QVERIFY(!answer->text(QAccessible::Name).isEmpty());
        QCOMPARE(answer->text(QAccessible::Value), QString::fromLatin1(value));
    }
}

ORIM_TEST_MAIN(tst_AxisAccessible)
#include "tst_axisaccessible.moc"
