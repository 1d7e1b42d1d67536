// A window that writes down the input it gets.
#pragma once

#include <functional>
#include <string>

#include <ostrel/platform/window/FrameWnd.h>
#include <ostrel/platform/window/MessageLoop.h>
#include <ostrel/testing/Driver.h>

namespace Ostrel::Testing
{

class Probe final : public CFrameWnd
{
public:
    explicit Probe(Driver& driver, char const* title = "Probe")
    {
        WNDCLASS windowClass;
        windowClass.style = CS_DBLCLKS;
        windowClass.lpfnWndProc = ::DefWindowProc;
        windowClass.lpszClassName = "DriverTest.Probe";
        RegisterClass(&windowClass);
        SetAutoDelete(false);
        Create(windowClass.lpszClassName, title, WS_OVERLAPPEDWINDOW, CRect(50, 50, 250, 150));
        ShowWindow(SW_SHOW);
        driver.RunUntilIdle();
        log.clear();
    }

    std::string TakeLog() { return std::exchange(log, {}); }
    void Note(std::string const& line) { log += log.empty() ? line : " " + line; }

    /// Opens a modal loop, which Escape ends.
    void WaitForEscape()
    {
        m_hasEscape = false;
        Note("wait");
        Platform::RunModalLoop([this] { return m_hasEscape; });
        Note("go");
    }

    std::string log;
    std::function<void()> onPress;
    std::function<void(UINT_PTR timerId)> onTimer;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        switch (message)
        {
        case WM_LBUTTONDOWN:
            NoteMouse("down", wParam, lParam);
            if (onPress)
            {
                onPress();
            }
            return 0;
        case WM_LBUTTONUP:
            NoteMouse("up", 0, lParam);
            return 0;
        case WM_LBUTTONDBLCLK:
            NoteMouse("double", wParam, lParam);
            return 0;
        case WM_RBUTTONDOWN:
            NoteMouse("right", wParam, lParam);
            return 0;
        case WM_MOUSEWHEEL:
            Note("wheel" + std::to_string(GET_WHEEL_DELTA_WPARAM(wParam)));
            return 0;
        case WM_KEYDOWN:
            m_hasEscape = m_hasEscape || wParam == VK_ESCAPE;
            Note("key" + std::to_string(wParam));
            return 0;
        case WM_CHAR:
            Note(std::string("'") + static_cast<char>(wParam) + "'");
            return 0;
        case WM_SIZE:
            Note("size" + std::to_string(LOWORD(lParam)) + "x" + std::to_string(HIWORD(lParam)));
            break;
        case WM_TIMER:
            onTimer(wParam);
            return 0;
        default:
            break;
        }
        return CFrameWnd::WindowProc(message, wParam, lParam);
    }

private:
    void NoteMouse(char const* what, WPARAM keys, LPARAM lParam)
    {
        std::string const modifiers =
            std::string((keys & MK_CONTROL) != 0 ? "^" : "") + ((keys & MK_SHIFT) != 0 ? "+" : "");
        CPoint const point(lParam);
        Note(modifiers + what + std::to_string(point.x) + "," + std::to_string(point.y));
    }

    bool m_hasEscape = false;
};

} // namespace Ostrel::Testing
