#include <ostrel/gui/grid/detail/GridThread.h>
#include <ostrel/platform/window/Wnd.h>

namespace Ostrel::GUI::Detail
{
void CarriedCall::Run() noexcept
{
    try
    {
        m_runner(m_callable);
    }
    catch (...)
    {
        m_error = std::current_exception();
    }
    m_hasRun = true;
}

bool CarriedCall::Finish() const
{
    if (m_error)
    {
        std::rethrow_exception(m_error);
    }
    return m_hasRun;
}

void GridThread::Bind(HWND window) noexcept
{
    m_window.store(window, std::memory_order_release);
    m_id.store(std::this_thread::get_id(), std::memory_order_release);
}

UINT GridThread::Message()
{
    static UINT const message = RegisterWindowMessage("Ostrel.Grid.SyncMessage");
    return message;
}

bool GridThread::Post(GridOperation code, LPARAM argument) const
{
    HWND const window = Window();
    return window != nullptr && PostMessage(window, Message(), static_cast<WPARAM>(code), argument) != FALSE;
}

void GridThread::Send(GridOperation code, CarriedCall& call) const
{
    if (HWND const window = Window())
    {
        SendMessage(window, Message(), static_cast<WPARAM>(code), reinterpret_cast<LPARAM>(&call));
    }
}
} // namespace Ostrel::GUI::Detail
