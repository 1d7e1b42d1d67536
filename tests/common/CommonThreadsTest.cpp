// Threads that meet at one object. What counts is mostly what the thread sanitizer has to say.
#include <atomic>
#include <barrier>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include <ostrel/Common.h>

#include "Quote.h"

namespace Ostrel::Common
{
namespace
{

using testing::CQuote;

constexpr int kThreads = 4;
constexpr int kRounds = 2000;

/// Runs the call on all threads at once, with the number of the thread.
template <class Call>
void OnAllThreads(Call const& call)
{
    std::barrier start(kThreads);
    std::vector<std::jthread> threads;
    for (int number = 0; number < kThreads; ++number)
    {
        threads.emplace_back(
            [&, number]
            {
                start.arrive_and_wait();
                call(number);
            });
    }
}

class CCountingSink final : public CDataObject::ISink
{
public:
    using ISink::OnUpdate;
    void OnUpdate(long /*fid*/, CDataObject const* /*object*/) override { ++m_count; }

    std::atomic<int> m_count = 0;
};

/// The analysis does not know that a lock may be taken twice.
void CountTwice(CSyncObject& lock, int& shared) OSTREL_NO_THREAD_SAFETY_ANALYSIS
{
    lock.Lock();
    {
        CLock const again(lock);
        ++shared;
    }
    ++shared;
    lock.UnLock();
}

TEST(CommonThreadsTest, ALockIsHeldUntilItsLastUnlock)
{
    CSyncObject lock;
    int shared = 0;
    OnAllThreads(
        [&](int)
        {
            for (int i = 0; i < kRounds; ++i)
            {
                CountTwice(lock, shared);
            }
        });
    EXPECT_EQ(shared, 2 * kThreads * kRounds);
}

TEST(CommonThreadsTest, FirstSubscriptionsMeet)
{
    for (int round = 0; round < 200; ++round)
    {
        CCountingSink sinks[kThreads];
        CQuote quote;
        OnAllThreads([&](int number) { quote.AddSink(&sinks[number]); });
        quote.NotifyUpdate(1);
        for (CCountingSink const& sink : sinks)
        {
            ASSERT_EQ(sink.m_count, 1);
        }
    }
}

TEST(CommonThreadsTest, ADynamicObjectIsReadSetAndDeclaredByAll)
{
    CDynamicObject object(true);
    CCountingSink sink;
    object.AddSink(&sink);
    OnAllThreads(
        [&](int number)
        {
            object.DeclareField(new CField(number, "Field", TypeLong));
            for (int i = 1; i <= kRounds; ++i)
            {
                object.SetLong(number, i);
                object.SetStlString(kThreads, std::to_string(number)); // contended
                EXPECT_EQ(object.GetLong(number), i);
                EXPECT_EQ(object.GetStlString(kThreads).size(), 1U);
            }
        });
    EXPECT_GE(sink.m_count, kThreads * kRounds);
    object.RemoveSink(&sink);
}

/// A delegate without fields of its own.
class CPlainDelegate final : public CDelegate
{
public:
    using CDelegate::CDelegate;
    [[nodiscard]] CFieldMap const* GetFieldMap() const override { return nullptr; }
};

TEST(CommonThreadsTest, DelegatesForwardAndLookUpOnAllThreads)
{
    CCountingSink sink;
    CQuote first;
    CQuote second;
    first.SetBid(1);
    second.SetBid(1);
    CPlainDelegate inner(&first, false);
    CPlainDelegate outer(&inner, false);
    outer.AddSink(&sink);
    OnAllThreads(
        [&](int number)
        {
            for (int i = 0; i < kRounds; ++i)
            {
                if (number == 0)
                {
                    inner.SetAggregate(i % 2 == 0 ? &second : &first);
                }
                EXPECT_EQ(outer.GetDouble(CQuote::kBid), 1);
                inner.NotifyUpdate(number);
            }
        });
    EXPECT_EQ(sink.m_count, (kThreads + 1) * kRounds);
    outer.RemoveSink(&sink);
}

TEST(CommonThreadsTest, ACircleOfDelegatesEndsOnEveryThread)
{
    CCountingSink sinks[3];
    CPlainDelegate a(nullptr, false);
    CPlainDelegate b(&a, false);
    CPlainDelegate c(&b, false);
    a.SetAggregate(&c);
    CPlainDelegate* const circle[] = {&a, &b, &c};
    for (int i = 0; i < 3; ++i)
    {
        circle[i]->AddSink(&sinks[i]);
    }
    OnAllThreads(
        [&](int number)
        {
            for (int i = 0; i < kRounds; ++i)
            {
                CPlainDelegate& delegate = *circle[(number + i) % 3];
                EXPECT_EQ(delegate.GetField(1).first, nullptr);
                delegate.NotifyUpdate(number);
            }
        });
    for (int i = 0; i < 3; ++i)
    {
        EXPECT_EQ(sinks[i].m_count, kThreads * kRounds); // each sees each notification once
        circle[i]->RemoveSink(&sinks[i]);
    }
    for (CPlainDelegate* const delegate : circle)
    {
        delegate->SetAggregate(nullptr);
    }
}

/// On update 0 it leaves, lets another sink in for a while, notifies again and deletes an object beside the one
/// watched.
class CRestlessSink final : public CDataObject::ISink
{
public:
    explicit CRestlessSink(CDataObject& object) : m_object(object) {}
    using ISink::OnUpdate;
    void OnUpdate(long fid, CDataObject const* /*object*/) override
    {
        ++m_count;
        if (fid == 0)
        {
            m_object.RemoveSink(this);
            m_object.AddSink(&m_other);
            m_object.NotifyUpdate(1);
            CQuote().AddSink(&m_other);
            m_object.RemoveSink(&m_other);
            m_object.AddSink(this);
        }
    }

    std::atomic<int> m_count = 0;
    CCountingSink m_other;

private:
    CDataObject& m_object;
};

TEST(CommonThreadsTest, SinksChangeTheListWhileAllThreadsNotify)
{
    CQuote quote;
    CCountingSink steady;
    CRestlessSink restless[kThreads]{CRestlessSink(quote), CRestlessSink(quote), CRestlessSink(quote),
                                     CRestlessSink(quote)};
    quote.AddSink(&steady);
    for (CRestlessSink& sink : restless)
    {
        quote.AddSink(&sink);
    }
    OnAllThreads(
        [&](int)
        {
            for (int i = 0; i < kRounds / 4; ++i)
            {
                quote.NotifyUpdate(0);
            }
        });
    EXPECT_GE(steady.m_count, kThreads * (kRounds / 4));
    steady.m_count = 0;
    for (CRestlessSink& sink : restless)
    {
        EXPECT_GT(sink.m_count, 0);
        sink.m_count = 0;
        sink.m_other.m_count = 0;
    }
    quote.NotifyUpdate(2);
    EXPECT_EQ(steady.m_count, 1);
    for (CRestlessSink& sink : restless)
    {
        EXPECT_EQ(sink.m_count, 1); // all are back, once
        EXPECT_EQ(sink.m_other.m_count, 0);
        quote.RemoveSink(&sink);
    }
    quote.RemoveSink(&steady);
}

TEST(CommonThreadsTest, DefaultFormatsAndTheFactoryServeAllThreads)
{
    std::atomic<int> same = 0;
    std::atomic<int> added = 0;
    CFormat* first[kThreads] = {};
    OnAllThreads(
        [&](int number)
        {
            first[number] = &CFormat::GetDefaultFormat(TypeDouble);
            added += CFormatFactory::RegisterFormat("Test::Raced", &CDoubleFormat::CreateFormat) ? 1 : 0;
            for (int i = 0; i < 200; ++i)
            {
                std::unique_ptr<CFormat> const made(CFormatFactory::Create("Common::CDoubleFormat"));
                same += made->FormatStl(1.5 + i) == first[number]->FormatStl(1.5 + i) ? 1 : 0;
            }
        });
    EXPECT_EQ(same, kThreads * 200);
    EXPECT_EQ(added, 1);
    EXPECT_EQ(first[0], first[kThreads - 1]);
}

TEST(CommonThreadsTest, AThreadProtectorAdmitsEveryThreadOnce)
{
    CThreadRecursionProtector protector;
    std::atomic<int> refused = 0;
    OnAllThreads(
        [&](int)
        {
            for (int i = 0; i < kRounds; ++i)
            {
                CRecursionChecker const checker(protector);
                try
                {
                    protector.Enter();
                }
                catch (CRecursionProtector::CRecursionException const&)
                {
                    ++refused;
                }
            }
        });
    EXPECT_EQ(refused, kThreads * kRounds);
}

} // namespace
} // namespace Ostrel::Common
