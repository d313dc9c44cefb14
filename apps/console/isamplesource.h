// SPDX-License-Identifier: MIT
#ifndef ORIM_ISAMPLESOURCE_H
#define ORIM_ISAMPLESOURCE_H

#include <QtGlobal>

#include <complex>

//! Where samples come from: a recording or a simulated receiver. Used from one thread at a time.
//!
//! The samples of an I/Q source show the whole sample rate with the tuned frequency in the middle; those of a
//! real-valued source show 0 to half the rate with the tuned frequency at the left end.
class ISampleSource
{
public:
    virtual ~ISampleSource() = default;

    //! Samples per second, Hz: finite and above 0, not always an integer.
    virtual double SampleRate() const = 0;
    //! Whether the samples are real-valued; their imaginary parts are then 0.
    virtual bool IsReal() const = 0;
    //! Middle of what the samples show, Hz: the tuned frequency of an I/Q source, the tuned frequency plus a quarter of
    //! the rate of a real-valued one. \param position  sample that is asked for; one outside the source counts as the
    //! nearest within.
    virtual double CentreFrequency(qint64 position) const = 0;
    //! Samples of one turn; 0: endless.
    virtual qint64 Length() const = 0;

    //! Writes the next samples and moves on behind them. Full scale is 1. No sample is NaN or infinite.
    //! \param out    room for \a count samples.
    //! \param count  0 and below reads nothing.
    //! \return samples written: \a count, fewer when the source cannot give more now.
    virtual qint64 Read(std::complex<float> * out, qint64 count) = 0;
    //! Moves to a sample. A source with an end folds any position into its length; one without takes a negative one as
    //! 0.
    virtual void Seek(qint64 sample) = 0;
    //! The sample that the next Read() starts with.
    virtual qint64 Position() const = 0;

    //! Width of what the samples show, Hz: the sample rate, half of it for real-valued samples.
    double Span() const { return IsReal() ? SampleRate() / 2.0 : SampleRate(); }

    //! Left end of what the samples show, Hz.
    double LeftFrequency(qint64 position) const { return CentreFrequency(position) - Span() / 2.0; }

    //! Length of one turn, s; 0: endless.
    double Duration() const { return static_cast<double>(Length()) / SampleRate(); }

protected:
    ISampleSource() = default;
    ISampleSource(ISampleSource const &) = default;
    ISampleSource & operator=(ISampleSource const &) = default;
};

#endif
