// Surfaces, bitmaps, image lists and copies between contexts.
#include <cstdio>
#include <fstream>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include <ostrel/platform/drawing/ImageList.h>

#include "DrawingTesting.h"

using Ostrel::Platform::Surface;

namespace
{

std::string const kPngPath = std::string(OSTREL_TEST_FOLDER) + "/round-trip.png";

void FillDistinct(Surface& surface)
{
    for (int y = 0; y < surface.Height(); ++y)
    {
        for (int x = 0; x < surface.Width(); ++x)
        {
            surface.Row(y)[x] = 0xFF000000U | static_cast<std::uint32_t>(x * 8 + y * 4096);
        }
    }
}

TEST(SurfaceTest, PngKeepsEveryPixelAndDamagedFilesChangeNothing)
{
    Surface written(13, 7);
    FillDistinct(written);
    written.Row(2)[3] = 0;          // transparent
    written.Row(2)[4] = 0x80400080; // half
    ASSERT_TRUE(written.SavePng(kPngPath));
    Surface read(2, 2);
    ASSERT_TRUE(read.LoadPng(kPngPath));
    ASSERT_EQ(read.Bounds(), written.Bounds());
    for (int y = 0; y < 7; ++y)
    {
        EXPECT_TRUE(std::equal(written.Row(y), written.Row(y) + 13, read.Row(y))) << y;
    }
    std::ifstream whole(kPngPath, std::ios::binary);
    std::string const bytes((std::istreambuf_iterator<char>(whole)), std::istreambuf_iterator<char>());
    for (std::size_t length = 0; length + 20 < bytes.size(); length += 7)
    {
        std::ofstream(kPngPath, std::ios::binary | std::ios::trunc)
            .write(bytes.data(), static_cast<std::streamsize>(length));
        ASSERT_FALSE(read.LoadPng(kPngPath)) << length;
        ASSERT_EQ(read.PixelAt(5, 5), written.PixelAt(5, 5));
    }
    std::remove(kPngPath.c_str());
    EXPECT_FALSE(read.LoadPng(kPngPath));
    EXPECT_FALSE(Surface().SavePng(kPngPath));
    EXPECT_FALSE(written.SavePng("/nowhere/at/all.png"));
}

TEST(SurfaceTest, ScrollMovesExactlyWhatStaysInTheArea)
{
    CRect const area(3, 2, 17, 13);
    for (CPoint const by :
         {CPoint(0, 3), CPoint(0, -3), CPoint(4, 0), CPoint(-4, 0), CPoint(2, -1), CPoint(0, 11), CPoint(50, 0)})
    {
        Surface surface(20, 15);
        Surface before(20, 15);
        FillDistinct(surface);
        FillDistinct(before);
        surface.Scroll(area, by.x, by.y);
        for (int y = 0; y < 15; ++y)
        {
            for (int x = 0; x < 20; ++x)
            {
                CPoint const from(x - by.x, y - by.y);
                bool const moved = area.PtInRect(CPoint(x, y)) && area.PtInRect(from);
                ASSERT_EQ(surface.PixelAt(x, y), moved ? before.PixelAt(from.x, from.y) : before.PixelAt(x, y));
            }
        }
    }
}

TEST(SurfaceTest, ResizeKeepsTheCommonPartAndCopiesAreClipped)
{
    Surface surface(10, 10);
    FillDistinct(surface);
    std::uint32_t const kept = surface.PixelAt(4, 4);
    surface.Resize(5, 20);
    EXPECT_EQ(surface.PixelAt(4, 4), kept);
    EXPECT_EQ(surface.PixelAt(4, 15), 0xFF000000U);
    EXPECT_EQ(surface.PixelAt(5, 4), 0U);
    Surface target(6, 6);
    target.CopyFrom(surface, CRect(-3, 2, 30, 8), CPoint(1, 4));
    EXPECT_EQ(target.PixelAt(4, 4), surface.PixelAt(0, 2));
    EXPECT_EQ(target.PixelAt(3, 4), 0xFF000000U);
}

TEST(BitmapTest, IsSharedWithTheContextThatSelectedIt)
{
    CDC memory;
    memory.CreateCompatibleDC(nullptr);
    auto bitmap = std::make_unique<CBitmap>();
    EXPECT_FALSE(bitmap->CreateCompatibleBitmap(nullptr, 0, 5));
    ASSERT_TRUE(bitmap->CreateCompatibleBitmap(nullptr, 20, 10));
    CBitmap* const none = memory.SelectObject(bitmap.get());
    memory.FillSolidRect(0, 0, 20, 10, kRed);
    EXPECT_EQ(bitmap->GetSurface()->ColorAt(19, 9), kRed);
    int const saved = memory.SaveDC();
    EXPECT_EQ(memory.SelectObject(none), bitmap.get());
    memory.RestoreDC(saved); // the clip of the large bitmap must not survive
    memory.FillSolidRect(0, 0, 20, 10, kBlack);
    memory.SelectObject(bitmap.get());
    bitmap.reset();
    memory.FillSolidRect(0, 0, 20, 10, kBlack);
    EXPECT_EQ(memory.GetPixel(19, 9), kBlack);
}

TEST(BitmapTest, BitsAreOpaqueUnlessTheySayOtherwise)
{
    std::uint32_t const plain[] = {0x00112233, 0x00FFFFFF};
    std::uint32_t const withOpacity[] = {0x80FF0000, 0x00FFFFFF};
    CBitmap bitmap;
    ASSERT_TRUE(bitmap.CreateBitmap(2, 1, 1, 32, plain));
    EXPECT_EQ(bitmap.GetSurface()->PixelAt(0, 0), 0xFF112233U);
    ASSERT_TRUE(bitmap.CreateBitmap(2, 1, 1, 32, withOpacity));
    EXPECT_EQ(bitmap.GetSurface()->PixelAt(0, 0), 0x80800000U);
    EXPECT_EQ(bitmap.GetSurface()->PixelAt(1, 0), 0U);
    EXPECT_FALSE(bitmap.CreateBitmap(2, 1, 1, 8, plain));
    BITMAP description{};
    EXPECT_GT(bitmap.GetBitmap(&description), 0);
    EXPECT_EQ(description.bmWidth, 2);
}

TEST(CopyTest, ScalesMixesAndSurvivesOverlap)
{
    Canvas source(4, 4);
    FillDistinct(source.surface);
    Canvas target(20, 20);
    ASSERT_TRUE(target.dc.StretchBlt(2, 2, 8, 8, &source.dc, 0, 0, 4, 4, SRCCOPY));
    for (int i = 0; i < 8; ++i)
    {
        EXPECT_EQ(target.surface.PixelAt(2 + i, 3), source.surface.PixelAt(i / 2, 0));
    }
    ASSERT_TRUE(target.dc.BitBlt(3, 3, 8, 8, &target.dc, 2, 2, SRCCOPY)); // over itself
    EXPECT_EQ(target.surface.PixelAt(10, 10), source.surface.PixelAt(3, 3));
    EXPECT_EQ(target.surface.PixelAt(3, 3), source.surface.PixelAt(0, 0));
    EXPECT_FALSE(target.dc.StretchBlt(0, 0, 8, 0, &source.dc, 0, 0, 4, 4, SRCCOPY));

    Canvas keyed(4, 4);
    source.dc.SetPixel(1, 1, RGB(1, 2, 3));
    keyed.dc.TransparentBlt(0, 0, 4, 4, &source.dc, 0, 0, 4, 4, RGB(1, 2, 3));
    EXPECT_EQ(keyed.surface.ColorAt(1, 1), kWhite);
    EXPECT_EQ(keyed.surface.PixelAt(2, 1), source.surface.PixelAt(2, 1));

    Canvas mixed(4, 4);
    Canvas black(4, 4);
    black.dc.FillSolidRect(black.surface.Bounds(), kBlack);
    mixed.dc.AlphaBlend(0, 0, 4, 4, &black.dc, 0, 0, 4, 4, BLENDFUNCTION{AC_SRC_OVER, 0, 51, 0});
    EXPECT_EQ(mixed.surface.ColorAt(0, 0), RGB(204, 204, 204));
}

// What lies outside the source is left alone, also when scaled.
TEST(CopyTest, PartsOutsideTheSourceAreNotDrawn)
{
    Canvas source(4, 4);
    source.dc.FillSolidRect(source.surface.Bounds(), kRed);
    Canvas target(20, 20);
    target.dc.BitBlt(2, 2, 10, 10, &source.dc, -3, 1, SRCCOPY);
    EXPECT_EQ(target.Ink(), CRect(5, 2, 9, 5));
    Canvas scaled(40, 40);
    scaled.dc.StretchBlt(0, 0, 24, 24, &source.dc, -4, -4, 12, 12, SRCCOPY);
    EXPECT_EQ(scaled.Ink(), CRect(8, 8, 16, 16));
    scaled.dc.SetStretchBltMode(HALFTONE);
    scaled.dc.StretchBlt(20, 20, 9, 9, &source.dc, 0, 0, 4, 4, SRCCOPY);
    EXPECT_EQ(scaled.surface.ColorAt(28, 28), kRed);
    EXPECT_EQ(scaled.surface.ColorAt(29, 29), kWhite);
}

TEST(CopyTest, GradientsRunFromCornerToCorner)
{
    Canvas canvas(256, 4);
    TRIVERTEX const corners[] = {{0, 0, 0, 0, 0, 0}, {256, 4, 0xFF00, 0x8000, 0, 0}};
    GRADIENT_RECT const rect{0, 1};
    ASSERT_TRUE(canvas.dc.GradientFill(corners, 2, &rect, 1, GRADIENT_FILL_RECT_H));
    EXPECT_EQ(canvas.surface.ColorAt(0, 0), kBlack);
    EXPECT_EQ(canvas.surface.ColorAt(128, 3), RGB(127, 64, 0));
    GRADIENT_RECT const wrong{0, 2};
    EXPECT_FALSE(canvas.dc.GradientFill(corners, 2, &wrong, 1, GRADIENT_FILL_RECT_H));
}

TEST(ImageListTest, MaskedPixelsShowWhatLiesBelow)
{
    CBitmap strip;
    strip.CreateCompatibleBitmap(nullptr, 20, 8); // two images of 8 and a rest that is left out
    CDC memory;
    memory.CreateCompatibleDC(nullptr);
    memory.SelectObject(&strip);
    memory.FillSolidRect(0, 0, 20, 8, RGB(255, 0, 255));
    memory.FillSolidRect(2, 2, 4, 4, kRed);
    memory.FillSolidRect(8, 0, 8, 8, kBlack);
    CImageList list;
    EXPECT_EQ(list.Add(&strip, CLR_NONE), -1);
    ASSERT_TRUE(list.Create(8, 8, ILC_COLOR32 | ILC_MASK, 2, 2));
    EXPECT_EQ(list.Add(&strip, RGB(255, 0, 255)), 0);
    EXPECT_EQ(list.Add(&strip, CLR_DEFAULT), 2);
    EXPECT_EQ(list.GetImageCount(), 4);
    IMAGEINFO info{};
    ASSERT_TRUE(list.GetImageInfo(1, &info));
    EXPECT_EQ(CRect(info.rcImage), CRect(8, 0, 16, 8));
    EXPECT_FALSE(list.GetImageInfo(4, &info));
    EXPECT_NE(CBitmap::FromHandle(info.hbmImage), nullptr);

    Canvas canvas(12, 12);
    ASSERT_TRUE(list.Draw(&canvas.dc, 2, CPoint(1, 1), ILD_TRANSPARENT));
    EXPECT_EQ(canvas.Ink(), CRect(3, 3, 7, 7));
    EXPECT_EQ(list.SetBkColor(RGB(0, 9, 0)), CLR_NONE);
    list.Draw(&canvas.dc, 0, CPoint(1, 1), ILD_NORMAL);
    EXPECT_EQ(canvas.surface.ColorAt(1, 1), RGB(0, 9, 0));
    list.Draw(&canvas.dc, 1, CPoint(1, 1), ILD_TRANSPARENT | ILD_BLEND50);
    EXPECT_EQ(canvas.surface.ColorAt(1, 1), RGB(0, 4, 0));
    EXPECT_FALSE(list.Draw(&canvas.dc, -1, CPoint(0, 0), ILD_NORMAL));
    ASSERT_TRUE(list.Remove(0));
    list.Draw(&canvas.dc, 0, CPoint(1, 1), ILD_NORMAL);
    EXPECT_EQ(canvas.surface.ColorAt(4, 4), kBlack);
    EXPECT_EQ(list.GetImageCount(), 3);
}

} // namespace
