// SPDX-License-Identifier: MIT
#ifndef ORIM_CLIENTWINDOWVECTOR_H
#define ORIM_CLIENTWINDOWVECTOR_H

#include "lifetime.h"
#include "marker.h"
#include "orimwidgets_export.h"

#include <memory>
#include <vector>

class ClientWindow;
class MarkerList;

//! The fixed set of five client windows that an axis offers, with the texts "1" to "5". One of them may be the current
//! one.
//!
//! May be deleted by whoever hears of what its windows do. For the GUI thread.
class ORIMWIDGETS_EXPORT ClientWindowVector
{
public:
    static constexpr int WindowCount = 5;

    //! \param parent, direction  as for each ClientWindow.
    ClientWindowVector(MarkerList * parent, EMarkerXYType direction);
    ClientWindowVector(ClientWindowVector const &) = delete;
    ClientWindowVector & operator=(ClientWindowVector const &) = delete;
    ~ClientWindowVector();

    //! \param i  from 0. \return null for a bad index; else owned by this.
    ClientWindow * GetWindow(int i) const;
    //! How many windows are connected.
    int ConnectedCnt() const;
    //! How many windows are visible.
    int VisibleCnt() const;
    //! Index of the first window that is not visible, be it connected or not; -1 when all are visible.
    int FirstNotVisible() const;

    //! The window that SetFocus() chose last; -1 for none, as at the start.
    int GetCurrentIndex() const { return m_current; }

    //! Whether the current window has a point; false without one.
    bool CurrentWindowHasPoint(int pixel) const;
    //! ClientWindow::Show(false) on each.
    void HideAll();
    //! ClientWindow::RecalcBorders() on each.
    void RecalcBorders();
    //! Makes a window the current one, with the focus, after all others have lost it. \param i  -1 takes the focus from
    //! all; any other bad index is ignored. Who hears of a lost focus and sets it anew wins.
    void SetFocus(int i);

private:
    std::vector<std::unique_ptr<ClientWindow>> m_windows; // 5
    int m_current = -1;
    Lifetime m_lifetime;
};

#endif
