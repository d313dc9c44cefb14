// SPDX-License-Identifier: MIT
#ifndef ORIM_COLORSETCTRL_H
#define ORIM_COLORSETCTRL_H

#include "orimcontracts_export.h"

#include <QColor>
#include <QMap>
#include <QPointer>
#include <QWidget>

#include <vector>

class ColorPreview;
class QColorDialog;
class QComboBox;
class QLabel;
class QListWidget;
class QPushButton;

//! Editor of the single colours: choose a set, choose a colour by its name, change it, see it at work. It edits a copy;
//! the screens change with slotAccept().
class ORIMCONTRACTS_EXPORT ColorSetCtrl : public QWidget
{
    Q_OBJECT
public:
    //! \param name  object name, Latin-1; null for "ColorSetCtrl".
    explicit ColorSetCtrl(QWidget * parent = nullptr, char const * name = nullptr);

    //! Whether there is input that was not taken over.
    bool GetDirty() const { return m_dirty; }

    //! Index of the set that is shown.
    int GetShownSet() const;
    //! A colour as it stands in the editor; invalid for a number without a colour.
    QColor GetColor(int number) const;

public Q_SLOTS:
    //! Takes the input over into ColorSet, and loads the shown set. Without input nothing happens.
    void slotAccept();
    //! Drops the input.
    void slotCancel();
    //! Shows the factory colours of all sets; slotAccept() takes them over.
    void slotDefault();

private:
    void Build();
    QWidget * BuildList();
    QWidget * BuildSide();
    void Reread();
    void ShowColors();
    void ShowContrast();
    int GetNumber() const;
    void SetColor(int number, QColor const & color);
    void slotSetChosen();
    void slotColorChosen();
    void slotChange();
    void slotFactoryColor();
    void slotTableChanged();

    std::vector<QMap<int, QColor>> m_colors; // by set, then by number
    QComboBox * m_pSets = nullptr;
    QListWidget * m_pList = nullptr;
    ColorPreview * m_pPreview = nullptr;
    QLabel * m_pContrast = nullptr;
    QPushButton * m_pChange = nullptr;
    QPushButton * m_pFactory = nullptr;
    QPointer<QColorDialog> m_pDialog; // this owns it while it is open
    QColor m_colorBefore;             // of the chosen colour when the dialog came to it
    bool m_dirty = false;
};

#endif
