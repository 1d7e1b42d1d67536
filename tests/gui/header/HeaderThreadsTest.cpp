#include <atomic>
#include <thread>

#include <gtest/gtest.h>

#include <ostrel/gui/header/detail/HeaderLayout.h>

#include "HeaderEvents.h"
#include "TestFormats.h"

namespace Ostrel::GUI::Testing
{
namespace
{

constexpr int kColumns = 6;
constexpr int kRounds = 2000;

/// Counts events; the header is asked from inside each.
class AskingCounter final : public CHeader::INotify
{
public:
    void OnHeaderChanged(CHeader* header, CColumn*, CHeader::NotificationType) override
    {
        events += header->GetLayout()->AllColumns().empty() ? 0 : 1;
    }
    std::atomic<int> events = 0;
};

void ChangeProperties(CHeader& header, int seed)
{
    for (int round = 0; round < kRounds; ++round)
    {
        CColumn& column = *header.GetColumnByFid(1 + (round + seed) % kColumns);
        column.SetWidth(1 + round % 97);
        column.SetVisible(round % 3 != 0);
        column.SetName(round % 2 == 0 ? "even" : "odd, and too long to lie inside the string");
        column.SetAlignment(round % 2 == 0 ? CColumn::AlignLeft : CColumn::AlignRight);
        std::unique_ptr<ICellPaintFormat const> const previous(
            column.SetCellPaintFormat(new NumberedCellFormat(round)));
    }
}

void ChangeOrder(CHeader& header)
{
    for (int round = 0; round < kRounds; ++round)
    {
        header.MoveBefore(1 + round % kColumns, 1 + (round * 5 + 2) % kColumns);
        header.SetFixedColumnsCount(round % 4);
        header.SetSort(0, {1 + round % kColumns, round % 2 == 0});
        header.Add(NewColumn(100 + round));
        header.ShowColumn(100 + round);
        header.Remove(100 + round);
    }
}

/// Every layout that a reader sees is consistent in itself.
void ReadLayouts(CHeader const& header, std::atomic<bool> const& stop)
{
    while (!stop)
    {
        auto const layout = header.GetLayout();
        int left = 0;
        for (VisibleColumn const& column : layout->VisibleColumns())
        {
            ASSERT_EQ(column.left, left);
            ASSERT_EQ(layout->VisibleOf(column.fid), &column);
            ASSERT_EQ(column.column->GetFid(), column.fid);
            left = column.right;
        }
        ASSERT_EQ(layout->FixedWidth() + layout->ScrollableWidth(), left);
        CHeader const copy(header);
        ASSERT_GE(copy.GetColumnCount(), kColumns);
    }
}

TEST(HeaderThreadsTest, WorkersChangeWhileOthersRead)
{
    AskingCounter counter;
    CHeader header;
    for (long fid = 1; fid <= kColumns; ++fid)
    {
        header.Add(NewColumn(fid));
    }
    header.Subscribe(&counter);
    {
        std::atomic<bool> stop = false;
        std::jthread reader([&] { ReadLayouts(header, stop); });
        {
            std::jthread const first([&] { ChangeProperties(header, 0); });
            std::jthread const second([&] { ChangeProperties(header, 3); });
            std::jthread const third([&] { ChangeOrder(header); });
        }
        stop = true;
    }
    int width = 0;
    for (long fid = 1; fid <= kColumns; ++fid)
    {
        CColumn const& column = *header.GetColumnByFid(fid);
        width += column.IsVisible() ? column.GetWidth() : 0;
    }
    EXPECT_EQ(header.GetFixedColumnWidth() + header.GetScrollableColumnWidth(), width);
    EXPECT_GT(counter.events, kRounds);
}

} // namespace
} // namespace Ostrel::GUI::Testing
