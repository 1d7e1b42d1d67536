#include <algorithm>
#include <atomic>
#include <thread>

#include <gtest/gtest.h>

#include <ostrel/gui/grid/detail/ItemPool.h>
#include <ostrel/gui/grid/detail/RowArea.h>

namespace Ostrel::GUI::Detail
{
namespace
{

CGridItem* HandleOf(std::uintptr_t address)
{
    return reinterpret_cast<CGridItem*>(address);
}

/// The area of detached rows has a root of its own, made when it is first needed.
std::size_t LiveCountWithDetachedArea()
{
    static_cast<void>(RowArea::Detached());
    return ItemPool::LiveCount();
}

TEST(ItemPoolTest, KnowsRowsFromAnythingElse)
{
    CGridItem* const item = RowArea::CreateItem(nullptr);
    auto const address = reinterpret_cast<std::uintptr_t>(item);
    int local = 0;
    EXPECT_TRUE(ItemPool::IsLive(item));
    CGridItem* const strangers[] = {nullptr,
                                    ScrollableRoot,
                                    FixedRoot,
                                    FirstPosition,
                                    LastPosition,
                                    HandleOf(1),
                                    HandleOf(~std::uintptr_t{0}),
                                    HandleOf(std::uintptr_t{1} << 48),
                                    HandleOf((std::uintptr_t{1} << 48) - 1),
                                    HandleOf(address + 1),
                                    HandleOf(address + 8),
                                    HandleOf(address ^ std::uintptr_t{1} << 40),
                                    HandleOf(address | 0x3FFFF),
                                    HandleOf(reinterpret_cast<std::uintptr_t>(&local))};
    for (CGridItem* const stranger : strangers)
    {
        EXPECT_FALSE(ItemPool::IsLive(stranger)) << stranger;
    }
    RowArea::DestroyDetached(*item);
    EXPECT_FALSE(ItemPool::IsLive(item));
}

TEST(ItemPoolTest, AFreedPlaceWaitsBeforeItServesAnotherRow)
{
    CGridItem* const stale = RowArea::CreateItem(nullptr);
    RowArea::DestroyDetached(*stale);
    CGridItem* const next = RowArea::CreateItem(nullptr);
    EXPECT_FALSE(ItemPool::IsLive(stale));
    RowArea::DestroyDetached(*next);
}

TEST(ItemPoolTest, TakesRowsBackInAnyOrder)
{
    std::size_t const before = LiveCountWithDetachedArea();
    std::vector<CGridItem*> items;
    for (int round = 0; round < 3; ++round)
    {
        for (int i = 0; i < 40000; ++i)
        {
            items.push_back(RowArea::CreateItem(nullptr));
        }
        std::vector<CGridItem*> kept;
        for (std::size_t i = 0; i < items.size(); ++i)
        {
            if (round < 2 && i % 3 == 0)
            {
                kept.push_back(items[i]);
            }
            else
            {
                RowArea::DestroyDetached(*items[i]);
            }
        }
        EXPECT_EQ(ItemPool::LiveCount() - before, kept.size());
        EXPECT_TRUE(std::ranges::all_of(kept, &ItemPool::IsLive));
        items = kept;
    }
}

TEST(ItemPoolTest, ServesThreadsAtOnce)
{
    std::size_t const before = LiveCountWithDetachedArea();
    std::atomic<int> faults = 0;
    {
        std::vector<std::jthread> threads;
        for (int thread = 0; thread < 4; ++thread)
        {
            threads.emplace_back(
                [&]
                {
                    for (int round = 0; round < 20; ++round)
                    {
                        std::vector<CGridItem*> items(1000);
                        std::ranges::generate(items, [] { return RowArea::CreateItem(nullptr); });
                        faults += std::ranges::all_of(items, &ItemPool::IsLive) ? 0 : 1;
                        std::ranges::for_each(items, [](CGridItem* item) { RowArea::DestroyDetached(*item); });
                    }
                });
        }
    }
    EXPECT_EQ(faults, 0);
    EXPECT_EQ(ItemPool::LiveCount(), before);
}

} // namespace
} // namespace Ostrel::GUI::Detail
