// SPDX-License-Identifier: MIT
// Finding a value among 10,000 and 100,000: by path in the tree, in a QHash, and the limit: a flat table with the key
// in the record; and by a handle that was resolved before.

#include "tree.h"
#include "value.h"

#include <QHash>

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <cstring>
#include <memory>
#include <vector>

namespace {

constexpr std::size_t Asked = 4096; // paths in turn, in no order

QString Folder(int i) { return QStringLiteral("/bench/receiver %1/channel").arg(i % 100); }

QString Name(int i) { return QStringLiteral("level %1").arg(i); }

QString Path(int i) { return Folder(i) + QLatin1Char('/') + Name(i); }

//! The same scattered indices for every way of finding.
std::vector<int> AskedIndices(int count)
{
    std::vector<int> indices;
    for (std::size_t i = 0; i < Asked; ++i)
        indices.push_back(static_cast<int>((i * 2654435761u) % static_cast<unsigned>(count)));
    return indices;
}

std::vector<QString> AskedPaths(int count)
{
    std::vector<QString> paths;
    for (int const index : AskedIndices(count))
        paths.push_back(Path(index));
    return paths;
}

//! Values in the tree, all at paths of their own; as many as asked for.
class Planted
{
public:
    explicit Planted(int count)
    {
        for (int i = 0; i < count; ++i) {
            auto * const value = new Value<int>(Name(i));
            value->SetValue(i, nullptr);
            if (!Tree::Instance()->Insert(Folder(i), value))
                std::abort();
            m_values.push_back(value);
        }
    }

    ~Planted() { Tree::Instance()->RemoveFolder(QStringLiteral("/bench")); }

    std::vector<ValueBase *> m_values;
};

//! The limit: keys of one length lie in the record, the hash reads eight bytes at a time.
class FlatTable
{
public:
    explicit FlatTable(std::size_t count)
    {
        std::size_t size = 1;
        while (size < 2 * count)
            size *= 2;
        m_records.resize(size);
    }

    void Insert(QString const & key, ValueBase * value)
    {
        Record const record = Make(key, value);
        std::size_t index = record.hash & (m_records.size() - 1);
        while (m_records[index].value)
            index = (index + 1) & (m_records.size() - 1);
        m_records[index] = record;
    }

    ValueBase * Find(QString const & key) const
    {
        std::uint64_t const hash = Hash(key);
        auto const size = static_cast<std::size_t>(key.size()) * sizeof(QChar);
        for (std::size_t index = hash & (m_records.size() - 1);; index = (index + 1) & (m_records.size() - 1)) {
            Record const & record = m_records[index];
            if (!record.value)
                return nullptr;
            if (record.hash == hash && record.size == size && std::memcmp(record.key, key.constData(), size) == 0)
                return record.value;
        }
    }

private:
    static constexpr std::size_t s_longest = 104;

    struct Record
    {
        std::uint64_t hash = 0;
        std::size_t size = 0;
        ValueBase * value = nullptr;
        char key[s_longest] = {};
    };

    static std::uint64_t Hash(QString const & key)
    {
        return PathTable::Hash(reinterpret_cast<char16_t const *>(key.constData()),
                               static_cast<std::size_t>(key.size()));
    }

    static Record Make(QString const & key, ValueBase * value)
    {
        Record record;
        record.hash = Hash(key);
        record.size = static_cast<std::size_t>(key.size()) * sizeof(QChar);
        record.value = value;
        if (record.size > s_longest)
            std::abort();
        std::memcpy(record.key, key.constData(), record.size);
        return record;
    }

    std::vector<Record> m_records;
};

//! Verifies every look-up, then times them.
template <class Find>
void Run(benchmark::State & state, Planted const & planted, Find const & find)
{
    auto const count = static_cast<int>(state.range(0));
    std::vector<int> const indices = AskedIndices(count);
    for (std::size_t i = 0; i < Asked; ++i)
        if (find(i) != planted.m_values[static_cast<std::size_t>(indices[i])])
            std::abort();
    std::size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(find(i));
        i = (i + 1) % Asked;
    }
}

void FindLimit(benchmark::State & state)
{
    auto const count = static_cast<int>(state.range(0));
    Planted const planted(count);
    FlatTable table(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        table.Insert(Path(i), planted.m_values[static_cast<std::size_t>(i)]);
    std::vector<QString> const paths = AskedPaths(count);
    Run(state, planted, [&](std::size_t i) { return table.Find(paths[i]); });
}

void FindInTree(benchmark::State & state)
{
    auto const count = static_cast<int>(state.range(0));
    Planted const planted(count);
    std::vector<QString> const paths = AskedPaths(count);
    Tree const & tree = *Tree::Instance();
    Run(state, planted, [&](std::size_t i) { return tree.Find(paths[i]); });
}

//! A path with a closing slash has to be folded first.
void FindInTreeFolding(benchmark::State & state)
{
    auto const count = static_cast<int>(state.range(0));
    Planted const planted(count);
    std::vector<QString> paths = AskedPaths(count);
    for (QString & path : paths)
        path += QLatin1Char('/');
    Tree const & tree = *Tree::Instance();
    Run(state, planted, [&](std::size_t i) { return tree.Find(paths[i]); });
}

void FindInQHash(benchmark::State & state)
{
    auto const count = static_cast<int>(state.range(0));
    Planted const planted(count);
    QHash<QString, ValueBase *> hash;
    for (int i = 0; i < count; ++i)
        hash.insert(Path(i), planted.m_values[static_cast<std::size_t>(i)]);
    std::vector<QString> const paths = AskedPaths(count);
    Run(state, planted, [&](std::size_t i) { return hash.value(paths[i]); });
}

void FindByHandle(benchmark::State & state)
{
    auto const count = static_cast<int>(state.range(0));
    Planted const planted(count);
    std::vector<ValueBase *> handles;
    for (QString const & path : AskedPaths(count))
        handles.push_back(Tree::Instance()->Find(path));
    Run(state, planted, [&](std::size_t i) { return handles[i]; });
}

BENCHMARK(FindLimit)->Name("Find/limit")->Arg(10000)->Arg(100000);
BENCHMARK(FindInTree)->Name("Find/ours")->Arg(10000)->Arg(100000);
BENCHMARK(FindInTreeFolding)->Name("Find/ours-folding")->Arg(10000)->Arg(100000);
BENCHMARK(FindInQHash)->Name("Find/qhash")->Arg(10000)->Arg(100000);
BENCHMARK(FindByHandle)->Name("Find/handle")->Arg(10000)->Arg(100000);

} // namespace
