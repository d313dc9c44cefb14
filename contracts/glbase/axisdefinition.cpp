// SPDX-License-Identifier: MIT
#include "axisdefinition.h"

#include "toint.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <cstring>

namespace {

constexpr int MinTics = 4;
constexpr int MaxTics = 12;
constexpr int MaxFixedTics = 1000;
constexpr double NarrowestRange = 1e-290;
constexpr double Farthest = 1e300; // from 0

struct TicRow
{
    int factor; // the step by a power of ten
    int minorTics;
    double perUnit; // steps in a power of ten
};

constexpr std::array<TicRow, 3> TicRows{ { { 1, 4, 1.0 }, { 2, 3, 0.5 }, { 5, 4, 0.2 } } };

// 10^(row + 32 * column); exact up to 10^22
constexpr std::array<double, 32> Powers{ 1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10,
                                         1e11, 1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21,
                                         1e22, 1e23, 1e24, 1e25, 1e26, 1e27, 1e28, 1e29, 1e30, 1e31 };
constexpr std::array<double, 10> PowersOf32{ 1e0, 1e32, 1e64, 1e96, 1e128, 1e160, 1e192, 1e224, 1e256, 1e288 };

constexpr std::array<double, 24> InversePowers{ 1e-0,  1e-1,  1e-2,  1e-3,  1e-4,  1e-5,  1e-6,  1e-7,
                                                1e-8,  1e-9,  1e-10, 1e-11, 1e-12, 1e-13, 1e-14, 1e-15,
                                                1e-16, 1e-17, 1e-18, 1e-19, 1e-20, 1e-21, 1e-22, 1e-23 };

//! 10^exponent, exponent 0 to 308.
inline double Power(int exponent)
{
    auto const index = static_cast<unsigned int>(exponent);
    return index < Powers.size() ? Powers[index] : Powers[index % 32] * PowersOf32[index / 32];
}

//! 10^-exponent but for some rounding, exponent 0 to 308.
inline double InversePower(int exponent)
{
    auto const index = static_cast<unsigned int>(exponent);
    return index < InversePowers.size() ? InversePowers[index] : 1.0 / Power(exponent);
}

//! The power of two at or below a normal number above 0.
inline int Exponent2(double value)
{
    std::uint64_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    return static_cast<int>(bits >> 52) - 1023;
}

//! The power of ten at or below 2^exponent, for every exponent of a double.
inline int Exponent10(int exponent) { return exponent * 315653 >> 20; }

//! The distance of a normal number from the next one away from 0.
inline double Ulp(double value)
{
    std::uint64_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    bits &= 0x7ff0000000000000U;
    double power = 0.0;
    std::memcpy(&power, &bits, sizeof power);
    return power * 0x1p-52;
}

inline double Larger(double a, double b) { return a > b ? a : b; }

//! The nearest integer; for amounts below 2^51.
inline double Nearest(double value)
{
    constexpr double Shift = 0x1.8p52;
    return (value + Shift) - Shift;
}

//! A step of displayed values as a fraction, so that each of its multiples is rounded once.
struct Step
{
    double numerator = 1.0;
    double denominator = 1.0;
    double perUnit = 1.0; // steps in 1, but for some rounding
    int decimals = 0;
    int minorTics = 0;

    double Multiple(double n) const { return n * numerator / denominator; }
};

//! Step 0, 1, 2, 3 ... of the row 1, 2, 5, 10 ... times 10^exponent.
inline Step StepOf(int exponent, int index)
{
    TicRow const & row = TicRows[static_cast<unsigned int>(index % 3)];
    int const power = exponent + index / 3;
    Step step;
    step.minorTics = row.minorTics;
    if (power < 0) {
        step.numerator = row.factor;
        step.denominator = Power(-power);
        step.perUnit = row.perUnit * step.denominator;
        step.decimals = -power;
    } else {
        step.numerator = row.factor * Power(power);
        step.perUnit = row.perUnit * InversePower(power);
    }
    return step;
}

Step StepOfWidth(int width)
{
    Step step;
    step.numerator = width;
    step.perUnit = 1.0 / width;
    while (width % 10 == 0)
        width /= 10;
    int const parts = width == 1       ? 5
                      : width == 2     ? 4
                      : width % 3 == 0 ? 3
                      : width % 5 == 0 ? 5
                      : width % 2 == 0 ? 2
                                       : 1;
    step.minorTics = parts - 1;
    return step;
}

//! A range in both units, in rising order.
struct Range
{
    double low = 0.0;
    double high = 0.0;
    double factor = 1.0; // above 0
    double shownLow = 0.0;
    double shownHigh = 0.0;
    double smallestStep = 0.0; // as displayed: a smaller one drowns in rounding

    bool IsUsable() const
    {
        double const span = high - low;
        double const shownSpan = shownHigh - shownLow;
        return span >= NarrowestRange && shownSpan >= NarrowestRange && -low <= Farthest && high <= Farthest &&
               -shownLow <= Farthest && shownHigh <= Farthest;
    }

    //! The axis value of a displayed one.
    double Value(double shown) const { return factor == 1.0 ? shown : shown / factor; }
};

Range MakeRange(double start, double stop, double factor)
{
    Range range;
    range.low = start < stop ? start : stop;
    range.high = start < stop ? stop : start;
    range.factor = std::fabs(factor);
    range.shownLow = range.low * range.factor;
    range.shownHigh = range.high * range.factor;
    double const largest = Larger(std::fabs(range.shownLow), std::fabs(range.shownHigh));
    // a division and two more multiplications lie between the displayed tic and the value and back
    range.smallestStep = Ulp(largest) * (range.factor == 1.0 ? 8.0 : 16.0);
    return range;
}

//! The multiples of a step inside a range.
struct Multiples
{
    double from = 0.0;
    double to = -1.0;
    double shownFrom = 0.0; // as displayed
    double shownTo = 0.0;

    double Count() const { return to - from + 1.0; }
};

inline Multiples MultiplesInside(Range const & range, Step const & step)
{
    // a tic that stands on an end may miss it by the rounding of the factor
    double const slack = range.factor == 1.0 ? 0.0 : 0x1p-51;
    Multiples found;
    found.from = Nearest(range.shownLow * step.perUnit); // it, or the next one
    found.shownFrom = step.Multiple(found.from);
    if (found.shownFrom < range.shownLow - std::fabs(range.shownLow) * slack) {
        found.from += 1.0;
        found.shownFrom = step.Multiple(found.from);
    }
    found.to = Nearest(range.shownHigh * step.perUnit);
    found.shownTo = step.Multiple(found.to);
    if (found.shownTo > range.shownHigh + std::fabs(range.shownHigh) * slack) {
        found.to -= 1.0;
        found.shownTo = step.Multiple(found.to);
    }
    return found;
}

//! The smallest step that makes MaxTics tics at most and that doubles resolve. False when it makes less than MinTics.
bool SearchStep(Range const & range, Step & step, Multiples & multiples)
{
    double const span = Larger(range.shownHigh - range.shownLow, range.smallestStep * MaxTics);
    int const exponent = Exponent10(Exponent2(span)) - 1; // the span is 10 to 200 times this power of ten
    double const ratio = exponent < 0 ? span * Power(-exponent) : span / Power(exponent);
    int const index = (ratio > MaxTics ? 1 : 0) + (ratio > 2 * MaxTics ? 1 : 0) + (ratio > 5 * MaxTics ? 1 : 0) +
                      (ratio > 10 * MaxTics ? 1 : 0);
    step = StepOf(exponent, index);
    multiples = MultiplesInside(range, step);
    if (multiples.Count() > MaxTics) { // one tic more than steps, when both ends bear one
        step = StepOf(exponent, index + 1);
        multiples = MultiplesInside(range, step);
    }
    return multiples.Count() >= MinTics;
}

bool TakeFixedStep(Range const & range, int width, Step & step, Multiples & multiples)
{
    if (width <= 0 || width < range.smallestStep || width / range.factor > Farthest ||
        range.shownHigh - range.shownLow > width * (MaxFixedTics + 1.0))
        return false;
    step = StepOfWidth(width);
    multiples = MultiplesInside(range, step);
    return multiples.Count() <= MaxFixedTics;
}

//! Tics as the caller evaluates them.
struct Tics
{
    int count = 0;
    double first = 0.0;
    double step = 0.0;
    double offset = 0.0;

    double At(int i) const { return i * step + first + offset; }

    bool AreInside(Range const & range) const { return At(0) >= range.low && At(count - 1) <= range.high; }
};

//! Shrinks tics on both sides of 0 around it, by the rounding errors that put their ends outside.
void ShrinkAroundZero(Range const & range, double from, Tics & tics)
{
    for (int turn = 0; turn < 8 && !tics.AreInside(range); ++turn) {
        tics.step = std::nextafter(tics.step, 0.0);
        tics.first = from * tics.step;
    }
}

//! Puts tics on one side of 0 inside, when rounding errors put an end outside.
void ShrinkIntoRange(Range const & range, Tics & tics)
{
    if (tics.At(0) < range.low)
        tics.first = range.low - tics.offset; // exact: the offset is 0 or within a factor of 2 of the end
    int const last = tics.count - 1;
    if (last > 0 && tics.At(last) > range.high)
        tics.step = (range.high - tics.offset - tics.first) / last;
    for (int turn = 0; turn < 8 && !tics.AreInside(range); ++turn)
        tics.step = std::nextafter(tics.step, 0.0);
}

//! Drops tics that stay outside: those of an end so near to 0 that its displayed value is 0.
void DropOutside(Range const & range, Tics & tics)
{
    while (tics.count > 0 && tics.At(tics.count - 1) > range.high)
        --tics.count;
    while (tics.count > 0 && tics.At(0) < range.low) {
        tics.first += tics.step;
        --tics.count;
    }
}

void MakeTics(Range const & range, Step const & step, Multiples const & multiples, Tics & tics)
{
    constexpr long long Round = 1000;
    tics.count = toInt(multiples.Count());
    tics.step = range.Value(step.Multiple(1.0));
    if (multiples.from < 0.0 && multiples.to >= 0.0) { // at most 1000 tics: the offset is 0
        tics.first = multiples.from * tics.step;
        ShrinkAroundZero(range, multiples.from, tics);
        DropOutside(range, tics);
        return;
    }
    double beyond = multiples.from;
    if (std::fabs(beyond) >= Round) {
        beyond = static_cast<double>(toInt<long long>(multiples.from) % Round);
        tics.offset = range.Value(step.Multiple(multiples.from - beyond));
    }
    tics.first = range.Value(step.Multiple(beyond));
    if (!tics.AreInside(range)) {
        ShrinkIntoRange(range, tics);
        DropOutside(range, tics);
    }
}

//! Digits before the decimal point of an amount.
int DigitsOf(double amount)
{
    if (amount < 10.0)
        return 1;
    int const digits = Exponent10(Exponent2(amount)) + 1; // or one more
    return amount < Power(digits) ? digits : digits + 1;
}

//! What a search depends on.
struct Question
{
    double start = 0.0;
    double stop = 0.0;
    double factor = 0.0;
    int width = 0;

    bool operator==(Question const & other) const // false with NaN
    {
        return start == other.start && stop == other.stop && factor == other.factor && width == other.width;
    }
};

//! What a search finds.
struct Answer
{
    Tics tics;
    Step shown;
    int digits = 1;
};

//! Writes into the answer in place: a copy of what was just written in parts would wait for them.
void Search(Question const & question, Answer & answer)
{
    answer = Answer();
    Multiples multiples;
    Range const range = MakeRange(question.start, question.stop, question.factor);
    if (!range.IsUsable() || (!TakeFixedStep(range, question.width, answer.shown, multiples) &&
                              !SearchStep(range, answer.shown, multiples))) {
        answer = Answer();
        return;
    }
    if (multiples.Count() > 0.0)
        MakeTics(range, answer.shown, multiples, answer.tics);
    answer.digits = DigitsOf(Larger(std::fabs(multiples.shownFrom), std::fabs(multiples.shownTo)));
    if (answer.tics.count <= 0)
        answer = Answer();
}

template <class T>
void Write(T * target, T value)
{
    if (target)
        *target = value;
}

} // namespace

int axisDefinition::GetAxisValuesLinear(double * start, double * stop, int * minor, int * left, int * right,
                                        double * first, double * step, double * offset, int /*mode*/,
                                        double displayFactor, int fixedTicWidth)
{
    // an axis that is painted anew mostly asks for the range it had
    thread_local struct
    {
        Question question;
        Answer answer;
    } latest;

    Question const asked = start && stop ? Question{ *start, *stop, displayFactor, fixedTicWidth } : Question();
    if (!(asked == latest.question)) {
        Search(asked, latest.answer);
        latest.question = asked;
    }
    Answer const & answer = latest.answer;
    Write(minor, answer.shown.minorTics);
    Write(left, answer.digits);
    Write(right, answer.shown.decimals);
    Write(first, answer.tics.first);
    Write(step, answer.tics.step);
    Write(offset, answer.tics.offset);
    return answer.tics.count;
}
