// SPDX-License-Identifier: MIT
#include "guicentral.h"

#include "colors.h"
#include "colorset.h"
#include "guibase.h"
#include "guicentralaccess.h"
#include "memorycfg.h"
#include "testmain.h"

#include <QPen>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTranslator>

namespace {

static_assert(
    std::is_same_v<decltype(&GuiCentral::GetWaterfallColorSets), std::vector<ShadingColorSet> & (GuiCentral::*)()>);
static_assert(std::is_same_v<decltype(&GuiCentral::GetColorSetIdForRoleId), int (GuiCentral::*)(unsigned int) const>);
static_assert(
    std::is_same_v<decltype(&GuiCentral::GetShadingRGB), QRgb (GuiCentral::*)(double, int, double, double, bool)>);
static_assert(
    std::is_same_v<decltype(&GuiCentral::GetShadingPen), QPen (GuiCentral::*)(double, int, double, double, bool)>);
static_assert(std::is_same_v<decltype(&GuiCentral::GetBackgroundRGB), QRgb (GuiCentral::*)(int)>);
static_assert(std::is_same_v<decltype(&GuiCentral::GetBackgroundPen), QPen (GuiCentral::*)(int)>);
static_assert(std::is_same_v<decltype(&GuiCentral::isColorSetFixed), bool (GuiCentral::*)(int)>);

constexpr int Sets = 20;

//! A factory set as it is told: the first colours in words, the rest is tested apart.
struct Told
{
    char const * name;
    char const * colors;
    char const * line; // the text without its colours
    bool writeable;
};

constexpr char const * Rainbow = "#ff0000;#ff8000;#ffff00;#00ff00;#00ffff;#0000ff;#000080;#800080;";
constexpr char const * Fine = "#fe0000;#fe0077;#ff0091;#ff00d5;#d400fe;#9500ff;#5900ff;#0004ff;#0051ff;#00bbff;"
                              "#00fff7;#00ffa2;#84fe01;#b2fe00;#edfe00;#feb200;#fe9d00;#fe6e00;#ff4901;#ff0901;";

Told const ToldSets[Sets] = {
    { "User defined (eUser0Set)", "#ff0000;#00ff00;#0000ff;", "V02;3;1;0;0;100;0;0;0;#000000;", true },
    { "User defined (eUser1Set)", "#ffffff;#c0c0c0;#808080;", "V02;3;1;0;0;100;0;0;0;#000000;", true },
    { "User defined (eUser2Set)", "#00ffff;#0000ff;#000000;", "V02;3;1;0;0;100;0;0;0;#000000;", true },
    { "Rainbow", Rainbow, "V02;8;0;0;0;100;0;0;0;#000000;", false },
    { "Smooth Rainbow", Rainbow, "V02;8;1;0;0;100;0;0;0;#000000;", false },
    { "Black and White", "#ffffff;#c0c0c0;#808080;", "V02;3;0;0;0;100;0;0;0;#000000;", false },
    { "Red shade", "#ffff00;#ff0000;#000000;", "V02;3;1;0;0;100;0;0;0;#000000;", false },
    { "Blue shade", "#00ffff;#0000ff;#000000;", "V02;3;1;0;0;100;0;0;0;#000000;", false },
    { "Cyan only", "#00ffff;", "V02;1;1;0;0;100;0;0;0;#000000;", false },
    { "Azimuth Rainbow", Fine, "V02;20;0;1;0;360;0;1;0;#000000;", false },
    { "White to Dark Gray", "#ffffff;#b0b0b0;#606060;", "V02;3;1;0;0;100;0;0;0;#000000;", false },
    { "Black to Gray", "#000000;#707070;#c0c0c0;", "V02;3;1;0;0;100;0;0;1;#c0c0c0;", false },
    { "Yellow to Dark Gray", "#ffff20;#f0f0f0;#b0b0b0;#606060;", "V02;4;1;0;0;100;0;0;0;#000000;", false },
    { "White only", "#ffffff;#ffffff;", "V02;2;1;0;0;100;0;0;0;#000000;", false },
    { "Black only", "#000000;#000000;", "V02;2;1;0;0;100;0;0;0;#000000;", false },
    { "Fine Rainbow", Fine, "V02;20;0;1;0;100;0;1;0;#000000;", false },
    { "Differential Mode Simple", "#00ffff;#000000;#ff00ff;", "V02;3;1;1;-30;30;0;0;0;#000000;", false },
    { "Differential Mode", "#ffff00;#ff0000;#000000;#0000ff;#00ffff;", "V02;5;1;1;-30;30;0;0;0;#000000;", false },
    { "PDWs", nullptr, "V02;255;0;1;0;255;0;0;0;#000000;", false },
    { "Vehicle Axis", nullptr, "V02;180;0;1;0;360;0;1;0;#000000;", false },
};

struct Role
{
    int role;
    int set;
    char const * key; // null: not persisted
};

constexpr Role ToldRoles[] = {
    { 0, 0, "ColorSet" },        { 1, 9, "ColorSetA" },
    { 2, 5, "ColorSetE" },       { 3, 4, "ColorSetBitStream" },
    { 4, 10, "ColorSetAgeing" }, { 5, 0, "ColorSetQuality" },
    { 6, 4, "ColorSetPifpan" },  { 7, 17, "ColorSetDifferenceMode" },
    { 8, 18, nullptr },          { 9, 19, nullptr },
};

QString Line(Told const & set) { return QLatin1String(set.line) + QLatin1String(set.colors); }

QColor Definition(int id) { return Colors::Instance().GetColorDefinition(id)->GetColor(); }

QRgb Common() { return ColorSet::Instance()[IColorBase::eColorShadingBackground].rgb(); }

//! Translates one text of the library.
class Translator : public QTranslator
{
public:
    QString translate(char const * context, char const * text, char const *, int) const override
    {
        bool const isMeant = qstrcmp(context, "GuiCentral") == 0 && qstrcmp(text, "Rainbow") == 0;
        return isMeant ? QStringLiteral("Regenbogen") : QString();
    }

    bool isEmpty() const override { return false; }
};

} // namespace

class tst_GuiCentralColors : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void factorySets_data();
    void factorySets();
    void pulseSet_data();
    void pulseSet();
    void pulseSetTakesIndices();
    void vehicleSet_data();
    void vehicleSet();
    void setsFollowTheSchemeOfTheRestore();
    void firstUserSetHasTheCommonBackground();
    void namesAreTranslated();

    void factoryRoles_data();
    void factoryRoles();
    void roleOutside_data();
    void roleOutside();

    void storedRole_data();
    void storedRole();
    void storedRoleOutside_data();
    void storedRoleOutside();
    void storedRoleThatIsNoNumber();
    void storedUserSet_data();
    void storedUserSet();
    void storedFixedSetsAreNotRead();
    void writtenKeys();
    void writtenRole_data();
    void writtenRole();
    void writtenUserSet_data();
    void writtenUserSet();
    void comesBack();
    void defaultsAreTheFactorys();

    void restoreUndoesEdits_data();
    void restoreUndoesEdits();
    void restoreResizes_data();
    void restoreResizes();
    void restoreKeepsThePlaceOfSets();
    void restoreOrder();
    void restoreRestoresCommonColors();
    void restoreWritesNoColorsOfItsOwn();
    void restoreByAnEmptySet();
    void restoreByAnEmptySetIsVirtual();

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
    MemoryCfg m_store;
    ICfg * m_pStoreBefore = nullptr;
};

void tst_GuiCentralColors::init()
{
    GuiCentral::Instance();
    m_pStoreBefore = Persistant::Store();
    m_store.Clear();
    Persistant::SetStore(&m_store);
    ColorSet::Instance().Load(0);
    ColorSet::Instance().slotRestoreFactoryColors();
    m_store.Clear();
}

void tst_GuiCentralColors::cleanup() { Persistant::SetStore(m_pStoreBefore); }

void tst_GuiCentralColors::factorySets_data()
{
    QTest::addColumn<int>("index");
    for (int i = 0; i < Sets; ++i)
        QTest::newRow(ToldSets[i].name) << i;
}

void tst_GuiCentralColors::factorySets()
{
    QFETCH(int, index);
    GuiCentralAccess central;
    QCOMPARE(central.GetWaterfallColorSets().size(), std::size_t(Sets));
    Told const & told = ToldSets[index];
    ShadingColorSet const & set = central.GetWaterfallColorSets()[static_cast<std::size_t>(index)];
    QCOMPARE(set.GetName(), QString::fromLatin1(told.name));
    QCOMPARE(set.GetWriteable(), told.writeable);
    if (told.colors)
        QCOMPARE(set.GetString(), Line(told));
    else
        QVERIFY(set.GetString().startsWith(QLatin1String(told.line)));
}

void tst_GuiCentralColors::pulseSet_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QColor>("color");
    QTest::newRow("first") << 0 << QColor(Qt::yellow);
    QTest::newRow("entry 1") << 1 << Definition(1014);
    QTest::newRow("entry 2") << 2 << Definition(1012);
    QTest::newRow("entry 3") << 3 << Definition(1008);
    QTest::newRow("behind them") << 4 << QColor(Qt::yellow);
    QTest::newRow("behind what a text carries") << 34 << QColor(Qt::yellow);
    QTest::newRow("last") << 254 << QColor(Qt::yellow);
}

void tst_GuiCentralColors::pulseSet()
{
    QFETCH(int, index);
    QFETCH(QColor, color);
    GuiCentralAccess central;
    ShadingColorSet const & set = central.GetWaterfallColorSets()[18];
    QCOMPARE(set.GetLength(), std::size_t(255));
    bool ok = false;
    QCOMPARE(set.GetColorNr(index, ok).rgb(), color.rgb());
    QVERIFY(ok);
}

void tst_GuiCentralColors::pulseSetTakesIndices()
{
    GuiCentralAccess central;
    // 1.6 is nearest to entry 2; as a place in a range of 0 to 255 it would be entry 1
    QCOMPARE(central.GetShadingRGB(1.6, 9, 0.0, 1.0, false), Definition(1012).rgb());
    QCOMPARE(central.GetShadingRGB(1.0, 10, 0.0, 1.0, false), Definition(1000).rgb()); // degrees, not entry 1
}

void tst_GuiCentralColors::vehicleSet_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("definition");
    QTest::newRow("first") << 0 << 1000;
    QTest::newRow("first to starboard") << 1 << 1004;
    QTest::newRow("last to starboard") << 89 << 1004;
    QTest::newRow("first to port") << 90 << 1002;
    QTest::newRow("last to port") << 178 << 1002;
    QTest::newRow("last") << 179 << 1000;
}

void tst_GuiCentralColors::vehicleSet()
{
    QFETCH(int, index);
    QFETCH(int, definition);
    GuiCentralAccess central;
    ShadingColorSet const & set = central.GetWaterfallColorSets()[19];
    QCOMPARE(set.GetLength(), std::size_t(180));
    bool ok = false;
    QCOMPARE(set.GetColorNr(index, ok).rgb(), Definition(definition).rgb());
    QVERIFY(ok);
}

void tst_GuiCentralColors::setsFollowTheSchemeOfTheRestore()
{
    GuiCentralAccess central;
    bool ok = false;
    ShadingColorSet const & set = central.GetWaterfallColorSets()[18];
    QRgb const day = set.GetColorNr(1, ok).rgb();
    QVERIFY(ColorSet::Instance().Load(1));
    QRgb const night = Definition(1014).rgb();
    QVERIFY(night != day);
    QCOMPARE(set.GetColorNr(1, ok).rgb(), day); // not before the restore
    central.slotRestoreFactoryColors();
    QCOMPARE(set.GetColorNr(1, ok).rgb(), night);
}

void tst_GuiCentralColors::firstUserSetHasTheCommonBackground()
{
    GuiCentralAccess central;
    central.GetWaterfallColorSets()[0].SetUseMinIndexBackground(true);
    central.slotRestoreFactoryColors();
    QVERIFY(!central.GetWaterfallColorSets()[0].GetUseMinIndexBackground());
}

void tst_GuiCentralColors::namesAreTranslated()
{
    Translator translator;
    QVERIFY(QCoreApplication::installTranslator(&translator));
    GuiCentralAccess central;
    QCoreApplication::removeTranslator(&translator);
    QCOMPARE(central.GetWaterfallColorSets()[3].GetName(), QStringLiteral("Regenbogen"));
    QCOMPARE(central.GetWaterfallColorSets()[4].GetName(), QStringLiteral("Smooth Rainbow"));
}

void tst_GuiCentralColors::factoryRoles_data()
{
    QTest::addColumn<int>("role");
    QTest::addColumn<int>("set");
    for (Role const & role : ToldRoles)
        QTest::addRow("role %d", role.role) << role.role << role.set;
}

void tst_GuiCentralColors::factoryRoles()
{
    QFETCH(int, role);
    QFETCH(int, set);
    GuiCentralAccess central;
    QCOMPARE(central.GetColorSetIdForRoleId(static_cast<unsigned int>(role)), set);
    GuiCentralAccess::Roles(central)[static_cast<std::size_t>(role)] = 13;
    central.slotRestoreFactoryColors();
    QCOMPARE(central.GetColorSetIdForRoleId(static_cast<unsigned int>(role)), set);
    QCOMPARE(GuiCentralAccess::Roles(central).size(), std::size_t(10));
}

void tst_GuiCentralColors::roleOutside_data()
{
    QTest::addColumn<unsigned int>("role");
    QTest::newRow("one behind") << 10u;
    QTest::newRow("minus one") << 0xFFFFFFFFu;
}

void tst_GuiCentralColors::roleOutside()
{
    QFETCH(unsigned int, role);
    GuiCentralAccess const central;
    QCOMPARE(central.GetColorSetIdForRoleId(role), 0);
}

void tst_GuiCentralColors::storedRole_data()
{
    QTest::addColumn<int>("role");
    QTest::addColumn<QString>("key");
    for (Role const & role : ToldRoles)
        if (role.key)
            QTest::newRow(role.key) << role.role << QStringLiteral("GuiCentral/") + QLatin1String(role.key);
}

void tst_GuiCentralColors::storedRole()
{
    QFETCH(int, role);
    QFETCH(QString, key);
    m_store.WriteString(key, QStringLiteral("13"));
    GuiCentralAccess const central;
    for (Role const & other : ToldRoles)
        QCOMPARE(central.GetColorSetIdForRoleId(static_cast<unsigned int>(other.role)),
                 other.role == role ? 13 : other.set);
}

void tst_GuiCentralColors::storedRoleOutside_data()
{
    QTest::addColumn<int>("stored");
    QTest::newRow("one behind") << 20;
    QTest::newRow("negative") << -1;
    QTest::newRow("lowest") << std::numeric_limits<int>::lowest();
    QTest::newRow("highest") << std::numeric_limits<int>::max();
}

void tst_GuiCentralColors::storedRoleOutside()
{
    QFETCH(int, stored);
    m_store.WriteString(QStringLiteral("GuiCentral/ColorSetDifferenceMode"), QString::number(stored));
    GuiCentralAccess central;
    QCOMPARE(central.GetColorSetIdForRoleId(7), stored);                                            // as read
    QCOMPARE(central.GetShadingRGB(0.0, VC::eShadingDifference, 0.0, 1.0, false), qRgb(255, 0, 0)); // of set 0
    QVERIFY(!central.isColorSetFixed(VC::eShadingDifference));
    QCOMPARE(central.GetBackgroundRGB(VC::eShadingDifference), Common());
    central.GetWaterfallColorSets()[0].SetFixed(true);
    QVERIFY(central.isColorSetFixed(VC::eShadingDifference));
    central.aboutToTerminate();
    QCOMPARE(m_store.ReadString(QStringLiteral("GuiCentral/ColorSetDifferenceMode"), QString()),
             QString::number(stored));
}

void tst_GuiCentralColors::storedRoleThatIsNoNumber()
{
    m_store.WriteString(QStringLiteral("GuiCentral/ColorSetA"), QStringLiteral("rainbow"));
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("\"rainbow\" of \"ColorSetA\"")));
    GuiCentralAccess const central;
    QCOMPARE(central.GetColorSetIdForRoleId(1), 9);
}

void tst_GuiCentralColors::storedUserSet_data()
{
    QTest::addColumn<int>("index");
    QTest::newRow("UserColor0") << 0;
    QTest::newRow("UserColor1") << 1;
    QTest::newRow("UserColor2") << 2;
}

void tst_GuiCentralColors::storedUserSet()
{
    QFETCH(int, index);
    QString const line = QStringLiteral("V02;2;0;1;-5;5;1;1;1;#010203;#040506;#070809;");
    m_store.WriteString(QStringLiteral("GuiCentral/UserColor%1").arg(index), line);
    GuiCentralAccess central;
    for (int i = 0; i < 3; ++i) {
        ShadingColorSet const & set = central.GetWaterfallColorSets()[static_cast<std::size_t>(i)];
        QCOMPARE(set.GetString(), i == index ? line : Line(ToldSets[i]));
        QCOMPARE(set.GetName(), QString::fromLatin1(ToldSets[i].name));
        QVERIFY(set.GetWriteable());
    }
}

void tst_GuiCentralColors::storedFixedSetsAreNotRead()
{
    m_store.WriteString(QStringLiteral("GuiCentral/UserColor3"),
                        QStringLiteral("V02;1;0;0;0;1;0;0;0;#000000;#010203;"));
    GuiCentralAccess central;
    QCOMPARE(central.GetWaterfallColorSets()[3].GetString(), Line(ToldSets[3]));
}

void tst_GuiCentralColors::writtenKeys()
{
    GuiCentralAccess central;
    central.aboutToTerminate();
    QStringList keys;
    for (Role const & role : ToldRoles)
        if (role.key)
            keys << QStringLiteral("GuiCentral/") + QLatin1String(role.key);
    keys << QStringLiteral("GuiCentral/UserColor0") << QStringLiteral("GuiCentral/UserColor1")
         << QStringLiteral("GuiCentral/UserColor2");
    keys.sort();
    QCOMPARE(m_store.GetKeys(), keys);
}

void tst_GuiCentralColors::writtenRole_data() { storedRole_data(); }

void tst_GuiCentralColors::writtenRole()
{
    QFETCH(int, role);
    QFETCH(QString, key);
    GuiCentralAccess central;
    GuiCentralAccess::Roles(central)[static_cast<std::size_t>(role)] = 13;
    central.aboutToTerminate();
    QCOMPARE(m_store.ReadString(key, QString()), QStringLiteral("13"));
}

void tst_GuiCentralColors::writtenUserSet_data() { storedUserSet_data(); }

void tst_GuiCentralColors::writtenUserSet()
{
    QFETCH(int, index);
    GuiCentralAccess central;
    ShadingColorSet & set = central.GetWaterfallColorSets()[static_cast<std::size_t>(index)];
    set.SetColorNr(1, QColor(1, 2, 3));
    set.SetOffset(4.5);
    central.aboutToTerminate();
    QString const line = m_store.ReadString(QStringLiteral("GuiCentral/UserColor%1").arg(index), QString());
    QCOMPARE(line, set.GetString());
    QVERIFY(line.contains(QLatin1String("#010203")));
}

void tst_GuiCentralColors::comesBack()
{
    {
        GuiCentralAccess central;
        GuiCentralAccess::Roles(central)[0] = 15;
        central.GetWaterfallColorSets()[1].SetColorNr(0, QColor(1, 2, 3));
    }
    GuiCentralAccess central;
    QCOMPARE(central.GetColorSetIdForRoleId(0), 15);
    bool ok = false;
    QCOMPARE(central.GetWaterfallColorSets()[1].GetColorNr(0, ok), QColor(1, 2, 3));
}

void tst_GuiCentralColors::defaultsAreTheFactorys()
{
    m_store.WriteString(QStringLiteral("GuiCentral/ColorSetPifpan"), QStringLiteral("2"));
    m_store.WriteString(QStringLiteral("GuiCentral/UserColor1"),
                        QStringLiteral("V02;1;0;0;0;1;0;0;0;#000000;#010203;"));
    GuiCentralAccess central;
    QCOMPARE(central.GetColorSetIdForRoleId(6), 2);
    central.slotRestoreDefaultPersistant();
    QCOMPARE(central.GetColorSetIdForRoleId(6), 4);
    QCOMPARE(central.GetWaterfallColorSets()[1].GetString(), Line(ToldSets[1]));
}

void tst_GuiCentralColors::restoreUndoesEdits_data() { factorySets_data(); }

void tst_GuiCentralColors::restoreUndoesEdits()
{
    QFETCH(int, index);
    GuiCentralAccess central;
    ShadingColorSet & set = central.GetWaterfallColorSets()[static_cast<std::size_t>(index)];
    ShadingColorSet before = set;
    set.SetString(QStringLiteral("V02;2;1;1;7;8;9;0;1;#111111;#222222;#333333;"));
    set.SetSmooth(!before.GetSmooth());
    set.SetName(QStringLiteral("other"));
    set.SetWriteable(!before.GetWriteable());
    set.SetPureIndexUse(index != 18);
    central.slotRestoreFactoryColors();
    QCOMPARE(set.GetString(), before.GetString());
    QVERIFY(set.GetVector() == before.GetVector());
    QCOMPARE(set.GetName(), before.GetName());
    QCOMPARE(set.GetWriteable(), before.GetWriteable());
    for (double const value : { 1.0, 1.6, 18.0 }) // where an index and a place in the range differ
        QCOMPARE(set.GetColor(value, 1.0, 2.0, false).rgb(), before.GetColor(value, 1.0, 2.0, false).rgb());
}

void tst_GuiCentralColors::restoreResizes_data()
{
    QTest::addColumn<int>("size");
    QTest::newRow("none") << 0;
    QTest::newRow("fewer") << 5;
}

void tst_GuiCentralColors::restoreResizes()
{
    QFETCH(int, size);
    GuiCentralAccess central;
    central.GetWaterfallColorSets().resize(static_cast<std::size_t>(size));
    central.GetShadingRGB(0.0, VC::eShadingAzimuth, 0.0, 1.0, false); // stays defined
    central.GetBackgroundRGB(VC::eShadingAzimuth);
    QCOMPARE(central.isColorSetFixed(VC::eShadingAzimuth), false);
    central.slotRestoreFactoryColors();
    QCOMPARE(central.GetWaterfallColorSets().size(), std::size_t(Sets));
    QCOMPARE(central.GetWaterfallColorSets()[9].GetString(), Line(ToldSets[9]));
}

void tst_GuiCentralColors::restoreKeepsThePlaceOfSets()
{
    GuiCentralAccess central;
    ShadingColorSet * const sets = central.GetWaterfallColorSets().data();
    int * const roles = GuiCentralAccess::Roles(central).data();
    central.slotRestoreFactoryColors();
    central.slotRestoreDefaultPersistant();
    QCOMPARE(central.GetWaterfallColorSets().data(), sets);
    QCOMPARE(GuiCentralAccess::Roles(central).data(), roles);
}

void tst_GuiCentralColors::restoreOrder()
{
    GuiCentralAccess central;
    GuiCentralAccess::Roles(central)[1] = 4;
    central.GetWaterfallColorSets()[3].SetName(QStringLiteral("other"));
    ColorSet::Instance()[IColorBase::eColorShadingBackground] = QColor(1, 2, 3);
    QStringList seen;
    QObject context;
    connect(&GuiBase::Instance(), &GuiBase::signalColorsChanged, &context, [&] {
        bool const areOursDone = central.GetColorSetIdForRoleId(1) == 9 &&
                                 central.GetWaterfallColorSets()[3].GetName() == QLatin1String("Rainbow");
        bool const areCommonDone = Common() != qRgb(1, 2, 3);
        seen << QStringLiteral("%1%2").arg(areOursDone).arg(areCommonDone);
    });
    central.slotRestoreFactoryColors();
    // the common colours tell of their restore, then we of ours
    QCOMPARE(seen, QStringList({ QStringLiteral("11"), QStringLiteral("11") }));
}

void tst_GuiCentralColors::restoreRestoresCommonColors()
{
    GuiCentralAccess central;
    QRgb const before = Common();
    ColorSet::Instance()[IColorBase::eColorShadingBackground] = QColor(1, 2, 3);
    GuiBase::Instance().emit_signalColorsChanged();
    central.slotRestoreFactoryColors();
    QCOMPARE(Common(), before);
}

void tst_GuiCentralColors::restoreWritesNoColorsOfItsOwn()
{
    GuiCentralAccess central;
    central.slotRestoreFactoryColors();
    for (QString const & key : m_store.GetKeys())
        QVERIFY2(!key.startsWith(QLatin1String("GuiCentral/")), qPrintable(key));
}

void tst_GuiCentralColors::restoreByAnEmptySet()
{
    GuiCentralAccess central;
    central.GetWaterfallColorSets()[9].Resize(0);
    QSignalSpy const changed(&GuiBase::Instance(), &GuiBase::signalColorsChanged);
    QCOMPARE(central.GetShadingRGB(0.0, VC::eShadingAzimuth, 0.0, 1.0, false), qRgb(0, 0, 0));
    QCOMPARE(central.GetWaterfallColorSets()[9].GetString(), Line(ToldSets[9]));
    QVERIFY(changed.count() > 0);
    QCOMPARE(central.GetShadingRGB(0.0, VC::eShadingAzimuth, 0.0, 1.0, false), qRgb(0xfe, 0, 0));
}

void tst_GuiCentralColors::restoreByAnEmptySetIsVirtual()
{
    ShadingColorSet own;
    own.Resize(0);
    {
        GuiCentralAccess central;
        own.GetColor(0.0, 0.0, 1.0, false);
        QCOMPARE(central.m_restoredFactory, 1);
    }
    QCOMPARE(own.GetColor(0.0, 0.0, 1.0, false), QColor(Qt::black)); // nobody left to ask
}

void tst_GuiCentralColors::shading_data()
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

void tst_GuiCentralColors::shading()
{
    QFETCH(int, id);
    QFETCH(double, value);
    QFETCH(bool, inverse);
    QFETCH(QRgb, color);
    GuiCentralAccess central;
    QCOMPARE(central.GetShadingRGB(value, id, -100.0, 0.0, inverse), color);
}

void tst_GuiCentralColors::shadingOfAll()
{
    GuiCentralAccess central;
    for (int id = 1; id <= 10; ++id) // an id is a role counted from 1
        QCOMPARE(central.isColorSetFixed(id),
                 central.GetWaterfallColorSets()[static_cast<std::size_t>(ToldRoles[id - 1].set)].GetFixed());
}

void tst_GuiCentralColors::shadingWithoutRole_data()
{
    QTest::addColumn<int>("id");
    QTest::newRow("none") << 0;
    QTest::newRow("negative") << -1;
    QTest::newRow("one behind") << 11;
    QTest::newRow("lowest") << std::numeric_limits<int>::lowest();
    QTest::newRow("highest") << std::numeric_limits<int>::max();
}

void tst_GuiCentralColors::shadingWithoutRole()
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

void tst_GuiCentralColors::shadingIsGetColor()
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

void tst_GuiCentralColors::shadingOfOddNumbers_data()
{
    QTest::addColumn<double>("value");
    QTest::newRow("NaN") << qQNaN();
    QTest::newRow("infinite") << qInf();
    QTest::newRow("minus infinite") << -qInf();
    QTest::newRow("huge") << 1e308;
    QTest::newRow("negative and huge") << -1e308;
}

void tst_GuiCentralColors::shadingOfOddNumbers()
{
    QFETCH(double, value);
    GuiCentralAccess central;
    for (int id = 1; id <= 10; ++id) {
        ShadingColorSet & set = central.GetWaterfallColorSets()[static_cast<std::size_t>(ToldRoles[id - 1].set)];
        QCOMPARE(central.GetShadingRGB(value, id, 0.0, 1.0, false), set.GetColor(value, 0.0, 1.0, false).rgb());
        QCOMPARE(central.GetShadingRGB(0.5, id, value, -value, true), set.GetColor(0.5, value, -value, true).rgb());
    }
}

void tst_GuiCentralColors::shadingPen()
{
    GuiCentralAccess central;
    QPen const pen = central.GetShadingPen(-50.0, VC::eShadingLevel, -100.0, 0.0, false);
    QCOMPARE(pen, QPen(QColor(0, 255, 0)));
    QCOMPARE(central.GetShadingPen(-100.0, VC::eShadingLevel, -100.0, 0.0, true).color(), QColor(0, 0, 255));
}

void tst_GuiCentralColors::changedSetIsSeen()
{
    GuiCentralAccess central;
    central.GetWaterfallColorSets()[0].SetColorNr(0, QColor(1, 2, 3));
    QCOMPARE(central.GetShadingRGB(0.0, VC::eShadingLevel, 0.0, 1.0, false), qRgb(1, 2, 3));
}

void tst_GuiCentralColors::background_data()
{
    QTest::addColumn<int>("set");
    QTest::addColumn<bool>("isOwn");
    for (int i = 0; i < Sets; ++i)
        QTest::newRow(ToldSets[i].name) << i << (i == 11);
}

void tst_GuiCentralColors::background()
{
    QFETCH(int, set);
    QFETCH(bool, isOwn);
    GuiCentralAccess central;
    GuiCentralAccess::Roles(central)[4] = set;
    QCOMPARE(central.GetBackgroundRGB(0), Common());
    QCOMPARE(central.GetBackgroundRGB(VC::eShadingAgeing), isOwn ? qRgb(0xc0, 0xc0, 0xc0) : Common());
}

void tst_GuiCentralColors::backgroundIsWritten()
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

void tst_GuiCentralColors::backgroundPen()
{
    GuiCentralAccess central;
    GuiCentralAccess::Roles(central)[4] = 11;
    QCOMPARE(central.GetBackgroundPen(VC::eShadingAgeing), QPen(QColor(0xc0, 0xc0, 0xc0)));
    QCOMPARE(central.GetBackgroundPen(0), QPen(QColor(Common())));
}

void tst_GuiCentralColors::backgroundOfAClearedSet()
{
    GuiCentralAccess central;
    GuiCentralAccess::Roles(central)[4] = 11;
    ShadingColorSet & set = central.GetWaterfallColorSets()[11];
    set.SetUseMinIndexBackground(false);
    set.SetBackgroundColor(QColor(1, 2, 3), false);
    QCOMPARE(central.GetBackgroundRGB(VC::eShadingAgeing), Common()); // not its own
    QVERIFY(set.GetString().contains(QLatin1String(";0;#010203;")));
}

void tst_GuiCentralColors::fixed_data()
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

void tst_GuiCentralColors::fixed()
{
    QFETCH(int, id);
    QFETCH(bool, isFixed);
    GuiCentralAccess central;
    QCOMPARE(central.isColorSetFixed(id), isFixed);
}

void tst_GuiCentralColors::mask()
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

ORIM_TEST_MAIN(tst_GuiCentralColors)
#include "tst_guicentral_colors.moc"
