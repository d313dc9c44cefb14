// SPDX-License-Identifier: MIT
#ifndef ORIM_AZIMUTHDISPLAYSELECT_H
#define ORIM_AZIMUTHDISPLAYSELECT_H

#include "iabstractterminationtarget.h"
#include "iupdatemenu.h"
#include "observable.h"
#include "orimwidgets_export.h"
#include "persistant.h"
#include "qtcompat.h"
#include "valueselection.h"

#include <QObject>
#include <QString>

class ResortPopupMenu;

//! The one object that knows how bearings are shown: absolute or relative to the axis of the vehicle, from 0 to 360 or
//! from -180 to 180 degrees. The mode is a key made of the bits of EAzimuthDisplay; there are four: 5, 9, 6 and 10.
//!
//! The default mode is stored as "AzimuthDisplaySelect/Default". It is the mode at the start, and that of every new
//! selection of modes. Built on first use; writes the default at aboutToTerminate(), and at the latest when the process
//! ends. It goes on answering after that. For the GUI thread.
class ORIMWIDGETS_EXPORT AzimuthDisplaySelect : public QObject,
                                                public IAbstractTerminationTarget,
                                                public IObserver,
                                                public IUpdateMenu,
                                                public PersistantOwner
{
    Q_OBJECT
public:
    ORIM_TR_UTF8

    static AzimuthDisplaySelect & Instance();
    ~AzimuthDisplaySelect() override;

    //! Shows bearings in another mode from now on; the default stays. \param key  5, 9, 6 or 10; others are ignored.
    void Select(long key);

    //! Key of the mode.
    long GetCurrentSelected() const { return m_current; }

    // Selections of the tree, by path. Their items are the four modes, keys as above, in the order of the menu.

    //! A new selection of modes with the default chosen, for a widget to bind to. It chooses for whoever made it and
    //! changes no mode here. It stays in the tree until its maker removes it, at most until the central object ends.
    QString CreateValueSelection();

    //! The selection that holds the default. What is chosen in it is stored, and changes the mode at the next start.
    QString const & DefaultValueSelection() const { return m_defaultPath; }

    //! The selection that follows the mode; choosing in it is Select(). An axis may show its bearings by it.
    QString const & CurrentValueSelection() const { return m_currentPath; }

    //! A new menu "Azimuth selector" of the four modes, the present one checked, whose items have their keys as numbers
    //! and call Select(). \param parent  owns the menu; with null the caller does.
    ResortPopupMenu * CreateMenu(QWidget * parent);
    //! The same of the default, which is checked: a choice changes default and mode.
    ResortPopupMenu * CreateMenuForDefaultSelection(QWidget * parent);
    //! Checks the present mode, or the default, in a menu that was made here; in any other the present mode. Null is
    //! ignored.
    void UpdateMenu(ResortPopupMenu * menu) override;

    //! The vehicle points elsewhere: raises signalAzimuthModeChanged() in a relative mode, does nothing in any other.
    void NorthOffsetChanged();

    //! The default becomes the mode. Where the store chose none the default stays, and is chosen again.
    void ApplyPersistantAfterRead() override;
    //! Does nothing.
    void ApplyPersistantBeforeWrite() override;
    //! Lets go of its selections and writes the default; the second time there is nothing left to do.
    void aboutToTerminate() override;
    void Update(Observable * subject, TChangeCode code) override;

public Q_SLOTS:
    //! Changes default and mode. \param key  5, 9, 6 or 10; others are ignored.
    void slotDefaultSelectionMenuActivated(int key);
    //! Changes default and mode to 5.
    void slotRestoreDefaultPersistant();

Q_SIGNALS:
    //! Bearings are to be written anew.
    void signalAzimuthModeChanged();

private:
    friend class AzimuthDisplaySelectAccess; // tests build objects of their own with it
    AzimuthDisplaySelect();

    QString PlantSelection(long key);
    ResortPopupMenu * BuildMenu(QWidget * parent, char const * name);
    void SetDefault(long key);
    void TakeMode(long key);
    void TakeDefault(long key);
    void LetGo(ValueSelection *& selection);

    long m_current;
    long m_default;
    QString m_currentPath;
    QString m_defaultPath;
    ValueSelection * m_pCurrent = nullptr; // borrowed from the tree; null once it went away
    ValueSelection * m_pDefault = nullptr; // likewise
};

#endif
