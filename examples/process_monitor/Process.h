// One process as the grid shows it. The worker thread updates it, the grid's thread reads it: a lock of its own
// guards the values.
#pragma once

#include <vector>

#include <ostrel/Common.h>
#include <ostrel/platform/base/ThreadAnnotations.h>

#include "ProcReader.h"

namespace ProcessMonitor
{

class CProcess : public Ostrel::Common::CDataObject
{
public:
    enum Fid : long
    {
        kName,
        kPid,
        kParentPid,
        kUser,
        kState,
        kCpuPercent,
        kMemoryKiB,
        kThreads,
        kStartTime,
        kCommandLine,
    };

    explicit CProcess(ProcessInfo info);
    ~CProcess() override;

    /// Takes the new values and notifies the fields that changed.
    void Update(ProcessInfo info);

    Ostrel::Common::CFieldMap const* GetFieldMap() const override { return Fields(); }
    static Ostrel::Common::CFieldMap const* Fields();

private:
    std::string GetName() const { return Read(&ProcessInfo::name); }
    long GetPid() const { return Read(&ProcessInfo::pid); }
    long GetParentPid() const { return Read(&ProcessInfo::parentPid); }
    std::string GetUser() const { return Read(&ProcessInfo::user); }
    std::string GetState() const { return Read(&ProcessInfo::state); }
    double GetCpuPercent() const { return Read(&ProcessInfo::cpuPercent); }
    long long GetMemoryKiB() const { return Read(&ProcessInfo::memoryKiB); }
    long GetThreads() const { return Read(&ProcessInfo::threads); }
    std::string GetStartTime() const;
    std::string GetCommandLine() const { return Read(&ProcessInfo::commandLine); }

    template <class T>
    T Read(T ProcessInfo::*member) const
    {
        Ostrel::Platform::MutexLock const lock(m_lock);
        return m_info.*member;
    }

    mutable Ostrel::Platform::Mutex m_lock;
    ProcessInfo m_info OSTREL_GUARDED_BY(m_lock);
};

} // namespace ProcessMonitor
