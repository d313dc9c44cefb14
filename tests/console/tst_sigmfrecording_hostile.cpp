// SPDX-License-Identifier: MIT
#include "linemaker.h"
#include "recordingsource.h"
#include "sigmfrecording.h"

#include "sigmffiles.h"
#include "testmain.h"

#include <QElapsedTimer>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <random>

#include <sys/resource.h>

namespace {

using Random = std::mt19937_64;

// numbers that are no count of anything, as JSON
constexpr std::array<char const *, 14> Lies{ { "4294967295", "-1", "1e300", "-1e300", "0.5", "9007199254740993",
                                               "18446744073709551615", "\"7\"", "null", "true", "NaN", "[]", "{}",
                                               "1e-320" } };
constexpr std::array<char const *, 11> NoRates{ { "0", "-1", "NaN", "1e300", "-1e300", "\"48000\"", "null", "-0.0",
                                                  "1e13", "[48000]", "5e-324" } };
constexpr std::array<char const *, 8> Types{ { "cf32_le", "cf64_be", "ri32_le", "cu32_be", "ri16_be", "cu16_le", "ci8",
                                               "ru8" } };
constexpr rlim_t MostAddresses = 1024UL * 1024UL * 1024UL;

enum Kind : int
{
    eFlippedBytes,
    eFlippedNumbers,
    eNotANumberRuns,
    eSparse,
    eRefusedFrom, // the kinds from here on must be refused
    eChannels = eRefusedFrom,
    eRate,
    eStart,
    eHeader,
    eTrailing,
    eOffset,
    eNoDivisor,
    eNoData,
    eDeep,
    eManySegments,
    eBackInTime,
    eCutOff,
    eKindCount
};

template <class Array>
QByteArray Any(Random & random, Array const & from)
{
    return from[random() % from.size()];
}

QByteArray Segment(QByteArray const & start, QByteArray const & more = QByteArray())
{
    return "{\"core:sample_start\": " + start + more + '}';
}

//! Data that a datatype of any width divides.
QByteArray RandomData(Random & random)
{
    QByteArray data(static_cast<int>(16 * (1 + random() % 200)), '\0');
    for (char & byte : data)
        byte = static_cast<char>(random());
    return data;
}

QByteArray DeepText(Random & random)
{
    int const depth = 2000 + static_cast<int>(random() % 500000);
    return random() % 2 == 0 ? QByteArray("{\"global\": ") + QByteArray(depth, '[') + QByteArray(depth, ']') + '}'
                             : QByteArray("{\"a\":").repeated(depth) + "1" + QByteArray(depth, '}');
}

QByteArray ManySegments(Random & random)
{
    QByteArray const one = random() % 2 == 0 ? Segment("0") : QByteArray("{}");
    int const count = SigmfMeta::MaxCaptures + 1 + static_cast<int>(random() % 40000);
    QByteArray captures = (one + ',').repeated(count);
    captures.chop(1);
    return captures;
}

struct Files
{
    QByteArray meta;
    QByteArray data;
};

Files RefusedFiles(Random & random, Kind kind)
{
    QByteArray const type = Any(random, Types);
    QByteArray const lie = Any(random, Lies);
    Files files{ SigmfFiles::Meta(type), RandomData(random) };
    switch (kind) {
    case eChannels:
        files.meta = SigmfFiles::Meta(type, "\"core:num_channels\": " + lie);
        break;
    case eRate:
        files.meta.replace("\"core:sample_rate\": 1000", "\"core:sample_rate\": " + Any(random, NoRates));
        break;
    case eStart:
        files.meta = SigmfFiles::Meta(type, "", Segment("0") + ',' + Segment(lie));
        break;
    case eHeader:
        files.meta = SigmfFiles::Meta(type, "", Segment("0", ", \"core:header_bytes\": " + lie));
        break;
    case eTrailing:
        files.meta = SigmfFiles::Meta(type, "\"core:trailing_bytes\": " + lie);
        break;
    case eOffset:
        files.meta = SigmfFiles::Meta(type, "\"core:offset\": " + lie);
        break;
    case eNoDivisor:
        files.meta = SigmfFiles::Meta("cf64_le");
        files.data.chop(1 + static_cast<int>(random() % 15));
        break;
    case eNoData:
        files.data.clear();
        break;
    case eDeep:
        files.meta = DeepText(random);
        break;
    case eManySegments:
        files.meta = SigmfFiles::Meta(type, "", ManySegments(random));
        break;
    case eBackInTime:
        files.meta = SigmfFiles::Meta(type, "",
                                      Segment("0", ", \"core:datetime\": \"2030-01-01T00:00:00Z\"") + ',' +
                                          Segment("1", ", \"core:datetime\": \"1970-01-01T00:00:00Z\""));
        break;
    default:
        files.meta.truncate(static_cast<int>(random() % static_cast<quint64>(files.meta.size())));
        break;
    }
    return files;
}

Files OddFiles(Random & random, Kind kind)
{
    QByteArray const captures =
        Segment("0", ", \"core:frequency\": 1e6, \"core:header_bytes\": 0") + ',' + Segment("1");
    Files files{ SigmfFiles::Meta(Any(random, Types), "\"core:num_channels\": 1, \"core:offset\": 0", captures),
                 RandomData(random) };
    if (kind == eFlippedBytes) {
        for (quint64 i = 1 + random() % 4; i > 0; --i)
            files.meta[static_cast<int>(random() % static_cast<quint64>(files.meta.size()))] =
                static_cast<char>(random());
    } else if (kind == eFlippedNumbers) {
        std::array<char const *, 5> const places{ ": 1000", ": 1,", ": 0,", ": 1e6", ": 0}" };
        QByteArray const place = Any(random, places);
        files.meta.replace(place,
                           ": " + Any(random, Lies) + place.right(place.endsWith('0') || place.endsWith('6') ? 0 : 1));
    } else if (kind == eNotANumberRuns) {
        files.meta = SigmfFiles::Meta(random() % 2 == 0 ? "cf32_le" : "cf64_le");
        files.data.fill('\xff', files.data.size());
    }
    return files;
}

//! Largest address space of this process so far, MB.
long PeakAddressSpace()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (QByteArray const & line : status.readAll().split('\n'))
        if (line.startsWith("VmPeak:"))
            return line.mid(7).trimmed().split(' ').first().toLong() / 1024;
    return 0;
}

//! What an opened recording must keep; the text of what it broke.
QString Broken(std::unique_ptr<SigmfRecording> recording, qint64 fileBytes)
{
    SigmfMeta const & meta = recording->Meta();
    qint64 bytes = meta.TrailingBytes() + recording->Length() * meta.FrameBytes();
    for (SigmfMeta::Segment const & segment : meta.Segments())
        bytes += segment.headerBytes;
    if (bytes != fileBytes || recording->Length() < 1 || meta.Segments().back().start >= recording->Length())
        return QStringLiteral("the sizes do not add up");
    if (!(meta.SampleRate() > 0.0) || !std::isfinite(meta.SampleRate()))
        return QStringLiteral("the rate is none");
    std::vector<std::complex<float>> samples(1000);
    for (qint64 const position : { qint64(0), recording->Length() - 1, recording->Length() / 2 }) {
        qint64 const read = recording->Read(position, samples.data(), 1000);
        if (read != std::min<qint64>(1000, recording->Length() - position))
            return QStringLiteral("samples are missing");
        bool const finite = std::all_of(samples.begin(), samples.begin() + read, [](std::complex<float> sample) {
            return std::abs(sample.real()) <= SigmfRecording::MaxMagnitude &&
                   std::abs(sample.imag()) <= SigmfRecording::MaxMagnitude;
        });
        if (!finite)
            return QStringLiteral("a sample is out of range");
    }
    RecordingSource source(std::move(recording));
    LineMaker maker(source);
    auto const line = maker.Make(0, source.Duration() / 3.0, 0.02);
    bool const finite = std::all_of(line->levels.begin(), line->levels.end(),
                                    [](double level) { return level >= LevelFloor && level < 200.0; });
    return finite ? QString() : QStringLiteral("a level is out of range");
}

} // namespace

class tst_SigmfRecordingHostile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void recordingsThatLie();
};

void tst_SigmfRecordingHostile::initTestCase()
{
    if (TestStage::Sanitized())
        return; // the sanitizers reserve terabytes
    rlimit const limit{ MostAddresses, MostAddresses };
    QCOMPARE(setrlimit(RLIMIT_AS, &limit), 0);
}

void tst_SigmfRecordingHostile::recordingsThatLie()
{
    long long const count = TestStage::Turns(500, 50000);
    Random random(TestStage::Seed());
    SigmfFiles const folder;
    long long refused = 0;
    qint64 slowest = 0;
    for (long long i = 0; i < count; ++i) {
        auto const kind = static_cast<Kind>(i % eKindCount);
        Files const files = kind < eRefusedFrom ? OddFiles(random, kind) : RefusedFiles(random, kind);
        QString const path = folder.Recording(files.meta, files.data);
        qint64 size = files.data.size();
        if (kind == eSparse) {
            size = 16 * static_cast<qint64>(1 + random() % (16 * 1024 * 1024));
            QVERIFY(QFile::resize(SigmfRecording::DataPath(path), size));
        }
        QElapsedTimer clock;
        clock.start();
        QString error;
        auto recording = SigmfRecording::Open(path, error);
        slowest = std::max(slowest, clock.elapsed());
        QByteArray const where = QByteArray::number(i) + ": " + error.toUtf8() + ' ' + files.meta.left(500);
        QVERIFY2(!recording || kind < eRefusedFrom, where.constData());
        QVERIFY2(recording || error.startsWith(folder.Path(QStringLiteral("r.sigmf-"))), where.constData());
        QVERIFY2(recording || kind != eNotANumberRuns, where.constData());
        QVERIFY2(recording || kind != eSparse, where.constData());
        refused += !recording;
        if (recording)
            QVERIFY2(Broken(std::move(recording), size).isEmpty(), where.constData());
    }
    QVERIFY(slowest < 1000);
    std::printf(
        "figures: recordings that lie: %lld, %lld refused, seed %llu, slowest %lld ms, peak address space %ld MB\n",
        count, refused, TestStage::Seed(), static_cast<long long>(slowest), PeakAddressSpace());
}

ORIM_CORE_TEST_MAIN(tst_SigmfRecordingHostile)
#include "tst_sigmfrecording_hostile.moc"
