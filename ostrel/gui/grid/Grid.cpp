// The grid as a window: its class, its creation and the messages that it answers. The operations are in
// GridRowCalls.cpp and GridViewCalls.cpp.
#include <ostrel/gui/grid/Grid.h>
#include <ostrel/gui/grid/detail/GridCore.h>
#include <ostrel/platform/drawing/SystemLook.h>
#include <ostrel/platform/window/MessageLoop.h>

namespace Ostrel::GUI
{
namespace
{
constexpr char const* kWindowClass = "Ostrel.Grid";

void RegisterWindowClassOnce()
{
    WNDCLASS present;
    if (GetClassInfo(nullptr, kWindowClass, &present) != FALSE)
    {
        return;
    }
    WNDCLASS windowClass;
    windowClass.style = CS_VREDRAW | CS_HREDRAW | CS_DBLCLKS;
    windowClass.lpfnWndProc = &::DefWindowProc;
    windowClass.hCursor = LoadCursor(nullptr, IDC_ARROW);
    windowClass.hbrBackground = SystemColorBrush(COLOR_BTNFACE);
    windowClass.lpszClassName = kWindowClass;
    RegisterClass(&windowClass);
}

bool IsKeyUp(int virtualKey)
{
    return GetKeyState(virtualKey) >= 0;
}
} // namespace

IMPLEMENT_DYNCREATE(CGrid, CWnd)

CGrid::CGrid()
{
    RegisterWindowClassOnce();
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

LRESULT CGrid::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
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
    case WM_SETCURSOR:
        return LOWORD(static_cast<DWORD_PTR>(lParam)) == HTCLIENT && m_core->Mouse().OnSetCursor()
                   ? TRUE
                   : CWnd::WindowProc(message, wParam, lParam);
    case WM_SETFONT:
        SetFont(CFont::FromHandle(reinterpret_cast<HFONT>(wParam)), lParam != 0 ? TRUE : FALSE);
        return 0;
    case WM_GETFONT:
        return GetFont() != nullptr ? reinterpret_cast<LRESULT>(static_cast<HFONT>(*GetFont())) : 0;
    case WM_KEYDOWN:
        if (IsKeyUp(VK_SHIFT) && IsKeyUp(VK_CONTROL) && m_core->Search().OnKeyDown(static_cast<unsigned int>(wParam)))
        {
            return 0;
        }
        return CWnd::WindowProc(message, wParam, lParam);
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
    LRESULT const result = CWnd::WindowProc(message, wParam, lParam);
    switch (message)
    {
    case WM_CREATE:
        m_core->FinishCreation();
        break;
    case WM_SIZE:
        m_core->OnSize({LOWORD(static_cast<DWORD_PTR>(lParam)), HIWORD(static_cast<DWORD_PTR>(lParam))});
        break;
    case WM_VSCROLL:
        SetFocus();
        m_core->Freeze().OnScroll(LOWORD(wParam));
        m_core->Scroller().OnVerticalScroll(LOWORD(wParam), HIWORD(wParam));
        break;
    case WM_HSCROLL:
        SetFocus();
        m_core->Scroller().OnHorizontalScroll(LOWORD(wParam), HIWORD(wParam));
        break;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
        OnLeftDown(CPoint(lParam), wParam, message == WM_LBUTTONDBLCLK);
        break;
    case WM_MOUSEMOVE:
        m_core->Mouse().OnMove(CPoint(lParam));
        break;
    case WM_MOUSELEAVE:
        m_core->Mouse().OnLeave();
        break;
    case WM_LBUTTONUP:
        m_core->Mouse().OnLeftUp(CPoint(lParam), wParam);
        ReleaseCapture();
        break;
    case WM_CAPTURECHANGED:
        m_core->Mouse().OnCaptureLost();
        break;
    default:
        break;
    }
    return result;
}

void CGrid::OnLeftDown(CPoint clientPoint, WPARAM keys, bool isDoubleClick)
{
    SetFocus();
    SetCapture();
    m_core->Mouse().OnLeftDown(clientPoint, keys, isDoubleClick);
}
} // namespace Ostrel::GUI
