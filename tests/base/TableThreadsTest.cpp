// The tables and the clock under threads. The thread sanitizer looks for races; the tests themselves for handles that
// are mistaken for others.
#include <array>
#include <atomic>
#include <memory>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include <ostrel/platform/base/Clock.h>
#include <ostrel/platform/base/HandleTable.h>
#include <ostrel/platform/base/Object.h>
#include <ostrel/platform/base/TokenTable.h>

namespace
{

using Ostrel::Platform::Clock;
using Ostrel::Platform::HandleTable;
using Ostrel::Platform::TokenKind;
using Ostrel::Platform::TokenTable;

constexpr int kThreads = 4;
constexpr int kRounds = 20'000;

struct Thing
{
    std::atomic<int> visits{0};
};

template <class Work>
void OnThreads(Work work)
{
    std::vector<std::jthread> threads;
    for (int i = 0; i < kThreads; ++i)
    {
        threads.emplace_back(work, i);
    }
}

// Each thread adds and removes its own thing while the others look up the handles that it publishes.
TEST(HandleTableThreadsTest, AHandleNeverFindsAnotherThing)
{
    HandleTable<Thing> table;
    std::array<Thing, kThreads> things;
    std::array<std::atomic<DWORD>, kThreads> published{};
    std::atomic<int> mistakes{0};
    OnThreads(
        [&](int own)
        {
            Thing& thing = things[static_cast<std::size_t>(own)];
            for (int round = 0; round < kRounds; ++round)
            {
                DWORD const handle = table.Add(&thing);
                published[static_cast<std::size_t>(own)] = handle;
                std::size_t const other = static_cast<std::size_t>(own + round) % kThreads;
                DWORD const seen = published[other];
                Thing const* const found = table.Find(seen);
                mistakes += found != nullptr && found != &things[other] ? 1 : 0;
                table.Visit(seen, [&](Thing const& visited) { mistakes += &visited != &things[other] ? 1 : 0; });
                mistakes += table.Remove(handle) != &thing ? 1 : 0;
                mistakes += table.Find(handle) != nullptr ? 1 : 0;
            }
        });
    EXPECT_EQ(mistakes, 0);
    EXPECT_EQ(table.Count(), 0U);
}

// A visited thing is destroyed only when the visit is over.
TEST(HandleTableThreadsTest, VisitHoldsOffTheEnd)
{
    HandleTable<Thing> table;
    std::atomic<DWORD> current{0};
    std::atomic<bool> isDone{false};
    std::jthread visitor(
        [&]
        {
            while (!isDone)
            {
                table.Visit(current, [](Thing& thing) { ++thing.visits; });
            }
        });
    for (int round = 0; round < kRounds; ++round)
    {
        auto thing = std::make_unique<Thing>();
        current = table.Add(thing.get());
        table.Remove(current);
    }
    isDone = true;
}

TEST(TokenTableThreadsTest, TokensOfManyThreadsStayApart)
{
    TokenTable table;
    std::atomic<int> mistakes{0};
    OnThreads(
        [&](int)
        {
            int thing = 0;
            for (int round = 0; round < kRounds / 4; ++round)
            {
                DWORD const token = table.Give(TokenKind::Row, &thing);
                mistakes += table.Resolve(TokenKind::Row, token) != &thing ? 1 : 0;
                table.Forget(&thing);
                mistakes += table.Resolve(TokenKind::Row, token) != nullptr ? 1 : 0;
            }
        });
    EXPECT_EQ(mistakes, 0);
}

TEST(ClockThreadsTest, NoTurnIsLostAndNoneGoesBack)
{
    Clock::SetManual(0);
    std::atomic<int> mistakes{0};
    OnThreads(
        [&](int)
        {
            std::int64_t last = 0;
            for (int round = 0; round < kRounds; ++round)
            {
                Clock::Advance(1);
                std::int64_t const now = Clock::Milliseconds();
                mistakes += now <= last ? 1 : 0;
                last = now;
            }
        });
    EXPECT_EQ(mistakes, 0);
    EXPECT_EQ(Clock::Milliseconds(), kThreads * kRounds);
    Clock::SetRunning();
}

TEST(RuntimeClassThreadsTest, ClassesComeAndGoWhileOthersAreFound)
{
    OnThreads(
        [](int)
        {
            for (int round = 0; round < kRounds / 10; ++round)
            {
                CRuntimeClass const passing("CPassing", 1, 1, nullptr, RUNTIME_CLASS(CObject));
                EXPECT_NE(CRuntimeClass::FromName("CPassing"), nullptr);
                EXPECT_EQ(CRuntimeClass::FromName("CObject"), RUNTIME_CLASS(CObject));
            }
        });
}

} // namespace
