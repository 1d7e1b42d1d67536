// What the tests of windows share: a headless display with a clock that stands, and windows that write down what
// happens to them.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <ostrel/platform/base/Clock.h>
#include <ostrel/platform/display/headless/HeadlessDisplay.h>
#include <ostrel/platform/drawing/DeviceContext.h>
#include <ostrel/platform/window/MessageLoop.h>
#include <ostrel/platform/window/PaintDC.h>
#include <ostrel/platform/window/Wnd.h>

namespace Ostrel::Platform
{

/// Hands each message to a function first; its result counts when it says so.
class HookedWnd : public CWnd
{
public:
    using Hook = std::function<bool(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result)>;

    ~HookedWnd() override { DestroyWindow(); }

    void MakeTopLevel(CRect const& rect, DWORD style = WS_OVERLAPPEDWINDOW | WS_VISIBLE)
    {
        ASSERT_TRUE(CreateEx(0, nullptr, "top", style, rect, nullptr, 0));
    }
    void MakeChild(CWnd& parent, CRect const& rect, UINT id = 0, DWORD style = WS_CHILD | WS_VISIBLE)
    {
        ASSERT_TRUE(CreateEx(0, nullptr, "", style, rect, &parent, id));
    }

    /// Calls the function with each message of that number, which the window then handles as it would.
    void On(UINT wanted, std::function<void(WPARAM wParam, LPARAM lParam)> action)
    {
        hook = [wanted, action = std::move(action)](UINT message, WPARAM wParam, LPARAM lParam, LRESULT&)
        {
            if (message == wanted)
            {
                action(wParam, lParam);
            }
            return false;
        };
    }

    Hook hook;
    COLORREF color = RGB(255, 255, 255); ///< painted all over
    int paintCount = 0;
    CRect lastPaint{}; ///< what the last WM_PAINT had to paint

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        LRESULT result = 0;
        if (hook && hook(message, wParam, lParam, result))
        {
            return result;
        }
        if (message == WM_PAINT)
        {
            Paint();
            return 0;
        }
        return CWnd::WindowProc(message, wParam, lParam);
    }

private:
    void Paint()
    {
        HWND const handle = m_hWnd;
        CPaintDC dc(this);
        if (!::IsWindow(handle)) // erasing or painting the frame ended it, and perhaps this object
        {
            return;
        }
        CRect client;
        GetClientRect(&client);
        dc.FillSolidRect(client, color);
        lastPaint = dc.m_ps.rcPaint;
        ++paintCount;
    }
};

/// The names of messages that a window gets, those that nobody asked for left out.
class MessageLog
{
public:
    MessageLog(HookedWnd& window, std::string prefix, std::vector<std::pair<UINT, std::string>> names,
               std::string& text)
        : m_window(window), m_names(std::move(names)), m_prefix(std::move(prefix)), m_text(text)
    {
        window.hook = [this](UINT message, WPARAM, LPARAM, LRESULT&) { return Note(message), false; };
    }
    MessageLog(MessageLog const&) = delete;
    MessageLog& operator=(MessageLog const&) = delete;
    ~MessageLog() { m_window.hook = nullptr; }

private:
    void Note(UINT message)
    {
        for (auto const& [number, name] : m_names)
        {
            if (number == message)
            {
                m_text += (m_text.empty() ? "" : " ") + m_prefix + name;
            }
        }
    }

    HookedWnd& m_window;
    std::vector<std::pair<UINT, std::string>> m_names;
    std::string m_prefix;
    std::string& m_text;
};

class WindowTest : public testing::Test
{
protected:
    WindowTest()
    {
        Clock::SetManual();
        SetThreadDisplay(std::make_unique<HeadlessDisplay>(CSize(800, 600)));
    }
    ~WindowTest() override
    {
        ProcessPending();
        Clock::SetRunning();
    }

    HeadlessDisplay& Screen() { return HeadlessDisplay::OfThread(); }

    void MoveTo(CPoint screenPoint)
    {
        Screen().MovePointer(screenPoint);
        ProcessPending();
    }
    void Press(CPoint screenPoint, MouseButton button = MouseButton::Left)
    {
        Screen().MovePointer(screenPoint);
        Screen().Press(button);
        ProcessPending();
    }
    void Release(MouseButton button = MouseButton::Left)
    {
        Screen().Release(button);
        ProcessPending();
    }
    void Click(CPoint screenPoint, MouseButton button = MouseButton::Left)
    {
        Press(screenPoint, button);
        Release(button);
    }
};

} // namespace Ostrel::Platform
