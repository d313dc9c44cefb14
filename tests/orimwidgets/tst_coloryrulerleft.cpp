// SPDX-License-Identifier: MIT
#include "coloryrulerleft.h"

#include "colorset.h"
#include "guibase.h"
#include "testmain.h"

#include <QPainter>
#include <QSignalSpy>

#include <climits>
#include <vector>

namespace {

QColor const Ground(10, 20, 30);
QColor const Ink(250, 250, 0);

//! A ruler that shows its state and writes what labels it is given.
class Ruler : public ColorYRulerLeft
{
public:
    using ColorYRulerLeft::ColorYRulerLeft;
    using ColorYRulerLeft::DrawTic;
    using ColorYRulerLeft::m_calcStart;
    using ColorYRulerLeft::m_calcStop;
    using ColorYRulerLeft::m_drawnHeight;
    using ColorYRulerLeft::m_drawnStart;
    using ColorYRulerLeft::m_drawnStop;
    using ColorYRulerLeft::m_firstTic;
    using ColorYRulerLeft::m_font;
    using ColorYRulerLeft::m_fontPointSize;
    using ColorYRulerLeft::m_labelReserve;
    using ColorYRulerLeft::m_pPixmap;
    using ColorYRulerLeft::m_pPixmap2;
    using ColorYRulerLeft::m_start;
    using ColorYRulerLeft::m_stop;
    using ColorYRulerLeft::m_ticCount;
    using ColorYRulerLeft::m_ticLength;
    using ColorYRulerLeft::m_ticOffset;

    QString m_label;
    std::vector<double> m_labelled;

    void BuildFormatString(QString & out, double value, Marker * marker) override
    {
        QVERIFY(!marker);
        m_labelled.push_back(value);
        out = m_label;
    }

    QImage Picture()
    {
        QImage image(size(), QImage::Format_RGB32);
        image.fill(Qt::white);
        render(&image);
        return image;
    }

    //! One tic on a ground of its own.
    QImage Tic(int index, double value)
    {
        QImage image(size(), QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.setFont(m_font);
        DrawTic(painter, index, value);
        return image;
    }
};

//! Whether something was painted on the ground of an area.
bool HasInk(QImage const & image, QRect const & area, QColor const & ground = Qt::white)
{
    for (int y = area.top(); y <= area.bottom(); ++y)
        for (int x = area.left(); x <= area.right(); ++x)
            if (image.pixelColor(x, y) != ground)
                return true;
    return false;
}

} // namespace

class tst_coloryrulerleft : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void construction();
    void ticsStandAtTheRightEdge();
    void ticsOfTheRange();
    void topTenPixelsStayFree();
    void ownValueOfATic();
    void labelTakesTheDisplayFactor();
    void labelStandsLeftOfItsTic();
    void labelIsInTheFontOfTheAxis();
    void labelThatDoesNotFit();
    void labelReserve();
    void noTics_data();
    void noTics();
    void pictureIsKeptAndTold();
    void disabledDrawing();
    void sidesArePartOfTheWidget();
    void sharpOnEveryScreen_data();
    void sharpOnEveryScreen();
    void manyTicsAreBounded();
};

void tst_coloryrulerleft::initTestCase()
{
    ColorSet::Instance()[static_cast<IColorBase::ECOLOR>(66)] = Ground;
    ColorSet::Instance()[static_cast<IColorBase::ECOLOR>(1)] = Ink;
}

void tst_coloryrulerleft::construction()
{
    QWidget parent;
    Ruler const ruler(&parent, "ruler");
    QVERIFY(ruler.parentWidget() == &parent);
    QCOMPARE(ruler.objectName(), QStringLiteral("ruler"));
    QCOMPARE(ruler.GetAxisType(), 36U);
    QCOMPARE(ruler.GetFixedSidePixels(), 20);
    QCOMPARE(ruler.m_ticLength, 5);
    QCOMPARE(ruler.m_fontPointSize, -1);
    QCOMPARE(ruler.m_labelReserve, 0);
}

void tst_coloryrulerleft::ticsStandAtTheRightEdge()
{
    Ruler ruler;
    ruler.resize(60, 201);
    ruler.SetRange(0.0, 100.0);
    QImage const image = ruler.Picture();
    int const y = ruler.ValueToPixel(50.0);
    QCOMPARE(image.pixelColor(52, y), Ground);
    for (int x = 53; x <= 59; ++x) // 59 is right - left
        QCOMPARE(image.pixelColor(x, y), Ink);
    QCOMPARE(image.pixelColor(59, y - 1), Ground);
    QCOMPARE(image.pixelColor(59, y + 1), Ground);
}

void tst_coloryrulerleft::ticsOfTheRange()
{
    Ruler ruler;
    ruler.resize(60, 201);
    ruler.SetRange(0.0, 100.0);
    QImage const image = ruler.Picture();
    QCOMPARE(ruler.m_ticCount, 11);
    std::vector<bool> isTic(201);
    for (int i = 0; i < ruler.m_ticCount; ++i) {
        int const y = ruler.ValueToPixel(i * 10.0);
        if (y >= 10)
            isTic[static_cast<std::size_t>(y)] = true;
    }
    QCOMPARE(static_cast<int>(std::count(isTic.begin(), isTic.end(), true)), 10); // 100 is at the top
    for (int y = 0; y < 201; ++y)
        QCOMPARE(image.pixelColor(58, y), isTic[static_cast<std::size_t>(y)] ? Ink : Ground);
    QCOMPARE(ruler.m_labelled.size(), std::size_t(10));
    QCOMPARE(ruler.m_labelled.front(), 0.0);
    QCOMPARE(ruler.m_labelled.back(), 90.0);
}

void tst_coloryrulerleft::topTenPixelsStayFree()
{
    Ruler ruler;
    ruler.resize(60, 100);
    ruler.SetRange(100.0, 0.0); // a pixel a unit, 0 at the top
    QCOMPARE(ruler.ValueToPixel(9.5), 9);
    QCOMPARE(ruler.ValueToPixel(10.5), 10);
    QVERIFY(!HasInk(ruler.Tic(0, 9.5), ruler.rect()));
    QVERIFY(HasInk(ruler.Tic(0, 10.5), QRect(53, 10, 7, 1)));
    QVERIFY(!HasInk(ruler.Tic(0, 100.5), ruler.rect())); // outside the range
    QCOMPARE(ruler.m_labelled.size(), std::size_t(1));
}

void tst_coloryrulerleft::ownValueOfATic()
{
    Ruler ruler;
    ruler.resize(60, 201);
    ruler.SetRange(0.0, 100.0);
    ruler.Tic(3, 55.0);
    QCOMPARE(ruler.m_labelled.back(), 55.0);
    ruler.Tic(3, 2.2250738585072014e-308);
    QCOMPARE(ruler.m_labelled.back(), 30.0);
    ruler.m_firstTic = 1.0;
    ruler.m_ticOffset = 5.0;
    ruler.Tic(3, 2.2250738585072014e-308);
    QCOMPARE(ruler.m_labelled.back(), 36.0);
    ruler.Tic(3, 0.0);
    QCOMPARE(ruler.m_labelled.back(), 0.0);
    ruler.Tic(3, 3e-308); // any other value is itself
    QCOMPARE(ruler.m_labelled.back(), 3e-308);
}

void tst_coloryrulerleft::labelTakesTheDisplayFactor()
{
    Ruler ruler;
    ruler.resize(60, 201);
    ruler.SetRange(0.0, 100.0);
    ruler.SetDisplayFactor(0.5);
    ruler.Tic(0, 50.0);
    QCOMPARE(ruler.m_labelled.back(), 25.0);
}

void tst_coloryrulerleft::labelStandsLeftOfItsTic()
{
    Ruler ruler;
    ruler.resize(120, 201);
    ruler.SetRange(0.0, 100.0);
    ruler.m_label = QStringLiteral("HH");
    QImage const image = ruler.Tic(0, 50.0);
    int const y = ruler.ValueToPixel(50.0);
    QImage wanted(ruler.size(), QImage::Format_RGB32);
    wanted.fill(Qt::white);
    {
        QPainter painter(&wanted);
        painter.setFont(ruler.m_font);
        painter.setPen(Ink);
        QRect const bounds = painter.boundingRect(QRect(QPoint(0, 0), QPoint(999, 999)), Qt::AlignLeft, ruler.m_label);
        painter.drawLine(113, y, 120, y);
        painter.drawText(119 + bounds.left() - bounds.right() - 5 - 2, y, ruler.m_label); // baseline at the tic
    }
    QCOMPARE(image, wanted);
    QVERIFY(HasInk(image, QRect(60, y - 10, 53, 10)));
    QVERIFY(!HasInk(image, QRect(0, y + 1, 120, 20)));
}

void tst_coloryrulerleft::labelIsInTheFontOfTheAxis()
{
    Ruler ruler;
    ruler.resize(120, 201);
    ruler.SetFixedRange(0.0, 100.0, 1, 1, 0, 50.0, 10.0);
    ruler.m_label = QStringLiteral("HH");
    ruler.m_font.setPixelSize(40);
    int const y = ruler.ValueToPixel(50.0);
    QVERIFY(HasInk(ruler.Picture(), QRect(0, y - 25, 113, 10), Ground));
}

void tst_coloryrulerleft::labelThatDoesNotFit()
{
    Ruler ruler;
    ruler.resize(120, 100);
    ruler.SetRange(100.0, 0.0);
    ruler.m_label = QStringLiteral("HH");
    QImage probe(10, 10, QImage::Format_RGB32);
    QPainter painter(&probe);
    painter.setFont(ruler.m_font);
    int const height =
        painter.boundingRect(QRect(QPoint(0, 0), QPoint(999, 999)), Qt::AlignLeft, ruler.m_label).height();
    QVERIFY(height > 10 && height < 60);
    for (int y = 10; y < height + 5; ++y) {
        QCOMPARE(ruler.ValueToPixel(y + 0.5), y);
        QImage const image = ruler.Tic(0, y + 0.5);
        QVERIFY(HasInk(image, QRect(113, y, 7, 1)));                               // the tic stays
        QCOMPARE(HasInk(image, QRect(0, 0, 113, 100)), y - (height - 1) - 1 >= 0); // the label only where it fits
    }
}

void tst_coloryrulerleft::labelReserve()
{
    Ruler ruler;
    ruler.resize(120, 100);
    ruler.SetRange(100.0, 0.0);
    ruler.m_label = QStringLiteral("HH");
    QVERIFY(HasInk(ruler.Tic(0, 50.0), QRect(0, 0, 113, 100)));
    ruler.m_labelReserve = 50;
    QVERIFY(!HasInk(ruler.Tic(0, 50.0), QRect(0, 0, 113, 100)));
    ruler.BuildPixMap();
    QCOMPARE(ruler.m_labelReserve, 0);
}

void tst_coloryrulerleft::noTics_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<double>("firstTic");
    QTest::addColumn<bool>("tics");
    QTest::newRow("no tic") << 0 << 0.0 << false;
    QTest::newRow("tics of an empty range") << 3 << 100.0 << false;
    QTest::newRow("tics") << 3 << 20.0 << true;
    QTest::newRow("a negative number of tics") << -1 << 0.0 << false;
}

void tst_coloryrulerleft::noTics()
{
    QFETCH(int, count);
    QFETCH(double, firstTic);
    QFETCH(bool, tics);
    Ruler ruler;
    ruler.resize(60, 201);
    ruler.SetFixedRange(0.0, 100.0, count, 1, 0, firstTic, -10.0);
    QCOMPARE(ruler.m_calcStart, firstTic);
    QImage const image = ruler.Picture();
    QCOMPARE(HasInk(image, ruler.rect(), Ground), tics);
    QCOMPARE(image.pixelColor(5, 100), Ground);
}

void tst_coloryrulerleft::pictureIsKeptAndTold()
{
    Ruler ruler;
    ruler.resize(60, 201);
    ruler.SetRange(0.0, 100.0);
    ruler.m_pPixmap2 = std::make_unique<QPixmap>(1, 1);
    ruler.SetMustRecalcRulers(false);
    QSignalSpy const painted(&ruler, &AxisBase::AxisRepainted);
    connect(&ruler, &AxisBase::AxisRepainted, &ruler,
            [&] { QVERIFY(ruler.m_pPixmap && ruler.m_drawnHeight == 201); }); // it comes last
    ruler.Picture();
    QCOMPARE(painted.count(), 1);
    QVERIFY(ruler.m_pPixmap && !ruler.m_pPixmap2);
    QCOMPARE(ruler.m_pPixmap->size(), QSize(60, 201));
    QCOMPARE(ruler.m_drawnStart, 0.0);
    QCOMPARE(ruler.m_drawnStop, 100.0);
    QCOMPARE(ruler.m_drawnHeight, 201);
    QVERIFY(ruler.GetMustRecalcRulers());
    ruler.m_stop = 200.0; // each paint makes the picture anew
    ruler.Picture();
    QCOMPARE(ruler.m_drawnStop, 200.0);
}

void tst_coloryrulerleft::disabledDrawing()
{
    Ruler ruler;
    ruler.resize(60, 201);
    ruler.SetRange(0.0, 100.0);
    ruler.EnableDraw(false);
    QSignalSpy const painted(&ruler, &AxisBase::AxisRepainted);
    QImage const image = ruler.Picture();
    QCOMPARE(painted.count(), 0);
    QVERIFY(!ruler.m_pPixmap);
    QVERIFY(!HasInk(image, ruler.rect(), Ground)); // the ground is Qt's
}

void tst_coloryrulerleft::sidesArePartOfTheWidget()
{
    Ruler ruler;
    ruler.resize(60, 201);
    ruler.SetPixOffset(10, 20);
    ruler.SetRange(0.0, 100.0);
    QImage const image = ruler.Picture();
    int const y = ruler.ValueToPixel(50.0);
    QCOMPARE(image.pixelColor(22, y), Ground); // the inner width less one is 29
    QCOMPARE(image.pixelColor(23, y), Ink);
    QCOMPARE(image.pixelColor(30, y), Ink);
    QCOMPARE(image.pixelColor(31, y), Ground);
}

void tst_coloryrulerleft::sharpOnEveryScreen_data()
{
    QTest::addColumn<double>("ratio");
    QTest::newRow("1") << 1.0;
    QTest::newRow("2") << 2.0;
    QTest::newRow("3") << 3.0;
}

void tst_coloryrulerleft::sharpOnEveryScreen()
{
    QFETCH(double, ratio);
    Ruler ruler;
    ruler.resize(60, 201);
    ruler.SetRange(0.0, 100.0);
    QImage image(ruler.size() * ratio, QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::white);
    ruler.render(&image);
    int const y = ruler.ValueToPixel(50.0);
    QColor const seen = image.pixelColor(static_cast<int>(58 * ratio), static_cast<int>((y + 0.5) * ratio));
    QCOMPARE(seen, Ink);
    QCOMPARE(ruler.m_pPixmap->devicePixelRatio(), ruler.devicePixelRatioF());
}

void tst_coloryrulerleft::manyTicsAreBounded()
{
    Ruler ruler;
    ruler.resize(60, 201);
    ruler.SetFixedRange(0.0, 100.0, INT_MAX, INT_MAX, INT_MAX, 0.0, 1e-7);
    ruler.BuildPixMap();
    QCOMPARE(ruler.m_labelled.size(), std::size_t(1000));

    Ruler high;
    high.resize(60, 4000);
    high.SetFixedRange(0.0, 2000.0, 2001, 4, 0, 0.0, 1.0);
    high.BuildPixMap();
    QVERIFY(high.m_labelled.back() > 1990.0); // all that have pixels
    high.m_labelled.clear();
    high.SetFixedRange(0.0, 100.0, INT_MAX, INT_MAX, INT_MAX, 0.0, 1e-7);
    high.BuildPixMap();
    QCOMPARE(high.m_labelled.size(), std::size_t(4000));
}

ORIM_TEST_MAIN(tst_coloryrulerleft)
#include "tst_coloryrulerleft.moc"
