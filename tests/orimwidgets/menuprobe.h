// SPDX-License-Identifier: MIT
#ifndef ORIM_MENUPROBE_H
#define ORIM_MENUPROBE_H

#include "axisprobe.h"
#include "testmarkerlist.h"

#include "marker.h"

#include <QAction>
#include <QApplication>
#include <QStringList>

#include <functional>
#include <initializer_list>

constexpr unsigned int InMenu = eSpecialInMenu;

//! An axis whose menu a test may choose from: it notes what the items call.
class MenuAxis : public AxisProbe
{
public:
    explicit MenuAxis(unsigned int type = AxisHorizontal) : AxisProbe(type) { m_menus = 0; }

    QStringList m_called;

    bool ZoomToDefault() override { return Note("ZoomToDefault"); }

    bool ZoomToBest() override { return Note("ZoomToBest"); }

    void ZoomToDevice() override { Note("ZoomToDevice"); }

    void UnZoom() override { Note("UnZoom"); }

    void slotShowProperties() override { Note("slotShowProperties"); }

    void slotShowRuler(int id) override { m_called << QStringLiteral("slotShowRuler %1").arg(id); }

    void slotShowRulerPanel(int id) override { m_called << QStringLiteral("slotShowRulerPanel %1").arg(id); }

    void slotHideAllRuler() override { Note("slotHideAllRuler"); }

private:
    bool Note(char const * name)
    {
        m_called << QLatin1String(name);
        return true;
    }
};

inline Marker * AddRuler(MarkerList & list, int index, char const * name, bool show = true,
                         unsigned int special = InMenu)
{
    return list.AddMarker(index, show, IColorBase::eColorMarker, true, special, QLatin1String(name));
}

//! Numbers and texts of the items, "--" for a separator.
inline QStringList ItemsOf(ResortPopupMenu const * menu)
{
    QStringList items;
    for (QAction * const action : menu->actions()) {
        bool const isSeparator = action->isSeparator();
        items << (isSeparator ? QStringLiteral("--")
                              : QStringLiteral("%1 %2").arg(menu->GetItemId(action)).arg(action->text()));
    }
    return items;
}

inline QStringList ItemsOf(AxisBase & axis) { return ItemsOf(axis.GetContextMenu()); }

//! How an item looks: "-" disabled, "+" enabled; then "x" checked, "o" not checked, nothing when it is not checkable.
inline QString LookOf(ResortPopupMenu const * menu, int id)
{
    QAction const * const item = menu->FindItem(id);
    if (!item)
        return QStringLiteral("none");
    QString const check = item->isCheckable() ? QLatin1String(item->isChecked() ? "x" : "o") : QLatin1String();
    return QLatin1String(item->isEnabled() ? "+" : "-") + check;
}

inline QStringList List(std::initializer_list<char const *> texts)
{
    QStringList list;
    for (char const * const text : texts)
        list << QLatin1String(text);
    return list;
}

//! Notes what a list tells the others.
class Told
{
public:
    explicit Told(MarkerList & list)
    {
        QObject::connect(&list, &MarkerList::signalSetState, &m_context,
                         [this](QString const & path, EMarkerState state, bool value) {
                             m_told << QStringLiteral("%1 %2 %3").arg(path).arg(int(state)).arg(value);
                             if (m_then)
                                 m_then();
                         });
    }

    QStringList m_told;
    std::function<void()> m_then;

private:
    QObject m_context;
};

inline void DrainDeferredDeletes() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

#endif
