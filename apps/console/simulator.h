// SPDX-License-Identifier: MIT
#ifndef ORIM_SIMULATOR_H
#define ORIM_SIMULATOR_H

#include "isamplesource.h"

#include <QString>

#include <complex>
#include <memory>
#include <vector>

//! One emitter that the simulated receiver hears.
struct SimulatedEmitter
{
    QString name;
    double frequency = 0.0; //!< Hz, the middle of what it occupies over time
    double bandwidth = 0.0; //!< Hz, what it occupies over time
    double level = 0.0;     //!< dBFS while it transmits
    double bearing = 0.0;   //!< deg, 0 to below 360
    double elevation = 0.0; //!< deg, -90 to 90
    int quality = 0;        //!< 0 to 100
};

//! A simulated receiver: I/Q samples without end of several emitters above a noise floor.
//!
//! A sample depends on the seed and its position alone: the same seed gives the same samples, in whatever order and
//! portions they are read.
class Simulator : public ISampleSource
{
public:
    static constexpr double Rate = 1024000.0;     //!< Hz
    static constexpr double Centre = 145000000.0; //!< Hz
    static constexpr double NoiseLevel = -40.0;   //!< dBFS over the whole rate

    explicit Simulator(quint64 seed = 1);
    ~Simulator() override;
    Simulator(Simulator const &) = delete;
    Simulator & operator=(Simulator const &) = delete;

    //! What is heard, always the same ones: two AM and two FM transmitters, a burst transmitter, a hopper and a chirp.
    static std::vector<SimulatedEmitter> Emitters();

    double SampleRate() const override { return Rate; }

    bool IsReal() const override { return false; }

    double CentreFrequency(qint64 position) const override;

    qint64 Length() const override { return 0; }

    qint64 Read(std::complex<float> * out, qint64 count) override;
    void Seek(qint64 sample) override;

    qint64 Position() const override { return m_position; }

private:
    class Signals;
    void MakeBlock(qint64 block);

    std::unique_ptr<Signals> m_pSignals;
    std::vector<std::complex<float>> m_block; // the block m_blockNumber
    qint64 m_blockNumber = -1;
    qint64 m_position = 0;
};

#endif
