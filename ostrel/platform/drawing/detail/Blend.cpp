#include <algorithm>
#include <cstring>

#include <ostrel/platform/drawing/detail/Blend.h>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace Ostrel::Platform::Blend
{

namespace
{

constexpr unsigned kRound = 0x80;
constexpr std::uint32_t kEvenBytes = 0x00FF00FFU;

// All four bytes of a pixel times a byte, two at a time.
constexpr std::uint32_t Multiply(std::uint32_t pixel, unsigned factor) noexcept
{
    std::uint32_t even = (pixel & kEvenBytes) * factor + (kRound | (kRound << 16U));
    even = ((even + ((even >> 8U) & kEvenBytes)) >> 8U) & kEvenBytes;
    std::uint32_t odd = ((pixel >> 8U) & kEvenBytes) * factor + (kRound | (kRound << 16U));
    odd = (odd + ((odd >> 8U) & kEvenBytes)) & ~kEvenBytes;
    return even | odd;
}

constexpr std::uint32_t Mix(std::uint32_t below, std::uint32_t pixel, unsigned opacity) noexcept
{
    return Multiply(pixel, opacity) + Multiply(below, 255U - opacity);
}

template <class Row>
void ForEachRow(Area const& area, Row row)
{
    std::uint32_t* pixels = area.pixels;
    for (int y = 0; y < area.height; ++y, pixels += area.stride)
    {
        row(pixels);
    }
}

#if defined(__SSE2__)

__m128i MultiplyLanes(__m128i a, __m128i b) noexcept
{
    __m128i const product = _mm_add_epi16(_mm_mullo_epi16(a, b), _mm_set1_epi16(kRound));
    return _mm_mulhi_epu16(product, _mm_set1_epi16(0x0101));
}

__m128i* At(std::uint32_t* pixels) noexcept
{
    return reinterpret_cast<__m128i*>(pixels);
}

// Four pixels below a colour, given what the colour adds (`part`) and what is left of the pixels, in 16-bit lanes.
void MixFour(std::uint32_t* pixels, __m128i partLow, __m128i partHigh, __m128i restLow, __m128i restHigh) noexcept
{
    __m128i const zero = _mm_setzero_si128();
    __m128i const below = _mm_loadu_si128(At(pixels));
    __m128i const low = _mm_add_epi16(partLow, MultiplyLanes(_mm_unpacklo_epi8(below, zero), restLow));
    __m128i const high = _mm_add_epi16(partHigh, MultiplyLanes(_mm_unpackhi_epi8(below, zero), restHigh));
    _mm_storeu_si128(At(pixels), _mm_packus_epi16(low, high));
}

#endif

} // namespace

void Fill(Area const& area, std::uint32_t pixel) noexcept
{
#if defined(__SSE2__)
    __m128i const four = _mm_set1_epi32(static_cast<int>(pixel));
    ForEachRow(area,
               [&](std::uint32_t* row)
               {
                   int x = 0;
                   for (; x + 8 <= area.width; x += 8)
                   {
                       _mm_storeu_si128(At(row + x), four);
                       _mm_storeu_si128(At(row + x + 4), four);
                   }
                   for (; x < area.width; ++x)
                   {
                       row[x] = pixel;
                   }
               });
#else
    ForEachRow(area, [&](std::uint32_t* row) { std::fill_n(row, area.width, pixel); });
#endif
}

void OverlayPlain(Area const& area, std::uint32_t pixel, std::uint8_t opacity) noexcept
{
    std::uint32_t const part = Multiply(pixel, opacity);
    ForEachRow(area,
               [&](std::uint32_t* row)
               {
                   for (int x = 0; x < area.width; ++x)
                   {
                       row[x] = part + Multiply(row[x], 255U - opacity);
                   }
               });
}

void Overlay(Area const& area, std::uint32_t pixel, std::uint8_t opacity) noexcept
{
#if defined(__SSE2__)
    std::uint32_t const added = Multiply(pixel, opacity);
    __m128i const part = _mm_unpacklo_epi8(_mm_set1_epi32(static_cast<int>(added)), _mm_setzero_si128());
    __m128i const rest = _mm_set1_epi16(static_cast<short>(255 - opacity));
    ForEachRow(area,
               [&](std::uint32_t* row)
               {
                   int x = 0;
                   for (; x + 4 <= area.width; x += 4)
                   {
                       MixFour(row + x, part, part, rest, rest);
                   }
                   for (; x < area.width; ++x)
                   {
                       row[x] = added + Multiply(row[x], 255U - opacity);
                   }
               });
#else
    OverlayPlain(area, pixel, opacity);
#endif
}

void MaskPlain(Area const& area, std::uint8_t const* mask, std::ptrdiff_t maskStride, std::uint32_t pixel) noexcept
{
    ForEachRow(area,
               [&](std::uint32_t* row)
               {
                   for (int x = 0; x < area.width; ++x)
                   {
                       row[x] = mask[x] != 0 ? Mix(row[x], pixel, mask[x]) : row[x];
                   }
                   mask += maskStride;
               });
}

void MaskPadded(Area const& area, std::uint8_t const* mask, std::ptrdiff_t maskStride, std::uint32_t pixel) noexcept
{
#if defined(__SSE2__)
    __m128i const solid = _mm_set1_epi32(static_cast<int>(pixel));
    __m128i const color = _mm_unpacklo_epi8(solid, _mm_setzero_si128());
    __m128i const full = _mm_set1_epi16(255);
    ForEachRow(area,
               [&](std::uint32_t* row)
               {
                   for (int x = 0; x < area.width; x += 4)
                   {
                       int bytes = 0;
                       std::memcpy(&bytes, mask + x, sizeof bytes);
                       if (bytes == 0)
                       {
                           continue;
                       }
                       __m128i spread = _mm_cvtsi32_si128(bytes);
                       spread = _mm_unpacklo_epi8(spread, spread);
                       spread = _mm_unpacklo_epi16(spread, spread);
                       __m128i const low = _mm_unpacklo_epi8(spread, _mm_setzero_si128());
                       __m128i const high = _mm_unpackhi_epi8(spread, _mm_setzero_si128());
                       MixFour(row + x, MultiplyLanes(color, low), MultiplyLanes(color, high), _mm_sub_epi16(full, low),
                               _mm_sub_epi16(full, high));
                   }
                   mask += maskStride;
               });
#else
    MaskPlain(area, mask, maskStride, pixel);
#endif
}

std::uint32_t OverPixel(std::uint32_t below, std::uint32_t source, unsigned opacity) noexcept
{
    std::uint32_t const part = opacity == 255U ? source : Multiply(source, opacity);
    return part + Multiply(below, 255U - (part >> 24U));
}

void Over(Area const& area, std::uint32_t const* source, std::ptrdiff_t sourceStride, std::uint8_t opacity) noexcept
{
    ForEachRow(area,
               [&](std::uint32_t* row)
               {
                   for (int x = 0; x < area.width; ++x)
                   {
                       row[x] = OverPixel(row[x], source[x], opacity);
                   }
                   source += sourceStride;
               });
}

} // namespace Ostrel::Platform::Blend
