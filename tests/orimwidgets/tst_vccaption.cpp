// SPDX-License-Identifier: MIT
// What a caption is: its parts, colours, focus, mouse and menu.

#include "captionprobe.h"

#include "colorset.h"
#include "controleventfilter.h"
#include "guibase.h"
#include "iwheelconsumer.h"
#include "testmain.h"
#include "vcselectionpopup.h"

#include <QContextMenuEvent>
#include <QMetaMethod>
#include <QSignalSpy>

#include <climits>
#include <memory>

namespace {

static_assert(std::is_base_of_v<QWidget, VCCaption> && std::is_base_of_v<Control, VCCaption> &&
                  std::is_base_of_v<IObserver, VCCaption>,
              "a caption is a widget with a menu that follows values");

QColor Color(int number) { return ColorSet::Instance()[static_cast<IColorBase::ECOLOR>(number)]; }

void SendMouse(QWidget & widget, QEvent::Type type, QPoint const & global, Qt::MouseButton button = Qt::LeftButton)
{
    QMouseEvent event(type, widget.mapFromGlobal(global), global, type == QEvent::MouseMove ? Qt::NoButton : button,
                      type == QEvent::MouseButtonRelease ? Qt::NoButton : button, Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &event);
}

//! \return whether it was taken.
bool SendWheel(QWidget & widget, QPoint const & angle)
{
    QPointF const position(1.0, 1.0);
    QWheelEvent event(position, position, QPoint(), angle, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    event.ignore();
    QCoreApplication::sendEvent(&widget, &event);
    return event.isAccepted();
}

void SendFocus(QWidget & widget, bool in)
{
    QFocusEvent event(in ? QEvent::FocusIn : QEvent::FocusOut);
    QCoreApplication::sendEvent(&widget, &event);
}

class Consumer : public IWheelConsumer
{
public:
    void WheelDown() override
    {
        ++m_down;
        delete m_pVictim.data();
    }

    void WheelUp() override
    {
        ++m_up;
        delete m_pVictim.data();
    }

    int m_down = 0;
    int m_up = 0;
    QPointer<QWidget> m_pVictim;
};

//! Deletes a bar when it is moved.
class Mover : public QWidget
{
public:
    QPointer<CaptionProbe> m_pVictim;
    QPoint m_stored; // last point of the drag, px on the screen

protected:
    void moveEvent(QMoveEvent * /*event*/) override
    {
        if (!m_pVictim)
            return;
        m_stored = m_pVictim->m_MovePos;
        delete m_pVictim.data();
    }
};

void OpenMenu(QWidget & widget)
{
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(5, 5), widget.mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(&widget, &event);
}

//! Hears what the slots call.
class Derived : public VCCaption
{
    Q_OBJECT
public:
    using VCCaption::VCCaption;

    void slotTopButtonClick() override { m_called << QStringLiteral("top"); }

    void slotRunning(bool on) override { m_called << QStringLiteral("running %1").arg(on ? 1 : 0); }

    void slotStopped() override { m_called << QStringLiteral("stopped"); }

    void slotStarted() override { m_called << QStringLiteral("started"); }

    void slotColorsChanged() override { m_called << QStringLiteral("colors"); }

    QStringList m_called;
};

} // namespace

class tst_vccaption : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();

    void styleBits();
    void arguments();
    void defaults();
    void signalsAndSlots();
    void virtualSlots();
    void parts();
    void heights_data();
    void heights();
    void baseLine();

    void colors_data();
    void colors();
    void font();
    void colorsChange();
    void rightOffset();

    void focus();
    void focusForms();
    void frame();
    void opaque();
    void picture();
    void pictureFollowsTheSize();
    void withoutPicture();
    void wholeBarIsPainted();

    void doubleClick();
    void wheel_data();
    void wheel();
    void wheelConsumerEnds();
    void drag();
    void dragOnlyInItsStyle_data();
    void dragOnlyInItsStyle();
    void dragWithoutParent();
    void dragLosesItsParent();
    void dragEndsUnderTheMenu();
    void dragEndsWhenHidden();
    void deletedByTheDrag();

    void popup();
    void withoutPopup();
    void popupEndsFirst();
    void popupBesideOtherStyles();
    void deletedWhileHeard_data();
    void deletedWhileHeard();
    void endsWithItsParent();
};

void tst_vccaption::initTestCase() { TestStage::HushPopups(); }

void tst_vccaption::cleanup()
{
    ColorSet::Instance().slotRestoreFactoryColors();
    ColorSet::Instance().Load(0);
    GuiBase::Instance().SetFontFamily(QString());
    GuiBase::Instance().GetTimeZone()->Select(0L, nullptr);
}

void tst_vccaption::styleBits()
{
    QCOMPARE(unsigned(VCCaption::StyleToolBar), 1U);
    QCOMPARE(unsigned(VCCaption::StyleStopButton), 2U);
    QCOMPARE(unsigned(VCCaption::StyleKeepOnTop), 4U);
    QCOMPARE(unsigned(VCCaption::StyleFullButton), 8U);
    QCOMPARE(unsigned(VCCaption::StyleTimeZonePopup), 16U);
    QCOMPARE(unsigned(VCCaption::StyleDatastream), 32U);
}

void tst_vccaption::arguments()
{
    QWidget parent;
    CaptionProbe const bar(&parent, "bar", 34, 22, 9);
    QVERIFY(bar.parentWidget() == &parent);
    QCOMPARE(bar.objectName(), QStringLiteral("bar"));
    QCOMPARE(bar.m_Flags, 34U);
    QCOMPARE(bar.m_Height, 22);
    QCOMPARE(bar.m_FontSize, 9);
    QCOMPARE(bar.height(), 22);
    CaptionProbe const plain;
    QVERIFY(!plain.parentWidget());
    QCOMPARE(plain.objectName(), QString());
    QCOMPARE(plain.m_Flags, 0U);
    QCOMPARE(plain.m_Height, 10);
    QCOMPARE(plain.m_FontSize, 7);
}

void tst_vccaption::defaults()
{
    CaptionProbe const bar;
    QVERIFY(!bar.m_HasFocus && !bar.isFocussed());
    QVERIFY(!bar.m_pToolBar && !bar.m_pExitAction && !bar.m_pStopButton && !bar.m_pOnTopButton);
    QVERIFY(!bar.m_pDatastreamButton && !bar.m_pPixmap);
    QVERIFY(bar.m_pSpace && bar.m_pLayout);
    QCOMPARE(bar.m_LeftWidth, -1);
    QCOMPARE(bar.m_RightWidth, -1);
    QCOMPARE(bar.m_CenterWidth, -1);
    QVERIFY(bar.m_TimeWidth > 0);
    QCOMPARE(bar.m_RightOffsetWidth, 0);
    QVERIFY(!bar.m_pLeftValue.Get() && !bar.m_pRightValue.Get() && !bar.m_pCenterValue.Get());
    for (QString const & text :
         { bar.m_Left, bar.m_LeftOld, bar.m_Right, bar.m_RightOld, bar.m_Center, bar.m_CenterOld })
        QVERIFY(text.isEmpty());
    QVERIFY(!bar.m_pTimeZone.Get() && !bar.m_pDateTime && !bar.m_pWheelConsumer);
    QCOMPARE(bar.m_TimeStart, -1.0);
    QCOMPARE(bar.m_TimeStop, -1.0);
    QCOMPARE(bar.m_MoveState, 0);
    QCOMPARE(bar.m_MovePos, QPoint(0, 0));
    QVERIFY(bar.m_Running);
}

void tst_vccaption::signalsAndSlots()
{
    QMetaObject const & meta = VCCaption::staticMetaObject;
    QStringList told;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        QMetaMethod const method = meta.method(i);
        told << QLatin1String(method.methodType() == QMetaMethod::Signal ? "signal " : "slot ") +
                    QString::fromLatin1(method.methodSignature());
    }
    QCOMPARE(told,
             (QStringList{ QStringLiteral("signal ButtonClick()"), QStringLiteral("signal OnTopButtonClick()"),
                           QStringLiteral("signal CaptionDoubleClick()"),
                           QStringLiteral("signal signalFullButtonClick()"), QStringLiteral("signal FocusSet(bool)"),
                           QStringLiteral("signal FocusSet()"), QStringLiteral("signal Stop()"),
                           QStringLiteral("signal Start()"), QStringLiteral("signal si_stopButtonStateChanged(bool)"),
                           QStringLiteral("signal DatastreamButtonToggled(bool)"),
                           QStringLiteral("slot slotTopButtonClick()"), QStringLiteral("slot slotRunning(bool)"),
                           QStringLiteral("slot slotStopped()"), QStringLiteral("slot slotStarted()"),
                           QStringLiteral("slot slotColorsChanged()"), QStringLiteral("slot sl_paused(bool)"),
                           QStringLiteral("slot slotStopButtonClick()") }));
}

void tst_vccaption::virtualSlots()
{
    Derived bar(nullptr, nullptr, VCCaption::StyleKeepOnTop, 28);
    QVERIFY(bar.m_called.isEmpty());
    bar.GetOnTopButton()->click();
    bar.sl_paused(true);
    bar.sl_paused(false);
    GuiBase::Instance().emit_signalColorsChanged();
    bar.VCCaption::slotRunning(false);
    QMetaObject::invokeMethod(&bar, "slotRunning", Q_ARG(bool, true));
    QCOMPARE(bar.m_called,
             (QStringList{ QStringLiteral("top"), QStringLiteral("stopped"), QStringLiteral("started"),
                           QStringLiteral("colors"), QStringLiteral("stopped"), QStringLiteral("running 1") }));
    Derived button(nullptr, nullptr, VCCaption::StyleStopButton);
    button.findChild<QPushButton *>(QStringLiteral("stop"))->click();
    QCOMPARE(button.m_called, QStringList{ QStringLiteral("stopped") });
}

void tst_vccaption::parts()
{
    CaptionProbe bar(nullptr, nullptr, 2, 15);
    QCOMPARE(bar.sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
    QCOMPARE(bar.sizePolicy().verticalPolicy(), QSizePolicy::Fixed);
    QCOMPARE(bar.focusPolicy(), Qt::StrongFocus);
    QVERIFY(bar.layout() == bar.getLayout());
    QCOMPARE(bar.getLayout()->contentsMargins(), QMargins(0, 0, 0, 0));
    QCOMPARE(bar.getLayout()->spacing(), 1);
    QVERIFY(bar.getLayout()->itemAt(0)->widget() == bar.m_pSpace);
    QCOMPARE(bar.getLayout()->stretch(0), 1);
    QCOMPARE(bar.getLayout()->stretch(1), 0);
    QVERIFY(bar.GetWidget() == &bar);
    QVERIFY(bar.GetControlEventFilter());
    bar.ShowAt(200);
    QCOMPARE(bar.m_pSpace->x(), 0);
    QCOMPARE(bar.m_pSpace->width(), 200 - 22 - 1);
}

void tst_vccaption::heights_data()
{
    QTest::addColumn<int>("height");
    QTest::addColumn<int>("expected");
    QTest::newRow("0") << 0 << 0;
    QTest::newRow("1") << 1 << 1;
    QTest::newRow("negative") << -5 << 0;
    QTest::newRow("lowest int") << INT_MIN << 0;
    QTest::newRow("largest widget") << QWIDGETSIZE_MAX << QWIDGETSIZE_MAX - 1;
    QTest::newRow("highest int") << INT_MAX << QWIDGETSIZE_MAX - 1;
}

void tst_vccaption::heights()
{
    QFETCH(int, height);
    QFETCH(int, expected);
    for (unsigned int const style : { 0U, 1U, 2U, 4U, 8U, 63U })
        for (int const fontSize : { INT_MIN, 0, 1, 400 }) {
            CaptionProbe const bar(nullptr, nullptr, style, height, fontSize);
            QCOMPARE(bar.m_Height, height);
            QCOMPARE(bar.minimumHeight(), expected);
            QCOMPARE(bar.maximumHeight(), expected);
        }
}

void tst_vccaption::baseLine()
{
    QString const sizing = QStringLiteral("9999-99-99 99:99:99.999.999  ... 99:99.999.999 [99:99.999.999]");
    for (int const height : { 5, 10, 11, 12, 20, 40 }) {
        CaptionProbe const bar(nullptr, nullptr, 0, height);
        QRect const box = QFontMetrics(bar.m_Font).boundingRect(sizing);
        int const room = box.top() - 1 + (height - box.bottom());
        QCOMPARE(bar.m_BaseLine, room >= 0 ? height - room - 2 : height);
    }
}

// Colours

void tst_vccaption::colors_data()
{
    QTest::addColumn<int>("set");
    for (int set = 0; set < ColorSet::GetSetCount(); ++set)
        QTest::newRow(qPrintable(ColorSet::GetSetName(set))) << set;
}

void tst_vccaption::colors()
{
    QFETCH(int, set);
    QVERIFY(ColorSet::Instance().Load(set));
    CaptionProbe const bar;
    QCOMPARE(bar.m_FocusBrush, QBrush(Color(61)));
    QCOMPARE(bar.m_FocusFramePen, QPen(Color(61)));
    QCOMPARE(bar.m_NoFocusBrush, QBrush(Color(63)));
    QCOMPARE(bar.m_NoFocusFramePen, QPen(Color(63)));
    QCOMPARE(bar.m_FocusTextPen, QPen(Color(62)));
    QCOMPARE(bar.m_NoFocusTextPen, QPen(Color(64)));
    QCOMPARE(bar.m_FocusCenterPen, QPen(Color(65)));
}

void tst_vccaption::font()
{
    CaptionProbe bar(nullptr, nullptr, 0, 20, 11);
    QCOMPARE(bar.m_Font, QFont(GuiBase::Instance().GetFontFamily(), 11));
    GuiBase::Instance().SetFontFamily(QStringLiteral("DejaVu Serif"));
    GuiBase::Instance().emit_signalColorsChanged();
    QCOMPARE(bar.m_Font, QFont(QStringLiteral("DejaVu Serif"), 11));
}

void tst_vccaption::colorsChange()
{
    CaptionProbe bar;
    bar.ShowAt(100);
    QVERIFY(QTest::qWaitForWindowExposed(&bar));
    bar.BuildPixmap();
    QVERIFY(bar.m_pPixmap);
    for (int const number : { 61, 63 }) // a window may take the focus
        ColorSet::Instance()[static_cast<IColorBase::ECOLOR>(number)] = Qt::green;
    int const before = bar.m_paints;
    GuiBase::Instance().emit_signalColorsChanged();
    QVERIFY(!bar.m_pPixmap);
    QCOMPARE(bar.m_NoFocusBrush.color(), QColor(Qt::green));
    QTRY_VERIFY(bar.m_paints > before);
    QCOMPARE(bar.Picture().pixelColor(50, 5), QColor(Qt::green));
}

void tst_vccaption::rightOffset()
{
    CaptionProbe bar;
    bar.ShowAt(200);
    bar.SetCaptionRight(QStringLiteral("right"));
    QImage const before = bar.Picture();
    for (int const width : { 50, INT_MAX, INT_MIN, 7 }) {
        bar.SetRightOffsetWidth(width);
        QCOMPARE(bar.m_RightOffsetWidth, width);
        bar.BuildPixmap();
        QCOMPARE(bar.Picture(), before);
    }
}

// Focus and picture

void tst_vccaption::focus()
{
    CaptionProbe bar;
    bar.ShowAt(100);
    bar.BuildPixmap();
    QCOMPARE(bar.Picture().pixelColor(50, 5), Color(63));
    QSignalSpy set(&bar, &VCCaption::FocusSet);
    SendFocus(bar, true);
    QVERIFY(bar.isFocussed());
    QCOMPARE(set.size(), 1);
    QCOMPARE(set.takeFirst().value(0).toBool(), true);
    QCOMPARE(bar.Picture().pixelColor(50, 5), Color(61));
    QCOMPARE(bar.Picture().pixelColor(0, 0), Color(61));
    QCOMPARE(bar.Picture().pixelColor(99, 9), Color(61));
    SendFocus(bar, false);
    QVERIFY(!bar.isFocussed());
    QCOMPARE(set.size(), 1);
    QCOMPARE(set.takeFirst().value(0).toBool(), false);
    QCOMPARE(bar.Picture().pixelColor(50, 5), Color(63));
    QCOMPARE(bar.Picture().pixelColor(99, 9), Color(63));
}

void tst_vccaption::focusForms()
{
    CaptionProbe bar;
    QSignalSpy with(&bar, SIGNAL(FocusSet(bool)));
    QSignalSpy without(&bar, SIGNAL(FocusSet()));
    SendFocus(bar, true);
    QCOMPARE(with.size(), 1);
    QCOMPARE(without.size(), 1);
}

void tst_vccaption::frame()
{
    CaptionProbe bar;
    bar.ShowAt(40);
    bar.m_NoFocusFramePen = QPen(Qt::red);
    bar.m_NoFocusBrush = QBrush(Qt::blue);
    bar.m_FocusFramePen = QPen(Qt::green);
    bar.m_FocusBrush = QBrush(Qt::white);
    for (bool const on : { false, true }) {
        bar.m_HasFocus = on;
        bar.BuildPixmap();
        QImage const image = bar.Picture();
        for (QPoint const & point :
             { QPoint(0, 0), QPoint(39, 0), QPoint(0, 9), QPoint(39, 9), QPoint(20, 0), QPoint(0, 5) })
            QCOMPARE(image.pixelColor(point), QColor(on ? Qt::green : Qt::red));
        for (QPoint const & point : { QPoint(1, 1), QPoint(38, 8), QPoint(20, 5) })
            QCOMPARE(image.pixelColor(point), QColor(on ? Qt::white : Qt::blue));
    }
}

void tst_vccaption::opaque()
{
    for (int const number : { 61, 63 })
        ColorSet::Instance()[static_cast<IColorBase::ECOLOR>(number)] = QColor(10, 200, 30, 40);
    CaptionProbe bar;
    bar.ShowAt(40);
    for (QColor const & frame : { QColor(10, 200, 30, 40), QColor(0, 0, 0, 0) }) {
        bar.m_NoFocusFramePen = bar.m_FocusFramePen = QPen(frame);
        bar.BuildPixmap();
        QImage const image = bar.Picture();
        for (QPoint const & point : { QPoint(0, 0), QPoint(39, 9), QPoint(20, 5) })
            QCOMPARE(image.pixelColor(point).alpha(), 255); // no earlier text shines through
    }
}

void tst_vccaption::picture()
{
    CaptionProbe bar;
    bar.resize(100, 10);
    bar.BuildPixmap();
    QVERIFY(!bar.m_pPixmap); // not visible
    bar.ShowAt(100);
    bar.BuildPixmap();
    QVERIFY(bar.m_pPixmap);
    QCOMPARE(bar.m_pPixmap->size(), QSize(100, 10));
    bar.hide();
    bar.BuildPixmap();
    QVERIFY(!bar.m_pPixmap);
    bar.show();
    bar.SetCaptionLeft(QStringLiteral("left"));
    QVERIFY(bar.m_pPixmap);
    bar.showMinimized();
    bar.SetCaptionLeft(QStringLiteral("right"));
    QVERIFY(!bar.m_pPixmap);
}

void tst_vccaption::pictureFollowsTheSize()
{
    CaptionProbe bar;
    bar.ShowAt(100);
    bar.BuildPixmap();
    QPixmap const * const before = bar.m_pPixmap.get();
    bar.resize(150, 10);
    QVERIFY(bar.m_pPixmap.get() == before); // until it is painted
    QImage const shown = bar.grab().toImage();
    QCOMPARE(bar.m_pPixmap->size(), QSize(150, 10));
    QCOMPARE(shown.pixelColor(149, 5), Color(63));
    bar.resize(0, 10);
    bar.BuildPixmap();
    QCOMPARE(bar.m_pPixmap->size(), QSize(150, 10)); // without an area nothing happens
}

void tst_vccaption::withoutPicture()
{
    CaptionProbe bar;
    bar.resize(60, 10);
    QImage image(60, 10, QImage::Format_RGB32);
    image.fill(Qt::white);
    bar.render(&image); // hidden
    QVERIFY(!bar.m_pPixmap);
    for (QPoint const & point : { QPoint(0, 0), QPoint(59, 0), QPoint(30, 5), QPoint(59, 9) })
        QCOMPARE(image.pixelColor(point), QColor(Qt::gray));
}

void tst_vccaption::wholeBarIsPainted()
{
    CaptionProbe bar;
    bar.ShowAt(37);
    QImage image(37, 10, QImage::Format_RGB32);
    image.fill(Qt::magenta);
    bar.render(&image);
    for (int y = 0; y < 10; ++y)
        for (int x = 0; x < 37; ++x)
            QCOMPARE(image.pixelColor(x, y), Color(63));
}

// Mouse

void tst_vccaption::doubleClick()
{
    for (unsigned int const style : { 0U, 4U }) {
        CaptionProbe bar(nullptr, nullptr, style, 28);
        bar.ShowAt(300);
        QSignalSpy heard(&bar, &VCCaption::CaptionDoubleClick);
        SendMouse(bar, QEvent::MouseButtonDblClick, bar.mapToGlobal(QPoint(5, 5)));
        QCOMPARE(heard.size(), 1);
        QCOMPARE(bar.m_MoveState, 0);
    }
}

void tst_vccaption::wheel_data()
{
    QTest::addColumn<QPoint>("angle");
    QTest::addColumn<int>("down");
    QTest::newRow("down") << QPoint(0, -120) << 1;
    QTest::newRow("up") << QPoint(0, 120) << 0;
    QTest::newRow("a little down") << QPoint(0, -1) << 1;
    QTest::newRow("not at all") << QPoint(0, 0) << 0;
    QTest::newRow("to the side") << QPoint(-120, 15) << 1;
    QTest::newRow("to the other side") << QPoint(120, -15) << 0;
}

void tst_vccaption::wheel()
{
    QFETCH(QPoint, angle);
    QFETCH(int, down);
    CaptionProbe bar;
    QVERIFY(!SendWheel(bar, angle)); // without a consumer it goes on
    Consumer consumer;
    bar.SetWheelConsumer(&consumer);
    QVERIFY(SendWheel(bar, angle));
    QCOMPARE(consumer.m_down, down);
    QCOMPARE(consumer.m_up, 1 - down);
    Consumer other;
    bar.SetWheelConsumer(&other);
    QVERIFY(SendWheel(bar, angle));
    QCOMPARE(consumer.m_down + consumer.m_up, 1);
    QCOMPARE(other.m_down, down);
    bar.SetWheelConsumer(nullptr);
    QVERIFY(!SendWheel(bar, angle));
    QCOMPARE(other.m_down + other.m_up, 1);
}

void tst_vccaption::wheelConsumerEnds()
{
    CaptionProbe bar;
    auto consumer = std::make_unique<Consumer>();
    bar.SetWheelConsumer(consumer.get());
    QVERIFY(SendWheel(bar, QPoint(0, 120)));
    consumer.reset();
    QVERIFY(!SendWheel(bar, QPoint(0, 120)));
    Consumer next;
    bar.SetWheelConsumer(&next);
    QVERIFY(SendWheel(bar, QPoint(0, -120)));
    QCOMPARE(next.m_down, 1);
}

void tst_vccaption::drag()
{
    QWidget parent;
    parent.setGeometry(100, 100, 300, 100);
    CaptionProbe bar(&parent, nullptr, VCCaption::StyleKeepOnTop, 28);
    parent.show();
    QPoint const start = parent.pos();
    SendMouse(bar, QEvent::MouseMove, QPoint(150, 110)); // not pressed
    QCOMPARE(parent.pos(), start);
    SendMouse(bar, QEvent::MouseButtonPress, QPoint(150, 110));
    QCOMPARE(bar.m_MoveState, 1);
    QCOMPARE(bar.m_MovePos, QPoint(150, 110));
    QCOMPARE(parent.pos(), start);
    SendMouse(bar, QEvent::MouseMove, QPoint(157, 108));
    QCOMPARE(parent.pos(), start + QPoint(7, -2));
    QCOMPARE(bar.m_MovePos, QPoint(157, 108));
    SendMouse(bar, QEvent::MouseMove, QPoint(160, 108)); // by the difference to the last point
    QCOMPARE(parent.pos(), start + QPoint(10, -2));
    SendMouse(bar, QEvent::MouseButtonRelease, QPoint(160, 108));
    QCOMPARE(bar.m_MoveState, 0);
    SendMouse(bar, QEvent::MouseMove, QPoint(200, 200));
    QCOMPARE(parent.pos(), start + QPoint(10, -2));
}

void tst_vccaption::dragOnlyInItsStyle_data()
{
    QTest::addColumn<unsigned int>("style");
    QTest::addColumn<bool>("drags");
    for (unsigned int const style : { 0U, 1U, 2U, 8U, 16U, 32U })
        QTest::newRow(QByteArray::number(style).constData()) << style << false;
    QTest::newRow("4") << 4U << true;
    QTest::newRow("4 with others behind it") << 60U << true;
    QTest::newRow("a lower bit wins") << 6U << false;
}

void tst_vccaption::dragOnlyInItsStyle()
{
    QFETCH(unsigned int, style);
    QWidget parent;
    parent.setGeometry(100, 100, 300, 100);
    CaptionProbe bar(&parent, nullptr, style, 28);
    parent.show();
    QPoint const start = parent.pos();
    SendMouse(bar, QEvent::MouseButtonPress, QPoint(150, 110));
    QTEST(bar.m_MoveState == 1, "drags");
    SendMouse(bar, QEvent::MouseMove, QPoint(151, 110));
    QTEST(parent.pos() == start + QPoint(1, 0), "drags");
    SendMouse(bar, QEvent::MouseButtonRelease, QPoint(151, 110));
    QCOMPARE(bar.m_MoveState, 0);
}

void tst_vccaption::dragWithoutParent()
{
    CaptionProbe bar(nullptr, nullptr, VCCaption::StyleKeepOnTop, 28);
    bar.move(100, 100);
    bar.ShowAt(300);
    QPoint const start = bar.pos();
    SendMouse(bar, QEvent::MouseButtonPress, QPoint(150, 110));
    SendMouse(bar, QEvent::MouseMove, QPoint(160, 120));
    QCOMPARE(bar.m_MoveState, 0);
    QCOMPARE(bar.pos(), start);
    SendMouse(bar, QEvent::MouseButtonRelease, QPoint(160, 120));
}

void tst_vccaption::dragLosesItsParent()
{
    QWidget parent;
    CaptionProbe bar(&parent, nullptr, VCCaption::StyleKeepOnTop, 28);
    SendMouse(bar, QEvent::MouseButtonPress, QPoint(150, 110));
    QCOMPARE(bar.m_MoveState, 1);
    bar.setParent(nullptr);
    QCOMPARE(bar.m_MoveState, 1);
    SendMouse(bar, QEvent::MouseButtonRelease, QPoint(150, 110));
    QCOMPARE(bar.m_MoveState, 0);
    bar.setParent(&parent);
    QPoint const start = parent.pos();
    SendMouse(bar, QEvent::MouseMove, QPoint(160, 110));
    QCOMPARE(parent.pos(), start);
}

void tst_vccaption::dragEndsUnderTheMenu()
{
    QWidget parent;
    parent.setGeometry(100, 100, 300, 100);
    CaptionProbe bar(&parent, nullptr, VCCaption::StyleKeepOnTop | VCCaption::StyleTimeZonePopup, 28);
    parent.show();
    QPoint const start = parent.pos();
    SendMouse(bar, QEvent::MouseButtonPress, QPoint(150, 110), Qt::RightButton);
    QCOMPARE(bar.m_MoveState, 1);
    OpenMenu(bar); // takes the release
    QVERIFY(bar.GetContextMenu()->isVisible());
    QCOMPARE(bar.m_MoveState, 0);
    bar.GetContextMenu()->hide();
    SendMouse(bar, QEvent::MouseMove, QPoint(160, 120));
    QCOMPARE(parent.pos(), start);
}

void tst_vccaption::dragEndsWhenHidden()
{
    QWidget parent;
    parent.setGeometry(100, 100, 300, 100);
    CaptionProbe bar(&parent, nullptr, VCCaption::StyleKeepOnTop, 28);
    parent.show();
    QPoint const start = parent.pos();
    for (QWidget * const hidden : { static_cast<QWidget *>(&bar), &parent }) {
        SendMouse(bar, QEvent::MouseButtonPress, QPoint(150, 110));
        QCOMPARE(bar.m_MoveState, 1);
        hidden->hide();
        QCOMPARE(bar.m_MoveState, 0);
        hidden->show();
        SendMouse(bar, QEvent::MouseMove, QPoint(160, 120));
        QCOMPARE(parent.pos(), start);
    }
}

void tst_vccaption::deletedByTheDrag()
{
    Mover parent;
    parent.setGeometry(100, 100, 300, 100);
    QPointer<CaptionProbe> const bar = new CaptionProbe(&parent, nullptr, VCCaption::StyleKeepOnTop, 28);
    parent.show();
    QPoint const start = parent.pos();
    SendMouse(*bar, QEvent::MouseButtonPress, QPoint(150, 110));
    parent.m_pVictim = bar;
    SendMouse(*bar, QEvent::MouseMove, QPoint(157, 110));
    QVERIFY(!bar);
    QCOMPARE(parent.m_stored, QPoint(157, 110));
    QCOMPARE(parent.pos(), start + QPoint(7, 0));
}

// The menu

void tst_vccaption::popup()
{
    CaptionProbe bar(nullptr, nullptr, VCCaption::StyleTimeZonePopup);
    bar.ShowAt(200);
    auto * const popup = dynamic_cast<VCSelectionPopup *>(bar.GetContextMenu());
    QVERIFY(popup);
    ValueSelection * const zone = GuiBase::Instance().GetTimeZone();
    QVERIFY(popup->GetFirstSelection() == zone);
    QCOMPARE(static_cast<int>(popup->actions().size()), zone->GetItemCount());
    OpenMenu(bar);
    QVERIFY(popup->isVisible());
    bar.SetTimeCaption(1.7e15, 1.8e15);
    popup->slotSignalRouter(popup->actions()[zone->GetItemIndex(7200L)]);
    QCOMPARE(zone->GetCurrentKey(), 7200L);
    QVERIFY(bar.GetCaptionCenter().startsWith(QStringLiteral("2023-11-15 00:13:20")));
    popup->hide();
}

void tst_vccaption::withoutPopup()
{
    CaptionProbe bar(nullptr, nullptr, 47, 28);
    QVERIFY(!bar.GetContextMenu() && !bar.GetContextMenuEnabled());
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(5, 5), QPoint(5, 5));
    event.ignore();
    QCoreApplication::sendEvent(&bar, &event);
    QVERIFY(!event.isAccepted());
}

void tst_vccaption::popupEndsFirst()
{
    CaptionProbe bar(nullptr, nullptr, VCCaption::StyleTimeZonePopup);
    delete bar.GetContextMenu();
    QVERIFY(!bar.GetContextMenu());
    OpenMenu(bar);
}

void tst_vccaption::popupBesideOtherStyles()
{
    for (unsigned int const style : { 17U, 18U, 20U, 24U, 48U, 63U }) {
        CaptionProbe bar(nullptr, nullptr, style, 28);
        auto * const popup = dynamic_cast<VCSelectionPopup *>(bar.GetContextMenu());
        QVERIFY(popup && popup->GetFirstSelection() == GuiBase::Instance().GetTimeZone());
        QVERIFY(bar.GetContextMenuEnabled());
    }
}

// Ends

void tst_vccaption::deletedWhileHeard_data()
{
    QTest::addColumn<int>("what");
    QTest::newRow("focus in") << 0;
    QTest::newRow("focus out") << 1;
    QTest::newRow("double click") << 2;
    QTest::newRow("wheel down") << 3;
    QTest::newRow("wheel up") << 4;
}

void tst_vccaption::deletedWhileHeard()
{
    QFETCH(int, what);
    QPointer<CaptionProbe> bar = new CaptionProbe;
    bar->ShowAt(100);
    auto const end = [bar] { delete bar.data(); };
    Consumer consumer;
    if (what < 2)
        connect(bar.data(), &VCCaption::FocusSet, this, end);
    else if (what == 2)
        connect(bar.data(), &VCCaption::CaptionDoubleClick, this, end);
    consumer.m_pVictim = bar.data();
    bar->SetWheelConsumer(&consumer);
    if (what < 2)
        SendFocus(*bar, what == 0);
    else if (what == 2)
        SendMouse(*bar, QEvent::MouseButtonDblClick, bar->mapToGlobal(QPoint(5, 5)));
    else
        SendWheel(*bar, QPoint(0, what == 3 ? -120 : 120));
    QVERIFY(!bar);
}

void tst_vccaption::endsWithItsParent()
{
    auto parent = std::make_unique<QWidget>();
    QPointer<CaptionProbe> const bar = new CaptionProbe(parent.get(), nullptr, 52, 28);
    bar->SetTimeCaption(1.0, 2.0);
    Consumer consumer;
    bar->SetWheelConsumer(&consumer);
    parent->show();
    SendMouse(*bar, QEvent::MouseButtonPress, QPoint(1, 1));
    parent.reset();
    QVERIFY(!bar);
    GuiBase::Instance().emit_signalColorsChanged();
    GuiBase::Instance().GetTimeZone()->Select(7200L, nullptr);
}

ORIM_TEST_MAIN(tst_vccaption)
#include "tst_vccaption.moc"
