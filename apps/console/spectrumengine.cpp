// SPDX-License-Identifier: MIT
#include "spectrumengine.h"

#include "spectrumline.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <cmath>
#include <complex>
#include <mutex>

#include <liquid/liquid.h>

namespace {

constexpr float KaiserBeta = 10.0F;

struct WindowRow
{
    char const * text;
    float (*weight)(unsigned int i, unsigned int count);
};

constexpr std::array<WindowRow, SpectrumEngine::eWindowCount> Windows{ {
    { QT_TRANSLATE_NOOP("SpectrumEngine", "Rectangular"), [](unsigned int, unsigned int) { return 1.0F; } },
    { QT_TRANSLATE_NOOP("SpectrumEngine", "Hann"), liquid_hann },
    { QT_TRANSLATE_NOOP("SpectrumEngine", "Hamming"), liquid_hamming },
    { QT_TRANSLATE_NOOP("SpectrumEngine", "Blackman-Harris"), liquid_blackmanharris },
    { QT_TRANSLATE_NOOP("SpectrumEngine", "Flat top"), liquid_flattop },
    { QT_TRANSLATE_NOOP("SpectrumEngine", "Kaiser"),
      [](unsigned int i, unsigned int count) { return liquid_kaiser(i, count, KaiserBeta); } },
} };

bool IsWindow(SpectrumEngine::Window window) { return window >= 0 && window < SpectrumEngine::eWindowCount; }

//! The planner under the transform serves one thread at a time.
std::mutex & PlannerMutex()
{
    static std::mutex mutex;
    return mutex;
}

} // namespace

//! A plan with its aligned buffers.
struct SpectrumEngine::Transform
{
    explicit Transform(unsigned int count)
    {
        std::lock_guard<std::mutex> const lock(PlannerMutex());
        in = static_cast<std::complex<float> *>(fft_malloc(count * static_cast<unsigned int>(sizeof(*in))));
        out = static_cast<std::complex<float> *>(fft_malloc(count * static_cast<unsigned int>(sizeof(*out))));
        plan = fft_create_plan(count, in, out, LIQUID_FFT_FORWARD, 0);
    }

    ~Transform()
    {
        std::lock_guard<std::mutex> const lock(PlannerMutex());
        fft_destroy_plan(plan);
        fft_free(in);
        fft_free(out);
    }

    Transform(Transform const &) = delete;
    Transform & operator=(Transform const &) = delete;

    std::complex<float> * in = nullptr;
    std::complex<float> * out = nullptr;
    fftplan plan = nullptr;
};

SpectrumEngine::SpectrumEngine() { Prepare(); }

SpectrumEngine::~SpectrumEngine() = default;

QString SpectrumEngine::WindowText(Window window)
{
    if (!IsWindow(window))
        return QString();
    return QCoreApplication::translate("SpectrumEngine", Windows[static_cast<std::size_t>(window)].text);
}

bool SpectrumEngine::IsBins(int bins) { return bins >= MinBins && bins <= MaxBins && (bins & (bins - 1)) == 0; }

void SpectrumEngine::SetBins(int bins)
{
    if (!IsBins(bins) || bins == m_bins)
        return;
    m_bins = bins;
    Prepare();
}

void SpectrumEngine::SetWindow(Window window)
{
    if (!IsWindow(window) || window == m_window)
        return;
    m_window = window;
    Prepare();
}

void SpectrumEngine::SetReal(bool real)
{
    if (real == m_real)
        return;
    m_real = real;
    Prepare();
}

int SpectrumEngine::Samples() const { return m_real ? 2 * m_bins : m_bins; }

void SpectrumEngine::Add(std::complex<float> const * samples)
{
    auto const count = static_cast<std::size_t>(Samples());
    std::complex<float> * const in = m_pTransform->in;
    for (std::size_t i = 0; i < count; ++i)
        in[i] = { samples[i].real() * m_weights[i], m_real ? 0.0F : samples[i].imag() * m_weights[i] };
    fft_execute(m_pTransform->plan);
    std::complex<float> const * const out = m_pTransform->out;
    for (std::size_t i = 0; i < m_powers.size(); ++i) {
        double const re = static_cast<double>(out[i].real());
        double const im = static_cast<double>(out[i].imag());
        m_powers[i] += re * re + im * im;
    }
    ++m_added;
}

void SpectrumEngine::TakeLevels(std::vector<double> & levels)
{
    static double const least = std::pow(10.0, LevelFloor / 10.0);
    levels.resize(m_powers.size());
    double const scale = m_scale / std::max(m_added, 1);
    // the transform starts with 0 Hz and keeps what lies below it in its upper half
    std::size_t const first = m_real ? 0 : m_powers.size() / 2;
    for (std::size_t i = 0; i < levels.size(); ++i) {
        std::size_t const from = (i + first) & (m_powers.size() - 1);
        // both ends of a real spectrum hold half of a tone, its constant part holds all of it
        double const power = m_powers[from] * (m_real && from == 0 ? scale / 4.0 : scale);
        levels[i] = power > least && std::isfinite(power) ? 10.0 * std::log10(power) : LevelFloor;
    }
    Restart();
}

void SpectrumEngine::Prepare()
{
    auto const count = static_cast<unsigned int>(Samples());
    m_weights.resize(count);
    double sum = 0.0;
    for (unsigned int i = 0; i < count; ++i) {
        m_weights[i] = Windows[static_cast<std::size_t>(m_window)].weight(i, count);
        sum += static_cast<double>(m_weights[i]);
    }
    double const amplitude = m_real ? sum / 2.0 : sum; // what a full-scale tone reaches in its bin
    m_scale = 1.0 / (amplitude * amplitude);
    m_powers.resize(static_cast<std::size_t>(m_bins));
    m_pTransform.reset();
    m_pTransform = std::make_unique<Transform>(count);
    Restart();
}

void SpectrumEngine::Restart()
{
    std::fill(m_powers.begin(), m_powers.end(), 0.0);
    m_added = 0;
}
