// SPDX-License-Identifier: MIT
#include "guardedbuild.h"

#include "errorhandler.h"
#include "krexception.h"

namespace {

// Where a failure is said to be: readers of logs know it by these.
char const * const Source = "controls/orimwidgets/guicentral";
constexpr unsigned short Line = 357;

void Trace(char const * text)
{
    if (ErrorHandler::Instance().GetTraceMask() & ErrorHandler::TraceBit)
        _Q_Trace(QString::fromLatin1(text), QString::fromLatin1(Source), Line);
}

void Tell(KRException const & exception, int kind)
{
    IErrorHandler * const handler = ErrorHandler::Interface();
    handler->Record(exception);
    handler->Report(exception, 0, -1, 1, kind);
}

} // namespace

bool BuildGuarded(std::function<void()> const & build)
{
    try {
        build();
        return true;
    } catch (KRException const & exception) {
        Trace("KRException caught in standard catch-block");
        Tell(exception, 0);
    } catch (std::exception const & exception) {
        Trace("Standard C++ Exception caught in standard catch-block");
        char const * const text = exception.what();
        Tell(KRException(std::string(text ? text : "Unknown exception"), "class", Source, "method", Line,
                         static_cast<unsigned int>(-1)),
             0x100);
    }
    return false;
}
