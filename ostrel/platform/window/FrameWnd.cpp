#include <ostrel/platform/drawing/SystemLook.h>
#include <ostrel/platform/window/FrameWnd.h>
#include <ostrel/platform/window/MessageLoop.h>

IMPLEMENT_DYNCREATE(CFrameWnd, CWnd)

CRect const CFrameWnd::rectDefault(CW_USEDEFAULT, CW_USEDEFAULT, 0, 0);

namespace
{

constexpr char const* kFrameClass = "Ostrel.Frame";

bool RegisterFrameClass()
{
    WNDCLASS frame;
    frame.style = CS_DBLCLKS;
    frame.lpfnWndProc = &::DefWindowProc;
    frame.hCursor = LoadCursor(nullptr, IDC_ARROW);
    frame.hbrBackground = SystemColorBrush(COLOR_BTNFACE);
    frame.lpszClassName = kFrameClass;
    return RegisterClass(&frame) != 0;
}

} // namespace

CFrameWnd::~CFrameWnd()
{
    m_autoDelete = false;
    DestroyWindow();
}

BOOL CFrameWnd::Create(LPCTSTR className, LPCTSTR windowName, DWORD style, RECT const& rect, CWnd* parent)
{
    static bool const registered = RegisterFrameClass();
    bool const usesOwn = className == nullptr || *className == '\0';
    return registered &&
           CreateEx(0, usesOwn ? kFrameClass : className, windowName, style | WS_CLIPCHILDREN, rect, parent, 0);
}

void CFrameWnd::SetClientWindow(CWnd* client)
{
    m_client = client != nullptr ? client->GetSafeHwnd() : nullptr;
    RecalcLayout();
}

void CFrameWnd::RecalcLayout()
{
    CRect client;
    GetClientRect(&client);
    ::MoveWindow(m_client, 0, 0, client.Width(), client.Height());
}

int CFrameWnd::RunAsMainWindow()
{
    SetAutoDelete(false);
    SetQuitOnDestroy(true);
    ShowWindow(SW_SHOW);
    return Ostrel::Platform::RunMessageLoop();
}

LRESULT CFrameWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    // Whatever the base does for other messages may end this object: it is not touched afterwards.
    LRESULT const result = CWnd::WindowProc(message, wParam, lParam);
    switch (message)
    {
    case WM_SIZE:
        RecalcLayout();
        break;
    case WM_SETFOCUS:
        ::SetFocus(::IsWindow(m_client) != FALSE ? m_client : m_hWnd);
        break;
    case WM_DESTROY:
        if (m_quitOnDestroy)
        {
            PostQuitMessage(0);
        }
        break;
    default:
        break;
    }
    return result;
}

void CFrameWnd::PostNcDestroy()
{
    if (m_autoDelete)
    {
        delete this;
    }
}
