// SPDX-License-Identifier: MIT
#ifndef ORIM_OWNSTORE_H
#define ORIM_OWNSTORE_H

#include "colorset.h"
#include "guicentral.h"
#include "memorycfg.h"

#include <optional>

//! Gives each function of a test of central objects an empty store of its own, from init() to cleanup().
template <class Cfg = MemoryCfg>
class OwnStore
{
public:
    OwnStore() = default;
    OwnStore(OwnStore const &) = delete;
    OwnStore & operator=(OwnStore const &) = delete;

    ~OwnStore() { End(); }

    //! The object of Instance() keeps what it reads from the store of the stage.
    void Begin()
    {
        GuiCentral::Instance();
        m_pBefore = Persistant::Store();
        m_cfg.emplace();
        Persistant::SetStore(&*m_cfg);
    }

    //! As Begin(), with the common colours as they left the factory.
    void BeginWithFactoryColors()
    {
        Begin();
        ColorSet::Instance().Load(0);
        ColorSet::Instance().slotRestoreFactoryColors();
        m_cfg->Clear();
    }

    void End()
    {
        if (m_pBefore)
            Persistant::SetStore(m_pBefore);
        m_pBefore = nullptr;
    }

    Cfg * operator->() { return &*m_cfg; }

private:
    std::optional<Cfg> m_cfg;
    ICfg * m_pBefore = nullptr; // null: not begun
};

#endif
