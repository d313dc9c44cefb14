// SPDX-License-Identifier: MIT
#include "valuelist.h"

#include "samevalue.h"

#include <QStringList>
#include <QUrl>

#include <algorithm>

namespace {

constexpr unsigned int MostValues = 4096; // of one result

QString Encode(QString const & text) { return QString::fromLatin1(QUrl::toPercentEncoding(text)); }

QString Decode(QString const & word) { return QUrl::fromPercentEncoding(word.toLatin1()); }

} // namespace

IMarkerValue::~IMarkerValue() = default;

BearingResult::BearingResult(std::vector<double> values, QString const & text)
    : m_values(std::move(values))
    , m_text(text)
{
    if (m_values.size() > MostValues)
        m_values.resize(MostValues);
}

double BearingResult::GetValue(unsigned int i) const { return i < m_values.size() ? m_values[i] : -1.0; }

void BearingResult::SetValue(unsigned int i, double value)
{
    if (i >= MostValues)
        return;
    if (i >= m_values.size())
        m_values.resize(i + 1, 0.0);
    m_values[i] = value;
}

bool BearingResult::operator==(BearingResult const & other) const
{
    return m_text == other.m_text && std::equal(m_values.begin(), m_values.end(), other.m_values.begin(),
                                                other.m_values.end(), sameValue<double>);
}

QString FormatBearingResult::ToText(BearingResult const & value)
{
    QString text;
    for (unsigned int i = 0; i < value.GetCount(); ++i)
        text += ValueText::FromDoubleExact(value.GetValue(i)) + QLatin1Char(' ');
    return text + QLatin1Char('"') + Encode(value.GetText());
}

bool FormatBearingResult::FromText(QString const & text, BearingResult * value)
{
    QStringList words = text.split(QLatin1Char(' '));
    QString const last = words.takeLast();
    if (!last.startsWith(QLatin1Char('"')) || words.size() > static_cast<int>(MostValues))
        return false;
    std::vector<double> values;
    for (QString const & word : words) {
        double number = 0.0;
        if (!ValueText::ToDouble(word, &number))
            return false;
        values.push_back(number);
    }
    *value = BearingResult(std::move(values), Decode(last.mid(1)));
    return true;
}

template class ValueList<BearingResult>;
