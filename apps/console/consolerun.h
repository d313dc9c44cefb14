// SPDX-License-Identifier: MIT
#ifndef ORIM_CONSOLERUN_H
#define ORIM_CONSOLERUN_H

#include "consoleoptions.h"

#include <QBasicTimer>
#include <QObject>

class ConsoleWindow;

//! Carries out what the command line asks of a running console: options, reports each second, the picture, the end.
class ConsoleRun : public QObject
{
    Q_OBJECT
public:
    //! \param window  borrowed: must outlive this.
    ConsoleRun(ConsoleWindow & window, ConsoleOptions const & options, QObject * parent = nullptr);
    ~ConsoleRun() override;

    //! Sets the values and the colours that were asked for, shows the window and starts.
    void Start();

protected:
    void timerEvent(QTimerEvent * event) override;

private:
    void ApplyOptions();
    void slotScreenshot();
    void End(int code);
    void Report();

    ConsoleWindow & m_window;
    ConsoleOptions m_options;
    QBasicTimer m_reportTimer;
    quint64 m_takenAtReport = 0;
};

#endif
