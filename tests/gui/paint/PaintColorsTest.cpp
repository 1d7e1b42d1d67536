#include <gtest/gtest.h>

#include <ostrel/gui/paint/BackgroundImage.h>
#include <ostrel/gui/paint/MsImg32.h>
#include <ostrel/gui/paint/detail/PaintBuffers.h>
#include <ostrel/gui/paint/detail/Primitives.h>
#include <ostrel/platform/drawing/ImageList.h>

#include "PaintScene.h"

using namespace Ostrel::GUI;
using Ostrel::Platform::Surface;

TEST(PaintColorsTest, BlendsEachChannelTruncated)
{
    EXPECT_EQ(CMsImg32::AlphaBlend(0xFFFFFFUL, 0xB46464UL, 60), 0xEDDADAUL);
    EXPECT_EQ(CMsImg32::AlphaBlend(0x123456UL, 0xFEDCBAUL, 0), 0x123456UL);
    EXPECT_EQ(CMsImg32::AlphaBlend(0x123456UL, 0xFEDCBAUL, 255), 0xFEDCBAUL);
    EXPECT_EQ(CMsImg32::AlphaBlend(0xFF000000UL, 0xFF0000FFUL, 128), 0x000080UL);
}

TEST(PaintColorsTest, DottedLinesBeginWithADot)
{
    Surface surface(12, 12);
    CDC dc;
    dc.AttachSurface(surface);
    COLORREF const ink = RGB(1, 2, 3);
    Detail::DrawDottedHorizontal(dc, 1, 8, 0, ink);
    Detail::DrawDottedHorizontal(dc, 2, 7, 2, ink);
    Detail::DrawDottedVertical(dc, 11, 3, 8, ink);
    EXPECT_EQ(PaintTest::PixelsRight(surface, {0, 0}, 10, ink), ".#.#.#.#..");
    EXPECT_EQ(PaintTest::PixelsRight(surface, {0, 2}, 10, ink), "..#.#.#...");
    EXPECT_EQ(PaintTest::PixelsDown(surface, {11, 0}, 10, ink), "...#.#.#..");
}

TEST(PaintColorsTest, PlacesTheBackgroundPictureBelowTheHeader)
{
    struct
    {
        CBackgroundImage::Mode mode;
        CSize picture;
        CRect placed;
    } const cases[] = {
        {CBackgroundImage::Stretch, {10, 10}, {0, 0, 100, 80}},
        {CBackgroundImage::Tile, {10, 10}, {0, 0, 100, 80}},
        {CBackgroundImage::Center, {11, 20}, {44, 40, 55, 60}},
        {CBackgroundImage::Center, {203, 83}, {-51, 9, 152, 92}},
    };
    for (auto const& test : cases)
    {
        EXPECT_EQ(Detail::PlaceBackground(CRect(0, 0, 100, 80), 20, test.picture, test.mode), test.placed)
            << "mode " << test.mode << " width " << test.picture.cx;
    }
}

TEST(PaintColorsTest, PreparesThePictureOnce)
{
    CBitmap picture;
    DWORD const pixels[] = {0xFFFF0000, 0xFF00FF00};
    picture.CreateBitmap(2, 1, 1, 32, pixels);
    CBackgroundImage image;
    image.SetBitmap(&picture);
    image.SetMode(CBackgroundImage::Tile);
    CDC dc;
    Detail::PaintBuffers buffers;
    buffers.Rebuild(dc, {.clientRect = CRect(0, 0, 5, 4), .headerHeight = 2, .background = image});
    ASSERT_NE(buffers.Background(), nullptr);
    EXPECT_NE(buffers.OffScreenBuffer(), nullptr);
    EXPECT_EQ(buffers.Background()->GetSurface()->ColorAt(2, 2), RGB(255, 0, 0));
    EXPECT_EQ(buffers.Background()->GetSurface()->ColorAt(3, 3), RGB(0, 255, 0));

    buffers.Rebuild(dc, {.clientRect = CRect(0, 0, 5, 4), .headerHeight = 2, .background = {}});
    EXPECT_EQ(buffers.Background(), nullptr);
    EXPECT_EQ(buffers.OffScreenBuffer(), nullptr);
}

TEST(PaintColorsTest, LoadsSquaresFromAStrip)
{
    CBitmap strip;
    strip.CreateCompatibleBitmap(nullptr, 35, 16);
    CBitmap narrow;
    narrow.CreateCompatibleBitmap(nullptr, 15, 16);
    CImageList images;
    EXPECT_TRUE(CMsImg32::Load32BitImage(images, strip, true, 0xFF00FF));
    EXPECT_EQ(images.GetImageCount(), 2);
    EXPECT_FALSE(CMsImg32::Load32BitImage(images, narrow, true, 0xFF00FF));
    EXPECT_EQ(images.GetImageCount(), 0);
}
