// SPDX-License-Identifier: MIT
#include "colors.h"

#include "colorset.h"
#include "colorvision.h"
#include "memorycfg.h"
#include "persistant.h"

#include "testmain.h"

#include <climits>

class tst_Colors : public QObject
{
    Q_OBJECT
private Q_SLOTS:

    void initTestCase();

    void cleanup() { ColorSet::Instance().Load(0); }

    void definition_data();
    void definition();
    void numbersRise();
    void colorCanBeWritten();
    void followsTheLoadedSet_data();
    void followsTheLoadedSet();
    void loadKnowsItsSets_data();
    void loadKnowsItsSets();
    void toldApartByTheColorBlind_data();
    void toldApartByTheColorBlind();

private:
    MemoryCfg m_store;
};

//! Asked before the table of single colours exists, the palette is that of the stored set.
void tst_Colors::initTestCase()
{
    m_store.WriteString(QStringLiteral("ColorSet/Set"), QStringLiteral("1"));
    Persistant::SetStore(&m_store);
    QCOMPARE(Colors::Instance().GetColorDefinition(1000)->GetColor(), QColor(0xf0, 0xf6, 0xfc));
    QCOMPARE(ColorSet::Instance().GetCurrentSet(), 1);
    ColorSet::Instance().Load(0);
}

void tst_Colors::definition_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<QString>("name");
    QTest::newRow("1000") << 1000 << QStringLiteral("Foreground");
    QTest::newRow("1002") << 1002 << QStringLiteral("Red");
    QTest::newRow("1004") << 1004 << QStringLiteral("Green");
    QTest::newRow("1008") << 1008 << QStringLiteral("Azure");
    QTest::newRow("1012") << 1012 << QStringLiteral("Magenta");
    QTest::newRow("1014") << 1014 << QStringLiteral("Orange");
    QTest::newRow("1015 is the last") << 1015 << QStringLiteral("Background");
    QTest::newRow("999 is none") << 999 << QString();
    QTest::newRow("1016 is none") << 1016 << QString();
    QTest::newRow("0 is none") << 0 << QString();
    QTest::newRow("-1 is none") << -1 << QString();
    QTest::newRow("the lowest int is none") << INT_MIN << QString();
    QTest::newRow("the highest int is none") << INT_MAX << QString();
}

void tst_Colors::definition()
{
    QFETCH(int, id);
    QFETCH(QString, name);
    ColorDefinition * const definition = Colors::Instance().GetColorDefinition(id);
    QCOMPARE(definition != nullptr, !name.isNull());
    if (!definition)
        return;
    QCOMPARE(definition->GetId(), id);
    QCOMPARE(definition->GetName(), name);
    QVERIFY(definition->GetColor().isValid());
    QCOMPARE(Colors::Instance().GetColorDefinition(id), definition);
}

void tst_Colors::numbersRise()
{
    std::vector<int> wanted(16);
    for (int i = 0; i < 16; ++i)
        wanted[static_cast<std::size_t>(i)] = 1000 + i;
    QCOMPARE(Colors::Instance().GetIds(), wanted);
}

void tst_Colors::colorCanBeWritten()
{
    QColor & color = Colors::Instance().GetColorDefinition(1012)->GetColor();
    QColor const before = color;
    color = Qt::yellow;
    QCOMPARE(Colors::Instance().GetColorDefinition(1012)->GetColor(), QColor(Qt::yellow));
    ColorSet::Instance().Load(0);
    QCOMPARE(color, before);
}

void tst_Colors::followsTheLoadedSet_data()
{
    QTest::addColumn<int>("set");
    QTest::addColumn<QColor>("red");
    QTest::newRow("day") << 0 << QColor(0xc8, 0x10, 0x2e);
    QTest::newRow("night") << 1 << QColor(0xd6, 0x1f, 0x3c);
    QTest::newRow("high contrast") << 2 << QColor(0xff, 0x2b, 0x2b);
}

void tst_Colors::followsTheLoadedSet()
{
    QFETCH(int, set);
    QFETCH(QColor, red);
    ColorSet::Instance().Load((set + 1) % 3);
    QVERIFY(Colors::Instance().GetColorDefinition(1002)->GetColor() != red);
    ColorSet::Instance().Load(set);
    QCOMPARE(Colors::Instance().GetColorDefinition(1002)->GetColor(), red);
}

void tst_Colors::loadKnowsItsSets_data()
{
    QTest::addColumn<int>("set");
    QTest::addColumn<bool>("known");
    QTest::newRow("-1") << -1 << false;
    QTest::newRow("0") << 0 << true;
    QTest::newRow("2") << 2 << true;
    QTest::newRow("3") << 3 << false;
}

void tst_Colors::loadKnowsItsSets()
{
    QFETCH(int, set);
    QFETCH(bool, known);
    QColor const before = Colors::Instance().GetColorDefinition(1000)->GetColor();
    QCOMPARE(Colors::Instance().Load(set), known);
    if (!known)
        QCOMPARE(Colors::Instance().GetColorDefinition(1000)->GetColor(), before);
}

void tst_Colors::toldApartByTheColorBlind_data()
{
    QTest::addColumn<int>("set");
    QTest::addColumn<QVector<int>>("ids");
    for (int set = 0; set < ColorSet::GetSetCount(); ++set) {
        QByteArray const name = ColorSet::GetSetName(set).toLatin1();
        QTest::newRow("sides of a vehicle, " + name) << set << QVector<int>{ 1000, 1002, 1004 };
        QTest::newRow("marked signals, " + name) << set << QVector<int>{ 1008, 1012, 1014, 0 };
    }
}

void tst_Colors::toldApartByTheColorBlind()
{
    QFETCH(int, set);
    QFETCH(QVector<int>, ids);
    ColorSet::Instance().Load(set);
    auto const color = [](int id) {
        return id == 0 ? QColor(Qt::yellow) : Colors::Instance().GetColorDefinition(id)->GetColor();
    };
    for (auto const & eyes : { ColorVision::Ordinary, ColorVision::Protanopia, ColorVision::Deuteranopia })
        for (int i = 0; i < ids.size(); ++i)
            for (int j = 0; j < i; ++j) {
                double const distance = ColorVision::Distance(color(ids[i]), color(ids[j]), eyes);
                QVERIFY2(distance >= 12.0,
                         qPrintable(QStringLiteral("%1 and %2: %3").arg(ids[i]).arg(ids[j]).arg(distance)));
            }
}

ORIM_TEST_MAIN(tst_Colors)
#include "tst_colors.moc"
