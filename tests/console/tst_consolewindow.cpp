// SPDX-License-Identifier: MIT
#include "colorset.h"
#include "consolewindow.h"
#include "frequencyaxis.h"
#include "guibase.h"
#include "levelgradients.h"
#include "lineplayer.h"
#include "panecolors.h"
#include "panetools.h"
#include "positionbar.h"
#include "shadingcolorset.h"
#include "spectrumpane.h"
#include "testmain.h"
#include "waterfallpane.h"

#include <QComboBox>
#include <QDeadlineTimer>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QSlider>
#include <QThread>
#include <QTimerEvent>
#include <QToolButton>

#include <cmath>

using namespace PaneTools;

class tst_ConsoleWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void initTestCase() { TestStage::HushPopups(); }

    void init();
    void linesReachThePanes();
    void bandComesFromTheSource();
    void dragOfThePositionBarSeeks();
    void playAndPause();
    void valuesMoveThePanes();
    void controlsWriteTheValues_data();
    void controlsWriteTheValues();
    void controlsFollowTheValues();
    void limitsWinOverTheOperator();
    void endsOfABoxAreTheLimits_data();
    void endsOfABoxAreTheLimits();
    void panesFollowTheSegments();
    void dropsAreCountedAndShown();
    void valuesReachThePlayer();
    void colourSetChangeRecolours();
    void fitShowsTheSignal();
    void panesStandOverEachOther();
    void scalesShareTheRange();
    void smallWindowKeepsItsControls();
    void statusLineTellsTheFigures();
    void closedWindowLeavesNothing();

private:
    template <class Source = ToneSource>
    std::unique_ptr<ConsoleWindow> Window(bool show = true) const;
};

namespace {

template <class T>
T * Child(ConsoleWindow & window, char const * name)
{
    return window.findChild<T *>(QLatin1String(name));
}

//! A source whose second half was received elsewhere.
class TwoBandSource : public ToneSource
{
public:
    static constexpr double Step = 1e6; // Hz

    double CentreFrequency(qint64 position) const override { return position < Samples / 2 ? Centre : Centre + Step; }
};

//! A source whose band has no end that a box of three decimals of a kilohertz could show.
class OddSource : public ToneSource
{
public:
    static constexpr double OddRate = 8191.23456789;

    double SampleRate() const override { return OddRate; }
};

} // namespace

template <class Source>
std::unique_ptr<ConsoleWindow> tst_ConsoleWindow::Window(bool show) const
{
    auto window = std::make_unique<ConsoleWindow>(std::make_unique<LinePlayer>(std::make_unique<Source>()),
                                                  QStringLiteral("tone.sigmf-meta"));
    ConsoleValues::Select(ConsolePaths::Bins, 256);
    ConsoleValues::Set(ConsolePaths::LineRate, 50.0);
    if (show) {
        window->show();
        window->Start();
    }
    return window;
}

void tst_ConsoleWindow::init() { ColorSet::Instance().Load(0); }

void tst_ConsoleWindow::linesReachThePanes()
{
    auto window = Window();
    QTRY_VERIFY(window->Figures().painted >= 20);
    window->Player().Stop();
    QTRY_COMPARE(window->Figures().painted, window->Figures().produced);
    ConsoleFigures const figures = window->Figures();
    QCOMPARE(figures.taken, figures.produced);
    QCOMPARE(figures.dropped, quint64(0));
    QCOMPARE(window->Waterfall().GetRowsAppended(), figures.taken);
    QVERIFY(figures.frames >= 1 && figures.frames <= figures.painted);
    QVERIFY(figures.frameMax >= figures.frameMean && figures.frameMean > 0.0);
    QVERIFY(figures.ToText().contains(QStringLiteral("%1 taken").arg(figures.taken)));
}

void tst_ConsoleWindow::bandComesFromTheSource()
{
    auto window = Window();
    QTRY_VERIFY(window->Figures().taken > 0);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::Centre), ToneSource::Centre);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::Span), ToneSource::Rate);
    // the tone is read where it is: an eighth of the rate above the centre
    QCOMPARE(window->Spectrum().GetPeak().frequency, ToneSource::Centre + ToneSource::Rate / 8.0);
}

void tst_ConsoleWindow::dragOfThePositionBarSeeks()
{
    auto window = Window();
    window->Player().Pause();
    auto * const bar = Child<QSlider>(*window, "bar");
    auto const at = [bar](double part) { return QPoint(static_cast<int>(part * bar->width()), bar->height() / 2); };
    QTest::mousePress(bar, Qt::LeftButton, {}, at(0.1));
    QMouseEvent move(QEvent::MouseMove, at(0.75), bar->mapToGlobal(at(0.75)), Qt::NoButton, Qt::LeftButton,
                     Qt::NoModifier);
    QCoreApplication::sendEvent(bar, &move);
    QTest::mouseRelease(bar, Qt::LeftButton, {}, at(0.75));
    QVERIFY2(std::abs(window->Player().Position() - 1.5) < 0.1,
             qPrintable(QString::number(window->Player().Position())));
    // it plays on from there
    window->Player().Play();
    quint64 const taken = window->Figures().taken;
    QTRY_VERIFY(window->Figures().taken > taken);
    double const position = window->Player().Position();
    QVERIFY2(position > 1.4 || position < 0.5, qPrintable(QString::number(position)));
}

void tst_ConsoleWindow::playAndPause()
{
    auto window = Window();
    QVERIFY(window->Player().IsPlaying());
    QVERIFY(window->Position().IsPlaying());
    QTest::mouseClick(Child<QToolButton>(*window, "pause"), Qt::LeftButton);
    QVERIFY(!window->Player().IsPlaying());
    QVERIFY(!window->Position().IsPlaying());
    QTest::mouseClick(Child<QToolButton>(*window, "play"), Qt::LeftButton);
    QVERIFY(window->Player().IsPlaying());
    QVERIFY(window->Position().IsPlaying());
    QTest::keyClick(Child<QSlider>(*window, "bar"), Qt::Key_Space);
    QVERIFY(!window->Player().IsPlaying());
}

void tst_ConsoleWindow::valuesMoveThePanes()
{
    auto window = Window();
    QTRY_VERIFY(window->Figures().taken > 0);
    ConsoleValues::Set(ConsolePaths::Span, 1000.0);
    ConsoleValues::Set(ConsolePaths::Centre, 100.5e6);
    ConsoleValues::Set(ConsolePaths::LevelMin, -90.0);
    ConsoleValues::Set(ConsolePaths::LevelMax, -10.0);
    ConsoleValues::Select(ConsolePaths::Gradient, 2);
    double const centre = ToneSource::Centre + ToneSource::Rate / 2.0 - 500.0; // as far as the band goes
    for (RangePane * const pane :
         { static_cast<RangePane *>(&window->Spectrum()), static_cast<RangePane *>(&window->Waterfall()) }) {
        QCOMPARE(pane->GetFrequencyRange().span, 1000.0);
        QCOMPARE(pane->GetFrequencyRange().start, centre - 500.0);
        QCOMPARE(pane->GetLevelMin(), -90.0);
        QCOMPARE(pane->GetLevelMax(), -10.0);
    }
    QCOMPARE(LevelGradients::CurrentSet().GetString(), QString(QLatin1String(LevelGradients::At(2).line)));
}

void tst_ConsoleWindow::controlsWriteTheValues_data()
{
    QTest::addColumn<QString>("control");
    QTest::addColumn<double>("input");
    QTest::addColumn<QString>("path");
    QTest::addColumn<double>("value");
    auto const path = [](char const * text) { return QString(QLatin1String(text)); };
    QTest::newRow("centre in MHz") << "centre" << 100.001 << path(ConsolePaths::Centre) << 100.001e6;
    QTest::newRow("span in kHz") << "span" << 2.0 << path(ConsolePaths::Span) << 2000.0;
    QTest::newRow("lowest level") << "levelMin" << -95.0 << path(ConsolePaths::LevelMin) << -95.0;
    QTest::newRow("highest level") << "levelMax" << -5.0 << path(ConsolePaths::LevelMax) << -5.0;
    QTest::newRow("averaging") << "averaging" << 8.0 << path(ConsolePaths::Averaging) << 8.0;
    QTest::newRow("line rate") << "lineRate" << 40.0 << path(ConsolePaths::LineRate) << 40.0;
    QTest::newRow("speed") << "speed" << 2.5 << path(ConsolePaths::Speed) << 2.5;
    QTest::newRow("window") << "window" << 3.0 << path(ConsolePaths::Window) << 3.0;
    QTest::newRow("bins") << "bins" << 1.0 << path(ConsolePaths::Bins) << 128.0;
    QTest::newRow("gradient") << "gradient" << 1.0 << path(ConsolePaths::Gradient) << 1.0;
}

void tst_ConsoleWindow::controlsWriteTheValues()
{
    QFETCH(QString, control);
    QFETCH(double, input);
    QFETCH(QString, path);
    QFETCH(double, value);
    auto window = Window();
    QTRY_VERIFY(window->Figures().taken > 0);
    QByteArray const name = path.toLatin1();
    if (auto * const spin = window->findChild<QDoubleSpinBox *>(control)) {
        if (control == QLatin1String("centre"))
            ConsoleValues::Set(ConsolePaths::Span, 1000.0); // a view that can be moved
        spin->setValue(input);
        QCOMPARE(ConsoleValues::Get(name.constData()), value);
    } else {
        auto * const combo = window->findChild<QComboBox *>(control);
        QVERIFY(combo);
        // the operator's choice: the keyboard moves it to the wanted row
        combo->setFocus();
        QTest::keyClick(combo, Qt::Key_Home);
        for (int row = 0; row < static_cast<int>(input); ++row)
            QTest::keyClick(combo, Qt::Key_Down);
        QCOMPARE(ConsoleValues::GetKey(name.constData()), static_cast<long>(value));
    }
}

void tst_ConsoleWindow::controlsFollowTheValues()
{
    auto window = Window();
    QTRY_VERIFY(window->Figures().taken > 0);
    ConsoleValues::Set(ConsolePaths::LineRate, 33.0);
    QCOMPARE(Child<QDoubleSpinBox>(*window, "lineRate")->value(), 33.0);
    QCOMPARE(Child<QDoubleSpinBox>(*window, "centre")->value(), 100.0);
    ConsoleValues::Select(ConsolePaths::Bins, 4096);
    QCOMPARE(Child<QComboBox>(*window, "bins")->currentText(), QStringLiteral("4096"));
    ConsoleValues::Select(ConsolePaths::Gradient, 3);
    QCOMPARE(Child<QComboBox>(*window, "gradient")->currentIndex(), 3);
    ConsoleValues::Set(ConsolePaths::Averaging, 0.0);
    QCOMPARE(Child<QDoubleSpinBox>(*window, "averaging")->text(), QStringLiteral("all"));
}

void tst_ConsoleWindow::limitsWinOverTheOperator()
{
    auto window = Window();
    auto * const levelMin = Child<QDoubleSpinBox>(*window, "levelMin");
    levelMin->setValue(50.0);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::LevelMin), ConsoleValues::Get(ConsolePaths::LevelMax) - 1.0);
    QCOMPARE(levelMin->value(), ConsoleValues::Get(ConsolePaths::LevelMin));
    levelMin->setValue(50.0); // the value does not move this time
    QCOMPARE(levelMin->value(), ConsoleValues::Get(ConsolePaths::LevelMin));
}

void tst_ConsoleWindow::endsOfABoxAreTheLimits_data()
{
    QTest::addColumn<QString>("control");
    QTest::addColumn<QString>("path");
    QTest::addColumn<double>("least");
    QTest::addColumn<double>("most");
    auto const path = [](char const * text) { return QString(QLatin1String(text)); };
    double const band = OddSource::OddRate;
    QTest::newRow("span") << "span" << path(ConsolePaths::Span) << band / ConsoleValues::MostZoom << band;
    QTest::newRow("centre") << "centre" << path(ConsolePaths::Centre) << ToneSource::Centre - (band - 1000.0) / 2.0
                            << ToneSource::Centre + (band - 1000.0) / 2.0;
}

void tst_ConsoleWindow::endsOfABoxAreTheLimits()
{
    QFETCH(QString, control);
    QFETCH(QString, path);
    QFETCH(double, least);
    QFETCH(double, most);
    auto window = Window<OddSource>();
    QTRY_VERIFY(window->Figures().taken > 0);
    window->Player().Stop();
    ConsoleValues::Set(ConsolePaths::Span, 1000.0);
    auto * const box = window->findChild<QDoubleSpinBox *>(control);
    QByteArray const name = path.toLatin1();
    box->setValue(box->minimum());
    QVERIFY2(std::abs(ConsoleValues::Get(name.constData()) - least) < 1e-6, name.constData()); // Hz
    box->setValue(box->maximum());
    QVERIFY2(std::abs(ConsoleValues::Get(name.constData()) - most) < 1e-6, name.constData()); // Hz
}

void tst_ConsoleWindow::panesFollowTheSegments()
{
    auto window = Window<TwoBandSource>();
    ConsoleValues::Set(ConsolePaths::Speed, 0.1);
    auto const start = [](RangePane const & pane) { return pane.GetFrequencyRange().start; };
    QTRY_COMPARE(start(window->Spectrum()), ToneSource::Centre - ToneSource::Rate / 2.0);
    window->Player().Seek(1.2);
    double const second = ToneSource::Centre + TwoBandSource::Step - ToneSource::Rate / 2.0;
    QTRY_COMPARE(start(window->Spectrum()), second);
    QCOMPARE(start(window->Waterfall()), second);
    QCOMPARE(window->Spectrum().GetFrequencyRange().span, ToneSource::Rate);
    QCOMPARE(Child<QLabel>(*window, "frequency")->text(), QStringLiteral("Centre 101.00000 MHz"));
}

void tst_ConsoleWindow::dropsAreCountedAndShown()
{
    auto window = Window(false);
    ConsoleValues::Set(ConsolePaths::LineRate, 200.0);
    window->Start();
    QDeadlineTimer const deadline(20000);
    while (window->Player().Dropped() == 0 && !deadline.hasExpired()) // nobody takes the lines
        QThread::yieldCurrentThread();
    window->Player().Stop();
    ConsoleFigures const figures = window->Figures();
    QVERIFY(figures.dropped > 0);
    QCOMPARE(figures.dropped, window->Player().Dropped());
    QTimerEvent tick(window->GetStatusTimerId());
    QCoreApplication::sendEvent(window.get(), &tick);
    QString const text = Child<QLabel>(*window, "figures")->text();
    QVERIFY2(text.contains(QStringLiteral(" %1 drops").arg(figures.dropped + figures.skipped)), qPrintable(text));
}

void tst_ConsoleWindow::valuesReachThePlayer()
{
    auto window = Window(false);
    ConsoleValues::Select(ConsolePaths::Bins, 512);
    ConsoleValues::Select(ConsolePaths::Window, 2);
    ConsoleValues::Set(ConsolePaths::LineRate, 30.0);
    ConsoleValues::Set(ConsolePaths::Speed, 4.0);
    ConsoleValues::Set(ConsolePaths::Averaging, 5.0);
    QCOMPARE(window->Player().Bins(), 512);
    QCOMPARE(static_cast<int>(window->Player().GetWindow()), 2);
    QCOMPARE(window->Player().LineRate(), 30.0);
    QCOMPARE(window->Player().Speed(), 4.0);
    QCOMPARE(window->Player().Averaging(), 5);
}

void tst_ConsoleWindow::colourSetChangeRecolours()
{
    auto window = Window();
    QTRY_VERIFY(window->Figures().painted > 0);
    window->Player().Stop();
    QSet<QRgb> grounds;
    for (int set = 0; set < ColorSet::GetSetCount(); ++set) {
        QComboBox & box = window->ColorSets();
        box.setFocus();
        QTest::keyClick(&box, Qt::Key_Home);
        for (int row = 0; row < set; ++row)
            QTest::keyClick(&box, Qt::Key_Down);
        QCOMPARE(ColorSet::Instance().GetCurrentSet(), set);
        QImage const spectrum = Rendered(window->Spectrum());
        QRect const picture = window->Spectrum().GetPictureRect();
        QCOMPARE(spectrum.pixelColor(picture.left() + 2, picture.top() + 2), CurrentPaneColors().ground);
        QImage const waterfall = Rendered(window->Waterfall());
        QRect const rows = window->Waterfall().GetPictureRect();
        QCOMPARE(waterfall.pixelColor(rows.left() + 2, rows.bottom() - 1), CurrentPaneColors().ground);
        grounds.insert(spectrum.pixel(picture.left() + 2, picture.top() + 2));
    }
    QCOMPARE(grounds.size(), ColorSet::GetSetCount());
}

void tst_ConsoleWindow::fitShowsTheSignal()
{
    auto window = Window(false);
    window->FitLevelRange(); // waits for the first line
    QCOMPARE(ConsoleValues::Get(ConsolePaths::LevelMax), 0.0);
    window->show();
    window->Start();
    QTRY_VERIFY(window->Figures().taken > 0);
    window->Player().Stop();
    double const level = window->Spectrum().GetPeak().level;
    double const top = ConsoleValues::Get(ConsolePaths::LevelMax);
    QVERIFY(level < top && top - level <= 15.0);
    ConsoleValues::Set(ConsolePaths::LevelMax, 60.0);
    QTest::mouseClick(Child<QToolButton>(*window, "fit"), Qt::LeftButton);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::LevelMax), top);
}

void tst_ConsoleWindow::panesStandOverEachOther()
{
    auto window = Window();
    QTRY_VERIFY(window->Figures().painted > 0);
    QCOMPARE(window->Spectrum().GetPictureRect().left(), window->Waterfall().GetPictureRect().left());
    QCOMPARE(window->Spectrum().GetPictureRect().width(), window->Waterfall().GetPictureRect().width());
}

void tst_ConsoleWindow::scalesShareTheRange()
{
    auto window = Window();
    QTRY_VERIFY(window->Figures().painted > 0);
    window->Player().Stop();
    ConsoleValues::Set(ConsolePaths::Span, 2000.0);
    ConsoleValues::Set(ConsolePaths::Centre, ToneSource::Centre + 700.0);
    window->grab();
    FrequencyAxis & above = window->Spectrum().GetFrequencyAxis();
    FrequencyAxis & below = window->Waterfall().GetFrequencyAxis();
    for (FrequencyAxis * const axis : { &above, &below }) {
        QCOMPARE(axis->GetStart(), ToneSource::Centre - 300.0);
        QCOMPARE(axis->GetStop(), ToneSource::Centre + 1700.0);
        QVERIFY(axis->GetStartValueNumeric() && axis->GetStopValueNumeric());
    }
    QCOMPARE(above.GetGridPixels(), below.GetGridPixels());
    QCOMPARE(above.innerRect().left(), below.innerRect().left());
    window->Values().SetLevels(-95.0, -5.0);
    QCOMPARE(window->Spectrum().GetLevelScale().GetStart(), -95.0);
    QCOMPARE(window->Waterfall().GetLevelScale().GetStart(), -95.0);
    QCOMPARE(window->Spectrum().GetLevelScale().GetStop(), -5.0);
    QCOMPARE(window->Waterfall().GetLevelScale().GetStop(), -5.0);
}

void tst_ConsoleWindow::smallWindowKeepsItsControls()
{
    auto window = Window();
    window->resize(640, 480);
    QTRY_COMPARE(window->size(), QSize(640, 480));
    window->grab();
    QRect const inside = window->rect();
    QList<QWidget *> controls;
    for (QDoubleSpinBox * const spin : window->findChildren<QDoubleSpinBox *>())
        controls << spin;
    for (QComboBox * const combo : window->findChildren<QComboBox *>())
        controls << combo;
    controls << &window->Position() << &window->Spectrum() << &window->Waterfall();
    QVERIFY(controls.size() >= 13);
    for (QWidget * const control : controls) {
        QRect const place(control->mapTo(window.get(), QPoint(0, 0)), control->size());
        QVERIFY2(inside.contains(place), qPrintable(control->objectName()));
        QVERIFY2(control->width() >= control->minimumSizeHint().width(), qPrintable(control->objectName()));
        for (QWidget * const other : controls) {
            QRect const otherPlace(other->mapTo(window.get(), QPoint(0, 0)), other->size());
            QVERIFY2(other == control || !place.intersects(otherPlace), qPrintable(control->objectName()));
        }
    }
    // Where the fonts are wide the controls take six rows, which leave 90 px below the least height of the spectrum.
    int const height = window->Waterfall().height();
    QVERIFY2(height >= 80, qPrintable(QString::number(height)));
}

void tst_ConsoleWindow::statusLineTellsTheFigures()
{
    auto window = Window();
    QTRY_VERIFY(window->Figures().taken > 2);
    QTimerEvent tick(window->GetStatusTimerId());
    QCoreApplication::sendEvent(window.get(), &tick);
    QString const text = Child<QLabel>(*window, "figures")->text();
    QVERIFY2(text.contains(QStringLiteral("lines/s")) && text.contains(QStringLiteral("0 drops")), qPrintable(text));
    QVERIFY2(!text.startsWith(QStringLiteral("0.0 ")), qPrintable(text));
    QCOMPARE(Child<QLabel>(*window, "source")->text(), QStringLiteral("tone.sigmf-meta"));
    QCOMPARE(Child<QLabel>(*window, "frequency")->text(), QStringLiteral("Centre 100.00000 MHz"));
    QVERIFY(window->windowTitle().contains(QStringLiteral("tone.sigmf-meta")));
}

void tst_ConsoleWindow::closedWindowLeavesNothing()
{
    Window().reset();
    GuiBase::Instance().emit_signalColorsChanged();
    // a second window finds its paths free
    auto window = Window();
    QTRY_VERIFY(window->Figures().painted > 0);
}

ORIM_TEST_MAIN(tst_ConsoleWindow)
#include "tst_consolewindow.moc"
