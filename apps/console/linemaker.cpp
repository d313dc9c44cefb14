// SPDX-License-Identifier: MIT
#include "linemaker.h"

#include "isamplesource.h"
#include "toint.h"

#include <algorithm>
#include <cmath>

LineMaker::LineMaker(ISampleSource & source) : m_source(source) { m_engine.SetReal(source.IsReal()); }

LineMaker::~LineMaker() = default;

void LineMaker::SetAveraging(int spectra)
{
    if (spectra >= 0 && spectra <= MaxAveraging)
        m_averaging = spectra;
}

std::shared_ptr<SpectrumLine> LineMaker::Make(quint64 number, double seconds, double slice)
{
    auto line = std::make_shared<SpectrumLine>();
    double const duration = m_source.Duration();
    double const at = std::isfinite(seconds) ? seconds : 0.0;
    bool const isRing = duration > 0.0 && std::isfinite(duration);
    double const folded = isRing ? std::fmod(std::fmod(at, duration) + duration, duration) : std::max(at, 0.0);
    double const rate = m_source.SampleRate();
    double const middle = folded * rate;
    double const sliceSamples = std::isfinite(slice) && slice > 0.0 ? slice * rate : 0.0;

    int const spectra = SpectraOf(sliceSamples);
    double const size = m_engine.Samples();
    double const least = m_averaging > 0 ? size + (spectra - 1) * size / 2.0 : size;
    double const extent = std::max(sliceSamples, least);
    double const step = spectra > 1 ? (extent - size) / (spectra - 1) : 0.0;
    double const first = middle - (spectra > 1 ? extent : size) / 2.0;
    for (int i = 0; i < spectra; ++i)
        AddSpectrum(toInt<qint64>(std::round(first + i * step)));

    line->number = number;
    line->seconds = folded;
    line->centre = m_source.CentreFrequency(toInt<qint64>(middle));
    line->span = m_source.Span();
    m_engine.TakeLevels(line->levels);
    return line;
}

int LineMaker::SpectraOf(double sliceSamples) const
{
    if (m_averaging > 0)
        return m_averaging;
    return std::clamp(toInt(std::min(std::ceil(sliceSamples / m_engine.Samples()), 1.0 * MaxAveraging)), 1,
                      MaxAveraging);
}

void LineMaker::AddSpectrum(qint64 first)
{
    m_samples.resize(static_cast<std::size_t>(m_engine.Samples()));
    m_source.Seek(first);
    auto const wanted = static_cast<qint64>(m_samples.size());
    qint64 const got = std::clamp<qint64>(m_source.Read(m_samples.data(), wanted), 0, wanted);
    std::fill(m_samples.begin() + got, m_samples.end(), std::complex<float>());
    m_engine.Add(m_samples.data());
}
