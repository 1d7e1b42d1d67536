// The back buffer of one native window. On a local server it is a segment that the server reads by itself: presenting
// is one small request, and until the completion event arrives the segment is in flight and must not be drawn on. On
// any other server the rows are sent in strips.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include <ostrel/platform/base/Geometry.h>
#include <ostrel/platform/display/x11/X11Connection.h>
#include <ostrel/platform/drawing/Surface.h>

namespace Ostrel::Platform::X11
{

class Buffer
{
public:
    explicit Buffer(Connection& connection) : m_connection(connection) {}
    Buffer(Buffer const&) = delete;
    Buffer& operator=(Buffer const&) = delete;
    ~Buffer() { Release(); }

    /// Makes the buffer hold at least this size. Pixels are lost when it has to grow or shrinks by much.
    void Fit(CSize size);
    [[nodiscard]] Surface& Pixels() noexcept { return m_surface; }
    void Put(xcb_window_t window, xcb_gcontext_t context, std::span<CRect const> dirty);

    [[nodiscard]] bool IsInFlight() const noexcept { return m_isInFlight; }
    /// The server has read the segment; true when it was this one.
    bool OnCompletion(std::uint32_t segment) noexcept;
    /// For a server that is gone: nobody reads any more.
    void Land() noexcept { m_isInFlight = false; }

private:
    bool Share(std::size_t bytes);
    void Release() noexcept;
    void PutShared(xcb_window_t window, xcb_gcontext_t context, std::span<CRect const> dirty);
    void PutCopied(xcb_window_t window, xcb_gcontext_t context, CRect const& area);

    Connection& m_connection;
    Surface m_surface;
    std::uint32_t m_segment = 0;
    void* m_memory = nullptr;
    std::size_t m_bytes = 0;
    bool m_isInFlight = false;
    std::vector<std::uint32_t> m_strip;
};

} // namespace Ostrel::Platform::X11
