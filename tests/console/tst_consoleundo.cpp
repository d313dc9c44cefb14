// SPDX-License-Identifier: MIT
#include "rangetools.h"
#include "testmain.h"
#include "timeaxis.h"

#include <QApplication>
#include <QDoubleSpinBox>

using namespace RangeTools;
using namespace SessionTools;
using PaneTools::ToneSource;

class tst_ConsoleUndo : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void initTestCase() { TestStage::HushPopups(); }

    void init();
    void cleanup();

    void undoKeysInABox_data();
    void undoKeysInABox();
    void typedTextKeepsItsUndo();
    void greatestZoomStays_data();
    void greatestZoomStays();
    void zoomEndsAroundItsMiddle();
    void markerKeepsItsPlaceAtTheGreatestZoom();
    void narrowBandIsShownAroundItsMiddle_data();
    void narrowBandIsShownAroundItsMiddle();
    void levelsAreZoomedAroundTheirMiddle();
    void backspaceRefusesWhatTheMenuRefuses_data();
    void backspaceRefusesWhatTheMenuRefuses();
    void backspaceAfterUndoGoesOn_data();
    void backspaceAfterUndoGoesOn();
    void menuAfterUndo();
    void historyIsLimited();
    void fastPanOfTheLevels_data();
    void fastPanOfTheLevels();
    void levelMarkerKeepsItsPlace();
    void menuByKeyboardGoesBack_data();
    void menuByKeyboardGoesBack();
    void noMenuOnTheTimeAxis();
    void insertAloneMarks();
    void bandOnAScaleDimsThePicture_data();
    void bandOnAScaleDimsThePicture();
    void windowGoneWhileADragEnds_data();
    void windowGoneWhileADragEnds();

private:
    QDoubleSpinBox * Box(char const * name) const { return m_window->findChild<QDoubleSpinBox *>(QLatin1String(name)); }

    void Wide() const;

    std::unique_ptr<ConsoleWindow> m_window;
};

namespace {

constexpr double WideStart = 100e6; // Hz
constexpr double WideSpan = 100e6;
constexpr double Least = WideSpan / ConsoleValues::MostZoom;

double Middle(Range const & range) { return range[0] + (range[1] - range[0]) / 2.0; }

double Width(Range const & range) { return range[1] - range[0]; }

ScaleAxis & AxisOf(ConsoleWindow & window, Place place)
{
    RangePane & pane = PaneOf(window, place);
    return IsLevel(place) ? pane.GetLevelScale() : static_cast<ScaleAxis &>(pane.GetFrequencyAxis());
}

} // namespace

void tst_ConsoleUndo::init()
{
    m_window = StandingWindow();
    QVERIFY(m_window);
}

void tst_ConsoleUndo::cleanup()
{
    m_window.reset();
    Steps().clear();
}

//! A band in which the greatest zoom is far more than a hertz a pixel.
void tst_ConsoleUndo::Wide() const { m_window->Values().SetBand({ WideStart, WideSpan }); }

void tst_ConsoleUndo::undoKeysInABox_data()
{
    QTest::addColumn<QString>("typed");
    QTest::newRow("a number that is written out") << "4";
    QTest::newRow("a number as it is shown") << "4.000 kHz";
}

void tst_ConsoleUndo::undoKeysInABox()
{
    QFETCH(QString, typed);
    auto * const box = Box("span");
    Range const before = RangeOf(eSpectrum);
    box->setFocus();
    box->selectAll();
    QTest::keyClicks(box, typed);
    QTest::keyClick(box, Qt::Key_Return);
    QCOMPARE(Steps().count(), 1);
    QTest::keyClick(box, Qt::Key_Z, Qt::ControlModifier);
    QVERIFY(LiesAt(RangeOf(eSpectrum), before, 0.0, 1.0));
    QTest::keyClick(box, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    QVERIFY(IsNear(Width(RangeOf(eSpectrum)), 4000.0, 1e-3));
    QVERIFY(PanesAgree(*m_window));
}

void tst_ConsoleUndo::typedTextKeepsItsUndo()
{
    auto * const box = Box("span");
    box->setValue(4.0);
    QCOMPARE(Steps().index(), 1);
    box->setFocus();
    box->selectAll();
    QTest::keyClicks(box, QStringLiteral("5"));
    QVERIFY(box->text() != QStringLiteral("4.000 kHz"));
    QTest::keyClick(box, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(box->text(), QStringLiteral("4.000 kHz"));
    QCOMPARE(Steps().index(), 1);
}

void tst_ConsoleUndo::greatestZoomStays_data()
{
    QTest::addColumn<double>("marker");
    QTest::newRow("around the middle") << 0.0;
    QTest::newRow("around a marker beside the middle") << 150e6 - 0.3 * Least;
}

void tst_ConsoleUndo::greatestZoomStays()
{
    QFETCH(double, marker);
    Wide();
    ConsoleValues::Set(ConsolePaths::Span, Least);
    ConsoleValues::Set(ConsolePaths::Centre, 150e6);
    if (marker > 0.0) {
        ConsoleValues::Set(ConsolePaths::Marker1, marker);
        ConsoleValues::SetFlag(ConsolePaths::Marker1Shown, true);
    }
    Range const range = RangeOf(eSpectrum);
    Steps().clear();
    for (int time = 0; time < 5; ++time)
        QTest::keyClick(&m_window->Spectrum(), Qt::Key_Plus);
    QCOMPARE(RangeOf(eSpectrum), range);
    QCOMPARE(Steps().count(), 0);
    QVERIFY(!AxisOf(*m_window, eSpectrum).IsUnZoomAvailable());
}

void tst_ConsoleUndo::zoomEndsAroundItsMiddle()
{
    Wide();
    ConsoleValues::Set(ConsolePaths::Span, 1.5 * Least);
    ConsoleValues::Set(ConsolePaths::Centre, 150e6);
    QTest::keyClick(&m_window->Spectrum(), Qt::Key_Plus);
    QVERIFY(IsNear(Middle(RangeOf(eSpectrum)), 150e6, 1e-3));
    QVERIFY(IsNear(Width(RangeOf(eSpectrum)), Least, 1e-3));
    QVERIFY(PanesAgree(*m_window));
}

void tst_ConsoleUndo::markerKeepsItsPlaceAtTheGreatestZoom()
{
    Wide();
    ConsoleValues::Set(ConsolePaths::Span, 1.5 * Least);
    ConsoleValues::Set(ConsolePaths::Centre, 150e6);
    double const marker = RangeOf(eSpectrum)[0] + 0.25 * 1.5 * Least;
    ConsoleValues::Set(ConsolePaths::Marker1, marker);
    ConsoleValues::SetFlag(ConsolePaths::Marker1Shown, true);
    QTest::keyClick(&m_window->Spectrum(), Qt::Key_Plus);
    QVERIFY(IsNear(Width(RangeOf(eSpectrum)), Least, 1e-3));
    QVERIFY(IsNear((marker - RangeOf(eSpectrum)[0]) / Least, 0.25, 1e-6));
}

void tst_ConsoleUndo::narrowBandIsShownAroundItsMiddle_data()
{
    QTest::addColumn<double>("first");
    QTest::addColumn<double>("last");
    QTest::addColumn<double>("middle"); // part of the view
    QTest::newRow("in the middle") << 0.7 << 0.72 << 0.71;
    QTest::newRow("from the other end") << 0.72 << 0.7 << 0.71;
    QTest::newRow("at the upper end of the band") << 0.97 << 1.0 << 0.975;
    QTest::newRow("at the lower end of the band") << 0.0 << 0.03 << 0.025;
}

void tst_ConsoleUndo::narrowBandIsShownAroundItsMiddle()
{
    QFETCH(double, first);
    QFETCH(double, last);
    QFETCH(double, middle);
    Wide();
    double const span = 20.0 * Least;
    bool const isLow = middle < 0.5;
    ConsoleValues::Set(ConsolePaths::Span, span);
    ConsoleValues::Set(ConsolePaths::Centre, isLow ? WideStart : WideStart + WideSpan); // as far as the band goes
    m_window->grab();
    Range const view = RangeOf(eSpectrum);
    Drag(*m_window, eSpectrum, first, last);
    Range const range = RangeOf(eSpectrum);
    QVERIFY(IsNear(Width(range), Least, 1e-3));
    QVERIFY2(IsNear(Middle(range), view[0] + middle * span, 0.003 * span),
             qPrintable(QString::number((Middle(range) - view[0]) / span)));
    QVERIFY(range[0] >= WideStart && range[1] <= WideStart + WideSpan);
    QCOMPARE(Steps().count(), 1);
    QVERIFY(PanesAgree(*m_window));
}

void tst_ConsoleUndo::levelsAreZoomedAroundTheirMiddle()
{
    m_window->Values().SetLevels(-60.0, -58.5);
    for (int time = 0; time < 3; ++time)
        QTest::keyClick(&WidgetOf(*m_window, eLevelScale), Qt::Key_Plus);
    QVERIFY(IsNear(RangeOf(eLevelScale)[0], -59.75, 1e-9));
    QVERIFY(IsNear(RangeOf(eLevelScale)[1], -58.75, 1e-9));
    QCOMPARE(Steps().count(), 1);
}

void tst_ConsoleUndo::backspaceRefusesWhatTheMenuRefuses_data()
{
    QTest::addColumn<int>("place");
    QTest::newRow("frequencies") << int(eSpectrum);
    QTest::newRow("frequencies on the scale") << int(eWaterfallScale);
    QTest::newRow("levels") << int(eLevelScale);
    QTest::newRow("levels of the shading bar") << int(eShadingBar);
}

void tst_ConsoleUndo::backspaceRefusesWhatTheMenuRefuses()
{
    QFETCH(int, place);
    Place const at = static_cast<Place>(place);
    Wide();
    m_window->grab();
    QWidget & widget = WidgetOf(*m_window, at);
    Drag(*m_window, at, 0.2, 0.3);
    Drag(*m_window, at, 0.2, 0.8); // goes back to what comes to lie out of view
    for (int time = 0; time < 20; ++time)
        QTest::keyClick(&widget, IsLevel(at) ? Qt::Key_Up : Qt::Key_Right, Qt::ControlModifier);
    Range const range = RangeOf(at);
    QCOMPARE(Steps().count(), 22);
    QTest::keyClick(&widget, Qt::Key_Backspace);
    QCOMPARE(RangeOf(at), range);
    QCOMPARE(Steps().count(), 22);
    QVERIFY(!AxisOf(*m_window, at).IsUnZoomAvailable());
}

void tst_ConsoleUndo::backspaceAfterUndoGoesOn_data()
{
    QTest::addColumn<int>("place");
    QTest::newRow("frequencies") << int(eSpectrum);
    QTest::newRow("levels") << int(eLevelScale);
}

void tst_ConsoleUndo::backspaceAfterUndoGoesOn()
{
    QFETCH(int, place);
    Place const at = static_cast<Place>(place);
    Range const first = RangeOf(at);
    Drag(*m_window, at, 0.2, 0.8);
    Range const second = RangeOf(at);
    Drag(*m_window, at, 0.2, 0.8);
    Steps().undo();
    QCOMPARE(RangeOf(at), second);
    QTest::keyClick(&WidgetOf(*m_window, at), Qt::Key_Backspace);
    QCOMPARE(RangeOf(at), first);
}

void tst_ConsoleUndo::menuAfterUndo()
{
    for (Place const at : { eSpectrum, eWaterfall, eShadingBar }) {
        Drag(*m_window, at, 0.2, 0.8);
        Steps().undo();
        ScaleAxis & axis = AxisOf(*m_window, at);
        axis.UpdateMenu(nullptr);
        QVERIFY(!axis.IsUnZoomAvailable()); // it would lead to what is shown
        Steps().clear();
    }
}

void tst_ConsoleUndo::historyIsLimited()
{
    Range const first = RangeOf(eLevelScale);
    ScaleAxis & axis = AxisOf(*m_window, eLevelScale);
    for (int time = 0; time < 1100; ++time)
        axis.SetZoomedRange(-100.0, -50.0 - time % 2, true);
    int ranges = 0;
    for (; axis.IsUnZoomAvailable() && ranges < 2000; ++ranges)
        axis.UnZoom();
    QCOMPARE(ranges, 1000);
    QCOMPARE(RangeOf(eLevelScale), first); // the first one is kept
}

void tst_ConsoleUndo::fastPanOfTheLevels_data()
{
    QTest::addColumn<double>("from");
    QTest::addColumn<double>("to");
    QTest::addColumn<bool>("escape");
    QTest::newRow("upward") << 0.9 << 0.1 << false;
    QTest::newRow("downward") << 0.1 << 0.9 << false;
    QTest::newRow("upward and abandoned") << 0.9 << 0.1 << true;
    QTest::newRow("downward and abandoned") << 0.1 << 0.9 << true;
}

void tst_ConsoleUndo::fastPanOfTheLevels()
{
    QFETCH(double, from);
    QFETCH(double, to);
    QFETCH(bool, escape);
    m_window->Values().SetLevels(-60.0, -58.0);
    m_window->grab();
    QWidget & widget = WidgetOf(*m_window, eLevelScale);
    Mouse(widget, QEvent::MouseButtonPress, At(*m_window, eLevelScale, from), Qt::ShiftModifier);
    for (int time = 0; time < 3; ++time) // to and fro in one move each
        Mouse(widget, QEvent::MouseMove, At(*m_window, eLevelScale, time == 1 ? from : to), Qt::ShiftModifier);
    QVERIFY(PanesAgree(*m_window));
    double const shift = (from - to) * 2.0;
    QVERIFY(IsNear(RangeOf(eLevelScale)[0], -60.0 + shift, 0.05));
    QVERIFY(IsNear(RangeOf(eLevelScale)[1], -58.0 + shift, 0.05));
    if (escape)
        QTest::keyClick(&widget, Qt::Key_Escape);
    Mouse(widget, QEvent::MouseButtonRelease, At(*m_window, eLevelScale, to), Qt::ShiftModifier);
    QCOMPARE(Steps().count(), escape ? 0 : 1);
    Steps().undo();
    QVERIFY(IsNear(RangeOf(eLevelScale)[0], -60.0, 1e-9));
    QVERIFY(IsNear(RangeOf(eLevelScale)[1], -58.0, 1e-9));
    QVERIFY(PanesAgree(*m_window));
}

void tst_ConsoleUndo::levelMarkerKeepsItsPlace()
{
    ConsoleValues::SetFlag(ConsolePaths::LevelMarkerShown, true);
    ConsoleValues::Set(ConsolePaths::LevelMarker, -100.0);
    QTest::keyClick(&WidgetOf(*m_window, eLevelScale), Qt::Key_Plus);
    QCOMPARE(RangeOf(eLevelScale), Range({ -110.0, -50.0 }));
}

void tst_ConsoleUndo::menuByKeyboardGoesBack_data()
{
    QTest::addColumn<int>("place");
    QTest::newRow("in the spectrum") << int(eSpectrum);
    QTest::newRow("in the waterfall") << int(eWaterfall);
    QTest::newRow("on the scale of the spectrum") << int(eSpectrumScale);
    QTest::newRow("on the scale of the waterfall") << int(eWaterfallScale);
    QTest::newRow("on the level scale") << int(eLevelScale);
    QTest::newRow("on the shading bar") << int(eShadingBar);
}

void tst_ConsoleUndo::menuByKeyboardGoesBack()
{
    QFETCH(int, place);
    Place const at = static_cast<Place>(place);
    QWidget & widget = WidgetOf(*m_window, at);
    widget.setFocus();
    Range const before = RangeOf(at);
    QTest::keyClick(&widget, Qt::Key_Plus);
    QVERIFY(RangeOf(at) != before);
    QTest::keyClick(&widget, Qt::Key_Menu);
    for (Qt::Key const key : { Qt::Key_Up, Qt::Key_Up, Qt::Key_Return }) { // above the properties
        QVERIFY(QApplication::activePopupWidget());
        QTest::keyClick(QApplication::activePopupWidget(), key);
    }
    QVERIFY(!QApplication::activePopupWidget());
    QCOMPARE(RangeOf(at), before);
    QCOMPARE(Steps().count(), 2);
}

void tst_ConsoleUndo::noMenuOnTheTimeAxis()
{
    m_window->grab();
    TimeAxis & axis = m_window->Waterfall().GetTimeAxis();
    RightClick(axis, axis.rect().center()); // not that of the pane either
    QVERIFY(!QApplication::activePopupWidget());
}

void tst_ConsoleUndo::insertAloneMarks()
{
    QSignalSpy const marks(&m_window->Spectrum(), &RangePane::signalMark);
    QTest::keyClick(&m_window->Spectrum(), Qt::Key_Insert, Qt::ControlModifier);
    QTest::keyClick(&m_window->Spectrum(), Qt::Key_Insert, Qt::ShiftModifier);
    QCOMPARE(marks.count(), 0);
    QTest::keyClick(&m_window->Spectrum(), Qt::Key_Insert, Qt::KeypadModifier);
    QTest::keyClick(&m_window->Spectrum(), Qt::Key_Insert);
    QCOMPARE(marks.count(), 2);
}

void tst_ConsoleUndo::bandOnAScaleDimsThePicture_data()
{
    QTest::addColumn<int>("place");
    QTest::newRow("scale of the spectrum") << int(eSpectrumScale);
    QTest::newRow("scale of the waterfall") << int(eWaterfallScale);
    QTest::newRow("level scale") << int(eLevelScale);
}

void tst_ConsoleUndo::bandOnAScaleDimsThePicture()
{
    QFETCH(int, place);
    Place const at = static_cast<Place>(place);
    RangePane & pane = PaneOf(*m_window, at);
    QWidget & widget = WidgetOf(*m_window, at);
    widget.setFocus();
    QRect const picture = pane.GetPictureRect(); // one device pixel a pixel
    auto const around = [&](double part) {
        QPoint const on = At(*m_window, at, part);
        QPoint const point =
            IsLevel(at) ? QPoint(picture.center().x(), on.y()) : QPoint(on.x(), picture.top() + picture.height() / 3);
        return QRect(point - QPoint(3, 3), QSize(7, 7));
    };
    QImage const before = PaneTools::Rendered(pane);
    Mouse(widget, QEvent::MouseButtonPress, At(*m_window, at, 0.3));
    Mouse(widget, QEvent::MouseMove, At(*m_window, at, 0.6));
    QImage const during = PaneTools::Rendered(pane);
    for (double const part : { 0.35, 0.45, 0.55 })
        QCOMPARE(during.copy(around(part)), before.copy(around(part)));
    for (double const part : { 0.1, 0.25, 0.65, 0.9 })
        QVERIFY2(during.copy(around(part)) != before.copy(around(part)), qPrintable(QString::number(part)));
    Mouse(widget, QEvent::MouseButtonRelease, At(*m_window, at, 0.3));
    QCOMPARE(PaneTools::Rendered(pane), before); // a click: nothing is left of it
}

void tst_ConsoleUndo::windowGoneWhileADragEnds_data()
{
    QTest::addColumn<int>("place");
    QTest::addColumn<bool>("pan");
    QTest::addColumn<int>("end");
    for (int const end : { int(QEvent::MouseButtonRelease), int(QEvent::FocusOut), int(QEvent::KeyPress) }) {
        QByteArray const by = end == int(QEvent::MouseButtonRelease) ? "by the button"
                              : end == int(QEvent::FocusOut)         ? "by the focus"
                                                                     : "by a key";
        for (int const place : { int(eSpectrum), int(eWaterfallScale), int(eLevelScale) }) {
            for (bool const pan : { false, true }) {
                QByteArray const name = QByteArray(pan ? "pan " : "band ") + by + " at " + QByteArray::number(place);
                QTest::newRow(name.constData()) << place << pan << end;
            }
        }
    }
}

void tst_ConsoleUndo::windowGoneWhileADragEnds()
{
    QFETCH(int, place);
    QFETCH(bool, pan);
    QFETCH(int, end);
    Place const at = static_cast<Place>(place);
    Drag(*m_window, at, 0.3, 0.7);
    m_window->grab();
    QWidget & widget = WidgetOf(*m_window, at);
    Qt::KeyboardModifiers const modifiers = pan ? Qt::ShiftModifier : Qt::NoModifier;
    Mouse(widget, QEvent::MouseButtonPress, At(*m_window, at, 0.3), modifiers);
    Mouse(widget, QEvent::MouseMove, At(*m_window, at, 0.6), modifiers);
    Steps().clear();
    QObject watch; // hears of whatever comes first
    auto const close = [this] { m_window.reset(); };
    connect(&AxisOf(*m_window, at), &ScaleAxis::signalBand, &watch, close);
    connect(&AxisOf(*m_window, at), &AxisBase::Zoomed, &watch, close);
    connect(&Steps(), &QUndoStack::indexChanged, &watch, close);
    QPoint const to = At(*m_window, at, 0.6);
    if (end == int(QEvent::MouseButtonRelease)) {
        Mouse(widget, QEvent::MouseButtonRelease, to, modifiers);
    } else if (end == int(QEvent::FocusOut)) {
        QFocusEvent out(QEvent::FocusOut);
        QCoreApplication::sendEvent(&widget, &out);
    } else {
        QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        QCoreApplication::sendEvent(&widget, &escape);
    }
    QVERIFY(!m_window);
}

ORIM_TEST_MAIN(tst_ConsoleUndo)
#include "tst_consoleundo.moc"
