#include <functional>
#include <memory>
#include <vector>

#include <gtest/gtest.h>

#include <ostrel/Common.h>

#include "Quote.h"

namespace Ostrel::Common
{
namespace
{

using testing::CQuote;
using testing::CRecordingSink;

constexpr long kUnknown = 99;

/// Answers for the size itself.
class CSizeDelegate final : public CDelegate
{
public:
    using CDelegate::CDelegate;

    [[nodiscard]] CFieldMap const* GetFieldMap() const override
    {
        static auto const map =
            CFieldMapBuilder<CSizeDelegate>().Field(CQuote::kSize, "Own size", &CSizeDelegate::GetOwnSize).Build();
        return map.get();
    }
    [[nodiscard]] short GetOwnSize() const { return 77; }
};

class DelegateTest : public ::testing::Test
{
protected:
    std::string TakeRecord() { return std::exchange(m_record, {}); }

    std::string m_record;
    CRecordingSink m_sinkA{"a", m_record};
    CRecordingSink m_sinkB{"b", m_record};
    CRecordingSink m_sinkC{"c", m_record};
};

TEST_F(DelegateTest, OwnFieldsHideTheAggregates)
{
    CQuote quote;
    quote.SetSize(1);
    quote.SetBid(2.5);
    CSizeDelegate delegate(&quote, false);
    EXPECT_EQ(delegate.GetShort(CQuote::kSize), 77);
    EXPECT_EQ(delegate.GetDouble(CQuote::kBid), 2.5);
    EXPECT_EQ(delegate.GetField(CQuote::kBid).second, &quote);
    EXPECT_TRUE(delegate.SetDouble(CQuote::kBid, 3.5));
    EXPECT_EQ(quote.GetBid(), 3.5);
    std::set<std::pair<CField*, CDataObject*>> fields;
    delegate.GetAllFields(fields);
    EXPECT_EQ(fields.size(), 9U);
    std::set<long> fids;
    delegate.GetAllFids(fids);
    EXPECT_EQ(fids.size(), 8U);
}

TEST_F(DelegateTest, ExchangingTheAggregateUpdatesAllFields)
{
    CQuote first;
    CQuote second;
    CSizeDelegate delegate(&first, false);
    delegate.AddSink(&m_sinkA);
    EXPECT_EQ(delegate.SetAggregate(&first), &first);
    EXPECT_EQ(TakeRecord(), "");
    EXPECT_EQ(delegate.SetAggregate(&second), &first);
    EXPECT_EQ(TakeRecord(), "a:-1");
    first.NotifyUpdate(1);
    second.NotifyUpdate(2);
    second.NotifyUpdate(std::set<long>{4, 3});
    EXPECT_EQ(TakeRecord(), "a:2 a:3 a:4");
    delegate.RemoveSink(&m_sinkA);
}

TEST_F(DelegateTest, ADeletedAggregateIsForgotten)
{
    auto quote = std::make_unique<CQuote>();
    CSizeDelegate delegate(quote.get(), false);
    delegate.AddSink(&m_sinkA);
    quote.reset();
    EXPECT_EQ(TakeRecord(), "");
    EXPECT_EQ(delegate.GetAggregate(), nullptr);
    EXPECT_EQ(delegate.GetShort(CQuote::kSize), 77);
    EXPECT_EQ(delegate.GetField(CQuote::kBid), (std::pair<CField*, CDataObject*>(nullptr, nullptr)));
    delegate.RemoveSink(&m_sinkA);
}

TEST_F(DelegateTest, AnOwnedAggregateDiesWithItsDelegate)
{
    auto* const owned = new CQuote;
    owned->AddSink(&m_sinkB);
    auto delegate = std::make_unique<CSizeDelegate>(owned, true);
    delegate->AddSink(&m_sinkA);
    delegate.reset();
    EXPECT_EQ(TakeRecord(), "a:deleted b:deleted");
}

TEST_F(DelegateTest, ACircleEndsWhereItBegan)
{
    CSizeDelegate a(nullptr, false);
    CSizeDelegate b(&a, false);
    CSizeDelegate c(&b, false);
    a.AddSink(&m_sinkA);
    b.AddSink(&m_sinkB);
    c.AddSink(&m_sinkC);
    a.SetAggregate(&c);
    EXPECT_EQ(TakeRecord(), "c:-1 b:-1 a:-1");
    EXPECT_EQ(a.GetField(kUnknown), (std::pair<CField*, CDataObject*>(nullptr, nullptr)));
    std::set<long> fids;
    b.GetAllFids(fids);
    EXPECT_EQ(fids, std::set<long>{CQuote::kSize});
    b.NotifyUpdate(5); // each sees it once
    EXPECT_EQ(TakeRecord(), "c:5 a:5 b:5");
    for (CSizeDelegate* const delegate : {&a, &b, &c})
    {
        delegate->SetAggregate(nullptr);
    }
    TakeRecord();
    a.RemoveSink(&m_sinkA);
    b.RemoveSink(&m_sinkB);
    c.RemoveSink(&m_sinkC);
}

/// Deletes a delegate as soon as it hears anything.
class CDeletingSink final : public CDataObject::ISink
{
public:
    explicit CDeletingSink(std::unique_ptr<CDelegate>& victim) : m_victim(victim) {}
    using ISink::OnUpdate;
    void OnUpdate(long /*fid*/, CDataObject const* /*object*/) override { m_victim.reset(); }
    void OnDelete(CDataObject const* /*object*/) override { m_victim.reset(); }

private:
    std::unique_ptr<CDelegate>& m_victim;
};

TEST_F(DelegateTest, ADelegateMayDieWhileItsAggregateNotifies)
{
    for (bool const byItsDeath : {false, true})
    {
        std::unique_ptr<CDelegate> delegate;
        CDeletingSink deleting(delegate);
        auto quote = std::make_unique<CQuote>();
        quote->AddSink(&deleting);
        delegate = std::make_unique<CSizeDelegate>(quote.get(), false); // is told after the sink that deletes it
        quote->AddSink(&m_sinkB);
        delegate->AddSink(&m_sinkA);
        if (!byItsDeath)
        {
            quote->NotifyUpdate(1);
            EXPECT_EQ(TakeRecord(), "a:deleted b:1");
        }
        quote.reset();
        EXPECT_EQ(TakeRecord(), byItsDeath ? "a:deleted b:deleted" : "b:deleted");
    }
}

/// Changes another field when it hears of the first.
class CFollowingSink final : public CDataObject::ISink
{
public:
    explicit CFollowingSink(CQuote& quote) : m_quote(quote) {}
    using ISink::OnUpdate;
    void OnUpdate(long fid, CDataObject const* /*object*/) override
    {
        if (fid == 1)
        {
            m_quote.NotifyUpdate(2);
        }
    }

private:
    CQuote& m_quote;
};

TEST_F(DelegateTest, AnUpdateThatASinkCausesIsForwardedToo)
{
    CQuote quote;
    CFollowingSink following(quote);
    CSizeDelegate delegate(&quote, false);
    delegate.AddSink(&following);
    delegate.AddSink(&m_sinkA);
    quote.NotifyUpdate(1);
    EXPECT_EQ(TakeRecord(), "a:2 a:1");
    delegate.RemoveSink(&following);
    delegate.RemoveSink(&m_sinkA);
}

} // namespace
} // namespace Ostrel::Common
