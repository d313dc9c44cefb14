// SPDX-License-Identifier: MIT
#include "rangetools.h"
#include "testmain.h"

using namespace RangeTools;
using namespace SessionTools;
using PaneTools::ToneSource;

class tst_ConsoleRetune : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void initTestCase() { TestStage::HushPopups(); }

    void init();
    void cleanup();

    void keysAfterARetune_data();
    void keysAfterARetune();
    void retuneIsNoStep();
    void stepsEndWithTheirBand();
    void dragEndsWithItsBand_data();
    void dragEndsWithItsBand();
    void playsOnIntoTheFirstBand();

private:
    void SeekTo(double second) const;

    std::unique_ptr<ConsoleWindow> m_window;
};

namespace {

//! A source whose second half was received elsewhere.
class TwoBandSource : public ToneSource
{
public:
    static constexpr double Step = 1e6; // Hz

    double CentreFrequency(qint64 position) const override { return position < Samples / 2 ? Centre : Centre + Step; }
};

constexpr double First = ToneSource::Centre - ToneSource::Rate / 2.0; // Hz, where the bands begin
constexpr double Second = First + TwoBandSource::Step;
constexpr double InFirst = 0.2; // s
constexpr double InSecond = 1.2;

Range BandAt(double start) { return { start, start + ToneSource::Rate }; }

} // namespace

void tst_ConsoleRetune::init()
{
    m_window = ToneWindow<TwoBandSource>();
    ConsoleValues::Set(ConsolePaths::Speed, 0.05); // stays where it is put
    QTRY_VERIFY(m_window->Figures().painted > 3);
    m_window->Player().Seek(InFirst);
    QTRY_COMPARE(ConsoleValues::Get(ConsolePaths::BandStart), First);
    m_window->Values().SetLevels(-120.0, 0.0);
    m_window->grab();
    Steps().clear();
}

void tst_ConsoleRetune::cleanup()
{
    m_window.reset();
    Steps().clear();
}

void tst_ConsoleRetune::SeekTo(double second) const { m_window->Player().Seek(second); }

void tst_ConsoleRetune::keysAfterARetune_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::newRow("undo") << int(Qt::Key_Z) << int(Qt::ControlModifier);
    QTest::newRow("redo") << int(Qt::Key_Z) << int(Qt::ControlModifier | Qt::ShiftModifier);
    QTest::newRow("back") << int(Qt::Key_Backspace) << 0;
    QTest::newRow("home") << int(Qt::Key_Home) << 0;
    QTest::newRow("out") << int(Qt::Key_Minus) << 0;
}

void tst_ConsoleRetune::keysAfterARetune()
{
    QFETCH(int, key);
    QFETCH(int, modifiers);
    Drag(*m_window, eSpectrum, 0.2, 0.8);
    Drag(*m_window, eSpectrum, 0.5, 0.4, Qt::ShiftModifier);
    Drag(*m_window, eSpectrum, 0.5, 0.4, Qt::ShiftModifier);
    Steps().undo();
    Range const former = RangeOf(eSpectrum);
    SeekTo(InSecond);
    QTRY_COMPARE(ConsoleValues::Get(ConsolePaths::BandStart), Second);
    for (int time = 0; time < 3; ++time) {
        QTest::keyClick(&m_window->Spectrum(), static_cast<Qt::Key>(key), Qt::KeyboardModifiers(modifiers));
        Range const range = RangeOf(eSpectrum);
        QVERIFY(range[0] >= Second && range[1] <= Second + ToneSource::Rate);
        QVERIFY2(range[1] - range[0] >= 0.9 * (former[1] - former[0]),
                 qPrintable(QString::number(range[1] - range[0])));
        QVERIFY(PanesAgree(*m_window));
    }
}

void tst_ConsoleRetune::retuneIsNoStep()
{
    SeekTo(InSecond);
    QTRY_COMPARE(RangeOf(eSpectrum), BandAt(Second));
    QCOMPARE(Steps().count(), 0);
    SeekTo(InFirst);
    QTRY_COMPARE(RangeOf(eSpectrum), BandAt(First));
    QCOMPARE(Steps().count(), 0);
    for (Place const at : { eSpectrum, eWaterfall })
        QVERIFY(!PaneOf(*m_window, at).GetFrequencyAxis().IsUnZoomAvailable());
}

void tst_ConsoleRetune::stepsEndWithTheirBand()
{
    Drag(*m_window, eSpectrum, 0.2, 0.8);
    Drag(*m_window, eSpectrum, 0.5, 0.4, Qt::ShiftModifier);
    QCOMPARE(Steps().count(), 2);
    SeekTo(InSecond);
    QTRY_COMPARE(ConsoleValues::Get(ConsolePaths::BandStart), Second);
    QVERIFY(!Steps().canUndo());
    QVERIFY(!Steps().canRedo());
    for (Place const at : { eSpectrum, eWaterfall })
        QVERIFY(!PaneOf(*m_window, at).GetFrequencyAxis().IsUnZoomAvailable());
    // and those of the new one begin
    Drag(*m_window, eWaterfall, 0.2, 0.8);
    QCOMPARE(Steps().count(), 1);
}

void tst_ConsoleRetune::dragEndsWithItsBand_data()
{
    QTest::addColumn<int>("place");
    QTest::addColumn<bool>("pan");
    QTest::newRow("band in the picture") << int(eSpectrum) << false;
    QTest::newRow("band on the scale") << int(eWaterfallScale) << false;
    QTest::newRow("pan in the picture") << int(eWaterfall) << true;
    QTest::newRow("pan on the scale") << int(eSpectrumScale) << true;
}

void tst_ConsoleRetune::dragEndsWithItsBand()
{
    QFETCH(int, place);
    QFETCH(bool, pan);
    Place const at = static_cast<Place>(place);
    Drag(*m_window, at, 0.2, 0.8);
    QWidget & widget = WidgetOf(*m_window, at);
    Qt::KeyboardModifiers const modifiers = pan ? Qt::ShiftModifier : Qt::NoModifier;
    Mouse(widget, QEvent::MouseButtonPress, At(*m_window, at, 0.5), modifiers);
    Mouse(widget, QEvent::MouseMove, At(*m_window, at, 0.45), modifiers);
    QVERIFY(PaneOf(*m_window, at).GetFrequencyAxis().IsDragged());
    SeekTo(InSecond);
    QTRY_COMPARE(ConsoleValues::Get(ConsolePaths::BandStart), Second);
    QVERIFY(!PaneOf(*m_window, at).GetFrequencyAxis().IsDragged());
    Range const range = RangeOf(at);
    Mouse(widget, QEvent::MouseMove, At(*m_window, at, 0.3), modifiers);
    Mouse(widget, QEvent::MouseButtonRelease, At(*m_window, at, 0.3), modifiers);
    QCOMPARE(RangeOf(at), range);
    QCOMPARE(Steps().count(), 0);
    QVERIFY(PanesAgree(*m_window));
}

//! A recording begins anew by itself.
void tst_ConsoleRetune::playsOnIntoTheFirstBand()
{
    SeekTo(InSecond);
    QTRY_COMPARE(RangeOf(eSpectrum), BandAt(Second));
    ConsoleValues::Set(ConsolePaths::Speed, 10.0);
    QTRY_COMPARE(RangeOf(eSpectrum), BandAt(First));
    QTRY_COMPARE(RangeOf(eWaterfall), BandAt(Second));
    QCOMPARE(Steps().count(), 0);
}

ORIM_TEST_MAIN(tst_ConsoleRetune)
#include "tst_consoleretune.moc"
