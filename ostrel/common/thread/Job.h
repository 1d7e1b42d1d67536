/// @file
/// A piece of work for the thread of a CAutomat.
#pragma once

#include <ostrel/platform/base/Export.h>

namespace Ostrel::Common
{

/// Derive from it, and give a new object to CAutomat::PushJob, which deletes it when it has been executed.
class OSTREL_COMMON_API CJob
{
public:
    CJob() = default;
    virtual ~CJob();
    CJob(CJob const&) = delete;
    CJob& operator=(CJob const&) = delete;

    /// Does the work, on the automaton's thread, without a lock of the library held. It may push further jobs. What it
    /// throws ends the process.
    virtual void Execute() = 0;
};

} // namespace Ostrel::Common
