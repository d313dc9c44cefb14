// SPDX-License-Identifier: MIT
#include "colorset.h"
#include "positionbar.h"
#include "testmain.h"

#include <QLabel>
#include <QSignalSpy>
#include <QSlider>
#include <QStyleOptionSlider>
#include <QToolButton>

#include <cmath>

class tst_PositionBar : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void initTestCase() { TestStage::HushPopups(); }

    void showsThePosition_data();
    void showsThePosition();
    void badPositionIsIgnored_data();
    void badPositionIsIgnored();
    void endlessSourceDisablesTheBar_data();
    void endlessSourceDisablesTheBar();
    void settingDoesNotSeek();
    void clickOnTheBarSeeksThere();
    void dragSeeks();
    void barStaysInTheHand();
    void keysSeek_data();
    void keysSeek();
    void spacePlaysAndPauses();
    void buttonsPlayAndPause();
    void buttonsShowTheState();
    void signsAreSeenOnEveryGround_data();
    void signsAreSeenOnEveryGround();
    void handleIsAPositionCursor_data();
    void handleIsAPositionCursor();
};

namespace {

struct Bar : PositionBar
{
    explicit Bar(double duration)
    {
        resize(600, 32);
        SetDuration(duration);
        show();
        grab();
    }

    QSlider * Slider() const { return findChild<QSlider *>(QStringLiteral("bar")); }

    QToolButton * Button(char const * name) const { return findChild<QToolButton *>(QLatin1String(name)); }

    QString Text(char const * name) const { return findChild<QLabel *>(QLatin1String(name))->text(); }

    QPoint At(double part) const { return { static_cast<int>(part * Slider()->width()), Slider()->height() / 2 }; }
};

double LastSeek(QSignalSpy const & spy) { return spy.isEmpty() ? -1.0 : spy.last().at(0).toDouble(); }

} // namespace

void tst_PositionBar::showsThePosition_data()
{
    QTest::addColumn<double>("duration");
    QTest::addColumn<double>("position");
    QTest::addColumn<double>("part");
    QTest::addColumn<QString>("time");
    QTest::addColumn<QString>("length");
    QTest::newRow("beginning") << 60.0 << 0.0 << 0.0 << "0.0"
                               << "1:00.0 s";
    QTest::newRow("middle") << 60.0 << 30.0 << 0.5 << "30.0"
                            << "1:00.0 s";
    QTest::newRow("end") << 60.0 << 60.0 << 1.0 << "1:00.0"
                         << "1:00.0 s";
    QTest::newRow("short recording in milliseconds") << 0.655 << 0.239 << 0.365 << "0.239"
                                                     << "0.655 s";
    QTest::newRow("beyond the end") << 10.0 << 11.0 << 1.0 << "10.0"
                                    << "10.0 s";
    QTest::newRow("before the beginning") << 10.0 << -1.0 << 0.0 << "0.0"
                                          << "10.0 s";
    QTest::newRow("endless") << 0.0 << 75.0 << 0.0 << "1:15.0"
                             << "live";
}

void tst_PositionBar::showsThePosition()
{
    QFETCH(double, duration);
    QFETCH(double, position);
    QFETCH(double, part);
    Bar bar(duration);
    bar.SetPosition(position);
    QVERIFY(std::abs(bar.Slider()->value() - part * bar.Slider()->maximum()) < 0.01 * bar.Slider()->maximum());
    QTEST(bar.Text("time"), "time");
    QTEST(bar.Text("length"), "length");
}

void tst_PositionBar::badPositionIsIgnored_data()
{
    QTest::addColumn<double>("position");
    QTest::newRow("NaN") << qQNaN();
    QTest::newRow("infinite") << qInf();
    QTest::newRow("minus infinite") << -qInf();
}

void tst_PositionBar::badPositionIsIgnored()
{
    QFETCH(double, position);
    Bar bar(10.0);
    bar.SetPosition(5.0);
    bar.SetPosition(position);
    QCOMPARE(bar.GetPosition(), 5.0);
}

void tst_PositionBar::endlessSourceDisablesTheBar_data()
{
    QTest::addColumn<double>("duration");
    QTest::addColumn<bool>("enabled");
    QTest::newRow("10 s") << 10.0 << true;
    QTest::newRow("0") << 0.0 << false;
    QTest::newRow("below 0") << -1.0 << false;
    QTest::newRow("NaN") << qQNaN() << false;
    QTest::newRow("infinite") << qInf() << false;
}

void tst_PositionBar::endlessSourceDisablesTheBar()
{
    QFETCH(double, duration);
    QFETCH(bool, enabled);
    Bar bar(duration);
    QCOMPARE(bar.Slider()->isEnabled(), enabled);
    QCOMPARE(bar.GetDuration(), enabled ? duration : 0.0);
}

void tst_PositionBar::settingDoesNotSeek()
{
    Bar bar(10.0);
    QSignalSpy const seeks(&bar, &PositionBar::signalSeek);
    bar.SetPosition(5.0);
    bar.SetDuration(20.0);
    bar.SetPlaying(true);
    QCOMPARE(seeks.count(), 0);
}

void tst_PositionBar::clickOnTheBarSeeksThere()
{
    Bar bar(10.0);
    QSignalSpy const seeks(&bar, &PositionBar::signalSeek);
    QTest::mouseClick(bar.Slider(), Qt::LeftButton, {}, bar.At(0.75));
    QCOMPARE(seeks.count(), 1);
    QVERIFY2(std::abs(LastSeek(seeks) - 7.5) < 0.3, qPrintable(QString::number(LastSeek(seeks))));
    QCOMPARE(bar.GetPosition(), LastSeek(seeks));
}

void tst_PositionBar::dragSeeks()
{
    Bar bar(10.0);
    QSignalSpy const seeks(&bar, &PositionBar::signalSeek);
    QTest::mousePress(bar.Slider(), Qt::LeftButton, {}, bar.At(0.2));
    QMouseEvent move(QEvent::MouseMove, bar.At(0.6), bar.Slider()->mapToGlobal(bar.At(0.6)), Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(bar.Slider(), &move);
    QVERIFY2(std::abs(LastSeek(seeks) - 6.0) < 0.3, qPrintable(QString::number(LastSeek(seeks))));
    QTest::mouseRelease(bar.Slider(), Qt::LeftButton, {}, bar.At(0.6));
    QVERIFY(seeks.count() >= 2);
    QVERIFY(std::abs(bar.GetPosition() - 6.0) < 0.3);
}

void tst_PositionBar::barStaysInTheHand()
{
    Bar bar(10.0);
    QTest::mousePress(bar.Slider(), Qt::LeftButton, {}, bar.At(0.5));
    double const held = bar.GetPosition();
    bar.SetPosition(1.0);
    QCOMPARE(bar.GetPosition(), held);
    QTest::mouseRelease(bar.Slider(), Qt::LeftButton, {}, bar.At(0.5));
    bar.SetPosition(1.0);
    QCOMPARE(bar.GetPosition(), 1.0);
}

void tst_PositionBar::keysSeek_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<double>("position");
    QTest::newRow("right: half a percent on") << int(Qt::Key_Right) << 50.5;
    QTest::newRow("left: half a percent back") << int(Qt::Key_Left) << 49.5;
    QTest::newRow("page up: five percent on") << int(Qt::Key_PageUp) << 55.0;
    QTest::newRow("page down: five percent back") << int(Qt::Key_PageDown) << 45.0;
    QTest::newRow("home: the beginning") << int(Qt::Key_Home) << 0.0;
    QTest::newRow("end: the last moment, the end is the beginning") << int(Qt::Key_End) << std::nextafter(100.0, 0.0);
}

void tst_PositionBar::keysSeek()
{
    QFETCH(int, key);
    QFETCH(double, position);
    Bar bar(100.0);
    bar.SetPosition(50.0);
    QSignalSpy const seeks(&bar, &PositionBar::signalSeek);
    QTest::keyClick(bar.Slider(), static_cast<Qt::Key>(key));
    QCOMPARE(seeks.count(), 1);
    QVERIFY2(LastSeek(seeks) == position, qPrintable(QString::number(LastSeek(seeks), 'g', 17)));
}

void tst_PositionBar::spacePlaysAndPauses()
{
    Bar bar(10.0);
    QSignalSpy const plays(&bar, &PositionBar::signalPlay);
    QSignalSpy const pauses(&bar, &PositionBar::signalPause);
    QTest::keyClick(bar.Slider(), Qt::Key_Space);
    QCOMPARE(plays.count(), 1);
    QCOMPARE(pauses.count(), 0);
    bar.SetPlaying(true);
    QTest::keyClick(bar.Slider(), Qt::Key_Space);
    QCOMPARE(plays.count(), 1);
    QCOMPARE(pauses.count(), 1);
}

void tst_PositionBar::buttonsPlayAndPause()
{
    Bar bar(10.0);
    QSignalSpy const plays(&bar, &PositionBar::signalPlay);
    QSignalSpy const pauses(&bar, &PositionBar::signalPause);
    QTest::mouseClick(bar.Button("play"), Qt::LeftButton);
    QCOMPARE(plays.count(), 1);
    QTest::mouseClick(bar.Button("pause"), Qt::LeftButton);
    QCOMPARE(pauses.count(), 1);
    QTest::keyClick(bar.Button("play"), Qt::Key_Space);
    QCOMPARE(plays.count(), 2);
}

void tst_PositionBar::buttonsShowTheState()
{
    Bar bar(10.0);
    bar.SetPlaying(true);
    QVERIFY(bar.IsPlaying());
    QVERIFY(bar.Button("play")->isChecked());
    QVERIFY(!bar.Button("pause")->isChecked());
    // a press asks; the state changes when it is set
    QTest::mouseClick(bar.Button("pause"), Qt::LeftButton);
    QVERIFY(bar.Button("play")->isChecked());
    QVERIFY(!bar.Button("pause")->isChecked());
    bar.SetPlaying(false);
    QVERIFY(!bar.Button("play")->isChecked());
    QVERIFY(bar.Button("pause")->isChecked());
}

void tst_PositionBar::signsAreSeenOnEveryGround_data()
{
    QTest::addColumn<QColor>("text");
    QTest::addColumn<QColor>("ground");
    QTest::newRow("dark on light") << QColor(Qt::black) << QColor(Qt::white);
    QTest::newRow("light on dark") << QColor(Qt::white) << QColor(Qt::black);
}

void tst_PositionBar::signsAreSeenOnEveryGround()
{
    QFETCH(QColor, text);
    QFETCH(QColor, ground);
    Bar bar(10.0);
    QPalette palette = bar.palette();
    palette.setColor(QPalette::ButtonText, text);
    palette.setColor(QPalette::Button, ground);
    palette.setColor(QPalette::Window, ground);
    bar.setPalette(palette);
    for (char const * const name : { "play", "pause" }) {
        QImage const icon = bar.Button(name)->icon().pixmap(16, 16).toImage();
        QCOMPARE(icon.pixelColor(5, 8), text);
        QCOMPARE(icon.pixelColor(0, 0).alpha(), 0);
    }
}

void tst_PositionBar::handleIsAPositionCursor_data()
{
    QTest::addColumn<int>("set");
    for (int set = 0; set < ColorSet::GetSetCount(); ++set)
        QTest::newRow(ColorSet::GetSetName(set).toLatin1().constData()) << set;
}

void tst_PositionBar::handleIsAPositionCursor()
{
    QFETCH(int, set);
    Bar bar(100.0);
    bar.SetPosition(50.0);
    ColorSet::Instance().Load(set);
    QColor const cursor = ColorSet::Instance()[IColorBase::eColorPositionCursor];
    QStyleOptionSlider option;
    option.initFrom(bar.Slider());
    option.maximum = bar.Slider()->maximum();
    option.sliderPosition = bar.Slider()->value();
    option.sliderValue = bar.Slider()->value();
    QPoint const middle = bar.Slider()
                              ->style()
                              ->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, bar.Slider())
                              .center();
    QCOMPARE(bar.Slider()->grab().toImage().pixelColor(middle), cursor);
    bar.SetDuration(0.0); // a bar that is off shows no cursor
    QVERIFY(bar.Slider()->grab().toImage().pixelColor(middle) != cursor);
    ColorSet::Instance().Load(0);
}

ORIM_TEST_MAIN(tst_PositionBar)
#include "tst_positionbar.moc"
