// SPDX-License-Identifier: MIT
#include "guicentral.h"

#include "guicentralaccess.h"
#include "ownstore.h"
#include "testmain.h"
#include "toldcolorsets.h"

#include <QPen>

#include <limits>

namespace {

static_assert(
    std::is_same_v<decltype(&GuiCentral::GetShadingRGB), QRgb (GuiCentral::*)(double, int, double, double, bool)>);
static_assert(
    std::is_same_v<decltype(&GuiCentral::GetShadingPen), QPen (GuiCentral::*)(double, int, double, double, bool)>);
static_assert(std::is_same_v<decltype(&GuiCentral::GetBackgroundRGB), QRgb (GuiCentral::*)(int)>);
static_assert(std::is_same_v<decltype(&GuiCentral::GetBackgroundPen), QPen (GuiCentral::*)(int)>);
static_assert(std::is_same_v<decltype(&GuiCentral::isColorSetFixed), bool (GuiCentral::*)(int)>);
static_assert(
    std::is_same_v<decltype(&GuiCentral::GetChangeableWaterfallColorSets), unsigned int (GuiCentral::*)() const>);
static_assert(
    std::is_same_v<decltype(&GuiCentral::SetChangeableWaterfallColorSets), void (GuiCentral::*)(unsigned int)>);
static_assert(
    std::is_same_v<decltype(&GuiCentral::AddChangeableWaterfallColorSet), void (GuiCentral::*)(unsigned int)>);

} // namespace

//! The colours that panes ask for.
class tst_GuiCentralShading : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void shading_data();
    void shading();
    void shadingOfAll();
    void shadingWithoutRole_data();
    void shadingWithoutRole();
    void shadingIsGetColor();
    void shadingOfOddNumbers_data();
    void shadingOfOddNumbers();
    void shadingPen();
    void changedSetIsSeen();

    void background_data();
    void background();
    void backgroundIsWritten();
    void backgroundPen();
    void backgroundOfAClearedSet();

    void fixed_data();
    void fixed();

    void mask();

private:
    OwnStore<> m_store;
};

void tst_GuiCentralShading::init() { m_store.BeginWithFactoryColors(); }

void tst_GuiCentralShading::cleanup() { m_store.End(); }

void tst_GuiCentralShading::shading_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<double>("value");
    QTest::addColumn<bool>("inverse");
    QTest::addColumn<QRgb>("color");
    QTest::newRow("level, low end") << int(VC::eShadingLevel) << -100.0 << false << qRgb(255, 0, 0);
    QTest::newRow("level, middle") << int(VC::eShadingLevel) << -50.0 << false << qRgb(0, 255, 0);
    QTest::newRow("level, high end") << int(VC::eShadingLevel) << 0.0 << false << qRgb(0, 0, 255);
    QTest::newRow("level, low end turned round") << int(VC::eShadingLevel) << -100.0 << true << qRgb(0, 0, 255);
    QTest::newRow("level, below the range") << int(VC::eShadingLevel) << -101.0 << false << qRgb(192, 192, 192);
    QTest::newRow("azimuth, own range") << int(VC::eShadingAzimuth) << 0.0 << false << qRgb(0xfe, 0, 0);
    QTest::newRow("azimuth, wrapped") << int(VC::eShadingAzimuth) << 720.0 << false << qRgb(0xfe, 0, 0);
    QTest::newRow("elevation, high end") << int(VC::eShadingElevation) << 0.0 << false << qRgb(128, 128, 128);
    QTest::newRow("bit stream, high end") << int(VC::eShadingBitStream) << 0.0 << false << qRgb(128, 0, 128);
    QTest::newRow("ageing, high end") << int(VC::eShadingAgeing) << 0.0 << false << qRgb(0x60, 0x60, 0x60);
    QTest::newRow("quality, low end") << int(VC::eShadingQuality) << -100.0 << false << qRgb(255, 0, 0);
    QTest::newRow("polychrome, low end") << int(VC::eShadingPolychrome) << -100.0 << false << qRgb(255, 0, 0);
    QTest::newRow("difference, below its own range")
        << int(VC::eShadingDifference) << -100.0 << false << qRgb(255, 255, 0);
    QTest::newRow("difference, middle of its own range")
        << int(VC::eShadingDifference) << 0.0 << false << qRgb(0, 0, 0);
    QTest::newRow("pulses, an entry") << 9 << 7.0 << false << qRgb(255, 255, 0);
    QTest::newRow("vehicle, to starboard") << 10 << 90.0 << false << Definition(1004).rgb();
    QTest::newRow("vehicle, to port") << 10 << 270.0 << false << Definition(1002).rgb();
    QTest::newRow("vehicle, ahead") << 10 << 0.0 << false << Definition(1000).rgb();
    QTest::newRow("none") << 0 << -50.0 << false << QRgb(0);
}

void tst_GuiCentralShading::shading()
{
    QFETCH(int, id);
    QFETCH(double, value);
    QFETCH(bool, inverse);
    QFETCH(QRgb, color);
    GuiCentralAccess central;
    QCOMPARE(central.GetShadingRGB(value, id, -100.0, 0.0, inverse), color);
}

void tst_GuiCentralShading::shadingOfAll()
{
    GuiCentralAccess central;
    for (int id = 1; id <= 10; ++id) // an id is a role counted from 1
        QCOMPARE(central.isColorSetFixed(id),
                 central.GetWaterfallColorSets()[static_cast<std::size_t>(ToldRoles[id - 1].set)].GetFixed());
}

void tst_GuiCentralShading::shadingWithoutRole_data()
{
    QTest::addColumn<int>("id");
    QTest::newRow("none") << 0;
    QTest::newRow("negative") << -1;
    QTest::newRow("one behind") << 11;
    QTest::newRow("lowest") << std::numeric_limits<int>::lowest();
    QTest::newRow("highest") << std::numeric_limits<int>::max();
}

void tst_GuiCentralShading::shadingWithoutRole()
{
    QFETCH(int, id);
    GuiCentralAccess central;
    for (ShadingColorSet & set : central.GetWaterfallColorSets())
        set.SetFixed(true);
    QCOMPARE(central.GetShadingRGB(50.0, id, 0.0, 100.0, false), QRgb(0));
    QCOMPARE(central.GetShadingPen(50.0, id, 0.0, 100.0, false), QPen(QColor(0, 0, 0)));
    QCOMPARE(central.GetBackgroundRGB(id), Common());
    QVERIFY(!central.isColorSetFixed(id));
}

void tst_GuiCentralShading::shadingIsGetColor()
{
    GuiCentralAccess central;
    ShadingColorSet & set = central.GetWaterfallColorSets()[0];
    for (int i = 0; i <= 10; ++i) {
        double const value = 3.0 + i * 0.7;
        QCOMPARE(central.GetShadingRGB(value, VC::eShadingLevel, 3.0, 10.0, false),
                 set.GetColor(value, 3.0, 10.0, false).rgb());
        QCOMPARE(central.GetShadingRGB(value, VC::eShadingLevel, 3.0, 10.0, true),
                 set.GetColor(value, 3.0, 10.0, true).rgb());
    }
}

void tst_GuiCentralShading::shadingOfOddNumbers_data()
{
    QTest::addColumn<double>("value");
    QTest::newRow("NaN") << qQNaN();
    QTest::newRow("infinite") << qInf();
    QTest::newRow("minus infinite") << -qInf();
    QTest::newRow("huge") << 1e308;
    QTest::newRow("negative and huge") << -1e308;
}

void tst_GuiCentralShading::shadingOfOddNumbers()
{
    QFETCH(double, value);
    GuiCentralAccess central;
    for (int id = 1; id <= 10; ++id) {
        ShadingColorSet & set = central.GetWaterfallColorSets()[static_cast<std::size_t>(ToldRoles[id - 1].set)];
        QCOMPARE(central.GetShadingRGB(value, id, 0.0, 1.0, false), set.GetColor(value, 0.0, 1.0, false).rgb());
        QCOMPARE(central.GetShadingRGB(0.5, id, value, -value, true), set.GetColor(0.5, value, -value, true).rgb());
    }
}

void tst_GuiCentralShading::shadingPen()
{
    GuiCentralAccess central;
    QPen const pen = central.GetShadingPen(-50.0, VC::eShadingLevel, -100.0, 0.0, false);
    QCOMPARE(pen, QPen(QColor(0, 255, 0)));
    QCOMPARE(central.GetShadingPen(-100.0, VC::eShadingLevel, -100.0, 0.0, true).color(), QColor(0, 0, 255));
}

void tst_GuiCentralShading::changedSetIsSeen()
{
    GuiCentralAccess central;
    central.GetWaterfallColorSets()[0].SetColorNr(0, QColor(1, 2, 3));
    QCOMPARE(central.GetShadingRGB(0.0, VC::eShadingLevel, 0.0, 1.0, false), qRgb(1, 2, 3));
}

void tst_GuiCentralShading::background_data()
{
    QTest::addColumn<int>("set");
    QTest::addColumn<bool>("isOwn");
    for (int i = 0; i < Sets; ++i)
        QTest::newRow(ToldSets[i].name) << i << (i == 11);
}

void tst_GuiCentralShading::background()
{
    QFETCH(int, set);
    QFETCH(bool, isOwn);
    GuiCentralAccess central;
    GuiCentralAccess::Roles(central)[4] = set;
    QCOMPARE(central.GetBackgroundRGB(0), Common());
    QCOMPARE(central.GetBackgroundRGB(VC::eShadingAgeing), isOwn ? qRgb(0xc0, 0xc0, 0xc0) : Common());
}

void tst_GuiCentralShading::backgroundIsWritten()
{
    GuiCentralAccess central;
    GuiCentralAccess::Roles(central)[4] = 11;
    ShadingColorSet & set = central.GetWaterfallColorSets()[11];
    set.SetBackgroundColor(QColor(1, 2, 3), true);
    set.SetColorNr(2, QColor(4, 5, 6));
    QVERIFY(set.GetString().contains(QLatin1String(";1;#010203;")));
    for (int i = 0; i < 2; ++i) {
        QCOMPARE(central.GetBackgroundRGB(VC::eShadingAgeing), qRgb(4, 5, 6));
        QVERIFY(set.GetString().contains(QLatin1String(";1;#040506;")));
        set.SetBackgroundColor(QColor(1, 2, 3), true); // every call writes
    }
}

void tst_GuiCentralShading::backgroundPen()
{
    GuiCentralAccess central;
    GuiCentralAccess::Roles(central)[4] = 11;
    QCOMPARE(central.GetBackgroundPen(VC::eShadingAgeing), QPen(QColor(0xc0, 0xc0, 0xc0)));
    QCOMPARE(central.GetBackgroundPen(0), QPen(QColor(Common())));
}

void tst_GuiCentralShading::backgroundOfAClearedSet()
{
    GuiCentralAccess central;
    GuiCentralAccess::Roles(central)[4] = 11;
    ShadingColorSet & set = central.GetWaterfallColorSets()[11];
    set.SetUseMinIndexBackground(false);
    set.SetBackgroundColor(QColor(1, 2, 3), false);
    QCOMPARE(central.GetBackgroundRGB(VC::eShadingAgeing), Common()); // not its own
    QVERIFY(set.GetString().contains(QLatin1String(";0;#010203;")));
}

void tst_GuiCentralShading::fixed_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<bool>("isFixed");
    QTest::newRow("none") << 0 << false;
    QTest::newRow("level") << int(VC::eShadingLevel) << false;
    QTest::newRow("azimuth") << int(VC::eShadingAzimuth) << true;
    QTest::newRow("elevation") << int(VC::eShadingElevation) << false;
    QTest::newRow("bit stream") << int(VC::eShadingBitStream) << false;
    QTest::newRow("ageing") << int(VC::eShadingAgeing) << false;
    QTest::newRow("quality") << int(VC::eShadingQuality) << false;
    QTest::newRow("polychrome") << int(VC::eShadingPolychrome) << false;
    QTest::newRow("difference") << int(VC::eShadingDifference) << true;
    QTest::newRow("pulses") << 9 << true;
    QTest::newRow("vehicle") << 10 << true;
}

void tst_GuiCentralShading::fixed()
{
    QFETCH(int, id);
    QFETCH(bool, isFixed);
    GuiCentralAccess central;
    QCOMPARE(central.isColorSetFixed(id), isFixed);
}

void tst_GuiCentralShading::mask()
{
    GuiCentralAccess central;
    QCOMPARE(central.GetChangeableWaterfallColorSets(), 0xFFFFu);
    central.SetChangeableWaterfallColorSets(0x05);
    QCOMPARE(central.GetChangeableWaterfallColorSets(), 0x05u);
    central.AddChangeableWaterfallColorSet(0x84);
    QCOMPARE(central.GetChangeableWaterfallColorSets(), 0x85u);
    central.SetChangeableWaterfallColorSets(0);
    QCOMPARE(central.GetChangeableWaterfallColorSets(), 0u);
    central.AddChangeableWaterfallColorSet(0);
    QCOMPARE(central.GetChangeableWaterfallColorSets(), 0u);
}

ORIM_TEST_MAIN(tst_GuiCentralShading)
#include "tst_guicentral_shading.moc"
