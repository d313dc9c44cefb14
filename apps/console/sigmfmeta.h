// SPDX-License-Identifier: MIT
#ifndef ORIM_SIGMFMETA_H
#define ORIM_SIGMFMETA_H

#include <QByteArray>
#include <QCoreApplication>
#include <QDateTime>
#include <QJsonArray>
#include <QString>

#include <optional>
#include <vector>

class QJsonObject;

//! Metadata of a SigMF recording: what its samples are, and when and where on the radio spectrum they were taken.
//!
//! Whatever is not what it should be is refused with a reason; nothing is guessed. Members of other name spaces, and
//! those of the core that playing does not need, are passed over.
class SigmfMeta
{
    Q_DECLARE_TR_FUNCTIONS(SigmfMeta)

public:
    static constexpr qint64 MaxBytes = 8 * 1024 * 1024; //!< longest metadata file that is read
    static constexpr int MaxCaptures = 65536;           //!< most captures segments
    static constexpr int MaxChannels = 4096;            //!< most interleaved channels
    static constexpr double MaxRate = 1e12;             //!< highest sample rate, Hz
    static constexpr double MaxFrequency = 1e12;        //!< highest magnitude of a frequency, Hz

    enum Number : int
    {
        eF32,
        eF64,
        eI32,
        eU32,
        eI16,
        eU16,
        eI8,
        eU8,
        eNumberCount
    };

    //! What one sample is made of.
    struct Datatype
    {
        Number number = eI8;
        bool complex = false;   // two numbers a sample, the real part first
        bool bigEndian = false; // false for single bytes
        int NumberBytes() const;

        //! Bytes of one sample of one channel.
        int SampleBytes() const { return complex ? 2 * NumberBytes() : NumberBytes(); }
    };

    //! A stretch of the recording with one setting of the receiver.
    struct Segment
    {
        qint64 start = 0;       // first sample, counted from the first of the data file
        double frequency = 0.0; // Hz, tuned; 0 where none is told
        QDateTime datetime;     // of the first sample, UTC; invalid where none is told
        qint64 headerBytes = 0; // bytes in the data file before the first sample, no samples themselves
    };

    //! Reads the text of a metadata file.
    //! \param json    the text.
    //! \param reason  receives why it was refused; unchanged when it was not.
    //! \return nothing when it was refused.
    static std::optional<SigmfMeta> Parse(QByteArray const & json, QString & reason);
    //! Reads a metadata file.
    //! \param path    path of the file.
    //! \param error   receives the path and why it was refused; unchanged when it was not.
    //! \return nothing when it was refused.
    static std::optional<SigmfMeta> Load(QString const & path, QString & error);

    //! Reads the text of a core:datatype, as in "cf32_le"; single bytes bear no "_le" or "_be".
    static std::optional<Datatype> ParseDatatype(QString const & text);
    //! The text of a datatype.
    static QString Text(Datatype const & datatype);

    Datatype const & GetDatatype() const { return m_datatype; }

    //! Whether the samples are real-valued.
    bool IsReal() const { return !m_datatype.complex; }

    //! Samples a second, Hz: above 0, at most MaxRate, not always an integer; so high that every number of samples has
    //! a finite duration.
    double SampleRate() const { return m_sampleRate; }

    //! Channels whose samples are interleaved, 1 to MaxChannels. The first is the one that is played.
    int Channels() const { return m_channels; }

    //! Bytes of one sample of all channels.
    qint64 FrameBytes() const { return static_cast<qint64>(m_channels) * m_datatype.SampleBytes(); }

    //! Bytes behind the last sample, no samples themselves.
    qint64 TrailingBytes() const { return m_trailingBytes; }

    //! Name of the data file in the folder of the metadata; empty: the name of the metadata file with ".sigmf-data".
    QString const & Dataset() const { return m_dataset; }

    //! SHA-512 of the data file, hexadecimal; empty where none is told.
    QString const & Sha512() const { return m_sha512; }

    QString const & Description() const { return m_description; }

    QString const & Author() const { return m_author; }

    QString const & Hardware() const { return m_hardware; }

    //! At least one segment, their starts ascending.
    std::vector<Segment> const & Segments() const { return m_segments; }

    //! The segment of a sample: the last one that starts at it or before it, the first one where none does.
    Segment const & SegmentAt(qint64 sample) const;

    //! Tuned frequency at a sample, Hz.
    double FrequencyAt(qint64 sample) const { return SegmentAt(sample).frequency; }

    //! The annotations, as they stand in the file.
    QJsonArray const & Annotations() const { return m_annotations; }

private:
    SigmfMeta() = default;
    bool ReadGlobal(QJsonObject const & global, QString & reason);
    bool ReadCaptures(QJsonArray const & captures, QString & reason);
    bool ReadCapture(QJsonObject const & capture, Segment & segment, QString & reason) const;

    Datatype m_datatype;
    double m_sampleRate = 1.0;
    int m_channels = 1;
    qint64 m_offset = 0; // number of the first sample of the data file
    qint64 m_trailingBytes = 0;
    QString m_dataset;
    QString m_sha512;
    QString m_description;
    QString m_author;
    QString m_hardware;
    std::vector<Segment> m_segments;
    QJsonArray m_annotations;
};

#endif
