// A window as its thread keeps it. Records live in the ThreadState of their thread and are found by handle; a pointer
// to one is good only until the next call that can run a window procedure: look the handle up again after it.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include <ostrel/platform/drawing/Region.h>
#include <ostrel/platform/window/Display.h>
#include <ostrel/platform/window/WindowApi.h>

class CWnd;

namespace Ostrel::Platform
{

/// A registered class; lives as long as a window of it.
struct WindowClass
{
    std::string name;
    WNDCLASS description;
};

/// One scroll bar of a window.
struct ScrollBar
{
    int minimum = 0;
    int maximum = 100;
    UINT page = 0;
    int position = 0;
    bool wasUsed = false;    ///< the window has or had the bar
    bool isDisabled = false; ///< by EnableScrollBar
    bool isGreyed = false;   ///< nothing to scroll, kept by SIF_DISABLENOSCROLL
};

struct Window
{
    HWND handle = nullptr;
    std::shared_ptr<WindowClass const> windowClass;
    WNDPROC procedure = nullptr;
    DWORD style = 0;
    DWORD exStyle = 0;
    LONG_PTR id = 0;
    LONG_PTR userData = 0;
    std::string text;
    HFONT font = nullptr;
    std::map<std::string, void*, std::less<>> properties;

    Window* parent = nullptr;      ///< of a child
    HWND owner = nullptr;          ///< of a top-level window
    std::vector<Window*> children; ///< from the lowest to the topmost
    CRect bounds{};                ///< in the parent's client area; of a top-level window on the screen
    CRect client{};                ///< in the window, (0,0) its top left corner
    ScrollBar bars[2];             ///< SB_HORZ, SB_VERT

    Region update; ///< client coordinates
    bool eraseNeeded = false;
    bool frameNeeded = false; ///< WM_NCPAINT is due
    bool isInDirtyList = false;
    bool isRedrawOff = false;

    bool isDestroying = false;
    bool isMinimized = false;
    bool isMaximized = false;

    CWnd* object = nullptr; ///< the permanent CWnd

    // top-level windows only
    std::unique_ptr<NativeWindow> native; ///< made when first shown
    Region toPresent;                     ///< drawn since the last Present, in the native window
    bool usesDefaultPosition = false;     ///< CW_USEDEFAULT
    HWND lastFocus = nullptr;             ///< who had the focus when the window was last active

    [[nodiscard]] bool IsChild() const noexcept { return (style & WS_CHILD) != 0; }
    [[nodiscard]] bool HasStyle(DWORD flag) const noexcept { return (style & flag) != 0; }
    [[nodiscard]] CRect ClientRect() const noexcept { return {0, 0, client.Width(), client.Height()}; }
    [[nodiscard]] CRect WindowRect() const noexcept { return {0, 0, bounds.Width(), bounds.Height()}; }
};

} // namespace Ostrel::Platform
