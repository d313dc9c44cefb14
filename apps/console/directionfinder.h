// SPDX-License-Identifier: MIT
#ifndef ORIM_DIRECTIONFINDER_H
#define ORIM_DIRECTIONFINDER_H

#include "simulator.h"
#include "spectrumline.h"
#include "valuelist.h"

#include <cstddef>
#include <vector>

//! A simulated direction finder: tells from where the emitters come that stand above the noise in a spectrum line.
//!
//! What it measures has an error, the larger the lower the quality of the emitter. The error depends on the seed, the
//! number of the line and the emitter alone. A result bears the name of its emitter as text.
class DirectionFinder
{
public:
    //! Places of the numbers in a result.
    enum Number : unsigned int
    {
        eBearing,   // deg, 0 to below 360
        eElevation, // deg, -90 to 90
        eFrequency, // Hz
        eQuality,   // %, 0 to 100
        eLevel,     // dBFS
        eNumberCount
    };

    static constexpr double Period = 0.25;         // s, at least, from one measurement to the next
    static constexpr double Hold = 2.0;            // s, for which a result stays after it was measured last
    static constexpr double Threshold = 12.0;      // dB above the noise of a line
    static constexpr double LargestError = 6.0;    // deg of the bearing, at quality 0; of the elevation half as much
    static constexpr double WidestChannel = 150e3; // Hz; what occupies more is found at its peak, not in its middle

    //! \param emitters  those that can be found; their names are different.
    DirectionFinder(std::vector<SimulatedEmitter> emitters, quint64 seed);

    //! Results of one line, by rising frequency; none for a line without levels or width.
    std::vector<BearingResult> Measure(SpectrumLine const & line) const;

    //! Measures a line unless the last measurement is younger than Period.
    //! \param now  s, of any clock; going back in time begins anew, NaN and infinite are ignored.
    //! \return whether the line was measured.
    bool Take(SpectrumLine const & line, double now);

    //! The latest result of each emitter that was measured at most Hold ago, by rising frequency.
    std::vector<BearingResult> GetResults() const;

private:
    //! What was found of one emitter.
    struct Sighting
    {
        BearingResult result;
        double seen; // s
    };

    class Channels;
    BearingResult ResultOf(std::size_t emitter, SpectrumLine const & line, double frequency, double level,
                           double noise) const;

    std::vector<SimulatedEmitter> m_emitters; // the narrowest first
    quint64 m_seed;
    std::vector<Sighting> m_sightings; // one an emitter at most
    double m_last = 0.0;               // s, of the last measurement
    bool m_hasMeasured = false;
};

#endif
