/// @file
/// Writes the messages of the log to a file, one line each: when, by which thread, and the text.
#pragma once

#include <fstream>
#include <string>

#include <ostrel/common/format/LongFormat.h>
#include <ostrel/common/format/LongMsecTimeFormat.h>
#include <ostrel/common/thread/Log.h>
#include <ostrel/platform/base/Export.h>

namespace Ostrel::Common
{

/// A logger that appends each message to a text file as one line. Not for two loggers on one file.
class OSTREL_COMMON_API CFileLogger : public CLog::ILogger
{
public:
    /// Creates the file, or empties the one that is there. If it cannot be opened every message is ignored. Nothing
    /// depends on the second argument.
    CFileLogger(std::string const& fileName, bool);
    /// Closes the file.
    ~CFileLogger() override;
    CFileLogger(CFileLogger const&) = delete;
    CFileLogger& operator=(CFileLogger const&) = delete;

    /// Appends a line and flushes it: "0 01:02:03.004 4711 the text", ended by a carriage return and a line feed. After
    /// a failed write every message is ignored. Log thread.
    void Log(CLog::Severity severity, long time, int threadId, std::string const& text) override;

private:
    std::ofstream m_file;
    CLongMsecTimeFormat const m_timeFormat;
    CLongFormat const m_numberFormat;
};

} // namespace Ostrel::Common
