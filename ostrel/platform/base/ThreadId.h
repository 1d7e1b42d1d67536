/// @file
/// The number of a thread as the framework's callers pass it.
#pragma once

#include <ostrel/platform/base/Export.h>
#include <ostrel/platform/base/Types.h>

/// The system's number of the calling thread. A number may be given again after its thread has ended. Any thread.
OSTREL_BASE_API DWORD GetCurrentThreadId();
