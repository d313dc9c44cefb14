// SPDX-License-Identifier: MIT
#include "sigmfrecording.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cmath>
#include <cstring>
#include <limits>
#include <type_traits>
#include <utility>

#include <unistd.h>

namespace {

QLatin1String const MetaSuffix(".sigmf-meta");
QLatin1String const DataSuffix(".sigmf-data");
constexpr qint64 PieceBytes = 256 * 1024; // read at a time, at least one sample of all channels
constexpr qint64 HashBytes = 1024 * 1024; // hashed at a time

//! The unsigned integer that has the bytes of a number.
template <class Number>
using Bits = std::conditional_t<
    sizeof(Number) == 8, quint64,
    std::conditional_t<sizeof(Number) == 4, quint32, std::conditional_t<sizeof(Number) == 2, quint16, quint8>>>;

template <class Number, bool BigEndian>
Number Load(uchar const * bytes)
{
    using Raw = Bits<Number>;
    Raw const raw = BigEndian ? qFromBigEndian<Raw>(bytes) : qFromLittleEndian<Raw>(bytes);
    Number number;
    std::memcpy(&number, &raw, sizeof(number));
    return number;
}

template <class Number>
float Normalise(Number number)
{
    using Limits = std::numeric_limits<Number>;
    if constexpr (std::is_floating_point_v<Number>) {
        constexpr auto most = static_cast<Number>(SigmfRecording::MaxMagnitude);
        return std::isfinite(number) ? static_cast<float>(std::clamp(number, -most, most)) : 0.0F;
    } else if constexpr (std::is_signed_v<Number>) {
        constexpr double scale = -1.0 / static_cast<double>(Limits::lowest());
        return static_cast<float>(static_cast<double>(number) * scale);
    } else {
        constexpr double half = static_cast<double>(Limits::max()) / 2.0;
        return static_cast<float>((static_cast<double>(number) - half) / half);
    }
}

template <class Number, bool BigEndian, class Sample>
void Convert(uchar const * from, qint64 stride, bool complex, Sample * out, qint64 count)
{
    for (qint64 i = 0; i < count; ++i, from += stride) {
        float const re = Normalise(Load<Number, BigEndian>(from));
        if constexpr (std::is_same_v<Sample, float>)
            out[i] = re;
        else
            out[i] = { re, complex ? Normalise(Load<Number, BigEndian>(from + sizeof(Number))) : 0.0F };
    }
}

template <class Sample>
using Converter = void (*)(uchar const * from, qint64 stride, bool complex, Sample * out, qint64 count);

template <class Sample>
Converter<Sample> ConverterOf(SigmfMeta::Datatype const & datatype)
{
    struct Row
    {
        Converter<Sample> little;
        Converter<Sample> big;
    };

    // in the order of SigmfMeta::Number
    constexpr std::array<Row, SigmfMeta::eNumberCount> rows{ {
        { Convert<float, false, Sample>, Convert<float, true, Sample> },
        { Convert<double, false, Sample>, Convert<double, true, Sample> },
        { Convert<qint32, false, Sample>, Convert<qint32, true, Sample> },
        { Convert<quint32, false, Sample>, Convert<quint32, true, Sample> },
        { Convert<qint16, false, Sample>, Convert<qint16, true, Sample> },
        { Convert<quint16, false, Sample>, Convert<quint16, true, Sample> },
        { Convert<qint8, false, Sample>, Convert<qint8, true, Sample> },
        { Convert<quint8, false, Sample>, Convert<quint8, true, Sample> },
    } };
    Row const & row = rows[static_cast<std::size_t>(datatype.number)];
    return datatype.bigEndian ? row.big : row.little;
}

} // namespace

SigmfRecording::SigmfRecording(SigmfMeta meta) : m_meta(std::move(meta)) {}

SigmfRecording::~SigmfRecording() = default;

QString SigmfRecording::DataPath(QString const & metaPath) { return metaPath.chopped(MetaSuffix.size()) + DataSuffix; }

std::unique_ptr<SigmfRecording> SigmfRecording::Open(QString const & path, QString & error)
{
    std::optional<SigmfMeta> meta = SigmfMeta::Load(path, error);
    if (!meta)
        return nullptr;
    QString data;
    if (!meta->Dataset().isEmpty()) {
        data = QFileInfo(path).dir().filePath(meta->Dataset());
    } else if (path.endsWith(MetaSuffix)) {
        data = DataPath(path);
    } else {
        error = tr("%1: the name does not end in %2").arg(path, MetaSuffix);
        return nullptr;
    }
    std::unique_ptr<SigmfRecording> recording(new SigmfRecording(std::move(*meta)));
    return recording->OpenData(data, error) ? std::move(recording) : nullptr;
}

bool SigmfRecording::OpenData(QString const & dataPath, QString & error)
{
    m_file.setFileName(dataPath);
    QFileInfo const info(dataPath);
    if (!info.isFile()) { // a pipe would block for ever
        error = info.exists() ? tr("%1: is no file").arg(dataPath) : tr("%1: the data file is missing").arg(dataPath);
        return false;
    }
    if (!m_file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        error = tr("%1: cannot be opened: %2").arg(dataPath, m_file.errorString());
        return false;
    }
    QString reason;
    if (!Measure(m_file.size(), reason)) {
        error = tr("%1: %2").arg(dataPath, reason);
        return false;
    }
    if (!MatchesHash()) {
        error = tr("%1: the data does not match core:sha512").arg(dataPath);
        return false;
    }
    return true;
}

//! True also where nothing is there to compare with, and for a file too long to be hashed.
bool SigmfRecording::MatchesHash()
{
    qint64 const bytes = m_file.size();
    if (m_meta.Sha512().isEmpty() || bytes > MaxHashed)
        return true;
    QCryptographicHash hash(QCryptographicHash::Sha512);
    for (qint64 done = 0; done < bytes;) {
        QByteArray const piece = m_file.read(std::min(HashBytes, bytes - done));
        if (piece.isEmpty())
            return false;
        hash.addData(piece);
        done += piece.size();
    }
    return QString::fromLatin1(hash.result().toHex()) == m_meta.Sha512().toLower();
}

bool SigmfRecording::Measure(qint64 bytes, QString & reason)
{
    qint64 payload = bytes;
    bool tooShort = m_meta.TrailingBytes() > payload;
    payload -= tooShort ? 0 : m_meta.TrailingBytes();
    for (SigmfMeta::Segment const & segment : m_meta.Segments()) {
        tooShort = tooShort || segment.headerBytes > payload;
        payload -= tooShort ? 0 : segment.headerBytes;
    }
    qint64 const frame = m_meta.FrameBytes();
    if (tooShort || payload < frame) {
        reason = tr("the file of %1 bytes holds no sample").arg(bytes);
        return false;
    }
    if (payload % frame != 0) {
        reason = tr("the file ends within a sample: %1 bytes are no multiple of %2").arg(payload).arg(frame);
        return false;
    }
    m_length = payload / frame;
    if (m_meta.Segments().back().start >= m_length) {
        reason = tr("the file is too short: a captures segment starts at sample %1 of %2")
                     .arg(m_meta.Segments().back().start)
                     .arg(m_length);
        return false;
    }
    qint64 headers = 0;
    m_extents.push_back(Extent());
    for (SigmfMeta::Segment const & segment : m_meta.Segments()) {
        headers += segment.headerBytes;
        if (segment.headerBytes == 0)
            continue;
        if (m_extents.back().first == segment.start)
            m_extents.pop_back();
        m_extents.push_back({ segment.start, headers + segment.start * frame });
    }
    return true;
}

qint64 SigmfRecording::Read(qint64 position, std::complex<float> * out, qint64 count) const
{
    return ReadSamples(position, out, count);
}

qint64 SigmfRecording::Read(qint64 position, float * out, qint64 count) const
{
    return ReadSamples(position, out, count);
}

template <class Sample>
qint64 SigmfRecording::ReadSamples(qint64 position, Sample * out, qint64 count) const
{
    if (position < 0 || position >= m_length)
        return 0;
    auto extent = std::upper_bound(m_extents.begin(), m_extents.end(), position,
                                   [](qint64 at, Extent const & e) { return at < e.first; }) -
                  1;
    qint64 const wanted = std::min(count, m_length - position);
    qint64 done = 0;
    while (done < wanted) {
        bool const last = extent + 1 == m_extents.end();
        qint64 const at = position + done;
        qint64 const offset = extent->offset + (at - extent->first) * m_meta.FrameBytes();
        qint64 const stretch = std::min(wanted - done, (last ? m_length : (extent + 1)->first) - at);
        qint64 const part = ReadStretch(offset, out + done, stretch);
        done += part;
        if (part < stretch)
            break;
        ++extent;
    }
    return done;
}

//! Reads samples that lie in the file without a gap, from a byte of it on.
template <class Sample>
qint64 SigmfRecording::ReadStretch(qint64 offset, Sample * out, qint64 count) const
{
    qint64 const frame = m_meta.FrameBytes();
    qint64 const most = std::max<qint64>(1, PieceBytes / frame);
    Converter<Sample> const convert = ConverterOf<Sample>(m_meta.GetDatatype());
    qint64 done = 0;
    while (done < count) {
        qint64 const wanted = std::min(count - done, most);
        qint64 const got = ReadBytes(offset + done * frame, wanted * frame) / frame;
        convert(m_piece.data(), frame, !m_meta.IsReal(), out + done, got);
        done += got;
        if (got < wanted)
            break;
    }
    return done;
}

//! Reads bytes into m_piece; fewer where the file ends. A mapped file that another program cuts would end this one.
qint64 SigmfRecording::ReadBytes(qint64 offset, qint64 bytes) const
{
    m_piece.resize(std::max(m_piece.size(), static_cast<std::size_t>(bytes)));
    qint64 done = 0;
    while (done < bytes) {
        ssize_t const got =
            ::pread(m_file.handle(), m_piece.data() + done, static_cast<std::size_t>(bytes - done), offset + done);
        if (got < 0 && errno == EINTR)
            continue;
        if (got <= 0)
            break;
        done += got;
    }
    return done;
}
