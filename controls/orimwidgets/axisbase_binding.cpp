// SPDX-License-Identifier: MIT
#include "axisbase.h"

#include "clientwindow.h"
#include "datetime.h"
#include "replayonbinding.h"
#include "suffixeddouble.h"
#include "toint.h"
#include "tree.h"
#include "valueselection.h"
#include "vcscrollbuttons.h"

#include <algorithm>
#include <array>

//! A field that may be bound to a value: how to ask for the value, how to forget it, and what a new value does. The
//! table has the fields in the order in which they are examined when a value goes away.
struct AxisBase::BoundField
{
    //! Which field a new value is for when several hold it: the lowest.
    enum Line : int
    {
        eStart,
        eStop,
        eCenter,
        eSpeed,
        eOffset,
        eWholeOffset,
        eUnit,
        eShading,
        eDefaultStop,
        eDeviceStop,
        eTimeZone,
        eAnythingElse
    };

    ValueBase * (*held)(AxisBase const & axis);
    void (*forget)(AxisBase & axis);
    Line line;
    void (*changed)(AxisBase & axis);

    template <auto Field>
    static constexpr BoundField Of(Line line = eAnythingElse, void (*changed)(AxisBase & axis) = RepairOnly)
    {
        return { [](AxisBase const & axis) -> ValueBase * { return axis.*Field; },
                 [](AxisBase & axis) { axis.*Field = nullptr; }, line, changed };
    }

    template <std::size_t Index>
    static constexpr BoundField OfForceRebuild()
    {
        return { [](AxisBase const & axis) { return axis.m_forceRebuild[Index]; },
                 [](AxisBase & axis) { axis.m_forceRebuild[Index] = nullptr; }, eAnythingElse, RepairOnly };
    }

    static void RepairOnly(AxisBase & axis) { axis.Repair(); }

    static constexpr auto Table();
    //! The field of the lowest line that holds a value; null when none does.
    static BoundField const * Find(AxisBase const & axis, Observable const * value);

    bool Holds(AxisBase const & axis, Observable const * value) const
    {
        ValueBase const * const own = held(axis);
        return own && own == value;
    }
};

constexpr auto AxisBase::BoundField::Table()
{
    return std::array{
        Of<&AxisBase::m_pStart>(eStart, [](AxisBase & axis) { axis.StartChanged(); }),
        Of<&AxisBase::m_pStop>(eStop, [](AxisBase & axis) { axis.StopChanged(); }),
        Of<&AxisBase::m_pPixPerSecondValue>(
            eSpeed, [](AxisBase & axis) { axis.SetPixPerSecond(axis.m_pPixPerSecondValue->GetValue()); }),
        Of<&AxisBase::m_pUnitSelection>(eUnit, RepairOnly),
        Of<&AxisBase::m_pOffset>(eOffset, [](AxisBase & axis) { axis.SetOffset(axis.m_pOffset->GetValue()); }),
        Of<&AxisBase::m_pOffset2>(eWholeOffset, [](AxisBase & axis) { axis.SetOffset(axis.m_pOffset2->GetValue()); }),
        Of<&AxisBase::m_pShadingColor>(eShading,
                                       [](AxisBase & axis) {
                                           long const key = axis.m_pShadingColor->GetCurrentKey();
                                           axis.StoreShadingColor(static_cast<int>(key), key != 0);
                                       }),
        Of<&AxisBase::m_pDeviceStart>(),
        Of<&AxisBase::m_pDeviceStop>(eDeviceStop, [](AxisBase & axis) { axis.DeviceStopChanged(); }),
        Of<&AxisBase::m_pDefaultStart>(),
        Of<&AxisBase::m_pDefaultStop>(eDefaultStop, [](AxisBase & axis) { axis.DefaultStopChanged(); }),
        Of<&AxisBase::m_pAutoScale>(),
        Of<&AxisBase::m_pDisplayAzimuth>(),
        Of<&AxisBase::m_pCenter>(eCenter, [](AxisBase & axis) { axis.CenterChanged(); }),
        Of<&AxisBase::m_pHalfWidth>(),
        Of<&AxisBase::m_pTimeZone>(eTimeZone, [](AxisBase & axis) { axis.TimeZoneChanged(); }),
        OfForceRebuild<0>(),
        OfForceRebuild<1>(),
        OfForceRebuild<2>(),
    };
}

AxisBase::BoundField const * AxisBase::BoundField::Find(AxisBase const & axis, Observable const * value)
{
    static constexpr auto fields = Table();
    BoundField const * found = nullptr;
    for (BoundField const & field : fields)
        if ((!found || field.line < found->line) && field.Holds(axis, value))
            found = &field;
    return found;
}

AxisBase::~AxisBase()
{
    LeaveMenus();
    static constexpr auto fields = BoundField::Table();
    for (BoundField const & field : fields)
        if (ValueBase * const value = field.held(*this)) {
            field.forget(*this);
            value->DeleteObserver(this);
        }
}

template <class T>
void AxisBase::LetGo(T *& field)
{
    T * const value = field;
    field = nullptr;
    bool const isSpare = !m_observedLife.IsOver() && static_cast<Observable *>(m_pObserved) == value;
    if (value && !isSpare && !BoundField::Find(*this, value)) // another field may hold it
        value->DeleteObserver(this);
}

//! Lets go of the value before and observes the one at the path. The field stays null when there is none.
template <class T>
bool AxisBase::Attach(T *& field, QString const & path)
{
    LetGo(field);
    Tree const * const tree = Tree::Instance();
    T * const value = tree ? tree->FindAs<T>(path) : nullptr;
    if (!value || !(value->AddObserver(this) || value->HasObserver(this)))
        return false;
    field = value;
    return true;
}

template <class T>
bool AxisBase::Bind(T *& field, QString const & path)
{
    if (!Attach(field, path))
        return false;
    LifeWatch const life(GetObserverLifetime());
    ReplayOnBinding(field, this);
    return !life.IsOver() && field;
}

//! Forgets a value that goes away, in every field that holds it.
void AxisBase::LetGoOf(Observable * source)
{
    auto * const value = dynamic_cast<ValueBase *>(source);
    if (!value || value->GetState() != eStateGoingAway)
        return;
    while (BoundField const * const field = BoundField::Find(*this, source))
        field->forget(*this);
    source->DeleteObserver(this);
}

void AxisBase::Update(Observable * source, TChangeCode code)
{
    BoundField const * const field = BoundField::Find(*this, source);
    if (code == eStateChanged && field) {
        LetGoOf(source);
        return;
    }
    SetMustRecalcRulers(true);
    if (code != eValueChanged)
        return;
    bool const drops =
        source && std::find(m_forceRebuild.begin(), m_forceRebuild.end(), source) != m_forceRebuild.end();
    if (drops)
        m_pPixmap.reset();
    if (field)
        field->changed(*this);
    else
        Repair();
}

// What a new value does

void AxisBase::StartChanged()
{
    LifeWatch const life(GetObserverLifetime());
    if (!ForwardToPane(m_pStart) || !m_pStart)
        return;
    SetStartValue(m_pStart->GetValue());
    if (!life.IsOver())
        WrapMarkersIntoRange();
}

void AxisBase::StopChanged()
{
    LifeWatch const life(GetObserverLifetime());
    if (!ForwardToPane(m_pStop) || !m_pStop)
        return;
    SetStopValue(m_pStop->GetValue());
    if (!life.IsOver())
        WrapMarkersIntoRange();
}

//! Not while it does so already: the pane may forward to this. \return whether this still lives.
bool AxisBase::ForwardToPane(Observable * source)
{
    LifeWatch const life(GetObserverLifetime());
    bool const forwards = m_pPrimaryVMappingDrawPane && !m_paneLife.IsOver() && !m_forwarding;
    if (!forwards)
        return true;
    m_forwarding = true;
    m_pPrimaryVMappingDrawPane->Update(source, eValueChanged);
    if (life.IsOver())
        return false;
    m_forwarding = false;
    return true;
}

void AxisBase::WrapMarkersIntoRange()
{
    if (m_pStart && m_pStop)
        SetMarkerWrapIntoRange(toInt(m_pStart->GetValue()), toInt(m_pStop->GetValue()));
}

void AxisBase::CenterChanged()
{
    ClearUnZoom();
    Repair();
}

void AxisBase::DefaultStopChanged()
{
    if (m_pDefaultStart)
        SetDefaultRange(m_pDefaultStart->GetValue(), m_pDefaultStop->GetValue());
}

void AxisBase::DeviceStopChanged()
{
    if (!m_pDeviceStart)
        return;
    m_deviceStart = m_pDeviceStart->GetValue();
    m_deviceStop = m_pDeviceStop->GetValue();
}

void AxisBase::TimeZoneChanged()
{
    if (m_pDateTime)
        m_pDateTime->setOffsetFromUTC(toInt<long long>(m_pTimeZone->GetCurrentValue()));
    Repair();
}

// Binding by path

bool AxisBase::SetStart_ValuePath(QString const & path)
{
    LifeWatch const life(GetObserverLifetime());
    if (!Bind(m_pStart, path))
        return false;
    SetStartValue(m_pStart->GetValue());
    if (life.IsOver())
        return false;
    m_defaultStart = m_start;
    return m_pStart;
}

bool AxisBase::SetStop_ValuePath(QString const & path)
{
    LifeWatch const life(GetObserverLifetime());
    if (!Bind(m_pStop, path))
        return false;
    SetStopValue(m_pStop->GetValue());
    if (life.IsOver())
        return false;
    m_defaultStop = m_stop;
    return m_pStop;
}

bool AxisBase::SetCenter_ValuePath(QString const & path) { return Bind(m_pCenter, path); }

bool AxisBase::SetHalfWidth_ValuePath(QString const & path) { return Bind(m_pHalfWidth, path); }

bool AxisBase::SetAutoScale_ValuePath(QString const & path) { return Bind(m_pAutoScale, path); }

bool AxisBase::SetDisplayAzimuth_ValuePath(QString const & path) { return Bind(m_pDisplayAzimuth, path); }

bool AxisBase::SetPixPerSecond_ValuePath(QString const & path) { return Bind(m_pPixPerSecondValue, path); }

bool AxisBase::SetShadingColor_ValuePath(QString const & path) { return Bind(m_pShadingColor, path); }

bool AxisBase::SetOffset_ValuePath(QString const & path)
{
    LetGo(m_pOffset);
    LetGo(m_pOffset2);
    LifeWatch const life(GetObserverLifetime());
    if (Bind(m_pOffset, path))
        return true;
    return !life.IsOver() && Bind(m_pOffset2, path);
}

bool AxisBase::SetDefaultStart_ValuePath(QString const & path) { return Bind(m_pDefaultStart, path); }

bool AxisBase::SetDefaultStop_ValuePath(QString const & path) { return Bind(m_pDefaultStop, path); }

bool AxisBase::SetDeviceStart_ValuePath(QString const & path) { return Bind(m_pDeviceStart, path); }

bool AxisBase::SetDeviceStop_ValuePath(QString const & path) { return Bind(m_pDeviceStop, path); }

bool AxisBase::SetScrollBar_ValuePath(QString const & path)
{
    return m_pScrollButtons && m_pScrollButtons->Set_ValuePath(path);
}

bool AxisBase::SetForceRebuild_ValuePath(QString const & path, unsigned int index)
{
    if (index < m_forceRebuild.size())
        return Bind(m_forceRebuild[index], path);
    if (index > m_forceRebuild.size())
        return false;
    if (m_observedLife.IsOver())
        m_pObserved = nullptr;
    if (!Attach(m_pObserved, path))
        return false;
    m_observedLife = LifeWatch(m_pObserved->GetLifetime()); // no field of the table forgets it
    LifeWatch const life(GetObserverLifetime());
    ReplayOnBinding(m_pObserved, this);
    if (life.IsOver())
        return false;
    if (m_observedLife.IsOver())
        m_pObserved = nullptr;
    return m_pObserved;
}

void AxisBase::DisableUnitSelection() { LetGo(m_pUnitSelection); }

void AxisBase::SetPrimaryVMappingDrawPane(IObserver * pane)
{
    m_pPrimaryVMappingDrawPane = pane;
    m_paneLife = pane ? LifeWatch(pane->GetObserverLifetime()) : LifeWatch();
}
