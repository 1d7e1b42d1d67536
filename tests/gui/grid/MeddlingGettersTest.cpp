// Getters and texts of the application that change the grid while it works with what they return: it sorts, places,
// measures, searches or paints rows that are gone a moment later.
#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <ostrel/common/value/Value.h>

#include "GridFixture.h"

namespace Ostrel::Testing
{
namespace
{
using namespace GUI;

std::function<void(TestObject const*)> g_meddle;

class MeddlingObject : public TestObject
{
public:
    using TestObject::TestObject;

    Common::CValue GetValue(long fid) override
    {
        Meddle();
        return TestObject::GetValue(fid);
    }
    std::string GetFormattedStlString(long fid, Common::CFormat const* format) override
    {
        Meddle();
        return TestObject::GetFormattedStlString(fid, format);
    }

private:
    void Meddle() const
    {
        if (g_meddle)
        {
            g_meddle(this);
        }
    }
};

/// A grid sorted by the getters' answers, with fixed rows, children and a focus.
struct MeddledGrid
{
    MeddledGrid()
    {
        window.Grid().SetSort(0, CSortInfo(TestObject::Quantity, false), true);
        for (int i = 0; i < 12; ++i)
        {
            Add(i % 4 == 3 ? FixedRoot : i > 8 ? Row(4) : ScrollableRoot, i);
        }
        grid.Expand(Row(4), true);
        grid.SetFocusedRow(1, ScrollableContext);
        driver.RunUntilIdle();
    }
    MeddledGrid(MeddledGrid const&) = delete;
    MeddledGrid& operator=(MeddledGrid const&) = delete;
    ~MeddledGrid() { g_meddle = nullptr; }

    void Add(CGridItem* parent, int quantity)
    {
        objects.push_back(std::make_unique<MeddlingObject>(TestRow{.name = "row", .quantity = quantity}));
        grid.Add(objects.back().get(), parent, LastPosition);
    }
    CGridItem* Row(std::size_t object) { return objects[object] ? grid.GetItem(objects[object].get()) : nullptr; }
    void Update(std::size_t object, int quantity)
    {
        if (objects[object])
        {
            objects[object]->SetQuantity(quantity);
        }
    }
    /// An object that is being asked stays.
    void DestroyAnObject(TestObject const* asked) { objects[objects[5].get() == asked ? 6 : 5].reset(); }

    Driver driver;
    GridWindow window{driver};
    CGrid& grid = window.Grid();
    std::vector<std::unique_ptr<TestObject>> objects;
};

/// Each row where the others say that it is; each area in its order, where it has one.
void ExpectConsistent(CGrid const& grid, bool isSorted)
{
    for (ContextType const type : {FixedContext, ScrollableContext})
    {
        int const rows = static_cast<int>(grid.GetRowCount(type));
        for (int row = 0; row < rows; ++row)
        {
            EXPECT_EQ(grid.GetRow(grid.GetItem(row, type)), row);
        }
        std::vector<CGridItem*> const items =
            grid.GetChildren(type == FixedContext ? FixedRoot : ScrollableRoot, false);
        auto const quantityOf = [&](CGridItem* item)
        { return static_cast<TestObject*>(grid.GetDataObject(item))->GetQuantity(); };
        EXPECT_TRUE(!isSorted || std::ranges::is_sorted(items, {}, quantityOf));
    }
}

TEST(MeddlingGettersTest, LeaveAGridThatIsInOrder)
{
    struct Operation
    {
        char const* name;
        void (*run)(MeddledGrid&);
    };
    struct Change
    {
        char const* name;
        void (*run)(MeddledGrid&, TestObject const* asked);
    };
    constexpr Operation kOperations[] = {
        {"update", [](MeddledGrid& m) { m.Update(5, 100); }},
        {"sort", [](MeddledGrid& m) { m.grid.SetSort(0, CSortInfo(TestObject::Quantity, false), true); }},
        {"add", [](MeddledGrid& m) { m.Add(m.Row(4), 4); }},
        {"move", [](MeddledGrid& m) { m.grid.MoveAfter(m.Row(4), FixedRoot, LastPosition); }},
        {"detach and attach",
         [](MeddledGrid& m)
         {
             CGridItem* const item = m.Row(4);
             m.grid.Detach(item);
             m.grid.Attach(item, FixedRoot, LastPosition);
         }},
        {"measure", [](MeddledGrid& m) { m.grid.AdjustAllColumns(); }},
        {"type ahead", [](MeddledGrid& m) { m.driver.PressKey('R'); }},
        {"paint", [](MeddledGrid& m) { m.grid.Invalidate(); }},
    };
    constexpr Change kChanges[] = {
        {"delete a row", [](MeddledGrid& m, TestObject const*) { m.grid.Delete(m.Row(5)); }},
        {"delete a row with children", [](MeddledGrid& m, TestObject const*) { m.grid.Delete(m.Row(4)); }},
        {"delete all", [](MeddledGrid& m, TestObject const*) { m.grid.DeleteAll(AllContexts); }},
        {"detach", [](MeddledGrid& m, TestObject const*) { m.grid.Detach(m.Row(6)); }},
        {"destroy an object", [](MeddledGrid& m, TestObject const* asked) { m.DestroyAnObject(asked); }},
        {"add", [](MeddledGrid& m, TestObject const*) { m.Add(ScrollableRoot, 2); }},
        {"drop the order", [](MeddledGrid& m, TestObject const*) { m.grid.ResetSort(true); }},
    };
    for (Operation const& operation : kOperations)
    {
        for (Change const& change : kChanges)
        {
            for (int nth = 1; nth <= 3; ++nth)
            {
                SCOPED_TRACE(std::string(operation.name) + ", " + change.name + " at call " + std::to_string(nth));
                MeddledGrid meddled;
                int calls = 0;
                g_meddle = [&](TestObject const* asked)
                {
                    if (++calls == nth)
                    {
                        change.run(meddled, asked);
                    }
                };
                operation.run(meddled);
                meddled.driver.RunUntilIdle();
                g_meddle = nullptr;
                ExpectConsistent(meddled.grid, meddled.grid.GetSortLevels() > 0);
            }
        }
    }
}

} // namespace
} // namespace Ostrel::Testing
