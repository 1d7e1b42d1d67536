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

TEST_F(NavigationTest, KeysMoveFocusAndSelection)
{
    struct Step
    {
        UINT key;
        Modifier modifiers;
        char const* expected;
    };
    using enum Modifier;
    // Ctrl leaves the selection, Shift shrinks it too; letters with Ctrl are no search, and all is exactly Ctrl and A.
    constexpr Step kSteps[] = {{VK_DOWN, None, "selected=c focus=c"},   {VK_UP, Ctrl, "selected=c focus=b"},
                               {VK_DOWN, Shift, "selected=c focus=c"},  {VK_END, Shift, "selected=c,d,e focus=e"},
                               {VK_DOWN, None, "selected=e focus=e"},   {VK_HOME, None, "selected=a focus=a"},
                               {VK_NEXT, None, "selected=e focus=e"},   {VK_PRIOR, None, "selected=a focus=a"},
                               {VK_RIGHT, None, "selected=b focus=b"},  {VK_LEFT, None, "selected=a focus=a"},
                               {'B', Ctrl, "selected=a focus=a"},       {'A', Ctrl, "selected=a,b,c,d,e focus=a"},
                               {VK_ESCAPE, None, "selected=- focus=-"}, {VK_UP, None, "selected=a focus=a"},
                               {VK_ESCAPE, None, "selected=- focus=-"}, {'A', Ctrl | Shift, "selected=- focus=-"}};
    EXPECT_EQ(AfterClick("b"), "selected=b focus=b");
    for (Step const& step : kSteps)
    {
        EXPECT_EQ(After(step.key, step.modifiers), step.expected) << step.key;
    }
}

TEST_F(NavigationTest, KeysObeyThePermissions)
{
    Grid().AllowMultiSelection(false);
    EXPECT_EQ(After('A', Modifier::Ctrl), "selected=- focus=-");
    AfterClick("c");
    EXPECT_EQ(After(VK_HOME, Modifier::Shift), "selected=a focus=a");
    grid.AddFixed({.name = "x"});
    driver.RunUntilIdle();
    Grid().AllowNavigation(ScrollableContext);
    EXPECT_EQ(After(VK_HOME), "selected=a focus=a");
    EXPECT_EQ(After(VK_UP), "selected=a focus=a") << "the fixed rows are out of reach";
    Grid().SetFocusedRow(0, FixedContext);
    EXPECT_EQ(After(VK_UP, Modifier::Shift), "selected=a focus=a") << "nothing to extend from";
}

TEST_F(NavigationTest, KeysAndTheButtonFold)
{
    grid.AddChild("b", {.name = "b1"});
    driver.RunUntilIdle();
    AfterClick("b");
    After(VK_RIGHT);
    EXPECT_EQ(grid.RowsText(), "rows=a,b,>b1,c,d,e");
    After(VK_LEFT);
    EXPECT_EQ(grid.RowsText(), "rows=a,b+,c,d,e");
    After(VK_RETURN);
    EXPECT_EQ(grid.RowsText(), "rows=a,b,>b1,c,d,e");
    grid.ClickExpandButton("b");
    EXPECT_EQ(grid.RowsText(), "rows=a,b+,c,d,e");
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
    driver.Press(Grid(), grid.RowPoint("b"));
    driver.MovePointer(Grid(), grid.RowPoint("d"));
    Grid().MoveAfter(Item("e"), nullptr, FirstPosition);
    driver.MovePointer(Grid(), grid.RowPoint("c"));
    EXPECT_EQ(grid.SelectionText(), "selected=b,c focus=-") << "from the row that was pressed, wherever it is now";
    driver.Release();
    Grid().AllowMouseTrackSelection(false);
    grid.DragRow("a", "c");
    EXPECT_EQ(grid.SelectionText(), "selected=a focus=a");
}

TEST_F(NavigationTest, DraggingBelowTheRowsScrollsStepByStep)
{
    grid.AddMany(50);
    driver.RunUntilIdle();
    driver.Press(Grid(), grid.RowPoint("a"));
    driver.MovePointer(Grid(), grid.RowPoint("c"));
    driver.Advance(60);
    driver.MovePointer(Grid(), {10, 400});
    driver.Advance(99);
    EXPECT_EQ(Grid().GetFirstVisibleRow(), 0) << "the time counts from when the pointer left";
    driver.Advance(201);
    EXPECT_EQ(Grid().GetFirstVisibleRow(), 3);
    driver.MovePointer(Grid(), grid.RowPoint("e"));
    driver.Advance(300);
    EXPECT_EQ(Grid().GetFirstVisibleRow(), 3);
    driver.Release();
}

TEST_F(NavigationTest, RowsRepaintThemselvesAndTheFramesThatTheyJoin)
{
    grid.AddFixed({.name = "x"});
    driver.RunUntilIdle();
    CRect const a = Grid().GetLineVisibleRect(Item("a"));
    CRect const x = Grid().GetLineVisibleRect(Item("x"));
    int const height = a.Height();
    auto const expectPainted = [&](std::string_view row, int top, int bottom)
    {
        Grid().Select(Item(row), !Grid().IsSelected(Item(row)));
        CRect update;
        Grid().GetUpdateRect(&update);
        driver.RunUntilIdle();
        EXPECT_EQ(update.top, top) << row;
        EXPECT_EQ(update.bottom, bottom) << row;
    };
    expectPainted("c", a.top + 2 * height, a.top + 3 * height);
    expectPainted("b", a.top + height, a.top + 2 * height + 1);
    expectPainted("a", a.top, a.top + height + 1);
    expectPainted("x", x.top, a.top + 1); // across the separator
    expectPainted("b", a.top + height - 1, a.top + 2 * height + 1);
    auto const expectUpdate = [&](int top, int bottom)
    {
        CRect update;
        Grid().GetUpdateRect(&update);
        driver.RunUntilIdle();
        EXPECT_EQ(update.top, top);
        EXPECT_EQ(update.bottom, bottom);
    };
    int const end = Grid().GetContextVisibleRect(ScrollableContext).bottom;
    grid.Add({.name = "f"});
    expectUpdate(a.top + 5 * height, end);
    grid.AddChild("e", {.name = "e1"});
    expectUpdate(a.top + 4 * height, a.top + 5 * height); // its expand button
    grid.AddChild("e", {.name = "e2"});
    expectUpdate(0, 0);
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
    driver.Press(Grid(), grid.RowPoint("b"));
    Grid().Delete(Item("a"));
    driver.Release();
    EXPECT_EQ(grid.SelectionText(), "selected=b focus=b") << "the row that was pressed, wherever it is now";
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

TEST_F(NavigationTest, CaptionsAddNoLevelWhereThatIsNotAllowed)
{
    Grid().AllowMultiSort(false);
    for (char const* const expected : {"sort=Name:asc", "sort=Name:desc"})
    {
        grid.ClickCaption("Name", Modifier::Ctrl);
        EXPECT_EQ(grid.SortText(), expected);
        grid.ClickCaption("Price", Modifier::Ctrl);
        EXPECT_EQ(grid.SortText(), expected);
    }
}
} // namespace
} // namespace Ostrel::Testing
