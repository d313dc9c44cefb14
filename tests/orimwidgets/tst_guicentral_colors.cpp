// SPDX-License-Identifier: MIT
#include "guicentral.h"

#include "colorset.h"
#include "guibase.h"
#include "guicentralaccess.h"
#include "ownstore.h"
#include "testmain.h"
#include "toldcolorsets.h"

#include <QRegularExpression>
#include <QSignalSpy>
#include <QTranslator>

#include <algorithm>
#include <limits>

namespace {

static_assert(
    std::is_same_v<decltype(&GuiCentral::GetWaterfallColorSets), std::vector<ShadingColorSet> & (GuiCentral::*)()>);
static_assert(std::is_same_v<decltype(&GuiCentral::GetColorSetIdForRoleId), int (GuiCentral::*)(unsigned int) const>);

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
    void pulseSetIsYellowBehind();
    void pulseSetTakesIndices();
    void vehicleSet_data();
    void vehicleSet();
    void vehicleSetInFull();
    void setsFollowTheSchemeOfTheRestore_data();
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
    void defaultOfEachRole_data();
    void defaultOfEachRole();
    void defaultOfEachUserSet_data();
    void defaultOfEachUserSet();

    void restoreUndoesEdits_data();
    void restoreUndoesEdits();
    void restoreResizes_data();
    void restoreResizes();
    void restoreLeavesWhatTheAzimuthTextLacks();
    void defaultsInAListOfAnotherLength_data();
    void defaultsInAListOfAnotherLength();
    void writesAListOfAnotherLength_data();
    void writesAListOfAnotherLength();
    void restoreKeepsThePlaceOfSets();
    void restoreOrder();
    void restoreRestoresCommonColors();
    void restoreWritesNoColorsOfItsOwn();
    void restoreByAnEmptySet();
    void restoreByAnEmptySetIsVirtual();
    void restoreByAnEmptySetOfNoOneElse();

private:
    OwnStore<> m_store;
};

void tst_GuiCentralColors::init() { m_store.BeginWithFactoryColors(); }

void tst_GuiCentralColors::cleanup() { m_store.End(); }

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

void tst_GuiCentralColors::pulseSetIsYellowBehind()
{
    GuiCentralAccess central;
    ShadingColorSet const & set = central.GetWaterfallColorSets()[18];
    bool ok = false;
    for (int i = 4; i < 255; ++i)
        QCOMPARE(set.GetColorNr(i, ok).rgb(), qRgb(255, 255, 0));
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

void tst_GuiCentralColors::vehicleSetInFull()
{
    GuiCentralAccess central;
    ShadingColorSet const & set = central.GetWaterfallColorSets()[19];
    bool ok = false;
    for (int i = 0; i < 180; ++i) {
        int const side = i < 90 ? 1004 : 1002;
        QCOMPARE(set.GetColorNr(i, ok).rgb(), Definition(i == 0 || i == 179 ? 1000 : side).rgb());
    }
}

void tst_GuiCentralColors::setsFollowTheSchemeOfTheRestore_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("definition");
    QTest::newRow("pulses") << 18 << 1014;
    QTest::newRow("vehicle") << 19 << 1004;
}

void tst_GuiCentralColors::setsFollowTheSchemeOfTheRestore()
{
    QFETCH(int, index);
    QFETCH(int, definition);
    GuiCentralAccess central;
    bool ok = false;
    ShadingColorSet const & set = central.GetWaterfallColorSets()[static_cast<std::size_t>(index)];
    QRgb const day = set.GetColorNr(1, ok).rgb();
    QVERIFY(ColorSet::Instance().Load(1));
    QRgb const night = Definition(definition).rgb();
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
    m_store->WriteString(key, QStringLiteral("13"));
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
    m_store->WriteString(QStringLiteral("GuiCentral/ColorSetDifferenceMode"), QString::number(stored));
    GuiCentralAccess central;
    QCOMPARE(central.GetColorSetIdForRoleId(7), stored);                                            // as read
    QCOMPARE(central.GetShadingRGB(0.0, VC::eShadingDifference, 0.0, 1.0, false), qRgb(255, 0, 0)); // of set 0
    QVERIFY(!central.isColorSetFixed(VC::eShadingDifference));
    QCOMPARE(central.GetBackgroundRGB(VC::eShadingDifference), Common());
    central.GetWaterfallColorSets()[0].SetFixed(true);
    QVERIFY(central.isColorSetFixed(VC::eShadingDifference));
    central.aboutToTerminate();
    QCOMPARE(m_store->ReadString(QStringLiteral("GuiCentral/ColorSetDifferenceMode"), QString()),
             QString::number(stored));
}

void tst_GuiCentralColors::storedRoleThatIsNoNumber()
{
    m_store->WriteString(QStringLiteral("GuiCentral/ColorSetA"), QStringLiteral("rainbow"));
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
    m_store->WriteString(QStringLiteral("GuiCentral/UserColor%1").arg(index), line);
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
    m_store->WriteString(QStringLiteral("GuiCentral/UserColor3"),
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
    QCOMPARE(m_store->GetKeys(), keys);
}

void tst_GuiCentralColors::writtenRole_data() { storedRole_data(); }

void tst_GuiCentralColors::writtenRole()
{
    QFETCH(int, role);
    QFETCH(QString, key);
    GuiCentralAccess central;
    GuiCentralAccess::Roles(central)[static_cast<std::size_t>(role)] = 13;
    central.aboutToTerminate();
    QCOMPARE(m_store->ReadString(key, QString()), QStringLiteral("13"));
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
    QString const line = m_store->ReadString(QStringLiteral("GuiCentral/UserColor%1").arg(index), QString());
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

void tst_GuiCentralColors::defaultOfEachRole_data() { factoryRoles_data(); }

void tst_GuiCentralColors::defaultOfEachRole()
{
    QFETCH(int, role);
    QFETCH(int, set);
    for (Role const & told : ToldRoles)
        if (told.key)
            m_store->WriteString(QStringLiteral("GuiCentral/") + QLatin1String(told.key), QStringLiteral("2"));
    GuiCentralAccess central;
    auto const place = static_cast<unsigned int>(role);
    QCOMPARE(central.GetColorSetIdForRoleId(place), role < 8 ? 2 : set);
    GuiCentralAccess::Roles(central)[place] = 13;
    central.slotRestoreDefaultPersistant();
    QCOMPARE(central.GetColorSetIdForRoleId(place), role < 8 ? set : 13); // the last two have none
}

void tst_GuiCentralColors::defaultOfEachUserSet_data() { storedUserSet_data(); }

void tst_GuiCentralColors::defaultOfEachUserSet()
{
    QFETCH(int, index);
    m_store->WriteString(QStringLiteral("GuiCentral/UserColor%1").arg(index),
                         QStringLiteral("V02;1;0;0;0;1;0;0;0;#000000;#010203;"));
    GuiCentralAccess central;
    ShadingColorSet const & set = central.GetWaterfallColorSets()[static_cast<std::size_t>(index)];
    QVERIFY(set.GetString() != Line(ToldSets[index]));
    central.slotRestoreDefaultPersistant();
    QCOMPARE(set.GetString(), Line(ToldSets[index]));
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
    if (index == 9) { // its text lacks them
        set.SetOffset(0.0);
        set.SetBackgroundColor(Qt::black, false);
    }
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
    QTest::newRow("more") << 25;
}

void tst_GuiCentralColors::restoreResizes()
{
    QFETCH(int, size);
    GuiCentralAccess central;
    central.GetWaterfallColorSets().resize(static_cast<std::size_t>(size));
    central.GetShadingRGB(0.0, VC::eShadingAzimuth, 0.0, 1.0, false); // stays defined
    central.GetBackgroundRGB(VC::eShadingAzimuth);
    QCOMPARE(central.isColorSetFixed(VC::eShadingAzimuth), size > 9);
    central.slotRestoreFactoryColors();
    QCOMPARE(central.GetWaterfallColorSets().size(), std::size_t(Sets));
    QCOMPARE(central.GetWaterfallColorSets()[9].GetString(), Line(ToldSets[9]));
}

void tst_GuiCentralColors::restoreLeavesWhatTheAzimuthTextLacks()
{
    GuiCentralAccess central;
    for (std::size_t const i : { 9u, 15u }) {
        central.GetWaterfallColorSets()[i].SetOffset(4.5);
        central.GetWaterfallColorSets()[i].SetBackgroundColor(QColor(1, 2, 3), true);
    }
    central.slotRestoreFactoryColors();
    ShadingColorSet const & azimuth = central.GetWaterfallColorSets()[9];
    QCOMPARE(azimuth.GetOffset(), 4.5);
    QVERIFY(azimuth.GetUseMinIndexBackground());
    QVERIFY(azimuth.GetString().contains(QLatin1String(";1;#010203;")));
    ShadingColorSet const & fine = central.GetWaterfallColorSets()[15];
    QCOMPARE(fine.GetOffset(), 0.0);
    QCOMPARE(fine.GetString(), Line(ToldSets[15]));
}

void tst_GuiCentralColors::defaultsInAListOfAnotherLength_data() { restoreResizes_data(); }

void tst_GuiCentralColors::defaultsInAListOfAnotherLength()
{
    QFETCH(int, size);
    GuiCentralAccess central;
    std::vector<ShadingColorSet> & sets = central.GetWaterfallColorSets();
    sets.resize(static_cast<std::size_t>(size));
    for (ShadingColorSet & set : sets)
        set.SetColorNr(0, QColor(1, 2, 3));
    central.slotRestoreDefaultPersistant();
    QCOMPARE(sets.size(), static_cast<std::size_t>(size));
    for (int i = 0; i < std::min(size, 3); ++i)
        QCOMPARE(sets[static_cast<std::size_t>(i)].GetString(), Line(ToldSets[i]));
}

void tst_GuiCentralColors::writesAListOfAnotherLength_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<bool>("isWritten");
    QTest::newRow("without the last of the operator") << 2 << false;
    QTest::newRow("more") << 25 << true;
}

void tst_GuiCentralColors::writesAListOfAnotherLength()
{
    QFETCH(int, size);
    QFETCH(bool, isWritten);
    GuiCentralAccess central;
    std::vector<ShadingColorSet> & sets = central.GetWaterfallColorSets();
    sets.resize(static_cast<std::size_t>(size));
    sets[1].SetColorNr(0, QColor(1, 2, 3));
    central.aboutToTerminate();
    QCOMPARE(m_store->ReadString(QStringLiteral("GuiCentral/UserColor1"), QString()), sets[1].GetString());
    QCOMPARE(m_store->GetKeys().contains(QStringLiteral("GuiCentral/UserColor2")), isWritten);
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
    for (QString const & key : m_store->GetKeys())
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
    QSignalSpy const changed(&GuiBase::Instance(), &GuiBase::signalColorsChanged);
    QCOMPARE(own.GetColor(0.0, 0.0, 1.0, false), QColor(Qt::black));
    QVERIFY(changed.count() > 0); // the one of Instance() is asked again
}

void tst_GuiCentralColors::restoreByAnEmptySetOfNoOneElse()
{
    {
        GuiCentralAccess const gone;
    }
    ShadingColorSet & azimuth = GuiCentral::Instance().GetWaterfallColorSets()[9];
    azimuth.SetColorNr(0, QColor(1, 2, 3));
    ShadingColorSet own;
    own.Resize(0);
    own.GetColor(0.0, 0.0, 1.0, false);
    QCOMPARE(azimuth.GetString(), Line(ToldSets[9]));
}

ORIM_TEST_MAIN(tst_GuiCentralColors)
#include "tst_guicentral_colors.moc"
