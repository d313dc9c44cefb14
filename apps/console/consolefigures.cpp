// SPDX-License-Identifier: MIT
#include "consolefigures.h"

QString ConsoleFigures::ToText() const
{
    return QStringLiteral("lines: %1 produced, %2 taken, %3 painted in %4 frames, %5 dropped, %6 skipped; "
                          "cpu: %7 % of one core; frame time: %8 ms mean, %9 ms max")
        .arg(produced)
        .arg(taken)
        .arg(painted)
        .arg(frames)
        .arg(dropped)
        .arg(skipped)
        .arg(QString::number(processor, 'f', 1), QString::number(frameMean, 'f', 2), QString::number(frameMax, 'f', 2));
}
