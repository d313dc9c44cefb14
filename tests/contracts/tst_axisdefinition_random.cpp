// SPDX-License-Identifier: MIT
#include "axisdefinition.h"
#include "cpuclock.h"
#include "testmain.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace {

struct Search
{
    Search(double from, double to, double displayFactor, int fixedTicWidth)
        : start(from)
        , stop(to)
        , factor(displayFactor)
        , width(fixedTicWidth)
        , count(axisDefinition::GetAxisValuesLinear(&start, &stop, &minor, &left, &right, &first, &step, &offset, 1,
                                                    displayFactor, fixedTicWidth))
    {}

    double At(int i) const { return i * step + first + offset; }

    std::string Label(int i) const
    {
        std::array<char, 1024> text{};
        auto const end =
            std::to_chars(text.data(), text.data() + text.size(), At(i) * factor, std::chars_format::fixed, right);
        return std::string(text.data(), end.ptr);
    }

    QByteArray Text() const
    {
        return QByteArray("start ") + QByteArray::number(start, 'g', 17) + " stop " +
               QByteArray::number(stop, 'g', 17) + " factor " + QByteArray::number(factor, 'g', 17) + " width " +
               QByteArray::number(width) + " count " + QByteArray::number(count);
    }

    double start;
    double stop;
    double factor;
    int width;
    int minor = 0;
    int left = 0;
    int right = 0;
    double first = 0.0;
    double step = 0.0;
    double offset = 0.0;
    int count;
};

bool IsInsideAndRising(Search const & search)
{
    double const low = std::fmin(search.start, search.stop);
    double const high = std::fmax(search.start, search.stop);
    for (int i = 0; i < search.count; ++i) {
        double const tic = search.At(i);
        bool const inside = tic >= low && tic <= high;
        if (!inside || (i > 0 && tic <= search.At(i - 1)))
            return false;
    }
    return search.count <= 1000 && (search.count == 0 || search.step > 0.0);
}

//! Representable values from 0 towards the larger end, across the range.
double UlpsWide(double start, double stop)
{
    double const largest = std::fmax(std::fabs(start), std::fabs(stop));
    double const ulp = std::nextafter(largest, std::numeric_limits<double>::infinity()) - largest;
    return std::fabs(stop - start) / ulp;
}

//! The number that a label reads as when its point is left out.
long long Digits(std::string text)
{
    auto const point = text.find('.');
    if (point != std::string::npos)
        text.erase(point, 1);
    return std::stoll(text);
}

std::vector<double> SpecialDoubles()
{
    double const infinity = std::numeric_limits<double>::infinity();
    std::vector<double> values{ 0.0,
                                -0.0,
                                std::numeric_limits<double>::quiet_NaN(),
                                -std::numeric_limits<double>::quiet_NaN(),
                                infinity,
                                -infinity,
                                std::numeric_limits<double>::denorm_min(),
                                -std::numeric_limits<double>::denorm_min(),
                                std::numeric_limits<double>::min(),
                                -std::numeric_limits<double>::min(),
                                std::numeric_limits<double>::max(),
                                -std::numeric_limits<double>::max(),
                                1e-300,
                                1e-290,
                                1e300,
                                -1e300,
                                1e13,
                                1e13 + 1e-3,
                                0.1,
                                0.3,
                                -0.3,
                                1e-12,
                                1e15,
                                -1e15,
                                9999.765,
                                -9999.765 };
    for (double const base : { 1.0, 2147483648.0, 4294967296.0, 9007199254740992.0, 9223372036854775808.0, 1e22 }) {
        for (double const sign : { 1.0, -1.0 }) {
            values.push_back(sign * base);
            values.push_back(sign * (base - 1.0));
            values.push_back(sign * (base + 1.0));
            values.push_back(sign * std::nextafter(base, infinity));
        }
    }
    return values;
}

//! Makes ranges 1e-12 to 1e15 wide within +-1e15, some with ends as typed by a user.
class RandomSearches
{
public:
    explicit RandomSearches(unsigned long long seed) : m_random(seed) {}

    Search Next()
    {
        static constexpr std::array<double, 9> Factors{ 1.0,  1e-3, 1e-6,     1e-9, 1e3, 57.295779513082323,
                                                        0.01, -1.0, 1.0 / 3.6 };
        static constexpr std::array<int, 8> Widths{ -1, -1, -1, -1, 1, 7, 30, 1000 };
        double const width = Scale();
        double start = Unit() < 0.3 ? -width * Unit() : Scale() * (Unit() < 0.5 ? -1.0 : 1.0);
        double stop = start + width;
        if (Unit() < 0.4) {
            double const grain = std::pow(10.0, std::floor(std::log10(width)) - 1.0);
            start = std::round(start / grain) * grain;
            stop = std::round(stop / grain) * grain;
        }
        if (Unit() < 0.5)
            std::swap(start, stop);
        double const factor = Unit() < 0.5 ? 1.0 : Factors[m_random() % Factors.size()];
        return { start, stop, factor, Widths[m_random() % Widths.size()] };
    }

private:
    double Unit() { return m_unit(m_random); }

    double Scale() { return std::pow(10.0, -12.0 + 27.0 * Unit()); }

    std::mt19937_64 m_random;
    std::uniform_real_distribution<double> m_unit{ 0.0, 1.0 };
};

//! Whether each label differs from the one before, and by the step in units of the last digit where rounding is far
//! off.
bool LabelsFollowTheStep(Search const & search, double ulps)
{
    int const labelled = qMin(search.count, 14);
    if (labelled < 2)
        return true;
    bool const roomy =
        search.step > 1000.0 * std::fabs(search.stop - search.start) / ulps && search.left + search.right <= 15;
    bool const fixed = search.width > 0 && search.right == 0;
    long long before = Digits(search.Label(0));
    long long const difference = Digits(search.Label(1)) - before;
    long long const amount = std::abs(difference);
    if (roomy && !fixed && search.right > 0 && amount != 1 && amount != 2 && amount != 5)
        return false;
    for (int i = 1; i < labelled; ++i) {
        long long const here = Digits(search.Label(i));
        if (here == before || (roomy && here - before != difference))
            return false;
        before = here;
    }
    return true;
}

//! What is wrong with the tics of an ordinary range; null when nothing is.
char const * DefectOf(Search const & search)
{
    double const ulps = UlpsWide(search.start, search.stop);
    if (!IsInsideAndRising(search))
        return "not inside or not rising: ";
    if (search.count == 0)
        return search.width > 0 || ulps < (search.factor == 1.0 ? 100.0 : 400.0) ? nullptr : "no tics: ";
    if (search.width < 0 && (search.count < 4 || search.count > 12))
        return "not 4 to 12 tics: ";
    return LabelsFollowTheStep(search, ulps) ? nullptr : "labels: ";
}

//! What is wrong with the tics of any numbers; null when nothing is.
char const * DefectOfSpecial(Search const & search)
{
    if (!IsInsideAndRising(search))
        return "not inside or not rising: ";
    if (!std::isfinite(search.first) || !std::isfinite(search.step) || !std::isfinite(search.offset))
        return "not finite: ";
    bool const digits = search.left >= 1 && search.left <= 310 && search.right >= 0 && search.right <= 310;
    return digits && search.minor >= 0 && search.minor <= 4 ? nullptr : "digits or minor tics: ";
}

} // namespace

class tst_axisDefinition_random : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void RandomRanges();
    void SpecialNumbers();
};

void tst_axisDefinition_random::RandomRanges()
{
    long long const turns = TestStage::Turns(TestStage::Sanitized() ? 300000 : 1000000, 100000000);
    RandomSearches source(TestStage::Seed());
    long long tics = 0;
    long long none = 0;
    for (long long turn = 0; turn < turns; ++turn) {
        Search const search = source.Next();
        tics += search.count;
        none += search.count == 0 ? 1 : 0;
        char const * const defect = DefectOf(search);
        QVERIFY2(!defect, defect ? (defect + search.Text()).constData() : "");
    }
    qInfo("tic search: %lld random ranges, %lld tics, %lld without tics, seed %llu", turns, tics, none,
          TestStage::Seed());
}

void tst_axisDefinition_random::SpecialNumbers()
{
    std::vector<double> const specials = SpecialDoubles();
    std::array<int, 6> const widths{ -1, 0, 1, 7, std::numeric_limits<int>::max(), std::numeric_limits<int>::min() };
    long long calls = 0;
    double longest = 0.0; // ms of the processor
    for (double const start : specials) {
        for (double const stop : specials) {
            CpuClock const clock;
            for (double const factor : specials) {
                for (int const width : widths) {
                    Search const search(start, stop, factor, width);
                    ++calls;
                    char const * const defect = DefectOfSpecial(search);
                    QVERIFY2(!defect, defect ? (defect + search.Text()).constData() : "");
                }
            }
            longest = std::max(longest, clock.Milliseconds());
        }
    }
    QVERIFY(longest < 400.0); // a round of all factors and widths, over 400 calls
    qInfo("tic search: %lld calls with %zu special numbers, the slowest %zu took %.0f us together", calls,
          specials.size(), specials.size() * widths.size(), longest * 1e3);
}

ORIM_CORE_TEST_MAIN(tst_axisDefinition_random)

#include "tst_axisdefinition_random.moc"
