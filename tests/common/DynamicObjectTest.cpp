#include <memory>

#include <gtest/gtest.h>

#include <ostrel/Common.h>

#include "Bytes.h"
#include "Quote.h"

namespace Ostrel::Common
{
namespace
{

using testing::CQuote;
using testing::CRecordingSink;
using testing::FromHexText;
using testing::StoredBytes;

class DynamicObjectTest : public ::testing::Test
{
protected:
    DynamicObjectTest() { m_object.AddSink(&m_sink); }

    std::string TakeRecord() { return std::exchange(m_record, {}); }

    std::string m_record;
    CRecordingSink m_sink{"sink", m_record};
    CDynamicObject m_object{true};
};

TEST_F(DynamicObjectTest, AChangedValueNotifiesAndMayChangeItsType)
{
    EXPECT_TRUE(m_object.SetLong(5, 1));
    EXPECT_EQ(TakeRecord(), "sink:5");
    EXPECT_TRUE(m_object.SetLong(5, 1));
    EXPECT_EQ(TakeRecord(), "");
    EXPECT_TRUE(m_object.SetDouble(5, 1.0));
    EXPECT_EQ(TakeRecord(), "sink:5");
    EXPECT_EQ(m_object.GetFieldType(5), TypeDouble);
    EXPECT_EQ(m_object.GetLong(5), 0);
    EXPECT_EQ(m_object.GetDouble(5), 1.0);
    EXPECT_TRUE(m_object.SetStlString(6, "x"));
    EXPECT_EQ(m_object.GetStlString(6), "x");
    EXPECT_EQ(m_object.GetMfcString(6), CString());

    TakeRecord();
    EXPECT_FALSE(m_object.SetValue(-1, CValue(1L)));
    EXPECT_FALSE(m_object.SetLong(-2, 1));
    EXPECT_EQ(TakeRecord(), "");

    CDynamicObject silent(false);
    CRecordingSink sink("silent", m_record);
    silent.AddSink(&sink);
    silent.SetLong(1, 1);
    silent.RemoveSink(&sink);
    EXPECT_EQ(TakeRecord(), "");
}

TEST_F(DynamicObjectTest, DeclarationsNameAndFormatWhatIsStored)
{
    CField stack(1, "Twice", TypeLong);
    EXPECT_TRUE(m_object.DeclareField(new CField(1, "Price", TypeDouble, new CDoubleFormat(1))));
    EXPECT_FALSE(m_object.DeclareField(&stack));
    EXPECT_FALSE(m_object.DeclareField(nullptr));
    CField reserved(-1, "All", TypeLong);
    EXPECT_FALSE(m_object.DeclareField(&reserved));

    EXPECT_EQ(m_object.GetFieldType(1), TypeEmpty); // only what is stored has a type
    EXPECT_FALSE(m_object.HasGetMethod(1));
    m_object.SetDouble(1, 2.5);
    m_object.SetLong(2, 1234);
    EXPECT_TRUE(m_object.HasSetMethod(2));
    EXPECT_EQ(m_object.GetFieldName(1), "Price");
    EXPECT_EQ(m_object.GetFieldName(2), "");
    EXPECT_EQ(m_object.GetField(2), (std::pair<CField*, CDataObject*>(nullptr, &m_object)));
    EXPECT_EQ(m_object.GetFormattedStlString(1, nullptr), "2,5");
    EXPECT_EQ(m_object.GetFormattedMfcString(2, nullptr), CString("1 234"));
    EXPECT_EQ(m_object.GetFormattedStlString(3, nullptr), "");

    std::set<long> fids;
    m_object.GetAllFids(fids);
    EXPECT_EQ(fids, (std::set<long>{1, 2}));
    EXPECT_EQ(StoredBytes(m_object), "01 00 00 00 01 00 00 00 01 00 00 00 01 0C 00 00 00 00 00 00 04 40");
}

TEST_F(DynamicObjectTest, TextsAreReadAsDeclared)
{
    m_object.DeclareField(new CField(1, "Count", TypeLong));
    m_object.DeclareField(new CField(2, "Name", TypeStlString));
    m_object.DeclareField(new CField(3, "Byte", TypeUChar, new CUCharFormat(CUCharFormat::Decimal)));
    EXPECT_TRUE(m_object.SetFormattedStlString(1, "1 234", nullptr));
    EXPECT_EQ(m_object.GetLong(1), 1234);
    EXPECT_TRUE(m_object.SetFormattedMfcString(2, CString("raw"), nullptr));
    EXPECT_EQ(m_object.GetStlString(2), "raw");
    EXPECT_FALSE(m_object.SetFormattedStlString(3, "256", nullptr));
    EXPECT_FALSE(m_object.HasGetMethod(3));
    EXPECT_FALSE(m_object.SetFormattedStlString(9, "5", nullptr)); // not declared
    CDoubleFormat const given;
    EXPECT_TRUE(m_object.SetFormattedStlString(1, "2,5", &given)); // the given format decides what is stored
    EXPECT_EQ(m_object.GetDouble(1), 2.5);
}

/// Doubles what is set and tells every value as one more.
class CArithmeticObject final : public CDynamicObject
{
public:
    using CDynamicObject::CDynamicObject;
    bool SetValue(long fid, CValue const& value) override
    {
        return CDynamicObject::SetValue(fid, CValue(2 * static_cast<long>(value)));
    }
    [[nodiscard]] CValue GetValue(long fid) override { return {static_cast<long>(CDynamicObject::GetValue(fid)) + 1}; }
};

TEST_F(DynamicObjectTest, AllAccessGoesThroughTheTwoGenericOperations)
{
    CArithmeticObject object(true);
    EXPECT_TRUE(object.SetLong(1, 5));
    EXPECT_EQ(object.GetLong(1), 11);
    EXPECT_EQ(object.GetFormattedStlString(1, nullptr), "11");
}

TEST_F(DynamicObjectTest, KeepsTheValuesOfAnUnknownClass)
{
    CQuote quote;
    quote.SetBid(1.5);
    quote.SetName("abc");
    CSerializer stream = FromHexText(StoredBytes(quote));
    stream >> m_object;
    EXPECT_EQ(m_object.GetValue(CQuote::kBid), 1.5);
    EXPECT_EQ(m_object.GetStlString(CQuote::kName), "abc");
    std::set<long> fids;
    m_object.GetAllFids(fids);
    EXPECT_EQ(fids.size(), 8U);
}

TEST(TypeFactoryTest, TheFirstFunctionOfANameStays)
{
    auto const quote = +[]() -> CDataObject* { return new CQuote; };
    auto const dynamic = +[]() -> CDataObject* { return new CDynamicObject(true); };
    EXPECT_TRUE(CTypeFactory::RegisterClass("Quote", quote));
    EXPECT_FALSE(CTypeFactory::RegisterClass("Quote", dynamic));
    EXPECT_TRUE(CTypeFactory::RegisterClass("quote", dynamic));
    EXPECT_TRUE(CTypeFactory::RegisterClass("None", nullptr));
    std::unique_ptr<CDataObject> const first(CTypeFactory::CreateObject("Quote"));
    std::unique_ptr<CDataObject> const second(CTypeFactory::CreateObject("quote"));
    EXPECT_NE(dynamic_cast<CQuote*>(first.get()), nullptr);
    EXPECT_NE(dynamic_cast<CDynamicObject*>(second.get()), nullptr);
    EXPECT_EQ(CTypeFactory::CreateObject("None"), nullptr);
    EXPECT_EQ(CTypeFactory::CreateObject("Unknown"), nullptr);
}

} // namespace
} // namespace Ostrel::Common
