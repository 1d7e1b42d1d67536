// The two grids of the model test with their model, and the operations that are done to both.
#pragma once

#include <functional>
#include <map>
#include <random>

#include "GridFixture.h"
#include "ModelSide.h"

namespace Ostrel::Testing
{
using GUI::CGrid;
using GUI::CGridItem;
using GUI::ContextType;
using GUI::FixedContext;
using GUI::FixedRoot;
using GUI::IGridFilter;
using GUI::LastPosition;
using GUI::NoContext;
using GUI::ScrollableContext;
using GUI::ScrollableRoot;
using GUI::Detail::ReferenceRow;
using GUI::Detail::ReferenceRows;

inline constexpr long kKeyFields[] = {TestObject::Quantity, TestObject::Volume};

inline HideIf RemainderFilter(int hiddenRemainder)
{
    return HideIf([hiddenRemainder](TestObject& object) { return object.GetQuantity() % 3 == hiddenRemainder; });
}

class GridModelTest : public testing::TestWithParam<unsigned>
{
protected:
    struct Row
    {
        ModelSide* side = nullptr;
        ContextType type = NoContext;
        ReferenceRow* row = nullptr;

        [[nodiscard]] ReferenceRows& Area() const { return side->Area(type); }
        [[nodiscard]] CGridItem* Handle() const
        {
            return row != &Area().root ? row->item : type == FixedContext ? FixedRoot : ScrollableRoot;
        }
    };
    struct Place
    {
        Row parent;
        CGridItem* after = LastPosition;
        std::size_t position = 0;
    };
    struct Detached
    {
        ReferenceRow* row;
        ReferenceRows* owner;
    };

    template <class T>
    auto AnyOf(std::vector<T> const& list)
    {
        return list[static_cast<std::size_t>(Pick(static_cast<int>(list.size())))];
    }
    TestObject& AnyObject() { return *objects[static_cast<std::size_t>(Pick(static_cast<int>(objects.size())))]; }
    int Pick(int below) { return std::uniform_int_distribution<int>(0, below - 1)(random); }
    ModelSide& PickSide() { return m_only != nullptr ? *m_only : Pick(2) == 0 ? a : b; }
    Row PickRoot()
    {
        ModelSide& side = PickSide();
        ContextType const type = Pick(4) == 0 ? FixedContext : ScrollableContext;
        return {&side, type, &side.Area(type).root};
    }
    /// A row of any kind in a tree; row null when the area that was picked has none.
    Row PickRow()
    {
        Row row = PickRoot();
        std::vector<ReferenceRow*> const all = row.Area().AllRows();
        row.row = all.empty() ? nullptr : AnyOf(all);
        return row;
    }
    Place PickPlace()
    {
        Row const parent = Pick(3) == 0 ? PickRoot() : PickRow();
        return PlaceBelow(parent.row != nullptr ? parent : PickRoot());
    }
    Place PlaceBelow(Row parent);

    /// Does it, now and then, on another thread, which waits for the grid's. Later, with all others, where a list waits
    /// for operations; so what is done to rows that exist holds all that it needs.
    template <class Operation>
    void Do(Operation const& operation)
    {
        if (m_deferred != nullptr)
        {
            m_deferred->emplace_back(operation);
            return;
        }
        if (Pick(60) != 0)
        {
            operation();
            return;
        }
        Workers workers;
        workers.Add("worker", operation);
        workers.Run();
    }

    void Add();
    void Delete();
    void DeleteObject();
    void DeleteAll();
    void Detach();
    void Attach();
    void Move();
    void ExpandOrCollapse();
    void Filter();
    void Sort();
    void Update();
    void Select();
    void SelectAllOrNone();
    void Focus();
    void Scroll();
    void ChangeView();
    void SelectAreas();
    void FreezeOrThaw();
    void Navigate();
    void Type();
    void ClickCaption();
    void WorkTogether();
    void Interfere();
    /// Something that a handler of notifications might do, with no regard to the model: with rows of one object, or
    /// any.
    void DoAnything(ModelSide& side, TestObject* favourite);
    /// Takes over what the grids hold.
    void Adopt();
    void Step();
    void Check(ModelSide& side, bool whole);
    void CheckArea(ModelSide& side, ContextType type, bool whole);
    void CheckHandles(ModelSide& side);

    /// Where a row is; side null for a detached one.
    Row Find(CGridItem const* item);
    /// The rows of the objects are gone, or will be.
    void ForgetHandles(ReferenceRow const& top);
    void RemoveDetached(CGridItem const* item);

    std::mt19937 random{GetParam()};
    Driver driver;
    std::vector<std::unique_ptr<TestObject>> objects; // outlive the grids' rows
    std::map<Common::CDataObject const*, std::vector<CGridItem*>> handles;
    HideIf filters[3]{RemainderFilter(0), RemainderFilter(1), RemainderFilter(2)};
    ModelSide a{driver, "A", {100, 100}};
    ModelSide b{driver, "B", {500, 100}};
    std::vector<Detached> detached;
    int nextName = 0;

private:
    ModelSide* m_only = nullptr; ///< the one that operations are to choose
    std::vector<std::function<void()>>* m_deferred = nullptr;
};

} // namespace Ostrel::Testing
