// SPDX-License-Identifier: MIT
#ifndef ORIM_LINEMAKER_H
#define ORIM_LINEMAKER_H

#include "spectrumengine.h"
#include "spectrumline.h"

#include <QtGlobal>

#include <complex>
#include <memory>
#include <vector>

class ISampleSource;

//! Makes the line of a spectrum that belongs to a time of a source.
class LineMaker
{
public:
    //! Most spectra in the mean of one line.
    static constexpr int MaxAveraging = 64;

    //! \param source  borrowed: must outlive this.
    explicit LineMaker(ISampleSource & source);
    ~LineMaker();
    LineMaker(LineMaker const &) = delete;
    LineMaker & operator=(LineMaker const &) = delete;

    //! See SpectrumEngine.
    void SetBins(int bins) { m_engine.SetBins(bins); }

    int Bins() const { return m_engine.Bins(); }

    void SetWindow(SpectrumEngine::Window window) { m_engine.SetWindow(window); }

    SpectrumEngine::Window GetWindow() const { return m_engine.GetWindow(); }

    //! Spectra in the mean of one line: 1 for none, up to MaxAveraging; 0 for as many as cover the whole time of a
    //! line, so that nothing short goes unseen. Others are ignored.
    void SetAveraging(int spectra);

    int Averaging() const { return m_averaging; }

    //! Makes a line. Its spectra are spread evenly over its time; where that is too short for a number that was set
    //! they overlap by half and reach beyond it on both sides. A source with an end is read as a ring. \param number
    //! number of the line. \param seconds  middle of the line in the source, s; folded into a source with an end, at
    //! least 0 in an endless
    //!                 one, NaN and infinite count as 0.
    //! \param slice    time that the line stands for, s; what is not above 0 counts as 0.
    std::shared_ptr<SpectrumLine> Make(quint64 number, double seconds, double slice);

private:
    int SpectraOf(double sliceSamples) const;
    void AddSpectrum(qint64 first);

    ISampleSource & m_source;
    SpectrumEngine m_engine;
    int m_averaging = 0;
    std::vector<std::complex<float>> m_samples;
};

#endif
