#include <algorithm>

#include <ostrel/platform/display/headless/HeadlessDisplay.h>

namespace Ostrel::Platform
{

HeadlessWindow::HeadlessWindow(HeadlessDisplay& display, NativeWindowOptions const& options)
    : m_display(display),
      m_options(options),
      m_bounds(options.bounds),
      m_copiesPresented(display.m_shows == HeadlessDisplay::Shows::Presented)
{
    m_display.Add(*this);
}

HeadlessWindow::~HeadlessWindow()
{
    m_display.Remove(*this);
}

void HeadlessWindow::SetBounds(CRect const& screenBounds)
{
    m_bounds =
        CRect(screenBounds.TopLeft(), CSize(std::max(1, screenBounds.Width()), std::max(1, screenBounds.Height())));
    m_display.PutBounds(*this);
    m_display.UpdatePointerWindow();
}

void HeadlessWindow::Show(bool activate)
{
    m_isVisible = true;
    m_display.Restack(*this, true);
    if (activate)
    {
        Focus();
    }
    m_display.UpdatePointerWindow();
}

void HeadlessWindow::Hide()
{
    m_isVisible = false;
    if (m_display.m_focused == this)
    {
        m_display.FocusTopmost();
    }
    m_display.UpdatePointerWindow();
}

void HeadlessWindow::Minimize()
{
    Hide();
    m_display.PutEvent(*this, [this](DisplaySink& sink) { sink.OnMinimized(*this, true); });
}

void HeadlessWindow::Maximize()
{
    m_restoreBounds = m_bounds;
    SetBounds(m_display.WorkArea(m_bounds.TopLeft()));
}

void HeadlessWindow::Restore()
{
    if (!m_restoreBounds.IsRectEmpty())
    {
        SetBounds(m_restoreBounds);
        m_restoreBounds.SetRectEmpty();
    }
    Show(true);
    m_display.PutEvent(*this, [this](DisplaySink& sink) { sink.OnMinimized(*this, false); });
}

void HeadlessWindow::Raise()
{
    m_display.Restack(*this, true);
}

void HeadlessWindow::Lower()
{
    m_display.Restack(*this, false);
}

void HeadlessWindow::Focus()
{
    if (m_isVisible && m_options.acceptsFocus)
    {
        m_display.SetFocused(this);
    }
}

void HeadlessWindow::CapturePointer(InputStamp /*stamp*/)
{
    m_display.m_captured = this;
}

void HeadlessWindow::ReleasePointer()
{
    if (m_display.m_captured == this)
    {
        m_display.m_captured = nullptr;
        m_display.UpdatePointerWindow();
    }
}

Surface& HeadlessWindow::BackBuffer()
{
    if (m_back.Width() != m_bounds.Width() || m_back.Height() != m_bounds.Height())
    {
        m_back.Resize(m_bounds.Width(), m_bounds.Height());
    }
    return m_back;
}

void HeadlessWindow::Present(std::span<CRect const> dirty)
{
    for (CRect const& rect : dirty)
    {
        m_presentedPixels += std::int64_t{rect.Width()} * rect.Height();
    }
    ++m_presentCount;
    if (m_copiesPresented)
    {
        Copy(dirty);
    }
}

void HeadlessWindow::Copy(std::span<CRect const> dirty)
{
    Surface const& back = BackBuffer();
    if (m_front.Width() != back.Width() || m_front.Height() != back.Height())
    {
        m_front.Resize(back.Width(), back.Height());
    }
    for (CRect const& rect : dirty)
    {
        m_front.CopyFrom(back, rect, rect.TopLeft());
    }
}

} // namespace Ostrel::Platform
