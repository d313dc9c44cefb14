// SPDX-License-Identifier: MIT
#ifndef ORIM_RESULTMARKERLIST_H
#define ORIM_RESULTMARKERLIST_H

#include "colorset.h"
#include "lifetime.h"
#include "observable.h"
#include "orimwidgets_export.h"
#include "valuelist.h"

#include <QString>

class IValueNumeric;
class MarkerList;

//! Keeps up to eight result markers of a list in step with a list of bearing results, and highlights the one that a
//! selector picks. MarkerList::CreateResultMarkerList() makes it. Follows its values only while the list is visible;
//! what it missed meanwhile it does not catch up with.
class ORIMWIDGETS_EXPORT ResultMarkerList : public IObserver
{
public:
    //! \param parent   holds the markers; borrowed, may be null.
    //! \param firstId  EMarkerID of the first marker that Resize() makes or deletes. Results are handed to the markers
    //!                 from 33 on, whatever it is.
    //! \param show, color, moveable, special  what each marker is made with.
    //! \param name     name and value path of each marker; a "%1" in it becomes its number, from 0.
    ResultMarkerList(MarkerList * parent, int firstId, bool show, IColorBase::ECOLOR color, bool moveable,
                     unsigned int special, QString const & name);
    ResultMarkerList(ResultMarkerList const &) = delete;
    ResultMarkerList & operator=(ResultMarkerList const &) = delete;
    //! Lets go of both values; the markers stay.
    ~ResultMarkerList() override;

    //! Binds the list of results. The markers follow with its next change.
    //! \return false, and nothing is bound, when the path is unknown or names a value of another type.
    bool Set_ValuePath(QString const & path);
    //! Binds the number of the selected result, from 0; any numeric value. A change of it shows with the next change of
    //! the list.
    bool SetSelector_ValuePath(QString const & path);

    //! Borrowed; null for none.
    void SetParent(MarkerList * parent);

    //! Null when there is none or it has ended.
    MarkerList * GetParent() const { return m_parentLife.IsOver() ? nullptr : m_pParent; }

    //! Whether a list of results is bound.
    bool GetConnected() const { return m_pList != nullptr; }

    //! Makes the missing ones of the first \a n markers, and deletes the rest of eight, whatever they are. More than
    //! eight count as eight, a negative number as none. Markers past the last id are left out.
    void Resize(int n);

    //! Hears the bound values: a changed list resizes, and hands each entry to its marker.
    void Update(Observable * subject, TChangeCode code) override;

private:
    void HearState(Observable const * subject);
    void ShowResults();
    void HandOver(MarkerList & parent);
    QString NameOf(int number) const;

    ValueList<BearingResult> * m_pList = nullptr; // borrowed from the tree, as the selector
    MarkerList * m_pParent = nullptr;             // borrowed
    LifeWatch m_parentLife;
    IValueNumeric * m_pSelector = nullptr;
    int m_selected = 0;
    bool m_show;
    IColorBase::ECOLOR m_color;
    bool m_moveable;
    unsigned int m_special;
    QString m_name;
    int m_firstId;
    unsigned int m_resizes = 0; // calls of Resize(), so that an outer one notices an inner one
};

#endif
