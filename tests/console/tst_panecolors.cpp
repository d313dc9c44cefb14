// SPDX-License-Identifier: MIT
#include "panecolors.h"

#include "colorset.h"
#include "testmain.h"

class tst_PaneColors : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void init() { ColorSet::Instance().Load(0); }

    void cleanup() { ColorSet::Instance().Load(0); }

    void eachHasItsColor_data();
    void eachHasItsColor();
};

void tst_PaneColors::eachHasItsColor_data()
{
    QTest::addColumn<int>("set");
    for (int set = 0; set < ColorSet::GetSetCount(); ++set)
        QTest::newRow(QByteArray("set ").append(QByteArray::number(set)).constData()) << set;
}

void tst_PaneColors::eachHasItsColor()
{
    QFETCH(int, set);
    ColorSet::Instance().Load(set);
    QMap<int, QColor> const factory = ColorSet::GetFactoryColors(set);
    PaneColors const colors = CurrentPaneColors();
    QCOMPARE(colors.ground, factory.value(IColorBase::eColorAxisBackground));
    QCOMPARE(colors.frame, factory.value(IColorBase::eColorAxisScale));
    QCOMPARE(colors.text, factory.value(IColorBase::eColorAxisForeground));
    QCOMPARE(colors.grid, factory.value(IColorBase::eColorGrid));
    QCOMPARE(colors.trace, factory.value(IColorBase::eColorSpectrumTrace));
    QCOMPARE(colors.peak, factory.value(IColorBase::eColorMaximumTrace));
    QVERIFY(colors.ground.isValid() && colors.ground != colors.text && colors.ground != colors.trace);
}

ORIM_TEST_MAIN(tst_PaneColors)
#include "tst_panecolors.moc"
