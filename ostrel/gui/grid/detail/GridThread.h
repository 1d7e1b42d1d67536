// Carries a call to the thread of a grid window: the one mechanism behind every public operation of the grid.
//
// A call from another thread lives on the caller's stack while SendMessage waits, so nothing is copied and no argument
// block exists. What the callable throws travels back and is thrown again on the caller's thread. What a callback of
// the application throws meanwhile, a handler or a filter, is kept until the operation is complete and thrown then. A
// call whose window is gone, or dies while the call waits, gives the neutral result. Calls that wait are listed, so
// that the message runs nothing when somebody else sends it.
#pragma once

#include <atomic>
#include <exception>
#include <optional>
#include <thread>
#include <type_traits>
#include <utility>

#include <ostrel/gui/grid/detail/GridOperation.h>
#include <ostrel/platform/base/CallbackErrors.h>
#include <ostrel/platform/base/ThreadId.h>
#include <ostrel/platform/base/Types.h>

namespace Ostrel::GUI::Detail
{
/// A call waiting on its caller's stack for the grid's thread.
class CarriedCall
{
public:
    using Runner = LRESULT (*)(void* callable);

    CarriedCall(Runner runner, void* callable) noexcept : m_runner(runner), m_callable(callable) {}

    /// Grid thread only. Returns the answer of the message. Keeps what the callable throws.
    LRESULT Run() noexcept;
    /// On the caller's thread, after the wait: throws what the callable threw. False when it never ran.
    [[nodiscard]] bool Finish() const;

private:
    friend class WaitingCalls;

    CarriedCall* m_next = nullptr; // of those that wait
    Runner m_runner;
    void* m_callable;
    std::exception_ptr m_error;
    bool m_hasRun = false;
};

class GridThread
{
public:
    /// Binds the grid to the calling thread and its window.
    void Bind(HWND window) noexcept;
    /// The window is gone. Calls from other threads get the neutral result from now on.
    void Unbind() noexcept { m_window.store(nullptr, std::memory_order_release); }

    [[nodiscard]] bool IsBound() const noexcept { return m_id.load(std::memory_order_acquire) != std::thread::id(); }
    /// True before the window exists too: calls run on the calling thread then.
    [[nodiscard]] bool IsCurrent() const noexcept
    {
        std::thread::id const id = m_id.load(std::memory_order_acquire);
        return id == std::this_thread::get_id() || id == std::thread::id();
    }
    /// The number of the thread that its rows belong to: the one that made the grid, until the window exists.
    [[nodiscard]] DWORD Home() const noexcept { return m_home.load(std::memory_order_relaxed); }
    [[nodiscard]] HWND Window() const noexcept { return m_window.load(std::memory_order_acquire); }

    /// Runs the callable on the grid's thread and returns its result, or `neutral` when the window is gone.
    template <GridOperation Code, class Result, class Callable>
    Result Call(Result neutral, Callable&& callable) const
    {
        if (IsCurrent())
        {
            Platform::CallbackErrors errors;
            auto result = static_cast<Result>(callable());
            errors.Rethrow();
            return result;
        }
        std::optional<Result> result;
        auto carried = [&]() { return AnswerOf(result.emplace(static_cast<Result>(callable()))); };
        return Carry(Code, carried) ? std::move(*result) : std::move(neutral);
    }
    template <GridOperation Code, class Callable>
    void Call(Callable&& callable) const
    {
        if (IsCurrent())
        {
            Platform::CallbackErrors errors;
            callable();
            errors.Rethrow();
            return;
        }
        auto carried = [&]() -> LRESULT
        {
            callable();
            return 0;
        };
        static_cast<void>(Carry(Code, carried));
    }

    /// Grid thread only. Runs a call that waits; does nothing and returns 0 for any other address.
    static LRESULT Run(CarriedCall const* call);

    /// Does not wait. False when the window is gone.
    bool Post(GridOperation code, LPARAM argument = 0) const;

    /// The registered message "Ostrel.Grid.SyncMessage".
    static UINT Message();

private:
    /// A result as the answer of the message, as far as it fits in.
    template <class Result>
    static LRESULT AnswerOf(Result const& result) noexcept
    {
        if constexpr (std::is_pointer_v<Result>)
        {
            return reinterpret_cast<LRESULT>(result);
        }
        else if constexpr (std::is_integral_v<Result> || std::is_enum_v<Result>)
        {
            return static_cast<LRESULT>(result);
        }
        else
        {
            return 0;
        }
    }

    template <class Callable>
    bool Carry(GridOperation code, Callable& callable) const
    {
        CarriedCall call([](void* pointer) { return (*static_cast<Callable*>(pointer))(); }, &callable);
        Send(code, call);
        return call.Finish();
    }
    void Send(GridOperation code, CarriedCall& call) const;

    std::atomic<std::thread::id> m_id{};
    std::atomic<DWORD> m_home{GetCurrentThreadId()};
    std::atomic<HWND> m_window{nullptr};
};
} // namespace Ostrel::GUI::Detail
