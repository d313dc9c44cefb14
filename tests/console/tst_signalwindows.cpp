// SPDX-License-Identifier: MIT
#include "signalwindows.h"

#include "clientwindow.h"
#include "colorset.h"
#include "consolebearings.h"
#include "consolewindow.h"
#include "frequencyaxis.h"
#include "lineplayer.h"
#include "markertools.h"
#include "panetools.h"
#include "resortpopupmenu.h"
#include "spectrumpane.h"
#include "testmain.h"
#include "waterfallpane.h"

#include <QToolButton>

#include <algorithm>
#include <array>
#include <cmath>

using namespace MarkerTools;
using namespace PaneTools;

class tst_SignalWindows : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void initTestCase() { TestStage::HushPopups(); }

    void init();
    void cleanup();
    void markSurroundsTheHighestSignal_data();
    void markSurroundsTheHighestSignal();
    void marksDoNotCoverEachOther();
    void markTakesTheNextHiddenWindow();
    void markIsOneStepOfUndo();
    void markWithoutASignalStandsInTheMiddle();
    void marksWaitForALine();
    void windowsAreSeenInBothPanes();
    void windowOutOfViewIsNotDrawn();
    void labelsAreSeen_data();
    void labelsAreSeen();
    void focusedWindowTellsWhereItStands();
    void mouseMovesAWindowInBothPanes_data();
    void mouseMovesAWindowInBothPanes();
    void mouseResizesByABorder_data();
    void mouseResizesByABorder();
    void hidingABorderHidesItInTheOtherPane();
    void keyboardAlone_data();
    void keyboardAlone();
    void narrowWindowIsMovedInBothPanes_data();
    void narrowWindowIsMovedInBothPanes();
    void resultAtABorderIsSelected_data();
    void resultAtABorderIsSelected();
    void menuHidesAWindow_data();
    void menuHidesAWindow();
    void coloursFollowTheSet();
    void liveDataMakesNoSteps();
    void undoLeavesOneInFocus_data();
    void undoLeavesOneInFocus();
    void retuneLeavesTheWindows();
    void markersAreChosenBesideWindows();
    void windowsFitAtEverySize_data();
    void windowsFitAtEverySize();

private:
    std::vector<RangePane *> Panes() const { return { &m_window->Spectrum(), &m_window->Waterfall() }; }

    RangePane & Pane(bool waterfall) const { return *Panes()[waterfall ? 1 : 0]; }

    WindowFrames::Frame FrameOf(RangePane & pane, int window) const;

    static void SetResult(double frequency);

    std::unique_ptr<ConsoleWindow> m_window;
};

namespace {

constexpr double Tone = ToneSource::Centre + ToneSource::Rate / 8.0; // Hz

bool Holds(FrequencyRange const & range, double frequency)
{
    return frequency >= range.start && frequency <= range.start + range.span;
}

} // namespace

void tst_SignalWindows::init()
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

void tst_SignalWindows::cleanup()
{
    m_window.reset();
    ColorSet::Instance().Load(0);
}

//! The frame of a window as it is painted now; with window -1 when it is not.
WindowFrames::Frame tst_SignalWindows::FrameOf(RangePane & pane, int window) const
{
    pane.grab();
    for (WindowFrames::Frame const & frame : pane.GetWindowFrames().Get()) {
        if (frame.window == window)
            return frame;
    }
    return { -1, QRect(), QRect(), QString(), false };
}

//! Has the direction finder find one emitter.
void tst_SignalWindows::SetResult(double frequency)
{
    auto * const list = Tree::Instance()->FindAs<ValueList<BearingResult>>(QLatin1String(ConsolePaths::Bearings));
    list->SetEntries({ BearingResult({ 41.3, -4.5, frequency, 95.0, -30.0 }, QStringLiteral("Tower")) }, nullptr);
}

void tst_SignalWindows::markSurroundsTheHighestSignal_data()
{
    QTest::addColumn<int>("how");
    QTest::newRow("by the button") << 0;
    QTest::newRow("by the key in the spectrum") << 1;
    QTest::newRow("by the key in the waterfall") << 2;
}

void tst_SignalWindows::markSurroundsTheHighestSignal()
{
    QFETCH(int, how);
    if (how == 0)
        m_window->findChild<QToolButton *>(QStringLiteral("mark"))->click();
    else
        QTest::keyClick(&Pane(how == 2), Qt::Key_Insert);
    QVERIFY(WindowValues::IsVisible(0));
    QVERIFY(!WindowValues::IsVisible(1));
    QCOMPARE(WindowValues::Focused(), 0);
    FrequencyRange const range = WindowValues::RangeOf(0);
    QVERIFY(Holds(range, Tone));
    QVERIFY2(range.span < ToneSource::Rate / 8.0, qPrintable(QString::number(range.span)));
    QVERIFY(FrameOf(m_window->Spectrum(), 0).rect.width() >= 12);
}

void tst_SignalWindows::marksDoNotCoverEachOther()
{
    while (WindowValues::Next(true) < 0 || !WindowValues::IsVisible(WindowValues::Count - 1))
        QVERIFY(m_window->Windows().Mark());
    for (int window = 0; window < WindowValues::Count; ++window)
        QCOMPARE(Holds(WindowValues::RangeOf(window), Tone), window == 0);
}

void tst_SignalWindows::markTakesTheNextHiddenWindow()
{
    for (int window = 0; window < WindowValues::Count; ++window) {
        QVERIFY(m_window->Windows().Mark());
        QCOMPARE(WindowValues::Focused(), window);
    }
    QVERIFY(!m_window->Windows().Mark());
    QCOMPARE(WindowValues::Focused(), 4);
    WindowValues::Show(2, false);
    QVERIFY(m_window->Windows().Mark());
    QCOMPARE(WindowValues::Focused(), 2);
}

void tst_SignalWindows::markIsOneStepOfUndo()
{
    m_window->Windows().Mark();
    QCOMPARE(UndoCount(), 1);
    QCOMPARE(GuiBase::Instance().UndoStack()->undoText(), QStringLiteral("Mark a signal with window 1"));
    GuiBase::Instance().UndoStack()->undo();
    QVERIFY(!WindowValues::IsVisible(0));
    QCOMPARE(FrameOf(m_window->Waterfall(), 0).window, -1);
    GuiBase::Instance().UndoStack()->redo();
    QCOMPARE(FrameOf(m_window->Waterfall(), 0).window, 0);
}

void tst_SignalWindows::markWithoutASignalStandsInTheMiddle()
{
    m_window.reset();
    m_window = std::make_unique<ConsoleWindow>(std::make_unique<LinePlayer>(nullptr), QStringLiteral("nothing"));
    m_window->resize(1000, 700);
    m_window->show();
    m_window->Values().SetBand({ 1000.0, 100.0 });
    QVERIFY(m_window->Windows().Mark());
    QVERIFY(WindowValues::RangeOf(0) == (FrequencyRange{ 1045.0, 10.0 }));
}

void tst_SignalWindows::marksWaitForALine()
{
    m_window.reset();
    m_window = std::make_unique<ConsoleWindow>(std::make_unique<LinePlayer>(std::make_unique<ToneSource>()),
                                               QStringLiteral("tone"));
    ConsoleValues::Select(ConsolePaths::Bins, 256);
    m_window->Windows().MarkWhenShown();
    QVERIFY(!WindowValues::IsVisible(0));
    m_window->show();
    m_window->Start();
    QTRY_VERIFY(WindowValues::IsVisible(WindowValues::Count - 1));
    QVERIFY(Holds(WindowValues::RangeOf(0), Tone));
    QCOMPARE(WindowValues::Focused(), -1);
    QCOMPARE(UndoCount(), 0);
    // once
    WindowValues::Show(0, false);
    quint64 const taken = m_window->Figures().taken;
    QTRY_VERIFY(m_window->Figures().taken > taken + 2);
    QVERIFY(!WindowValues::IsVisible(0));
}

void tst_SignalWindows::windowsAreSeenInBothPanes()
{
    std::vector<QImage> before;
    for (RangePane * const pane : Panes())
        before.push_back(Rendered(*pane));
    m_window->Windows().Mark();
    WindowValues::SetRange(0, { ToneSource::Centre - 3000.0, 1000.0 });
    WindowValues::Focus(-1);
    for (std::size_t i = 0; i < before.size(); ++i) {
        RangePane & pane = *Panes()[i];
        WindowFrames::Frame const frame = FrameOf(pane, 0);
        QCOMPARE(frame.window, 0);
        QCOMPARE(frame.text, QStringLiteral("1"));
        QCOMPARE(frame.rect.left(), pane.ValueToPixel(eMarkerX, ToneSource::Centre - 3000.0));
        QCOMPARE(frame.rect.right(), pane.ValueToPixel(eMarkerX, ToneSource::Centre - 2000.0));
        QImage const after = Rendered(pane);
        QPoint const middle = frame.rect.center();
        QVERIFY(after.pixel(middle) != before[i].pixel(middle));
        // nothing changes beside it
        QPoint const beside(frame.rect.right() + 30, middle.y());
        QCOMPARE(after.pixel(beside), before[i].pixel(beside));
        QColor const tinted = after.pixelColor(middle);
        WindowValues::Focus(0);
        QVERIFY(Rendered(pane).pixelColor(middle) != tinted);
        QVERIFY(FrameOf(pane, 0).focused);
        WindowValues::Focus(-1);
        // the borders are markers of this pane
        for (int const id : { WindowHand::StartMarker(0), WindowHand::StopMarker(0) })
            QVERIFY(pane.GetMarker(id)->GetRulerRect().isValid());
    }
    WindowValues::Show(0, false);
    for (std::size_t i = 0; i < before.size(); ++i)
        QCOMPARE(Rendered(*Panes()[i]), before[i]);
}

void tst_SignalWindows::windowOutOfViewIsNotDrawn()
{
    m_window->Windows().Mark();
    ConsoleValues::Set(ConsolePaths::Span, 500.0);
    ConsoleValues::Set(ConsolePaths::Centre, ToneSource::Centre - 2000.0);
    for (RangePane * const pane : Panes())
        QCOMPARE(FrameOf(*pane, 0).window, -1);
    // a window around the view fills it
    WindowValues::SetRange(0, { ToneSource::Centre - 4000.0, 8000.0 });
    for (RangePane * const pane : Panes()) {
        WindowFrames::Frame const frame = FrameOf(*pane, 0);
        QCOMPARE(frame.window, 0);
        QVERIFY(frame.rect.width() >= pane->GetPictureRect().width() - 2);
        QVERIFY(frame.rect.width() <= pane->GetPictureRect().width());
    }
}

void tst_SignalWindows::labelsAreSeen_data()
{
    QTest::addColumn<double>("width"); // Hz
    QTest::newRow("wide") << 1000.0;
    QTest::newRow("narrower than the label") << 20.0;
}

void tst_SignalWindows::labelsAreSeen()
{
    QFETCH(double, width);
    m_window->Windows().Mark();
    WindowValues::SetRange(0, { ToneSource::Centre - 3000.0, width });
    for (bool const focused : { false, true }) {
        WindowValues::Focus(focused ? 0 : -1);
        for (RangePane * const pane : Panes()) {
            QRect const label = FrameOf(*pane, 0).label;
            QVERIFY(label.isValid());
            QVERIFY(pane->GetPictureRect().contains(label));
            // nothing crosses its edge
            QColor const edge = focused ? pane->GetColors().text : pane->GetColors().ground;
            QImage const image = Rendered(*pane);
            for (int x = label.left(); x <= label.right(); ++x)
                QCOMPARE(image.pixelColor(x, label.bottom()), edge);
        }
    }
}

void tst_SignalWindows::focusedWindowTellsWhereItStands()
{
    m_window->Windows().Mark();
    WindowValues::SetRange(0, { ToneSource::Centre - 3000.0, 1500.0 });
    auto const texts = [this] {
        QString all;
        m_window->Spectrum().grab();
        for (MarkerRulers::Ruler const & ruler : m_window->Spectrum().GetRulers())
            all += ruler.texts.join(QLatin1Char('|')) + QLatin1Char(';');
        return all;
    };
    WindowValues::Focus(0);
    QString const told = texts();
    QVERIFY2(told.contains(QStringLiteral("99.99700")), qPrintable(told));
    QVERIFY2(told.contains(QStringLiteral("99.99850")), qPrintable(told));
    QVERIFY2(told.contains(QStringLiteral("\u0394 1.5")) && told.contains(QStringLiteral(" kHz")), qPrintable(told));
    WindowValues::Focus(-1);
    QCOMPARE(texts(), QStringLiteral(";;"));
}

void tst_SignalWindows::mouseMovesAWindowInBothPanes_data()
{
    QTest::addColumn<bool>("waterfall");
    QTest::newRow("in the spectrum") << false;
    QTest::newRow("in the waterfall") << true;
}

void tst_SignalWindows::mouseMovesAWindowInBothPanes()
{
    QFETCH(bool, waterfall);
    m_window->Windows().Mark();
    WindowValues::SetRange(0, { ToneSource::Centre - 3000.0, 1000.0 });
    GuiBase::Instance().UndoStack()->clear();
    RangePane & pane = Pane(waterfall);
    QRect const before = FrameOf(pane, 0).rect;
    QPoint const from = before.center();
    Press(pane, from);
    Move(pane, from + QPoint(50, 0));
    // the other pane shows it on its way
    QCOMPARE(FrameOf(Pane(!waterfall), 0).rect.left(), before.left() + 50);
    Move(pane, from + QPoint(120, 3));
    Release(pane, from + QPoint(120, 3));
    for (RangePane * const other : Panes()) {
        QCOMPARE(FrameOf(*other, 0).rect.left(), before.left() + 120);
        QVERIFY(std::abs(FrameOf(*other, 0).rect.width() - before.width()) <= 1);
    }
    QVERIFY(std::abs(WindowValues::RangeOf(0).span - 1000.0) < 1e-6);
    QCOMPARE(UndoCount(), 1);
    QVERIFY(!m_window->Spectrum().GetMarker(WindowHand::StartMarker(0))->GetCurrentMarker());
}

void tst_SignalWindows::mouseResizesByABorder_data()
{
    QTest::addColumn<bool>("waterfall");
    QTest::addColumn<bool>("stop");
    QTest::newRow("start in the spectrum") << false << false;
    QTest::newRow("stop in the spectrum") << false << true;
    QTest::newRow("start in the waterfall") << true << false;
    QTest::newRow("stop in the waterfall") << true << true;
}

void tst_SignalWindows::mouseResizesByABorder()
{
    QFETCH(bool, waterfall);
    QFETCH(bool, stop);
    m_window->Windows().Mark();
    WindowValues::SetRange(0, { ToneSource::Centre - 3000.0, 2000.0 });
    WindowValues::Focus(-1);
    RangePane & pane = Pane(waterfall);
    QRect const before = FrameOf(pane, 0).rect;
    QPoint const from(stop ? before.right() : before.left(), before.center().y());
    Drag(pane, from, from + QPoint(40, 0));
    for (RangePane * const other : Panes()) {
        QRect const after = FrameOf(*other, 0).rect;
        QVERIFY(std::abs(after.left() - before.left() - (stop ? 0 : 40)) <= 1);
        QVERIFY(std::abs(after.right() - before.right() - (stop ? 40 : 0)) <= 1);
    }
    QCOMPARE(WindowValues::Focused(), 0);
}

void tst_SignalWindows::hidingABorderHidesItInTheOtherPane()
{
    m_window->Windows().Mark();
    int const id = WindowHand::StopMarker(0);
    m_window->Waterfall().SetShowMarker(id, false);
    QVERIFY(!m_window->Spectrum().GetShowMarker(id));
    m_window->Spectrum().SetShowMarker(id, true);
    QVERIFY(m_window->Waterfall().GetShowMarker(id));
    QVERIFY(!m_window->Spectrum().GetFrequencyAxis().isIndexValid(id));
}

void tst_SignalWindows::keyboardAlone_data()
{
    QTest::addColumn<bool>("waterfall");
    QTest::newRow("in the spectrum") << false;
    QTest::newRow("in the waterfall") << true;
}

void tst_SignalWindows::keyboardAlone()
{
    QFETCH(bool, waterfall);
    RangePane & pane = Pane(waterfall);
    QTest::keyClick(&pane, Qt::Key_Insert);
    QTest::keyClick(&pane, Qt::Key_Insert);
    QCOMPARE(WindowValues::Focused(), 1);
    QTest::keyClick(&pane, Qt::Key_1);
    QCOMPARE(WindowValues::Focused(), 0);
    QTest::keyClick(&pane, Qt::Key_F6);
    QCOMPARE(WindowValues::Focused(), 1);
    QTest::keyClick(&pane, Qt::Key_F6, Qt::ShiftModifier);
    QCOMPARE(WindowValues::Focused(), 0);
    QRect const before = FrameOf(pane, 0).rect;
    QTest::keyClick(&pane, Qt::Key_Left, Qt::AltModifier);
    QTest::keyClick(&pane, Qt::Key_Right, Qt::ShiftModifier);
    QRect const after = FrameOf(pane, 0).rect;
    QVERIFY(std::abs(after.left() - before.left() + 10) <= 1);
    QVERIFY(std::abs(after.width() - before.width() - 1) <= 1);
    QTest::keyClick(&pane, Qt::Key_Delete);
    QVERIFY(!WindowValues::IsVisible(0));
    QVERIFY(WindowValues::IsVisible(1));
    QTest::keyClick(&pane, Qt::Key_2);
    QTest::keyClick(&pane, Qt::Key_Escape);
    QCOMPARE(WindowValues::Focused(), -1);
    QVERIFY(WindowValues::IsVisible(1));
    // a key that is held when the focus of the keyboard leaves counts as let go
    QTest::keyClick(&pane, Qt::Key_2);
    int const steps = UndoCount();
    QTest::keyPress(&pane, Qt::Key_Left);
    QCOMPARE(UndoCount(), steps);
    QFocusEvent out(QEvent::FocusOut);
    QCoreApplication::sendEvent(&pane, &out);
    QCOMPARE(UndoCount(), steps + 1);
}

void tst_SignalWindows::narrowWindowIsMovedInBothPanes_data()
{
    QTest::addColumn<bool>("waterfall");
    QTest::addColumn<int>("width"); // px
    QTest::addColumn<int>("beside");
    for (bool const waterfall : { false, true }) {
        QString const where = waterfall ? QStringLiteral("waterfall: ") : QStringLiteral("spectrum: ");
        QTest::newRow(qPrintable(where + QStringLiteral("four pixels"))) << waterfall << 4 << 0;
        QTest::newRow(qPrintable(where + QStringLiteral("twelve pixels"))) << waterfall << 12 << 0;
        QTest::newRow(qPrintable(where + QStringLiteral("left of the middle"))) << waterfall << 12 << -1;
        QTest::newRow(qPrintable(where + QStringLiteral("right of the middle"))) << waterfall << 12 << 1;
    }
}

void tst_SignalWindows::narrowWindowIsMovedInBothPanes()
{
    QFETCH(bool, waterfall);
    QFETCH(int, width);
    QFETCH(int, beside);
    RangePane & pane = Pane(waterfall);
    double const pixel = ToneSource::Rate / pane.GetPictureRect().width(); // Hz
    m_window->Windows().Mark();
    WindowValues::SetRange(0, { ToneSource::Centre - 3000.0, width * pixel });
    QRect const before = FrameOf(pane, 0).rect;
    QPoint const from = before.center() + QPoint(beside, 0);
    Drag(pane, from, from + QPoint(40, 0));
    for (RangePane * const other : Panes())
        QCOMPARE(FrameOf(*other, 0).rect.left(), before.left() + 40);
    QVERIFY(std::abs(WindowValues::RangeOf(0).span - width * pixel) < 1e-6);
}

void tst_SignalWindows::resultAtABorderIsSelected_data()
{
    QTest::addColumn<bool>("waterfall");
    QTest::newRow("in the spectrum") << false;
    QTest::newRow("in the waterfall") << true;
}

void tst_SignalWindows::resultAtABorderIsSelected()
{
    QFETCH(bool, waterfall);
    RangePane & pane = Pane(waterfall);
    m_window->Windows().Mark();
    WindowValues::SetRange(0, { Tone, 500.0 });
    WindowValues::Focus(-1);
    SetResult(Tone);
    QRect const picture = pane.GetPictureRect();
    int const line = FrameOf(pane, 0).rect.left();
    Drag(pane, { line, picture.top() + 8 }, { line, picture.top() + 8 });
    QCOMPARE(ConsoleBearings::Selected(), 0);
    QCOMPARE(WindowValues::Focused(), -1);
    // where the result has no line, the border is met
    ConsoleBearings::Select(-1);
    FrameOf(pane, 0);
    Drag(pane, { line, picture.center().y() }, { line, picture.center().y() });
    QCOMPARE(ConsoleBearings::Selected(), -1);
    QCOMPARE(WindowValues::Focused(), 0);
}

void tst_SignalWindows::menuHidesAWindow_data()
{
    QTest::addColumn<bool>("waterfall");
    QTest::addColumn<int>("place");
    for (bool const waterfall : { false, true }) {
        QString const where = waterfall ? QStringLiteral("waterfall: ") : QStringLiteral("spectrum: ");
        QTest::newRow(qPrintable(where + QStringLiteral("label"))) << waterfall << 0;
        QTest::newRow(qPrintable(where + QStringLiteral("lower border"))) << waterfall << 1;
        QTest::newRow(qPrintable(where + QStringLiteral("upper border"))) << waterfall << 2;
    }
}

void tst_SignalWindows::menuHidesAWindow()
{
    QFETCH(bool, waterfall);
    QFETCH(int, place);
    RangePane & pane = Pane(waterfall);
    for (int window = 0; window < 2; ++window)
        m_window->Windows().Mark();
    WindowValues::SetRange(1, { ToneSource::Centre - 3000.0, 1000.0 });
    GuiBase::Instance().UndoStack()->clear();
    WindowFrames::Frame const frame = FrameOf(pane, 1);
    int const middle = frame.rect.center().y();
    std::array<QPoint, 3> const places{
        { frame.label.center(), { frame.rect.left(), middle }, { frame.rect.right(), middle } }
    };
    pane.SetCurrentXYMenu(frame.rect.center());
    QVERIFY(!pane.GetContextMenu()->FindItem(1) ||
            pane.GetContextMenu()->FindItem(1)->text() != QStringLiteral("Hide window 2"));
    pane.SetCurrentXYMenu(places[static_cast<std::size_t>(place)]);
    ResortPopupMenu const * const menu = pane.GetContextMenu();
    QVERIFY(menu);
    QCOMPARE(menu->actions().size(), 1);
    QCOMPARE(menu->actions().front()->text(), QStringLiteral("Hide window 2"));
    menu->actions().front()->trigger();
    QVERIFY(!WindowValues::IsVisible(1));
    QVERIFY(WindowValues::IsVisible(0));
    for (RangePane * const shown : Panes())
        QCOMPARE(FrameOf(*shown, 1).window, -1);
    QCOMPARE(UndoCount(), 1);
    QCOMPARE(GuiBase::Instance().UndoStack()->undoText(), QStringLiteral("Hide window 2"));
    GuiBase::Instance().UndoStack()->undo();
    QCOMPARE(FrameOf(pane, 1).rect, frame.rect);
}

void tst_SignalWindows::coloursFollowTheSet()
{
    for (int window = 0; window < 2; ++window)
        m_window->Windows().Mark();
    WindowValues::SetRange(0, { ToneSource::Centre - 3000.0, 500.0 });
    WindowValues::SetRange(1, { ToneSource::Centre - 2000.0, 500.0 });
    WindowValues::Focus(1);
    SetResult(ToneSource::Centre + 2500.0); // clear of the flags of the windows
    for (int set = 0; set < 2; ++set) {
        ColorSet::Instance().Load(set);
        for (int const selected : { -1, 0 }) {
            ConsoleBearings::Select(selected);
            for (RangePane * const pane : Panes()) {
                QImage const image = Rendered(*pane);
                for (int const window : { 0, 1 }) {
                    QRect const label = FrameOf(*pane, window).label;
                    QCOMPARE(image.pixelColor(label.bottomRight()),
                             window == 1 ? pane->GetColors().text : pane->GetColors().ground);
                }
                std::vector<MarkerRulers::Ruler> const & rulers = pane->GetRulers();
                auto const result = std::find_if(rulers.begin(), rulers.end(), [](MarkerRulers::Ruler const & ruler) {
                    return ruler.index == eFree33;
                });
                QVERIFY(result != rulers.end());
                QPoint const stub(result->line, pane->GetPictureRect().top() + 3);
                QCOMPARE(
                    image.pixelColor(result->flag.isNull() ? stub : result->flag.topLeft()),
                    ColorSet::Instance()[selected == 0 ? IColorBase::eColorSelectedResult : IColorBase::eColorResult]);
            }
        }
    }
    // the sets differ in what was looked at, and a change repaints of itself
    ColorSet::Instance().Load(0);
    std::vector<QImage> before;
    for (RangePane * const pane : Panes())
        before.push_back(Rendered(*pane));
    ColorSet::Instance().Load(1);
    for (std::size_t i = 0; i < before.size(); ++i) {
        WindowFrames::Frame const frame = FrameOf(*Panes()[i], 0);
        QImage const after = Rendered(*Panes()[i]);
        QVERIFY(after.pixel(frame.rect.center()) != before[i].pixel(frame.rect.center()));
        QVERIFY(after.pixel(frame.label.bottomRight()) != before[i].pixel(frame.label.bottomRight()));
    }
}

void tst_SignalWindows::liveDataMakesNoSteps()
{
    m_window.reset();
    m_window = std::make_unique<ConsoleWindow>(std::make_unique<LinePlayer>(std::make_unique<ToneSource>()),
                                               QStringLiteral("tone"));
    ConsoleValues::Select(ConsolePaths::Bins, 256);
    m_window->resize(1000, 700);
    m_window->FindDirections({ { QStringLiteral("Tower"), Tone, 100.0, 0.0, 100.0, 5.0, 90 } }, 1);
    m_window->Windows().MarkWhenShown();
    for (char const * const path : { ConsolePaths::Marker1Shown, ConsolePaths::Marker2Shown })
        ConsoleValues::SetFlag(path, true); // they wait for a line
    GuiBase::Instance().UndoStack()->clear();
    m_window->show();
    m_window->Start();
    QTRY_VERIFY(WindowValues::IsVisible(WindowValues::Count - 1));
    QTRY_COMPARE(ConsoleBearings::Count(), 1);
    std::vector<FrequencyRange> ranges;
    for (int window = 0; window < WindowValues::Count; ++window)
        ranges.push_back(WindowValues::RangeOf(window));
    m_window->Player().Pause();
    m_window->Player().Seek(1.0);
    m_window->Player().Play();
    ColorSet::Instance().Load(1);
    quint64 const taken = m_window->Figures().taken;
    QTRY_VERIFY(m_window->Figures().taken > taken + 10);
    QCOMPARE(UndoCount(), 0);
    for (int window = 0; window < WindowValues::Count; ++window)
        QVERIFY(WindowValues::RangeOf(window) == ranges[static_cast<std::size_t>(window)]);
}

void tst_SignalWindows::undoLeavesOneInFocus_data()
{
    QTest::addColumn<bool>("hidden");
    QTest::newRow("of hiding a window") << true;
    QTest::newRow("of marking a signal") << false;
}

void tst_SignalWindows::undoLeavesOneInFocus()
{
    QFETCH(bool, hidden);
    RangePane & pane = m_window->Spectrum();
    for (int window = 0; window < 3; ++window)
        QTest::keyClick(&pane, Qt::Key_Insert);
    QTest::keyClick(&pane, Qt::Key_2);
    if (hidden)
        QTest::keyClick(&pane, Qt::Key_Delete);
    else
        QTest::keyClick(&pane, Qt::Key_Insert); // takes the focus from the second
    QTest::keyClick(&pane, Qt::Key_3);
    for (bool const redo : { false, true }) {
        if (redo)
            GuiBase::Instance().UndoStack()->redo();
        else
            GuiBase::Instance().UndoStack()->undo();
        int const expected = redo ? (hidden ? -1 : 3) : 1;
        QCOMPARE(WindowValues::Focused(), expected);
        for (RangePane * const shown : Panes()) {
            int focused = 0;
            for (int window = 0; window < WindowValues::Count; ++window) {
                bool const has = FrameOf(*shown, window).focused;
                focused += has ? 1 : 0;
                QCOMPARE(has, window == expected);
            }
            QCOMPARE(focused, expected < 0 ? 0 : 1);
        }
    }
}

void tst_SignalWindows::retuneLeavesTheWindows()
{
    QVERIFY(m_window->Windows().Mark());
    FrequencyRange const range = WindowValues::RangeOf(0);
    FrequencyRange const band = m_window->Values().GetBand();
    QRect const frame = FrameOf(m_window->Spectrum(), 0).rect;
    int const steps = UndoCount();
    m_window->Values().SetBand({ band.start + 1e6, band.span });
    for (RangePane * const pane : Panes())
        QCOMPARE(FrameOf(*pane, 0).window, -1);
    QVERIFY(WindowValues::RangeOf(0) == range);
    QVERIFY(WindowValues::IsVisible(0));
    m_window->Values().SetBand(band);
    QVERIFY(WindowValues::RangeOf(0) == range);
    QCOMPARE(FrameOf(m_window->Spectrum(), 0).rect, frame);
    QCOMPARE(UndoCount(), steps);
}

void tst_SignalWindows::markersAreChosenBesideWindows()
{
    m_window->Windows().Mark();
    for (char const * const path : { ConsolePaths::Marker1Shown, ConsolePaths::Marker2Shown })
        ConsoleValues::SetFlag(path, true);
    RangePane & pane = m_window->Spectrum();
    WindowValues::Focus(0);
    FrequencyRange const range = WindowValues::RangeOf(0);
    QCOMPARE(pane.GetCurrentMarker(), int(eWhiteX));
    QTest::keyClick(&pane, Qt::Key_M);
    QCOMPARE(pane.GetCurrentMarker(), int(eYellowX));
    QTest::keyClick(&pane, Qt::Key_M);
    QCOMPARE(pane.GetCurrentMarker(), int(eWhiteX)); // borders are passed over
    double const before = ConsoleValues::Get(ConsolePaths::Marker2);
    QTest::keyClick(&pane, Qt::Key_Left);
    QVERIFY(ConsoleValues::Get(ConsolePaths::Marker2) < before);
    QVERIFY(WindowValues::RangeOf(0) == range);
    // without a marker, keys move no border
    for (char const * const path : { ConsolePaths::Marker1Shown, ConsolePaths::Marker2Shown })
        ConsoleValues::SetFlag(path, false);
    QTest::keyClick(&pane, Qt::Key_Left);
    QVERIFY(WindowValues::RangeOf(0) == range);
}

void tst_SignalWindows::windowsFitAtEverySize_data()
{
    QTest::addColumn<QSize>("size");
    for (QSize const size : { QSize(640, 480), QSize(1280, 800), QSize(1920, 1080) })
        QTest::newRow(qPrintable(QStringLiteral("%1 x %2").arg(size.width()).arg(size.height()))) << size;
}

void tst_SignalWindows::windowsFitAtEverySize()
{
    QFETCH(QSize, size);
    m_window->resize(size);
    QTRY_COMPARE(m_window->size(), size);
    while (m_window->Windows().Mark()) {}
    for (RangePane * const pane : Panes()) {
        pane->grab();
        std::vector<WindowFrames::Frame> const & frames = pane->GetWindowFrames().Get();
        QCOMPARE(frames.size(), std::size_t(5));
        for (WindowFrames::Frame const & frame : frames) {
            QVERIFY(pane->GetPictureRect().contains(frame.rect));
            QVERIFY(pane->GetPictureRect().contains(frame.label));
            for (WindowFrames::Frame const & other : frames)
                QVERIFY(other.window == frame.window || !other.label.intersects(frame.label));
        }
    }
    // and on the way to no size at all
    m_window->Spectrum().resize(0, 0);
    m_window->Spectrum().grab();
}

ORIM_TEST_MAIN(tst_SignalWindows)
#include "tst_signalwindows.moc"
