/// @file
/// Bitmaps: pictures in memory that a memory device context draws on and copies from.
#pragma once

#include <memory>
#include <string>

#include <ostrel/platform/drawing/GdiObject.h>
#include <ostrel/platform/drawing/Surface.h>

class CDC;

/// A picture in memory, 32 bits a pixel.
class OSTREL_PLATFORM_API CBitmap : public CGdiObject
{
public:
    CBitmap() noexcept = default;
    ~CBitmap() override { DeleteObject(); }

    /// An opaque black picture. FALSE, with the bitmap unchanged, when a side is 0 or negative or above
    /// Surface::kMaximumSize. The device context is not needed: every bitmap has 32 bits a pixel.
    BOOL CreateCompatibleBitmap(CDC const* like, int width, int height);
    /// The same, filled from `bits` if given: rows of 32-bit words 0xAARRGGBB from top to bottom, colours not
    /// multiplied by the opacity; a picture whose opacities are all 0 counts as opaque. FALSE unless planes is 1 and
    /// bitsPixel 32.
    BOOL CreateBitmap(int width, int height, UINT planes, UINT bitsPixel, void const* bits);
    /// From a PNG file. FALSE, with the bitmap unchanged, when there is none or it is damaged.
    BOOL LoadPng(std::string const& path);

    /// Shares pixels; their surface must not be empty.
    BOOL Adopt(std::shared_ptr<Ostrel::Platform::Surface> surface);

    /// Describes the bitmap; returns the size of the structure, 0 when there is no picture or no structure.
    int GetBitmap(BITMAP* description) const noexcept;
    /// Width and height in pixels; 0 by 0 without a picture.
    [[nodiscard]] CSize GetSize() const noexcept;

    /// The pixels, null when there is no picture. A device context that has the bitmap selected shares them.
    [[nodiscard]] std::shared_ptr<Ostrel::Platform::Surface> const& GetSurface() const noexcept { return m_surface; }

    /// The handle; null while the object holds nothing.
    operator HBITMAP() const { return static_cast<HBITMAP>(GetSafeHandle()); }
    /// The object of a handle; null for a null, foreign or stale one.
    [[nodiscard]] static CBitmap* FromHandle(HBITMAP handle) noexcept;

private:
    void OnDelete() noexcept override { m_surface.reset(); }

    std::shared_ptr<Ostrel::Platform::Surface> m_surface;
};
