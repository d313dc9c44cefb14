// SPDX-License-Identifier: MIT
#include "axisaccessible.h"

#include "axisbase.h"

namespace {

QAccessibleInterface * MakeAxisAccessible(QString const & className, QObject * object)
{
    if (className != QLatin1String("AxisBase"))
        return nullptr;
    auto * const axis = qobject_cast<AxisBase *>(object);
    return axis ? new AxisAccessible(axis) : nullptr;
}

//! Takes the factory back when the library is unloaded.
class Registration
{
public:
    Registration() { QAccessible::installFactory(MakeAxisAccessible); }

    Registration(Registration const &) = delete;
    Registration & operator=(Registration const &) = delete;

    ~Registration() { QAccessible::removeFactory(MakeAxisAccessible); }
};

} // namespace

void AxisAccessible::Install() { static Registration const registration; }

AxisAccessible::AxisAccessible(AxisBase * axis) : QAccessibleWidget(axis, QAccessible::Indicator) {}

QString AxisAccessible::text(QAccessible::Text kind) const
{
    if (kind == QAccessible::Value)
        return Range();
    QString const text = QAccessibleWidget::text(kind);
    return kind == QAccessible::Name && text.isEmpty() ? AxisBase::tr("Scale") : text;
}

QString AxisAccessible::Range() const
{
    auto * const axis = qobject_cast<AxisBase *>(object());
    if (!axis) // it is ending
        return {};
    double const factor = axis->GetDisplayFactor();
    QString const start = axis->double2String(axis->Start() * factor, nullptr);
    QString const stop = axis->double2String(axis->Stop() * factor, nullptr);
    //: the range of a scale: start, stop, unit
    return AxisBase::tr("%1 to %2 %3").arg(start, stop, axis->GetPureUnitText()).trimmed();
}
