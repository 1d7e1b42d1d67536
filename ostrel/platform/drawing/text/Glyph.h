// Pictures of glyphs, drawn once by cairo and then copied by our own loops. A mask holds one byte of coverage a pixel,
// its rows padded with zero bytes to a multiple of four; the glyph of a colour font holds premultiplied pixels instead.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include <cairo/cairo.h>

namespace Ostrel::Platform
{

struct Glyph
{
    int left = 0; ///< of the picture, from the pen position
    int top = 0;  ///< of the picture, from the baseline downwards
    int width = 0;
    int height = 0;
    int maskStride = 0;
    std::uint8_t const* mask = nullptr;     ///< null for blanks and colour glyphs
    std::uint32_t const* colored = nullptr; ///< rows of `width` pixels
};

/// Memory of pictures, freed all at once. Addresses stay.
class GlyphStore
{
public:
    [[nodiscard]] std::uint8_t* Allocate(std::size_t bytes);
    [[nodiscard]] std::size_t Bytes() const noexcept { return m_bytes; }

private:
    static constexpr std::size_t kChunkBytes = 32768;

    std::vector<std::unique_ptr<std::uint8_t[]>> m_chunks;
    std::size_t m_chunkSize = 0; ///< of the last chunk
    std::size_t m_used = 0;      ///< of it
    std::size_t m_bytes = 0;
};

/// Draws something small with cairo and keeps its picture.
class GlyphPainter
{
public:
    /// An empty picture of `width` x `height` pixels whose pixel (originX, originY) is the pen position.
    GlyphPainter(int width, int height, int originX, int originY);
    GlyphPainter(GlyphPainter const&) = delete;
    GlyphPainter& operator=(GlyphPainter const&) = delete;
    ~GlyphPainter();

    /// Draw here, with the pen at (0, 0); the source is opaque black.
    [[nodiscard]] cairo_t* Context() const noexcept { return m_context; }
    /// What was drawn, without its empty margins.
    [[nodiscard]] Glyph Take(GlyphStore& store);

private:
    cairo_surface_t* m_surface;
    cairo_t* m_context;
    int m_width;
    int m_height;
    int m_originX;
    int m_originY;
};

} // namespace Ostrel::Platform
