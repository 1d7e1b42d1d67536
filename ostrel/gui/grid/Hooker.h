/// @file
/// Watches the messages of a window.
#pragma once

#include <ostrel/platform/base/Export.h>
#include <ostrel/platform/window/WindowApi.h>

namespace Ostrel::GUI
{

/// Watches the messages of a window that somebody else made, before the window sees them.
///
///     class Watch : public CHooker
///     {
///         LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
///         {
///             return message == WM_KEYDOWN ? 0 : CHooker::WindowProc(message, wParam, lParam);
///         }
///     };
///
/// Several hookers can watch one window: the one that came last is asked first, and each decides whether the next one
/// hears of the message. Hook, unhook and destroy on the window's thread; inside WindowProc as well, also of others and
/// of itself.
class OSTREL_GUI_API CHooker
{
public:
    CHooker() = default;
    CHooker(CHooker const&) = delete;
    CHooker& operator=(CHooker const&) = delete;
    /// Unhooks.
    virtual ~CHooker();

    /// A message of the window. The base passes it to the next hooker or, at the end, to the procedure that the window
    /// had before it was hooked.
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);

    /// Watches the window from now on, instead of any other. False when there is no such window.
    bool Hook(HWND window);
    /// Watches no window. The last hooker of a window puts back the procedure that the window had.
    void Unhook();
    /// The window that is watched. Null when none is watched, also after the window has died.
    [[nodiscard]] HWND GetHookedWindow() const noexcept { return m_window; }

private:
    class Chains;

    HWND m_window = nullptr;
};

} // namespace Ostrel::GUI
