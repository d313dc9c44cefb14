// SPDX-License-Identifier: MIT
#include "sigmfrecording.h"

#include "sigmffiles.h"
#include "testmain.h"

#include <QCryptographicHash>
#include <QDir>
#include <QtEndian>

#include <array>
#include <atomic>
#include <cstring>
#include <limits>
#include <thread>
#include <type_traits>

#include <sys/stat.h>

namespace {

using Sample = std::complex<float>;

//! Appends the bytes of a number.
template <class Number>
void Append(QByteArray & data, Number number, bool bigEndian)
{
    std::array<char, sizeof(Number)> bytes{};
    std::memcpy(bytes.data(), &number, sizeof(Number));
    bool const swap = bigEndian != (Q_BYTE_ORDER == Q_BIG_ENDIAN);
    for (std::size_t i = 0; i < bytes.size(); ++i)
        data.append(bytes[swap ? bytes.size() - 1 - i : i]);
}

//! A file of the lowest, the highest and a middle number; for I/Q each with the one after it as the imaginary part.
template <class Number>
QByteArray ThreeNumbers(bool complex, bool bigEndian)
{
    using Limits = std::numeric_limits<Number>;
    bool constexpr floating = std::is_floating_point_v<Number>;
    std::array<Number, 3> numbers{ floating ? Number(-1) : Limits::lowest(), floating ? Number(1) : Limits::max(),
                                   floating
                                       ? Number(0.25)
                                       : Number(std::is_signed_v<Number> ? Limits::max() / 4 : Limits::max() / 5) };
    QByteArray data;
    for (std::size_t i = 0; i < 3; ++i) {
        Append(data, numbers[i], bigEndian);
        if (complex)
            Append(data, numbers[(i + 1) % 3], bigEndian);
    }
    return data;
}

QByteArray DataOf(SigmfMeta::Datatype const & type)
{
    switch (type.number) {
    case SigmfMeta::eF32:
        return ThreeNumbers<float>(type.complex, type.bigEndian);
    case SigmfMeta::eF64:
        return ThreeNumbers<double>(type.complex, type.bigEndian);
    case SigmfMeta::eI32:
        return ThreeNumbers<qint32>(type.complex, type.bigEndian);
    case SigmfMeta::eU32:
        return ThreeNumbers<quint32>(type.complex, type.bigEndian);
    case SigmfMeta::eI16:
        return ThreeNumbers<qint16>(type.complex, type.bigEndian);
    case SigmfMeta::eU16:
        return ThreeNumbers<quint16>(type.complex, type.bigEndian);
    case SigmfMeta::eI8:
        return ThreeNumbers<qint8>(type.complex, type.bigEndian);
    default:
        return ThreeNumbers<quint8>(type.complex, type.bigEndian);
    }
}

} // namespace

class tst_SigmfRecording : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void datatype_data();
    void datatype();
    void middleOfUnsigned();
    void oddNumbers_data();
    void oddNumbers();
    void firstOfTheChannels();
    void headers();
    void headersAtOneSample();
    void trailingBytes();
    void dataset();
    void refused_data();
    void refused();
    void missingData();
    void pipeInsteadOfData();
    void hashOfTheData_data();
    void hashOfTheData();
    void longFileIsNotHashed();
    void wrongName();
    void missingMeta();
    void readAtTheEnds_data();
    void readAtTheEnds();
    void longRead();
    void shrunkFile();
    void fileCutWhileItIsRead();
    void duration();
    void realRecordings_data();
    void realRecordings();
};

void tst_SigmfRecording::datatype_data()
{
    QTest::addColumn<double>("highest");
    QTest::addColumn<double>("middle");

    struct Row
    {
        char const * text;
        double highest;
        double middle;
    };

    constexpr std::array<Row, 14> rows{ { { "f32_le", 1, 0.25 },
                                          { "f32_be", 1, 0.25 },
                                          { "f64_le", 1, 0.25 },
                                          { "f64_be", 1, 0.25 },
                                          { "i32_le", 2147483647.0 / 2147483648.0, 0.25 },
                                          { "i32_be", 2147483647.0 / 2147483648.0, 0.25 },
                                          { "u32_le", 1, -0.6 },
                                          { "u32_be", 1, -0.6 },
                                          { "i16_le", 32767.0 / 32768, 8191.0 / 32768 },
                                          { "i16_be", 32767.0 / 32768, 8191.0 / 32768 },
                                          { "u16_le", 1, -0.6 },
                                          { "u16_be", 1, -0.6 },
                                          { "i8", 127.0 / 128, 31.0 / 128 },
                                          { "u8", 1, -0.6 } } };
    for (Row const & row : rows) {
        QTest::newRow(QByteArray("r").append(row.text).constData()) << row.highest << row.middle;
        QTest::newRow(QByteArray("c").append(row.text).constData()) << row.highest << row.middle;
    }
}

void tst_SigmfRecording::datatype()
{
    QFETCH(double, highest);
    QFETCH(double, middle);
    QByteArray const text = QTest::currentDataTag();
    auto const type = SigmfMeta::ParseDatatype(QString::fromLatin1(text));
    QVERIFY(type.has_value());
    SigmfFiles const files;
    QString error;
    auto const recording = SigmfRecording::Open(files.Recording(SigmfFiles::Meta(text), DataOf(*type)), error);
    QVERIFY2(recording, qPrintable(error));
    QCOMPARE(recording->Length(), qint64(3));

    std::array<double, 3> const expected{ -1.0, highest, middle };
    std::array<Sample, 3> samples;
    std::array<float, 3> reals{};
    QCOMPARE(recording->Read(0, samples.data(), 3), qint64(3));
    QCOMPARE(recording->Read(0, reals.data(), 3), qint64(3));
    for (std::size_t i = 0; i < 3; ++i) {
        QCOMPARE(samples[i].real(), float(expected[i]));
        QCOMPARE(samples[i].imag(), type->complex ? float(expected[(i + 1) % 3]) : 0.0F);
        QCOMPARE(reals[i], float(expected[i]));
    }
}

void tst_SigmfRecording::middleOfUnsigned()
{
    SigmfFiles const files;
    QString error;
    auto const recording = SigmfRecording::Open(files.Recording(SigmfFiles::Meta("cu8"), "\x7f\x80"), error);
    QVERIFY2(recording, qPrintable(error));
    Sample sample;
    QCOMPARE(recording->Read(0, &sample, 1), qint64(1));
    QCOMPARE(sample.real(), float(-0.5 / 127.5));
    QCOMPARE(sample.imag(), float(0.5 / 127.5));
}

void tst_SigmfRecording::oddNumbers_data()
{
    QTest::addColumn<double>("number");
    QTest::addColumn<float>("read");
    QTest::newRow("NaN") << qQNaN() << 0.0F;
    QTest::newRow("infinite") << qInf() << 0.0F;
    QTest::newRow("minus infinite") << -qInf() << 0.0F;
    QTest::newRow("largest double") << std::numeric_limits<double>::max() << 1e6F;
    QTest::newRow("lowest double") << std::numeric_limits<double>::lowest() << -1e6F;
    QTest::newRow("above full scale") << 3.5 << 3.5F;
    QTest::newRow("denormal") << 5e-324 << 0.0F;
}

void tst_SigmfRecording::oddNumbers()
{
    QFETCH(double, number);
    QFETCH(float, read);
    QByteArray narrow;
    QByteArray wide;
    bool const fits = !(std::abs(number) > 1e30) || std::isinf(number);
    Append(narrow, fits ? float(number) : std::copysign(std::numeric_limits<float>::max(), float(read)), false);
    Append(wide, number, false);
    SigmfFiles const files;
    QString error;
    for (auto const & [type, data] : { std::pair{ "rf32_le", narrow }, { "rf64_le", wide } }) {
        auto const recording = SigmfRecording::Open(files.Recording(SigmfFiles::Meta(type), data), error);
        QVERIFY2(recording, qPrintable(error));
        float sample = 77.0F;
        QCOMPARE(recording->Read(0, &sample, 1), qint64(1));
        QCOMPARE(sample, read);
    }
}

void tst_SigmfRecording::firstOfTheChannels()
{
    SigmfFiles const files;
    QByteArray const data("\x40\x01\x02\x03\x20\x04\x05\x06");
    QString error;
    auto const recording =
        SigmfRecording::Open(files.Recording(SigmfFiles::Meta("ci8", "\"core:num_channels\": 2"), data), error);
    QVERIFY2(recording, qPrintable(error));
    QCOMPARE(recording->Length(), qint64(2));
    std::array<Sample, 2> samples;
    QCOMPARE(recording->Read(0, samples.data(), 2), qint64(2));
    QCOMPARE(samples[0], Sample(0.5F, 1.0F / 128));
    QCOMPARE(samples[1], Sample(0.25F, 4.0F / 128));
}

void tst_SigmfRecording::headers()
{
    SigmfFiles const files;
    QByteArray const meta =
        SigmfFiles::Meta("ri8", "",
                         "{\"core:sample_start\": 0, \"core:header_bytes\": 3}, {\"core:sample_start\": 1}, "
                         "{\"core:sample_start\": 2, \"core:header_bytes\": 1}");
    QString error;
    auto const recording = SigmfRecording::Open(files.Recording(meta, QByteArray("HHH\x10\x20H\x30\x40")), error);
    QVERIFY2(recording, qPrintable(error));
    QCOMPARE(recording->Length(), qint64(4));
    std::array<float, 4> samples{};
    QCOMPARE(recording->Read(0, samples.data(), 4), qint64(4));
    QCOMPARE(samples, (std::array<float, 4>{ 0.125F, 0.25F, 0.375F, 0.5F }));
    QCOMPARE(recording->Read(2, samples.data(), 1), qint64(1));
    QCOMPARE(samples[0], 0.375F);
}

void tst_SigmfRecording::headersAtOneSample()
{
    SigmfFiles const files;
    QByteArray const meta = SigmfFiles::Meta("ri8", "",
                                             "{\"core:sample_start\": 0, \"core:header_bytes\": 1}, "
                                             "{\"core:sample_start\": 0, \"core:header_bytes\": 2}");
    QString error;
    auto const recording = SigmfRecording::Open(files.Recording(meta, QByteArray("HHH\x10")), error);
    QVERIFY2(recording, qPrintable(error));
    float sample = 0.0F;
    QCOMPARE(recording->Read(0, &sample, 1), qint64(1));
    QCOMPARE(sample, 0.125F);
}

void tst_SigmfRecording::trailingBytes()
{
    SigmfFiles const files;
    QString error;
    auto const recording = SigmfRecording::Open(
        files.Recording(SigmfFiles::Meta("ri16_le", "\"core:trailing_bytes\": 3"), QByteArray("abcdTTT")), error);
    QVERIFY2(recording, qPrintable(error));
    QCOMPARE(recording->Length(), qint64(2));
}

void tst_SigmfRecording::dataset()
{
    SigmfFiles const files;
    files.Write(QStringLiteral("other.bin"), "abc");
    QString error;
    auto const recording = SigmfRecording::Open(
        files.Write(QStringLiteral("any.name"), SigmfFiles::Meta("ri8", "\"core:dataset\": \"other.bin\"")), error);
    QVERIFY2(recording, qPrintable(error));
    QCOMPARE(recording->Length(), qint64(3));
}

void tst_SigmfRecording::refused_data()
{
    QTest::addColumn<QByteArray>("meta");
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<QString>("reason");
    auto const captures = [](char const * text) { return SigmfFiles::Meta("ci16_le", "", text); };
    QTest::newRow("no data") << SigmfFiles::Meta("cu8") << QByteArray() << "of 0 bytes holds no sample";
    QTest::newRow("less than a sample") << SigmfFiles::Meta("cf32_le") << QByteArray("1234567") << "holds no sample";
    QTest::newRow("ends within a sample") << SigmfFiles::Meta("cf32_le") << QByteArray("123456789")
                                          << "ends within a sample: 9 bytes are no multiple of 8";
    QTest::newRow("less than all channels")
        << SigmfFiles::Meta("cu8", "\"core:num_channels\": 4096") << QByteArray("12") << "holds no sample";
    QTest::newRow("trailing bytes are all")
        << SigmfFiles::Meta("ru8", "\"core:trailing_bytes\": 3") << QByteArray("123") << "holds no sample";
    QTest::newRow("trailing bytes are more")
        << SigmfFiles::Meta("ru8", "\"core:trailing_bytes\": 4294967295") << QByteArray("123") << "holds no sample";
    QTest::newRow("header is all") << captures("{\"core:sample_start\": 0, \"core:header_bytes\": 4}")
                                   << QByteArray("1234") << "holds no sample";
    QTest::newRow("header beyond all") << captures(
                                              "{\"core:sample_start\": 0, \"core:header_bytes\": 9007199254740992}")
                                       << QByteArray("1234") << "holds no sample";
    QTest::newRow("headers add up to more") << captures("{\"core:sample_start\": 0, \"core:header_bytes\": 3}, "
                                                        "{\"core:sample_start\": 0, \"core:header_bytes\": 3}")
                                            << QByteArray("1234") << "holds no sample";
    QByteArray wrapping = "{\"core:sample_start\": 0, \"core:header_bytes\": 9007199254740992},";
    wrapping = wrapping.repeated(2048); // 2^53 bytes each: the sum wraps to 0 in 64 bits
    wrapping.chop(1);
    QTest::newRow("headers wrap around") << captures(wrapping.constData()) << QByteArray("12345678")
                                         << "holds no sample";
    QTest::newRow("segment at the end") << captures("{\"core:sample_start\": 2}") << QByteArray("12345678")
                                        << "a captures segment starts at sample 2 of 2";
    QTest::newRow("segment beyond all") << captures(
                                               "{\"core:sample_start\": 0}, {\"core:sample_start\": 9007199254740992}")
                                        << QByteArray("12345678") << "too short";
}

void tst_SigmfRecording::refused()
{
    QFETCH(QByteArray, meta);
    QFETCH(QByteArray, data);
    QFETCH(QString, reason);
    SigmfFiles const files;
    QString error;
    QVERIFY(!SigmfRecording::Open(files.Recording(meta, data), error));
    QVERIFY2(error.startsWith(files.Path(QStringLiteral("r.sigmf-data: "))), qPrintable(error));
    QVERIFY2(error.contains(reason), qPrintable(error));
}

void tst_SigmfRecording::missingData()
{
    SigmfFiles const files;
    QString const meta = files.Write(QStringLiteral("r.sigmf-meta"), SigmfFiles::Meta("cu8"));
    QString error;
    QVERIFY(!SigmfRecording::Open(meta, error));
    QCOMPARE(error, files.Path(QStringLiteral("r.sigmf-data")) + QLatin1String(": the data file is missing"));
    QVERIFY(QDir().mkdir(files.Path(QStringLiteral("r.sigmf-data"))));
    QVERIFY(!SigmfRecording::Open(meta, error));
    QCOMPARE(error, files.Path(QStringLiteral("r.sigmf-data")) + QLatin1String(": is no file"));
}

void tst_SigmfRecording::pipeInsteadOfData()
{
    SigmfFiles const files;
    QString const meta = files.Write(QStringLiteral("r.sigmf-meta"), SigmfFiles::Meta("cu8"));
    QString const data = files.Path(QStringLiteral("r.sigmf-data"));
    QCOMPARE(mkfifo(QFile::encodeName(data).constData(), 0600), 0);
    QString error;
    QVERIFY(!SigmfRecording::Open(meta, error));
    QCOMPARE(error, data + QLatin1String(": is no file"));
}

void tst_SigmfRecording::hashOfTheData_data()
{
    QTest::addColumn<QByteArray>("hash");
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<bool>("taken");
    QByteArray const abc("ddaf35a193617abacc417349ae20413112e6fa4e89a97ea20a9eeee64b55d39a"
                         "2192992a274fc1a836ba3c23a3feebbd454d4423643ce80e2a9ac94fa54ca49f");
    QByteArray const pieces = QByteArray("0123456789").repeated(262145); // two and a half pieces
    QByteArray const piecesHash = QCryptographicHash::hash(pieces, QCryptographicHash::Sha512).toHex();
    QTest::newRow("the whole file") << abc << QByteArray("abc") << true;
    QTest::newRow("in capitals") << abc.toUpper() << QByteArray("abc") << true;
    QTest::newRow("cut at a sample") << abc << QByteArray("ab") << false;
    QTest::newRow("another sample") << abc << QByteArray("abd") << false;
    QTest::newRow("a sample more") << abc << QByteArray("abcd") << false;
    QTest::newRow("cut hash") << abc.left(64) << QByteArray("abc") << false;
    QTest::newRow("several pieces") << piecesHash << pieces << true;
    QTest::newRow("several pieces, the last cut") << piecesHash << pieces.left(pieces.size() - 1) << false;
    QTest::newRow("none told") << QByteArray() << QByteArray("abc") << true;
}

void tst_SigmfRecording::hashOfTheData()
{
    QFETCH(QByteArray, hash);
    QFETCH(QByteArray, data);
    QFETCH(bool, taken);
    SigmfFiles const files;
    QString error;
    auto const recording =
        SigmfRecording::Open(files.Recording(SigmfFiles::Meta("ru8", "\"core:sha512\": \"" + hash + '"'), data), error);
    QCOMPARE(recording != nullptr, taken);
    QCOMPARE(error,
             taken ? QString() : files.Path(QStringLiteral("r.sigmf-data: the data does not match core:sha512")));
}

void tst_SigmfRecording::longFileIsNotHashed()
{
    SigmfFiles const files;
    QString const meta = files.Recording(SigmfFiles::Meta("ru8", "\"core:sha512\": \"00\""), "abc");
    QVERIFY(QFile::resize(files.Path(QStringLiteral("r.sigmf-data")), SigmfRecording::MaxHashed + 1));
    QString error;
    QVERIFY2(SigmfRecording::Open(meta, error), qPrintable(error));
}

void tst_SigmfRecording::wrongName()
{
    SigmfFiles const files;
    QString const path = files.Write(QStringLiteral("r.json"), SigmfFiles::Meta("cu8"));
    QString error;
    QVERIFY(!SigmfRecording::Open(path, error));
    QCOMPARE(error, path + QLatin1String(": the name does not end in .sigmf-meta"));
}

void tst_SigmfRecording::missingMeta()
{
    QString error;
    QVERIFY(!SigmfRecording::Open(QStringLiteral("/nowhere/a.sigmf-meta"), error));
    QVERIFY2(error.startsWith(QLatin1String("/nowhere/a.sigmf-meta: cannot be opened")), qPrintable(error));
}

void tst_SigmfRecording::readAtTheEnds_data()
{
    QTest::addColumn<qint64>("position");
    QTest::addColumn<qint64>("count");
    QTest::addColumn<qint64>("read");
    qint64 const most = std::numeric_limits<qint64>::max();
    QTest::newRow("all") << qint64(0) << qint64(4) << qint64(4);
    QTest::newRow("more than all") << qint64(0) << most << qint64(4);
    QTest::newRow("the last") << qint64(3) << qint64(4) << qint64(1);
    QTest::newRow("behind the last") << qint64(4) << qint64(1) << qint64(0);
    QTest::newRow("far behind") << most << qint64(1) << qint64(0);
    QTest::newRow("before the first") << qint64(-1) << qint64(2) << qint64(0);
    QTest::newRow("none") << qint64(1) << qint64(0) << qint64(0);
    QTest::newRow("less than none") << qint64(1) << qint64(-5) << qint64(0);
}

void tst_SigmfRecording::readAtTheEnds()
{
    QFETCH(qint64, position);
    QFETCH(qint64, count);
    SigmfFiles const files;
    QString error;
    auto const recording = SigmfRecording::Open(files.Recording(SigmfFiles::Meta("ru8"), "abcd"), error);
    QVERIFY2(recording, qPrintable(error));
    std::array<float, 4> samples{};
    QTEST(recording->Read(position, samples.data(), count), "read");
}

void tst_SigmfRecording::longRead()
{
    SigmfFiles const files;
    QByteArray data;
    for (int i = 0; i < 1000000; ++i)
        Append(data, static_cast<qint16>(i % 30011), false);
    QString error;
    auto const recording = SigmfRecording::Open(files.Recording(SigmfFiles::Meta("ri16_le"), data), error);
    QVERIFY2(recording, qPrintable(error));
    std::vector<float> samples(999999);
    QCOMPARE(recording->Read(1, samples.data(), 999999), qint64(999999));
    int wrong = 0;
    for (std::size_t i = 0; i < samples.size(); ++i)
        wrong += samples[i] != static_cast<float>((i + 1) % 30011) / 32768.0F;
    QCOMPARE(wrong, 0);
}

void tst_SigmfRecording::shrunkFile()
{
    SigmfFiles const files;
    QString error;
    auto const recording =
        SigmfRecording::Open(files.Recording(SigmfFiles::Meta("ru8"), QByteArray(20000, 'a')), error);
    QVERIFY2(recording, qPrintable(error));
    QVERIFY(QFile::resize(files.Path(QStringLiteral("r.sigmf-data")), 10));
    std::vector<float> samples(20000);
    QCOMPARE(recording->Read(0, samples.data(), 20000), qint64(10));
    QCOMPARE(recording->Read(15000, samples.data(), 1), qint64(0));
}

void tst_SigmfRecording::fileCutWhileItIsRead()
{
    constexpr qint64 size = 1000000;
    SigmfFiles const files;
    QString const data = files.Path(QStringLiteral("r.sigmf-data"));
    QString error;
    auto const recording =
        SigmfRecording::Open(files.Recording(SigmfFiles::Meta("ru8"), QByteArray(static_cast<int>(size), 'a')), error);
    QVERIFY2(recording, qPrintable(error));
    std::atomic<bool> over{ false };
    std::thread cutter([&] {
        while (!over) {
            QFile::resize(data, 10);
            QFile::resize(data, size);
        }
    });
    std::vector<float> samples(static_cast<std::size_t>(size));
    bool bounded = true;
    for (int i = 0; i < 200; ++i) {
        qint64 const read = recording->Read(0, samples.data(), size);
        bounded = bounded && read >= 10 && read <= size;
    }
    over = true;
    cutter.join();
    QVERIFY(bounded);
}

void tst_SigmfRecording::duration()
{
    SigmfFiles const files;
    QString error;
    auto const recording = SigmfRecording::Open(files.Recording(SigmfFiles::Meta("cu8"), QByteArray(500, 'a')), error);
    QVERIFY2(recording, qPrintable(error));
    QCOMPARE(recording->Duration(), 0.25);
}

void tst_SigmfRecording::realRecordings_data()
{
    QTest::addColumn<double>("duration");
    QTest::newRow("adsb_1090MHz_2MSps_cu8") << 0.178434;
    QTest::newRow("wmbus_868950kHz_1600kSps_cu8") << 0.65536;
    QTest::newRow("hf_ft8_21074kHz_12kSps_ri16") << 60.0;
    QTest::newRow("vor_klo_114850kHz_am_47kSps_rf32") << 18.0634;
}

void tst_SigmfRecording::realRecordings()
{
    if (TestStage::Recordings().isEmpty())
        QSKIP("no recordings here", );
    QFETCH(double, duration);
    QString error;
    auto const recording =
        SigmfRecording::Open(TestStage::Recordings() + QLatin1Char('/') + QLatin1String(QTest::currentDataTag()) +
                                 QLatin1String(".sigmf-meta"),
                             error);
    QVERIFY2(recording, qPrintable(error));
    QVERIFY2(qAbs(recording->Duration() - duration) < 1e-3, qPrintable(QString::number(recording->Duration(), 'g', 9)));
    std::vector<Sample> samples(static_cast<std::size_t>(recording->Length()));
    QCOMPARE(recording->Read(0, samples.data(), recording->Length()), recording->Length());
    float highest = 0.0F;
    for (Sample const & sample : samples)
        highest = std::max({ highest, std::abs(sample.real()), std::abs(sample.imag()) });
    QVERIFY(highest > 0.01F && highest <= 1.0F);
}

ORIM_CORE_TEST_MAIN(tst_SigmfRecording)
#include "tst_sigmfrecording.moc"
