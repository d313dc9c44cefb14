// SPDX-License-Identifier: MIT
#ifndef ORIM_SIGNALQUALITY_H
#define ORIM_SIGNALQUALITY_H

#include <vector>

//! How good signals are, by their height over the noise.
namespace SignalQuality {

constexpr double LeastHeight = 6.0; // dB over the noise, below which there is no signal
constexpr double BestHeight = 40.0; // dB over the noise, from which on nothing is better

//! Level of the noise in a line: the middle one of its levels, of at most 1024 of them that stand apart evenly.
//! \param levels  dBFS; those that are not finite do not count. \return NaN when none does.
double NoiseLevel(std::vector<double> const & levels);

//! Quality of a level: 0 for noise, up to LeastHeight over it; then the height up to BestHeight in steps of one size.
//! \param level, noise  dBFS.
//! \return 0 .. steps - 1; 0 when one of the levels is NaN, and for less than two steps.
int QualityOf(double level, double noise, int steps);

} // namespace SignalQuality

#endif
