/// @file
/// What code of an application throws while the library is in the middle of an operation that has to be completed.
///
///     CallbackErrors errors;                                  // the operation begins
///     CallbackErrors::Keep([&]() { subscriber.OnChange(); }); // somewhere inside, perhaps far below
///     ...                                                     // what belongs to the operation is done all the same
///     errors.Rethrow();                                       // the caller hears of it
#pragma once

#include <exception>
#include <type_traits>
#include <utility>

#include <ostrel/platform/base/Export.h>

namespace Ostrel::Platform
{

/// One operation of the calling thread, for a scope: keeps the first of what its callbacks throw. Scopes lie inside
/// each other when a callback calls an operation again; each keeps what is thrown in its own callbacks.
class OSTREL_BASE_API CallbackErrors
{
public:
    CallbackErrors() noexcept;
    CallbackErrors(CallbackErrors const&) = delete;
    CallbackErrors& operator=(CallbackErrors const&) = delete;
    /// Drops what was kept and neither thrown nor reported.
    ~CallbackErrors();

    /// Calls the callback. What it throws is kept by the innermost operation of the thread, and passes on where there
    /// is none. False when it was kept.
    template <class Callback>
    static bool Keep(Callback&& callback)
    {
        try
        {
            std::forward<Callback>(callback)();
            return true;
        }
        catch (...)
        {
            if (!KeepCurrent())
            {
                throw;
            }
            return false;
        }
    }

    /// The same for a callback that answers something: an empty answer when what it threw was kept.
    template <class Callback>
    static std::invoke_result_t<Callback> Ask(Callback&& callback)
    {
        try
        {
            return std::forward<Callback>(callback)();
        }
        catch (...)
        {
            if (!KeepCurrent())
            {
                throw;
            }
            return {};
        }
    }

    /// Throws what was kept, once.
    void Rethrow()
    {
        if (m_first != nullptr)
        {
            std::rethrow_exception(std::exchange(m_first, nullptr));
        }
    }

    /// For an operation that has no caller who could catch anything, as a destructor: what was kept goes to the
    /// operation around this one. Where there is none, it becomes a line on the standard error stream.
    void Report() noexcept;

private:
    /// False when the thread is in no operation.
    static bool KeepCurrent() noexcept;
    void Take(std::exception_ptr error) noexcept;

    CallbackErrors* m_outer;
    std::exception_ptr m_first;
};

} // namespace Ostrel::Platform
