// SPDX-License-Identifier: MIT
#include "consolesettings.h"

#include "colorset.h"
#include "consolevalues.h"
#include "consolewindow.h"
#include "guibase.h"
#include "panestack.h"
#include "spectrumengine.h"
#include "tree.h"
#include "valueselection.h"

#include <QStringList>

#include <array>
#include <functional>
#include <utility>

namespace {

constexpr char const * Section = "orim-console";
constexpr int MostSplitterText = 4096;

//! An item that is a text of its own.
class TextItem : public PersistantObject
{
public:
    TextItem(QString key, std::function<QString()> get, std::function<void(QString const &)> set)
        : m_key(std::move(key))
        , m_get(std::move(get))
        , m_set(std::move(set))
    {}

    void Read(ICfg * store) override { m_set(store->ReadString(m_key, QString())); }

    void Write(ICfg * store) override { store->WriteString(m_key, m_get()); }

    void RestoreDefault() override { m_set(QString()); }

private:
    QString m_key;
    std::function<QString()> m_get;
    std::function<void(QString const &)> m_set; // the empty text: what was never stored
};

struct ValueRow
{
    char const * path;
    char const * key;
    double start;
};

constexpr std::array<ValueRow, 2> NumberRows{ {
    { ConsolePaths::LineRate, "lineRate", 25.0 },
    { ConsolePaths::Averaging, "averaging", 0.0 },
} };

constexpr std::array<ValueRow, 6> SelectionRows{ {
    { ConsolePaths::Bins, "bins", 2048.0 },
    { ConsolePaths::Window, "window", SpectrumEngine::eWindowHann },
    { ConsolePaths::Gradient, "gradient", 0.0 },
    { ConsolePaths::Hold, "hold", 4.0 },
    { ConsolePaths::Quality, "quality", 1.0 },
    { ConsolePaths::TimeZone, "timeZone", 0.0 },
} };

struct FlagRow
{
    char const * path;
    char const * key;
};

constexpr std::array<FlagRow, 3> FlagRows{ {
    { ConsolePaths::PersistenceShown, "persistenceShown" },
    { ConsolePaths::AzimuthShown, "azimuthShown" },
    { ConsolePaths::ElevationShown, "elevationShown" },
} };

//! Two finite levels of a text "min;max".
bool ReadLevels(QString const & text, double & min, double & max)
{
    QStringList const parts = text.split(QLatin1Char(';'));
    if (parts.size() != 2)
        return false;
    bool isMin = false;
    bool isMax = false;
    min = parts[0].toDouble(&isMin);
    max = parts[1].toDouble(&isMax);
    return isMin && isMax && max - min >= ConsoleValues::LeastLevelSpan;
}

} // namespace

ConsoleSettings::ConsoleSettings(ConsoleWindow & window) : m_window(window), m_group(QStringLiteral("Console"))
{
    AddValues();
    AddTexts();
}

void ConsoleSettings::AddValues()
{
    Tree const * const tree = Tree::Instance();
    if (!tree)
        return;
    for (ValueRow const & row : NumberRows)
        m_group.Add(tree->FindAs<ValueNumeric<double>>(QLatin1String(row.path)), QLatin1String(row.key), row.start);
    for (ValueRow const & row : SelectionRows)
        m_group.Add(tree->FindAs<ValueSelection>(QLatin1String(row.path)), QLatin1String(row.key),
                    static_cast<long>(row.start));
    for (FlagRow const & row : FlagRows)
        m_group.Add(tree->FindAs<Value<bool>>(QLatin1String(row.path)), QLatin1String(row.key), false);
}

void ConsoleSettings::AddTexts()
{
    auto const getLevels = [] {
        return QString::number(ConsoleValues::Get(ConsolePaths::LevelMin)) + QLatin1Char(';') +
               QString::number(ConsoleValues::Get(ConsolePaths::LevelMax));
    };
    auto const setLevels = [this](QString const & text) {
        double min = 0.0;
        double max = 0.0;
        m_hasLevels = ReadLevels(text, min, max);
        if (m_hasLevels)
            m_window.Values().SetLevels(min, max);
    };
    auto const getColors = [] { return QString::number(ColorSet::Instance().GetCurrentSet()); };
    auto const setColors = [](QString const & text) {
        bool ok = false;
        int const set = text.toInt(&ok);
        if (ok)
            ColorSet::Instance().Load(set);
    };
    auto const getSplitter = [this] { return QString::fromLatin1(m_window.Splitter().State().toBase64()); };
    auto const setSplitter = [this](QString const & text) {
        if (!text.isEmpty() && text.size() <= MostSplitterText)
            m_window.Splitter().restoreState(QByteArray::fromBase64(text.toLatin1()));
    };
    m_group.Add(new TextItem(QStringLiteral("levels"), getLevels, setLevels));
    m_group.Add(new TextItem(QStringLiteral("colorSet"), getColors, setColors));
    m_group.Add(new TextItem(QStringLiteral("splitter"), getSplitter, setSplitter));
}

bool ConsoleSettings::Read()
{
    GuiBase::Instance().SetMainWidget(&m_window);
    GuiBase::Instance().RestoreWidgetSize();
    m_group.Read(QLatin1String(Section), 0);
    return m_hasLevels;
}

bool ConsoleSettings::Write()
{
    GuiBase::Instance().SetMainWidget(&m_window);
    GuiBase::Instance().StoreWidgetSize();
    return m_group.Write(QLatin1String(Section), 0);
}
