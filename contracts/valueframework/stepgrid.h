// SPDX-License-Identifier: MIT
#ifndef ORIM_STEPGRID_H
#define ORIM_STEPGRID_H

#include "samevalue.h"
#include "toint.h"

#include <algorithm>
#include <cmath>
#include <limits>

//! Limits and step of a number: what values it may take. A pure function of numbers.
//! The points are min, min + step, ..., or the multiples of the step when min is the lowest of the type. Halfway
//! between two points is upward. \tparam T  int, long long, or double (specialised below).
template <class T>
class StepGrid
{
public:
    StepGrid() = default;

    //! \param min, max  the limits, min not above max.
    //! \param step  above 0; anything else means no grid.
    StepGrid(T min, T max, T step) : m_min(min), m_max(max), m_step(std::max<T>(step, 0)) {}

    T GetMin() const { return m_min; }

    T GetMax() const { return m_max; }

    T GetStep() const { return m_step; }

    bool operator==(StepGrid const & other) const
    {
        return m_min == other.m_min && m_max == other.m_max && m_step == other.m_step;
    }

    //! The nearest allowed number; the whole type may be asked.
    T Nearest(T value) const { return Round(std::clamp(value, m_min, m_max), 0.0); }

    //! The nearest allowed number to a double that is not NaN; infinities are allowed.
    T NearestTo(double value) const
    {
        double const above = std::ldexp(1.0, std::numeric_limits<T>::digits); // one past the highest of T, exact
        if (value >= above)
            return Nearest(m_max);
        if (value < -above)
            return Nearest(m_min);
        double const below = std::floor(value);
        T const whole = toInt<T>(below);
        bool const inside = whole >= m_min && whole < m_max;
        return inside ? Round(whole, value - below) : Nearest(whole);
    }

private:
    using Unsigned = unsigned long long;

    //! The nearest point to whole + part, which lies within the limits; part is 0 to below 1. Distances are unsigned,
    //! so that nothing overflows at the ends of the type.
    T Round(T whole, double part) const
    {
        Unsigned const step = m_step > 0 ? static_cast<Unsigned>(m_step) : 1;
        Unsigned const rest = Remainder(whole, step);
        if (rest == 0 && part == 0.0)
            return whole;
        Unsigned const toUpper = step - rest;
        bool const hasLower = Distance(m_min, whole) >= rest;
        bool const hasUpper = Distance(whole, m_max) >= toUpper;
        bool const upperIsNearer = rest >= toUpper || (rest + 1 == toUpper && part >= 0.5);
        if (hasUpper && (upperIsNearer || !hasLower))
            return Shift(whole, toUpper);
        return hasLower ? Shift(whole, Unsigned(0) - rest) : whole;
    }

    //! How far a number lies above the grid point below it.
    Unsigned Remainder(T whole, Unsigned step) const
    {
        if (m_min != std::numeric_limits<T>::lowest())
            return Distance(m_min, whole) % step;
        T const rest = static_cast<T>(whole % static_cast<T>(step)); // the sign of whole
        return rest < 0 ? step - Distance(rest, 0) : static_cast<Unsigned>(rest);
    }

    static Unsigned Distance(T from, T to) { return static_cast<Unsigned>(to) - static_cast<Unsigned>(from); }

    static T Shift(T from, Unsigned by) { return static_cast<T>(static_cast<Unsigned>(from) + by); }

    T m_min = std::numeric_limits<T>::lowest();
    T m_max = std::numeric_limits<T>::max();
    T m_step = 0;
};

//! Doubles: limits are finite. A step and a minimum that are short decimal fractions give points that are such
//! fractions (3 steps of 0.1 are 0.3), and a point that misses a limit by rounding alone is that limit. Where the grid
//! is finer than doubles can tell, a number stays as it is.
template <>
class StepGrid<double>
{
public:
    StepGrid() = default;

    StepGrid(double min, double max, double step)
        : m_min(Finite(min))
        , m_max(Finite(max))
        , m_step(std::isfinite(step) && step > 0.0 ? step : 0.0)
        , m_base(m_min == std::numeric_limits<double>::lowest() ? 0.0 : m_min)
    {
        for (double scale = 1.0; scale <= s_finestScale && m_scale == 0.0; scale *= 10.0)
            if (IsDecimal(m_step, scale) && IsDecimal(m_base, scale))
                m_scale = scale;
    }

    double GetMin() const { return m_min; }

    double GetMax() const { return m_max; }

    double GetStep() const { return m_step; }

    bool operator==(StepGrid const & other) const
    {
        return m_min == other.m_min && m_max == other.m_max && m_step == other.m_step;
    }

    double Nearest(double value) const
    {
        double const inside = std::clamp(value, m_min, m_max);
        if (!(m_step > 0.0))
            return inside;
        // halved, so that the difference of two far ends stays finite
        double const count = std::floor((inside / 2 - m_base / 2) / (m_step / 2) + 0.5);
        if (!(std::abs(count) <= MostSteps(inside)))
            return inside;
        double const point = Point(count);
        if (point > m_max)
            return point - m_max <= m_step * s_rounding ? m_max : std::max(m_min, Point(count - 1.0));
        if (point < m_min)
            return m_min - point <= m_step * s_rounding ? m_min : std::min(m_max, Point(count + 1.0));
        return point;
    }

    double NearestTo(double value) const { return Nearest(value); }

private:
    static constexpr double s_mostSteps = 1125899906842624.0;  // 2^50: above, a double cannot count single steps safely
    static constexpr double s_mostHalves = 4503599627370496.0; // 2^52: up to here halves are exact
    static constexpr double s_mostUnits = 9007199254740992.0;  // 2^53: up to here whole numbers are exact
    static constexpr double s_finestScale = 1e15;              // units of 1e-15
    static constexpr double s_rounding = 1e-9;                 // part of a step

    static double Finite(double limit)
    {
        return std::clamp(limit, std::numeric_limits<double>::lowest(), std::numeric_limits<double>::max());
    }

    //! Whether a number is the double nearest to a whole number of units of 1 / scale.
    static bool IsDecimal(double number, double scale)
    {
        double const units = std::round(number * scale);
        return std::abs(units) <= s_mostUnits && units / scale == number;
    }

    //! How many steps a double can count one by one on the way to a number.
    double MostSteps(double number) const
    {
        bool const isWhole = m_scale == 1.0 && std::abs(m_base) <= s_mostHalves && std::abs(number) <= s_mostHalves;
        return isWhole ? s_mostHalves : s_mostSteps;
    }

    double Point(double count) const
    {
        if (m_scale > 0.0) {
            double const units = std::round(m_base * m_scale) + count * std::round(m_step * m_scale);
            if (std::abs(units) <= s_mostUnits)
                return units / m_scale;
        }
        return std::fma(count, m_step, m_base);
    }

    double m_min = std::numeric_limits<double>::lowest();
    double m_max = std::numeric_limits<double>::max();
    double m_step = 0.0;
    double m_base = 0.0;  // where the grid counts from
    double m_scale = 0.0; // units a whole; 0: step and base are no short decimal fractions
};

#endif
