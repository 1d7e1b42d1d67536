#include <algorithm>
#include <span>

#include <ostrel/platform/base/Geometry.h>
#include <ostrel/platform/drawing/text/Glyph.h>

namespace Ostrel::Platform
{

namespace
{

constexpr std::uint32_t kColorBits = 0x00FFFFFFU;

// The drawn pixels of a picture.
class Drawn
{
public:
    explicit Drawn(cairo_surface_t* surface)
        : m_pixels(reinterpret_cast<std::uint32_t const*>(cairo_image_surface_get_data(surface))),
          m_stride(cairo_image_surface_get_stride(surface) / 4)
    {}

    [[nodiscard]] std::span<std::uint32_t const> Row(int y, int left, int right) const noexcept
    {
        std::uint32_t const* const row = m_pixels + static_cast<std::ptrdiff_t>(y) * m_stride;
        return {row + left, row + right};
    }

    [[nodiscard]] CRect InkOf(int width, int height) const noexcept
    {
        CRect ink(width, height, 0, 0);
        for (int y = 0; y < height; ++y)
        {
            for (int x = 0; x < width; ++x)
            {
                if (Row(y, x, x + 1).front() != 0)
                {
                    ink = CRect(std::min<int>(ink.left, x), std::min<int>(ink.top, y), std::max<int>(ink.right, x + 1),
                                y + 1);
                }
            }
        }
        return ink.IsRectEmpty() ? CRect() : ink;
    }

    [[nodiscard]] bool IsColored(CRect const& ink) const noexcept
    {
        for (int y = ink.top; y < ink.bottom; ++y)
        {
            if (std::ranges::any_of(Row(y, ink.left, ink.right), [](std::uint32_t p) { return (p & kColorBits) != 0; }))
            {
                return true;
            }
        }
        return false;
    }

private:
    std::uint32_t const* m_pixels;
    std::ptrdiff_t m_stride;
};

void TakeMask(Drawn const& drawn, CRect const& ink, GlyphStore& store, Glyph& glyph)
{
    glyph.maskStride = (ink.Width() + 3) / 4 * 4;
    std::size_t const bytes = static_cast<std::size_t>(glyph.maskStride) * static_cast<std::size_t>(ink.Height());
    std::uint8_t* mask = store.Allocate(bytes);
    std::fill_n(mask, bytes, std::uint8_t{0});
    glyph.mask = mask;
    for (int y = ink.top; y < ink.bottom; ++y, mask += glyph.maskStride)
    {
        std::ranges::transform(drawn.Row(y, ink.left, ink.right), mask,
                               [](std::uint32_t pixel) { return static_cast<std::uint8_t>(pixel >> 24U); });
    }
}

void TakeColors(Drawn const& drawn, CRect const& ink, GlyphStore& store, Glyph& glyph)
{
    std::size_t const pixels = static_cast<std::size_t>(ink.Width()) * static_cast<std::size_t>(ink.Height());
    auto* to = reinterpret_cast<std::uint32_t*>(store.Allocate(pixels * 4));
    glyph.colored = to;
    for (int y = ink.top; y < ink.bottom; ++y)
    {
        to = std::ranges::copy(drawn.Row(y, ink.left, ink.right), to).out;
    }
}

} // namespace

std::uint8_t* GlyphStore::Allocate(std::size_t bytes)
{
    std::size_t const rounded = (bytes + 15) / 16 * 16; // keeps what follows aligned for pixels
    if (rounded > m_chunkSize - m_used)
    {
        m_chunkSize = std::max(rounded, kChunkBytes);
        m_chunks.emplace_back(new std::uint8_t[m_chunkSize]);
        m_bytes += m_chunkSize;
        m_used = 0;
    }
    m_used += rounded;
    return m_chunks.back().get() + (m_used - rounded);
}

GlyphPainter::GlyphPainter(int width, int height, int originX, int originY)
    : m_surface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height)),
      m_context(cairo_create(m_surface)),
      m_width(width),
      m_height(height),
      m_originX(originX),
      m_originY(originY)
{
    cairo_set_source_rgb(m_context, 0, 0, 0);
    cairo_translate(m_context, originX, originY);
}

GlyphPainter::~GlyphPainter()
{
    cairo_destroy(m_context);
    cairo_surface_destroy(m_surface);
}

Glyph GlyphPainter::Take(GlyphStore& store)
{
    cairo_surface_flush(m_surface);
    Glyph glyph;
    if (cairo_surface_status(m_surface) != CAIRO_STATUS_SUCCESS)
    {
        return glyph;
    }
    Drawn const drawn(m_surface);
    CRect const ink = drawn.InkOf(m_width, m_height);
    glyph.left = ink.left - m_originX;
    glyph.top = ink.top - m_originY;
    glyph.width = ink.Width();
    glyph.height = ink.Height();
    if (!ink.IsRectEmpty())
    {
        drawn.IsColored(ink) ? TakeColors(drawn, ink, store, glyph) : TakeMask(drawn, ink, store, glyph);
    }
    return glyph;
}

} // namespace Ostrel::Platform
