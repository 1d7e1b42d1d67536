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

// Two sums of products, of factors that add up to 255, divided by 255 and truncated.
constexpr std::uint32_t Truncated(std::uint32_t sums) noexcept
{
    return ((sums + 0x00010001U + ((sums >> 8U) & kEvenBytes)) >> 8U) & kEvenBytes;
}

// Calls row(begin, end) for the pixels of each row. What a row function captures by value stays in registers: the
// compiler must assume that a store to a pixel changes anything that it only knows by reference.
template <class Row>
void ForEachRow(Area const& area, Row row)
{
    std::uint32_t* pixels = area.pixels;
    std::ptrdiff_t const stride = area.stride;
    int const width = area.width;
    for (int left = area.height; left > 0; --left, pixels += stride)
    {
        row(pixels, pixels + width);
    }
}

#if defined(__SSE2__)

__m128i MultiplyLanes(__m128i a, __m128i b) noexcept
{
    __m128i const product = _mm_add_epi16(_mm_mullo_epi16(a, b), _mm_set1_epi16(kRound));
    return _mm_mulhi_epu16(product, _mm_set1_epi16(0x0101));
}

// The same in eight lanes.
__m128i TruncatedLanes(__m128i sums) noexcept
{
    __m128i const carried = _mm_add_epi16(_mm_srli_epi16(sums, 8), _mm_set1_epi16(1));
    return _mm_srli_epi16(_mm_add_epi16(sums, carried), 8);
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
               [four, pixel](std::uint32_t* row, std::uint32_t* end)
               {
                   for (; end - row >= 16; row += 16)
                   {
                       _mm_storeu_si128(At(row), four);
                       _mm_storeu_si128(At(row + 4), four);
                       _mm_storeu_si128(At(row + 8), four);
                       _mm_storeu_si128(At(row + 12), four);
                   }
                   for (; end - row >= 4; row += 4)
                   {
                       _mm_storeu_si128(At(row), four);
                   }
                   for (; row != end; ++row)
                   {
                       *row = pixel;
                   }
               });
#else
    ForEachRow(area, [pixel](std::uint32_t* row, std::uint32_t* end) { std::fill(row, end, pixel); });
#endif
}

void OverlayPlain(Area const& area, std::uint32_t pixel, std::uint8_t opacity) noexcept
{
    std::uint32_t const even = (pixel & kEvenBytes) * opacity;
    std::uint32_t const odd = ((pixel >> 8U) & kEvenBytes) * opacity;
    ForEachRow(area,
               [even, odd, rest = 255U - opacity](std::uint32_t* row, std::uint32_t* end)
               {
                   std::transform(row, end, row,
                                  [&](std::uint32_t below) {
                                      return Truncated(even + (below & kEvenBytes) * rest) |
                                             Truncated(odd + ((below >> 8U) & kEvenBytes) * rest) << 8U;
                                  });
               });
}

void Overlay(Area const& area, std::uint32_t pixel, std::uint8_t opacity) noexcept
{
#if defined(__SSE2__)
    __m128i const zero = _mm_setzero_si128();
    __m128i const part = _mm_mullo_epi16(_mm_unpacklo_epi8(_mm_set1_epi32(static_cast<int>(pixel)), zero),
                                         _mm_set1_epi16(static_cast<short>(opacity)));
    __m128i const rest = _mm_set1_epi16(static_cast<short>(255 - opacity));
    int const whole = area.width / 4 * 4;
    ForEachRow({area.pixels, area.stride, whole, area.height},
               [zero, part, rest](std::uint32_t* row, std::uint32_t* end)
               {
                   for (; row != end; row += 4)
                   {
                       __m128i const below = _mm_loadu_si128(At(row));
                       __m128i const low = _mm_mullo_epi16(_mm_unpacklo_epi8(below, zero), rest);
                       __m128i const high = _mm_mullo_epi16(_mm_unpackhi_epi8(below, zero), rest);
                       _mm_storeu_si128(At(row), _mm_packus_epi16(TruncatedLanes(_mm_add_epi16(part, low)),
                                                                  TruncatedLanes(_mm_add_epi16(part, high))));
                   }
               });
    OverlayPlain({area.pixels + whole, area.stride, area.width - whole, area.height}, pixel, opacity);
#else
    OverlayPlain(area, pixel, opacity);
#endif
}

void MaskPlain(Area const& area, std::uint8_t const* mask, std::ptrdiff_t maskStride, std::uint32_t pixel) noexcept
{
    ForEachRow(area,
               [mask, maskStride, pixel](std::uint32_t* row, std::uint32_t* end) mutable
               {
                   std::transform(row, end, mask, row,
                                  [pixel](std::uint32_t below, std::uint8_t coverage)
                                  { return coverage != 0 ? Mix(below, pixel, coverage) : below; });
                   mask += maskStride;
               });
}

void MaskPadded(Area const& area, std::uint8_t const* mask, std::ptrdiff_t maskStride, std::uint32_t pixel) noexcept
{
#if defined(__SSE2__)
    __m128i const solid = _mm_set1_epi32(static_cast<int>(pixel));
    __m128i const color = _mm_unpacklo_epi8(solid, _mm_setzero_si128());
    __m128i const full = _mm_set1_epi16(255);
    std::uint32_t* pixels = area.pixels;
    std::ptrdiff_t const toNextRow = area.stride - maskStride; // rows of a whole mask follow each other without a gap
    for (std::uint8_t const* const end = mask + maskStride * area.height; mask != end; pixels += toNextRow)
    {
        for (std::uint8_t const* const rowEnd = mask + maskStride; mask != rowEnd; mask += 4, pixels += 4)
        {
            int bytes = 0;
            std::memcpy(&bytes, mask, sizeof bytes);
            if (bytes == 0)
            {
                continue;
            }
            __m128i spread = _mm_cvtsi32_si128(bytes);
            spread = _mm_unpacklo_epi8(spread, spread);
            spread = _mm_unpacklo_epi16(spread, spread);
            __m128i const low = _mm_unpacklo_epi8(spread, _mm_setzero_si128());
            __m128i const high = _mm_unpackhi_epi8(spread, _mm_setzero_si128());
            MixFour(pixels, MultiplyLanes(color, low), MultiplyLanes(color, high), _mm_sub_epi16(full, low),
                    _mm_sub_epi16(full, high));
        }
    }
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
               [source, sourceStride, opacity](std::uint32_t* row, std::uint32_t* end) mutable
               {
                   std::transform(row, end, source, row,
                                  [opacity](std::uint32_t below, std::uint32_t above)
                                  { return OverPixel(below, above, opacity); });
                   source += sourceStride;
               });
}

} // namespace Ostrel::Platform::Blend
