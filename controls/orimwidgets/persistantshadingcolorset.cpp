// SPDX-License-Identifier: MIT
#include "persistantshadingcolorset.h"

#include "icfg.h"
#include "shadingcolorset.h"

#include <utility>

PersistantShadingColorSet::PersistantShadingColorSet(ShadingColorSet * set, QString key, QString defaultText)
    : m_key(std::move(key))
    , m_defaultText(std::move(defaultText))
    , m_pSet(set)
{}

PersistantShadingColorSet::~PersistantShadingColorSet() = default;

void PersistantShadingColorSet::Read(ICfg * store)
{
    if (store && m_pSet)
        m_pSet->SetString(store->ReadString(m_key, m_defaultText));
}

void PersistantShadingColorSet::Write(ICfg * store)
{
    if (store && m_pSet)
        store->WriteString(m_key, m_pSet->GetString());
}

void PersistantShadingColorSet::RestoreDefault()
{
    if (m_pSet)
        m_pSet->SetString(m_defaultText);
}
