#include <ostrel/common/thread/FileLogger.h>

namespace Ostrel::Common
{

namespace
{

constexpr unsigned long kAllUnits = CLongMsecTimeFormat::Days | CLongMsecTimeFormat::Hours |
                                    CLongMsecTimeFormat::Minutes | CLongMsecTimeFormat::Seconds |
                                    CLongMsecTimeFormat::Milliseconds;
constexpr char kNoSeparator = 0;

} // namespace

CFileLogger::CFileLogger(std::string const& fileName, bool /*unused*/)
    : m_file(fileName, std::ios::out | std::ios::binary | std::ios::trunc),
      m_timeFormat(kAllUnits, true, "", ""),
      m_numberFormat(CLongFormat::Decimal, true, kNoSeparator, true, false)
{}

CFileLogger::~CFileLogger() = default;

void CFileLogger::Log(CLog::Severity /*severity*/, long time, int threadId, std::string const& text)
{
    if (!m_file.is_open())
    {
        return;
    }
    std::string line = m_timeFormat.FormatStl(time);
    line += ' ';
    line += m_numberFormat.FormatStl(static_cast<long>(threadId));
    line += ' ';
    line += text;
    line += "\r\n";
    m_file.write(line.data(), static_cast<std::streamsize>(line.size()));
    m_file.flush();
}

} // namespace Ostrel::Common
