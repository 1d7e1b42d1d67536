// How messages reach CWnd objects, and how objects and windows come together and part.
#include <algorithm>

#include <ostrel/platform/window/detail/ThreadState.h>
#include <ostrel/platform/window/detail/WindowCreate.h>
#include <ostrel/platform/window/detail/WndAccess.h>

using namespace Ostrel::Platform;

IMPLEMENT_DYNCREATE(CWnd, CCmdTarget)

namespace
{

constexpr char const* kPlainClass = "Ostrel.Window";

constexpr MSG kNoMessage{};
/// The message in progress of this thread, on the stack of its procedure; the outer one again when the inner one ends.
thread_local constinit MSG const* t_current = &kNoMessage;

class CurrentMessage
{
public:
    explicit CurrentMessage(MSG const& message) noexcept : m_before(t_current) { t_current = &message; }
    CurrentMessage(CurrentMessage const&) = delete;
    CurrentMessage& operator=(CurrentMessage const&) = delete;
    ~CurrentMessage() { t_current = m_before; }

private:
    MSG const* m_before;
};

/// The procedure of every window with an object.
LRESULT ObjectProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam)
{
    Window const* const window = FindWindowRecord(handle);
    if (window == nullptr || window->object == nullptr)
    {
        return ::DefWindowProc(handle, message, wParam, lParam);
    }
    MSG const described{handle, message, wParam, lParam, 0, {0, 0}};
    CurrentMessage const current(described);
    return CWndAccess::WindowProc(*window->object, message, wParam, lParam);
}

/// The child that a message to its parent is about; null when it has no object.
CWnd* ChildOf(HWND handle)
{
    return CWnd::FromHandlePermanent(handle);
}

CWnd* SenderOf(UINT message, LPARAM lParam)
{
    switch (message)
    {
    case WM_NOTIFY:
        return lParam != 0 ? ChildOf(reinterpret_cast<NMHDR const*>(lParam)->hwndFrom) : nullptr;
    case WM_COMMAND:
    case WM_HSCROLL:
    case WM_VSCROLL:
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORLISTBOX:
    case WM_CTLCOLORBTN:
    case WM_CTLCOLORDLG:
    case WM_CTLCOLORSTATIC:
        return ChildOf(reinterpret_cast<HWND>(lParam));
    default:
        return nullptr;
    }
}

CWnd* DrawnItem(CWnd const& parent, WPARAM id)
{
    return ChildOf(::GetDlgItem(parent.m_hWnd, static_cast<int>(id)));
}

void RegisterPlainClass()
{
    WNDCLASS plain;
    plain.style = CS_DBLCLKS | CS_HREDRAW | CS_VREDRAW;
    plain.lpfnWndProc = &::DefWindowProc;
    plain.hCursor = LoadCursor(nullptr, IDC_ARROW);
    plain.lpszClassName = kPlainClass;
    RegisterClass(&plain);
}

} // namespace

// ---- CWndAccess

void CWndAccess::Forget(CWnd& object) noexcept
{
    object.m_hWnd = nullptr;
    object.m_superProc = nullptr;
}

LRESULT CWndAccess::WindowProc(CWnd& object, UINT message, WPARAM wParam, LPARAM lParam)
{
    return object.WindowProc(message, wParam, lParam);
}

BOOL CWndAccess::ChildNotify(CWnd& object, UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result)
{
    return object.OnChildNotify(message, wParam, lParam, result);
}

void CWndAccess::PostNcDestroy(CWnd& object)
{
    object.PostNcDestroy();
}

void CWndAccess::Bind(CWnd& object, HWND handle, WNDPROC superProc) noexcept
{
    Window* const window = FindWindowRecord(handle);
    window->object = &object;
    window->procedure = &ObjectProcedure;
    object.m_hWnd = handle;
    object.m_superProc = superProc;
    object.PreSubclassWindow();
}

CWnd* CWndAccess::MakeTemporary(HWND handle)
{
    auto& temporaries = ThreadState::Get().temporaryObjects;
    auto const found = std::find_if(temporaries.begin(), temporaries.end(),
                                    [handle](auto const& object) { return object->m_hWnd == handle; });
    if (found != temporaries.end())
    {
        return found->get();
    }
    auto object = std::make_unique<CWnd>();
    object->m_hWnd = handle;
    object->m_isTemporary = true;
    return temporaries.emplace_back(std::move(object)).get();
}

// ---- coming together and parting

CWnd::~CWnd()
{
    if (!m_isTemporary && m_hWnd != nullptr)
    {
        CWnd::DestroyWindow();
        // On another thread the window cannot be destroyed; it goes on without its object.
        m_hWnd = nullptr;
    }
}

CWnd* CWnd::FromHandlePermanent(HWND handle)
{
    Window const* const window = FindWindowRecord(handle);
    return window != nullptr ? window->object : nullptr;
}

CWnd* CWnd::FromHandle(HWND handle)
{
    CWnd* const permanent = FromHandlePermanent(handle);
    return permanent != nullptr || handle == nullptr ? permanent : CWndAccess::MakeTemporary(handle);
}

BOOL CWnd::PreCreateWindow(CREATESTRUCT& /*create*/)
{
    return TRUE;
}

void CWnd::PreSubclassWindow() {}

BOOL CWnd::Create(LPCTSTR className, LPCTSTR windowName, DWORD style, RECT const& rect, CWnd* parent, UINT id,
                  void* createParams)
{
    return CreateEx(0, className, windowName, style | WS_CHILD, rect, parent, id, createParams);
}

BOOL CWnd::CreateEx(DWORD exStyle, LPCTSTR className, LPCTSTR windowName, DWORD style, RECT const& rect, CWnd* parent,
                    UINT id, void* createParams)
{
    bool const isDefault = rect.left == CW_USEDEFAULT;
    int const width = isDefault ? CW_USEDEFAULT : rect.right - rect.left;
    int const height = isDefault ? CW_USEDEFAULT : rect.bottom - rect.top;
    return CreateEx(exStyle, className, windowName, style, rect.left, rect.top, width, height,
                    parent != nullptr ? parent->m_hWnd : nullptr, id, createParams);
}

BOOL CWnd::CreateEx(DWORD exStyle, LPCTSTR className, LPCTSTR windowName, DWORD style, int x, int y, int width,
                    int height, HWND parent, UINT_PTR id, void* createParams)
{
    CREATESTRUCT create{createParams, nullptr, id, parent, height, width, y, x, style, windowName, className, exStyle};
    if (m_hWnd != nullptr || PreCreateWindow(create) == FALSE)
    {
        PostNcDestroy();
        return FALSE;
    }
    if (create.lpszClass == nullptr)
    {
        static bool const registered = (RegisterPlainClass(), true);
        create.lpszClass = registered ? kPlainClass : nullptr;
    }
    bool wasBound = false;
    HWND const made = MakeWindow(create, this, wasBound);
    if (made == nullptr && !wasBound)
    {
        PostNcDestroy();
    }
    return made != nullptr;
}

BOOL CWnd::DestroyWindow()
{
    return ::DestroyWindow(m_hWnd);
}

BOOL CWnd::Attach(HWND handle)
{
    Window* const window = FindWindowRecord(handle);
    if (window == nullptr || window->object != nullptr || m_hWnd != nullptr)
    {
        return FALSE;
    }
    window->object = this;
    m_hWnd = handle;
    return TRUE;
}

HWND CWnd::Detach()
{
    Window* const window = FindWindowRecord(m_hWnd);
    HWND const handle = m_hWnd;
    if (window != nullptr && window->object == this)
    {
        window->object = nullptr;
        if (m_superProc != nullptr && window->procedure == &ObjectProcedure)
        {
            window->procedure = m_superProc;
        }
    }
    CWndAccess::Forget(*this);
    return handle;
}

BOOL CWnd::SubclassWindow(HWND handle)
{
    Window const* const window = FindWindowRecord(handle);
    if (window == nullptr || window->object != nullptr || m_hWnd != nullptr)
    {
        return FALSE;
    }
    CWndAccess::Bind(*this, handle, window->procedure);
    return TRUE;
}

BOOL CWnd::SubclassDlgItem(UINT id, CWnd* parent)
{
    return parent != nullptr && SubclassWindow(::GetDlgItem(parent->m_hWnd, static_cast<int>(id)));
}

HWND CWnd::UnsubclassWindow()
{
    return Detach();
}

void CWnd::PostNcDestroy() {}

// ---- messages

MSG const* CWnd::GetCurrentMessage()
{
    return t_current;
}

LRESULT CWnd::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    return CallWindowProc(m_superProc, m_hWnd, message, wParam, lParam);
}

LRESULT CWnd::Default()
{
    MSG const& current = *t_current;
    return DefWindowProc(current.message, current.wParam, current.lParam);
}

LRESULT CWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    LRESULT result = 0;
    BOOL handled = FALSE;
    switch (message)
    {
    case WM_COMMAND:
        handled = OnCommand(wParam, lParam);
        break;
    case WM_NOTIFY:
        handled = OnNotify(wParam, lParam, &result);
        break;
    case WM_DRAWITEM:
    case WM_MEASUREITEM:
        if (CWnd* const child = DrawnItem(*this, wParam))
        {
            handled = child->OnChildNotify(message, wParam, lParam, &result);
        }
        break;
    default:
        if (CWnd* const child = SenderOf(message, lParam); child != nullptr && child != this)
        {
            handled = child->OnChildNotify(message, wParam, lParam, &result);
        }
        break;
    }
    return handled != FALSE ? result : DefWindowProc(message, wParam, lParam);
}

BOOL CWnd::OnCommand(WPARAM wParam, LPARAM lParam)
{
    CWnd* const child = SenderOf(WM_COMMAND, lParam);
    LRESULT result = 0;
    return child != nullptr && child != this && child->OnChildNotify(WM_COMMAND, wParam, lParam, &result);
}

BOOL CWnd::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result)
{
    CWnd* const child = SenderOf(WM_NOTIFY, lParam);
    return child != nullptr && child != this && child->OnChildNotify(WM_NOTIFY, wParam, lParam, result);
}

BOOL CWnd::OnChildNotify(UINT /*message*/, WPARAM /*wParam*/, LPARAM /*lParam*/, LRESULT* /*result*/)
{
    return FALSE;
}

BOOL CWnd::PreTranslateMessage(MSG* /*message*/)
{
    return FALSE;
}

// Each window's parent is looked up before its object is asked: it may be gone afterwards.
BOOL CWnd::WalkPreTranslateTree(HWND stop, MSG* message)
{
    HWND at = message->hwnd;
    while (Window const* const window = at != nullptr ? FindWindowRecord(at) : nullptr)
    {
        HWND const above = window->parent != nullptr ? window->parent->handle : nullptr;
        if (window->object != nullptr && window->object->PreTranslateMessage(message) != FALSE)
        {
            return TRUE;
        }
        if (at == stop)
        {
            break;
        }
        at = above;
    }
    return FALSE;
}
