// What hangs on a window: longs, text, properties; and the process-wide names of messages and formats.
#include <algorithm>
#include <cstring>
#include <functional>

#include <ostrel/platform/window/detail/ThreadState.h>

using namespace Ostrel::Platform;

namespace
{

/// Names with numbers of their own from 0xC000, never given back.
class NameTable
{
public:
    UINT NumberOf(LPCTSTR name)
    {
        if (name == nullptr || *name == '\0')
        {
            return 0;
        }
        MutexLock const lock(m_lock);
        auto const [found, isNew] = m_numbers.emplace(name, m_next);
        m_next += isNew ? 1 : 0;
        return found->second;
    }

    void Put(std::string_view name, UINT number)
    {
        MutexLock const lock(m_lock);
        m_numbers[std::string(name)] = number;
    }

    std::string NameOf(UINT number) const
    {
        MutexLock const lock(m_lock);
        auto const found = std::find_if(m_numbers.begin(), m_numbers.end(),
                                        [number](auto const& entry) { return entry.second == number; });
        return found != m_numbers.end() ? found->first : std::string();
    }

private:
    mutable Mutex m_lock;
    std::map<std::string, UINT, std::less<>> m_numbers OSTREL_GUARDED_BY(m_lock);
    UINT m_next OSTREL_GUARDED_BY(m_lock) = 0xC000;
};

// Never destroyed: names are asked for around static destruction.
NameTable& MessageNames()
{
    static NameTable& names = *new NameTable;
    return names;
}

NameTable& FormatNames()
{
    static NameTable& names = *new NameTable;
    return names;
}

LONG_PTR Exchange(LONG_PTR& value, LONG_PTR next) noexcept
{
    return std::exchange(value, next);
}

LONG_PTR ExchangeStyle(DWORD& style, LONG_PTR next) noexcept
{
    return static_cast<LONG_PTR>(std::exchange(style, static_cast<DWORD>(next)));
}

} // namespace

LONG_PTR GetWindowLongPtr(HWND handle, int which)
{
    Window const* const window = FindWindowRecord(handle);
    if (window == nullptr)
    {
        return 0;
    }
    switch (which)
    {
    case GWLP_WNDPROC:
        return reinterpret_cast<LONG_PTR>(window->procedure);
    case GWLP_ID:
        return window->id;
    case GWL_STYLE:
        return static_cast<LONG_PTR>(window->style);
    case GWL_EXSTYLE:
        return static_cast<LONG_PTR>(window->exStyle);
    case GWLP_USERDATA:
        return window->userData;
    case GWLP_HWNDPARENT:
        return reinterpret_cast<LONG_PTR>(GetParent(handle));
    default:
        return 0;
    }
}

LONG_PTR SetWindowLongPtr(HWND handle, int which, LONG_PTR value)
{
    Window* const window = FindWindowRecord(handle);
    if (window == nullptr)
    {
        return 0;
    }
    switch (which)
    {
    case GWLP_WNDPROC: {
        auto const procedure = reinterpret_cast<WNDPROC>(value);
        return reinterpret_cast<LONG_PTR>(procedure != nullptr ? std::exchange(window->procedure, procedure) : nullptr);
    }
    case GWLP_ID:
        return Exchange(window->id, value);
    case GWL_STYLE:
        return ExchangeStyle(window->style, value);
    case GWL_EXSTYLE:
        return ExchangeStyle(window->exStyle, value);
    case GWLP_USERDATA:
        return Exchange(window->userData, value);
    case GWLP_HWNDPARENT:
        return window->parent != nullptr ? reinterpret_cast<LONG_PTR>(SetParent(handle, reinterpret_cast<HWND>(value)))
                                         : reinterpret_cast<LONG_PTR>(std::exchange(
                                               window->owner, GetTopLevel(reinterpret_cast<HWND>(value))));
    default:
        return 0;
    }
}

BOOL SetWindowText(HWND handle, LPCTSTR text)
{
    return SendMessage(handle, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text != nullptr ? text : "")) != 0;
}

int GetWindowText(HWND handle, LPSTR buffer, int capacity)
{
    if (buffer == nullptr || capacity <= 0)
    {
        return 0;
    }
    buffer[0] = '\0';
    return static_cast<int>(
        SendMessage(handle, WM_GETTEXT, static_cast<WPARAM>(capacity), reinterpret_cast<LPARAM>(buffer)));
}

int GetWindowTextLength(HWND handle)
{
    return static_cast<int>(SendMessage(handle, WM_GETTEXTLENGTH));
}

BOOL SetProp(HWND handle, LPCTSTR name, void* value)
{
    Window* const window = FindWindowRecord(handle);
    if (window == nullptr || name == nullptr)
    {
        return FALSE;
    }
    window->properties[name] = value;
    return TRUE;
}

void* GetProp(HWND handle, LPCTSTR name)
{
    Window const* const window = FindWindowRecord(handle);
    if (window == nullptr || name == nullptr)
    {
        return nullptr;
    }
    auto const found = window->properties.find(name);
    return found != window->properties.end() ? found->second : nullptr;
}

void* RemoveProp(HWND handle, LPCTSTR name)
{
    void* const value = GetProp(handle, name);
    if (Window* const window = FindWindowRecord(handle); window != nullptr && name != nullptr)
    {
        window->properties.erase(name);
    }
    return value;
}

UINT RegisterWindowMessage(LPCTSTR name)
{
    return MessageNames().NumberOf(name);
}

// A display that numbers formats for all its programs decides; the names stay known to the process either way.
UINT RegisterClipboardFormat(LPCTSTR name)
{
    ThreadState* const state = ThreadState::TryGet();
    Display* const display = state != nullptr ? state->DisplayOrNull() : nullptr;
    UINT const number = display != nullptr && name != nullptr ? display->RegisterFormat(name) : 0;
    if (number == 0)
    {
        return FormatNames().NumberOf(name);
    }
    FormatNames().Put(name, number);
    return number;
}

int GetClipboardFormatName(UINT format, LPSTR buffer, int capacity)
{
    std::string const name = FormatNames().NameOf(format);
    if (buffer == nullptr || capacity <= 0 || name.empty())
    {
        return 0;
    }
    std::size_t const length = std::min(name.size(), static_cast<std::size_t>(capacity) - 1);
    std::memcpy(buffer, name.data(), length);
    buffer[length] = '\0';
    return static_cast<int>(length);
}
