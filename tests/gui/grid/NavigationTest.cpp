// Selection and focus by the keys and the mouse.
#include "GridFixture.h"

namespace Ostrel::Testing
{
namespace
{
using namespace GUI;

class NavigationTest : public GridTest
{
protected:
    void SetUp() override
    {
        grid.AddRows({"a", "b", "c", "d", "e"});
        driver.RunUntilIdle();
    }

    std::string After(UINT key, Modifier modifiers = Modifier::None)
    {
        grid.PressKey(key, modifiers);
        return grid.SelectionText();
    }
    std::string AfterClick(std::string_view row, Modifier modifiers = Modifier::None)
    {
        grid.ClickRow(row, modifiers);
        return grid.SelectionText();
    }
};

TEST_F(NavigationTest, ArrowsMoveFocusAndSelection)
{
    EXPECT_EQ(AfterClick("b"), "selected=b focus=b");
    EXPECT_EQ(After(VK_DOWN), "selected=c focus=c");
    EXPECT_EQ(After(VK_UP, Modifier::Ctrl), "selected=c focus=b") << "Ctrl leaves the selection";
    EXPECT_EQ(After(VK_HOME), "selected=a focus=a");
    EXPECT_EQ(After(VK_UP), "selected=a focus=a");
    EXPECT_EQ(After(VK_END), "selected=e focus=e");
    EXPECT_EQ(After(VK_DOWN), "selected=e focus=e");
    EXPECT_EQ(After(VK_ESCAPE), "selected=- focus=-");
    EXPECT_EQ(After(VK_UP), "selected=a focus=a") << "from nowhere: the first shown row";
}

TEST_F(NavigationTest, ShiftExtendsAndShrinks)
{
    AfterClick("a");
    After(VK_DOWN, Modifier::Shift);
    After(VK_DOWN, Modifier::Shift);
    EXPECT_EQ(After(VK_DOWN, Modifier::Shift), "selected=a,b,c,d focus=d");
    EXPECT_EQ(After(VK_UP, Modifier::Shift), "selected=a,b,c focus=c");
    EXPECT_EQ(After(VK_END, Modifier::Shift), "selected=a,b,c,d,e focus=e");
    Grid().AllowMultiSelection(false);
    EXPECT_EQ(After(VK_HOME, Modifier::Shift), "selected=a focus=a");
}

TEST_F(NavigationTest, KeysGoBetweenTheAreas)
{
    grid.AddFixed({.name = "x"});
    grid.AddFixed({.name = "y"});
    driver.RunUntilIdle();
    AfterClick("y");
    EXPECT_EQ(After(VK_DOWN), "selected=a focus=a");
    EXPECT_EQ(After(VK_UP), "selected=y focus=y");
    EXPECT_EQ(After(VK_HOME), "selected=x focus=x");
    Grid().AllowNavigation(ScrollableContext);
    EXPECT_EQ(After(VK_HOME), "selected=a focus=a");
    EXPECT_EQ(After(VK_UP), "selected=a focus=a") << "the fixed rows are out of reach";
    Grid().SetFocusedRow(1, FixedContext);
    EXPECT_EQ(After(VK_UP, Modifier::Shift), "selected=a focus=a") << "nothing to extend from";
}

TEST_F(NavigationTest, LeftAndRightGoThroughTheTree)
{
    grid.AddChild("b", {.name = "b1"});
    driver.RunUntilIdle();
    AfterClick("b");
    EXPECT_EQ(After(VK_RIGHT), "selected=b focus=b");
    EXPECT_EQ(grid.RowsText(), "rows=a,b,>b1,c,d,e");
    EXPECT_EQ(After(VK_RIGHT), "selected=b1 focus=b1");
    EXPECT_EQ(After(VK_LEFT), "selected=b focus=b") << "the parent";
    EXPECT_EQ(After(VK_LEFT), "selected=b focus=b");
    EXPECT_EQ(grid.RowsText(), "rows=a,b+,c,d,e");
    EXPECT_EQ(After(VK_LEFT), "selected=a focus=a");
    AfterClick("b");
    After(VK_RETURN);
    EXPECT_EQ(grid.RowsText(), "rows=a,b,>b1,c,d,e");
    grid.ClickExpandButton("b");
    EXPECT_EQ(grid.RowsText(), "rows=a,b+,c,d,e");
}

TEST_F(NavigationTest, SelectAllNeedsExactlyCtrl)
{
    EXPECT_EQ(After('A', Modifier::Ctrl | Modifier::Shift), "selected=- focus=-");
    EXPECT_EQ(After('A', Modifier::Ctrl), "selected=a,b,c,d,e focus=-");
    Grid().ClearSelection();
    Grid().AllowMultiSelection(false);
    EXPECT_EQ(After('A', Modifier::Ctrl), "selected=- focus=-");
}

TEST_F(NavigationTest, ClicksWithModifiers)
{
    EXPECT_EQ(AfterClick("b"), "selected=b focus=b");
    EXPECT_EQ(AfterClick("d", Modifier::Shift), "selected=b,c,d focus=b") << "the focus stays";
    EXPECT_EQ(AfterClick("c", Modifier::Ctrl), "selected=b,d focus=c");
    EXPECT_EQ(AfterClick("a", Modifier::Shift), "selected=a,b,c focus=c");
    grid.ClickBelowRows();
    EXPECT_EQ(grid.SelectionText(), "selected=- focus=-");
    Grid().AllowMultiSelection(false);
    AfterClick("b", Modifier::Ctrl);
    EXPECT_EQ(AfterClick("d", Modifier::Ctrl), "selected=b focus=d") << "no second row";
    Grid().AllowSelectContext(FixedContext);
    EXPECT_EQ(AfterClick("a"), "selected=- focus=a");
    Grid().AllowSelectContext(AllContexts);
    EXPECT_EQ(AfterClick("c"), "selected=c focus=c");
    Grid().AllowSelectContext(FixedContext);
    EXPECT_EQ(AfterClick("c", Modifier::Ctrl), "selected=c focus=c") << "nor is a row given up there";
    AfterClick("a");
    Grid().AllowFocusContext(FixedContext);
    EXPECT_EQ(AfterClick("b"), "selected=- focus=a");
}

TEST_F(NavigationTest, DraggingSelectsTheRowsThatItPasses)
{
    grid.DragRow("b", "d");
    EXPECT_EQ(grid.SelectionText(), "selected=b,c,d focus=b");
    Grid().AllowMouseTrackSelection(false);
    grid.DragRow("a", "c");
    EXPECT_EQ(grid.SelectionText(), "selected=a focus=a");
}

TEST_F(NavigationTest, APressOnASelectedRowThatMayBeDraggedWaits)
{
    Grid().AllowDragAndDrop(true);
    AfterClick("b");
    AfterClick("d", Modifier::Ctrl);
    driver.Press(Grid(), grid.RowPoint("b"));
    EXPECT_EQ(grid.SelectionText(), "selected=b,d focus=d");
    driver.Release();
    EXPECT_EQ(grid.SelectionText(), "selected=b focus=b");
    AfterClick("d", Modifier::Ctrl);
    grid.DragRow("b", "e");
    EXPECT_EQ(grid.SelectionText(), "selected=b,d focus=d") << "a drag is no click";
    driver.Press(Grid(), grid.RowPoint("c"));
    EXPECT_EQ(grid.SelectionText(), "selected=c focus=c") << "a row that was not selected";
    driver.Release();
}

TEST_F(NavigationTest, KeysOfAWindowInsideTheGridAreItsOwn)
{
    class Editor : public CWnd
    {
    public:
        int keys = 0;

    protected:
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
        {
            keys += message == WM_KEYDOWN ? 1 : 0;
            return CWnd::WindowProc(message, wParam, lParam);
        }
    };
    Editor editor;
    ASSERT_TRUE(editor.Create(nullptr, "", WS_CHILD | WS_VISIBLE, CRect(0, 0, 20, 20), &Grid(), 5));
    MSG key{};
    key.hwnd = editor.GetSafeHwnd();
    key.message = WM_KEYDOWN;
    key.wParam = VK_DOWN;
    EXPECT_TRUE(Grid().PreTranslateMessage(&key)) << "no dialog shall take it";
    EXPECT_EQ(editor.keys, 1);
    EXPECT_EQ(Grid().GetFocusedRow(), -1);
    key.message = WM_KEYUP;
    EXPECT_FALSE(Grid().PreTranslateMessage(&key));
}

TEST_F(NavigationTest, SelectingObeysItsRules)
{
    EXPECT_FALSE(Grid().Select(0, NoContext, true));
    Grid().AllowMultiSelection(false);
    EXPECT_TRUE(Grid().Select(0, ScrollableContext, true));
    EXPECT_FALSE(Grid().Select(1, ScrollableContext, true));
    EXPECT_EQ(grid.SelectionText(), "selected=a focus=-");
    grid.AddChild("b", {.name = "b1"});
    CGridItem* const hidden = Grid().GetChildren(Item("b"), false).front();
    EXPECT_TRUE(Grid().Select(hidden, true));
    EXPECT_FALSE(Grid().IsSelected(hidden)) << "a row that is not visible stays unselected";
    EXPECT_FALSE(Grid().SetFocusedRow(-1, ScrollableContext));
    EXPECT_TRUE(Grid().SetFocusedRow(-1, NoContext));
}

TEST_F(NavigationTest, TypingFindsTheNextRowThatBeginsSo)
{
    grid.AddRows({"Bear", "beaver"});
    driver.RunUntilIdle();
    AfterClick("a");
    EXPECT_EQ(After('B'), "selected=b focus=b");
    EXPECT_EQ(After('E'), "selected=Bear focus=Bear");
    EXPECT_EQ(After('A'), "selected=Bear focus=Bear") << "still right: it stays";
    EXPECT_EQ(After('V'), "selected=beaver focus=beaver");
    driver.Advance(1500);
    EXPECT_EQ(After('B'), "selected=b focus=b") << "a fresh search goes on below and comes round";
    EXPECT_EQ(After('B', Modifier::Ctrl), "selected=b focus=b");
}

TEST_F(NavigationTest, CaptionsSortAndAddAndClear)
{
    grid.Object("c").SetPrice(-1);
    driver.RunUntilIdle();
    grid.ClickCaption("Price");
    EXPECT_EQ(grid.SortText(), "sort=Price:asc");
    EXPECT_EQ(grid.RowsText(), "rows=c,a,b,d,e");
    grid.ClickCaption("Price");
    grid.ClickCaption("Name", Modifier::Ctrl);
    EXPECT_EQ(grid.SortText(), "sort=Price:desc,Name:desc") << "a further level takes the direction of the last one";
    EXPECT_EQ(grid.RowsText(), "rows=e,d,b,a,c");
    grid.ClickCaption("Name", Modifier::Ctrl);
    EXPECT_EQ(grid.SortText(), "sort=Price:desc,Name:asc");
    grid.ClickCaption("Name");
    EXPECT_EQ(grid.SortText(), "sort=Name:desc") << "the direction that the first level had";
    grid.ClickCaption("Name", Modifier::Shift);
    EXPECT_EQ(grid.SortText(), "sort=-");
    EXPECT_EQ(grid.RowsText(), "rows=e,d,c,b,a") << "the rows stay where they are";
    grid.Grid().AllowMultiSort(false);
    for (char const* const expected : {"sort=Name:asc", "sort=Name:desc"})
    {
        grid.ClickCaption("Name", Modifier::Ctrl);
        EXPECT_EQ(grid.SortText(), expected);
        grid.ClickCaption("Price", Modifier::Ctrl);
        EXPECT_EQ(grid.SortText(), expected) << "a second level is not allowed";
    }
}

TEST_F(NavigationTest, ACaptionsEdgeResizesItsColumn)
{
    grid.DragCaptionEdge("Price", 25);
    EXPECT_EQ(grid.ColumnsText(), "Name:100,Price:105,Quantity:60");
    EXPECT_EQ(grid.SortText(), "sort=-");
    grid.Header().AllowColumnResize(false);
    grid.Header().AllowScrollableColumnMove(false);
    grid.DragCaptionEdge("Price", 25);
    EXPECT_EQ(grid.ColumnsText(), "Name:100,Price:105,Quantity:60");
}
} // namespace
} // namespace Ostrel::Testing
