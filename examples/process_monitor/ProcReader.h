// Reads the processes of this machine from /proc: plain values, no grid, no thread. A process that ends while it is
// read is simply not in the result.
#pragma once

#include <chrono>
#include <ctime>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace ProcessMonitor
{

/// What /proc tells of one process at one moment.
struct ProcessInfo
{
    int pid = 0;
    int parentPid = 0;
    std::string name;        ///< the kernel's name of the process, at most 15 bytes
    std::string user;        ///< name of the effective user, or the number when it has none
    std::string state;       ///< "running", "sleeping", ...
    std::string commandLine; ///< arguments joined by blanks; empty for kernel threads
    double cpuPercent = 0;   ///< of one processor, since the read before; since its start when it is new
    long long memoryKiB = 0; ///< resident memory
    long threads = 0;
    std::time_t startTime = 0;
    unsigned long long startTicks = 0; ///< since boot; with the pid it names a process for ever
};

/// The fields of a stat line that the monitor uses. Null when the line is damaged.
struct StatLine
{
    std::string name;
    char state = '?';
    int parentPid = 0;
    unsigned long long cpuTicks = 0;
    long threads = 0;
    unsigned long long startTicks = 0;
    long long residentPages = 0;
};
std::optional<StatLine> ParseStatLine(std::string_view line);

/// One thread at a time.
class ProcReader
{
public:
    /// root: the folder that is read; another one than /proc in tests.
    explicit ProcReader(std::filesystem::path root = "/proc");

    /// All processes by ascending pid.
    std::vector<ProcessInfo> Read();

private:
    struct CpuSample
    {
        unsigned long long cpuTicks = 0;
        unsigned long long startTicks = 0;
    };

    std::optional<ProcessInfo> ReadProcess(int pid);
    double CpuPercent(int pid, StatLine const& stat);
    std::string const& UserName(unsigned long userId);

    std::filesystem::path m_root;
    double m_ticksPerSecond;
    long long m_pageKiB;
    std::time_t m_bootTime = 0;
    double m_uptimeSeconds = 0;
    double m_secondsSinceLastRead = 0;
    std::map<int, CpuSample> m_before;
    std::map<int, CpuSample> m_now;
    std::unordered_map<unsigned long, std::string> m_userNames;
};

} // namespace ProcessMonitor
