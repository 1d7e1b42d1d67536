// Objects to archive bytes and back, and bytes as text that a person can compare.
#pragma once

#include <span>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <ostrel/platform/base/Archive.h>
#include <ostrel/platform/base/Exception.h>
#include <ostrel/platform/base/File.h>

namespace Ostrel::GUI::Testing
{

using Bytes = std::vector<BYTE>;

template <class T>
Bytes Store(T& object)
{
    CMemFile file;
    CArchive archive(&file, CArchive::store);
    object.Serialize(archive);
    archive.Close();
    return file.Bytes();
}

constexpr int kLoaded = CArchiveException::none;

/// The cause of the archive's exception, kLoaded when there was none.
template <class T>
int Load(T& object, std::span<BYTE const> bytes)
{
    CMemFile file(bytes);
    CArchive archive(&file, CArchive::load);
    try
    {
        object.Serialize(archive);
        return kLoaded;
    }
    catch (CArchiveException* caught)
    {
        Platform::ExceptionPtr<CArchiveException> const exception(caught);
        return exception->m_cause;
    }
}

/// Upper-case hexadecimal digits; blanks in expected texts are for the reader.
inline std::string Hex(Bytes const& bytes)
{
    constexpr char kDigits[] = "0123456789ABCDEF";
    std::string text;
    for (BYTE const byte : bytes)
    {
        text += kDigits[byte >> 4U];
        text += kDigits[byte & 0xFU];
    }
    return text;
}

inline std::string WithoutBlanks(std::string text)
{
    std::erase(text, ' ');
    return text;
}

/// The bytes as written by hand and a round trip; that an archive which is cut anywhere or newer throws, that an older
/// one does not, and that none of them changes anything.
template <class T>
void CheckArchive(T stored, std::string const& expectedHex, T const& blank = T(), bool cutChangesNothing = true)
{
    Bytes bytes = Store(stored);
    EXPECT_EQ(Hex(bytes), WithoutBlanks(expectedHex));
    T loaded = blank;
    for (std::size_t length = 0; length < bytes.size(); ++length)
    {
        EXPECT_EQ(Load(loaded, std::span(bytes).first(length)), CArchiveException::endOfFile) << length;
    }
    EXPECT_TRUE(loaded == blank || !cutChangesNothing);
    loaded = blank;
    bytes[0] = 2;
    EXPECT_EQ(Load(loaded, bytes), CArchiveException::badSchema);
    bytes[0] = 0;
    EXPECT_EQ(Load(loaded, bytes), kLoaded);
    EXPECT_TRUE(loaded == blank);
    bytes[0] = 1;
    EXPECT_EQ(Load(loaded, bytes), kLoaded);
    EXPECT_TRUE(loaded == stored);
}

} // namespace Ostrel::GUI::Testing
