// SPDX-License-Identifier: MIT
#ifndef ORIM_LEVELGRADIENTS_H
#define ORIM_LEVELGRADIENTS_H

class ShadingColorSet;

//! Gradients that the operator can choose for the levels, and the set of colours that the choice fills: the one of the
//! central object that serves levels. The shading bar and the waterfall both show that set.
namespace LevelGradients {

struct Gradient
{
    char const * key;  //!< as in the store
    char const * name; //!< for the operator; the context of its translation is LevelGradients
    char const * line; //!< the set as text, from high to low levels
};

int Count();
//! \param index  0 to Count() - 1; others give the first.
Gradient const & At(int index);

//! The set that colours levels.
ShadingColorSet & CurrentSet();
//! Fills that set with a gradient and raises GuiBase::signalColorsChanged(). Does nothing when the set shows it
//! already and for an index that is none.
void Choose(int index);

} // namespace LevelGradients

#endif
