#include <algorithm>
#include <cstring>
#include <utility>

#include <cairo/cairo.h>

#include <ostrel/platform/drawing/Surface.h>

namespace Ostrel::Platform
{

namespace
{

constexpr std::uint32_t kOpaqueBlack = 0xFF000000U;

struct CairoSurfaceDeleter
{
    void operator()(cairo_surface_t* surface) const noexcept { cairo_surface_destroy(surface); }
};
using CairoSurface = std::unique_ptr<cairo_surface_t, CairoSurfaceDeleter>;

struct CairoDeleter
{
    void operator()(cairo_t* context) const noexcept { cairo_destroy(context); }
};

// Cairo's view of the same memory; it does not write when it is only a source.
CairoSurface ViewOf(Surface const& surface)
{
    auto* const pixels = const_cast<std::uint32_t*>(surface.Row(0));
    return CairoSurface(cairo_image_surface_create_for_data(reinterpret_cast<unsigned char*>(pixels),
                                                            CAIRO_FORMAT_ARGB32, surface.Width(), surface.Height(),
                                                            surface.StrideInPixels() * 4));
}

} // namespace

Surface::Surface(int width, int height)
{
    Resize(width, height);
}

Surface::Surface(std::uint32_t* pixels, int width, int height, int strideInPixels) noexcept
    : m_pixels(pixels), m_width(width), m_height(height), m_stride(strideInPixels)
{}

Surface::Surface(Surface&& other) noexcept
    : m_owned(std::move(other.m_owned)),
      m_pixels(std::exchange(other.m_pixels, nullptr)),
      m_width(std::exchange(other.m_width, 0)),
      m_height(std::exchange(other.m_height, 0)),
      m_stride(std::exchange(other.m_stride, 0))
{}

Surface& Surface::operator=(Surface&& other) noexcept
{
    m_owned = std::move(other.m_owned);
    m_pixels = std::exchange(other.m_pixels, nullptr);
    m_width = std::exchange(other.m_width, 0);
    m_height = std::exchange(other.m_height, 0);
    m_stride = std::exchange(other.m_stride, 0);
    return *this;
}

void Surface::Resize(int width, int height)
{
    width = std::clamp(width, 0, kMaximumSize);
    height = std::clamp(height, 0, kMaximumSize);
    if (width == m_width && height == m_height)
    {
        return;
    }
    int const stride = width + kSparePixels;
    auto const count = static_cast<std::size_t>(stride) * static_cast<std::size_t>(height);
    std::unique_ptr<std::uint32_t[]> pixels(new std::uint32_t[count]); // not make_unique: it would clear first
    std::fill_n(pixels.get(), count, kOpaqueBlack);
    for (int y = 0; y < std::min(height, m_height); ++y)
    {
        std::copy_n(Row(y), std::min(width, m_width), pixels.get() + static_cast<std::ptrdiff_t>(y) * stride);
    }
    m_owned = std::move(pixels);
    m_pixels = m_owned.get();
    m_width = width;
    m_height = height;
    m_stride = stride;
}

std::uint32_t Surface::PixelAt(int x, int y) const noexcept
{
    return Bounds().PtInRect(CPoint(x, y)) ? Row(y)[x] : 0;
}

void Surface::Scroll(CRect const& area, int dx, int dy) noexcept
{
    CRect const inside = area & Bounds();
    if (std::abs(dx) >= inside.Width() || std::abs(dy) >= inside.Height())
    {
        return;
    }
    CRect const to = inside & (inside + CPoint(dx, dy));
    std::size_t const rowBytes = static_cast<std::size_t>(to.Width()) * 4;
    for (int i = 0; i < to.Height(); ++i)
    {
        int const y = dy > 0 ? to.bottom - 1 - i : to.top + i; // never over rows that are still to be read
        std::memmove(Row(y) + to.left, Row(y - dy) + to.left - dx, rowBytes);
    }
}

void Surface::CopyFrom(Surface const& source, CRect const& from, CPoint to) noexcept
{
    CRect const readable = from & source.Bounds();
    CPoint const shift(to.x - from.left, to.y - from.top);
    CRect const written = (readable + shift) & Bounds();
    for (int y = written.top; y < written.bottom; ++y)
    {
        std::memmove(Row(y) + written.left, source.Row(y - shift.y) + written.left - shift.x,
                     static_cast<std::size_t>(written.Width()) * 4);
    }
}

bool Surface::SavePng(std::string const& path) const
{
    if (m_width == 0 || m_height == 0)
    {
        return false;
    }
    return cairo_surface_write_to_png(ViewOf(*this).get(), path.c_str()) == CAIRO_STATUS_SUCCESS;
}

bool Surface::LoadPng(std::string const& path)
{
    CairoSurface const picture(cairo_image_surface_create_from_png(path.c_str()));
    int const width = cairo_image_surface_get_width(picture.get());
    int const height = cairo_image_surface_get_height(picture.get());
    if (cairo_surface_status(picture.get()) != CAIRO_STATUS_SUCCESS || width < 1 || height < 1 ||
        std::max(width, height) > kMaximumSize)
    {
        return false;
    }
    Surface loaded(width, height);
    CairoSurface const view = ViewOf(loaded);
    std::unique_ptr<cairo_t, CairoDeleter> const context(cairo_create(view.get()));
    cairo_set_operator(context.get(), CAIRO_OPERATOR_SOURCE);
    cairo_set_source_surface(context.get(), picture.get(), 0, 0);
    cairo_paint(context.get());
    cairo_surface_flush(view.get());
    *this = std::move(loaded);
    return true;
}

} // namespace Ostrel::Platform
