#include <functional>

#include <gtest/gtest.h>

#include <ostrel/common/value/Serializer.h>

#include "Bytes.h"

namespace Ostrel::Common
{
namespace
{

using testing::FromHexText;
using testing::StoredBytes;
using testing::ToHexText;

constexpr char const* kNotEnough = "Not enough space to restore the value";

/// The message of the serialization exception that a call throws; empty when it throws none.
std::string MessageOf(std::function<void()> const& call)
{
    try
    {
        call();
        return {};
    }
    catch (CSerializer::SerializationException const& exception)
    {
        CommonException const& base = exception;
        return base.what();
    }
}

TEST(SerializerTest, PrimitivesHaveTheirBytes)
{
    EXPECT_EQ(StoredBytes('A'), "41");
    EXPECT_EQ(StoredBytes(true), "01");
    EXPECT_EQ(StoredBytes(static_cast<short>(-2)), "FE FF");
    EXPECT_EQ(StoredBytes(-2L), "FE FF FF FF");
    EXPECT_EQ(StoredBytes(0x1'0203'0405L), "05 04 03 02");
    EXPECT_EQ(StoredBytes(0xFFFF'FFFF'0000'0001UL), "01 00 00 00");
    EXPECT_EQ(StoredBytes(static_cast<__int64>(0x0102030405060708)), "08 07 06 05 04 03 02 01");
    EXPECT_EQ(StoredBytes(-1.0F), "00 00 80 BF");
    EXPECT_EQ(StoredBytes(-1.0), "00 00 00 00 00 00 F0 BF");
    EXPECT_EQ(StoredBytes(std::string("abc")), "03 00 00 00 61 62 63 00");
    EXPECT_EQ(StoredBytes(CString("abc")), "03 00 00 00 61 62 63 00");
    EXPECT_EQ(StoredBytes(std::string()), "00 00 00 00");
    EXPECT_EQ(StoredBytes(std::string("a\0b", 3)), "03 00 00 00 61 00 62 00");
}

TEST(SerializerTest, LongsComeBackWithTheirSign)
{
    CSerializer stream = FromHexText("FE FF FF FF FE FF FF FF");
    long number = 0;
    unsigned long bits = 0;
    stream >> number >> bits;
    EXPECT_EQ(number, -2);
    EXPECT_EQ(bits, 0xFFFFFFFEUL);
}

TEST(SerializerTest, MisuseIsReportedInItsOwnWords)
{
    CSerializer store(CSerializer::ModeStore);
    CSerializer restore = FromHexText("01 02");
    char byte = 0;
    std::string text;
    EXPECT_EQ(MessageOf([&] { restore.Write(&byte, 1); }), "Serializer was opened for restore operations");
    EXPECT_EQ(MessageOf([&] { restore.Write(nullptr, 0); }), "Serializer was opened for restore operations");
    EXPECT_EQ(MessageOf([&] { restore << text; }), "Serializer was opened for restore operations");
    EXPECT_EQ(MessageOf([&] { store.Read(&byte, 1); }), "Serializer was opened for store operations");
    EXPECT_EQ(MessageOf([&] { store >> text; }), "Serializer was opened for store operations");
    EXPECT_EQ(MessageOf([&] { restore.SaveToBuffer(&byte); }), "Serializer was opened for the restore operation");
    EXPECT_EQ(MessageOf([&] { store.LoadFromBuffer(&byte, 1); }), "Serializer was opened for the store operation");
    EXPECT_EQ(MessageOf([&] { restore.Read(nullptr, 1); }), kNotEnough);
    EXPECT_EQ(MessageOf([&] { restore.Read(&byte, 0); }), kNotEnough);

    EXPECT_FALSE(store.Write(nullptr, 1));
    EXPECT_FALSE(store.Write(&byte, -1));
    EXPECT_EQ(store.GetSavingSize(), 0);
    EXPECT_EQ(restore.SaveToBuffer(nullptr), 0);
    store.LoadFromBuffer(nullptr, 5);
    restore.LoadFromBuffer(&byte, 0);
    restore >> byte;
    EXPECT_EQ(byte, 1); // still the old content
}

TEST(SerializerTest, AFailedReadChangesNothing)
{
    CSerializer one = FromHexText("07");
    short number = 9;
    EXPECT_EQ(MessageOf([&] { one >> number; }), kNotEnough);
    EXPECT_EQ(number, 9);
    char byte = 0;
    one >> byte;
    EXPECT_EQ(byte, 7);

    // A text whose bytes are not all there: the position is before its length again.
    for (char const* bytes : {"03 00 00", "03 00 00 00 61 62 63", "FF FF FF 7F 61 00", "01 00 00 00"})
    {
        CSerializer stream = FromHexText(bytes);
        std::string stl = "old";
        CString mfc("old");
        EXPECT_EQ(MessageOf([&] { stream >> stl; }), kNotEnough) << bytes;
        EXPECT_EQ(MessageOf([&] { stream >> mfc; }), kNotEnough) << bytes;
        EXPECT_EQ(stl, "old");
        EXPECT_EQ(mfc, CString("old"));
        stream >> byte;
        EXPECT_EQ(byte, static_cast<char>(bytes[1] == 'F' ? 0xFF : bytes[1] - '0')) << bytes;
    }
}

TEST(SerializerTest, TextsEndAtTheirFirstZeroByte)
{
    CSerializer stream = FromHexText("03 00 00 00 61 00 62 FF 02 00 00 00 61 62 63 05");
    std::string first;
    CString second;
    char next = 0;
    stream >> first >> second >> next;
    EXPECT_EQ(first, "a");
    EXPECT_EQ(second, CString("ab")); // its last byte counts as the terminator, whatever it is
    EXPECT_EQ(next, 5);

    // A negative length is no text for one kind and a very long one for the other.
    CSerializer negative = FromHexText("FF FF FF FF");
    EXPECT_EQ(MessageOf([&] { negative >> first; }), kNotEnough);
    negative >> second;
    EXPECT_TRUE(second.IsEmpty());
}

TEST(SerializerTest, CopiesStartAtTheBeginningAndAreTheirOwn)
{
    CSerializer stream = FromHexText("01 02");
    char byte = 0;
    stream >> byte;
    CSerializer copy(stream);
    copy >> byte;
    EXPECT_EQ(byte, 1);
    stream >> byte;
    EXPECT_EQ(byte, 2);
    stream = copy;
    stream >> byte;
    EXPECT_EQ(byte, 1);

    CSerializer store(CSerializer::ModeStore);
    store << 1 << 2;
    CSerializer const other = store;
    store.Clear();
    EXPECT_EQ(store.SaveToBuffer(&byte), 0);
    store << 'x';
    EXPECT_EQ(ToHexText(store), "78");
    EXPECT_EQ(ToHexText(other), "01 00 00 00 02 00 00 00");
    stream = other;
    EXPECT_EQ(stream.GetMode(), CSerializer::ModeStore);
}

} // namespace
} // namespace Ostrel::Common
