// Single promises of an area that the random comparison does not reach.
#include <algorithm>
#include <map>
#include <random>
#include <stdexcept>

#include <gtest/gtest.h>

#include "ReferenceRows.h"

namespace Ostrel::GUI::Detail
{
namespace
{

class ThrowingFilter : public IRowFilter
{
public:
    bool IsHidden(CGridItem&) override
    {
        if (--answersLeft < 0)
        {
            throw std::runtime_error("no answer");
        }
        return false;
    }

    int answersLeft = 0;
};

class StoredValues : public IRowValues
{
public:
    Common::CValue GetSortValue(CGridItem& item, long) override { return values[&item]; }

    std::map<CGridItem const*, Common::CValue> values;
};

class RowAreaTest : public testing::Test
{
protected:
    CGridItem* Add(CGridItem& parent, CGridItem* after = LastPosition)
    {
        CGridItem* const item = RowArea::CreateItem(nullptr);
        m_area.Insert(*item, parent, after, m_changes);
        return item;
    }
    CGridItem* Add() { return Add(m_area.Root()); }
    std::vector<CGridItem*> Rows() const
    {
        std::vector<CGridItem*> rows;
        for (int row = 0; row < m_area.RowCount(); ++row)
        {
            rows.push_back(m_area.ItemAt(row));
        }
        return rows;
    }

    RowArea m_area{FixedContext, nullptr};
    RowChanges m_changes;
};

TEST_F(RowAreaTest, PlacesARowAfterTheAncestorOfAnyRowOfTheArea)
{
    RowArea other{ScrollableContext, nullptr};
    CGridItem* const a = Add();
    CGridItem* const b = Add();
    CGridItem* const grandchild = Add(*Add(*a));
    CGridItem* const stale = Add();
    m_area.Remove(*stale, m_changes);
    RowArea::DestroyDetached(*stale);

    CGridItem* const behindA = Add(m_area.Root(), grandchild);
    CGridItem* const first = Add(m_area.Root(), &m_area.Root());
    CGridItem* const last = Add(m_area.Root(), &other.Root());
    CGridItem* const lastToo = Add(m_area.Root(), stale);
    CGridItem* const endOfB = Add(*b, a); // not below b: to its end
    EXPECT_EQ(Rows(), (std::vector{first, a, behindA, b, last, lastToo}));
    EXPECT_EQ(RowArea::Children(*b, false), std::vector{endOfB});
    EXPECT_TRUE(RowArea::Children(*b, true).empty());
}

TEST_F(RowAreaTest, AFilterThatThrowsChangesNothing)
{
    ThrowingFilter filter;
    CGridItem* const top = Add();
    for (int i = 0; i < 5; ++i)
    {
        Add(*top);
    }
    m_area.SetFilter(&filter);
    std::vector<CGridItem*> const rows = Rows();
    CGridItem* const item = RowArea::CreateItem(nullptr);
    filter.answersLeft = 0;
    EXPECT_THROW(m_area.Insert(*item, m_area.Root(), LastPosition, m_changes), std::runtime_error);
    EXPECT_EQ(item->Area(), &RowArea::Detached());
    RowArea::DestroyDetached(*item);
    filter.answersLeft = 3;
    EXPECT_THROW(m_area.Expand(*top, Recursion::ItemOnly, m_changes), std::runtime_error);
    EXPECT_FALSE(top->IsExpanded());
    filter.answersLeft = 0;
    EXPECT_THROW(m_area.ApplyFilter(m_changes), std::runtime_error);
    EXPECT_EQ(Rows(), rows);
    EXPECT_EQ(m_area.CheckInvariants(), "");
}

TEST_F(RowAreaTest, AMovedRowFindsItsPlaceThoughItsLeafGoesOrItsTypeChanges)
{
    std::mt19937 random{7};
    StoredValues stored;
    RowArea area{ScrollableContext, &stored};
    area.Sort(std::vector<SortLevel>{{0, false}});
    std::vector<CGridItem*> items;
    auto const valueOf = [&](CGridItem const* item) { return static_cast<double>(stored.values[item]); };
    auto const put = [&](CGridItem& item, Common::CValue const& value)
    {
        stored.values[&item] = value;
        area.Reposition(item);
    };
    for (int i = 0; i < 4000; ++i)
    {
        items.push_back(RowArea::CreateItem(nullptr));
        stored.values[items.back()] = Common::CValue(static_cast<double>(i));
        area.Insert(*items.back(), area.Root(), LastPosition, m_changes);
    }
    while (items.size() > 100) // which leaves thin leaves behind
    {
        std::swap(items[random() % items.size()], items.back());
        area.Remove(*items.back(), m_changes);
        RowArea::DestroyDetached(*items.back());
        items.pop_back();
    }
    for (int i = 0; i < 3000; ++i)
    {
        CGridItem& item = *items[random() % items.size()];
        bool const wasSomethingElse = i % 4 == 0;
        if (wasSomethingElse)
        {
            put(item, Common::CValue());
        }
        put(item, Common::CValue(static_cast<double>(random() % 4000)));
        ASSERT_EQ(area.CheckInvariants(), "");
        std::vector<CGridItem*> const rows = RowArea::Children(area.Root(), false);
        ASSERT_TRUE(std::ranges::is_sorted(rows, {}, valueOf)) << i;
    }
}

TEST_F(RowAreaTest, TreesMayBeVeryDeep)
{
    constexpr int kDepth = 20000;
    CGridItem* const top = RowArea::CreateItem(nullptr);
    RowArea scratch{ScrollableContext, nullptr};
    scratch.Insert(*top, scratch.Root(), nullptr, m_changes);
    CGridItem* deepest = top;
    for (int depth = 1; depth < kDepth; ++depth)
    {
        CGridItem* const item = RowArea::CreateItem(nullptr);
        scratch.Insert(*item, *deepest, nullptr, m_changes);
        deepest = item;
    }
    m_changes = {.wantsEvents = true};
    scratch.Expand(scratch.Root(), Recursion::WholeSubtree, m_changes);
    EXPECT_EQ(scratch.RowCount(), kDepth);
    EXPECT_EQ(m_changes.events.size(), 2U * kDepth - 1); // every row expands, all but the top one appear
    EXPECT_EQ(RowArea::RowOf(*deepest), kDepth - 1);
    EXPECT_EQ(RowArea::Level(*deepest), kDepth - 1);
}

TEST(CellUpdatesTest, KeepsOneRecordPerFieldInOrder)
{
    CellUpdates updates;
    EXPECT_EQ(updates.Find(3), nullptr);
    for (long const fieldId : {5L, -7L, 3L, 5L, 100L, 3L, 0L, 8L})
    {
        updates.FindOrAdd(fieldId, static_cast<std::int32_t>(fieldId) * 10).repaintDeadlineMs = 1;
    }
    std::vector<std::int32_t> fieldIds;
    std::ranges::transform(updates.All(), std::back_inserter(fieldIds), &CellUpdate::fieldId);
    EXPECT_EQ(fieldIds, (std::vector{-7, 0, 3, 5, 8, 100}));
    EXPECT_EQ(updates.Find(8)->lastUpdateMs, 80);
    EXPECT_EQ(updates.Find(9), nullptr);
}

} // namespace
} // namespace Ostrel::GUI::Detail
