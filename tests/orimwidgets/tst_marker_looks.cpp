// SPDX-License-Identifier: MIT
#include "marker.h"

#include "errorhandler.h"
#include "testmain.h"
#include "testmarkerlist.h"

#include <QBrush>
#include <QPen>

#include <cfloat>
#include <limits>
#include <memory>

namespace {

//! Shows the shared brush.
class OpenMarker : public Marker
{
public:
    using Marker::m_GrayBrush;
};

//! Traces are asked for while it lives.
class Tracing
{
public:
    Tracing() { ErrorHandler::Instance().SetTraceMask(ErrorHandler::TraceBit); }

    Tracing(Tracing const &) = delete;
    Tracing & operator=(Tracing const &) = delete;

    ~Tracing() { ErrorHandler::Instance().SetTraceMask(0); }
};

QRect Empty() { return { QPoint(0, 0), QPoint(-2, -2) }; }

IColorBase::ECOLOR Color(int number) { return static_cast<IColorBase::ECOLOR>(number); }

} // namespace

class tst_marker_looks : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void text_data();
    void text();
    void textIgnoresItsArgument();
    void textWithoutFlag();
    void textAddsTheWrapValue();
    void textIsBounded_data();
    void textIsBounded();
    void roundedText_data();
    void roundedText();
    void traceText_data();
    void traceText();
    void traceIsSilent();
    void brush();
    void grayBrushIsShared();
    void grayBrushGoesWithAnyMarker_data();
    void grayBrushGoesWithAnyMarker();
    void textPen_data();
    void textPen();
    void setColorMakesAnew();
    void clearColorsKeepsTheColor();
    void copies();
    void copyLeavesOut();
    void assignmentLeavesPensBehind();
    void assignmentToItselfDoesNothing();
};

void tst_marker_looks::text_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("precision");
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("formatted");
    QTest::newRow("no format") << -1 << -1 << 1.5 << QStringLiteral(" 1.500") << false;
    QTest::newRow("no format, longer") << -1 << -1 << -123.45678 << QStringLiteral("-123.457") << false;
    QTest::newRow("width and decimals") << 4 << 2 << 1.5 << QStringLiteral("  1.50") << true;
    QTest::newRow("decimals alone") << -1 << 2 << 1.5 << QStringLiteral("1.50") << true;
    QTest::newRow("no decimals") << 3 << 0 << 1.6 << QStringLiteral("  2") << true;
    QTest::newRow("width alone") << 9 << -1 << 1.5 << QStringLiteral("1.500000") << true;
    QTest::newRow("infinite") << 2 << 1 << qInf() << QStringLiteral("inf") << true;
}

void tst_marker_looks::text()
{
    QFETCH(int, width);
    QFETCH(int, precision);
    QFETCH(double, value);
    QFETCH(QString, text);
    QFETCH(bool, formatted);
    Marker marker;
    marker.SetFormat(width, precision);
    marker.SetValue(value);
    bool flag = !formatted;
    QCOMPARE(marker.GetStringValue(&flag), text);
    QCOMPARE(flag, formatted);
    if (precision != 0) {
        flag = !formatted;
        QCOMPARE(marker.GetStringValue(99.0, &flag), text);
        QCOMPARE(flag, formatted);
    }
}

void tst_marker_looks::textIgnoresItsArgument()
{
    Marker marker;
    marker.SetFormat(3, 0);
    marker.SetValue(-2.5);
    QCOMPARE(marker.GetStringValue(1.5, nullptr), QStringLiteral("-3"));
    marker.SetFormat(3, 1);
    QCOMPARE(marker.GetStringValue(1.5, nullptr), QStringLiteral("-2.5"));
    marker.SetFormat(-1, -1);
    QCOMPARE(marker.GetStringValue(1.5, nullptr), QStringLiteral("-2.500"));
}

void tst_marker_looks::textWithoutFlag()
{
    Marker marker;
    QCOMPARE(marker.GetStringValue(nullptr), QStringLiteral(" 0.000"));
    marker.SetFormat(2, 2);
    QCOMPARE(marker.GetStringValue(nullptr), QStringLiteral("0.00"));
}

void tst_marker_looks::textAddsTheWrapValue()
{
    TestMarkerList list;
    Marker marker;
    marker.SetParent(&list);
    marker.SetValue(-10.25);
    QCOMPARE(marker.GetStringValue(nullptr), QStringLiteral("-10.250"));
    list.SetWrapValue(360.0);
    QCOMPARE(marker.GetStringValue(nullptr), QStringLiteral("349.750"));
    QCOMPARE(marker.GetStringValue(5.0, nullptr), QStringLiteral("349.750"));
    marker.SetFormat(3, 0);
    QCOMPARE(marker.GetStringValue(5.0, nullptr), QStringLiteral("350"));
    QCOMPARE(marker.GetValue(), -10.25);
}

void tst_marker_looks::textIsBounded_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("precision");
    int const highest = std::numeric_limits<int>::max();
    int const lowest = std::numeric_limits<int>::min();
    QTest::newRow("widest") << highest << 2;
    QTest::newRow("most decimals") << 1 << highest;
    QTest::newRow("both highest") << highest << highest;
    QTest::newRow("lowest width") << lowest << 2;
    QTest::newRow("lowest decimals") << 1 << lowest;
    QTest::newRow("both lowest") << lowest << lowest;
}

void tst_marker_looks::textIsBounded()
{
    QFETCH(int, width);
    QFETCH(int, precision);
    for (double const value : { 0.0, -DBL_MAX, DBL_TRUE_MIN }) {
        Marker marker;
        marker.SetFormat(width, precision);
        marker.SetValue(value);
        bool formatted = false;
        QString const text = marker.GetStringValue(&formatted);
        QVERIFY(formatted);
        QVERIFY(text.size() <= 1500);
        QCOMPARE(text.trimmed().toDouble(), value == DBL_TRUE_MIN && precision < 1074 ? 0.0 : value);
    }
}

void tst_marker_looks::roundedText_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("half down") << -2.5 << QStringLiteral("-3");
    QTest::newRow("half up") << 2.5 << QStringLiteral("3");
    QTest::newRow("below half") << 2.4 << QStringLiteral("2");
    QTest::newRow("zero") << 0.0 << QStringLiteral("0");
    QTest::newRow("no blanks") << 7.0 << QStringLiteral("7");
    QTest::newRow("beyond 32 bits") << 3000000000.0 << QStringLiteral("3000000000");
    QTest::newRow("beyond 64 bits") << 1e30 << QStringLiteral("-9223372036854775808");
    QTest::newRow("NaN") << qQNaN() << QStringLiteral("-9223372036854775808");
}

void tst_marker_looks::roundedText()
{
    QFETCH(double, value);
    QFETCH(QString, text);
    for (int const width : { -1, 0, 8 }) {
        Marker marker;
        marker.SetFormat(width, 0);
        marker.SetValue(value);
        bool formatted = false;
        QCOMPARE(marker.GetStringValue(12.0, &formatted), text);
        QVERIFY(formatted);
    }
}

void tst_marker_looks::traceText_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("text");
    QStringList const texts{
        QStringLiteral("eYellowX\t"),     QStringLiteral("eYellowY \t"),      QStringLiteral("eYellowXY \t"),
        QStringLiteral("eWhiteX\t"),      QStringLiteral("eWhiteY\t"),        QStringLiteral("eRangeXStart\t"),
        QStringLiteral("eRangeXStop\t"),  QStringLiteral("eRangeXCenter\t"),  QStringLiteral("eRangeYStart\t"),
        QStringLiteral("eRangeYStop \t"), QStringLiteral("eRangeYCenter \t"), QStringLiteral("eBlueX \t"),
        QStringLiteral("eBlueY \t"),      QStringLiteral("eRedX \t"),         QStringLiteral("eRedY \t"),
        QStringLiteral("eTemp \t"),       QStringLiteral("eTemp+1\t"),        QStringLiteral("eTemp+2\t"),
        QStringLiteral("eTemp+3\t")
    };
    for (int i = 0; i < texts.size(); ++i)
        QTest::addRow("%d", i) << i << texts[i];
    for (int i = 19; i <= 41; i = i == 27 ? 32 : i + 1)
        QTest::addRow("%d has no text", i) << i << QStringLiteral("unknown\t");
    QTest::newRow("28") << 28 << QStringLiteral("eAddYellow\t");
    QTest::newRow("29") << 29 << QStringLiteral("eAddYellow+1\t");
    QTest::newRow("30") << 30 << QStringLiteral("eAddYellow+2\t");
    QTest::newRow("31 bears the text of 30") << 31 << QStringLiteral("eAddYellow+2\t");
    QTest::newRow("42") << 42 << QStringLiteral("eMouseMove\t");
    QTest::newRow("in no list") << -1 << QStringLiteral("unknown\t");
}

void tst_marker_looks::traceText()
{
    QFETCH(int, index);
    QFETCH(QString, text);
    Tracing const tracing;
    TestMarkerList list;
    Marker stranger;
    Marker & marker = index >= 0 ? *list.AddMarker(index) : stranger;
    marker.SetParent(&list);
    marker.SetMarkerName(QStringLiteral("left"));
    marker.SetValue(1.5);
    marker.Set_ValuePath(QStringLiteral("/nowhere"));
    QString const line =
        QStringLiteral("controls/orimwidgets/marker(298): Marker ") + text + QStringLiteral("left\t1.500000\t/nowhere");
    QTest::ignoreMessage(QtInfoMsg, qPrintable(line));
    marker.TraceIndexAndName();
}

void tst_marker_looks::traceIsSilent()
{
    static QStringList * lines = nullptr;
    QStringList heard;
    lines = &heard;
    auto const before =
        qInstallMessageHandler([](QtMsgType, QMessageLogContext const &, QString const & text) { *lines << text; });
    TestMarkerList list;
    Marker & marker = *list.AddMarker(0);
    marker.TraceIndexAndName();
    ErrorHandler::Instance().SetTraceMask(~ErrorHandler::TraceBit);
    marker.TraceIndexAndName();
    int const without = static_cast<int>(heard.size());
    ErrorHandler::Instance().SetTraceMask(ErrorHandler::TraceBit);
    Marker lonely;
    lonely.TraceIndexAndName();
    int const lonelyLines = static_cast<int>(heard.size());
    marker.TraceIndexAndName();
    int const with = static_cast<int>(heard.size());
    ErrorHandler::Instance().SetTraceMask(0);
    qInstallMessageHandler(before);
    QCOMPARE(without, 0);
    QCOMPARE(lonelyLines, 0);
    QCOMPARE(with, 1);
}

void tst_marker_looks::brush()
{
    Marker marker;
    marker.SetColor(Color(90));
    QColor const color = ColorSet::Instance()[Color(90)];
    QCOMPARE(marker.GetQColor(), color);
    QCOMPARE(marker.GetBrush()->color(), color);
    QCOMPARE(marker.GetBrush()->style(), Qt::SolidPattern);
    QCOMPARE(marker.GetPen()->color(), color);
    QCOMPARE(marker.GetBrush(), marker.GetBrush());
    QCOMPARE(marker.GetPen(), marker.GetPen());
    QCOMPARE(marker.GetTextPen(), marker.GetTextPen());
}

void tst_marker_looks::grayBrushIsShared()
{
    QVERIFY(!OpenMarker::m_GrayBrush);
    Marker first;
    Marker second;
    first.setEnabled(false);
    second.setEnabled(false);
    QBrush * const gray = first.GetBrush();
    QCOMPARE(gray, OpenMarker::m_GrayBrush);
    QCOMPARE(second.GetBrush(), gray);
    QCOMPARE(gray->color(), QColor(Qt::gray));
    QCOMPARE(gray->style(), Qt::SolidPattern);
    second.setEnabled(true);
    QVERIFY(first.GetBrush() != second.GetBrush());
    // the pen keeps its colour
    QCOMPARE(first.GetPen()->color(), first.GetQColor());
}

void tst_marker_looks::grayBrushGoesWithAnyMarker_data()
{
    QTest::addColumn<QString>("how");
    QTest::addColumn<bool>("goes");
    QTest::newRow("destroyed") << QStringLiteral("destroyed") << true;
    QTest::newRow("colours cleared") << QStringLiteral("clearColors") << true;
    QTest::newRow("internals cleared") << QStringLiteral("ClearInternals") << true;
    QTest::newRow("another colour") << QStringLiteral("SetColor") << false;
}

void tst_marker_looks::grayBrushGoesWithAnyMarker()
{
    QFETCH(QString, how);
    QFETCH(bool, goes);
    Marker disabled;
    disabled.setEnabled(false);
    QVERIFY(disabled.GetBrush());
    auto other = std::make_unique<Marker>();
    if (how == QLatin1String("destroyed"))
        other.reset();
    else if (how == QLatin1String("clearColors"))
        other->clearColors();
    else if (how == QLatin1String("ClearInternals"))
        other->ClearInternals();
    else
        other->SetColor(Color(90));
    QCOMPARE(OpenMarker::m_GrayBrush == nullptr, goes);
    QCOMPARE(disabled.GetBrush()->color(), QColor(Qt::gray));
    QVERIFY(OpenMarker::m_GrayBrush);
}

void tst_marker_looks::textPen_data()
{
    QTest::addColumn<QColor>("color");
    QTest::addColumn<QColor>("pen");
    QTest::newRow("black") << QColor(0, 0, 0) << QColor(Qt::white);
    QTest::newRow("white") << QColor(255, 255, 255) << QColor(Qt::black);
    QTest::newRow("blue is dark") << QColor(0, 0, 255) << QColor(Qt::white);
    QTest::newRow("red is light") << QColor(255, 0, 0) << QColor(Qt::black);
    QTest::newRow("green is light") << QColor(0, 255, 0) << QColor(Qt::black);
    QTest::newRow("76 of 255 is below 0.3") << QColor(76, 76, 76) << QColor(Qt::white);
    QTest::newRow("77 of 255 is not") << QColor(77, 77, 77) << QColor(Qt::black);
    QTest::newRow("11 of red") << QColor(223, 0, 0) << QColor(Qt::white);
    QTest::newRow("11 of red reach it") << QColor(224, 0, 0) << QColor(Qt::black);
    QTest::newRow("16 of green") << QColor(0, 153, 0) << QColor(Qt::white);
    QTest::newRow("16 of green reach it") << QColor(0, 154, 0) << QColor(Qt::black);
}

void tst_marker_looks::textPen()
{
    QFETCH(QColor, color);
    QFETCH(QColor, pen);
    QColor & entry = ColorSet::Instance()[Color(91)];
    QColor const before = entry;
    entry = color;
    Marker marker;
    marker.SetColor(Color(91));
    QColor const got = marker.GetTextPen()->color();
    entry = before;
    QCOMPARE(got, pen);
}

void tst_marker_looks::setColorMakesAnew()
{
    Marker marker;
    marker.SetColor(Color(90));
    QColor & entry = ColorSet::Instance()[Color(90)];
    QColor const before = entry;
    entry = QColor(1, 2, 3);
    QCOMPARE(marker.GetBrush()->color(), QColor(1, 2, 3));
    QCOMPARE(marker.GetPen()->color(), QColor(1, 2, 3));
    QCOMPARE(marker.GetTextPen()->color(), QColor(Qt::white));
    entry = QColor(250, 250, 250);
    marker.SetColor(Color(90)); // the colour already held: nothing happens
    QCOMPARE(marker.GetBrush()->color(), QColor(1, 2, 3));
    QCOMPARE(marker.GetPen()->color(), QColor(1, 2, 3));
    QCOMPARE(marker.GetTextPen()->color(), QColor(Qt::white));
    marker.SetColor(Color(91));
    marker.SetColor(Color(90));
    QCOMPARE(marker.GetBrush()->color(), QColor(250, 250, 250));
    QCOMPARE(marker.GetPen()->color(), QColor(250, 250, 250));
    QCOMPARE(marker.GetTextPen()->color(), QColor(Qt::black));
    entry = before;
}

void tst_marker_looks::clearColorsKeepsTheColor()
{
    Marker marker;
    marker.SetColor(Color(90));
    QColor & entry = ColorSet::Instance()[Color(90)];
    QColor const before = entry;
    entry = QColor(1, 2, 3);
    marker.GetBrush();
    marker.GetPen();
    marker.GetTextPen();
    entry = QColor(250, 250, 250);
    marker.clearColors();
    QCOMPARE(static_cast<int>(marker.GetColor()), 90);
    QCOMPARE(marker.GetBrush()->color(), QColor(250, 250, 250));
    QCOMPARE(marker.GetPen()->color(), QColor(250, 250, 250));
    QCOMPARE(marker.GetTextPen()->color(), QColor(Qt::black));
    entry = before;
}

void tst_marker_looks::copies()
{
    Marker source;
    source.SetFactor(2.0);
    source.SetValue(3.0);
    source.SetFormat(4, 1);
    source.SetMoveable(true);
    source.SetShowOffset(true, 8);
    source.SetWrapAround(360);
    source.Set_ValuePath(QStringLiteral("/nowhere"));
    source.UseMovingValue(false);
    source.SetGapId(9);
    source.SetCurrentMarker(true, true);
    source.SetShowResult(true);
    source.SetFillBelow(true);
    Marker assigned;
    assigned = source;
    Marker constructed(source);
    for (Marker * copy : { &assigned, &constructed }) {
        QCOMPARE(copy->GetFactor(), 2.0);
        QCOMPARE(copy->GetValue(), 6.0);
        int width = 0;
        int precision = 0;
        copy->GetFormat(width, precision);
        QCOMPARE(width, 4);
        QCOMPARE(precision, 1);
        QVERIFY(copy->GetMoveable());
        int pixels = 0;
        QVERIFY(copy->GetShowOffset(pixels));
        QCOMPARE(pixels, 8);
        QCOMPARE(copy->GetWrapAround(), 360);
        QCOMPARE(copy->GetValuePath(), QStringLiteral("/nowhere"));
        QCOMPARE(copy->GetGapId(), 9);
        QVERIFY(copy->GetCurrentMarker());
        QVERIFY(copy->GetShowResultFlag());
        QVERIFY(copy->GetFillBelow());
        QVERIFY(copy->GetShowMarkerFlag());
        QCOMPARE(copy->SetMovingValue(5.0), 10.0); // without the moving value
    }
    source.SetShowMarker(false, true);
    source.SetNeverShowMarker(true);
    source.setEnabled(false);
    assigned = source;
    QVERIFY(!assigned.GetShowMarkerFlag());
    QVERIFY(!assigned.isEnabled());
    assigned.SetShowMarker(true, true);
    QVERIFY(!assigned.GetShowMarker()); // never
}

void tst_marker_looks::copyLeavesOut()
{
    TestMarkerList list;
    Marker source;
    source.SetParent(&list);
    source.SetSpecial(eSpecialAlwaysShow);
    source.SetMarkerName(QStringLiteral("source"));
    source.SetOffset(5.0);
    source.SetWrapIntoRange(0, 360);
    source.SetMoving(true, true);
    source.SetRect(QRect(1, 2, 3, 4));
    source.SetRulerRect(QRect(1, 2, 3, 4));
    source.SetColor(Color(90));
    source.SetPixel(5);
    source.SetResultPixel(6);
    source.SetWrapAround(360);

    Marker target;
    target.SetParent(&list);
    target.SetSpecial(eSpecialX);
    target.SetMarkerName(QStringLiteral("target"));
    target.SetOffset(7.0);
    target.SetRect(QRect(5, 6, 7, 8));
    target.SetRulerRect(QRect(5, 6, 7, 8));
    target.SetColor(Color(91));
    target.SetPixel(8);
    target.SetResultPixel(9);
    target.SetWrapIntoRange(0, 100);
    target.SetMoving(true, true);
    int const timer = target.GetTimerID();
    source.SetMoving(false, true);
    target = source;
    QCOMPARE(target.GetSpecial(), unsigned(eSpecialX));
    QCOMPARE(target.GetMarkerName(), QStringLiteral("target"));
    QCOMPARE(target.GetOffset(), 7.0);
    QVERIFY(target.IsMoving());
    QCOMPARE(target.GetTimerID(), timer);
    QCOMPARE(target.GetRect(), Empty());
    QCOMPARE(target.GetRulerRect(), Empty());
    QCOMPARE(static_cast<int>(target.GetColor()), 150);
    QCOMPARE(target.GetPixel(), -1);
    QCOMPARE(target.GetResultPixel(), -1);
    QVERIFY(!target.GetParent());
    target.SetOffset(0.0);
    target.SetValue(-20.0);
    target.SetWrapAround(50); // into its own range
    QCOMPARE(target.GetValue(), 30.0);
    target.SetValue(120.0);
    target.SetWrapAround(50);
    QCOMPARE(target.GetValue(), 70.0);

    Marker copy(source);
    QCOMPARE(copy.GetSpecial(), 0U);
    QVERIFY(copy.GetMarkerName().isNull());
    QCOMPARE(copy.GetOffset(), 0.0);
    QCOMPARE(copy.GetTimerID(), -1);
    QCOMPARE(static_cast<int>(copy.GetColor()), 150);
    QVERIFY(!copy.GetParent());
    copy.SetValue(-20.0);
    copy.SetWrapAround(360); // without a wrap range
    QCOMPARE(copy.GetValue(), -20.0);
}

void tst_marker_looks::assignmentLeavesPensBehind()
{
    Marker source;
    Marker target;
    target.SetColor(Color(90));
    QBrush const * const brush = target.GetBrush();
    QPen const * const pen = target.GetPen();
    QPen const * const textPen = target.GetTextPen();
    QColor const color = brush->color();
    target = source;
    QCOMPARE(brush->color(), color);
    QCOMPARE(pen->color(), color);
    QVERIFY(textPen->color().isValid());
    QVERIFY(target.GetBrush() != brush);
    QCOMPARE(target.GetBrush()->color(), ColorSet::Instance()[Color(150)]);
}

void tst_marker_looks::assignmentToItselfDoesNothing()
{
    TestMarkerList list;
    Marker & marker = *list.AddMarker(0);
    marker.SetColor(Color(90));
    marker.SetPixel(4);
    Marker const & same = marker;
    marker = same;
    QCOMPARE(static_cast<int>(marker.GetColor()), 90);
    QCOMPARE(marker.GetPixel(), 4);
    QCOMPARE(marker.GetParent(), &list);
}

ORIM_TEST_MAIN(tst_marker_looks)
#include "tst_marker_looks.moc"
