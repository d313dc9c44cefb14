// SPDX-License-Identifier: MIT
#ifndef ORIM_AZIMUTHBUTTON_H
#define ORIM_AZIMUTHBUTTON_H

#include <QToolButton>

//! A button that tells how bearings are shown and opens the menu of the azimuth modes. What is chosen there is kept for
//! the next session too.
class AzimuthButton : public QToolButton
{
    Q_OBJECT
public:
    explicit AzimuthButton(QWidget * parent = nullptr);
    ~AzimuthButton() override;

    QSize sizeHint() const override;

private:
    void ShowMode();
};

#endif
