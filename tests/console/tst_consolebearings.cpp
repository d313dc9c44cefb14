// SPDX-License-Identifier: MIT
#include "consolebearings.h"

#include "azimuthdisplayselect.h"
#include "bearingpane.h"
#include "colorset.h"
#include "consolewindow.h"
#include "frequencyaxis.h"
#include "guibase.h"
#include "lineplayer.h"
#include "markertools.h"
#include "panestack.h"
#include "panetools.h"
#include "resultmarker.h"
#include "spectrumpane.h"
#include "testmain.h"
#include "vccaption.h"
#include "waterfallpane.h"

#include <QApplication>
#include <QPushButton>

#include <cmath>

using namespace MarkerTools;
using namespace PaneTools;

class tst_ConsoleBearings : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void initTestCase() { TestStage::HushPopups(); }

    void init();
    void cleanup();
    void withoutADirectionFinderThereAreNone();
    void resultsAppearAsMarkers();
    void eightAtMost();
    void selectionFollowsItsEmitter();
    void selectionEndsWithItsEmitter();
    void badIndexSelectsNone_data();
    void badIndexSelectsNone();
    void nextGoesAllAround();
    void keysSelect_data();
    void keysSelect();
    void clickSelects_data();
    void clickSelects();
    void selectedOneIsHighlighted();
    void selectionIsReadOut();
    void readOutGivesWayToThePeak();
    void resultsAreNoMarkersOfTheOperator();
    void hiddenPaneCatchesUp();
    void resultsCostNoOtherPaint();
    void simulatedEmittersAreFound();
    void singleMeasurementsAreKept();
    void vehicleTellsWhereItPointsTo();
    void panesOfBearingsFollow();
    void captionsOfBearings_data();
    void captionsOfBearings();
    void windowGoneWithBearings_data();
    void windowGoneWithBearings();

private:
    static void SetResults(std::vector<BearingResult> results);

    std::vector<RangePane *> Panes() const { return { &m_window->Spectrum(), &m_window->Waterfall() }; }

    static MarkerRulers::Ruler RulerOf(RangePane & pane, int result);

    std::unique_ptr<ConsoleWindow> m_window;
};

namespace {

constexpr double Start = ToneSource::Centre - ToneSource::Rate / 2.0; // Hz

//! A result at a part of the band.
BearingResult ResultAt(QString const & name, double part, double bearing = 41.3)
{
    return BearingResult({ bearing, -4.5, Start + part * ToneSource::Rate, 95.0, -30.0 }, name);
}

SpectrumLine LineAt(double part)
{
    SpectrumLine line;
    line.centre = ToneSource::Centre;
    line.span = ToneSource::Rate;
    line.levels.assign(1024, -90.0);
    line.levels[static_cast<std::size_t>(part * 1024)] = -30.0;
    return line;
}

SimulatedEmitter EmitterAt(QString const & name, double part)
{
    return { name, Start + part * ToneSource::Rate, 10.0, 0.0, 100.0, 5.0, 90 };
}

//! Counts the paint events of a widget.
class PaintCount : public QObject
{
public:
    explicit PaintCount(QWidget & widget) { widget.installEventFilter(this); }

    bool eventFilter(QObject *, QEvent * event) override
    {
        m_count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }

    int Get() const { return m_count; }

private:
    int m_count = 0;
};

} // namespace

void tst_ConsoleBearings::init()
{
    m_window = std::make_unique<ConsoleWindow>(std::make_unique<LinePlayer>(std::make_unique<ToneSource>()),
                                               QStringLiteral("tone"));
    ConsoleValues::Select(ConsolePaths::Bins, 256);
    m_window->resize(1000, 700);
    m_window->show();
    m_window->Start();
    QTRY_VERIFY(m_window->Figures().painted > 0);
    m_window->Player().Stop();
}

void tst_ConsoleBearings::cleanup() { m_window.reset(); }

void tst_ConsoleBearings::SetResults(std::vector<BearingResult> results)
{
    Tree::Instance()
        ->FindAs<ValueList<BearingResult>>(QLatin1String(ConsolePaths::Bearings))
        ->SetEntries(std::move(results), nullptr);
}

//! The ruler of a result as it is painted now; with index -1 when there is none.
MarkerRulers::Ruler tst_ConsoleBearings::RulerOf(RangePane & pane, int result)
{
    pane.grab();
    for (MarkerRulers::Ruler const & ruler : pane.GetRulers()) {
        if (ruler.index == eFree33 + result)
            return ruler;
    }
    return { -1, false, -1, QRect(), {}, {}, {}, false, 0 };
}

void tst_ConsoleBearings::withoutADirectionFinderThereAreNone()
{
    QCOMPARE(ConsoleBearings::Count(), 0);
    QCOMPARE(ConsoleBearings::Selected(), -1);
    ConsoleBearings none;
    none.Take(LineAt(0.5), 0.0);
    QCOMPARE(ConsoleBearings::Count(), 0);
    ConsoleBearings::SelectNext(true);
    QCOMPARE(ConsoleBearings::Selected(), -1);
    for (RangePane * const pane : Panes()) {
        pane->grab();
        QVERIFY(pane->GetRulers().empty());
    }
    // nor without its values
    m_window.reset();
    none.Find({ EmitterAt(QStringLiteral("A"), 0.5) }, 1);
    none.Take(LineAt(0.5), 0.0);
    QCOMPARE(ConsoleBearings::Count(), 0);
    QVERIFY(!ConsoleBearings::At(0));
}

void tst_ConsoleBearings::resultsAppearAsMarkers()
{
    m_window->FindDirections({ EmitterAt(QStringLiteral("A"), 0.625) }, 1); // where the tone is
    m_window->Start();
    QTRY_COMPARE(ConsoleBearings::Count(), 1);
    m_window->Player().Stop();
    double const frequency = ConsoleBearings::At(0)->GetValue(DirectionFinder::eFrequency);
    QCOMPARE(frequency, Start + 0.625 * ToneSource::Rate);
    for (RangePane * const pane : Panes()) {
        auto const * const marker = dynamic_cast<ResultMarker *>(pane->GetMarker(eFree33));
        QVERIFY(marker);
        QVERIFY(marker->GetShowMarker());
        QVERIFY(!marker->GetMoveable());
        QCOMPARE(pane->GetMarkerValue(eFree33), frequency);
        QCOMPARE(RulerOf(*pane, 0).line,
                 static_cast<int>(std::lround(pane->ValueToPixel(eMarkerX, frequency) * pane->GetRatio())));
    }
    QString const flag = RulerOf(m_window->Spectrum(), 0).texts.join(QString());
    QVERIFY2(flag.size() == 4 && flag.endsWith(QChar(0xb0)), qPrintable(flag));
    QVERIFY(RulerOf(m_window->Waterfall(), 0).texts.isEmpty());
}

void tst_ConsoleBearings::eightAtMost()
{
    std::vector<BearingResult> results;
    for (int i = 0; i < 9; ++i)
        results.push_back(ResultAt(QString::number(i), 0.1 * (i + 0.5)));
    SetResults(results);
    QCOMPARE(ConsoleBearings::Count(), 8);
    for (RangePane * const pane : Panes()) {
        for (int i = 0; i < 8; ++i)
            QCOMPARE(RulerOf(*pane, i).index, eFree33 + i);
        QVERIFY(!pane->isIndexValid(eFree33 + 8));
    }
    SetResults({ results[0], results[1] });
    for (RangePane * const pane : Panes()) {
        QCOMPARE(RulerOf(*pane, 1).index, eFree33 + 1);
        QVERIFY(!pane->isIndexValid(eFree33 + 2));
    }
    SetResults({});
    for (RangePane * const pane : Panes())
        QVERIFY(!pane->isIndexValid(eFree33));
}

void tst_ConsoleBearings::selectionFollowsItsEmitter()
{
    ConsoleBearings bearings;
    bearings.Find({ EmitterAt(QStringLiteral("low"), 0.25), EmitterAt(QStringLiteral("high"), 0.75) }, 1);
    bearings.Take(LineAt(0.75), 0.0);
    ConsoleBearings::Select(0);
    QCOMPARE(ConsoleBearings::At(0)->GetText(), QStringLiteral("high"));
    bearings.Take(LineAt(0.25), 1.0); // stands before it now
    QCOMPARE(ConsoleBearings::Selected(), 1);
    QCOMPARE(ConsoleBearings::At(1)->GetText(), QStringLiteral("high"));
    for (RangePane * const pane : Panes()) {
        QVERIFY(RulerOf(*pane, 1).strong);
        QVERIFY(!RulerOf(*pane, 0).strong);
        QCOMPARE(RulerOf(*pane, 1).color, ColorSet::Instance()[IColorBase::eColorSelectedResult]);
        QCOMPARE(RulerOf(*pane, 0).color, ColorSet::Instance()[IColorBase::eColorResult]);
    }
}

void tst_ConsoleBearings::selectionEndsWithItsEmitter()
{
    ConsoleBearings bearings;
    bearings.Find({ EmitterAt(QStringLiteral("low"), 0.25), EmitterAt(QStringLiteral("high"), 0.75) }, 1);
    bearings.Take(LineAt(0.25), 0.0);
    ConsoleBearings::Select(0);
    bearings.Take(LineAt(0.75), 1.0);
    QCOMPARE(ConsoleBearings::Selected(), 0);
    bearings.Take(LineAt(0.75), 5.0);
    QCOMPARE(ConsoleBearings::Count(), 1);
    QCOMPARE(ConsoleBearings::Selected(), -1);
    QVERIFY(m_window->Spectrum().BearingReadOut().isEmpty());
}

void tst_ConsoleBearings::badIndexSelectsNone_data()
{
    QTest::addColumn<int>("index");
    QTest::newRow("none") << -1;
    QTest::newRow("behind the last") << 2;
    QTest::newRow("far") << 1000000;
    QTest::newRow("far below") << -1000000;
}

void tst_ConsoleBearings::badIndexSelectsNone()
{
    QFETCH(int, index);
    SetResults({ ResultAt(QStringLiteral("A"), 0.2), ResultAt(QStringLiteral("B"), 0.5) });
    ConsoleBearings::Select(1);
    QCOMPARE(ConsoleBearings::Selected(), 1);
    ConsoleBearings::Select(index);
    QCOMPARE(ConsoleBearings::Selected(), -1);
    QVERIFY(!ConsoleBearings::At(index));
    // a number beyond a list that became shorter
    ConsoleBearings::Select(1);
    SetResults({ ResultAt(QStringLiteral("A"), 0.2) });
    QVERIFY(ConsoleBearings::Selected() < 1);
}

void tst_ConsoleBearings::nextGoesAllAround()
{
    SetResults(
        { ResultAt(QStringLiteral("A"), 0.2), ResultAt(QStringLiteral("B"), 0.5), ResultAt(QStringLiteral("C"), 0.7) });
    for (int const expected : { 0, 1, 2, 0 }) {
        ConsoleBearings::SelectNext(true);
        QCOMPARE(ConsoleBearings::Selected(), expected);
    }
    for (int const expected : { 2, 1, 0, 2 }) {
        ConsoleBearings::SelectNext(false);
        QCOMPARE(ConsoleBearings::Selected(), expected);
    }
    ConsoleBearings::Select(-1);
    ConsoleBearings::SelectNext(false);
    QCOMPARE(ConsoleBearings::Selected(), 2);
}

void tst_ConsoleBearings::keysSelect_data()
{
    QTest::addColumn<bool>("waterfall");
    QTest::newRow("in the spectrum") << false;
    QTest::newRow("in the waterfall") << true;
}

void tst_ConsoleBearings::keysSelect()
{
    QFETCH(bool, waterfall);
    SetResults(
        { ResultAt(QStringLiteral("A"), 0.2), ResultAt(QStringLiteral("B"), 0.5), ResultAt(QStringLiteral("C"), 0.7) });
    RangePane & pane = *Panes()[waterfall ? 1 : 0];
    QTest::keyClick(&pane, Qt::Key_R);
    QCOMPARE(ConsoleBearings::Selected(), 0);
    QTest::keyClick(&pane, Qt::Key_R);
    QCOMPARE(ConsoleBearings::Selected(), 1);
    QTest::keyClick(&pane, Qt::Key_R, Qt::ShiftModifier);
    QCOMPARE(ConsoleBearings::Selected(), 0);
    QTest::keyClick(&pane, Qt::Key_R, Qt::ControlModifier); // not for results
    QCOMPARE(ConsoleBearings::Selected(), 0);
}

void tst_ConsoleBearings::clickSelects_data()
{
    QTest::addColumn<bool>("waterfall");
    QTest::addColumn<int>("beside"); // px
    QTest::addColumn<int>("selected");
    QTest::newRow("on its line in the spectrum") << false << 0 << 1;
    QTest::newRow("on its line in the waterfall") << true << 0 << 1;
    QTest::newRow("within reach") << true << -MarkerHand::Reach << 1;
    QTest::newRow("out of reach") << true << -MarkerHand::Reach - 1 << -1;
}

void tst_ConsoleBearings::clickSelects()
{
    QFETCH(bool, waterfall);
    QFETCH(int, beside);
    QFETCH(int, selected);
    SetResults({ ResultAt(QStringLiteral("A"), 0.2), ResultAt(QStringLiteral("B"), 0.5) });
    RangePane & pane = *Panes()[waterfall ? 1 : 0];
    RulerOf(pane, 1);
    QRect const line = pane.GetMarker(eFree33 + 1)->GetRulerRect();
    QPoint const at = line.center() + QPoint(beside, 0);
    Press(pane, at);
    Release(pane, at);
    QCOMPARE(ConsoleBearings::Selected(), selected);
    // below a short line there is nothing to click on
    Press(pane, QPoint(pane.GetMarker(eFree33)->GetRulerRect().center().x(), line.bottom() + 20));
    QCOMPARE(ConsoleBearings::Selected(), selected);
    if (waterfall)
        return;
    QRect const flag = RulerOf(pane, 0).flag;
    QVERIFY(flag.isValid());
    Press(pane, flag.center());
    QCOMPARE(ConsoleBearings::Selected(), 0);
    Button(pane, QEvent::MouseButtonPress, line.center(), Qt::RightButton);
    QCOMPARE(ConsoleBearings::Selected(), 0);
}

void tst_ConsoleBearings::selectedOneIsHighlighted()
{
    SetResults({ ResultAt(QStringLiteral("A"), 0.2), ResultAt(QStringLiteral("B"), 0.5) });
    QRect const picture = m_window->Waterfall().GetPictureRect();
    for (int const selected : { 0, 1 }) {
        ConsoleBearings::Select(selected); // shows at once, without a new list
        for (int const result : { 0, 1 }) {
            for (RangePane * const pane : Panes()) {
                MarkerRulers::Ruler const ruler = RulerOf(*pane, result);
                QCOMPARE(ruler.strong, result == selected);
                QCOMPARE(ruler.stub == 0, result == selected);
                QCOMPARE(ruler.color, ColorSet::Instance()[result == selected ? IColorBase::eColorSelectedResult
                                                                              : IColorBase::eColorResult]);
            }
            MarkerRulers::Ruler const ruler = RulerOf(m_window->Waterfall(), result);
            QImage const image = Rendered(m_window->Waterfall());
            QCOMPARE(image.pixelColor(ruler.line, picture.bottom() - 5) == ruler.color, result == selected);
            QCOMPARE(image.pixelColor(ruler.line, picture.top() + 3), ruler.color);
        }
    }
}

void tst_ConsoleBearings::selectionIsReadOut()
{
    SetResults({ ResultAt(QStringLiteral("Tower"), 0.2), ResultAt(QStringLiteral("Taxi"), 0.5, 203.0) });
    SpectrumPane & pane = m_window->Spectrum();
    QVERIFY(pane.BearingReadOut().isEmpty());
    QImage const before = Rendered(pane);
    ConsoleBearings::Select(0);
    QString const degree(QChar(0xb0));
    QCOMPARE(pane.BearingReadOut(),
             QStringLiteral("Tower  bearing 041.3%1  elevation -4.5%1  quality 95 %").arg(degree));
    QImage const after = Rendered(pane);
    QRect const strip(pane.GetPictureRect().left(), 0, 100, pane.GetPictureRect().top());
    QVERIFY(before.copy(strip) != after.copy(strip));
    ConsoleBearings::Select(1);
    QVERIFY(pane.BearingReadOut().startsWith(QStringLiteral("Taxi  bearing 203.0") + degree));
    QStringList const flag = RulerOf(pane, 1).texts;
    QCOMPARE(flag.value(0), QStringLiteral("203.0") + degree);
    QVERIFY(flag.value(1).endsWith(QStringLiteral(" MHz")));
    QCOMPARE(RulerOf(m_window->Waterfall(), 1).texts, QStringList{ QStringLiteral("203.0") + degree });
    QCOMPARE(RulerOf(pane, 0).texts, QStringList{ QStringLiteral("041") + degree });
}

void tst_ConsoleBearings::readOutGivesWayToThePeak()
{
    SetResults({ ResultAt(QString(200, QLatin1Char('W')), 0.2) });
    ConsoleBearings::Select(0);
    QString const degree(QChar(0xb0));
    QString const whole = QStringLiteral("041.3%1  el -4.5%1  q 95 %").arg(degree);
    QStringList shown;
    for (int width = m_window->Spectrum().width(); width >= 200; width -= 10) {
        m_window->Spectrum().resize(width, 200);
        QString const text = m_window->Spectrum().BearingReadOut();
        if (shown.isEmpty() || shown.last() != text)
            shown << text;
    }
    QCOMPARE(shown, QStringList({ whole, QStringLiteral("041.3") + degree, QString() }));
    m_window->Spectrum().grab();
}

void tst_ConsoleBearings::resultsAreNoMarkersOfTheOperator()
{
    ConsoleValues::SetFlag(ConsolePaths::Marker1Shown, true);
    SetResults({ ResultAt(QStringLiteral("A"), 0.2), ResultAt(QStringLiteral("B"), 0.3) });
    RangePane & pane = m_window->Spectrum();
    for (int press = 0; press < 3; ++press) {
        QTest::keyClick(&pane, Qt::Key_M);
        QCOMPARE(pane.GetCurrentMarker(), int(eYellowX));
    }
    RulerOf(pane, 0);
    QPoint const at = pane.GetMarker(eFree33)->GetRulerRect().center();
    Drag(pane, at, at + QPoint(100, 0));
    QCOMPARE(pane.GetMarkerValue(eFree33), Start + 0.2 * ToneSource::Rate);
    // a marker of the operator at the same place is taken first
    ConsoleBearings::Select(-1);
    ConsoleValues::Set(ConsolePaths::Marker1, Start + 0.2 * ToneSource::Rate);
    RulerOf(pane, 0);
    Drag(pane, at, at + QPoint(100, 0));
    QVERIFY(ConsoleValues::Get(ConsolePaths::Marker1) > Start + 0.25 * ToneSource::Rate);
    QCOMPARE(ConsoleBearings::Selected(), -1);
}

void tst_ConsoleBearings::hiddenPaneCatchesUp()
{
    m_window->hide();
    SetResults({ ResultAt(QStringLiteral("A"), 0.2), ResultAt(QStringLiteral("B"), 0.5) });
    ConsoleBearings::Select(1);
    for (RangePane * const pane : Panes())
        QVERIFY(!pane->isIndexValid(eFree33));
    m_window->show();
    for (RangePane * const pane : Panes()) {
        QVERIFY(RulerOf(*pane, 1).strong);
        QVERIFY(!RulerOf(*pane, 0).strong);
        QCOMPARE(RulerOf(*pane, 1).color, ColorSet::Instance()[IColorBase::eColorSelectedResult]);
    }
}

void tst_ConsoleBearings::resultsCostNoOtherPaint()
{
    SpectrumPane & pane = m_window->Spectrum();
    QCoreApplication::sendPostedEvents();
    QTRY_VERIFY(!pane.GetMustRecalcRulers());
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    PaintCount const settled(pane);
    pane.SetLine(std::make_shared<SpectrumLine>(LineAt(0.5)));
    QTRY_VERIFY(settled.Get() > 0); // whatever else was due is painted with it
    PaintCount const panePaints(pane);
    PaintCount const axisPaints(pane.GetFrequencyAxis());
    PaintCount const scalePaints(pane.GetLevelScale());
    ConsoleBearings bearings;
    bearings.Find({ EmitterAt(QStringLiteral("A"), 0.5) }, 1);
    constexpr int frames = 5;
    for (int frame = 0; frame < frames; ++frame) {
        auto line = std::make_shared<SpectrumLine>(LineAt(0.5));
        line->number = static_cast<quint64>(frame);
        int const before = panePaints.Get();
        pane.SetLine(line);
        bearings.Take(*line, frame); // each is measured
        QTRY_VERIFY(panePaints.Get() > before);
    }
    QCOMPARE(ConsoleBearings::Count(), 1);
    // the window system may ask for one paint of its own meanwhile; a result that asks does so with every line
    QVERIFY(panePaints.Get() <= frames + 1);
    QVERIFY(axisPaints.Get() <= 1);
    QVERIFY(scalePaints.Get() <= 1);
}

void tst_ConsoleBearings::simulatedEmittersAreFound()
{
    m_window.reset();
    m_window = std::make_unique<ConsoleWindow>(std::make_unique<LinePlayer>(std::make_unique<Simulator>()),
                                               QStringLiteral("simulated"));
    m_window->FindDirections(Simulator::Emitters(), 1);
    m_window->show();
    m_window->Start();
    QTRY_VERIFY(ConsoleBearings::Count() >= 4);
    m_window->Player().Stop();
    double last = 0.0;
    for (int i = 0; i < ConsoleBearings::Count(); ++i) {
        double const frequency = ConsoleBearings::At(i)->GetValue(DirectionFinder::eFrequency);
        QVERIFY(frequency > last);
        last = frequency;
        QCOMPARE(m_window->Spectrum().GetMarkerValue(eFree33 + i), frequency);
    }
}

void tst_ConsoleBearings::singleMeasurementsAreKept()
{
    ConsoleBearings bearings;
    bearings.Find({ EmitterAt(QStringLiteral("low"), 0.25), EmitterAt(QStringLiteral("high"), 0.75) }, 1);
    QSignalSpy const changed(&bearings.History(), &BearingHistory::signalChanged);
    bearings.Take(LineAt(0.75), 0.0);
    QCOMPARE(bearings.History().GetEntries().size(), std::size_t(1));
    bearings.Take(LineAt(0.75), 0.01); // too early
    QCOMPARE(changed.count(), 1);
    bearings.Take(LineAt(0.25), 0.1); // before results are measured again
    QCOMPARE(bearings.History().GetEntries().size(), std::size_t(2));
    QCOMPARE(ConsoleBearings::Count(), 1);
    BearingHistory::Entry const & entry = bearings.History().GetEntries().back();
    QCOMPARE(entry.time, 0.1);
    QVERIFY(std::abs(entry.measurement.frequency - Start - 0.25 * ToneSource::Rate) <= 5.0);
    QVERIFY(std::abs(entry.measurement.bearing - 100.0) < 3.0);
    ConsoleBearings none;
    none.Take(LineAt(0.75), 0.0);
    QVERIFY(none.History().GetEntries().empty());
}

void tst_ConsoleBearings::vehicleTellsWhereItPointsTo()
{
    ConsoleBearings none;
    none.Take(LineAt(0.75), 22.5);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::Heading), 0.0);
    ConsoleBearings bearings;
    bearings.Find({ EmitterAt(QStringLiteral("low"), 0.25) }, 1);
    bearings.Take(LineAt(0.75), 22.5);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::Heading), 45.0);
    bearings.Take(LineAt(0.75), 22.6 + 45.0);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::Heading), 15.0);
}

//! The panes of the window show what it measures while they are shown.
void tst_ConsoleBearings::panesOfBearingsFollow()
{
    m_window->FindDirections({ EmitterAt(QStringLiteral("A"), 0.625) }, 1); // where the tone is
    m_window->Start();
    QTRY_COMPARE(ConsoleBearings::Count(), 1);
    QVERIFY(!m_window->Azimuth().isVisible());
    QVERIFY(m_window->Azimuth().GetSparkles().empty());
    ConsoleValues::SetFlag(ConsolePaths::AzimuthShown, true);
    ConsoleValues::SetFlag(ConsolePaths::ElevationShown, true);
    QTRY_VERIFY(m_window->Azimuth().GetSparkles().size() >= 3);
    QTRY_VERIFY(m_window->Elevation().GetSparkles().size() >= 3);
    m_window->Player().Stop();
    m_window->grab();
    for (BearingPane * const pane : { &m_window->Azimuth(), &m_window->Elevation() }) {
        QCOMPARE(pane->GetBands().size(), std::size_t(1));
        QVERIFY(pane->GetFrequencyRange() == m_window->Spectrum().GetFrequencyRange());
        QCOMPARE(pane->GetPictureRect().left(), m_window->Spectrum().GetPictureRect().left());
        QCOMPARE(pane->GetPictureRect().width(), m_window->Spectrum().GetPictureRect().width());
        QCOMPARE(pane->GetBands()[0].line.center().x(), RulerOf(m_window->Spectrum(), 0).line);
    }
    // the shown frequencies are those of all
    ConsoleValues::Set(ConsolePaths::Span, ToneSource::Rate / 4.0);
    m_window->grab();
    QCOMPARE(m_window->Azimuth().GetFrequencyRange().span, ToneSource::Rate / 4.0);
}

void tst_ConsoleBearings::captionsOfBearings_data()
{
    QTest::addColumn<bool>("azimuth");
    QTest::newRow("azimuth") << true;
    QTest::newRow("elevation") << false;
}

void tst_ConsoleBearings::captionsOfBearings()
{
    QFETCH(bool, azimuth);
    ConsoleValues::SetFlag(ConsolePaths::AzimuthShown, azimuth);
    ConsoleValues::SetFlag(ConsolePaths::ElevationShown, !azimuth);
    m_window->grab();
    BearingPane & pane = azimuth ? m_window->Azimuth() : m_window->Elevation();
    PaneFrame & frame = *m_window->Splitter().FrameOf(&pane);
    PaneFrame & other = *m_window->Splitter().FrameOf(&m_window->Spectrum());
    VCCaption & caption = frame.Caption();
    // nothing is measured of a recording
    QCOMPARE(caption.GetCaptionRight(), QStringLiteral("No direction finder"));
    QVERIFY(other.Caption().GetCaptionRight() != caption.GetCaptionRight());
    m_window->FindDirections({ EmitterAt(QStringLiteral("A"), 0.625) }, 1);
    QCOMPARE(caption.GetCaptionRight(), other.Caption().GetCaptionRight());
    // the range is that of all
    ConsoleValues::Set(ConsolePaths::Span, ToneSource::Rate / 4.0);
    m_window->grab();
    QString const gap = QStringLiteral("  ");
    QCOMPARE(caption.GetCaptionLeft().section(gap, 1), other.Caption().GetCaptionLeft().section(gap, 1));
    QCOMPARE(caption.GetCaptionLeft().section(gap, 0, 0),
             azimuth ? QStringLiteral("Azimuth") : QStringLiteral("Elevation"));
    // the buttons, and the keys that do the same
    m_window->Player().Play();
    auto * const stream = caption.findChild<QPushButton *>(QStringLiteral("StartStopDatastream"));
    QVERIFY(stream && stream->isVisible());
    QCOMPARE(caption.GetCaptionRight(), QStringLiteral("Running"));
    QTest::mouseClick(stream, Qt::LeftButton);
    QVERIFY(!m_window->Player().IsPlaying());
    for (PaneFrame const * const each : m_window->Splitter().Frames()) {
        QCOMPARE(each->Caption().GetStartStopDatastreamButtonState(), false);
        QCOMPARE(each->Caption().GetCaptionRight(), QStringLiteral("Paused"));
    }
    QTest::keyClick(&pane, Qt::Key_Space);
    QVERIFY(m_window->Player().IsPlaying());
    QVERIFY(caption.GetStartStopDatastreamButtonState());
    m_window->Player().Stop();
    QTest::keyClick(&pane, Qt::Key_H);
    QVERIFY(frame.IsHeld());
    QCOMPARE(caption.GetCaptionRight(), QStringLiteral("Held"));
    QTest::keyClick(&pane, Qt::Key_F11);
    QVERIFY(m_window->Splitter().GetFull() == &frame);
    QTest::keyClick(&pane, Qt::Key_F11);
    QVERIFY(!m_window->Splitter().GetFull());
    QVERIFY(frame.IsHeld());
}

void tst_ConsoleBearings::windowGoneWithBearings_data()
{
    QTest::addColumn<int>("deed");
    QTest::newRow("as it is") << 0;
    QTest::newRow("both held") << 1;
    QTest::newRow("one full") << 2;
    QTest::newRow("the menu of a scale open") << 3;
    QTest::newRow("the values gone ahead") << 4;
    QTest::newRow("held, and the values gone ahead") << 5;
}

void tst_ConsoleBearings::windowGoneWithBearings()
{
    QFETCH(int, deed);
    ConsoleValues::SetFlag(ConsolePaths::AzimuthShown, true);
    ConsoleValues::SetFlag(ConsolePaths::ElevationShown, true);
    SetResults({ ResultAt(QStringLiteral("A"), 0.25), ResultAt(QStringLiteral("B"), 0.75) });
    ConsoleBearings::Select(1);
    m_window->grab();
    if (deed == 1 || deed == 5) {
        m_window->Splitter().FrameOf(&m_window->Azimuth())->SetHeld(true);
        m_window->Splitter().FrameOf(&m_window->Elevation())->SetHeld(true);
    } else if (deed == 2) {
        m_window->Splitter().SetFull(m_window->Splitter().FrameOf(&m_window->Azimuth()));
    } else if (deed == 3) {
        QTest::keyClick(&m_window->Azimuth().GetLevelScale(), Qt::Key_Menu);
        QVERIFY(QApplication::activePopupWidget());
    }
    if (deed >= 4) {
        for (char const * const path : { ConsolePaths::Bearings, ConsolePaths::SelectedBearing, ConsolePaths::Heading,
                                         ConsolePaths::AzimuthMin, ConsolePaths::ElevationMax })
            QVERIFY(Tree::Instance()->Remove(QLatin1String(path)));
        m_window->grab();
        QVERIFY(deed == 4 || !m_window->Azimuth().ReadOut().isEmpty());
    }
    m_window.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!QApplication::activePopupWidget());
    AzimuthDisplaySelect::Instance().Select(10);
    GuiBase::Instance().emit_signalColorsChanged();
    AzimuthDisplaySelect::Instance().slotRestoreDefaultPersistant();
    QVERIFY(!Tree::Instance()->Find(QLatin1String(ConsolePaths::Bearings)));
}

ORIM_TEST_MAIN(tst_ConsoleBearings)
#include "tst_consolebearings.moc"
