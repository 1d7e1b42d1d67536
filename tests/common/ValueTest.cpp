#include <limits>
#include <type_traits>

#include <gtest/gtest.h>

#include <ostrel/common/dataobject/DataObject.h>
#include <ostrel/common/format/Format.h>
#include <ostrel/common/value/Serializer.h>
#include <ostrel/common/value/Value.h>

#include "Bytes.h"

namespace Ostrel::Common
{
namespace
{

using testing::FromHexText;
using testing::StoredBytes;

class CNothing : public CDataObject
{
public:
    [[nodiscard]] CFieldMap const* GetFieldMap() const override { return nullptr; }
};

// What would silently become a bool, or is not one of the thirteen types, is no value.
static_assert(!std::is_constructible_v<CValue, char const*> && !std::is_constructible_v<CValue, char const (&)[5]>);
static_assert(!std::is_constructible_v<CValue, void*> && !std::is_constructible_v<CValue, CDataObject const*>);
static_assert(!std::is_assignable_v<CValue&, char const*> && !std::is_assignable_v<CValue&, int>);
static_assert(!std::is_constructible_v<CValue, int> && std::is_constructible_v<CValue, CNothing*>);
static_assert(std::is_constructible_v<CValue, std::nullptr_t>);

/// One value of each type, none of them zero, with what it stores.
struct Sample
{
    CValue value;
    char const* bytes;
};

std::vector<Sample> AllTypes()
{
    return {
        {CValue(), "01 00"},
        {CValue(CString("ab")), "01 01 02 00 00 00 61 62 00"},
        {CValue(std::string("ab")), "01 02 02 00 00 00 61 62 00"},
        {CValue(char(-2)), "01 03 FE"},
        {CValue(static_cast<unsigned char>(0xF1)), "01 04 F1"},
        {CValue(short(-2)), "01 05 FE FF"},
        {CValue(static_cast<unsigned short>(0xF102)), "01 06 02 F1"},
        {CValue(-2L), "01 07 FE FF FF FF"},
        {CValue(0xF1020304UL), "01 08 04 03 02 F1"},
        {CValue(static_cast<__int64>(-2)), "01 09 FE FF FF FF FF FF FF FF"},
        {CValue(true), "01 0A 01"},
        {CValue(1.0F), "01 0B 00 00 80 3F"},
        {CValue(1.0), "01 0C 00 00 00 00 00 00 F0 3F"},
    };
}

TEST(ValueTest, RecordsHaveTheirBytesAndComeBack)
{
    for (auto const& [value, bytes] : AllTypes())
    {
        EXPECT_EQ(StoredBytes(value), bytes);
        CSerializer stream = FromHexText(bytes);
        CValue restored(7L);
        stream >> restored;
        EXPECT_EQ(restored, value) << bytes;
        EXPECT_EQ(restored.GetType(), value.GetType()) << bytes;
    }
}

TEST(ValueTest, OddRecordsConsumeTheirDocumentedBytes)
{
    CNothing object;
    EXPECT_EQ(StoredBytes(CValue(&object)), "01 0D");
    EXPECT_EQ(StoredBytes(CValue(std::string())), "01 02 00 00 00 00");
    struct Case
    {
        char const* bytes;
        CValue expected;
    };
    // Each is followed by the byte 5, which must be read next.
    for (auto const& [bytes, expected] :
         std::vector<Case>{{"01 0D 05", CValue()},
                           {"01 0E 05", CValue()},
                           {"01 FF 05", CValue()},
                           {"00 05", CValue()},
                           {"09 07 02 00 00 00 05", CValue(2L)},
                           {"01 0A 80 05", CValue(true)},
                           {"01 02 03 00 00 00 61 00 62 FF 05", CValue(std::string("a"))},
                           {"01 01 FF FF FF FF 05", CValue(CString())}})
    {
        CSerializer stream = FromHexText(bytes);
        CValue restored(1.5);
        char next = 0;
        stream >> restored >> next;
        EXPECT_TRUE(restored == expected && restored.GetType() == expected.GetType()) << bytes;
        EXPECT_EQ(next, 5) << bytes;
    }
}

TEST(ValueTest, ATypedWriteMeetsOnlyItsOwnTypeOrAnEmptyValue)
{
    CValue value;
    value = 5L;
    EXPECT_EQ(value, CValue(5L));
    value = 6.5;
    value = std::string("x");
    value = short(1);
    EXPECT_EQ(value, CValue(5L));
    value = 0x1'0000'0007L; // the low 32 bits
    EXPECT_EQ(value, CValue(7L));

    value = CValue(2.5); // a whole value changes the type
    EXPECT_EQ(value.GetType(), TypeDouble);
    value = CValue(CString("text"));
    value = CString("new");
    value = std::string("other kind");
    EXPECT_EQ(static_cast<CString const&>(value), CString("new"));
    CValue const& self = value;
    value = self;
    EXPECT_EQ(value, CValue(CString("new")));
    value = nullptr;
    EXPECT_EQ(value.GetType(), TypeMfcString);
}

TEST(ValueTest, ATypedReadOfAnotherTypeIsZero)
{
    CValue const text(std::string("text"));
    EXPECT_EQ(static_cast<long>(CValue(short(5))), 0);
    EXPECT_EQ(static_cast<long>(CValue(5L)), 5);
    EXPECT_EQ(static_cast<unsigned long>(CValue(0xFFFFFFFFUL)), 0xFFFFFFFFUL);
    EXPECT_EQ(static_cast<double>(text), 0);
    EXPECT_EQ(static_cast<CDataObject*>(text), nullptr);
    EXPECT_EQ(&static_cast<CString const&>(text), &CValue::GetEmptyMfcString());
    std::string const copied = text;
    EXPECT_EQ(copied, "text");
    EXPECT_EQ(CString(CValue(CString("text"))), CString("text"));
}

/// The outcome of all six operators, as letters.
template <class A, class B>
std::string Relations(A const& a, B const& b)
{
    std::string result;
    result += a == b ? "=" : "";
    result += a != b ? "!" : "";
    result += a < b ? "<" : "";
    result += a > b ? ">" : "";
    result += a <= b ? "l" : "";
    result += a >= b ? "g" : "";
    return result;
}

TEST(ValueTest, ValuesCompareWithinTheirTypeOnly)
{
    CNothing objects[2];
    double const nan = std::numeric_limits<double>::quiet_NaN();
    struct Case
    {
        CValue a;
        CValue b;
        char const* relations;
    };
    for (auto const& [a, b, relations] :
         std::vector<Case>{{CValue(), CValue(), "="},
                           {CValue(), CValue(0L), "!"},
                           {CValue(short(1)), CValue(1L), "!"},
                           {CValue(CString("a")), CValue(std::string("a")), "!"},
                           {CValue(1L), CValue(1L), "=lg"},
                           {CValue(-1L), CValue(0L), "!<l"},
                           {CValue(0xFFFFFFFFUL), CValue(0UL), "!>g"},
                           {CValue(char(-1)), CValue(char(1)), "!<l"},
                           {CValue(static_cast<unsigned char>(200)), CValue(static_cast<unsigned char>(100)), "!>g"},
                           {CValue(static_cast<__int64>(-1)), CValue(static_cast<__int64>(0)), "!<l"},
                           {CValue(false), CValue(true), "!<l"},
                           {CValue(-0.0), CValue(0.0), "=lg"},
                           {CValue(nan), CValue(nan), "!"},
                           {CValue(CString("\xC3\xA4")), CValue(CString("z")), "!>g"},
                           {CValue(CString("ab")), CValue(CString("abc")), "!<l"},
                           {CValue(CString("ab\0c", 4)), CValue(CString("ab\0d", 4)), "=lg"},
                           {CValue(std::string("ab\0c", 4)), CValue(std::string("ab\0d", 4)), "!<l"},
                           {CValue(&objects[0]), CValue(&objects[0]), "=lg"},
                           {CValue(&objects[0]), CValue(&objects[1]), "!<l"}})
    {
        EXPECT_EQ(Relations(a, b), relations) << a.GetType() << " " << b.GetType();
    }
}

TEST(ValueTest, ARawOperandMatchesItsTypeOnly)
{
    EXPECT_EQ(Relations(CValue(5L), 5L), "=lg");
    EXPECT_EQ(Relations(CValue(5L), short(5)), "!");
    EXPECT_EQ(Relations(CValue(5L), 0x1'0000'0005L), "=lg");
    EXPECT_EQ(Relations(CValue(0.5F), 0.75F), "!<l");
    EXPECT_EQ(Relations(CValue(std::string("b")), std::string("a")), "!>g");
    EXPECT_EQ(Relations(CValue(std::string("a")), CString("a")), "!");
    EXPECT_EQ(Relations(CValue(), static_cast<CDataObject*>(nullptr)), "!");
    EXPECT_EQ(Relations(CValue(static_cast<CDataObject*>(nullptr)), nullptr), "=lg");
}

TEST(ValueTest, TextConversionGoesThroughTheTypesDefaultFormat)
{
    EXPECT_EQ(CValue().FormatStl(nullptr), "");
    EXPECT_EQ(CValue(1234567L).FormatStl(nullptr), "1 234 567");
    EXPECT_EQ(CValue(CString("a")).FormatStl(nullptr), "a");
    EXPECT_EQ(CValue(std::string("a")).FormatMfc(nullptr), CString("a"));
    EXPECT_EQ(CValue(5L).FormatStl(&CFormat::GetDefaultFormat(TypeDouble)), "");

    CValue value;
    EXPECT_FALSE(value.ParseStl(nullptr, "12"));
    value = 5L;
    EXPECT_TRUE(value.ParseStl(nullptr, "12"));
    EXPECT_EQ(value, 12L);
    EXPECT_FALSE(value.ParseMfc(&CFormat::GetDefaultFormat(TypeDouble), CString("7")));
    EXPECT_EQ(value, 12L);
    CValue text{CString()};
    EXPECT_TRUE(text.ParseStl(nullptr, "raw"));
    EXPECT_EQ(text, CString("raw"));
}

} // namespace
} // namespace Ostrel::Common
