// SPDX-License-Identifier: MIT
#include "axispropertypage.h"

#include "azimuthdisplayselect.h"
#include "iunittextprovider.h"
#include "vccomboboxclassic.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QCoreApplication>
#include <QFocusEvent>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QStyleOptionComboBox>
#include <QStylePainter>
#include <QVBoxLayout>

#include <cmath>

namespace {

constexpr int EditWidth = 180; // px, of edits and selector

//! Combo box that is too narrow for its texts: it leaves words out, shows the whole one as tool tip, and opens
//! as wide as they are.
class ModeSelector : public VCComboBoxClassic
{
public:
    using VCComboBoxClassic::VCComboBoxClassic;

    void showPopup() override
    {
        int const beside = view()->verticalScrollBar()->sizeHint().width() + 2 * view()->frameWidth();
        view()->setMinimumWidth(view()->sizeHintForColumn(0) + beside);
        VCComboBoxClassic::showPopup();
    }

protected:
    bool event(QEvent * event) override
    {
        if (event->type() == QEvent::ToolTip)
            setToolTip(currentText());
        return VCComboBoxClassic::event(event);
    }

    void paintEvent(QPaintEvent * /*event*/) override
    {
        QStylePainter painter(this);
        QStyleOptionComboBox option;
        initStyleOption(&option);
        painter.setPen(palette().color(QPalette::Text)); // of a label that a style draws without a role
        painter.drawComplexControl(QStyle::CC_ComboBox, option);
        QRect const field = style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
        option.currentText = Shortened(option.currentText, field.width() - 2); // the label has a margin of a pixel
        painter.drawControl(QStyle::CE_ComboBoxLabel, option);
    }

private:
    //! A text that fits into \a room px. What is left out stands before the last word, which tells the modes apart.
    QString Shortened(QString const & text, int room) const
    {
        QFontMetrics const metrics = fontMetrics();
        if (metrics.horizontalAdvance(text) <= room)
            return text;
        auto const blank = text.lastIndexOf(QLatin1Char(' '));
        if (blank < 0)
            return metrics.elidedText(text, Qt::ElideRight, room);
        QString const lastWord = text.mid(blank);
        return metrics.elidedText(text.chopped(lastWord.size()), Qt::ElideRight,
                                  room - metrics.horizontalAdvance(lastWord)) +
               lastWord;
    }
};

} // namespace

AxisPropertyPage::AxisPropertyPage(QWidget * parent, char const * name, IUnitTextProvider * provider, bool autoScale)
    : QWidget(parent)
    , m_pProvider(provider)
    , m_pProviderObject(dynamic_cast<QObject *>(provider))
    , m_providerIsObject(m_pProviderObject != nullptr)
    , m_autoScaleWanted(autoScale)
{
    setObjectName(QString::fromLatin1(name));
    if (provider)
        m_unitText = provider->GetPropertyPageUnitText();
    Init();
}

AxisPropertyPage::AxisPropertyPage(QWidget * parent, char const * name, QString const & unit, bool autoScale)
    : QWidget(parent)
    , m_autoScaleWanted(autoScale)
    , m_unitText(unit)
{
    setObjectName(QString::fromLatin1(name));
    Init();
}

AxisPropertyPage::~AxisPropertyPage()
{
    for (QLineEdit * const edit : { m_pStartEdit.data(), m_pStopEdit.data() }) {
        if (!edit)
            continue;
        edit->removeEventFilter(this); // an edit with the focus speaks once more when it is hidden
        edit->disconnect(this);
    }
    m_azimuth.Release();
}

void AxisPropertyPage::Init()
{
    auto * const layout = new QVBoxLayout(this);
    layout->setObjectName(QStringLiteral("mainLayout"));
    auto * const grid = new QGridLayout;
    grid->setObjectName(QStringLiteral("grid"));
    grid->setColumnStretch(4, 2);
    layout->addLayout(grid);

    int const row = AddAutoScale(grid);
    AddAzimuth(grid, row);
    m_pStartEdit = AddEdit(grid, row + 2, tr("Display values from (min)"), "start");
    m_pStopEdit = AddEdit(grid, row + 3, tr("to (max)"), "stop");
    grid->setRowStretch(row + 4, 1);
    connect(m_pStartEdit, &QLineEdit::editingFinished, this, &AxisPropertyPage::SlotStartEditFinished);
    connect(m_pStopEdit, &QLineEdit::editingFinished, this, &AxisPropertyPage::SlotStopEditFinished);
}

int AxisPropertyPage::AddAutoScale(QGridLayout * grid)
{
    if (!m_autoScaleWanted)
        return 0;
    m_pAutoScale = new QCheckBox(tr("Automatic Scaling"), this);
    m_pAutoScale->setObjectName(QStringLiteral("autoScale"));
    connect(m_pAutoScale, &QCheckBox::clicked, this, &AxisPropertyPage::SlotEnableAutoScale);
    grid->addWidget(m_pAutoScale, 0, 0);
    return 1;
}

void AxisPropertyPage::AddAzimuth(QGridLayout * grid, int row)
{
    m_pAzimuthLabel = new QLabel(tr("Azimuth Display Range:"), this);
    m_pAzimuthSelector = new ModeSelector(this, "AzimuthMode");
    m_pAzimuthSelector->setFixedWidth(EditWidth);
    QString const path = AzimuthDisplaySelect::Instance().CreateValueSelection();
    m_azimuth.Bind(path);
    m_pAzimuthSelector->SetValueSelection_ValuePath(path);
    m_pAzimuthSelector->SetUndoRecorded(false); // it changes nothing but this page
    m_pAzimuthLabel->setBuddy(m_pAzimuthSelector);
    m_pHintLabel = new QLabel(tr("Enter Absolute Values here:"), this);
    grid->addWidget(m_pAzimuthLabel, row, 0);
    grid->addWidget(m_pAzimuthSelector, row, 1);
    grid->addWidget(m_pHintLabel, row + 1, 0);
    SetAzimuthMode(false);
}

QLineEdit * AxisPropertyPage::AddEdit(QGridLayout * grid, int row, QString const & text, char const * name)
{
    auto * const label = new QLabel(text, this);
    auto * const edit = new QLineEdit(this);
    edit->setObjectName(QString::fromLatin1(name));
    edit->setFixedWidth(EditWidth);
    edit->setAccessibleDescription(m_unitText);
    edit->installEventFilter(this);
    label->setBuddy(edit);
    auto * const unit = new QLabel(this);
    unit->setTextFormat(Qt::PlainText);
    unit->setText(m_unitText);
    grid->addWidget(label, row, 0);
    grid->addWidget(edit, row, 1);
    grid->addWidget(unit, row, 2);
    return edit;
}

void AxisPropertyPage::SetStart(double value, double minimum, double maximum, double lastShown)
{
    SetEnd(m_start, m_startLimits, value, { minimum, maximum, lastShown }, m_pStartEdit);
}

void AxisPropertyPage::SetStop(double value, double minimum, double maximum, double lastShown)
{
    SetEnd(m_stop, m_stopLimits, value, { minimum, maximum, lastShown }, m_pStopEdit);
}

void AxisPropertyPage::SetEnd(double & held, End & end, double value, End const & limits, QLineEdit * edit)
{
    end = limits;
    if (std::isfinite(value))
        held = value;
    Show(held, edit);
}

void AxisPropertyPage::CheckStart() { m_start = Limited(m_start, m_startLimits); }

void AxisPropertyPage::CheckStop() { m_stop = Limited(m_stop, m_stopLimits); }

double AxisPropertyPage::Limited(double value, End const & end) const
{
    if (m_azimuthMode)
        return value;
    double limited = value;
    if (end.maximum != NoLimit && limited > end.maximum) // false for a limit that is NaN
        limited = end.maximum;
    if (end.minimum != NoLimit && limited < end.minimum)
        limited = end.minimum;
    return limited;
}

void AxisPropertyPage::Show(double value, QLineEdit * edit)
{
    if (!edit)
        return;
    QPointer<QLineEdit> const target(edit);
    QString const text = Write(value);    // may delete this
    if (target && target->text() != text) // the same one would take selection and undo from the edit
        target->setText(text);
}

QLineEdit * AxisPropertyPage::GetStartEdit() const { return m_pStartEdit; }

QLineEdit * AxisPropertyPage::GetStopEdit() const { return m_pStopEdit; }

IUnitTextProvider * AxisPropertyPage::Provider() const
{
    if (!m_providerIsObject)
        return m_pProvider;
    return dynamic_cast<IUnitTextProvider *>(m_pProviderObject.data()); // null for what is left of a widget that ends
}

QString AxisPropertyPage::Write(double value) const
{
    if (IUnitTextProvider * const provider = Provider())
        return provider->double2String(value, nullptr);
    return QStringLiteral("%1").arg(value, 0, 'g', -1, QLatin1Char(' '));
}

double AxisPropertyPage::Read(QString const & text, double old) const
{
    IUnitTextProvider * const provider = Provider();
    double const number = provider ? provider->String2double(text) : text.toDouble(); // may delete this
    if (std::isfinite(number))
        return number;
    return provider ? old : 0.0;
}

void AxisPropertyPage::SetAutoScale(bool on)
{
    if (!m_pAutoScale)
        return;
    m_pAutoScale->setChecked(on);
    SlotEnableAutoScale();
    m_modified = true;
}

bool AxisPropertyPage::GetAutoScale() const { return !m_pAutoScale || m_pAutoScale->isChecked(); }

void AxisPropertyPage::SlotEnableAutoScale()
{
    if (!m_pAutoScale)
        return;
    for (QLineEdit * const edit : { m_pStartEdit.data(), m_pStopEdit.data() })
        if (edit)
            edit->setEnabled(!m_pAutoScale->isChecked());
}

void AxisPropertyPage::SetAzimuthMode(bool on)
{
    m_azimuthMode = on;
    for (QWidget * const widget : { static_cast<QWidget *>(m_pAzimuthSelector), static_cast<QWidget *>(m_pAzimuthLabel),
                                    static_cast<QWidget *>(m_pHintLabel) })
        if (widget)
            widget->setVisible(on);
}

bool AxisPropertyPage::GetAzimuthMode(long & key) const
{
    ValueSelection const * const selection = m_pAzimuthSelector ? m_pAzimuthSelector->GetValueSelection() : nullptr;
    key = selection ? selection->GetCurrentKey() : 0;
    return m_azimuthMode;
}

bool AxisPropertyPage::GetDirty() const { return m_modified || (m_pAzimuthSelector && m_pAzimuthSelector->GetDirty()); }

void AxisPropertyPage::DoKillFocus()
{
    for (QPointer<QLineEdit> const & edit : { m_pStartEdit, m_pStopEdit }) { // copies: this may be deleted
        if (!edit)
            continue;
        QFocusEvent event(QEvent::FocusOut, Qt::OtherFocusReason);
        QCoreApplication::sendEvent(edit, &event);
    }
}

void AxisPropertyPage::SlotStartEditFinished()
{
    m_modified = true;
    if (m_pStartEdit)
        UpdateAfterEditFinished(m_pStartEdit->text(), m_start, m_pStartEdit);
}

void AxisPropertyPage::SlotStopEditFinished()
{
    m_modified = true;
    if (m_pStopEdit)
        UpdateAfterEditFinished(m_pStopEdit->text(), m_stop, m_pStopEdit);
}

void AxisPropertyPage::UpdateAfterEditFinished(QString text, double old, QObject * edit)
{
    QPointer<AxisPropertyPage> const self(this);
    double const number = Read(text, old);
    if (!self)
        return;
    m_modified = m_modified || number != old;
    if (!edit)
        return;
    bool const isStart = edit == m_pStartEdit;
    if (!isStart && edit != m_pStopEdit)
        return;
    double & held = isStart ? m_start : m_stop;
    if (m_modified)
        held = Limited(number, isStart ? m_startLimits : m_stopLimits);
    Show(held, isStart ? m_pStartEdit : m_pStopEdit);
}

bool AxisPropertyPage::eventFilter(QObject * object, QEvent * event)
{
    if (event->type() != QEvent::FocusOut || (object != m_pStartEdit && object != m_pStopEdit))
        return false;
    auto * const edit = static_cast<QLineEdit *>(object);
    QPointer<QObject> const watched(object);
    UpdateAfterEditFinished(edit->text(), object == m_pStartEdit ? m_start : m_stop, object);
    return !watched; // the event has nobody to go to any more
}
