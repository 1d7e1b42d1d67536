// The log thread. Loggers and messages reach it as jobs of one queue, which keeps their order.
#pragma once

#include <cstdarg>
#include <vector>

#include <ostrel/common/thread/Automat.h>
#include <ostrel/common/thread/Log.h>

namespace Ostrel::Common
{

class CLog::Impl final : public CAutomat
{
public:
    /// Made and started on first use and never destroyed, so that a static object may write messages to its end. The
    /// thread is joined when the process ends.
    static Impl& Instance();

    void Write(char const* format, std::va_list arguments) __attribute__((format(printf, 2, 0)));
    void AddLogger(ILogger* logger);

private:
    class NewLogger;
    class LogData;

    Impl();
    ~Impl() override = default;

    std::vector<ILogger*> m_loggers; ///< log thread only
};

} // namespace Ostrel::Common
