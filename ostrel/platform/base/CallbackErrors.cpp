#include <cstdio>

#include <ostrel/platform/base/CallbackErrors.h>
#include <ostrel/platform/base/Exception.h>

namespace Ostrel::Platform
{
namespace
{
thread_local CallbackErrors* t_innermost = nullptr;

/// Those of the framework are thrown as pointers and belong to whoever catches them.
void Drop(std::exception_ptr const& error) noexcept
{
    try
    {
        std::rethrow_exception(error);
    }
    catch (CException* exception)
    {
        exception->Delete();
    }
    catch (...)
    {}
}

void Print(char const* what) noexcept
{
    std::fprintf(stderr, "ostrel: a callback has thrown where nobody can catch it: %s\n", what);
}
} // namespace

CallbackErrors::CallbackErrors() noexcept : m_outer(std::exchange(t_innermost, this)) {}

CallbackErrors::~CallbackErrors()
{
    t_innermost = m_outer;
    if (m_first != nullptr)
    {
        Drop(m_first);
    }
}

bool CallbackErrors::KeepCurrent() noexcept
{
    if (t_innermost != nullptr)
    {
        t_innermost->Take(std::current_exception());
    }
    return t_innermost != nullptr;
}

void CallbackErrors::Take(std::exception_ptr error) noexcept
{
    if (m_first == nullptr)
    {
        m_first = std::move(error);
    }
    else
    {
        Drop(error);
    }
}

void CallbackErrors::Report() noexcept
{
    if (m_first == nullptr)
    {
        return;
    }
    if (m_outer != nullptr)
    {
        m_outer->Take(std::exchange(m_first, nullptr));
        return;
    }
    try
    {
        std::rethrow_exception(std::exchange(m_first, nullptr));
    }
    catch (std::exception const& error)
    {
        Print(error.what());
    }
    catch (CException* exception)
    {
        Print("an exception of the framework");
        exception->Delete();
    }
    catch (...)
    {
        Print("an unknown exception");
    }
}

} // namespace Ostrel::Platform
