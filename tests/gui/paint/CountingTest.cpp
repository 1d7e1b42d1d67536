// What is painted when something changes is what changed, no more: counted in cells, in their clips, in the steps of a
// cell and in the pixels that the display is given, for grids of every shape and for every way to highlight.
#include <functional>

#include <gtest/gtest.h>

#include <ostrel/gui/grid/IGridFilter.h>
#include <ostrel/gui/paint/CellPaintFormat.h>
#include <ostrel/gui/paint/CustomDraw.h>
#include <ostrel/gui/paint/GridCell.h>
#include <ostrel/gui/paint/GridLine.h>
#include <ostrel/gui/paint/HighlightSettings.h>
#include <ostrel/platform/display/headless/HeadlessDisplay.h>
#include <ostrel/testing/Driver.h>
#include <ostrel/testing/GridWindow.h>

using namespace Ostrel;
using namespace Ostrel::GUI;
using namespace Ostrel::Testing;

namespace
{

/// Writes down the cells that are painted, with what may be painted of them.
class Counter : public CCustomDraw
{
public:
    explicit Counter(GridDriver& grid) : CCustomDraw(false), m_grid(grid) {}

    void DrawHeader(CHeaderPaintInfo& info, CPaintContext const& context, unsigned int filter) override
    {
        cells += "header ";
        CCustomDraw::DrawHeader(info, context, filter);
    }
    void DrawCell(CGridCell& cell, CPaintContext const& context, unsigned int filter) override
    {
        CGridItem* const item = cell.GetGridLine().GetItem();
        cells += item != nullptr ? m_grid.NameOf(item) : "empty";
        cells += "." + (cell.GetColumn() != nullptr ? cell.GetColumn()->GetName() : "filler") + " ";
        clips.push_back(cell.GetPaintInfo().GetClipRect());
        CCustomDraw::DrawCell(cell, context, filter);
    }

    std::string Take()
    {
        clips.clear();
        return std::exchange(cells, {});
    }

    std::string cells;
    std::vector<CRect> clips;

private:
    GridDriver& m_grid;
};

class HideRows : public IGridFilter
{
public:
    bool AutoDelete() const override { return false; }
    bool IsFiltered(CGrid* /*grid*/, CGridItem* /*item*/, Common::CDataObject* object) override
    {
        return static_cast<TestObject*>(object)->GetName().front() == 'x';
    }
};

/// A grid of another shape: the cells c.Price and d.Quantity are on the screen, x2.Price and c.Volume are not.
struct Shape
{
    char const* name;
    char const* columns;
    std::function<void(GridWindow&)> prepare;
};

HideRows g_filter;

Shape const kShapes[] = {
    {"Plain", "Name:100,Price:80,Quantity:60", [](GridWindow&) {}},
    {"Sorted", "Name:100,Price:80,Quantity:60",
     [](GridWindow& grid) { grid.Header().SetSort(0, CSortInfo(TestObject::Name, true)); }},
    {"Hierarchy", "Name:100,Price:80,Quantity:60", [](GridWindow& grid) { grid.Grid().Expand(grid.Item("b"), true); }},
    {"FixedRows", "Name:100,Price:80,Quantity:60",
     [](GridWindow& grid)
     {
         grid.AddFixed({.name = "sum"});
         grid.AddFixed({.name = "mean"});
     }},
    {"FixedColumns", "Name:100|Volume:60,Price:200,Quantity:180",
     [](GridWindow& grid)
     {
         for (int click = 0; click < 20; ++click)
         {
             grid.Grid().SendMessage(WM_HSCROLL, SB_LINERIGHT);
         }
     }},
    {"Buffered", "Name:100,Price:80,Quantity:60", [](GridWindow& grid) { grid.Grid().SetFlickerFreeDrawing(true); }},
    {"SelectedAndFocused", "Name:100,Price:80,Quantity:60",
     [](GridWindow& grid)
     {
         grid.ClickRow("c");
         grid.ClickRow("d", Modifier::Ctrl);
     }},
};

class CountingTest : public testing::TestWithParam<Shape>
{
protected:
    CountingTest()
    {
        grid.Grid().SetFilter(&g_filter);
        grid.AddRows({"a", "b", "c", "d", "e", "x1", "x2"});
        grid.AddChild("b", {.name = "b1"});
        grid.AddMany(30, "0row");
        GetParam().prepare(grid);
        grid.Grid().SetCustomDraw(&counter);
        driver.RunUntilIdle();
        counter.Take();
        m_presentedPixels = Screen().PresentedPixels();
    }
    ~CountingTest() override
    {
        grid.Grid().SetCustomDraw(nullptr);
        grid.Grid().SetFilter(nullptr);
    }

    [[nodiscard]] Platform::HeadlessWindow const& Screen()
    {
        CRect window;
        grid.Grid().GetWindowRect(&window);
        return *driver.Display().WindowAt(window.TopLeft());
    }
    /// What was painted since the last call, when all that is due has been done.
    std::string Painted()
    {
        driver.RunUntilIdle();
        return counter.Take();
    }
    std::int64_t PresentedPixels()
    {
        std::int64_t const before = std::exchange(m_presentedPixels, Screen().PresentedPixels());
        return m_presentedPixels - before;
    }
    [[nodiscard]] std::int64_t PixelsOf(std::string_view row, std::string_view column) const
    {
        CRect const cell = grid.CellRect(row, column);
        return std::int64_t{cell.Width()} * cell.Height();
    }

    Driver driver;
    GridWindow grid{driver, {.columns = GetParam().columns}};
    Counter counter{grid};

private:
    std::int64_t m_presentedPixels = 0;
};

INSTANTIATE_TEST_SUITE_P(Shapes, CountingTest, testing::ValuesIn(kShapes),
                         [](testing::TestParamInfo<Shape> const& shape) { return std::string(shape.param.name); });

TEST_P(CountingTest, AnUpdatePaintsItsCell)
{
    grid.Object("c").SetPrice(5);
    EXPECT_EQ(Painted(), "c.Price ");
    EXPECT_EQ(PresentedPixels(), PixelsOf("c", "Price"));
    grid.Object("c").SetPrice(6);
    grid.Object("c").SetPrice(7);
    grid.Object("d").SetQuantity(3);
    EXPECT_EQ(Painted().size(), std::string_view("c.Price d.Quantity ").size()) << "in the order of the rows";

    grid.Object("x2").SetPrice(5);
    grid.Object("c").SetNote("in no column");
    grid.Object("0row15").SetPrice(8);
    grid.Object("0row0").SetActive(true);
    EXPECT_EQ(Painted(), "") << "not on the screen";
}

TEST_P(CountingTest, AFadePaintsItsCellsStepByStep)
{
    for (int mode = CHighlightSettings::Invert; mode <= CHighlightSettings::ForeAndBackFading; ++mode)
    {
        SCOPED_TRACE(mode);
        grid.Grid().AllowHighlight(true);
        grid.Grid().SetHighlightSettings(
            {300, 0xFF0000, 0x00FF00, 200, 100, 30, static_cast<CHighlightSettings::Mode>(mode)});
        driver.Advance(1000);
        static_cast<void>(Painted());
        grid.Object("c").SetPrice(mode);
        EXPECT_EQ(Painted(), "c.Price ");
        driver.Advance(10);
        grid.Object("d").SetQuantity(mode);
        EXPECT_EQ(Painted(), "d.Quantity ");
        bool const fades = mode >= CHighlightSettings::ForeFading;
        static_cast<void>(PresentedPixels());
        for (int step = 1; step < 10; ++step)
        {
            driver.Advance(19);
            EXPECT_EQ(Painted(), "");
            driver.Advance(1);
            EXPECT_EQ(Painted(), fades ? "c.Price " : "");
            EXPECT_EQ(PresentedPixels(), fades ? PixelsOf("c", "Price") : 0);
            driver.Advance(10);
            EXPECT_EQ(Painted(), fades ? "d.Quantity " : "");
            EXPECT_EQ(PresentedPixels(), fades ? PixelsOf("d", "Quantity") : 0);
        }
        driver.Advance(20);
        EXPECT_EQ(Painted(), "c.Price ") << "its end";
        driver.Advance(10);
        EXPECT_EQ(Painted(), "d.Quantity ") << "its end";
        driver.Advance(2000);
        EXPECT_EQ(Painted(), "");
    }
}

TEST_P(CountingTest, ARowScrolledInIsPaintedAlone)
{
    int const rowHeight = grid.Grid().GetItemHeight(grid.Item("c"));
    CRect const rows = grid.Grid().GetContextVisibleRect(ScrollableContext);
    for (UINT const direction : {SB_LINEDOWN, SB_LINEDOWN, SB_LINEUP})
    {
        grid.Grid().SendMessage(WM_VSCROLL, direction);
        driver.RunUntilIdle();
        CRect strip = rows;
        direction == SB_LINEDOWN ? strip.top = rows.bottom - rowHeight : strip.bottom = rows.top + rowHeight;
        int painted = 0;
        for (CRect const& clip : counter.clips)
        {
            EXPECT_EQ(clip & strip, clip) << counter.cells;
            painted += clip.Width() * clip.Height();
        }
        EXPECT_EQ(painted, strip.Width() * strip.Height()) << counter.cells;
        static_cast<void>(Painted());
    }
}

/// Writes down the steps of a cell.
class Steps : public CCellPaintFormat
{
public:
    mutable std::string calls;

protected:
    using Cell = CGridCell;
    using Context = CPaintContext;
    void OnNextPaintRequest(Cell&, Context const&, unsigned int) const override { calls += "next "; }
    void OnDrawBackGround(Cell&, Context const&, unsigned int) const override { calls += "ground "; }
    void OnDrawMouseSelection(Cell&, Context const&, unsigned int) const override { calls += "band "; }
    void OnDrawText(Cell&, Context const&, unsigned int) const override { calls += "text "; }
    void OnDrawImage(Cell&, Context const&, unsigned int) const override { calls += "image "; }
    void OnDrawFocusedLineFrame(Cell&, Context const&, unsigned int) const override { calls += "focus "; }
    void OnDrawSelectedLineFrame(Cell&, Context const&, unsigned int) const override { calls += "selection "; }
    void OnDrawHierarchy(Cell&, Context const&, unsigned int) const override { calls += "tree "; }
    void OnDrawDropPosition(Cell&, Context const&, unsigned int) const override { calls += "drop "; }
    void OnDrawDropParentPosition(Cell&, Context const&, unsigned int) const override { calls += "parent "; }
    void OnDrawVerticalLines(Cell&, Context const&, unsigned int) const override { calls += "vertical "; }
    void OnDrawHorizontalLines(Cell&, Context const&, unsigned int) const override { calls += "horizontal "; }
    void OnDrawEditInPlace(Cell&, Context const&, unsigned int) const override { calls += "edit "; }
};

TEST(CountingStepsTest, ACellHasItsStepsOnceInTheirOrder)
{
    Driver driver;
    GridWindow grid(driver, {});
    grid.AddRows({"a", "b"});
    auto* const steps = new Steps;
    delete grid.Column("Price").SetCellPaintFormat(steps);
    driver.RunUntilIdle();
    steps->calls.clear();
    grid.Object("b").SetQuantity(1);
    driver.RunUntilIdle();
    EXPECT_EQ(steps->calls, "");
    grid.Object("b").SetPrice(1);
    driver.RunUntilIdle();
    EXPECT_EQ(steps->calls, "next ground band text image focus selection tree drop parent vertical horizontal edit ");
}

TEST(CountingStepsTest, ARowIsPaintedWithTheRowsThatItPasses)
{
    Driver driver;
    GridWindow grid(driver, {});
    Counter counter(grid);
    int quantity = 0;
    for (char const* const name : {"a", "b", "c", "d", "e", "f"})
    {
        grid.Add({.name = name, .quantity = quantity += 10});
    }
    grid.Header().SetSort(0, CSortInfo(TestObject::Quantity, false));
    grid.Grid().SetCustomDraw(&counter);
    driver.RunUntilIdle();
    static_cast<void>(counter.Take());
    auto const rowsPainted = [&]
    {
        driver.RunUntilIdle();
        std::string rows;
        std::string const cells = counter.Take();
        for (std::size_t at = cells.find(".Name"); at != std::string::npos; at = cells.find(".Name", at + 1))
        {
            rows += cells[at - 1];
        }
        return rows;
    };
    grid.Object("b").SetQuantity(45);
    EXPECT_EQ(rowsPainted(), "cdb");
    grid.Object("f").SetQuantity(35);
    EXPECT_EQ(rowsPainted(), "fdbe");
    grid.Object("b").NotifyUpdate(-1);
    driver.RunUntilIdle();
    EXPECT_EQ(counter.Take(), "b.Name b.Price b.Quantity b.filler ");
    grid.Grid().SetCustomDraw(nullptr);
}

} // namespace
