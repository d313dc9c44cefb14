// SPDX-License-Identifier: MIT
#ifndef ORIM_AGEINGSCENE_H
#define ORIM_AGEINGSCENE_H

// What the benches of an ageing picture share: a full HD picture of a spectrum over noise, and the idioms that we are
// held against.

#include <QRgb>

#include <cstddef>
#include <random>
#include <vector>

namespace AgeingScene {

constexpr int Width = 1920;
constexpr int Height = 1080;
constexpr std::size_t Pixels = static_cast<std::size_t>(Width) * Height;

//! Indices below \a colors where there is signal, 255 elsewhere: a floor of noise in the lower half, and carriers.
inline std::vector<unsigned char> Picture(int colors)
{
    std::mt19937 random(1);
    std::vector<unsigned char> pixels(Pixels, 255);
    std::normal_distribution<double> floor(0.7 * Height, 0.04 * Height);
    auto const set = [&](int x, double row) {
        auto const y = static_cast<int>(row);
        if (y >= 0 && y < Height)
            pixels[static_cast<std::size_t>(y) * Width + static_cast<std::size_t>(x)] =
                static_cast<unsigned char>(random() % static_cast<unsigned int>(colors));
    };
    for (int x = 0; x < Width; ++x) {
        bool const isCarrier = x % 160 < 12;
        for (int i = 0; i < 200; ++i)
            set(x, isCarrier ? 0.3 * Height + (i % 20) : floor(random));
    }
    return pixels;
}

//! A picture of colours grows older: a quarter of every channel goes.
inline void Fade(QRgb * pixels, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i)
        pixels[i] = 0xff000000U | (((pixels[i] >> 1U) & 0x7f7f7fU) + ((pixels[i] >> 2U) & 0x3f3f3fU));
}

} // namespace AgeingScene

#endif
