// Region arithmetic against a bitmap of the same pixels.
#include <array>
#include <bitset>
#include <random>

#include <gtest/gtest.h>

#include <ostrel/platform/drawing/Rgn.h>

using Ostrel::Platform::Region;

namespace
{

constexpr int kSide = 40;

class Bitmap
{
public:
    [[nodiscard]] bool At(int x, int y) const { return m_bits[Index(x, y)]; }
    void Combine(Bitmap const& other, int mode)
    {
        std::bitset<kSide* kSide> const& bits = other.m_bits;
        m_bits = mode == RGN_OR     ? m_bits | bits
                 : mode == RGN_DIFF ? m_bits & ~bits
                 : mode == RGN_AND  ? m_bits & bits
                                    : m_bits ^ bits;
    }
    void Fill(CRect const& rect)
    {
        for (int y = rect.top; y < rect.bottom; ++y)
        {
            for (int x = rect.left; x < rect.right; ++x)
            {
                m_bits.set(Index(x, y));
            }
        }
    }
    [[nodiscard]] int CountIn(CRect const& rect) const
    {
        int count = 0;
        for (int y = rect.top; y < rect.bottom; ++y)
        {
            for (int x = rect.left; x < rect.right; ++x)
            {
                count += At(x, y) ? 1 : 0;
            }
        }
        return count;
    }

private:
    static std::size_t Index(int x, int y) { return static_cast<std::size_t>(y * kSide + x); }
    std::bitset<kSide * kSide> m_bits;
};

CRect RandomRect(std::mt19937& random)
{
    auto const edge = [&] { return static_cast<int>(random() % (kSide + 1)); };
    CRect rect(edge(), edge(), edge(), edge());
    if (random() % 8 != 0) // empty ones stay in the game
    {
        rect.NormalizeRect();
    }
    return rect;
}

// Disjoint, in bands, with the bounds and pixels of the bitmap; and as few rectangles as the bands allow.
void ExpectSame(Region const& region, Bitmap const& bitmap)
{
    Bitmap covered;
    int area = 0;
    CRect bounds;
    CRect previous;
    for (CRect const& rect : region.Rects())
    {
        ASSERT_FALSE(rect.IsRectEmpty());
        bool const sameBand = rect.top == previous.top && rect.bottom == previous.bottom;
        ASSERT_TRUE(area == 0 || rect.top >= previous.bottom || (sameBand && rect.left > previous.right));
        covered.Fill(rect);
        area += rect.Width() * rect.Height();
        bounds |= rect;
        previous = rect;
    }
    ASSERT_EQ(bounds, region.Bounds());
    ASSERT_EQ(area, bitmap.CountIn(CRect(0, 0, kSide, kSide)));
    covered.Combine(bitmap, RGN_XOR);
    ASSERT_EQ(covered.CountIn(CRect(0, 0, kSide, kSide)), 0);
}

void Combine(Region& region, Region const& other, int mode, bool asRect)
{
    switch (mode)
    {
    case RGN_OR:
        asRect ? region.Union(other.Bounds()) : region.Union(other);
        break;
    case RGN_DIFF:
        asRect ? region.Subtract(other.Bounds()) : region.Subtract(other);
        break;
    case RGN_AND:
        asRect ? region.Intersect(other.Bounds()) : region.Intersect(other);
        break;
    default:
        region.Xor(other);
        break;
    }
}

TEST(RegionTest, RandomOperationsGiveThePixelsOfABitmap)
{
    std::mt19937 random(7);
    std::array<Region, 3> regions;
    std::array<Bitmap, 3> bitmaps;
    constexpr int kModes[] = {RGN_OR, RGN_OR, RGN_OR, RGN_DIFF, RGN_DIFF, RGN_AND, RGN_XOR};
    for (int round = 0; round < 6000; ++round)
    {
        std::size_t const target = random() % 3;
        std::size_t const other = random() % 3; // the same one now and then
        int const mode = kModes[random() % std::size(kModes)];
        if (random() % 4 == 0)
        {
            Bitmap const operand = bitmaps[other];
            Combine(regions[target], regions[other], mode, false);
            bitmaps[target].Combine(operand, mode);
        }
        else
        {
            CRect const rect = RandomRect(random);
            Bitmap operand;
            operand.Fill(rect);
            Combine(regions[target], Region(rect), mode, true);
            bitmaps[target].Combine(operand, mode);
        }
        ASSERT_NO_FATAL_FAILURE(ExpectSame(regions[target], bitmaps[target])) << "round " << round;
        CRect const probe = RandomRect(random);
        int const hit = bitmaps[target].CountIn(probe);
        ASSERT_EQ(regions[target].Intersects(probe), hit > 0);
        ASSERT_EQ(regions[target].Contains(probe), hit > 0 && hit == probe.Width() * probe.Height());
        CPoint const point(static_cast<int>(random() % kSide), static_cast<int>(random() % kSide));
        ASSERT_EQ(regions[target].Contains(point), bitmaps[target].At(point.x, point.y));
    }
}

TEST(RegionTest, EqualPixelsAreEqualRegionsHoweverTheyWereMade)
{
    Region pieces;
    for (int i = 0; i < 16; ++i)
    {
        int const cell = i * 7 % 16;
        pieces.Union(CRect(CPoint(cell % 4 * 5, cell / 4 * 3), CSize(5, 3)));
    }
    EXPECT_EQ(pieces, Region(CRect(0, 0, 20, 12)));
    EXPECT_TRUE(pieces.IsRect());
    pieces.Offset(-3, 4);
    EXPECT_EQ(pieces.Bounds(), CRect(-3, 4, 17, 16));
}

TEST(RgnTest, CombinesEvenWithItselfAndRefusesNull)
{
    CRgn a;
    CRgn b;
    a.CreateRectRgn(10, 10, 0, 0); // any two corners
    b.CreateRectRgn(5, 5, 15, 15);
    CRgn result;
    EXPECT_EQ(result.CombineRgn(&a, &b, RGN_OR), COMPLEXREGION);
    EXPECT_EQ(result.CombineRgn(&result, &b, RGN_DIFF), COMPLEXREGION);
    EXPECT_EQ(result.CombineRgn(&result, &a, RGN_AND), COMPLEXREGION);
    EXPECT_EQ(result.CombineRgn(&result, nullptr, RGN_OR), ERROR);
    CRect box;
    EXPECT_EQ(result.GetRgnBox(&box), COMPLEXREGION);
    EXPECT_EQ(box, CRect(0, 0, 10, 10));
    EXPECT_EQ(result.CombineRgn(&result, &a, RGN_DIFF), NULLREGION);
}

} // namespace
