// SPDX-License-Identifier: MIT
#include "valueptr.h"

#include "operations.h"
#include "scene.h"
#include "testmain.h"

#include <cstdlib>
#include <memory>

namespace {

using Pointer = ValuePtr<ValueNumeric<double>>;

//! A fresh value in the tree at /ptr/name.
template <class T>
T * Plant(char const * name)
{
    auto * const value = new T(QString::fromLatin1(name));
    if (!Tree::Instance()->Insert(QStringLiteral("/ptr"), value))
        qFatal("the path is taken");
    return value;
}

//! What each kind of pointer has to do, in one line of answers.
template <class T>
QString Life()
{
    T * const one = Plant<T>("one");
    T * const two = Plant<T>("two");
    QString seen;
    {
        ValuePtr<T> pointer(one);
        seen += YesNo(pointer.Get() == one) + YesNo(one->HasObserver(&pointer));
        pointer.Replace(two);
        seen += YesNo(pointer.Get() == two) + YesNo(one->HasObserver(&pointer)) + YesNo(two->HasObserver(&pointer));
        pointer.Release();
        seen += YesNo(pointer.Get()) + YesNo(Tree::Instance()->Find(QStringLiteral("/ptr/two")));
        pointer.Bind(QStringLiteral("/ptr/one"));
        seen += YesNo(pointer.Get() == one);
    }
    seen += QString::number(one->GetObserverCount());
    Tree::Instance()->Remove(QStringLiteral("/ptr/one"));
    return seen;
}

//! Built before the tree, so that it ends after it. What is done then must be harmless.
class Survivor
{
public:
    Survivor() = default;
    Survivor(Survivor const &) = delete;
    Survivor & operator=(Survivor const &) = delete;

    ~Survivor()
    {
        if (!m_pHeld)
            return;
        bool const heard = !*m_pHeld && !Tree::Instance();
        ValueNumeric<double> value(QStringLiteral("one"));
        m_pHeld->Replace(&value);
        bool const held = m_pHeld->Get() == &value;
        m_pHeld->Release();
        bool const released = !*m_pHeld && value.GetObserverCount() == 0;
        bool const bound = m_pHeld->Bind(QStringLiteral("/last/one"));
        NumericCoupler const coupler(QStringLiteral("/last/one"), QStringLiteral("/last/two"), 1.0,
                                     NumericCoupler::eOffset);
        value.SetValue(2.0, nullptr);
        if (!heard || !held || !released || bound)
            std::_Exit(3);
    }

    //! Holds the value of the tree that goes away with it.
    bool Hold(char const * path)
    {
        m_pHeld = std::make_unique<Pointer>();
        return m_pHeld->Bind(QString::fromLatin1(path));
    }

private:
    std::unique_ptr<Pointer> m_pHeld;
};

Survivor TheSurvivor;

} // namespace

class tst_valueptr : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pointer_data();

    void pointer() { PlayScene(); }

    void cleanup() { QCOMPARE(Tree::Instance()->RemoveFolder(QStringLiteral("/ptr")), 0); }

    void cleanupTestCase();
};

//! The end of the process is the test: what goes wrong there ends it with another code.
void tst_valueptr::cleanupTestCase()
{
    QVERIFY(Tree::Instance()->Insert(QStringLiteral("/last"), new ValueNumeric<double>(QStringLiteral("one"))));
    QVERIFY(TheSurvivor.Hold("/last/one"));
}

void tst_valueptr::pointer_data()
{
    SceneColumns();
    char const * const life = "yesyesyesnoyesnonoyes0";
    SceneRow(
        "a double, from binding to its end", [] { return Life<ValueNumeric<double>>(); }, life);
    SceneRow(
        "an int, from binding to its end", [] { return Life<ValueNumeric<int>>(); }, life);
    SceneRow(
        "a bool, from binding to its end", [] { return Life<Value<bool>>(); }, life);
    SceneRow(
        "a selection, from binding to its end", [] { return Life<ValueSelection>(); }, life);
    SceneRow(
        "null at first", [] { return YesNo(bool(Pointer())) + YesNo(Pointer().Get()); }, "nono");
    SceneRow(
        "it becomes null when the value goes away",
        [] {
            Pointer pointer(Plant<ValueNumeric<double>>("one"));
            bool const before = bool(pointer);
            Tree::Instance()->Remove(QStringLiteral("/ptr/one"));
            return YesNo(before) + YesNo(bool(pointer));
        },
        "yesno");
    SceneRow(
        "it becomes null when a value of nobody's is destroyed",
        [] {
            auto value = std::make_unique<ValueNumeric<double>>();
            Pointer const pointer(value.get());
            value.reset();
            return YesNo(bool(pointer));
        },
        "no");
    SceneRow(
        "a value that says farewell is not held any more",
        [] {
            Log log;
            auto * const value = new ValueNumeric<double>;
            Pointer replaced;
            std::unique_ptr<Pointer> built;
            Listener a("a", log, [&](Observable *, TChangeCode) {
                replaced.Replace(value);
                built = std::make_unique<Pointer>(value);
            });
            value->AddObserver(&a);
            delete value;
            return log.Text() + YesNo(bool(replaced)) + YesNo(bool(*built));
        },
        "a2nono");
    SceneRow(
        "a value that is observed already is held",
        [] {
            ValueNumeric<double> value;
            Pointer pointer;
            value.AddObserver(&pointer);
            pointer.Replace(&value);
            return YesNo(pointer.Get() == &value) + QString::number(value.GetObserverCount());
        },
        "yes1");
    SceneRow(
        "state 1 alone lets it go, and nothing dangles",
        [] {
            ValueNumeric<double> value;
            Pointer const pointer(&value);
            value.SetState(eStateGoingAway, nullptr);
            return YesNo(bool(pointer)) + QString::number(value.GetObserverCount());
        },
        "no0");
    SceneRow(
        "another state, other codes and other values do not",
        [] {
            ValueNumeric<double> value;
            ValueNumeric<double> other;
            Pointer pointer(&value);
            value.SetState(eStateDisabled, nullptr);
            value.SetValue(2.0, nullptr);
            other.SetState(eStateGoingAway, nullptr);
            pointer.Update(&other, eStateChanged);
            value.SetState(eStateGoingAway, &pointer);
            pointer.Update(&value, eValueChanged);
            return YesNo(bool(pointer));
        },
        "yes");
    SceneRow(
        "after the value went away a later code 3 of another one is ignored",
        [] {
            auto value = std::make_unique<ValueNumeric<double>>();
            ValueNumeric<double> other;
            Pointer pointer(value.get());
            value.reset();
            pointer.Update(&other, eValueChanged);
            pointer.Update(&other, eStateChanged);
            return YesNo(bool(pointer));
        },
        "no");
    SceneRow(
        "the destructor leaves the value in the tree",
        [] {
            {
                Pointer const pointer(Plant<ValueNumeric<double>>("one"));
            }
            auto * const left = Tree::Instance()->Find(QStringLiteral("/ptr/one"));
            QString const seen = YesNo(left) + QString::number(left->GetObserverCount());
            Tree::Instance()->Remove(QStringLiteral("/ptr/one"));
            return seen;
        },
        "yes0");
    SceneRow(
        "a release tells the others",
        [] {
            Pointer one(Plant<ValueNumeric<double>>("one"));
            Pointer const two(one.Get());
            one.Release();
            one.Release();
            return YesNo(bool(one)) + YesNo(bool(two));
        },
        "nono");
    SceneRow(
        "a release of a value outside the tree lets it live",
        [] {
            ValueNumeric<double> value;
            Pointer pointer(&value);
            pointer.Release();
            return YesNo(bool(pointer)) + QString::number(value.GetObserverCount()) + QString::number(value.GetState());
        },
        "no00");
    SceneRow(
        "a copy registers itself",
        [] {
            auto value = std::make_unique<ValueNumeric<double>>();
            auto one = std::make_unique<Pointer>(value.get());
            Pointer const two(*one);
            int const both = value->GetObserverCount();
            one.reset();
            bool const still = two.Get() == value.get();
            value.reset();
            return QString::number(both) + YesNo(still) + YesNo(bool(two));
        },
        "2yesno");
    SceneRow(
        "an assigned one registers itself and leaves the old value",
        [] {
            ValueNumeric<double> value;
            ValueNumeric<double> old;
            Pointer const one(&value);
            Pointer two(&old);
            two = one;
            Pointer & same = two;
            two = same;
            return YesNo(two.Get() == &value) + QString::number(value.GetObserverCount()) +
                   QString::number(old.GetObserverCount());
        },
        "yes20");
    SceneRow(
        "the value held is replaced by itself without a trace",
        [] {
            Log log;
            ValueNumeric<double> value;
            Pointer pointer(&value);
            Listener a("a", log);
            value.AddObserver(&a);
            pointer.Replace(&value);
            value.MakeFirstObserver(&a);
            return YesNo(value.HasObserver(&pointer)) + QString::number(value.GetObserverCount());
        },
        "yes2");
    SceneRow(
        "replaced by null",
        [] {
            ValueNumeric<double> value;
            Pointer pointer(&value);
            pointer.Replace(nullptr);
            return YesNo(bool(pointer)) + QString::number(value.GetObserverCount());
        },
        "no0");
    SceneRow(
        "binding to an unknown, an empty or a path of another type gives null, a good one follows",
        [] {
            auto * const value = Plant<ValueNumeric<double>>("one");
            Plant<ValueNumeric<int>>("two");
            Pointer pointer(value);
            QString seen;
            for (char const * path : { "/ptr/three", "", "/ptr/two", "/ptr/one" }) {
                bool const found = pointer.Bind(QString::fromLatin1(path));
                seen += YesNo(found) + YesNo(bool(pointer));
            }
            pointer->SetValue(2.5, nullptr);
            seen += value->GetStringValue();
            Tree::Instance()->RemoveFolder(QStringLiteral("/ptr"));
            return seen + YesNo(bool(pointer));
        },
        "nonononononoyesyes2.5no");
}

ORIM_CORE_TEST_MAIN(tst_valueptr)
#include "tst_valueptr.moc"
