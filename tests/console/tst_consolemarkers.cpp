// SPDX-License-Identifier: MIT
#include "consolemarkers.h"

#include "consolewindow.h"
#include "frequencyaxis.h"
#include "lineplayer.h"
#include "markertools.h"
#include "panetools.h"
#include "scaleaxis.h"
#include "spectrumpane.h"
#include "testmain.h"
#include "timeaxis.h"
#include "waterfallpane.h"

#include <QCheckBox>
#include <QTimerEvent>
#include <QWheelEvent>

#include <cmath>

using namespace MarkerTools;
using namespace PaneTools;

class tst_ConsoleMarkers : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void initTestCase() { TestStage::HushPopups(); }

    void init();
    void cleanup();
    void hiddenAtTheStart();
    void switchShowsAMarkerEverywhere_data();
    void switchShowsAMarkerEverywhere();
    void shownMarkersStandOnSignals();
    void placementWaitsForASignal();
    void markerOutOfViewComesBack();
    void placedInTheViewOfTheMoment();
    void markerInViewStays();
    void dragInOnePaneMovesAll_data();
    void dragInOnePaneMovesAll();
    void dragOfALevelMovesAll_data();
    void dragOfALevelMovesAll();
    void currentMarkerIsOne();
    void wheelStepsTheCurrentMarker_data();
    void wheelStepsTheCurrentMarker();
    void wheelStepsTheLevelMarker();
    void dragAfterTheWheelIsOneStep();
    void doubleClickTakesAMarker_data();
    void doubleClickTakesAMarker();
    void hidingInOneListHidesAll();
    void hidingAnotherKeepsTheCurrentOne();
    void hiddenMarkerIsNotStepped();
    void undoTakesOneDragBack();
    void secondIsComparedWithTheFirst();
    void controlsAreReachedByKeyboard();
    void bandTakesMarkersAlong();
    void flagsFitAtEverySize_data();
    void flagsFitAtEverySize();

private:
    std::vector<MarkerList *> Lists(bool levels) const;
    QPoint PlaceOf(MarkerList & list, int index) const;
    void ShowAll() const;

    std::unique_ptr<ConsoleWindow> m_window;
};

namespace {

constexpr double Tone = ToneSource::Centre + ToneSource::Rate / 8.0; // Hz

constexpr std::array<char const *, 3> ShownPaths{ { ConsolePaths::Marker1Shown, ConsolePaths::Marker2Shown,
                                                    ConsolePaths::LevelMarkerShown } };

ValueNumeric<double> * NumberAt(char const * path)
{
    return Tree::Instance()->FindAs<ValueNumeric<double>>(QLatin1String(path));
}

void Turn(QWidget & widget, QPoint at, int delta)
{
    QWheelEvent wheel(at, widget.mapToGlobal(at), QPoint(), QPoint(0, delta), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&widget, &wheel);
}

} // namespace

void tst_ConsoleMarkers::init()
{
    m_window = std::make_unique<ConsoleWindow>(std::make_unique<LinePlayer>(std::make_unique<ToneSource>()),
                                               QStringLiteral("tone"));
    ConsoleValues::Select(ConsolePaths::Bins, 256);
    m_window->resize(1000, 700);
    m_window->show();
    m_window->Start();
    QTRY_VERIFY(m_window->Figures().painted > 0);
    m_window->Player().Stop();
    GuiBase::Instance().UndoStack()->clear();
}

void tst_ConsoleMarkers::cleanup() { m_window.reset(); }

//! The lists that bear the markers of one direction.
std::vector<MarkerList *> tst_ConsoleMarkers::Lists(bool levels) const
{
    SpectrumPane & spectrum = m_window->Spectrum();
    WaterfallPane & waterfall = m_window->Waterfall();
    if (levels)
        return { &spectrum, &spectrum.GetLevelScale(), &waterfall.GetLevelScale() };
    return { &spectrum, &waterfall, &spectrum.GetFrequencyAxis(), &waterfall.GetFrequencyAxis() };
}

//! A place on the line of a marker, clear of the other lines.
QPoint tst_ConsoleMarkers::PlaceOf(MarkerList & list, int index) const
{
    list.grab();
    QRect const line = list.GetMarker(index)->GetRulerRect();
    return line.width() > line.height() ? QPoint(line.left() + line.width() * 2 / 3, line.top())
                                        : QPoint(line.left(), line.bottom() - 1);
}

void tst_ConsoleMarkers::ShowAll() const
{
    for (char const * const path : ShownPaths)
        ConsoleValues::SetFlag(path, true);
}

void tst_ConsoleMarkers::hiddenAtTheStart()
{
    for (char const * const path : ShownPaths)
        QVERIFY(!ConsoleValues::GetFlag(path));
    QVERIFY(m_window->Spectrum().GetRulers().empty());
    QVERIFY(m_window->Waterfall().GetRulers().empty());
    for (bool const levels : { false, true }) {
        for (MarkerList const * const list : Lists(levels))
            QVERIFY(list->GetShownMarkers().empty());
    }
}

void tst_ConsoleMarkers::switchShowsAMarkerEverywhere_data()
{
    QTest::addColumn<QString>("box");
    QTest::addColumn<int>("index");
    QTest::addColumn<bool>("level");
    QTest::newRow("first") << "marker1" << int(ConsoleMarkers::First) << false;
    QTest::newRow("second") << "marker2" << int(ConsoleMarkers::Second) << false;
    QTest::newRow("level") << "levelMarker" << int(ConsoleMarkers::Level) << true;
}

void tst_ConsoleMarkers::switchShowsAMarkerEverywhere()
{
    QFETCH(QString, box);
    QFETCH(int, index);
    QFETCH(bool, level);
    auto * const control = m_window->findChild<QCheckBox *>(box);
    QVERIFY(control);
    control->click();
    for (MarkerList * const list : Lists(level)) {
        QCOMPARE(list->GetShownIndices(), std::vector<int>{ index });
        QCOMPARE(list->GetCurrentMarker(), index);
        list->grab();
        QVERIFY(list->GetMarker(index)->GetRulerRect().isValid());
    }
    for (MarkerList const * const list : Lists(!level))
        QVERIFY(!list->isIndexValid(index) || list == &m_window->Spectrum());
    control->click();
    for (MarkerList const * const list : Lists(level))
        QVERIFY(list->GetShownMarkers().empty());
    // the box follows the value
    for (char const * const path : ShownPaths)
        ConsoleValues::SetFlag(path, true);
    QVERIFY(control->isChecked());
}

void tst_ConsoleMarkers::shownMarkersStandOnSignals()
{
    ShowAll();
    QCOMPARE(ConsoleValues::Get(ConsolePaths::Marker1), Tone);
    double const apart = std::abs(ConsoleValues::Get(ConsolePaths::Marker2) - Tone);
    QVERIFY2(apart >= 0.02 * ToneSource::Rate, qPrintable(QString::number(apart)));
    QCOMPARE(ConsoleValues::Get(ConsolePaths::LevelMarker), m_window->Spectrum().GetPeak().level);
    // a second window begins anew
    m_window.reset();
    init();
    QVERIFY(!ConsoleValues::GetFlag(ConsolePaths::Marker1Shown));
}

void tst_ConsoleMarkers::placementWaitsForASignal()
{
    m_window.reset();
    m_window = std::make_unique<ConsoleWindow>(std::make_unique<LinePlayer>(std::make_unique<ToneSource>()),
                                               QStringLiteral("tone"));
    ConsoleValues::Select(ConsolePaths::Bins, 256);
    ShowAll();
    QVERIFY(ConsoleValues::Get(ConsolePaths::Marker1) < Tone);
    for (MarkerList const * const list : Lists(true))
        QCOMPARE(list->GetCurrentMarker(), int(ConsoleMarkers::Level)); // the one that was shown last
    QCOMPARE(m_window->Waterfall().GetCurrentMarker(), -1);
    m_window->show();
    m_window->Start();
    QTRY_COMPARE(ConsoleValues::Get(ConsolePaths::Marker1), Tone);
    QVERIFY(ConsoleValues::Get(ConsolePaths::LevelMarker) != -60.0);
    QCOMPARE(m_window->Spectrum().GetMarkerValue(ConsoleMarkers::First), Tone);
    QCOMPARE(m_window->Waterfall().GetMarkerValue(ConsoleMarkers::First), Tone);
    // later lines leave it where it is
    ConsoleValues::Set(ConsolePaths::Marker1, ToneSource::Centre);
    quint64 const taken = m_window->Figures().taken;
    QTRY_VERIFY(m_window->Figures().taken > taken + 2);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::Marker1), ToneSource::Centre);
}

void tst_ConsoleMarkers::markerOutOfViewComesBack()
{
    ShowAll();
    ConsoleValues::Set(ConsolePaths::Marker1, ToneSource::Centre - ToneSource::Rate / 2.0);
    ConsoleValues::Set(ConsolePaths::LevelMarker, -155.0);
    for (char const * const path : ShownPaths)
        ConsoleValues::SetFlag(path, false);
    ConsoleValues::Set(ConsolePaths::Span, 1000.0);
    ConsoleValues::Set(ConsolePaths::Centre, Tone);
    ShowAll(); // before the view is painted
    QVERIFY(std::abs(ConsoleValues::Get(ConsolePaths::Marker1) - Tone) <= 500.0);
    QVERIFY(std::abs(ConsoleValues::Get(ConsolePaths::Marker2) - Tone) <= 500.0);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::LevelMarker), m_window->Spectrum().GetPeak().level);
}

void tst_ConsoleMarkers::placedInTheViewOfTheMoment()
{
    ConsoleValues::Set(ConsolePaths::Span, 1000.0);
    ConsoleValues::Set(ConsolePaths::Centre, Tone - 2000.0); // not painted yet
    ConsoleValues::SetFlag(ConsolePaths::Marker1Shown, true);
    double const marker = ConsoleValues::Get(ConsolePaths::Marker1);
    QVERIFY2(std::abs(marker - (Tone - 2000.0)) <= 500.0, qPrintable(QString::number(marker - Tone)));
}

void tst_ConsoleMarkers::markerInViewStays()
{
    ShowAll();
    double const wanted = ToneSource::Centre - 1000.0;
    ConsoleValues::Set(ConsolePaths::Marker1, wanted);
    ConsoleValues::SetFlag(ConsolePaths::Marker1Shown, false);
    ConsoleValues::SetFlag(ConsolePaths::Marker1Shown, true);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::Marker1), wanted);
}

void tst_ConsoleMarkers::dragInOnePaneMovesAll_data()
{
    QTest::addColumn<int>("list");
    QTest::newRow("in the spectrum") << 0;
    QTest::newRow("in the waterfall") << 1;
    QTest::newRow("on the scale of the spectrum") << 2;
    QTest::newRow("on the scale of the waterfall") << 3;
}

void tst_ConsoleMarkers::dragInOnePaneMovesAll()
{
    QFETCH(int, list);
    ConsoleValues::SetFlag(ConsolePaths::Marker1Shown, true);
    MarkerList & pane = *Lists(false)[static_cast<std::size_t>(list)];
    QPoint const from = PlaceOf(pane, ConsoleMarkers::First);
    QPoint const to = from - QPoint(120, 0);
    Press(pane, from);
    Move(pane, to);
    // all follow while it is moved
    double const moving = NumberAt(ConsolePaths::Marker1)->GetInterimValue();
    QVERIFY(moving < Tone);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::Marker1), Tone);
    for (MarkerList * const other : Lists(false)) {
        QCOMPARE(other->GetMarkerValue(ConsoleMarkers::First), moving);
        QVERIFY(other->GetMarker(ConsoleMarkers::First)->IsMoving());
    }
    Release(pane, to);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::Marker1), moving);
    QCOMPARE(UndoCount(), 1);
    for (MarkerList * const other : Lists(false)) {
        QVERIFY(std::abs(PlaceOf(*other, ConsoleMarkers::First).x() - to.x()) <= 1);
        QCOMPARE(other->GetCurrentMarker(), int(ConsoleMarkers::First));
    }
}

void tst_ConsoleMarkers::dragOfALevelMovesAll_data()
{
    QTest::addColumn<int>("list");
    QTest::newRow("in the spectrum") << 0;
    QTest::newRow("on the level scale") << 1;
    QTest::newRow("on the shading bar") << 2;
}

void tst_ConsoleMarkers::dragOfALevelMovesAll()
{
    QFETCH(int, list);
    ConsoleValues::SetFlag(ConsolePaths::LevelMarkerShown, true);
    ConsoleValues::Set(ConsolePaths::LevelMarker, -40.0);
    MarkerList & pane = *Lists(true)[static_cast<std::size_t>(list)];
    QPoint const from = PlaceOf(pane, ConsoleMarkers::Level);
    Drag(pane, from, from + QPoint(0, 25));
    double const value = ConsoleValues::Get(ConsolePaths::LevelMarker);
    QVERIFY2(value < -41.0, qPrintable(QString::number(value)));
    for (MarkerList * const other : Lists(true)) {
        QCOMPARE(other->GetMarkerValue(ConsoleMarkers::Level), value);
        other->grab();
        QCOMPARE(other->GetMarker(ConsoleMarkers::Level)->GetRulerRect().top(), other->ValueToPixel(eMarkerY, value));
    }
    QCOMPARE(UndoCount(), 1);
}

void tst_ConsoleMarkers::currentMarkerIsOne()
{
    ShowAll();
    MarkerList & spectrum = m_window->Spectrum();
    MarkerList & waterfall = m_window->Waterfall();
    QPoint at = PlaceOf(waterfall, ConsoleMarkers::First);
    Press(waterfall, at);
    Release(waterfall, at);
    for (MarkerList const * const list : Lists(false))
        QCOMPARE(list->GetCurrentMarker(), int(ConsoleMarkers::First));
    at = PlaceOf(spectrum, ConsoleMarkers::Level);
    Press(spectrum, at);
    Release(spectrum, at);
    QCOMPARE(waterfall.GetCurrentMarker(), -1);
    for (MarkerList const * const list : Lists(true))
        QCOMPARE(list->GetCurrentMarker(), int(ConsoleMarkers::Level));
    // the pane shows which one it is
    spectrum.grab();
    for (MarkerRulers::Ruler const & ruler : m_window->Spectrum().GetRulers()) {
        spectrum.GetMarker(ruler.index)->SetMoving(false, true);
        QVERIFY(ruler.index != ConsoleMarkers::Level || ruler.strong);
    }
    spectrum.updateWidget();
    spectrum.grab();
    for (MarkerRulers::Ruler const & ruler : m_window->Spectrum().GetRulers())
        QCOMPARE(ruler.strong, ruler.index == ConsoleMarkers::Level);
}

void tst_ConsoleMarkers::wheelStepsTheCurrentMarker_data()
{
    QTest::addColumn<int>("list");
    QTest::addColumn<int>("delta");
    QTest::newRow("up over the spectrum") << 0 << 120;
    QTest::newRow("down over the waterfall") << 1 << -120;
    QTest::newRow("up over the scale") << 2 << 120;
}

void tst_ConsoleMarkers::wheelStepsTheCurrentMarker()
{
    QFETCH(int, list);
    QFETCH(int, delta);
    ConsoleValues::SetFlag(ConsolePaths::Marker1Shown, true);
    MarkerList & pane = *Lists(false)[static_cast<std::size_t>(list)];
    int const before = PlaceOf(pane, ConsoleMarkers::First).x();
    for (int turn = 0; turn < 3; ++turn)
        Turn(pane, { 200, 15 }, delta);
    int const step = delta > 0 ? 1 : -1;
    QCOMPARE(PlaceOf(pane, ConsoleMarkers::First).x(), before + 3 * step);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::Marker1), Tone); // until the wheel rests
    QTRY_VERIFY(ConsoleValues::Get(ConsolePaths::Marker1) != Tone);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::Marker1), pane.GetMarkerValue(ConsoleMarkers::First));
    QCOMPARE(UndoCount(), 1);
}

void tst_ConsoleMarkers::wheelStepsTheLevelMarker()
{
    ConsoleValues::SetFlag(ConsolePaths::LevelMarkerShown, true);
    ConsoleValues::Set(ConsolePaths::LevelMarker, -40.0);
    for (MarkerList * const list : Lists(true)) {
        int const row = PlaceOf(*list, ConsoleMarkers::Level).y();
        Turn(*list, { 20, 60 }, 120);
        QCOMPARE(PlaceOf(*list, ConsoleMarkers::Level).y(), row - 1); // up is a higher level
        Turn(*list, { 20, 60 }, -120);
        QCOMPARE(PlaceOf(*list, ConsoleMarkers::Level).y(), row);
    }
}

void tst_ConsoleMarkers::dragAfterTheWheelIsOneStep()
{
    ConsoleValues::SetFlag(ConsolePaths::Marker1Shown, true);
    Turn(m_window->Waterfall(), { 200, 15 }, 120);
    QTRY_VERIFY(ConsoleValues::Get(ConsolePaths::Marker1) != Tone);
    double const before = ConsoleValues::Get(ConsolePaths::Marker1);
    int const steps = UndoCount();
    MarkerList & pane = m_window->Spectrum();
    QPoint const from = PlaceOf(pane, ConsoleMarkers::First);
    Press(pane, from);
    Move(pane, from - QPoint(80, 0));
    // the timer of the wheel goes on meanwhile
    QTimerEvent rests(m_window->Waterfall().GetWheelTimerID());
    QCoreApplication::sendEvent(&m_window->Waterfall(), &rests);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::Marker1), before);
    Release(pane, from - QPoint(80, 0));
    QVERIFY(ConsoleValues::Get(ConsolePaths::Marker1) < before);
    QCOMPARE(UndoCount(), steps + 1);
    // the scales have the same timer
    MarkerList & scale = m_window->Spectrum().GetFrequencyAxis();
    Turn(scale, { 200, 5 }, 120);
    double const moved = ConsoleValues::Get(ConsolePaths::Marker1);
    QTRY_VERIFY(ConsoleValues::Get(ConsolePaths::Marker1) != moved);
    double const stepped = ConsoleValues::Get(ConsolePaths::Marker1);
    QTest::keyPress(&pane, Qt::Key_Left);
    QTimerEvent scaleRests(scale.GetWheelTimerID());
    QCoreApplication::sendEvent(&scale, &scaleRests);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::Marker1), stepped);
    QTest::keyRelease(&pane, Qt::Key_Left);
    QVERIFY(ConsoleValues::Get(ConsolePaths::Marker1) < stepped);
}

void tst_ConsoleMarkers::doubleClickTakesAMarker_data()
{
    QTest::addColumn<int>("list");
    QTest::newRow("in the spectrum") << 0;
    QTest::newRow("on its scale") << 2;
}

void tst_ConsoleMarkers::doubleClickTakesAMarker()
{
    QFETCH(int, list);
    ConsoleValues::SetFlag(ConsolePaths::Marker1Shown, true);
    MarkerList & pane = *Lists(false)[static_cast<std::size_t>(list)];
    QPoint const from = PlaceOf(pane, ConsoleMarkers::First);
    Press(pane, from);
    Release(pane, from);
    Button(pane, QEvent::MouseButtonDblClick, from);
    Move(pane, from - QPoint(80, 0));
    Release(pane, from - QPoint(80, 0));
    QVERIFY(ConsoleValues::Get(ConsolePaths::Marker1) < Tone);
    QCOMPARE(UndoCount(), 1);
}

void tst_ConsoleMarkers::hidingInOneListHidesAll()
{
    ShowAll();
    m_window->Waterfall().SetShowMarker(ConsoleMarkers::First, false);
    QVERIFY(!ConsoleValues::GetFlag(ConsolePaths::Marker1Shown));
    for (MarkerList const * const list : Lists(false))
        QVERIFY(!list->GetShowMarker(ConsoleMarkers::First));
    QVERIFY(ConsoleValues::GetFlag(ConsolePaths::Marker2Shown));
    m_window->Spectrum().GetFrequencyAxis().SetShowMarker(ConsoleMarkers::First, true);
    QVERIFY(ConsoleValues::GetFlag(ConsolePaths::Marker1Shown));
    for (MarkerList const * const list : Lists(false))
        QVERIFY(list->GetShowMarker(ConsoleMarkers::First));
}

void tst_ConsoleMarkers::hidingAnotherKeepsTheCurrentOne()
{
    ShowAll();
    m_window->Spectrum().SetCurrentMarker(ConsoleMarkers::First, true);
    ConsoleValues::SetFlag(ConsolePaths::Marker2Shown, false);
    ConsoleValues::SetFlag(ConsolePaths::LevelMarkerShown, false);
    for (MarkerList const * const list : Lists(false))
        QCOMPARE(list->GetCurrentMarker(), int(ConsoleMarkers::First));
}

void tst_ConsoleMarkers::hiddenMarkerIsNotStepped()
{
    ConsoleValues::SetFlag(ConsolePaths::Marker1Shown, true);
    ConsoleValues::SetFlag(ConsolePaths::Marker1Shown, false);
    double const value = ConsoleValues::Get(ConsolePaths::Marker1);
    for (MarkerList * const list : Lists(false)) {
        QCOMPARE(list->GetCurrentMarker(), -1);
        Turn(*list, { 200, 15 }, 120);
        QTest::keyClick(list, Qt::Key_Right);
    }
    QCOMPARE(NumberAt(ConsolePaths::Marker1)->GetInterimValue(), value);
}

void tst_ConsoleMarkers::undoTakesOneDragBack()
{
    ConsoleValues::SetFlag(ConsolePaths::Marker1Shown, true);
    MarkerList & pane = m_window->Spectrum();
    for (int drag = 0; drag < 2; ++drag) {
        QPoint const from = PlaceOf(pane, ConsoleMarkers::First);
        Drag(pane, from, from + QPoint(40, 0));
    }
    QCOMPARE(UndoCount(), 2);
    double const last = ConsoleValues::Get(ConsolePaths::Marker1);
    GuiBase::Instance().UndoStack()->undo();
    GuiBase::Instance().UndoStack()->undo();
    QCOMPARE(ConsoleValues::Get(ConsolePaths::Marker1), Tone);
    for (MarkerList const * const list : Lists(false))
        QCOMPARE(list->GetMarkerValue(ConsoleMarkers::First), Tone);
    GuiBase::Instance().UndoStack()->redo();
    GuiBase::Instance().UndoStack()->redo();
    QCOMPARE(ConsoleValues::Get(ConsolePaths::Marker1), last);
}

void tst_ConsoleMarkers::secondIsComparedWithTheFirst()
{
    ShowAll();
    ConsoleValues::Set(ConsolePaths::Marker2, Tone + 512.0);
    m_window->Spectrum().grab();
    for (MarkerRulers::Ruler const & ruler : m_window->Spectrum().GetRulers()) {
        bool const compares = ruler.index == ConsoleMarkers::Second;
        QCOMPARE(ruler.texts.join(QLatin1Char('\n')).contains(QStringLiteral("+512 Hz")), compares);
        QVERIFY(!compares || ruler.texts.front().startsWith(QStringLiteral("M2 100.0")));
        QVERIFY(!compares || ruler.texts.front().contains(QStringLiteral(" MHz")));
    }
}

void tst_ConsoleMarkers::controlsAreReachedByKeyboard()
{
    m_window->activateWindow();
    std::vector<QWidget *> wanted{ &m_window->Spectrum(), &m_window->Waterfall() };
    for (char const * const box : { "marker1", "marker2", "levelMarker" })
        wanted.push_back(m_window->findChild<QCheckBox *>(QLatin1String(box)));
    QWidget * widget = m_window.get();
    std::vector<QWidget *> chain;
    do {
        if ((widget->focusPolicy() & Qt::TabFocus) != 0 && widget->isVisible())
            chain.push_back(widget);
        widget = widget->nextInFocusChain();
    } while (widget != m_window.get());
    for (QWidget * const control : wanted)
        QVERIFY(std::find(chain.begin(), chain.end(), control) != chain.end());
    auto * const box = m_window->findChild<QCheckBox *>(QStringLiteral("marker1"));
    box->setFocus();
    QTest::keyClick(box, Qt::Key_Space);
    QVERIFY(ConsoleValues::GetFlag(ConsolePaths::Marker1Shown));
    QVERIFY(box->accessibleName().contains(QStringLiteral("M1")));
    QTest::keyClick(&m_window->Waterfall(), Qt::Key_Left);
    QVERIFY(ConsoleValues::Get(ConsolePaths::Marker1) < Tone);
}

void tst_ConsoleMarkers::bandTakesMarkersAlong()
{
    ShowAll();
    m_window->Values().SetBand({ 200e6, 1e6 });
    m_window->grab();
    QCOMPARE(ConsoleValues::Get(ConsolePaths::Marker1), 200e6);
    for (MarkerList * const list : Lists(false))
        QCOMPARE(list->GetMarkerValue(ConsoleMarkers::First), 200e6);
    QCOMPARE(m_window->Spectrum().GetFrequencyAxis().GetStart(), 200e6);
    QCOMPARE(m_window->Waterfall().GetFrequencyAxis().GetStop(), 201e6);
}

void tst_ConsoleMarkers::flagsFitAtEverySize_data()
{
    QTest::addColumn<QSize>("size");
    for (QSize const size : { QSize(640, 480), QSize(800, 600), QSize(1280, 800), QSize(1920, 1080) })
        QTest::newRow(qPrintable(QStringLiteral("%1 x %2").arg(size.width()).arg(size.height()))) << size;
}

void tst_ConsoleMarkers::flagsFitAtEverySize()
{
    QFETCH(QSize, size);
    m_window->resize(size);
    QTRY_COMPARE(m_window->size(), size);
    ShowAll();
    double const start = ConsoleValues::Get(ConsolePaths::Start);
    double const stop = ConsoleValues::Get(ConsolePaths::Stop);
    for (double const first : { start, Tone, stop }) {
        ConsoleValues::Set(ConsolePaths::Marker1, first);
        ConsoleValues::Set(ConsolePaths::Marker2, stop);
        m_window->grab();
        for (RangePane * const pane :
             { static_cast<RangePane *>(&m_window->Spectrum()), static_cast<RangePane *>(&m_window->Waterfall()) }) {
            QVERIFY(pane->GetRulers().size() >= 2);
            for (MarkerRulers::Ruler const & ruler : pane->GetRulers()) {
                bool const hasRoom = pane->GetPictureRect().height() >= 60; // for three flags over each other
                QVERIFY(ruler.flag.isValid() || !hasRoom);
                if (!ruler.flag.isValid())
                    continue;
                QVERIFY(pane->rect().contains(ruler.flag));
                for (MarkerRulers::Ruler const & other : pane->GetRulers())
                    QVERIFY(other.index == ruler.index || !other.flag.intersects(ruler.flag));
            }
        }
    }
    for (ScaleAxis * const axis : m_window->findChildren<ScaleAxis *>()) {
        if (qobject_cast<TimeAxis *>(axis) || !axis->isVisible())
            continue; // the one has labels once a second has passed, the other once it is shown
        std::vector<QRect> const labels = axis->GetLabelRects();
        bool const isLow = axis->height() < 60 && !qobject_cast<FrequencyAxis *>(axis);
        QVERIFY(labels.size() >= (isLow ? 1U : 3U)); // the unit is one of them
        for (std::size_t i = 0; i < labels.size(); ++i) {
            QVERIFY(axis->rect().contains(labels[i]));
            for (std::size_t other = 0; other < i; ++other)
                QVERIFY(!labels[i].intersects(labels[other]));
        }
    }
}

ORIM_TEST_MAIN(tst_ConsoleMarkers)
#include "tst_consolemarkers.moc"
