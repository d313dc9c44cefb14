// SPDX-License-Identifier: MIT
#include "sigmfmeta.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonParseError>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace {

struct NumberRow
{
    char const * text;
    int bytes;
};

// in the order of SigmfMeta::Number
constexpr std::array<NumberRow, SigmfMeta::eNumberCount> Numbers{ {
    { "f32", 4 },
    { "f64", 8 },
    { "i32", 4 },
    { "u32", 4 },
    { "i16", 2 },
    { "u16", 2 },
    { "i8", 1 },
    { "u8", 1 },
} };

constexpr double MaxCount = 9007199254740992.0; // 2^53: above it a double skips integers

//! A whole number from 0 to 2^53, \a fallback where there is none; nothing when it is something else.
std::optional<qint64> WholeNumber(QJsonObject const & object, QLatin1String key, qint64 fallback)
{
    QJsonValue const value = object.value(key);
    if (value.isUndefined())
        return fallback;
    double const number = value.toDouble(-1.0);
    bool const whole = number >= 0.0 && number <= MaxCount && std::floor(number) == number; // false for NaN
    if (!whole)
        return std::nullopt;
    return static_cast<qint64>(number);
}

QString TextOf(QJsonObject const & object, char const * key) { return object.value(QLatin1String(key)).toString(); }

} // namespace

int SigmfMeta::Datatype::NumberBytes() const { return Numbers[static_cast<std::size_t>(number)].bytes; }

std::optional<SigmfMeta::Datatype> SigmfMeta::ParseDatatype(QString const & text)
{
    for (int number = 0; number < eNumberCount; ++number) {
        for (bool const complex : { false, true }) {
            for (bool const bigEndian : { false, true }) {
                Datatype datatype;
                datatype.number = static_cast<Number>(number);
                datatype.complex = complex;
                datatype.bigEndian = bigEndian && datatype.NumberBytes() > 1;
                if (Text(datatype) == text)
                    return datatype;
            }
        }
    }
    return std::nullopt;
}

QString SigmfMeta::Text(Datatype const & datatype)
{
    QString text = QLatin1String(datatype.complex ? "c" : "r");
    text += QLatin1String(Numbers[static_cast<std::size_t>(datatype.number)].text);
    if (datatype.NumberBytes() > 1)
        text += QLatin1String(datatype.bigEndian ? "_be" : "_le");
    return text;
}

std::optional<SigmfMeta> SigmfMeta::Parse(QByteArray const & json, QString & reason)
{
    if (json.size() > MaxBytes) {
        reason = tr("the metadata is longer than %1 bytes").arg(MaxBytes);
        return std::nullopt;
    }
    QJsonParseError fault;
    QJsonDocument const document = QJsonDocument::fromJson(json, &fault);
    if (fault.error != QJsonParseError::NoError) {
        reason = tr("no JSON text: %1 at byte %2").arg(fault.errorString()).arg(fault.offset);
        return std::nullopt;
    }
    QJsonObject const root = document.object();
    if (!root.value(QLatin1String("global")).isObject()) {
        reason = tr("no SigMF metadata: the object \"global\" is missing");
        return std::nullopt;
    }
    SigmfMeta meta;
    if (!meta.ReadGlobal(root.value(QLatin1String("global")).toObject(), reason))
        return std::nullopt;
    QJsonValue const captures = root.value(QLatin1String("captures"));
    if (!captures.isUndefined() && !captures.isArray()) {
        reason = tr("\"captures\" is no list");
        return std::nullopt;
    }
    if (!meta.ReadCaptures(captures.toArray(), reason))
        return std::nullopt;
    meta.m_annotations = root.value(QLatin1String("annotations")).toArray();
    return meta;
}

std::optional<SigmfMeta> SigmfMeta::Load(QString const & path, QString & error)
{
    QFileInfo const info(path);
    if (info.exists() && !info.isFile()) { // a pipe would block for ever
        error = tr("%1: is no file").arg(path);
        return std::nullopt;
    }
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        error = tr("%1: cannot be opened: %2").arg(path, file.errorString());
        return std::nullopt;
    }
    QByteArray const json = file.read(MaxBytes + 1);
    if (file.error() != QFileDevice::NoError) {
        error = tr("%1: cannot be read: %2").arg(path, file.errorString());
        return std::nullopt;
    }
    QString reason;
    std::optional<SigmfMeta> meta = Parse(json, reason);
    if (!meta)
        error = tr("%1: %2").arg(path, reason);
    return meta;
}

bool SigmfMeta::ReadGlobal(QJsonObject const & global, QString & reason)
{
    QJsonValue const type = global.value(QLatin1String("core:datatype"));
    std::optional<Datatype> const datatype = ParseDatatype(type.toString());
    if (!datatype) {
        reason = type.isString() ? tr("unknown core:datatype \"%1\"").arg(type.toString().left(40))
                                 : tr("core:datatype is missing");
        return false;
    }
    m_datatype = *datatype;

    m_sampleRate = global.value(QLatin1String("core:sample_rate")).toDouble(0.0);
    if (!(m_sampleRate > 0.0 && m_sampleRate <= MaxRate)) {
        reason = tr("core:sample_rate is missing or not above 0 and at most %1 Hz").arg(MaxRate);
        return false;
    }
    constexpr auto mostSamples = static_cast<double>(std::numeric_limits<qint64>::max());
    if (!std::isfinite(mostSamples / m_sampleRate)) {
        reason = tr("core:sample_rate is too low: the duration is not finite");
        return false;
    }
    std::optional<qint64> const channels = WholeNumber(global, QLatin1String("core:num_channels"), 1);
    if (!channels || *channels < 1 || *channels > MaxChannels) {
        reason = tr("core:num_channels is no number from 1 to %1").arg(MaxChannels);
        return false;
    }
    m_channels = static_cast<int>(*channels);

    std::optional<qint64> const offset = WholeNumber(global, QLatin1String("core:offset"), 0);
    std::optional<qint64> const trailing = WholeNumber(global, QLatin1String("core:trailing_bytes"), 0);
    if (!offset || !trailing) {
        reason = tr("core:offset or core:trailing_bytes is no whole number");
        return false;
    }
    m_offset = *offset;
    m_trailingBytes = *trailing;
    if (global.value(QLatin1String("core:metadata_only")).toBool()) {
        reason = tr("the metadata stands alone, without samples");
        return false;
    }
    m_dataset = TextOf(global, "core:dataset");
    if (m_dataset.contains(QLatin1Char('/')) || m_dataset.contains(QChar(0)) || m_dataset == QLatin1String("..")) {
        reason = tr("core:dataset is no plain file name");
        return false;
    }
    m_sha512 = TextOf(global, "core:sha512");
    m_description = TextOf(global, "core:description");
    m_author = TextOf(global, "core:author");
    m_hardware = TextOf(global, "core:hw");
    return true;
}

bool SigmfMeta::ReadCaptures(QJsonArray const & captures, QString & reason)
{
    if (captures.size() > MaxCaptures) {
        reason = tr("more than %1 captures segments").arg(MaxCaptures);
        return false;
    }
    if (captures.isEmpty())
        m_segments.resize(1);
    m_segments.reserve(static_cast<std::size_t>(captures.size()));
    QDateTime latest;
    for (QJsonValue const & value : captures) {
        Segment segment;
        if (!value.isObject()) {
            reason = tr("a captures segment is no object");
            return false;
        }
        if (!ReadCapture(value.toObject(), segment, reason))
            return false;
        bool const startsBack = !m_segments.empty() && segment.start < m_segments.back().start;
        bool const timeGoesBack = segment.datetime.isValid() && latest.isValid() && segment.datetime < latest;
        if (startsBack || timeGoesBack) {
            reason = tr("captures segment %1 goes back in time").arg(m_segments.size());
            return false;
        }
        if (segment.datetime.isValid())
            latest = segment.datetime;
        m_segments.push_back(segment);
    }
    return true;
}

bool SigmfMeta::ReadCapture(QJsonObject const & capture, Segment & segment, QString & reason) const
{
    std::optional<qint64> const start = WholeNumber(capture, QLatin1String("core:sample_start"), -1);
    if (!start || *start < m_offset) {
        reason = tr("core:sample_start is missing or no whole number from core:offset up");
        return false;
    }
    std::optional<qint64> const header = WholeNumber(capture, QLatin1String("core:header_bytes"), 0);
    if (!header) {
        reason = tr("core:header_bytes is no whole number");
        return false;
    }
    QJsonValue const frequency = capture.value(QLatin1String("core:frequency"));
    double const hertz = frequency.toDouble(0.0);
    bool const numeric = frequency.isUndefined() || frequency.isDouble();
    if (!numeric || !(std::abs(hertz) <= MaxFrequency)) {
        reason = tr("core:frequency is no number of at most %1 Hz").arg(MaxFrequency);
        return false;
    }
    segment.start = *start - m_offset;
    segment.headerBytes = *header;
    segment.frequency = hertz;
    segment.datetime = QDateTime::fromString(TextOf(capture, "core:datetime"), Qt::ISODateWithMs).toUTC();
    return true;
}

SigmfMeta::Segment const & SigmfMeta::SegmentAt(qint64 sample) const
{
    auto const behind = std::upper_bound(m_segments.begin(), m_segments.end(), sample,
                                         [](qint64 at, Segment const & segment) { return at < segment.start; });
    return behind == m_segments.begin() ? m_segments.front() : *(behind - 1);
}
