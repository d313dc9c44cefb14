// SPDX-License-Identifier: MIT
#ifndef ORIM_POSITIONBAR_H
#define ORIM_POSITIONBAR_H

#include <QWidget>

class QLabel;
class QSlider;
class QToolButton;

//! Shows and sets the position in a recording: play and pause buttons, a bar that can be dragged, two time texts. The
//! bar takes the arrow, page, home and end keys; the space key plays and pauses.
class PositionBar : public QWidget
{
    Q_OBJECT
public:
    explicit PositionBar(QWidget * parent = nullptr);
    ~PositionBar() override;

    //! Length of the recording, s. 0, below, and what is not finite: endless, the bar is disabled.
    void SetDuration(double seconds);

    double GetDuration() const { return m_duration; }

    //! Position shown, s, held to the recording; what is not finite is ignored. While the operator drags the bar stays
    //! in his hand.
    void SetPosition(double seconds);

    double GetPosition() const { return m_position; }

    //! Whether the buttons show that the recording plays.
    void SetPlaying(bool playing);

    bool IsPlaying() const { return m_playing; }

Q_SIGNALS:
    void signalSeek(double seconds); //!< the operator moved the bar
    void signalPlay();
    void signalPause();

protected:
    void keyPressEvent(QKeyEvent * event) override;
    void changeEvent(QEvent * event) override;

private:
    void BuildButtons();
    void BuildBar();
    void PaintIcons();
    void slotBarMoved(int value);
    void ShowBar();
    void ShowTexts();
    double ValueToSeconds(int value) const;
    double TextStep() const;

    QToolButton * m_pPlay = nullptr;
    QToolButton * m_pPause = nullptr;
    QSlider * m_pBar = nullptr;
    QLabel * m_pTime = nullptr;
    QLabel * m_pLength = nullptr;
    double m_duration = 0.0; // s
    double m_position = 0.0; // s
    bool m_playing = false;
};

#endif
