// Window classes, and the beginning and end of windows.
#include <algorithm>
#include <cstring>
#include <functional>

#include <unistd.h>

#include <ostrel/platform/window/detail/ThreadState.h>
#include <ostrel/platform/window/detail/WindowCreate.h>
#include <ostrel/platform/window/detail/WndAccess.h>

using namespace Ostrel::Platform;

namespace
{

struct ClassTable
{
    Mutex lock;
    std::map<std::string, std::shared_ptr<WindowClass const>, std::less<>> classes OSTREL_GUARDED_BY(lock);
    ATOM lastAtom OSTREL_GUARDED_BY(lock) = 0xBFFF;
};

// Never destroyed: classes are registered and used around static initialisation.
ClassTable& Classes()
{
    static ClassTable& table = *new ClassTable;
    return table;
}

std::shared_ptr<WindowClass const> FindClass(LPCTSTR name)
{
    ClassTable& table = Classes();
    MutexLock const lock(table.lock);
    auto const found = name != nullptr ? table.classes.find(name) : table.classes.end();
    return found != table.classes.end() ? found->second : nullptr;
}

int Copied(std::string const& text, LPSTR buffer, int capacity)
{
    if (buffer == nullptr || capacity <= 0)
    {
        return 0;
    }
    std::size_t const length = std::min(text.size(), static_cast<std::size_t>(capacity) - 1);
    std::memcpy(buffer, text.data(), length);
    buffer[length] = '\0';
    return static_cast<int>(length);
}

CRect PlaceFor(CREATESTRUCT const& create)
{
    CSize const defaultSize(800, 600);
    int const x = create.x == CW_USEDEFAULT ? 0 : create.x;
    int const y = create.x == CW_USEDEFAULT || create.y == CW_USEDEFAULT ? 0 : create.y;
    int const width = create.cx == CW_USEDEFAULT ? defaultSize.cx : std::max(0, create.cx);
    int const height =
        create.cx == CW_USEDEFAULT || create.cy == CW_USEDEFAULT ? defaultSize.cy : std::max(0, create.cy);
    return {CPoint(x, y), CSize(width, height)};
}

/// Links a new record into the tree. The style WS_VISIBLE comes later, with ShowWindow.
Window& MakeRecord(CREATESTRUCT const& create, std::shared_ptr<WindowClass const> windowClass, Window* parent)
{
    ThreadState& state = ThreadState::Get();
    Window& window = state.AddWindow();
    window.procedure = windowClass->description.lpfnWndProc;
    window.windowClass = std::move(windowClass);
    window.style = create.style & ~WS_VISIBLE;
    window.exStyle = create.dwExStyle;
    window.bounds = PlaceFor(create);
    window.client = window.WindowRect();
    window.usesDefaultPosition = create.x == CW_USEDEFAULT;
    window.bars[SB_HORZ].wasUsed = window.HasStyle(WS_HSCROLL);
    window.bars[SB_VERT].wasUsed = window.HasStyle(WS_VSCROLL);
    if (window.IsChild())
    {
        window.id = static_cast<LONG_PTR>(create.hMenu);
        window.parent = parent;
        parent->children.push_back(&window);
    }
    else
    {
        window.owner = parent != nullptr ? TopLevelOf(*parent).handle : nullptr;
        state.TopLevels().push_back(&window);
    }
    return window;
}

bool SendCreation(HWND handle, CREATESTRUCT& create)
{
    auto const parameter = reinterpret_cast<LPARAM>(&create);
    if (CallProcedure(handle, WM_NCCREATE, 0, parameter) == FALSE)
    {
        return false;
    }
    LayOutClient(handle);
    if (CallProcedure(handle, WM_CREATE, 0, parameter) == -1)
    {
        return false;
    }
    SendSize(handle);
    SendMove(handle);
    return IsWindow(handle) != FALSE;
}

void DestroyOwned(HWND owner)
{
    std::vector<HWND> owned;
    for (Window const* const topLevel : ThreadState::Get().TopLevels())
    {
        if (topLevel->owner == owner)
        {
            owned.push_back(topLevel->handle);
        }
    }
    std::for_each(owned.begin(), owned.end(), [](HWND handle) { DestroyWindow(handle); });
}

void EndWindow(HWND handle)
{
    ThreadState& state = ThreadState::Get();
    state.timers.KillAllOf(handle);
    CallProcedure(handle, WM_NCDESTROY, 0, 0);
    Window* const window = state.Find(handle);
    if (window == nullptr)
    {
        return;
    }
    CWnd* const object = window->object;
    if (object != nullptr)
    {
        CWndAccess::Forget(*object);
    }
    state.timers.KillAllOf(handle);
    state.input.Forget(handle);
    state.scrollTracker.Forget(handle);
    state.RemoveWindow(handle);
    if (object != nullptr)
    {
        CWndAccess::PostNcDestroy(*object);
    }
}

// Parents hear WM_DESTROY before their children, and WM_NCDESTROY after them.
void DestroyTree(HWND handle)
{
    Window* window = FindWindowRecord(handle);
    if (window == nullptr)
    {
        return;
    }
    window->isDestroying = true;
    CallProcedure(handle, WM_DESTROY, 0, 0);
    for (window = FindWindowRecord(handle); window != nullptr && !window->children.empty();
         window = FindWindowRecord(handle))
    {
        DestroyTree(window->children.back()->handle);
    }
    EndWindow(handle);
}

} // namespace

namespace Ostrel::Platform
{

HWND MakeWindow(CREATESTRUCT& create, CWnd* object, bool& wasBound)
{
    wasBound = false;
    std::shared_ptr<WindowClass const> windowClass = FindClass(create.lpszClass);
    Window* const parent = FindWindowRecord(create.hwndParent);
    bool const isChild = (create.style & WS_CHILD) != 0;
    if (windowClass == nullptr || (parent == nullptr && (isChild || create.hwndParent != nullptr)))
    {
        return nullptr;
    }
    Window& window = MakeRecord(create, std::move(windowClass), parent);
    HWND const handle = window.handle;
    if (object != nullptr)
    {
        wasBound = true;
        CWndAccess::Bind(*object, handle, window.procedure);
    }
    if (!SendCreation(handle, create))
    {
        DestroyWindow(handle);
        return nullptr;
    }
    if ((create.style & WS_VISIBLE) != 0)
    {
        ShowWindow(handle, (create.style & WS_MAXIMIZE) != 0 ? SW_SHOWMAXIMIZED : SW_SHOW);
    }
    return IsWindow(handle) != FALSE ? handle : nullptr;
}

} // namespace Ostrel::Platform

ATOM RegisterClass(WNDCLASS const* windowClass)
{
    if (windowClass == nullptr || windowClass->lpszClassName == nullptr || *windowClass->lpszClassName == '\0' ||
        windowClass->lpfnWndProc == nullptr)
    {
        return 0;
    }
    auto entry = std::make_shared<WindowClass>(WindowClass{windowClass->lpszClassName, *windowClass});
    entry->description.lpszClassName = entry->name.c_str();
    ClassTable& table = Classes();
    MutexLock const lock(table.lock);
    bool const isNew = table.classes.emplace(entry->name, entry).second;
    return isNew ? ++table.lastAtom : ATOM{0};
}

BOOL UnregisterClass(LPCTSTR className, HINSTANCE /*instance*/)
{
    ClassTable& table = Classes();
    MutexLock const lock(table.lock);
    return className != nullptr && table.classes.erase(className) != 0;
}

BOOL GetClassInfo(HINSTANCE /*instance*/, LPCTSTR className, WNDCLASS* windowClass)
{
    std::shared_ptr<WindowClass const> const found = FindClass(className);
    if (found != nullptr && windowClass != nullptr)
    {
        *windowClass = found->description;
    }
    return found != nullptr;
}

int GetClassName(HWND handle, LPSTR buffer, int capacity)
{
    Window const* const window = FindWindowRecord(handle);
    return Copied(window != nullptr ? window->windowClass->name : std::string(), buffer, capacity);
}

HWND CreateWindowEx(DWORD exStyle, LPCTSTR className, LPCTSTR windowName, DWORD style, int x, int y, int width,
                    int height, HWND parent, UINT_PTR menuOrId, HINSTANCE instance, void* createParams)
{
    CREATESTRUCT create{createParams, instance,   menuOrId,  parent, height, width, y, x,
                        style,        windowName, className, exStyle};
    bool wasBound = false;
    return MakeWindow(create, nullptr, wasBound);
}

BOOL DestroyWindow(HWND handle)
{
    Window* window = FindWindowRecord(handle);
    if (window == nullptr || window->isDestroying)
    {
        return FALSE;
    }
    window->isDestroying = true;
    ThreadState& state = ThreadState::Get();
    state.input.WindowGoesAway(handle);
    DestroyOwned(handle);
    window = state.Find(handle);
    if (window != nullptr && window->HasStyle(WS_VISIBLE))
    {
        ShowWindow(handle, SW_HIDE);
    }
    DestroyTree(handle);
    return TRUE;
}

BOOL IsWindow(HWND handle)
{
    return QueueOf(handle) != nullptr;
}

DWORD GetWindowThreadProcessId(HWND handle, DWORD* processId)
{
    MessageQueue const* const queue = QueueOf(handle);
    if (processId != nullptr)
    {
        *processId = queue != nullptr ? GetCurrentProcessId() : 0;
    }
    return queue != nullptr ? queue->ThreadId() : 0;
}

DWORD GetCurrentProcessId()
{
    return static_cast<DWORD>(getpid());
}
