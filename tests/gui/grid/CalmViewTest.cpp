// Focus and first row while rows come, go and move: by default, and in the calm view.
#include <ostrel/gui/grid/IGridFilter.h>

#include "GridFixture.h"

namespace Ostrel::Testing
{
namespace
{
using namespace GUI;

class HideObject : public IGridFilter
{
public:
    bool AutoDelete() const override { return false; }
    bool IsFiltered(CGrid*, CGridItem*, Common::CDataObject* object) override
    {
        return object == hidden || object == alsoHidden;
    }

    Common::CDataObject* hidden = nullptr;
    Common::CDataObject* alsoHidden = nullptr;
};

class CalmViewTest : public GridTest
{
protected:
    void SetUp() override
    {
        grid.AddMany(100);
        driver.RunUntilIdle();
    }

    void Start(bool calm)
    {
        Grid().SetCalmView(calm);
        Grid().SetFocusedRow(52, ScrollableContext);
        Grid().Select(52, ScrollableContext, true);
        Grid().SetFirstVisibleRow(50);
    }
    std::string FirstAndFocus()
    {
        return grid.NameOf(Grid().GetItem(Grid().GetFirstVisibleRow(), ScrollableContext)) + " " +
               grid.NameOf(Grid().GetItem(Grid().GetFocusedRow(), Grid().GetFocusedContext()));
    }
    void AddOnTop() { Grid().Add(&top, ScrollableRoot, FirstPosition); }

    TestObject top{TestRow{.name = "top", .price = -1}};
};

TEST_F(CalmViewTest, TheCalmViewFollowsItsObjects)
{
    Start(true);
    AddOnTop();
    EXPECT_EQ(FirstAndFocus(), "row50 row52");
    Grid().Delete(5, ScrollableContext);
    Grid().MoveAfter(Item("row90"), nullptr, FirstPosition);
    EXPECT_EQ(FirstAndFocus(), "row50 row52");
    SortByPrice();
    Grid().SetFirstVisibleItem(Item("row50"));
    grid.Object("row80").SetPrice(-5);
    driver.RunUntilIdle();
    EXPECT_EQ(FirstAndFocus(), "row50 row52") << "a row moved from below to above";
    grid.Object("row52").SetPrice(5);
    driver.RunUntilIdle();
    EXPECT_EQ(FirstAndFocus(), "row50 row52") << "the focused row itself moved";
    EXPECT_EQ(grid.SelectionText(), "selected=row52 focus=row52");
    grid.Destroy("row52");
    EXPECT_EQ(Grid().GetFocusedRow(), static_cast<int>(Grid().GetRowCount(ScrollableContext)) - 1);
    Grid().Delete(&top);
}

TEST_F(CalmViewTest, WhatGoesHandsOverToItsNeighbour)
{
    Start(true);
    grid.Destroy("row52");
    EXPECT_EQ(FirstAndFocus(), "row50 row53");
    grid.Destroy("row50");
    EXPECT_EQ(FirstAndFocus(), "row51 row53");
    HideObject filter;
    filter.hidden = &grid.Object("row53");
    Grid().SetFilter(&filter);
    EXPECT_EQ(FirstAndFocus(), "row51 row54");
    filter.hidden = nullptr;
    Grid().UpdateFilter();
    EXPECT_EQ(FirstAndFocus(), "row51 row54");
    Grid().SetFilter(nullptr);
}

TEST_F(CalmViewTest, WhatIsHiddenHandsOverToWhatIsSeenInItsPlace)
{
    Start(true);
    HideObject filter;
    filter.hidden = &grid.Object("row50");
    filter.alsoHidden = &grid.Object("row0");
    Grid().SetFilter(&filter);
    EXPECT_EQ(FirstAndFocus(), "row51 row52") << "a change far above does not scroll";
    Grid().SetFocusedRow(static_cast<int>(Grid().GetRowCount(ScrollableContext)) - 1, ScrollableContext);
    filter.hidden = &grid.Object("row99");
    filter.alsoHidden = nullptr;
    Grid().UpdateFilter();
    EXPECT_EQ(FirstAndFocus(), "row51 row98") << "rows that came back above do not matter";
    Grid().SetFilter(nullptr);
    Grid().MoveAfter(Item("row98"), Item("row97"), LastPosition);
    EXPECT_EQ(FirstAndFocus(), "row51 row97") << "the collapsed row that it went below";
    Grid().Expand(Item("row97"), false);
    Grid().SetFirstVisibleItem(Item("row60"));
    Grid().SetFocusedRow(Grid().GetRow(&grid.Object("row98")), ScrollableContext);
    Grid().Collapse(ScrollableRoot, true);
    EXPECT_EQ(FirstAndFocus(), "row60 row97");
}

TEST_F(CalmViewTest, BothAreasAreFilteredBeforeTheFocusGoes)
{
    grid.AddFixed({.name = "fixed0"});
    grid.AddFixed({.name = "fixed1"});
    Grid().SetFocusedRow(1, FixedContext);
    Told();
    HideObject filter;
    filter.hidden = &grid.Object("fixed0");
    filter.alsoHidden = &grid.Object("row5");
    Grid().SetFilter(&filter);
    EXPECT_EQ(Told(), "ItemFiltered fixed0 hidden; ItemFiltered row5 hidden; FocusChanged fixed1 lost");
    Grid().SetFilter(nullptr);
}

TEST_F(CalmViewTest, ATopThatNobodyLeftStaysTheTop)
{
    Grid().SetCalmView(true);
    AddOnTop();
    EXPECT_EQ(Grid().GetFirstVisibleRow(), 0);
    Grid().Delete(&top);
}

TEST_F(CalmViewTest, ByDefaultChangesTakeTheFocusAndTheRowNumberStays)
{
    Start(false);
    AddOnTop();
    EXPECT_EQ(FirstAndFocus(), "row49 row52") << "showing rows keeps the focused row";
    Grid().UpdateSort();
    EXPECT_EQ(FirstAndFocus(), "row49 row52");
    Grid().Delete(&top);
    EXPECT_EQ(FirstAndFocus(), "row50 -");

    SortByPrice();
    Grid().SetFocusedRow(52, ScrollableContext);
    grid.Object("row99").SetPrice(9);
    driver.RunUntilIdle();
    EXPECT_EQ(Grid().GetFocusedRow(), 52) << "it did not move";
    grid.Object("row9").SetPrice(9);
    driver.RunUntilIdle();
    EXPECT_EQ(Grid().GetFocusedRow(), -1);
}
} // namespace
} // namespace Ostrel::Testing
