// SPDX-License-Identifier: MIT
#include "value.h"

#include <QLocale>

#include <cmath>
#include <limits>

namespace {

QString Word(char const * word) { return QString::fromLatin1(word); }

bool IsOneOf(QString const & text, std::initializer_list<char const *> words)
{
    for (char const * word : words)
        if (text.compare(QLatin1String(word), Qt::CaseInsensitive) == 0)
            return true;
    return false;
}

} // namespace

QString ValueText::FromBool(bool value) { return Word(value ? "true" : "false"); }

bool ValueText::ToBool(QString const & text, bool * value)
{
    QString const word = text.trimmed();
    bool const on = IsOneOf(word, { "true", "on", "1" });
    if (!on && !IsOneOf(word, { "false", "off", "0" }))
        return false;
    *value = on;
    return true;
}

bool ValueText::ToInt(QString const & text, int * value)
{
    bool ok = false;
    int const number = text.trimmed().toInt(&ok, 10);
    if (ok)
        *value = number;
    return ok;
}

bool ValueText::ToInt(QString const & text, char * value)
{
    int number = 0;
    if (!ToInt(text, &number) || number < std::numeric_limits<char>::min() || number > std::numeric_limits<char>::max())
        return false;
    *value = static_cast<char>(number);
    return true;
}

bool ValueText::ToInt64(QString const & text, long long * value)
{
    bool ok = false;
    long long const number = text.trimmed().toLongLong(&ok, 10);
    if (ok)
        *value = number;
    return ok;
}

QString ValueText::FromDouble(double value) { return QString::number(value, 'g', QLocale::FloatingPointShortest); }

QString ValueText::FromDoubleExact(double value)
{
    return QString::number(value, 'g', std::numeric_limits<double>::max_digits10);
}

bool ValueText::ToDouble(QString const & text, double * value)
{
    bool ok = false;
    double const number = text.trimmed().toDouble(&ok);
    if (!ok || !std::isfinite(number))
        return false;
    *value = number;
    return true;
}

QString ValueText::FromNarrow(std::string const & value)
{
    return QString::fromLatin1(value.data(), static_cast<int>(value.size()));
}

bool ValueText::ToNarrow(QString const & text, std::string * value)
{
    for (QChar const character : text)
        if (character.unicode() > 0xFF)
            return false;
    *value = text.toLatin1().toStdString();
    return true;
}

template class Value<bool>;
template class Value<char>;
template class Value<int>;
template class Value<long long>;
template class Value<double>;
template class Value<QString>;
template class Value<std::string>;
