// SPDX-License-Identifier: MIT
#include "axisprobe.h"

#include "axistext.h"
#include "colorset.h"
#include "guibase.h"
#include "handlerbase.h"
#include "marker.h"
#include "placeof.h"
#include "testmain.h"
#include "tree.h"
#include "valueselection.h"

#include <QResizeEvent>
#include <QSignalSpy>

#include <algorithm>
#include <cfloat>
#include <climits>
#include <cmath>
#include <limits>
#include <type_traits>

namespace {

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double Nothing = std::numeric_limits<double>::quiet_NaN();

//! Shows the place of what is protected.
class Places : public AxisBase
{
public:
    static int OfBackground() { return PlaceOf(&Places::drawBackground); }
};

} // namespace

class tst_axisbase : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // construction
    void defaultArguments();
    void fieldsAtTheStart();
    void shadingColorFollowsTheType_data();
    void shadingColorFollowsTheType();
    void fonts();
    void typeBits_data();
    void typeBits();
    void frequencyAxis();
    void timeAxis();
    void metaObject();
    void virtualOperationsKeepTheirOrder();
    void interfacesKeepTheirOrder();
    void ranges();
    void colorsAreTakenAnew();
    void paintsNothingItself();
    void constantAnswers();

    // range
    void settingAnEnd_data();
    void settingAnEnd();
    void endsAreProperties();
    void setRange();
    void setFixedRange();
    void defaultAndDeviceRange();
    void startAndStop();
    void displayFactor();
    void relative();
    void pixelOffsets();
    void plainSetters();
    void asksForAPaint_data();
    void asksForAPaint();
    void resized();

    // texts
    void labels_data();
    void labels();
    void labelByConverterTimeOrMarker();
    void numbers_data();
    void numbers();
    void numberByConverterOrTime();
    void timeStamps_data();
    void timeStamps();
    void reading();
    void units();
    void converter();
};

// Construction

void tst_axisbase::defaultArguments()
{
    AxisBase const axis;
    QVERIFY(!axis.parentWidget());
    QCOMPARE(axis.objectName(), QString());
    QCOMPARE(axis.GetAxisType(), 17U);
    QCOMPARE(axis.GetFixedSidePixels(), 20);

    QWidget parent;
    AxisProbe probe(&parent, "level", 0x24U, 3, 4, 5);
    QVERIFY(probe.parentWidget() == &parent);
    QCOMPARE(probe.objectName(), QStringLiteral("level"));
    QCOMPARE(probe.GetAxisType(), 0x24U);
    QCOMPARE(probe.GetFixedSidePixels(), 3);
    QCOMPARE(probe.m_ticLength, 4);
    QCOMPARE(probe.m_fontPointSize, 5);
    AxisProbe const plain(nullptr, nullptr);
    QCOMPARE(plain.m_ticLength, 5);
    QCOMPARE(plain.m_fontPointSize, 8);
    QVERIFY(plain.hasMouseTracking());
}

void tst_axisbase::fieldsAtTheStart()
{
    AxisProbe const axis;
    QVERIFY(!axis.m_pUnitSelection && !axis.m_pConverter && !axis.m_pPixmap && !axis.m_pPixmap2);
    QVERIFY(!axis.m_pPrimaryVMappingDrawPane && !axis.m_pStart && !axis.m_pStop && !axis.m_pDisplayAzimuth);
    QVERIFY(!axis.m_pCenter && !axis.m_pHalfWidth && !axis.m_pAutoScale && !axis.GetAutoScaleBoolean());
    QVERIFY(!axis.m_pDefaultStart && !axis.m_pDefaultStop && !axis.m_pDeviceStart && !axis.m_pDeviceStop);
    QVERIFY(!axis.m_pMenuMarkerPane && !axis.m_pSingleMarkerMenu && !axis.m_pPropertyPage);
    QVERIFY(axis.m_propertyPagePath.isEmpty());
    QVERIFY(!axis.m_pPixPerSecondValue && !axis.m_pOffset && !axis.m_pOffset2 && !axis.m_pShadingColor);
    QVERIFY(!axis.m_pScrollButtons && !axis.GetScrollButtons() && !axis.m_pTimeZone && !axis.m_pDateTime);
    QCOMPARE(axis.m_fixedTicWidth, -1);
    QCOMPARE(axis.m_maxPixBetweenTics, -1);
    for (double const unset : { axis.m_defaultStart, axis.m_defaultStop, axis.m_deviceStart, axis.m_deviceStop })
        QCOMPARE(unset, -1.0);
    for (double const zero :
         { axis.m_start, axis.m_stop, axis.m_calcStart, axis.m_calcStop, axis.m_drawnStart, axis.m_drawnStop,
           axis.m_pixPerSecond, axis.m_offset, axis.m_ticStep, axis.m_firstTic, axis.m_ticOffset })
        QCOMPARE(zero, 0.0);
    for (int const zero : { axis.m_drawnHeight, axis.m_mouseMode, axis.m_pressPixel, axis.m_bandStart, axis.m_bandEnd })
        QCOMPARE(zero, 0);
    QVERIFY(!axis.m_zoomEnabled && !axis.m_rangeMenuEnabled && !axis.m_offsetDrag && !axis.m_firstRange);
    QVERIFY(!axis.m_pCenter && !axis.m_pHalfWidth);
    QVERIFY(!axis.m_fixedRange && axis.m_drawEnabled && axis.m_relative && !axis.m_hideUnit && axis.m_showUnit);
    QVERIFY(!axis.m_autoScaleCheckOnProperty && !axis.m_useHandlerBaseSuffix);
    QCOMPARE(axis.m_leftTopOffset, 0);
    QCOMPARE(axis.m_rightBottomOffset, 0);
    QCOMPARE(axis.m_displayFactor, 1.0);
    QCOMPARE(axis.m_resultPanelPixel, -1);
    QVERIFY(axis.m_unZoom.empty() && axis.m_tics.empty() && axis.m_unitText.isEmpty());
    QCOMPARE(axis.m_forceRebuild, std::vector<ValueBase *>(3));
    QCOMPARE(axis.m_timeFormatString, QStringLiteral("mm"));
    QCOMPARE(axis.m_ticCount, 0);
    QCOMPARE(axis.m_minorTics, 0);
}

void tst_axisbase::shadingColorFollowsTheType_data()
{
    QTest::addColumn<unsigned int>("type");
    QTest::addColumn<int>("color");
    QTest::newRow("without the bit") << 0x10U << 0;
    QTest::newRow("with the bit") << 0x110U << 1;
}

void tst_axisbase::shadingColorFollowsTheType()
{
    QFETCH(unsigned int, type);
    AxisProbe const axis(type);
    QTEST(static_cast<int>(axis.GetShadingColor()), "color");
    QCOMPARE(axis.GetAxisType(), type);
}

void tst_axisbase::fonts()
{
    GuiBase::Instance().SetFontFamily(QStringLiteral("DejaVu Serif"));
    AxisProbe const axis(nullptr, nullptr, 17U, 20, 5, 9);
    GuiBase::Instance().SetFontFamily(QString());
    QCOMPARE(axis.m_font.pointSize(), 9);
    QCOMPARE(axis.m_fontLarger.pointSize(), 10);
    QCOMPARE(axis.m_fontBold.pointSize(), 13);
    for (QFont const & font : { axis.m_font, axis.m_fontLarger, axis.m_fontBold }) {
        QCOMPARE(font.family(), QStringLiteral("DejaVu Serif"));
        QVERIFY(!font.italic());
        QCOMPARE(font.bold(), font.pointSize() == 13);
    }
    QVERIFY(axis.m_fontBold.weight() == QFont::Bold);
}

void tst_axisbase::typeBits_data()
{
    QTest::addColumn<unsigned int>("bit");
    QTest::addColumn<unsigned int>("value");
    QTest::newRow("bit 0") << unsigned(AxisBase::AxisTypeBit0) << 0x01U;
    QTest::newRow("bit 2") << unsigned(AxisBase::AxisTypeBit2) << 0x04U;
    QTest::newRow("horizontal") << unsigned(AxisBase::AxisHorizontal) << 0x10U;
    QTest::newRow("vertical") << unsigned(AxisBase::AxisVertical) << 0x20U;
    QTest::newRow("frequency") << unsigned(AxisBase::AxisFrequency) << 0x80U;
    QTest::newRow("shading") << unsigned(AxisBase::AxisShading) << 0x100U;
    QTest::newRow("bit 9") << unsigned(AxisBase::AxisTypeBit9) << 0x200U;
    QTest::newRow("no property page") << unsigned(AxisBase::AxisNoPropertyPage) << 0x400U;
    QTest::newRow("bit 13") << unsigned(AxisBase::AxisTypeBit13) << 0x2000U;
    QTest::newRow("wrapped") << unsigned(AxisBase::AxisWrapped) << 0x4000U;
    QTest::newRow("signal on double click") << unsigned(AxisBase::AxisDblClickSignal) << 0x10000U;
    QTest::newRow("time stamps") << unsigned(AxisBase::AxisTimeStamps) << 0x20000U;
    QTest::newRow("inner frame") << unsigned(AxisBase::AxisInnerFrame) << 0x100000U;
    QTest::newRow("panel frame") << unsigned(AxisBase::AxisWinPanel) << 0x200000U;
    QTest::newRow("default on double click") << unsigned(AxisBase::AxisDefaultOnDblClick) << 0x400000U;
}

void tst_axisbase::typeBits()
{
    QFETCH(unsigned int, bit);
    QTEST(bit, "value");
}

void tst_axisbase::frequencyAxis()
{
    QVERIFY(AxisProbe(0x90U).IsFrequencyAxis());
    QVERIFY(!AxisProbe(0x10U).IsFrequencyAxis());
}

void tst_axisbase::timeAxis()
{
    ValueSelection * const zones = GuiBase::Instance().GetTimeZone();
    zones->Select(7200L, nullptr);
    {
        AxisProbe axis(AxisBase::AxisHorizontal | AxisBase::AxisTimeStamps);
        QVERIFY(axis.m_pTimeZone == zones);
        QVERIFY(zones->HasObserver(&axis));
        QCOMPARE(axis.m_pDateTime->getTimeStamp(), 0ULL);
        QCOMPARE(axis.m_pDateTime->toString(QStringLiteral("hh")), QStringLiteral("02"));
        zones->Select(3600L, nullptr);
        QCOMPARE(axis.m_pDateTime->toString(QStringLiteral("hh")), QStringLiteral("01"));
        QCOMPARE(axis.m_repairs, 1);
    }
    zones->Select(0L, nullptr);
    AxisProbe late; // the bit counts at construction; later it makes the tics alone those of times
    late.m_axisType |= AxisBase::AxisTimeStamps;
    late.SetRange(0.0, 7200e6);
    QVERIFY(!late.m_pDateTime && !late.m_pTimeZone && !zones->HasObserver(&late));
    QCOMPARE(late.m_timeFormat, 4);
    QCOMPARE(late.GetPropertyPageUnitText(), QStringLiteral("[Timestamp in UTC]"));
    QString text;
    late.BuildFormatString(text, 5.0, nullptr);
    QCOMPARE(text.trimmed().left(1), QStringLiteral("5"));
}

void tst_axisbase::metaObject()
{
    QMetaObject const & meta = AxisBase::staticMetaObject;
    char const * const methods[] = { "Zoomed()",
                                     "signalRangeChanged()",
                                     "AxisRepainted()",
                                     "redrawBars()",
                                     "ZoomToDefault()",
                                     "ZoomToBest()",
                                     "ZoomToDevice()",
                                     "ZoomToBegin()",
                                     "UnZoom()",
                                     "slotAcceptPropertyChanges()",
                                     "slotRefreshPixmapNow()",
                                     "slotShowAxisRangeDisplay(bool)",
                                     "slotShowAxisRangeDisplay()",
                                     "slotHideAxisRangeDisplay()",
                                     "slotShowProperties()",
                                     "slotShowRuler(int)",
                                     "slotShowRulerPanel(int)",
                                     "slotHideAllRuler()" };
    int index = meta.methodOffset();
    for (char const * const method : methods)
        QCOMPARE(meta.method(index++).methodSignature(), QByteArray(method));
    QCOMPARE(meta.propertyCount() - meta.propertyOffset(), 2);
    QCOMPARE(QByteArray(meta.property(meta.propertyOffset()).name()), QByteArray("Start"));
    QCOMPARE(QByteArray(meta.property(meta.propertyOffset() + 1).name()), QByteArray("Stop"));
    QVERIFY((std::is_base_of<IHMap, AxisBase>::value && std::is_base_of<IHasHMap, AxisBase>::value));
    QVERIFY((std::is_base_of<IUnitTextProvider, AxisBase>::value && std::is_base_of<MarkerList, AxisBase>::value));
    QVERIFY((std::is_base_of<IUpdateMenu, AxisBase>::value && std::is_base_of<IHasPropertyPage, AxisBase>::value));
    QVERIFY((std::is_base_of<UndoRecordingControlBase, AxisBase>::value && !std::is_abstract<AxisBase>::value));
}

void tst_axisbase::virtualOperationsKeepTheirOrder()
{
#if defined(__GNUC__) && defined(__x86_64__)
    QVector<int> const places{ PlaceOf(&AxisBase::bMustRebuildPixMap),
                               PlaceOf(static_cast<double (AxisBase::*)(int) const>(&AxisBase::PixelToValue)),
                               PlaceOf(static_cast<int (AxisBase::*)(double) const>(&AxisBase::ValueToPixel)),
                               PlaceOf(&AxisBase::ScrollYPixelOffset),
                               PlaceOf(&AxisBase::UpperBorder),
                               PlaceOf(&AxisBase::SetZoomedRange),
                               PlaceOf(&AxisBase::ZoomToDefault),
                               PlaceOf(&AxisBase::ZoomToBest),
                               PlaceOf(&AxisBase::ZoomToDevice),
                               PlaceOf(&AxisBase::ZoomToBegin),
                               PlaceOf(&AxisBase::BuildFormatString),
                               PlaceOf(&AxisBase::CalcValues),
                               PlaceOf(&AxisBase::AxisClicked),
                               PlaceOf(&AxisBase::UnZoom),
                               PlaceOf(&AxisBase::SetStartValue),
                               PlaceOf(&AxisBase::GetStart),
                               PlaceOf(&AxisBase::SetStopValue),
                               PlaceOf(&AxisBase::GetStop),
                               PlaceOf(&AxisBase::innerRect),
                               PlaceOf(&AxisBase::setFocusProxy),
                               PlaceOf(&AxisBase::slotShowAxisRangeDisplay),
                               PlaceOf(&AxisBase::slotHideAxisRangeDisplay),
                               PlaceOf(&AxisBase::slotShowProperties),
                               PlaceOf(&AxisBase::slotShowRuler),
                               PlaceOf(&AxisBase::slotShowRulerPanel),
                               PlaceOf(&AxisBase::slotHideAllRuler),
                               Places::OfBackground(),
                               PlaceOf(&AxisBase::RebuildSections),
                               PlaceOf(&AxisBase::DistanceToPixel) };
    QVERIFY(std::is_sorted(places.begin(), places.end()));
    QVERIFY(std::adjacent_find(places.begin(), places.end()) == places.end());
#endif
}

void tst_axisbase::interfacesKeepTheirOrder()
{
#if defined(__GNUC__) && defined(__x86_64__)
    QCOMPARE(PlaceOf(&IHMap::GetPixelCnt), 0);
    QCOMPARE(PlaceOf(&IHMap::ValueToPixel), 1);
    QCOMPARE(PlaceOf(&IHMap::RangeToPixel), 2);
    QCOMPARE(PlaceOf(&IHMap::PixelToValue), 3);
    QCOMPARE(PlaceOf(&IHMap::GetPixelsForXUnit), 4);
    QCOMPARE(PlaceOf(&IHMap::GetXUnitsForPixel), 5);
    QCOMPARE(PlaceOf(&IHMap::GetSectionCnt), 6);
    QCOMPARE(PlaceOf(&IHasHMap::HMap), 2); // 0 and 1 are the destructor's
    QCOMPARE(PlaceOf(&IUpdateMenu::UpdateMenu), 2);
    QCOMPARE(PlaceOf(&IUnitTextProvider::SetUnitText), 0);
    QCOMPARE(PlaceOf(&IUnitTextProvider::GetUnitText), 1);
    QCOMPARE(PlaceOf(&IUnitTextProvider::GetPropertyPageUnitText), 2);
    QCOMPARE(PlaceOf(&IUnitTextProvider::GetPureUnitText), 3);
    QCOMPARE(PlaceOf(&IUnitTextProvider::String2double), 4);
    QCOMPARE(PlaceOf(&IUnitTextProvider::double2String), 5);
#endif
}

void tst_axisbase::ranges()
{
    using Step = AxisBase::StartStopBandwidth;
    Step const step(1.0, 2.0, 3.0);
    QCOMPARE(step.start, 1.0);
    QCOMPARE(step.stop, 2.0);
    QCOMPARE(step.bandwidth, 3.0);
    QVERIFY(step == Step(1.0, 2.0, 3.0));
    QVERIFY(!(step == Step(0.0, 2.0, 3.0)) && !(step == Step(1.0, 0.0, 3.0)) && !(step == Step(1.0, 2.0, 0.0)));
    QVERIFY(step < Step(1.5, 0.0, 0.0));
    QVERIFY(!(step < Step(1.0, 9.0, 9.0)));
    QCOMPARE(int(AxisBase::InRangeInside), 1);
    QCOMPARE(int(AxisBase::InRangeBelow), 2);
    QCOMPARE(int(AxisBase::InRangeAbove), 3);
}

void tst_axisbase::colorsAreTakenAnew()
{
    ColorSet & colors = ColorSet::Instance();
    QColor const ground = colors[IColorBase::eColorAxisScale];
    QColor const ink = colors[IColorBase::eColorAxisForeground];
    AxisProbe axis;
    QCOMPARE(axis.m_bgBrush, QBrush(ground));
    QCOMPARE(axis.m_bgPen, QPen(ground));
    QCOMPARE(axis.m_textPen, QPen(ink));
    QCOMPARE(axis.palette().color(axis.backgroundRole()), ground);
    axis.m_pPixmap = std::make_unique<QPixmap>(1, 1);
    colors[static_cast<IColorBase::ECOLOR>(66)] = Qt::magenta;
    colors[static_cast<IColorBase::ECOLOR>(1)] = Qt::yellow;
    QPalette odd;
    odd.setColor(QPalette::Text, Qt::red);
    axis.setPalette(odd);
    GuiBase::Instance().emit_signalColorsChanged();
    QCOMPARE(axis.palette().color(QPalette::Text), QWidget().palette().color(QPalette::Text)); // a fresh palette
    QCOMPARE(axis.m_bgBrush, QBrush(Qt::magenta));
    QCOMPARE(axis.m_bgBrush.style(), Qt::SolidPattern);
    QCOMPARE(axis.m_bgPen, QPen(Qt::magenta));
    QCOMPARE(axis.m_textPen, QPen(Qt::yellow));
    QCOMPARE(axis.palette().color(axis.backgroundRole()), QColor(Qt::magenta));
    QCOMPARE(axis.m_menus, 1);
    QCOMPARE(axis.m_calculations, 1);
    QCOMPARE(axis.m_repairDrawings, 1);
    QVERIFY(!axis.m_pPixmap);
    QVERIFY(axis.GetMustRecalcRulers());
    QColor other = Qt::cyan;
    axis.SetBgColor(other);
    axis.SetTextColor(other);
    QCOMPARE(axis.m_bgBrush, QBrush(Qt::cyan));
    QCOMPARE(axis.m_bgPen, QPen(Qt::cyan));
    QCOMPARE(axis.m_textPen, QPen(Qt::cyan));
    QCOMPARE(axis.m_repairDrawings, 1);
    QCOMPARE(axis.m_repairs, 0);
    colors.slotRestoreFactoryColors();
}

void tst_axisbase::paintsNothingItself()
{
    AxisBase axis;
    axis.resize(40, 20);
    axis.SetRange(0.0, 100.0);
    QImage const image = axis.grab().toImage();
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            QCOMPARE(image.pixelColor(x, y), ColorSet::Instance()[IColorBase::eColorAxisScale]);
}

void tst_axisbase::constantAnswers()
{
    AxisProbe axis;
    QVERIFY(axis.bMustRebuildPixMap());
    QCOMPARE(axis.ScrollYPixelOffset(), 0);
    QVERIFY(!axis.UpperBorder(5.0));
    QCOMPARE(axis.GetSectionCnt(), 1);
    QVERIFY(axis.HMap() == &axis);
    axis.RebuildSections();
    QCOMPARE(axis.m_repairs, 1);
    QCOMPARE(axis.m_repairDrawings, 0);
}

// Range

void tst_axisbase::settingAnEnd_data()
{
    QTest::addColumn<bool>("isStart");
    QTest::newRow("start") << true;
    QTest::newRow("stop") << false;
}

void tst_axisbase::settingAnEnd()
{
    QFETCH(bool, isStart);
    AxisProbe axis;
    QStringList told;
    auto const redrawn = connect(&axis, &AxisBase::redrawBars, this, [&] {
        bool const isReady = axis.m_calculations == 1 && axis.m_repairs == 1;
        told << (isReady ? QStringLiteral("bars") : QStringLiteral("too early"));
    });
    connect(&axis, &AxisBase::signalRangeChanged, this, [&] { told << QStringLiteral("range"); });
    auto const set = [&](double value) { isStart ? axis.SetStartValue(value) : axis.SetStopValue(value); };
    set(17.5);
    QCOMPARE(isStart ? axis.m_start : axis.m_stop, 17.5);
    QCOMPARE(isStart ? axis.m_stop : axis.m_start, 0.0);
    QCOMPARE(axis.m_calculations, 1);
    QCOMPARE(axis.m_repairs, 1);
    QCOMPARE(told, QStringList({ QStringLiteral("bars"), QStringLiteral("range") }));
    QVERIFY(axis.m_ticCount > 0);
    disconnect(redrawn);

    Planted<ValueNumeric<double>> value("end");
    value->SetMinMax(-10.0, 10.0, 0.0, nullptr);
    QVERIFY(isStart ? axis.SetStart_ValuePath(value.Path()) : axis.SetStop_ValuePath(value.Path()));
    axis.m_calculations = 0;
    set(25.0);
    QCOMPARE(value->GetValue(), 10.0);
    QCOMPARE(isStart ? axis.m_start : axis.m_stop, 10.0);         // the limit wins
    QCOMPARE(isStart ? axis.m_calcStart : axis.m_calcStop, 10.0); // before the tics are found
    QCOMPARE(axis.m_calculations, 1);                             // and the axis did not hear of its own write
    set(Nothing);
    QCOMPARE(isStart ? axis.m_start : axis.m_stop, 10.0);
}

void tst_axisbase::endsAreProperties()
{
    AxisProbe axis;
    QVERIFY(axis.setProperty("Start", 3.0) && axis.setProperty("Stop", 4.0));
    QCOMPARE(axis.property("Start").toDouble(), 3.0);
    QCOMPARE(axis.property("Stop").toDouble(), 4.0);
    QCOMPARE(axis.m_calculations, 2);
}

void tst_axisbase::setRange()
{
    AxisProbe axis;
    axis.SetFixedRange(0.0, 9.0, 2, 1, 1, 0.0, 9.0);
    QSignalSpy const changed(&axis, &AxisBase::signalRangeChanged);
    axis.show();
    QVERIFY(QTest::qWaitForWindowExposed(&axis));
    QTRY_VERIFY(axis.m_paints > 0);
    QCoreApplication::processEvents();
    axis.m_calculations = axis.m_paints = 0;
    axis.SetRange(0.0, 100.0);
    QVERIFY(!axis.m_fixedRange);
    QCOMPARE(axis.m_start, 0.0);
    QCOMPARE(axis.m_stop, 100.0);
    QCOMPARE(axis.m_calculations, 3);
    QCOMPARE(changed.count(), 2);
    QCOMPARE(axis.m_ticStep, 10.0);
    QTRY_VERIFY(axis.m_paints > 0);
}

void tst_axisbase::setFixedRange()
{
    Planted<ValueNumeric<double>> start("start");
    AxisProbe axis;
    axis.SetRange(0.0, 100.0);
    QVERIFY(axis.SetStart_ValuePath(start.Path()));
    QSignalSpy const changed(&axis, &AxisBase::signalRangeChanged);
    QSignalSpy const bars(&axis, &AxisBase::redrawBars);
    axis.m_ticOffset = 77.0;
    axis.m_calculations = axis.m_repairs = 0;
    axis.SetFixedRange(10.0, 50.0, 4, 2, 6, 12.0, 8.0);
    QCOMPARE(axis.m_leftDigits, 2);
    QCOMPARE(axis.m_rightDigits, 6);
    QCOMPARE(axis.m_calcStart, 12.0); // the first tic
    QCOMPARE(axis.m_calcStop, 50.0);
    QCOMPARE(axis.m_start, 10.0);
    QCOMPARE(axis.m_stop, 50.0);
    QCOMPARE(axis.m_ticStep, 8.0);
    QCOMPARE(axis.m_firstTic, 12.0);
    QCOMPARE(axis.m_ticCount, 4);
    QCOMPARE(axis.m_ticOffset, 0.0);
    QVERIFY(axis.m_fixedRange);
    QCOMPARE(start->GetValue(), 0.0);
    QCOMPARE(changed.count() + bars.count(), 0);
    QCOMPARE(axis.m_calculations + axis.m_repairs, 0);
    axis.CalcValues();
    QCOMPARE(axis.m_calcStart, 10.0); // copied, though the tics stay
    QCOMPARE(axis.m_calcStop, 50.0);
    QCOMPARE(axis.m_ticStep, 8.0);
    QCOMPARE(axis.m_firstTic, 12.0);
    QCOMPARE(axis.m_ticCount, 4);
    QCOMPARE(axis.m_rightDigits, 6);
}

void tst_axisbase::defaultAndDeviceRange()
{
    AxisProbe axis;
    double start = 0.0;
    double stop = 0.0;
    axis.m_unZoom.emplace_back(1.0, 2.0, 3.0);
    axis.SetDeviceRange(5.0, 6.0);
    axis.GetDeviceRange(start, stop);
    QCOMPARE(start, 5.0);
    QCOMPARE(stop, 6.0);
    QCOMPARE(axis.m_unZoom.size(), std::size_t(1));
    axis.SetDefaultRange(7.0, 8.0);
    axis.GetDefaultRange(start, stop);
    QCOMPARE(start, 7.0);
    QCOMPARE(stop, 8.0);
    QVERIFY(axis.m_unZoom.empty());
}

void tst_axisbase::startAndStop()
{
    AxisProbe axis;
    axis.SetRange(3.0, 4.0);
    QCOMPARE(axis.GetStart(), 3.0);
    QCOMPARE(axis.GetStop(), 4.0);
    QCOMPARE(axis.Start(), 3.0);
    QCOMPARE(axis.Stop(), 4.0);
    double start = 0.0;
    double stop = 0.0;
    axis.GetCurrentStartStop(77, start, stop);
    QCOMPARE(start, 3.0);
    QCOMPARE(stop, 4.0);
}

void tst_axisbase::displayFactor()
{
    AxisProbe axis;
    axis.SetRange(0.0, 100.0);
    axis.m_calculations = axis.m_repairs = 0;
    axis.SetDisplayFactor(0.3);
    QCOMPARE(axis.GetDisplayFactor(), 0.3);
    QCOMPARE(axis.m_repairs, 1);
    QCOMPARE(axis.m_calculations, 0);
    QCOMPARE(axis.m_ticStep, 10.0);
    axis.CalcValues();
    QVERIFY(axis.m_ticStep != 10.0);
}

void tst_axisbase::relative()
{
    AxisProbe axis;
    axis.SetRelative(true);
    QCOMPARE(axis.m_repairs, 0);
    axis.SetRelative(false);
    QVERIFY(!axis.GetRelative());
    QCOMPARE(axis.m_repairs, 1);
    axis.toggleAbsoluteRelative();
    QVERIFY(axis.GetRelative());
    axis.toggleAbsoluteRelative();
    QVERIFY(!axis.GetRelative());
    QCOMPARE(axis.m_repairs, 3);
}

void tst_axisbase::pixelOffsets()
{
    AxisProbe axis;
    axis.SetPixOffset(7, 9);
    QCOMPARE(axis.GetLeftTopOffset(), 7);
    QCOMPARE(axis.GetRightBottomOffset(), 9);
    QCOMPARE(axis.m_repairs, 1);
}

void tst_axisbase::plainSetters()
{
    AxisProbe axis;
    axis.show();
    QVERIFY(QTest::qWaitForWindowExposed(&axis));
    QTRY_VERIFY(axis.m_paints > 0);
    QCoreApplication::processEvents();
    axis.m_paints = 0;
    axis.EnableDraw(false);
    QVERIFY(!axis.m_drawEnabled);
    QTRY_VERIFY(axis.m_paints > 0);
    axis.m_paints = 0;
    axis.SetResultPanelPixelValue(11, 2.5);
    QCOMPARE(axis.m_resultPanelPixel, 11);
    QCOMPARE(axis.m_resultPanelValue, 2.5);
    QTRY_VERIFY(axis.m_paints > 0);
    axis.HideUnit(true);
    axis.ShowUnit(false);
    axis.SetAutoScaleCheckOnProperty(true);
    axis.SetUseHandlerBaseSuffix(true);
    axis.SetMaxPixBetweenTics(31);
    QVERIFY(axis.m_hideUnit && !axis.m_showUnit && axis.m_autoScaleCheckOnProperty && axis.m_useHandlerBaseSuffix);
    QCOMPARE(axis.m_maxPixBetweenTics, 31);
    QCOMPARE(axis.m_repairs, 0);
}

void tst_axisbase::asksForAPaint_data()
{
    QTest::addColumn<int>("what");
    QTest::newRow("RepairDrawing") << 0;
    QTest::newRow("SetFixedRange") << 1;
    QTest::newRow("SetRange") << 2;
    QTest::newRow("colours do not") << 3;
}

//! At once, not with the next repair.
void tst_axisbase::asksForAPaint()
{
    QFETCH(int, what);
    AxisProbe axis;
    axis.SetRepairDelay(1000000);
    axis.show();
    QVERIFY(QTest::qWaitForWindowExposed(&axis));
    QTRY_VERIFY(axis.m_paints > 0);
    QCoreApplication::processEvents();
    axis.m_paints = 0;
    QColor red(Qt::red);
    if (what == 0) {
        axis.RepairDrawing();
    } else if (what == 1) {
        axis.SetFixedRange(0.0, 9.0, 2, 1, 1, 0.0, 9.0);
    } else if (what == 2) {
        axis.SetRange(0.0, 9.0);
    } else {
        axis.SetBgColor(red);
        axis.SetTextColor(red);
        QCoreApplication::processEvents();
        QCOMPARE(axis.m_paints, 0);
        return;
    }
    QTRY_VERIFY(axis.m_paints > 0);
}

void tst_axisbase::resized()
{
    AxisProbe axis;
    axis.SetRange(0.0, 100.0);
    axis.SetMustRecalcRulers(false);
    QSignalSpy const bars(&axis, &AxisBase::redrawBars);
    QResizeEvent event(QSize(200, 20), QSize(100, 20));
    QCoreApplication::sendEvent(&axis, &event);
    QVERIFY(axis.GetMustRecalcRulers());
    QCOMPARE(bars.count(), 1);
    QCOMPARE(axis.m_stop, 100.0);
    QCOMPARE(axis.GetResizeTimerID(), 0); // derived panes start it
    Planted<ValueNumeric<double>> speed("speed");
    speed->SetValue(50.0, nullptr);
    QVERIFY(axis.SetPixPerSecond_ValuePath(speed.Path()));
    axis.SetPixOffset(5, 15);
    QCoreApplication::sendEvent(&axis, &event); // on an axis without an offset, too
    QCOMPARE(axis.m_stop, 80.0 / 50.0);
    AxisProbe vertical(AxisBase::AxisVertical, 60, 20);
    QVERIFY(vertical.SetPixPerSecond_ValuePath(speed.Path()));
    QCoreApplication::sendEvent(&vertical, &event); // nor does the direction count
    QCOMPARE(vertical.m_stop, 60.0 / 50.0);
    QWidget window;
    AxisProbe inside(&window, nullptr, 0x10U);
    inside.setGeometry(37, 5, 100, 20);
    QVERIFY(inside.SetPixPerSecond_ValuePath(speed.Path()));
    QCoreApplication::sendEvent(&inside, &event);
    QCOMPARE(inside.m_stop, 100.0 / 50.0); // its own width, wherever it lies, and not that of the event
}

// Texts

void tst_axisbase::labels_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("left");
    QTest::addColumn<int>("right");
    QTest::addColumn<QString>("text");
    QTest::newRow("padded") << 1.5 << 3 << 3 << " 1.500";
    QTest::newRow("wider than its field") << -1234.5 << 2 << 1 << "-1234.5";
    QTest::newRow("no digits behind the point") << 12.6 << 4 << 0 << "  13";
    QTest::newRow("NaN") << Nothing << 3 << 1 << " nan";
    QTest::newRow("infinity") << Infinity << 1 << 1 << "inf";
    QTest::newRow("the widest field") << 5.0 << INT_MAX << 0 << QString(1099, QLatin1Char(' ')) + QLatin1Char('5');
    QTest::newRow("both ends of int") << 5.0 << INT_MIN << INT_MAX
                                      << QStringLiteral("5.") + QString(1100, QLatin1Char('0'));
}

void tst_axisbase::labels()
{
    QFETCH(double, value);
    QFETCH(int, left);
    QFETCH(int, right);
    AxisProbe axis;
    axis.m_leftDigits = left;
    axis.m_rightDigits = right;
    QString text = QStringLiteral("before");
    axis.BuildFormatString(text, value, nullptr);
    QTEST(text, "text");
}

void tst_axisbase::labelByConverterTimeOrMarker()
{
    AxisProbe axis(AxisBase::AxisHorizontal | AxisBase::AxisTimeStamps);
    Marker marker;
    marker.SetValue(42.0);
    QString text;
    axis.BuildFormatString(text, 61.0 * 60e6, &marker);
    QCOMPARE(text, QStringLiteral("01"));
    axis.SetConverter(new SuffixedDouble(SuffixedDouble::eSuffixMega));
    axis.BuildFormatString(text, 12.5e6, &marker);
    QCOMPARE(text, QStringLiteral("12.5"));

    AxisProbe plain;
    plain.BuildFormatString(text, 7.0, &marker);
    QCOMPARE(text, marker.GetStringValue(7.0, nullptr));
    QVERIFY(text.contains(QStringLiteral("42")));
    Planted<ValueSelection> display("display");
    display->AddItem({ QStringLiteral("signed"), 8.0, 8 });
    display->Select(8L, nullptr);
    QVERIFY(plain.SetDisplayAzimuth_ValuePath(display.Path()));
    plain.BuildFormatString(text, 270.0, nullptr);
    QCOMPARE(text.trimmed(), plain.m_rightDigits == 0 ? QStringLiteral("-90")
                                                      : QStringLiteral("-90.000").left(4 + plain.m_rightDigits));
    plain.SetConverter(new SuffixedDouble(SuffixedDouble::eSuffixKilo));
    plain.BuildFormatString(text, 270.0, nullptr);
    QCOMPARE(text, QStringLiteral("-0.09")); // wrapped before the converter writes it
}

void tst_axisbase::numbers_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("right");
    QTest::addColumn<QString>("text");
    QTest::newRow("-0.4 is 0") << -0.4 << 0 << "0";
    QTest::newRow("0.5 is 1") << 0.5 << 0 << "1";
    QTest::newRow("-0.5 is -1") << -0.5 << 0 << "-1";
    QTest::newRow("2.5 is 3") << 2.5 << 0 << "3";
    QTest::newRow("-2.5 is -3") << -2.5 << 0 << "-3";
    QTest::newRow("0 is 0") << 0.0 << 0 << "0";
    QTest::newRow("0.49 is 0") << 0.49 << 0 << "0";
    QTest::newRow("beyond int") << 1e300 << 0 << "-2147483648";
    QTest::newRow("NaN as an integer") << Nothing << 0 << "-2147483648";
    QTest::newRow("with digits") << 1.25 << 3 << "1.25";
    QTest::newRow("six digits") << 1234567.0 << 1 << "1.23457e+06";
    QTest::newRow("negative digits are digits") << 1.25 << -1 << "1.25";
}

void tst_axisbase::numbers()
{
    QFETCH(double, value);
    QFETCH(int, right);
    AxisProbe axis;
    axis.m_rightDigits = right;
    QTEST(axis.double2String(value, nullptr), "text");
    QTEST(axis.double2String(value, "hh"), "text");
}

void tst_axisbase::numberByConverterOrTime()
{
    AxisProbe axis(AxisBase::AxisHorizontal | AxisBase::AxisTimeStamps);
    double const hour = 3600e6;
    QCOMPARE(axis.double2String(hour, nullptr), QStringLiteral("1970-01-01 01:00:00"));
    QCOMPARE(axis.double2String(hour, "hh"), QStringLiteral("01"));
    ValueSelection * const zones = GuiBase::Instance().GetTimeZone();
    zones->Select(7200L, nullptr);
    QCOMPARE(axis.double2String(hour, nullptr), QStringLiteral("1970-01-01 03:00:00"));
    QCOMPARE(axis.double2String(hour, "hh\xb0"), QStringLiteral("03") + QChar(0xb0)); // the text is Latin-1
    zones->Select(0L, nullptr);
    axis.SetConverter(new SuffixedDouble(SuffixedDouble::eSuffixKilo));
    QCOMPARE(axis.double2String(1500.0, "hh"), QStringLiteral("1.5"));
}

void tst_axisbase::timeStamps_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<unsigned long long>("stamp");
    QTest::newRow("cut") << 5.9 << 5ULL;
    QTest::newRow("the top bit") << 0x1p63 << 0x8000000000000000ULL;
    QTest::newRow("above the top bit") << 0x1.8p63 << 0xc000000000000000ULL;
    QTest::newRow("the highest") << 0x1.fffffffffffffp63 << 0xfffffffffffff800ULL;
    QTest::newRow("beyond") << 0x1p64 << 0ULL;
    QTest::newRow("below 0") << -5.0 << 0ULL;
    QTest::newRow("NaN") << Nothing << 0ULL;
}

void tst_axisbase::timeStamps()
{
    QFETCH(double, value);
    QTEST(AxisText::TimeStamp(value), "stamp");
    AxisProbe axis(AxisBase::AxisHorizontal | AxisBase::AxisTimeStamps);
    QString text;
    axis.BuildFormatString(text, value, nullptr);
    QTEST(axis.m_pDateTime->getTimeStamp(), "stamp");
    axis.m_pDateTime->setTime_ts(1);
    axis.double2String(value, nullptr);
    QTEST(axis.m_pDateTime->getTimeStamp(), "stamp");
}

void tst_axisbase::reading()
{
    AxisProbe axis;
    QCOMPARE(axis.String2double(QStringLiteral("12.5")), 12.5);
    QCOMPARE(axis.String2double(QStringLiteral("none")), 0.0);
    QCOMPARE(axis.String2double(QStringLiteral("nan")), 0.0);
    QCOMPARE(axis.String2double(QStringLiteral("inf")), 0.0);
    QCOMPARE(axis.String2double(QStringLiteral("1e999")), 0.0);
    axis.SetConverter(new SuffixedDouble(SuffixedDouble::eSuffixMega));
    QCOMPARE(axis.String2double(QStringLiteral("12.5 MHz")), 12.5e6);
    AxisProbe time(AxisBase::AxisHorizontal | AxisBase::AxisTimeStamps);
    QCOMPARE(time.String2double(QStringLiteral("1970-01-01 01:00:00")), 3600e6);
    time.double2String(5e15, nullptr);
    QCOMPARE(time.String2double(QStringLiteral("never")), 0.0); // not what was shown last
    ValueSelection * const zones = GuiBase::Instance().GetTimeZone();
    zones->Select(7200L, nullptr);
    QCOMPARE(time.String2double(QStringLiteral("1970-01-01 03:00:00")), 3600e6);
    QCOMPARE(time.String2double(time.double2String(3600e6, nullptr)), 3600e6);
    zones->Select(0L, nullptr);
}

void tst_axisbase::units()
{
    AxisProbe axis;
    QCOMPARE(axis.GetUnitText(), QStringLiteral("[]"));
    axis.SetUnitText(QStringLiteral("dB"));
    QCOMPARE(axis.m_calculations, 1);
    QCOMPARE(axis.m_repairs, 1);
    QCOMPARE(axis.GetPureUnitText(), QStringLiteral("dB"));
    QCOMPARE(axis.GetUnitText(), QStringLiteral("[dB]"));
    QCOMPARE(axis.GetPropertyPageUnitText(), QStringLiteral("[dB]"));
    axis.SetConverter(new SuffixedDouble(SuffixedDouble::eSuffixMega));
    QCOMPARE(axis.GetPureUnitText(), QStringLiteral("MHz"));
    QCOMPARE(axis.m_unitText, QStringLiteral("MHz")); // taken over

    Planted<ValueSelection> unit("unit");
    unit->AddItem({ QStringLiteral("dBm"), 0.0, 1 });
    axis.m_pUnitSelection = unit.Get();
    unit->AddObserver(&axis);
    QCOMPARE(axis.GetPureUnitText(), QStringLiteral("MHz")); // nothing is chosen
    unit->Select(1L, nullptr);
    QCOMPARE(axis.GetPureUnitText(), QStringLiteral("dBm"));
    QCOMPARE(axis.m_repairs, 3);
    axis.SetUseHandlerBaseSuffix(true);
    QCOMPARE(axis.GetPureUnitText(), HandlerBase::GetLevelUnit());
    axis.DisableUnitSelection();
    QVERIFY(!axis.m_pUnitSelection);
    QVERIFY(!unit->HasObserver(&axis));
    AxisProbe time(AxisBase::AxisHorizontal | AxisBase::AxisTimeStamps);
    QCOMPARE(time.GetPropertyPageUnitText(), QStringLiteral("[Timestamp in UTC]"));
}

void tst_axisbase::converter()
{
    AxisProbe axis;
    QVERIFY(!axis.GetConverter());
    auto * const converter = new SuffixedDouble;
    axis.SetConverter(converter);
    QVERIFY(axis.GetConverter() == converter);
    QCOMPARE(axis.m_repairs, 1);
    axis.SetConverter(converter); // stays
    QCOMPARE(axis.GetConverter()->GetUnit(), QStringLiteral("Hz"));
    QCOMPARE(axis.m_repairs, 2);
    axis.SetConverter(nullptr);
    QVERIFY(!axis.GetConverter());
}

ORIM_TEST_MAIN(tst_axisbase)
#include "tst_axisbase.moc"
