/// @file
/// Device contexts on windows. Each lives on the stack for the length of one drawing; what it drew is shown when the
/// thread's loop presents.
#pragma once

#include <ostrel/platform/drawing/DeviceContext.h>
#include <ostrel/platform/window/WindowApi.h>

class CWnd;

/// What BeginPaint found.
struct PAINTSTRUCT
{
    CDC* dc = nullptr;   ///< what to draw on
    BOOL fErase = FALSE; ///< WM_ERASEBKGND did not erase
    CRect rcPaint{};     ///< bounds of what has to be painted, in client coordinates
};

/// Draws on the client area outside WM_PAINT.
class OSTREL_PLATFORM_API CClientDC : public CDC
{
public:
    ///@{
    /// A null or dead window gives a context that draws nothing.
    explicit CClientDC(CWnd const* window);
    explicit CClientDC(HWND window);
    ///@}
    ~CClientDC() override;

private:
    HWND m_window;
};

/// Draws on the whole window, its border and scroll bars included, outside WM_PAINT.
class OSTREL_PLATFORM_API CWindowDC : public CDC
{
public:
    ///@{
    /// A null or dead window gives a context that draws nothing.
    explicit CWindowDC(CWnd const* window);
    explicit CWindowDC(HWND window);
    ///@}
    ~CWindowDC() override;

private:
    HWND m_window;
};

/// Inside WM_PAINT: draws on what is invalid only and makes it valid. The background has been erased when it was asked
/// for.
class OSTREL_PLATFORM_API CPaintDC : public CDC
{
public:
    ///@{
    /// Begins the painting, which ends with the object. A null or dead window gives a context that draws nothing.
    explicit CPaintDC(CWnd* window);
    explicit CPaintDC(HWND window);
    ///@}
    ~CPaintDC() override;

    PAINTSTRUCT m_ps; ///< what is to be painted

private:
    HWND m_window;
};
