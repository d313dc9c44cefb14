// SPDX-License-Identifier: MIT
#include "simulator.h"

#include "seedmix.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <cmath>
#include <complex>
#include <limits>

#include <liquid/liquid.h>

namespace {

using Sample = std::complex<float>;

constexpr double Pi = 3.14159265358979323846;
constexpr unsigned int BlockSamples = 4096;                             // 4 ms
constexpr unsigned int CycleBlocks = 64;                                // what the AM and FM transmitters say, repeated
constexpr unsigned int CycleSamples = CycleBlocks * BlockSamples;       // 256 ms
constexpr unsigned int NoiseSamples = 16 * BlockSamples;                // blocks of noise are cut out of these
constexpr double FrequencyGrid = Simulator::Rate / BlockSamples;        // whole turns in a block
constexpr qint64 LastPosition = std::numeric_limits<qint64>::max() / 2; // far behind anything that is played

enum Kind : int
{
    eAm,
    eFm,
    eBurst,
    eHopper,
    eChirp
};

struct EmitterRow
{
    char const * name;
    Kind kind;
    double offset;    // Hz from the middle, on the grid
    double bandwidth; // Hz
    double deviation; // Hz; of AM the modulation index
    double level;     // dBFS
    double bearing;   // deg
    double elevation; // deg
    int quality;      // 0..100
};

constexpr std::array<EmitterRow, 7> Rows{ {
    { QT_TRANSLATE_NOOP("Simulator", "Tower"), eAm, -380000.0, 6000.0, 0.6, -22.0, 41.0, 2.0, 95 },
    { QT_TRANSLATE_NOOP("Simulator", "Beacon"), eAm, 420000.0, 4000.0, 0.4, -34.0, 128.5, 8.0, 80 },
    { QT_TRANSLATE_NOOP("Simulator", "Taxi"), eFm, -220000.0, 16000.0, 5000.0, -28.0, 203.0, 0.0, 70 },
    { QT_TRANSLATE_NOOP("Simulator", "Broadcast"), eFm, -40000.0, 100000.0, 40000.0, -20.0, 275.0, 1.0, 90 },
    { QT_TRANSLATE_NOOP("Simulator", "Meter"), eBurst, -300000.0, 60000.0, 20000.0, -30.0, 310.0, -4.0, 55 },
    { QT_TRANSLATE_NOOP("Simulator", "Hopper"), eHopper, 180000.0, 250000.0, 2000.0, -32.0, 350.0, 15.0, 40 },
    { QT_TRANSLATE_NOOP("Simulator", "Sounder"), eChirp, 0.0, 960000.0, 0.0, -45.0, 90.0, 60.0, 25 },
} };

constexpr qint64 BurstPeriod = 50;      // blocks: 200 ms
constexpr qint64 BurstShortest = 5;     // blocks
constexpr qint64 BurstLongest = 10;     // blocks
constexpr qint64 HopBlocks = 5;         // blocks: 20 ms, of which the last is silent
constexpr qint64 HopChannels = 25;      // 10 kHz apart, around the offset
constexpr double HopSpacing = 10000.0;  // Hz
constexpr qint64 SweepBlocks = 500;     // blocks: 2 s
constexpr unsigned int SymbolHalf = 32; // samples of half a symbol: 16 kBd

struct MessageRow
{
    double syllables; // periods of the loudness a half cycle
    double low;       // periods of the tones a cycle; odd, so that the second half undoes the first
    double high;
};

constexpr std::array<MessageRow, 4> Messages{ {
    { 1.0, 103.0, 257.0 },
    { 2.0, 261.0, 263.0 },
    { 1.0, 133.0, 411.0 },
    { 3.0, 515.0, 1281.0 },
} };

constexpr bool AreOdd()
{
    for (MessageRow const & row : Messages)
        if (static_cast<int>(row.low) % 2 == 0 || static_cast<int>(row.high) % 2 == 0)
            return false;
    return true;
}

static_assert(AreOdd(), "the phase of a frequency modulation closes at the end of a cycle");

constexpr bool AreOnGrid()
{
    for (EmitterRow const & row : Rows)
        if (static_cast<double>(static_cast<long long>(row.offset / FrequencyGrid)) * FrequencyGrid != row.offset)
            return false;
    return true;
}

static_assert(AreOnGrid(), "a carrier goes on from block to block");

//! A number from 0 to below \a limit.
qint64 MixBelow(quint64 seed, quint64 number, qint64 limit)
{
    return static_cast<qint64>(SeedMix::Mix(seed, number) % static_cast<quint64>(limit));
}

double Amplitude(double level) { return std::pow(10.0, level / 20.0); }

std::vector<float> Message(MessageRow const & row)
{
    std::vector<float> message(CycleSamples);
    for (unsigned int n = 0; n < CycleSamples; ++n) {
        double const turn = 2.0 * Pi * n / CycleSamples;
        double const loudness = 0.55 + 0.45 * std::cos(2.0 * row.syllables * turn);
        message[n] = static_cast<float>(loudness * (0.6 * std::sin(row.low * turn) + 0.4 * std::sin(row.high * turn)));
    }
    return message;
}

class AmModulator
{
public:
    explicit AmModulator(double index) : m_object(ampmodem_create(static_cast<float>(index), LIQUID_AMPMODEM_DSB, 0)) {}

    ~AmModulator() { ampmodem_destroy(m_object); }

    AmModulator(AmModulator const &) = delete;
    AmModulator & operator=(AmModulator const &) = delete;

    void Modulate(std::vector<float> & message, Sample * out)
    {
        ampmodem_modulate_block(m_object, message.data(), static_cast<unsigned int>(message.size()), out);
    }

private:
    ampmodem m_object;
};

class FmModulator
{
public:
    explicit FmModulator(double deviation) : m_object(freqmod_create(static_cast<float>(deviation / Simulator::Rate)))
    {}

    ~FmModulator() { freqmod_destroy(m_object); }

    FmModulator(FmModulator const &) = delete;
    FmModulator & operator=(FmModulator const &) = delete;

    //! Begins at phase 0.
    void Modulate(std::vector<float> & message, Sample * out)
    {
        freqmod_reset(m_object);
        freqmod_modulate_block(m_object, message.data(), static_cast<unsigned int>(message.size()), out);
    }

private:
    freqmod m_object;
};

class Oscillator
{
public:
    Oscillator() : m_object(nco_crcf_create(LIQUID_NCO)) {}

    ~Oscillator() { nco_crcf_destroy(m_object); }

    Oscillator(Oscillator const &) = delete;
    Oscillator & operator=(Oscillator const &) = delete;

    //! \param frequency  turns a sample, -0.5 to 0.5.
    //! \param phase      turns.
    void Set(double frequency, double phase)
    {
        nco_crcf_set_frequency(m_object, static_cast<float>(2.0 * Pi * frequency));
        nco_crcf_set_phase(m_object, static_cast<float>(2.0 * Pi * (phase - std::floor(phase))));
    }

    //! Shifts a block up by the frequency.
    void MixUp(Sample * block) { nco_crcf_mix_block_up(m_object, block, block, BlockSamples); }

    //! Writes a block whose frequency rises by \a rise turns a sample with every sample.
    void Sweep(Sample * block, double rise)
    {
        auto const step = static_cast<float>(2.0 * Pi * rise);
        for (unsigned int n = 0; n < BlockSamples; ++n) {
            nco_crcf_cexpf(m_object, block + n);
            nco_crcf_step(m_object);
            nco_crcf_adjust_frequency(m_object, step);
        }
    }

private:
    nco_crcf m_object;
};

} // namespace

//! What is on the air, block by block.
class Simulator::Signals
{
public:
    explicit Signals(quint64 seed);
    //! Writes the sum of all emitters and of the noise.
    void Make(qint64 block, Sample * out);

private:
    void MakeStanding();
    void AddStanding(EmitterRow const & row, std::vector<Sample> & baseband, double phase);
    void MakeNoise();
    void AddBurst(EmitterRow const & row, qint64 block, quint64 seed, Sample * out);
    void AddHopper(EmitterRow const & row, qint64 block, quint64 seed, Sample * out);
    void AddChirp(EmitterRow const & row, qint64 block, Sample * out);
    void AddData(EmitterRow const & row, double offset, FmModulator & modulator, quint64 data, Sample * out);

    quint64 const m_seed;
    std::vector<Sample> m_standing; // AM and FM transmitters, one cycle
    std::vector<Sample> m_noise;
    Oscillator m_oscillator;
    FmModulator m_burst{ Rows[4].deviation };
    FmModulator m_hopper{ Rows[5].deviation };
    std::vector<float> m_symbols = std::vector<float>(BlockSamples);
    std::vector<Sample> m_part = std::vector<Sample>(BlockSamples);
};

static_assert(Rows[4].kind == eBurst && Rows[5].kind == eHopper, "the modulators take their deviations from these");

Simulator::Signals::Signals(quint64 seed) : m_seed(seed)
{
    MakeStanding();
    MakeNoise();
}

void Simulator::Signals::MakeStanding()
{
    m_standing.assign(CycleSamples, Sample());
    std::vector<Sample> baseband(CycleSamples);
    for (std::size_t i = 0; i < Messages.size(); ++i) {
        EmitterRow const & row = Rows[i];
        std::vector<float> message = Message(Messages[i]);
        if (row.kind == eAm)
            AmModulator(row.deviation).Modulate(message, baseband.data());
        else
            FmModulator(row.deviation).Modulate(message, baseband.data());
        AddStanding(row, baseband, SeedMix::Part(m_seed, i));
    }
}

void Simulator::Signals::AddStanding(EmitterRow const & row, std::vector<Sample> & baseband, double phase)
{
    double carrier = 0.0;
    for (Sample const & sample : baseband)
        carrier += static_cast<double>(std::abs(sample));
    auto const scale = static_cast<float>(Amplitude(row.level) * CycleSamples / carrier);
    for (unsigned int block = 0; block < CycleBlocks; ++block) {
        Sample * const part = baseband.data() + block * BlockSamples;
        Sample * const sum = m_standing.data() + block * BlockSamples;
        m_oscillator.Set(row.offset / Rate, phase);
        m_oscillator.MixUp(part);
        for (unsigned int n = 0; n < BlockSamples; ++n)
            sum[n] += part[n] * scale;
    }
}

void Simulator::Signals::MakeNoise()
{
    m_noise.resize(NoiseSamples);
    quint64 const seed = SeedMix::Mix(m_seed, 101);
    for (unsigned int n = 0; n < NoiseSamples; ++n) {
        double const radius = Amplitude(NoiseLevel) * std::sqrt(-std::log(SeedMix::Part(seed, 2 * n)));
        double const angle = 2.0 * Pi * SeedMix::Part(seed, 2 * n + 1);
        m_noise[n] = { static_cast<float>(radius * std::cos(angle)), static_cast<float>(radius * std::sin(angle)) };
    }
}

void Simulator::Signals::Make(qint64 block, Sample * out)
{
    auto const number = static_cast<quint64>(block);
    Sample const * const standing = m_standing.data() + (block % CycleBlocks) * BlockSamples;
    Sample const * const noise =
        m_noise.data() + MixBelow(SeedMix::Mix(m_seed, 102), number, NoiseSamples - BlockSamples);
    for (unsigned int n = 0; n < BlockSamples; ++n)
        out[n] = standing[n] + noise[n];
    for (EmitterRow const & row : Rows) {
        if (row.kind == eBurst)
            AddBurst(row, block, SeedMix::Mix(m_seed, 103), out);
        else if (row.kind == eHopper)
            AddHopper(row, block, SeedMix::Mix(m_seed, 104), out);
        else if (row.kind == eChirp)
            AddChirp(row, block, out);
    }
}

void Simulator::Signals::AddBurst(EmitterRow const & row, qint64 block, quint64 seed, Sample * out)
{
    auto const period = static_cast<quint64>(block / BurstPeriod);
    qint64 const length = BurstShortest + MixBelow(seed, 2 * period, BurstLongest - BurstShortest + 1);
    qint64 const start = MixBelow(seed, 2 * period + 1, BurstPeriod - length);
    qint64 const at = block % BurstPeriod;
    if (at >= start && at < start + length)
        AddData(row, row.offset, m_burst, SeedMix::Mix(seed ^ 1, static_cast<quint64>(block)), out);
}

void Simulator::Signals::AddHopper(EmitterRow const & row, qint64 block, quint64 seed, Sample * out)
{
    if (block % HopBlocks == HopBlocks - 1)
        return;
    qint64 const channel = MixBelow(seed, static_cast<quint64>(block / HopBlocks), HopChannels) - HopChannels / 2;
    double const offset = row.offset + static_cast<double>(channel) * HopSpacing;
    AddData(row, offset, m_hopper, SeedMix::Mix(seed ^ 1, static_cast<quint64>(block)), out);
}

void Simulator::Signals::AddChirp(EmitterRow const & row, qint64 block, Sample * out)
{
    constexpr double samples = static_cast<double>(SweepBlocks) * BlockSamples;
    double const from = (row.offset - row.bandwidth / 2.0) / Rate; // turns a sample
    double const rise = row.bandwidth / Rate / samples;
    auto const n = static_cast<double>(block % SweepBlocks * BlockSamples);
    m_oscillator.Set(from + rise * n, from * n + rise * n * n / 2.0);
    m_oscillator.Sweep(m_part.data(), rise);
    auto const scale = static_cast<float>(Amplitude(row.level));
    for (unsigned int i = 0; i < BlockSamples; ++i)
        out[i] += m_part[i] * scale;
}

void Simulator::Signals::AddData(EmitterRow const & row, double offset, FmModulator & modulator, quint64 data,
                                 Sample * out)
{
    // a symbol is a half up and a half down, or the other way round: the phase ends where it began
    for (unsigned int n = 0; n < BlockSamples; ++n) {
        unsigned int const half = n / SymbolHalf;
        bool const bit = (data >> (half / 2 % 64)) & 1;
        m_symbols[n] = (half % 2 == 0) == bit ? 1.0F : -1.0F;
    }
    modulator.Modulate(m_symbols, m_part.data());
    m_oscillator.Set(offset / Rate, 0.0);
    m_oscillator.MixUp(m_part.data());
    auto const scale = static_cast<float>(Amplitude(row.level));
    for (unsigned int i = 0; i < BlockSamples; ++i)
        out[i] += m_part[i] * scale;
}

Simulator::Simulator(quint64 seed) : m_pSignals(std::make_unique<Signals>(seed)), m_block(BlockSamples) {}

Simulator::~Simulator() = default;

std::vector<SimulatedEmitter> Simulator::Emitters()
{
    std::vector<SimulatedEmitter> emitters;
    emitters.reserve(Rows.size());
    for (EmitterRow const & row : Rows)
        emitters.push_back({ QCoreApplication::translate("Simulator", row.name), Centre + row.offset, row.bandwidth,
                             row.level, row.bearing, row.elevation, row.quality });
    return emitters;
}

double Simulator::CentreFrequency(qint64 /*position*/) const { return Centre; }

qint64 Simulator::Read(std::complex<float> * out, qint64 count)
{
    qint64 done = 0;
    while (done < count) {
        MakeBlock(m_position / BlockSamples);
        qint64 const at = m_position % BlockSamples;
        qint64 const part = std::min<qint64>(count - done, BlockSamples - at);
        std::copy_n(m_block.begin() + at, part, out + done);
        done += part;
        m_position += part;
    }
    return done;
}

void Simulator::Seek(qint64 sample) { m_position = std::clamp<qint64>(sample, 0, LastPosition); }

void Simulator::MakeBlock(qint64 block)
{
    if (block == m_blockNumber)
        return;
    m_pSignals->Make(block, m_block.data());
    m_blockNumber = block;
}
