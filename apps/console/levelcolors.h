// SPDX-License-Identifier: MIT
#ifndef ORIM_LEVELCOLORS_H
#define ORIM_LEVELCOLORS_H

#include "shadingcolorset.h"

#include <QColor>
#include <QString>

#include <cstddef>

//! A colour gradient that the operator can choose for the waterfall.
struct LevelGradient
{
    char const * key;  //!< as on the command line and in the store
    char const * name; //!< for the operator
    char const * line; //!< the set, as text
};

//! Colours of levels: a gradient over the level range. What lies outside takes the colour of the nearer end.
class LevelColors
{
public:
    //! The first gradient over -120 .. 0 dBFS.
    LevelColors();

    static int GradientCount();
    //! \param index  0 to GradientCount() - 1; others give the first.
    static LevelGradient const & GradientAt(int index);

    //! An index that is none is ignored.
    void SetGradient(int index);

    int GetGradient() const { return m_gradient; }

    //! dBFS. What is not finite or where \a max is not above \a min is ignored.
    void SetRange(double min, double max);

    //! Colour of a level that is NaN: there is no data.
    void SetGround(QColor const & ground) { m_ground = ground.rgb(); }

    QRgb GetGround() const { return m_ground; }

    //! Colours \a count levels.
    //! \param mayBeNaN  whether to look for levels that are NaN.
    void Color(double const * levels, QRgb * pixels, std::size_t count, bool mayBeNaN);

private:
    void Apply();

    ShadingColorSet m_set;
    int m_gradient = 0;
    double m_min = -120.0; // dBFS
    double m_max = 0.0;    // dBFS
    QRgb m_ground = 0xff000000;
};

#endif
