// What objects must not cost. A program of its own, since it counts every allocation and every lock of the process.
#include <cstdlib>
#include <new>
#include <ostream>
#include <set>

#include <dlfcn.h>
#include <pthread.h>

#include <gtest/gtest.h>

#include <ostrel/Common.h>

#include "Quote.h"

namespace
{

thread_local int t_allocations = 0;
thread_local int t_locks = 0;

} // namespace

// Not inlined: GCC would see memory that is allocated here and freed as if malloc had given it.
[[gnu::noinline]] void* operator new(std::size_t size)
{
    ++t_allocations;
    if (void* const memory = std::malloc(size))
    {
        return memory;
    }
    throw std::bad_alloc();
}
[[gnu::noinline]] void operator delete(void* memory) noexcept
{
    std::free(memory);
}
[[gnu::noinline]] void operator delete(void* memory, std::size_t /*size*/) noexcept
{
    std::free(memory);
}

/// In the place of the system's, for the libraries too.
extern "C" int pthread_mutex_lock(pthread_mutex_t* mutex) noexcept
{
    static auto const lock = reinterpret_cast<int (*)(pthread_mutex_t*)>(dlsym(RTLD_NEXT, "pthread_mutex_lock"));
    ++t_locks;
    return lock(mutex);
}

namespace Ostrel::Common
{
namespace
{

using testing::CQuote;
using testing::CTradedQuote;

struct Cost
{
    int allocations;
    int locks;

    bool operator==(Cost const&) const = default;
};

std::ostream& operator<<(std::ostream& out, Cost const& cost)
{
    return out << cost.allocations << " allocations, " << cost.locks << " locks";
}

constexpr Cost kNothing{0, 0};

template <class Call>
Cost CostOf(Call const& call)
{
    t_allocations = 0;
    t_locks = 0;
    call();
    return {t_allocations, t_locks};
}

class CSilentSink final : public CDataObject::ISink
{
public:
    using ISink::OnUpdate;
    void OnUpdate(long /*fid*/, CDataObject const* /*object*/) override {}
};

class CPlainDelegate final : public CDelegate
{
public:
    using CDelegate::CDelegate;
    [[nodiscard]] CFieldMap const* GetFieldMap() const override { return nullptr; }
};

class CostTest : public ::testing::Test
{
protected:
    CostTest()
    {
        m_quote.SetBid(2.5);
        CTradedQuote::Map(); // is made once
    }

    std::set<long> const m_fids{1, 2, 3};
    CSilentSink m_sink;
    CSilentSink m_other;
    CTradedQuote m_quote; // its fields are found in its own map and in its parent's
};

TEST_F(CostTest, TheCountersCount)
{
    CSyncObject lock;
    EXPECT_EQ(CostOf([&] { CLock const held(lock); }), (Cost{0, 1}));
    EXPECT_EQ(CostOf([] { std::set<long> const one{1}; }), (Cost{1, 0}));
    Cost const watchedByTwo = CostOf(
        [&]
        {
            m_quote.AddSink(&m_sink);
            m_quote.AddSink(&m_other);
        });
    EXPECT_GT(watchedByTwo.allocations, 0);
    EXPECT_EQ(CostOf([&] { m_quote.NotifyUpdate(1); }), (Cost{0, 1}));
}

TEST_F(CostTest, AnObjectThatNobodyOrOneWatchesHasNoLockAndNoList)
{
    Cost const cost = CostOf(
        [&]
        {
            CQuote quote;
            quote.NotifyUpdate(1);
            quote.NotifyUpdate(m_fids);
            quote.AddSink(&m_sink);
            quote.AddSink(&m_sink);
            quote.NotifyUpdate(1);
            quote.RemoveSink(&m_other);
            quote.RemoveSink(&m_sink);
            quote.AddSink(&m_other);
        });
    EXPECT_EQ(cost, kNothing);
}

TEST_F(CostTest, TypedAccessNeitherAllocatesNorLocks)
{
    CPlainDelegate delegate(&m_quote, false);
    for (CDataObject* const object : {static_cast<CDataObject*>(&m_quote), static_cast<CDataObject*>(&delegate)})
    {
        bool isRight = false;
        Cost const cost = CostOf(
            [&]
            {
                isRight = object->GetDouble(CQuote::kBid) == 2.5 && object->GetLong(CQuote::kLocked) == 1234 &&
                          object->SetInt64(CTradedQuote::kVolume, 7) && object->SetShort(CQuote::kSize, 7) &&
                          object->GetValue(CQuote::kSize) == short(7) &&
                          object->SetValue(CQuote::kFlag, CValue(true)) && object->GetShort(99) == 0;
            });
        EXPECT_TRUE(isRight);
        EXPECT_EQ(cost, kNothing);
    }
}

} // namespace
} // namespace Ostrel::Common
