// SPDX-License-Identifier: MIT
#include "errorhandler.h"

#include "krexception.h"

#include <QLoggingCategory>

namespace {

// The categories, like the handler, are never deleted: static objects report while they end.
QLoggingCategory const & Errors()
{
    static auto const * const category = new QLoggingCategory("orim.error");
    return *category;
}

QLoggingCategory const & Traces()
{
    static auto const * const category = new QLoggingCategory("orim.trace");
    return *category;
}

} // namespace

IErrorHandler::~IErrorHandler() = default;

ErrorHandler & ErrorHandler::Instance()
{
    static auto * const handler = new ErrorHandler;
    return *handler;
}

IErrorHandler * ErrorHandler::Interface() { return &Instance(); }

unsigned int ErrorHandler::GetTraceMask() const { return m_traceMask; }

void ErrorHandler::SetTraceMask(unsigned int mask) { m_traceMask = mask; }

void ErrorHandler::Record(KRException const & exception)
{
    qCWarning(Errors, "%s", qUtf8Printable(exception.GetDescription()));
}

void ErrorHandler::Report(KRException const & exception, int first, int second, int third, int fourth, int fifth)
{
    qCCritical(Errors, "%s (%d, %d, %d, %d, %d)", qUtf8Printable(exception.GetDescription()), first, second, third,
               fourth, fifth);
}

void _Q_Trace(QString const & text, QString const & path, unsigned short line) // NOLINT(*identifier*)
{
    qCInfo(Traces, "%s(%d): %s", qUtf8Printable(path), static_cast<int>(line), qUtf8Printable(text));
}
