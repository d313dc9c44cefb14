// SPDX-License-Identifier: MIT
#ifndef ORIM_STATUSLINE_H
#define ORIM_STATUSLINE_H

#include <QWidget>

class QLabel;

//! The line at the bottom of the console: the name of the source, shortened where there is little room, and figures.
class StatusLine : public QWidget
{
    Q_OBJECT
public:
    explicit StatusLine(QWidget * parent = nullptr);
    ~StatusLine() override;

    void SetSource(QString const & name);
    void SetFrequency(QString const & text);
    //! \param lineRate   lines a second that were shown.
    //! \param drops      lines that were made and not shown.
    //! \param frameTime  mean, ms.
    void SetFigures(double lineRate, quint64 drops, double frameTime);

protected:
    void resizeEvent(QResizeEvent * event) override;

private:
    void ShowSource();

    QString m_name;
    QLabel * m_pSource = nullptr;
    QLabel * m_pFrequency = nullptr;
    QLabel * m_pFigures = nullptr;
};

#endif
