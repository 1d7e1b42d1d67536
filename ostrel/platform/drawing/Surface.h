/// @file
/// Pixels in memory.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include <ostrel/platform/base/Export.h>
#include <ostrel/platform/base/Geometry.h>

namespace Ostrel::Platform
{

/// The opaque pixel of a colour.
constexpr std::uint32_t PixelFromColor(COLORREF color) noexcept
{
    return 0xFF000000U | (static_cast<std::uint32_t>(GetRValue(color)) << 16U) |
           (static_cast<std::uint32_t>(GetGValue(color)) << 8U) | GetBValue(color);
}
/// The colour of an opaque pixel.
constexpr COLORREF ColorFromPixel(std::uint32_t pixel) noexcept
{
    return RGB(static_cast<BYTE>(pixel >> 16U), static_cast<BYTE>(pixel >> 8U), static_cast<BYTE>(pixel));
}

/// Pixels in memory: what a window's back buffer and a bitmap are made of.
///
/// A pixel is a 32-bit word 0xAARRGGBB with the colours already multiplied by the opacity. Every row has kSparePixels
/// further pixels behind its last one, which hold nothing: blitters may read and rewrite them unchanged, so that they
/// can always work on blocks of four pixels. Not locked: one thread at a time.
class OSTREL_PLATFORM_API Surface
{
public:
    static constexpr int kSparePixels = 16; ///< behind the last pixel of each row
    /// The greatest width and height; a surface that is asked to be larger is made this large.
    static constexpr int kMaximumSize = 16384;

    /// No pixels.
    Surface() noexcept = default;
    /// Opaque black. Negative sizes count as 0.
    Surface(int width, int height);
    /// Uses memory of somebody else's (a segment shared with a display), which must outlive the surface and hold
    /// `height` rows of `strideInPixels`, at least `width + kSparePixels` pixels each. Resize leaves that memory for
    /// its own.
    Surface(std::uint32_t* pixels, int width, int height, int strideInPixels) noexcept;

    Surface(Surface const&) = delete;
    Surface& operator=(Surface const&) = delete;
    ///@{
    /// Takes the pixels; the other surface is empty then.
    Surface(Surface&& other) noexcept;
    Surface& operator=(Surface&& other) noexcept;
    ///@}
    ~Surface() = default;

    ///@{
    /// The size in pixels.
    [[nodiscard]] int Width() const noexcept { return m_width; }
    [[nodiscard]] int Height() const noexcept { return m_height; }
    ///@}
    /// All pixels: from (0, 0) on.
    [[nodiscard]] CRect Bounds() const noexcept { return {0, 0, m_width, m_height}; }
    /// From one row to the next.
    [[nodiscard]] int StrideInPixels() const noexcept { return m_stride; }

    ///@{
    /// The first pixel of a row, 0 <= y < Height().
    [[nodiscard]] std::uint32_t* Row(int y) noexcept { return m_pixels + RowOffset(y); }
    [[nodiscard]] std::uint32_t const* Row(int y) const noexcept { return m_pixels + RowOffset(y); }
    ///@}

    /// Changes the size and keeps what both sizes have in common; new pixels are opaque black.
    void Resize(int width, int height);

    ///@{
    /// The word of a pixel, and its colour; 0 outside the surface.
    [[nodiscard]] std::uint32_t PixelAt(int x, int y) const noexcept;
    [[nodiscard]] COLORREF ColorAt(int x, int y) const noexcept { return ColorFromPixel(PixelAt(x, y)); }
    ///@}

    /// Moves the pixels of a rectangle by (dx, dy) within it, as scrolling does. What moves out is lost; what is laid
    /// bare keeps its old pixels until somebody paints it.
    void Scroll(CRect const& area, int dx, int dy) noexcept;

    /// Copies a rectangle of another surface (or of this one, without overlap) to `to`, clipped to both.
    void CopyFrom(Surface const& source, CRect const& from, CPoint to) noexcept;

    /// Writes a PNG file. False when that fails.
    [[nodiscard]] bool SavePng(std::string const& path) const;
    /// Reads a PNG file. False, with the surface unchanged, when there is none or it is damaged.
    [[nodiscard]] bool LoadPng(std::string const& path);

private:
    [[nodiscard]] std::ptrdiff_t RowOffset(int y) const noexcept { return static_cast<std::ptrdiff_t>(y) * m_stride; }

    std::unique_ptr<std::uint32_t[]> m_owned;
    std::uint32_t* m_pixels = nullptr;
    int m_width = 0;
    int m_height = 0;
    int m_stride = 0;
};

} // namespace Ostrel::Platform
