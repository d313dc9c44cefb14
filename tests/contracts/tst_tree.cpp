// SPDX-License-Identifier: MIT
#include "tree.h"

#include "scene.h"
#include "testmain.h"
#include "valuelist.h"
#include "valuenumeric.h"
#include "valueselection.h"

#include <QElapsedTimer>

#include <algorithm>
#include <memory>
#include <set>

namespace {

Tree & TheTree() { return *Tree::Instance(); }

QString Path(char const * path) { return QString::fromLatin1(path); }

Value<int> * Plant(char const * folder, char const * name)
{
    auto * const value = new Value<int>(Path(name));
    if (!TheTree().Insert(Path(folder), value))
        qFatal("the path is taken");
    return value;
}

//! Observes the tree's own end, which comes after main().
class LastWord : public IObserver
{
public:
    void Update(Observable * subject, TChangeCode code) override
    {
        auto * const value = dynamic_cast<ValueBase *>(subject);
        bool const right = code == eStateChanged && value->GetState() == eStateGoingAway && !Tree::Instance() &&
                           value->GetPathName() == QLatin1String("/last/one");
        if (!right)
            std::abort();
        m_heard = true;
    }

    ~LastWord() override
    {
        if (m_bound && (!m_heard || Tree::Instance()))
            std::abort();
        if (m_bound && m_sinceMain.elapsed() > 5000)
            std::abort();
    }

    QElapsedTimer m_sinceMain; // the tree has many values to delete since then
    bool m_bound = false;
    bool m_heard = false;
};

LastWord & TheLastWord()
{
    static LastWord word; // built before the tree, so it ends after it
    return word;
}

} // namespace

class tst_tree : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void paths_data();

    void paths() { PlayScene(); }

    void values_data();

    void values() { PlayScene(); }

    void removal_data();

    void removal() { PlayScene(); }

    void folding_data();
    void folding();

    void manyValues();
    void hashSpreads();
    void lengths();
    void pathsOfOneHash_data();
    void pathsOfOneHash();

    void cleanup() { TheTree().RemoveFolder(QStringLiteral("/")); }

    void cleanupTestCase();
};

void tst_tree::initTestCase()
{
    TheLastWord();
    QVERIFY(Tree::Instance());
    QCOMPARE(Tree::Instance(), Tree::Instance());
    QCOMPARE(TheTree().GetCount(), 0);
}

//! The end of the process is the test: a wrong word there aborts it.
void tst_tree::cleanupTestCase()
{
    TheLastWord().m_bound = Plant("/last", "one")->AddObserver(&TheLastWord());
    QVERIFY(TheLastWord().m_bound);
    for (int i = 0; i < 100000; ++i)
        Plant("/last/many", qPrintable(QString::number(i)));
    TheLastWord().m_sinceMain.start();
}

void tst_tree::paths_data()
{
    SceneColumns();
    SceneRow(
        "reachable at folder, slash, name",
        [] {
            Value<int> * const value = Plant("/a/b", "c");
            return YesNo(TheTree().Find(Path("/a/b/c")) == value) + value->GetPathName();
        },
        "yes/a/b/c");
    for (char const * folder : { "/a/b/", "//a//b", "/a///b//", "a/b", "a/b/" })
        SceneRow(
            qPrintable(QStringLiteral("folded on the way in: ") + Path(folder)),
            [folder] {
                Value<int> * const value = Plant(folder, "c");
                return YesNo(TheTree().Find(Path("/a/b/c")) == value) + value->GetPathName();
            },
            "yes/a/b/c");
    for (char const * path : { "/a/b/c", "/a/b/c/", "//a/b/c", "/a//b///c//", "a/b/c" })
        SceneRow(
            qPrintable(QStringLiteral("looked up as: ") + Path(path)),
            [path] {
                Value<int> * const value = Plant("/a/b", "c");
                return YesNo(TheTree().Find(Path(path)) == value);
            },
            "yes");
    for (char const * path :
         { "", "/", "//", "/a", "/a/b", "/a/b/", "/a/b/cc", "/a/b/C", "/A/b/c", "/a/b/c/d", " /a/b/c" })
        SceneRow(
            qPrintable(QStringLiteral("unknown: '%1'").arg(Path(path))),
            [path] {
                Plant("/a/b", "c");
                return YesNo(TheTree().Find(Path(path)));
            },
            "no");
    SceneRow(
        "unknown: a null path", [] { return YesNo(TheTree().Find(QString())); }, "no");
    SceneRow(
        "a checked cast: the right type, a face, and another type",
        [] {
            auto * const value = new ValueNumeric<double>(Path("n"));
            TheTree().Insert(Path("/a"), value);
            return YesNo(TheTree().FindAs<ValueNumeric<double>>(Path("/a/n")) == value) +
                   YesNo(TheTree().FindAs<IValueNumeric>(Path("/a/n")) == value) +
                   YesNo(TheTree().FindAs<Value<double>>(Path("/a/n")) == value) +
                   YesNo(TheTree().FindAs<ValueNumeric<int>>(Path("/a/n"))) +
                   YesNo(TheTree().FindAs<Value<bool>>(Path("/a/n"))) +
                   YesNo(TheTree().FindAs<ValueNumeric<double>>(Path("/a/m")));
        },
        "yesyesyesnonono");
    SceneRow(
        "a name with slashes makes folders",
        [] {
            Value<int> * const value = Plant("/a", "b//c/");
            return value->GetPathName() + YesNo(TheTree().Find(Path("/a/b/c")) == value);
        },
        "/a/b/cyes");
    SceneRow(
        "the empty folder is the root", [] { return Plant("", "c")->GetPathName(); }, "/c");
    SceneRow(
        "paths below a folder, sorted",
        [] {
            Plant("/a/b", "z");
            Plant("/a/b", "c");
            Plant("/a/bb", "d");
            Plant("/a", "b");
            return TheTree().GetPaths(Path("/a/b/")).join(QLatin1Char(' ')) + QLatin1Char('|') +
                   QString::number(TheTree().GetPaths(Path("/")).size()) +
                   QString::number(TheTree().GetPaths(QString()).size());
        },
        "/a/b/c /a/b/z|40");
}

void tst_tree::values_data()
{
    SceneColumns();
    SceneRow(
        "null is not inserted", [] { return YesNo(TheTree().Insert(Path("/a"), nullptr)); }, "no");
    SceneRow(
        "a path in use keeps its value",
        [] {
            Value<int> * const first = Plant("/a", "b");
            auto const second = std::make_unique<Value<int>>(Path("b"));
            bool const taken = TheTree().Insert(Path("//a/"), second.get());
            return YesNo(taken) + YesNo(TheTree().Find(Path("/a/b")) == first) + second->GetPathName() +
                   QString::number(TheTree().GetCount());
        },
        "noyes1");
    SceneRow(
        "a value is inserted once",
        [] {
            Value<int> * const value = Plant("/a", "b");
            bool const again = TheTree().Insert(Path("/c"), value);
            return YesNo(again) + value->GetPathName() + YesNo(TheTree().Find(Path("/c/b")));
        },
        "no/a/bno");
    SceneRow(
        "no name in no folder is no path",
        [] {
            auto const value = std::make_unique<Value<int>>();
            return YesNo(TheTree().Insert(QString(), value.get())) + YesNo(TheTree().Insert(Path("//"), value.get()));
        },
        "nono");
    SceneRow(
        "a value that goes away is not inserted",
        [] {
            QString seen;
            auto value = std::make_unique<Value<int>>(Path("b"));
            Log log;
            Listener a("a", log, [&seen](Observable * subject, TChangeCode) {
                seen = YesNo(TheTree().Insert(Path("/a"), dynamic_cast<ValueBase *>(subject)));
            });
            value->AddObserver(&a);
            value.reset();
            return seen;
        },
        "no");
    SceneRow(
        "a new name is a new path",
        [] {
            Value<int> * const value = Plant("/a/b", "c");
            value->SetName(Path("d"), nullptr);
            return value->GetPathName() + YesNo(TheTree().Find(Path("/a/b/d")) == value) +
                   YesNo(TheTree().Find(Path("/a/b/c"))) + QString::number(TheTree().GetCount());
        },
        "/a/b/dyesno1");
    SceneRow(
        "a name in use is refused",
        [] {
            Log log;
            Value<int> * const value = Plant("/a", "c");
            Plant("/a", "d");
            Listener a("a", log);
            value->AddObserver(&a);
            value->SetName(Path("d"), nullptr);
            return value->GetPathName() + value->GetName() + log.Text();
        },
        "/a/cc");
    SceneRow(
        "a name with slashes is replaced as a whole",
        [] {
            Value<int> * const value = Plant("/a", "b/c");
            value->SetName(Path("d"), nullptr);
            return value->GetPathName();
        },
        "/a/d");
    SceneRow(
        "a name that folds to the same path",
        [] {
            Value<int> * const value = Plant("/a", "b");
            value->SetName(Path("/b"), nullptr);
            return value->GetPathName() + YesNo(TheTree().Find(Path("/a/b")) == value);
        },
        "/a/byes");
    SceneRow(
        "a value that its owner deletes leaves the tree",
        [] {
            delete Plant("/a", "b");
            return YesNo(TheTree().Find(Path("/a/b"))) + QString::number(TheTree().GetCount());
        },
        "no0");
}

void tst_tree::removal_data()
{
    SceneColumns();
    SceneRow(
        "a value without a delete observer leaves the tree when it is deleted",
        [] {
            Value<int> * const value = Plant("/a", "b");
            value->SetDeleteObserver(nullptr);
            delete value;
            return YesNo(TheTree().Find(Path("/a/b")));
        },
        "no");
    SceneRow(
        "one with its own delete observer leaves the tree first, and is renamed by the tree",
        [] {
            class Item : public ITreeItem
            {
            public:
                void SubjectGoesAway(ValueBase * value) override
                {
                    m_seen += value->GetPathName() + YesNo(TheTree().Find(value->GetPathName()));
                }

                QString RenameSubject(ValueBase *, QString const &) override { return QStringLiteral("/never"); }

                QString m_seen;
            };

            Item item;
            Value<int> * const value = Plant("/a", "b");
            value->SetDeleteObserver(&item);
            value->SetName(QStringLiteral("c"), nullptr);
            bool const again = TheTree().Insert(Path("/d"), value);
            bool const found = TheTree().Find(Path("/a/c")) == value;
            TheTree().Remove(Path("/a/c"));
            return YesNo(again) + YesNo(found) + item.m_seen;
        },
        "noyes/a/cno");
    SceneRow(
        "state 1 and code 2 to all, the path still answers, the tree knows it no more",
        [] {
            Log log;
            Value<int> * const value = Plant("/a", "b");
            Listener a("a", log, [&log](Observable * subject, TChangeCode) {
                auto * const going = dynamic_cast<Value<int> *>(subject);
                log.Add(QString::number(going->GetState()) + going->GetPathName() +
                        YesNo(TheTree().Find(going->GetPathName())));
            });
            Listener b("b", log);
            value->AddObserver(&a);
            value->AddObserver(&b);
            bool const removed = TheTree().Remove(Path("//a/b/"));
            return YesNo(removed) + log.Text() + QString::number(TheTree().GetCount());
        },
        "yesa2 1/a/bno b20");
    SceneRow(
        "unknown paths",
        [] {
            Plant("/a", "b");
            return YesNo(TheTree().Remove(QString())) + YesNo(TheTree().Remove(Path("/"))) +
                   YesNo(TheTree().Remove(Path("/a"))) + YesNo(TheTree().Remove(Path("/a/c"))) +
                   QString::number(TheTree().GetCount());
        },
        "nononono1");
    SceneRow(
        "once only",
        [] {
            Plant("/a", "b");
            bool const first = TheTree().Remove(Path("/a/b"));
            return YesNo(first) + YesNo(TheTree().Remove(Path("/a/b")));
        },
        "yesno");
    SceneRow(
        "removed inside its own notification: those not yet told hear code 2 alone, and it lives until the end",
        [] {
            Log log;
            Value<int> * const value = Plant("/a", "b");
            Listener a("a", log, [&log, value](Observable *, TChangeCode code) {
                if (code != eValueChanged)
                    return;
                TheTree().Remove(Path("/a/b"));
                log.Add(value->GetStringValue() + YesNo(value->AddObserver(nullptr)) +
                        QString::number(value->GetObserverCount()));
            });
            Listener b("b", log);
            value->AddObserver(&a);
            value->AddObserver(&b);
            value->SetValue(7, nullptr);
            return log.Text() + QString::number(TheTree().GetCount());
        },
        "a3 a2 b2 7no00");
    SceneRow(
        "removed two rounds deep it lives until the outermost ends",
        [] {
            Log log;
            Value<int> * const value = Plant("/a", "b");
            LifeWatch const watch(value->GetLifetime());
            Listener a("a", log, [&](Observable *, TChangeCode code) {
                if (code != eValueChanged)
                    return;
                if (value->GetValue() == 1) {
                    value->SetValue(2, nullptr);
                    log.Add(YesNo(watch.IsOver()));
                } else {
                    TheTree().Remove(Path("/a/b"));
                }
            });
            value->AddObserver(&a);
            value->SetValue(1, nullptr);
            return log.Text() + YesNo(watch.IsOver());
        },
        "a3 a3 a2 noyes");
    SceneRow(
        "an observer that removes it again, or deletes it, at code 2",
        [] {
            Log log;
            Value<int> * const value = Plant("/a", "b");
            Listener a("a", log, [&log](Observable *, TChangeCode) { log.Add(YesNo(TheTree().Remove(Path("/a/b")))); });
            Listener b("b", log, [](Observable * subject, TChangeCode) { delete dynamic_cast<ValueBase *>(subject); });
            Listener c("c", log);
            for (Listener * listener : { &a, &b, &c })
                value->AddObserver(listener);
            bool const removed = TheTree().Remove(Path("/a/b"));
            return YesNo(removed) + log.Text();
        },
        "yesa2 no b2");
    SceneRow(
        "an observer that plants another one at the path at code 2",
        [] {
            Log log;
            Value<int> * const value = Plant("/a", "b");
            Listener a("a", log, [](Observable *, TChangeCode) { Plant("/a", "b")->SetValue(5, nullptr); });
            value->AddObserver(&a);
            TheTree().Remove(Path("/a/b"));
            return log.Text() + TheTree().Find(Path("/a/b"))->GetStringValue();
        },
        "a25");
    SceneRow(
        "at the deepest nesting the farewell still arrives",
        [] {
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("without end, 256 deep")));
            Log log;
            Value<int> * const value = Plant("/a", "b");
            bool farewell = false;
            Listener a("a", log, [&](Observable *, TChangeCode code) {
                farewell = farewell || code == eStateChanged;
                if (code == eValueChanged)
                    value->SetValue(value->GetValue() + 1, nullptr);
                if (code == eValueChanged && log.Count() == 256)
                    TheTree().Remove(Path("/a/b"));
            });
            value->AddObserver(&a);
            value->SetValue(1, nullptr);
            return YesNo(farewell) + QString::number(TheTree().GetCount());
        },
        "yes0");
    SceneRow(
        "a folder goes with all below it and the value at its path",
        [] {
            for (char const * name : { "a", "a/b", "a/b/c", "ab" })
                Plant("/x", name);
            int const removed = TheTree().RemoveFolder(Path("/x/a/"));
            return QString::number(removed) + TheTree().GetPaths(Path("/")).join(QLatin1Char(' '));
        },
        "3/x/ab");
    SceneRow(
        "no folder, nothing goes",
        [] {
            Plant("/x", "a");
            int const none = TheTree().RemoveFolder(QString()) + TheTree().RemoveFolder(Path("/y"));
            int const all = TheTree().RemoveFolder(Path("/"));
            return QString::number(none) + QString::number(all);
        },
        "01");
    SceneRow(
        "a value of a folder that goes may remove its neighbour",
        [] {
            Log log;
            Value<int> * const value = Plant("/x", "a");
            Plant("/x", "b");
            Listener a("a", log, [](Observable *, TChangeCode) { TheTree().Remove(Path("/x/b")); });
            value->AddObserver(&a);
            int const removed = TheTree().RemoveFolder(Path("/x"));
            return QString::number(removed) + QString::number(TheTree().GetCount());
        },
        "10");
}

void tst_tree::folding_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("folded");
    QTest::newRow("folded already") << "/a/b"
                                    << "/a/b";
    QTest::newRow("doubled") << "//a//b"
                             << "/a/b";
    QTest::newRow("tripled at the end") << "/a/b///"
                                        << "/a/b";
    QTest::newRow("closing") << "/a/b/"
                             << "/a/b";
    QTest::newRow("missing first") << "a/b"
                                   << "/a/b";
    QTest::newRow("slashes alone") << "///"
                                   << "";
    QTest::newRow("one slash") << "/"
                               << "";
    QTest::newRow("empty") << ""
                           << "";
    QTest::newRow("blanks stay") << "/ a /b "
                                 << "/ a /b ";
}

void tst_tree::folding()
{
    QFETCH(QString, path);
    QFETCH(QString, folded);
    QCOMPARE(Tree::Fold(path), folded);
    QCOMPARE(Tree::Fold(Tree::Fold(path)), folded);
}

void tst_tree::manyValues()
{
    int const many = 100000;
    auto const path = [](int i) { return QStringLiteral("/many/%1/value %2").arg(i % 97).arg(i); };
    std::vector<ValueBase *> values;
    for (int i = 0; i < many; ++i) {
        auto * const value = new Value<int>(QStringLiteral("value %1").arg(i));
        QVERIFY(TheTree().Insert(QStringLiteral("/many/%1").arg(i % 97), value));
        values.push_back(value);
    }
    QCOMPARE(TheTree().GetCount(), many);
    for (int i = 0; i < many; ++i)
        QVERIFY(TheTree().Find(path(i)) == values[static_cast<std::size_t>(i)]);
    for (int i = 0; i < many; i += 2)
        QVERIFY(TheTree().Remove(path(i)));
    for (int i = 0; i < many; ++i)
        QVERIFY(TheTree().Find(path(i)) == (i % 2 ? values[static_cast<std::size_t>(i)] : nullptr));
    QCOMPARE(TheTree().RemoveFolder(QStringLiteral("/many")), many / 2);
}

//! Paths that differ in one place, at any length, have different hashes and fill the low bits evenly.
void tst_tree::hashSpreads()
{
    auto const hash = [](QString const & text) {
        return PathTable::Hash(reinterpret_cast<char16_t const *>(text.utf16()), static_cast<std::size_t>(text.size()));
    };
    std::set<std::uint64_t> all;
    std::size_t texts = 0;
    for (int length = 0; length < 80; ++length) {
        QString const plain(length, QLatin1Char('a'));
        all.insert(hash(plain));
        ++texts;
        for (int place = 0; place < length; ++place) {
            QString other = plain;
            other[place] = QLatin1Char('b');
            all.insert(hash(other));
            ++texts;
        }
    }
    QCOMPARE(all.size(), texts);

    std::vector<int> buckets(1024, 0);
    for (int i = 0; i < 102400; ++i)
        ++buckets[hash(QStringLiteral("/GuiCentral/unique/float/UNIQUE_FLOAT_%1").arg(i)) % buckets.size()];
    QVERIFY(*std::max_element(buckets.begin(), buckets.end()) < 160);
    QVERIFY(*std::min_element(buckets.begin(), buckets.end()) > 50);
}

//! A path is found whatever its length and its characters, and nothing else is found in its place.
void tst_tree::lengths()
{
    std::vector<std::pair<QString, ValueBase *>> planted;
    for (int length = 1; length <= 100; ++length)
        for (QChar const last : { QChar(u'a'), QChar(u'\u00e1'), QChar(u'\u0161'), QChar(u'\u4e61') }) {
            QString const name = QString(length - 1, QLatin1Char('n')) + last; // the low bytes are e1, 61, 61, 61
            auto * const value = new Value<int>(name);
            QVERIFY(TheTree().Insert(QStringLiteral("/l"), value));
            planted.push_back({ QStringLiteral("/l/") + name, value });
        }
    for (auto const & one : planted)
        QVERIFY2(TheTree().Find(one.first) == one.second, qPrintable(one.first));
    for (auto const & one : planted)
        QVERIFY2(TheTree().Remove(one.first) && !TheTree().Find(one.first), qPrintable(one.first));
    QCOMPARE(TheTree().GetCount(), 0);
}

void tst_tree::pathsOfOneHash_data()
{
    QTest::addColumn<QString>("folder");
    QTest::newRow("short") << "/f";
    QTest::newRow("over two blocks") << "/a folder with a name";
    QTest::newRow("longer than a cache line") << "/a folder that bears a name as long as names of folders may become";
    QTest::newRow("beyond Latin-1") << QStringLiteral("/\u4e61");
}

//! The table keeps half of a hash: where two paths share it their characters tell.
void tst_tree::pathsOfOneHash()
{
    QFETCH(QString, folder);
    std::vector<std::pair<std::uint32_t, int>> hashes;
    for (int i = 100000; i < 400000; ++i) { // of one length
        QString const path = folder + QLatin1Char('/') + QString::number(i);
        auto const * const text = reinterpret_cast<char16_t const *>(path.constData());
        hashes.push_back(
            { static_cast<std::uint32_t>(PathTable::Hash(text, static_cast<std::size_t>(path.size()))), i });
    }
    std::sort(hashes.begin(), hashes.end());
    auto const same = [](auto const & a, auto const & b) { return a.first == b.first; };
    auto const pair = std::adjacent_find(hashes.begin(), hashes.end(), same);
    QVERIFY(pair != hashes.end());
    QString const first = QString::number(pair->second);
    QString const second = QString::number(std::next(pair)->second);
    auto * const value = new Value<int>(first);
    QVERIFY(TheTree().Insert(folder, value));
    QVERIFY(!TheTree().Find(folder + QLatin1Char('/') + second));
    auto * const other = new Value<int>(second);
    QVERIFY(TheTree().Insert(folder, other));
    QVERIFY(TheTree().Find(folder + QLatin1Char('/') + first) == value);
    QVERIFY(TheTree().Find(folder + QLatin1Char('/') + second) == other);
}

ORIM_CORE_TEST_MAIN(tst_tree)
#include "tst_tree.moc"
