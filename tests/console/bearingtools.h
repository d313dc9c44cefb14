// SPDX-License-Identifier: MIT
#ifndef ORIM_BEARINGTOOLS_H
#define ORIM_BEARINGTOOLS_H

#include "azimuthdisplayselect.h"
#include "bearingpane.h"
#include "colorset.h"
#include "consolevalues.h"
#include "guibase.h"
#include "panetools.h"
#include "tree.h"

#include <QUndoStack>

#include <cmath>
#include <limits>
#include <memory>
#include <utility>

//! A pane of bearings over 1 MHz, and what is seen in it.
namespace BearingTools {

using Kind = BearingAxis::Kind;

inline constexpr double Span = 1e6; // Hz, from 0 on
inline constexpr double NaN = std::numeric_limits<double>::quiet_NaN();
inline constexpr double Infinite = std::numeric_limits<double>::infinity();

inline BearingResult ResultAt(double frequency, double bearing, double elevation = 0.0, double quality = 100.0,
                              double bandwidth = 0.0)
{
    return BearingResult({ bearing, elevation, frequency, quality, -30.0, bandwidth }, QString::number(frequency));
}

inline BearingMeasurement SingleAt(double frequency, double bearing, double quality = 100.0)
{
    return { frequency, bearing, bearing, quality, -30.0 };
}

inline void SetResults(std::vector<BearingResult> results)
{
    Tree::Instance()
        ->FindAs<ValueList<BearingResult>>(QLatin1String(ConsolePaths::Bearings))
        ->SetEntries(std::move(results), nullptr);
}

inline int ColumnIn(BearingPane const & pane, double frequency)
{
    QRect const picture = pane.GetPictureRect();
    return picture.left() + static_cast<int>(frequency / Span * picture.width());
}

//! Row of a part of the range, from the bottom.
inline int RowIn(BearingPane const & pane, double part)
{
    QRect const picture = pane.GetPictureRect();
    return picture.top() + static_cast<int>((1.0 - part) * picture.height());
}

inline QColor PixelOf(BearingPane const & pane, int x, int y) { return pane.GetPicture().pixelColor(x, y); }

inline bool IsNear(QColor const & a, QColor const & b)
{
    return std::abs(a.red() - b.red()) <= 2 && std::abs(a.green() - b.green()) <= 2 &&
           std::abs(a.blue() - b.blue()) <= 2;
}

inline QColor ResultColor(bool selected = false)
{
    return ColorSet::Instance()[selected ? IColorBase::eColorSelectedResult : IColorBase::eColorResult];
}

//! The values, the measurements and the pane of a test.
class Stage
{
protected:
    void Begin()
    {
        AzimuthDisplaySelect::Instance().slotRestoreDefaultPersistant();
        GuiBase::Instance().UndoStack()->clear();
        m_values = std::make_unique<ConsoleValues>();
        m_history = std::make_unique<BearingHistory>();
    }

    void End()
    {
        m_pane.reset();
        m_history.reset();
        m_values.reset();
    }

    //! A pane that is shown, with a picture of 360 rows.
    BearingPane & Make(Kind kind = Kind::eAzimuth)
    {
        m_pane = std::make_unique<BearingPane>(kind);
        m_pane->SetColors(PaneTools::Colors());
        m_pane->SetFrequencyRange({ 0.0, Span });
        m_pane->SetHistory(m_history.get());
        m_pane->BindResults();
        m_pane->resize(700, 300);
        m_pane->Refresh();
        m_pane->resize(700, 300 + 360 - static_cast<int>(m_pane->GetPictureRect().height() / m_pane->GetRatio()));
        m_pane->show();
        m_pane->grab();
        return *m_pane;
    }

    void Measure(std::vector<BearingMeasurement> const & measurements, double now) const
    {
        m_history->Append(measurements, now);
    }

    std::unique_ptr<ConsoleValues> m_values;
    std::unique_ptr<BearingHistory> m_history;
    std::unique_ptr<BearingPane> m_pane;
};

} // namespace BearingTools

#endif
