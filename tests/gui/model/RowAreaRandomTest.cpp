// Random operations on an area and on the naive model beside it: after each of them both must tell the same.
#include <algorithm>
#include <random>

#include <gtest/gtest.h>

#include <ostrel/gui/grid/detail/ItemPool.h>

#include "ReferenceRows.h"

namespace Ostrel::GUI::Detail
{
namespace
{

struct Shape
{
    unsigned seed;
    int rows;        ///< about so many
    int rootPercent; ///< of the rows go below the root
    int operations;
};

class RowAreaRandomTest : public testing::TestWithParam<Shape>
{
protected:
    RowAreaRandomTest() : m_random(GetParam().seed) {}
    ~RowAreaRandomTest() override
    {
        for (ReferenceRow* const row : m_detached)
        {
            RowArea::DestroyDetached(*row->item);
        }
    }

    int Random(int below) { return static_cast<int>(m_random() % static_cast<unsigned>(below)); }
    ReferenceRow* AnyRow()
    {
        std::vector<ReferenceRow*> const rows = m_reference.AllRows();
        return rows.empty() ? nullptr : rows[static_cast<std::size_t>(Random(static_cast<int>(rows.size())))];
    }
    ReferenceRow& AnyParent()
    {
        ReferenceRow* const row = Random(100) < GetParam().rootPercent ? nullptr : AnyRow();
        return row ? *row : m_reference.root;
    }
    CGridItem& ItemOf(ReferenceRow const& row) { return row.item ? *row.item : m_area.Root(); }

    void Step();
    void Place(ReferenceRow& row, ReferenceRow& parent);
    void AddOrRemove(int choice);
    void MoveOrDetach();
    void ChangeVisibility(int choice);
    void ChangeOrder();
    void Update();
    void CompareAll();
    void CompareRows(std::vector<CGridItem*> const& rows);

    std::mt19937 m_random;
    ReferenceRows m_reference;
    RowArea m_area{ScrollableContext, &m_reference};
    std::vector<ReferenceRow*> m_detached;
    RowChanges m_changes;
};

void RowAreaRandomTest::Place(ReferenceRow& row, ReferenceRow& parent)
{
    auto const position = static_cast<std::size_t>(Random(static_cast<int>(parent.children.size()) + 1));
    CGridItem* after = position == 0 ? FirstPosition : parent.children[position - 1]->item;
    if (position == parent.children.size() && Random(2) == 0)
    {
        after = LastPosition;
    }
    m_reference.Insert(row, parent, position);
    m_area.Insert(*row.item, ItemOf(parent), after, m_changes);
}

void RowAreaRandomTest::AddOrRemove(int choice)
{
    bool const isFull = static_cast<int>(m_reference.AllRows().size()) > GetParam().rows;
    ReferenceRow* const victim = AnyRow();
    if (victim && (isFull || choice == 0))
    {
        m_reference.Remove(*victim);
        m_area.Remove(*victim->item, m_changes);
        RowArea::DestroyDetached(*victim->item);
        m_reference.Forget(*victim);
        return;
    }
    ReferenceRow& parent = AnyParent();
    Place(m_reference.NewRow(RowArea::CreateItem(nullptr), Random(30), Random(5)), parent);
}

void RowAreaRandomTest::MoveOrDetach()
{
    ReferenceRow* const row = AnyRow();
    if (!m_detached.empty() && (!row || Random(3) == 0))
    {
        ReferenceRow* const back = m_detached.back();
        m_detached.pop_back();
        Place(*back, AnyParent());
    }
    else if (row)
    {
        m_reference.Remove(*row);
        m_area.Remove(*row->item, m_changes);
        EXPECT_EQ(row->item->Area()->Type(), NoContext);
        m_detached.push_back(row);
    }
}

void RowAreaRandomTest::ChangeVisibility(int choice)
{
    ReferenceRow* row = Random(20) == 0 ? &m_reference.root : AnyRow();
    row = row ? row : &m_reference.root;
    bool const isRecursive = Random(4) == 0;
    Recursion const recursion = isRecursive ? Recursion::WholeSubtree : Recursion::ItemOnly;
    if (choice < 2)
    {
        m_reference.Expand(*row, isRecursive);
        m_area.Expand(ItemOf(*row), recursion, m_changes);
    }
    else if (choice == 2)
    {
        m_reference.Collapse(*row, isRecursive);
        m_area.Collapse(ItemOf(*row), recursion, m_changes);
    }
    else
    {
        m_reference.hiddenRemainder = Random(4) - 1;
        m_area.SetFilter(m_reference.hiddenRemainder < 0 ? nullptr : &m_reference);
        m_reference.ApplyFilter();
        m_area.ApplyFilter(m_changes);
    }
}

void RowAreaRandomTest::ChangeOrder()
{
    m_reference.levels.clear();
    for (int level = Random(3); level > 0; --level)
    {
        m_reference.levels.push_back({Random(2), Random(2) == 0});
    }
    m_reference.Sort();
    m_area.Sort(m_reference.levels);
}

void RowAreaRandomTest::Update()
{
    ReferenceRow* const row = AnyRow();
    if (!row)
    {
        return;
    }
    row->values[Random(2)] = Random(30);
    m_reference.ApplyFilterTo(*row);
    m_area.ApplyFilterTo(*row->item, m_changes);
    std::vector<CGridItem*> rows = m_reference.VisibleRows();
    if (!m_reference.levels.empty())
    {
        m_reference.Reposition(*row);
    }
    RowMove const move = m_area.Reposition(*row->item);
    if (move.moved && move.count > 0)
    {
        std::vector<CGridItem*> const block(rows.begin() + move.from, rows.begin() + move.from + move.count);
        rows.erase(rows.begin() + move.from, rows.begin() + move.from + move.count);
        rows.insert(rows.begin() + move.to, block.begin(), block.end());
    }
    EXPECT_EQ(rows, m_reference.VisibleRows()) << "the reported move is another one";
}

void RowAreaRandomTest::Step()
{
    m_changes = RowChanges();
    m_reference.events.clear();
    std::vector<CGridItem*> const before = m_reference.VisibleRows();
    int const choice = Random(40);
    bool const isOrderChange = choice < 11;
    if (choice < 10)
    {
        Update();
    }
    else if (choice < 11)
    {
        ChangeOrder();
    }
    else if (choice < 17)
    {
        ChangeVisibility(Random(8) == 0 ? 3 : Random(3));
    }
    else if (choice < 22)
    {
        MoveOrDetach();
    }
    else if (choice < 37)
    {
        AddOrRemove(choice % 4);
    }
    else if (ReferenceRow* const row = AnyRow())
    {
        EXPECT_TRUE(RowArea::Select(*row->item, !row->isSelected));
        row->isSelected = !row->isSelected;
    }
    EXPECT_EQ(m_changes.events, m_reference.events);
    std::vector<CGridItem*> const after = m_reference.VisibleRows();
    EXPECT_EQ(static_cast<std::int64_t>(after.size()) - static_cast<std::int64_t>(before.size()),
              m_changes.rowsShown - m_changes.rowsHidden);
    if (!isOrderChange && before != after)
    {
        auto const changed = std::ranges::mismatch(before, after).in1 - before.begin();
        EXPECT_TRUE(m_changes.HasRowsChanged() && m_changes.firstRow <= changed) << m_changes.firstRow;
    }
}

void RowAreaRandomTest::CompareRows(std::vector<CGridItem*> const& rows)
{
    ASSERT_EQ(m_area.RowCount(), static_cast<int>(rows.size()));
    EXPECT_EQ(m_area.ItemAt(m_area.RowCount()), nullptr);
    for (int row = 0; row < m_area.RowCount(); ++row)
    {
        CGridItem* const item = m_area.ItemAt(row);
        auto const index = static_cast<std::size_t>(row);
        ASSERT_EQ(item, rows[index]) << row;
        ASSERT_EQ(RowArea::RowOf(*item), row);
        ASSERT_EQ(RowArea::NextVisible(*item), index + 1 < rows.size() ? rows[index + 1] : nullptr);
        ASSERT_EQ(RowArea::PreviousVisible(*item), row > 0 ? rows[index - 1] : nullptr);
    }
}

void RowAreaRandomTest::CompareAll()
{
    ASSERT_EQ(m_area.CheckInvariants(), "");
    ASSERT_NO_FATAL_FAILURE(CompareRows(m_reference.VisibleRows()));
    EXPECT_EQ(m_area.Selected(true), m_reference.SelectedRows(true));
    EXPECT_EQ(m_area.Selected(false), m_reference.SelectedRows(false));
    EXPECT_EQ(m_area.SelectedCount(), static_cast<int>(m_reference.SelectedRows(false).size()));
    CGridItem* inTree = RowArea::NextInTree(m_area.Root());
    for (ReferenceRow const* const row : m_reference.AllRows())
    {
        ASSERT_EQ(inTree, row->item);
        ASSERT_EQ(RowArea::IsVisible(*row->item), row->isVisible);
        ASSERT_EQ(row->item->IsExpanded(), row->isExpanded);
        ASSERT_EQ(RowArea::Level(*row->item), row->parent->item ? RowArea::Level(*row->parent->item) + 1 : 0);
        inTree = RowArea::NextInTree(*inTree);
    }
    EXPECT_EQ(inTree, nullptr);
}

TEST_P(RowAreaRandomTest, AgreesWithTheNaiveModel)
{
    static_cast<void>(RowArea::Detached()); // has a root of its own, made when it is first needed
    std::size_t const before = ItemPool::LiveCount();
    for (int operation = 0; operation < GetParam().operations; ++operation)
    {
        Step();
        CompareAll();
        if (HasFailure())
        {
            FAIL() << "at operation " << operation;
        }
    }
    std::size_t rows = m_reference.AllRows().size();
    std::ranges::for_each(m_detached, [&](auto* row) { rows += RowArea::DeletionOrder(*row->item).size(); });
    EXPECT_EQ(ItemPool::LiveCount() - before, rows);
}

INSTANTIATE_TEST_SUITE_P(Seeds, RowAreaRandomTest,
                         testing::Values(Shape{1, 25, 30, 20000}, Shape{2, 60, 10, 12000}, Shape{3, 12, 0, 20000},
                                         Shape{4, 150, 90, 6000}, Shape{5, 400, 100, 3000}));

} // namespace
} // namespace Ostrel::GUI::Detail
