// SPDX-License-Identifier: MIT
#ifndef ORIM_CONTROLEVENTFILTER_H
#define ORIM_CONTROLEVENTFILTER_H

#include "orimwidgets_export.h"

#include <QObject>

#include <memory>

class Control;
class QContextMenuEvent;

//! Hears the events of a widget for its Control: opens the context menu and tells of double clicks on a pane. The
//! Control may end before it; it then opens no menu, and goes on telling of double clicks.
class ORIMWIDGETS_EXPORT ControlEventFilter : public QObject
{
    Q_OBJECT
public:
    //! Serves no control yet. \param parent  the widget that owns it; null for none.
    explicit ControlEventFilter(QObject * parent = nullptr);

    //! The control to serve, borrowed; a copy of it is not served.
    void SetControl(Control const & control);

    //! \return whether the event ended here: the context menu was opened, or who heard of a double click or was asked
    //!         for the menu deleted the widget or this filter.
    bool eventFilter(QObject * object, QEvent * event) override;

Q_SIGNALS:
    //! A double click on an object whose class is or derives from DrawPane; the event goes its way afterwards.
    void signalDblClick(QEvent * event);

private:
    Control * GetControl() const;
    bool OpenMenu(QContextMenuEvent const & event);

    std::weak_ptr<Control *> m_pControl; // borrowed, may die first
};

#endif
