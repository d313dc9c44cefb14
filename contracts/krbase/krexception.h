// SPDX-License-Identifier: MIT
#ifndef ORIM_KREXCEPTION_H
#define ORIM_KREXCEPTION_H

#include "orimcontracts_export.h"

#include <QByteArray>
#include <QString>

#include <exception>
#include <string>

//! The one exception of the library: a text, and where it was raised.
class ORIMCONTRACTS_EXPORT KRException : public std::exception
{
public:
    //! Narrow texts are Latin-1; a null pointer is an empty text.
    //! \param source  path of the source file.
    //! \param code    any number; -1 arrives as 0xFFFFFFFF.
    KRException(std::string const & text, char const * className, char const * source, char const * function,
                unsigned int line, unsigned int code);
    KRException(QString const & text, QString const & className, QString const & source, QString const & function,
                unsigned int line, unsigned int code);
    KRException(KRException const & other) noexcept;
    KRException & operator=(KRException const & other) noexcept;
    ~KRException() override;

    QString const & GetText() const;
    QString const & GetClass() const;
    QString const & GetSource() const;
    QString const & GetFunction() const;
    unsigned int GetLine() const;
    unsigned int GetCode() const;

    //! The text in UTF-8; valid while this object lives.
    char const * what() const noexcept override;
    //! Everything in one line: "text [class::function, source:line, code n]".
    QString GetDescription() const;

private:
    QString m_text;
    QString m_class;
    QString m_source;
    QString m_function;
    unsigned int m_line;
    unsigned int m_code;
    QByteArray m_what;
};

#endif
