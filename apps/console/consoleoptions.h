// SPDX-License-Identifier: MIT
#ifndef ORIM_CONSOLEOPTIONS_H
#define ORIM_CONSOLEOPTIONS_H

#include <QSize>
#include <QString>
#include <QStringList>

#include <optional>

//! What the operator asked for on the command line.
struct ConsoleOptions
{
    enum class Action
    {
        eRun,
        eHelp,
        eVersion,
        eRefuse
    };
    enum class Colors
    {
        eDay,
        eNight,
        eContrast
    };

    //! Reads the arguments.
    //! \param arguments  the first is the name of the program.
    //! \return the action is eRefuse, with a message, for an option that is unknown, whose value is none, or that
    //!         does not go with the others.
    static ConsoleOptions Parse(QStringList const & arguments);

    //! Whether the program ends without the operator: it then neither uses nor changes what is stored.
    bool EndsByItself() const { return !screenshot.isEmpty() || runSeconds > 0.0; }

    Action action = Action::eRun;
    QString message; //!< why the arguments were refused; else empty
    QString help;    //!< text for the action eHelp

    QString file; //!< recording, a .sigmf-meta file; empty: the simulator
    quint64 seed = 1;
    double speed = 1.0;
    bool verbose = false;
    bool markers = false; //!< all markers are shown from the start
    bool windows = false; //!< all windows mark signals from the start
    QStringList panes;    //!< shown beside those that always are: persistence, azimuth, elevation

    QString screenshot;         //!< picture to write; empty for none
    double after = 2.0;         //!< s until it is written
    double runSeconds = 0.0;    //!< s until the program ends by itself, above 0; 0: it does not
    std::optional<QSize> size;  //!< of the window, logical px
    std::optional<int> bins;    //!< power of two from 64 to 65536
    std::optional<double> rate; //!< lines a second, 1 to 200
    std::optional<Colors> colors;
    std::optional<double> levelMin; //!< dBFS; given together with levelMax, which is above it
    std::optional<double> levelMax;
};

#endif
