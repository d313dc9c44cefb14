// SPDX-License-Identifier: MIT
#ifndef ORIM_WINDOWFRAMES_H
#define ORIM_WINDOWFRAMES_H

#include "clientwindowvector.h"

#include <QRect>
#include <QString>

#include <vector>

class MarkerList;
class QColor;
class QFontMetrics;
class QPainter;

//! The windows of a pane that mark signals, as they are painted: a tinted stretch with a frame and a label. All lengths
//! are logical pixels.
class WindowFrames
{
public:
    struct Frame
    {
        int window; // 0 to 4
        QRect rect; // the part that is in view
        QRect label;
        QString text;
        bool focused;
    };

    //! \param list  gets the border markers; borrowed: owns this.
    explicit WindowFrames(MarkerList & list);
    ~WindowFrames();
    WindowFrames(WindowFrames const &) = delete;
    WindowFrames & operator=(WindowFrames const &) = delete;

    //! Binds the windows to their values. \return whether all were found.
    bool Bind();

    ClientWindowVector & GetWindows() { return m_windows; }

    //! Lays the frames and their labels where the windows are now. To be done when one of them changed, or the picture.
    void Lay(QRect const & picture, QFontMetrics const & metrics);

    //! The frames as they were laid last.
    std::vector<Frame> const & Get() const { return m_frames; }

    //! Window with its label at a place, as it was laid last; -1 for none.
    int LabelAt(QPoint at) const;

    //! Paints what lies below the markers.
    void Paint(QPainter & painter, QRect const & picture);
    //! Paints the labels. \param ground, text  colours of that of a window without the focus.
    void PaintLabels(QPainter & painter, QColor const & ground, QColor const & text) const;

private:
    void PlaceLabels(QRect const & picture, QFontMetrics const & metrics);

    MarkerList & m_list;
    ClientWindowVector m_windows;
    std::vector<Frame> m_frames;
};

#endif
