// SPDX-License-Identifier: MIT
#ifndef ORIM_VALUEBASE_H
#define ORIM_VALUEBASE_H

#include "observable.h"
#include "orimcontracts_export.h"

#include <QString>

#include <initializer_list>

class IDeleteSubject;
class IValueRecorder;
class ValueBase;

enum TValueState : int
{
    eStateValid = 0,
    eStateGoingAway = 1, //!< observers let go
    eStateDisabled = 2
};

//! Kind of a value, for messages and lists; a checked cast decides what may be called.
enum TValueType : int
{
    eTypeOther = 0,
    eTypeBool,
    eTypeChar,
    eTypeInt,
    eTypeInt64,
    eTypeFloat,
    eTypeString,
    eTypeCString,
    eTypeNumericInt,
    eTypeNumericInt64,
    eTypeNumericFloat,
    eTypeSelection,
    eTypeList,
    eTypeAgedImage
};

//! The type-independent face of a value.
class ORIMCONTRACTS_EXPORT IValue
{
public:
    virtual ~IValue();

    //! Takes the value from a text for people, in the C locale.
    //! \return false, and nothing changes, when the text is no such value.
    virtual bool SetStringValue(QString const & text, IObserver * except) = 0;
    //! The value as text for people, in the C locale.
    virtual QString GetStringValue() const = 0;
    virtual TValueState GetState() const = 0;
    //! Notifies code 2 when the state differs.
    virtual void SetState(TValueState state, IObserver * except) = 0;
    //! Tells all observers but \a except; inside a transaction they hear at its end, of code 2 at once.
    virtual void HasChanged(TChangeCode code, IObserver * except) = 0;
};

//! Who keeps a value and must know of its end and its renaming: the tree.
class ORIMCONTRACTS_EXPORT ITreeItem
{
public:
    virtual ~ITreeItem();

    //! The value is being destroyed; called before its observers are told.
    virtual void SubjectGoesAway(ValueBase * value) = 0;
    //! \return the new path of the value under the new name; empty when that is taken.
    virtual QString RenameSubject(ValueBase * value, QString const & name) = 0;
};

class ORIMCONTRACTS_EXPORT IDeleteSubject
{
public:
    virtual ~IDeleteSubject();

    //! Who hears of the end of this object before its observers do; null for nobody. The tree hears of it anyway.
    virtual void SetDeleteObserver(ITreeItem * item) = 0;
    virtual ITreeItem * GetDeleteObserver() const = 0;
};

//! Brackets several changes so that observers hear of them once.
class ORIMCONTRACTS_EXPORT ISupportTransaction
{
public:
    virtual ~ISupportTransaction();

    //! Opens a bracket; brackets nest. \a starter is who opens it, and may be null.
    virtual void StartTransaction(IObserver * starter) = 0;
    //! Closes a bracket. The outermost notifies \a code once to all but \a except, if anything changed inside. Ignored
    //! without an open bracket.
    virtual void EndTransaction(TChangeCode code, IObserver * except) = 0;
    virtual bool IsTransactionActive() const = 0;
};

class ORIMCONTRACTS_EXPORT IHasTimerCallback
{
public:
    virtual ~IHasTimerCallback();

    //! For derived values that own a timer. The base does nothing.
    virtual void TimerCallback(int id);
};

class ORIMCONTRACTS_EXPORT IOptimizeTrigger
{
public:
    virtual ~IOptimizeTrigger();

    //! For derived values that can shrink what they keep. The base does nothing.
    virtual void OptimizeTrigger();
};

//! A named value that tells its observers of every change. Values in the tree belong to it.
//!
//! Notification means change: a write of what is held already notifies nobody. A value that is destroyed tells its
//! observers with code 2 and state 1 first.
class ORIMCONTRACTS_EXPORT ValueBase : public virtual Observable,
                                       public IValue,
                                       public IDeleteSubject,
                                       public IHasTimerCallback,
                                       public IOptimizeTrigger,
                                       public ISupportTransaction
{
public:
    explicit ValueBase(QString const & name = QString(), TValueState state = eStateValid);
    ~ValueBase() override;

    QString GetName() const { return m_name; }

    //! Path in the tree, also while the value goes away; empty for a value that was never in it.
    QString GetPathName() const { return m_path; }

    //! Renames the value, in the tree too, and notifies code 2 with the state as it stands. Keeps its name when the new
    //! path is taken.
    void SetName(QString const & name, IObserver * except);

    virtual TValueType GetType() const = 0;
    //! A short English word for GetType(), such as "Float".
    virtual char const * GetTypeName() const;
    //! Takes over the content of a value of the same type: limits win, items and choice for a selection; never name,
    //! path or observers. \return false, and nothing changes, for another type.
    virtual bool Assign(ValueBase const & other) = 0;
    //! Whether \a other is a value of the same type and content; false for null.
    virtual bool Compare(ValueBase const * other) const = 0;

    //! The content as text that reads in any locale: doubles with 17 digits, a selection as its key.
    virtual QString ToStoredText() const = 0;
    //! Takes the content from such a text. Limits win.
    //! \return false, and nothing changes, when the text is no such value; "nan" and "inf" are none.
    virtual bool FromStoredText(QString const & text, IObserver * except) = 0;

    //! Who hears of every change before it happens; null for nobody. Not owned.
    static void SetRecorder(IValueRecorder * recorder);
    static IValueRecorder * Recorder();

    TValueState GetState() const override { return m_state; }

    void SetState(TValueState state, IObserver * except) override;
    void HasChanged(TChangeCode code, IObserver * except) override;

    void SetDeleteObserver(ITreeItem * item) override { m_pDeleteObserver = item; }

    ITreeItem * GetDeleteObserver() const override { return m_pDeleteObserver; }

    void StartTransaction(IObserver * starter) override;
    void EndTransaction(TChangeCode code, IObserver * except) override;

    bool IsTransactionActive() const override { return m_transactions > 0; }

    //! As EndTransaction with one code; the outermost notifies each code in turn.
    void EndTransactionWith(std::initializer_list<TChangeCode> codes, IObserver * except);

protected:
    //! To be called right before the content changes.
    void BeforeChange();
    //! Says farewell: leaves the tree, notifies code 2 with state 1, lets all observers go. Does so once. To be called
    //! first in the destructor of a class whose operations observers may call from Update.
    void GoAway();

private:
    friend class Tree;
    friend class ValueTransaction;

    void EndTransactionWith(TChangeCode const * first, TChangeCode const * last, IObserver * except);

    QString m_name;
    QString m_path;
    TValueState m_state;
    ITreeItem * m_pTree = nullptr;           // who keeps the value, hears of its end first and names its path
    ITreeItem * m_pDeleteObserver = nullptr; // borrowed; names the path of a value that is in no tree
    int m_transactions = 0;                  // open brackets
    bool m_changedInside = false;            // something changed since the outermost bracket was opened
    bool m_gone = false;                     // GoAway() was called
};

#endif
