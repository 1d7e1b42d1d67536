// A top-level or pop-up window on an X server.
#pragma once

#include <ostrel/platform/display/x11/X11Buffer.h>
#include <ostrel/platform/window/Display.h>

namespace Ostrel::Platform::X11
{

class XDisplay;

class XWindow final : public NativeWindow
{
public:
    XWindow(XDisplay& display, NativeWindowOptions const& options);
    ~XWindow() override;

    [[nodiscard]] xcb_window_t Id() const noexcept { return m_id; }

    [[nodiscard]] CRect Bounds() const override { return m_bounds; }
    void SetBounds(CRect const& screenBounds) override;
    void SetTitle(std::string_view title) override;
    void Show(bool activate) override;
    void Hide() override;
    void Minimize() override;
    void Maximize() override;
    void Restore() override;
    void Raise() override;
    void Lower() override;
    void Focus() override;
    void SetCursor(CursorShape shape) override;
    void CapturePointer(InputStamp stamp) override;
    void ReleasePointer() override;
    [[nodiscard]] bool IsBufferFree() const override { return !m_buffer.IsInFlight(); }
    Surface& BackBuffer() override;
    void Present(std::span<CRect const> dirty) override;

    // What the server reported about the window.
    void OnMapped();
    void OnUnmapped() noexcept { m_isViewable = false; }
    /// True when the bounds changed.
    bool OnConfigured(CRect const& screenBounds) noexcept;
    bool OnCompletion(std::uint32_t segment) noexcept { return m_buffer.OnCompletion(segment); }
    [[nodiscard]] bool AcceptsFocus() const noexcept { return m_acceptsFocus; }
    [[nodiscard]] bool IsPopup() const noexcept { return m_isPopup; }

private:
    void SetHints(NativeWindowOptions const& options);
    void SetSizeHints(bool usesDefaultPosition);
    void SetAtoms(xcb_atom_t property, std::span<xcb_atom_t const> atoms);
    void ChangeMaximized(bool maximized);
    void TellWindowManager(xcb_atom_t message, std::span<std::uint32_t const> data);

    XDisplay& m_display;
    Connection& m_connection;
    xcb_window_t m_id;
    xcb_gcontext_t m_context;
    Buffer m_buffer;
    CRect m_bounds;
    bool m_isPopup;
    bool m_acceptsFocus;
    bool m_isResizable;
    bool m_isViewable = false;
    bool m_wantsFocus = false;
    CursorShape m_cursor = CursorShape::Arrow;
};

} // namespace Ostrel::Platform::X11
