#include <cstdio>
#include <filesystem>

#include <unistd.h>

#include <gtest/gtest.h>

#include "BaseTesting.h"

namespace
{

class FileTest : public testing::Test
{
protected:
    FileTest()
    {
        std::string pattern = (std::filesystem::temp_directory_path() / "ostrel-file-XXXXXX").string();
        m_folder = ::mkdtemp(pattern.data());
    }
    ~FileTest() override { std::filesystem::remove_all(m_folder); }

    CString PathOf(char const* name) const { return CString((m_folder / name).string()); }

    std::filesystem::path m_folder;
};

TEST_F(FileTest, CreateTruncatesUnlessToldNotTo)
{
    CString const path = PathOf("a");
    CFile(path, CFile::modeCreate | CFile::modeWrite).Write("0123456789", 10);
    CFile kept(path, CFile::modeCreate | CFile::modeNoTruncate | CFile::modeReadWrite);
    EXPECT_EQ(kept.GetLength(), 10U);
    kept.Seek(-3, CFile::end);
    kept.Write("abcde", 5);
    kept.Seek(6, CFile::begin);
    char read[8] = {};
    EXPECT_EQ(kept.Read(read, sizeof(read)), 6U);
    EXPECT_STREQ(read, "6abcde");
    EXPECT_EQ(kept.GetPosition(), 12U);
    kept.Close();
    EXPECT_EQ(CFile(path, CFile::modeCreate | CFile::modeWrite).GetLength(), 0U);
}

TEST_F(FileTest, FailuresHaveTheirCause)
{
    CString const path = PathOf("a");
    char byte = 0;
    EXPECT_EQ(CauseThrownBy<CFileException>([&] { CFile(path, CFile::modeRead); }), CFileException::fileNotFound);
    CFile file(path, CFile::modeCreate | CFile::modeWrite);
    EXPECT_EQ(CauseThrownBy<CFileException>([&] { file.Read(&byte, 1); }), CFileException::accessDenied);
    EXPECT_EQ(CauseThrownBy<CFileException>([&] { file.Seek(-1, CFile::begin); }), CFileException::badSeek);
    file.Close();
    EXPECT_EQ(CauseThrownBy<CFileException>([&] { file.Write(&byte, 1); }), CFileException::invalidFile);
    CFileException error;
    EXPECT_FALSE(file.Open(path + "/below", CFile::modeRead, &error));
    EXPECT_EQ(error.m_cause, CFileException::badPath);
    EXPECT_EQ(CauseThrownBy<CFileException>([&] { CFile(path + "/below", CFile::modeRead); }), CFileException::badPath);
}

TEST_F(FileTest, CarriesAnArchive)
{
    CString const path = PathOf("archive");
    CFile file(path, CFile::modeCreate | CFile::modeReadWrite);
    CArchive(&file, CArchive::store) << 5 << "five";
    file.SeekToBegin();
    int number = 0;
    CString text;
    CArchive loading(&file, CArchive::load);
    loading >> number >> text;
    EXPECT_EQ(number, 5);
    EXPECT_EQ(text, "five");
    EXPECT_EQ(loading.m_strFileName, path);
}

TEST(MemFileTest, GapsAreZeroAndReadsStopAtTheEnd)
{
    CMemFile file;
    file.Write("ab", 2);
    file.Seek(4, CFile::begin);
    BYTE read[4] = {9, 9, 9, 9};
    EXPECT_EQ(file.Read(read, 4), 0U);
    file.Write("c", 1);
    EXPECT_EQ(file.Bytes(), (ByteList{'a', 'b', 0, 0, 'c'}));
    file.Seek(-2, CFile::current);
    EXPECT_EQ(file.Read(read, 4), 2U);
    EXPECT_EQ(CauseThrownBy<CFileException>([&] { file.Seek(-6, CFile::end); }), CFileException::badSeek);
    file.Seek(std::numeric_limits<LONGLONG>::max(), CFile::begin);
    EXPECT_EQ(CauseThrownBy<CFileException>([&] { file.Write("d", 1); }), CFileException::diskFull);
    EXPECT_EQ(file.Detach().size(), 5U);
    EXPECT_EQ(file.GetLength(), 0U);
}

TEST(ExceptionTest, MessagesAreCutAtCharacters)
{
    CArchiveException const exception(CArchiveException::endOfFile, "caf\xC3\xA9");
    char buffer[8];
    struct
    {
        UINT capacity;
        char const* text;
    } const cases[] = {{1, ""}, {4, "caf"}, {5, "caf"}, {6, "caf\xC3\xA9"}, {7, "caf\xC3\xA9:"}};
    for (auto const& each : cases)
    {
        EXPECT_TRUE(exception.GetErrorMessage(buffer, each.capacity));
        EXPECT_STREQ(buffer, each.text);
    }
    EXPECT_FALSE(exception.GetErrorMessage(buffer, 0));
    EXPECT_FALSE(CException().GetErrorMessage(buffer, sizeof(buffer)));
    EXPECT_STREQ(buffer, "");
}

} // namespace
