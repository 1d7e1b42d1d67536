// Timers under a clock that the test turns: the timer thread looks at it whenever a request reaches it.
#include <atomic>
#include <functional>
#include <latch>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include <ostrel/Common.h>
#include <ostrel/common/thread/detail/Acknowledgement.h>

namespace Ostrel::Common
{
namespace
{

using Platform::Clock;

class CClient final : public CTimer::ICallBack
{
public:
    CClient(std::string name, std::string& record) : m_name(std::move(name)), m_record(record) {}

    void OnTimer(int id) override
    {
        m_record += (m_record.empty() ? "" : " ") + m_name + std::to_string(id);
        if (m_then)
        {
            m_then(id);
        }
    }

    std::function<void(int id)> m_then;

private:
    std::string m_name;
    std::string& m_record;
};

class TimerTest : public ::testing::Test
{
protected:
    TimerTest()
    {
        Clock::SetManual(1'000'000);
        CTimer::Initialize();
    }
    ~TimerTest() override
    {
        CTimer::UnInitialize();
        Clock::SetRunning();
    }

    /// Returns when all that was due has been called: the first stop wakes the thread, and the second is executed after
    /// the calls.
    void Settle()
    {
        CTimer::StopTimer(&m_a, -1);
        CTimer::StopTimer(&m_a, -1);
    }
    void Turn(int milliseconds)
    {
        Clock::Advance(milliseconds);
        Settle();
    }
    /// What was called since the last look.
    std::string Calls() { return std::exchange(m_record, {}); }

    std::string m_record; ///< the timer thread's until it has settled
    CClient m_a{"a", m_record};
    CClient m_b{"b", m_record};
};

TEST_F(TimerTest, FiresOnceAndNotBeforeItsTime)
{
    CTimer::StartTimer(&m_a, 1, 500);
    CTimer::StartTimer(&m_a, 1, 100); // moves it
    CTimer::StartTimer(&m_a, 2, 101);
    CTimer::StartTimer(&m_b, 1, 100);
    Turn(99);
    EXPECT_EQ(Calls(), "");
    Turn(1);
    EXPECT_EQ(Calls(), "b1 a1"); // due together: in the reverse order of their starts
    Turn(1000);
    EXPECT_EQ(Calls(), "a2");
}

TEST_F(TimerTest, FiresInOrderAcrossTheWrapOfTheTicks)
{
    Clock::SetManual(0xFFFFFFFF - 50);
    for (int const delay : {70, 20, 0x7FFF'FFFF, 51, 100, 50})
    {
        CTimer::StartTimer(&m_a, delay, static_cast<unsigned>(delay));
    }
    Turn(50);
    EXPECT_EQ(Calls(), "a20 a50");
    Turn(50);
    EXPECT_EQ(Calls(), "a51 a70 a100");
    Turn(0x7FFF'FFFF - 100);
    EXPECT_EQ(Calls(), "a2147483647");
}

TEST_F(TimerTest, TheLongestDelayStaysBehindATimerThatIsLate)
{
    m_a.m_then = [this](int)
    {
        m_a.m_then = nullptr;
        CTimer::StartTimer(&m_b, 2, 0);
        Clock::Advance(1000); // the pass takes its time
        CTimer::StartTimer(&m_b, 3, 0xFFFFFFFF);
    };
    CTimer::StartTimer(&m_a, 1, 0);
    Settle();
    Settle();
    EXPECT_EQ(Calls(), "a1 b2");
}

TEST_F(TimerTest, ACallbackMayThrowStartAndStop)
{
    struct Case
    {
        char const* name;
        std::function<void(int)> onFirst;
        char const* calls;
    };
    Case const cases[] = {
        {"throws", [](int) { throw std::runtime_error("a client's own"); }, "a1 b2"},
        {"starts itself again", [this](int) { CTimer::StartTimer(&m_a, 1, 10); }, "a1 b2 a1"},
        {"stops one of the same pass", [this](int) { CTimer::StopTimer(&m_b, 2); }, "a1"},
        {"stops what it has just started",
         [this](int)
         {
             CTimer::StartTimer(&m_a, 3, 0);
             CTimer::StopTimer(&m_a, 3);
         },
         "a1 b2"},
        {"cannot end the service",
         [](int)
         {
             CTimer::UnInitialize();
             CTimer::Initialize();
         },
         "a1 b2"},
    };
    for (Case const& test : cases)
    {
        SCOPED_TRACE(test.name);
        m_a.m_then = [&](int id)
        {
            m_a.m_then = nullptr;
            test.onFirst(id);
        };
        CTimer::StartTimer(&m_b, 2, 5);
        CTimer::StartTimer(&m_a, 1, 5);
        Turn(5);
        Turn(10);
        EXPECT_EQ(Calls(), test.calls);
    }
}

TEST_F(TimerTest, StopsWhatRunsAndWhatDoesNot)
{
    CTimer::StartTimer(&m_a, 1, 10);
    CTimer::StartTimer(&m_a, 2, 10);
    EXPECT_TRUE(CTimer::StopTimer(&m_a, 1));
    EXPECT_TRUE(CTimer::StopTimer(&m_a, 1));
    EXPECT_TRUE(CTimer::StopTimer(&m_b, 2));
    Turn(10);
    EXPECT_EQ(Calls(), "a2");
}

TEST_F(TimerTest, RefusesNullAndEverythingWhileOff)
{
    EXPECT_FALSE(CTimer::StartTimer(nullptr, 1, 0));
    CTimer::StartTimer(&m_a, 1, 10);
    CTimer::UnInitialize();
    EXPECT_FALSE(CTimer::StartTimer(&m_a, 1, 0));
    EXPECT_FALSE(CTimer::StopTimer(&m_a, 1));
    CTimer::Initialize();
    Turn(20);
    EXPECT_EQ(Calls(), ""); // dropped with the service
}

TEST_F(TimerTest, ARequestStillQueuedDiesWithTheService)
{
    std::latch entered(1);
    std::latch release(1);
    m_a.m_then = [&](int)
    {
        entered.count_down();
        release.wait();
    };
    CTimer::StartTimer(&m_a, 1, 0);
    entered.wait();
    std::jthread ending(&CTimer::UnInitialize);
    while (CTimer::StartTimer(&m_b, 2, 0)) // queued until the service is going down
    {
        std::this_thread::yield();
    }
    release.count_down();
    ending.join();
    CTimer::Initialize();
    Turn(10);
    EXPECT_EQ(Calls(), "a1");
}

TEST(AcknowledgementTest, ALateAnswerSatisfiesNobodyElse)
{
    using namespace std::chrono_literals;
    detail::Acknowledgement acknowledgement;
    EXPECT_FALSE(acknowledgement.Wait(1, 0ms));
    acknowledgement.Give(1);
    EXPECT_FALSE(acknowledgement.Wait(2, 0ms));
    acknowledgement.Give(2);
    EXPECT_TRUE(acknowledgement.Wait(2, 0ms));
}

/// Checks that it is not called between a stop and the next start.
class CGuardedClient final : public CTimer::ICallBack
{
public:
    void OnTimer(int id) override
    {
        m_callsWhileStopped += m_started ? 0 : 1;
        ++m_calls;
        CTimer::StartTimer(this, id, 0);
        if (m_calls % 3 == 0)
        {
            CTimer::StopTimer(this, id + 100);
        }
    }

    std::atomic<bool> m_started = false;
    std::atomic<int> m_calls = 0;
    std::atomic<int> m_callsWhileStopped = 0;
};

TEST(TimerLoadTest, AStoppedTimerIsSilent)
{
    CTimer::Initialize();
    std::atomic<int> faults = 0;
    {
        std::vector<std::jthread> threads;
        for (int number = 0; number < 4; ++number)
        {
            threads.emplace_back(
                [&, number]
                {
                    CGuardedClient client;
                    for (int round = 0; round < 300; ++round)
                    {
                        client.m_started = true;
                        CTimer::StartTimer(&client, number, 0);
                        CTimer::StartTimer(&client, number + 100, 1'000'000);
                        while (round % 10 == 0 && client.m_calls < round / 10)
                        {
                            std::this_thread::yield();
                        }
                        CTimer::StopTimer(&client, number);
                        client.m_started = false;
                    }
                    CTimer::StopTimer(&client, number + 100);
                    faults += client.m_callsWhileStopped;
                });
        }
    }
    CTimer::UnInitialize();
    EXPECT_EQ(faults, 0);
}

} // namespace
} // namespace Ostrel::Common
