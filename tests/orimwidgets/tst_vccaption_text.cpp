// SPDX-License-Identifier: MIT
// The three texts: set, bound, measured and drawn.

#include "captionprobe.h"

#include "colorset.h"
#include "guibase.h"
#include "testmain.h"
#include "valuenumeric.h"

#include <QFocusEvent>

#include <memory>

namespace {

struct Drawn
{
    QString text;
    int x;
    bool isCenter = false;
};

//! What the bar must look like, painted plainly.
QImage Expected(CaptionProbe const & bar, QVector<Drawn> const & texts)
{
    ColorSet & colors = ColorSet::Instance();
    bool const focus = bar.isFocussed();
    QPixmap picture(bar.size());
    QPainter painter(&picture);
    painter.fillRect(bar.rect(), colors[focus ? IColorBase::ECOLOR(61) : IColorBase::ECOLOR(63)]);
    painter.setFont(QFont(GuiBase::Instance().GetFontFamily(), bar.m_FontSize));
    for (Drawn const & drawn : texts) {
        int const number = !focus ? 64 : drawn.isCenter ? 65 : 62;
        painter.setPen(colors[static_cast<IColorBase::ECOLOR>(number)]);
        painter.drawText(drawn.x, bar.m_BaseLine, drawn.text);
    }
    painter.end();
    return picture.toImage();
}

QString const Abc = QStringLiteral("abc");
QString const Xyz = QStringLiteral("xyz");
QString const Mid = QStringLiteral("middle");

//! The three operations of each of the texts.
struct Side
{
    void (VCCaption::*set)(QString);
    QString (VCCaption::*get)() const;
    QString (VCCaption::*alias)() const;
    bool (VCCaption::*bind)(QString const &);
};

Side const Sides[] = {
    { &VCCaption::SetCaptionLeft, &VCCaption::GetCaptionLeft, &VCCaption::GetQCaptionLeft,
      &VCCaption::SetCaptionLeft_ValuePath },
    { &VCCaption::SetCaptionRight, &VCCaption::GetCaptionRight, &VCCaption::GetQCaptionRight,
      &VCCaption::SetCaptionRight_ValuePath },
    { &VCCaption::SetCaptionCenter, &VCCaption::GetCaptionCenter, &VCCaption::GetQCaptionCenter,
      &VCCaption::SetCaptionCenter_ValuePath },
};

} // namespace

class tst_vccaption_text : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void initTestCase() { TestStage::HushPopups(); }

    void cleanup();

    void texts_data();
    void texts();
    void binding();
    void bindingRefused();
    void bindingAnew();
    void goingAway();
    void farewell();
    void endsWithoutAWord();
    void strangersAreNotHeard();
    void oneValueForTwoTexts();
    void endsWhileBound();
    void otherCodes();

    void measuresOnce();
    void digitsAreNotMeasured();
    void manyDigitsAreNotMeasured();
    void checkWidth();
    void fontIsMeasuredAnew();

    void drawsThreeTexts();
    void drawsAheadOfTheButton();
    void drawsOneInANarrowBar();
    void centerMeetsNeighbours();
    void centerInFocus();
    void drawsWithoutText();
    void repaints();
    void pictureIsKept();

private:
    void Side_data();
};

void tst_vccaption_text::cleanup()
{
    QStringList const paths = Tree::Instance()->GetPaths(QStringLiteral("/caption"));
    for (QString const & path : paths)
        Tree::Instance()->Remove(path);
}

void tst_vccaption_text::Side_data()
{
    QTest::addColumn<int>("side");
    QTest::newRow("left") << 0;
    QTest::newRow("right") << 1;
    QTest::newRow("center") << 2;
}

void tst_vccaption_text::texts_data() { Side_data(); }

void tst_vccaption_text::texts()
{
    QFETCH(int, side);
    CaptionProbe bar;
    for (Side const & each : Sides)
        QCOMPARE((bar.*each.get)(), QString());
    (bar.*Sides[side].set)(Abc);
    for (Side const & each : Sides) {
        bool const isIt = &each == &Sides[side];
        QCOMPARE((bar.*each.get)(), isIt ? Abc : QString());
        QCOMPARE((bar.*each.alias)(), isIt ? Abc : QString());
    }
}

// Binding

void tst_vccaption_text::binding()
{
    for (Side const & side : Sides) {
        auto * const value = NewText("text", Abc);
        CaptionProbe bar;
        (bar.*side.set)(Xyz);
        QVERIFY((bar.*side.bind)(QStringLiteral("/caption/text")));
        QCOMPARE((bar.*side.get)(), Abc);
        QVERIFY(value->HasObserver(&bar));
        value->SetValue(Mid, nullptr);
        QCOMPARE((bar.*side.get)(), Mid);
        for (Side const & other : Sides)
            QVERIFY(&other == &side || (bar.*other.get)().isEmpty());
        value->SetValue(Abc, &bar); // left out
        QCOMPARE((bar.*side.get)(), Mid);
        cleanup();
    }
}

void tst_vccaption_text::bindingRefused()
{
    NewText("text", Abc);
    Tree::Instance()->Insert(QStringLiteral("/caption"), new ValueNumeric<int>(QStringLiteral("number")));
    for (Side const & side : Sides) {
        CaptionProbe bar;
        (bar.*side.set)(Xyz);
        for (char const * const path : { "", "/caption/none", "/caption/number", "/caption" }) {
            QVERIFY(!(bar.*side.bind)(QLatin1String(path)));
            QCOMPARE((bar.*side.get)(), Xyz);
        }
        QVERIFY((bar.*side.bind)(QStringLiteral("/caption/text"))); // a good one after the bad ones
        QCOMPARE((bar.*side.get)(), Abc);
    }
}

void tst_vccaption_text::bindingAnew()
{
    auto * const first = NewText("first", Abc);
    auto * const second = NewText("second", Xyz);
    for (Side const & side : Sides) {
        CaptionProbe bar;
        QVERIFY((bar.*side.bind)(QStringLiteral("/caption/first")));
        QVERIFY((bar.*side.bind)(QStringLiteral("/caption/second")));
        QVERIFY(!first->HasObserver(&bar) && second->HasObserver(&bar));
        QCOMPARE((bar.*side.get)(), Xyz);
        QVERIFY((bar.*side.bind)(QStringLiteral("/caption/second"))); // the same once more
        QCOMPARE(second->GetObserverCount(), 1);
        QVERIFY(!(bar.*side.bind)(QString()));
        QVERIFY(!second->HasObserver(&bar));
        QCOMPARE((bar.*side.get)(), Xyz);
    }
}

void tst_vccaption_text::goingAway()
{
    for (Side const & side : Sides) {
        NewText("text", Abc);
        CaptionProbe bar;
        QVERIFY((bar.*side.bind)(QStringLiteral("/caption/text")));
        QVERIFY(Tree::Instance()->Remove(QStringLiteral("/caption/text")));
        QVERIFY(!bar.m_pLeftValue.Get() && !bar.m_pRightValue.Get() && !bar.m_pCenterValue.Get());
        QCOMPARE((bar.*side.get)(), Abc); // the text stays
        NewText("text", Xyz);
        QCOMPARE((bar.*side.get)(), Abc);
        QVERIFY((bar.*side.bind)(QStringLiteral("/caption/text")));
        QCOMPARE((bar.*side.get)(), Xyz);
        cleanup();
    }
}

void tst_vccaption_text::farewell()
{
    auto * const value = NewText("text", Abc);
    CaptionProbe bar;
    for (Side const & side : Sides)
        QVERIFY((bar.*side.bind)(QStringLiteral("/caption/text")));
    value->SetState(eStateGoingAway, nullptr);
    QVERIFY(!value->HasObserver(&bar));
    QVERIFY(!bar.m_pLeftValue.Get() && !bar.m_pRightValue.Get() && !bar.m_pCenterValue.Get());
}

void tst_vccaption_text::endsWithoutAWord()
{
    // a value that tells of a state that is not its end is kept
    auto * const value = NewText("text", Abc);
    CaptionProbe bar;
    QVERIFY(bar.SetCaptionLeft_ValuePath(QStringLiteral("/caption/text")));
    value->SetState(eStateDisabled, nullptr);
    QVERIFY(value->HasObserver(&bar));
    value->SetValue(Xyz, nullptr);
    QCOMPARE(bar.GetCaptionLeft(), Xyz);
    value->DeleteObservers(); // nobody is told: the bar finds out when it binds anew
    QVERIFY(Tree::Instance()->Remove(QStringLiteral("/caption/text")));
    QVERIFY(!bar.m_pLeftValue.Get());
    QVERIFY(!bar.SetCaptionLeft_ValuePath(QStringLiteral("/caption/text")));
}

void tst_vccaption_text::strangersAreNotHeard()
{
    auto * const value = NewText("text", Abc);
    auto * const stranger = NewText("stranger", Xyz);
    CaptionProbe bar;
    QVERIFY(bar.SetCaptionLeft_ValuePath(QStringLiteral("/caption/text")));
    bar.Update(stranger, eValueChanged);
    stranger->SetState(eStateGoingAway, nullptr);
    bar.Update(stranger, eStateChanged);
    QCOMPARE(bar.GetCaptionLeft(), Abc);
    QVERIFY(bar.GetCaptionRight().isEmpty() && bar.GetCaptionCenter().isEmpty());
    QVERIFY(value->HasObserver(&bar));
}

void tst_vccaption_text::oneValueForTwoTexts()
{
    auto * const value = NewText("text", Abc);
    CaptionProbe bar;
    QVERIFY(bar.SetCaptionLeft_ValuePath(QStringLiteral("/caption/text")));
    QVERIFY(bar.SetCaptionRight_ValuePath(QStringLiteral("/caption/text")));
    QVERIFY(bar.SetCaptionCenter_ValuePath(QStringLiteral("/caption/text")));
    QCOMPARE(value->GetObserverCount(), 1);
    value->SetValue(Xyz, nullptr);
    for (Side const & side : Sides)
        QCOMPARE((bar.*side.get)(), Xyz);
    QVERIFY(!bar.SetCaptionLeft_ValuePath(QString())); // the others still follow
    value->SetValue(Mid, nullptr);
    QCOMPARE(bar.GetCaptionLeft(), Xyz);
    QCOMPARE(bar.GetCaptionRight(), Mid);
    QCOMPARE(bar.GetCaptionCenter(), Mid);
    QVERIFY(!bar.SetCaptionCenter_ValuePath(QString()));
    value->SetValue(Abc, nullptr);
    QCOMPARE(bar.GetCaptionRight(), Abc);
    QVERIFY(Tree::Instance()->Remove(QStringLiteral("/caption/text")));
    QVERIFY(!bar.m_pRightValue.Get());
}

void tst_vccaption_text::endsWhileBound()
{
    auto * const left = NewText("left", Abc);
    auto * const right = NewText("right", Abc);
    {
        CaptionProbe bar;
        QVERIFY(bar.SetCaptionLeft_ValuePath(QStringLiteral("/caption/left")));
        QVERIFY(bar.SetCaptionRight_ValuePath(QStringLiteral("/caption/right")));
        QVERIFY(bar.SetCaptionCenter_ValuePath(QStringLiteral("/caption/right")));
    }
    QCOMPARE(left->GetObserverCount() + right->GetObserverCount(), 0);
    left->SetValue(Xyz, nullptr);
    right->SetValue(Xyz, nullptr);
}

void tst_vccaption_text::otherCodes()
{
    auto * const value = NewText("text", Abc);
    CaptionProbe bar;
    QVERIFY(bar.SetCaptionLeft_ValuePath(QStringLiteral("/caption/text")));
    bar.SetCaptionLeft(Xyz);
    for (TChangeCode const code : { eStateChanged, eRangeChanged, eItemsChanged, eInterimChanged })
        value->NotifyObservers(code, nullptr);
    QCOMPARE(bar.GetCaptionLeft(), Xyz);
    value->NotifyObservers(eValueChanged, nullptr);
    QCOMPARE(bar.GetCaptionLeft(), Abc);
}

// Measuring

void tst_vccaption_text::measuresOnce()
{
    CaptionProbe bar;
    bar.m_charWidth = 6;
    bar.SetCaptionLeft(Abc);
    QCOMPARE(bar.m_measured, 0); // it is hidden
    bar.ShowAt(400);
    bar.BuildPixmap();
    QCOMPARE(bar.m_measured, 1);
    QCOMPARE(bar.m_LeftWidth, 18);
    QCOMPARE(bar.m_RightWidth, 0);
    QCOMPARE(bar.m_CenterWidth, 0);
    bar.BuildPixmap();
    bar.SetCaptionLeft(Abc);
    QCOMPARE(bar.m_measured, 1);
    bar.SetCaptionRight(QStringLiteral("12 MHz"));
    QCOMPARE(bar.m_measured, 2);
    QCOMPARE(bar.m_RightWidth, 36);
    bar.SetCaptionCenter(Mid);
    QCOMPARE(bar.m_measured, 3);
    QCOMPARE(bar.m_CenterWidth, 36);
    bar.SetCaptionLeft(QString());
    QCOMPARE(bar.m_measured, 3);
    QCOMPARE(bar.m_LeftWidth, 0);
}

void tst_vccaption_text::digitsAreNotMeasured()
{
    CaptionProbe bar;
    bar.m_charWidth = 6;
    bar.ShowAt(400);
    for (Side const & side : Sides) {
        bar.m_measured = 0;
        (bar.*side.set)(QStringLiteral("12:00:09"));
        QCOMPARE(bar.m_measured, 1);
        (bar.*side.set)(QStringLiteral("12:00:10")); // keeps its measured width
        QCOMPARE(bar.m_measured, 1);
        (bar.*side.set)(QStringLiteral("12:00:9x")); // is measured anew
        QCOMPARE(bar.m_measured, 2);
        (bar.*side.set)(QStringLiteral("12:00:10"));
        QCOMPARE(bar.m_measured, 3);
        (bar.*side.set)(QStringLiteral("112:00:10"));
        QCOMPARE(bar.m_measured, 4);
    }
}

void tst_vccaption_text::manyDigitsAreNotMeasured()
{
    CaptionProbe bar;
    bar.ShowAt(1920);
    auto * const value = NewText("text");
    QVERIFY(bar.SetCaptionCenter_ValuePath(QStringLiteral("/caption/text")));
    bar.m_measured = 0;
    for (int i = 0; i < 5000; ++i) {
        QString const number = QStringLiteral("%1 MHz").arg(1000 + i);
        value->SetValue(number, nullptr);
        bar.SetCaptionLeft(number);
        bar.SetCaptionRight(number);
    }
    QCOMPARE(bar.m_measured, 3); // the first of each
}

void tst_vccaption_text::checkWidth()
{
    CaptionProbe bar;
    bar.m_charWidth = 6;
    bar.resize(100, 10);
    QString text = Abc;
    QString old;
    QCOMPARE(bar.CheckWidthOnSimilarString(text, old, 18, 0), -1); // hidden
    QCOMPARE(old, Abc);
    bar.ShowAt(100);
    bar.m_measured = 0;
    old.clear();
    QCOMPARE(bar.CheckWidthOnSimilarString(text, old, 18, 0), 18);
    QCOMPARE(old, Abc);
    QCOMPARE(bar.m_measured, 1);
    QCOMPARE(bar.CheckWidthOnSimilarString(text, old, 20, 0), 20); // known
    QCOMPARE(bar.m_measured, 1);
    QCOMPARE(bar.CheckWidthOnSimilarString(text, old, 100, 0), 18); // not below the width of the bar
    QCOMPARE(bar.CheckWidthOnSimilarString(text, old, 99, 0), 99);
    text.clear();
    QCOMPARE(bar.CheckWidthOnSimilarString(text, old, 99, 0), 0);
    QVERIFY(old.isEmpty());
}

void tst_vccaption_text::fontIsMeasuredAnew()
{
    CaptionProbe bar;
    bar.ShowAt(400);
    bar.SetCaptionLeft(Abc);
    int const width = bar.m_LeftWidth;
    int const time = bar.m_TimeWidth;
    GuiBase::Instance().emit_signalColorsChanged();
    bar.m_measured = 0;
    bar.BuildPixmap();
    QCOMPARE(bar.m_measured, 0); // the same font
    GuiBase::Instance().SetFontFamily(QStringLiteral("DejaVu Sans Mono"));
    GuiBase::Instance().emit_signalColorsChanged();
    bar.BuildPixmap();
    GuiBase::Instance().SetFontFamily(QString());
    QCOMPARE(bar.m_measured, 1);
    QVERIFY(bar.m_LeftWidth != width && bar.m_TimeWidth != time);
}

// Drawing

void tst_vccaption_text::drawsThreeTexts()
{
    CaptionProbe bar;
    bar.ShowAt(400);
    bar.SetCaptionLeft(Abc);
    bar.SetCaptionRight(Xyz);
    bar.SetCaptionCenter(Mid);
    QFontMetrics const metrics(bar.m_Font);
    int const right = metrics.boundingRect(Xyz).width();
    int const center = metrics.boundingRect(Mid).width();
    QCOMPARE(bar.Picture(), Expected(bar, { { Abc, 2 }, { Xyz, 400 - right }, { Mid, (399 - center + 1) / 2, true } }));
    QVERIFY(bar.Picture() != Expected(bar, {}));
}

void tst_vccaption_text::drawsAheadOfTheButton()
{
    CaptionProbe bar(nullptr, nullptr, VCCaption::StyleStopButton, 10);
    bar.ShowAt(400);
    bar.SetCaptionRight(Xyz);
    QCOMPARE(bar.m_pSpace->width(), 400 - 17 - 1); // the button, and the spacing
    int const right = QFontMetrics(bar.m_Font).boundingRect(Xyz).width();
    QCOMPARE(bar.Picture(), Expected(bar, { { Xyz, 382 - right } }));
}

void tst_vccaption_text::drawsOneInANarrowBar()
{
    CaptionProbe bar;
    bar.SetCaptionLeft(Abc);
    bar.SetCaptionRight(Xyz);
    bar.SetCaptionCenter(Mid);
    bar.ShowAt(60);
    bar.BuildPixmap();
    QVERIFY(bar.m_LeftWidth + bar.m_RightWidth + bar.m_CenterWidth > 60);
    QCOMPARE(bar.Picture(), Expected(bar, { { Mid, 0, true } }));
    bar.SetCaptionCenter(QString());
    bar.SetCaptionLeft(QStringLiteral("a long left"));
    QCOMPARE(bar.Picture(), Expected(bar, { { QStringLiteral("a long left"), 0 } }));
    bar.SetCaptionLeft(QString());
    bar.SetCaptionRight(QStringLiteral("a right text too long"));
    QCOMPARE(bar.Picture(), Expected(bar, { { QStringLiteral("a right text too long"), 0 } }));
}

void tst_vccaption_text::centerMeetsNeighbours()
{
    CaptionProbe bar;
    bar.m_charWidth = 10;
    bar.ShowAt(200);
    bar.SetCaptionCenter(Mid); // 60 wide: from 70 to 130
    bar.SetCaptionLeft(QStringLiteral("1234567"));
    QCOMPARE(bar.Picture(), Expected(bar, { { QStringLiteral("1234567"), 2 }, { Mid, 70, true } }));
    bar.SetCaptionLeft(QStringLiteral("12345678"));
    QCOMPARE(bar.Picture(), Expected(bar, { { QStringLiteral("12345678"), 2 }, { Mid, 82, true } }));
    bar.SetCaptionLeft(QString());
    bar.SetCaptionRight(QStringLiteral("1234567"));
    QCOMPARE(bar.Picture(), Expected(bar, { { QStringLiteral("1234567"), 130 }, { Mid, 70, true } }));
    bar.SetCaptionRight(QStringLiteral("12345678"));
    QCOMPARE(bar.Picture(), Expected(bar, { { QStringLiteral("12345678"), 120 }, { Mid, 2, true } }));
}

void tst_vccaption_text::centerInFocus()
{
    CaptionProbe bar;
    bar.m_charWidth = 10;
    bar.ShowAt(200);
    QFocusEvent in(QEvent::FocusIn);
    QCoreApplication::sendEvent(&bar, &in);
    bar.SetCaptionLeft(Abc);
    bar.SetCaptionRight(Xyz);
    bar.SetCaptionCenter(Mid);
    QVERIFY(bar.isFocussed());
    QCOMPARE(bar.Picture(), Expected(bar, { { Abc, 2 }, { Xyz, 170 }, { Mid, 70, true } }));
    bar.resize(80, 10);
    bar.BuildPixmap();
    QCOMPARE(bar.Picture(), Expected(bar, { { Mid, 0, true } })); // in its colour also when it is alone
    bar.SetCaptionCenter(QString());
    bar.SetCaptionLeft(QStringLiteral("123456789"));
    QCOMPARE(bar.Picture(), Expected(bar, { { QStringLiteral("123456789"), 0 } }));
}

void tst_vccaption_text::drawsWithoutText()
{
    CaptionProbe bar;
    bar.ShowAt(100);
    bar.BuildPixmap();
    QCOMPARE(bar.Picture(), Expected(bar, {}));
}

void tst_vccaption_text::repaints()
{
    CaptionProbe bar;
    bar.ShowAt(200);
    QVERIFY(QTest::qWaitForWindowExposed(&bar));
    QTRY_VERIFY(bar.m_paints > 0);
    for (Side const & side : Sides) {
        QCoreApplication::processEvents();
        int const before = bar.m_paints;
        (bar.*side.set)(Abc);
        QTRY_COMPARE(bar.m_paints, before + 1);
    }
}

void tst_vccaption_text::pictureIsKept()
{
    CaptionProbe bar;
    bar.ShowAt(200);
    bar.SetCaptionLeft(Abc);
    QPixmap const * const picture = bar.m_pPixmap.get();
    bar.SetCaptionLeft(Xyz);
    QVERIFY(bar.m_pPixmap.get() == picture);
    qint64 const key = picture->cacheKey();
    QImage shown(bar.size(), QImage::Format_RGB32);
    bar.m_measured = 0;
    bar.render(&shown); // copies only
    QCOMPARE(bar.m_pPixmap->cacheKey(), key);
    QCOMPARE(bar.m_measured, 0);
    QCOMPARE(shown, bar.Picture().convertToFormat(QImage::Format_RGB32));
}

ORIM_TEST_MAIN(tst_vccaption_text)
#include "tst_vccaption_text.moc"
