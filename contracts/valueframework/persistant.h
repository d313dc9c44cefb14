// SPDX-License-Identifier: MIT
#ifndef ORIM_PERSISTANT_H
#define ORIM_PERSISTANT_H

#include "icfg.h"
#include "orimcontracts_export.h"
#include "valuenumeric.h"

#include <QString>

#include <memory>
#include <vector>

class Persistant;
class ValueSelection;

//! One persisted item of a Persistant.
class ORIMCONTRACTS_EXPORT PersistantObject
{
public:
    virtual ~PersistantObject();

    //! Takes its content from the store, or its default when the store does not have its key.
    //! \param store  never null; it puts the group in front of the item's own key.
    virtual void Read(ICfg * store) = 0;
    //! Puts its content into the store.
    virtual void Write(ICfg * store) = 0;
    //! Goes back to its default.
    virtual void RestoreDefault() = 0;
};

//! Something that is loaded and stored as a whole.
class ORIMCONTRACTS_EXPORT SaveComponentIf
{
public:
    virtual ~SaveComponentIf();

    virtual void Read(QString const & section, ICfg::View view) = 0;
    virtual bool Write(QString const & section, ICfg::View view) = 0;
    virtual void RestoreDefault() = 0;
};

//! Base of an object that owns a Persistant and hears when it is read and written.
class ORIMCONTRACTS_EXPORT PersistantOwner
{
public:
    virtual ~PersistantOwner();

    //! Called before the first item is written. The base does nothing.
    virtual void ApplyPersistantBeforeWrite();
    //! Called when the last item was read. The base does nothing.
    virtual void ApplyPersistantAfterRead();

protected:
    //! The group; null until the derived class makes it. The derived class deletes it: a copy of an owner shares the
    //! pointer, so that this base cannot know which of them is the last.
    Persistant * m_persistant = nullptr;
};

//! A group of persisted items, kept in the store under "[section/]name/[group/]key".
//!
//! Texts in the store read in any locale. What the store does not have, or has as a text that is no such value, reads
//! as the default, and the latter is told in one log line. Of two items with one key both read it, and the one added
//! last is what stays written.
class ORIMCONTRACTS_EXPORT Persistant : public SaveComponentIf
{
public:
    //! \param owner  hears of reading and writing; may be null; must outlive this.
    explicit Persistant(QString const & name, PersistantOwner * owner = nullptr);
    Persistant(Persistant const &) = delete;
    Persistant & operator=(Persistant const &) = delete;
    ~Persistant() override; //!< deletes the items and writes nothing

    // Add: a null item is ignored. A value may go away before this: its last value is then kept and written. The
    // variable behind an int * or long * must live as long as this.
    void Add(Value<bool> * value, QString const & key, bool fallback, QString const & group = QString());
    void Add(ValueNumeric<int> * value, QString const & key, int fallback, QString const & group = QString());
    void Add(ValueNumeric<double> * value, QString const & key, double fallback, QString const & group = QString());
    //! \param fallback  key of the default item; the choice stays as it is where the selection has no such item.
    void Add(ValueSelection * value, QString const & key, long fallback, QString const & group = QString());
    void Add(int * variable, QString const & key, int fallback, QString const & group = QString());
    void Add(long * variable, QString const & key, long fallback, QString const & group = QString());
    //! Takes the item over.
    void Add(PersistantObject * item, QString const & group = QString());

    //! Loads every item, in the order of adding, then tells the owner.
    //! \param section  put in front of the name; may be empty.
    //! \param view     0; other views of the store are treated alike.
    void Read(QString const & section, ICfg::View view) override;
    //! Tells the owner, then stores every item and makes the store last.
    //! \return false when the store could not be made to last; it keeps what was written for the next time. False as
    //!         well when this was deleted on the way.
    bool Write(QString const & section, ICfg::View view) override;
    //! Puts every item back to its default; the store stays as it is.
    void RestoreDefault() override;

    //! The store of all groups. It is not owned; null restores the built-in one. One that dies is forgotten.
    static void SetStore(ICfg * store);
    //! Never null. The built-in store is an IniCfg in the user's configuration folder, made on first use. It is never
    //! destroyed, so that a static object may still write at process exit.
    static ICfg * Store();

private:
    friend class ICfg;
    struct Item;
    using Items = std::vector<Item>;

    static void Forget(ICfg const * store);
    QString Prefix(QString const & section, Item const & item) const;

    QString m_name;
    PersistantOwner * m_pOwner;
    std::shared_ptr<Items> m_pItems; // a running Read, Write or RestoreDefault holds it too, as it may delete this
    Lifetime m_lifetime;
};

#endif
