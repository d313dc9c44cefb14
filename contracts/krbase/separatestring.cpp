// SPDX-License-Identifier: MIT
#include "separatestring.h"

int Orim::separateString(QString text, QString * fields, unsigned char maxFields)
{
    if (!fields)
        return 0;
    int count = 0;
    decltype(text.size()) from = 0; // int in one Qt, wider in the other
    while (count < maxFields) {
        auto const stop = text.indexOf(QLatin1Char(';'), from);
        fields[count++] = stop < 0 ? text.mid(from) : text.mid(from, stop - from);
        if (stop < 0)
            break;
        from = stop + 1;
    }
    return count;
}
