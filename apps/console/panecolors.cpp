// SPDX-License-Identifier: MIT
#include "panecolors.h"

#include "colorset.h"

PaneColors CurrentPaneColors()
{
    ColorSet & colors = ColorSet::Instance();
    return { colors[IColorBase::eColorAxisBackground], colors[IColorBase::eColorAxisScale],
             colors[IColorBase::eColorAxisForeground], colors[IColorBase::eColorGrid],
             colors[IColorBase::eColorSpectrumTrace],  colors[IColorBase::eColorMaximumTrace] };
}
