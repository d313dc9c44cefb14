// SPDX-License-Identifier: MIT
#include "krexception.h"

KRException::KRException(std::string const & text, char const * className, char const * source, char const * function,
                         unsigned int line, unsigned int code)
    : KRException(QString::fromLatin1(text.c_str(), static_cast<int>(text.size())), QString::fromLatin1(className),
                  QString::fromLatin1(source), QString::fromLatin1(function), line, code)
{}

KRException::KRException(QString const & text, QString const & className, QString const & source,
                         QString const & function, unsigned int line, unsigned int code)
    : m_text(text)
    , m_class(className)
    , m_source(source)
    , m_function(function)
    , m_line(line)
    , m_code(code)
    , m_what(text.toUtf8())
{}

KRException::KRException(KRException const & other) noexcept = default;

KRException & KRException::operator=(KRException const & other) noexcept = default;

KRException::~KRException() = default;

QString const & KRException::GetText() const { return m_text; }

QString const & KRException::GetClass() const { return m_class; }

QString const & KRException::GetSource() const { return m_source; }

QString const & KRException::GetFunction() const { return m_function; }

unsigned int KRException::GetLine() const { return m_line; }

unsigned int KRException::GetCode() const { return m_code; }

char const * KRException::what() const noexcept { return m_what.constData(); }

QString KRException::GetDescription() const
{
    return m_text + QLatin1String(" [") + m_class + QLatin1String("::") + m_function + QLatin1String(", ") + m_source +
           QLatin1Char(':') + QString::number(m_line) + QLatin1String(", code ") + QString::number(m_code) +
           QLatin1Char(']');
}
