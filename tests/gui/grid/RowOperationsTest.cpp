#include <ostrel/common/value/Value.h>

#include "GridFixture.h"

namespace Ostrel::Testing
{
namespace
{
using namespace GUI;

class RowOperationsTest : public GridTest
{
protected:
    void SetUp() override { grid.AddRows({"a", "b", "c", "d"}); }

    std::string Rows() { return grid.RowsText(); }
};

TEST_F(RowOperationsTest, APlaceThatIsNoneIsTheLastAndAParentThatIsNoneGetsNoRow)
{
    TestObject stray({.name = "stray"});
    TestObject behind({.name = "behind"});
    Grid().Add(&stray, ScrollableRoot, reinterpret_cast<CGridItem*>(0x1230));
    Grid().Add(&behind, ScrollableRoot, ScrollableRoot);
    EXPECT_EQ(Rows(), "rows=a,b,c,d,stray,behind");
    EXPECT_EQ(Grid().Add(nullptr, ScrollableRoot, LastPosition), nullptr);
    EXPECT_EQ(Grid().Add(&stray, nullptr, LastPosition), nullptr);
    EXPECT_EQ(Grid().Add(&stray, LastPosition, LastPosition), nullptr);
}

TEST_F(RowOperationsTest, AnObjectIsWhatAnyOfItsRowsIs)
{
    TestObject& d = grid.Object("d");
    CGridItem* const shown = Item("d");
    CGridItem* const hidden = Grid().Add(&d, Item("a"), LastPosition);
    EXPECT_EQ(Grid().GetItem(&d), hidden) << "no row number is lower than any";
    Grid().Select(shown, true);
    Grid().Expand(shown, false);
    EXPECT_TRUE(Grid().IsVisible(&d));
    EXPECT_TRUE(Grid().IsSelected(&d));
    EXPECT_TRUE(Grid().IsExpanded(&d));
    grid.AddMany(50);
    Grid().MoveAfter(shown, nullptr, LastPosition);
    driver.RunUntilIdle();
    Grid().EnsureVisible(&d);
    EXPECT_TRUE(Grid().IsInVisibleRect(shown));
    Grid().SetFirstVisibleRow(0);
    Grid().SetFirstVisibleItem(&d);
    EXPECT_GT(Grid().GetFirstVisibleRow(), 0);
    CGridItem* const fixed = Grid().Add(&d, FixedRoot, LastPosition);
    EXPECT_EQ(Grid().GetHandles(&d, false, ScrollableContext), (std::vector<CGridItem*>{shown, hidden}));
    EXPECT_EQ(Grid().GetItem(&d), fixed) << "the fixed area comes first";
    EXPECT_EQ(Grid().Delete(&d), 3);
    EXPECT_FALSE(Grid().Exists(&d));
}

TEST_F(RowOperationsTest, HandlesThatAreNoRowsGiveTheNeutralResult)
{
    CGridItem* const stale = Item("a");
    Grid().Delete(stale);
    GridWindow other(driver, {.title = "Other"});
    other.AddRows({"x"});
    CGridItem* const handles[] = {nullptr,        stale,          reinterpret_cast<CGridItem*>(8),
                                  FirstPosition,  LastPosition,   FixedRoot,
                                  ScrollableRoot, other.Item("x")};
    for (CGridItem* const handle : handles)
    {
        EXPECT_FALSE(Grid().Exists(handle));
        EXPECT_FALSE(Grid().Delete(handle));
        EXPECT_FALSE(Grid().Detach(handle));
        EXPECT_FALSE(Grid().Attach(handle, ScrollableRoot, LastPosition));
        EXPECT_FALSE(Grid().MoveAfter(handle, ScrollableRoot, LastPosition));
        EXPECT_FALSE(Grid().Select(handle, true));
        EXPECT_EQ(Grid().GetRow(handle), -1);
        EXPECT_EQ(Grid().GetHierarchicalLevel(handle), -1);
        EXPECT_EQ(Grid().GetContextType(handle), NoContext);
        EXPECT_EQ(Grid().GetParent(handle), nullptr);
        EXPECT_EQ(Grid().GetNextItem(handle, true), nullptr);
        EXPECT_EQ(Grid().GetDataObject(handle), nullptr);
        EXPECT_EQ(Grid().GetValue(handle, kPrice).GetType(), Common::TypeEmpty);
        EXPECT_EQ(Grid().GetTimeElapsedSinceLastUpdate(handle, kPrice), -1);
        EXPECT_TRUE(Grid().GetLineVisibleRect(handle).IsRectEmpty());
        Grid().EnsureVisible(handle);
        Grid().UpdateItem(handle, kPrice);
        Grid().InvalidateCell(handle, kPrice, 0);
    }
    EXPECT_EQ(Rows(), "rows=b,c,d");
    for (int const row : {-1, 3, 1000000})
    {
        EXPECT_EQ(Grid().GetItem(row, ScrollableContext), nullptr);
        EXPECT_FALSE(Grid().Delete(row, AllContexts));
        EXPECT_FALSE(Grid().SetFocusedRow(row, ScrollableContext));
    }
}

TEST_F(RowOperationsTest, DetachedRowsOutliveTheirGridButNotTheirObject)
{
    auto object = std::make_unique<TestObject>(TestRow{.name = "parent"});
    auto child = std::make_unique<TestObject>(TestRow{.name = "child"});
    CGridItem* const parent = Grid().Add(object.get(), ScrollableRoot, LastPosition);
    Grid().Add(child.get(), parent, LastPosition);
    Grid().Detach(parent);
    child.reset();
    GridWindow other(driver, {.title = "Other"});
    ASSERT_TRUE(other.Grid().Attach(parent, ScrollableRoot, LastPosition));
    EXPECT_FALSE(other.Grid().HasChildren(parent)) << "the child went with its object";
    other.Grid().Detach(parent);
    object.reset();
    EXPECT_FALSE(other.Grid().Attach(parent, ScrollableRoot, LastPosition));
}

TEST_F(RowOperationsTest, Walks)
{
    struct Collector : CGrid::IForEach
    {
        bool Visit(CGrid*, CGridItem*, Common::CDataObject* object) override
        {
            names += object->GetStlString(TestObject::Name) + " ";
            return --rest != 0;
        }
        std::string names;
        int rest = -1;
    };
    auto const walk = [&](CGridItem* start, bool visibleOnly, int rest = -1)
    {
        Collector collector;
        collector.rest = rest;
        visibleOnly ? Grid().ForEachVisible(collector, start) : Grid().ForEach(collector, start);
        return collector.names;
    };
    grid.AddChild("b", {.name = "b1"});
    grid.AddFixed({.name = "top"});
    EXPECT_EQ(walk(nullptr, true), "top a b c d ");
    EXPECT_EQ(walk(Item("b"), false), "b b1 c d ");
    EXPECT_EQ(walk(ScrollableRoot, true, 2), "a b ");
    EXPECT_EQ(Grid().GetNextItem(Item("top"), true), Item("a"));
    EXPECT_EQ(Grid().GetNextItem(Item("top"), false), nullptr);
    EXPECT_EQ(Grid().GetPreviousItem(Item("a"), true), Item("top"));
}
} // namespace
} // namespace Ostrel::Testing
