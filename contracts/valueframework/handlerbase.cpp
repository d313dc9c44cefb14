// SPDX-License-Identifier: MIT
#include "handlerbase.h"

namespace {

QString & LevelUnit()
{
    static QString unit = QStringLiteral("dB\u00b5V");
    return unit;
}

} // namespace

QString const & HandlerBase::GetLevelUnit() { return LevelUnit(); }

void HandlerBase::SetLevelUnit(QString const & unit) { LevelUnit() = unit; }
