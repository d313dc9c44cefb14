// SPDX-License-Identifier: MIT
#include "consolemarkers.h"
#include "lineplayer.h"
#include "markertools.h"
#include "panetools.h"
#include "rangetools.h"
#include "resortpopupmenu.h"
#include "sessiontools.h"
#include "testmain.h"
#include "timeaxis.h"

#include <QApplication>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QPointer>
#include <QToolButton>

#include <cmath>

using namespace RangeTools;
using namespace SessionTools;
using PaneTools::ToneSource;

namespace {

constexpr double BandStart = ToneSource::Centre - ToneSource::Rate / 2.0; // Hz
constexpr double BandStop = ToneSource::Centre + ToneSource::Rate / 2.0;

void AddPlaces(bool levels)
{
    QTest::addColumn<int>("place");
    QTest::newRow("in the spectrum") << int(eSpectrum);
    QTest::newRow("in the waterfall") << int(eWaterfall);
    QTest::newRow("on the scale of the spectrum") << int(eSpectrumScale);
    QTest::newRow("on the scale of the waterfall") << int(eWaterfallScale);
    if (!levels)
        return;
    QTest::newRow("on the level scale") << int(eLevelScale);
    QTest::newRow("on the shading bar") << int(eShadingBar);
}

} // namespace

class tst_ConsoleSession : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void initTestCase() { TestStage::HushPopups(); }

    void init();
    void cleanup();

    void dragZooms_data() { AddPlaces(true); }

    void dragZooms();

    void bandIsShown_data() { AddPlaces(true); }

    void bandIsShown();
    void shortDragIsAClick();

    void dragBeyondThePictureEndsThere_data() { AddPlaces(true); }

    void dragBeyondThePictureEndsThere();

    void shiftPans_data() { AddPlaces(true); }

    void shiftPans();
    void panEndsAtTheBand_data();
    void panEndsAtTheBand();

    void unZoomGoesBackInEveryPane_data() { AddPlaces(true); }

    void unZoomGoesBackInEveryPane();
    void doubleClickGoesThroughTheRanges();
    void doubleClickFitsTheLevels();

    void menusOfTheRanges_data() { AddPlaces(true); }

    void menusOfTheRanges();
    void menuShowsMarkers();
    void keysOpenTheMenu_data();
    void keysOpenTheMenu();
    void escapeAbandonsADrag_data();
    void escapeAbandonsADrag();
    void lostMouseEndsADrag();
    void undoOfAMarkerDrag();
    void boxesAreSteps();
    void liveDataLeavesTheStepsAlone();
    void keysAloneDoItAll();
    void scalesAreReachedByTheTabKey();
    void zoneOfTheTimeAxis();
    void rowsStayUnderTheScale();
    void wholeSession();
    void windowGoneAfterAnyEvent();

private:
    using Event = std::function<void(ConsoleWindow &)>;

    static std::vector<Event> Session();
    ResortPopupMenu * MenuOf(Place place, double part = 0.4);

    std::unique_ptr<ConsoleWindow> m_window;
};

void tst_ConsoleSession::init()
{
    m_window = StandingWindow();
    QVERIFY(m_window);
}

void tst_ConsoleSession::cleanup()
{
    m_window.reset();
    Steps().clear();
}

void tst_ConsoleSession::dragZooms()
{
    QFETCH(int, place);
    Place const at = static_cast<Place>(place);
    Range const before = RangeOf(at);
    Drag(*m_window, at, 0.25, 0.5);
    Range const zoomed = RangeOf(at);
    QVERIFY(LiesAt(zoomed, before, 0.25, 0.5));
    QVERIFY(PanesAgree(*m_window));
    QCOMPARE(Steps().count(), 1);
    QCOMPARE(Steps().text(0), IsLevel(at) ? QStringLiteral("Change of the level range")
                                          : QStringLiteral("Change of the frequency range"));
    // from the other end is the same, and the other range stays
    Drag(*m_window, at, 0.75, 0.25);
    QVERIFY(LiesAt(RangeOf(at), zoomed, 0.25, 0.75));
    Range const other = RangeOf(IsLevel(at) ? eSpectrum : eLevelScale);
    QCOMPARE(other, IsLevel(at) ? Range({ BandStart, BandStop }) : Range({ -120.0, 0.0 }));
    Steps().undo();
    QVERIFY(LiesAt(RangeOf(at), before, 0.25, 0.5));
    Steps().undo();
    QVERIFY(LiesAt(RangeOf(at), before, 0.0, 1.0));
    QVERIFY(PanesAgree(*m_window));
    Steps().redo();
    QVERIFY(LiesAt(RangeOf(at), before, 0.25, 0.5));
    QVERIFY(PanesAgree(*m_window));
}

void tst_ConsoleSession::bandIsShown()
{
    QFETCH(int, place);
    Place const at = static_cast<Place>(place);
    QWidget & widget = WidgetOf(*m_window, at);
    widget.setFocus();
    QImage const before = PaneTools::Rendered(widget);
    QSignalSpy const ranges(&PaneOf(*m_window, at).GetFrequencyAxis(), &AxisBase::signalRangeChanged);
    RangePane & pane = PaneOf(*m_window, at);
    ScaleAxis & scale = IsLevel(at) ? pane.GetLevelScale() : static_cast<ScaleAxis &>(pane.GetFrequencyAxis());
    QSignalSpy const bands(&scale, &ScaleAxis::signalBand);
    Mouse(widget, QEvent::MouseButtonPress, At(*m_window, at, 0.3));
    QCOMPARE(PaneTools::Rendered(widget), before); // no band before the first move
    Mouse(widget, QEvent::MouseMove, At(*m_window, at, 0.5));
    Mouse(widget, QEvent::MouseMove, At(*m_window, at, 0.6));
    QCOMPARE(bands.count(), 2); // the picture beside is told
    QImage const during = PaneTools::Rendered(widget);
    QString const folder = qEnvironmentVariable("ORIM_PICTURES");
    if (!folder.isEmpty())
        m_window->grab().save(folder + QStringLiteral("/band%1.png").arg(place));
    auto const differs = [&](double part) {
        QPoint const point = At(*m_window, at, part);
        QRect const around(point - QPoint(4, 4), QSize(9, 9));
        return before.copy(around) != during.copy(around);
    };
    for (double const part : { 0.4, 0.45, 0.5 })
        QVERIFY2(!differs(part), qPrintable(QString::number(part)));
    for (double const part : { 0.1, 0.25, 0.65, 0.9 })
        QVERIFY2(differs(part), qPrintable(QString::number(part)));
    QCOMPARE(ranges.count(), 0); // a range would search its tics
    QCOMPARE(int(widget.cursor().shape()), int(IsLevel(at) ? Qt::SplitVCursor : Qt::SplitHCursor));
    Mouse(widget, QEvent::MouseButtonRelease, At(*m_window, at, 0.3));
    QCOMPARE(PaneTools::Rendered(widget), before); // a click: nothing is left of it
}

void tst_ConsoleSession::shortDragIsAClick()
{
    for (Place const at : { eSpectrum, eWaterfallScale, eLevelScale }) {
        Range const before = RangeOf(at);
        QWidget & widget = WidgetOf(*m_window, at);
        QPoint const from = At(*m_window, at, 0.5);
        Mouse(widget, QEvent::MouseButtonPress, from);
        Mouse(widget, QEvent::MouseMove, from + QPoint(5, 5));
        Mouse(widget, QEvent::MouseButtonRelease, from + QPoint(5, 5));
        QCOMPARE(RangeOf(at), before);
    }
    QCOMPARE(Steps().count(), 0);
}

void tst_ConsoleSession::dragBeyondThePictureEndsThere()
{
    QFETCH(int, place);
    Place const at = static_cast<Place>(place);
    Drag(*m_window, at, 0.2, 0.8);
    Range const before = RangeOf(at);
    QWidget & widget = WidgetOf(*m_window, at);
    Mouse(widget, QEvent::MouseButtonPress, At(*m_window, at, 0.5));
    QPoint const beyond = IsLevel(at) ? QPoint(5, -50) : QPoint(widget.width() + 50, 5);
    Mouse(widget, QEvent::MouseMove, beyond);
    Mouse(widget, QEvent::MouseButtonRelease, beyond);
    QVERIFY(LiesAt(RangeOf(at), before, 0.5, 1.0));
    QCOMPARE(RangeOf(at)[1], before[1]);
}

void tst_ConsoleSession::shiftPans()
{
    QFETCH(int, place);
    Place const at = static_cast<Place>(place);
    Drag(*m_window, at, 0.4, 0.6);
    Range const zoomed = RangeOf(at);
    Steps().clear();
    Drag(*m_window, at, 0.5, 0.25, Qt::ShiftModifier);
    QVERIFY(LiesAt(RangeOf(at), zoomed, 0.25, 1.25));
    double const span = zoomed[1] - zoomed[0];
    QVERIFY(IsNear(RangeOf(at)[1] - RangeOf(at)[0], span, 1e-6 * span));
    QVERIFY(PanesAgree(*m_window));
    QCOMPARE(Steps().count(), 1); // one drag, one step
    Steps().undo();
    QVERIFY(LiesAt(RangeOf(at), zoomed, 0.0, 1.0));
    QVERIFY(PanesAgree(*m_window));
    Steps().redo();
    QVERIFY(LiesAt(RangeOf(at), zoomed, 0.25, 1.25));
    // it has ended: the mouse moves nothing any more
    Range const panned = RangeOf(at);
    Mouse(WidgetOf(*m_window, at), QEvent::MouseMove, At(*m_window, at, 0.7), Qt::ShiftModifier);
    QCOMPARE(RangeOf(at), panned);
    // the range to go back to is still there
    RangePane & pane = PaneOf(*m_window, at);
    QVERIFY(IsLevel(at) ? pane.GetLevelScale().IsUnZoomAvailable() : pane.GetFrequencyAxis().IsUnZoomAvailable());
}

void tst_ConsoleSession::panEndsAtTheBand_data()
{
    QTest::addColumn<double>("from");
    QTest::addColumn<double>("to");
    QTest::newRow("at the lower end") << 0.2 << 0.8;
    QTest::newRow("at the upper end") << 0.8 << 0.2;
}

void tst_ConsoleSession::panEndsAtTheBand()
{
    QFETCH(double, from);
    QFETCH(double, to);
    for (Place const at : { eSpectrum, eWaterfallScale }) {
        Drag(*m_window, at, 0.4, 0.6);
        double const span = RangeOf(at)[1] - RangeOf(at)[0];
        for (int time = 0; time < 8; ++time)
            Drag(*m_window, at, from, to, Qt::ShiftModifier);
        Range const range = RangeOf(at);
        QVERIFY(IsNear(range[1] - range[0], span, 1e-6 * span)); // not squeezed against it
        double const gap = from < to ? range[0] - BandStart : BandStop - range[1];
        QVERIFY2(gap >= 0.0 && gap <= span / 200.0, qPrintable(QString::number(gap)));
        QVERIFY(PanesAgree(*m_window));
        PaneOf(*m_window, at).GetFrequencyAxis().ZoomToDefault();
    }
}

void tst_ConsoleSession::unZoomGoesBackInEveryPane()
{
    QFETCH(int, place);
    Place const at = static_cast<Place>(place);
    Range const first = RangeOf(at);
    Drag(*m_window, at, 0.2, 0.8);
    Range const second = RangeOf(at);
    Drag(*m_window, at, 0.2, 0.8);
    std::vector<ScaleAxis *> axes;
    for (RangePane * const pane :
         { static_cast<RangePane *>(&m_window->Spectrum()), static_cast<RangePane *>(&m_window->Waterfall()) })
        axes.push_back(IsLevel(at) ? &pane->GetLevelScale() : static_cast<ScaleAxis *>(&pane->GetFrequencyAxis()));
    for (ScaleAxis * const axis : axes)
        QVERIFY(axis->IsUnZoomAvailable());
    axes[0]->UnZoom(); // in the one pane and then in the other
    QCOMPARE(RangeOf(at), second);
    axes[1]->UnZoom();
    QVERIFY(LiesAt(RangeOf(at), first, 0.0, 1.0));
    QVERIFY(PanesAgree(*m_window));
    for (ScaleAxis * const axis : axes)
        QVERIFY(!axis->IsUnZoomAvailable());
    QCOMPARE(Steps().count(), 4);
}

void tst_ConsoleSession::doubleClickGoesThroughTheRanges()
{
    ConsoleValues::Set(ConsolePaths::BandStart, BandStart + 1000.0); // the default range is a part of all
    ConsoleValues::Set(ConsolePaths::BandStop, BandStop - 1000.0);
    for (Place const at : { eSpectrum, eWaterfall, eSpectrumScale, eWaterfallScale }) {
        Drag(*m_window, at, 0.2, 0.4);
        for (int time = 0; time < 2; ++time) {
            Steps().clear();
            DoubleClick(*m_window, at);
            QCOMPARE(RangeOf(at), Range({ BandStart + 1000.0, BandStop - 1000.0 }));
            QCOMPARE(Steps().count(), 1);
            DoubleClick(*m_window, at);
            QCOMPARE(RangeOf(at), Range({ BandStart, BandStop }));
            QVERIFY(PanesAgree(*m_window));
        }
    }
}

void tst_ConsoleSession::doubleClickFitsTheLevels()
{
    for (Place const at : { eLevelScale, eShadingBar }) {
        Drag(*m_window, at, 0.2, 0.4);
        Steps().clear();
        DoubleClick(*m_window, at);
        Range const fit = RangeOf(at);
        m_window->FitLevelRange();
        QCOMPARE(RangeOf(at), fit);
        QCOMPARE(Steps().count(), 1);
        DoubleClick(*m_window, at);
        QCOMPARE(RangeOf(at), Range({ LevelFloor, 0.0 }));
        DoubleClick(*m_window, at);
        QCOMPARE(RangeOf(at), fit);
        QVERIFY(PanesAgree(*m_window));
    }
}

//! The menu that a right click opens.
ResortPopupMenu * tst_ConsoleSession::MenuOf(Place place, double part)
{
    m_window->grab();
    RightClick(WidgetOf(*m_window, place), At(*m_window, place, part));
    return qobject_cast<ResortPopupMenu *>(QApplication::activePopupWidget());
}

void tst_ConsoleSession::menusOfTheRanges()
{
    QFETCH(int, place);
    Place const at = static_cast<Place>(place);
    Range const all = RangeOf(at);
    Drag(*m_window, at, 0.3, 0.6);
    ResortPopupMenu * menu = MenuOf(at);
    QVERIFY(menu);
    QStringList texts;
    for (QAction const * const action : menu->actions()) {
        if (!action->isSeparator())
            texts.append(action->text());
    }
    QStringList const range =
        IsLevel(at) ? QStringList{ "Default Range", "Maximum Range" } : QStringList{ "Maximum Range", "Default Range" };
    QStringList const rulers = IsLevel(at) ? QStringList{ "Level" } : QStringList{ "Hide All Ruler", "M1", "M2" };
    QCOMPARE(texts, rulers + range + QStringList({ "UnZoom", "Properties..." }));
    QVERIFY(menu->FindItem(1003)->isEnabled());
    menu->FindItem(1003)->trigger();
    menu->close();
    QVERIFY(LiesAt(RangeOf(at), all, 0.0, 1.0));
    menu = MenuOf(at);
    QVERIFY(!menu->FindItem(1003)->isEnabled());
    menu->close();
    Drag(*m_window, at, 0.3, 0.6);
    menu = MenuOf(at);
    menu->FindItem(1000)->trigger();
    menu->close();
    QCOMPARE(RangeOf(at), IsLevel(at) ? Range({ LevelFloor, 0.0 }) : Range({ BandStart, BandStop }));
    QVERIFY(PanesAgree(*m_window));
    QVERIFY(Steps().count() >= 3);
}

void tst_ConsoleSession::menuShowsMarkers()
{
    ResortPopupMenu * menu = MenuOf(eWaterfallScale);
    QAction * const item = menu->FindItem(3000 + ConsoleMarkers::First);
    QVERIFY(item && !item->isChecked());
    item->trigger();
    menu->close();
    QVERIFY(ConsoleValues::GetFlag(ConsolePaths::Marker1Shown));
    m_window->grab();
    QVERIFY(m_window->Spectrum().GetShowMarker(ConsoleMarkers::First));
    // on the mark, and on the line in the picture, there is a menu for it alone
    for (Place const at : { eSpectrum, eWaterfall, eSpectrumScale, eWaterfallScale }) {
        ConsoleValues::SetFlag(ConsolePaths::Marker1Shown, true);
        m_window->grab();
        MarkerList & list = dynamic_cast<MarkerList &>(WidgetOf(*m_window, at));
        QRect const line = list.GetMarker(ConsoleMarkers::First)->GetRulerRect();
        bool const isPicture = at == eSpectrum || at == eWaterfall;
        RightClick(WidgetOf(*m_window, at), { line.left(), isPicture ? line.center().y() : 4 });
        menu = qobject_cast<ResortPopupMenu *>(QApplication::activePopupWidget());
        QVERIFY(menu);
        QCOMPARE(menu->actions().first()->text(), QStringLiteral("Hide M1"));
        menu->actions().first()->trigger();
        menu->close();
        QVERIFY(!ConsoleValues::GetFlag(ConsolePaths::Marker1Shown));
    }
}

void tst_ConsoleSession::keysOpenTheMenu_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<bool>("opens");
    QTest::newRow("Menu") << int(Qt::Key_Menu) << int(Qt::NoModifier) << true;
    QTest::newRow("Shift+F10") << int(Qt::Key_F10) << int(Qt::ShiftModifier) << true;
    QTest::newRow("F10 alone") << int(Qt::Key_F10) << int(Qt::NoModifier) << false;
}

void tst_ConsoleSession::keysOpenTheMenu()
{
    QFETCH(int, key);
    QFETCH(int, modifiers);
    QFETCH(bool, opens);
    for (Place const at : { eSpectrum, eWaterfall, eSpectrumScale, eWaterfallScale, eLevelScale, eShadingBar }) {
        QWidget & widget = WidgetOf(*m_window, at);
        widget.setFocus();
        QTest::keyClick(&widget, static_cast<Qt::Key>(key), Qt::KeyboardModifiers(modifiers));
        QWidget * const menu = QApplication::activePopupWidget();
        QCOMPARE(menu != nullptr, opens);
        if (!menu)
            continue;
        QTest::keyClick(menu, Qt::Key_Escape);
        QVERIFY(!QApplication::activePopupWidget());
    }
}

void tst_ConsoleSession::escapeAbandonsADrag_data()
{
    QTest::addColumn<int>("place");
    QTest::addColumn<bool>("pan");
    QTest::newRow("band in the picture") << int(eSpectrum) << false;
    QTest::newRow("band on the scale") << int(eWaterfallScale) << false;
    QTest::newRow("pan in the picture") << int(eWaterfall) << true;
    QTest::newRow("pan on the scale") << int(eLevelScale) << true;
}

void tst_ConsoleSession::escapeAbandonsADrag()
{
    QFETCH(int, place);
    QFETCH(bool, pan);
    Place const at = static_cast<Place>(place);
    Drag(*m_window, at, 0.3, 0.7);
    Steps().clear();
    Range const before = RangeOf(at);
    QWidget & widget = WidgetOf(*m_window, at);
    Qt::KeyboardModifiers const modifiers = pan ? Qt::ShiftModifier : Qt::NoModifier;
    Mouse(widget, QEvent::MouseButtonPress, At(*m_window, at, 0.3), modifiers);
    Mouse(widget, QEvent::MouseMove, At(*m_window, at, 0.6), modifiers);
    QCOMPARE(RangeOf(at) != before, pan);
    QTest::keyClick(&widget, Qt::Key_Escape);
    QCOMPARE(RangeOf(at), before);
    Mouse(widget, QEvent::MouseMove, At(*m_window, at, 0.8), modifiers);
    Mouse(widget, QEvent::MouseButtonRelease, At(*m_window, at, 0.8), modifiers);
    QCOMPARE(RangeOf(at), before);
    QCOMPARE(Steps().count(), 0);
}

void tst_ConsoleSession::lostMouseEndsADrag()
{
    for (Place const at : { eSpectrum, eWaterfallScale }) {
        Drag(*m_window, at, 0.3, 0.7);
        Steps().clear();
        Range const before = RangeOf(at);
        QWidget & widget = WidgetOf(*m_window, at);
        QFocusEvent out(QEvent::FocusOut);
        Mouse(widget, QEvent::MouseButtonPress, At(*m_window, at, 0.3));
        Mouse(widget, QEvent::MouseMove, At(*m_window, at, 0.6));
        QCoreApplication::sendEvent(&widget, &out);
        Mouse(widget, QEvent::MouseButtonRelease, At(*m_window, at, 0.6));
        QCOMPARE(RangeOf(at), before);
        QCOMPARE(Steps().count(), 0);
        Mouse(widget, QEvent::MouseButtonPress, At(*m_window, at, 0.3), Qt::ShiftModifier);
        Mouse(widget, QEvent::MouseMove, At(*m_window, at, 0.4), Qt::ShiftModifier);
        QCoreApplication::sendEvent(&widget, &out);
        QVERIFY(RangeOf(at) != before); // a pan stays where it came to
        QCOMPARE(Steps().count(), 1);
        PaneOf(*m_window, at).GetFrequencyAxis().ZoomToDefault();
    }
}

void tst_ConsoleSession::undoOfAMarkerDrag()
{
    ConsoleValues::SetFlag(ConsolePaths::Marker1Shown, true);
    m_window->grab();
    SpectrumPane & pane = m_window->Spectrum();
    double const before = ConsoleValues::Get(ConsolePaths::Marker1);
    Range const range = RangeOf(eSpectrum);
    QRect const line = pane.GetMarker(ConsoleMarkers::First)->GetRulerRect();
    MarkerTools::Drag(pane, line.center(), line.center() - QPoint(200, 0));
    double const after = ConsoleValues::Get(ConsolePaths::Marker1);
    QVERIFY(after < before);
    QCOMPARE(RangeOf(eSpectrum), range); // the marker was dragged, no band
    QCOMPARE(Steps().count(), 1);
    QCOMPARE(Steps().text(0), QStringLiteral("Change of marker1"));
    QTest::keyClick(&pane, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::Marker1), before);
    QCOMPARE(m_window->Waterfall().GetMarkerValue(ConsoleMarkers::First), before);
    QTest::keyClick(&pane, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::Marker1), after);
    // with Shift the same place pans
    Drag(*m_window, eSpectrum, 0.3, 0.6);
    Range const zoomed = RangeOf(eSpectrum);
    ConsoleValues::Set(ConsolePaths::Marker1, (zoomed[0] + zoomed[1]) / 2.0);
    m_window->grab();
    Drag(*m_window, eSpectrum, 0.5, 0.7, Qt::ShiftModifier);
    QVERIFY(RangeOf(eSpectrum) != zoomed);
    QCOMPARE(ConsoleValues::Get(ConsolePaths::Marker1), (zoomed[0] + zoomed[1]) / 2.0);
}

void tst_ConsoleSession::boxesAreSteps()
{
    Range const before = RangeOf(eSpectrum);
    auto * const span = m_window->findChild<QDoubleSpinBox *>(QStringLiteral("span"));
    span->setValue(4.0);
    QCOMPARE(Steps().count(), 1);
    QCOMPARE(Steps().text(0), QStringLiteral("Change of Span"));
    QVERIFY(IsNear(RangeOf(eSpectrum)[1] - RangeOf(eSpectrum)[0], 4000.0, 1e-3));
    Steps().undo();
    QVERIFY(LiesAt(RangeOf(eSpectrum), before, 0.0, 1.0));
    QVERIFY(PanesAgree(*m_window));
    ConsoleValues::Set(ConsolePaths::LevelMax, 50.0);
    Steps().clear();
    QTest::mouseClick(m_window->findChild<QToolButton *>(QStringLiteral("fit")), Qt::LeftButton);
    QCOMPARE(Steps().count(), 1);
    QCOMPARE(Steps().text(0), QStringLiteral("Fit of the level range"));
    Steps().undo();
    QCOMPARE(RangeOf(eLevelScale), Range({ -120.0, 50.0 }));
}

void tst_ConsoleSession::liveDataLeavesTheStepsAlone()
{
    m_window->Start();
    quint64 const taken = m_window->Figures().taken;
    QTRY_VERIFY(m_window->Figures().taken > taken + 10);
    QCOMPARE(Steps().count(), 0);
    // a drag while it plays is one step, of the range alone
    QWidget & widget = WidgetOf(*m_window, eWaterfall);
    Drag(*m_window, eWaterfall, 0.4, 0.6);
    Range const before = RangeOf(eWaterfall);
    Mouse(widget, QEvent::MouseButtonPress, At(*m_window, eWaterfall, 0.5), Qt::ShiftModifier);
    Mouse(widget, QEvent::MouseMove, At(*m_window, eWaterfall, 0.6), Qt::ShiftModifier);
    quint64 const during = m_window->Figures().taken;
    QTRY_VERIFY(m_window->Figures().taken > during + 2);
    ConsoleValues::Set(ConsolePaths::Marker2, ToneSource::Centre); // as live results do
    Mouse(widget, QEvent::MouseButtonRelease, At(*m_window, eWaterfall, 0.6), Qt::ShiftModifier);
    QCOMPARE(Steps().count(), 2);
    ConsoleValues::Set(ConsolePaths::Marker2, ToneSource::Centre + 100.0);
    Steps().undo();
    QVERIFY(LiesAt(RangeOf(eWaterfall), before, 0.0, 1.0));
    QCOMPARE(ConsoleValues::Get(ConsolePaths::Marker2), ToneSource::Centre + 100.0);
}

void tst_ConsoleSession::keysAloneDoItAll()
{
    for (Place const at : { eSpectrum, eWaterfall, eSpectrumScale, eWaterfallScale, eLevelScale, eShadingBar }) {
        QWidget & widget = WidgetOf(*m_window, at);
        widget.setFocus();
        QVERIFY(widget.hasFocus());
        Range const all = RangeOf(at);
        QTest::keyClick(&widget, Qt::Key_Plus);
        QVERIFY(LiesAt(RangeOf(at), all, 0.25, 0.75));
        QTest::keyClick(&widget, IsLevel(at) ? Qt::Key_Up : Qt::Key_Right, Qt::ControlModifier);
        QVERIFY(LiesAt(RangeOf(at), all, 0.3, 0.8));
        QTest::keyClick(&widget, IsLevel(at) ? Qt::Key_Down : Qt::Key_Left, Qt::ControlModifier);
        QVERIFY(LiesAt(RangeOf(at), all, 0.25, 0.75));
        QTest::keyClick(&widget, Qt::Key_Minus);
        QVERIFY(LiesAt(RangeOf(at), all, 0.0, 1.0));
        QTest::keyClick(&widget, Qt::Key_Equal);
        QVERIFY(LiesAt(RangeOf(at), all, 0.25, 0.75));
        QTest::keyClick(&widget, Qt::Key_Backspace);
        QVERIFY(LiesAt(RangeOf(at), all, 0.0, 1.0));
        QVERIFY(PanesAgree(*m_window));
        QCOMPARE(Steps().count(), 6);
        for (int step = 0; step < 6; ++step)
            QTest::keyClick(&widget, Qt::Key_Z, Qt::ControlModifier);
        QVERIFY(LiesAt(RangeOf(at), all, 0.0, 1.0));
        QTest::keyClick(&widget, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QVERIFY(LiesAt(RangeOf(at), all, 0.25, 0.75));
        QTest::keyClick(&widget, Qt::Key_Home);
        QVERIFY(!LiesAt(RangeOf(at), all, 0.25, 0.75));
        ConsoleValues::Set(ConsolePaths::LevelMin, -120.0);
        ConsoleValues::Set(ConsolePaths::LevelMax, 0.0);
        Steps().clear();
    }
    // from the picture the levels are panned too
    Range const levels = RangeOf(eLevelScale);
    QTest::keyClick(&m_window->Spectrum(), Qt::Key_Down, Qt::ControlModifier);
    QVERIFY(LiesAt(RangeOf(eLevelScale), levels, -0.1, 0.9));
    // a key that is held down is one step
    int const steps = Steps().count();
    QKeyEvent repeat(QEvent::KeyPress, Qt::Key_Down, Qt::ControlModifier, QString(), true);
    for (int time = 0; time < 3; ++time)
        QCoreApplication::sendEvent(&m_window->Spectrum(), &repeat);
    QCOMPARE(Steps().count(), steps);
    // around the current marker
    ConsoleValues::SetFlag(ConsolePaths::Marker1Shown, true);
    double const marker = ConsoleValues::Get(ConsolePaths::Marker1);
    QTest::keyClick(&m_window->Waterfall(), Qt::Key_Plus);
    QTest::keyClick(&m_window->Waterfall(), Qt::Key_Plus);
    Range const around = RangeOf(eWaterfall);
    QVERIFY(IsNear((marker - around[0]) / (around[1] - around[0]), (marker - BandStart) / ToneSource::Rate, 1e-6));
}

void tst_ConsoleSession::scalesAreReachedByTheTabKey()
{
    std::vector<QWidget *> chain;
    for (QWidget * widget = m_window->nextInFocusChain(); widget != m_window.get(); widget = widget->nextInFocusChain())
        if ((widget->focusPolicy() & Qt::TabFocus) != 0 && widget->isVisible())
            chain.push_back(widget);
    for (Place const at : { eSpectrum, eWaterfall, eSpectrumScale, eWaterfallScale, eLevelScale, eShadingBar })
        QVERIFY(std::find(chain.begin(), chain.end(), &WidgetOf(*m_window, at)) != chain.end());
    // and show that they have the keyboard
    QWidget & scale = WidgetOf(*m_window, eWaterfallScale);
    QImage const before = PaneTools::Rendered(scale);
    scale.setFocus();
    QVERIFY(PaneTools::Rendered(scale) != before);
}

void tst_ConsoleSession::zoneOfTheTimeAxis()
{
    auto * const box = m_window->findChild<QComboBox *>(QStringLiteral("timeZone"));
    QVERIFY(box && box->count() > 20);
    QCOMPARE(box->currentText(), QStringLiteral("UTC"));
    TimeAxis & axis = m_window->Waterfall().GetTimeAxis();
    QCOMPARE(axis.GetStop(), m_window->Waterfall().GetImage().Stamp(0));
    QVERIFY(IsNear(axis.GetStop(), static_cast<double>(QDateTime::currentMSecsSinceEpoch()) * 1e3, 60e6));
    std::vector<double> times;
    for (int row = 0; row < 100; ++row)
        times.push_back(PaneTools::Noon + 9e6 - row * 0.2e6);
    axis.SetRows(times);
    QString const before = axis.GetTimeTics().front().label;
    QCOMPARE(before, QStringLiteral("12:00:00"));
    box->setFocus();
    QTest::keyClick(box, Qt::Key_End); // the zone that is furthest east
    QCOMPARE(axis.GetTimeTics().front().label, QStringLiteral("02:00:00"));
    QVERIFY(GuiBase::Instance().GetTimeZoneValue() == 14 * 3600);
    QTest::keyClick(m_window->findChild<QToolButton *>(QStringLiteral("undo")), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(axis.GetTimeTics().front().label, before);
}

void tst_ConsoleSession::rowsStayUnderTheScale()
{
    Drag(*m_window, eWaterfallScale, 0.5, 0.75); // the tone stands at 0.625 of the band
    WaterfallPane & pane = m_window->Waterfall();
    m_window->grab();
    WaterfallImage const & image = pane.GetImage();
    double const tone = ToneSource::Centre + ToneSource::Rate / 8.0;
    double const * const levels = image.Levels(0);
    auto const highest = std::max_element(levels, levels + image.Columns(), [](double a, double b) { return a < b; });
    int const column = pane.GetPictureRect().left() + static_cast<int>(highest - levels);
    QVERIFY2(std::abs(column - pane.GetFrequencyAxis().ValueToPixel(tone)) <= 8,
             qPrintable(QString::number(column - pane.GetFrequencyAxis().ValueToPixel(tone))));
}

//! What an operator does, one event an entry.
std::vector<tst_ConsoleSession::Event> tst_ConsoleSession::Session()
{
    std::vector<Event> events;
    auto const drag = [&events](Place place, double from, double to, Qt::KeyboardModifiers modifiers) {
        auto const mouse = [&](QEvent::Type type, double part) {
            events.push_back([=](ConsoleWindow & window) {
                Mouse(WidgetOf(window, place), type, At(window, place, part), modifiers);
            });
        };
        mouse(QEvent::MouseButtonPress, from);
        mouse(QEvent::MouseMove, (from + to) / 2.0);
        mouse(QEvent::MouseMove, to);
        events.push_back([](ConsoleWindow & window) { window.grab(); });
        mouse(QEvent::MouseButtonRelease, to);
    };
    auto const key = [&events](Place place, Qt::Key code, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        events.push_back([=](ConsoleWindow & window) { QTest::keyClick(&WidgetOf(window, place), code, modifiers); });
    };
    auto const menuKey = [&events](Qt::Key code) {
        events.push_back([=](ConsoleWindow & window) {
            QPointer<ConsoleWindow> const owner(&window);
            if (QWidget * const menu = QApplication::activePopupWidget())
                QTest::keyClick(menu, code);
            if (owner && !QApplication::activePopupWidget())
                owner->activateWindow(); // as a window manager does, which the platform of the tests lacks
        });
    };
    events.push_back([](ConsoleWindow &) { ConsoleValues::SetFlag(ConsolePaths::Marker1Shown, true); });
    for (Place const place : { eSpectrum, eWaterfallScale, eLevelScale, eShadingBar }) {
        drag(place, 0.1, 0.9, Qt::NoModifier);
        drag(place, 0.3, 0.4, Qt::ShiftModifier);
        events.push_back([=](ConsoleWindow & window) { DoubleClick(window, place); });
        key(place, Qt::Key_Plus);
        key(place, Qt::Key_Menu);
        menuKey(Qt::Key_Up); // Properties...
        menuKey(Qt::Key_Up); // UnZoom
        menuKey(Qt::Key_Return);
        key(place, Qt::Key_Z, Qt::ControlModifier);
        key(place, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        key(place, Qt::Key_Backspace);
    }
    // the marker: the tone stands at 0.625 of the band
    key(eSpectrum, Qt::Key_Home);
    drag(eSpectrum, 0.625, 0.3, Qt::NoModifier);
    key(eWaterfall, Qt::Key_Left);
    key(eWaterfall, Qt::Key_Z, Qt::ControlModifier);
    key(eWaterfall, Qt::Key_Z, Qt::ControlModifier);
    return events;
}

void tst_ConsoleSession::wholeSession()
{
    double const marker = ToneSource::Centre + ToneSource::Rate / 8.0;
    for (Event const & event : Session()) {
        event(*m_window);
        QCoreApplication::sendPostedEvents();
        Range const frequencies = RangeOf(eSpectrum);
        QVERIFY(frequencies[0] >= BandStart && frequencies[1] <= BandStop && frequencies[0] < frequencies[1]);
        QVERIFY(RangeOf(eLevelScale)[0] < RangeOf(eLevelScale)[1]);
    }
    QVERIFY(PanesAgree(*m_window));
    QVERIFY(!QApplication::activePopupWidget());
    QCOMPARE(RangeOf(eSpectrum), Range({ BandStart, BandStop }));
    QCOMPARE(ConsoleValues::Get(ConsolePaths::Marker1), marker); // the drag was taken back
    QVERIFY(Steps().canRedo());
    Steps().redo();
    QVERIFY(
        IsNear(ConsoleValues::Get(ConsolePaths::Marker1), BandStart + 0.3 * ToneSource::Rate, 0.01 * ToneSource::Rate));
}

void tst_ConsoleSession::windowGoneAfterAnyEvent()
{
    m_window.reset();
    std::vector<Event> const events = Session();
    int gone = 0;
    for (std::size_t last = 0; last < events.size(); last += 10) {
        auto window = ToneWindow();
        QTRY_VERIFY(window->Figures().painted > 0);
        for (std::size_t number = 0; number <= last; ++number)
            events[number](*window);
        window.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
        QVERIFY(!QApplication::activePopupWidget());
        QVERIFY(!Tree::Instance()->Find(QLatin1String(ConsolePaths::Start)));
        Steps().undo(); // of values that have gone
        Steps().clear();
        ++gone;
    }
    qInfo("figures: %d windows gone within a session of %d events", gone, static_cast<int>(events.size()));
}

ORIM_TEST_MAIN(tst_ConsoleSession)
#include "tst_consolesession.moc"
