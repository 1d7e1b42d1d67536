#include <gtest/gtest.h>

#include <ostrel/platform/base/Clock.h>
#include <ostrel/platform/base/Narrow.h>

namespace
{

using Ostrel::Platform::Clock;
using Ostrel::Platform::TickReached;
using Ostrel::Platform::TicksSince;

class ClockTest : public testing::Test
{
protected:
    ~ClockTest() override { Clock::SetRunning(); }
};

TEST_F(ClockTest, StandsUntilTurnedAndRunsOnFromThere)
{
    Clock::SetManual(5000);
    Clock::Advance(250);
    Clock::Advance(-100);
    EXPECT_EQ(Clock::Microseconds(), 5'250'000);
    Clock::Advance(1'000'000'000);
    std::int64_t const standing = Clock::Microseconds();
    Clock::SetRunning();
    Clock::Advance(1'000'000);
    std::int64_t const running = Clock::Microseconds();
    EXPECT_GE(running, standing);
    EXPECT_LT(running, standing + 1'000'000'000); // turned while running: no effect
    Clock::SetManual();
    EXPECT_GE(Clock::Microseconds(), running);
}

TEST_F(ClockTest, TicksWrap)
{
    Clock::SetManual(0xFFFFFFFF);
    DWORD const before = GetTickCount();
    Clock::Advance(6);
    EXPECT_EQ(before, 0xFFFFFFFFU);
    EXPECT_EQ(GetTickCount(), 5U);
    EXPECT_EQ(TicksSince(GetTickCount(), before), 6U);
    EXPECT_TRUE(TickReached(GetTickCount(), before));
    EXPECT_TRUE(TickReached(before, before));
    EXPECT_FALSE(TickReached(before, GetTickCount()));
}

TEST(NarrowTest, KeepsTheLow32BitsWithTheirSign)
{
    using namespace Ostrel::Platform;
    EXPECT_EQ(NarrowLong(0x80000000L), -2147483648L);
    EXPECT_EQ(NarrowLong(0x100000005L), 5L);
    EXPECT_EQ(NarrowLong(-1L), -1L);
    EXPECT_EQ(NarrowULong(~0UL), 0xFFFFFFFFUL);
}

} // namespace
