// What the tests of this folder share: bytes written out, and the cause of an exception that is thrown by pointer.
#pragma once

#include <array>
#include <string_view>
#include <vector>

#include <ostrel/platform/base/Archive.h>
#include <ostrel/platform/base/Exception.h>
#include <ostrel/platform/base/File.h>

using ByteList = std::vector<BYTE>;

inline constexpr int kNothingThrown = -1;

inline ByteList BytesOf(std::string_view text)
{
    return {text.begin(), text.end()};
}

inline ByteList operator+(ByteList left, ByteList const& right)
{
    left.insert(left.end(), right.begin(), right.end());
    return left;
}

/// m_cause of the framework exception of class E that the call throws, or kNothingThrown.
template <class E, class Call>
int CauseThrownBy(Call call)
{
    try
    {
        call();
    }
    catch (E* caught)
    {
        Ostrel::Platform::ExceptionPtr<E> const exception(caught);
        return exception->m_cause;
    }
    return kNothingThrown;
}

/// What the calls on a storing archive leave in the file.
template <class Call>
ByteList Stored(Call call)
{
    CMemFile file;
    CArchive archive(&file, CArchive::store);
    call(archive);
    archive.Close();
    return file.Bytes();
}

/// Runs the calls on an archive that loads the bytes; the cause of the archive's exception or kNothingThrown.
template <class Call>
int CauseOfLoading(ByteList const& bytes, Call call)
{
    CMemFile file(bytes);
    CArchive archive(&file, CArchive::load);
    return CauseThrownBy<CArchiveException>([&] { call(archive); });
}
