// SPDX-License-Identifier: MIT
#ifndef ORIM_CONTROL_H
#define ORIM_CONTROL_H

#include "orimwidgets_export.h"

#include <QPointer>
#include <QString>
#include <QWidget>

#include <memory>

class ControlEventFilter;
class ResortPopupMenu;

//! Gives a widget a context menu and a property page. A widget class derives from it beside QWidget.
//!
//! A copy shares the widget, the menu and the filter with its source and owns none of them; the filter goes on serving
//! the source. Either may end first, the widget before both.
class ORIMWIDGETS_EXPORT Control
{
public:
    //! \param widget  the widget to serve, set up as SetWidget() does; null for none yet.
    //! \param name    not used.
    Control(QWidget * widget, char const * name);
    //! Without a widget. The filter then has no parent and is kept until the process ends.
    Control();
    Control(Control const & other);
    Control & operator=(Control const & other);

    //! Makes the menu with the one item "Properties...", which calls the slot slotShowProperties() of the widget, and
    //! enables the menu and the page. The menu before it is left as it is.
    //! \param parent, name  of the new menu.
    virtual void CreateContextProperty(QWidget * parent, char const * name);
    //! The page, null in this class; the arguments are for classes that build one.
    virtual QWidget * GetPropertyPage(QWidget * parent, char const * name);
    virtual void EnablePropertyPage(bool on);
    //! Whether there is a page; a flag of its own that EnablePropertyPage() does not write: false.
    virtual bool hasPropertyPage();
    virtual ~Control();
    //! The menu to show; null when there is none or it has ended. Called twice for one opening, and the second answer
    //! is shown.
    virtual ResortPopupMenu * GetContextMenu();
    //! \param menu       the menu to show from now on, borrowed; null for none.
    //! \param deleteOld  delete the menu before it; one that came by copying is not deleted.
    virtual void SetContextMenu(ResortPopupMenu * menu, bool deleteOld);
    //! Whether there is a menu; a flag of its own that EnableContextMenu() does not write: false.
    virtual bool hasContextMenu();
    //! Whether a right click opens the menu; false at the start.
    virtual void EnableContextMenu(bool on);
    virtual bool GetContextMenuEnabled();

    //! Takes a widget: mouse tracking, background role Window, background filled, filter installed. The filter keeps
    //! its parent, and stays on the widget before. Null only lets go.
    void SetWidget(QWidget * widget);

    //! The widget; null when there is none or it has ended.
    QWidget * GetWidget() const { return m_pWidget; }

    //! The filter; null when it ended with its widget.
    ControlEventFilter * GetControlEventFilter() const;

    //! Where the menu was last asked for, px in the widget; 0, 0 at the start.
    void SetCurrentXYMenu(QPoint const & position);

    QPoint GetCurrentXYMenu() const { return { m_currentXMenu, m_currentYMenu }; }

    //! Does nothing: for classes with a page.
    void acceptPropertyChanges() {}

    //! Hands the event to the filter. \return its answer; false when it has ended.
    bool eventFilter(QObject * object, QEvent * event);

    //! Translate in the context "Control".
    static QString tr(char const * text, char const * comment = nullptr);
    static QString tr(char const * text, char const * comment, int count);
    static QString trUtf8(char const * text, char const * comment = nullptr);
    static QString trUtf8(char const * text, char const * comment, int count);

protected:
    //! What EnablePropertyPage() was last given; true at the start.
    bool IsPropertyPageEnabled() const { return m_propertyPageEnabled; }

    QPointer<QWidget> m_pPropertyPage; // borrowed; null at the start

private:
    friend class ControlEventFilter;
    bool m_propertyPageEnabled = true;
    bool m_hasPropertyPage = false;
    QPointer<ResortPopupMenu> m_pContextMenu; // borrowed
    bool m_contextMenuEnabled = false;
    bool m_hasContextMenu = false;
    int m_currentXMenu = 0; // px
    int m_currentYMenu = 0;
    QPointer<QWidget> m_pWidget;            // borrowed
    QPointer<ControlEventFilter> m_pFilter; // owned by the widget of the constructor, else parked
    bool m_menuIsShared = false;            // it came by copying
    std::shared_ptr<Control *> m_pLife;     // watched by the filter; never copied
};

#endif
