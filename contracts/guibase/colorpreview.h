// SPDX-License-Identifier: MIT
#ifndef ORIM_COLORPREVIEW_H
#define ORIM_COLORPREVIEW_H

#include <QColor>
#include <QMap>
#include <QPixmap>
#include <QWidget>

class QPainter;

//! Shows single colours where an operator screen uses them: captions, a pane with traces and markers, an axis,
//! read-outs.
class ColorPreview : public QWidget
{
    Q_OBJECT
public:
    explicit ColorPreview(QWidget * parent = nullptr);

    //! \param colors  by number; a number that is missing shows as black.
    void SetColors(QMap<int, QColor> const & colors);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent * event) override;
    void resizeEvent(QResizeEvent * event) override;

private:
    void PaintPicture();
    void PaintCaption(QPainter & painter, QRect const & bar, bool focused) const;
    void PaintPane(QPainter & painter, QRect const & pane) const;
    void PaintTraces(QPainter & painter, QRect const & pane) const;
    void PaintAxis(QPainter & painter, QRect const & axis) const;
    void PaintReadOuts(QPainter & painter, QRect const & strip) const;

    QMap<int, QColor> m_colors;
    QPixmap m_picture;
};

#endif
