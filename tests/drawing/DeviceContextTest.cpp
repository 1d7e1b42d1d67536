// Lines, shapes, clips and the state of device contexts, pixel by pixel.
#include <functional>
#include <limits>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include <ostrel/platform/drawing/SystemLook.h>

#include "DrawingTesting.h"

using Ostrel::Platform::Region;
using Ostrel::Platform::Surface;

namespace
{

TEST(LineTest, LeavesTheEndPointOutInEveryDirection)
{
    struct Case
    {
        CPoint from;
        CPoint to;
        CRect ink;
    };
    for (Case const& line :
         {Case{{2, 3}, {6, 3}, {2, 3, 6, 4}}, Case{{6, 3}, {2, 3}, {3, 3, 7, 4}}, Case{{3, 2}, {3, 6}, {3, 2, 4, 6}},
          Case{{3, 6}, {3, 2}, {3, 3, 4, 7}}, Case{{1, 1}, {5, 5}, {1, 1, 5, 5}}, Case{{5, 5}, {1, 1}, {2, 2, 6, 6}},
          Case{{4, 4}, {4, 4}, {0, 0, 0, 0}}})
    {
        Canvas canvas(10, 10);
        canvas.dc.MoveTo(line.from);
        canvas.dc.LineTo(line.to);
        EXPECT_EQ(canvas.Ink(), line.ink) << canvas.Picture(canvas.surface.Bounds());
        EXPECT_EQ(canvas.dc.GetCurrentPosition(), line.to);
    }
}

TEST(LineTest, DotsLieOnEvenCoordinatesOfTheCaller)
{
    for (int const originX : {0, 1, 6})
    {
        for (int const start : {2, 3})
        {
            Canvas canvas(24, 24);
            canvas.dc.AttachSurface(canvas.surface, CPoint(originX, 5), Region(canvas.surface.Bounds()));
            CPen dotted(PS_DOT, 1, kBlack);
            canvas.dc.SelectObject(&dotted);
            canvas.dc.MoveTo(start, 1);
            canvas.dc.LineTo(10, 1);
            canvas.dc.MoveTo(12, start);
            canvas.dc.LineTo(12, 10);
            for (int i = 0; i < 12; ++i)
            {
                bool const isDot = i % 2 == 0 && i >= start && i < 10;
                EXPECT_EQ(canvas.dc.GetPixel(i, 1) == kBlack, isDot) << originX << ' ' << i;
                EXPECT_EQ(canvas.dc.GetPixel(12, i) == kBlack, isDot) << originX << ' ' << i;
            }
        }
    }
}

TEST(ShapeTest, PolygonsRectanglesAndFrames)
{
    Canvas canvas(12, 8);
    CBrush brush(kRed);
    canvas.dc.SelectObject(&brush);
    canvas.dc.SelectStockObject(NULL_PEN);
    POINT const triangle[] = {{1, 0}, {5, 4}, {1, 8}};
    canvas.dc.Polygon(triangle, 3);
    canvas.dc.SelectStockObject(BLACK_PEN);
    canvas.dc.Rectangle(7, 1, 11, 5);
    EXPECT_EQ(canvas.Picture(canvas.surface.Bounds()), "............\n"
                                                       ".#.....####.\n"
                                                       ".##....####.\n"
                                                       ".###...####.\n"
                                                       ".###...####.\n"
                                                       ".##.........\n"
                                                       ".#..........\n"
                                                       "............\n");
    EXPECT_EQ(canvas.dc.GetPixel(7, 1), kBlack);
    EXPECT_EQ(canvas.dc.GetPixel(8, 2), kRed);
    canvas.dc.Draw3dRect(0, 0, 4, 4, RGB(1, 1, 1), RGB(2, 2, 2));
    EXPECT_EQ(canvas.dc.GetPixel(0, 0), RGB(1, 1, 1));
    EXPECT_EQ(canvas.dc.GetPixel(3, 0), RGB(2, 2, 2));
    EXPECT_EQ(canvas.dc.GetPixel(0, 3), RGB(2, 2, 2));
}

// In every row the inside of a polygon reaches from outline to outline, and never beyond.
TEST(ShapeTest, FillsReachTheOutline)
{
    constexpr COLORREF kOutline = RGB(0, 0, 250);
    POINT const shapes[][3] = {{{2, 2}, {20, 11}, {2, 20}},
                               {{20, 2}, {2, 11}, {20, 20}},
                               {{11, 1}, {21, 6}, {3, 19}},
                               {{1, 3}, {22, 4}, {9, 21}}};
    for (POINT const(&corners)[3] : shapes)
    {
        Canvas filled(24, 24);
        Canvas outline(24, 24);
        CPen pen(PS_SOLID, 1, kOutline);
        CBrush brush(kRed);
        for (Canvas* const canvas : {&filled, &outline})
        {
            canvas->dc.SelectObject(&pen);
            canvas->dc.SelectObject(&brush);
        }
        filled.dc.Polygon(corners, 3);
        POINT const closed[] = {corners[0], corners[1], corners[2], corners[0]};
        outline.dc.Polyline(closed, 4);
        for (int y = 0; y < 24; ++y)
        {
            std::string const row = outline.Picture(CRect(0, y, 24, y + 1));
            std::size_t const first = row.find('#');
            std::string expected(24, '.');
            if (first != std::string::npos)
            {
                std::size_t const last = row.rfind('#');
                expected.replace(first, last - first + 1, last - first + 1, '#');
            }
            EXPECT_EQ(filled.Picture(CRect(0, y, 24, y + 1)), expected + '\n') << corners[0].x << ' ' << y;
        }
    }
}

// Every primitive under a clip gives the pixels of the whole picture inside the clip and none outside.
TEST(ClipTest, ClippedDrawingIsTheWholeDrawingInsideTheClip)
{
    Surface picture(20, 20);
    CDC pictureDC;
    pictureDC.AttachSurface(picture);
    pictureDC.FillSolidRect(3, 3, 9, 9, RGB(10, 200, 30));
    std::mt19937 random(99);
    auto const number = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    using Primitive = std::function<void(CDC&, std::mt19937)>;
    auto const at = [](std::mt19937& r)
    { return CPoint(static_cast<int>(r() % 90) - 10, static_cast<int>(r() % 60) - 10); };
    std::vector<Primitive> const primitives = {
        [&](CDC& dc, std::mt19937 r) { dc.FillSolidRect(CRect(at(r), at(r)), kRed); },
        [&](CDC& dc, std::mt19937 r) { dc.BlendRect(CRect(at(r), at(r)), kRed, 77); },
        [&](CDC& dc, std::mt19937 r)
        {
            dc.MoveTo(at(r));
            dc.LineTo(at(r));
        },
        [&](CDC& dc, std::mt19937 r)
        {
            POINT const corners[] = {at(r), at(r), at(r), at(r)};
            dc.Polygon(corners, 4);
        },
        [&](CDC& dc, std::mt19937 r)
        {
            CRect const place(at(r), CSize(60, 20));
            dc.DrawText(std::string_view("Clipped 123 \xD7\xA9\xE6\x97\xA5"), place, DT_SINGLELINE | DT_NOCLIP);
        },
        [&](CDC& dc, std::mt19937 r)
        {
            CPoint const to = at(r);
            dc.StretchBlt(to.x, to.y, 31, 17, &pictureDC, 2, 2, 15, 12, SRCCOPY);
        },
        [&](CDC& dc, std::mt19937 r)
        {
            CPoint const to = at(r);
            dc.TransparentBlt(to.x, to.y, 20, 20, &pictureDC, 0, 0, 20, 20, kBlack);
        },
        [&](CDC& dc, std::mt19937 r)
        {
            CRect const frame(at(r), CSize(21, 13));
            dc.DrawFocusRect(&frame);
            dc.InvertRect(&frame);
        }};
    for (int round = 0; round < 300; ++round)
    {
        Canvas whole(80, 50);
        Canvas clipped(80, 50);
        Region expected(whole.surface.Bounds());
        for (int i = 0; i < 3; ++i)
        {
            CRect const rect(CPoint(number(70), number(40)), CSize(number(60), number(40)));
            (i == 0 ? clipped.dc.IntersectClipRect(&rect) : clipped.dc.ExcludeClipRect(&rect));
            i == 0 ? expected.Intersect(rect) : expected.Subtract(rect);
        }
        for (Primitive const& draw : primitives)
        {
            std::mt19937 const seed(static_cast<unsigned>(number(1 << 30)));
            draw(whole.dc, seed);
            draw(clipped.dc, seed);
        }
        for (int y = 0; y < 50; ++y)
        {
            for (int x = 0; x < 80; ++x)
            {
                std::uint32_t const wanted =
                    expected.Contains(CPoint(x, y)) ? whole.surface.PixelAt(x, y) : 0xFFFFFFFFU;
                ASSERT_EQ(clipped.surface.PixelAt(x, y), wanted) << round << ": " << x << ',' << y;
            }
        }
    }
}

TEST(ClipTest, OriginsSavedStatesAndRegionsAddUp)
{
    Canvas canvas(40, 40);
    canvas.dc.AttachSurface(canvas.surface, CPoint(10, 10), Region(CRect(10, 10, 30, 30)));
    CRect box;
    EXPECT_EQ(canvas.dc.GetClipBox(&box), SIMPLEREGION);
    EXPECT_EQ(box, CRect(0, 0, 20, 20));
    int const saved = canvas.dc.SaveDC();
    canvas.dc.SetViewportOrg(-5, 0);
    canvas.dc.SetTextColor(kRed);
    EXPECT_EQ(canvas.dc.IntersectClipRect(5, 0, 15, 10), SIMPLEREGION);
    EXPECT_EQ(canvas.dc.ExcludeClipRect(7, 2, 9, 4), COMPLEXREGION);
    canvas.dc.GetClipBox(&box);
    EXPECT_EQ(box, CRect(5, 0, 15, 10));
    EXPECT_FALSE(canvas.dc.RectVisible(CRect(7, 2, 9, 4)));
    EXPECT_TRUE(canvas.dc.RectVisible(CRect(8, 3, 10, 5)));
    EXPECT_FALSE(canvas.dc.RestoreDC(saved + 1));
    EXPECT_TRUE(canvas.dc.RestoreDC(-1));
    EXPECT_FALSE(canvas.dc.RestoreDC(-1));
    EXPECT_EQ(canvas.dc.GetTextColor(), kBlack);
    CRgn wide;
    wide.CreateRectRgn(-100, -100, 100, 5);
    EXPECT_EQ(canvas.dc.SelectClipRgn(&wide), SIMPLEREGION); // never beyond what is visible
    canvas.dc.FillSolidRect(CRect(-50, -50, 50, 50), kRed);
    EXPECT_EQ(canvas.Ink(), CRect(10, 10, 30, 15));
    EXPECT_EQ(canvas.dc.SelectClipRgn(nullptr), SIMPLEREGION);
    canvas.dc.GetClipBox(&box);
    EXPECT_EQ(box, CRect(0, 0, 20, 20));
}

TEST(StateTest, SelectingGivesBackWhatWasSelectedAndNeedsNoLivingObject)
{
    Canvas canvas(8, 8);
    CPen red(PS_SOLID, 1, kRed);
    CPen* const stock = canvas.dc.SelectObject(&red);
    {
        CPen dying(PS_SOLID, 1, RGB(0, 0, 9));
        EXPECT_EQ(canvas.dc.SelectObject(&dying), &red);
    }
    canvas.dc.MoveTo(0, 0);
    canvas.dc.LineTo(4, 0);
    EXPECT_EQ(canvas.dc.GetPixel(1, 0), RGB(0, 0, 9));
    canvas.dc.SelectObject(&red);
    EXPECT_EQ(canvas.dc.SelectObject(stock), &red);
    EXPECT_EQ(stock, CPen::FromHandle(static_cast<HPEN>(GetStockObject(BLACK_PEN))));
}

TEST(StateTest, HandlesFindTheirObjectsUntilTheseAreGone)
{
    HFONT handle = nullptr;
    {
        CFont font;
        EXPECT_EQ(font.GetSafeHandle(), nullptr);
        font.CreatePointFont(90, "DejaVu Sans");
        handle = font;
        EXPECT_EQ(CFont::FromHandle(handle), &font);
        EXPECT_EQ(CPen::FromHandle(reinterpret_cast<HPEN>(handle)), nullptr);
    }
    EXPECT_EQ(CFont::FromHandle(handle), nullptr);
    EXPECT_EQ(CFont::FromHandle(nullptr), nullptr);
    HDC context = nullptr;
    {
        CDC dc;
        context = dc.GetSafeHdc();
        EXPECT_EQ(CDC::FromHandle(context), &dc);
    }
    EXPECT_EQ(CDC::FromHandle(context), nullptr);
}

// Nothing here may crash, overflow or leave the surface; the sanitizers watch.
TEST(StateTest, AbsurdCoordinatesAndContextsWithoutATargetAreHarmless)
{
    constexpr int kMin = std::numeric_limits<int>::min();
    constexpr int kMax = std::numeric_limits<int>::max();
    Canvas canvas(16, 16);
    CDC nowhere;
    for (CDC* const dc : {&canvas.dc, &nowhere})
    {
        for (CRect const& rect : {CRect(kMin, kMin, kMax, kMax), CRect(kMax, kMax, kMin, kMin), CRect(5, 5, kMax, kMin),
                                  CRect(kMax, 0, kMax, 16)})
        {
            CRect place = rect;
            dc->FillSolidRect(rect, kRed);
            dc->BlendRect(rect, kRed, 3);
            dc->DrawFocusRect(&rect);
            dc->MoveTo(rect.TopLeft());
            dc->LineTo(rect.BottomRight());
            dc->DrawText(std::string_view("x\ny"), rect, DT_WORDBREAK | DT_END_ELLIPSIS);
            dc->DrawText("x", 1, &place, DT_SINGLELINE | DT_RIGHT | DT_VCENTER | DT_CALCRECT);
            dc->TextOut(rect.left, rect.top, "text", 4);
            dc->BitBlt(rect.left, rect.top, kMax, kMax, dc, kMin, 3, SRCCOPY);
            dc->StretchBlt(0, 0, kMax, kMax, dc, -3, 0, 9, 9, SRCCOPY);
            dc->SetPixel(rect.left, rect.top, kRed);
            dc->IntersectClipRect(&rect);
            dc->SelectClipRgn(nullptr);
            dc->OffsetViewportOrg(rect.left, rect.top);
        }
        dc->SetViewportOrg(0, 0);
    }
    EXPECT_EQ(nowhere.GetTextExtent("text", 4), CSize(0, 0));
    EXPECT_EQ(nowhere.GetPixel(0, 0), CLR_INVALID);
    POINT const spike[] = {{kMin, kMin}, {kMax, 3}, {7, kMax}};
    canvas.dc.Polygon(spike, 3);
}

} // namespace
