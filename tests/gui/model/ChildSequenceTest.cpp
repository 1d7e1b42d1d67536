// The counted tree at sizes that make it three nodes deep, against a vector.
#include <algorithm>
#include <random>

#include <gtest/gtest.h>

#include <ostrel/gui/grid/detail/RowArea.h>

namespace Ostrel::GUI::Detail
{
namespace
{

class ChildSequenceTest : public testing::Test
{
protected:
    void InsertAt(std::size_t position)
    {
        CGridItem* const item = RowArea::CreateItem(nullptr);
        m_area.Insert(*item, m_area.Root(), position == 0 ? FirstPosition : m_items[position - 1], m_changes);
        m_items.insert(m_items.begin() + static_cast<std::ptrdiff_t>(position), item);
        RowArea::Select(*item, Random(50) == 0);
    }
    void EraseAt(std::size_t position)
    {
        m_area.Remove(*m_items[position], m_changes);
        RowArea::DestroyDetached(*m_items[position]);
        m_items.erase(m_items.begin() + static_cast<std::ptrdiff_t>(position));
    }
    std::size_t Random(std::size_t below) { return m_random() % below; }

    void Compare() const
    {
        ASSERT_EQ(m_area.CheckInvariants(), "");
        ChildSequence const& children = m_area.Root().Children();
        ASSERT_EQ(children.Count(), m_items.size());
        ASSERT_EQ(RowArea::Children(m_area.Root(), false), m_items);
        std::vector<CGridItem*> selected;
        std::ranges::copy_if(m_items, std::back_inserter(selected), &CGridItem::IsSelected);
        ASSERT_EQ(m_area.Selected(false), selected);
        for (std::size_t i = 0; i < m_items.size(); i += 17)
        {
            ASSERT_EQ(children.At(static_cast<std::uint32_t>(i)), m_items[i]);
            ASSERT_EQ(ChildSequence::PositionOf(*m_items[i]), i);
            ASSERT_EQ(m_area.ItemAt(static_cast<int>(i)), m_items[i]);
        }
        ASSERT_EQ(children.At(children.Count()), nullptr);
    }

    std::mt19937 m_random{7};
    RowArea m_area{ScrollableContext, nullptr};
    std::vector<CGridItem*> m_items;
    RowChanges m_changes{.wantsEvents = false};
};

TEST_F(ChildSequenceTest, GrowsAndShrinksAtEveryPlace)
{
    struct Phase
    {
        char const* name;
        std::size_t until;
        int place; ///< 0 front, 1 back, 2 anywhere
    };
    constexpr Phase kPhases[] = {{"append", 9000, 1},    {"prepend", 14000, 0},    {"anywhere", 18000, 2},
                                 {"thin out", 300, 2},   {"append again", 700, 1}, {"from the front", 100, 0},
                                 {"from the back", 0, 1}};
    for (Phase const& phase : kPhases)
    {
        SCOPED_TRACE(phase.name);
        bool const grows = m_items.size() < phase.until;
        while (m_items.size() != phase.until)
        {
            std::size_t const places = m_items.size() + (grows ? 1 : 0);
            std::size_t const position = phase.place == 0 ? 0 : phase.place == 1 ? places - 1 : Random(places);
            grows ? InsertAt(position) : EraseAt(position);
            if (m_items.size() % 1500 == 0)
            {
                ASSERT_NO_FATAL_FAILURE(Compare());
            }
        }
        ASSERT_NO_FATAL_FAILURE(Compare());
    }
}

TEST_F(ChildSequenceTest, AppendedRowsFillTheirNodes)
{
    for (std::size_t i = 0; i < kLeafCapacity * 50; ++i)
    {
        InsertAt(i);
    }
    EXPECT_EQ(m_area.Root().Children().Begin().leaf->m_count, kLeafCapacity);
    EXPECT_EQ(m_area.Root().Children().RootNode()->m_count, 50);
}

} // namespace
} // namespace Ostrel::GUI::Detail
