// SPDX-License-Identifier: MIT
#include "colorsetctrl.h"

#include "colorcontrast.h"
#include "colorpreview.h"
#include "colorset.h"
#include "colortable.h"
#include "guibase.h"

#include <QColorDialog>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPainter>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <algorithm>

namespace {

QIcon Swatch(QColor const & color, QSize const & size, QColor const & frame)
{
    QPixmap picture(size);
    picture.fill(frame);
    QPainter painter(&picture);
    painter.fillRect(QRect(QPoint(1, 1), size - QSize(2, 2)), color);
    painter.end();
    QIcon icon;
    icon.addPixmap(picture, QIcon::Normal);
    icon.addPixmap(picture, QIcon::Selected); // a selected swatch keeps its colour
    return icon;
}

ColorTable::Ground const * FindGround(int number)
{
    auto const & grounds = ColorTable::Grounds;
    auto const found = std::find_if(grounds.begin(), grounds.end(),
                                    [number](ColorTable::Ground const & row) { return row.number == number; });
    return found == grounds.end() ? nullptr : &*found;
}

} // namespace

ColorSetCtrl::ColorSetCtrl(QWidget * parent, char const * name) : QWidget(parent)
{
    setObjectName(name ? QString::fromLatin1(name) : QStringLiteral("ColorSetCtrl"));
    Build();
    Reread();
    m_pList->setCurrentRow(0);
    connect(m_pSets, qOverload<int>(&QComboBox::currentIndexChanged), this, &ColorSetCtrl::slotSetChosen);
    connect(m_pList, &QListWidget::currentRowChanged, this, &ColorSetCtrl::slotColorChosen);
    connect(m_pList, &QListWidget::itemActivated, this, &ColorSetCtrl::slotChange);
    connect(m_pChange, &QPushButton::clicked, this, &ColorSetCtrl::slotChange);
    connect(m_pFactory, &QPushButton::clicked, this, &ColorSetCtrl::slotFactoryColor);
    connect(&GuiBase::Instance(), &GuiBase::signalColorsChanged, this, &ColorSetCtrl::slotTableChanged);
    slotColorChosen();
}

void ColorSetCtrl::Build()
{
    auto * const layout = new QHBoxLayout(this);
    layout->addWidget(BuildList(), 1);
    layout->addWidget(BuildSide(), 2);
}

QWidget * ColorSetCtrl::BuildList()
{
    auto * const side = new QWidget(this);
    m_pSets = ColorSet::GetColorSetsComboBox(side);
    m_pSets->setObjectName(QStringLiteral("ColorSetCombo"));
    auto * const label = new QLabel(tr("Color &set:"), side);
    label->setBuddy(m_pSets);
    m_pList = new QListWidget(side);
    m_pList->setObjectName(QStringLiteral("ColorList"));
    m_pList->setIconSize(QSize(2, 1) * fontMetrics().height());
    for (int const number : ColorSet::GetNumbers()) {
        auto * const item = new QListWidgetItem(ColorSet::GetColorName(number), m_pList);
        item->setData(Qt::UserRole, number);
    }
    m_pList->setMinimumWidth(m_pList->sizeHintForColumn(0) + 3 * m_pList->iconSize().width());

    auto * const grid = new QGridLayout(side);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->addWidget(label, 0, 0);
    grid->addWidget(m_pSets, 0, 1);
    grid->addWidget(m_pList, 1, 0, 1, 2);
    grid->setColumnStretch(1, 1);
    return side;
}

QWidget * ColorSetCtrl::BuildSide()
{
    auto * const side = new QWidget(this);
    m_pPreview = new ColorPreview(side);
    m_pPreview->setObjectName(QStringLiteral("ColorPreview"));
    m_pContrast = new QLabel(side);
    m_pContrast->setObjectName(QStringLiteral("ColorContrast"));
    m_pContrast->setWordWrap(true);
    m_pContrast->setMinimumHeight(2 * fontMetrics().lineSpacing());
    m_pContrast->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    m_pChange = new QPushButton(tr("&Change..."), side);
    m_pChange->setObjectName(QStringLiteral("ColorChange"));
    m_pFactory = new QPushButton(tr("&Factory color"), side);
    m_pFactory->setObjectName(QStringLiteral("ColorFactory"));

    auto * const buttons = new QHBoxLayout;
    buttons->addWidget(m_pChange);
    buttons->addWidget(m_pFactory);
    buttons->addStretch(1);
    auto * const column = new QVBoxLayout(side);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(m_pPreview, 1);
    column->addWidget(m_pContrast);
    column->addLayout(buttons);
    return side;
}

int ColorSetCtrl::GetShownSet() const { return m_pSets->currentIndex(); }

QColor ColorSetCtrl::GetColor(int number) const
{
    return m_colors.at(static_cast<std::size_t>(GetShownSet())).value(number);
}

int ColorSetCtrl::GetNumber() const
{
    QListWidgetItem const * const item = m_pList->currentItem();
    return item ? item->data(Qt::UserRole).toInt() : 0;
}

void ColorSetCtrl::Reread()
{
    m_colors.clear();
    for (int set = 0; set < ColorSet::GetSetCount(); ++set)
        m_colors.push_back(ColorSet::Instance().GetColors(set));
    ColorSet::UpdateComboBox(m_pSets);
    m_dirty = false;
    ShowColors();
}

void ColorSetCtrl::ShowColors()
{
    QColor const frame = palette().color(QPalette::Text);
    for (int row = 0; row < m_pList->count(); ++row) {
        QListWidgetItem * const item = m_pList->item(row);
        QColor const color = GetColor(item->data(Qt::UserRole).toInt());
        item->setIcon(Swatch(color, m_pList->iconSize(), frame));
        item->setToolTip(color.name());
    }
    m_pPreview->SetColors(m_colors.at(static_cast<std::size_t>(GetShownSet())));
    ShowContrast();
}

void ColorSetCtrl::ShowContrast()
{
    int const number = GetNumber();
    ColorTable::Ground const * const ground = FindGround(number);
    if (!ground) {
        m_pContrast->clear();
        return;
    }
    double const ratio = ColorContrast::Ratio(GetColor(number), GetColor(ground->ground));
    QString const text =
        tr("Contrast %1 : 1 on \"%2\"").arg(ratio, 0, 'f', 1).arg(ColorSet::GetColorName(ground->ground));
    m_pContrast->setText(ratio >= ground->minimum
                             ? text
                             : text + tr(", less than the %1 : 1 that reads well").arg(ground->minimum, 0, 'f', 1));
}

void ColorSetCtrl::SetColor(int number, QColor const & color)
{
    QMap<int, QColor> & colors = m_colors.at(static_cast<std::size_t>(GetShownSet()));
    if (!color.isValid() || !colors.contains(number) || colors.value(number) == color)
        return;
    colors[number] = color;
    m_dirty = true;
    ShowColors();
}

void ColorSetCtrl::slotSetChosen()
{
    m_dirty = true;
    ShowColors();
    slotColorChosen();
}

void ColorSetCtrl::slotColorChosen()
{
    bool const chosen = GetNumber() != 0;
    m_pChange->setEnabled(chosen);
    m_pFactory->setEnabled(chosen);
    ShowContrast();
    m_colorBefore = GetColor(GetNumber());
    if (!m_pDialog || !chosen)
        return;
    QSignalBlocker const silent(m_pDialog); // it follows the list, it does not answer
    m_pDialog->setCurrentColor(m_colorBefore);
    m_pDialog->setWindowTitle(ColorSet::GetColorName(GetNumber()));
}

void ColorSetCtrl::slotChange()
{
    if (GetNumber() == 0)
        return;
    if (!m_pDialog) {
        m_pDialog = new QColorDialog(this);
        m_pDialog->setObjectName(QStringLiteral("ColorDialog"));
        m_pDialog->setOption(QColorDialog::DontUseNativeDialog);
        m_pDialog->setAttribute(Qt::WA_DeleteOnClose);
        connect(m_pDialog, &QColorDialog::currentColorChanged, this,
                [this](QColor const & color) { SetColor(GetNumber(), color); });
        connect(m_pDialog, &QColorDialog::rejected, this, [this] { SetColor(GetNumber(), m_colorBefore); });
    }
    slotColorChosen();
    m_pDialog->show();
    m_pDialog->raise();
    m_pDialog->activateWindow();
}

void ColorSetCtrl::slotFactoryColor()
{
    SetColor(GetNumber(), ColorSet::GetFactoryColors(GetShownSet()).value(GetNumber()));
    slotColorChosen();
}

void ColorSetCtrl::slotAccept()
{
    if (!m_dirty)
        return;
    m_dirty = false;
    ColorSet::Instance().Apply(GetShownSet(), m_colors);
}

void ColorSetCtrl::slotCancel()
{
    Reread();
    slotColorChosen();
}

void ColorSetCtrl::slotDefault()
{
    for (int set = 0; set < ColorSet::GetSetCount(); ++set)
        m_colors.at(static_cast<std::size_t>(set)) = ColorSet::GetFactoryColors(set);
    m_dirty = true;
    ShowColors();
    slotColorChosen();
}

void ColorSetCtrl::slotTableChanged()
{
    if (m_dirty)
        return; // the operator's input is worth more
    Reread();
    slotColorChosen();
}
