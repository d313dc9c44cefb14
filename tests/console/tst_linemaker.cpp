// SPDX-License-Identifier: MIT
#include "linemaker.h"

#include "recordingsource.h"
#include "sigmfrecording.h"

#include "sigmffiles.h"
#include "testmain.h"

#include <algorithm>
#include <cmath>

namespace {

using Sample = std::complex<float>;

//! A source that tells where it was read: sample i has the value of a function.
class TestSource : public ISampleSource
{
public:
    TestSource(qint64 length, bool real) : m_length(length), m_real(real) {}

    double SampleRate() const override { return rate; }

    bool IsReal() const override { return m_real; }

    double CentreFrequency(qint64 position) const override { return position < 500 ? 100.0 : 200.0; }

    qint64 Length() const override { return m_length; }

    qint64 Read(Sample * out, qint64 count) override
    {
        starts.push_back(m_position);
        qint64 const given = std::min(count, most);
        std::fill_n(out, std::max<qint64>(given, 0), Sample(1.0F, 0.0F));
        m_position += given;
        return given;
    }

    void Seek(qint64 sample) override { m_position = sample; }

    qint64 Position() const override { return m_position; }

    std::vector<qint64> starts;
    qint64 most = 1000000;
    double rate = 1000.0;

private:
    qint64 m_length;
    bool m_real;
    qint64 m_position = 0;
};

std::unique_ptr<RecordingSource> OpenRecording(char const * name)
{
    QString error;
    auto recording = SigmfRecording::Open(
        TestStage::Recordings() + QLatin1Char('/') + QLatin1String(name) + QLatin1String(".sigmf-meta"), error);
    return recording ? std::make_unique<RecordingSource>(std::move(recording)) : nullptr;
}

double Power(SpectrumLine const & line, double from, double to)
{
    double power = 0.0;
    double const step = line.span / static_cast<double>(line.levels.size());
    for (std::size_t i = 0; i < line.levels.size(); ++i) {
        double const frequency = line.centre - line.span / 2.0 + static_cast<double>(i) * step;
        if (frequency >= from && frequency < to)
            power += std::pow(10.0, line.levels[i] / 10.0);
    }
    return 10.0 * std::log10(std::max(power, 1e-30));
}

double PeakFrequency(SpectrumLine const & line, double from, double to)
{
    double level = -1000.0;
    double at = 0.0;
    double const step = line.span / static_cast<double>(line.levels.size());
    for (std::size_t i = 0; i < line.levels.size(); ++i) {
        double const frequency = line.centre - line.span / 2.0 + static_cast<double>(i) * step;
        if (frequency >= from && frequency < to && line.levels[i] > level) {
            level = line.levels[i];
            at = frequency;
        }
    }
    return at;
}

} // namespace

class tst_LineMaker : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void averaging_data();
    void averaging();
    void spectra_data();
    void spectra();
    void foldedSeconds_data();
    void foldedSeconds();
    void endlessSeconds_data();
    void endlessSeconds();
    void durationThatIsNotFinite();
    void frequencyOfTheMiddle();
    void realSpan();
    void missingSamplesAreSilence();
    void recordingIsARing();
    void recordingFrequencies_data();
    void recordingFrequencies();
    void meterBursts_data();
    void meterBursts();
    void vorPeaks_data();
    void vorPeaks();
    void ft8Band();
    void ft8SlotEndsInSilence();
    void planes();
};

void tst_LineMaker::averaging_data()
{
    QTest::addColumn<int>("spectra");
    QTest::addColumn<bool>("taken");
    QTest::newRow("whole line") << 0 << true;
    QTest::newRow("none") << 1 << true;
    QTest::newRow("most") << 64 << true;
    QTest::newRow("too many") << 65 << false;
    QTest::newRow("below 0") << -1 << false;
}

void tst_LineMaker::averaging()
{
    QFETCH(int, spectra);
    QFETCH(bool, taken);
    TestSource source(10000, false);
    LineMaker maker(source);
    maker.SetAveraging(7);
    maker.SetAveraging(spectra);
    QCOMPARE(maker.Averaging(), taken ? spectra : 7);
}

void tst_LineMaker::spectra_data()
{
    QTest::addColumn<int>("averaging");
    QTest::addColumn<bool>("real");
    QTest::addColumn<double>("slice");
    QTest::addColumn<QList<int>>("starts"); // of 64 bins around sample 5000
    QTest::newRow("one in the middle") << 1 << false << 1.0 << QList<int>{ 4968 };
    QTest::newRow("one in the middle of real samples") << 1 << true << 1.0 << QList<int>{ 4936 };
    QTest::newRow("spread over the line") << 3 << false << 0.464 << QList<int>{ 4768, 4968, 5168 };
    QTest::newRow("overlapping by half in a short line") << 3 << false << 0.001 << QList<int>{ 4936, 4968, 5000 };
    QTest::newRow("overlapping by half without a line") << 2 << false << 0.0 << QList<int>{ 4952, 4984 };
    QTest::newRow("a short line takes one") << 0 << false << 0.01 << QList<int>{ 4968 };
    QTest::newRow("a fitting line takes one") << 0 << false << 0.064 << QList<int>{ 4968 };
    QTest::newRow("a longer line is covered") << 0 << false << 0.066 << QList<int>{ 4967, 4969 };
    QTest::newRow("two in a line") << 0 << false << 0.128 << QList<int>{ 4936, 5000 };
    QTest::newRow("infinite") << 1 << false << qInf() << QList<int>{ 4968 };
    QTest::newRow("NaN") << 0 << false << qQNaN() << QList<int>{ 4968 };
    QTest::newRow("below 0") << 0 << false << -3.0 << QList<int>{ 4968 };
}

void tst_LineMaker::spectra()
{
    QFETCH(int, averaging);
    QFETCH(bool, real);
    QFETCH(double, slice);
    QFETCH(QList<int>, starts);
    TestSource source(10000, real);
    LineMaker maker(source);
    maker.SetBins(64);
    maker.SetAveraging(averaging);
    maker.Make(0, 5.0, slice);
    QList<int> read;
    for (qint64 const start : source.starts)
        read.append(int(start));
    QCOMPARE(read, starts);

    source.starts.clear();
    maker.SetAveraging(0);
    maker.Make(0, 5.0, 1e9);
    QCOMPARE(source.starts.size(), std::size_t(64));
}

void tst_LineMaker::foldedSeconds_data()
{
    QTest::addColumn<double>("seconds");
    QTest::addColumn<double>("folded");
    QTest::newRow("beginning") << 0.0 << 0.0;
    QTest::newRow("within") << 7.25 << 7.25;
    QTest::newRow("end") << 10.0 << 0.0;
    QTest::newRow("next turn") << 27.25 << 7.25;
    QTest::newRow("turn before") << -2.75 << 7.25;
    QTest::newRow("NaN") << qQNaN() << 0.0;
    QTest::newRow("infinite") << qInf() << 0.0;
}

void tst_LineMaker::foldedSeconds()
{
    QFETCH(double, seconds);
    TestSource source(10000, false);
    LineMaker maker(source);
    auto const line = maker.Make(42, seconds, 0.02);
    QTEST(line->seconds, "folded");
    QCOMPARE(line->number, quint64(42));
}

void tst_LineMaker::endlessSeconds_data()
{
    QTest::addColumn<double>("seconds");
    QTest::addColumn<double>("kept");
    QTest::newRow("late") << 1e6 << 1e6;
    QTest::newRow("before the beginning") << -1.0 << 0.0;
    QTest::newRow("beyond all") << 1e300 << 1e300;
}

void tst_LineMaker::endlessSeconds()
{
    QFETCH(double, seconds);
    TestSource source(0, false);
    LineMaker maker(source);
    QTEST(maker.Make(0, seconds, 0.02)->seconds, "kept");
}

void tst_LineMaker::durationThatIsNotFinite()
{
    TestSource source(10000, false);
    source.rate = 5e-324;
    QVERIFY(std::isinf(source.Duration()));
    LineMaker maker(source);
    QCOMPARE(maker.Make(0, 2.5, 0.02)->seconds, 2.5);
    QCOMPARE(maker.Make(0, -2.5, 0.02)->seconds, 0.0);
}

void tst_LineMaker::frequencyOfTheMiddle()
{
    TestSource source(1000, false);
    LineMaker maker(source);
    QCOMPARE(maker.Make(0, 0.499, 0.02)->centre, 100.0);
    QCOMPARE(maker.Make(0, 0.501, 0.02)->centre, 200.0);
    QCOMPARE(maker.Make(0, 0.501, 0.02)->span, 1000.0);
}

void tst_LineMaker::realSpan()
{
    TestSource source(1000, true);
    LineMaker maker(source);
    maker.SetBins(256);
    auto const line = maker.Make(0, 0.0, 0.02);
    QCOMPARE(line->span, 500.0);
    QCOMPARE(line->levels.size(), std::size_t(256));
    QVERIFY(std::abs(line->levels[0]) < 0.01);
}

void tst_LineMaker::missingSamplesAreSilence()
{
    TestSource source(10000, false);
    LineMaker maker(source);
    maker.SetBins(64);
    maker.SetWindow(SpectrumEngine::eWindowRectangular);
    maker.Make(0, 5.0, 0.0);
    source.most = 32;
    QVERIFY(std::abs(maker.Make(0, 5.0, 0.0)->levels[32] + 6.0206) < 0.01);
    source.most = -1;
    QCOMPARE(maker.Make(0, 5.0, 0.0)->levels[32], LevelFloor);
}

void tst_LineMaker::recordingIsARing()
{
    SigmfFiles const files;
    QString error;
    auto recording = SigmfRecording::Open(files.Recording(SigmfFiles::Meta("ri8"), "\x10\x20\x30"), error);
    QVERIFY2(recording, qPrintable(error));
    RecordingSource source(std::move(recording));
    QCOMPARE(source.Recording().Length(), qint64(3));
    QCOMPARE(source.Length(), qint64(3));
    QCOMPARE(source.Duration(), 0.003);
    std::array<Sample, 7> samples;
    QCOMPARE(source.Read(samples.data(), 7), qint64(7));
    QCOMPARE(samples[2], Sample(0.375F, 0.0F));
    QCOMPARE(samples[3], Sample(0.125F, 0.0F));
    QCOMPARE(samples[6], Sample(0.125F, 0.0F));
    QCOMPARE(source.Position(), qint64(1));
    source.Seek(-1);
    QCOMPARE(source.Position(), qint64(2));
    source.Seek(3);
    QCOMPARE(source.Position(), qint64(0));
    source.Seek(std::numeric_limits<qint64>::lowest());
    QVERIFY(source.Position() >= 0 && source.Position() < 3);
    QCOMPARE(source.Read(samples.data(), -1), qint64(0));
    QVERIFY(QFile::resize(files.Path(QStringLiteral("r.sigmf-data")), 2));
    source.Seek(1);
    QCOMPARE(source.Read(samples.data(), 7), qint64(1));
}

void tst_LineMaker::recordingFrequencies_data()
{
    QTest::addColumn<QByteArray>("datatype");
    QTest::addColumn<double>("centre");
    QTest::addColumn<double>("span");
    QTest::addColumn<double>("left");
    QTest::newRow("I/Q: in the middle") << QByteArray("cu8") << 5000.0 << 1000.0 << 4500.0;
    QTest::newRow("real: at the left end") << QByteArray("ru8") << 5250.0 << 500.0 << 5000.0;
}

void tst_LineMaker::recordingFrequencies()
{
    QFETCH(QByteArray, datatype);
    SigmfFiles const files;
    QString error;
    auto const meta = SigmfFiles::Meta(datatype, "",
                                       "{\"core:sample_start\": 0, \"core:frequency\": 5000}, "
                                       "{\"core:sample_start\": 9, \"core:frequency\": 7000}");
    auto recording = SigmfRecording::Open(files.Recording(meta, QByteArray(20, 'a')), error);
    QVERIFY2(recording, qPrintable(error));
    RecordingSource const source(std::move(recording));
    QTEST(source.CentreFrequency(0), "centre");
    QTEST(source.Span(), "span");
    QTEST(source.LeftFrequency(0), "left");
    QCOMPARE(source.CentreFrequency(9), source.CentreFrequency(0) + 2000.0);
    QCOMPARE(source.SampleRate(), 1000.0);
}

void tst_LineMaker::meterBursts_data()
{
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("length");
    QTest::newRow("first") << 0.239 << 0.0068;
    QTest::newRow("second") << 0.456 << 0.0147;
}

void tst_LineMaker::meterBursts()
{
    if (TestStage::Recordings().isEmpty())
        QSKIP("no recordings here", );
    QFETCH(double, start);
    QFETCH(double, length);
    auto const source = OpenRecording("wmbus_868950kHz_1600kSps_cu8");
    QVERIFY(source);
    LineMaker maker(*source);
    constexpr double slice = 0.002;
    std::vector<double> loud;
    for (int i = 0; i < 327; ++i) {
        auto const line = maker.Make(0, (i + 0.5) * slice, slice);
        bool const near = std::abs(line->seconds - start - length / 2.0) < 0.1;
        if (near && Power(*line, 868.95e6 - 200e3, 868.95e6 + 200e3) > -15.0)
            loud.push_back(line->seconds);
    }
    QVERIFY(!loud.empty());
    QVERIFY2(std::abs(loud.front() - start) <= slice, QByteArray::number(loud.front()).constData());
    QVERIFY2(std::abs(loud.back() - start - length) <= slice, QByteArray::number(loud.back()).constData());
    QVERIFY(std::abs(double(loud.size()) - length / slice) <= 2.0);
}

void tst_LineMaker::vorPeaks_data()
{
    QTest::addColumn<double>("offset");
    QTest::addColumn<double>("from");
    QTest::addColumn<double>("to");
    QTest::newRow("variable phase") << 30.0 << 10.0 << 100.0;
    QTest::newRow("identity") << 1020.0 << 500.0 << 2000.0;
    QTest::newRow("subcarrier, the middle one of its lines 30 Hz apart") << 9960.0 << 9945.0 << 9975.0;
}

void tst_LineMaker::vorPeaks()
{
    if (TestStage::Recordings().isEmpty())
        QSKIP("no recordings here", );
    QFETCH(double, offset);
    QFETCH(double, from);
    QFETCH(double, to);
    auto const source = OpenRecording("vor_klo_114850kHz_am_47kSps_rf32");
    QVERIFY(source);
    LineMaker maker(*source);
    maker.SetBins(4096);
    auto const line = maker.Make(0, source->Duration() / 2.0, source->Duration());
    double const bin = line->span / 4096;
    double const peak = PeakFrequency(*line, 114.85e6 + from, 114.85e6 + to) - 114.85e6;
    QVERIFY2(std::abs(peak - offset) <= bin, QByteArray::number(peak).constData());
}

void tst_LineMaker::ft8Band()
{
    if (TestStage::Recordings().isEmpty())
        QSKIP("no recordings here", );
    auto const source = OpenRecording("hf_ft8_21074kHz_12kSps_ri16");
    QVERIFY(source);
    LineMaker maker(*source);
    auto const line = maker.Make(0, 7.0, 10.0);
    double const dial = 21.074e6;
    QCOMPARE(line->centre - line->span / 2.0, dial);
    double const within = Power(*line, dial + 200.0, dial + 2800.0);
    QVERIFY2(within - Power(*line, dial, dial + 190.0) > 10.0, "below");
    QVERIFY2(within - Power(*line, dial + 3000.0, dial + 6000.0) > 20.0, "above");
}

void tst_LineMaker::ft8SlotEndsInSilence()
{
    if (TestStage::Recordings().isEmpty())
        QSKIP("no recordings here", );
    auto const source = OpenRecording("hf_ft8_21074kHz_12kSps_ri16");
    QVERIFY(source);
    LineMaker maker(*source);
    for (int slot = 1; slot <= 4; ++slot) {
        auto const line = maker.Make(0, 15.0 * slot - 0.3, 0.02);
        QCOMPARE(line->levels, std::vector<double>(1024, LevelFloor));
        QVERIFY(Power(*maker.Make(0, 15.0 * slot - 2.0, 0.02), 21.074e6, 21.08e6) > -60.0);
    }
}

void tst_LineMaker::planes()
{
    if (TestStage::Recordings().isEmpty())
        QSKIP("no recordings here", );
    auto const source = OpenRecording("adsb_1090MHz_2MSps_cu8");
    QVERIFY(source);
    LineMaker maker(*source);
    auto const line = maker.Make(0, 0.09, 0.178);
    double const middle = Power(*line, 1090e6 - 500e3, 1090e6 + 500e3);
    double const edges = Power(*line, 1089e6, 1089.2e6) + 10.0 * std::log10(5.0);
    QVERIFY2(middle - edges > 3.0, QByteArray::number(middle - edges).constData());
}

ORIM_CORE_TEST_MAIN(tst_LineMaker)
#include "tst_linemaker.moc"
