/// @file
/// The asynchronous log.
#pragma once

#include <concepts>
#include <string>
#include <type_traits>

#include <ostrel/platform/base/Export.h>

namespace Ostrel::Common
{

/// An asynchronous log. Any thread writes messages; one thread of the log hands them to the loggers, so that nobody who
/// writes waits for a disk:
///
///     static CFileLogger logger("server.log", false);
///     CLog::AddLogger(&logger);
///     CLog::Info("%d clients", count);
///
/// The log's thread ends with the process. Messages that it has not taken by then are lost.
class OSTREL_COMMON_API CLog
{
public:
    /// The kind of a message. Info sends 0.
    enum Severity : int
    {
        InfoSeverity = 0 ///< information
    };

    /// Takes the messages of the log and puts them somewhere.
    class OSTREL_COMMON_API ILogger
    {
    public:
        ///@{
        /// Loggers have no state of their own.
        ILogger() = default;
        ILogger(ILogger const&) = default;
        ILogger& operator=(ILogger const&) = default;
        ///@}
        virtual ~ILogger();

        /// One message: when it was written, in ticks of the process clock, and by which thread. Log thread, one
        /// message at a time, in the order in which they were written. What it throws is dropped.
        virtual void Log(CLog::Severity severity, long time, int threadId, std::string const& text) = 0;
    };

    CLog() = delete;

    /// Writes a message like printf; the compiler checks the arguments against a format that is a literal. A message of
    /// 512 or more characters is dropped. Any thread.
    static void Info(char const* format, ...) __attribute__((format(printf, 1, 2)));
    /// The same with a format that is made at run time: it must fit the arguments.
    template <std::same_as<std::string> Format, class... Arguments>
    static void Info(Format const& format, Arguments... arguments)
    {
        static_assert((std::is_scalar_v<Arguments> && ...), "a message takes numbers, characters and pointers");
        Write(format.c_str(), arguments...);
    }

    /// The logger gets all messages written from now on. Does not take ownership; loggers cannot be removed and must
    /// live as long as the process writes messages. Does nothing for null. Any thread.
    static void AddLogger(ILogger* logger);

private:
    class Impl;

    static void Write(char const* format, ...);
};

} // namespace Ostrel::Common
