// SPDX-License-Identifier: MIT
#include "vclabel.h"

#include "boundvalue.h"
#include "tree.h"
#include "value.h"
#include "valuebinding.h"
#include "valuenumeric.h"
#include "valueselection.h"

#include "testmain.h"

#include <QFontMetrics>
#include <QHelpEvent>
#include <QToolTip>
#include <QVBoxLayout>

#include <algorithm>
#include <type_traits>

static_assert(std::is_base_of<QLabel, VCLabel>::value);
static_assert(std::is_base_of<IObserver, VCLabel>::value);
static_assert(std::is_base_of<UndoRecordingControlBase, VCLabel>::value);

namespace {

//! What a label of the toolkit asks for that is set up like another one and shows a text. A label asks for twice the
//! automatic indent that it draws with, so that is given by its number: half an x.
QSize PlainLabelRoom(QLabel const & like, QString const & text, int points)
{
    QLabel plain;
    plain.setTextFormat(Qt::PlainText);
    plain.setFrameStyle(like.frameStyle());
    plain.setAlignment(like.alignment());
    plain.setIndent(like.indent());
    plain.setMargin(like.margin());
    plain.setFont(QFont(QStringLiteral("DejaVu Sans"), points));
    if (like.indent() < 0 && like.frameWidth() > 0)
        plain.setIndent(std::max(0, plain.fontMetrics().horizontalAdvance(QLatin1Char('x')) / 2 - like.margin()));
    plain.setText(text);
    return plain.sizeHint();
}

bool PlainLabelFits(QLabel const & like, QString const & text, int points)
{
    QSize const room = PlainLabelRoom(like, text, points);
    return room.width() <= like.width() && room.height() <= like.height();
}

//! The size of what is drawn inside the frame.
QSize Drawn(QLabel & label)
{
    QImage const image = label.grab(label.contentsRect()).toImage();
    QRgb const ground = label.palette().color(QPalette::Window).rgb();
    QRect drawn;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixel(x, y) != ground)
                drawn |= QRect(x, y, 1, 1);
    return drawn.size();
}

} // namespace

class tst_VCLabel : public QObject
{
    Q_OBJECT
private Q_SLOTS:

    void initTestCase() { TestStage::HushPopups(); }

    void cleanup() { Tree::Instance()->RemoveFolder(QStringLiteral("/label")); }

    void construction_data();
    void construction();
    void bindingByPath_data();
    void bindingByPath();
    void showsTheValue_data();
    void showsTheValue();
    void followsTheValue();
    void bindsAnew();
    void badPathLetsGo();
    void valueGoesAway();
    void valueEndsUnheard();
    void otherStatesChangeNothing();
    void strangersAreIgnored();
    void labelDiesFirst();
    void twoBindingsOfOneWidget();
    void plainText();
    void background_data();
    void background();
    void backgroundTakenBack();
    void fontFits_data();
    void fontFits();
    void fontFitsAsTheLabelDraws_data();
    void fontFitsAsTheLabelDraws();
    void partOfAPoint();
    void smallFontStays();
    void fontOnPixels();
    void fontFollowsTheSize();
    void fontWithoutAText();
    void fittedFontLeavesTheLayoutAlone();
    void widerTextMakesTheFontSmaller();
    void boundTextMakesTheFontSmaller();
    void textWithoutRoomEndsInAnEllipsis_data();
    void textWithoutRoomEndsInAnEllipsis();
    void cutTextIsToldByTheToolTip();
};

void tst_VCLabel::construction_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<unsigned int>("flags");
    QTest::newRow("named") << QByteArray("First Ruler") << 0U;
    QTest::newRow("null has no name") << QByteArray() << 0U;
    QTest::newRow("a window without a frame")
        << QByteArray("Tip") << static_cast<unsigned int>(Qt::FramelessWindowHint);
}

void tst_VCLabel::construction()
{
    QFETCH(QByteArray, name);
    QFETCH(unsigned int, flags);
    QWidget parent;
    VCLabel const label(&parent, name.isNull() ? nullptr : name.constData(), flags);
    QCOMPARE(label.objectName(), QString::fromLatin1(name));
    QCOMPARE(label.parentWidget(), &parent);
    QCOMPARE(static_cast<unsigned int>(label.windowFlags()) & flags, flags);
    QCOMPARE(label.text(), QString());
}

void tst_VCLabel::bindingByPath_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("found");
    QTest::newRow("known") << QStringLiteral("/label/value") << true;
    QTest::newRow("unknown") << QStringLiteral("/label/other") << false;
    QTest::newRow("empty") << QString() << false;
}

void tst_VCLabel::bindingByPath()
{
    QFETCH(QString, path);
    QFETCH(bool, found);
    auto * const value = new ValueNumeric<double>(QStringLiteral("value"));
    QVERIFY(Tree::Instance()->Insert(QStringLiteral("/label"), value));
    VCLabel label;
    QCOMPARE(label.SetValue_ValuePath(path), found);
    QCOMPARE(value->HasObserver(&label), found);
    QVERIFY(label.SetValue_ValuePath(QStringLiteral("/label/value"))); // a good path works after a bad one
}

void tst_VCLabel::showsTheValue_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("text");
    QTest::newRow("a number") << 0 << QStringLiteral("12.5");
    QTest::newRow("a whole number") << 1 << QStringLiteral("-3");
    QTest::newRow("a text, markup and all") << 2 << QStringLiteral("<b>AM</b>");
    QTest::newRow("a choice") << 3 << QStringLiteral("UTC");
    QTest::newRow("a switch") << 4 << QStringLiteral("true");
}

void tst_VCLabel::showsTheValue()
{
    QFETCH(int, kind);
    QFETCH(QString, text);
    auto * const real = new ValueNumeric<double>(QStringLiteral("v0"));
    auto * const whole = new ValueNumeric<int>(QStringLiteral("v1"));
    auto * const string = new Value<QString>(QStringLiteral("v2"));
    auto * const choice = new ValueSelection(QStringLiteral("v3"));
    auto * const flag = new Value<bool>(QStringLiteral("v4"));
    for (ValueBase * const value :
         { static_cast<ValueBase *>(real), static_cast<ValueBase *>(whole), static_cast<ValueBase *>(string),
           static_cast<ValueBase *>(choice), static_cast<ValueBase *>(flag) })
        QVERIFY(Tree::Instance()->Insert(QStringLiteral("/label"), value));
    real->SetValue(12.5, nullptr);
    whole->SetValue(-3, nullptr);
    string->SetValue(QStringLiteral("<b>AM</b>"), nullptr);
    choice->AddItem(SelectionItem(QStringLiteral("UTC"), 0.0, 7));
    choice->Select(7L, nullptr);
    flag->SetValue(true, nullptr);
    VCLabel label;
    QVERIFY(label.SetValue_ValuePath(QStringLiteral("/label/v%1").arg(kind)));
    QCOMPARE(label.text(), text);
    QCOMPARE(label.textFormat(), Qt::PlainText);
}

void tst_VCLabel::followsTheValue()
{
    auto * const value = new ValueNumeric<int>(QStringLiteral("value"));
    Tree::Instance()->Insert(QStringLiteral("/label"), value);
    VCLabel label;
    label.SetValue_ValuePath(QStringLiteral("/label/value"));
    value->SetValue(42, nullptr);
    QCOMPARE(label.text(), QStringLiteral("42"));
    label.setText(QStringLiteral("---"));
    QCOMPARE(label.text(), QStringLiteral("---"));
    QCOMPARE(value->GetValue(), 42);
    value->SetInterimValue(50.0, nullptr);
    QCOMPARE(label.text(), QStringLiteral("---"));
    value->SetValue(43, nullptr);
    QCOMPARE(label.text(), QStringLiteral("43"));
}

void tst_VCLabel::bindsAnew()
{
    auto * const first = new ValueNumeric<int>(QStringLiteral("first"));
    auto * const second = new ValueNumeric<int>(QStringLiteral("second"));
    Tree::Instance()->Insert(QStringLiteral("/label"), first);
    Tree::Instance()->Insert(QStringLiteral("/label"), second);
    second->SetValue(2, nullptr);
    VCLabel label;
    label.SetValue_ValuePath(QStringLiteral("/label/first"));
    QVERIFY(label.SetValue_ValuePath(QStringLiteral("/label/second")));
    QVERIFY(!first->HasObserver(&label));
    QCOMPARE(label.text(), QStringLiteral("2"));
    first->SetValue(9, nullptr);
    QCOMPARE(label.text(), QStringLiteral("2"));
}

void tst_VCLabel::badPathLetsGo()
{
    auto * const value = new ValueNumeric<int>(QStringLiteral("value"));
    Tree::Instance()->Insert(QStringLiteral("/label"), value);
    VCLabel label;
    label.SetValue_ValuePath(QStringLiteral("/label/value"));
    QVERIFY(!label.SetValue_ValuePath(QStringLiteral("/nowhere")));
    QCOMPARE(value->GetObserverCount(), 0);
    value->SetValue(5, nullptr);
    QCOMPARE(label.text(), QStringLiteral("0"));
}

void tst_VCLabel::valueGoesAway()
{
    auto * const value = new ValueNumeric<int>(QStringLiteral("value"));
    Tree::Instance()->Insert(QStringLiteral("/label"), value);
    value->SetValue(5, nullptr);
    VCLabel label;
    label.SetValue_ValuePath(QStringLiteral("/label/value"));
    Watcher later;
    bool isHeld = true;
    later.m_then = [&] { isHeld = value->HasObserver(&label); };
    value->AddObserver(&later);
    QVERIFY(Tree::Instance()->Remove(QStringLiteral("/label/value")));
    QVERIFY(!isHeld);                            // let go as soon as it was told
    QCOMPARE(label.text(), QStringLiteral("5")); // the last text stays
    auto * const again = new ValueNumeric<int>(QStringLiteral("value"));
    Tree::Instance()->Insert(QStringLiteral("/label"), again);
    QVERIFY(label.SetValue_ValuePath(QStringLiteral("/label/value")));
    QCOMPARE(label.text(), QStringLiteral("0"));
}

void tst_VCLabel::valueEndsUnheard()
{
    auto * const value = new ValueNumeric<int>(QStringLiteral("value"));
    Tree::Instance()->Insert(QStringLiteral("/label"), value);
    VCLabel label;
    label.SetValue_ValuePath(QStringLiteral("/label/value"));
    value->DeleteObservers();
    Tree::Instance()->Remove(QStringLiteral("/label/value"));
    auto * const again = new ValueNumeric<int>(QStringLiteral("value"));
    again->SetValue(8, nullptr);
    Tree::Instance()->Insert(QStringLiteral("/label"), again);
    QVERIFY(label.SetValue_ValuePath(QStringLiteral("/label/value")));
    QCOMPARE(label.text(), QStringLiteral("8"));
}

void tst_VCLabel::otherStatesChangeNothing()
{
    auto * const value = new ValueNumeric<int>(QStringLiteral("value"));
    Tree::Instance()->Insert(QStringLiteral("/label"), value);
    VCLabel label;
    label.SetValue_ValuePath(QStringLiteral("/label/value"));
    value->SetState(eStateDisabled, nullptr);
    QVERIFY(label.isEnabled());
    QVERIFY(value->HasObserver(&label));
}

void tst_VCLabel::strangersAreIgnored()
{
    ValueNumeric<int> stranger;
    stranger.SetValue(3, nullptr);
    VCLabel label;
    label.Update(&stranger, eValueChanged);
    label.Update(&stranger, eStateChanged);
    QCOMPARE(label.text(), QString());
}

void tst_VCLabel::labelDiesFirst()
{
    auto * const value = new ValueNumeric<int>(QStringLiteral("value"));
    Tree::Instance()->Insert(QStringLiteral("/label"), value);
    {
        VCLabel label;
        label.SetValue_ValuePath(QStringLiteral("/label/value"));
        QCOMPARE(value->GetObserverCount(), 1);
    }
    QCOMPARE(value->GetObserverCount(), 0);
    value->SetValue(1, nullptr);
}

void tst_VCLabel::twoBindingsOfOneWidget()
{
    struct Counter : IObserver
    {
        void Update(Observable *, TChangeCode code) override { changes += code == eValueChanged ? 1 : 0; }

        int changes = 0;
    } counter;

    auto * const value = new ValueNumeric<double>(QStringLiteral("twice"));
    QVERIFY(Tree::Instance()->Insert(QStringLiteral("/label"), value));
    ValueBinding<ValueBase> first(&counter);
    ValueBinding<IValueNumeric> second(&counter);
    QVERIFY(first.BindPath(QStringLiteral("/label/twice")));
    QVERIFY(second.BindPath(QStringLiteral("/label/twice")));
    QVERIFY(second.Get() == value);
    QCOMPARE(counter.changes, 2); // the replays
    value->SetValue(1.0, nullptr);
    QCOMPARE(counter.changes, 3);
    second.Release();
    value->SetValue(2.0, nullptr);
    QCOMPARE(counter.changes, 4); // the first one still observes
    first.Release();
    value->SetValue(3.0, nullptr);
    QCOMPARE(counter.changes, 4);
    QCOMPARE(value->GetObserverCount(), 0);
}

void tst_VCLabel::plainText()
{
    VCLabel label;
    label.setText(QStringLiteral("999.999"));
    QCOMPARE(label.text(), QStringLiteral("999.999"));
    label.setText(QString());
    QCOMPARE(label.text(), QString());
}

void tst_VCLabel::background_data()
{
    QTest::addColumn<QColor>("ground");
    QTest::addColumn<QColor>("text");
    QTest::newRow("dark") << QColor(0x0b, 0x4f, 0x8a) << QColor(Qt::white);
    QTest::newRow("light") << QColor(0x79, 0xc0, 0xff) << QColor(Qt::black);
}

void tst_VCLabel::background()
{
    QFETCH(QColor, ground);
    QFETCH(QColor, text);
    VCLabel label;
    label.resize(40, 20);
    label.SetBackgroundColor(ground);
    QCOMPARE(label.grab().toImage().pixelColor(20, 10), ground);
    QCOMPARE(label.palette().color(QPalette::WindowText), text);
}

void tst_VCLabel::backgroundTakenBack()
{
    QWidget parent;
    QPalette palette;
    palette.setColor(QPalette::Window, Qt::darkBlue);
    palette.setColor(QPalette::WindowText, Qt::cyan);
    parent.setPalette(palette);
    VCLabel label(&parent);
    label.SetBackgroundColor(Qt::yellow);
    label.SetBackgroundColor(QColor());
    QCOMPARE(label.palette().color(QPalette::WindowText), QColor(Qt::cyan));
    QVERIFY(!label.autoFillBackground());
}

void tst_VCLabel::fontFits_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("points");
    QTest::newRow("room enough") << QSize(400, 100) << 12;
    QTest::newRow("narrow") << QSize(46, 100) << -1;
    QTest::newRow("low") << QSize(400, 14) << -1;
    QTest::newRow("no room at all") << QSize(1, 1) << 4;
    QTest::newRow("empty") << QSize(0, 0) << 4;
}

void tst_VCLabel::fontFits()
{
    QFETCH(QSize, size);
    QFETCH(int, points);
    VCLabel label;
    label.setFrameStyle(0x32);
    label.resize(size);
    QFont const font(QStringLiteral("DejaVu Sans"), 12);
    QString const text = QStringLiteral("999.999");
    label.SetFontOnSize(font, text);
    if (points > 0) {
        QCOMPARE(label.font().pointSize(), points);
        return;
    }
    int const fitted = label.font().pointSize();
    QVERIFY(fitted > 4 && fitted < 12);
    QVERIFY(PlainLabelFits(label, text, fitted));
    QVERIFY(!PlainLabelFits(label, text, fitted + 1)); // the largest that fits
}

void tst_VCLabel::fontFitsAsTheLabelDraws_data()
{
    QTest::addColumn<int>("frame");
    QTest::addColumn<int>("alignment");
    QTest::addColumn<int>("indent");
    QTest::addColumn<int>("margin");
    QTest::addColumn<QString>("text");
    QString const line = QStringLiteral("999.999");
    int const left = Qt::AlignLeft | Qt::AlignVCenter;
    QTest::newRow("framed, left") << 0x32 << left << -1 << 0 << line;
    QTest::newRow("framed, right") << 0x32 << static_cast<int>(Qt::AlignRight | Qt::AlignVCenter) << -1 << 0 << line;
    QTest::newRow("framed, centred") << 0x32 << static_cast<int>(Qt::AlignCenter) << -1 << 0 << line;
    QTest::newRow("framed, justified") << 0x32 << static_cast<int>(Qt::AlignJustify | Qt::AlignVCenter) << -1 << 0
                                       << line;
    QTest::newRow("framed, at the top") << 0x32 << static_cast<int>(Qt::AlignHCenter | Qt::AlignTop) << -1 << 0 << line;
    QTest::newRow("framed, at the bottom")
        << 0x32 << static_cast<int>(Qt::AlignRight | Qt::AlignBottom) << -1 << 0 << line;
    QTest::newRow("without a frame") << 0 << left << -1 << 0 << line;
    QTest::newRow("an indent of its own") << 0 << left << 9 << 0 << line;
    QTest::newRow("an indent of none") << 0x32 << left << 0 << 0 << line;
    QTest::newRow("the margin eats the indent") << 0x32 << left << -1 << 2 << line;
    QTest::newRow("a wide margin") << 0x32 << left << -1 << 9 << line;
    QTest::newRow("two lines") << 0x32 << left << -1 << 0 << QStringLiteral("12\n999.999");
}

void tst_VCLabel::fontFitsAsTheLabelDraws()
{
    QFETCH(int, frame);
    QFETCH(int, alignment);
    QFETCH(int, indent);
    QFETCH(int, margin);
    QFETCH(QString, text);
    VCLabel label;
    label.setFrameStyle(frame);
    label.setAlignment(Qt::Alignment(alignment));
    label.setIndent(indent);
    label.setMargin(margin);
    QVector<QSize> sizes;
    for (int width = 20; width < 110; width += 3)
        sizes.append(QSize(width, 70));
    for (int height = 10; height < 60; height += 3)
        sizes.append(QSize(150, height));
    QMap<int, QSize> wholes; // of the text by the size of its font
    for (QSize const & size : sizes) {
        label.resize(size);
        label.SetFontOnSize(QFont(QStringLiteral("DejaVu Sans"), 12), text);
        int const fitted = label.font().pointSize();
        QVERIFY(fitted == 4 || PlainLabelFits(label, text, fitted));
        QVERIFY(fitted == 12 || !PlainLabelFits(label, text, fitted + 1));
        if (!PlainLabelFits(label, text, fitted))
            continue;
        label.setText(text);
        QSize const drawn = Drawn(label);
        QSize & whole = wholes[fitted];
        if (whole.isEmpty()) {
            QLabel roomy(text);
            roomy.setFont(label.font());
            roomy.resize(150, 80);
            whole = Drawn(roomy);
        }
        QSize const lost = whole - drawn; // 1 px may be lost to rounding
        QVERIFY(lost.width() <= 1 && lost.height() <= 1);
    }
    QCOMPARE(label.sizeHint(), PlainLabelRoom(label, text, 12));
}

void tst_VCLabel::partOfAPoint()
{
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPointSizeF(9.5);
    VCLabel label;
    label.resize(400, 100);
    label.SetFontOnSize(font, QStringLiteral("999.999"));
    QCOMPARE(label.font().pointSizeF(), 9.5); // never larger than given
    label.resize(label.sizeHint().width() - 1, 100);
    label.SetFontOnSize(font, QStringLiteral("999.999"));
    double const size = label.font().pointSizeF(); // 9, or 8 where the hinted widths of 9 and 9.5 are the same
    QVERIFY(size == 9.0 || size == 8.0);
}

void tst_VCLabel::smallFontStays()
{
    VCLabel label;
    label.resize(1, 1);
    label.SetFontOnSize(QFont(QStringLiteral("DejaVu Sans"), 3), QStringLiteral("999.999"));
    QCOMPARE(label.font().pointSize(), 3);
}

void tst_VCLabel::fontOnPixels()
{
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(40);
    VCLabel label;
    label.show();
    label.resize(60, 60);
    label.SetFontOnSize(font, QStringLiteral("99:99"));
    QVERIFY(label.font().pixelSize() >= 4 && label.font().pixelSize() < 40);
    label.resize(400, 100);
    QCOMPARE(label.font().pixelSize(), 40);
}

void tst_VCLabel::fontFollowsTheSize()
{
    VCLabel label;
    label.resize(400, 100);
    label.show();
    label.SetFontOnSize(QFont(QStringLiteral("DejaVu Sans"), 12), QStringLiteral("999.999"));
    QCOMPARE(label.font().pointSize(), 12);
    label.resize(40, 100);
    QVERIFY(label.font().pointSize() < 12);
    label.resize(400, 100);
    QCOMPARE(label.font().pointSize(), 12);
}

void tst_VCLabel::fontWithoutAText()
{
    VCLabel label;
    label.resize(1, 1);
    label.SetFontOnSize(QFont(QStringLiteral("DejaVu Sans"), 12), QString());
    QCOMPARE(label.font().pointSize(), 12);
    label.resize(2, 2);
    QCOMPARE(label.font().pointSize(), 12);
}

void tst_VCLabel::fittedFontLeavesTheLayoutAlone()
{
    VCLabel label;
    label.show();
    label.SetFontOnSize(QFont(QStringLiteral("DejaVu Sans"), 12), QStringLiteral("999.999"));
    label.resize(400, 100);
    QSize const wanted = label.sizeHint();
    label.resize(30, 10);
    QVERIFY(label.font().pointSize() < 12);
    QCOMPARE(label.sizeHint(), wanted);
    QCOMPARE(label.minimumSizeHint(), QSize(1, 1));
    QFontMetrics const metrics(QFont(QStringLiteral("DejaVu Sans"), 12));
    QVERIFY(wanted.width() >= metrics.horizontalAdvance(QStringLiteral("999.999")));
    label.resize(wanted);
    QCOMPARE(label.font().pointSize(), 12);
}

void tst_VCLabel::widerTextMakesTheFontSmaller()
{
    VCLabel label;
    label.setFrameStyle(0x32);
    label.setAlignment(Qt::AlignCenter);
    label.SetFontOnSize(QFont(QStringLiteral("DejaVu Sans"), 12), QStringLiteral("99:99"));
    label.show();
    label.resize(label.sizeHint());
    QSize const wanted = label.sizeHint();
    label.setText(QStringLiteral("10:20"));
    QCOMPARE(label.font().pointSize(), 12);
    label.setText(QStringLiteral("25:00:01"));
    int const fitted = label.font().pointSize();
    QVERIFY(fitted > 4 && fitted < 12);
    QVERIFY(PlainLabelFits(label, label.text(), fitted));
    QVERIFY(!PlainLabelFits(label, label.text(), fitted + 1));
    label.setText(QStringLiteral("25:00:02")); // digits are equally wide
    QCOMPARE(label.font().pointSize(), fitted);
    label.setText(QStringLiteral("25:00-02"));
    QVERIFY(PlainLabelFits(label, label.text(), label.font().pointSize()));
    label.setText(QStringLiteral("WW:WW:WW"));
    QVERIFY(label.font().pointSize() < fitted);
    label.setText(QStringLiteral("1"));
    QCOMPARE(label.font().pointSize(), 12);
    QCOMPARE(label.sizeHint(), wanted); // the layout hears nothing of it
    label.setText(QStringLiteral("25:00:01"));
    label.resize(400, 100);
    QCOMPARE(label.font().pointSize(), 12);
    label.resize(wanted);
    QCOMPARE(label.font().pointSize(), fitted);
}

void tst_VCLabel::boundTextMakesTheFontSmaller()
{
    auto * const value = new ValueNumeric<int>(QStringLiteral("value"));
    Tree::Instance()->Insert(QStringLiteral("/label"), value);
    VCLabel label;
    label.SetFontOnSize(QFont(QStringLiteral("DejaVu Sans"), 12), QStringLiteral("99"));
    label.resize(label.sizeHint());
    QVERIFY(label.SetValue_ValuePath(QStringLiteral("/label/value")));
    QCOMPARE(label.font().pointSize(), 12);
    value->SetValue(1234, nullptr);
    QVERIFY(label.font().pointSize() < 12);
}

void tst_VCLabel::textWithoutRoomEndsInAnEllipsis_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("a number") << QString(60, QLatin1Char('8'));
    QTest::newRow("two lines") << QStringLiteral("12\n") + QString(60, QLatin1Char('8'));
}

void tst_VCLabel::textWithoutRoomEndsInAnEllipsis()
{
    QFETCH(QString, text);
    VCLabel label;
    label.setFrameStyle(0x32);
    label.setAlignment(Qt::AlignCenter);
    label.show();
    label.resize(60, 30);
    label.SetFontOnSize(QFont(QStringLiteral("DejaVu Sans"), 12), QStringLiteral("99:99"));
    label.setText(text);
    QCOMPARE(label.text(), text);
    QCOMPARE(label.font().pointSize(), 4);
    QStringList lines = text.split(QLatin1Char('\n'));
    for (QString & line : lines)
        line = label.fontMetrics().elidedText(line, Qt::ElideRight, label.contentsRect().width());
    QVERIFY(lines.last().endsWith(QChar(0x2026)));
    QLabel plain(lines.join(QLatin1Char('\n')));
    plain.setFrameStyle(0x32);
    plain.setAlignment(Qt::AlignCenter);
    plain.setFont(label.font());
    plain.resize(60, 30);
    QVERIFY(label.grab().toImage() == plain.grab().toImage());
    label.resize(400, 30);
    QVERIFY(label.font().pointSize() > 4);
}

void tst_VCLabel::cutTextIsToldByTheToolTip()
{
    auto const asked = [](QWidget & widget) {
        QToolTip::hideText();
        QHelpEvent help(QEvent::ToolTip, QPoint(5, 5), widget.mapToGlobal(QPoint(5, 5)));
        QCoreApplication::sendEvent(&widget, &help);
        QString const told = QToolTip::isVisible() ? QToolTip::text() : QString();
        return told;
    };
    VCLabel label;
    label.resize(40, 20);
    label.show();
    label.SetFontOnSize(QFont(QStringLiteral("DejaVu Sans"), 12), QStringLiteral("99"));
    label.setText(QStringLiteral("12"));
    QCOMPARE(asked(label), QString());
    QString const wide = QStringLiteral("<b>0123456789012345678901234567890123456789");
    label.setText(wide);
    QCOMPARE(asked(label), Qt::convertFromPlainText(wide));
    label.setToolTip(QStringLiteral("its own"));
    QCOMPARE(asked(label), QStringLiteral("its own"));
    label.setToolTip(QString());
    label.resize(600, 20);
    QTRY_VERIFY(!QToolTip::isVisible() || asked(label).isEmpty());
    QCOMPARE(asked(label), QString());
}

ORIM_TEST_MAIN(tst_VCLabel)
#include "tst_vclabel.moc"
