// SPDX-License-Identifier: MIT
#include "colorset.h"

#include "coloredits.h"
#include "colors.h"
#include "colorsetctrl.h"
#include "colortable.h"
#include "guibase.h"
#include "persistant.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QSignalBlocker>

#include <algorithm>

namespace {

bool IsSet(int set) { return set >= 0 && set < ColorTable::SetCount; }

ColorTable::Row const * FindRow(int number)
{
    auto const below = [](ColorTable::Row const & row, int wanted) { return row.number < wanted; };
    auto const & rows = ColorTable::Colors;
    auto const found = std::lower_bound(rows.begin(), rows.end(), number, below);
    return found != rows.end() && found->number == number ? &*found : nullptr;
}

QColor FactoryColor(ColorTable::Row const & row, int set)
{
    return QColor::fromRgb(row.rgb[static_cast<std::size_t>(set)]);
}

//! What of some colours differs from the factory.
QMap<int, QColor> EditsOf(int set, QMap<int, QColor> const & colors)
{
    QMap<int, QColor> edits;
    for (auto const & row : ColorTable::Colors) {
        QColor const color = colors.value(row.number);
        if (color.isValid() && color.rgb() != FactoryColor(row, set).rgb())
            edits.insert(row.number, QColor::fromRgb(color.rgb()));
    }
    return edits;
}

//! The edits of one set as an item of the store.
class StoredEdits : public PersistantObject
{
public:
    StoredEdits(QString const & key, QMap<int, QColor> & edits) : m_key(key), m_edits(edits) {}

    void Read(ICfg * store) override { m_edits = ColorEdits::FromText(store->ReadString(m_key, QString())); }

    void Write(ICfg * store) override { store->WriteString(m_key, ColorEdits::ToText(m_edits)); }

    void RestoreDefault() override { m_edits.clear(); }

private:
    QString m_key;
    QMap<int, QColor> & m_edits; // of the table, which lives longer
};

// Keys of the edits in the store, by set.
constexpr std::array<char const *, ColorTable::SetCount> EditKeys{ { "DayEdits", "NightEdits", "HighContrastEdits" } };

} // namespace

ColorSet::ColorSet()
    : m_edits(ColorTable::SetCount)
    , m_pPersistant(std::make_unique<Persistant>(QStringLiteral("ColorSet")))
{
    static_assert(ColorTable::Colors.back().number + 1 == m_sTableLength, "every number has its place");
    m_pPersistant->Add(&m_current, QStringLiteral("Set"), 0);
    for (std::size_t set = 0; set < m_edits.size(); ++set)
        m_pPersistant->Add(new StoredEdits(QString::fromLatin1(EditKeys[set]), m_edits[set]));
    ReadSettings();
    connect(&GuiBase::Instance(), &GuiBase::signalColorsChanged, this, &ColorSet::KeepEdits);
}

ColorSet::~ColorSet() = default;

ColorSet & ColorSet::Instance()
{
    static auto * const table = new ColorSet; // never destroyed: colours may be asked for at process exit
    return *table;
}

QColor & ColorSet::operator[](ECOLOR number)
{
    auto const place = static_cast<std::size_t>(number); // a negative number is beyond the end
    if (place < m_sTableLength && FindRow(number))
        return m_live[place];
    m_spare = m_live[eColorAxisForeground];
    return m_spare;
}

bool ColorSet::Load(int set)
{
    if (!IsSet(set))
        return false;
    CollectEdits();
    m_current = set;
    TakeLive();
    WriteSettings();
    GuiBase::Instance().emit_signalColorsChanged();
    return true;
}

int ColorSet::GetSetCount() { return ColorTable::SetCount; }

QString ColorSet::GetSetName(int set)
{
    return IsSet(set) ? tr(ColorTable::SetNames[static_cast<std::size_t>(set)]) : QString();
}

std::vector<int> ColorSet::GetNumbers()
{
    std::vector<int> numbers;
    numbers.reserve(ColorTable::Colors.size());
    for (auto const & row : ColorTable::Colors)
        numbers.push_back(row.number);
    return numbers;
}

QString ColorSet::GetColorName(int number)
{
    ColorTable::Row const * const row = FindRow(number);
    return row ? tr(row->name) : QString();
}

QMap<int, QColor> ColorSet::GetFactoryColors(int set)
{
    QMap<int, QColor> colors;
    if (!IsSet(set))
        return colors;
    for (auto const & row : ColorTable::Colors)
        colors.insert(row.number, FactoryColor(row, set));
    return colors;
}

QMap<int, QColor> ColorSet::GetColors(int set) const
{
    QMap<int, QColor> colors = GetFactoryColors(set);
    if (set == m_current) {
        for (auto color = colors.begin(); color != colors.end(); ++color)
            color.value() = m_live[static_cast<std::size_t>(color.key())];
    } else if (IsSet(set)) {
        QMap<int, QColor> const & edits = m_edits[static_cast<std::size_t>(set)];
        for (auto edit = edits.cbegin(); edit != edits.cend(); ++edit)
            colors.insert(edit.key(), edit.value());
    }
    return colors;
}

void ColorSet::Apply(int set, std::vector<QMap<int, QColor>> const & colors)
{
    if (!IsSet(set))
        return;
    CollectEdits();
    std::size_t const count = std::min(colors.size(), m_edits.size());
    for (std::size_t i = 0; i < count; ++i)
        m_edits[i] = EditsOf(static_cast<int>(i), colors[i]);
    m_current = set;
    TakeLive();
    WriteSettings();
    GuiBase::Instance().emit_signalColorsChanged();
}

QPalette ColorSet::GetPalette() const
{
    auto const color = [this](ECOLOR number) { return m_live[static_cast<std::size_t>(number)]; };
    QPalette palette(color(eColorButton), color(eColorWindow));
    palette.setColor(QPalette::WindowText, color(eColorWindowText));
    palette.setColor(QPalette::Base, color(eColorEntry));
    palette.setColor(QPalette::AlternateBase, color(eColorWindow));
    palette.setColor(QPalette::Text, color(eColorEntryText));
    palette.setColor(QPalette::PlaceholderText, color(eColorDisabledText));
    palette.setColor(QPalette::Highlight, color(eColorSelection));
    palette.setColor(QPalette::HighlightedText, color(eColorSelectedText));
    palette.setColor(QPalette::ButtonText, color(eColorButtonText));
    palette.setColor(QPalette::ToolTipBase, color(eColorEntry));
    palette.setColor(QPalette::ToolTipText, color(eColorEntryText));
    for (QPalette::ColorRole const role : { QPalette::WindowText, QPalette::Text, QPalette::ButtonText })
        palette.setColor(QPalette::Disabled, role, color(eColorDisabledText));
    return palette;
}

QComboBox * ColorSet::GetColorSetsComboBox(QWidget * parent)
{
    auto * const combo = new QComboBox(parent);
    UpdateComboBox(combo);
    return combo;
}

void ColorSet::UpdateComboBox(QComboBox * combo)
{
    if (!combo)
        return;
    QSignalBlocker const silent(combo);
    combo->clear();
    for (int set = 0; set < ColorTable::SetCount; ++set)
        combo->addItem(GetSetName(set));
    combo->setCurrentIndex(Instance().GetCurrentSet());
}

QWidget * ColorSet::GetCtrl(QWidget * parent)
{
    QWidget * const ctrl = GetPropertyPage(parent, nullptr);
    QWidget const * const window = parent ? parent->window() : nullptr;
    // a dialog of a higher layer: known by its signal alone
    if (window && window->metaObject()->indexOfSignal("applyButtonPressed()") >= 0)
        connect(window, SIGNAL(applyButtonPressed()), ctrl, SLOT(slotAccept()));
    return ctrl;
}

QWidget * ColorSet::GetPropertyPage(QWidget * parent, char const * name)
{
    auto * const ctrl = new ColorSetCtrl(parent, name);
    m_ctrls = LiveCtrls();
    m_ctrls.emplace_back(ctrl);
    return ctrl;
}

std::vector<QPointer<ColorSetCtrl>> ColorSet::LiveCtrls()
{
    auto const ended = [](QPointer<ColorSetCtrl> const & ctrl) { return ctrl.isNull(); };
    m_ctrls.erase(std::remove_if(m_ctrls.begin(), m_ctrls.end(), ended), m_ctrls.end());
    return m_ctrls;
}

QString const & ColorSet::GetPropertyPagePath()
{
    m_pagePath = tr("Colors");
    return m_pagePath;
}

void ColorSet::slotAcceptPropertyChanges()
{
    for (QPointer<ColorSetCtrl> const & ctrl : LiveCtrls())
        if (ctrl) // a listener may end them
            ctrl->slotAccept();
}

void ColorSet::slotCancelPropertyChanges()
{
    for (QPointer<ColorSetCtrl> const & ctrl : LiveCtrls())
        ctrl->slotCancel();
}

void ColorSet::slotDefaultPropertyChanges()
{
    for (QPointer<ColorSetCtrl> const & ctrl : LiveCtrls())
        ctrl->slotDefault();
}

void ColorSet::slotRestoreFactoryColors()
{
    std::fill(m_edits.begin(), m_edits.end(), QMap<int, QColor>());
    TakeLive();
    WriteSettings();
    GuiBase::Instance().emit_signalColorsChanged();
}

void ColorSet::slotReadSettings()
{
    ReadSettings();
    GuiBase::Instance().emit_signalColorsChanged();
}

void ColorSet::ReadSettings()
{
    m_pPersistant->Read(QString(), 0);
    m_current = IsSet(m_current) ? m_current : 0;
    for (int set = 0; set < ColorTable::SetCount; ++set) {
        QMap<int, QColor> & edits = m_edits[static_cast<std::size_t>(set)];
        edits = EditsOf(set, edits); // what a store of other make names beyond the table is left out
    }
    TakeLive();
}

void ColorSet::WriteSettings() { m_pPersistant->Write(QString(), 0); }

bool ColorSet::CollectEdits()
{
    QMap<int, QColor> & kept = m_edits[static_cast<std::size_t>(m_current)];
    QMap<int, QColor> const edits = EditsOf(m_current, GetColors(m_current));
    bool const differ = edits != kept;
    kept = edits;
    return differ;
}

void ColorSet::KeepEdits()
{
    if (CollectEdits())
        WriteSettings();
}

void ColorSet::TakeLive()
{
    auto const set = static_cast<std::size_t>(m_current);
    for (auto const & row : ColorTable::Colors)
        m_live[static_cast<std::size_t>(row.number)] = m_edits[set].value(row.number, FactoryColor(row, m_current));
    Colors::Instance().Load(m_current);
}
