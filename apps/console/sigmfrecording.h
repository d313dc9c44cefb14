// SPDX-License-Identifier: MIT
#ifndef ORIM_SIGMFRECORDING_H
#define ORIM_SIGMFRECORDING_H

#include "sigmfmeta.h"

#include <QCoreApplication>
#include <QFile>
#include <QString>

#include <complex>
#include <memory>
#include <vector>

//! The samples of a SigMF recording. The data file is read in pieces, never loaded; of several channels the first is
//! read. Used from one thread at a time.
//!
//! Numbers become floats so that full scale is 1: those of 32 and 64 bit floating point as they stand, signed integers
//! divided by the magnitude of their lowest, unsigned ones from -1 for the lowest to 1 for the highest. A floating
//! point number that is NaN or infinite reads as 0, one beyond MaxMagnitude as MaxMagnitude with its sign.
class SigmfRecording
{
    Q_DECLARE_TR_FUNCTIONS(SigmfRecording)

public:
    static constexpr float MaxMagnitude = 1e6F;
    static constexpr qint64 MaxHashed = 256 * 1024 * 1024; //!< longest data file that is checked against core:sha512

    //! Opens a recording.
    //! \param path   path of the metadata file, which ends in ".sigmf-meta".
    //! \param error  receives the path of the file at fault and the reason; unchanged on success.
    //! \return null when the recording was refused: the sizes it tells of are checked before any of them is used,
    //!         and the data must match core:sha512 where the metadata has one.
    static std::unique_ptr<SigmfRecording> Open(QString const & path, QString & error);
    ~SigmfRecording();
    SigmfRecording(SigmfRecording const &) = delete;
    SigmfRecording & operator=(SigmfRecording const &) = delete;

    //! Path of the data file that belongs to a metadata file, when the metadata names no other.
    static QString DataPath(QString const & metaPath);

    SigmfMeta const & Meta() const { return m_meta; }

    //! Samples of one channel, 1 and above.
    qint64 Length() const { return m_length; }

    //! Length, s.
    double Duration() const { return static_cast<double>(m_length) / m_meta.SampleRate(); }

    //! Reads samples; the imaginary parts of real-valued ones are 0.
    //! \param position  first sample; one outside the recording reads nothing.
    //! \param out       room for \a count samples.
    //! \param count     samples wanted.
    //! \return samples read, fewer at the end of the recording and where the file has shrunk since it was opened.
    qint64 Read(qint64 position, std::complex<float> * out, qint64 count) const;
    //! Reads the real parts alone.
    qint64 Read(qint64 position, float * out, qint64 count) const;

private:
    //! Samples that lie in the file without a gap.
    struct Extent
    {
        qint64 first = 0;  // sample
        qint64 offset = 0; // byte of that sample in the file
    };

    explicit SigmfRecording(SigmfMeta meta);
    bool OpenData(QString const & dataPath, QString & error);
    bool Measure(qint64 bytes, QString & reason);
    bool MatchesHash();
    template <class Sample>
    qint64 ReadSamples(qint64 position, Sample * out, qint64 count) const;
    template <class Sample>
    qint64 ReadStretch(qint64 offset, Sample * out, qint64 count) const;
    qint64 ReadBytes(qint64 offset, qint64 bytes) const;

    SigmfMeta m_meta;
    QFile m_file;
    mutable std::vector<uchar> m_piece; // bytes read last
    std::vector<Extent> m_extents;      // ascending, the first at sample 0
    qint64 m_length = 0;
};

#endif
