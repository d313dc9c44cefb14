// SPDX-License-Identifier: MIT
#include "guicentral.h"

#include "operations.h"
#include "tree.h"
#include "valuebase.h"
#include "valueselection.h"

#include <array>
#include <utility>

namespace {

constexpr int MaxAdded = 1000; // values that observers may create in a kind while its values are removed

struct ItemRow
{
    char const * name; // the context of its translation is GuiCentral
    double value;
    long key;
};

constexpr std::array<ItemRow, 10> AgeingSteps{ { { QT_TRANSLATE_NOOP("GuiCentral", "Off"), 0.0, 0 }, // s
                                                 { QT_TRANSLATE_NOOP("GuiCentral", "1 s"), 1.0, 1 },
                                                 { QT_TRANSLATE_NOOP("GuiCentral", "2 s"), 2.0, 2 },
                                                 { QT_TRANSLATE_NOOP("GuiCentral", "3 s"), 3.0, 3 },
                                                 { QT_TRANSLATE_NOOP("GuiCentral", "4 s"), 4.0, 4 },
                                                 { QT_TRANSLATE_NOOP("GuiCentral", "5 s"), 5.0, 5 },
                                                 { QT_TRANSLATE_NOOP("GuiCentral", "10 s"), 10.0, 10 },
                                                 { QT_TRANSLATE_NOOP("GuiCentral", "20 s"), 20.0, 20 },
                                                 { QT_TRANSLATE_NOOP("GuiCentral", "30 s"), 30.0, 30 },
                                                 { QT_TRANSLATE_NOOP("GuiCentral", "Infinite"), -1.0, -1 } } };

constexpr std::array<ItemRow, 7> HistogramTiles{ { { QT_TRANSLATE_NOOP("GuiCentral", "Screen / none"), 0.0, 0 }, // deg
                                                   { QT_TRANSLATE_NOOP("GuiCentral", "0.1 degree"), 0.1, 1 },
                                                   { QT_TRANSLATE_NOOP("GuiCentral", "0.2 degree"), 0.2, 2 },
                                                   { QT_TRANSLATE_NOOP("GuiCentral", "0.5 degree"), 0.5, 3 },
                                                   { QT_TRANSLATE_NOOP("GuiCentral", "1.0 degree"), 1.0, 4 },
                                                   { QT_TRANSLATE_NOOP("GuiCentral", "2.0 degree"), 2.0, 5 },
                                                   { QT_TRANSLATE_NOOP("GuiCentral", "3.0 degree"), 3.0, 6 } } };

constexpr long DefaultKey = 4; // of both

template <std::size_t Count>
constexpr bool HasKey(std::array<ItemRow, Count> const & rows, long key)
{
    for (ItemRow const & row : rows)
        if (row.key == key)
            return true;
    return false;
}

static_assert(HasKey(AgeingSteps, DefaultKey) && HasKey(HistogramTiles, DefaultKey), "the default is an item");

template <std::size_t Count>
void Fill(ValueSelection & selection, std::array<ItemRow, Count> const & rows)
{
    std::vector<SelectionItem> items;
    items.reserve(Count);
    for (ItemRow const & row : rows)
        items.emplace_back(GuiCentral::tr(row.name), row.value, row.key);
    selection.AddItems(items);
    selection.Select(DefaultKey, nullptr);
}

QString Name(char const * name, int number) { return QString(QLatin1String(name)).arg(number); }

//! The next number; past the largest int the lowest one.
int After(int number) { return static_cast<int>(static_cast<unsigned int>(number) + 1U); }

//! Keeps what an operation computes at its start out of undo: the operator did not change it.
class Unrecorded
{
public:
    Unrecorded() { ValueBase::SetRecorder(nullptr); }

    Unrecorded(Unrecorded const &) = delete;
    Unrecorded & operator=(Unrecorded const &) = delete;

    ~Unrecorded() { ValueBase::SetRecorder(m_pRecorder); }

private:
    IValueRecorder * m_pRecorder = ValueBase::Recorder(); // borrowed
};

} // namespace

struct GuiCentral::Unique
{
    struct Kind
    {
        char const * name; // %1 is the number
        char const * folder;
        int GuiCentral::*count; // numbers handed out
        int first;              // number that the removal begins with
    };

    enum Index
    {
        eBoolean,
        eChar,
        eFloat,
        eInt,
        eInt64,
        eSelection,
        eString,
        eCount
    };

    static QString Path(Kind const & kind, QString const & name)
    {
        return QLatin1String(kind.folder) + QLatin1Char('/') + name;
    }

    // in the order of their removal
    static constexpr std::array<Kind, eCount> Kinds{
        { { "UNIQUE_BOOL_%1", "/GuiCentral/unique/boolean", &GuiCentral::m_uniqueBoolCount, -1 },
          { "UNIQUE_CHAR_%1", "/GuiCentral/unique/char", &GuiCentral::m_uniqueCharCount, 0 },
          { "UNIQUE_FLOAT_%1", "/GuiCentral/unique/float", &GuiCentral::m_uniqueFloatCount, 0 },
          { "UNIQUE_INT_%1", "/GuiCentral/unique/int", &GuiCentral::m_uniqueIntCount, 0 },
          { "UNIQUE_INT64_%1", "/GuiCentral/unique/int64", &GuiCentral::m_uniqueInt64Count, 0 },
          { "UNIQUE_SELECTION_%1", "/GuiCentral/unique/selection", &GuiCentral::m_uniqueSelectionCount, 0 },
          { "UNIQUE_STRING_%1", "/GuiCentral/unique/string", &GuiCentral::m_uniqueStringCount, 0 } }
    };

    //! Makes a value, has it filled while nobody can hear of it, and puts it in the tree. \return its path.
    template <class T, class FillValue>
    static QString Create(GuiCentral & central, Index index, FillValue const & fill)
    {
        Kind const & kind = Kinds[index];
        int & count = central.*kind.count;
        QString const name = Name(kind.name, count);
        auto value = std::make_unique<T>(name);
        fill(*value);
        Tree * const tree = Tree::Instance();
        if (tree && tree->Insert(QLatin1String(kind.folder), value.get()))
            static_cast<void>(value.release()); // the tree owns it
        count = After(count);
        return Path(kind, name);
    }

    template <class T>
    static QString CreateNumeric(GuiCentral & central, Index index, T value, T min, T max, T step)
    {
        return Create<ValueNumeric<T>>(central, index, [&](ValueNumeric<T> & created) {
            created.SetMinMax(min, max, step, nullptr);
            created.SetValue(value, nullptr);
        });
    }

    template <class T>
    static QString Clone(GuiCentral & central, Index index, ValueNumeric<T> const * source)
    {
        using Limits = std::numeric_limits<T>;
        if (!source)
            return CreateNumeric<T>(central, index, T(), Limits::lowest(), Limits::max(), T());
        return CreateNumeric<T>(central, index, source->GetValue(), source->GetMin(), source->GetMax(),
                                source->GetStep());
    }

    //! A unique bool that an operation keeps up to date until it goes away.
    template <class Operand>
    static QString CreateBoolOperation(GuiCentral & central, QString const & source, Operand const & operand,
                                       unsigned int type)
    {
        QString const path = central.CreateUniqueValueBoolean(false);
        Unrecorded const unrecorded;
        central.m_boolOperations[path] =
            std::make_unique<BoolOperation>(path, source, operand, static_cast<BoolOperation::Type>(type));
        Tree const * const tree = Tree::Instance();
        if (ValueBase * const result = tree ? tree->Find(path) : nullptr)
            result->AddObserver(&central);
        return path;
    }

    //! A unique double that an operation keeps up to date until termination.
    template <class Operation, class Operand>
    static QString CreateNumericOperation(GuiCentral & central, QString const & source, Operand const & operand,
                                          unsigned int type)
    {
        QString const path = Clone<double>(central, eFloat, nullptr);
        Unrecorded const unrecorded;
        central.m_numericOperations.push_back(
            std::make_unique<Operation>(path, source, operand, static_cast<typename Operation::Type>(type)));
        return path;
    }
};

QString GuiCentral::CreateUniqueName()
{
    QString const name = Name("UNIQUE_NAME_%1", m_uniqueNameCount);
    m_uniqueNameCount = After(m_uniqueNameCount);
    return name;
}

QString GuiCentral::CreateUniqueValueBoolean(bool value)
{
    return Unique::Create<Value<bool>>(*this, Unique::eBoolean,
                                       [&](Value<bool> & created) { created.SetValue(value, nullptr); });
}

QString GuiCentral::CreateUniqueValueChar(char value)
{
    return Unique::Create<Value<char>>(*this, Unique::eChar,
                                       [&](Value<char> & created) { created.SetValue(value, nullptr); });
}

QString GuiCentral::CreateUniqueValueInt(int value, int min, int max, int step)
{
    return Unique::CreateNumeric<int>(*this, Unique::eInt, value, min, max, step);
}

QString GuiCentral::CreateUniqueValueInt64(long long value, long long min, long long max, long long step)
{
    return Unique::CreateNumeric<long long>(*this, Unique::eInt64, value, min, max, step);
}

QString GuiCentral::CreateUniqueValueFloat(double value, double min, double max, double step)
{
    return Unique::CreateNumeric<double>(*this, Unique::eFloat, value, min, max, step);
}

QString GuiCentral::CreateUniqueValueString(QString const & value)
{
    return Unique::Create<Value<QString>>(*this, Unique::eString,
                                          [&](Value<QString> & created) { created.SetValue(value, nullptr); });
}

QString GuiCentral::CreateUniqueValueCString(std::string const & value)
{
    return Unique::Create<Value<std::string>>(*this, Unique::eString,
                                              [&](Value<std::string> & created) { created.SetValue(value, nullptr); });
}

QString GuiCentral::CreateUniqueValueSelection(ValueSelection * source)
{
    return Unique::Create<ValueSelection>(*this, Unique::eSelection, [&](ValueSelection & created) {
        if (source)
            created = *source; // its name stays
    });
}

QString GuiCentral::CloneUniqueValueInt(ValueNumeric<int> * source)
{
    return Unique::Clone<int>(*this, Unique::eInt, source);
}

QString GuiCentral::CloneUniqueValueFloat(ValueNumeric<double> * source)
{
    return Unique::Clone<double>(*this, Unique::eFloat, source);
}

QString GuiCentral::CreateUniqueAgeingStepsSelection()
{
    return Unique::Create<ValueSelection>(*this, Unique::eSelection,
                                          [](ValueSelection & created) { Fill(created, AgeingSteps); });
}

QString GuiCentral::CreateUniqueHistogramTilesSelection()
{
    return Unique::Create<ValueSelection>(*this, Unique::eSelection,
                                          [](ValueSelection & created) { Fill(created, HistogramTiles); });
}

QString GuiCentral::CreateBoolOperation(QString const & source, QString const & operand, unsigned int type)
{
    return Unique::CreateBoolOperation(*this, source, operand, type);
}

QString GuiCentral::CreateBoolOperation(QString const & source, double operand, unsigned int type)
{
    return Unique::CreateBoolOperation(*this, source, operand, type);
}

QString GuiCentral::CreateBoolOperation(QString const & source, int operand, unsigned int type)
{
    return Unique::CreateBoolOperation(*this, source, operand, type);
}

QString GuiCentral::CreateBoolOperation(QString const & source, QList<int> const & operand, unsigned int type)
{
    return Unique::CreateBoolOperation(*this, source, operand, type);
}

QString GuiCentral::CreateBoolOperation(QString const & source, QList<double> const & operand, unsigned int type)
{
    return Unique::CreateBoolOperation(*this, source, operand, type);
}

QString GuiCentral::CreateNumericOperation(QString const & source, QString const & operand, unsigned int type)
{
    return Unique::CreateNumericOperation<NumericOperation>(*this, source, operand, type);
}

QString GuiCentral::CreateNumericOperation(QString const & source, double operand, unsigned int type)
{
    return Unique::CreateNumericOperation<NumericOperation>(*this, source, operand, type);
}

QString GuiCentral::CreateNumericCoupler(QString const & source, double constant, unsigned int type)
{
    return Unique::CreateNumericOperation<NumericCoupler>(*this, source, constant, type);
}

QString GuiCentral::CreateSelectionCoupledToBool(QString const & boolPath, bool inverted)
{
    QString const path = Unique::Create<ValueSelection>(*this, Unique::eSelection, [](ValueSelection & created) {
        created.AddItems({ { QStringLiteral("Off"), 0.0, 0 }, { QStringLiteral("On"), 1.0, 1 } });
    });
    Unrecorded const unrecorded;
    m_selectionCouplers.push_back(std::make_unique<BoolSelectionCoupler>(boolPath, path, inverted));
    return path;
}

void GuiCentral::RemoveUniqueValues(Tree * tree)
{
    for (Unique::Kind const & kind : Unique::Kinds) {
        int & count = this->*kind.count; // observers may create further ones, or end it all themselves
        int left = MaxAdded;
        int const known = count;
        unsigned int const removal = ++m_removals;
        int number = kind.first;
        for (; tree && m_removals == removal && number < count && (number < known || left-- > 0); ++number) {
            QString const path = Unique::Path(kind, Name(kind.name, number));
            if (tree->Find(path))
                tree->Remove(path);
        }
        // what a farewell created once it had ended all of this kind stays until the next end, and keeps its number
        if (m_removals == removal && (!tree || number >= count))
            count = 0;
    }
}
