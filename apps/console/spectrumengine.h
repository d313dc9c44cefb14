// SPDX-License-Identifier: MIT
#ifndef ORIM_SPECTRUMENGINE_H
#define ORIM_SPECTRUMENGINE_H

#include <QString>

#include <complex>
#include <memory>
#include <vector>

//! Makes levels of samples: window, Fourier transform, linear mean of the powers, dBFS.
//!
//! A tone of amplitude 1 shows as 0 dBFS whatever the window: exp(jwt) in I/Q samples, cos(wt) in real-valued ones.
//! Used from one thread at a time; different engines may live in different threads.
class SpectrumEngine
{
public:
    enum Window : int
    {
        eWindowRectangular = 0,
        eWindowHann,
        eWindowHamming,
        eWindowBlackmanHarris,
        eWindowFlatTop,
        eWindowKaiser, // beta 10: side lobes below -100 dB
        eWindowCount
    };

    static constexpr int MinBins = 64;
    static constexpr int MaxBins = 65536;

    //! 1024 bins of I/Q samples through a Hann window.
    SpectrumEngine();
    ~SpectrumEngine();
    SpectrumEngine(SpectrumEngine const &) = delete;
    SpectrumEngine & operator=(SpectrumEngine const &) = delete;

    //! Name of a window for the operator; empty for what is none.
    static QString WindowText(Window window);
    //! Whether a number of bins can be set: a power of two from MinBins to MaxBins.
    static bool IsBins(int bins);

    //! Number of levels of a line. What IsBins() refuses is ignored. A change empties the mean.
    void SetBins(int bins);

    int Bins() const { return m_bins; }

    //! What is no window is ignored. A change empties the mean.
    void SetWindow(Window window);

    Window GetWindow() const { return m_window; }

    //! Whether the samples are real-valued: the levels then show 0 to half the rate. A change empties the mean.
    void SetReal(bool real);

    bool IsReal() const { return m_real; }

    //! Samples that one spectrum takes: as many as bins, twice as many when they are real-valued.
    int Samples() const;
    //! Adds the spectrum of Samples() samples to the mean. The imaginary parts of real-valued samples are not used.
    void Add(std::complex<float> const * samples);

    //! Spectra in the mean.
    int Added() const { return m_added; }

    //! Writes the mean of the spectra added, Bins() levels in dBFS ascending in frequency, LevelFloor where there is no
    //! power and where nothing was added; then empties the mean.
    void TakeLevels(std::vector<double> & levels);

private:
    struct Transform;
    void Prepare();
    void Restart();

    int m_bins = 1024;
    Window m_window = eWindowHann;
    bool m_real = false;
    int m_added = 0;
    double m_scale = 1.0;         // power of a full-scale tone to 1
    std::vector<float> m_weights; // the window
    std::vector<double> m_powers; // sums, in the order of the transform
    std::unique_ptr<Transform> m_pTransform;
};

#endif
