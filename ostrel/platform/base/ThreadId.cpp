#include <unistd.h>

#include <ostrel/platform/base/ThreadId.h>

DWORD GetCurrentThreadId()
{
    thread_local DWORD const threadId = static_cast<DWORD>(gettid());
    return threadId;
}
