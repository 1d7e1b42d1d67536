// The vector loops and the plain loops give the pixels of the formula, and touch nothing else.
#include <algorithm>
#include <cstdint>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include <ostrel/platform/drawing/detail/Blend.h>

namespace Blend = Ostrel::Platform::Blend;

namespace
{

constexpr int kStride = 80;
constexpr int kHeight = 3;

unsigned Product(unsigned a, unsigned b)
{
    unsigned const t = a * b + 128;
    return (t + (t >> 8U)) >> 8U;
}

std::uint32_t Mixed(std::uint32_t below, std::uint32_t pixel, unsigned coverage)
{
    std::uint32_t result = 0;
    for (unsigned shift = 0; shift < 32; shift += 8)
    {
        unsigned const part = Product((pixel >> shift) & 0xFFU, coverage);
        result |= (part + Product((below >> shift) & 0xFFU, 255 - coverage)) << shift;
    }
    return result;
}

std::uint32_t Laid(std::uint32_t below, std::uint32_t pixel, unsigned opacity)
{
    std::uint32_t result = 0;
    for (unsigned shift = 0; shift < 32; shift += 8)
    {
        unsigned const sum = ((below >> shift) & 0xFFU) * (255 - opacity) + ((pixel >> shift) & 0xFFU) * opacity;
        result |= sum / 255 << shift;
    }
    return result;
}

class BlendTest : public testing::Test
{
protected:
    [[nodiscard]] unsigned Random(unsigned limit) { return static_cast<unsigned>(m_random() % limit); }
    [[nodiscard]] std::uint32_t OpaquePixel() { return 0xFF000000U | static_cast<std::uint32_t>(m_random()); }
    [[nodiscard]] std::vector<std::uint32_t> Pixels()
    {
        std::vector<std::uint32_t> pixels(kStride * (kHeight + 1));
        std::ranges::generate(pixels, [this] { return OpaquePixel(); });
        return pixels;
    }
    [[nodiscard]] static Blend::Area AreaIn(std::vector<std::uint32_t>& pixels, int left, int width)
    {
        return {pixels.data() + left, kStride, width, kHeight};
    }

private:
    std::mt19937 m_random{20240};
};

TEST_F(BlendTest, FillAndOverlayFollowTheFormulaInsideTheAreaOnly)
{
    for (int round = 0; round < 400; ++round)
    {
        int const left = static_cast<int>(Random(9));
        int const width = static_cast<int>(Random(60));
        auto const opacity = static_cast<std::uint8_t>(Random(256));
        std::uint32_t const pixel = OpaquePixel();
        std::vector<std::uint32_t> const before = Pixels();
        std::vector<std::uint32_t> filled = before;
        std::vector<std::uint32_t> vector = before;
        std::vector<std::uint32_t> plain = before;
        Blend::Fill(AreaIn(filled, left, width), pixel);
        Blend::Overlay(AreaIn(vector, left, width), pixel, opacity);
        Blend::OverlayPlain(AreaIn(plain, left, width), pixel, opacity);
        ASSERT_EQ(vector, plain);
        for (int i = 0; i < static_cast<int>(before.size()); ++i)
        {
            bool const inside = i / kStride < kHeight && i % kStride >= left && i % kStride < left + width;
            auto const at = static_cast<std::size_t>(i);
            ASSERT_EQ(filled[at], inside ? pixel : before[at]) << i;
            ASSERT_EQ(plain[at], inside ? Laid(before[at], pixel, opacity) : before[at]) << i;
        }
    }
}

TEST_F(BlendTest, MasksFollowTheFormulaAndKeepWhatLiesBehindThem)
{
    for (int round = 0; round < 400; ++round)
    {
        int const left = static_cast<int>(Random(9));
        int const width = 1 + static_cast<int>(Random(20));
        int const maskStride = (width + 3) / 4 * 4;
        std::vector<std::uint8_t> mask(static_cast<std::size_t>(maskStride * kHeight));
        for (std::size_t i = 0; i < mask.size(); ++i)
        {
            bool const isPadding = static_cast<int>(i) % maskStride >= width;
            unsigned const kind = Random(4);
            unsigned const coverage = kind == 0 ? 255 : (kind == 1 ? 0 : Random(256));
            mask[i] = static_cast<std::uint8_t>(isPadding ? 0 : coverage);
        }
        std::uint32_t const pixel = OpaquePixel();
        std::vector<std::uint32_t> const before = Pixels();
        std::vector<std::uint32_t> vector = before;
        std::vector<std::uint32_t> plain = before;
        Blend::MaskPadded(AreaIn(vector, left, width), mask.data(), maskStride, pixel);
        Blend::MaskPlain(AreaIn(plain, left, width), mask.data(), maskStride, pixel);
        ASSERT_EQ(vector, plain);
        for (int i = 0; i < static_cast<int>(before.size()); ++i)
        {
            int const x = i % kStride - left;
            bool const inside = i / kStride < kHeight && x >= 0 && x < width;
            unsigned const coverage = inside ? mask[static_cast<std::size_t>(i / kStride * maskStride + x)] : 0;
            auto const at = static_cast<std::size_t>(i);
            ASSERT_EQ(plain[at], Mixed(before[at], pixel, coverage)) << i;
        }
    }
}

TEST_F(BlendTest, PicturesKeepTheirOwnOpacity)
{
    EXPECT_EQ(Blend::OverPixel(0xFF102030, 0x00000000, 255), 0xFF102030U);
    EXPECT_EQ(Blend::OverPixel(0xFF102030, 0xFF405060, 255), 0xFF405060U);
    EXPECT_EQ(Blend::OverPixel(0xFF102030, 0xFF405060, 0), 0xFF102030U);
    EXPECT_EQ(Blend::OverPixel(0xFF000000, 0x80800000, 255), 0xFF800000U);
    EXPECT_EQ(Blend::OverPixel(0xFFFFFFFF, 0xFF000000, 51), 0xFFCCCCCCU);
}

} // namespace
