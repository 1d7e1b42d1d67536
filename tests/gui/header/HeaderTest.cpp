#include <memory>
#include <thread>

#include <gtest/gtest.h>

#include "HeaderEvents.h"

namespace Ostrel::GUI::Testing
{
namespace
{

std::string Fids(CHeader const& header)
{
    std::string text;
    for (int position = 0; position < header.GetColumnCount(); ++position)
    {
        CColumn const& column = *header.GetColumnByIndex(position);
        text += std::to_string(column.GetFid()) + (column.IsVisible() ? "" : "-");
    }
    return text;
}

class HeaderTest : public testing::Test
{
protected:
    /// Columns 1 to `count` of width 50, heard from now on.
    void Fill(int count)
    {
        for (long fid = 1; fid <= count; ++fid)
        {
            m_header.Add(NewColumn(fid));
        }
        m_header.Subscribe(&m_events);
    }

    std::string SortLevels() const
    {
        std::string text;
        for (int level = 0; level < m_header.GetSortLevels(); ++level)
        {
            CSortInfo const info = m_header.GetSort(level);
            text += std::to_string(info.GetFid()) + (info.GetReverseSort() ? "v" : "^");
        }
        return text;
    }

    HeaderEvents m_events; // outlives the header, which tells it of the removal of its columns
    CHeader m_header;
};

TEST_F(HeaderTest, RefusedColumnsStayTheCallers)
{
    Fill(2);
    EXPECT_FALSE(m_header.Add(nullptr));
    EXPECT_FALSE(m_header.Add(m_header.GetFirstColumn()));
    for (long const fid : {-1L, -2L, 2L})
    {
        std::unique_ptr<CColumn> const column(NewColumn(fid));
        EXPECT_FALSE(m_header.Add(column.get())) << fid;
        column->SetWidth(70);
    }
    EXPECT_FALSE(m_header.Remove(-1));
    EXPECT_FALSE(m_header.Remove(3));
    EXPECT_EQ(Fids(m_header), "12");
    EXPECT_EQ(m_events.Take(), "");
}

TEST_F(HeaderTest, RemovedColumnsAreAliveWhenTheirEventComes)
{
    class AsksTheColumn final : public CHeader::INotify
    {
    public:
        void OnHeaderChanged(CHeader* header, CColumn* column, CHeader::NotificationType) override
        {
            seen += column->GetName() + std::to_string(header->GetColumnCount());
            column->SetWidth(1); // the header no longer listens
        }
        std::string seen;
    };
    Fill(3);
    AsksTheColumn asking;
    m_header.GetColumnByFid(1)->SetName("a");
    m_header.GetColumnByFid(2)->SetName("b");
    m_header.GetColumnByFid(3)->SetName("c");
    m_header.Subscribe(&asking);
    m_events.Take();
    EXPECT_TRUE(m_header.Remove(2));
    EXPECT_EQ(m_events.Take(), "removed2");
    m_header.RemoveAll();
    EXPECT_EQ(m_events.Take(), "removed1 removed3");
    EXPECT_EQ(asking.seen, "b2a0c0");
    m_header.Unsubscribe(&asking);
}

TEST_F(HeaderTest, EventsFollowTheChangeAndRepeatsAreSilent)
{
    Fill(3);
    m_header.GetColumnByFid(2)->SetWidth(80);
    EXPECT_EQ(m_events.Take(), "resized2");
    EXPECT_EQ(m_header.GetScrollableColumnWidth(), 180);
    m_header.GetColumnByFid(2)->SetName("x");
    EXPECT_EQ(m_events.Take(), "changed2");
    EXPECT_TRUE(m_header.HideColumn(1));
    EXPECT_TRUE(m_header.HideColumn(1));
    EXPECT_FALSE(m_header.ShowColumn(9));
    EXPECT_EQ(m_events.Take(), "shown/hidden1");
    m_header.SetFixedColumnsCount(1);
    m_header.SetFixedColumnsCount(1);
    EXPECT_EQ(m_events.Take(), "fixedcount");
    EXPECT_TRUE(m_header.IsFixed(2)); // the column before it is hidden
    EXPECT_FALSE(m_header.IsFixed(1));
    m_header.SetHeaderHeight(31);
    m_header.SetHeaderHeight(31);
    EXPECT_EQ(m_events.Take(), "height");
    EXPECT_EQ(m_header.SetFont(nullptr), nullptr);
    EXPECT_EQ(m_header.SetImageList(nullptr), nullptr);
    EXPECT_EQ(m_events.Take(), "font images");
    m_header.AllowColumnResize(false);
    m_header.SetNavigationColumn(2);
    EXPECT_EQ(m_events.Take(), "");
}

TEST_F(HeaderTest, LookUpsAreQuietOutsideTheHeader)
{
    EXPECT_EQ(m_header.GetFirstColumn(), nullptr);
    EXPECT_EQ(m_header.GetLastVisibleColumn(), nullptr);
    Fill(3);
    m_header.HideColumn(3);
    EXPECT_EQ(m_header.GetColumnByIndex(-1), nullptr);
    EXPECT_EQ(m_header.GetColumnByIndex(3), nullptr);
    EXPECT_EQ(m_header.GetVisibleColumnByIndex(2), nullptr);
    EXPECT_EQ(m_header.GetVisibleColumnByFid(3), nullptr);
    EXPECT_EQ(m_header.GetVisibleColumnIndex(3), -1);
    EXPECT_EQ(m_header.GetColumnIndex(4), -1);
    EXPECT_EQ(m_header.GetLastColumn()->GetFid(), 3);
    EXPECT_EQ(m_header.GetLastVisibleColumn()->GetFid(), 2);
}

TEST_F(HeaderTest, MovesColumns)
{
    enum class How
    {
        Before,
        After,
        ToPosition,
        ToVisiblePosition
    };
    struct Case
    {
        How how;
        long fid;
        int target;
        char const* expected; ///< null when refused
    };
    // Column 2 is hidden, column 1 fixed.
    Case const cases[] = {
        {How::Before, 1, 4, "2-314"},
        {How::Before, 4, 1, "412-3"},
        {How::After, 1, 4, "2-341"},
        {How::After, 4, 1, "142-3"},
        {How::Before, 3, 4, "12-34"},
        {How::Before, 2, 2, nullptr},
        {How::Before, 2, 9, nullptr},
        {How::After, 9, 2, nullptr},
        {How::ToPosition, 3, 0, "312-4"},
        {How::ToPosition, 1, 4, "2-341"},
        {How::ToPosition, 1, 5, nullptr},
        {How::ToPosition, 1, -1, nullptr},
        {How::ToVisiblePosition, 4, 1, "12-43"},
        {How::ToVisiblePosition, 1, 3, "2-341"},
        {How::ToVisiblePosition, 1, 4, nullptr},
    };
    for (Case const& one : cases)
    {
        CHeader header;
        for (long const fid : {1L, 2L, 3L, 4L})
        {
            header.Add(NewColumn(fid, 50, fid != 2));
        }
        header.SetFixedColumnsCount(1);
        HeaderEvents events;
        header.Subscribe(&events);
        bool const moved = one.how == How::Before       ? header.MoveBefore(one.fid, one.target)
                           : one.how == How::After      ? header.MoveAfter(one.fid, one.target)
                           : one.how == How::ToPosition ? header.MoveToPosition(one.fid, one.target)
                                                        : header.MoveToVisiblePosition(one.fid, one.target);
        EXPECT_EQ(moved, one.expected != nullptr);
        EXPECT_EQ(Fids(header), moved ? one.expected : "12-34");
        EXPECT_EQ(events.Take(), moved ? "moved" + std::to_string(one.fid) : "");
        header.Unsubscribe(&events);
    }
}

TEST_F(HeaderTest, PermissionsHoldForBothColumnsOfAMove)
{
    Fill(4);
    m_header.SetFixedColumnsCount(1);
    m_header.HideColumn(4);
    m_header.AllowScrollableColumnMove(false);
    EXPECT_FALSE(m_header.MoveBefore(3, 1));
    EXPECT_FALSE(m_header.MoveBefore(4, 3));
    EXPECT_TRUE(m_header.MoveBefore(4, 1)); // hidden columns are free
    m_header.AllowScrollableColumnMove(true);
    m_header.AllowFixedColumnMove(false);
    EXPECT_FALSE(m_header.MoveAfter(2, 1));
    EXPECT_TRUE(m_header.MoveAfter(2, 3));
}

TEST_F(HeaderTest, SortLevelsAreAppendedInOrder)
{
    Fill(2);
    m_header.SetSort(1, {1, false});
    m_header.SetSort(-1, {1, false});
    EXPECT_EQ(m_events.Take(), "");
    for (int level = 0; level < 7; ++level)
    {
        m_header.SetSort(level, {10 + level, false});
    }
    EXPECT_EQ(SortLevels(), "10^11^12^13^14^");
    EXPECT_EQ(m_events.Take(), "sort sort sort sort sort");
    m_header.SetSort(2, {12, false});
    EXPECT_EQ(m_events.Take(), "");
    m_header.SetSort(2, {12, true});
    EXPECT_EQ(SortLevels(), "10^11^12v13^14^");
    EXPECT_EQ(m_events.Take(), "sort");
    EXPECT_EQ(m_header.GetSort(7), CSortInfo(-2, false));
}

TEST_F(HeaderTest, DisallowingSortsClearsTheLevels)
{
    Fill(2);
    m_header.SetSort(0, {1, true});
    m_header.AllowMultiSort(false);
    EXPECT_EQ(SortLevels(), "1v");
    m_header.SetSort(1, {2, false});
    EXPECT_EQ(SortLevels(), "1v");
    m_header.AllowMultiSort(true);
    m_header.SetSort(1, {2, false});
    m_events.Take();
    m_header.AllowMultiSort(false);
    EXPECT_EQ(SortLevels(), "");
    EXPECT_EQ(m_events.Take(), "sort");
    m_header.SetSort(0, {1, false});
    m_header.AllowSort(false);
    EXPECT_EQ(m_events.Take(), "sort sort");
    m_header.SetSort(0, {1, false});
    m_header.ResetSort();
    EXPECT_EQ(m_header.GetSortLevels(), 0);
    EXPECT_EQ(m_events.Take(), "");
}

TEST_F(HeaderTest, ACopyHasItsOwnColumnsAndHearsThem)
{
    Fill(3);
    m_header.HideColumn(3);
    m_header.SetFixedColumnsCount(1);
    m_header.SetHeaderHeight(31);
    m_header.AllowColumnResize(false);
    m_header.SetNavigationColumn(2);
    m_header.SetSort(0, {1, false});
    m_events.Take();

    CHeader copy(m_header, false);
    EXPECT_FALSE(copy.AutoDelete());
    EXPECT_EQ(Fids(copy), "123-");
    EXPECT_EQ(copy.GetFixedColumnWidth(), 50);
    EXPECT_EQ(copy.GetHeaderHeight(), 31);
    EXPECT_FALSE(copy.CanResizeColumn());
    EXPECT_EQ(copy.GetNavigationColumn(), 2);
    EXPECT_EQ(copy.GetSortLevels(), 0);
    copy.GetColumnByFid(1)->SetWidth(70);
    EXPECT_EQ(copy.GetFixedColumnWidth(), 70);
    EXPECT_EQ(m_header.GetFixedColumnWidth(), 50);
    EXPECT_EQ(m_events.Take(), "");
}

TEST_F(HeaderTest, SubscribersHoldUpNobody)
{
    class WaitsForAnotherThread final : public CHeader::INotify
    {
    public:
        void OnHeaderChanged(CHeader* header, CColumn* column, CHeader::NotificationType) override
        {
            std::jthread([=] { column->SetAlignment(header->IsFixed(1) ? CColumn::AlignRight : CColumn::AlignLeft); });
            ++calls;
        }
        int calls = 0;
    };
    Fill(2);
    WaitsForAnotherThread waiting;
    m_header.Subscribe(&waiting);
    m_header.GetColumnByFid(2)->SetWidth(70);
    m_header.GetColumnByFid(2)->SetVisible(false);
    EXPECT_EQ(waiting.calls, 2);
    m_header.Unsubscribe(&waiting);
}

} // namespace
} // namespace Ostrel::GUI::Testing
