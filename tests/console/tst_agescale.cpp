// SPDX-License-Identifier: MIT
#include "agescale.h"

#include "agedimage.h"
#include "ageingcolors.h"
#include "colorset.h"
#include "guibase.h"
#include "guicentral.h"
#include "panecolors.h"
#include "testmain.h"
#include "vc.h"

#include <QSignalSpy>

//! The scale of the ages, and the colours that it shows.
class tst_AgeScale : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void init();
    void cleanup();
    void ageingIsReadInEverySet_data();
    void ageingIsReadInEverySet();
    void fittingTellsOnce();
    void twoWithDifferentGroundsComeToRest();
    void qualitiesFadeToBlack();
    void agesAreThoseOfThePicture_data();
    void agesAreThoseOfThePicture();
    void lessThanOneSectionIsOne();
    void ticsStandAtRoundAges_data();
    void ticsStandAtRoundAges();
    void newIsAtTheTop();
    void aColumnAQuality();
    void nothingToShowIsNoBar();
    void neitherZoomedNorFocused();
};

namespace {

constexpr int Width = 90;
constexpr int Height = 200;
constexpr int First = 20; // of the picture beside

//! A scale beside a picture.
struct Scale : AgeScale
{
    Scale() : AgeScale(nullptr)
    {
        resize(Width, Height);
        SetPictureSpan(First, Height - First);
        grab(); // sends the resize event
    }

    QString Label(double value)
    {
        QString text;
        BuildFormatString(text, value, nullptr);
        return text;
    }
};

//! The colours of a picture in the order of their age, the oldest first, of a quality.
std::vector<QRgb> ColorsOf(AgedImage & image, int colors, int quality)
{
    std::vector<QRgb> found;
    for (int age = 0; age < colors; ++age)
        found.push_back(image.GetImage()->color(quality * colors + (colors - age) % colors)); // no step yet
    return found;
}

} // namespace

void tst_AgeScale::init()
{
    GuiCentral::Instance().slotRestoreFactoryColors();
    ColorSet::Instance().Load(0);
}

void tst_AgeScale::cleanup()
{
    GuiCentral::Instance().slotRestoreFactoryColors();
    ColorSet::Instance().Load(0);
}

void tst_AgeScale::ageingIsReadInEverySet_data()
{
    QTest::addColumn<int>("set");
    for (int set = 0; set < ColorSet::GetSetCount(); ++set)
        QTest::newRow(QByteArray("set ").append(QByteArray::number(set)).constData()) << set;
}

void tst_AgeScale::ageingIsReadInEverySet()
{
    QFETCH(int, set);
    ColorSet::Instance().Load(set);
    AgeingColors::Fit(false);
    PaneColors const colors = CurrentPaneColors();
    QCOMPARE(GuiCentral::Instance().GetBackgroundRGB(VC::eShadingAgeing), colors.ground.rgb());
    auto const ages = AgeingColors::Ages(4, 1);
    QCOMPARE(ages.size(), std::size_t(1));
    QCOMPARE(ages[0].size(), std::size_t(4));
    QCOMPARE(QColor(ages[0][0]).name(), colors.trace.name());
    // older is nearer to the ground, and the oldest can still be told from it
    for (std::size_t age = 0; age < 4; ++age) {
        int const apart = std::abs(qGray(ages[0][age]) - qGray(colors.ground.rgb()));
        QVERIFY(apart > 15);
        QVERIFY(age == 0 || apart < std::abs(qGray(ages[0][age - 1]) - qGray(colors.ground.rgb())));
    }
}

void tst_AgeScale::fittingTellsOnce()
{
    QSignalSpy const changed(&GuiBase::Instance(), &GuiBase::signalColorsChanged);
    QVERIFY(AgeingColors::Fit(false));
    QCOMPARE(changed.count(), 1);
    QVERIFY(!AgeingColors::Fit(false));
    QCOMPARE(changed.count(), 1);
    QVERIFY(AgeingColors::Fit(true));
    QVERIFY(!AgeingColors::Fit(true));
    QCOMPARE(changed.count(), 2);
}

void tst_AgeScale::twoWithDifferentGroundsComeToRest()
{
    QObject others;
    connect(&GuiBase::Instance(), &GuiBase::signalColorsChanged, &others, [] { AgeingColors::Fit(false); });
    connect(&GuiBase::Instance(), &GuiBase::signalColorsChanged, &others, [] { AgeingColors::Fit(true); });
    QSignalSpy const changed(&GuiBase::Instance(), &GuiBase::signalColorsChanged);
    ColorSet::Instance().Load(1);
    QVERIFY(changed.count() <= 3);
}

void tst_AgeScale::qualitiesFadeToBlack()
{
    AgeingColors::Fit(true);
    QCOMPARE(GuiCentral::Instance().GetBackgroundRGB(VC::eShadingAgeing), qRgb(0, 0, 0));
}

void tst_AgeScale::agesAreThoseOfThePicture_data()
{
    QTest::addColumn<int>("qualities");
    QTest::newRow("one quality") << 1;
    QTest::newRow("two") << 2;
    QTest::newRow("four") << 4;
    QTest::newRow("eight") << 8;
}

void tst_AgeScale::agesAreThoseOfThePicture()
{
    QFETCH(int, qualities);
    AgeingColors::Fit(qualities > 1);
    AgedImage image(nullptr);
    image.SetQualitySteps(qualities);
    image.SetSteps(4); // four sections of two colours
    image.resize(4, 4);
    auto const ages = AgeingColors::Ages(4, qualities);
    QCOMPARE(ages.size(), static_cast<std::size_t>(qualities));
    for (int quality = 0; quality < qualities; ++quality) {
        std::vector<QRgb> const colors = ColorsOf(image, 8, quality);
        std::vector<QRgb> const & shown = ages[static_cast<std::size_t>(quality)];
        for (std::size_t age = 0; age < 8; ++age)
            QCOMPARE(QColor(shown[3 - age / 2]).name(), QColor(colors[age]).name());
    }
}

void tst_AgeScale::lessThanOneSectionIsOne()
{
    AgeingColors::Fit(false);
    auto const ages = AgeingColors::Ages(0, -3);
    QCOMPARE(ages.size(), std::size_t(1));
    QCOMPARE(ages[0].size(), std::size_t(1));
    QCOMPARE(QColor(ages[0][0]).name(), CurrentPaneColors().trace.name());
}

void tst_AgeScale::ticsStandAtRoundAges_data()
{
    QTest::addColumn<int>("hold"); // s
    QTest::addColumn<QStringList>("labels");
    QTest::newRow("1 s") << 1 << QStringList{ "1", "0" };
    QTest::newRow("4 s") << 4 << QStringList{ "4", "3", "2", "1", "0" };
    QTest::newRow("25 s: every 2 s, from the newest on")
        << 25 << QStringList{ "24", "22", "20", "18", "16", "14", "12", "10", "8", "6", "4", "2", "0" };
    QTest::newRow("30 s: every 5 s") << 30 << QStringList{ "30", "25", "20", "15", "10", "5", "0" };
}

void tst_AgeScale::ticsStandAtRoundAges()
{
    QFETCH(int, hold);
    QFETCH(QStringList, labels);
    Scale scale;
    AgedImage image(nullptr);
    image.SetAgeingAxis(&scale);
    image.SetSteps(hold);
    QCOMPARE(scale.GetStart(), 0.0);
    QCOMPARE(scale.GetStop(), static_cast<double>(hold));
    ScaleTics const tics = scale.Tics();
    QStringList found;
    for (int tic = 0; tic < tics.ticCount; ++tic)
        found << scale.Label(tics.firstTic + tics.ticOffset + tic * tics.ticStep);
    QCOMPARE(found, labels);
    QVERIFY(!scale.GetGridPixels().empty());
}

void tst_AgeScale::newIsAtTheTop()
{
    Scale scale;
    scale.SetAges({ { qRgb(255, 0, 0), qRgb(0, 255, 0), qRgb(0, 0, 255) } });
    QRect const bar = scale.GetBarRect();
    QCOMPARE(bar.top(), First);
    QCOMPARE(bar.height(), Height - First);
    QCOMPARE(bar.width(), AgeScale::BarWidth);
    QImage const image = scale.grab().toImage();
    int const x = bar.center().x();
    QCOMPARE(image.pixelColor(x, bar.top()), QColor(255, 0, 0));
    QCOMPARE(image.pixelColor(x, bar.top() + 59), QColor(255, 0, 0));
    QCOMPARE(image.pixelColor(x, bar.top() + 60), QColor(0, 255, 0));
    QCOMPARE(image.pixelColor(x, bar.bottom()), QColor(0, 0, 255));
}

void tst_AgeScale::aColumnAQuality()
{
    Scale scale;
    std::vector<std::vector<QRgb>> ages;
    for (int quality = 0; quality < 8; ++quality)
        ages.push_back({ qRgb(30 * quality, 255, 0), qRgb(30 * quality, 0, 0) });
    scale.SetAges(ages);
    QRect const bar = scale.GetBarRect();
    QImage const image = scale.grab().toImage();
    for (int quality = 0; quality < 8; ++quality) {
        int const x = bar.left() + quality * AgeScale::BarWidth / 8;
        QCOMPARE(image.pixelColor(x, bar.top()), QColor(30 * quality, 255, 0));
        QCOMPARE(image.pixelColor(x + 1, bar.bottom()), QColor(30 * quality, 0, 0));
    }
    QVERIFY(image.pixelColor(bar.right() + 1, bar.bottom()) != QColor(210, 0, 0));
}

void tst_AgeScale::nothingToShowIsNoBar()
{
    Scale scale;
    QImage const empty = scale.grab().toImage();
    scale.SetAges({ {} });
    QCOMPARE(scale.grab().toImage(), empty);
    scale.resize(1, 1);
    scale.grab();
    scale.SetPictureSpan(0, 0);
    scale.SetAges({ { qRgb(255, 0, 0) } });
    scale.grab();
    QVERIFY(scale.GetBarRect().isEmpty());
}

void tst_AgeScale::neitherZoomedNorFocused()
{
    Scale scale;
    QCOMPARE(scale.focusPolicy(), Qt::NoFocus);
    QCOMPARE(scale.contextMenuPolicy(), Qt::PreventContextMenu);
    AgedImage image(nullptr);
    image.SetAgeingAxis(&scale);
    QTest::mousePress(&scale, Qt::LeftButton, Qt::NoModifier, QPoint(60, 40));
    QTest::mouseMove(&scale, QPoint(60, 120));
    QTest::mouseRelease(&scale, Qt::LeftButton, Qt::NoModifier, QPoint(60, 120));
    QCOMPARE(scale.GetStop(), 4.0);
}

ORIM_TEST_MAIN(tst_AgeScale)
#include "tst_agescale.moc"
