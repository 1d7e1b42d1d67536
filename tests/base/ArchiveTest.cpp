#include <functional>
#include <limits>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "BaseTesting.h"

namespace
{

struct EncodingCase
{
    char const* name;
    std::function<void(CArchive&)> store;
    std::function<bool(CArchive&)> loadsBack; ///< reads and compares
    ByteList bytes;
};

template <class T>
EncodingCase Case(char const* name, T value, ByteList bytes)
{
    return {name, [value](CArchive& archive) { archive << value; },
            [value](CArchive& archive)
            {
                T read{};
                archive >> read;
                return read == value;
            },
            std::move(bytes)};
}

std::vector<EncodingCase> Encodings()
{
    return {
        Case("byte", BYTE{0xFE}, {0xFE}),
        Case("char", char{-2}, {0xFE}),
        Case("bool", true, {0x01}),
        Case("short", short{-2}, {0xFE, 0xFF}),
        Case("word", WORD{0x1234}, {0x34, 0x12}),
        Case("int", -2, {0xFE, 0xFF, 0xFF, 0xFF}),
        Case("dword", DWORD{0x12345678}, {0x78, 0x56, 0x34, 0x12}),
        Case("long is 4 bytes with its sign", -2L, {0xFE, 0xFF, 0xFF, 0xFF}),
        Case("unsigned long is 4 bytes without", 0xFFFFFFFEUL, {0xFE, 0xFF, 0xFF, 0xFF}),
        Case("long long", -2LL, {0xFE, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF}),
        Case("unsigned long long", 0x0102030405060708ULL, {8, 7, 6, 5, 4, 3, 2, 1}),
        Case("float", 1.5F, {0x00, 0x00, 0xC0, 0x3F}),
        Case("double", -2.0, {0, 0, 0, 0, 0, 0, 0, 0xC0}),
        Case("empty text", CString(), {0}),
        Case("text with a zero byte", std::string("a\0b", 3), {3, 'a', 0, 'b'}),
        Case("254 bytes", CString(std::string(254, 'x')), ByteList{0xFE} + ByteList(254, 'x')),
        Case("255 bytes", CString(std::string(255, 'x')), ByteList{0xFF, 0xFF, 0x00} + ByteList(255, 'x')),
        Case("65533 bytes", std::string(0xFFFD, 'x'), ByteList{0xFF, 0xFD, 0xFF} + ByteList(0xFFFD, 'x')),
        Case("65534 bytes", std::string(0xFFFE, 'x'),
             ByteList{0xFF, 0xFF, 0xFF, 0xFE, 0xFF, 0x00, 0x00} + ByteList(0xFFFE, 'x')),
    };
}

TEST(ArchiveTest, EncodesExactlyAndReadsBack)
{
    for (EncodingCase const& each : Encodings())
    {
        SCOPED_TRACE(each.name);
        EXPECT_TRUE(Stored(each.store) == each.bytes);
        EXPECT_EQ(CauseOfLoading(each.bytes, [&](CArchive& archive) { EXPECT_TRUE(each.loadsBack(archive)); }),
                  kNothingThrown);
    }
}

TEST(ArchiveTest, EveryTruncationIsEndOfFile)
{
    for (EncodingCase const& each : Encodings())
    {
        SCOPED_TRACE(each.name);
        std::size_t const step = each.bytes.size() > 1000 ? 997 : 1;
        for (std::size_t length = 0; length < each.bytes.size(); length += step)
        {
            ByteList const cut(each.bytes.begin(), each.bytes.begin() + static_cast<std::ptrdiff_t>(length));
            EXPECT_EQ(CauseOfLoading(cut, each.loadsBack), CArchiveException::endOfFile) << "at byte " << length;
        }
    }
}

TEST(ArchiveTest, WideValuesAreCutToTheirLow32Bits)
{
    EXPECT_EQ(Stored([](CArchive& archive) { archive << 0x1'8000'0001L << ~0UL; }),
              (ByteList{0x01, 0x00, 0x00, 0x80, 0xFF, 0xFF, 0xFF, 0xFF}));
    CauseOfLoading({0x01, 0x00, 0x00, 0x80, 0xFF, 0xFF, 0xFF, 0xFF, 0x07},
                   [](CArchive& archive)
                   {
                       long number = 0;
                       unsigned long unsignedNumber = 0;
                       bool flag = false;
                       archive >> number >> unsignedNumber >> flag;
                       EXPECT_EQ(number, -2147483647L);
                       EXPECT_EQ(unsignedNumber, 0xFFFFFFFFUL);
                       EXPECT_TRUE(flag);
                   });
}

TEST(ArchiveTest, CharacterPointersAreTextsNotBools)
{
    char const* const nothing = nullptr;
    EXPECT_EQ(Stored([&](CArchive& archive) { archive << "ab" << nothing; }), (ByteList{2, 'a', 'b', 0}));
}

TEST(ArchiveTest, DamagedTextLengthsThrowAndLeaveTheTarget)
{
    struct
    {
        ByteList bytes;
        int cause;
    } const cases[] = {
        {{0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x7F, 'a'}, CArchiveException::endOfFile}, // 2 GB announced
        {{0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 'a'}, CArchiveException::endOfFile}, // 4 GB announced
        {{0xFF, 0xFE, 0xFF, 1, 'a', 0}, CArchiveException::badSchema},                   // 16-bit characters
    };
    for (auto const& each : cases)
    {
        CString text("before");
        EXPECT_EQ(CauseOfLoading(each.bytes, [&](CArchive& archive) { archive >> text; }), each.cause);
        EXPECT_EQ(text, "before");
    }
}

TEST(ArchiveTest, WrongDirectionThrows)
{
    CMemFile file;
    int number = 7;
    {
        CArchive storing(&file, CArchive::store);
        EXPECT_EQ(CauseThrownBy<CArchiveException>([&] { storing >> number; }), CArchiveException::writeOnly);
        EXPECT_EQ(CauseThrownBy<CArchiveException>([&] { storing.ReadClass(); }), CArchiveException::writeOnly);
        storing.Close();
        EXPECT_EQ(CauseThrownBy<CArchiveException>([&] { storing << number; }), CArchiveException::genericException);
    }
    CArchive loading(&file, CArchive::load);
    EXPECT_EQ(CauseThrownBy<CArchiveException>([&] { loading << number; }), CArchiveException::readOnly);
    EXPECT_EQ(CauseThrownBy<CArchiveException>([&] { loading.WriteObject(nullptr); }), CArchiveException::readOnly);
    EXPECT_EQ(number, 7);
}

TEST(ArchiveTest, BlocksLargerThanTheBufferKeepTheirPlace)
{
    ByteList block(1000);
    for (std::size_t i = 0; i < block.size(); ++i)
    {
        block[i] = static_cast<BYTE>(i * 7);
    }
    CMemFile file;
    CArchive storing(&file, CArchive::store, 128);
    storing << BYTE{1};
    storing.Write(block.data(), 1000);
    storing << BYTE{2};
    storing.Close();
    EXPECT_EQ(file.Bytes(), ByteList{1} + block + ByteList{2});

    file.SeekToBegin();
    CArchive loading(&file, CArchive::load, 128);
    ByteList read(1002);
    EXPECT_EQ(loading.Read(read.data(), 1001), 1001U);
    EXPECT_EQ(loading.Read(read.data() + 1001, 500), 1U);
    EXPECT_EQ(read, file.Bytes());
}

TEST(ArchiveTest, ClosingALoadReturnsWhatWasReadAhead)
{
    CMemFile file(ByteList{1, 2, 3});
    for (BYTE const expected : {BYTE{1}, BYTE{2}, BYTE{3}})
    {
        CArchive archive(&file, CArchive::load);
        BYTE value = 0;
        archive >> value;
        EXPECT_EQ(value, expected);
    }
}

// A file whose every write fails, as a full disk's does.
class FullFile final : public CFile
{
public:
    void Write(void const* /*buffer*/, UINT /*count*/) override { AfxThrowFileException(CFileException::diskFull); }
};

TEST(ArchiveTest, AFailingFileIsReportedByCloseAndHarmlessInTheDestructor)
{
    FullFile file;
    CArchive closed(&file, CArchive::store);
    closed << 1;
    EXPECT_EQ(CauseThrownBy<CFileException>([&] { closed.Close(); }), CFileException::diskFull);
    EXPECT_EQ(closed.GetFile(), nullptr);
    CArchive destroyed(&file, CArchive::store);
    destroyed << 1;
}

} // namespace
