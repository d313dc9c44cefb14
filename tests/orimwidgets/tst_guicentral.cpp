// SPDX-License-Identifier: MIT
#include "guicentral.h"

#include "colorset.h"
#include "guibase.h"
#include "guicentralaccess.h"
#include "ownstore.h"
#include "testmain.h"
#include "translationcenter.h"
#include "tree.h"
#include "valueselection.h"

#include <QMetaMethod>
#include <QSignalSpy>

#include <algorithm>
#include <functional>
#include <utility>

namespace {

using Central = GuiCentral;

// What is handed on keeps its shape.
static_assert(!std::is_default_constructible_v<Central>);
static_assert(std::has_virtual_destructor_v<Central>);
static_assert(std::is_same_v<decltype(&Central::Instance), Central & (*)()>);
static_assert(std::is_same_v<decltype(&Central::GetGuiName), QString (Central::*)()>);
static_assert(std::is_same_v<decltype(&Central::GetDrawHiddenPanes), bool (Central::*)() const>);
static_assert(std::is_same_v<decltype(&Central::GetValuePath4ID), ValueBase * (Central::*)(VC::ID)>);
static_assert(std::is_same_v<decltype(&Central::ShowHotKeyFrom), void (Central::*)(QAction *, QString)>);
static_assert(std::is_same_v<decltype(&Central::SetApplication), void (Central::*)(QApplication *)>);
static_assert(std::is_same_v<decltype(&Central::SetMainWidget), void (Central::*)(QWidget *)>);
static_assert(std::is_same_v<decltype(&Central::StoreWidgetSize), void (Central::*)()>);
static_assert(std::is_same_v<decltype(&Central::SetShowFrequencyInHz), void (Central::*)(bool)>);
static_assert(std::is_same_v<decltype(&Central::SetFrequencyUnit), void (Central::*)(SuffixedDouble::ESuffix)>);
static_assert(std::is_same_v<decltype(&Central::SetFrequencyResolution), void (Central::*)(SuffixedDouble::ESuffix)>);
static_assert(std::is_same_v<decltype(&Central::SetDisplayMode), void (Central::*)(int)>);
static_assert(std::is_same_v<decltype(&Central::EnableHotKey), void (Central::*)(int, bool)>);
static_assert(std::is_same_v<decltype(&Central::RemoveHotKeyReceiver), void (Central::*)(QObject *)>);
static_assert(std::is_same_v<decltype(&Central::ExecHotKeysDialog), void (Central::*)(QWidget *)>);
static_assert(std::is_same_v<decltype(&Central::SetValuePath4ID), void (Central::*)(VC::ID, QString const &)>);

GuiBase & Gui() { return GuiBase::Instance(); }

//! A store that tells what it was asked, and may do something meanwhile.
class ListeningCfg : public ICfg
{
public:
    QString ReadString(QString const & key, QString const & fallback) override
    {
        m_reads << key;
        return m_texts.value(key, fallback);
    }

    void WriteString(QString const & key, QString const & text) override
    {
        m_writes << key;
        m_texts[key] = text;
        if (m_onWrite)
            m_onWrite();
    }

    bool Flush() override
    {
        ++m_flushes;
        return m_lasts;
    }

    QMap<QString, QString> m_texts;
    QStringList m_reads;
    QStringList m_writes;
    std::function<void()> m_onWrite;
    int m_flushes = 0;
    bool m_lasts = true;
};

//! The keys of the store, in the order of adding.
QStringList Keys()
{
    return { QStringLiteral("GuiCentral/ColorSet"),       QStringLiteral("GuiCentral/ColorSetA"),
             QStringLiteral("GuiCentral/ColorSetE"),      QStringLiteral("GuiCentral/ColorSetBitStream"),
             QStringLiteral("GuiCentral/ColorSetAgeing"), QStringLiteral("GuiCentral/ColorSetQuality"),
             QStringLiteral("GuiCentral/ColorSetPifpan"), QStringLiteral("GuiCentral/ColorSetDifferenceMode"),
             QStringLiteral("GuiCentral/UserColor0"),     QStringLiteral("GuiCentral/UserColor1"),
             QStringLiteral("GuiCentral/UserColor2") };
}

template <class T>
T * Insert(char const * name)
{
    auto * const value = new T(QString::fromLatin1(name));
    Tree::Instance()->Insert(QStringLiteral("/central"), value);
    return value;
}

//! An operation that tells of its end.
class Ending : public OperationBase
{
public:
    explicit Ending(std::function<void()> end) : OperationBase(QString(), QString()), m_end(std::move(end)) {}

    Ending(Ending const &) = delete;
    Ending & operator=(Ending const &) = delete;

    ~Ending() override { m_end(); }

private:
    void Compute(Role /*changed*/) override {}

    std::function<void()> m_end;
};

QString Path(char const * name) { return QStringLiteral("/central/") + QLatin1String(name); }

} // namespace

class tst_GuiCentral : public QObject
{
    Q_OBJECT
private Q_SLOTS:

    void initTestCase() { TestStage::HushPopups(); }

    void init();
    void cleanup();

    void oneInstance();
    void castsByName_data();
    void castsByName();
    void basesInOrder();
    void translates();
    void translationIsRegisteredOnce();
    void methods_data();
    void methods();
    void applicationRaisesSignals_data();
    void applicationRaisesSignals();
    void signalsOfTheApplicationAreLeftToIt();
    void frequencyToJob_data();
    void frequencyToJob();

    void startingState();
    void ownState();
    void constructorReadsInOrder();
    void constructorRaisesOnceBeforeAndOnceAfterReading();
    void listenerOfTheConstructorGetsWhatIsBuilt();
    void rolesAreAppliedAgainBeforeReading();
    void commonColorsSurviveTheStart();

    void beforeWriteDoesNothing();
    void afterReadTellsOfColors();
    void restoresDefaultOnSignal();
    void restoreDefaultIsVirtual();
    void restoreDefaultAfterTermination();

    void valuePaths_data();
    void valuePaths();
    void unsetValuePathLeavesAnEntry();
    void valuePathOfARemovedValue();

    void resultGoesAway();
    void resultIsLetGo();
    void updateIgnores_data();
    void updateIgnores();
    void updateWithoutOperation();
    void updateOfNoValue();

    void terminationWrites();
    void terminationWritesFirst();
    void secondTerminationWritesNothing();
    void terminationInsideItsOwnWrite();
    void terminationOfAFailingStore();
    void terminationEndsOperations();
    void terminationEndsInOrder();
    void terminationByTheApplication();
    void colorsAfterTermination();
    void destructorTerminates();

private:
    OwnStore<ListeningCfg> m_store;
};

void tst_GuiCentral::init()
{
    m_store.Begin();
    Gui().SetApplication(qApp);
}

void tst_GuiCentral::cleanup()
{
    Gui().SetApplication(nullptr);
    Tree::Instance()->RemoveFolder(QStringLiteral("/central"));
    m_store.End();
}

void tst_GuiCentral::oneInstance()
{
    QCOMPARE(&GuiCentral::Instance(), &GuiCentral::Instance());
    QCOMPARE(GuiCentral::Instance().metaObject()->className(), "GuiCentral");
}

void tst_GuiCentral::castsByName_data()
{
    GuiCentral & central = GuiCentral::Instance();
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<void *>("pointer");
    QTest::newRow("itself") << QByteArray("GuiCentral") << static_cast<void *>(&central);
    QTest::newRow("observer") << QByteArray("IObserver") << static_cast<void *>(static_cast<IObserver *>(&central));
    QTest::newRow("owner of a group") << QByteArray("PersistantOwner")
                                      << static_cast<void *>(static_cast<PersistantOwner *>(&central));
    QTest::newRow("target of the end") << QByteArray("IAbstractTerminationTarget")
                                       << static_cast<void *>(static_cast<IAbstractTerminationTarget *>(&central));
    QTest::newRow("the rest is left to QObject")
        << QByteArray("QObject") << static_cast<void *>(static_cast<QObject *>(&central));
    QTest::newRow("unknown") << QByteArray("QWidget") << static_cast<void *>(nullptr);
}

void tst_GuiCentral::castsByName()
{
    QFETCH(QByteArray, name);
    QFETCH(void *, pointer);
    QCOMPARE(GuiCentral::Instance().qt_metacast(name.constData()), pointer);
}

void tst_GuiCentral::basesInOrder()
{
    GuiCentral & central = GuiCentral::Instance();
    auto const at = [](auto * base) { return reinterpret_cast<quintptr>(base); };
    quintptr const bases[] = { at(static_cast<QObject *>(&central)), at(static_cast<IObserver *>(&central)),
                               at(static_cast<PersistantOwner *>(&central)),
                               at(static_cast<IAbstractTerminationTarget *>(&central)) };
    QVERIFY(std::is_sorted(std::begin(bases), std::end(bases)));
}

void tst_GuiCentral::translates()
{
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_DEPRECATED
    QCOMPARE(GuiCentral::tr("Rainbow"), QStringLiteral("Rainbow"));
    QCOMPARE(GuiCentral::tr("%n sets", "comment", 3), QStringLiteral("3 sets"));
    QCOMPARE(GuiCentral::trUtf8("Rainbow", "comment"), QStringLiteral("Rainbow"));
    QCOMPARE(GuiCentral::trUtf8("%n sets", nullptr, 4), QStringLiteral("4 sets"));
    QT_WARNING_POP
}

void tst_GuiCentral::translationIsRegisteredOnce()
{
    QCOMPARE(TranslationCenter::Instance()->GetCount(QStringLiteral("OrimWidgets")), 1);
}

void tst_GuiCentral::methods_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QByteArray>("signature");
    QTest::addColumn<bool>("isSignal");
    QTest::newRow("0") << 0 << QByteArray("focusLost()") << true;
    QTest::newRow("1") << 1 << QByteArray("hasFocus()") << true;
    QTest::newRow("2") << 2 << QByteArray("signalKnownFrequencyListChanged()") << true;
    QTest::newRow("3") << 3 << QByteArray("signalHotKey(int)") << true;
    QTest::newRow("4") << 4 << QByteArray("hotkey_ESC_pressed()") << true;
    QTest::newRow("5") << 5 << QByteArray("FrequencyToJob(double)") << true;
    QTest::newRow("6") << 6 << QByteArray("signalRestoreDefaultPersistant()") << true;
    QTest::newRow("7") << 7 << QByteArray("slotRestoreDefaultPersistant()") << false;
    QTest::newRow("8") << 8 << QByteArray("slotRestoreFactoryColors()") << false;
}

void tst_GuiCentral::methods()
{
    QFETCH(int, index);
    QFETCH(QByteArray, signature);
    QFETCH(bool, isSignal);
    QMetaObject const & meta = GuiCentral::staticMetaObject;
    QMetaMethod const method = meta.method(meta.methodOffset() + index);
    QCOMPARE(method.methodSignature(), signature);
    QCOMPARE(method.methodType() == QMetaMethod::Signal, isSignal);
    QCOMPARE(method.methodType() == QMetaMethod::Slot, !isSignal);
}

void tst_GuiCentral::applicationRaisesSignals_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::newRow("focus lost") << QByteArray("focusLost");
    QTest::newRow("has focus") << QByteArray("hasFocus");
    QTest::newRow("known frequencies") << QByteArray("signalKnownFrequencyListChanged");
}

void tst_GuiCentral::applicationRaisesSignals()
{
    QFETCH(QByteArray, name);
    GuiCentralAccess central;
    QSignalSpy const spy(&central, QByteArray("2" + name + "()").constData());
    QVERIFY(QMetaObject::invokeMethod(&central, name.constData()));
    QCOMPARE(spy.count(), 1);
}

void tst_GuiCentral::signalsOfTheApplicationAreLeftToIt()
{
    GuiCentralAccess central;
    QSignalSpy const lost(&central, &GuiCentral::focusLost);
    QSignalSpy const gained(&central, &GuiCentral::hasFocus);
    QSignalSpy const known(&central, &GuiCentral::signalKnownFrequencyListChanged);
    QWidget widget;
    widget.show();
    widget.activateWindow();
    widget.setFocus();
    Gui().hotkey_ESC_pressed();
    Gui().signalHotKey(1);
    central.emit_toJob(1.0);
    central.slotRestoreFactoryColors();
    central.slotRestoreDefaultPersistant();
    widget.clearFocus();
    widget.hide();
    central.aboutToTerminate();
    QCOMPARE(lost.count(), 0);
    QCOMPARE(gained.count(), 0);
    QCOMPARE(known.count(), 0);
}

void tst_GuiCentral::frequencyToJob_data()
{
    QTest::addColumn<double>("frequency");
    QTest::newRow("a frequency") << 98.5e6;
    QTest::newRow("zero") << 0.0;
    QTest::newRow("NaN") << qQNaN();
    QTest::newRow("infinite") << qInf();
}

void tst_GuiCentral::frequencyToJob()
{
    QFETCH(double, frequency);
    GuiCentralAccess central;
    QSignalSpy const spy(&central, &GuiCentral::FrequencyToJob);
    central.emit_toJob(frequency);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toDouble(), frequency);
}

void tst_GuiCentral::startingState()
{
    GuiCentralAccess central;
    QVERIFY(central.GetGuiName().isEmpty());
    QVERIFY(!central.GetDrawHiddenPanes());
    QVERIFY(!GuiCentralAccess::AzimuthElevationColors(central));
    QCOMPARE(central.GetChangeableWaterfallColorSets(), 0xFFFFu);
    QVERIFY(GuiCentralAccess::Group(central));
    QVERIFY(GuiCentralAccess::BoolOperations(central).empty());
    QVERIFY(GuiCentralAccess::NumericOperations(central).empty());
    QVERIFY(GuiCentralAccess::SelectionCouplers(central).empty());
    QVERIFY(GuiCentralAccess::ValuePaths(central).empty());
    QEvent close(QEvent::Close);
    QVERIFY(!central.eventFilter(this, &close));
}

void tst_GuiCentral::ownState()
{
    GuiCentralAccess central;
    central.SetGuiName(QStringLiteral("Station 1"));
    QString name = central.GetGuiName();
    name.clear();
    QCOMPARE(central.GetGuiName(), QStringLiteral("Station 1"));
    central.SetDrawHiddenPanes(true);
    QVERIFY(central.GetDrawHiddenPanes());
    QVERIFY(!GuiCentralAccess::AzimuthElevationColors(central));
    central.EnableAzimuthElevationColors(true);
    QVERIFY(GuiCentralAccess::AzimuthElevationColors(central));
    central.EnableAzimuthElevationColors(false);
    QVERIFY(!GuiCentralAccess::AzimuthElevationColors(central));
}

void tst_GuiCentral::constructorReadsInOrder()
{
    GuiCentralAccess const central;
    QCOMPARE(m_store->m_reads, Keys());
    QCOMPARE(m_store->m_writes, QStringList());
}

void tst_GuiCentral::constructorRaisesOnceBeforeAndOnceAfterReading()
{
    m_store->m_texts[QStringLiteral("GuiCentral/ColorSetA")] = QStringLiteral("3");
    QList<int> azimuthSets;
    QList<int> reads;
    QObject context;
    connect(&Gui(), &GuiBase::signalColorsChanged, &context, [&] {
        azimuthSets << GuiCentral::Instance().GetColorSetIdForRoleId(1);
        reads << static_cast<int>(m_store->m_reads.size());
    });
    GuiCentralAccess const central;
    QCOMPARE(azimuthSets, QList<int>({ 9, 3 }));
    QCOMPARE(reads, QList<int>({ 0, 11 }));
}

void tst_GuiCentral::listenerOfTheConstructorGetsWhatIsBuilt()
{
    QList<GuiCentral *> seen;
    std::size_t sets = 0;
    QObject context;
    connect(&Gui(), &GuiBase::signalColorsChanged, &context, [&] {
        seen << &GuiCentral::Instance();
        sets = GuiCentral::Instance().GetWaterfallColorSets().size();
        GuiCentral::Instance().GetShadingRGB(0.0, 1, 0.0, 1.0, false);
    });
    GuiCentralAccess central;
    QCOMPARE(seen, QList<GuiCentral *>({ &central, &central }));
    QCOMPARE(sets, std::size_t(20));
    QVERIFY(&GuiCentral::Instance() != &central);
}

void tst_GuiCentral::rolesAreAppliedAgainBeforeReading()
{
    bool first = true;
    QObject context;
    connect(&Gui(), &GuiBase::signalColorsChanged, &context, [&] {
        if (std::exchange(first, false))
            GuiCentralAccess::Roles(GuiCentral::Instance())[1] = 4;
    });
    GuiCentralAccess central;
    QVERIFY(!first);
    QCOMPARE(central.GetColorSetIdForRoleId(1), 9);
    central.slotRestoreDefaultPersistant();
    QCOMPARE(central.GetColorSetIdForRoleId(1), 9);
}

void tst_GuiCentral::commonColorsSurviveTheStart()
{
    QColor & background = ColorSet::Instance()[IColorBase::eColorShadingBackground];
    background = QColor(1, 2, 3);
    Gui().emit_signalColorsChanged(); // keeps the edit
    {
        GuiCentralAccess const central;
        QCOMPARE(background, QColor(1, 2, 3));
    }
    ColorSet::Instance().slotRestoreFactoryColors();
    QVERIFY(background != QColor(1, 2, 3));
}

void tst_GuiCentral::beforeWriteDoesNothing()
{
    GuiCentralAccess central;
    QSignalSpy const changed(&Gui(), &GuiBase::signalColorsChanged);
    QStringList const reads = m_store->m_reads;
    central.ApplyPersistantBeforeWrite();
    QCOMPARE(changed.count(), 0);
    QCOMPARE(m_store->m_reads, reads);
    QCOMPARE(m_store->m_writes, QStringList());
}

void tst_GuiCentral::afterReadTellsOfColors()
{
    GuiCentralAccess central;
    QSignalSpy const changed(&Gui(), &GuiBase::signalColorsChanged);
    central.ApplyPersistantAfterRead();
    QCOMPARE(changed.count(), 1);
    GuiCentralAccess::Group(central)->Read(QString(), 0);
    QCOMPARE(changed.count(), 2);
}

void tst_GuiCentral::restoresDefaultOnSignal()
{
    GuiCentralAccess central;
    GuiCentralAccess::Roles(central)[1] = 4;
    QString const line = central.GetWaterfallColorSets()[2].GetString();
    central.GetWaterfallColorSets()[2].SetColorNr(0, QColor(1, 2, 3));
    QSignalSpy const changed(&Gui(), &GuiBase::signalColorsChanged);
    Q_EMIT central.signalRestoreDefaultPersistant();
    QCOMPARE(central.GetColorSetIdForRoleId(1), 9);
    QCOMPARE(central.GetWaterfallColorSets()[2].GetString(), line);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(m_store->m_writes, QStringList());
}

void tst_GuiCentral::restoreDefaultIsVirtual()
{
    GuiCentralAccess central;
    Q_EMIT central.signalRestoreDefaultPersistant();
    QCOMPARE(central.m_restoredDefaults, 1);
}

void tst_GuiCentral::restoreDefaultAfterTermination()
{
    GuiCentralAccess central;
    central.aboutToTerminate();
    GuiCentralAccess::Roles(central)[1] = 4;
    QSignalSpy const changed(&Gui(), &GuiBase::signalColorsChanged);
    central.slotRestoreDefaultPersistant();
    QCOMPARE(central.GetColorSetIdForRoleId(1), 4);
    QCOMPARE(changed.count(), 1);
}

void tst_GuiCentral::valuePaths_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("isFound");
    QTest::newRow("known path") << 1 << "/central/level" << true;
    QTest::newRow("no id") << 0 << "/central/level" << true;
    QTest::newRow("negative id") << -7 << "/central/level" << true;
    QTest::newRow("large id") << 2000000000 << "/central/level" << true;
    QTest::newRow("unknown path") << 1 << "/central/other" << false;
    QTest::newRow("empty path") << 1 << "" << false;
    QTest::newRow("folder") << 1 << "/central" << false;
}

void tst_GuiCentral::valuePaths()
{
    QFETCH(int, id);
    QFETCH(QString, path);
    QFETCH(bool, isFound);
    GuiCentralAccess central;
    ValueBase * const level = Insert<ValueNumeric<double>>("level");
    central.SetValuePath4ID(static_cast<VC::ID>(id), path);
    QCOMPARE(central.GetValuePath4ID(static_cast<VC::ID>(id)), isFound ? level : nullptr);
    QCOMPARE(GuiCentralAccess::ValuePaths(central).size(), std::size_t(1));
    QVERIFY(!central.GetValuePath4ID(static_cast<VC::ID>(99)));
    ValueBase * const other = Insert<Value<bool>>("replaced");
    central.SetValuePath4ID(static_cast<VC::ID>(id), Path("replaced"));
    QCOMPARE(central.GetValuePath4ID(static_cast<VC::ID>(id)), other);
}

void tst_GuiCentral::unsetValuePathLeavesAnEntry()
{
    GuiCentralAccess central;
    auto const id = static_cast<VC::ID>(5);
    QVERIFY(!central.GetValuePath4ID(id));
    auto const & paths = GuiCentralAccess::ValuePaths(central);
    QCOMPARE(paths.size(), std::size_t(1));
    QCOMPARE(paths.begin()->first, id);
    QVERIFY(paths.begin()->second.isEmpty());
}

void tst_GuiCentral::valuePathOfARemovedValue()
{
    GuiCentralAccess central;
    auto const id = static_cast<VC::ID>(5);
    Insert<Value<bool>>("level");
    central.SetValuePath4ID(id, Path("level"));
    QVERIFY(central.GetValuePath4ID(id));
    Tree::Instance()->Remove(Path("level"));
    QVERIFY(!central.GetValuePath4ID(id));
    QCOMPARE(GuiCentralAccess::ValuePaths(central).at(id), Path("level"));
}

void tst_GuiCentral::resultGoesAway()
{
    GuiCentralAccess central;
    auto * const source = Insert<ValueNumeric<int>>("source");
    auto * const result = Insert<Value<bool>>("result");
    auto & operations = GuiCentralAccess::BoolOperations(central);
    operations[Path("result")] =
        std::make_unique<BoolOperation>(Path("result"), Path("source"), 1, BoolOperation::eEqual);
    result->AddObserver(&central);
    source->SetValue(1, nullptr);
    QVERIFY(result->GetValue());
    QCOMPARE(source->GetObserverCount(), 1);
    Tree::Instance()->Remove(Path("result"));
    QVERIFY(operations.empty());
    QCOMPARE(source->GetObserverCount(), 0); // the operation has gone
}

void tst_GuiCentral::resultIsLetGo()
{
    GuiCentralAccess central;
    Insert<ValueNumeric<int>>("source");
    auto * const result = Insert<Value<bool>>("result");
    auto & operations = GuiCentralAccess::BoolOperations(central);
    operations[Path("result")] =
        std::make_unique<BoolOperation>(Path("result"), Path("source"), 1, BoolOperation::eEqual);
    result->AddObserver(&central);
    result->SetState(eStateGoingAway, nullptr); // and stays in the tree
    QVERIFY(!result->HasObserver(&central));
    QVERIFY(operations.empty());
}

void tst_GuiCentral::updateIgnores_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("state");
    QTest::newRow("value, going away") << 3 << 1;
    QTest::newRow("range, going away") << 4 << 1;
    QTest::newRow("items, going away") << 7 << 1;
    QTest::newRow("interim, going away") << 23 << 1;
    QTest::newRow("state valid") << 2 << 0;
    QTest::newRow("state disabled") << 2 << 2;
}

void tst_GuiCentral::updateIgnores()
{
    QFETCH(int, code);
    QFETCH(int, state);
    GuiCentralAccess central;
    Insert<ValueNumeric<int>>("source");
    auto * const result = Insert<Value<bool>>("result");
    auto & operations = GuiCentralAccess::BoolOperations(central);
    operations[Path("result")] =
        std::make_unique<BoolOperation>(Path("result"), Path("source"), 1, BoolOperation::eEqual);
    result->SetState(static_cast<TValueState>(state), nullptr);
    result->AddObserver(&central);
    central.Update(result, static_cast<TChangeCode>(code));
    QCOMPARE(operations.size(), std::size_t(1));
    QVERIFY(operations.begin()->second);
    QVERIFY(result->HasObserver(&central));
    central.aboutToTerminate();
    result->DeleteObserver(&central);
}

void tst_GuiCentral::updateWithoutOperation()
{
    GuiCentralAccess central;
    auto * const value = Insert<Value<bool>>("other");
    value->AddObserver(&central);
    Tree::Instance()->Remove(Path("other"));
    QVERIFY(GuiCentralAccess::BoolOperations(central).empty());
}

void tst_GuiCentral::updateOfNoValue()
{
    GuiCentralAccess central;
    Observable subject;
    subject.AddObserver(&central);
    central.Update(&subject, eStateChanged);
    QVERIFY(subject.HasObserver(&central));
    central.Update(nullptr, eStateChanged);
    QVERIFY(GuiCentralAccess::BoolOperations(central).empty());
}

void tst_GuiCentral::terminationWrites()
{
    GuiCentralAccess central;
    GuiCentralAccess::Roles(central)[1] = 4;
    central.aboutToTerminate();
    QCOMPARE(m_store->m_writes, Keys());
    QCOMPARE(m_store->m_flushes, 1);
    QCOMPARE(m_store->m_texts.value(QStringLiteral("GuiCentral/ColorSetA")), QStringLiteral("4"));
    QVERIFY(!GuiCentralAccess::Group(central));
}

void tst_GuiCentral::terminationWritesFirst()
{
    GuiCentralAccess central;
    Insert<Value<bool>>("result");
    Insert<ValueNumeric<int>>("source");
    GuiCentralAccess::BoolOperations(central)[Path("result")] =
        std::make_unique<BoolOperation>(Path("result"), Path("source"), 1, BoolOperation::eEqual);
    std::size_t operations = 0;
    m_store->m_onWrite = [&] { operations = GuiCentralAccess::BoolOperations(central).size(); };
    central.aboutToTerminate();
    m_store->m_onWrite = nullptr;
    QCOMPARE(operations, std::size_t(1));
}

void tst_GuiCentral::secondTerminationWritesNothing()
{
    GuiCentralAccess central;
    central.aboutToTerminate();
    m_store->m_writes.clear();
    central.aboutToTerminate();
    QCOMPARE(m_store->m_writes, QStringList());
    QCOMPARE(m_store->m_flushes, 1);
}

void tst_GuiCentral::terminationInsideItsOwnWrite()
{
    GuiCentralAccess central;
    m_store->m_onWrite = [&] { central.aboutToTerminate(); };
    central.aboutToTerminate();
    m_store->m_onWrite = nullptr;
    QCOMPARE(m_store->m_writes, Keys());
}

void tst_GuiCentral::terminationOfAFailingStore()
{
    GuiCentralAccess central;
    m_store->m_lasts = false;
    central.aboutToTerminate();
    QCOMPARE(m_store->m_flushes, 1);
    QVERIFY(!GuiCentralAccess::Group(central));
}

void tst_GuiCentral::terminationEndsOperations()
{
    GuiCentralAccess central;
    auto * const source = Insert<ValueNumeric<int>>("source");
    auto * const flag = Insert<Value<bool>>("flag");
    Insert<Value<bool>>("isOne");
    Insert<Value<bool>>("isTwo");
    Insert<ValueNumeric<double>>("sum");
    Insert<ValueNumeric<double>>("coupled");
    Insert<ValueSelection>("selection");
    auto & bools = GuiCentralAccess::BoolOperations(central);
    bools[Path("isOne")] = std::make_unique<BoolOperation>(Path("isOne"), Path("source"), 1, BoolOperation::eEqual);
    bools[Path("isTwo")] = std::make_unique<BoolOperation>(Path("isTwo"), Path("source"), 2, BoolOperation::eEqual);
    auto & numerics = GuiCentralAccess::NumericOperations(central);
    numerics.push_back(std::make_unique<NumericOperation>(Path("sum"), Path("source"), 1.0, NumericOperation::eAdd));
    numerics.push_back(std::make_unique<NumericCoupler>(Path("coupled"), Path("source"), 2.0, NumericCoupler::eFactor));
    auto & couplers = GuiCentralAccess::SelectionCouplers(central);
    couplers.push_back(std::make_unique<BoolSelectionCoupler>(Path("flag"), Path("selection"), false));
    QCOMPARE(source->GetObserverCount(), 4);
    QCOMPARE(flag->GetObserverCount(), 1);
    central.aboutToTerminate();
    QVERIFY(bools.empty());
    QVERIFY(numerics.empty());
    QVERIFY(couplers.empty());
    QCOMPARE(source->GetObserverCount(), 0);
    QCOMPARE(flag->GetObserverCount(), 0);
}

void tst_GuiCentral::terminationEndsInOrder()
{
    GuiCentralAccess central;
    auto & bools = GuiCentralAccess::BoolOperations(central);
    bools[Path("b")] = std::make_unique<BoolOperation>(Path("b"), Path("s"), 1, BoolOperation::eEqual);
    auto & couplers = GuiCentralAccess::SelectionCouplers(central);
    couplers.push_back(std::make_unique<BoolSelectionCoupler>(Path("f"), Path("c"), false));
    QList<int> left;
    GuiCentralAccess::NumericOperations(central).push_back(
        std::make_unique<Ending>([&] { left << static_cast<int>(bools.size()) << static_cast<int>(couplers.size()); }));
    central.aboutToTerminate();
    QCOMPARE(left, QList<int>({ 0, 1 }));
}

void tst_GuiCentral::terminationByTheApplication()
{
    GuiCentralAccess central;
    IAbstractTerminationTarget::TerminateAll();
    QCOMPARE(m_store->m_writes.mid(0, 11), Keys()); // the youngest is told first
    QVERIFY(!GuiCentralAccess::Group(central));
    QVERIFY(!GuiCentralAccess::Group(GuiCentral::Instance()));
}

void tst_GuiCentral::colorsAfterTermination()
{
    GuiCentralAccess central;
    QRgb const before = central.GetShadingRGB(10.0, VC::eShadingAzimuth, 0.0, 360.0, false);
    central.aboutToTerminate();
    QCOMPARE(central.GetShadingRGB(10.0, VC::eShadingAzimuth, 0.0, 360.0, false), before);
    QCOMPARE(central.GetWaterfallColorSets().size(), std::size_t(20));
    QCOMPARE(central.GetColorSetIdForRoleId(7), 17);
    central.slotRestoreFactoryColors();
    QCOMPARE(central.GetShadingRGB(10.0, VC::eShadingAzimuth, 0.0, 360.0, false), before);
}

void tst_GuiCentral::destructorTerminates()
{
    auto * const source = Insert<ValueNumeric<int>>("source");
    Insert<ValueNumeric<double>>("sum");
    {
        GuiCentralAccess central;
        GuiCentralAccess::NumericOperations(central).push_back(
            std::make_unique<NumericOperation>(Path("sum"), Path("source"), 1.0, NumericOperation::eAdd));
        QCOMPARE(m_store->m_writes, QStringList());
    }
    QCOMPARE(m_store->m_writes, Keys());
    QCOMPARE(source->GetObserverCount(), 0);
}

ORIM_TEST_MAIN(tst_GuiCentral)
#include "tst_guicentral.moc"
