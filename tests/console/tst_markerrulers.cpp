// SPDX-License-Identifier: MIT
#include "markerrulers.h"
#include "markertools.h"
#include "testmain.h"

#include <QFontMetrics>
#include <QPainter>

using namespace MarkerTools;

class tst_MarkerRulers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void shownMarkersHaveLines();
    void markerOutsideHasNone();
    void markersLearnWhereTheyStand_data();
    void markersLearnWhereTheyStand();
    void flagsAreNeitherCutNorCovered_data();
    void flagsAreNeitherCutNorCovered();
    void flagWithoutTextIsNone();
    void currentMarkerComesFirst();
    void movingMarkerIsStrong();
    void linesArePainted_data();
    void linesArePainted();
    void flagsArePainted();
    void resultsHaveShortLines();

private:
    std::unique_ptr<PlainList> m_list;
};

namespace {

constexpr EMarkerID A = eYellowX; // at 50
constexpr EMarkerID B = eWhiteX;  // at 58
constexpr EMarkerID Y = eYellowY; // at 30

//! The picture stands at 10, 10 of a pane of 220 x 120.
MarkerRulers::Frame FrameOf(double ratio)
{
    QRect const picture(10, 10, PlainList::Width, PlainList::Height);
    QRect const device(qRound(picture.left() * ratio), qRound(picture.top() * ratio), qRound(picture.width() * ratio),
                       qRound(picture.height() * ratio));
    return { device, ratio, picture.adjusted(3, 3, -3, -3), QRect(215, 10, 90, PlainList::Height) };
}

MarkerRulers::Source SourceOf(PlainList & list, double ratio)
{
    return { [&list, ratio](bool level, double value) {
                int const pixel = list.ValueToPixel(level ? eMarkerY : eMarkerX, value);
                return pixel < 0 ? -1 : qRound((pixel + 10) * ratio);
            },
             [&list](int index) {
                 return QStringList{ list.GetMarker(index)->GetMarkerName(), QStringLiteral("123") };
             } };
}

QFontMetrics Metrics() { return QFontMetrics(QApplication::font()); }

QImage Painted(MarkerRulers const & rulers, double ratio)
{
    QImage image(qRound(320 * ratio), qRound(120 * ratio), QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::darkBlue);
    QPainter painter(&image);
    painter.setFont(QApplication::font());
    rulers.Paint(painter, Qt::darkGreen, Qt::white);
    painter.end();
    return image;
}

MarkerRulers::Ruler const & RulerOf(MarkerRulers const & rulers, int index)
{
    for (MarkerRulers::Ruler const & ruler : rulers.Get()) {
        if (ruler.index == index)
            return ruler;
    }
    static MarkerRulers::Ruler const none{ -1, false, -1, QRect(), {}, {}, {}, false };
    return none;
}

} // namespace

void tst_MarkerRulers::init()
{
    m_list = std::make_unique<PlainList>();
    m_list->Add(A, eSpecialX, QStringLiteral("a"), 50.0);
    m_list->Add(B, eSpecialX, QStringLiteral("b"), 58.0);
    m_list->Add(Y, eSpecialY, QStringLiteral("y"), 30.0);
    m_list->show();
    for (int const index : { int(A), int(B), int(Y) })
        m_list->GetMarker(index)->SetMoving(false, true);
}

void tst_MarkerRulers::cleanup()
{
    m_list.reset();
    for (char const * const path : { "/test/a", "/test/b", "/test/y" })
        Tree::Instance()->Remove(QLatin1String(path));
}

void tst_MarkerRulers::shownMarkersHaveLines()
{
    MarkerRulers rulers;
    rulers.Lay(*m_list, FrameOf(1.0), Metrics(), SourceOf(*m_list, 1.0));
    QCOMPARE(rulers.Get().size(), std::size_t(3));
    QCOMPARE(RulerOf(rulers, A).line, 60);
    QVERIFY(!RulerOf(rulers, A).level);
    QCOMPARE(RulerOf(rulers, Y).line, 40);
    QVERIFY(RulerOf(rulers, Y).level);
    QCOMPARE(RulerOf(rulers, A).color, m_list->GetMarker(A)->GetQColor());
    m_list->SetShowMarker(B, false);
    rulers.Lay(*m_list, FrameOf(1.0), Metrics(), SourceOf(*m_list, 1.0));
    QCOMPARE(rulers.Get().size(), std::size_t(2));
}

void tst_MarkerRulers::markerOutsideHasNone()
{
    MarkerRulers rulers;
    rulers.Lay(*m_list, FrameOf(1.0), Metrics(), SourceOf(*m_list, 1.0));
    m_list->SetMarkerValue(A, 500.0);
    rulers.Lay(*m_list, FrameOf(1.0), Metrics(), SourceOf(*m_list, 1.0));
    QCOMPARE(RulerOf(rulers, A).index, -1);
    // nor can it be taken where it was
    QVERIFY(!m_list->GetMarker(A)->GetRulerRect().isValid());
    QVERIFY(!m_list->GetMarker(A)->GetRect().isValid());
    QCOMPARE(m_list->GetMarker(A)->GetPixel(), -1);
}

void tst_MarkerRulers::markersLearnWhereTheyStand_data()
{
    QTest::addColumn<double>("ratio");
    QTest::newRow("one pixel a pixel") << 1.0;
    QTest::newRow("two") << 2.0;
    QTest::newRow("one and a half") << 1.5;
}

void tst_MarkerRulers::markersLearnWhereTheyStand()
{
    QFETCH(double, ratio);
    MarkerRulers rulers;
    rulers.Lay(*m_list, FrameOf(ratio), Metrics(), SourceOf(*m_list, ratio));
    Marker const * const marker = m_list->GetMarker(A);
    QCOMPARE(marker->GetPixel(), 60);
    QCOMPARE(marker->GetRulerRect(), QRect(60, 10, 1, PlainList::Height));
    QCOMPARE(marker->GetRect(), RulerOf(rulers, A).flag);
    QVERIFY(marker->GetRect().isValid());
    QCOMPARE(m_list->GetMarker(Y)->GetRulerRect(), QRect(10, 40, PlainList::Width, 1));
}

void tst_MarkerRulers::flagsAreNeitherCutNorCovered_data()
{
    QTest::addColumn<double>("a");
    QTest::addColumn<double>("b");
    QTest::addColumn<double>("y");
    QTest::newRow("in the middle") << 100.0 << 101.0 << 50.0;
    QTest::newRow("at the left and at the top") << 0.0 << 1.0 << 0.0;
    QTest::newRow("at the right and at the bottom") << 199.0 << 198.0 << 99.0;
    QTest::newRow("on each other") << 70.0 << 70.0 << 20.0;
}

void tst_MarkerRulers::flagsAreNeitherCutNorCovered()
{
    QFETCH(double, a);
    QFETCH(double, b);
    QFETCH(double, y);
    m_list->SetMarkerValue(A, a);
    m_list->SetMarkerValue(B, b);
    m_list->SetMarkerValue(Y, y);
    MarkerRulers rulers;
    MarkerRulers::Frame const frame = FrameOf(1.0);
    rulers.Lay(*m_list, frame, Metrics(), SourceOf(*m_list, 1.0));
    for (MarkerRulers::Ruler const & ruler : rulers.Get()) {
        QVERIFY(ruler.flag.isValid());
        QVERIFY((ruler.level ? frame.levelFlags : frame.uprightFlags).contains(ruler.flag));
        QVERIFY(ruler.flag.width() > Metrics().horizontalAdvance(QStringLiteral("123")));
        QVERIFY(ruler.flag.height() > 2 * Metrics().height());
        for (MarkerRulers::Ruler const & other : rulers.Get())
            QVERIFY(other.index == ruler.index || !other.flag.intersects(ruler.flag));
    }
}

void tst_MarkerRulers::flagWithoutTextIsNone()
{
    MarkerRulers rulers;
    MarkerRulers::Source source = SourceOf(*m_list, 1.0);
    source.texts = [](int) { return QStringList(); };
    rulers.Lay(*m_list, FrameOf(1.0), Metrics(), source);
    QVERIFY(RulerOf(rulers, A).flag.isNull());
    QVERIFY(!m_list->GetMarker(A)->GetRect().isValid());
    QVERIFY(m_list->GetMarker(A)->GetRulerRect().isValid());
}

void tst_MarkerRulers::currentMarkerComesFirst()
{
    m_list->SetMarkerValue(B, 50.0);
    for (int const index : { int(A), int(B) })
        m_list->GetMarker(index)->SetMoving(false, true);
    m_list->SetCurrentMarker(B, true);
    MarkerRulers rulers;
    rulers.Lay(*m_list, FrameOf(1.0), Metrics(), SourceOf(*m_list, 1.0));
    QVERIFY(RulerOf(rulers, B).strong);
    QVERIFY(!RulerOf(rulers, A).strong);
    // its flag has the better place, right of the line, and it is painted last
    QVERIFY(RulerOf(rulers, B).flag.left() > 60);
    QVERIFY(RulerOf(rulers, A).flag.right() < 60 || RulerOf(rulers, A).flag.top() > RulerOf(rulers, B).flag.bottom());
    QCOMPARE(rulers.Get().back().index, int(B));
}

void tst_MarkerRulers::movingMarkerIsStrong()
{
    m_list->SetMarkerMovingValue(A, 70.0);
    MarkerRulers rulers;
    rulers.Lay(*m_list, FrameOf(1.0), Metrics(), SourceOf(*m_list, 1.0));
    QVERIFY(RulerOf(rulers, A).strong);
    QCOMPARE(RulerOf(rulers, A).line, 80);
    QVERIFY(!RulerOf(rulers, B).strong);
}

void tst_MarkerRulers::linesArePainted_data()
{
    QTest::addColumn<double>("ratio");
    QTest::newRow("one pixel a pixel") << 1.0;
    QTest::newRow("two") << 2.0;
}

void tst_MarkerRulers::linesArePainted()
{
    QFETCH(double, ratio);
    MarkerRulers rulers;
    rulers.Lay(*m_list, FrameOf(ratio), Metrics(), SourceOf(*m_list, ratio));
    QImage const image = Painted(rulers, ratio);
    QColor const ink = m_list->GetMarker(A)->GetQColor();
    int const column = qRound(60 * ratio);
    int const width = qRound(ratio);
    int const row = qRound(100 * ratio); // below the flags
    for (int x = column; x < column + width; ++x)
        QCOMPARE(image.pixelColor(x, row), ink);
    // cased at both sides, and no wider
    for (int const x : { column - 1, column + width }) {
        QVERIFY(image.pixelColor(x, row) != ink);
        QVERIFY(image.pixelColor(x, row) != QColor(Qt::darkBlue));
    }
    QCOMPARE(image.pixelColor(column - width - 1, row), QColor(Qt::darkBlue));
    QCOMPARE(image.pixelColor(column + 2 * width, row), QColor(Qt::darkBlue));
    // from the first to the last row of the picture, and across it
    QCOMPARE(image.pixelColor(column, qRound(110 * ratio) - 1), ink);
    QCOMPARE(image.pixelColor(column, qRound(110 * ratio)), QColor(Qt::darkBlue));
    QCOMPARE(image.pixelColor(qRound(10 * ratio), qRound(40 * ratio)), m_list->GetMarker(Y)->GetQColor());
    QCOMPARE(image.pixelColor(qRound(10 * ratio) - 1, qRound(40 * ratio)), QColor(Qt::darkBlue));
}

void tst_MarkerRulers::flagsArePainted()
{
    m_list->SetCurrentMarker(B, true);
    MarkerRulers rulers;
    rulers.Lay(*m_list, FrameOf(1.0), Metrics(), SourceOf(*m_list, 1.0));
    QImage const image = Painted(rulers, 1.0);
    QRect const plain = RulerOf(rulers, Y).flag;
    QCOMPARE(image.pixelColor(plain.topLeft()), m_list->GetMarker(Y)->GetQColor()); // its border
    QCOMPARE(image.pixelColor(plain.bottomRight()), m_list->GetMarker(Y)->GetQColor());
    QCOMPARE(image.pixelColor(plain.topLeft() + QPoint(1, 1)), QColor(Qt::darkGreen));
    QRect const strong = RulerOf(rulers, B).flag;
    QCOMPARE(image.pixelColor(strong.topLeft() + QPoint(1, 1)), m_list->GetMarker(B)->GetQColor());
    auto const holds = [&image](QRect const & rect, QColor const & color) {
        for (int y = rect.top(); y <= rect.bottom(); ++y) {
            for (int x = rect.left(); x <= rect.right(); ++x) {
                if (image.pixelColor(x, y) == color)
                    return true;
            }
        }
        return false;
    };
    QVERIFY(holds(plain, Qt::white)); // the text
    QVERIFY(holds(strong, m_list->GetMarker(B)->GetTextPen()->color()));
}

void tst_MarkerRulers::resultsHaveShortLines()
{
    using Kind = MarkerRulers::Kind;
    m_list->SetMarkerValue(A, 20.0);
    m_list->SetMarkerValue(B, 120.0);
    m_list->SetCurrentMarker(A, true); // says nothing of a result
    for (Kind const kind : { Kind::eResult, Kind::eSelectedResult }) {
        MarkerRulers::Source source = SourceOf(*m_list, 1.0);
        source.kind = [kind](int index) { return index == Y ? Kind::eMarker : kind; };
        source.texts = [this](int index) {
            return index == A ? QStringList{ m_list->GetMarker(A)->GetMarkerName() } : QStringList();
        };
        MarkerRulers rulers;
        rulers.Lay(*m_list, FrameOf(1.0), Metrics(), source);
        bool const selected = kind == Kind::eSelectedResult;
        QImage const image = Painted(rulers, 1.0);
        for (int const index : { int(A), int(B) }) {
            MarkerRulers::Ruler const & ruler = RulerOf(rulers, index);
            QCOMPARE(ruler.strong, selected);
            QRect const line = m_list->GetMarker(index)->GetRulerRect();
            int const end = selected     ? 109
                            : index == A ? ruler.flag.bottom() // it carries its flag
                                         : 25;
            QCOMPARE(line.top(), 10);
            QCOMPARE(line.bottom(), end);
            QCOMPARE(image.pixelColor(ruler.line, end), ruler.color);
            QVERIFY(image.pixelColor(ruler.line, end + 1) != ruler.color);
        }
        QCOMPARE(RulerOf(rulers, Y).stub, 0);
    }
}

ORIM_TEST_MAIN(tst_MarkerRulers)
#include "tst_markerrulers.moc"
