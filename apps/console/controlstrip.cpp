// SPDX-License-Identifier: MIT
#include "controlstrip.h"

#include "flowlayout.h"
#include "panelayout.h"
#include "undorecording.h"
#include "valuefollower.h"
#include "valuenumeric.h"
#include "valueselection.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QSignalBlocker>
#include <QStyleOptionButton>

namespace {

constexpr int Margin = 4; // px, as the one below
constexpr int Spacing = 4;

void ShowItems(QComboBox * box, ValueSelection const * selection)
{
    QSignalBlocker const quiet(box);
    if (!selection)
        return;
    box->clear();
    for (int index = 0; index < selection->GetItemCount(); ++index)
        box->addItem(selection->GetItemAt(index)->GetName(),
                     static_cast<qlonglong>(selection->GetItemAt(index)->GetKey()));
    box->setCurrentIndex(selection->GetCurrentIndex());
}

void ShowNumber(QDoubleSpinBox * box, IValueNumeric const * value, double unit)
{
    QSignalBlocker const quiet(box);
    if (!value)
        return;
    box->setRange(value->GetNumericMin() / unit, value->GetNumericMax() / unit);
    box->setValue(value->GetNumericValue() / unit);
}

//! The number of a box in the unit of the value: at an end of the box, whose ends are rounded to its decimals, the
//! limit itself.
double ReadNumber(QDoubleSpinBox const * box, IValueNumeric const * value, double unit)
{
    if (value && box->value() >= box->maximum())
        return value->GetNumericMax();
    if (value && box->value() <= box->minimum())
        return value->GetNumericMin();
    return box->value() * unit;
}

//! Leaves the keys of undo to the window, but for text that has been typed and is not yet a number.
class NumberBox : public QDoubleSpinBox
{
public:
    explicit NumberBox(QWidget * parent) : QDoubleSpinBox(parent)
    {
        connect(this, &QDoubleSpinBox::editingFinished, lineEdit(), [this] { lineEdit()->setModified(false); });
    }

    bool event(QEvent * event) override
    {
        bool const isOverride = event->type() == QEvent::ShortcutOverride && !lineEdit()->isModified();
        auto * const key = isOverride ? static_cast<QKeyEvent *>(event) : nullptr;
        if (!key || !(key->matches(QKeySequence::Undo) || key->matches(QKeySequence::Redo)))
            return QDoubleSpinBox::event(event);
        event->ignore();
        return false;
    }
};

//! A check box whose indicator is seen on every ground.
class SwitchBox : public QCheckBox
{
public:
    using QCheckBox::QCheckBox;

protected:
    void paintEvent(QPaintEvent * event) override
    {
        QCheckBox::paintEvent(event);
        QStyleOptionButton option;
        initStyleOption(&option);
        QRect const indicator = style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, this);
        QPainter painter(this);
        painter.setPen(PaneLayout::Mix(palette().color(QPalette::Window), palette().color(QPalette::WindowText), 0.5));
        painter.drawRect(indicator.adjusted(0, 0, -1, -1));
    }
};

} // namespace

ControlStrip::ControlStrip(QWidget * parent) : QWidget(parent), m_pLayout(new FlowLayout(this))
{
    setObjectName(QStringLiteral("controlStrip"));
    m_pLayout->setContentsMargins(Margin, Margin, Margin, Margin);
    m_pLayout->setSpacing(Spacing);
}

ControlStrip::~ControlStrip() = default;

QComboBox * ControlStrip::AddSelection(QString const & name, QString const & label, QString const & path)
{
    auto * const box = new QComboBox(this);
    box->setObjectName(name);
    std::size_t const place = m_followers.size();
    m_followers.push_back(
        std::make_unique<ValueFollower>([this, box, place] { ShowItems(box, m_followers[place]->Selection()); }));
    ValueFollower * const follower = m_followers.back().get();
    follower->Bind(path);
    connect(box, qOverload<int>(&QComboBox::activated), this, [box, follower, label](int index) {
        GuiUndoRecordingHelper const step(nullptr, tr("Change of %1").arg(label));
        follower->SetKey(static_cast<long>(box->itemData(index).toLongLong()));
        ShowItems(box, follower->Selection());
    });
    AddControl(label, box);
    return box;
}

QDoubleSpinBox * ControlStrip::AddNumber(QString const & name, QString const & label, QString const & path,
                                         NumberForm const & form)
{
    auto * const box = new NumberBox(this);
    box->setObjectName(name);
    box->setLocale(QLocale::c());
    box->setDecimals(form.decimals);
    box->setSingleStep(form.step);
    box->setSuffix(QLatin1String(form.suffix));
    box->setKeyboardTracking(false);
    if (form.zeroText)
        box->setSpecialValueText(tr(form.zeroText));
    double const unit = form.unit;
    std::size_t const place = m_followers.size();
    m_followers.push_back(std::make_unique<ValueFollower>(
        [this, box, place, unit] { ShowNumber(box, m_followers[place]->Numeric(), unit); }));
    ValueFollower * const follower = m_followers.back().get();
    follower->Bind(path);
    connect(box, qOverload<double>(&QDoubleSpinBox::valueChanged), this, [box, follower, unit, label] {
        GuiUndoRecordingHelper const step(nullptr, tr("Change of %1").arg(label));
        follower->SetNumber(ReadNumber(box, follower->Numeric(), unit));
        ShowNumber(box, follower->Numeric(), unit); // also when the value did not move
    });
    AddControl(label, box);
    return box;
}

void ControlStrip::AddSwitches(QString const & label, std::vector<SwitchForm> const & forms)
{
    auto * const boxes = new QWidget(this);
    auto * const layout = new QHBoxLayout(boxes);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(Spacing);
    for (SwitchForm const & form : forms) {
        auto * const box = new SwitchBox(form.text, boxes);
        box->setObjectName(form.name);
        box->setAccessibleName(label + QLatin1Char(' ') + form.text);
        layout->addWidget(box);
        std::size_t const place = m_followers.size();
        m_followers.push_back(std::make_unique<ValueFollower>([this, box, place] {
            QSignalBlocker const quiet(box);
            box->setChecked(m_followers[place]->Flag(box->isChecked()));
        }));
        ValueFollower * const follower = m_followers.back().get();
        follower->Bind(form.path);
        connect(box, &QCheckBox::toggled, this, [follower](bool on) { follower->SetFlag(on); });
    }
    AddControl(label, boxes);
}

void ControlStrip::AddControl(QString const & label, QWidget * control)
{
    auto * const cell = new QWidget(this);
    auto * const layout = new QHBoxLayout(cell);
    layout->setContentsMargins(0, 0, Margin, 0);
    layout->setSpacing(Spacing);
    if (!label.isEmpty()) {
        auto * const text = new QLabel(label, cell);
        text->setBuddy(control);
        control->setAccessibleName(label);
        layout->addWidget(text);
    }
    layout->addWidget(control);
    m_pLayout->addWidget(cell);
}

void ControlStrip::EnableWith(QString const & path, std::vector<QWidget *> const & controls, QString const & hint)
{
    for (QWidget * const control : controls) {
        std::size_t const place = m_followers.size();
        QString const tip = control->toolTip();
        m_followers.push_back(std::make_unique<ValueFollower>([this, control, place, tip, hint] {
            bool const isOn = m_followers[place]->Flag(control->isEnabled());
            control->setEnabled(isOn);
            control->setToolTip(isOn ? tip : hint);
        }));
        m_followers.back()->Bind(path);
    }
}
