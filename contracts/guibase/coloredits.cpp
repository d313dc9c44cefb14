// SPDX-License-Identifier: MIT
#include "coloredits.h"

#include <QStringList>

QString ColorEdits::ToText(QMap<int, QColor> const & colors)
{
    QStringList fields;
    for (auto edit = colors.cbegin(); edit != colors.cend(); ++edit)
        if (edit.value().isValid())
            fields.append(QString::number(edit.key()) + QLatin1Char('=') + edit.value().name());
    return fields.join(QLatin1Char(';'));
}

QMap<int, QColor> ColorEdits::FromText(QString const & text)
{
    QMap<int, QColor> colors;
    for (QString const & field : text.split(QLatin1Char(';'))) {
        int const equals = static_cast<int>(field.indexOf(QLatin1Char('=')));
        bool ok = false;
        int const number = field.left(equals).toInt(&ok);
        QString const name = field.mid(equals + 1);
        bool const wellFormed = equals > 0 && ok && name.size() == 7 && name.startsWith(QLatin1Char('#'));
        QColor color;
        if (wellFormed)
            color.setNamedColor(name);
        if (color.isValid())
            colors.insert(number, color);
    }
    return colors;
}
