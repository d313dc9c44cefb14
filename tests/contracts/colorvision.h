// SPDX-License-Identifier: MIT
#ifndef ORIM_COLORVISION_H
#define ORIM_COLORVISION_H

#include <QColor>

#include <algorithm>
#include <array>
#include <cmath>

//! How colours look to people, for tests: contrast, red-green blindness, and the distance that is seen.
namespace ColorVision {

using Triple = std::array<double, 3>;
using Matrix = std::array<Triple, 3>;

//! Linear light of a colour without a kind of cones, after Machado, Oliveira and Fernandes 2009, full severity.
constexpr Matrix Ordinary{ { { 1.0, 0.0, 0.0 }, { 0.0, 1.0, 0.0 }, { 0.0, 0.0, 1.0 } } };
constexpr Matrix Protanopia{
    { { 0.152286, 1.052583, -0.204868 }, { 0.114503, 0.786281, 0.099216 }, { -0.003882, -0.048116, 1.051998 } }
};
constexpr Matrix Deuteranopia{
    { { 0.367322, 0.860646, -0.227968 }, { 0.280085, 0.672501, 0.047413 }, { -0.011820, 0.042940, 0.968881 } }
};

inline Triple Linear(QColor const & color)
{
    auto const linear = [](int channel) {
        double const c = channel / 255.0;
        return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    return { linear(color.red()), linear(color.green()), linear(color.blue()) };
}

inline double Luminance(QColor const & color)
{
    Triple const l = Linear(color);
    return 0.2126 * l[0] + 0.7152 * l[1] + 0.0722 * l[2];
}

//! Contrast of two colours after WCAG 2, 1 to 21.
inline double Contrast(QColor const & a, QColor const & b)
{
    double const la = Luminance(a);
    double const lb = Luminance(b);
    return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

//! CIELAB under D65 of a colour as eyes of a kind see it.
inline Triple Lab(QColor const & color, Matrix const & eyes)
{
    Triple const seen = Linear(color);
    Triple l{};
    for (std::size_t row = 0; row < 3; ++row)
        l[row] = std::clamp(eyes[row][0] * seen[0] + eyes[row][1] * seen[1] + eyes[row][2] * seen[2], 0.0, 1.0);
    auto const f = [](double t) { return t > 216.0 / 24389.0 ? std::cbrt(t) : (24389.0 / 27.0 * t + 16.0) / 116.0; };
    double const x = f((0.4124564 * l[0] + 0.3575761 * l[1] + 0.1804375 * l[2]) / 0.95047);
    double const y = f(0.2126729 * l[0] + 0.7151522 * l[1] + 0.0721750 * l[2]);
    double const z = f((0.0193339 * l[0] + 0.1191920 * l[1] + 0.9503041 * l[2]) / 1.08883);
    return { 116.0 * y - 16.0, 500.0 * (x - y), 200.0 * (y - z) };
}

//! CIEDE2000 distance of two colours in CIELAB.
inline double Distance(Triple const & first, Triple const & second)
{
    double const pi = std::acos(-1.0);
    auto const rad = [pi](double degrees) { return degrees * pi / 180.0; };
    auto const hue = [pi](double b, double a) {
        double const h = std::atan2(b, a) * 180.0 / pi;
        return h < 0.0 ? h + 360.0 : h;
    };
    auto const seventh = [](double c) { return std::sqrt(std::pow(c, 7) / (std::pow(c, 7) + std::pow(25.0, 7))); };
    double const g = 0.5 * (1.0 - seventh((std::hypot(first[1], first[2]) + std::hypot(second[1], second[2])) / 2.0));
    double const a1 = first[1] * (1.0 + g);
    double const a2 = second[1] * (1.0 + g);
    double const c1 = std::hypot(a1, first[2]);
    double const c2 = std::hypot(a2, second[2]);
    double const h1 = hue(first[2], a1);
    double const h2 = hue(second[2], a2);
    bool const gray = c1 * c2 == 0.0;
    double turn = gray ? 0.0 : h2 - h1;
    turn += turn > 180.0 ? -360.0 : turn < -180.0 ? 360.0 : 0.0;
    double const dl = second[0] - first[0];
    double const dc = c2 - c1;
    double const dh = 2.0 * std::sqrt(c1 * c2) * std::sin(rad(turn / 2.0));
    double const lm = (first[0] + second[0]) / 2.0;
    double const cm = (c1 + c2) / 2.0;
    double const sum = h1 + h2;
    double const far = sum < 360.0 ? sum + 360.0 : sum - 360.0;
    double const hm = gray ? sum : std::abs(h1 - h2) <= 180.0 ? sum / 2.0 : far / 2.0;
    double const t = 1.0 - 0.17 * std::cos(rad(hm - 30.0)) + 0.24 * std::cos(rad(2.0 * hm)) +
                     0.32 * std::cos(rad(3.0 * hm + 6.0)) - 0.20 * std::cos(rad(4.0 * hm - 63.0));
    double const rotation = -std::sin(rad(60.0 * std::exp(-std::pow((hm - 275.0) / 25.0, 2)))) * 2.0 * seventh(cm);
    double const light = std::pow(lm - 50.0, 2);
    double const l = dl / (1.0 + 0.015 * light / std::sqrt(20.0 + light));
    double const c = dc / (1.0 + 0.045 * cm);
    double const h = dh / (1.0 + 0.015 * cm * t);
    return std::sqrt(l * l + c * c + h * h + rotation * c * h);
}

inline double Distance(QColor const & a, QColor const & b, Matrix const & eyes)
{
    return Distance(Lab(a, eyes), Lab(b, eyes));
}

} // namespace ColorVision

#endif
