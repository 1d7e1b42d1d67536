// The loops over pixels: fills, overlays of one opacity, masks of glyphs, pictures with their own opacity. Everything
// here works on memory that the caller has clipped.
//
// A product of two bytes is rounded as t = a * b + 128, (t + (t >> 8)) >> 8, which is exact rounding of a * b / 255. An
// overlay is truncated instead, (a * (255 - opacity) + b * opacity) / 255, as colours are blended everywhere above: a
// blended pixel has the blended colour.
// The vector and the plain versions give identical pixels; the plain ones serve other processors and the tests.
#pragma once

#include <cstddef>
#include <cstdint>

namespace Ostrel::Platform::Blend
{

/// A rectangle of pixels: its first pixel, the distance of rows in pixels, and its size.
struct Area
{
    std::uint32_t* pixels;
    std::ptrdiff_t stride;
    int width;
    int height;
};

void Fill(Area const& area, std::uint32_t pixel) noexcept;

/// Lays an opaque pixel over the area with an opacity.
void Overlay(Area const& area, std::uint32_t pixel, std::uint8_t opacity) noexcept;
void OverlayPlain(Area const& area, std::uint32_t pixel, std::uint8_t opacity) noexcept;

/// Draws an opaque pixel through a mask of the area's size, whose rows lie `maskStride` bytes apart.
void MaskPlain(Area const& area, std::uint8_t const* mask, std::ptrdiff_t maskStride, std::uint32_t pixel) noexcept;
/// The same for whole masks: rows are `maskStride` = the width rounded up to a multiple of 4 long and end in zero
/// bytes. Up to 3 pixels behind each row of the area are rewritten with their own value.
void MaskPadded(Area const& area, std::uint8_t const* mask, std::ptrdiff_t maskStride, std::uint32_t pixel) noexcept;

/// Draws premultiplied pixels over those of the area, each with its own opacity times `opacity`.
void Over(Area const& area, std::uint32_t const* source, std::ptrdiff_t sourceStride, std::uint8_t opacity) noexcept;

/// One pixel over another one.
[[nodiscard]] std::uint32_t OverPixel(std::uint32_t below, std::uint32_t source, unsigned opacity) noexcept;

} // namespace Ostrel::Platform::Blend
