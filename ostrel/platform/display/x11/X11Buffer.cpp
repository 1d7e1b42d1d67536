#include <algorithm>
#include <cstring>

#include <sys/mman.h>
#include <unistd.h>

#include <xcb/shm.h>

#include <ostrel/platform/display/x11/X11Buffer.h>

namespace Ostrel::Platform::X11
{

namespace
{

// A window that is being resized would need a new segment at every step: sizes grow in steps.
int RoundedUp(int size) noexcept
{
    constexpr int kStep = 128;
    return (std::max(size, 1) + kStep - 1) / kStep * kStep;
}

// What one request can carry besides its own head.
std::size_t MostRowsOf(xcb_connection_t* connection, std::size_t bytesPerRow)
{
    constexpr std::size_t kRequestHead = 64;
    std::size_t const mostBytes = static_cast<std::size_t>(xcb_get_maximum_request_length(connection)) * 4;
    return std::max<std::size_t>(1, (mostBytes - kRequestHead) / bytesPerRow);
}

} // namespace

void Buffer::Fit(CSize size)
{
    int const width = RoundedUp(size.cx);
    int const height = RoundedUp(size.cy);
    bool const isLargeEnough = m_surface.Width() >= width && m_surface.Height() >= height;
    bool const isMuchTooLarge = m_surface.Width() > 2 * width || m_surface.Height() > 2 * height;
    if (isLargeEnough && !isMuchTooLarge)
    {
        return;
    }
    Release();
    int const stride = width + Surface::kSparePixels;
    std::size_t const bytes = static_cast<std::size_t>(stride) * static_cast<std::size_t>(height) * 4;
    m_surface = m_connection.HasSharedMemory() && Share(bytes)
                    ? Surface(static_cast<std::uint32_t*>(m_memory), width, height, stride)
                    : Surface(width, height);
}

bool Buffer::Share(std::size_t bytes)
{
    int const file = memfd_create("ostrel-back-buffer", MFD_CLOEXEC);
    if (file < 0)
    {
        return false;
    }
    void* memory = MAP_FAILED;
    if (ftruncate(file, static_cast<off_t>(bytes)) == 0)
    {
        memory = mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
    }
    if (memory == MAP_FAILED)
    {
        close(file);
        return false;
    }
    std::uint32_t const segment = xcb_generate_id(m_connection.Get());
    auto const cookie = xcb_shm_attach_fd_checked(m_connection.Get(), segment, file, 0); // takes the file
    Reply<xcb_generic_error_t> const error(xcb_request_check(m_connection.Get(), cookie));
    if (error)
    {
        munmap(memory, bytes);
        m_connection.GiveUpSharedMemory(); // a server on another machine
        return false;
    }
    m_segment = segment;
    m_memory = memory;
    m_bytes = bytes;
    return true;
}

void Buffer::Release() noexcept
{
    m_surface = Surface();
    if (m_memory != nullptr)
    {
        // Requests are served in order: a put that is still on its way comes before the detach.
        xcb_shm_detach(m_connection.Get(), m_segment);
        munmap(m_memory, m_bytes);
        m_memory = nullptr;
        m_segment = 0;
    }
    m_isInFlight = false;
}

void Buffer::Put(xcb_window_t window, xcb_gcontext_t context, std::span<CRect const> dirty)
{
    if (m_memory != nullptr)
    {
        PutShared(window, context, dirty);
        return;
    }
    for (CRect const& area : dirty)
    {
        PutCopied(window, context, area & m_surface.Bounds());
    }
}

void Buffer::PutShared(xcb_window_t window, xcb_gcontext_t context, std::span<CRect const> dirty)
{
    for (CRect const& asked : dirty)
    {
        CRect const area = asked & m_surface.Bounds();
        bool const isLast = &asked == &dirty.back();
        if (area.IsRectEmpty() && !isLast)
        {
            continue;
        }
        xcb_shm_put_image(m_connection.Get(), window, context, static_cast<std::uint16_t>(m_surface.StrideInPixels()),
                          static_cast<std::uint16_t>(m_surface.Height()), static_cast<std::uint16_t>(area.left),
                          static_cast<std::uint16_t>(area.top), static_cast<std::uint16_t>(area.Width()),
                          static_cast<std::uint16_t>(area.Height()), static_cast<std::int16_t>(area.left),
                          static_cast<std::int16_t>(area.top), m_connection.Screen().root_depth,
                          XCB_IMAGE_FORMAT_Z_PIXMAP, isLast ? 1 : 0, m_segment, 0);
        m_isInFlight = true;
    }
}

void Buffer::PutCopied(xcb_window_t window, xcb_gcontext_t context, CRect const& area)
{
    if (area.IsRectEmpty())
    {
        return;
    }
    std::size_t const width = static_cast<std::size_t>(area.Width());
    std::size_t const mostRows = MostRowsOf(m_connection.Get(), width * 4);
    for (int top = area.top; top < area.bottom;)
    {
        std::size_t const rows = std::min(mostRows, static_cast<std::size_t>(area.bottom - top));
        m_strip.resize(width * rows);
        for (std::size_t row = 0; row < rows; ++row)
        {
            std::memcpy(m_strip.data() + row * width, m_surface.Row(top + static_cast<int>(row)) + area.left,
                        width * 4);
        }
        xcb_put_image(m_connection.Get(), XCB_IMAGE_FORMAT_Z_PIXMAP, window, context, static_cast<std::uint16_t>(width),
                      static_cast<std::uint16_t>(rows), static_cast<std::int16_t>(area.left),
                      static_cast<std::int16_t>(top), 0, m_connection.Screen().root_depth,
                      static_cast<std::uint32_t>(m_strip.size() * 4),
                      reinterpret_cast<std::uint8_t const*>(m_strip.data()));
        top += static_cast<int>(rows);
    }
}

bool Buffer::OnCompletion(std::uint32_t segment) noexcept
{
    if (segment == 0 || segment != m_segment)
    {
        return false;
    }
    m_isInFlight = false;
    return true;
}

} // namespace Ostrel::Platform::X11
