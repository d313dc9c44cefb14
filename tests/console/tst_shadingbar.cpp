// SPDX-License-Identifier: MIT
#include "colorset.h"
#include "guibase.h"
#include "guicentral.h"
#include "levelcolors.h"
#include "levelgradients.h"
#include "shadingbar.h"
#include "testmain.h"

#include <QSignalSpy>

#include <set>

class tst_ShadingBar : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void gradients_data();
    void gradients();
    void indexOutsideGivesTheFirst();
    void choiceFillsTheSetOfTheLevels();
    void choiceIsToldOnce();
    void barShowsTheSet_data();
    void barShowsTheSet();
    void barFollowsTheSet();
    void barStandsBesideItsScale();
    void levelsAreColouredAsTheBar_data();
    void levelsAreColouredAsTheBar();
    void levelsOutsideTakeTheEnds();
    void fixedSetKeepsItsRange();
    void badRangeIsIgnored_data();
    void badRangeIsIgnored();
    void missingLevelShowsTheGround();
};

namespace {

constexpr int First = 10; // px
constexpr int Length = 201;
constexpr int Role = VC::eShadingLevel;

struct Bar : ShadingBar
{
    Bar() : ShadingBar(nullptr)
    {
        resize(Thickness(fontMetrics()), First + Length + 10);
        SetPictureSpan(First, Length);
        SetRange(-100.0, 0.0);
    }

    QImage Rendered() { return grab().toImage().convertToFormat(QImage::Format_RGB32); }
};

QRgb ColorOf(LevelColors & colors, double level)
{
    QRgb pixel = 0;
    colors.Color(&level, &pixel, 1, true);
    return pixel;
}

bool AreNear(QRgb a, QRgb b)
{
    return std::abs(qRed(a) - qRed(b)) <= 1 && std::abs(qGreen(a) - qGreen(b)) <= 1 &&
           std::abs(qBlue(a) - qBlue(b)) <= 1;
}

} // namespace

void tst_ShadingBar::cleanup() { LevelGradients::Choose(0); }

void tst_ShadingBar::gradients_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QColor>("top");
    QTest::addColumn<QColor>("bottom");
    QTest::newRow("classic") << 0 << "classic"
                             << "Classic" << QColor(QStringLiteral("#ff3b1f")) << QColor(QStringLiteral("#00001c"));
    QTest::newRow("heat") << 1 << "heat"
                          << "Heat" << QColor(QStringLiteral("#fffbe0")) << QColor(QStringLiteral("#04020c"));
    QTest::newRow("sea") << 2 << "sea"
                         << "Sea" << QColor(QStringLiteral("#f6fbe4")) << QColor(QStringLiteral("#03101c"));
    QTest::newRow("grey") << 3 << "grey"
                          << "Grey" << QColor(QStringLiteral("#ffffff")) << QColor(QStringLiteral("#000000"));
    QTest::newRow("amber") << 4 << "amber"
                           << "Amber" << QColor(QStringLiteral("#ffe0a0")) << QColor(QStringLiteral("#050200"));
}

void tst_ShadingBar::gradients()
{
    QFETCH(int, index);
    QCOMPARE(LevelGradients::Count(), 5);
    QTEST(QString(QLatin1String(LevelGradients::At(index).key)), "key");
    QTEST(QString(QLatin1String(LevelGradients::At(index).name)), "name");
    // the text says the same as the set that is made of it
    ShadingColorSet set;
    set.SetString(QLatin1String(LevelGradients::At(index).line));
    QCOMPARE(set.GetString(), QString(QLatin1String(LevelGradients::At(index).line)));
    QTEST(set.GetColor(7.0, -3.0, 7.0, true), "top");
    QTEST(set.GetColor(-3.0, -3.0, 7.0, true), "bottom");
    QVERIFY(set.GetSmooth());
    QVERIFY(!set.GetFixed());
}

void tst_ShadingBar::indexOutsideGivesTheFirst()
{
    QCOMPARE(LevelGradients::At(-1).key, LevelGradients::At(0).key);
    QCOMPARE(LevelGradients::At(LevelGradients::Count()).key, LevelGradients::At(0).key);
}

void tst_ShadingBar::choiceFillsTheSetOfTheLevels()
{
    LevelGradients::Choose(2);
    int const id = GuiCentral::Instance().GetColorSetIdForRoleId(Role - 1);
    QCOMPARE(&LevelGradients::CurrentSet(),
             &GuiCentral::Instance().GetWaterfallColorSets()[static_cast<std::size_t>(id)]);
    QCOMPARE(LevelGradients::CurrentSet().GetString(), QString(QLatin1String(LevelGradients::At(2).line)));
}

void tst_ShadingBar::choiceIsToldOnce()
{
    LevelGradients::Choose(1);
    QSignalSpy const told(&GuiBase::Instance(), &GuiBase::signalColorsChanged);
    LevelGradients::Choose(1);
    LevelGradients::Choose(-1);
    LevelGradients::Choose(LevelGradients::Count());
    QCOMPARE(told.count(), 0);
    LevelGradients::Choose(3);
    QCOMPARE(told.count(), 1);
}

void tst_ShadingBar::barShowsTheSet_data()
{
    QTest::addColumn<int>("gradient");
    for (int index = 0; index < LevelGradients::Count(); ++index)
        QTest::newRow(LevelGradients::At(index).key) << index;
}

void tst_ShadingBar::barShowsTheSet()
{
    QFETCH(int, gradient);
    LevelGradients::Choose(gradient);
    Bar bar;
    QImage const image = bar.Rendered();
    QRect const rect = bar.GetBarRect();
    QCOMPARE(rect.height(), Length);
    std::set<QRgb> colors;
    for (int row = 0; row < rect.height(); ++row) {
        double const level = -100.0 * row / (Length - 1);
        QRgb const wanted = GuiCentral::Instance().GetShadingRGB(level, Role, -100.0, 0.0, true);
        for (int const x : { rect.left(), rect.center().x(), rect.right() }) {
            QVERIFY2(AreNear(image.pixel(x, rect.top() + row), wanted), qPrintable(QString::number(row)));
        }
        colors.insert(wanted);
    }
    QVERIFY(colors.size() > 50);
    QCOMPARE(image.pixelColor(rect.center().x(), rect.top()), LevelGradients::CurrentSet().GetVector().front());
    QCOMPARE(image.pixelColor(rect.center().x(), rect.bottom()), LevelGradients::CurrentSet().GetVector().back());
    QColor const ground = ColorSet::Instance()[IColorBase::eColorAxisScale];
    for (QPoint const beside : { QPoint(rect.left() - 1, rect.top() + 5), QPoint(rect.right() + 1, rect.top() + 5),
                                 QPoint(rect.left() + 1, rect.top() - 1), QPoint(rect.left() + 1, rect.bottom() + 1) })
        QCOMPARE(image.pixelColor(beside), ground);
}

void tst_ShadingBar::barFollowsTheSet()
{
    Bar bar;
    QImage const classic = bar.Rendered();
    LevelGradients::Choose(4);
    QImage const amber = bar.Rendered();
    QVERIFY(amber != classic);
    LevelGradients::Choose(0);
    QCOMPARE(bar.Rendered(), classic);
    // whoever else edits the set is followed too
    LevelGradients::CurrentSet().SetColorNr(0, Qt::magenta);
    GuiBase::Instance().emit_signalColorsChanged();
    QRect const rect = bar.GetBarRect();
    QCOMPARE(bar.Rendered().pixelColor(rect.center().x(), rect.top()), QColor(Qt::magenta));
}

void tst_ShadingBar::barStandsBesideItsScale()
{
    Bar bar;
    QRect const rect = bar.GetBarRect();
    QVERIFY(bar.innerRect().contains(rect));
    QCOMPARE(rect.top(), First);
    QCOMPARE(rect.width(), int(ShadingBar::BarWidth));
    std::vector<QRect> const labels = bar.GetLabelRects();
    QVERIFY(labels.size() >= 4);
    for (QRect const & label : labels) {
        QVERIFY(label.left() > rect.right());
        QVERIFY(bar.rect().contains(label));
    }
    QCOMPARE(bar.GetPureUnitText(), QStringLiteral("dBFS"));
    QCOMPARE(int(bar.GetShadingColor()), int(VC::eShadingLevel));
}

void tst_ShadingBar::levelsAreColouredAsTheBar_data() { barShowsTheSet_data(); }

void tst_ShadingBar::levelsAreColouredAsTheBar()
{
    QFETCH(int, gradient);
    LevelGradients::Choose(gradient);
    LevelColors colors;
    colors.SetColors(LevelGradients::CurrentSet());
    colors.SetRange(-100.0, 0.0);
    for (double level = -100.0; level <= 0.0; level += 0.25) {
        QRgb const wanted = GuiCentral::Instance().GetShadingRGB(level, Role, -100.0, 0.0, true);
        QVERIFY2(AreNear(ColorOf(colors, level), wanted), qPrintable(QString::number(level)));
    }
}

void tst_ShadingBar::levelsOutsideTakeTheEnds()
{
    LevelColors colors;
    LevelGradients::Choose(0);
    colors.SetColors(LevelGradients::CurrentSet());
    colors.SetRange(-80.0, -20.0);
    QCOMPARE(ColorOf(colors, 40.0), ColorOf(colors, -20.0));
    QCOMPARE(ColorOf(colors, -200.0), ColorOf(colors, -80.0));
    QCOMPARE(QColor(ColorOf(colors, 40.0)), QColor(QStringLiteral("#ff3b1f")));
    QCOMPARE(QColor(ColorOf(colors, -200.0)), QColor(QStringLiteral("#00001c")));
}

void tst_ShadingBar::fixedSetKeepsItsRange()
{
    ShadingColorSet set;
    set.SetString(QStringLiteral("V02;2;1;1;-30;30;0;0;0;#000000;#ffffff;#000000;"));
    LevelColors colors;
    colors.SetColors(set);
    colors.SetRange(-100.0, 0.0);
    QCOMPARE(ColorOf(colors, 30.0), 0xffffffff);
    QCOMPARE(ColorOf(colors, -30.0), 0xff000000);
    QVERIFY(AreNear(ColorOf(colors, 0.0), 0xff7f7f7f));
    set.SetFixed(false);
    colors.SetColors(set);
    QCOMPARE(ColorOf(colors, 0.0), 0xffffffff);
}

void tst_ShadingBar::badRangeIsIgnored_data()
{
    QTest::addColumn<double>("min");
    QTest::addColumn<double>("max");
    QTest::newRow("empty") << -50.0 << -50.0;
    QTest::newRow("turned round") << -40.0 << -50.0;
    QTest::newRow("NaN") << qQNaN() << -50.0;
    QTest::newRow("infinite") << -50.0 << qInf();
}

void tst_ShadingBar::badRangeIsIgnored()
{
    QFETCH(double, min);
    QFETCH(double, max);
    LevelColors colors; // white to black over -120 .. 0
    colors.SetRange(min, max);
    QCOMPARE(ColorOf(colors, 0.0), 0xffffffff);
    QCOMPARE(ColorOf(colors, -120.0), 0xff000000);
}

void tst_ShadingBar::missingLevelShowsTheGround()
{
    LevelColors colors;
    colors.SetGround(QColor(1, 2, 3));
    QCOMPARE(QColor(ColorOf(colors, qQNaN())), QColor(1, 2, 3));
    QCOMPARE(colors.GetGround(), QColor(1, 2, 3).rgb());
}

ORIM_TEST_MAIN(tst_ShadingBar)
#include "tst_shadingbar.moc"
