#include <limits>

#include <gtest/gtest.h>

#include <ostrel/gui/header/detail/HeaderLayout.h>

#include "HeaderEvents.h"

namespace Ostrel::GUI::Testing
{
namespace
{

struct Given
{
    long fid;
    int width;
    bool visible = true;
};

HeaderLayout MakeLayout(std::vector<Given> const& given, int fixedCount, std::vector<CSortInfo> const& levels = {})
{
    HeaderLayout::Columns columns;
    for (Given const& column : given)
    {
        columns.emplace_back(NewColumn(column.fid, column.width, column.visible));
    }
    return {columns, fixedCount, 20, levels};
}

std::string Describe(HeaderLayout const& layout)
{
    std::string text;
    for (VisibleColumn const& column : layout.VisibleColumns())
    {
        text += std::to_string(column.fid) + ":" + std::to_string(column.left) + "-" + std::to_string(column.right) +
                (layout.IsFixed(column) ? "f " : " ");
    }
    return text + std::to_string(layout.FixedWidth()) + "+" + std::to_string(layout.ScrollableWidth());
}

TEST(HeaderLayoutTest, PlacesVisibleColumns)
{
    struct Case
    {
        std::vector<Given> columns;
        int fixedCount;
        char const* expected;
    };
    Case const cases[] = {
        {{}, 2, "0+0"},
        {{{1, 50}, {2, 0}, {3, 30}}, 1, "1:0-50f 2:50-50 3:50-80 50+30"},
        {{{1, 50}, {2, 60}, {3, 30}}, 5, "1:0-50f 2:50-110f 3:110-140f 140+0"},
        {{{1, 50}, {2, 60}, {3, 30}}, -1, "1:0-50 2:50-110 3:110-140 0+140"},
        {{{1, 50, false}, {2, 60}, {3, 30}}, 1, "2:0-60f 3:60-90 60+30"},
        {{{1, 50, false}}, 1, "0+0"},
        {{{1, -7}, {2, 10}}, 0, "1:0-0 2:0-10 0+10"},
        {{{1, std::numeric_limits<int>::max()}, {2, 10}}, 1, "1:0-2147483647f 2:2147483647-2147483647 2147483647+0"},
    };
    for (Case const& one : cases)
    {
        EXPECT_EQ(Describe(MakeLayout(one.columns, one.fixedCount)), one.expected);
    }
}

TEST(HeaderLayoutTest, FindsTheColumnUnderX)
{
    HeaderLayout const layout = MakeLayout({{1, 50}, {2, 0}, {3, 30}, {4, 10, false}, {5, 20}}, 1);
    struct Case
    {
        int clientX;
        int scrollPosition;
        long expectedFid; ///< 0 for none
    };
    Case const cases[] = {
        {-1, 0, 0},  {0, 0, 1},
        {49, 0, 1},  {50, 0, 3},
        {60, 0, 3},  {79, 0, 3},
        {80, 0, 5},  {99, 0, 5},
        {100, 0, 0}, {49, 25, 1},
        {50, 25, 3}, {55, 25, 5},
        {75, 25, 0}, {50, std::numeric_limits<int>::max(), 0},
    };
    for (Case const& one : cases)
    {
        VisibleColumn const* const found = layout.HitTest(one.clientX, one.scrollPosition);
        EXPECT_EQ(found != nullptr ? found->fid : 0, one.expectedFid) << one.clientX << " " << one.scrollPosition;
    }
}

TEST(HeaderLayoutTest, ScrollsRectanglesUnderTheFixedColumns)
{
    HeaderLayout const layout = MakeLayout({{1, 50}, {2, 70}, {3, 80}}, 1);
    struct Case
    {
        long fid;
        int scrollPosition;
        CRect expectedVirtual;
        CRect expectedVisible;
    };
    Case const cases[] = {
        {1, 100, {0, 0, 50, 20}, {0, 0, 50, 20}},
        {3, 0, {120, 0, 200, 20}, {120, 0, 200, 20}},
        {3, 100, {20, 0, 100, 20}, {50, 0, 100, 20}},
        {3, 180, {-60, 0, 20, 20}, {50, 0, 50, 20}},
    };
    for (Case const& one : cases)
    {
        VisibleColumn const& column = *layout.VisibleOf(one.fid);
        EXPECT_EQ(layout.VirtualRect(column, one.scrollPosition), one.expectedVirtual);
        EXPECT_EQ(layout.VisibleRect(column, one.scrollPosition), one.expectedVisible);
    }
}

TEST(HeaderLayoutTest, TheFirstLevelOfAColumnMarksIt)
{
    HeaderLayout const layout =
        MakeLayout({{1, 50}, {2, 60, false}, {3, 30}}, 0, {{9, false}, {2, true}, {3, true}, {3, false}});
    EXPECT_EQ(layout.VisibleOf(1)->sortLevel, -1);
    EXPECT_EQ(layout.VisibleOf(3)->sortLevel, 2);
    EXPECT_TRUE(layout.VisibleOf(3)->reverseSort);
}

} // namespace
} // namespace Ostrel::GUI::Testing
