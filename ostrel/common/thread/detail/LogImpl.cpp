#include <cstdio>
#include <string>
#include <string_view>

#include <ostrel/common/thread/detail/LogImpl.h>
#include <ostrel/platform/base/Clock.h>
#include <ostrel/platform/base/Narrow.h>
#include <ostrel/platform/base/ThreadId.h>

namespace Ostrel::Common
{

class CLog::Impl::NewLogger final : public CJob
{
public:
    NewLogger(Impl& service, ILogger* logger) : m_service(service), m_logger(logger) {}

    void Execute() override { m_service.m_loggers.push_back(m_logger); }

private:
    Impl& m_service;
    ILogger* m_logger;
};

class CLog::Impl::LogData final : public CJob
{
public:
    LogData(std::string_view text, Severity severity, long time, int threadId, Impl& service)
        : m_text(text), m_severity(severity), m_time(time), m_threadId(threadId), m_service(service)
    {}

    void Execute() override
    {
        for (ILogger* const logger : m_service.m_loggers)
        {
            try
            {
                logger->Log(m_severity, m_time, m_threadId, m_text);
            }
            catch (...) // NOLINT(bugprone-empty-catch): one logger's failure is not the other loggers'
            {}
        }
    }

private:
    std::string const m_text;
    Severity const m_severity;
    long const m_time;
    int const m_threadId;
    Impl& m_service;
};

CLog::Impl::Impl() : CAutomat("Common::Logger")
{
    Start();
}

CLog::Impl& CLog::Impl::Instance()
{
    static Impl& service = *new Impl;
    /// Joins the thread before the program's code and data go away.
    struct AtExit
    {
        ~AtExit()
        {
            service.Stop();
            service.Wait(-1);
        }
    };
    static AtExit const atExit;
    return service;
}

void CLog::Impl::Write(char const* format, std::va_list arguments)
{
    char text[512];
    int const length = std::vsnprintf(text, sizeof(text), format, arguments);
    if (length < 0 || length >= static_cast<int>(sizeof(text)))
    {
        return;
    }
    long const time = Platform::NarrowLong(static_cast<long>(Platform::Clock::Ticks()));
    PushJob(new LogData({text, static_cast<std::size_t>(length)}, InfoSeverity, time,
                        static_cast<int>(GetCurrentThreadId()), *this));
}

void CLog::Impl::AddLogger(ILogger* logger)
{
    if (logger != nullptr)
    {
        PushJob(new NewLogger(*this, logger));
    }
}

} // namespace Ostrel::Common
