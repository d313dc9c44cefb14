// SPDX-License-Identifier: MIT
#include "persistant.h"

#include "inicfg.h"
#include "storelog.h"
#include "valueselection.h"

#include <limits>

namespace {

ICfg * s_store = nullptr;

//! What an item sees of the store: everything under the prefix of its group.
class PrefixedCfg : public ICfg
{
public:
    PrefixedCfg(ICfg * store, QString const & prefix) : m_pStore(store), m_prefix(prefix) {}

    QString ReadString(QString const & key, QString const & fallback) override
    {
        return m_pStore->ReadString(m_prefix + key, fallback);
    }

    void WriteString(QString const & key, QString const & text) override
    {
        m_pStore->WriteString(m_prefix + key, text);
    }

private:
    ICfg * m_pStore;
    QString m_prefix;
};

void TellUnreadable(QString const & key, QString const & text)
{
    qCWarning(StoreLog(), "The stored text \"%s\" of \"%s\" is no such value: its default is used",
              qUtf8Printable(text.left(80)), qUtf8Printable(key));
}

//! Item of a value of the tree. It remembers the last value when that goes away.
class ValueItem : public PersistantObject, public IObserver
{
public:
    ValueItem(ValueBase * value, QString const & key, QString const & fallback)
        : m_pValue(value)
        , m_key(key)
        , m_fallback(fallback)
    {
        if (!m_pValue->AddObserver(this))
            LetGo(); // it is going away already
    }

    void Read(ICfg * store) override
    {
        QString const text = store->ReadString(m_key, m_fallback);
        if (Take(text) || text == m_fallback)
            return;
        TellUnreadable(m_key, text);
        Take(m_fallback);
    }

    void Write(ICfg * store) override { store->WriteString(m_key, m_pValue ? m_pValue->ToStoredText() : m_last); }

    void RestoreDefault() override { Take(m_fallback); }

    void Update(Observable * subject, TChangeCode code) override
    {
        if (m_pValue && subject == m_pValue && code == eStateChanged && m_pValue->GetState() == eStateGoingAway)
            LetGo();
    }

private:
    void LetGo()
    {
        m_last = m_pValue->ToStoredText();
        m_pValue->DeleteObserver(this);
        m_pValue = nullptr;
    }

    bool Take(QString const & text)
    {
        if (m_pValue)
            return m_pValue->FromStoredText(text, nullptr);
        m_last = text;
        return true;
    }

    ValueBase * m_pValue; // borrowed; null once it went away
    QString m_key;
    QString m_fallback;
    QString m_last; // of a value that went away
};

//! Item of a variable.
template <class T>
class VariableItem : public PersistantObject
{
public:
    VariableItem(T * variable, QString const & key, T fallback)
        : m_pVariable(variable)
        , m_key(key)
        , m_fallback(fallback)
    {}

    void Read(ICfg * store) override
    {
        QString const text = store->ReadString(m_key, QString::number(m_fallback));
        long long number = 0;
        bool const reads = ValueText::ToInt64(text, &number) && number >= std::numeric_limits<T>::lowest() &&
                           number <= std::numeric_limits<T>::max();
        if (!reads)
            TellUnreadable(m_key, text);
        *m_pVariable = reads ? static_cast<T>(number) : m_fallback;
    }

    void Write(ICfg * store) override { store->WriteString(m_key, QString::number(*m_pVariable)); }

    void RestoreDefault() override { *m_pVariable = m_fallback; }

private:
    T * m_pVariable; // borrowed
    QString m_key;
    T m_fallback;
};

} // namespace

struct Persistant::Item
{
    QString group;
    std::unique_ptr<PersistantObject> object;
};

PersistantObject::~PersistantObject() = default;

SaveComponentIf::~SaveComponentIf() = default;

PersistantOwner::~PersistantOwner() = default;

void PersistantOwner::ApplyPersistantBeforeWrite() {}

void PersistantOwner::ApplyPersistantAfterRead() {}

Persistant::Persistant(QString const & name, PersistantOwner * owner)
    : m_name(name)
    , m_pOwner(owner)
    , m_pItems(std::make_shared<Items>())
{}

Persistant::~Persistant() = default;

void Persistant::Add(Value<bool> * value, QString const & key, bool fallback, QString const & group)
{
    if (value)
        Add(new ValueItem(value, key, ValueText::FromBool(fallback)), group);
}

void Persistant::Add(ValueNumeric<int> * value, QString const & key, int fallback, QString const & group)
{
    if (value)
        Add(new ValueItem(value, key, QString::number(fallback)), group);
}

void Persistant::Add(ValueNumeric<double> * value, QString const & key, double fallback, QString const & group)
{
    if (value)
        Add(new ValueItem(value, key, ValueText::FromDoubleExact(fallback)), group);
}

void Persistant::Add(ValueSelection * value, QString const & key, long fallback, QString const & group)
{
    if (value)
        Add(new ValueItem(value, key, QString::number(fallback)), group);
}

void Persistant::Add(int * variable, QString const & key, int fallback, QString const & group)
{
    if (variable)
        Add(new VariableItem<int>(variable, key, fallback), group);
}

void Persistant::Add(long * variable, QString const & key, long fallback, QString const & group)
{
    if (variable)
        Add(new VariableItem<long>(variable, key, fallback), group);
}

void Persistant::Add(PersistantObject * item, QString const & group)
{
    if (item)
        m_pItems->push_back({ group, std::unique_ptr<PersistantObject>(item) });
}

QString Persistant::Prefix(QString const & section, Item const & item) const
{
    QString prefix;
    for (QString const & level : { section, m_name, item.group })
        if (!level.isEmpty())
            prefix += level + QLatin1Char('/');
    return prefix;
}

void Persistant::Read(QString const & section, ICfg::View)
{
    // A value that is set here may make its observers add items, or delete this.
    LifeWatch const watch(m_lifetime);
    std::shared_ptr<Items> const items = m_pItems;
    for (size_t i = 0; !watch.IsOver() && i < items->size(); ++i) {
        PrefixedCfg store(Store(), Prefix(section, (*items)[i]));
        (*items)[i].object->Read(&store);
    }
    if (!watch.IsOver() && m_pOwner)
        m_pOwner->ApplyPersistantAfterRead();
}

bool Persistant::Write(QString const & section, ICfg::View)
{
    LifeWatch const watch(m_lifetime); // as in Read
    std::shared_ptr<Items> const items = m_pItems;
    if (m_pOwner)
        m_pOwner->ApplyPersistantBeforeWrite();
    for (size_t i = 0; !watch.IsOver() && i < items->size(); ++i) {
        PrefixedCfg store(Store(), Prefix(section, (*items)[i]));
        (*items)[i].object->Write(&store);
    }
    return !watch.IsOver() && Store()->Flush();
}

void Persistant::RestoreDefault()
{
    LifeWatch const watch(m_lifetime); // as in Read
    std::shared_ptr<Items> const items = m_pItems;
    for (size_t i = 0; !watch.IsOver() && i < items->size(); ++i)
        (*items)[i].object->RestoreDefault();
}

void Persistant::SetStore(ICfg * store) { s_store = store; }

ICfg * Persistant::Store()
{
    if (s_store)
        return s_store;
    static ICfg * const builtIn = new IniCfg;
    return builtIn;
}

void Persistant::Forget(ICfg const * store)
{
    if (s_store == store)
        s_store = nullptr;
}
