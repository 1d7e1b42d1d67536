/// @file
/// A top-level window for programs: a title, a client child that fills it, an object that deletes itself with its
/// window.
#pragma once

#include <ostrel/platform/window/Wnd.h>

/// A program's window on the screen, with the frame that the window manager gives it.
class OSTREL_PLATFORM_API CFrameWnd : public CWnd
{
    DECLARE_DYNCREATE(CFrameWnd)
public:
    CFrameWnd() = default;
    ~CFrameWnd() override;

    static CRect const rectDefault; ///< let the window manager choose place and size

    using CWnd::Create;
    /// A hidden top-level window; show it with ShowWindow. An empty class name is the plain one. rect: its inner area
    /// on the screen.
    BOOL Create(LPCTSTR className, LPCTSTR windowName, DWORD style = WS_OVERLAPPEDWINDOW,
                RECT const& rect = rectDefault, CWnd* parent = nullptr);

    /// The child that is kept as large as the client area and gets the focus with the frame. Does not take ownership.
    void SetClientWindow(CWnd* client);
    /// False keeps the object when its window dies; set it for frames that are members or on the stack.
    void SetAutoDelete(bool autoDelete) noexcept { m_autoDelete = autoDelete; }
    /// Posts WM_QUIT when this window dies.
    void SetQuitOnDestroy(bool quit) noexcept { m_quitOnDestroy = quit; }

    /// Gives the client child the size of the client area.
    virtual void RecalcLayout();

    /// Shows a frame that is a member or on the stack, runs the thread's loop until the window is closed, and returns
    /// the exit code: the main window of a simple program.
    int RunAsMainWindow();

protected:
    /// Every message of the window.
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    /// Deletes the object unless SetAutoDelete said otherwise.
    void PostNcDestroy() override;

private:
    HWND m_client = nullptr;
    bool m_autoDelete = true;
    bool m_quitOnDestroy = false;
};
