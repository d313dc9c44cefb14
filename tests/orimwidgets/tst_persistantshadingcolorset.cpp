// SPDX-License-Identifier: MIT
#include "persistantshadingcolorset.h"

#include "shadingcolorset.h"
#include "testmain.h"

#include <QMap>

#include <memory>

namespace {

QString const DefaultText = QStringLiteral("V02;1;0;1;0;360;0;0;0;#000000;#fe0000;");
QString const OtherText = QStringLiteral("V02;2;1;0;1;2;3;0;0;#000000;#00ff00;#0000ff;");

//! A store that tells what it was asked.
class ListeningCfg : public ICfg
{
public:
    QMap<QString, QString> m_texts;
    QStringList m_calls;

    QString ReadString(QString const & key, QString const & fallback) override
    {
        m_calls << QStringLiteral("read %1 or %2").arg(key, fallback);
        return m_texts.value(key, fallback);
    }

    void WriteString(QString const & key, QString const & text) override
    {
        m_calls << QStringLiteral("write %1: %2").arg(key, text);
        m_texts[key] = text;
    }
};

} // namespace

class tst_persistantshadingcolorset : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsTheStoredText();
    void readsTheDefaultTextWhenNothingIsStored();
    void readsAnEmptyTextAsStored();
    void writes();
    void restoresTheDefault();
    void writtenIsReadBack();
    void doesNotOwnTheSet();
    void withoutSetOrStore();
    void isAPersistantObject();
};

void tst_persistantshadingcolorset::readsTheStoredText()
{
    ShadingColorSet set;
    PersistantShadingColorSet item(&set, QStringLiteral("UserColor0"), DefaultText);
    ListeningCfg store;
    store.m_texts[QStringLiteral("UserColor0")] = OtherText;
    item.Read(&store);
    QCOMPARE(set.GetString(), OtherText);
    QCOMPARE(store.m_calls, QStringList{ QStringLiteral("read UserColor0 or ") + DefaultText });
}

void tst_persistantshadingcolorset::readsTheDefaultTextWhenNothingIsStored()
{
    ShadingColorSet set;
    PersistantShadingColorSet item(&set, QStringLiteral("UserColor0"), DefaultText);
    ListeningCfg store;
    item.Read(&store);
    QCOMPARE(set.GetString(), DefaultText);
}

void tst_persistantshadingcolorset::readsAnEmptyTextAsStored()
{
    ShadingColorSet set;
    PersistantShadingColorSet item(&set, QStringLiteral("UserColor0"), DefaultText);
    ListeningCfg store;
    store.m_texts[QStringLiteral("UserColor0")] = QStringLiteral("");
    item.Read(&store);
    QCOMPARE(set.GetString(), ShadingColorSet().GetString()); // an empty line changes nothing
}

void tst_persistantshadingcolorset::writes()
{
    ShadingColorSet set;
    set.SetString(OtherText);
    PersistantShadingColorSet item(&set, QStringLiteral("UserColor1"), DefaultText);
    ListeningCfg store;
    item.Write(&store);
    QCOMPARE(store.m_calls, QStringList{ QStringLiteral("write UserColor1: ") + OtherText });
}

void tst_persistantshadingcolorset::restoresTheDefault()
{
    ShadingColorSet set;
    set.SetString(OtherText);
    PersistantShadingColorSet item(&set, QStringLiteral("UserColor1"), DefaultText);
    QCOMPARE(set.GetString(), OtherText); // building it changes nothing
    item.RestoreDefault();
    QCOMPARE(set.GetString(), DefaultText);
}

void tst_persistantshadingcolorset::writtenIsReadBack()
{
    ShadingColorSet set;
    set.SetString(OtherText);
    set.SetName(QStringLiteral("Mine"));
    ShadingColorSet other;
    ListeningCfg store;
    PersistantShadingColorSet(&set, QStringLiteral("key"), QString()).Write(&store);
    PersistantShadingColorSet(&other, QStringLiteral("key"), DefaultText).Read(&store);
    QCOMPARE(other.GetString(), OtherText);
    QVERIFY(other.GetName().isEmpty());
}

void tst_persistantshadingcolorset::doesNotOwnTheSet()
{
    ShadingColorSet set;
    set.SetString(OtherText);
    std::make_unique<PersistantShadingColorSet>(&set, QStringLiteral("key"), DefaultText).reset();
    QCOMPARE(set.GetString(), OtherText);
}

void tst_persistantshadingcolorset::withoutSetOrStore()
{
    ShadingColorSet set;
    ListeningCfg store;
    PersistantShadingColorSet nothing(nullptr, QStringLiteral("key"), DefaultText);
    nothing.Read(&store);
    nothing.Write(&store);
    nothing.RestoreDefault();
    QVERIFY(store.m_calls.isEmpty());
    PersistantShadingColorSet item(&set, QStringLiteral("key"), DefaultText);
    item.Read(nullptr);
    item.Write(nullptr);
    QCOMPARE(set.GetString(), ShadingColorSet().GetString());
}

void tst_persistantshadingcolorset::isAPersistantObject()
{
    ShadingColorSet set;
    std::unique_ptr<PersistantObject> const item =
        std::make_unique<PersistantShadingColorSet>(&set, QStringLiteral("key"), DefaultText);
    item->RestoreDefault();
    QCOMPARE(set.GetString(), DefaultText);
}

ORIM_CORE_TEST_MAIN(tst_persistantshadingcolorset)
#include "tst_persistantshadingcolorset.moc"
