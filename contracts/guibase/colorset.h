// SPDX-License-Identifier: MIT
#ifndef ORIM_COLORSET_H
#define ORIM_COLORSET_H

#include "ihaspropertypage.h"
#include "orimcontracts_export.h"

#include <QColor>
#include <QMap>
#include <QObject>
#include <QPalette>
#include <QPointer>
#include <QString>

#include <array>
#include <memory>
#include <vector>

class ColorSetCtrl;
class Persistant;
class QComboBox;

//! Base of what names single colours.
class ORIMCONTRACTS_EXPORT IColorBase
{
public:
    //! Number of a single colour. The numbers are stored and stay; any int may be cast to it.
    enum ECOLOR : int
    {
        eColorAxisForeground = 1,
        eColorAxisBackground = 2,
        eColorShadingBackground = 3,
        eColorGrid = 4,
        eColorWindow = 10,
        eColorWindowText = 11,
        eColorEntry = 12,
        eColorEntryText = 13,
        eColorSelection = 14,
        eColorSelectedText = 15,
        eColorButton = 16,
        eColorButtonText = 17,
        eColorDisabledText = 18,
        eColorClientFirst = 30,    //!< marker: first border of a client window in X, second in Y
        eColorClientSecond = 31,   //!< marker: second border of a client window in X, first in Y
        eColorResult = 34,         //!< marker: one of several results
        eColorSelectedResult = 36, //!< marker: the result that is selected
        eColorReadOut = 37,        //!< read-out of a ruler, on eColorAxisScale
        eColorAgedMarker = 42,     //!< marker in an ageing image
        eColorCaptionFocus = 61,
        eColorCaptionFocusText = 62,
        eColorCaption = 63,
        eColorCaptionText = 64,
        eColorCaptionFocusCenter = 65,
        eColorAxisScale = 66,
        eColorCenterReadOut = 85, //!< read-out of the centre, on eColorAxisScale
        eColorBearingStarboard = 87,
        eColorBearingPort = 88,
        eColorBearingAhead = 89,
        eColorGood = 90,
        eColorWarning = 91,
        eColorMarker = 150, //!< a marker that has no colour of its own
        eColorSpectrumTrace = 151,
        eColorMaximumTrace = 152,
        eColorPositionCursor = 153,
        eColorFrame = 154
    };
};

//! The table of named single colours: one of several complete sets, with the operator's edits.
class ORIMCONTRACTS_EXPORT ColorSet : public QObject, public IColorBase, public IHasPropertyPage
{
    Q_OBJECT
public:
    //! The one table, made on first use and never destroyed.
    static ColorSet & Instance();
    ~ColorSet() override;

    //! A colour of the loaded set. What is written to it is an edit of that set; nobody is told, and it is stored with
    //! the next GuiBase::signalColorsChanged(). A number without a colour gives a spare that shows the axis foreground;
    //! what is written to the spare is lost.
    QColor & operator[](ECOLOR number);

    //! Loads a set with its edits and raises GuiBase::signalColorsChanged(), also when it is loaded already.
    //! \param set  0 to GetSetCount() - 1; any other index is ignored.
    //! \return whether there is such a set.
    bool Load(int set);

    //! Index of the loaded set.
    int GetCurrentSet() const { return m_current; }

    static int GetSetCount();
    //! Name of a set, translated; empty for an index that has none.
    static QString GetSetName(int set);
    //! Numbers of all colours, rising.
    static std::vector<int> GetNumbers();
    //! Name of a colour, translated; empty for a number that has none.
    static QString GetColorName(int number);
    //! All colours of a set by number: as they left the factory, and with the edits. Empty for an index that has none.
    static QMap<int, QColor> GetFactoryColors(int set);
    QMap<int, QColor> GetColors(int set) const;
    //! Takes the colours of all sets over and loads one; raises signalColorsChanged() once. Numbers without a colour
    //! and invalid colours are left out; a bad index changes nothing. \param colors  one map a set, in their order;
    //! further sets keep what they have.
    void Apply(int set, std::vector<QMap<int, QColor>> const & colors);

    //! Palette for the widgets of an application, in the colours 10 to 18 of the loaded set.
    QPalette GetPalette() const;

    //! A new combo box with the names of the sets at their index, showing the loaded one. Choosing in it loads nothing.
    static QComboBox * GetColorSetsComboBox(QWidget * parent);
    //! Fills a combo box anew and lets it show the loaded set, silently. Null is ignored.
    static void UpdateComboBox(QComboBox * combo);

    //! A new editor of all sets; the slots below reach every one that lives. Inside a window with the signal
    //! applyButtonPressed(), as TabDialog, the editor takes its input over on that signal.
    QWidget * GetCtrl(QWidget * parent);
    QWidget * GetPropertyPage(QWidget * parent, char const * name) override;
    //! "Colors", translated.
    QString const & GetPropertyPagePath() override;

public Q_SLOTS:
    void slotAcceptPropertyChanges() override;
    void slotCancelPropertyChanges() override;
    void slotDefaultPropertyChanges() override;
    //! Drops the edits of all sets, keeps the set that is loaded and raises GuiBase::signalColorsChanged().
    void slotRestoreFactoryColors();

    //! Loads set and edits from the store, as on first use, and raises GuiBase::signalColorsChanged(). Call it after
    //! Persistant::SetStore(). Load(), Apply(), the editor, the factory restore and, when there are edits anew,
    //! GuiBase::signalColorsChanged() write them.
    void slotReadSettings();

private:
    ColorSet();
    void ReadSettings();
    void WriteSettings();
    //! \return whether the edits of the loaded set differ from those kept.
    bool CollectEdits();
    void KeepEdits();
    std::vector<QPointer<ColorSetCtrl>> LiveCtrls();
    void TakeLive();

    static constexpr std::size_t m_sTableLength = 155; // one past the highest number
    std::array<QColor, m_sTableLength> m_live;         // by number; invalid where there is no colour
    std::vector<QMap<int, QColor>> m_edits;            // by set: what differs from the factory
    QColor m_spare;
    std::vector<QPointer<ColorSetCtrl>> m_ctrls; // borrowed: the editors
    QString m_pagePath;
    std::unique_ptr<Persistant> m_pPersistant; // we own it
    int m_current = 0;
};

#endif
