// SPDX-License-Identifier: MIT
#include "colorset.h"
#include "frequencyaxis.h"
#include "guibase.h"
#include "levelaxis.h"
#include "markertools.h"
#include "testmain.h"

#include <QPixmap>
#include <QSignalSpy>
#include <QTimerEvent>

using namespace MarkerTools;

class tst_ScaleAxis : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void ticsStandWhereTheAxisSays_data();
    void ticsStandWhereTheAxisSays();
    void gridPixelsAreTheTics_data();
    void gridPixelsAreTheTics();
    void labelsAreNeitherCutNorTouch_data();
    void labelsAreNeitherCutNorTouch();
    void frequencyUnitSuitsTheRange_data();
    void frequencyUnitSuitsTheRange();
    void labelsShowTheUnit();
    void rangeFollowsItsValues();
    void pictureIsKeptUntilSomethingDiffers();
    void colourChangeRepaints();
    void innerRectIsThePartBesideThePicture();
    void withoutASpanThereIsNoScale();
    void disabledDrawingPaintsNothing();
    void markersAreMarked_data();
    void markersAreMarked();
    void markIsDragged_data();
    void markIsDragged();
    void keysStepAMark();
    void stepsOverMinusOne();
    void unitOfLevelsIsPainted();
    void markFollowsWhileHidden();
    void tinyAxisSurvives_data();
    void tinyAxisSurvives();
};

namespace {

constexpr int First = 70; // px

//! The members that tests look at.
template <class Axis>
struct Open : Axis
{
    Open() : Axis(nullptr) {}

    using Axis::GetTicValue;
    using Axis::m_calcStart;
    using Axis::m_ticCount;
};

struct Frequency : Open<FrequencyAxis>
{
    Frequency(int length, double start, double stop)
    {
        resize(length + First + 90, Thickness());
        SetPictureSpan(First, length);
        SetRange(start, stop);
    }
};

struct Level : Open<LevelAxis>
{
    Level(int length, double start, double stop)
    {
        resize(64, length + First + 2);
        SetPictureSpan(First, length);
        SetRange(start, stop);
    }
};

QImage Rendered(QWidget & widget) { return widget.grab().toImage().convertToFormat(QImage::Format_RGB32); }

QColor Ink() { return ColorSet::Instance()[IColorBase::eColorAxisForeground]; }

QColor Ground() { return ColorSet::Instance()[IColorBase::eColorAxisScale]; }

void Insert(QString const & name, double start)
{
    auto * const value = new ValueNumeric<double>(name);
    value->SetValue(start, nullptr);
    Tree::Instance()->Insert(QStringLiteral("/test"), value);
}

} // namespace

void tst_ScaleAxis::init()
{
    ColorSet::Instance().Load(0);
    GuiBase::Instance().UndoStack()->clear();
}

void tst_ScaleAxis::cleanup()
{
    for (char const * const path : { "/test/start", "/test/stop", "/test/marker" })
        Tree::Instance()->Remove(QLatin1String(path));
}

void tst_ScaleAxis::ticsStandWhereTheAxisSays_data()
{
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("stop");
    QTest::newRow("at zero") << 0.0 << 6000.0;
    QTest::newRow("far from zero") << 868.15e6 << 869.75e6;
    QTest::newRow("through zero") << -0.5 << 0.5;
}

void tst_ScaleAxis::ticsStandWhereTheAxisSays()
{
    QFETCH(double, start);
    QFETCH(double, stop);
    Frequency axis(780, start, stop);
    QImage const image = Rendered(axis);
    int found = 0;
    std::vector<int> wanted;
    for (int tic = 0; tic < axis.m_ticCount; ++tic)
        wanted.push_back(axis.ValueToPixel(axis.GetTicValue(tic)));
    QVERIFY(wanted.size() >= 4);
    // the row of the longest tics, below the shorter ones
    for (int x = First; x < First + 780; ++x) {
        bool const isTic = image.pixelColor(x, 4) == Ink();
        found += isTic ? 1 : 0;
        QCOMPARE(isTic, std::find(wanted.begin(), wanted.end(), x) != wanted.end());
    }
    QCOMPARE(found, static_cast<int>(wanted.size()));
    QCOMPARE(image.pixelColor(First + 3, image.height() - 1), Ground());
}

void tst_ScaleAxis::gridPixelsAreTheTics_data()
{
    QTest::addColumn<int>("length");
    QTest::newRow("short") << 60;
    QTest::newRow("longer") << 333;
    QTest::newRow("long") << 1800;
}

void tst_ScaleAxis::gridPixelsAreTheTics()
{
    QFETCH(int, length);
    Frequency across(length, 868.15e6, 869.75e6);
    std::vector<int> wanted;
    for (int tic = 0; tic < across.m_ticCount; ++tic)
        wanted.push_back(across.ValueToPixel(across.GetTicValue(tic)) - First);
    QCOMPARE(across.GetGridPixels(), wanted);
    Level up(length, -120.0, 0.0);
    wanted.clear();
    for (int tic = up.m_ticCount - 1; tic >= 0; --tic)
        wanted.push_back(up.ValueToPixel(up.GetTicValue(tic)) - First);
    QCOMPARE(up.GetGridPixels(), wanted);
    QCOMPARE(up.GetTicWidth(), 1);
}

void tst_ScaleAxis::labelsAreNeitherCutNorTouch_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("stop");
    for (int const length : { 60, 150, 480, 640, 1120, 1760 }) {
        auto const row = [length](char const * what) { return QStringLiteral("%1 px, %2").arg(length).arg(what); };
        QTest::newRow(qPrintable(row("wide"))) << length << 868.15e6 << 869.75e6;
        QTest::newRow(qPrintable(row("narrow"))) << length << 1090e6 << 1090e6 + 150.0;
        QTest::newRow(qPrintable(row("from zero"))) << length << 0.0 << 6000.0;
        QTest::newRow(qPrintable(row("levels"))) << length << -120.0 << 0.0;
        QTest::newRow(qPrintable(row("one decibel"))) << length << -100.7 << -99.7;
    }
}

void tst_ScaleAxis::labelsAreNeitherCutNorTouch()
{
    QFETCH(int, length);
    QFETCH(double, start);
    QFETCH(double, stop);
    Frequency across(length, start, stop);
    Level up(length, start, stop);
    for (ScaleAxis * const axis : { static_cast<ScaleAxis *>(&across), static_cast<ScaleAxis *>(&up) }) {
        std::vector<QRect> const labels = axis->GetLabelRects();
        if (length >= 150 && (axis == &across || stop <= 0.0))
            QVERIFY2(labels.size() >= 2, qPrintable(QString::number(labels.size())));
        for (std::size_t i = 0; i < labels.size(); ++i) {
            bool const isUnitAbove = axis == &up && i + 1 == labels.size();
            QVERIFY(isUnitAbove ? QRect(0, 0, up.width(), First).contains(labels[i])
                                : axis->innerRect().contains(labels[i]));
            for (std::size_t other = 0; other < i; ++other)
                QVERIFY(!labels[i].intersects(labels[other]));
        }
        // what is inked beside the tics is inked within the labels
        QImage const image = Rendered(*axis);
        int outside = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                bool const beside = axis == &across ? y >= 6 : x < image.width() - 6;
                bool const isIn = std::any_of(labels.begin(), labels.end(),
                                              [x, y](QRect const & label) { return label.contains(x, y); });
                outside += beside && !isIn && image.pixelColor(x, y) != Ground() ? 1 : 0;
            }
        }
        QCOMPARE(outside, 0);
    }
}

void tst_ScaleAxis::frequencyUnitSuitsTheRange_data()
{
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("stop");
    QTest::addColumn<QString>("unit");
    QTest::addColumn<double>("factor");
    QTest::newRow("MHz") << 868.15e6 << 869.75e6 << "MHz" << 1e-6;
    QTest::newRow("up to 1 MHz") << 0.0 << 1e6 << "MHz" << 1e-6;
    QTest::newRow("kHz") << 0.0 << 6000.0 << "kHz" << 1e-3;
    QTest::newRow("Hz") << 0.0 << 999.0 << "Hz" << 1.0;
    QTest::newRow("by the larger end") << -2e6 << 10.0 << "MHz" << 1e-6;
}

void tst_ScaleAxis::frequencyUnitSuitsTheRange()
{
    QFETCH(double, start);
    QFETCH(double, stop);
    Frequency axis(400, 21.0e3, 22.0e3);
    axis.SetRange(start, stop);
    QTEST(axis.GetPureUnitText(), "unit");
    QTEST(axis.GetDisplayFactor(), "factor");
}

void tst_ScaleAxis::labelsShowTheUnit()
{
    // 800 Hz and 800 MHz have the same digits: the labels of the first range must not stay
    Frequency axis(400, 0.0, 900.0);
    QImage const hertz = Rendered(axis);
    axis.SetRange(0.0, 900.0e6);
    QImage const megahertz = Rendered(axis);
    QCOMPARE(axis.GetPureUnitText(), QStringLiteral("MHz"));
    QVERIFY(hertz != megahertz);
    QVERIFY(hertz.copy(0, 0, First + 200, hertz.height()) == megahertz.copy(0, 0, First + 200, hertz.height()));
    axis.SetRange(0.0, 90.0e3);
    Frequency fresh(400, 0.0, 90.0e3);
    QCOMPARE(Rendered(axis), Rendered(fresh));
    Level level(200, -100.0, 0.0);
    QCOMPARE(level.GetPureUnitText(), QStringLiteral("dBFS"));
}

void tst_ScaleAxis::rangeFollowsItsValues()
{
    Frequency axis(400, 0.0, 1.0);
    Insert(QStringLiteral("start"), 100.0e6);
    Insert(QStringLiteral("stop"), 101.0e6);
    QVERIFY(axis.SetStart_ValuePath(QStringLiteral("/test/start")));
    QVERIFY(axis.SetStop_ValuePath(QStringLiteral("/test/stop")));
    QCOMPARE(axis.GetStart(), 100.0e6);
    QImage const before = Rendered(axis);
    ValueOf(QStringLiteral("stop"))->SetValue(104.0e6, nullptr);
    QCOMPARE(axis.GetStop(), 104.0e6);
    QImage const after = Rendered(axis); // at once, not when the repair is due
    QVERIFY(after != before);
    Frequency fresh(400, 100.0e6, 104.0e6);
    QCOMPARE(after, Rendered(fresh));
}

void tst_ScaleAxis::pictureIsKeptUntilSomethingDiffers()
{
    Frequency axis(400, 100.0e6, 101.0e6);
    QVERIFY(axis.bMustRebuildPixMap());
    axis.show(); // a widget that was never shown is told its size at each grab
    Rendered(axis);
    QVERIFY(!axis.bMustRebuildPixMap());
    QPixmap const * const picture = axis.GetPicture();
    QVERIFY(picture);
    qint64 const key = picture->cacheKey();
    QSignalSpy const painted(&axis, &AxisBase::AxisRepainted);
    Rendered(axis);
    QCOMPARE(painted.count(), 1);
    QCOMPARE(axis.GetPicture()->cacheKey(), key);
    axis.SetStopValue(102.0e6);
    QVERIFY(axis.bMustRebuildPixMap());
    Rendered(axis);
    QVERIFY(axis.GetPicture()->cacheKey() != key);
    axis.SetStartValue(99.0e6);
    QVERIFY(axis.bMustRebuildPixMap());
    Rendered(axis);
    axis.SetPictureSpan(First, 380);
    QVERIFY(axis.bMustRebuildPixMap());
    Rendered(axis);
    axis.resize(axis.width() + 10, axis.height());
    QVERIFY(axis.bMustRebuildPixMap());
}

void tst_ScaleAxis::colourChangeRepaints()
{
    QSet<QRgb> grounds;
    Frequency axis(400, 100.0e6, 101.0e6);
    for (int set = 0; set < ColorSet::GetSetCount(); ++set) {
        ColorSet::Instance().Load(set);
        QImage const image = Rendered(axis);
        QCOMPARE(image.pixelColor(5, image.height() - 2), Ground());
        QCOMPARE(image.pixelColor(First + axis.GetGridPixels().front(), 4), Ink());
        grounds.insert(Ground().rgb());
        Frequency fresh(400, 100.0e6, 101.0e6);
        QCOMPARE(image, Rendered(fresh));
    }
    QCOMPARE(grounds.size(), ColorSet::GetSetCount());
}

void tst_ScaleAxis::innerRectIsThePartBesideThePicture()
{
    Frequency across(400, 0.0, 400.0);
    QCOMPARE(across.innerRect(), QRect(First, 0, 400, across.height()));
    QCOMPARE(across.ValueToPixel(0.0), First);
    QCOMPARE(across.ValueToPixel(400.0), First + 399);
    QCOMPARE(across.PixelToValue(First), 0.0);
    Level up(200, -100.0, 0.0);
    QCOMPARE(up.innerRect(), QRect(0, First, 64, 200));
    QCOMPARE(up.ValueToPixel(0.0), First);
    QCOMPARE(up.ValueToPixel(-100.0), First + 199);
}

void tst_ScaleAxis::withoutASpanThereIsNoScale()
{
    Frequency axis(400, 100.0e6, 101.0e6);
    axis.SetPictureSpan(First, 0);
    QVERIFY(axis.GetGridPixels().empty());
    QImage const image = Rendered(axis);
    for (int x = 1; x < image.width() - 1; ++x)
        QCOMPARE(image.pixelColor(x, 4), Ground());
    axis.SetPictureSpan(First, -20);
    QVERIFY(axis.innerRect().isEmpty());
    QVERIFY(axis.GetGridPixels().empty());
}

void tst_ScaleAxis::disabledDrawingPaintsNothing()
{
    Frequency axis(400, 100.0e6, 101.0e6);
    QSignalSpy const painted(&axis, &AxisBase::AxisRepainted);
    axis.EnableDraw(false);
    Rendered(axis);
    QCOMPARE(painted.count(), 0);
    axis.EnableDraw(true);
    Rendered(axis);
    QCOMPARE(painted.count(), 1);
}

void tst_ScaleAxis::markersAreMarked_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<bool>("marked");
    QTest::newRow("in the middle") << 200.5 << true;
    QTest::newRow("at the start") << 0.0 << true;
    QTest::newRow("at the end") << 400.0 << true;
    QTest::newRow("outside") << 401.0 << false;
}

void tst_ScaleAxis::markersAreMarked()
{
    QFETCH(double, value);
    QFETCH(bool, marked);
    Frequency axis(400, 0.0, 400.0);
    axis.show();
    QColor const ink =
        axis.AddMarker(eYellowX, true, IColorBase::eColorClientSecond, true, eSpecialX, QStringLiteral("M1"))
            ->GetQColor();
    axis.SetMarkerValue(eYellowX, value);
    QImage const image = Rendered(axis);
    int const pixel = axis.ValueToPixel(value);
    QCOMPARE(pixel >= 0, marked);
    bool found = false;
    for (int x = 0; x < image.width(); ++x)
        found = found || (image.pixelColor(x, 4) == ink && (std::abs(x - pixel) <= 4 || !marked));
    QCOMPARE(found, marked);
    QCOMPARE(axis.GetMarker(eYellowX)->GetRulerRect().isValid(), marked);
    // it moves with its value
    axis.SetMarkerValue(eYellowX, 100.0);
    QCOMPARE(Rendered(axis).pixelColor(First + 100, 5), ink);
}

void tst_ScaleAxis::markIsDragged_data()
{
    QTest::addColumn<bool>("level");
    QTest::newRow("along the frequencies") << false;
    QTest::newRow("along the levels") << true;
}

void tst_ScaleAxis::markIsDragged()
{
    QFETCH(bool, level);
    Insert(QStringLiteral("marker"), level ? -40.0 : 100.0);
    Frequency across(400, 0.0, 400.0);
    Level up(200, -100.0, 0.0);
    ScaleAxis & axis = level ? static_cast<ScaleAxis &>(up) : static_cast<ScaleAxis &>(across);
    axis.AddMarker(eYellowX, true, IColorBase::eColorMarker, true, level ? eSpecialY : eSpecialX, QStringLiteral("M1"));
    QVERIFY(axis.SetMarker_ValuePath(eYellowX, QStringLiteral("/test/marker")));
    axis.show();
    Rendered(axis);
    QPoint const from = level ? QPoint(50, First + 80) : QPoint(First + 100, 8);
    QPoint const to = level ? QPoint(50, First + 120) : QPoint(First + 250, 8);
    Move(axis, from, false);
    QCOMPARE(int(axis.cursor().shape()), int(level ? Qt::SizeVerCursor : Qt::SizeHorCursor));
    Drag(axis, from, to);
    double const wanted = level ? -60.0 : 250.0;
    double const pixel = level ? 0.5 : 1.0;
    QVERIFY2(std::abs(ValueOf(QStringLiteral("marker"))->GetValue() - wanted) <= 1.5 * pixel,
             qPrintable(QString::number(ValueOf(QStringLiteral("marker"))->GetValue())));
    QCOMPARE(UndoCount(), 1);
    QCOMPARE(axis.GetCurrentMarker(), int(eYellowX));
}

void tst_ScaleAxis::keysStepAMark()
{
    Insert(QStringLiteral("marker"), 100.5);
    Frequency axis(400, 0.0, 400.0);
    axis.AddMarker(eYellowX, true, IColorBase::eColorMarker, true, eSpecialX, QStringLiteral("M1"));
    axis.SetMarker_ValuePath(eYellowX, QStringLiteral("/test/marker"));
    axis.show();
    Rendered(axis);
    QCOMPARE(int(axis.focusPolicy()), int(Qt::StrongFocus));
    QTest::keyClick(&axis, Qt::Key_Right);
    int const pixel = axis.ValueToPixel(ValueOf(QStringLiteral("marker"))->GetValue());
    QCOMPARE(pixel, First + 101);
    QTest::keyPress(&axis, Qt::Key_Right);
    QFocusEvent out(QEvent::FocusOut);
    QCoreApplication::sendEvent(&axis, &out);
    QCOMPARE(ValueOf(QStringLiteral("marker"))->GetInterimValue(), ValueOf(QStringLiteral("marker"))->GetValue());
    QCOMPARE(axis.ValueToPixel(ValueOf(QStringLiteral("marker"))->GetValue()), First + 102);
}

void tst_ScaleAxis::stepsOverMinusOne()
{
    Insert(QStringLiteral("marker"), -5.0);
    Level up(101, -100.0, 0.0); // a pixel is a decibel
    up.AddMarker(eYellowY, true, IColorBase::eColorMarker, true, eSpecialY, QStringLiteral("L"));
    up.SetMarker_ValuePath(eYellowY, QStringLiteral("/test/marker"));
    up.show();
    Rendered(up);
    for (int step = 0; step < 7; ++step)
        up.MoveMarker2NextPixel(eYellowY, true);
    QCOMPARE(up.ValueToPixel(up.GetMarkerValue(eYellowY)), First);
}

void tst_ScaleAxis::unitOfLevelsIsPainted()
{
    Level up(200, -100.0, 0.0);
    QImage const image = Rendered(up);
    QRect const unit = up.GetLabelRects().back();
    QVERIFY(unit.bottom() < First);
    int inked = 0;
    for (int y = unit.top(); y <= unit.bottom(); ++y) {
        for (int x = unit.left(); x <= unit.right(); ++x)
            inked += image.pixelColor(x, y) != Ground() ? 1 : 0;
    }
    QVERIFY2(inked > 20, qPrintable(QString::number(inked)));
}

void tst_ScaleAxis::markFollowsWhileHidden()
{
    Insert(QStringLiteral("marker"), 100.0);
    QWidget window;
    window.resize(600, 100);
    auto * const axis = new FrequencyAxis(&window);
    axis->resize(600, axis->Thickness());
    axis->SetPictureSpan(First, 400);
    axis->SetRange(0.0, 400.0);
    axis->AddMarker(eYellowX, true, IColorBase::eColorMarker, true, eSpecialX, QStringLiteral("M1"));
    axis->SetMarker_ValuePath(eYellowX, QStringLiteral("/test/marker"));
    window.show();
    Rendered(*axis);
    QCOMPARE(axis->GetMarker(eYellowX)->GetRulerRect().left(), axis->ValueToPixel(100.0));
    axis->hide(); // the window stays
    ValueOf(QStringLiteral("marker"))->SetValue(250.0, nullptr);
    axis->show();
    Rendered(*axis);
    QCOMPARE(axis->GetMarker(eYellowX)->GetRulerRect().left(), axis->ValueToPixel(250.0));
    // a step starts from where the mark stands
    axis->MoveMarker2NextPixel(eYellowX, true);
    QCOMPARE(axis->ValueToPixel(axis->GetMarkerValue(eYellowX)), axis->ValueToPixel(250.0) + 1);
}

void tst_ScaleAxis::tinyAxisSurvives_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("nothing") << QSize(0, 0);
    QTest::newRow("one pixel") << QSize(1, 1);
    QTest::newRow("flat") << QSize(500, 1);
    QTest::newRow("narrow") << QSize(1, 500);
}

void tst_ScaleAxis::tinyAxisSurvives()
{
    QFETCH(QSize, size);
    Frequency axis(400, 100.0e6, 101.0e6);
    QImage const before = Rendered(axis);
    QSize const large = axis.size();
    axis.resize(size);
    axis.SetPictureSpan(0, size.width());
    Rendered(axis);
    axis.SetRange(0.0, 0.0);
    Rendered(axis);
    axis.SetRange(100.0e6, 101.0e6);
    axis.resize(large);
    axis.SetPictureSpan(First, 400);
    QCOMPARE(Rendered(axis), before);
}

ORIM_TEST_MAIN(tst_ScaleAxis)
#include "tst_scaleaxis.moc"
