// SPDX-License-Identifier: MIT
#include "colorset.h"

#include "colorcontrast.h"
#include "coloredits.h"
#include "colors.h"
#include "colorsetctrl.h"
#include "colortable.h"
#include "colorvision.h"
#include "guibase.h"
#include "memorycfg.h"
#include "persistant.h"
#include "tabdialog.h"

#include "testmain.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QSignalSpy>

#include <climits>

namespace {

// The numbers are stored and drawn with by others.
static_assert(IColorBase::eColorAxisForeground == 1);
static_assert(IColorBase::eColorAxisBackground == 2);
static_assert(IColorBase::eColorShadingBackground == 3);
static_assert(IColorBase::eColorClientFirst == 30);
static_assert(IColorBase::eColorClientSecond == 31);
static_assert(IColorBase::eColorResult == 34);
static_assert(IColorBase::eColorSelectedResult == 36);
static_assert(IColorBase::eColorReadOut == 37);
static_assert(IColorBase::eColorAgedMarker == 42);
static_assert(IColorBase::eColorCaptionFocus == 61);
static_assert(IColorBase::eColorCaptionFocusText == 62);
static_assert(IColorBase::eColorCaption == 63);
static_assert(IColorBase::eColorCaptionText == 64);
static_assert(IColorBase::eColorCaptionFocusCenter == 65);
static_assert(IColorBase::eColorAxisScale == 66);
static_assert(IColorBase::eColorCenterReadOut == 85);
static_assert(IColorBase::eColorBearingStarboard == 87);
static_assert(IColorBase::eColorBearingPort == 88);
static_assert(IColorBase::eColorBearingAhead == 89);
static_assert(IColorBase::eColorMarker == 150);

using ColorMap = QMap<int, QColor>;

QColor & At(int number) { return ColorSet::Instance()[static_cast<IColorBase::ECOLOR>(number)]; }

QByteArray SetName(int set) { return ColorSet::GetSetName(set).toLatin1(); }

} // namespace

class tst_ColorSet : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void sets_data();
    void sets();
    void number_data();
    void number();
    void noNumber_data();
    void noNumber();
    void contrast_data();
    void contrast();
    void tableKeepsItsContrasts_data();
    void tableKeepsItsContrasts();
    void markersToldApart_data();
    void markersToldApart();
    void bandsToldApart_data();
    void bandsToldApart();
    void distanceIsThePublishedOne_data();
    void distanceIsThePublishedOne();
    void ratio_data();
    void ratio();
    void textOnAnyGround();
    void load_data();
    void load();
    void listenerSeesTheNewColors();
    void editStaysWithItsSet();
    void writingIsSilent();
    void invalidColorDoesNotStay();
    void factoryRestore();
    void apply();
    void applyBadIndex_data();
    void applyBadIndex();
    void applyLeavesOut();
    void colorsOfASet();
    void comboBox();
    void updateComboBox();
    void palette_data();
    void palette();
    void propertyPage();
    void pageSlots();
    void slotsReachEveryPage();
    void slotsWithoutPage();
    void tabDialogTakesItOver_data();
    void tabDialogTakesItOver();
    void plainWindowTakesNothingOver();
    void storedAtOnce();
    void editIsStoredWithTheSignal();
    void readBack();
    void factoryRestoreIsStored();
    void oddStore_data();
    void oddStore();
    void editsAsText_data();
    void editsAsText();
    void editsFromText_data();
    void editsFromText();

private:
    MemoryCfg m_store;
};

void tst_ColorSet::init()
{
    Persistant::SetStore(&m_store);
    ColorSet::Instance().slotRestoreFactoryColors();
    ColorSet::Instance().Load(0);
}

void tst_ColorSet::sets_data()
{
    QTest::addColumn<int>("set");
    QTest::addColumn<QString>("name");
    QTest::newRow("0") << 0 << QStringLiteral("Day");
    QTest::newRow("1") << 1 << QStringLiteral("Night");
    QTest::newRow("2") << 2 << QStringLiteral("High contrast");
    QTest::newRow("3 is none") << 3 << QString();
    QTest::newRow("-1 is none") << -1 << QString();
}

void tst_ColorSet::sets()
{
    QFETCH(int, set);
    QFETCH(QString, name);
    QCOMPARE(ColorSet::GetSetCount(), 3);
    QCOMPARE(ColorSet::GetSetName(set), name);
    QCOMPARE(ColorSet::GetFactoryColors(set).size(),
             name.isNull() ? 0 : static_cast<int>(ColorSet::GetNumbers().size()));
    for (QColor const & color : ColorSet::GetFactoryColors(set))
        QVERIFY(color.isValid() && color.alpha() == 255);
}

void tst_ColorSet::number_data()
{
    QTest::addColumn<int>("number");
    for (int const number :
         { 1, 2, 3, 30, 31, 34, 36, 37, 42, 61, 62, 63, 64, 65, 66, 85, 87, 88, 89, 150, 151, 152, 153 })
        QTest::newRow(QByteArray::number(number)) << number;
}

void tst_ColorSet::number()
{
    QFETCH(int, number);
    std::vector<int> const numbers = ColorSet::GetNumbers();
    QVERIFY(std::find(numbers.begin(), numbers.end(), number) != numbers.end());
    QVERIFY(std::is_sorted(numbers.begin(), numbers.end()));
    QVERIFY(!ColorSet::GetColorName(number).isEmpty());
    for (int set = 0; set < ColorSet::GetSetCount(); ++set) {
        ColorSet::Instance().Load(set);
        QCOMPARE(At(number), ColorSet::GetFactoryColors(set).value(number));
        QCOMPARE(&At(number), &At(number));
    }
}

void tst_ColorSet::noNumber_data()
{
    QTest::addColumn<int>("number");
    for (int const number : { 0, -1, 5, 67, 149, 155, 1000, INT_MIN, INT_MAX })
        QTest::newRow(QByteArray::number(number)) << number;
}

void tst_ColorSet::noNumber()
{
    QFETCH(int, number);
    ColorMap const before = ColorSet::Instance().GetColors(0);
    QCOMPARE(ColorSet::GetColorName(number), QString());
    QCOMPARE(At(number), At(1));
    At(number) = Qt::green;
    QCOMPARE(At(number), At(1));
    QCOMPARE(ColorSet::Instance().GetColors(0), before);
}

void tst_ColorSet::contrast_data()
{
    QTest::addColumn<int>("set");
    QTest::addColumn<int>("text");
    QTest::addColumn<int>("ground");
    QTest::addColumn<double>("minimum");

    struct Pair
    {
        int text;
        int ground;
        double minimum;
    };

    QVector<Pair> pairs{ { 1, 2, 4.5 },   { 1, 66, 4.5 },  { 62, 61, 4.5 }, { 65, 61, 4.5 },
                         { 64, 63, 4.5 }, { 37, 66, 4.5 }, { 85, 66, 4.5 }, { 11, 10, 4.5 },
                         { 13, 12, 4.5 }, { 15, 14, 4.5 }, { 17, 16, 4.5 } };
    for (int const marker : { 30, 31, 34, 36, 150, 151, 152, 153 })
        pairs.append({ marker, 2, 3.0 });
    for (int set = 0; set < ColorSet::GetSetCount(); ++set)
        for (Pair const & pair : pairs)
            QTest::newRow(QByteArray::number(pair.text) + " on " + QByteArray::number(pair.ground) + ", " +
                          SetName(set))
                << set << pair.text << pair.ground << pair.minimum;
}

void tst_ColorSet::contrast()
{
    QFETCH(int, set);
    QFETCH(int, text);
    QFETCH(int, ground);
    QFETCH(double, minimum);
    ColorSet::Instance().Load(set);
    double const contrast = ColorVision::Contrast(At(text), At(ground));
    QVERIFY2(contrast >= minimum, qPrintable(QString::number(contrast)));
}

void tst_ColorSet::tableKeepsItsContrasts_data()
{
    QTest::addColumn<int>("set");
    for (int set = 0; set < ColorSet::GetSetCount(); ++set)
        QTest::newRow(SetName(set)) << set;
}

void tst_ColorSet::tableKeepsItsContrasts()
{
    QFETCH(int, set);
    ColorMap const colors = ColorSet::GetFactoryColors(set);
    for (auto const & row : ColorTable::Grounds) {
        QVERIFY(colors.contains(row.number) && colors.contains(row.ground));
        double const contrast = ColorVision::Contrast(colors.value(row.number), colors.value(row.ground));
        QVERIFY2(contrast >= row.minimum,
                 qPrintable(QStringLiteral("%1 on %2: %3").arg(row.number).arg(row.ground).arg(contrast)));
    }
}

void tst_ColorSet::markersToldApart_data()
{
    QTest::addColumn<int>("set");
    QTest::addColumn<int>("eyes");
    for (int set = 0; set < ColorSet::GetSetCount(); ++set) {
        QTest::newRow("all cones, " + SetName(set)) << set << 0;
        QTest::newRow("without red cones, " + SetName(set)) << set << 1;
        QTest::newRow("without green cones, " + SetName(set)) << set << 2;
    }
}

void tst_ColorSet::markersToldApart()
{
    QFETCH(int, set);
    QFETCH(int, eyes);
    std::array<ColorVision::Matrix, 3> const kinds{ { ColorVision::Ordinary, ColorVision::Protanopia,
                                                      ColorVision::Deuteranopia } };
    ColorSet::Instance().Load(set);
    std::array<int, 8> const markers{ { 30, 31, 34, 36, 150, 151, 152, 153 } };
    for (int const first : markers)
        for (int const second : markers) {
            if (first >= second)
                continue;
            double const distance =
                ColorVision::Distance(At(first), At(second), kinds.at(static_cast<std::size_t>(eyes)));
            QVERIFY2(distance >= 15.0,
                     qPrintable(QStringLiteral("%1 and %2: %3").arg(first).arg(second).arg(distance)));
        }
}

void tst_ColorSet::bandsToldApart_data() { tableKeepsItsContrasts_data(); }

void tst_ColorSet::bandsToldApart()
{
    QFETCH(int, set);
    ColorSet::Instance().Load(set);
    for (auto const & eyes : { ColorVision::Ordinary, ColorVision::Protanopia, ColorVision::Deuteranopia }) {
        QVERIFY(ColorVision::Distance(At(87), At(88), eyes) >= 20.0);
        QVERIFY(ColorVision::Distance(At(87), At(89), eyes) >= 10.0);
        QVERIFY(ColorVision::Distance(At(88), At(89), eyes) >= 10.0);
        QVERIFY(ColorVision::Distance(At(37), At(85), eyes) >= 7.0);
    }
}

void tst_ColorSet::distanceIsThePublishedOne_data()
{
    QTest::addColumn<QVector<double>>("first");
    QTest::addColumn<QVector<double>>("second");
    QTest::addColumn<double>("distance");
    using Lab = QVector<double>;
    // Pairs 1, 4, 7, 16, 20 and 25 of the data published with the formula by Sharma, Wu and Dalal.
    QTest::newRow("blue") << Lab{ 50.0, 2.6772, -79.7751 } << Lab{ 50.0, 0.0, -82.7485 } << 2.0425;
    QTest::newRow("rotation") << Lab{ 50.0, -1.3802, -84.2814 } << Lab{ 50.0, 0.0, -82.7485 } << 1.0;
    QTest::newRow("gray") << Lab{ 50.0, 0.0, 0.0 } << Lab{ 50.0, -1.0, 2.0 } << 2.3669;
    QTest::newRow("hues half a circle apart") << Lab{ 50.0, 2.5, 0.0 } << Lab{ 50.0, 0.0, -2.5 } << 4.3065;
    QTest::newRow("lightness and chroma") << Lab{ 50.0, 2.5, 0.0 } << Lab{ 58.0, 24.0, 15.0 } << 19.4535;
    QTest::newRow("green") << Lab{ 60.2574, -34.0099, 36.2677 } << Lab{ 60.4626, -34.1751, 39.4387 } << 1.2644;
}

void tst_ColorSet::distanceIsThePublishedOne()
{
    QFETCH(QVector<double>, first);
    QFETCH(QVector<double>, second);
    QFETCH(double, distance);
    double const computed = ColorVision::Distance(ColorVision::Triple{ first[0], first[1], first[2] },
                                                  ColorVision::Triple{ second[0], second[1], second[2] });
    QVERIFY2(std::abs(computed - distance) < 1e-4, qPrintable(QString::number(computed, 'f', 4)));
}

void tst_ColorSet::ratio_data()
{
    QTest::addColumn<QColor>("a");
    QTest::addColumn<QColor>("b");
    QTest::addColumn<double>("ratio");
    QTest::newRow("black and white") << QColor(Qt::black) << QColor(Qt::white) << 21.0;
    QTest::newRow("the same") << QColor(1, 2, 3) << QColor(1, 2, 3) << 1.0;
    QTest::newRow("gray 0x77 on white") << QColor(0x77, 0x77, 0x77) << QColor(Qt::white) << 4.478;
    QTest::newRow("red on white") << QColor(Qt::red) << QColor(Qt::white) << 3.998;
    QTest::newRow("blue on white") << QColor(Qt::blue) << QColor(Qt::white) << 8.592;
    QTest::newRow("invalid is black") << QColor() << QColor(Qt::white) << 21.0;
}

void tst_ColorSet::ratio()
{
    QFETCH(QColor, a);
    QFETCH(QColor, b);
    QFETCH(double, ratio);
    QVERIFY2(std::abs(ColorContrast::Ratio(a, b) - ratio) < 0.001,
             qPrintable(QString::number(ColorContrast::Ratio(a, b), 'f', 4)));
    QCOMPARE(ColorContrast::Ratio(b, a), ColorContrast::Ratio(a, b));
}

void tst_ColorSet::textOnAnyGround()
{
    for (int red = 0; red < 256; red += 15)
        for (int green = 0; green < 256; green += 15)
            for (int blue = 0; blue < 256; blue += 15) {
                QColor const ground(red, green, blue);
                QVERIFY(ColorVision::Contrast(ColorContrast::TextOn(ground), ground) >= 4.5);
            }
    QCOMPARE(ColorContrast::TextOn(Qt::yellow), QColor(Qt::black));
    QCOMPARE(ColorContrast::TextOn(Qt::blue), QColor(Qt::white));
}

void tst_ColorSet::load_data()
{
    QTest::addColumn<int>("set");
    QTest::addColumn<bool>("known");
    QTest::newRow("the loaded one again") << 0 << true;
    QTest::newRow("night") << 1 << true;
    QTest::newRow("the last") << 2 << true;
    QTest::newRow("one past the end") << 3 << false;
    QTest::newRow("negative") << -1 << false;
    QTest::newRow("absurd") << INT_MAX << false;
}

void tst_ColorSet::load()
{
    QFETCH(int, set);
    QFETCH(bool, known);
    QSignalSpy const changed(&GuiBase::Instance(), &GuiBase::signalColorsChanged);
    QCOMPARE(ColorSet::Instance().Load(set), known);
    QCOMPARE(changed.count(), known ? 1 : 0);
    int const loaded = known ? set : 0;
    QCOMPARE(ColorSet::Instance().GetCurrentSet(), loaded);
    for (int const number : ColorSet::GetNumbers())
        QCOMPARE(At(number), ColorSet::GetFactoryColors(loaded).value(number));
}

void tst_ColorSet::listenerSeesTheNewColors()
{
    QObject context;
    QColor seen;
    QColor definition;
    connect(&GuiBase::Instance(), &GuiBase::signalColorsChanged, &context, [&] {
        seen = At(66);
        definition = Colors::Instance().GetColorDefinition(1000)->GetColor();
    });
    ColorSet::Instance().Load(1);
    QCOMPARE(seen, ColorSet::GetFactoryColors(1).value(66));
    QCOMPARE(definition, QColor(0xf0, 0xf6, 0xfc));
    At(66) = Qt::cyan;
    ColorSet::Instance().slotRestoreFactoryColors();
    QCOMPARE(seen, ColorSet::GetFactoryColors(1).value(66));
}

void tst_ColorSet::editStaysWithItsSet()
{
    At(150) = QColor(1, 2, 3);
    ColorSet::Instance().Load(1);
    QCOMPARE(At(150), ColorSet::GetFactoryColors(1).value(150));
    At(151) = QColor(4, 5, 6);
    ColorSet::Instance().Load(0);
    QCOMPARE(At(150), QColor(1, 2, 3));
    QCOMPARE(At(151), ColorSet::GetFactoryColors(0).value(151));
    ColorSet::Instance().Load(0);
    QCOMPARE(At(150), QColor(1, 2, 3));
    ColorSet::Instance().Load(1);
    QCOMPARE(At(151), QColor(4, 5, 6));
}

void tst_ColorSet::writingIsSilent()
{
    QSignalSpy const changed(&GuiBase::Instance(), &GuiBase::signalColorsChanged);
    At(1) = Qt::red;
    QCOMPARE(At(1), QColor(Qt::red));
    QCOMPARE(changed.count(), 0);
}

void tst_ColorSet::invalidColorDoesNotStay()
{
    At(1) = QColor();
    ColorSet::Instance().Load(0);
    QCOMPARE(At(1), ColorSet::GetFactoryColors(0).value(1));
}

void tst_ColorSet::factoryRestore()
{
    At(1) = Qt::red;
    ColorSet::Instance().Load(2);
    At(2) = Qt::green;
    QSignalSpy const changed(&GuiBase::Instance(), &GuiBase::signalColorsChanged);
    ColorSet::Instance().slotRestoreFactoryColors();
    QCOMPARE(changed.count(), 1);
    QCOMPARE(ColorSet::Instance().GetCurrentSet(), 2);
    QCOMPARE(At(2), ColorSet::GetFactoryColors(2).value(2));
    ColorSet::Instance().Load(0);
    QCOMPARE(At(1), ColorSet::GetFactoryColors(0).value(1));
}

void tst_ColorSet::apply()
{
    At(1) = Qt::magenta;
    std::vector<ColorMap> colors{ ColorSet::GetFactoryColors(0), ColorSet::GetFactoryColors(1) };
    colors[0][2] = Qt::yellow;
    colors[1][3] = Qt::darkGreen;
    QSignalSpy const changed(&GuiBase::Instance(), &GuiBase::signalColorsChanged);
    ColorSet::Instance().Apply(1, colors);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(ColorSet::Instance().GetCurrentSet(), 1);
    QCOMPARE(At(3), QColor(Qt::darkGreen));
    ColorSet::Instance().Load(0);
    QCOMPARE(At(2), QColor(Qt::yellow));
    QCOMPARE(At(1), ColorSet::GetFactoryColors(0).value(1));
}

void tst_ColorSet::applyBadIndex_data()
{
    QTest::addColumn<int>("set");
    QTest::newRow("-1") << -1;
    QTest::newRow("3") << 3;
}

void tst_ColorSet::applyBadIndex()
{
    QFETCH(int, set);
    QSignalSpy const changed(&GuiBase::Instance(), &GuiBase::signalColorsChanged);
    ColorSet::Instance().Apply(set, { ColorMap{ { 1, QColor(Qt::red) } } });
    QCOMPARE(changed.count(), 0);
    QCOMPARE(ColorSet::Instance().GetColors(0), ColorSet::GetFactoryColors(0));
}

void tst_ColorSet::applyLeavesOut()
{
    ColorSet::Instance().Load(2);
    At(2) = Qt::blue;
    std::vector<ColorMap> const colors{ ColorMap{ { 5, QColor(Qt::red) }, { 1, QColor() }, { 2, QColor(Qt::red) } } };
    ColorSet::Instance().Apply(2, colors);
    QCOMPARE(At(2), QColor(Qt::blue)); // a set that was not given keeps what it has
    ColorMap wanted = ColorSet::GetFactoryColors(0);
    wanted[2] = Qt::red;
    QCOMPARE(ColorSet::Instance().GetColors(0), wanted);
    std::vector<ColorMap> const tooMany(7, ColorMap{ { 1, QColor(Qt::green) } });
    ColorSet::Instance().Apply(0, tooMany);
    QCOMPARE(At(1), QColor(Qt::green));
}

void tst_ColorSet::colorsOfASet()
{
    At(1) = Qt::red;
    QCOMPARE(ColorSet::Instance().GetColors(0).value(1), QColor(Qt::red));
    QCOMPARE(ColorSet::Instance().GetColors(1), ColorSet::GetFactoryColors(1));
    ColorSet::Instance().Load(1);
    QCOMPARE(ColorSet::Instance().GetColors(0).value(1), QColor(Qt::red));
    QVERIFY(ColorSet::Instance().GetColors(3).isEmpty());
    QVERIFY(ColorSet::Instance().GetColors(-1).isEmpty());
}

void tst_ColorSet::comboBox()
{
    ColorSet::Instance().Load(2);
    QWidget parent;
    QComboBox * const combo = ColorSet::GetColorSetsComboBox(&parent);
    QCOMPARE(combo->parentWidget(), &parent);
    QCOMPARE(combo->count(), 3);
    for (int set = 0; set < 3; ++set)
        QCOMPARE(combo->itemText(set), ColorSet::GetSetName(set));
    QCOMPARE(combo->currentIndex(), 2);
    combo->setCurrentIndex(0);
    QCOMPARE(ColorSet::Instance().GetCurrentSet(), 2);
}

void tst_ColorSet::updateComboBox()
{
    QComboBox combo;
    combo.addItem(QStringLiteral("stale"));
    ColorSet::Instance().Load(1);
    QSignalSpy const changed(&combo, qOverload<int>(&QComboBox::currentIndexChanged));
    ColorSet::UpdateComboBox(&combo);
    QCOMPARE(combo.count(), 3);
    QCOMPARE(combo.currentText(), QStringLiteral("Night"));
    QCOMPARE(changed.count(), 0);
    ColorSet::UpdateComboBox(nullptr);
}

void tst_ColorSet::palette_data()
{
    QTest::addColumn<QPalette::ColorRole>("role");
    QTest::addColumn<int>("number");
    QTest::newRow("window") << QPalette::Window << 10;
    QTest::newRow("window text") << QPalette::WindowText << 11;
    QTest::newRow("entry field") << QPalette::Base << 12;
    QTest::newRow("entry text") << QPalette::Text << 13;
    QTest::newRow("selection") << QPalette::Highlight << 14;
    QTest::newRow("selected text") << QPalette::HighlightedText << 15;
    QTest::newRow("button") << QPalette::Button << 16;
    QTest::newRow("button text") << QPalette::ButtonText << 17;
    QTest::newRow("tool tip") << QPalette::ToolTipBase << 12;
    QTest::newRow("tool tip text") << QPalette::ToolTipText << 13;
    QTest::newRow("hint in an entry field") << QPalette::PlaceholderText << 18;
}

void tst_ColorSet::palette()
{
    QFETCH(QPalette::ColorRole, role);
    QFETCH(int, number);
    for (int set = 0; set < ColorSet::GetSetCount(); ++set) {
        ColorSet::Instance().Load(set);
        QPalette const palette = ColorSet::Instance().GetPalette();
        QCOMPARE(palette.color(QPalette::Active, role), At(number));
        QCOMPARE(palette.color(QPalette::Inactive, role), At(number));
        QCOMPARE(palette.color(QPalette::Disabled, QPalette::WindowText), At(18));
        QCOMPARE(palette.color(QPalette::Disabled, QPalette::Text), At(18));
        QCOMPARE(palette.color(QPalette::Disabled, QPalette::ButtonText), At(18));
    }
}

void tst_ColorSet::propertyPage()
{
    QWidget parent;
    QCOMPARE(ColorSet::Instance().GetPropertyPagePath(), QStringLiteral("Colors"));
    QWidget * const page = ColorSet::Instance().GetPropertyPage(&parent, "page");
    QVERIFY(qobject_cast<ColorSetCtrl *>(page));
    QCOMPARE(page->objectName(), QStringLiteral("page"));
    QCOMPARE(page->parentWidget(), &parent);
    QWidget * const ctrl = ColorSet::Instance().GetCtrl(&parent);
    QVERIFY(qobject_cast<ColorSetCtrl *>(ctrl));
    QCOMPARE(ctrl->objectName(), QStringLiteral("ColorSetCtrl"));
    QCOMPARE(ctrl->parentWidget(), &parent);
}

void tst_ColorSet::pageSlots()
{
    QWidget parent;
    auto * const page = qobject_cast<ColorSetCtrl *>(ColorSet::Instance().GetCtrl(&parent));
    auto * const combo = page->findChild<QComboBox *>(QStringLiteral("ColorSetCombo"));
    combo->setCurrentIndex(2);
    ColorSet::Instance().slotCancelPropertyChanges();
    QCOMPARE(combo->currentIndex(), 0);
    combo->setCurrentIndex(1);
    ColorSet::Instance().slotAcceptPropertyChanges();
    QCOMPARE(ColorSet::Instance().GetCurrentSet(), 1);
    At(1) = Qt::red;
    ColorSet::Instance().Load(1);
    QCOMPARE(page->GetColor(1), QColor(Qt::red));
    ColorSet::Instance().slotDefaultPropertyChanges();
    QCOMPARE(page->GetColor(1), ColorSet::GetFactoryColors(1).value(1));
    QCOMPARE(At(1), QColor(Qt::red));
    ColorSet::Instance().slotAcceptPropertyChanges();
    QCOMPARE(At(1), ColorSet::GetFactoryColors(1).value(1));
}

void tst_ColorSet::slotsReachEveryPage()
{
    QWidget parent;
    auto * const page = qobject_cast<ColorSetCtrl *>(ColorSet::Instance().GetPropertyPage(&parent, nullptr));
    auto * const other = qobject_cast<ColorSetCtrl *>(ColorSet::Instance().GetCtrl(&parent));
    delete ColorSet::Instance().GetCtrl(nullptr);
    auto * const combo = page->findChild<QComboBox *>(QStringLiteral("ColorSetCombo"));
    combo->setCurrentIndex(2);
    ColorSet::Instance().slotAcceptPropertyChanges();
    QCOMPARE(ColorSet::Instance().GetCurrentSet(), 2);
    QCOMPARE(other->GetShownSet(), 2);
    combo->setCurrentIndex(1);
    ColorSet::Instance().slotCancelPropertyChanges();
    QCOMPARE(page->GetShownSet(), 2);
    ColorSet::Instance().slotDefaultPropertyChanges();
    QVERIFY(page->GetDirty() && other->GetDirty());
}

void tst_ColorSet::tabDialogTakesItOver_data()
{
    QTest::addColumn<int>("button");
    QTest::addColumn<int>("loaded");
    QTest::newRow("OK") << static_cast<int>(QDialogButtonBox::Ok) << 1;
    QTest::newRow("Apply") << static_cast<int>(QDialogButtonBox::Apply) << 1;
    QTest::newRow("Cancel") << static_cast<int>(QDialogButtonBox::Cancel) << 0;
}

void tst_ColorSet::tabDialogTakesItOver()
{
    QFETCH(int, button);
    QFETCH(int, loaded);
    TabDialog dialog;
    dialog.setApplyButton();
    QWidget * const page = ColorSet::Instance().GetCtrl(&dialog);
    dialog.addTab(page, QStringLiteral("Colors"));
    page->findChild<QComboBox *>(QStringLiteral("ColorSetCombo"))->setCurrentIndex(1);
    dialog.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::StandardButton(button))->click();
    QCOMPARE(ColorSet::Instance().GetCurrentSet(), loaded);
}

void tst_ColorSet::plainWindowTakesNothingOver()
{
    QDialog dialog;
    QWidget inner(&dialog);
    QWidget * const page = ColorSet::Instance().GetCtrl(&inner);
    page->findChild<QComboBox *>(QStringLiteral("ColorSetCombo"))->setCurrentIndex(1);
    dialog.accept();
    QCOMPARE(ColorSet::Instance().GetCurrentSet(), 0);
}

void tst_ColorSet::slotsWithoutPage()
{
    delete ColorSet::Instance().GetCtrl(nullptr);
    QSignalSpy const changed(&GuiBase::Instance(), &GuiBase::signalColorsChanged);
    ColorSet::Instance().slotAcceptPropertyChanges();
    ColorSet::Instance().slotCancelPropertyChanges();
    ColorSet::Instance().slotDefaultPropertyChanges();
    QCOMPARE(changed.count(), 0);
}

void tst_ColorSet::storedAtOnce()
{
    At(150) = QColor(1, 2, 3);
    ColorSet::Instance().Load(2);
    At(2) = QColor(4, 5, 6);
    ColorSet::Instance().Apply(1, {});
    QCOMPARE(m_store.ReadString(QStringLiteral("ColorSet/Set"), QString()), QStringLiteral("1"));
    QCOMPARE(m_store.ReadString(QStringLiteral("ColorSet/DayEdits"), QString()), QStringLiteral("150=#010203"));
    QCOMPARE(m_store.ReadString(QStringLiteral("ColorSet/NightEdits"), QStringLiteral("none")), QString());
    QCOMPARE(m_store.ReadString(QStringLiteral("ColorSet/HighContrastEdits"), QString()), QStringLiteral("2=#040506"));
}

void tst_ColorSet::editIsStoredWithTheSignal()
{
    At(150) = QColor(1, 2, 3);
    GuiBase::Instance().emit_signalColorsChanged();
    QCOMPARE(m_store.ReadString(QStringLiteral("ColorSet/DayEdits"), QString()), QStringLiteral("150=#010203"));
    m_store.WriteString(QStringLiteral("ColorSet/DayEdits"), QStringLiteral("none"));
    GuiBase::Instance().emit_signalColorsChanged(); // no edit anew: nothing is written
    QCOMPARE(m_store.ReadString(QStringLiteral("ColorSet/DayEdits"), QString()), QStringLiteral("none"));
}

void tst_ColorSet::readBack()
{
    MemoryCfg store;
    store.WriteString(QStringLiteral("ColorSet/Set"), QStringLiteral("2"));
    store.WriteString(QStringLiteral("ColorSet/NightEdits"), QStringLiteral("1=#ff0000"));
    store.WriteString(QStringLiteral("ColorSet/HighContrastEdits"), QStringLiteral("1=#00ff00;66=#123456"));
    Persistant::SetStore(&store);
    QSignalSpy const changed(&GuiBase::Instance(), &GuiBase::signalColorsChanged);
    ColorSet::Instance().slotReadSettings();
    QCOMPARE(changed.count(), 1);
    QCOMPARE(ColorSet::Instance().GetCurrentSet(), 2);
    QCOMPARE(At(1), QColor(0, 255, 0));
    QCOMPARE(At(66), QColor(0x12, 0x34, 0x56));
    QCOMPARE(Colors::Instance().GetColorDefinition(1000)->GetColor(), QColor(Qt::white));
    ColorSet::Instance().Load(1);
    QCOMPARE(At(1), QColor(255, 0, 0));
    Persistant::SetStore(&m_store);
}

void tst_ColorSet::factoryRestoreIsStored()
{
    At(1) = Qt::red;
    ColorSet::Instance().Load(0);
    QCOMPARE(m_store.ReadString(QStringLiteral("ColorSet/DayEdits"), QString()), QStringLiteral("1=#ff0000"));
    ColorSet::Instance().slotRestoreFactoryColors();
    QCOMPARE(m_store.ReadString(QStringLiteral("ColorSet/DayEdits"), QStringLiteral("none")), QString());
}

void tst_ColorSet::oddStore_data()
{
    QTest::addColumn<QString>("set");
    QTest::addColumn<QString>("edits");
    QTest::addColumn<int>("loaded");
    QTest::newRow("empty") << QString() << QString() << 0;
    QTest::newRow("a set that is none") << QStringLiteral("3") << QString() << 0;
    QTest::newRow("a negative set") << QStringLiteral("-1") << QString() << 0;
    QTest::newRow("colours that are none")
        << QStringLiteral("1") << QStringLiteral("5=#ff0000;155=#ff0000;-1=#ff0000") << 1;
    QTest::newRow("the factory colour is no edit") << QStringLiteral("0") << QStringLiteral("2=#ffffff") << 0;
}

void tst_ColorSet::oddStore()
{
    QFETCH(QString, set);
    QFETCH(QString, edits);
    QFETCH(int, loaded);
    if (!set.isEmpty())
        m_store.WriteString(QStringLiteral("ColorSet/Set"), set);
    m_store.WriteString(QStringLiteral("ColorSet/DayEdits"), edits);
    ColorSet::Instance().slotReadSettings();
    QCOMPARE(ColorSet::Instance().GetCurrentSet(), loaded);
    QCOMPARE(ColorSet::Instance().GetColors(0), ColorSet::GetFactoryColors(0));
    ColorSet::Instance().Load(loaded);
    QCOMPARE(m_store.ReadString(QStringLiteral("ColorSet/DayEdits"), QStringLiteral("none")), QString());
}

void tst_ColorSet::editsAsText_data()
{
    QTest::addColumn<ColorMap>("colors");
    QTest::addColumn<QString>("text");
    QTest::newRow("none") << ColorMap() << QString();
    QTest::newRow("one") << ColorMap{ { 1, QColor(255, 0, 16) } } << QStringLiteral("1=#ff0010");
    QTest::newRow("rising") << ColorMap{ { 150, QColor(0, 0, 1) }, { 2, QColor(Qt::white) } }
                            << QStringLiteral("2=#ffffff;150=#000001");
    QTest::newRow("transparency is not written")
        << ColorMap{ { 3, QColor(1, 2, 3, 4) } } << QStringLiteral("3=#010203");
    QTest::newRow("an invalid colour is left out")
        << ColorMap{ { 1, QColor() }, { 2, QColor(Qt::red) } } << QStringLiteral("2=#ff0000");
}

void tst_ColorSet::editsAsText()
{
    QFETCH(ColorMap, colors);
    QFETCH(QString, text);
    QCOMPARE(ColorEdits::ToText(colors), text);
    QCOMPARE(ColorEdits::ToText(ColorEdits::FromText(text)), text);
}

void tst_ColorSet::editsFromText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<ColorMap>("colors");
    ColorMap const red{ { 1, QColor(Qt::red) } };
    QTest::newRow("empty") << QString() << ColorMap();
    QTest::newRow("one") << QStringLiteral("1=#ff0000") << red;
    QTest::newRow("capital letters") << QStringLiteral("1=#FF0000") << red;
    QTest::newRow("empty fields") << QStringLiteral(";;1=#ff0000;") << red;
    QTest::newRow("the later of two") << QStringLiteral("1=#00ff00;1=#ff0000") << red;
    QTest::newRow("no number") << QStringLiteral("x=#00ff00;=#00ff00;1=#ff0000") << red;
    QTest::newRow("no equals sign") << QStringLiteral("1#00ff00;1=#ff0000") << red;
    QTest::newRow("no colour") << QStringLiteral("2=;3=red;4=#ff;5=#gg0000;6=#ff000000;1=#ff0000") << red;
    QTest::newRow("number beyond int") << QStringLiteral("99999999999=#00ff00;1=#ff0000") << red;
    QTest::newRow("torn") << QStringLiteral("1=#ff0000;2=#00f") << red;
    QTest::newRow("noise") << QString(QChar(0)) + QStringLiteral("=;==;#;1=#ff0000") << red;
}

void tst_ColorSet::editsFromText()
{
    QFETCH(QString, text);
    QFETCH(ColorMap, colors);
    QCOMPARE(ColorEdits::FromText(text), colors);
}

ORIM_TEST_MAIN(tst_ColorSet)
#include "tst_colorset.moc"
