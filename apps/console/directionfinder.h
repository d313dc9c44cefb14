// SPDX-License-Identifier: MIT
#ifndef ORIM_DIRECTIONFINDER_H
#define ORIM_DIRECTIONFINDER_H

#include "simulator.h"
#include "spectrumline.h"
#include "valuelist.h"

#include <cstddef>
#include <vector>

//! One bearing that was taken of one emitter, before many of them are averaged to a result.
struct BearingMeasurement
{
    double frequency = 0.0; //!< Hz
    double bearing = 0.0;   //!< deg from north, 0 to below 360
    double elevation = 0.0; //!< deg, -90 to 90
    double quality = 0.0;   //!< %, 0 to 100
    double level = 0.0;     //!< dBFS
};

//! A simulated direction finder on a vehicle: tells from where the emitters come that stand above the noise in a
//! spectrum line.
//!
//! What it measures has an error, the larger the lower the quality of the emitter. The error depends on the seed, the
//! number of the line and the emitter alone. A result stands for the average of many measurements; a single one errs
//! Scatter times as far. A result bears the name of its emitter as text.
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
        eBandwidth, // Hz, 0 for what is found at its peak
        eNumberCount
    };

    static constexpr double Period = 0.25;         // s, at least, from one measurement to the next
    static constexpr double Hold = 2.0;            // s, for which a result stays after it was measured last
    static constexpr double Threshold = 12.0;      // dB above the noise of a line
    static constexpr double LargestError = 6.0;    // deg of the bearing, at quality 0; of the elevation half as much
    static constexpr double WidestChannel = 150e3; // Hz; what occupies more is found at its peak, not in its middle
    static constexpr double SinglePeriod = 0.05;   // s, at least, from one single measurement to the next
    static constexpr double Scatter = 3.0;         // error of a single measurement by that of a result

    //! \param emitters  those that can be found; their names are different.
    DirectionFinder(std::vector<SimulatedEmitter> emitters, quint64 seed);

    //! Results of one line, by rising frequency; none for a line without levels or width.
    std::vector<BearingResult> Measure(SpectrumLine const & line) const;

    //! One single measurement of each emitter in a line, by rising width of the emitters; none for a line without
    //! levels or width. Their frequencies lie within what the emitter occupies.
    std::vector<BearingMeasurement> MeasureSingles(SpectrumLine const & line) const;

    //! Takes single measurements of a line unless the last ones are younger than SinglePeriod. \a now as in Take().
    //! \return whether they were taken.
    bool TakeSingles(SpectrumLine const & line, double now, std::vector<BearingMeasurement> & singles);

    //! By how much the bearing of a result may be wrong; its elevation half as much.
    //! \param quality  %; below 0, and what is not finite, counts as 0, above 100 as 100. \return deg.
    static double Uncertainty(double quality);

    //! Where the vehicle points to: it swings to and fro around 30 deg in a minute and a half.
    //! \param now  s; what is not finite counts as 0. \return whole deg from north.
    static double Heading(double now);

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

    //! An emitter that stands above the noise of a line.
    struct Find
    {
        std::size_t emitter;
        double frequency; // Hz
        double bandwidth; // Hz
        double level;     // dBFS
        double loss;      // % of quality, by a low level
    };

    class Channels;
    std::vector<Find> FindIn(SpectrumLine const & line) const;
    BearingResult ResultOf(Find const & find, quint64 line) const;
    BearingMeasurement SingleOf(Find const & find, quint64 line) const;

    std::vector<SimulatedEmitter> m_emitters; // the narrowest first
    quint64 m_seed;
    std::vector<Sighting> m_sightings; // one an emitter at most
    double m_last = 0.0;               // s, of the last measurement
    bool m_hasMeasured = false;
    double m_lastSingles = 0.0; // s, of the last single ones
    bool m_hasSingles = false;
};

#endif
