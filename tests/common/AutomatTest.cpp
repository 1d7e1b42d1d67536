#include <atomic>
#include <latch>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include <ostrel/Common.h>

namespace Ostrel::Common
{
namespace
{

template <class Call>
class CCallJob final : public CJob
{
public:
    explicit CCallJob(Call call) : m_call(std::move(call)) {}

    void Execute() override { m_call(); }

private:
    Call m_call;
};

/// Notes on which pass each job ran.
class CPassCounter final : public CAutomat
{
public:
    using CAutomat::CAutomat;

    template <class Call>
    void Push(Call call)
    {
        PushJob(new CCallJob<Call>(std::move(call)));
    }
    void PushNote(int number)
    {
        Push([this, number] { m_notes.emplace_back(m_passes.load(), number); });
    }
    void PushAndEnd()
    {
        Push([this] { Stop(); });
        Start();
        Wait(-1);
    }

    using Notes = std::vector<std::pair<int, int>>;
    Notes m_notes;
    std::atomic<int> m_passes = 0;

protected:
    void WaitNextJob(unsigned int timeout) override
    {
        EXPECT_EQ(timeout, 0xFFFFFFFF);
        ++m_passes;
        CAutomat::WaitNextJob(timeout);
    }
};

TEST(AutomatTest, ExecutesInOrderOfPushesAndWhatAJobPushesInTheNextPass)
{
    CPassCounter automat;
    automat.PushNote(1);
    automat.Push(
        [&]
        {
            automat.PushNote(2);
            automat.Push([&] { automat.Stop(); });
        });
    automat.PushNote(3);
    automat.PushJob(nullptr);
    automat.Start();
    automat.Start();
    automat.Wait(-1);
    EXPECT_EQ(automat.m_notes, (CPassCounter::Notes{{0, 1}, {0, 3}, {1, 2}}));
}

TEST(AutomatTest, AStoppedOneKeepsItsJobsForTheNextStart)
{
    CPassCounter automat("the name of an automaton");
    EXPECT_FALSE(automat.IsActive());
    automat.Push([&] { EXPECT_EQ(automat.GetThreadId(), GetCurrentThreadId()); });
    automat.Push([&] { automat.PushNote(1); }); // comes too late for the pass that stops
    automat.PushAndEnd();
    EXPECT_FALSE(automat.IsActive());
    EXPECT_TRUE(automat.IsStopping());
    EXPECT_TRUE(automat.m_notes.empty());
    automat.PushAndEnd();
    EXPECT_EQ(automat.m_notes.size(), 1U);
    automat.PushNote(2); // deleted with the automaton
    EXPECT_EQ(automat.GetThreadName(), "the name of an automaton");
}

/// Automata whose threads nobody joins: nothing tells when they may die.
CPassCounter& MakeImmortal()
{
    static auto& made = *new std::vector<CPassCounter*>;
    return *made.emplace_back(new CPassCounter);
}

TEST(AutomatTest, WaitGivesUpAfterItsTime)
{
    static std::latch entered(1);
    static std::latch release(1);
    CPassCounter& automat = MakeImmortal();
    automat.Push(
        []
        {
            entered.count_down();
            release.wait();
        });
    automat.Start();
    entered.wait();
    automat.Wait(0);
    EXPECT_FALSE(automat.IsActive());
    automat.Stop();
    release.count_down();
}

TEST(AutomatTest, ItsOwnThreadDoesNotWaitForItself)
{
    static std::latch returned(1);
    CPassCounter& automat = MakeImmortal();
    automat.Push(
        [&automat]
        {
            automat.Wait(-1);
            automat.Stop();
            returned.count_down();
        });
    automat.Start();
    returned.wait();
    EXPECT_FALSE(automat.IsActive());
}

TEST(AutomatTest, AStopIsNeverLost)
{
    for (int round = 0; round < 2000; ++round)
    {
        CAutomat automat;
        automat.Start();
        automat.Stop();
        automat.Wait(-1);
    }
}

TEST(AutomatTest, ManyProducersLoseNothingAndKeepTheirOrder)
{
    constexpr int kProducers = 4;
    constexpr int kJobs = 5000;
    CPassCounter automat;
    std::latch done(kProducers);
    std::vector<int> next(kProducers); // the automaton's thread only
    int outOfOrder = 0;
    automat.Start();
    std::vector<std::jthread> producers;
    for (int producer = 0; producer < kProducers; ++producer)
    {
        producers.emplace_back(
            [&, producer]
            {
                for (int number = 0; number < kJobs; ++number)
                {
                    automat.Push([&, producer, number] { outOfOrder += next[producer]++ == number ? 0 : 1; });
                }
                automat.Push([&] { done.count_down(); });
            });
    }
    done.wait();
    automat.Stop();
    automat.Wait(-1);
    EXPECT_EQ(next, std::vector<int>(kProducers, kJobs));
    EXPECT_EQ(outOfOrder, 0);
}

} // namespace
} // namespace Ostrel::Common
