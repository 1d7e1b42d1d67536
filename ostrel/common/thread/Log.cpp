#include <cstdarg>
#include <cstdio>

#include <ostrel/common/thread/Log.h>
#include <ostrel/common/thread/detail/LogImpl.h>

namespace Ostrel::Common
{

CLog::ILogger::~ILogger() = default;

void CLog::Info(char const* format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    Impl::Instance().Write(format, arguments);
    va_end(arguments);
}

void CLog::Write(char const* format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral" // a format made at run time is what this overload is for
    Impl::Instance().Write(format, arguments);
#pragma GCC diagnostic pop
    va_end(arguments);
}

void CLog::AddLogger(ILogger* logger)
{
    Impl::Instance().AddLogger(logger);
}

} // namespace Ostrel::Common
