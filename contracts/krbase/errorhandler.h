// SPDX-License-Identifier: MIT
#ifndef ORIM_ERRORHANDLER_H
#define ORIM_ERRORHANDLER_H

#include "orimcontracts_export.h"

#include <QString>

class KRException;

//! Where a caught exception goes.
class ORIMCONTRACTS_EXPORT IErrorHandler
{
public:
    virtual ~IErrorHandler();

    //! Which traces are wanted: bit 32 (0x20) asks for those of the library.
    virtual unsigned int GetTraceMask() const = 0;
    //! Notes an exception for those who read the log.
    virtual void Record(KRException const & exception) = 0;
    //! Tells of an exception that cost the operator something. The five numbers go into the log as they stand.
    virtual void Report(KRException const & exception, int first, int second, int third, int fourth, int fifth = 0) = 0;
};

//! The error handler of the process. It writes to the logging category "orim.error", exceptions that are recorded as
//! warnings and those that are reported as critical, and opens no window: an error never waits for an operator.
//! It lives until the process has ended, so that a static object may use it from its destructor.
class ORIMCONTRACTS_EXPORT ErrorHandler : public IErrorHandler
{
public:
    //! The bit of the trace mask that asks for _Q_Trace lines.
    static constexpr unsigned int TraceBit = 0x20;

    static ErrorHandler & Instance();
    static IErrorHandler * Interface(); //!< the same object, never null

    unsigned int GetTraceMask() const override;
    void SetTraceMask(unsigned int mask); //!< 0 at start: no traces
    void Record(KRException const & exception) override;
    void Report(KRException const & exception, int first, int second, int third, int fourth, int fifth = 0) override;

private:
    ErrorHandler() = default;
    unsigned int m_traceMask = 0;
};

//! Writes a trace line "source(line): text" to the logging category "orim.trace", as information. It does not look at
//! the trace mask: a caller tests ErrorHandler::TraceBit before it builds the text. \param path  path of the source
//! file.
ORIMCONTRACTS_EXPORT void _Q_Trace(QString const & text, QString const & path,
                                   unsigned short line); // NOLINT(*identifier*)

#endif
