/// @file
/// A window as an object.
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

/// A window as an object. A CWnd belongs to at most one HWND, and the HWND to the thread that made it.
///
/// A class of its own overrides WindowProc, switches over the messages that it wants and hands the rest to its base:
///
///     LRESULT CLamp::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
///     {
///         switch (message)
///         {
///         case WM_PAINT:
///             OnPaint();
///             return 0;
///         default:
///             return CWnd::WindowProc(message, wParam, lParam);
///         }
///     }
///
/// Lifetime: the object may outlive the window and the other way round. Destroying the object destroys the window.
/// A window that dies calls PostNcDestroy last: an object made with new deletes itself there. A handler may destroy its
/// own window; after any call that can run foreign handlers look at m_hWnd again, or stop using the object when it
/// deletes itself.
class OSTREL_PLATFORM_API CWnd : public CCmdTarget
{
    DECLARE_DYNCREATE(CWnd)
public:
    /// An object without a window.
    CWnd() = default;
    /// Destroys the window, if there is one.
    ~CWnd() override;

    /// The window, null when there is none. Read it, do not write it.
    HWND m_hWnd = nullptr;

    ///@{
    /// The window, null when there is none.
    [[nodiscard]] HWND GetSafeHwnd() const noexcept { return m_hWnd; }
    operator HWND() const noexcept { return m_hWnd; }
    ///@}

    /// The object of a window: its own, or a temporary one that lives until the thread's loop is idle. Null for null.
    static CWnd* FromHandle(HWND window);
    /// The object that was attached to the window, or null. Does not see windows of other threads.
    static CWnd* FromHandlePermanent(HWND window);

    // ---- making and ending
    /// Makes a child window; `rect` is in client pixels of the parent. A null class name is the plain one. FALSE when
    /// it could not.
    virtual BOOL Create(LPCTSTR className, LPCTSTR windowName, DWORD style, RECT const& rect, CWnd* parent, UINT id,
                        void* createParams = nullptr);
    ///@{
    /// Makes a window of any kind; see CreateWindowEx. FALSE when it could not.
    BOOL CreateEx(DWORD exStyle, LPCTSTR className, LPCTSTR windowName, DWORD style, RECT const& rect, CWnd* parent,
                  UINT id, void* createParams = nullptr);
    BOOL CreateEx(DWORD exStyle, LPCTSTR className, LPCTSTR windowName, DWORD style, int x, int y, int width,
                  int height, HWND parent, UINT_PTR id, void* createParams = nullptr);
    ///@}
    /// Ends the window; the object stays unless PostNcDestroy deletes it. FALSE when there was none.
    virtual BOOL DestroyWindow();

    /// Ties the object to a window that already has its procedure.
    BOOL Attach(HWND window);
    /// Gives up the window, which lives on. Returns it.
    HWND Detach();
    ///@{
    /// Ties the object to a window of another kind (or to the child of a parent with an id) and puts WindowProc before
    /// its procedure.
    BOOL SubclassWindow(HWND window);
    BOOL SubclassDlgItem(UINT id, CWnd* parent);
    ///@}
    /// Gives the window its procedure back and gives it up. Returns it.
    HWND UnsubclassWindow();

    // ---- messages
    ///@{
    /// As the function of the same name (WindowApi.h), for this window.
    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    BOOL PostMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    ///@}
    /// The message that is being handled.
    static MSG const* GetCurrentMessage();
    /// For WindowProc overrides: the chain from the message's target up to stop, asking each PreTranslateMessage.
    static BOOL WalkPreTranslateTree(HWND stop, MSG* message);

    // ---- text, font, id
    ///@{
    /// As the function of the same name (WindowApi.h), for this window.
    void SetWindowText(LPCTSTR text);
    void GetWindowText(CString& text) const;
    int GetWindowText(LPSTR buffer, int capacity) const;
    [[nodiscard]] int GetWindowTextLength() const;
    ///@}
    /// The font of the window's text. Does not take ownership; the font must outlive its use.
    void SetFont(CFont* font, BOOL redraw = TRUE);
    /// The font that was set; null for none.
    [[nodiscard]] CFont* GetFont() const;
    ///@{
    /// The window's id, and its child with an id. Setting returns the id before.
    [[nodiscard]] int GetDlgCtrlID() const;
    int SetDlgCtrlID(int id);
    [[nodiscard]] CWnd* GetDlgItem(int id) const;
    ///@}

    ///@{
    /// WS_* and WS_EX_* of the window.
    [[nodiscard]] DWORD GetStyle() const;
    [[nodiscard]] DWORD GetExStyle() const;
    ///@}

    ///@{
    /// Changes styles. swpFlags other than 0: SetWindowPos with them follows. False when nothing changed.
    BOOL ModifyStyle(DWORD remove, DWORD add, UINT swpFlags = 0);
    BOOL ModifyStyleEx(DWORD remove, DWORD add, UINT swpFlags = 0);
    ///@}

    // ---- family
    ///@{
    /// As the function of the same name (WindowApi.h), for this window.
    [[nodiscard]] CWnd* GetParent() const;
    CWnd* SetParent(CWnd* parent);
    ///@}
    /// The window that gets notifications: what SetOwner said, else the parent.
    [[nodiscard]] CWnd* GetOwner() const;
    /// Says who gets notifications; null for the parent.
    void SetOwner(CWnd* owner);
    /// The top-level window that holds the window.
    [[nodiscard]] CWnd* GetTopLevelParent() const;
    ///@{
    /// As the function of the same name (WindowApi.h), for this window.
    [[nodiscard]] CWnd* GetWindow(UINT relation) const;
    [[nodiscard]] BOOL IsChild(CWnd const* window) const;
    [[nodiscard]] CWnd* ChildWindowFromPoint(POINT clientPoint, UINT flags = CWP_ALL) const;
    static CWnd* WindowFromPoint(POINT screenPoint);
    ///@}

    // ---- place and state
    ///@{
    /// As the function of the same name (WindowApi.h), for this window.
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
    ///@}

    ///@{
    /// A place in the order of windows, for SetWindowPos.
    static CWnd const wndTop;
    static CWnd const wndBottom;
    static CWnd const wndTopMost;
    static CWnd const wndNoTopMost;
    ///@}

    // ---- painting
    /// Marks the whole client area to be painted.
    void Invalidate(BOOL erase = TRUE);
    ///@{
    /// As the function of the same name (WindowApi.h), for this window.
    void InvalidateRect(RECT const* rect, BOOL erase = TRUE);
    void InvalidateRgn(CRgn* region, BOOL erase = TRUE);
    void ValidateRect(RECT const* rect);
    void UpdateWindow();
    BOOL RedrawWindow(RECT const* rect = nullptr, CRgn* region = nullptr,
                      UINT flags = RDW_INVALIDATE | RDW_UPDATENOW | RDW_ERASE);
    BOOL GetUpdateRect(RECT* rect, BOOL erase = FALSE) const;
    ///@}
    /// Hands out what is to be painted, in client coordinates. Returns NULLREGION, SIMPLEREGION or COMPLEXREGION.
    int GetUpdateRgn(CRgn* region, BOOL erase = FALSE) const;
    /// While redrawing is off, nothing is marked to be painted.
    void SetRedraw(BOOL redraw = TRUE);
    /// As the function of the same name (WindowApi.h), for this window.
    void ScrollWindow(int dx, int dy, RECT const* rect = nullptr, RECT const* clip = nullptr);
    /// The device context of the paint in progress, validating what was invalid. Prefer CPaintDC.
    CDC* BeginPaint(PAINTSTRUCT* paint);
    /// Ends what BeginPaint began.
    void EndPaint(PAINTSTRUCT* paint);
    /// The client area for drawing outside WM_PAINT; give it back with ReleaseDC. Prefer CClientDC.
    CDC* GetDC();
    /// The whole window; give it back with ReleaseDC. Prefer CWindowDC.
    CDC* GetWindowDC();
    /// Gives back what GetDC or GetWindowDC gave.
    int ReleaseDC(CDC* dc);

    // ---- timers
    ///@{
    /// As the function of the same name (WindowApi.h), for this window.
    UINT_PTR SetTimer(UINT_PTR timerId, UINT elapseMs, TIMERPROC function = nullptr);
    BOOL KillTimer(UINT_PTR timerId);
    ///@}

    // ---- input
    ///@{
    /// As the function of the same name (WindowApi.h), for this window.
    CWnd* SetCapture();
    static CWnd* GetCapture();
    CWnd* SetFocus();
    static CWnd* GetFocus();
    static CWnd* GetActiveWindow();
    CWnd* SetActiveWindow();
    BOOL SetForegroundWindow();
    ///@}

    // ---- scroll bars
    ///@{
    /// As the function of the same name (WindowApi.h), for this window.
    BOOL SetScrollInfo(int bar, SCROLLINFO const* info, BOOL redraw = TRUE);
    BOOL GetScrollInfo(int bar, SCROLLINFO* info, UINT mask = SIF_ALL) const;
    int SetScrollPos(int bar, int position, BOOL redraw = TRUE);
    [[nodiscard]] int GetScrollPos(int bar) const;
    void SetScrollRange(int bar, int minimum, int maximum, BOOL redraw = TRUE);
    void GetScrollRange(int bar, int* minimum, int* maximum) const;
    ///@}
    /// The last position that the bar can reach: maximum less page.
    [[nodiscard]] int GetScrollLimit(int bar) const;
    ///@{
    /// As the function of the same name (WindowApi.h), for this window.
    void ShowScrollBar(UINT bar, BOOL show = TRUE);
    BOOL EnableScrollBar(int bar, UINT arrows = ESB_ENABLE_BOTH);
    ///@}

    // ---- for derived classes, called by the framework
    /// Before the window is made. FALSE refuses.
    virtual BOOL PreCreateWindow(CREATESTRUCT& create);
    /// Right after an existing or new window was tied to the object, before its next message.
    virtual void PreSubclassWindow();
    /// Before a message taken by the loop is dispatched to this window or one below it. TRUE consumes it.
    virtual BOOL PreTranslateMessage(MSG* message);

protected:
    /// Every message of the window. Override it and hand what is not yours to the base.
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
