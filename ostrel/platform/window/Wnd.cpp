// The members of CWnd that wrap the window functions.
#include <ostrel/platform/drawing/Font.h>
#include <ostrel/platform/drawing/Rgn.h>
#include <ostrel/platform/window/PaintDC.h>
#include <ostrel/platform/window/Wnd.h>
#include <ostrel/platform/window/detail/ThreadState.h>

using namespace Ostrel::Platform;

CWnd const CWnd::wndTop(HWND_TOP, 0);
CWnd const CWnd::wndBottom(HWND_BOTTOM, 0);
CWnd const CWnd::wndTopMost(HWND_TOPMOST, 0);
CWnd const CWnd::wndNoTopMost(HWND_NOTOPMOST, 0);

namespace
{

HWND HandleOf(CWnd const* window) noexcept
{
    return window != nullptr ? window->m_hWnd : nullptr;
}

} // namespace

// ---- messages

LRESULT CWnd::SendMessage(UINT message, WPARAM wParam, LPARAM lParam) const
{
    return ::SendMessage(m_hWnd, message, wParam, lParam);
}

BOOL CWnd::PostMessage(UINT message, WPARAM wParam, LPARAM lParam) const
{
    return m_hWnd != nullptr && ::PostMessage(m_hWnd, message, wParam, lParam);
}

// ---- text, font, id

void CWnd::SetWindowText(LPCTSTR text)
{
    ::SetWindowText(m_hWnd, text);
}

void CWnd::GetWindowText(CString& text) const
{
    std::string buffer(static_cast<std::size_t>(GetWindowTextLength()) + 1, '\0');
    int const length = ::GetWindowText(m_hWnd, buffer.data(), static_cast<int>(buffer.size()));
    text = CString(std::string_view(buffer).substr(0, static_cast<std::size_t>(length)));
}

int CWnd::GetWindowText(LPSTR buffer, int capacity) const
{
    return ::GetWindowText(m_hWnd, buffer, capacity);
}

int CWnd::GetWindowTextLength() const
{
    return ::GetWindowTextLength(m_hWnd);
}

void CWnd::SetFont(CFont* font, BOOL redraw)
{
    HGDIOBJ const handle = font != nullptr ? font->GetSafeHandle() : nullptr;
    SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(handle), redraw != FALSE);
}

CFont* CWnd::GetFont() const
{
    return CFont::FromHandle(reinterpret_cast<HFONT>(SendMessage(WM_GETFONT)));
}

int CWnd::GetDlgCtrlID() const
{
    return ::GetDlgCtrlID(m_hWnd);
}

int CWnd::SetDlgCtrlID(int id)
{
    return static_cast<int>(SetWindowLongPtr(m_hWnd, GWLP_ID, id));
}

CWnd* CWnd::GetDlgItem(int id) const
{
    return FromHandle(::GetDlgItem(m_hWnd, id));
}

DWORD CWnd::GetStyle() const
{
    return static_cast<DWORD>(GetWindowLongPtr(m_hWnd, GWL_STYLE));
}

DWORD CWnd::GetExStyle() const
{
    return static_cast<DWORD>(GetWindowLongPtr(m_hWnd, GWL_EXSTYLE));
}

namespace
{

BOOL Modify(HWND handle, int which, DWORD remove, DWORD add, UINT swpFlags)
{
    auto const before = static_cast<DWORD>(GetWindowLongPtr(handle, which));
    DWORD const after = (before & ~remove) | add;
    if (after == before || FindWindowRecord(handle) == nullptr)
    {
        return FALSE;
    }
    SetWindowLongPtr(handle, which, static_cast<LONG_PTR>(after));
    if (swpFlags != 0)
    {
        ::SetWindowPos(handle, nullptr, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | swpFlags);
    }
    return TRUE;
}

} // namespace

BOOL CWnd::ModifyStyle(DWORD remove, DWORD add, UINT swpFlags)
{
    return Modify(m_hWnd, GWL_STYLE, remove, add, swpFlags);
}

BOOL CWnd::ModifyStyleEx(DWORD remove, DWORD add, UINT swpFlags)
{
    return Modify(m_hWnd, GWL_EXSTYLE, remove, add, swpFlags);
}

// ---- family

CWnd* CWnd::GetParent() const
{
    return FromHandle(::GetParent(m_hWnd));
}

CWnd* CWnd::SetParent(CWnd* parent)
{
    return FromHandle(::SetParent(m_hWnd, HandleOf(parent)));
}

CWnd* CWnd::GetOwner() const
{
    return m_owner != nullptr ? FromHandle(m_owner) : GetParent();
}

void CWnd::SetOwner(CWnd* owner)
{
    m_owner = HandleOf(owner);
}

CWnd* CWnd::GetTopLevelParent() const
{
    return FromHandle(GetTopLevel(m_hWnd));
}

CWnd* CWnd::GetWindow(UINT relation) const
{
    return FromHandle(::GetWindow(m_hWnd, relation));
}

BOOL CWnd::IsChild(CWnd const* window) const
{
    return ::IsChild(m_hWnd, HandleOf(window));
}

CWnd* CWnd::ChildWindowFromPoint(POINT clientPoint, UINT flags) const
{
    return FromHandle(::ChildWindowFromPoint(m_hWnd, clientPoint, flags));
}

CWnd* CWnd::WindowFromPoint(POINT screenPoint)
{
    return FromHandle(::WindowFromPoint(screenPoint));
}

// ---- place and state

void CWnd::GetClientRect(RECT* rect) const
{
    ::GetClientRect(m_hWnd, rect);
}

void CWnd::GetWindowRect(RECT* screenRect) const
{
    ::GetWindowRect(m_hWnd, screenRect);
}

void CWnd::ClientToScreen(POINT* point) const
{
    ::ClientToScreen(m_hWnd, point);
}

void CWnd::ScreenToClient(POINT* point) const
{
    ::ScreenToClient(m_hWnd, point);
}

namespace
{

void MapRect(HWND from, HWND to, RECT* rect)
{
    if (rect != nullptr)
    {
        CPoint shift(0, 0);
        ::MapWindowPoints(from, to, &shift, 1);
        CRect mapped(*rect);
        mapped.OffsetRect(shift);
        *rect = mapped;
    }
}

} // namespace

void CWnd::ClientToScreen(RECT* rect) const
{
    MapRect(m_hWnd, nullptr, rect);
}

void CWnd::ScreenToClient(RECT* rect) const
{
    MapRect(nullptr, m_hWnd, rect);
}

void CWnd::MapWindowPoints(CWnd* to, POINT* points, UINT count) const
{
    ::MapWindowPoints(m_hWnd, HandleOf(to), points, count);
}

void CWnd::MapWindowPoints(CWnd* to, RECT* rect) const
{
    MapRect(m_hWnd, HandleOf(to), rect);
}

void CWnd::MoveWindow(int x, int y, int width, int height, BOOL repaint)
{
    ::MoveWindow(m_hWnd, x, y, width, height, repaint);
}

void CWnd::MoveWindow(RECT const* rect, BOOL repaint)
{
    if (rect != nullptr)
    {
        MoveWindow(rect->left, rect->top, rect->right - rect->left, rect->bottom - rect->top, repaint);
    }
}

BOOL CWnd::SetWindowPos(CWnd const* insertAfter, int x, int y, int width, int height, UINT flags)
{
    return ::SetWindowPos(m_hWnd, HandleOf(insertAfter), x, y, width, height, flags);
}

BOOL CWnd::ShowWindow(int command)
{
    return ::ShowWindow(m_hWnd, command);
}

BOOL CWnd::IsWindowVisible() const
{
    return ::IsWindowVisible(m_hWnd);
}

BOOL CWnd::EnableWindow(BOOL enable)
{
    return ::EnableWindow(m_hWnd, enable);
}

BOOL CWnd::IsWindowEnabled() const
{
    return ::IsWindowEnabled(m_hWnd);
}

void CWnd::BringWindowToTop()
{
    ::BringWindowToTop(m_hWnd);
}

BOOL CWnd::IsIconic() const
{
    return ::IsIconic(m_hWnd);
}

BOOL CWnd::IsZoomed() const
{
    return ::IsZoomed(m_hWnd);
}

// ---- painting

void CWnd::Invalidate(BOOL erase)
{
    ::InvalidateRect(m_hWnd, nullptr, erase);
}

void CWnd::InvalidateRect(RECT const* rect, BOOL erase)
{
    ::InvalidateRect(m_hWnd, rect, erase);
}

void CWnd::InvalidateRgn(CRgn* region, BOOL erase)
{
    region != nullptr ? InvalidateRegion(m_hWnd, region->GetRegion(), erase != FALSE) : Invalidate(erase);
}

void CWnd::ValidateRect(RECT const* rect)
{
    ::ValidateRect(m_hWnd, rect);
}

void CWnd::UpdateWindow()
{
    ::UpdateWindow(m_hWnd);
}

BOOL CWnd::RedrawWindow(RECT const* rect, CRgn* region, UINT flags)
{
    if (region == nullptr)
    {
        return ::RedrawWindow(m_hWnd, rect, flags);
    }
    if ((flags & RDW_INVALIDATE) != 0)
    {
        InvalidateRegion(m_hWnd, region->GetRegion(), (flags & RDW_ERASE) != 0);
    }
    return ::RedrawWindow(m_hWnd, nullptr, flags & ~(RDW_INVALIDATE | RDW_VALIDATE));
}

BOOL CWnd::GetUpdateRect(RECT* rect, BOOL erase) const
{
    return ::GetUpdateRect(m_hWnd, rect, erase);
}

int CWnd::GetUpdateRgn(CRgn* region, BOOL /*erase*/) const
{
    Region update;
    GetUpdateRegion(m_hWnd, update);
    int const kind = RegionKind(update);
    if (region != nullptr)
    {
        region->SetRegion(std::move(update));
    }
    return region != nullptr ? kind : ERROR;
}

void CWnd::SetRedraw(BOOL redraw)
{
    SendMessage(WM_SETREDRAW, redraw != FALSE);
}

void CWnd::ScrollWindow(int dx, int dy, RECT const* rect, RECT const* clip)
{
    ::ScrollWindow(m_hWnd, dx, dy, rect, clip);
}

CDC* CWnd::BeginPaint(PAINTSTRUCT* paint)
{
    auto dc = std::make_unique<CPaintDC>(m_hWnd);
    *paint = dc->m_ps;
    return dc.release();
}

void CWnd::EndPaint(PAINTSTRUCT* paint)
{
    delete paint->dc;
    paint->dc = nullptr;
}

CDC* CWnd::GetDC()
{
    return new CClientDC(m_hWnd);
}

CDC* CWnd::GetWindowDC()
{
    return new CWindowDC(m_hWnd);
}

int CWnd::ReleaseDC(CDC* dc)
{
    delete dc;
    return dc != nullptr ? 1 : 0;
}

// ---- timers and input

UINT_PTR CWnd::SetTimer(UINT_PTR timerId, UINT elapseMs, TIMERPROC function)
{
    return m_hWnd != nullptr ? ::SetTimer(m_hWnd, timerId, elapseMs, function) : 0;
}

BOOL CWnd::KillTimer(UINT_PTR timerId)
{
    return m_hWnd != nullptr && ::KillTimer(m_hWnd, timerId);
}

CWnd* CWnd::SetCapture()
{
    return FromHandle(::SetCapture(m_hWnd));
}

CWnd* CWnd::GetCapture()
{
    return FromHandle(::GetCapture());
}

CWnd* CWnd::SetFocus()
{
    return m_hWnd != nullptr ? FromHandle(::SetFocus(m_hWnd)) : nullptr;
}

CWnd* CWnd::GetFocus()
{
    return FromHandle(::GetFocus());
}

CWnd* CWnd::GetActiveWindow()
{
    return FromHandle(::GetActiveWindow());
}

CWnd* CWnd::SetActiveWindow()
{
    return FromHandle(::SetActiveWindow(m_hWnd));
}

BOOL CWnd::SetForegroundWindow()
{
    return ::SetForegroundWindow(m_hWnd);
}

// ---- scroll bars

BOOL CWnd::SetScrollInfo(int bar, SCROLLINFO const* info, BOOL redraw)
{
    ::SetScrollInfo(m_hWnd, bar, info, redraw);
    return FindWindowRecord(m_hWnd) != nullptr;
}

BOOL CWnd::GetScrollInfo(int bar, SCROLLINFO* info, UINT mask) const
{
    if (info != nullptr)
    {
        info->fMask = mask;
    }
    return ::GetScrollInfo(m_hWnd, bar, info);
}

int CWnd::SetScrollPos(int bar, int position, BOOL redraw)
{
    return ::SetScrollPos(m_hWnd, bar, position, redraw);
}

int CWnd::GetScrollPos(int bar) const
{
    return ::GetScrollPos(m_hWnd, bar);
}

void CWnd::SetScrollRange(int bar, int minimum, int maximum, BOOL redraw)
{
    ::SetScrollRange(m_hWnd, bar, minimum, maximum, redraw);
}

void CWnd::GetScrollRange(int bar, int* minimum, int* maximum) const
{
    ::GetScrollRange(m_hWnd, bar, minimum, maximum);
}

int CWnd::GetScrollLimit(int bar) const
{
    Window const* const window = FindWindowRecord(m_hWnd);
    return window != nullptr && (bar == SB_HORZ || bar == SB_VERT) ? ScrollLimit(window->bars[bar]) : 0;
}

void CWnd::ShowScrollBar(UINT bar, BOOL show)
{
    ::ShowScrollBar(m_hWnd, static_cast<int>(bar), show);
}

BOOL CWnd::EnableScrollBar(int bar, UINT arrows)
{
    return ::EnableScrollBar(m_hWnd, bar, arrows);
}
