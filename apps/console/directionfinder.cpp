// SPDX-License-Identifier: MIT
#include "directionfinder.h"

#include "seedmix.h"
#include "toint.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double FullCircle = 360.0;       // deg
constexpr double Zenith = 90.0;            // deg
constexpr double BestQuality = 100.0;      // %
constexpr double LeastError = 0.3;         // deg of the bearing, at quality 100
constexpr double QualityError = 3.0;       // %
constexpr double ClearLevel = 20.0;        // dB above the noise: a weaker one loses quality
constexpr double QualityLoss = 1.5;        // % a dB
constexpr double LevelMargin = 3.0;        // dB: a bin that stands higher above its emitter is another's
constexpr int Guard = 3;                   // bins beside an emitter that its window spreads it into
constexpr quint64 NumbersAMeasurement = 6; // random ones
constexpr quint64 SinglesStream = ~0ULL;   // of random numbers, beside those of the lines
constexpr double MiddleHeading = 30.0;     // deg
constexpr double Swing = 15.0;             // deg to either side
constexpr double SwingPeriod = 90.0;       // s
constexpr double Pi = 3.14159265358979323846;

//! From -1 to 1, mostly near 0.
double Error(quint64 seed, quint64 number)
{
    return SeedMix::Part(seed, 2 * number) - SeedMix::Part(seed, 2 * number + 1);
}

//! Of the levels that are finite; 0 for none.
double Median(std::vector<double> levels)
{
    levels.erase(std::remove_if(levels.begin(), levels.end(), [](double level) { return !std::isfinite(level); }),
                 levels.end());
    if (levels.empty())
        return 0.0;
    auto const middle = levels.begin() + static_cast<std::ptrdiff_t>(levels.size() / 2);
    std::nth_element(levels.begin(), middle, levels.end());
    return *middle;
}

double OnCircle(double bearing)
{
    double const turned = std::fmod(std::fmod(bearing, FullCircle) + FullCircle, FullCircle);
    return turned < FullCircle ? turned : 0.0;
}

void SortByFrequency(std::vector<BearingResult> & results)
{
    std::stable_sort(results.begin(), results.end(), [](BearingResult const & a, BearingResult const & b) {
        return a.GetValue(DirectionFinder::eFrequency) < b.GetValue(DirectionFinder::eFrequency);
    });
}

} // namespace

//! The bins of a line, of which each is given to one emitter.
class DirectionFinder::Channels
{
public:
    explicit Channels(SpectrumLine const & line)
        : m_line(line)
        , m_step(line.span / static_cast<double>(line.levels.size()))
        , m_taken(line.levels.size(), false)
    {}

    double FrequencyOf(int bin) const { return m_line.centre - m_line.span / 2.0 + bin * m_step; }

    double LevelOf(int bin) const { return m_line.levels[static_cast<std::size_t>(bin)]; }

    //! Highest free bin of an emitter that is not higher than it can be; -1 for none. The bins around are then its own.
    int Take(SimulatedEmitter const & emitter)
    {
        double const half = emitter.bandwidth / 2.0;
        int const first = BinOf(emitter.frequency - half);
        int const last = BinOf(emitter.frequency + half);
        int best = -1;
        for (int bin = std::max(0, first); bin <= std::min(last, Count() - 1); ++bin) {
            bool const possible =
                !m_taken[static_cast<std::size_t>(bin)] && LevelOf(bin) <= emitter.level + LevelMargin;
            if (possible && (best < 0 || LevelOf(bin) > LevelOf(best)))
                best = bin;
        }
        for (int bin = std::max(0, first - Guard); bin <= std::min(last + Guard, Count() - 1); ++bin)
            m_taken[static_cast<std::size_t>(bin)] = true;
        return best;
    }

private:
    int Count() const { return static_cast<int>(m_line.levels.size()); }

    //! Nearest bin; one before the first or behind the last, by more than the guard, for a frequency out there.
    int BinOf(double frequency) const
    {
        double const bin = std::round((frequency - m_line.centre + m_line.span / 2.0) / m_step);
        return toInt(std::clamp(bin, -2.0 * Guard, Count() + 2.0 * Guard));
    }

    SpectrumLine const & m_line;
    double m_step; // Hz
    std::vector<bool> m_taken;
};

DirectionFinder::DirectionFinder(std::vector<SimulatedEmitter> emitters, quint64 seed)
    : m_emitters(std::move(emitters))
    , m_seed(seed)
{
    std::stable_sort(m_emitters.begin(), m_emitters.end(),
                     [](SimulatedEmitter const & a, SimulatedEmitter const & b) { return a.bandwidth < b.bandwidth; });
}

std::vector<DirectionFinder::Find> DirectionFinder::FindIn(SpectrumLine const & line) const
{
    std::vector<Find> finds;
    if (line.levels.empty() || !std::isfinite(line.centre) || !std::isfinite(line.span) || !(line.span > 0.0))
        return finds;
    double const noise = Median(line.levels);
    Channels channels(line);
    for (std::size_t i = 0; i < m_emitters.size(); ++i) {
        int const bin = channels.Take(m_emitters[i]);
        if (bin < 0 || !(channels.LevelOf(bin) >= noise + Threshold))
            continue;
        bool const isChannel = m_emitters[i].bandwidth <= WidestChannel;
        double const level = channels.LevelOf(bin);
        finds.push_back({ i, isChannel ? m_emitters[i].frequency : channels.FrequencyOf(bin),
                          isChannel ? m_emitters[i].bandwidth : 0.0, level,
                          std::max(0.0, ClearLevel - (level - noise)) * QualityLoss });
    }
    return finds;
}

std::vector<BearingResult> DirectionFinder::Measure(SpectrumLine const & line) const
{
    std::vector<BearingResult> results;
    for (Find const & find : FindIn(line))
        results.push_back(ResultOf(find, line.number));
    SortByFrequency(results);
    return results;
}

std::vector<BearingMeasurement> DirectionFinder::MeasureSingles(SpectrumLine const & line) const
{
    std::vector<BearingMeasurement> singles;
    for (Find const & find : FindIn(line))
        singles.push_back(SingleOf(find, line.number));
    return singles;
}

double DirectionFinder::Uncertainty(double quality)
{
    double const held = std::isfinite(quality) ? std::clamp(quality, 0.0, BestQuality) : 0.0;
    return LeastError + (LargestError - LeastError) * (1.0 - held / BestQuality);
}

double DirectionFinder::Heading(double now)
{
    double const turns = std::isfinite(now) ? std::fmod(now, SwingPeriod) / SwingPeriod : 0.0;
    return std::round(MiddleHeading + Swing * std::sin(2.0 * Pi * turns));
}

BearingResult DirectionFinder::ResultOf(Find const & find, quint64 line) const
{
    SimulatedEmitter const & source = m_emitters[find.emitter];
    quint64 const seed = SeedMix::Mix(m_seed, line);
    quint64 const number = find.emitter * NumbersAMeasurement;
    double const width = Uncertainty(source.quality);
    double const quality =
        std::clamp(source.quality - find.loss + QualityError * Error(seed, number), 0.0, BestQuality);
    double const elevation = source.elevation + width / 2.0 * Error(seed, number + 2);
    BearingResult result(std::vector<double>(eNumberCount), source.name);
    result.SetValue(eBearing, OnCircle(source.bearing + width * Error(seed, number + 1)));
    result.SetValue(eElevation, std::clamp(elevation, -Zenith, Zenith));
    result.SetValue(eFrequency, find.frequency);
    result.SetValue(eQuality, std::round(quality));
    result.SetValue(eLevel, find.level);
    result.SetValue(eBandwidth, find.bandwidth);
    return result;
}

BearingMeasurement DirectionFinder::SingleOf(Find const & find, quint64 line) const
{
    SimulatedEmitter const & source = m_emitters[find.emitter];
    quint64 const seed = SeedMix::Mix(SeedMix::Mix(m_seed, SinglesStream), line);
    quint64 const number = find.emitter * NumbersAMeasurement;
    double const width = Scatter * Uncertainty(source.quality);
    double const quality = source.quality - find.loss + Scatter * QualityError * Error(seed, number);
    double const elevation = source.elevation + width / 2.0 * Error(seed, number + 2);
    BearingMeasurement single;
    single.frequency = find.frequency + find.bandwidth / 2.0 * Error(seed, number + 3);
    single.bearing = OnCircle(source.bearing + width * Error(seed, number + 1));
    single.elevation = std::clamp(elevation, -Zenith, Zenith);
    single.quality = std::clamp(quality, 0.0, BestQuality);
    single.level = find.level;
    return single;
}

bool DirectionFinder::TakeSingles(SpectrumLine const & line, double now, std::vector<BearingMeasurement> & singles)
{
    bool const isBack = m_hasSingles && now < m_lastSingles;
    if (!std::isfinite(now) || (m_hasSingles && !isBack && now - m_lastSingles < SinglePeriod))
        return false;
    m_hasSingles = true;
    m_lastSingles = now;
    singles = MeasureSingles(line);
    return true;
}

bool DirectionFinder::Take(SpectrumLine const & line, double now)
{
    if (!std::isfinite(now))
        return false;
    bool const isBack = m_hasMeasured && now < m_last;
    if (m_hasMeasured && !isBack && now - m_last < Period)
        return false;
    if (isBack)
        m_sightings.clear();
    m_hasMeasured = true;
    m_last = now;
    for (BearingResult & result : Measure(line)) {
        auto const same = std::find_if(m_sightings.begin(), m_sightings.end(), [&result](Sighting const & sighting) {
            return sighting.result.GetText() == result.GetText();
        });
        if (same != m_sightings.end())
            *same = { std::move(result), now };
        else
            m_sightings.push_back({ std::move(result), now });
    }
    m_sightings.erase(std::remove_if(m_sightings.begin(), m_sightings.end(),
                                     [now](Sighting const & sighting) { return now - sighting.seen > Hold; }),
                      m_sightings.end());
    return true;
}

std::vector<BearingResult> DirectionFinder::GetResults() const
{
    std::vector<BearingResult> results;
    results.reserve(m_sightings.size());
    for (Sighting const & sighting : m_sightings)
        results.push_back(sighting.result);
    SortByFrequency(results);
    return results;
}
