#include <memory>

#include <gtest/gtest.h>

#include <ostrel/Common.h>

#include "Bytes.h"

namespace Ostrel::Common
{
namespace
{

using testing::ByteCount;
using testing::FromHexText;
using testing::StoredBytes;

std::unique_ptr<CFormat> Create(std::string const& name)
{
    return std::unique_ptr<CFormat>(CFormatFactory::Create(name));
}

/// Every format of the library with its settings as stored by default.
struct Registered
{
    char const* className;
    EnType type;
    char const* bytes;
};

constexpr Registered kRegistered[] = {
    {"CBoolFormat", TypeBool, "01 00 00 00"},
    {"CCharFormat", TypeChar, "01 00 00 00 02 00 00 00 01 01 01"},
    {"CUCharFormat", TypeUChar, "01 00 00 00 02 00 00 00 01 01 01"},
    {"CShortFormat", TypeShort, "01 00 00 00 00 00 00 00 01 20 01 01"},
    {"CUShortFormat", TypeUShort, "01 00 00 00 00 00 00 00 01 20 01 01"},
    {"CLongFormat", TypeLong, "01 00 00 00 00 00 00 00 01 20 01 00"},
    {"CULongFormat", TypeULong, "01 00 00 00 00 00 00 00 01 20 01 00"},
    {"CInt64Format", TypeInt64, "01 00 00 00 00 00 00 00 01 20 01 00"},
    {"CFloatFormat", TypeFloat, "01 00 00 00 02 01 00 00 00 20"},
    {"CDoubleFormat", TypeDouble, "01 00 00 00 03 01 00 00 00 20"},
    {"CDefaultStlStringFormat", TypeStlString, "01 00 00 00"},
    {"CDefaultMfcStringFormat", TypeMfcString, "01 00 00 00"},
    {"CEmptyFormat", TypeEmpty, "01 00 00 00"},
};

/// Those that are nobody's default.
constexpr Registered kSpecial[] = {
    {"CLongDateFormat", TypeLong, "01 00 00 00 0E 00 00 00"},
    {"CInt64DateFormat", TypeInt64, "01 00 00 00 0E 00 00 00"},
    {"CLongMsecTimeFormat", TypeLong, "01 00 00 00 1E 00 00 00 00 00 00 00 00 00 00 00 00"},
    {"CLongEnumFormat", TypeLong, "01 00 00 00 00 00 00 00 00 00 00 00"},
};

std::vector<Registered> AllRegistered()
{
    std::vector<Registered> all(std::begin(kRegistered), std::end(kRegistered));
    all.insert(all.end(), std::begin(kSpecial), std::end(kSpecial));
    return all;
}

TEST(FormatFactoryTest, MakesEveryFormatWithItsDefaults)
{
    for (auto const& [className, type, bytes] : AllRegistered())
    {
        std::string const name = std::string("Common::") + className;
        auto const format = Create(name);
        ASSERT_NE(format, nullptr) << name;
        EXPECT_EQ(format->GetFormatName(), name);
        EXPECT_EQ(format->GetType(), type) << name;
        EXPECT_TRUE(format->IsSerializableType()) << name;
        EXPECT_EQ(StoredBytes(*format), bytes) << name;
    }
    for (auto const& [className, type, bytes] : kRegistered)
    {
        CFormat& byDefault = CFormat::GetDefaultFormat(type);
        EXPECT_EQ(byDefault.GetFormatName(), std::string("Common::") + className);
        EXPECT_EQ(StoredBytes(byDefault), bytes) << className;
    }
    EXPECT_EQ(Create("CLongFormat"), nullptr);
    EXPECT_EQ(CFormat::GetDefaultFormat(TypeObjectPtr).GetType(), TypeObjectPtr);
    EXPECT_EQ(CFormat::GetDefaultFormat(static_cast<EnType>(77)).GetType(), TypeEmpty);
}

TEST(FormatFactoryTest, TheFirstCreatorOfANameStays)
{
    auto const other = +[]() -> CFormat* { return new CBoolFormat; };
    EXPECT_FALSE(CFormatFactory::RegisterFormat("Common::CLongFormat", other));
    EXPECT_EQ(Create("Common::CLongFormat")->GetType(), TypeLong);
    EXPECT_TRUE(CFormatFactory::RegisterFormat("Test::Mine", other));
    EXPECT_FALSE(CFormatFactory::RegisterFormat("Test::Mine", nullptr));
    EXPECT_EQ(Create("Test::Mine")->GetType(), TypeBool);
    EXPECT_TRUE(CFormatFactory::RegisterFormat("Test::None", nullptr));
    EXPECT_EQ(Create("Test::None"), nullptr);
}

TEST(FormatSettingsTest, ANewerVersionIsRefusedByNameAndAnOlderOneKeepsTheSettings)
{
    for (auto const& [className, type, bytes] : AllRegistered())
    {
        auto const format = Create(std::string("Common::") + className);
        CSerializer newer = FromHexText("02 00 00 00 01 00 00 00 00 00 00 00 00 00 00");
        try
        {
            newer >> *format;
            ADD_FAILURE() << className;
        }
        catch (CSerializer::BadVersionException const& exception)
        {
            EXPECT_EQ(exception.what(),
                      std::string(className) + " doesn't support current version and can't be deserialized.");
        }
        CSerializer older = FromHexText("00 00 00 00 63");
        older >> *format;
        char next = 0;
        older >> next;
        EXPECT_EQ(next, 0x63);
        EXPECT_EQ(StoredBytes(*format), bytes) << className;
    }
}

TEST(FormatSettingsTest, ATruncatedBlockChangesNothing)
{
    struct Case
    {
        char const* className;
        char const* bytes;
    };
    for (auto const& [className, bytes] :
         {Case{"CLongFormat", "01 00 00 00 01 00 00 00 00 2E 00 01"},
          Case{"CUCharFormat", "01 00 00 00 01 00 00 00 00 00 00"},
          Case{"CFloatFormat", "01 00 00 00 06 00 01 24 25 2E"}, Case{"CLongDateFormat", "01 00 00 00 7D 00 00 00"},
          Case{"CLongMsecTimeFormat", "01 00 00 00 1F 00 00 00 01 "
                                      "01 00 00 00 64 00 02 00 00 00 6D 73 00"},
          Case{"CLongEnumFormat", "01 00 00 00 02 00 00 00 03 00 00 00 01 00 00 00 "
                                  "02 00 00 00 01 00 00 00 01 00 00 00 79 00 "
                                  "03 00 00 00 00 00 00 00"}})
    {
        std::string const name = std::string("Common::") + className;
        std::string const before = StoredBytes(*Create(name));
        for (std::size_t length = 1; length < ByteCount(bytes); ++length)
        {
            auto const format = Create(name);
            CSerializer stream = FromHexText(bytes, length);
            EXPECT_THROW(stream >> *format, CSerializer::SerializationException) << name << " " << length;
            EXPECT_EQ(StoredBytes(*format), before) << name << " " << length;
        }
        auto const format = Create(name);
        CSerializer stream = FromHexText(bytes);
        stream >> *format;
        EXPECT_EQ(StoredBytes(*format), bytes);
        EXPECT_EQ(StoredBytes(*std::unique_ptr<CFormat>(format->Clone())), bytes);
    }
}

TEST(FormatTest, ValuesMeetTheFormatOfTheirTypeOnly)
{
    CLongFormat const longFormat;
    CFormat const& format = longFormat;
    EXPECT_EQ(format.FormatStl(CValue(12345L)), "12 345");
    EXPECT_EQ(format.FormatMfc(CValue(12345L)), CString("12 345"));
    EXPECT_EQ(format.FormatStl(CValue(short(5))), "");
    EXPECT_EQ(format.FormatStl(CValue()), "");
    EXPECT_EQ(format.FormatStl(2.5), "");
    CDefaultStlStringFormat const stl;
    EXPECT_EQ(stl.FormatStl(CValue(std::string("x"))), "x");
    EXPECT_EQ(stl.FormatMfc(CValue(std::string("x"))), CString("x"));
    EXPECT_EQ(stl.FormatStl(CValue(CString("x"))), ""); // passes the test of types and meets the other overload

    CValue value;
    EXPECT_TRUE(format.ParseStl("12", value));
    EXPECT_EQ(value, 12L);
    EXPECT_TRUE(format.ParseMfc(CString("13"), value));
    EXPECT_EQ(value, 13L);
    CValue other(2.5);
    EXPECT_TRUE(format.ParseStl("12", other));
    EXPECT_EQ(other, 2.5);
    double number = 1;
    EXPECT_FALSE(format.ParseStl("12", number));
    CUCharFormat const bytes(CUCharFormat::Decimal);
    EXPECT_FALSE(bytes.ParseStl("256", value));
    EXPECT_EQ(value, 13L);
    CValue text;
    EXPECT_TRUE(stl.ParseMfc(CString("abc"), text));
    EXPECT_EQ(text, std::string("abc"));
}

TEST(FormatTest, BoolIsReadWhateverItsCaseAndBlanks)
{
    CBoolFormat const format;
    EXPECT_EQ(format.FormatStl(true), "true");
    EXPECT_EQ(format.FormatMfc(false), CString("false"));
    for (char const* text : {"true", "TRUE", " True\r\n", "t\tr ue"})
    {
        bool value = false;
        EXPECT_TRUE(format.ParseStl(text, value) && value) << text;
    }
    for (char const* text : {"", "1", "yes", "false", "tru", "truee", "xtrue"})
    {
        bool value = true;
        EXPECT_TRUE(format.ParseStl(text, value) && !value) << text;
    }
}

TEST(FormatTest, TextFormatsKeepEveryByte)
{
    std::string const bytes("a\0b", 3);
    std::string stl;
    EXPECT_TRUE(CDefaultStlStringFormat().ParseStl(bytes, stl));
    EXPECT_EQ(CDefaultStlStringFormat().FormatMfc(stl).AsStd(), bytes);
    CString mfc;
    EXPECT_TRUE(CDefaultMfcStringFormat().ParseStl(bytes, mfc));
    EXPECT_EQ(CDefaultMfcStringFormat().FormatStl(mfc), bytes);
    EXPECT_EQ(CDefaultMfcStringFormat().FormatStl(CString()), "");
}

TEST(FormatTest, TheEmptyFormatConvertsNothing)
{
    CEmptyFormat const format(TypeLong);
    EXPECT_EQ(format.FormatStl(CValue(5L)), "");
    CValue value(5L);
    EXPECT_FALSE(format.ParseStl("6", value));
    std::unique_ptr<CFormat> const clone(format.Clone());
    EXPECT_EQ(clone->GetType(), TypeLong);
}

} // namespace
} // namespace Ostrel::Common
