// SPDX-License-Identifier: MIT
#ifndef ORIM_GUICENTRALACCESS_H
#define ORIM_GUICENTRALACCESS_H

#include "guicentral.h"
#include "operations.h"

#include <array>

//! A central object of a test's own, and a look inside any.
class GuiCentralAccess : public GuiCentral
{
public:
    static std::map<QString, std::unique_ptr<BoolOperation>> & BoolOperations(GuiCentral & central)
    {
        return central.m_boolOperations;
    }

    static std::list<std::unique_ptr<OperationBase>> & NumericOperations(GuiCentral & central)
    {
        return central.m_numericOperations;
    }

    static std::list<std::unique_ptr<BoolSelectionCoupler>> & SelectionCouplers(GuiCentral & central)
    {
        return central.m_selectionCouplers;
    }

    //! The counters of unique values and names, in the order of their declaration.
    static std::array<int *, 8> Counts(GuiCentral & central)
    {
        return { &central.m_uniqueBoolCount,   &central.m_uniqueCharCount,  &central.m_uniqueFloatCount,
                 &central.m_uniqueIntCount,    &central.m_uniqueInt64Count, &central.m_uniqueSelectionCount,
                 &central.m_uniqueStringCount, &central.m_uniqueNameCount };
    }

    static std::map<VC::ID, QString> & ValuePaths(GuiCentral & central) { return central.m_valuePaths; }

    static std::vector<int> & Roles(GuiCentral & central) { return central.m_colorSetIdForRoleId; }

    static Persistant * Group(GuiCentral & central) { return central.m_persistant; }

    static bool AzimuthElevationColors(GuiCentral & central) { return central.m_azimuthElevationColorsEnabled; }

    void slotRestoreDefaultPersistant() override
    {
        ++m_restoredDefaults;
        GuiCentral::slotRestoreDefaultPersistant();
    }

    void slotRestoreFactoryColors() override
    {
        ++m_restoredFactory;
        GuiCentral::slotRestoreFactoryColors();
    }

    int m_restoredDefaults = 0;
    int m_restoredFactory = 0;
};

#endif
