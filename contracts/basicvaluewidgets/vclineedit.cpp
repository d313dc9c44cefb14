// SPDX-License-Identifier: MIT
#include "vclineedit.h"

#include "value.h"
#include "valuenumeric.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPointer>

#include <algorithm>
#include <limits>

namespace {

//! Writes a plain decimal, of which every digit counts; halfway is upward.
//! \return false for any other text, and at the ends of the type.
bool WriteDecimal(ValueNumeric<long long> & value, QString const & number, IObserver * except)
{
    using Limits = std::numeric_limits<long long>;
    int const point = static_cast<int>(number.indexOf(QLatin1Char('.')));
    long long whole = 0;
    if (point < 0 || !ValueText::ToInt64(number.left(point), &whole))
        return false;
    QString const digits = number.mid(point + 1);
    auto const isDigit = [](QChar sign) { return sign >= QLatin1Char('0') && sign <= QLatin1Char('9'); };
    bool const plain = std::all_of(digits.begin(), digits.end(), isDigit);
    if (!plain || whole == Limits::min() || whole == Limits::max())
        return false;
    QString const half = QStringLiteral("5").leftJustified(static_cast<int>(digits.size()), QLatin1Char('0'));
    bool const negative = number.startsWith(QLatin1Char('-'));
    bool const isWhole = digits.count(QLatin1Char('0')) == digits.size();
    long long const below = negative && !isWhole ? whole - 1 : whole;
    bool const upperHalf = !isWhole && (negative ? digits <= half : digits >= half);
    // halfway between two points of an even grid lies a whole number: the fraction does not decide
    bool const evenGrid = value.GetStep() > 0 && value.GetStep() % 2 == 0;
    value.SetValue(upperHalf && !evenGrid ? below + 1 : below, except);
    return true;
}

} // namespace

VCLineEdit::VCLineEdit(QWidget * parent, char const * name, LineEditType type) : QLineEdit(parent)
{
    setObjectName(QString::fromLatin1(name));
    setReadOnly(type == eLineEditReadOnly);
    installEventFilter(this);
    connect(this, &QLineEdit::editingFinished, this, &VCLineEdit::slotFinished);
}

VCLineEdit::~VCLineEdit() = default;

bool VCLineEdit::SetValue_ValuePath(QString const & path)
{
    setModified(false); // typing was meant for the value before
    return m_value.BindPath(path);
}

void VCLineEdit::Update(Observable * subject, TChangeCode code)
{
    if (m_value.Hears(subject, code) && code == eValueChanged && !isModified())
        ShowValue();
}

void VCLineEdit::ShowValue()
{
    if (m_value.Get())
        setText(m_value.Get()->GetStringValue());
    setModified(false);
}

void VCLineEdit::slotFinished()
{
    if (!isModified())
        return;
    setModified(false); // from here on a change from elsewhere is shown
    QPointer<VCLineEdit> const self(this);
    if (m_value.Get()) {
        bool const taken = Write(text());
        if (!self)
            return;
        if (!taken)
            QApplication::beep();
        ShowValue();
    }
    Q_EMIT signalTextFinal(text());
}

bool VCLineEdit::Write(QString const & text)
{
    ValueBase * const value = m_value.Get();
    GuiUndoRecordingHelper const recording(this, tr("Set %1").arg(value->GetName()));
    auto * const numeric = dynamic_cast<IValueNumeric *>(value);
    if (!numeric)
        return value->SetStringValue(text, this);
    QString const number = QString(text).replace(QLatin1Char(','), QLatin1Char('.')).trimmed();
    if (value->SetStringValue(number, this))
        return true;
    auto * const wide = dynamic_cast<ValueNumeric<long long> *>(value);
    if (wide && WriteDecimal(*wide, number, this))
        return true;
    double real = 0.0; // a fraction or a number beyond the range of the type: the nearest allowed one
    if (!ValueText::ToDouble(number, &real))
        return false;
    numeric->SetNumericValue(real, this);
    return true;
}

bool VCLineEdit::GivesUp(QEvent const * event) const
{
    if (event->type() != QEvent::ShortcutOverride && event->type() != QEvent::KeyPress)
        return false;
    return m_value.Get() && isModified() && static_cast<QKeyEvent const *>(event)->key() == Qt::Key_Escape;
}

bool VCLineEdit::eventFilter(QObject * object, QEvent * event)
{
    if (object != this || !GivesUp(event))
        return QLineEdit::eventFilter(object, event);
    event->accept();
    if (event->type() == QEvent::KeyPress)
        ShowValue();
    return true;
}

void VCLineEdit::keyReleaseEvent(QKeyEvent * event)
{
    QLineEdit::keyReleaseEvent(event);
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        selectAll();
}
