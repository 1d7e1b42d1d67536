#include "Process.h"

#include <array>
#include <cmath>
#include <ctime>

namespace ProcessMonitor
{

using namespace Ostrel::Common;

namespace
{

constexpr char kNoSeparator = '\0';

// What the cell shows of it: smaller changes are none.
double Rounded(double percent)
{
    return std::round(percent * 10) / 10;
}

std::vector<long> ChangedFields(ProcessInfo const& before, ProcessInfo const& now)
{
    std::vector<long> fids;
    auto const compare = [&](long fid, auto ProcessInfo::*member)
    {
        if (before.*member != now.*member)
        {
            fids.push_back(fid);
        }
    };
    compare(CProcess::kName, &ProcessInfo::name);
    compare(CProcess::kParentPid, &ProcessInfo::parentPid);
    compare(CProcess::kUser, &ProcessInfo::user);
    compare(CProcess::kState, &ProcessInfo::state);
    compare(CProcess::kCpuPercent, &ProcessInfo::cpuPercent);
    compare(CProcess::kMemoryKiB, &ProcessInfo::memoryKiB);
    compare(CProcess::kThreads, &ProcessInfo::threads);
    compare(CProcess::kCommandLine, &ProcessInfo::commandLine);
    return fids;
}

} // namespace

CFieldMap const* CProcess::Fields()
{
    static auto const map =
        CFieldMapBuilder<CProcess>()
            .Field(kName, "Name", &CProcess::GetName)
            .Field(kPid, "PID", &CProcess::GetPid, nullptr, new CLongFormat(CLongFormat::Decimal, true, kNoSeparator))
            .Field(kParentPid, "Parent", &CProcess::GetParentPid, nullptr,
                   new CLongFormat(CLongFormat::Decimal, true, kNoSeparator))
            .Field(kUser, "User", &CProcess::GetUser)
            .Field(kState, "State", &CProcess::GetState)
            .Field(kCpuPercent, "CPU %", &CProcess::GetCpuPercent, nullptr, new CDoubleFormat(1, true))
            .Field(kMemoryKiB, "Memory KiB", &CProcess::GetMemoryKiB)
            .Field(kThreads, "Threads", &CProcess::GetThreads)
            .Field(kStartTime, "Started", &CProcess::GetStartTime)
            .Field(kCommandLine, "Command line", &CProcess::GetCommandLine)
            .Build();
    return map.get();
}

CProcess::CProcess(ProcessInfo info) : m_info(std::move(info))
{
    m_info.cpuPercent = Rounded(m_info.cpuPercent);
}

CProcess::~CProcess()
{
    NotifyDelete(); // rows may still read the values while they go
}

void CProcess::Update(ProcessInfo info)
{
    info.cpuPercent = Rounded(info.cpuPercent);
    std::vector<long> changed;
    {
        Ostrel::Platform::MutexLock const lock(m_lock);
        changed = ChangedFields(m_info, info);
        m_info = std::move(info);
    }
    for (long const fid : changed)
    {
        NotifyUpdate(fid);
    }
}

std::string CProcess::GetStartTime() const
{
    std::time_t const start = Read(&ProcessInfo::startTime);
    std::tm local{};
    localtime_r(&start, &local);
    std::array<char, 32> text{};
    std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M:%S", &local);
    return text.data();
}

} // namespace ProcessMonitor
