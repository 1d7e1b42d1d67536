// Code of the application that throws in the middle of an operation: the operation is completed all the same, and the
// exception comes when it is done. So two grids that go through the same must look the same, though only one of them
// calls code that throws.
#include <stdexcept>

#include <gtest/gtest.h>

#include <ostrel/common/format/Format.h>
#include <ostrel/gui/grid/KeyManager.h>
#include <ostrel/gui/grid/Preferences.h>
#include <ostrel/gui/paint/CustomDraw.h>

#include "GridFixture.h"

namespace Ostrel::Testing
{
namespace
{
using namespace GUI;

struct Refusal : std::runtime_error
{
    using std::runtime_error::runtime_error;
};

[[noreturn]] void Refuse()
{
    throw Refusal("no");
}

/// Every row where the others say that it is.
void ExpectConsistent(CGrid const& grid)
{
    for (ContextType const type : {FixedContext, ScrollableContext})
    {
        int const rows = static_cast<int>(grid.GetRowCount(type));
        for (int row = 0; row < rows; ++row)
        {
            CGridItem* const item = grid.GetItem(row, type);
            EXPECT_EQ(grid.GetRow(item), row);
            EXPECT_EQ(grid.IsSelected(row, type), grid.IsSelected(item));
            CGridItem* const parent = grid.GetParent(item);
            EXPECT_TRUE(IsReservedHandle(parent) || grid.IsExpanded(parent));
        }
        EXPECT_EQ(grid.GetItem(rows, type), nullptr);
    }
}

class Walk : public CGrid::IForEach
{
public:
    bool Visit(CGrid*, CGridItem*, Common::CDataObject*) override
    {
        if (++visited == 2)
        {
            Refuse();
        }
        return true;
    }
    int visited = 0;
};

struct Side : GridWindow
{
    explicit Side(Testing::Driver& driver, std::string const& title, CPoint position)
        : GridWindow(driver, {.title = title, .position = position})
    {
        AddFixed({.name = "sum", .quantity = 9});
        AddMany(4);
        AddChild("row1", {.name = "child1", .quantity = 5});
        AddChild("row1", {.name = "child2", .quantity = 4});
        Grid().Expand(Item("row1"), false);
        AddChild("child1", {.name = "leaf"});
        Grid().Collapse(Item("row1"), false);
        Grid().Select(Item("row2"), true);
        Grid().SetFocusedRow(1, ScrollableContext);
        driver.RunUntilIdle();
        Frame().Clear();
    }
};

struct Operation
{
    char const* name;
    std::function<void(Side&)> perform;
    bool hasCaller = true;   ///< false: what is thrown can reach nobody
    bool isForWorker = true; ///< false: an operation of the window's thread
};

std::vector<Operation> const kOperations = {
    {"Add", [](Side& side) { side.Grid().Add(&side.Object("row0"), side.Item("row1"), FirstPosition); }},
    {"Delete", [](Side& side) { side.Grid().Delete(side.Item("row1")); }},
    {"DeleteAll", [](Side& side) { side.Grid().DeleteAll(AllContexts); }},
    {"Detach", [](Side& side) { side.Grid().Detach(side.Item("row1")); }},
    {"Move", [](Side& side) { side.Grid().MoveAfter(side.Item("row1"), FixedRoot, LastPosition); }},
    {"Expand", [](Side& side) { side.Grid().Expand(ScrollableRoot, true); }},
    {"SetSort", [](Side& side) { side.Grid().SetSort(0, CSortInfo(TestObject::Quantity, true), true); }},
    {"SelectAll", [](Side& side) { side.Grid().SelectAll(); }},
    {"SetFocusedRow", [](Side& side) { side.Grid().SetFocusedRow(0, FixedContext); }},
    {"HideColumn", [](Side& side) { side.Header().HideColumn(TestObject::Price); }},
    {"RemoveColumn", [](Side& side) { side.Header().Remove(TestObject::Quantity); }},
    {"Update",
     [](Side& side)
     {
         side.Object("row1").SetQuantity(7);
         side.Driver().RunUntilIdle();
     },
     true, false},
    {"Destroy", [](Side& side) { side.Destroy("row1"); }, false},
    {"DestroyWindow", [](Side& side) { side.Grid().DestroyWindow(); }, false, false},
};

class ThrowingTest : public testing::Test
{
protected:
    void ExpectSame()
    {
        EXPECT_EQ(throwing.Frame().Text(), quiet.Frame().Text());
        EXPECT_EQ(throwing.State(), quiet.State());
        EXPECT_EQ(throwing.ColumnsText(), quiet.ColumnsText());
        ExpectConsistent(throwing.Grid());
    }

    HideIf allows{[](TestObject&) { return false; }};
    HideIf refuses{[](TestObject&) -> bool { Refuse(); }};
    Driver driver;
    Side quiet{driver, "quiet", {100, 100}};
    Side throwing{driver, "throwing", {600, 100}};
};

class ThrowingHandlerTest : public ThrowingTest, public testing::WithParamInterface<Operation>
{
protected:
    void ThrowFromNowOn()
    {
        throwing.Frame().onNotification = [](std::string const&) { Refuse(); };
    }
    void PerformBoth(std::function<void(Side&)> const& perform)
    {
        perform(quiet);
        if (GetParam().hasCaller)
        {
            EXPECT_THROW(perform(throwing), Refusal);
        }
        else
        {
            EXPECT_NO_THROW(perform(throwing));
        }
    }
};

TEST_P(ThrowingHandlerTest, TheOperationIsCompletedBeforeItThrows)
{
    ThrowFromNowOn();
    PerformBoth(GetParam().perform);
    driver.RunUntilIdle();
    ExpectSame();
}

TEST_P(ThrowingHandlerTest, AWorkerGetsWhatItsOperationThrew)
{
    ThrowFromNowOn();
    PerformBoth(
        [&](Side& side)
        {
            if (!GetParam().isForWorker)
            {
                GetParam().perform(side);
                return;
            }
            Workers workers;
            workers.Add("caller", [&]() { GetParam().perform(side); });
            workers.Run();
        });
    driver.RunUntilIdle();
    ExpectSame();
}

TEST_P(ThrowingHandlerTest, AFilterThatThrowsHidesNothing)
{
    quiet.Grid().SetFilter(&allows);
    EXPECT_THROW(throwing.Grid().SetFilter(&refuses), Refusal);
    EXPECT_EQ(throwing.Grid().GetFilter(), &refuses);
    ExpectSame();
    GetParam().perform(quiet);
    try
    {
        GetParam().perform(throwing);
    }
    catch (Refusal const&)
    {}
    ExpectSame();
}

INSTANTIATE_TEST_SUITE_P(Operations, ThrowingHandlerTest, testing::ValuesIn(kOperations),
                         [](auto const& each) { return each.param.name; });

TEST_F(ThrowingTest, AnExceptionInNestedOperationsIsThrownByTheInnerOneFirst)
{
    bool wasCaught = false;
    throwing.Frame().onNotification = [&](std::string const& line)
    {
        if (line == "ItemExpanded row1 expanded")
        {
            EXPECT_THROW(throwing.Grid().Select(throwing.Item("row3"), true), Refusal);
            wasCaught = true;
        }
        else if (line.starts_with("SelectionChanged"))
        {
            Refuse();
        }
    };
    EXPECT_NO_THROW(throwing.Grid().Expand(throwing.Item("row1"), false)); // whose own callbacks threw nothing
    EXPECT_TRUE(wasCaught);
    EXPECT_TRUE(throwing.Grid().IsSelected(throwing.Item("row3")));
}

TEST_F(ThrowingTest, MouseAndKeysGoOnAfterAnException)
{
    throwing.Frame().onNotification = [](std::string const&) { Refuse(); };
    EXPECT_THROW(throwing.ClickRow("row3"), Refusal);
    driver.Release();
    EXPECT_THROW(throwing.ClickCaption("Quantity"), Refusal);
    driver.Release();
    throwing.Frame().onNotification = nullptr;
    driver.RunUntilIdle();
    quiet.ClickRow("row3");
    quiet.ClickCaption("Quantity");
    EXPECT_EQ(throwing.State(), quiet.State());
    throwing.ClickRow("row0");
    throwing.PressKey(VK_DOWN, Modifier::Shift);
    EXPECT_EQ(throwing.SelectionText(), "selected=row0,row1 focus=row1");
}

TEST_F(ThrowingTest, AVisitorEndsItsWalk)
{
    Walk walk;
    EXPECT_THROW(throwing.Grid().ForEach(walk, ScrollableRoot), Refusal);
    EXPECT_EQ(walk.visited, 2);
    Workers workers;
    workers.Add("walker", [&]() { throwing.Grid().ForEachVisible(walk = Walk(), nullptr); });
    EXPECT_THROW(workers.Run(), Refusal);
    EXPECT_EQ(walk.visited, 2);
}

class RefusingKeys : public CKeyManager
{
public:
    RefusingKeys() : CKeyManager(false) {}
    int OnKeyDown(CGrid&, unsigned int, unsigned int, unsigned int) override { Refuse(); }
};

TEST_F(ThrowingTest, AKeyManagerThrowsOutOfTheLoop)
{
    RefusingKeys keys;
    IKeyManager* const before = throwing.Grid().SetKeyManager(&keys);
    throwing.ClickRow("row0");
    EXPECT_THROW(throwing.PressKey(VK_DOWN), Refusal);
    throwing.Grid().SetKeyManager(before);
    throwing.PressKey(VK_DOWN);
    EXPECT_EQ(throwing.SelectionText(), "selected=row1 focus=row1");
}

/// A text that cannot be had.
class RefusingFormat : public Common::CFormat
{
public:
    using CFormat::FormatMfc;
    using CFormat::FormatStl;

    explicit RefusingFormat(bool& throws) : CFormat(Common::TypeLong), m_throws(&throws) {}
    CString FormatMfc(long, Common::CDataObject const*) const override { return *m_throws ? (Refuse(), "") : "text"; }
    std::string FormatStl(long, Common::CDataObject const*) const override
    {
        return *m_throws ? (Refuse(), "") : "text";
    }
    CFormat* Clone() const override { return new RefusingFormat(*this); }

private:
    bool* m_throws;
};

class RefusingDraw : public CCustomDraw
{
public:
    RefusingDraw() : CCustomDraw(false) {}
    void DrawLine(CGridLine& line, CPaintContext const& context, unsigned int filter) override
    {
        CCustomDraw::DrawLine(line, context, filter);
        Refuse();
    }
    int GetOptimalRowHeight(CFont*, CDC&) const override { Refuse(); }
};

TEST_F(ThrowingTest, PaintingGoesOnBehindALineThatThrows)
{
    RefusingDraw draw;
    EXPECT_THROW(throwing.Grid().SetCustomDraw(&draw), Refusal);
    EXPECT_THROW(throwing.Grid().SetFont(CPreferences::GetFont()), Refusal);
    EXPECT_EQ(throwing.Grid().GetItemHeight(throwing.Item("row0")), quiet.Grid().GetItemHeight(quiet.Item("row0")));
    throwing.Grid().Select(throwing.Item("row3"), true);
    throwing.Grid().Invalidate();
    EXPECT_THROW(driver.RunUntilIdle(), Refusal);
    driver.RunUntilIdle(); // all is painted: nothing more to throw
    quiet.Grid().Select(quiet.Item("row3"), true);
    driver.RunUntilIdle();
    EXPECT_EQ(throwing.CellColors("row3", "Name").back, quiet.CellColors("row3", "Name").back);
    throwing.Grid().SetCustomDraw(nullptr);
}

TEST_F(ThrowingTest, AFormatThatThrowsLosesNoUpdate)
{
    CPreferences::SetThreadingMode(CPreferences::SnapshotOnNotify);
    bool throws = false;
    throwing.Column("Quantity").SetTextFormat(new RefusingFormat(throws));
    driver.RunUntilIdle();
    throws = true;
    throwing.Object("row0").SetQuantity(70);
    EXPECT_THROW(driver.RunUntilIdle(), Refusal);
    CPreferences::SetThreadingMode(CPreferences::DirectRead);
    EXPECT_EQ(throwing.Frame().Text(), "HeaderColumnChanged Quantity; ItemUpdated row0");
    throws = false;
    driver.RunUntilIdle();
    EXPECT_EQ(throwing.CellText("row0", "Quantity"), "text");
}

class RefusingSink : public Common::CDataObject::ISink
{
public:
    void OnUpdate(std::set<long> const&, Common::CDataObject const*) override { Refuse(); }
    void OnUpdate(long, Common::CDataObject const*) override { Refuse(); }
    void OnDelete(Common::CDataObject const*) override { Refuse(); }
};

TEST_F(ThrowingTest, ASinkThatThrowsKeepsNoRowOfADeadObject)
{
    RefusingSink sink;
    auto object = std::make_unique<TestObject>(TestRow{.name = "late"});
    object->AddSink(&sink);
    throwing.Grid().Add(object.get(), ScrollableRoot, LastPosition);
    EXPECT_THROW(object->SetQuantity(3), Refusal);
    object.reset();
    driver.RunUntilIdle();
    EXPECT_FALSE(throwing.HasRow("late"));
}
} // namespace
} // namespace Ostrel::Testing
