// A window as an object. A CWnd belongs to at most one HWND, and the HWND to the thread that made it.
//
// A class of its own overrides WindowProc, switches over the messages that it wants and hands the rest to its base:
//
//     LRESULT CLamp::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
//     {
//         switch (message)
//         {
//         case WM_PAINT:
//             OnPaint();
//             return 0;
//         default:
//             return CWnd::WindowProc(message, wParam, lParam);
//         }
//     }
//
// Lifetime: the object may outlive the window and the other way round. Destroying the object destroys the window.
// A window that dies calls PostNcDestroy last: an object made with new deletes itself there. A handler may destroy its
// own window; after any call that can run foreign handlers look at m_hWnd again, or stop using the object when it
// deletes itself.
#pragma once

#include <ostrel/platform/base/Export.h>
#include <ostrel/platform/base/Geometry.h>
#include <ostrel/platform/base/String.h>
#include <ostrel/platform/base/Types.h>
#include <ostrel/platform/window/CmdTarget.h>
#include <ostrel/platform/window/Messages.h>
#include <ostrel/platform/window/WindowApi.h>
#include <ostrel/platform/window/WindowStyles.h>

class CDC;
class CFont;
class CRgn;
struct PAINTSTRUCT;

class OSTREL_PLATFORM_API CWnd : public CCmdTarget
{
    DECLARE_DYNCREATE(CWnd)
public:
    CWnd() = default;
    ~CWnd() override;

    /// The window, null when there is none. Read it, do not write it.
    HWND m_hWnd = nullptr;

    [[nodiscard]] HWND GetSafeHwnd() const noexcept { return m_hWnd; }
    operator HWND() const noexcept { return m_hWnd; }

    /// The object of a window: its own, or a temporary one that lives until the thread's loop is idle. Null for null.
    static CWnd* FromHandle(HWND window);
    /// The object that was attached to the window, or null. Does not see windows of other threads.
    static CWnd* FromHandlePermanent(HWND window);

    // ---- making and ending
    /// A child window. A null class name is the plain one.
    virtual BOOL Create(LPCTSTR className, LPCTSTR windowName, DWORD style, RECT const& rect, CWnd* parent, UINT id,
                        void* createParams = nullptr);
    BOOL CreateEx(DWORD exStyle, LPCTSTR className, LPCTSTR windowName, DWORD style, RECT const& rect, CWnd* parent,
                  UINT id, void* createParams = nullptr);
    BOOL CreateEx(DWORD exStyle, LPCTSTR className, LPCTSTR windowName, DWORD style, int x, int y, int width,
                  int height, HWND parent, UINT_PTR id, void* createParams = nullptr);
    virtual BOOL DestroyWindow();

    /// Ties the object to a window that already has its procedure. Detach gives it up again.
    BOOL Attach(HWND window);
    HWND Detach();
    /// Ties the object to a window of another kind and puts WindowProc before its procedure.
    BOOL SubclassWindow(HWND window);
    BOOL SubclassDlgItem(UINT id, CWnd* parent);
    HWND UnsubclassWindow();

    // ---- messages
    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    BOOL PostMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    /// The message that is being handled.
    static MSG const* GetCurrentMessage();
    /// For WindowProc overrides: the chain from the message's target up to stop, asking each PreTranslateMessage.
    static BOOL WalkPreTranslateTree(HWND stop, MSG* message);

    // ---- text, font, id
    void SetWindowText(LPCTSTR text);
    void GetWindowText(CString& text) const;
    int GetWindowText(LPSTR buffer, int capacity) const;
    [[nodiscard]] int GetWindowTextLength() const;
    /// Does not take ownership; the font must outlive its use.
    void SetFont(CFont* font, BOOL redraw = TRUE);
    [[nodiscard]] CFont* GetFont() const;
    [[nodiscard]] int GetDlgCtrlID() const;
    int SetDlgCtrlID(int id);
    [[nodiscard]] CWnd* GetDlgItem(int id) const;
    [[nodiscard]] DWORD GetStyle() const;
    [[nodiscard]] DWORD GetExStyle() const;
    /// swpFlags other than 0: SetWindowPos with them follows. False when nothing changed.
    BOOL ModifyStyle(DWORD remove, DWORD add, UINT swpFlags = 0);
    BOOL ModifyStyleEx(DWORD remove, DWORD add, UINT swpFlags = 0);

    // ---- family
    [[nodiscard]] CWnd* GetParent() const;
    CWnd* SetParent(CWnd* parent);
    /// The window that gets notifications: what SetOwner said, else the parent.
    [[nodiscard]] CWnd* GetOwner() const;
    void SetOwner(CWnd* owner);
    [[nodiscard]] CWnd* GetTopLevelParent() const;
    [[nodiscard]] CWnd* GetWindow(UINT relation) const;
    [[nodiscard]] BOOL IsChild(CWnd const* window) const;
    [[nodiscard]] CWnd* ChildWindowFromPoint(POINT clientPoint, UINT flags = CWP_ALL) const;
    static CWnd* WindowFromPoint(POINT screenPoint);

    // ---- place and state
    void GetClientRect(RECT* rect) const;
    void GetWindowRect(RECT* screenRect) const;
    void ClientToScreen(POINT* point) const;
    void ClientToScreen(RECT* rect) const;
    void ScreenToClient(POINT* point) const;
    void ScreenToClient(RECT* rect) const;
    void MapWindowPoints(CWnd* to, POINT* points, UINT count) const;
    void MapWindowPoints(CWnd* to, RECT* rect) const;
    void MoveWindow(int x, int y, int width, int height, BOOL repaint = TRUE);
    void MoveWindow(RECT const* rect, BOOL repaint = TRUE);
    BOOL SetWindowPos(CWnd const* insertAfter, int x, int y, int width, int height, UINT flags);
    BOOL ShowWindow(int command);
    [[nodiscard]] BOOL IsWindowVisible() const;
    BOOL EnableWindow(BOOL enable = TRUE);
    [[nodiscard]] BOOL IsWindowEnabled() const;
    void BringWindowToTop();
    [[nodiscard]] BOOL IsIconic() const;
    [[nodiscard]] BOOL IsZoomed() const;

    /// For SetWindowPos.
    static CWnd const wndTop;
    static CWnd const wndBottom;
    static CWnd const wndTopMost;
    static CWnd const wndNoTopMost;

    // ---- painting
    void Invalidate(BOOL erase = TRUE);
    void InvalidateRect(RECT const* rect, BOOL erase = TRUE);
    void InvalidateRgn(CRgn* region, BOOL erase = TRUE);
    void ValidateRect(RECT const* rect);
    void UpdateWindow();
    BOOL RedrawWindow(RECT const* rect = nullptr, CRgn* region = nullptr,
                      UINT flags = RDW_INVALIDATE | RDW_UPDATENOW | RDW_ERASE);
    BOOL GetUpdateRect(RECT* rect, BOOL erase = FALSE) const;
    /// Returns NULLREGION, SIMPLEREGION or COMPLEXREGION.
    int GetUpdateRgn(CRgn* region, BOOL erase = FALSE) const;
    void SetRedraw(BOOL redraw = TRUE);
    void ScrollWindow(int dx, int dy, RECT const* rect = nullptr, RECT const* clip = nullptr);
    /// The device context of the paint in progress, validating what was invalid. Prefer CPaintDC.
    CDC* BeginPaint(PAINTSTRUCT* paint);
    void EndPaint(PAINTSTRUCT* paint);
    /// The client area for drawing outside WM_PAINT; give it back with ReleaseDC. Prefer CClientDC.
    CDC* GetDC();
    CDC* GetWindowDC();
    int ReleaseDC(CDC* dc);

    // ---- timers
    UINT_PTR SetTimer(UINT_PTR timerId, UINT elapseMs, TIMERPROC function = nullptr);
    BOOL KillTimer(UINT_PTR timerId);

    // ---- input
    CWnd* SetCapture();
    static CWnd* GetCapture();
    CWnd* SetFocus();
    static CWnd* GetFocus();
    static CWnd* GetActiveWindow();
    CWnd* SetActiveWindow();
    BOOL SetForegroundWindow();

    // ---- scroll bars
    BOOL SetScrollInfo(int bar, SCROLLINFO const* info, BOOL redraw = TRUE);
    BOOL GetScrollInfo(int bar, SCROLLINFO* info, UINT mask = SIF_ALL) const;
    int SetScrollPos(int bar, int position, BOOL redraw = TRUE);
    [[nodiscard]] int GetScrollPos(int bar) const;
    void SetScrollRange(int bar, int minimum, int maximum, BOOL redraw = TRUE);
    void GetScrollRange(int bar, int* minimum, int* maximum) const;
    /// The last position that the bar can reach: maximum less page.
    [[nodiscard]] int GetScrollLimit(int bar) const;
    void ShowScrollBar(UINT bar, BOOL show = TRUE);
    BOOL EnableScrollBar(int bar, UINT arrows = ESB_ENABLE_BOTH);

    // ---- for derived classes, called by the framework
    /// Before the window is made. FALSE refuses.
    virtual BOOL PreCreateWindow(CREATESTRUCT& create);
    /// Right after an existing or new window was tied to the object, before its next message.
    virtual void PreSubclassWindow();
    /// Before a message taken by the loop is dispatched to this window or one below it. TRUE consumes it.
    virtual BOOL PreTranslateMessage(MSG* message);

protected:
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    /// The procedure that was there before this class, or the platform's.
    virtual LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    /// WM_DEFAULT handling of the message in progress.
    LRESULT Default();
    /// WM_COMMAND. The base offers it to the child it came from (OnChildNotify). TRUE: handled.
    virtual BOOL OnCommand(WPARAM wParam, LPARAM lParam);
    /// WM_NOTIFY, the same way; the result of the message goes to *result.
    virtual BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result);
    /// A message to the parent about this window, before the parent handles it: WM_COMMAND, WM_NOTIFY, WM_DRAWITEM,
    /// WM_MEASUREITEM, WM_HSCROLL, WM_VSCROLL, WM_CTLCOLOR*. TRUE: handled, the parent does not see it.
    virtual BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);
    /// The window is gone, m_hWnd is null. May delete this.
    virtual void PostNcDestroy();
    /// The procedure that SubclassWindow replaced, null for none.
    [[nodiscard]] WNDPROC GetSuperProc() const noexcept { return m_superProc; }

private:
    friend struct CWndAccess;

    HWND m_owner = nullptr;
    WNDPROC m_superProc = nullptr;
    bool m_isTemporary = false;
    /// A place in the z-order that passes for a window.
    CWnd(HWND special, int) noexcept : m_hWnd(special), m_isTemporary(true) {}
};
