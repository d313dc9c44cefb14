// SPDX-License-Identifier: MIT
#ifndef ORIM_AXISPROBE_H
#define ORIM_AXISPROBE_H

#include "axisbase.h"
#include "axispropertypage.h"
#include "datetime.h"
#include "resortpopupmenu.h"
#include "suffixeddouble.h"
#include "tree.h"
#include "vcscrollbuttons.h"

#include <QImage>
#include <QPainter>

//! A value of the tree for the length of a test.
template <class T>
class Planted
{
public:
    explicit Planted(char const * name) : m_p(new T(QLatin1String(name)))
    {
        Tree::Instance()->Insert(QStringLiteral("/axis"), m_p);
    }

    ~Planted() { Tree::Instance()->Remove(Path()); }

    T * operator->() const { return m_p; }

    T * Get() const { return m_p; }

    QString Path() const { return QStringLiteral("/axis/") + m_name; }

private:
    T * m_p;
    QString m_name = m_p->GetName();
};

//! An axis that shows its state to a test and counts what it is asked for.
class AxisProbe : public AxisBase
{
public:
    explicit AxisProbe(unsigned int type = AxisHorizontal, int width = 100, int height = 20)
        : AxisBase(nullptr, nullptr, type)
    {
        resize(width, height);
        SetMustRecalcRulers(false);
        m_calculations = m_repairs = m_repairDrawings = 0;
    }

    using AxisBase::ApplyOutsideMarker;
    using AxisBase::AxisBase;
    using AxisBase::Check4Tics;
    using AxisBase::drawAgeingScale;
    using AxisBase::drawBackground;
    using AxisBase::drawShadeRect;
    using AxisBase::DrawWhileZoom;
    using AxisBase::FindOutsideMarker;
    using AxisBase::GetAxisValues;
    using AxisBase::m_autoScaleCheckOnProperty;
    using AxisBase::m_axisType;
    using AxisBase::m_bandEnd;
    using AxisBase::m_bandStart;
    using AxisBase::m_bgBrush;
    using AxisBase::m_bgPen;
    using AxisBase::m_calcStart;
    using AxisBase::m_calcStop;
    using AxisBase::m_dateFormatString;
    using AxisBase::m_defaultStart;
    using AxisBase::m_defaultStop;
    using AxisBase::m_deviceStart;
    using AxisBase::m_deviceStop;
    using AxisBase::m_displayFactor;
    using AxisBase::m_drawEnabled;
    using AxisBase::m_drawnHeight;
    using AxisBase::m_drawnStart;
    using AxisBase::m_drawnStop;
    using AxisBase::m_firstRange;
    using AxisBase::m_firstTic;
    using AxisBase::m_fixedRange;
    using AxisBase::m_fixedSidePixels;
    using AxisBase::m_fixedTicWidth;
    using AxisBase::m_font;
    using AxisBase::m_fontBold;
    using AxisBase::m_fontLarger;
    using AxisBase::m_fontPointSize;
    using AxisBase::m_forceRebuild;
    using AxisBase::m_hideUnit;
    using AxisBase::m_leftDigits;
    using AxisBase::m_leftTopOffset;
    using AxisBase::m_maxPixBetweenTics;
    using AxisBase::m_minorTics;
    using AxisBase::m_mouseMode;
    using AxisBase::m_offset;
    using AxisBase::m_offsetDrag;
    using AxisBase::m_pAutoScale;
    using AxisBase::m_pCenter;
    using AxisBase::m_pConverter;
    using AxisBase::m_pDateTime;
    using AxisBase::m_pDefaultStart;
    using AxisBase::m_pDefaultStop;
    using AxisBase::m_pDeviceStart;
    using AxisBase::m_pDeviceStop;
    using AxisBase::m_pDisplayAzimuth;
    using AxisBase::m_pHalfWidth;
    using AxisBase::m_pixPerSecond;
    using AxisBase::m_pMenuMarkerPane;
    using AxisBase::m_pOffset;
    using AxisBase::m_pOffset2;
    using AxisBase::m_pPixmap;
    using AxisBase::m_pPixmap2;
    using AxisBase::m_pPixPerSecondValue;
    using AxisBase::m_pPrimaryVMappingDrawPane;
    using AxisBase::m_pPropertyPage;
    using AxisBase::m_pressPixel;
    using AxisBase::m_propertyPagePath;
    using AxisBase::m_pScrollButtons;
    using AxisBase::m_pShadingColor;
    using AxisBase::m_pSingleMarkerMenu;
    using AxisBase::m_pStart;
    using AxisBase::m_pStop;
    using AxisBase::m_pTimeZone;
    using AxisBase::m_pUnitSelection;
    using AxisBase::m_rangeMenuEnabled;
    using AxisBase::m_relative;
    using AxisBase::m_resultPanelPixel;
    using AxisBase::m_resultPanelValue;
    using AxisBase::m_rightBottomOffset;
    using AxisBase::m_rightDigits;
    using AxisBase::m_shadingColor;
    using AxisBase::m_showUnit;
    using AxisBase::m_start;
    using AxisBase::m_stop;
    using AxisBase::m_textPen;
    using AxisBase::m_ticCount;
    using AxisBase::m_ticLength;
    using AxisBase::m_ticOffset;
    using AxisBase::m_tics;
    using AxisBase::m_ticStep;
    using AxisBase::m_timeFormat;
    using AxisBase::m_timeFormatString;
    using AxisBase::m_unitText;
    using AxisBase::m_unZoom;
    using AxisBase::m_useHandlerBaseSuffix;
    using AxisBase::m_zoomEnabled;
    using AxisBase::WrapValue4Display;

    void CalcValues() override
    {
        ++m_calculations;
        AxisBase::CalcValues();
    }

    void Repair() override
    {
        ++m_repairs;
        AxisBase::Repair();
    }

    void RepairDrawing() override
    {
        ++m_repairDrawings;
        AxisBase::RepairDrawing();
    }

    void BuildMenu() override
    {
        ++m_menus;
        AxisBase::BuildMenu();
    }

    void paintEvent(QPaintEvent * /*event*/) override { ++m_paints; }

    //! What an operation paints on a white ground of the widget's size.
    template <class Paint>
    QImage Painted(Paint paint)
    {
        QImage image(size(), QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        paint(painter);
        return image;
    }

    int m_calculations = 0;
    int m_repairs = 0;
    int m_repairDrawings = 0;
    int m_menus = 0;
    int m_paints = 0;
};

#endif
