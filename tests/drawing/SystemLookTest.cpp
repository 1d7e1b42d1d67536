// Colours, sizes and control parts of the system look.
#include <cstdlib>

#include <gtest/gtest.h>

#include <ostrel/platform/drawing/SystemLook.h>

#include "DrawingTesting.h"

using namespace Ostrel::Platform;

namespace
{

int Brightness(COLORREF color)
{
    return GetRValue(color) + GetGValue(color) + GetBValue(color);
}

class SystemLookTest : public testing::Test
{
protected:
    void TearDown() override
    {
        SetColorScheme(ColorScheme::Light);
        SetScale(1);
    }
};

TEST_F(SystemLookTest, TextIsReadableInBothSchemes)
{
    for (ColorScheme const scheme : {ColorScheme::Light, ColorScheme::Dark})
    {
        SetColorScheme(scheme);
        constexpr int kPairs[][2] = {{COLOR_WINDOW, COLOR_WINDOWTEXT},       {COLOR_BTNFACE, COLOR_BTNTEXT},
                                     {COLOR_HIGHLIGHT, COLOR_HIGHLIGHTTEXT}, {COLOR_INFOBK, COLOR_INFOTEXT},
                                     {COLOR_MENU, COLOR_MENUTEXT},           {COLOR_WINDOW, COLOR_GRAYTEXT}};
        for (auto const& [back, text] : kPairs)
        {
            EXPECT_GT(std::abs(Brightness(GetSysColor(back)) - Brightness(GetSysColor(text))), 240) << back;
        }
    }
    EXPECT_GT(Brightness(GetSysColor(COLOR_WINDOWTEXT)), Brightness(GetSysColor(COLOR_WINDOW)));
    int const numbers[] = {COLOR_WINDOW, 99};
    COLORREF const colors[] = {kRed, kRed};
    EXPECT_FALSE(SetSysColors(2, numbers, colors)); // all or nothing
    EXPECT_NE(GetSysColor(COLOR_WINDOW), kRed);
    EXPECT_TRUE(SetSysColors(1, numbers, colors));
    EXPECT_EQ(GetSysColor(COLOR_WINDOW), kRed);
    EXPECT_EQ(GetSysColor(-1), 0U);
}

TEST_F(SystemLookTest, SizesFollowTheScale)
{
    int const bar = GetSystemMetrics(SM_CXVSCROLL);
    SetScale(2);
    EXPECT_EQ(GetSystemMetrics(SM_CXVSCROLL), 2 * bar);
    SetScale(0.01);
    EXPECT_GE(GetSystemMetrics(SM_CXBORDER), 1);
    SetScale(-3);
    EXPECT_GT(GetScale(), 0);
    EXPECT_EQ(GetSystemMetrics(12345), 0);
}

// Parts stay inside their rectangle, however small it is; scroll bar parts also fill it.
TEST_F(SystemLookTest, PartsStayInTheirRectangles)
{
    using Draw = void (*)(CDC&, CRect const&, PartState);
    struct Part
    {
        Draw draw;
        bool fills;
        int smallest;
    };
    Part const parts[] = {
        {[](CDC& dc, CRect const& rect, PartState state) { DrawScrollTrack(dc, rect, state); }, true, 0},
        {[](CDC& dc, CRect const& rect, PartState state) { DrawScrollThumb(dc, rect, true, state); }, true, 0},
        {[](CDC& dc, CRect const& rect, PartState state) { DrawScrollThumb(dc, rect, false, state); }, true, 0},
        {[](CDC& dc, CRect const& rect, PartState state) { DrawScrollButton(dc, rect, ArrowDirection::Left, state); },
         true, 0},
        {[](CDC& dc, CRect const& rect, PartState state) { DrawScrollButton(dc, rect, ArrowDirection::Down, state); },
         true, 0},
        {[](CDC& dc, CRect const& rect, PartState state) { DrawPushButton(dc, rect, state, true); }, false, 0},
        {[](CDC& dc, CRect const& rect, PartState state) { DrawCheckBox(dc, rect, state, true, false); }, false, 13},
        {[](CDC& dc, CRect const& rect, PartState state) { DrawRadioButton(dc, rect, state, true); }, false, 13},
        {[](CDC& dc, CRect const& rect, PartState state) { DrawFieldFrame(dc, rect, state == PartState::Hot); }, false,
         0}};
    for (double const scale : {1.0, 1.5, 3.0})
    {
        SetScale(scale);
        for (Part const& part : parts)
        {
            for (int const size : {0, 1, 2, 3, 5, 8, 13, 17, 40})
            {
                CRect const rect(CPoint(10, 10), CSize(size + 1, size));
                for (PartState const state :
                     {PartState::Normal, PartState::Hot, PartState::Pressed, PartState::Disabled})
                {
                    if (size < Scaled(part.smallest))
                    {
                        continue;
                    }
                    Canvas canvas(70, 70);
                    canvas.dc.FillSolidRect(canvas.surface.Bounds(), RGB(255, 0, 255));
                    part.draw(canvas.dc, rect, state);
                    for (int y = 0; y < 70; ++y)
                    {
                        for (int x = 0; x < 70; ++x)
                        {
                            bool const inside = rect.PtInRect(CPoint(x, y));
                            bool const touched = canvas.surface.ColorAt(x, y) != RGB(255, 0, 255);
                            ASSERT_TRUE(inside ? touched || !part.fills : !touched)
                                << &part - parts << " size " << size << " at " << x << ',' << y;
                        }
                    }
                }
            }
        }
    }
}

TEST_F(SystemLookTest, EdgesTakeWhatTheyDrawOffTheRectangle)
{
    Canvas canvas(20, 20);
    CRect rect(2, 2, 18, 18);
    EXPECT_TRUE(canvas.dc.DrawEdge(&rect, EDGE_RAISED, BF_RECT | BF_ADJUST));
    EXPECT_EQ(rect, CRect(4, 4, 16, 16));
    EXPECT_TRUE(canvas.dc.DrawEdge(&rect, BDR_SUNKENOUTER, BF_TOP | BF_ADJUST));
    EXPECT_EQ(rect, CRect(4, 5, 16, 16));
    EXPECT_FALSE(canvas.dc.DrawFrameControl(&rect, 77, 0));
    EXPECT_FALSE(canvas.dc.DrawEdge(nullptr, EDGE_RAISED, BF_RECT));
}

} // namespace
