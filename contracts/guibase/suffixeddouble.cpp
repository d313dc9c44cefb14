// SPDX-License-Identifier: MIT
#include "suffixeddouble.h"

#include "suffixednumber.h"

#include <algorithm>
#include <cmath>

namespace {

SuffixedDouble::ESuffix Checked(SuffixedDouble::ESuffix suffix)
{
    bool const isKnown = suffix == SuffixedDouble::eSuffixAuto ||
                         (suffix >= SuffixedDouble::eSuffixNano && suffix <= SuffixedDouble::eSuffixTera);
    return isKnown ? suffix : SuffixedDouble::eSuffixNone;
}

int Exponent(SuffixedDouble::ESuffix suffix) { return suffix == SuffixedDouble::eSuffixAuto ? 0 : 3 * suffix; }

} // namespace

SuffixedDouble::SuffixedDouble(ESuffix suffix, QString const & unit) : m_suffix(Checked(suffix)), m_unit(unit.trimmed())
{}

void SuffixedDouble::SetSuffix(ESuffix suffix) { m_suffix = Checked(suffix); }

void SuffixedDouble::SetUnit(QString const & unit) { m_unit = unit.trimmed(); }

void SuffixedDouble::SetSignificantDigits(int digits) { m_digits = std::clamp(digits, 1, 17); }

void SuffixedDouble::SetResolution(ESuffix resolution) { m_resolution = Checked(resolution); }

QString SuffixedDouble::GetDisplayString(double value) const
{
    int exponent = Exponent(m_suffix);
    if (m_suffix == eSuffixAuto && m_resolution == eSuffixAuto)
        exponent = SuffixedNumber::BestExponent(value, m_digits);
    else if (m_suffix == eSuffixAuto) // what is less than a step reads as none of it
        exponent =
            std::max(SuffixedNumber::BestExponent(value, m_digits, Exponent(m_resolution)), Exponent(m_resolution));
    QString const number = Print(value, exponent, true);
    QString const suffix = SuffixedNumber::Prefix(exponent) + m_unit;
    return suffix.isEmpty() || !std::isfinite(value) ? number : number + QLatin1Char(' ') + suffix;
}

QString SuffixedDouble::GetSignificantStringNoSuffix(double value) const
{
    return Print(value, Exponent(m_suffix), false);
}

QString SuffixedDouble::GetPureSuffix() const { return SuffixedNumber::Prefix(Exponent(m_suffix)) + m_unit; }

double SuffixedDouble::GetValue(QString const & text, bool * ok) const
{
    return SuffixedNumber::Parse(text, m_unit, Exponent(m_suffix), ok);
}

double SuffixedDouble::GetFactor(ESuffix suffix) { return std::pow(10.0, Exponent(Checked(suffix))); }

QString SuffixedDouble::Print(double value, int exponent, bool keepZeros) const
{
    SuffixedNumber::Layout layout;
    layout.exponent = exponent;
    layout.digits = m_digits;
    if (m_resolution != eSuffixAuto) {
        layout.decimals = std::max(0, exponent - Exponent(m_resolution));
        layout.keepZeros = keepZeros;
    }
    return SuffixedNumber::Print(value, layout);
}
