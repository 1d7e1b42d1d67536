#include <functional>
#include <memory>

#include <gtest/gtest.h>

#include <ostrel/Common.h>

#include "Bytes.h"
#include "Quote.h"

namespace Ostrel::Common
{
namespace
{

using testing::ByteCount;
using testing::CQuote;
using testing::CRecordingSink;
using testing::CTradedQuote;
using testing::FromHexText;
using testing::StoredBytes;

constexpr long kUnknown = 99;

static_assert(sizeof(CDataObject) == 2 * sizeof(void*), "an object that nobody watches is two words");

TEST(DataObjectTest, TypedAccessNeverConverts)
{
    CQuote quote;
    EXPECT_TRUE(quote.SetShort(CQuote::kSize, 5));
    EXPECT_EQ(quote.GetShort(CQuote::kSize), 5);
    EXPECT_EQ(quote.GetLong(CQuote::kSize), 0);
    EXPECT_FALSE(quote.SetLong(CQuote::kSize, 6));
    EXPECT_EQ(quote.m_sizeSets, 1);
    EXPECT_EQ(quote.GetShort(CQuote::kWriteOnly), 0);
    EXPECT_TRUE(quote.SetShort(CQuote::kWriteOnly, 8));
    EXPECT_FALSE(quote.SetLong(CQuote::kLocked, 1));
    EXPECT_EQ(quote.GetDouble(kUnknown), 0);
    EXPECT_TRUE(quote.SetMfcString(CQuote::kNote, CString("n")));
    EXPECT_EQ(quote.GetStlString(CQuote::kNote), "");
    EXPECT_EQ(quote.GetMfcString(CQuote::kNote), CString("n"));
    EXPECT_TRUE(quote.SetObjectPtr(CQuote::kPeer, &quote));
    EXPECT_EQ(quote.GetObjectPtr(CQuote::kPeer), &quote);
}

TEST(DataObjectTest, ValuesHaveTheTypeOfTheirField)
{
    CQuote quote;
    quote.SetSize(5);
    EXPECT_EQ(quote.GetValue(CQuote::kSize), CValue(short(5)));
    EXPECT_EQ(quote.GetValue(CQuote::kWriteOnly), CValue(short(0)));
    EXPECT_EQ(quote.GetValue(kUnknown).GetType(), TypeEmpty);
    EXPECT_TRUE(quote.SetValue(CQuote::kSize, CValue(CString("x")))); // arrives as 0
    EXPECT_EQ(quote.GetSize(), 0);
    EXPECT_EQ(quote.m_sizeSets, 2);
    EXPECT_FALSE(quote.SetValue(CQuote::kLocked, CValue(1L)));
    EXPECT_FALSE(quote.SetValue(kUnknown, CValue(1L)));
    EXPECT_TRUE(quote.SetValue(CQuote::kName, CValue(std::string("abc"))));
    EXPECT_EQ(quote.GetName(), "abc");
}

TEST(DataObjectTest, FieldsTellWhatTheyAre)
{
    CTradedQuote quote;
    EXPECT_TRUE(quote.HasGetMethod(CQuote::kBid));
    EXPECT_FALSE(quote.HasSetMethod(CQuote::kBid)); // declared again without a setter
    EXPECT_FALSE(quote.HasGetMethod(CQuote::kWriteOnly));
    EXPECT_FALSE(quote.HasSetMethod(kUnknown));
    EXPECT_EQ(quote.GetFieldType(CTradedQuote::kVolume), TypeInt64);
    EXPECT_EQ(quote.GetFieldType(kUnknown), TypeEmpty);
    EXPECT_EQ(quote.GetFieldName(CQuote::kBid), "Best bid");
    EXPECT_EQ(quote.GetFieldName(kUnknown), "");
    EXPECT_EQ(quote.GetFormat(CQuote::kBid), nullptr);
    EXPECT_EQ(quote.GetField(kUnknown), (std::pair<CField*, CDataObject*>(nullptr, &quote)));

    std::set<std::pair<CField*, CDataObject*>> fields;
    quote.GetAllFields(fields);
    EXPECT_EQ(fields.size(), 10U); // the field that is declared twice counts twice
    std::set<long> fids;
    quote.GetAllFids(fids);
    EXPECT_EQ(fids, (std::set<long>{2, 3, 4, 5, 7, 11, 13, 17, 19}));
    EXPECT_EQ(quote.GetSerializationName(), "");
    EXPECT_FALSE(quote.IsSerializableType());
}

/// Refuses every text and writes every text as "?".
class CStubbornFormat final : public CDefaultStlStringFormat
{
public:
    using CDefaultStlStringFormat::FormatStl;
    using CDefaultStlStringFormat::ParseStl;
    [[nodiscard]] std::string FormatStl(std::string const& /*value*/, CDataObject const* /*object*/) const override
    {
        return "?";
    }
    bool ParseStl(std::string const& /*text*/, std::string& /*value*/, CDataObject const* /*object*/) const override
    {
        return false;
    }
};

TEST(DataObjectTest, TextsGoThroughTheGivenFormatThenTheFieldsThenTheDefault)
{
    CQuote quote;
    quote.SetBid(1234.567);
    CDoubleFormat const whole(0);
    EXPECT_EQ(quote.GetFormattedStlString(CQuote::kBid, &whole), "1 235");
    EXPECT_EQ(quote.GetFormattedMfcString(CQuote::kBid, nullptr), CString("1 234,57"));
    EXPECT_EQ(quote.GetFormattedStlString(CQuote::kLocked, nullptr), "1 234");
    EXPECT_EQ(quote.GetFormattedStlString(CQuote::kWriteOnly, nullptr), "");
    EXPECT_EQ(quote.GetFormattedStlString(CQuote::kPeer, nullptr), "");
    EXPECT_EQ(quote.GetFormattedStlString(kUnknown, nullptr), "");

    EXPECT_TRUE(quote.SetFormattedStlString(CQuote::kBid, "2,5", nullptr));
    EXPECT_EQ(quote.GetBid(), 2.5);
    EXPECT_FALSE(quote.SetFormattedStlString(CQuote::kBid, "3", &CFormat::GetDefaultFormat(TypeLong)));
    EXPECT_FALSE(quote.SetFormattedMfcString(CQuote::kSize, CString("70000"), nullptr));
    EXPECT_EQ(quote.m_sizeSets, 0);
    EXPECT_FALSE(quote.SetFormattedStlString(CQuote::kLocked, "1", nullptr));
    EXPECT_FALSE(quote.SetFormattedStlString(CQuote::kPeer, "1", nullptr));

    CStubbornFormat const stubborn;
    EXPECT_TRUE(quote.SetFormattedStlString(CQuote::kName, "raw", &stubborn));
    EXPECT_EQ(quote.GetName(), "raw");
    EXPECT_EQ(quote.GetFormattedMfcString(CQuote::kName, &stubborn), CString("?"));
    EXPECT_TRUE(quote.SetFormattedStlString(CQuote::kNote, "text", nullptr));
    EXPECT_EQ(quote.GetNote(), CString("text"));
}

TEST(DataObjectTest, RecordsHoldFieldsInAscendingOrder)
{
    CQuote quote;
    quote.SetSize(5);
    quote.SetFlag(true);
    quote.SetPeer(&quote);
    std::string const bytes = StoredBytes(quote);
    EXPECT_EQ(bytes, "01 00 00 00 08 00 00 00 "
                     "02 00 00 00 01 0C 00 00 00 00 00 00 00 00 "
                     "03 00 00 00 01 05 05 00 "
                     "05 00 00 00 01 02 00 00 00 00 "
                     "07 00 00 00 01 01 00 00 00 00 "
                     "0B 00 00 00 01 0D "
                     "0D 00 00 00 01 05 00 00 "
                     "11 00 00 00 01 07 D2 04 00 00 "
                     "13 00 00 00 01 0A 01");

    CQuote restored;
    restored.SetPeer(&quote);
    CSerializer stream = FromHexText(bytes);
    stream >> restored;
    EXPECT_EQ(restored.GetPeer(), nullptr); // links are not kept
    EXPECT_TRUE(restored.GetFlag());
    EXPECT_EQ(restored.m_sizeSets, 2); // the write-only field sets the size as well, to its stored zero
}

TEST(DataObjectTest, ATruncatedRecordKeepsTheFieldsBeforeTheCut)
{
    std::string const bytes = "01 00 00 00 03 00 00 00 63 00 00 00 01 07 01 00 00 00 "
                              "03 00 00 00 01 05 05 00 13 00 00 00 01 0A 01";
    for (std::size_t length = 1; length < ByteCount(bytes); ++length)
    {
        CQuote quote;
        CSerializer stream = FromHexText(bytes, length);
        EXPECT_THROW(stream >> quote, CSerializer::SerializationException) << length;
        EXPECT_EQ(quote.GetSize(), length >= 26 ? 5 : 0) << length;
        EXPECT_FALSE(quote.GetFlag());
    }
}

TEST(DataObjectTest, AnOldRecordOrOneWithoutFieldsSetsNothing)
{
    struct Case
    {
        char const* bytes;
        int sizeSets;
    };
    for (auto const& [bytes, sizeSets] :
         {Case{"00 00 00 00", 0}, Case{"FF FF FF FF", 0}, Case{"01 00 00 00 00 00 00 00", 0},
          Case{"01 00 00 00 FF FF FF FF", 0}, Case{"02 00 00 00 01 00 00 00 03 00 00 00 01 05 05 00", 1}})
    {
        CQuote quote;
        CSerializer stream = FromHexText(bytes);
        stream >> quote;
        EXPECT_EQ(quote.m_sizeSets, sizeSets) << bytes;
    }
}

/// Does something of the test's when it is told of an update.
class CActingSink final : public CRecordingSink
{
public:
    CActingSink(std::string name, std::string& record, std::function<void()> action)
        : CRecordingSink(std::move(name), record), m_action(std::move(action))
    {}
    using ISink::OnUpdate;
    void OnUpdate(long fid, CDataObject const* object) override
    {
        CRecordingSink::OnUpdate(fid, object);
        m_action();
    }

private:
    std::function<void()> m_action;
};

class SinkTest : public ::testing::Test
{
protected:
    std::string TakeRecord() { return std::exchange(m_record, {}); }
    /// A sink that outlives the object.
    CRecordingSink& NewSink(
        std::string name, std::function<void()> action = [] {})
    {
        m_sinks.push_back(std::make_unique<CActingSink>(std::move(name), m_record, std::move(action)));
        return *m_sinks.back();
    }

    std::string m_record;
    std::vector<std::unique_ptr<CActingSink>> m_sinks;
    CRecordingSink m_a{"a", m_record};
    CRecordingSink m_b{"b", m_record};
    CQuote m_quote;
};

TEST_F(SinkTest, EverySinkIsToldOnceInOrder)
{
    m_quote.NotifyUpdate(1);
    m_quote.RemoveSink(&m_a);
    m_quote.AddSink(&m_a);
    m_quote.AddSink(&m_b);
    m_quote.AddSink(&m_a);
    m_quote.AddSink(nullptr);
    m_quote.NotifyUpdate(-1);
    EXPECT_EQ(TakeRecord(), "a:-1 b:-1");
    m_quote.NotifyUpdate(std::set<long>{3, 1, 2});
    EXPECT_EQ(TakeRecord(), "a:1 a:2 a:3 b:1 b:2 b:3");
    m_quote.RemoveSink(&m_a);
    m_quote.NotifyUpdate(4);
    EXPECT_EQ(TakeRecord(), "b:4");
}

TEST_F(SinkTest, TheListMayChangeDuringANotification)
{
    CRecordingSink& late = NewSink("late");
    CRecordingSink* itself = nullptr;
    CRecordingSink& self = NewSink("self",
                                   [&]
                                   {
                                       m_quote.RemoveSink(itself);
                                       m_quote.RemoveSink(&m_b); // in the copy of this pass already
                                       m_quote.AddSink(&late);   // in the next pass only
                                   });
    itself = &self;
    m_quote.AddSink(&m_a);
    m_quote.AddSink(&self);
    m_quote.AddSink(&m_b);
    m_quote.NotifyUpdate(1);
    EXPECT_EQ(TakeRecord(), "a:1 self:1 b:1");
    m_quote.NotifyUpdate(2);
    EXPECT_EQ(TakeRecord(), "a:2 late:2");
}

TEST_F(SinkTest, ASinkMayNotifyAgain)
{
    int depth = 0;
    m_quote.AddSink(&NewSink("again",
                             [&]
                             {
                                 if (++depth < 3)
                                 {
                                     m_quote.NotifyUpdate(depth);
                                 }
                             }));
    m_quote.AddSink(&m_b);
    m_quote.NotifyUpdate(0);
    EXPECT_EQ(TakeRecord(), "again:0 again:1 again:2 b:2 b:1 b:0");
}

TEST_F(SinkTest, ASinkMayDeleteANeighbourThatItWatchesToo)
{
    auto neighbour = std::make_unique<CQuote>();
    CRecordingSink& deleting = NewSink("deleting", [&] { neighbour.reset(); });
    for (CQuote* const quote : {&m_quote, neighbour.get()})
    {
        quote->AddSink(&deleting);
        quote->AddSink(&m_b);
    }
    m_quote.NotifyUpdate(1);
    EXPECT_EQ(TakeRecord(), "deleting:1 deleting:deleted b:deleted b:1");
    m_quote.NotifyUpdate(2);
    EXPECT_EQ(TakeRecord(), "deleting:2 b:2");
}

TEST_F(SinkTest, WhatASinkThrowsReachesTheNotifier)
{
    CRecordingSink& thrower = NewSink("thrower", [] { throw CommonException("stop"); });
    m_quote.AddSink(&m_a);
    m_quote.AddSink(&thrower);
    m_quote.AddSink(&m_b);
    EXPECT_THROW(m_quote.NotifyUpdate(1), CommonException);
    EXPECT_EQ(TakeRecord(), "a:1 thrower:1");
    m_quote.RemoveSink(&thrower);
    m_quote.NotifyUpdate(2); // nothing stayed locked or lost
    EXPECT_EQ(TakeRecord(), "a:2 b:2");
}

TEST_F(SinkTest, ManySinksAreToldAsFewAre)
{
    std::string expected;
    for (int i = 0; i < 9; ++i)
    {
        m_quote.AddSink(&NewSink(std::to_string(i)));
        expected += (i > 0 ? " " : "") + std::to_string(i) + ":7";
    }
    m_quote.NotifyUpdate(7);
    EXPECT_EQ(TakeRecord(), expected);
}

TEST_F(SinkTest, DeletingTellsEverySinkOnce)
{
    class CEarlyQuote final : public CQuote
    {
    public:
        ~CEarlyQuote() override { NotifyDelete(); }
    };
    auto quote = std::make_unique<CEarlyQuote>();
    quote->AddSink(&m_a);
    quote->AddSink(&m_b);
    quote.reset();
    EXPECT_EQ(TakeRecord(), "a:deleted b:deleted");
}

} // namespace
} // namespace Ostrel::Common
