// SPDX-License-Identifier: MIT
#ifndef ORIM_CONSOLERUN_H
#define ORIM_CONSOLERUN_H

#include "consoleoptions.h"
#include "consolesettings.h"

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QObject>

class ConsoleWindow;

//! Carries out what the command line asks of a running console: options, reports each second, the picture, the end. A
//! run that ends by itself neither uses nor changes the settings of the operator.
class ConsoleRun : public QObject
{
    Q_OBJECT
public:
    //! \param window  borrowed: must outlive this.
    ConsoleRun(ConsoleWindow & window, ConsoleOptions const & options, QObject * parent = nullptr);
    ~ConsoleRun() override;

    //! Sets the values and the colours that were asked for, shows the window and starts.
    //! \return false, with a message, when the window cannot have the size that was asked for.
    bool Start();
    //! Stores the settings of the operator. \return the code to end with.
    int Finish(int code);

protected:
    void timerEvent(QTimerEvent * event) override;

private:
    bool HasRoom() const;
    void ShowPanes();
    void ApplyOptions();
    void slotScreenshot();
    void End(int code);
    void Report();

    ConsoleWindow & m_window;
    ConsoleOptions m_options;
    ConsoleSettings m_settings;
    QBasicTimer m_reportTimer;
    QElapsedTimer m_reportClock; // since the last report
    quint64 m_takenAtReport = 0;
};

#endif
