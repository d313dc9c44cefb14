// SPDX-License-Identifier: MIT
#ifndef ORIM_GUICENTRAL_H
#define ORIM_GUICENTRAL_H

#include "iabstractterminationtarget.h"
#include "observable.h"
#include "orimwidgets_export.h"
#include "persistant.h"
#include "qtcompat.h"
#include "shadingcolorset.h"
#include "suffixeddouble.h"
#include "valuenumeric.h"
#include "vc.h"

#include <QList>
#include <QObject>
#include <QPointer>
#include <QRgb>
#include <QString>
#include <QWidget>

#include <list>
#include <map>
#include <memory>
#include <string>
#include <vector>

class BoolOperation;
class BoolSelectionCoupler;
class OperationBase;
class QAction;
class QApplication;
class QPen;
class Tree;
class ValueBase;
class ValueSelection;

//! The one object that every pane can reach. It keeps the colour sets and the roles they serve, the paths of well-known
//! values, and which widget alone may be closed; it makes values of the tree for whoever needs one of its own; it hands
//! everything about hot keys, fonts and units on to GuiBase.
//!
//! It is built on first use, before or after the application object, and ends when the process does. At
//! aboutToTerminate(), and at the latest then, it writes its colours to Persistant::Store(): a store that the
//! application sets must outlive that. It answers questions about colours until its end. For the GUI thread.
class ORIMWIDGETS_EXPORT GuiCentral : public QObject,
                                      public IObserver,
                                      public PersistantOwner,
                                      public IAbstractTerminationTarget
{
    Q_OBJECT
public:
    ORIM_TR_UTF8

    //! While it is built, those who hear of it get the object that is being built; its colours answer already. Its
    //! colours then are the factory's with the stored ones over them. The common colours stay as ColorSet has them:
    //! they have a store of their own, and what the operator edited there outlives every start.
    static GuiCentral & Instance();
    ~GuiCentral() override;

    // Colours. A role counts from 0. An id is a VC::EShadingColor: it counts from 1, and 0 means none. So does any
    // other id without a role.

    //! The 20 colour sets; a caller that makes them more or fewer has them so until slotRestoreFactoryColors(), and
    //! those of the operator that are missing are not written. Whoever changes one raises
    //! GuiBase::signalColorsChanged().
    std::vector<ShadingColorSet> & GetWaterfallColorSets() { return m_waterfallColorSets; }

    //! Index of the set that serves a role, as it was stored: any int. 0 for a role of 10 or more.
    int GetColorSetIdForRoleId(unsigned int role) const;
    //! The colour of a value in the set that serves an id, as ShadingColorSet::GetColor() gives it. A set index outside
    //! 0 to 19 counts as 0.
    //! \param inverse  turn the set round.
    //! \return 0, a transparent black, without a role.
    QRgb GetShadingRGB(double value, int id, double min, double max, bool inverse);
    QPen GetShadingPen(double value, int id, double min, double max, bool inverse);
    //! The background that goes with an id: the common one, or the last colour of a set that asks for that. Such a set
    //! takes it as its stored background, too.
    QRgb GetBackgroundRGB(int id);
    QPen GetBackgroundPen(int id);
    //! Whether the set that serves an id has a range of its own; false without a role.
    bool isColorSetFixed(int id);

    //! Which selectors a colour page offers, a bit each; 0xFFFF at start. 0x01 to 0x40: roles 0, 1, 2, 4, 5, 6, 7;
    //! 0x80: the button that defines colours.
    unsigned int GetChangeableWaterfallColorSets() const { return m_changeableWaterfallColorSets; }

    void SetChangeableWaterfallColorSets(unsigned int mask) { m_changeableWaterfallColorSets = mask; }

    void AddChangeableWaterfallColorSet(unsigned int mask) { m_changeableWaterfallColorSets |= mask; }

    // Well-known values

    //! The value at the path that was set; null without one, and when the tree does not know it or has gone. Asking for
    //! an id leaves an empty path for it.
    ValueBase * GetValuePath4ID(VC::ID id);
    void SetValuePath4ID(VC::ID id, QString const & path);

    // Unique values: values of the tree for the use of one caller, with a path of their own, and operations that keep
    // such values computed from others. The caller keeps the path alone: each operation returns it, and the tree owns
    // the value. Who made a value may remove it from the tree; those that are left go at aboutToTerminate(). Numbers
    // count from 0 in each kind, and are not used twice until then. Without a tree there is a path, but no value. A
    // path that somebody else took before stays theirs, and an operation made then works on their value.

    //! A name that no other call gives, such as "UNIQUE_NAME_0"; it stands for nothing in the tree, and goes on
    //! counting after aboutToTerminate().
    QString CreateUniqueName();

    QString CreateUniqueValueBoolean(bool value);
    QString CreateUniqueValueChar(char value);
    QString CreateUniqueValueString(QString const & value);
    //! Counts together with CreateUniqueValueString().
    QString CreateUniqueValueCString(std::string const & value);
    //! \param value  the limits win. \param step  0: no grid. Limits that ValueNumeric::SetMinMax() refuses are those
    //! of the type.
    QString CreateUniqueValueInt(int value, int min, int max, int step);
    QString CreateUniqueValueInt64(long long value, long long min, long long max, long long step);
    //! NaN gives 0 or the limit nearest to it.
    QString CreateUniqueValueFloat(double value, double min, double max, double step);
    //! \param source  its items and its choice are taken over; null for none.
    QString CreateUniqueValueSelection(ValueSelection * source);
    //! A value with the value, limits and step of another one. Null: 0, the limits of the type, no grid.
    QString CloneUniqueValueInt(ValueNumeric<int> * source);
    QString CloneUniqueValueFloat(ValueNumeric<double> * source);
    //! Numbers are seconds, and so are the keys: 0 is "Off", -1 "Infinite"; "4 s" is chosen.
    QString CreateUniqueAgeingStepsSelection();
    //! Numbers are degrees, 0 for "Screen / none"; "1.0 degree" is chosen.
    QString CreateUniqueHistogramTilesSelection();

    //! A bool that tells how a value stands to an operand: the value at a path, a number, or one of several. The
    //! operation ends with it, or at aboutToTerminate().
    //! \param type  a BoolOperation::Type; any other leaves the result false.
    QString CreateBoolOperation(QString const & source, QString const & operand, unsigned int type);
    QString CreateBoolOperation(QString const & source, double operand, unsigned int type);
    QString CreateBoolOperation(QString const & source, int operand, unsigned int type);
    QString CreateBoolOperation(QString const & source, QList<int> const & operand, unsigned int type);
    QString CreateBoolOperation(QString const & source, QList<double> const & operand, unsigned int type);
    //! A double without limits, computed from a value and an operand: the value at a path, or a number. The operation
    //! ends at aboutToTerminate().
    //! \param type  a NumericOperation::Type; any other leaves the result 0.
    QString CreateNumericOperation(QString const & source, QString const & operand, unsigned int type);
    QString CreateNumericOperation(QString const & source, double operand, unsigned int type);
    //! The same with a NumericCoupler, which writes back. \param type  a NumericCoupler::Type.
    QString CreateNumericCoupler(QString const & source, double constant, unsigned int type);
    //! A selection of "Off", key 0, and "On", key 1, coupled to a bool both ways until aboutToTerminate().
    //! \param inverted  "Off" stands for true.
    QString CreateSelectionCoupledToBool(QString const & boolPath, bool inverted);

    // State of the application

    //! From now on only this widget can be closed; all others stay open, but for menus and other popups, and modal
    //! dialogs: these go, though their closeEvent() is not called. Null ends that, and so does the end of the widget.
    //! Works once SetApplication() was called. With Qt 6 a dialog that is not modal can be neither accepted nor
    //! rejected meanwhile: Qt closes it for that. Nor does QCoreApplication::quit() of Qt 6 end an application then: it
    //! closes all windows first, and gives up when one stays open.
    void BlockCloseApplication(QWidget * widget) { m_blockCloseWidget = widget; }

    void SetGuiName(QString const & name) { m_guiName = name; }

    //! Empty until set.
    QString GetGuiName() { return m_guiName; }

    //! For the application: nothing in this library asks.
    void EnableAzimuthElevationColors(bool on) { m_azimuthElevationColorsEnabled = on; }

    //! Whether panes that cannot be seen are drawn; false at start.
    void SetDrawHiddenPanes(bool on) { m_drawHiddenPanes = on; }

    bool GetDrawHiddenPanes() const { return m_drawHiddenPanes; }

    //! Raises FrequencyToJob(). \param frequency  any double, Hz.
    void emit_toJob(double frequency);

    // Handed on to GuiBase, where each operation is described. SetApplication() also takes the events of the
    // application, for BlockCloseApplication().

    void SetApplication(QApplication * application);
    QApplication * GetApplication() const;
    void SetMainWidget(QWidget * widget);
    QWidget * GetMainWidget() const;
    bool RestoreWidgetSize();
    void StoreWidgetSize();
    bool SetDefaultDataDirectory(QString const & path);
    QString const & GetDefaultDataDirectory() const;
    QString GetSignalType(char type);

    void SetShowFrequencyInHz(bool on);
    int GetShowFrequencyInHz() const;
    ValueSelection * GetFrequencyUnit() const;
    void SetFrequencyUnit(SuffixedDouble::ESuffix unit);
    void SetFrequencyResolution(SuffixedDouble::ESuffix resolution);
    SuffixedDouble::ESuffix GetFrequencyResolution();

    QString const & GetFontFamily() const;
    QString const & GetWFontFamily() const;
    void SetFontFamily(QString const & family);
    void SetWFontFamily(QString const & family);

    void SetDisplayMode(int mode);
    int GetDisplayMode() const;
    ValueSelection * GetPositionFormat() const;

    int AddHotKey(Qt::Key key, unsigned int modifiers, QObject * receiver, QString name, QString group, bool changeable,
                  bool throughModal);
    int AddHotKey(Qt::Key key, unsigned int modifiers, QObject * receiver, wchar_t const * name, wchar_t const * group,
                  bool changeable, bool throughModal);
    void ShowHotKeyFrom(QAction * action, QString name);
    void EnableHotKey(int index, bool on);
    void RemoveHotKey(int index, bool forget);
    int RemoveHotKey(Qt::Key key, Qt::KeyboardModifier modifier);
    void RemoveHotKeyReceiver(QObject * receiver);
    int GetIndex4HotKey(Qt::Key key, Qt::KeyboardModifier modifier) const;
    void ExecHotKeysDialog(QWidget * parent);
    QWidget * GetHotkeysCtrl(QWidget * parent);

    // Told by others

    //! Swallows the close of every object but the widget of BlockCloseApplication(). It refuses the close, so that the
    //! object stays open, unless that is a popup or a modal window. All other events pass, and so does the close of a
    //! QWindow whose widget closes: the widget is asked next.
    bool eventFilter(QObject * object, QEvent * event) override;
    //! Deletes the operation whose result is a value that goes away.
    void Update(Observable * subject, TChangeCode code) override;
    //! Does nothing.
    void ApplyPersistantBeforeWrite() override;
    //! Raises GuiBase::signalColorsChanged().
    void ApplyPersistantAfterRead() override;
    //! Writes the colours, ends the operations and removes the unique values; the second time there is nothing left to
    //! do. Colours stay.
    void aboutToTerminate() override;

public Q_SLOTS:
    //! Puts the persisted colours back to their defaults, unless they were written for the last time already, and
    //! raises GuiBase::signalColorsChanged() in any case.
    virtual void slotRestoreDefaultPersistant();
    //! Builds roles and colour sets as they left the factory, drops the edits of the common colours, and raises
    //! GuiBase::signalColorsChanged(). Offset and background of "Azimuth Rainbow" stay: its line of text lacks them.
    virtual void slotRestoreFactoryColors();

Q_SIGNALS:
    // for the application to raise
    void focusLost();
    void hasFocus();
    void signalKnownFrequencyListChanged();

    //! A hot key was pressed, as GuiBase tells.
    void signalHotKey(int index);
    //! Escape was pressed, as GuiBase tells.
    void hotkey_ESC_pressed();
    //! emit_toJob() was called.
    void FrequencyToJob(double frequency);
    //! For the application to raise: calls slotRestoreDefaultPersistant().
    void signalRestoreDefaultPersistant();

private:
    friend class GuiCentralAccess; // tests build objects of their own with it
    GuiCentral();

    struct Unique; // the kinds of unique values

    void AddPersistedColors();
    void ApplyFactoryColorSetIdForRoleId();
    void BuildFactoryColorSets();
    //! Removes what is left of the unique values, kind by kind, and counts from 0 again. \param tree  may be null.
    void RemoveUniqueValues(Tree * tree);
    //! The set that serves an id; null without a role.
    ShadingColorSet * SetOfId(int id);

    std::vector<ShadingColorSet> m_waterfallColorSets; // 20 unless a caller resizes it
    std::vector<int> m_colorSetIdForRoleId;            // 10; persisted items point into it
    QString m_guiName;
    int m_uniqueBoolCount = 0; // numbers handed out; so are the next ones
    int m_uniqueCharCount = 0;
    int m_uniqueFloatCount = 0;
    int m_uniqueIntCount = 0;
    int m_uniqueInt64Count = 0;
    int m_uniqueSelectionCount = 0;
    int m_uniqueStringCount = 0;
    int m_uniqueNameCount = 0;
    std::list<std::unique_ptr<OperationBase>> m_numericOperations;
    std::list<std::unique_ptr<BoolSelectionCoupler>> m_selectionCouplers;
    std::map<QString, std::unique_ptr<BoolOperation>> m_boolOperations; // by the path of the result
    QPointer<QWidget> m_blockCloseWidget;                               // borrowed; null: no blocking
    std::map<VC::ID, QString> m_valuePaths;
    bool m_azimuthElevationColorsEnabled = false;
    bool m_drawHiddenPanes = false;
    unsigned int m_changeableWaterfallColorSets = 0xFFFF;
    unsigned int m_removals = 0; // of unique values, a kind each; tells one that others began inside it
};

#endif
