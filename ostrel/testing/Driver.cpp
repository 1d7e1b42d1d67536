#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <utility>

#include <ostrel/gui/grid/Preferences.h>
#include <ostrel/platform/base/Clock.h>
#include <ostrel/platform/drawing/SystemLook.h>
#include <ostrel/platform/window/MessageLoop.h>
#include <ostrel/testing/Driver.h>
#include <ostrel/testing/detail/Alarm.h>
#include <ostrel/testing/detail/Pump.h>

namespace Ostrel::Testing
{

using Platform::Clock;
using Platform::HeadlessWindow;

namespace
{

/// Sets a value for a scope.
class Raised
{
public:
    explicit Raised(bool& flag) noexcept : m_flag(flag), m_before(std::exchange(flag, true)) {}
    Raised(Raised const&) = delete;
    Raised& operator=(Raised const&) = delete;
    ~Raised() { m_flag = m_before; }

private:
    bool& m_flag;
    bool m_before;
};

class Deeper
{
public:
    explicit Deeper(int& depth) noexcept : m_depth(depth) { ++m_depth; }
    Deeper(Deeper const&) = delete;
    Deeper& operator=(Deeper const&) = delete;
    ~Deeper() { --m_depth; }

private:
    int& m_depth;
};

Platform::HeadlessDisplay* UseHeadlessDisplay(CSize screen)
{
    auto display = std::make_unique<Platform::HeadlessDisplay>(screen);
    Platform::HeadlessDisplay* const raw = display.get();
    Platform::SetThreadDisplay(std::move(display));
    return raw;
}

// The window layer hangs a window's handle on its native window.
HWND HandleOf(HeadlessWindow const& window)
{
    return static_cast<HWND>(window.Tag());
}

std::string Joined(std::vector<std::string> const& texts)
{
    std::string joined;
    for (std::string const& text : texts)
    {
        joined += joined.empty() ? text : ", " + text;
    }
    return joined;
}

} // namespace

/// The fonts of the options while the driver lives.
class Driver::FontPin
{
public:
    explicit FontPin(Options const& options)
    {
        if (options.font.has_value())
        {
            m_fontBefore = GUI::CPreferences::GetFont();
            m_font.CreateFontIndirect(&*options.font);
            GUI::CPreferences::SetFont(&m_font);
        }
        if (!options.fontConfiguration.empty())
        {
            char const* const before = std::getenv(kVariable);
            m_configurationBefore = before != nullptr ? std::optional<std::string>(before) : std::nullopt;
            m_hasConfiguration = setenv(kVariable, options.fontConfiguration.c_str(), 1) == 0;
        }
    }
    FontPin(FontPin const&) = delete;
    FontPin& operator=(FontPin const&) = delete;
    ~FontPin()
    {
        if (m_font.GetSafeHandle() != nullptr)
        {
            GUI::CPreferences::SetFont(m_fontBefore);
        }
        if (m_hasConfiguration && m_configurationBefore.has_value())
        {
            setenv(kVariable, m_configurationBefore->c_str(), 1);
        }
        else if (m_hasConfiguration)
        {
            unsetenv(kVariable);
        }
    }

private:
    static constexpr char const* kVariable = "FONTCONFIG_FILE";

    CFont m_font;
    CFont* m_fontBefore = nullptr;
    std::optional<std::string> m_configurationBefore;
    bool m_hasConfiguration = false;
};

Driver::Driver(Options options)
    : m_options(std::move(options)),
      m_display(UseHeadlessDisplay(m_options.screen)),
      m_fontPin(std::make_unique<FontPin>(m_options))
{
    if (m_options.time == Time::Manual)
    {
        Clock::SetManual();
    }
    m_hookBefore = Platform::SetIdleHook([this] { return OnIdle(); });
}

Driver::~Driver()
{
    m_modalSteps.clear();
    m_steps.clear();
    while (!m_display->Windows().empty() && DestroyWindow(HandleOf(*m_display->Windows().back())))
    {}
    try
    {
        HandlePending();
    }
    catch (...)
    {
        std::fputs("ostrel: a handler has thrown while its test ended\n", stderr);
    }
    Platform::SetIdleHook(std::move(m_hookBefore));
    Platform::SetThreadDisplay(nullptr);
    Clock::SetRunning();
}

// ---- mouse

void Driver::MovePointer(CPoint screenPoint)
{
    Perform({[=, this] { m_display->MovePointer(screenPoint); }});
}

void Driver::Click(CPoint screenPoint, Modifier modifiers, MouseButton button)
{
    AvoidDoubleClick(screenPoint, button);
    Perform(
        WithModifiers(modifiers, {[=, this] { m_display->MovePointer(screenPoint); },
                                  [=, this] { m_display->Press(button); }, [=, this] { m_display->Release(button); }}));
    NotePress(screenPoint, button);
}

void Driver::DoubleClick(CPoint screenPoint, Modifier modifiers, MouseButton button)
{
    AvoidDoubleClick(screenPoint, button);
    Perform(
        WithModifiers(modifiers, {[=, this] { m_display->MovePointer(screenPoint); },
                                  [=, this] { m_display->Press(button); }, [=, this] { m_display->Release(button); },
                                  [=, this] { m_display->Press(button); }, [=, this] { m_display->Release(button); }}));
    NotePress(screenPoint, button);
}

void Driver::Press(CPoint screenPoint, MouseButton button)
{
    AvoidDoubleClick(screenPoint, button);
    Perform({[=, this] { m_display->MovePointer(screenPoint); }, [=, this] { m_display->Press(button); }});
    NotePress(screenPoint, button);
}

void Driver::Release(MouseButton button)
{
    Perform({[=, this] { m_display->Release(button); }});
}

void Driver::Drag(CPoint from, CPoint to, Modifier modifiers, DragEnd end, MouseButton button)
{
    constexpr int kMoves = 8;
    AvoidDoubleClick(from, button);
    std::vector<Step> steps{[=, this] { m_display->MovePointer(from); }, [=, this] { m_display->Press(button); }};
    for (int move = 1; move <= kMoves; ++move)
    {
        CPoint const point(from.x + (to.x - from.x) * move / kMoves, from.y + (to.y - from.y) * move / kMoves);
        steps.emplace_back([=, this] { m_display->MovePointer(point); });
    }
    if (end == DragEnd::Escape)
    {
        steps.emplace_back([this] { m_display->PressKey(Key::Escape); });
    }
    steps.emplace_back([=, this] { m_display->Release(button); });
    Perform(WithModifiers(modifiers, std::move(steps)));
    NotePress(from, button);
}

void Driver::Wheel(int notches, Modifier modifiers)
{
    Perform(WithModifiers(modifiers, {[=, this] { m_display->Wheel(notches * WHEEL_DELTA); }}));
}

void Driver::WheelRight(int notches)
{
    Perform({[=, this] { m_display->Wheel(notches * WHEEL_DELTA, true); }});
}

void Driver::Hover(CPoint screenPoint, int restMs)
{
    MovePointer(screenPoint);
    Advance(restMs);
}

void Driver::NotePress(CPoint screenPoint, MouseButton button)
{
    m_lastPress = LastPress{screenPoint, button, Clock::Milliseconds()};
}

void Driver::AvoidDoubleClick(CPoint screenPoint, MouseButton button)
{
    if (!m_lastPress.has_value() || m_lastPress->button != button ||
        std::abs(m_lastPress->screenPoint.x - screenPoint.x) > GetSystemMetrics(SM_CXDOUBLECLK) ||
        std::abs(m_lastPress->screenPoint.y - screenPoint.y) > GetSystemMetrics(SM_CYDOUBLECLK))
    {
        return;
    }
    std::int64_t const end = m_lastPress->timeMs + GetDoubleClickTime() + 1;
    PassTime([] { return false; }, static_cast<int>(std::max<std::int64_t>(0, end - Clock::Milliseconds())));
}

std::vector<Driver::Step> Driver::WithModifiers(Modifier modifiers, std::vector<Step> steps)
{
    struct Held
    {
        Modifier modifier;
        UINT key;
    };
    static constexpr Held kModifiers[] = {
        {Modifier::Ctrl, VK_CONTROL}, {Modifier::Shift, VK_SHIFT}, {Modifier::Alt, VK_MENU}};
    for (Held const& held : kModifiers)
    {
        if (Contains(modifiers, held.modifier))
        {
            steps.insert(steps.begin(), [this, key = held.key] { m_display->KeyDown(key); });
            steps.emplace_back([this, key = held.key] { m_display->KeyUp(key); });
        }
    }
    return steps;
}

// ---- keyboard

void Driver::PressKey(UINT key, Modifier modifiers)
{
    Perform(WithModifiers(modifiers, {[=, this] { m_display->KeyDown(key); }, [=, this] { m_display->KeyUp(key); }}));
}

void Driver::KeyDown(UINT key)
{
    Perform({[=, this] { m_display->KeyDown(key); }});
}

void Driver::KeyUp(UINT key)
{
    Perform({[=, this] { m_display->KeyUp(key); }});
}

void Driver::TypeText(std::string_view text)
{
    Perform({[this, text = std::string(text)] { m_display->TypeText(text); }});
}

// ---- windows

std::vector<std::string> Driver::Titles() const
{
    std::vector<std::string> titles;
    for (HeadlessWindow const* const window : m_display->Windows())
    {
        if (window->IsVisible())
        {
            titles.insert(titles.begin(), window->Title());
        }
    }
    return titles;
}

HeadlessWindow* Driver::FindWindow(std::string_view title) const noexcept
{
    auto const& windows = m_display->Windows();
    auto const found =
        std::find_if(windows.rbegin(), windows.rend(),
                     [&](HeadlessWindow const* window) { return window->IsVisible() && window->Title() == title; });
    return found != windows.rend() ? *found : nullptr;
}

bool Driver::HasWindow(std::string_view title) const
{
    return FindWindow(title) != nullptr;
}

CWnd& Driver::Window(std::string_view title) const
{
    HeadlessWindow const* const window = FindWindow(title);
    CWnd* const object = window != nullptr ? CWnd::FromHandle(HandleOf(*window)) : nullptr;
    if (object == nullptr)
    {
        throw DriverError("no window \"" + std::string(title) + "\"; there are: " + Joined(Titles()));
    }
    return *object;
}

HeadlessWindow& Driver::NativeOf(CWnd const& window) const
{
    Platform::NativeWindow const* const native = Platform::NativeWindowOf(window.GetSafeHwnd());
    auto const& windows = m_display->Windows();
    auto const found = std::find(windows.begin(), windows.end(), native);
    if (found == windows.end())
    {
        throw DriverError("the window is not on the screen of this driver");
    }
    return **found;
}

void Driver::RequestClose(CWnd const& window)
{
    HeadlessWindow& native = NativeOf(window);
    Perform({[&] { m_display->RequestClose(native); }});
}

void Driver::Resize(CWnd const& window, CSize size)
{
    HeadlessWindow& native = NativeOf(window);
    Perform({[&] { m_display->ResizeByUser(native, CRect(native.Bounds().TopLeft(), size)); }});
}

void Driver::LeaveProgram()
{
    Perform({[this] { m_display->LeaveProgram(); }});
}

void Driver::ReturnToProgram()
{
    Perform({[this] { m_display->ReturnToProgram(); }});
}

CPoint Driver::OnScreen(CWnd const& window, CPoint clientPoint)
{
    if (!IsWindow(window.GetSafeHwnd()))
    {
        throw DriverError("the window does not exist");
    }
    window.ClientToScreen(&clientPoint);
    return clientPoint;
}

// ---- time and messages

void Driver::Advance(int milliseconds)
{
    PassTime([] { return false; }, milliseconds);
}

void Driver::RunUntilIdle()
{
    HandlePending();
}

bool Driver::RunUntil(std::function<bool()> const& predicate, int limitMs)
{
    PassTime(predicate, limitMs);
    return predicate();
}

// A manual clock is turned by single milliseconds: so each timer finds the clock exactly at its moment, whatever timers
// the handlers before it have set.
void Driver::PassTime(std::function<bool()> const& isEnough, int limitMs)
{
    HandlePending();
    if (Clock::IsManual())
    {
        for (int passed = 0; passed < limitMs && !isEnough(); ++passed)
        {
            Clock::Advance(1);
            HandlePending();
        }
        return;
    }
    constexpr UINT kLookEveryMs = 10;
    std::int64_t const end = Clock::Milliseconds() + limitMs;
    UINT_PTR const timer = SetTimer(nullptr, 0, kLookEveryMs);
    while (Clock::Milliseconds() < end && !isEnough())
    {
        WaitForMessage();
        HandlePending();
    }
    KillTimer(nullptr, timer);
}

void Driver::WaitForMessage()
{
    Raised const waiting(m_isWaiting);
    WaitMessage();
}

void Driver::Perform(std::vector<Step> steps)
{
    std::size_t const others = m_steps.size();
    m_steps.insert(m_steps.begin(), std::make_move_iterator(steps.begin()), std::make_move_iterator(steps.end()));
    try
    {
        while (m_steps.size() > others)
        {
            RunNextStep();
            HandlePending();
        }
    }
    catch (...)
    {
        m_steps.clear();
        throw;
    }
}

void Driver::RunNextStep()
{
    Step const step = std::move(m_steps.front());
    m_steps.pop_front();
    step();
}

void Driver::HandlePending()
{
    if (std::optional<int> const quitCode = Detail::HandleWhatIsThere(); quitCode.has_value())
    {
        m_quitCode = quitCode;
        if (m_idleDepth > 0)
        {
            PostQuitMessage(*quitCode); // for the loop that is waiting
        }
    }
    m_alarm.reset();
}

// Called before a loop blocks. True: something was done, look again.
bool Driver::OnIdle()
{
    if (m_isWaiting)
    {
        return m_hookBefore != nullptr && m_hookBefore();
    }
    Deeper const deeper(m_idleDepth);
    if (!m_steps.empty() || !m_modalSteps.empty())
    {
        m_alarm.reset();
        if (m_steps.empty())
        {
            m_steps.push_back(std::move(m_modalSteps.front()));
            m_modalSteps.pop_front();
        }
        RunNextStep();
        PostThreadMessage(GetCurrentThreadId(), WM_NULL, 0, 0); // a modal loop asks for its end after a message only
        return true;
    }
    if (m_hookBefore != nullptr && m_hookBefore())
    {
        return true;
    }
    if (m_alarm == nullptr)
    {
        m_alarm = std::make_unique<Detail::Alarm>(std::chrono::milliseconds(m_options.stuckLimitMs));
    }
    else if (m_alarm->HasRung())
    {
        m_alarm.reset();
        throw DriverError("the program waits in a modal loop, and no step is left that could end it");
    }
    return false;
}

// ---- what is to be seen

COLORREF Driver::ColorAt(CPoint screenPoint)
{
    HandlePending();
    return m_display->ColorAt(screenPoint);
}

Platform::Surface Driver::Picture()
{
    HandlePending();
    return m_display->Screenshot();
}

Platform::Surface Driver::Picture(CWnd const& window)
{
    Platform::Surface const screen = Picture();
    CRect client;
    window.GetClientRect(&client);
    Platform::Surface picture(client.Width(), client.Height());
    picture.CopyFrom(screen, CRect(OnScreen(window, {0, 0}), client.Size()), {0, 0});
    return picture;
}

void Driver::SavePng(std::string const& path)
{
    if (!Picture().SavePng(path))
    {
        throw DriverError("cannot write " + path);
    }
}

void Driver::SavePng(CWnd const& window, std::string const& path)
{
    if (!Picture(window).SavePng(path))
    {
        throw DriverError("cannot write " + path);
    }
}

CursorShape Driver::Cursor()
{
    HandlePending();
    return m_display->Cursor();
}

// ---- clipboard

std::string Driver::ClipboardText() const
{
    return m_display->ClipboardText().value_or("");
}

void Driver::SetClipboardText(std::string_view text)
{
    m_display->SetClipboardText(text, {});
}

} // namespace Ostrel::Testing
