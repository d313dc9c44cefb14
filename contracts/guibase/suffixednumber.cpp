// SPDX-License-Identifier: MIT
#include "suffixednumber.h"

#include <QByteArray>
#include <QStringView>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace {

struct PrefixRow
{
    char16_t letter; // 0 for none
    int exponent;
};

constexpr std::array<PrefixRow, 8> Prefixes{ {
    { u'n', -9 },
    { u'\u00B5', -6 },
    { u'm', -3 },
    { 0, 0 },
    { u'k', 3 },
    { u'M', 6 },
    { u'G', 9 },
    { u'T', 12 },
} };
static_assert(Prefixes.front().exponent == -9 && Prefixes.back().exponent == 12, "BestExponent() stays inside");

constexpr std::array<PrefixRow, 3> OtherLetters{ {
    { u'u', -6 },
    { u'\u03BC', -6 }, // the Greek letter looks like the sign
    { u'K', 3 },
} };

constexpr int LongestText = 64;     // characters
constexpr int LargestPower = 400;   // beyond every double; a larger exponent in the text adds nothing
constexpr int MostPlainDigits = 15; // digits before the point without an exponent
constexpr int LeastPlainPower = -9; // smallest first digit without an exponent

std::optional<int> ExponentOf(QChar letter)
{
    for (auto const & row : Prefixes)
        if (row.letter != 0 && letter == QChar(row.letter))
            return row.exponent;
    for (auto const & row : OtherLetters)
        if (letter == QChar(row.letter))
            return row.exponent;
    return {};
}

//! The larger of the prefixes that a letter may mean when its case is not heeded.
std::optional<int> LargerExponentOf(QChar letter)
{
    std::optional<int> const upper = ExponentOf(letter.toUpper());
    return upper ? upper : ExponentOf(letter.toLower());
}

//! Power of ten of what stands behind a number; nothing when it is neither empty, a prefix, the unit, nor both.
std::optional<int> SuffixExponent(QString const & suffix, QString const & unit, int bareExponent)
{
    if (suffix.isEmpty())
        return bareExponent;
    if (suffix == unit)
        return 0;
    if (suffix.mid(1) == unit || suffix.size() == 1)
        if (auto const exponent = ExponentOf(suffix.front()))
            return exponent;
    if (suffix.compare(unit, Qt::CaseInsensitive) == 0)
        return 0;
    if (suffix.mid(1).compare(unit, Qt::CaseInsensitive) == 0 || suffix.size() == 1)
        return LargerExponentOf(suffix.front());
    return {};
}

bool IsDigit(QChar c) { return c >= QLatin1Char('0') && c <= QLatin1Char('9'); }

//! Walks over a text; each step takes what fits and moves on.
struct Cursor
{
    QString const & text;
    int at = 0;

    QChar Peek() const { return at < text.size() ? text.at(at) : QChar(); }

    bool TakeOneOf(QChar a, QChar b)
    {
        bool const fits = at < text.size() && (text.at(at) == a || text.at(at) == b);
        at += fits ? 1 : 0;
        return fits;
    }

    QByteArray TakeDigits()
    {
        QByteArray digits;
        for (; at < text.size() && IsDigit(text.at(at)); ++at)
            digits += static_cast<char>(text.at(at).unicode());
        return digits;
    }

    QByteArray TakeSign()
    {
        if (TakeOneOf(QLatin1Char('-'), QChar(0x2212))) // the minus sign of typography too
            return QByteArrayLiteral("-");
        TakeOneOf(QLatin1Char('+'), QLatin1Char('+'));
        return {};
    }
};

struct Decimal
{
    QByteArray number; // sign, digits, point, digits
    int power = 0;
    QString rest; // without blanks around it
};

//! Splits a text into its number, power of ten and rest; nothing when it does not begin with a number.
std::optional<Decimal> Split(QString const & text)
{
    Cursor cursor{ text };
    Decimal decimal;
    decimal.number = cursor.TakeSign();
    QByteArray const whole = cursor.TakeDigits();
    QByteArray part;
    if (cursor.TakeOneOf(QLatin1Char('.'), QLatin1Char(',')))
        part = cursor.TakeDigits();
    if (whole.isEmpty() && part.isEmpty())
        return {};
    decimal.number += whole + '.' + part + (part.isEmpty() ? "0" : "");
    int const beforePower = cursor.at;
    if (cursor.TakeOneOf(QLatin1Char('e'), QLatin1Char('E'))) {
        bool const isNegative = cursor.TakeSign() == "-";
        QByteArray const power = cursor.TakeDigits();
        if (power.isEmpty())
            cursor.at = beforePower; // the e belongs to the suffix
        int const size = power.size() > 4 ? LargestPower : std::min(power.toInt(), LargestPower);
        decimal.power = isNegative ? -size : size;
    }
    decimal.rest = text.mid(cursor.at).trimmed();
    return decimal;
}

//! Sign, digits and power of ten of the first digit of a finite number, rounded.
struct Scientific
{
    bool isNegative = false;
    QByteArray digits;
    int power = 0;
};

bool IsInRange(QByteArray const & text)
{
    bool isRead = false;
    double const value = text.toDouble(&isRead);
    return isRead && std::isfinite(value);
}

//! Takes one from the last digit of a number above it.
void StepDown(QByteArray & digits)
{
    auto at = digits.size() - 1;
    for (; at > 0 && digits.at(at) == '0'; --at)
        digits[at] = '9';
    digits[at] = static_cast<char>(digits.at(at) - 1);
}

Scientific Round(double value, int digits)
{
    QByteArray const text = QByteArray::number(std::abs(value), 'e', digits - 1);
    auto const e = text.indexOf('e');
    Scientific rounded;
    rounded.digits = text.left(e).replace('.', QByteArray());
    rounded.power = text.mid(e + 1).toInt();
    rounded.isNegative = value < 0.0;
    if (rounded.power == std::numeric_limits<double>::max_exponent10 && !IsInRange(text))
        StepDown(rounded.digits);
    return rounded;
}

//! Rounds to at most so many digits, and so many decimals when the first digit is that of 10^\a shift units.
Scientific Round(double value, SuffixedNumber::Layout const & layout)
{
    int const digits = std::clamp(layout.digits, 1, 17);
    Scientific const full = Round(value, 17);
    int const room = layout.decimals < 0 ? digits : full.power - layout.exponent + 1 + layout.decimals;
    if (room >= 1)
        return Round(value, std::min(digits, room));
    Scientific last; // below the last decimal: one of it or nothing
    bool const roundsUp = room == 0 && full.digits.at(0) >= '5';
    last.digits = roundsUp ? QByteArrayLiteral("1") : QByteArrayLiteral("0");
    last.power = roundsUp ? full.power + 1 : 0;
    last.isNegative = roundsUp && full.isNegative;
    return last;
}

void DropClosingZeros(QByteArray & digits)
{
    while (digits.size() > 1 && digits.endsWith('0'))
        digits.chop(1);
}

//! The digits with a point behind the first \a whole of them, zeros where there are none.
QByteArray WithPoint(QByteArray const & digits, int whole, int leastDecimals)
{
    QByteArray before = whole > 0 ? digits.left(whole).leftJustified(whole, '0') : QByteArrayLiteral("0");
    QByteArray after = whole > 0 ? digits.mid(whole) : QByteArray(-whole, '0') + digits;
    after = after.leftJustified(leastDecimals, '0');
    return after.isEmpty() ? before : before + '.' + after;
}

} // namespace

QString SuffixedNumber::Prefix(int exponent)
{
    for (auto const & row : Prefixes)
        if (row.exponent == exponent && row.letter != 0)
            return QString(QChar(row.letter));
    return {};
}

double SuffixedNumber::Parse(QString const & text, QString const & unit, int bareExponent, bool * ok)
{
    bool isRead = false;
    double value = 0.0;
    QString const trimmed = text.size() <= LongestText ? text.trimmed() : QString();
    if (auto const decimal = Split(trimmed))
        if (auto const exponent = SuffixExponent(decimal->rest, unit, bareExponent))
            value = (decimal->number + 'e' + QByteArray::number(decimal->power + *exponent)).toDouble(&isRead);
    isRead = isRead && std::isfinite(value);
    if (ok)
        *ok = isRead;
    return isRead ? value : 0.0;
}

QString SuffixedNumber::Print(double value, Layout const & layout)
{
    if (!std::isfinite(value))
        return QStringLiteral("---");
    Scientific rounded = Round(value, layout);
    DropClosingZeros(rounded.digits);
    bool const isZero = rounded.digits == "0";
    int const power = isZero ? 0 : rounded.power - layout.exponent;
    QByteArray text = rounded.isNegative && !isZero ? "-" : "";
    if (power >= MostPlainDigits || power < LeastPlainPower)
        text += WithPoint(rounded.digits, 1, 0) + (power < 0 ? "e-" : "e+") + QByteArray::number(std::abs(power));
    else
        text += WithPoint(rounded.digits, power + 1, layout.keepZeros ? layout.decimals : 0);
    return QString::fromLatin1(text);
}

int SuffixedNumber::BestExponent(double value, int digits, std::optional<int> step)
{
    if (!std::isfinite(value) || value == 0.0)
        return 0;
    Layout layout;
    layout.digits = digits;
    layout.exponent = step.value_or(0);
    layout.decimals = step ? 0 : -1;
    int const power = Round(value, layout).power; // 0 of what rounds to 0
    int const third = power >= 0 ? power / 3 : -((2 - power) / 3);
    return 3 * std::clamp(third, -3, 4);
}
