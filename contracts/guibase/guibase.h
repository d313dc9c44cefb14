// SPDX-License-Identifier: MIT
#ifndef ORIM_GUIBASE_H
#define ORIM_GUIBASE_H

#include "hotkeytable.h"
#include "orimcontracts_export.h"
#include "suffixeddouble.h"

#include <QApplication>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QWidget>

#include <memory>
#include <vector>

class HotKeyListener;
class QAction;
class QTimer;
class QUndoStack;
class ValueSelection;

//! What all panes of an application share: hot keys, fonts, the units in which values are shown, the undo stack and the
//! signal that colours have changed. It is built on first use, before or after the application object, and is never
//! destroyed, so that it answers until the process ends. For the GUI thread.
class ORIMCONTRACTS_EXPORT GuiBase : public QObject
{
    Q_OBJECT
public:
    static GuiBase & Instance();

    // The application and its main window

    //! Hears the hot keys of this application from now on. Null ends the hearing.
    void SetApplication(QApplication * application);

    //! The application set last; null once it has gone.
    QApplication * GetApplication() const { return m_pApplication; }

    void SetMainWidget(QWidget * widget) { m_pMainWidget = widget; }

    //! The main window set last; null once it has gone.
    QWidget * GetMainWidget() const { return m_pMainWidget; }

    //! Sets the directory in which file dialogs start.
    //! \param path  made when it is missing.
    //! \return false, and the directory stays, when the path is empty, names a file, or cannot be made.
    bool SetDefaultDataDirectory(QString const & path);
    //! The directory set last, absolute and clean; empty until then. A reference to it stays valid and follows.
    QString const & m_defaultDataDirectory;

    //! Gives the main window the place and size that StoreWidgetSize() stored.
    //! \return false, and the window stays as it is, without a main window, when nothing or nonsense is stored, and
    //! when the window could not be reached on any of the screens.
    bool RestoreWidgetSize();
    //! Stores place and size of the main window, and whether it is maximized. Does nothing without one.
    void StoreWidgetSize();

    // Colours

    //! Tells every pane that some colour has changed.
    void emit_signalColorsChanged();

    // Hot keys

    //! Registers a hot key and returns its index. A key that the operator gave it in an earlier run counts from the
    //! start. Registering the same key for the same receiver, name and group again gives the index it has. The first
    //! registered of two with one key is heard.
    //!
    //! The hot key ends with its receiver. A slot `slotHotKey(int)` of the receiver is called ahead of signalHotKey().
    //! The key that the operator gives it is stored under group and name. These two together identify it in the store:
    //! two hot keys of one group and name share the stored key.
    //!
    //! \param key           any key but a bare modifier.
    //! \param modifiers     Qt::KeyboardModifiers as a number; Shift, Control, Alt and Meta count.
    //! \param receiver      whom it serves; null for a hot key that stays until it is removed.
    //! \param name          what it does, as the operator reads it.
    //! \param group         heading in the list of hot keys.
    //! \param changeable    whether the operator may give it another key.
    //! \param throughModal  whether it is heard while a modal dialog or a menu is open.
    //! \return -1 for a key that is none.
    int AddHotKey(Qt::Key key, int modifiers, QObject * receiver, QString name, QString group, bool changeable,
                  bool throughModal);
    //! The same with wide texts; null counts as empty.
    int AddHotKey(Qt::Key key, int modifiers, QObject * receiver, wchar_t const * name, wchar_t const * group,
                  bool changeable, bool throughModal);
    //! Removes the first hot key that has this key at present.
    //! \return its index, -1 for none.
    int RemoveHotKey(Qt::Key key, int modifiers);
    //! Removes a hot key. The other indices stay valid, and no index is given twice. Ignores an index that is none.
    //! \param forget  also drops the stored key that the operator gave it.
    void RemoveHotKey(int index, bool forget);
    //! Removes the hot keys of a receiver.
    void RemoveHotKeyReceiver(QObject * receiver);
    //! A hot key that is switched off is silent and keeps its index. Ignores an index that is none.
    void EnableHotKey(int index, bool on);
    //! Index of the first hot key that has this key at present; -1 for none.
    int GetIndex4HotKey(Qt::Key key, int modifiers) const;

    //! The hot keys.
    HotKeyTable const & GetHotKeys() const { return m_hotKeys; }

    //! Gives a hot key another key, and stores it.
    //! \return false for an index that is none and for a hot key that may not be changed.
    bool ChangeHotKey(int index, HotKeyCombination const & combination);
    //! Gives every changeable hot key the key it was registered with.
    void RestoreHotKeys();
    //! Shows the editor of the hot keys in a modal dialog, until the operator closes it.
    //! \param parent  may be null, and may end while the dialog is open.
    void ExecHotKeysDialog(QWidget * parent);
    //! The editor of the hot keys, owned by \a parent. What is edited there acts and is stored at once.
    QWidget * GetHotkeysCtrl(QWidget * parent);
    //! Puts the key of the hot key of this name behind the action's text, where a menu shows shortcuts, and keeps it up
    //! to date. It is no shortcut of the action. An unknown name and a key that is switched off show nothing. Ignores
    //! null.
    void ShowHotKeyFrom(QAction * action, QString name);

    // Fonts

    //! Family of ordinary texts; that of the application's font until one is set.
    QString const & GetFontFamily();
    //! An empty family gives the application's font again.
    void SetFontFamily(QString const & family);
    //! Family of wide texts; the ordinary one until one is set.
    QString const & GetWFontFamily();
    //! An empty family gives the ordinary one again.
    void SetWFontFamily(QString const & family);

    // Display

    //! Number of a display mode, which the application defines; 0 at start.
    void SetDisplayMode(int mode) { m_displayMode = mode; }

    int GetDisplayMode() const { return m_displayMode; }

    //! Unit in which frequencies are shown: MHz at start. The key of an item is its SuffixedDouble::ESuffix, its number
    //! the factor from hertz. Stands in the tree as "/GuiBase/FrequencyUnit".
    //! \return null once the tree has gone, and while a value of another type stands at that path.
    ValueSelection * GetFrequencyUnit();
    //! Ignores what is not between eSuffixNone and eSuffixGiga.
    void SetFrequencyUnit(SuffixedDouble::ESuffix unit);
    //! How positions are written: degrees; degrees and minutes; degrees, minutes and seconds; UTM; MGRS, with the keys
    //! 0 to 4. Stands in the tree as "/GuiBase/PositionFormat"; null as GetFrequencyUnit().
    ValueSelection * GetPositionFormat();
    //! Time zone of what is shown: UTC at start (key 0), local time (key 1), and the whole and half hours from
    //! UTC-12:00 to UTC+14:00 (the key is the offset in seconds). The number of an item is its offset from UTC in
    //! seconds; that of local time follows summer time. Stands in the tree as "/GuiBase/TimeZone"; null as
    //! GetFrequencyUnit().
    ValueSelection * GetTimeZone();
    //! Offset of the chosen time zone from UTC, s; 0 when there is none.
    long long GetTimeZoneValue();
    //! Smallest step of a frequency that is shown: eSuffixNone (1 Hz) at start. Ignores what is not between eSuffixNone
    //! and eSuffixGiga.
    void SetFrequencyResolution(SuffixedDouble::ESuffix resolution);

    SuffixedDouble::ESuffix GetFrequencyResolution() const { return m_frequencyResolution; }

    //! Whether frequencies are shown to the hertz, which takes more room; false at start.
    void SetShowFrequencyInHz(bool on) { m_showFrequencyInHz = on; }

    //! 1 or 0.
    int GetShowFrequencyInHz() const { return m_showFrequencyInHz ? 1 : 0; }

    //! Name of a signal type, by the first letter of the designation of emissions: 'F' is frequency modulation. Lower
    //! case letters count as upper case.
    //!
    //! \return empty for any other character.
    QString GetSignalType(char type) const;

    // Undo

    //! The operator's changes. It holds the last 1000.
    QUndoStack * UndoStack();

public Q_SLOTS:
    //! Takes over the offset of local time when it has changed. Called once a minute while an application is set. A
    //! selection of time zones that the application put into the tree stays as it is.
    void slotUpdateLocalTime();

Q_SIGNALS:
    //! Some colour has changed: rebuild pens and palettes.
    void signalColorsChanged();
    //! The hot key with this index was pressed.
    void signalHotKey(int index);
    //! Escape was pressed without a modifier, while no modal dialog and no menu was open, and no editor took it.
    void hotkey_ESC_pressed();
    //! A hot key was added, removed, switched or given another key.
    void signalHotKeysChanged();

private:
    GuiBase();
    ~GuiBase() override;

    struct Values;

    struct ShownKey
    {
        QPointer<QAction> action;
        QString name;
    };

    void WatchLocalTime(QObject * owner);
    void LoadKey(int index);
    void StoreKey(int index) const;
    void FlushKeys() const;
    void ReceiverGone(QObject * receiver);
    void HotKeysChanged();
    void ShowKey(ShownKey const & shown) const;

    QPointer<QApplication> m_pApplication;
    QPointer<QWidget> m_pMainWidget;
    QString m_dataDirectory;
    HotKeyTable m_hotKeys;
    HotKeyListener * m_pListener; // this owns it
    std::vector<ShownKey> m_shownKeys;
    QString m_fontFamily;
    QString m_wideFontFamily;
    QString m_applicationFamily;
    int m_displayMode = 0;
    SuffixedDouble::ESuffix m_frequencyResolution = SuffixedDouble::eSuffixNone;
    bool m_showFrequencyInHz = false;
    QUndoStack * m_pUndoStack = nullptr; // this owns it
    std::unique_ptr<Values> m_pValues;
    QPointer<QTimer> m_pLocalTimeTimer; // the application owns it
};

#endif
