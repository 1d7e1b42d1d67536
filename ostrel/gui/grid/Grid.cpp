// The grid as a window: its class, its creation and the messages that it answers. The operations are in
// GridRowCalls.cpp and GridViewCalls.cpp.
#include <ostrel/gui/grid/Grid.h>
#include <ostrel/gui/grid/detail/GridCore.h>
#include <ostrel/gui/grid/detail/WindowClass.h>
#include <ostrel/platform/base/CallbackErrors.h>
#include <ostrel/platform/drawing/SystemLook.h>
#include <ostrel/platform/window/MessageLoop.h>

namespace Ostrel::GUI
{
namespace
{
constexpr char const* kWindowClass = "Ostrel.Grid";

void RegisterWindowClass()
{
    WNDCLASS windowClass;
    windowClass.style = CS_VREDRAW | CS_HREDRAW | CS_DBLCLKS;
    windowClass.lpfnWndProc = &::DefWindowProc;
    windowClass.hCursor = LoadCursor(nullptr, IDC_ARROW);
    windowClass.hbrBackground = SystemColorBrush(COLOR_BTNFACE);
    windowClass.lpszClassName = kWindowClass;
    Detail::RegisterClassOnce(windowClass);
}
} // namespace

IMPLEMENT_DYNCREATE(CGrid, CWnd)

CGrid::CGrid()
{
    RegisterWindowClass();
    m_core = std::make_unique<Detail::GridCore>(*this);
}

CGrid::~CGrid()
{
    if (m_hWnd != nullptr)
    {
        DestroyWindow();
    }
}

BOOL CGrid::Create(DWORD style, RECT const& rect, CWnd* parent, UINT controlId)
{
    return CWnd::Create(kWindowClass, "", style, rect, parent, controlId);
}

BOOL CGrid::SetScrollInfo(int bar, SCROLLINFO const* info, BOOL redraw)
{
    int const before = m_core->Scroller().HorizontalPosition();
    BOOL const isSet = CWnd::SetScrollInfo(bar, info, redraw);
    m_core->Scroller().OnHorizontalPosition(before);
    return isSet;
}

int CGrid::SetScrollPos(int bar, int position, BOOL redraw)
{
    int const before = m_core->Scroller().HorizontalPosition();
    int const positionBefore = CWnd::SetScrollPos(bar, position, redraw);
    m_core->Scroller().OnHorizontalPosition(before);
    return positionBefore;
}

BOOL CGrid::PreCreateWindow(CREATESTRUCT& create)
{
    create.lpszClass = kWindowClass;
    return CWnd::PreCreateWindow(create);
}

// A window of a dialog is finished later: the dialog may not be ready for what that does.
void CGrid::PreSubclassWindow()
{
    CWnd::PreSubclassWindow();
    m_core->OnBound();
    m_core->Thread().Post(Detail::GridOperation::FinishCreation);
}

BOOL CGrid::PreTranslateMessage(MSG* message)
{
    bool const isDown = message->message == WM_KEYDOWN || message->message == WM_SYSKEYDOWN;
    bool const isUp = message->message == WM_KEYUP || message->message == WM_SYSKEYUP;
    if (isDown && message->hwnd != m_hWnd && ::IsChild(m_hWnd, message->hwnd) != FALSE)
    {
        // A dialog around the grid must not take the keys of an editor.
        TranslateMessage(message);
        DispatchMessage(message);
        return TRUE;
    }
    if (message->hwnd != m_hWnd || (!isDown && !isUp))
    {
        return CWnd::PreTranslateMessage(message);
    }
    auto const key = static_cast<unsigned int>(message->wParam);
    unsigned int const repeat = LOWORD(static_cast<DWORD_PTR>(message->lParam));
    unsigned int const flags = HIWORD(static_cast<DWORD_PTR>(message->lParam));
    if (isDown && key == VK_ESCAPE && m_core->Mouse().CancelHeaderGesture())
    {
        return TRUE;
    }
    IKeyManager& manager = m_core->KeyManagerInUse();
    int const handled =
        isDown ? manager.OnKeyDown(*this, key, repeat, flags) : manager.OnKeyUp(*this, key, repeat, flags);
    return handled != 0 ? TRUE : CWnd::PreTranslateMessage(message);
}

// The window goes, whatever the handlers of its last notifications throw.
LRESULT CGrid::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    Platform::CallbackErrors errors;
    LRESULT const result = Answer(message, wParam, lParam);
    message == WM_DESTROY ? errors.Report() : errors.Rethrow();
    return result;
}

LRESULT CGrid::Answer(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == Detail::GridThread::Message())
    {
        return m_core->OnSyncMessage(wParam, lParam);
    }
    switch (message)
    {
    case WM_PAINT:
        m_core->Looks().Paint();
        return 0;
    case WM_ERASEBKGND:
        return 1;
    case WM_TIMER:
        m_core->OnTimer(wParam);
        return 0;
    case WM_GETDLGCODE:
        return DLGC_WANTARROWS | DLGC_WANTCHARS;
    case WM_SETFONT:
        SetFont(CFont::FromHandle(reinterpret_cast<HFONT>(wParam)), lParam != 0 ? TRUE : FALSE);
        return 0;
    case WM_GETFONT:
        return GetFont() != nullptr ? reinterpret_cast<LRESULT>(static_cast<HFONT>(*GetFont())) : 0;
    case WM_SETCURSOR:
    case WM_KEYDOWN: {
        LRESULT const answer = m_core->Input().OnInput(message, wParam, lParam);
        return answer != 0 ? answer : CWnd::WindowProc(message, wParam, lParam);
    }
    default:
        return AfterDefault(message, wParam, lParam);
    }
}

// What the grid does in addition to the default processing.
LRESULT CGrid::AfterDefault(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_DESTROY)
    {
        m_core->OnDestroy();
    }
    if (message == WM_MOUSEWHEEL)
    {
        m_core->Scroller().OnWheel(GET_WHEEL_DELTA_WPARAM(wParam));
    }
    if (message == WM_MOUSEHWHEEL)
    {
        m_core->Scroller().OnHorizontalScroll(GET_WHEEL_DELTA_WPARAM(wParam) < 0 ? SB_LINELEFT : SB_LINERIGHT);
    }
    HWND const window = m_hWnd;
    LRESULT const result = CWnd::WindowProc(message, wParam, lParam);
    if (message == WM_NCDESTROY || IsWindow(window) == FALSE)
    {
        return result; // with the window the object may have gone
    }
    if (message == WM_CREATE)
    {
        m_core->FinishCreation();
    }
    else
    {
        m_core->Input().OnInput(message, wParam, lParam);
    }
    return result;
}
} // namespace Ostrel::GUI
