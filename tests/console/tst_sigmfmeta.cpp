// SPDX-License-Identifier: MIT
#include "sigmfmeta.h"

#include "sigmffiles.h"
#include "testmain.h"

#include <QJsonObject>

#include <array>

#include <sys/stat.h>

class tst_SigmfMeta : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void datatype_data();
    void datatype();
    void unknownDatatype_data();
    void unknownDatatype();
    void refused_data();
    void refused();
    void accepted_data();
    void accepted();
    void defaults();
    void global();
    void segments();
    void segmentAt_data();
    void segmentAt();
    void segmentBeforeTheFirst();
    void offsetIsTakenOff();
    void mostCaptures();
    void annotationsStayRaw();
    void missingFile();
    void folderInsteadOfFile();
    void pipeInsteadOfFile();
    void hashOfTheData();
    void reasonFollowsThePath();
    void longestFile();
    void realRecordings_data();
    void realRecordings();
};

void tst_SigmfMeta::datatype_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<bool>("complex");
    QTest::addColumn<bool>("bigEndian");
    QTest::addColumn<int>("sampleBytes");

    struct Row
    {
        char const * text;
        SigmfMeta::Number number;
        int bytes;
    };

    constexpr std::array<Row, 8> rows{ { { "f32", SigmfMeta::eF32, 4 },
                                         { "f64", SigmfMeta::eF64, 8 },
                                         { "i32", SigmfMeta::eI32, 4 },
                                         { "u32", SigmfMeta::eU32, 4 },
                                         { "i16", SigmfMeta::eI16, 2 },
                                         { "u16", SigmfMeta::eU16, 2 },
                                         { "i8", SigmfMeta::eI8, 1 },
                                         { "u8", SigmfMeta::eU8, 1 } } };
    for (Row const & row : rows) {
        for (bool const complex : { false, true }) {
            QByteArray const text = QByteArray(complex ? "c" : "r") + row.text;
            int const bytes = complex ? 2 * row.bytes : row.bytes;
            if (row.bytes == 1) {
                QTest::newRow(text.constData()) << int(row.number) << complex << false << bytes;
            } else {
                QTest::newRow((text + "_le").constData()) << int(row.number) << complex << false << bytes;
                QTest::newRow((text + "_be").constData()) << int(row.number) << complex << true << bytes;
            }
        }
    }
}

void tst_SigmfMeta::datatype()
{
    QFETCH(int, number);
    QFETCH(bool, complex);
    QFETCH(bool, bigEndian);
    QFETCH(int, sampleBytes);
    QString const text = QString::fromLatin1(QTest::currentDataTag());
    auto const datatype = SigmfMeta::ParseDatatype(text);
    QVERIFY(datatype.has_value());
    QCOMPARE(int(datatype->number), number);
    QCOMPARE(datatype->complex, complex);
    QCOMPARE(datatype->bigEndian, bigEndian);
    QCOMPARE(datatype->SampleBytes(), sampleBytes);
    QCOMPARE(SigmfMeta::Text(*datatype), text);
}

void tst_SigmfMeta::unknownDatatype_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << QString();
    QTest::newRow("no order of bytes") << QStringLiteral("cf32");
    QTest::newRow("order of a single byte") << QStringLiteral("cu8_le");
    QTest::newRow("neither real nor complex") << QStringLiteral("f32_le");
    QTest::newRow("unknown width") << QStringLiteral("cf16_le");
    QTest::newRow("64 bit integer") << QStringLiteral("ci64_le");
    QTest::newRow("upper case") << QStringLiteral("CF32_LE");
    QTest::newRow("space before") << QStringLiteral(" cf32_le");
    QTest::newRow("more behind") << QStringLiteral("cf32_le ");
}

void tst_SigmfMeta::unknownDatatype()
{
    QFETCH(QString, text);
    QVERIFY(!SigmfMeta::ParseDatatype(text).has_value());
}

void tst_SigmfMeta::refused_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("reason");
    auto const meta = [](char const * more, char const * captures = "{\"core:sample_start\": 0}") {
        return SigmfFiles::Meta("cu8", more, captures);
    };
    QTest::newRow("empty file") << QByteArray() << "no JSON text";
    QTest::newRow("picture") << QByteArray("\x89PNG\r\n\x1a\n") << "no JSON text";
    QTest::newRow("cut off") << QByteArray("{\"global\": {\"core:datatype\": \"cu8\"") << "no JSON text";
    QTest::newRow("rate that JSON knows not")
        << QByteArray("{\"global\": {\"core:sample_rate\": NaN}}") << "no JSON text";
    QTest::newRow("list") << QByteArray("[]") << "\"global\" is missing";
    QTest::newRow("foreign object") << QByteArray("{\"type\": \"Feature\"}") << "\"global\" is missing";
    QTest::newRow("global is a list") << QByteArray("{\"global\": []}") << "\"global\" is missing";
    QTest::newRow("no datatype") << QByteArray("{\"global\": {\"core:sample_rate\": 1}}") << "core:datatype is missing";
    QTest::newRow("datatype is a number")
        << QByteArray("{\"global\": {\"core:datatype\": 8}}") << "core:datatype is missing";
    QTest::newRow("unknown datatype") << SigmfFiles::Meta("cf16_le") << "unknown core:datatype \"cf16_le\"";
    for (char const * rate : { "0", "-1", "1e300", "1.1e12", "\"48000\"", "null", "-1e-300" }) {
        QTest::newRow(QByteArray("rate ").append(rate).constData())
            << QByteArray("{\"global\": {\"core:datatype\": \"cu8\", \"core:sample_rate\": ").append(rate).append("}}")
            << "core:sample_rate";
    }
    for (char const * rate : { "5e-324", "1e-290" }) {
        QTest::newRow(QByteArray("rate ").append(rate).constData())
            << QByteArray("{\"global\": {\"core:datatype\": \"cu8\", \"core:sample_rate\": ").append(rate).append("}}")
            << "core:sample_rate is too low: the duration is not finite";
    }
    QTest::newRow("no rate") << QByteArray("{\"global\": {\"core:datatype\": \"cu8\"}}") << "core:sample_rate";
    for (char const * channels : { "0", "-1", "1.5", "4097", "4294967295", "1e300", "\"2\"" }) {
        QTest::newRow(QByteArray("channels ").append(channels).constData())
            << meta(QByteArray("\"core:num_channels\": ").append(channels).constData()) << "core:num_channels";
    }
    QTest::newRow("offset below 0") << meta("\"core:offset\": -1") << "core:offset";
    QTest::newRow("trailing bytes below 0") << meta("\"core:trailing_bytes\": -1") << "core:trailing_bytes";
    QTest::newRow("metadata alone") << meta("\"core:metadata_only\": true") << "without samples";
    QTest::newRow("dataset elsewhere") << meta("\"core:dataset\": \"../secret\"") << "core:dataset";
    QTest::newRow("dataset is the folder above") << meta("\"core:dataset\": \"..\"") << "core:dataset";
    QTest::newRow("dataset with a zero") << meta("\"core:dataset\": \"a\\u0000b\"") << "core:dataset";
    QTest::newRow("captures is an object")
        << QByteArray("{\"global\": {\"core:datatype\": \"cu8\", \"core:sample_rate\": 1}, \"captures\": {}}")
        << "no list";
    QTest::newRow("segment is a number") << meta("", "7") << "no object";
    QTest::newRow("segment without a start") << meta("", "{}") << "core:sample_start";
    QTest::newRow("start below 0") << meta("", "{\"core:sample_start\": -1}") << "core:sample_start";
    QTest::newRow("start between samples") << meta("", "{\"core:sample_start\": 0.5}") << "core:sample_start";
    QTest::newRow("start beyond 2^53") << meta("", "{\"core:sample_start\": 1e17}") << "core:sample_start";
    QTest::newRow("start before the offset")
        << meta("\"core:offset\": 5", "{\"core:sample_start\": 4}") << "core:sample_start";
    QTest::newRow("header below 0") << meta("", "{\"core:sample_start\": 0, \"core:header_bytes\": -1}")
                                    << "core:header_bytes";
    QTest::newRow("frequency is a text") << meta("", "{\"core:sample_start\": 0, \"core:frequency\": \"1\"}")
                                         << "core:frequency";
    QTest::newRow("frequency beyond all")
        << meta("", "{\"core:sample_start\": 0, \"core:frequency\": -1e300}") << "core:frequency";
    QTest::newRow("start goes back") << meta("", "{\"core:sample_start\": 9}, {\"core:sample_start\": 8}")
                                     << "segment 1 goes back in time";
    QTest::newRow("time goes back")
        << meta("",
                "{\"core:sample_start\": 0, \"core:datetime\": \"2020-01-01T00:00:01Z\"}, {\"core:sample_start\": 1}, "
                "{\"core:sample_start\": 2, \"core:datetime\": \"2020-01-01T00:00:00Z\"}")
        << "segment 2 goes back in time";
    QTest::newRow("lists in lists without end") << QByteArray(100000, '[') << "no JSON text";
    QByteArray deep = "{\"global\": ";
    for (int i = 0; i < 5000; ++i)
        deep += "{\"a\": ";
    QTest::newRow("objects in objects") << deep << "no JSON text";
    QByteArray many;
    for (int i = 0; i <= SigmfMeta::MaxCaptures; ++i)
        many += i == 0 ? "{\"core:sample_start\":0}" : ",{\"core:sample_start\":0}";
    QTest::newRow("one segment too many") << meta("", many.constData()) << "more than 65536 captures";
    QTest::newRow("too long") << QByteArray(int(SigmfMeta::MaxBytes) + 1, ' ') << "longer than 8388608 bytes";
}

void tst_SigmfMeta::refused()
{
    QFETCH(QByteArray, json);
    QFETCH(QString, reason);
    QString text;
    QVERIFY(!SigmfMeta::Parse(json, text).has_value());
    QVERIFY2(text.contains(reason), qPrintable(text));
}

void tst_SigmfMeta::accepted_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::newRow("no captures") << QByteArray("{\"global\": {\"core:datatype\": \"cu8\", \"core:sample_rate\": 1}}");
    QTest::newRow("highest rate") << QByteArray(
        "{\"global\": {\"core:datatype\": \"cu8\", \"core:sample_rate\": 1e12}}");
    QTest::newRow("lowest rate") << QByteArray(
        "{\"global\": {\"core:datatype\": \"cu8\", \"core:sample_rate\": 1e-289}}");
    QTest::newRow("most channels") << SigmfFiles::Meta("cu8", "\"core:num_channels\": 4096");
    QTest::newRow("highest frequency") << SigmfFiles::Meta("cu8", "",
                                                           "{\"core:sample_start\": 0, \"core:frequency\": 1e12}");
    QTest::newRow("equal starts") << SigmfFiles::Meta("cu8", "",
                                                      "{\"core:sample_start\": 3}, {\"core:sample_start\": 3}");
    QTest::newRow("equal times") << SigmfFiles::Meta(
        "cu8", "",
        "{\"core:sample_start\": 0, \"core:datetime\": \"2020-01-01T00:00:00Z\"}, "
        "{\"core:sample_start\": 1, \"core:datetime\": \"2020-01-01T00:00:00Z\"}");
    QTest::newRow("time that is none") << SigmfFiles::Meta(
        "cu8", "", "{\"core:sample_start\": 0, \"core:datetime\": \"yesterday\"}");
    QTest::newRow("other name spaces") << SigmfFiles::Meta("cu8", "\"antenna:gain\": [1, {\"a\": null}]");
    QTest::newRow("not metadata alone") << SigmfFiles::Meta("cu8", "\"core:metadata_only\": false");
}

void tst_SigmfMeta::accepted()
{
    QFETCH(QByteArray, json);
    QString reason = QStringLiteral("untouched");
    QVERIFY2(SigmfMeta::Parse(json, reason).has_value(), qPrintable(reason));
    QCOMPARE(reason, QStringLiteral("untouched"));
}

void tst_SigmfMeta::defaults()
{
    QString reason;
    auto const meta =
        SigmfMeta::Parse("{\"global\": {\"core:datatype\": \"rf64_be\", \"core:sample_rate\": 2.5}}", reason);
    QVERIFY(meta.has_value());
    QVERIFY(meta->IsReal());
    QCOMPARE(meta->SampleRate(), 2.5);
    QCOMPARE(meta->Channels(), 1);
    QCOMPARE(meta->FrameBytes(), qint64(8));
    QCOMPARE(meta->TrailingBytes(), qint64(0));
    QCOMPARE(meta->Dataset(), QString());
    QCOMPARE(meta->Segments().size(), std::size_t(1));
    QCOMPARE(meta->Segments()[0].start, qint64(0));
    QCOMPARE(meta->Segments()[0].frequency, 0.0);
    QCOMPARE(meta->Segments()[0].headerBytes, qint64(0));
    QVERIFY(!meta->Segments()[0].datetime.isValid());
    QVERIFY(meta->Annotations().isEmpty());
}

void tst_SigmfMeta::global()
{
    QString reason;
    auto const meta = SigmfMeta::Parse(
        SigmfFiles::Meta("ci16_be",
                         "\"core:num_channels\": 3, \"core:trailing_bytes\": 7, \"core:dataset\": \"a.bin\", "
                         "\"core:description\": \"d\", \"core:author\": \"a\", \"core:hw\": \"h\""),
        reason);
    QVERIFY(meta.has_value());
    QVERIFY(!meta->IsReal());
    QVERIFY(meta->GetDatatype().bigEndian);
    QCOMPARE(meta->Channels(), 3);
    QCOMPARE(meta->FrameBytes(), qint64(12));
    QCOMPARE(meta->TrailingBytes(), qint64(7));
    QCOMPARE(meta->Dataset(), QStringLiteral("a.bin"));
    QCOMPARE(meta->Description(), QStringLiteral("d"));
    QCOMPARE(meta->Author(), QStringLiteral("a"));
    QCOMPARE(meta->Hardware(), QStringLiteral("h"));
}

void tst_SigmfMeta::segments()
{
    QString reason;
    auto const meta = SigmfMeta::Parse(
        SigmfFiles::Meta("cu8", "",
                         "{\"core:sample_start\": 0, \"core:frequency\": 868950000.5, \"core:header_bytes\": 44}, "
                         "{\"core:sample_start\": 10, \"core:frequency\": -5, "
                         "\"core:datetime\": \"2019-11-11T11:06:30.250Z\"}"),
        reason);
    QVERIFY(meta.has_value());
    QCOMPARE(meta->Segments().size(), std::size_t(2));
    QCOMPARE(meta->Segments()[0].frequency, 868950000.5);
    QCOMPARE(meta->Segments()[0].headerBytes, qint64(44));
    QCOMPARE(meta->Segments()[1].start, qint64(10));
    QCOMPARE(meta->Segments()[1].frequency, -5.0);
    QCOMPARE(meta->Segments()[1].datetime.toMSecsSinceEpoch(), qint64(1573470390250));
}

void tst_SigmfMeta::segmentAt_data()
{
    QTest::addColumn<qint64>("sample");
    QTest::addColumn<double>("frequency");
    QTest::newRow("before all") << qint64(-1) << 1.0;
    QTest::newRow("first sample") << qint64(0) << 1.0;
    QTest::newRow("last of the first") << qint64(9) << 1.0;
    QTest::newRow("the later one of an empty segment") << qint64(10) << 3.0;
    QTest::newRow("last of the third") << qint64(19) << 3.0;
    QTest::newRow("first of the last") << qint64(20) << 4.0;
    QTest::newRow("behind all") << qint64(1000000) << 4.0;
}

void tst_SigmfMeta::segmentAt()
{
    QFETCH(qint64, sample);
    QString reason;
    auto const meta = SigmfMeta::Parse(
        SigmfFiles::Meta("cu8", "",
                         "{\"core:sample_start\": 0, \"core:frequency\": 1}, {\"core:sample_start\": 10, "
                         "\"core:frequency\": 2}, {\"core:sample_start\": 10, \"core:frequency\": 3}, "
                         "{\"core:sample_start\": 20, \"core:frequency\": 4}"),
        reason);
    QVERIFY(meta.has_value());
    QTEST(meta->FrequencyAt(sample), "frequency");
}

void tst_SigmfMeta::segmentBeforeTheFirst()
{
    QString reason;
    auto const meta =
        SigmfMeta::Parse(SigmfFiles::Meta("cu8", "", "{\"core:sample_start\": 5, \"core:frequency\": 7}"), reason);
    QVERIFY(meta.has_value());
    QCOMPARE(meta->FrequencyAt(0), 7.0);
}

void tst_SigmfMeta::offsetIsTakenOff()
{
    QString reason;
    auto const meta = SigmfMeta::Parse(
        SigmfFiles::Meta("cu8", "\"core:offset\": 100", "{\"core:sample_start\": 100}, {\"core:sample_start\": 130}"),
        reason);
    QVERIFY(meta.has_value());
    QCOMPARE(meta->Segments()[0].start, qint64(0));
    QCOMPARE(meta->Segments()[1].start, qint64(30));
}

void tst_SigmfMeta::mostCaptures()
{
    QByteArray captures;
    for (int i = 0; i < SigmfMeta::MaxCaptures; ++i)
        captures += (i == 0 ? "{\"core:sample_start\":" : ",{\"core:sample_start\":") + QByteArray::number(i) + '}';
    QString reason;
    auto const meta = SigmfMeta::Parse(SigmfFiles::Meta("cu8", "", captures), reason);
    QVERIFY2(meta.has_value(), qPrintable(reason));
    QCOMPARE(meta->SegmentAt(65535).start, qint64(65535));
}

void tst_SigmfMeta::annotationsStayRaw()
{
    QString reason;
    auto const meta = SigmfMeta::Parse("{\"global\": {\"core:datatype\": \"cu8\", \"core:sample_rate\": 1}, "
                                       "\"annotations\": [{\"core:sample_start\": 5, \"x:y\": [1, 2]}, {}]}",
                                       reason);
    QVERIFY(meta.has_value());
    QCOMPARE(meta->Annotations().size(), 2);
    QCOMPARE(meta->Annotations().at(0).toObject().value(QLatin1String("x:y")).toArray().at(1).toInt(), 2);
}

void tst_SigmfMeta::missingFile()
{
    QString error;
    QVERIFY(!SigmfMeta::Load(QStringLiteral("/nowhere/a.sigmf-meta"), error).has_value());
    QVERIFY2(error.startsWith(QLatin1String("/nowhere/a.sigmf-meta: cannot be opened: ")), qPrintable(error));
    QVERIFY(error.contains(QLatin1String("No such file")));
}

void tst_SigmfMeta::folderInsteadOfFile()
{
    QTemporaryDir const folder;
    QString error;
    QVERIFY(!SigmfMeta::Load(folder.path(), error).has_value());
    QCOMPARE(error, folder.path() + QLatin1String(": is no file"));
}

void tst_SigmfMeta::pipeInsteadOfFile()
{
    SigmfFiles const files;
    QString const path = files.Path(QStringLiteral("r.sigmf-meta"));
    QCOMPARE(mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    QString error;
    QVERIFY(!SigmfMeta::Load(path, error).has_value());
    QCOMPARE(error, path + QLatin1String(": is no file"));
}

void tst_SigmfMeta::hashOfTheData()
{
    QString reason;
    auto const meta = SigmfMeta::Parse(SigmfFiles::Meta("cu8", "\"core:sha512\": \"12ab\""), reason);
    QVERIFY2(meta.has_value(), qPrintable(reason));
    QCOMPARE(meta->Sha512(), QStringLiteral("12ab"));
    QVERIFY(SigmfMeta::Parse(SigmfFiles::Meta("cu8"), reason)->Sha512().isEmpty());
}

void tst_SigmfMeta::reasonFollowsThePath()
{
    SigmfFiles const files;
    QString const path = files.Write(QStringLiteral("a %1.sigmf-meta"), "{}");
    QString error;
    QVERIFY(!SigmfMeta::Load(path, error).has_value());
    QCOMPARE(error, path + QLatin1String(": no SigMF metadata: the object \"global\" is missing"));
}

void tst_SigmfMeta::longestFile()
{
    SigmfFiles const files;
    QByteArray json = SigmfFiles::Meta("cu8");
    json += QByteArray(int(SigmfMeta::MaxBytes) - json.size(), ' ');
    QString error;
    QVERIFY2(SigmfMeta::Load(files.Write(QStringLiteral("a"), json), error).has_value(), qPrintable(error));
    QVERIFY(!SigmfMeta::Load(files.Write(QStringLiteral("a"), json + ' '), error).has_value());
    QVERIFY2(error.contains(QLatin1String("longer than")), qPrintable(error));
}

void tst_SigmfMeta::realRecordings_data()
{
    QTest::addColumn<QString>("datatype");
    QTest::addColumn<double>("rate");
    QTest::addColumn<double>("frequency");
    QTest::addColumn<int>("segments");
    QTest::newRow("adsb_1090MHz_2MSps_cu8") << "cu8" << 2e6 << 1090e6 << 1;
    QTest::newRow("wmbus_868950kHz_1600kSps_cu8") << "cu8" << 1.6e6 << 868.95e6 << 1;
    QTest::newRow("hf_ft8_21074kHz_12kSps_ri16") << "ri16_le" << 12e3 << 21.074e6 << 4;
    QTest::newRow("vor_klo_114850kHz_am_47kSps_rf32") << "rf32_le" << 1800000.0 / 38 << 114.85e6 << 1;
}

void tst_SigmfMeta::realRecordings()
{
    if (TestStage::Recordings().isEmpty())
        QSKIP("no recordings here", );
    QFETCH(double, rate);
    QFETCH(int, segments);
    QString error;
    auto const meta = SigmfMeta::Load(TestStage::Recordings() + QLatin1Char('/') +
                                          QLatin1String(QTest::currentDataTag()) + QLatin1String(".sigmf-meta"),
                                      error);
    QVERIFY2(meta.has_value(), qPrintable(error));
    QTEST(SigmfMeta::Text(meta->GetDatatype()), "datatype");
    QVERIFY(qAbs(meta->SampleRate() - rate) < 1e-6);
    QTEST(meta->FrequencyAt(0), "frequency");
    QCOMPARE(meta->Segments().size(), std::size_t(segments));
    QVERIFY(!meta->Description().isEmpty());
}

ORIM_CORE_TEST_MAIN(tst_SigmfMeta)
#include "tst_sigmfmeta.moc"
