#include "ProcReader.h"

#include <algorithm>
#include <charconv>
#include <fstream>
#include <iterator>

#include <pwd.h>
#include <unistd.h>

namespace ProcessMonitor
{

namespace
{

// /proc files tell no size: they are read to their end. Null when the process is gone.
std::optional<std::string> ReadFile(std::filesystem::path const& path)
{
    std::ifstream file(path, std::ios::binary);
    if (!file)
    {
        return std::nullopt;
    }
    std::string text{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    if (file.bad())
    {
        return std::nullopt;
    }
    return text;
}

template <class Number>
Number NumberFrom(std::string_view text, Number otherwise = {})
{
    Number number{};
    auto const result = std::from_chars(text.data(), text.data() + text.size(), number);
    return result.ec == std::errc() ? number : otherwise;
}

std::vector<std::string_view> Words(std::string_view text)
{
    std::vector<std::string_view> words;
    for (std::size_t at = text.find_first_not_of(" \t\n"); at != std::string_view::npos;)
    {
        std::size_t const end = std::min(text.find_first_of(" \t\n", at), text.size());
        words.push_back(text.substr(at, end - at));
        at = text.find_first_not_of(" \t\n", end);
    }
    return words;
}

// The words of the line of a status-like file that begins with the key.
std::vector<std::string_view> WordsOfLine(std::string_view text, std::string_view key)
{
    for (std::size_t start = 0; start < text.size();)
    {
        std::size_t const end = std::min(text.find('\n', start), text.size());
        std::string_view const line = text.substr(start, end - start);
        if (line.starts_with(key))
        {
            return Words(line.substr(key.size()));
        }
        start = end + 1;
    }
    return {};
}

std::string StateName(char state)
{
    switch (state)
    {
    case 'R':
        return "running";
    case 'S':
        return "sleeping";
    case 'D':
        return "waiting for disk";
    case 'Z':
        return "zombie";
    case 'T':
        return "stopped";
    case 't':
        return "traced";
    case 'I':
        return "idle";
    default:
        return std::string(1, state);
    }
}

// The arguments end with a zero byte each. A line break in one of them would tear the row apart.
std::string JoinArguments(std::string arguments)
{
    while (!arguments.empty() && arguments.back() == '\0')
    {
        arguments.pop_back();
    }
    std::replace_if(
        arguments.begin(), arguments.end(), [](unsigned char c) { return c < ' '; }, ' ');
    return arguments;
}

} // namespace

std::optional<StatLine> ParseStatLine(std::string_view line)
{
    // The name stands in parentheses and may hold blanks and parentheses itself: the last one ends it.
    std::size_t const open = line.find('(');
    std::size_t const close = line.rfind(')');
    if (open == std::string_view::npos || close == std::string_view::npos || close < open)
    {
        return std::nullopt;
    }
    std::vector<std::string_view> const words = Words(line.substr(close + 1));
    constexpr std::size_t kWordsNeeded = 22;
    if (words.size() < kWordsNeeded)
    {
        return std::nullopt;
    }
    StatLine stat;
    stat.name = line.substr(open + 1, close - open - 1);
    stat.state = words[0].front();
    stat.parentPid = NumberFrom<int>(words[1]);
    stat.cpuTicks = NumberFrom<unsigned long long>(words[11]) + NumberFrom<unsigned long long>(words[12]);
    stat.threads = NumberFrom<long>(words[17]);
    stat.startTicks = NumberFrom<unsigned long long>(words[19]);
    stat.residentPages = NumberFrom<long long>(words[21]);
    return stat;
}

ProcReader::ProcReader(std::filesystem::path root)
    : m_root(std::move(root)),
      m_ticksPerSecond(static_cast<double>(sysconf(_SC_CLK_TCK))),
      m_pageKiB(sysconf(_SC_PAGESIZE) / 1024)
{
    if (auto const text = ReadFile(m_root / "stat"))
    {
        auto const words = WordsOfLine(*text, "btime ");
        m_bootTime = words.empty() ? 0 : NumberFrom<std::time_t>(words.front());
    }
}

std::vector<ProcessInfo> ProcReader::Read()
{
    if (auto const text = ReadFile(m_root / "uptime"))
    {
        double const uptimeSeconds = NumberFrom<double>(Words(*text).empty() ? "" : Words(*text).front());
        m_secondsSinceLastRead = uptimeSeconds - m_uptimeSeconds;
        m_uptimeSeconds = uptimeSeconds;
    }
    std::vector<ProcessInfo> processes;
    std::error_code error;
    for (std::filesystem::directory_iterator entry(m_root, error), end; !error && entry != end; entry.increment(error))
    {
        std::string const folder = entry->path().filename().string();
        int const pid = NumberFrom<int>(folder);
        if (pid <= 0)
        {
            continue;
        }
        if (auto process = ReadProcess(pid))
        {
            processes.push_back(std::move(*process));
        }
    }
    std::ranges::sort(processes, {}, &ProcessInfo::pid);
    m_before.swap(m_now);
    m_now.clear();
    return processes;
}

std::optional<ProcessInfo> ProcReader::ReadProcess(int pid)
{
    std::filesystem::path const folder = m_root / std::to_string(pid);
    auto const statText = ReadFile(folder / "stat");
    auto const statusText = ReadFile(folder / "status");
    auto const arguments = ReadFile(folder / "cmdline");
    if (!statText || !statusText || !arguments)
    {
        return std::nullopt;
    }
    auto stat = ParseStatLine(*statText);
    if (!stat)
    {
        return std::nullopt;
    }
    ProcessInfo process;
    process.pid = pid;
    process.parentPid = stat->parentPid;
    process.name = std::move(stat->name);
    process.state = StateName(stat->state);
    process.commandLine = JoinArguments(*arguments);
    process.cpuPercent = CpuPercent(pid, *stat);
    process.memoryKiB = stat->residentPages * m_pageKiB;
    process.threads = stat->threads;
    process.startTicks = stat->startTicks;
    process.startTime = m_bootTime + static_cast<std::time_t>(static_cast<double>(stat->startTicks) / m_ticksPerSecond);
    auto const userIds = WordsOfLine(*statusText, "Uid:"); // real, effective, saved, file system
    process.user = UserName(userIds.size() > 1 ? NumberFrom<unsigned long>(userIds[1]) : 0);
    return process;
}

double ProcReader::CpuPercent(int pid, StatLine const& stat)
{
    m_now[pid] = {stat.cpuTicks, stat.startTicks};
    auto const before = m_before.find(pid);
    bool const known = before != m_before.end() && before->second.startTicks == stat.startTicks;
    double const seconds =
        known ? m_secondsSinceLastRead : m_uptimeSeconds - static_cast<double>(stat.startTicks) / m_ticksPerSecond;
    unsigned long long const ticksBefore = known ? std::min(before->second.cpuTicks, stat.cpuTicks) : 0;
    double const cpuSeconds = static_cast<double>(stat.cpuTicks - ticksBefore) / m_ticksPerSecond;
    return seconds > 0 ? 100 * cpuSeconds / seconds : 0;
}

std::string const& ProcReader::UserName(unsigned long userId)
{
    auto const [entry, isNew] = m_userNames.try_emplace(userId);
    if (isNew)
    {
        std::vector<char> buffer(16384);
        passwd record{};
        passwd* found = nullptr;
        getpwuid_r(static_cast<uid_t>(userId), &record, buffer.data(), buffer.size(), &found);
        entry->second = found != nullptr ? found->pw_name : std::to_string(userId);
    }
    return entry->second;
}

} // namespace ProcessMonitor
