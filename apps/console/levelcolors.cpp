// SPDX-License-Identifier: MIT
#include "levelcolors.h"

#include <QCoreApplication>

#include <array>
#include <cmath>

namespace {

// smooth, fixed to a range that is set below, no wrap; the colours from low to high
constexpr std::array<LevelGradient, 5> Gradients{ {
    { "classic", QT_TRANSLATE_NOOP("LevelColors", "Classic"),
      "V02;7;1;1;0;1;0;0;0;#000000;#00001c;#0a1f73;#0b62b8;#12b0a0;#8fd14f;#fde047;#ff3b1f;" },
    { "heat", QT_TRANSLATE_NOOP("LevelColors", "Heat"),
      "V02;6;1;1;0;1;0;0;0;#000000;#04020c;#3b0f5e;#9b1f5a;#e4572e;#fbb13c;#fffbe0;" },
    { "sea", QT_TRANSLATE_NOOP("LevelColors", "Sea"),
      "V02;5;1;1;0;1;0;0;0;#000000;#03101c;#0b3a5b;#16808a;#7fcf9b;#f6fbe4;" },
    { "grey", QT_TRANSLATE_NOOP("LevelColors", "Grey"), "V02;2;1;1;0;1;0;0;0;#000000;#000000;#ffffff;" },
    { "amber", QT_TRANSLATE_NOOP("LevelColors", "Amber"),
      "V02;4;1;1;0;1;0;0;0;#000000;#050200;#4a1d00;#c46a00;#ffe0a0;" },
} };

} // namespace

LevelColors::LevelColors() { Apply(); }

int LevelColors::GradientCount() { return static_cast<int>(Gradients.size()); }

LevelGradient const & LevelColors::GradientAt(int index)
{
    bool const exists = index >= 0 && index < GradientCount();
    return Gradients[exists ? static_cast<std::size_t>(index) : 0];
}

void LevelColors::SetGradient(int index)
{
    if (index < 0 || index >= GradientCount() || index == m_gradient)
        return;
    m_gradient = index;
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

void LevelColors::Apply()
{
    m_set.SetString(QLatin1String(GradientAt(m_gradient).line));
    m_set.SetStart(m_min);
    m_set.SetStop(m_max);
}

void LevelColors::Color(double const * levels, QRgb * pixels, std::size_t count, bool mayBeNaN)
{
    m_set.GetColors(levels, pixels, count, m_min, m_max, false);
    if (!mayBeNaN)
        return;
    for (std::size_t i = 0; i < count; ++i) {
        if (std::isnan(levels[i]))
            pixels[i] = m_ground;
    }
}
