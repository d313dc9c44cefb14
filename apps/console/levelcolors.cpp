// SPDX-License-Identifier: MIT
#include "levelcolors.h"

#include <cmath>

LevelColors::LevelColors() : m_pSet(std::make_unique<Copy>())
{
    m_pSet->SetColorNr(0, Qt::white);
    Apply();
}

void LevelColors::SetColors(ShadingColorSet const & set)
{
    m_pSet = std::make_unique<Copy>(set);
    m_ownRange = set.GetFixed();
    Apply();
}

void LevelColors::SetRange(double min, double max)
{
    bool const good = std::isfinite(min) && std::isfinite(max) && max > min;
    if (!good)
        return;
    m_min = min;
    m_max = max;
    Apply();
}

//! A set that takes the caller's range shows what lies outside in no colour of its own; one that is fixed shows its
//! ends.
void LevelColors::Apply()
{
    if (m_ownRange)
        return;
    m_pSet->SetFixed(true);
    m_pSet->SetWrap(false);
    m_pSet->SetStart(m_min);
    m_pSet->SetStop(m_max);
}

void LevelColors::Color(double const * levels, QRgb * pixels, std::size_t count, bool mayBeNaN)
{
    m_pSet->GetColors(levels, pixels, count, m_min, m_max, true);
    if (!mayBeNaN)
        return;
    for (std::size_t i = 0; i < count; ++i) {
        if (std::isnan(levels[i]))
            pixels[i] = m_ground;
    }
}
