// SPDX-License-Identifier: MIT
#include "control.h"

#include "controleventfilter.h"
#include "placeof.h"
#include "resortpopupmenu.h"
#include "testmain.h"

#include <QContextMenuEvent>
#include <QTranslator>

namespace {

//! A widget with the slot that the menu's item calls.
class Pane : public QWidget
{
    Q_OBJECT
public:
    using QWidget::QWidget;
    int m_shown = 0;
public Q_SLOTS:

    void slotShowProperties() { ++m_shown; }
};

//! Hears the virtual operations that others call.
class ListeningControl : public Control
{
public:
    using Control::Control;
    QStringList m_calls;

    void EnableContextMenu(bool on) override
    {
        m_calls << QStringLiteral("menu %1 %2").arg(on).arg(GetContextMenu() != nullptr);
    }

    void EnablePropertyPage(bool on) override
    {
        m_calls << QStringLiteral("page %1 %2").arg(on).arg(GetContextMenu() != nullptr);
    }
};

//! Hears what its set-up tells it, with what is set by then.
class Recorder : public QWidget
{
public:
    QStringList m_heard;

protected:
    bool event(QEvent * event) override
    {
        QString const state = QStringLiteral(" %1 %2 %3")
                                  .arg(hasMouseTracking())
                                  .arg(static_cast<int>(backgroundRole()))
                                  .arg(autoFillBackground());
        if (event->type() == QEvent::MouseTrackingChange)
            m_heard << QStringLiteral("tracking") + state;
        else if (event->type() == QEvent::PaletteChange)
            m_heard << QStringLiteral("role") + state;
        return QWidget::event(event);
    }
};

//! Is asked by the filter of every event.
class CountingControl : public Control
{
public:
    int m_asked = 0;

    bool GetContextMenuEnabled() override
    {
        ++m_asked;
        return Control::GetContextMenuEnabled();
    }
};

class PageControl : public Control
{
public:
    using Control::Control;

    void SetPage(QWidget * page) { m_pPropertyPage = page; }
};

//! The usual way: a widget and a control in one class.
class WidgetFirst : public QWidget, public Control
{
public:
    explicit WidgetFirst(QWidget * parent = nullptr) : QWidget(parent), Control(this, "first") {}
};

//! Answers in capitals, so that the context asked for can be seen.
class Capitals : public QTranslator
{
public:
    QString translate(char const * context, char const * text, char const * comment, int count) const override
    {
        if (qstrcmp(context, "Control") != 0)
            return {};
        return QString::fromLatin1(text).toUpper() + QString::fromLatin1(comment ? comment : "") +
               (count >= 0 ? QString::number(count) : QString());
    }

    bool isEmpty() const override { return false; }
};

void RightClick(QWidget & widget)
{
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(3, 4), QPoint(30, 40));
    QCoreApplication::sendEvent(&widget, &event);
}

} // namespace

class tst_control : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void initTestCase() { TestStage::HushPopups(); }

    void startsWith();
    void startsWithoutWidget();
    void widgetSetUp();
    void setUpOrder();
    void virtualOperationsKeepTheirOrder();
    void setWidget();
    void setWidgetAfterTheFilterEnded();
    void propertyFlagsAreApart();
    void menuFlagsAreApart();
    void propertyPage();
    void createContextProperty();
    void itemCallsTheStoredWidget();
    void createContextPropertyTwice();
    void createContextPropertyWithoutWidget();
    void createContextPropertyCallsOverrides();
    void setContextMenuLeavesTheOld();
    void setContextMenuDeletesTheOld();
    void setContextMenuWithoutOld();
    void setContextMenuToItself();
    void aMenuThatEnded();
    void menuPosition();
    void eventsAreForwarded();
    void translates();
    void aCopyShares();
    void aCopyTakesThePage();
    void anAssignmentTakesPositionAndPage();
    void aCopyDeletesNothing();
    void anAssignedControlSharesToo();
    void theSourceOfACopyEndsFirst();
    void anAssignedControlLeavesNoFilterBehind();
    void deletionOrders_data();
    void deletionOrders();
    void controlEndsBeforeItsWidget();
    void aFilterWithoutParentStaysParked();
};

void tst_control::startsWith()
{
    QWidget widget;
    Control control(&widget, "name");
    QCOMPARE(control.GetWidget(), &widget);
    QVERIFY(control.GetControlEventFilter() != nullptr);
    QCOMPARE(control.GetControlEventFilter()->parent(), &widget);
    QVERIFY(!control.hasPropertyPage());
    QVERIFY(!control.hasContextMenu());
    QVERIFY(!control.GetContextMenuEnabled());
    QVERIFY(control.GetContextMenu() == nullptr);
    QVERIFY(control.GetPropertyPage(&widget, "page") == nullptr);
    QCOMPARE(control.GetCurrentXYMenu(), QPoint(0, 0));
    QVERIFY(widget.objectName().isEmpty()); // the name is not stored
}

void tst_control::startsWithoutWidget()
{
    Control control;
    QVERIFY(control.GetWidget() == nullptr);
    QVERIFY(control.GetControlEventFilter() != nullptr);
    QVERIFY(control.GetControlEventFilter()->parent() == nullptr);
    Control named(nullptr, "name");
    QVERIFY(named.GetControlEventFilter()->parent() == nullptr);
    QVERIFY(!named.GetContextMenuEnabled());
}

void tst_control::widgetSetUp()
{
    QWidget widget;
    widget.setBackgroundRole(QPalette::Base);
    QVERIFY(!widget.hasMouseTracking());
    QVERIFY(!widget.autoFillBackground());
    Control control(&widget, "name");
    QVERIFY(widget.hasMouseTracking());
    QVERIFY(widget.autoFillBackground());
    QCOMPARE(widget.backgroundRole(), QPalette::Window);
    QCOMPARE(static_cast<int>(QPalette::Window), 10);
    ResortPopupMenu menu(&widget, "menu");
    control.SetContextMenu(&menu, false);
    control.EnableContextMenu(true);
    RightClick(widget); // the filter is installed
    QVERIFY(menu.isVisible());
    menu.close();
}

void tst_control::setUpOrder()
{
    Recorder widget;
    widget.setBackgroundRole(QPalette::Base);
    widget.m_heard.clear();
    CountingControl control;
    control.SetWidget(&widget);
    QCOMPARE(widget.m_heard, (QStringList{ QStringLiteral("tracking 1 %1 0").arg(static_cast<int>(QPalette::Base)),
                                           QStringLiteral("role 1 10 0") }));
    QVERIFY(widget.autoFillBackground());
    QCOMPARE(control.m_asked, 0); // the filter came last
    QEvent event(QEvent::User);
    QCoreApplication::sendEvent(&widget, &event);
    QCOMPARE(control.m_asked, 1);
}

void tst_control::virtualOperationsKeepTheirOrder()
{
#if defined(__x86_64__) && defined(__GNUC__)
    QCOMPARE(PlaceOf(&Control::CreateContextProperty), 0);
    QCOMPARE(PlaceOf(&Control::GetPropertyPage), 1);
    QCOMPARE(PlaceOf(&Control::EnablePropertyPage), 2);
    QCOMPARE(PlaceOf(&Control::hasPropertyPage), 3);
    QCOMPARE(PlaceOf(&Control::GetContextMenu), 6); // 4 and 5 are the destructor's
    QCOMPARE(PlaceOf(&Control::SetContextMenu), 7);
    QCOMPARE(PlaceOf(&Control::hasContextMenu), 8);
    QCOMPARE(PlaceOf(&Control::EnableContextMenu), 9);
    QCOMPARE(PlaceOf(&Control::GetContextMenuEnabled), 10);
#else
    QSKIP("another layout of classes", );
#endif
}

void tst_control::setWidget()
{
    Control control;
    QWidget widget;
    control.SetWidget(&widget);
    QCOMPARE(control.GetWidget(), &widget);
    QVERIFY(widget.hasMouseTracking());
    QVERIFY(widget.autoFillBackground());
    QCOMPARE(widget.backgroundRole(), QPalette::Window);
    QVERIFY(control.GetControlEventFilter()->parent() == nullptr); // not reparented
    ResortPopupMenu menu(&widget, "menu");
    control.SetContextMenu(&menu, false);
    control.EnableContextMenu(true);
    RightClick(widget);
    QVERIFY(menu.isVisible());
    menu.close();
    control.SetWidget(nullptr);
    QVERIFY(control.GetWidget() == nullptr);
}

void tst_control::setWidgetAfterTheFilterEnded()
{
    auto * const first = new QWidget;
    Control control(first, "name");
    delete first;
    QVERIFY(control.GetWidget() == nullptr);
    QVERIFY(control.GetControlEventFilter() == nullptr);
    QWidget second;
    control.SetWidget(&second);
    QCOMPARE(control.GetWidget(), &second);
    RightClick(second);
    QEvent event(QEvent::User);
    QVERIFY(!control.eventFilter(&second, &event));
}

void tst_control::propertyFlagsAreApart()
{
    Control control;
    control.EnablePropertyPage(true);
    QVERIFY(!control.hasPropertyPage());
    control.EnablePropertyPage(false);
    QVERIFY(!control.hasPropertyPage());
    QVERIFY(!Control(control).hasPropertyPage());
}

void tst_control::menuFlagsAreApart()
{
    Control control;
    control.EnableContextMenu(true);
    QVERIFY(control.GetContextMenuEnabled());
    QVERIFY(!control.hasContextMenu());
    ResortPopupMenu menu;
    control.SetContextMenu(&menu, false);
    QVERIFY(!control.hasContextMenu());
    QVERIFY(!Control(control).hasContextMenu());
    control.EnableContextMenu(false);
    QVERIFY(!control.GetContextMenuEnabled());
}

void tst_control::propertyPage()
{
    PageControl control;
    auto * const page = new QWidget;
    control.SetPage(page);
    QCOMPARE(control.GetPropertyPage(nullptr, nullptr), page);
    delete page;
    QVERIFY(control.GetPropertyPage(nullptr, nullptr) == nullptr);
    control.acceptPropertyChanges();
}

void tst_control::createContextProperty()
{
    Pane pane;
    Control control(&pane, "name");
    control.CreateContextProperty(&pane, "PaneMenu");
    ResortPopupMenu * const menu = control.GetContextMenu();
    QVERIFY(menu != nullptr);
    QCOMPARE(menu->parent(), &pane);
    QCOMPARE(menu->objectName(), QStringLiteral("PaneMenu"));
    QVERIFY(control.GetContextMenuEnabled());
    QCOMPARE(menu->actions().size(), 1);
    QAction * const item = menu->actions().first();
    QCOMPARE(item->text(), QStringLiteral("Properties..."));
    QVERIFY(item->shortcut().isEmpty());
    QCOMPARE(menu->GetItemId(item), -1);
    item->trigger();
    QCOMPARE(pane.m_shown, 1);
}

void tst_control::itemCallsTheStoredWidget()
{
    Pane stored;
    Pane parent;
    Control control(&stored, "name");
    control.CreateContextProperty(&parent, "menu");
    control.GetContextMenu()->actions().first()->trigger();
    QCOMPARE(stored.m_shown, 1);
    QCOMPARE(parent.m_shown, 0);
}

void tst_control::createContextPropertyTwice()
{
    Pane pane;
    Control control(&pane, "name");
    control.CreateContextProperty(&pane, "first");
    QPointer<ResortPopupMenu> const first(control.GetContextMenu());
    control.CreateContextProperty(&pane, "second");
    QVERIFY(first); // not deleted
    QVERIFY(control.GetContextMenu() != first);
}

void tst_control::createContextPropertyWithoutWidget()
{
    Control control;
    control.CreateContextProperty(nullptr, nullptr);
    QScopedPointer<ResortPopupMenu> const menu(control.GetContextMenu());
    QVERIFY(menu);
    menu->actions().first()->trigger(); // reaches nobody
}

void tst_control::createContextPropertyCallsOverrides()
{
    Pane pane;
    ListeningControl control(&pane, "name");
    control.CreateContextProperty(&pane, "menu");
    // both come before the menu is made
    QCOMPARE(control.m_calls, (QStringList{ QStringLiteral("menu 1 0"), QStringLiteral("page 1 0") }));
    QVERIFY(!control.GetContextMenuEnabled()); // the override did not pass it on
    QVERIFY(control.GetContextMenu() != nullptr);
}

void tst_control::setContextMenuLeavesTheOld()
{
    QWidget widget;
    Control control(&widget, "name");
    QPointer<ResortPopupMenu> const old(new ResortPopupMenu(&widget, "old"));
    control.SetContextMenu(old, false);
    auto * const fresh = new ResortPopupMenu(&widget, "new");
    control.SetContextMenu(fresh, false);
    QVERIFY(old);
    QCOMPARE(control.GetContextMenu(), fresh);
}

void tst_control::setContextMenuDeletesTheOld()
{
    QWidget widget;
    Control control(&widget, "name");
    QPointer<ResortPopupMenu> const old(new ResortPopupMenu(&widget, "old"));
    control.SetContextMenu(old, true);
    QVERIFY(old);
    control.SetContextMenu(nullptr, true);
    QVERIFY(!old);
    QVERIFY(control.GetContextMenu() == nullptr);
}

void tst_control::setContextMenuWithoutOld()
{
    QWidget widget;
    Control control(&widget, "name");
    QPointer<ResortPopupMenu> const menu(new ResortPopupMenu(&widget, "menu"));
    control.SetContextMenu(menu, true);
    QVERIFY(menu);
    QCOMPARE(control.GetContextMenu(), menu.data());
}

void tst_control::setContextMenuToItself()
{
    QWidget widget;
    Control control(&widget, "name");
    QPointer<ResortPopupMenu> const menu(new ResortPopupMenu(&widget, "menu"));
    control.SetContextMenu(menu, false);
    control.SetContextMenu(menu, true);
    QVERIFY(menu);
    QCOMPARE(control.GetContextMenu(), menu.data());
}

void tst_control::aMenuThatEnded()
{
    QWidget widget;
    Control control(&widget, "name");
    control.EnableContextMenu(true);
    auto * const menu = new ResortPopupMenu(&widget, "menu");
    control.SetContextMenu(menu, false);
    delete menu;
    QVERIFY(control.GetContextMenu() == nullptr);
    RightClick(widget);
    control.SetContextMenu(nullptr, true);
}

void tst_control::menuPosition()
{
    Control control;
    control.SetCurrentXYMenu(QPoint(7, -8));
    QCOMPARE(control.GetCurrentXYMenu(), QPoint(7, -8));
}

void tst_control::eventsAreForwarded()
{
    QWidget widget;
    Control control(&widget, "name");
    ResortPopupMenu menu;
    control.SetContextMenu(&menu, false);
    control.EnableContextMenu(true);
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(3, 4), QPoint(30, 40));
    QVERIFY(control.eventFilter(&widget, &event));
    QCOMPARE(control.GetCurrentXYMenu(), QPoint(3, 4));
    menu.close();
    QEvent other(QEvent::User);
    QVERIFY(!control.eventFilter(&widget, &other));
}

void tst_control::translates()
{
    Capitals translator;
    QCOMPARE(Control::tr("text"), QStringLiteral("text"));
    QCoreApplication::installTranslator(&translator);
    QCOMPARE(Control::tr("text"), QStringLiteral("TEXT"));
    QCOMPARE(Control::tr("text", "-c"), QStringLiteral("TEXT-c"));
    QCOMPARE(Control::tr("text", "-c", 5), QStringLiteral("TEXT-c5"));
    QCOMPARE(Control::trUtf8("text"), QStringLiteral("TEXT"));
    QCOMPARE(Control::trUtf8("text", "-c"), QStringLiteral("TEXT-c"));
    QCOMPARE(Control::trUtf8("text", "-c", 5), QStringLiteral("TEXT-c5"));
    Pane pane;
    Control control(&pane, "name");
    control.CreateContextProperty(&pane, "menu");
    QCOMPARE(control.GetContextMenu()->actions().first()->text(), QStringLiteral("PROPERTIES..."));
    QCoreApplication::removeTranslator(&translator);
}

void tst_control::aCopyShares()
{
    Pane pane;
    Control control(&pane, "name");
    control.CreateContextProperty(&pane, "menu");
    control.SetCurrentXYMenu(QPoint(1, 2));
    Control copy(control);
    QCOMPARE(copy.GetWidget(), control.GetWidget());
    QCOMPARE(copy.GetControlEventFilter(), control.GetControlEventFilter());
    QCOMPARE(copy.GetContextMenu(), control.GetContextMenu());
    QCOMPARE(copy.GetCurrentXYMenu(), QPoint(1, 2));
    QVERIFY(copy.GetContextMenuEnabled());
    QCOMPARE(pane.findChildren<ControlEventFilter *>().size(), 1); // the copy made none
    copy.EnableContextMenu(false);
    RightClick(pane); // the filter serves the source
    QVERIFY(control.GetContextMenu()->isVisible());
    control.GetContextMenu()->close();
}

void tst_control::aCopyTakesThePage()
{
    QWidget page;
    PageControl control;
    control.SetPage(&page);
    PageControl copy(control);
    QCOMPARE(copy.GetPropertyPage(nullptr, nullptr), &page);
}

void tst_control::anAssignmentTakesPositionAndPage()
{
    QWidget page;
    PageControl control;
    control.SetPage(&page);
    control.SetCurrentXYMenu(QPoint(5, 6));
    PageControl target;
    target = control;
    QCOMPARE(target.GetPropertyPage(nullptr, nullptr), &page);
    QCOMPARE(target.GetCurrentXYMenu(), QPoint(5, 6));
}

void tst_control::aCopyDeletesNothing()
{
    QWidget widget;
    Control control(&widget, "name");
    QPointer<ResortPopupMenu> const shared(new ResortPopupMenu(&widget, "shared"));
    control.SetContextMenu(shared, false);
    {
        Control copy(control);
        copy.SetContextMenu(new ResortPopupMenu(&widget, "own"), true);
        QVERIFY(shared);
        QPointer<ResortPopupMenu> const own(copy.GetContextMenu());
        copy.SetContextMenu(nullptr, true);
        QVERIFY(!own); // it came by no copying
    }
    QVERIFY(shared);
    QVERIFY(control.GetControlEventFilter() != nullptr);
    control.SetContextMenu(nullptr, true);
    QVERIFY(!shared);
}

void tst_control::anAssignedControlSharesToo()
{
    QWidget widget;
    QWidget other;
    Control control(&widget, "name");
    QPointer<ResortPopupMenu> const menu(new ResortPopupMenu(&widget, "menu"));
    control.SetContextMenu(menu, false);
    control.EnableContextMenu(true);
    Control target(&other, "other");
    target = control;
    QCOMPARE(target.GetWidget(), &widget);
    QCOMPARE(target.GetControlEventFilter(), control.GetControlEventFilter());
    QCOMPARE(target.GetContextMenu(), menu.data());
    QVERIFY(target.GetContextMenuEnabled());
    target.SetContextMenu(nullptr, true);
    QVERIFY(menu);
    Control const & same = control;
    control = same;
    control.SetContextMenu(nullptr, true);
    QVERIFY(!menu); // still its own
}

void tst_control::theSourceOfACopyEndsFirst()
{
    QWidget widget;
    ResortPopupMenu menu;
    auto source = std::make_unique<Control>(&widget, "name");
    source->EnableContextMenu(true);
    source->SetContextMenu(&menu, false);
    Control copy(*source);
    source.reset();
    RightClick(widget);
    QVERIFY(!menu.isVisible());
    QVERIFY(copy.GetControlEventFilter() != nullptr);
}

void tst_control::anAssignedControlLeavesNoFilterBehind()
{
    QWidget widget;
    QWidget other;
    Control source(&widget, "name");
    auto target = std::make_unique<Control>(&other, "other");
    *target = source;
    target.reset();
    RightClick(other); // its first filter is still on that widget
}

void tst_control::deletionOrders_data()
{
    QTest::addColumn<QString>("order");
    for (char const * const order : { "wcm", "wmc", "cwm", "cmw", "mwc", "mcw" })
        QTest::newRow(order) << QString::fromLatin1(order);
}

void tst_control::deletionOrders()
{
    QFETCH(QString, order);
    auto widget = std::make_unique<QWidget>();
    auto control = std::make_unique<Control>(widget.get(), "name");
    auto menu = std::make_unique<ResortPopupMenu>();
    control->EnableContextMenu(true);
    control->SetContextMenu(menu.get(), false);
    for (QChar const next : order) {
        if (widget)
            RightClick(*widget);
        if (next == QLatin1Char('w'))
            widget.reset();
        else if (next == QLatin1Char('c'))
            control.reset();
        else
            menu.reset();
        if (control)
            QCOMPARE(control->GetWidget(), widget.get());
        if (widget)
            RightClick(*widget);
    }
}

void tst_control::controlEndsBeforeItsWidget()
{
    // the control is the second base, so the widget and the filter outlive it and hear events of the destruction
    auto * const parent = new QWidget;
    auto * const widget = new WidgetFirst(parent);
    widget->EnableContextMenu(true);
    parent->show();
    QVERIFY(widget->isVisible());
    delete widget;
    QVERIFY(parent->children().isEmpty());
    new WidgetFirst(parent);
    delete parent;
}

void tst_control::aFilterWithoutParentStaysParked()
{
    QWidget widget;
    QPointer<ControlEventFilter> filter;
    {
        Control control;
        control.SetWidget(&widget);
        filter = control.GetControlEventFilter();
        Control const copy(control);
    }
    QVERIFY(filter);
    RightClick(widget);
}

ORIM_TEST_MAIN(tst_control)
#include "tst_control.moc"
