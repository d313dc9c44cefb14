// SPDX-License-Identifier: MIT
#ifndef ORIM_DIRTYSTRIPS_H
#define ORIM_DIRTYSTRIPS_H

#include <QRect>

#include <vector>

//! What of a picture is to be painted anew: upright strips, each as high as what changed in it.
class DirtyStrips
{
public:
    static constexpr int Width = 32; // px

    //! Forgets what was added. \param picture  only what lies in it counts.
    void SetPicture(QRect const & picture);
    //! What lies outside the picture, and an empty rectangle, adds nothing.
    void Add(QRect const & rect);
    //! The strips that changed, from left to right, with all that was added since the last call.
    std::vector<QRect> Take();

private:
    QRect m_picture;
    std::vector<QRect> m_strips; // null where nothing changed
};

#endif
