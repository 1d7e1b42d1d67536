/// @file
/// A service of one-shot timers.
#pragma once

#include <ostrel/platform/base/Export.h>

namespace Ostrel::Common
{

/// A service of one-shot timers in milliseconds. One thread of its own serves all timers of the process and calls their
/// clients:
///
///     class CRefresh final : public CTimer::ICallBack
///     {
///         void OnTimer(int id) override
///         {
///             Refresh();
///             CTimer::StartTimer(this, id, 1000); // a periodic timer starts itself again
///         }
///     };
///
/// A timer is known by its client and a number of the client's choice. OnTimer runs on the timer thread, beside the
/// client's own threads, and a client stops its timers before it dies. Nothing in the library starts the service.
///
/// Due times are ticks of the process clock. A clock that a test turns by hand wakes nobody: the timer thread looks at
/// it after every request, so StopTimer for any timer lets it look.
class OSTREL_COMMON_API CTimer
{
public:
    /// A client of the service.
    class OSTREL_COMMON_API ICallBack
    {
    public:
        ///@{
        /// Clients have no state that the service knows.
        ICallBack() = default;
        ICallBack(ICallBack const&) = default;
        ICallBack& operator=(ICallBack const&) = default;
        ///@}
        virtual ~ICallBack();

        /// The timer is due. It is gone by now and may be started again. Timer thread, no lock of the library held.
        /// What it throws is dropped.
        virtual void OnTimer(int id) = 0;
    };

    CTimer() = delete;

    /// Starts the service unless it runs. Any thread.
    static void Initialize();
    /// Ends the service and waits for its thread; timers that are not due by then are dropped, not called. Any thread
    /// but the timer thread, where it does nothing.
    static void UnInitialize();

    /// Calls `callback->OnTimer(id)` once, `delay` milliseconds from now; for a timer that is running already the new
    /// time counts. Timers due at the same tick are called in the reverse order of their starts. Delays beyond 24 days
    /// count as 24 days. Does not wait. Does not take ownership; the client must outlive the timer. Returns false for
    /// null and while the service is off. Any thread.
    static bool StartTimer(ICallBack* callback, int id, unsigned int delay);
    /// Returns when the timer thread has dropped the timer, or after 1000 ms if a callback keeps it busy for so long.
    /// After the former OnTimer does not run for it and is not called any more, unless it is started again from then
    /// on; a start that OnTimer made meanwhile does not count. On the timer thread the timer is dropped at once.
    /// Returns false while the service is off, otherwise true, also for a timer that was not running. Any thread.
    static bool StopTimer(ICallBack* callback, int id);

private:
    class Impl;
};

} // namespace Ostrel::Common
