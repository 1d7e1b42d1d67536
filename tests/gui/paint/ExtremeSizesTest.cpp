// Sizes, numbers and places far outside of what makes sense are painted without harm.
#include <limits>
#include <random>

#include <gtest/gtest.h>

#include <ostrel/gui/header/Column.h>
#include <ostrel/gui/paint/Appearance.h>
#include <ostrel/gui/paint/BackgroundImage.h>
#include <ostrel/gui/paint/CustomDraw.h>
#include <ostrel/gui/paint/HighlightSettings.h>
#include <ostrel/platform/drawing/ImageList.h>
#include <ostrel/testing/Driver.h>
#include <ostrel/testing/GridWindow.h>

#include "PaintScene.h"

using namespace Ostrel;
using namespace Ostrel::GUI;
using namespace Ostrel::Testing;

namespace
{

class AnyHeight : public CCustomDraw
{
public:
    AnyHeight() : CCustomDraw(false) {}
    int GetOptimalRowHeight(CFont* /*font*/, CDC& /*dc*/) const override { return height; }

    int height = 14;
};

class ExtremeGrid
{
public:
    ExtremeGrid(Driver& driver, unsigned seed) : m_random(seed), m_window(driver)
    {
        m_window.AddFixed({.name = "sum"});
        m_window.AddRows({"a", "b"});
        m_item = m_window.Item("a");
        m_window.AddChild("a", {.name = "child"});
        Grid().Expand(m_item, true);
        Grid().SetImageList(&m_pictures.list, true);
        Grid().AllowHighlight(true);
        Grid().GetAppearance().EnableHorizontalLines(true);
        Grid().GetAppearance().EnableVerticalLines(true);
    }
    ~ExtremeGrid() { Grid().SetCustomDraw(nullptr); }

    void Change()
    {
        int const value = kValues[Below(std::size(kValues))];
        CColumn& column = *m_window.Header().GetColumnByIndex(Below(3));
        switch (Below(12))
        {
        case 0:
            m_window.Header().SetHeaderHeight(value);
            break;
        case 1:
            column.SetWidth(value);
            break;
        case 2:
            column.SetCellImageId(value);
            break;
        case 3:
            column.SetColumnImageId(value);
            break;
        case 4:
            Grid().SetContextSeparatorHeight(value);
            break;
        case 5:
            m_window.Header().SetFixedColumnsCount(value);
            break;
        case 6:
            Grid().SetHighlightSettings({value, 0, 0, 9, 9, value, static_cast<CHighlightSettings::Mode>(Below(10))});
            Grid().UpdateItem(m_item, TestObject::Price);
            break;
        case 7:
            Grid().SendMessage(WM_HSCROLL, MAKEWPARAM(SB_THUMBPOSITION, value & 0xFFFF));
            break;
        case 8:
            Grid().InvalidateCell(m_item, TestObject::Price, value);
            break;
        case 9:
            SetRowHeight(value);
            break;
        case 10:
            SetPicture();
            break;
        default:
            Grid().SetFocusedRow(value, ScrollableContext);
            break;
        }
    }
    CGrid& Grid() { return m_window.Grid(); }

private:
    static constexpr int kValues[] = {0,
                                      1,
                                      -1,
                                      7,
                                      -100'000,
                                      32768,
                                      1 << 24,
                                      1 << 30,
                                      std::numeric_limits<int>::max(),
                                      std::numeric_limits<int>::min()};

    int Below(std::size_t limit) { return static_cast<int>(m_random() % limit); }
    void SetRowHeight(int height)
    {
        m_draw.height = height;
        Grid().SetCustomDraw(nullptr);
        Grid().SetCustomDraw(&m_draw);
    }
    void SetPicture()
    {
        CBackgroundImage background;
        background.SetBitmap(Below(2) == 0 ? &m_pictures.bitmap : nullptr);
        background.SetMode(static_cast<CBackgroundImage::Mode>(Below(3)));
        Grid().SetBackgroundImage(background);
    }

    std::mt19937 m_random;
    PaintTest::Pictures m_pictures{{8, 8}, 0xFF2060C0};
    AnyHeight m_draw;
    GridWindow m_window;
    CGridItem* m_item = nullptr;
};

} // namespace

TEST(ExtremeSizesTest, ArePaintedWithoutHarm)
{
    Driver driver;
    for (unsigned seed = 0; seed < 15; ++seed)
    {
        ExtremeGrid grid(driver, seed);
        for (int step = 0; step < 30; ++step)
        {
            grid.Change();
            grid.Grid().Invalidate();
            driver.Advance(30);
        }
    }
}
