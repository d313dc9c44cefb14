// SPDX-License-Identifier: MIT
#ifndef ORIM_LEVELCOLORS_H
#define ORIM_LEVELCOLORS_H

#include "shadingcolorset.h"

#include <QColor>

#include <cstddef>
#include <memory>

//! Colours of levels: a set of colours over the level range, its first colour at the top. What lies outside takes the
//! colour of the nearer end.
class LevelColors
{
public:
    //! White to black over -120 .. 0 dBFS.
    LevelColors();

    //! Takes the colours of a set, copied. One that is fixed to a range of its own keeps that.
    void SetColors(ShadingColorSet const & set);

    //! dBFS. What is not finite or where \a max is not above \a min is ignored.
    void SetRange(double min, double max);

    //! Colour of a level that is NaN: there is no data.
    void SetGround(QColor const & ground) { m_ground = ground.rgb(); }

    QRgb GetGround() const { return m_ground; }

    //! Colours \a count levels.
    //! \param mayBeNaN  whether to look for levels that are NaN.
    void Color(double const * levels, QRgb * pixels, std::size_t count, bool mayBeNaN);

private:
    //! A copy of a set: its destructor is not virtual, so that nothing may derive from what is deleted.
    struct Copy final : ShadingColorSet
    {
        Copy() = default;

        explicit Copy(ShadingColorSet const & set) : ShadingColorSet(set) {}
    };

    void Apply();

    std::unique_ptr<Copy> m_pSet; // made anew: assigning a set would keep parts of the old one
    bool m_ownRange = false;      // the set was fixed when it came
    double m_min = -120.0;        // dBFS
    double m_max = 0.0;           // dBFS
    QRgb m_ground = 0xff000000;
};

#endif
