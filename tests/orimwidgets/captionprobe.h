// SPDX-License-Identifier: MIT
#ifndef ORIM_CAPTIONPROBE_H
#define ORIM_CAPTIONPROBE_H

#include "vccaption.h"

#include "datetime.h"
#include "tree.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QPainter>
#include <QPushButton>
#include <QToolBar>

//! A caption whose state can be read, and that counts what it measures and paints.
class CaptionProbe : public VCCaption
{
public:
    using VCCaption::VCCaption;

    using VCCaption::BuildPixmap;
    using VCCaption::CheckWidthOnSimilarString;
    using VCCaption::m_BaseLine;
    using VCCaption::m_Center;
    using VCCaption::m_CenterOld;
    using VCCaption::m_CenterWidth;
    using VCCaption::m_Flags;
    using VCCaption::m_FocusBrush;
    using VCCaption::m_FocusCenterPen;
    using VCCaption::m_FocusFramePen;
    using VCCaption::m_FocusTextPen;
    using VCCaption::m_Font;
    using VCCaption::m_FontSize;
    using VCCaption::m_HasFocus;
    using VCCaption::m_Height;
    using VCCaption::m_Left;
    using VCCaption::m_LeftOld;
    using VCCaption::m_LeftWidth;
    using VCCaption::m_MovePos;
    using VCCaption::m_MoveState;
    using VCCaption::m_NoFocusBrush;
    using VCCaption::m_NoFocusFramePen;
    using VCCaption::m_NoFocusTextPen;
    using VCCaption::m_pCenterValue;
    using VCCaption::m_pDatastreamButton;
    using VCCaption::m_pDateTime;
    using VCCaption::m_pExitAction;
    using VCCaption::m_pLayout;
    using VCCaption::m_pLeftValue;
    using VCCaption::m_pOnTopButton;
    using VCCaption::m_pPixmap;
    using VCCaption::m_pRightValue;
    using VCCaption::m_pSpace;
    using VCCaption::m_pStopButton;
    using VCCaption::m_pTimeZone;
    using VCCaption::m_pToolBar;
    using VCCaption::m_pWheelConsumer;
    using VCCaption::m_Right;
    using VCCaption::m_RightOffsetWidth;
    using VCCaption::m_RightOld;
    using VCCaption::m_RightWidth;
    using VCCaption::m_Running;
    using VCCaption::m_TimeFormat1;
    using VCCaption::m_TimeFormat2;
    using VCCaption::m_TimeFormat3;
    using VCCaption::m_TimeStart;
    using VCCaption::m_TimeStop;
    using VCCaption::m_TimeWidth;

    int m_paints = 0;
    mutable int m_measured = 0;
    int m_charWidth = 0; // px; 0 for that of the font

    //! Shows it at a width, without a window manager's help.
    void ShowAt(int width)
    {
        resize(width, height());
        show();
        m_pLayout->activate();
    }

    QImage Picture() const { return m_pPixmap ? m_pPixmap->toImage() : QImage(); }

protected:
    int MeasureText(QString const & text) const override
    {
        ++m_measured;
        return m_charWidth > 0 ? m_charWidth * static_cast<int>(text.size()) : VCCaption::MeasureText(text);
    }

    void paintEvent(QPaintEvent * event) override
    {
        ++m_paints;
        VCCaption::paintEvent(event);
    }
};

//! A text of the tree.
inline Value<QString> * NewText(char const * name, QString const & text = QString())
{
    auto * const value = new Value<QString>(QLatin1String(name));
    value->SetValue(text, nullptr);
    Tree::Instance()->Insert(QStringLiteral("/caption"), value);
    return value;
}

#endif
