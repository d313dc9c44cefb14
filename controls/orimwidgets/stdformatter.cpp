// SPDX-License-Identifier: MIT
#include "stdformatter.h"

#include <algorithm>
#include <utility>

StdFormatter::StdFormatter(QString suffix, int precision)
    : m_suffix(std::move(suffix))
    , m_precision(std::clamp(precision, 0, 99))
{}

QString const & StdFormatter::convert(double value)
{
    m_text = QStringLiteral("%1").arg(value, 0, 'f', m_precision);
    return m_text;
}

QString const & StdFormatter::convertSuffixed(double value)
{
    m_suffixedText = convert(value) + QLatin1Char(' ') + m_suffix;
    return m_suffixedText;
}
