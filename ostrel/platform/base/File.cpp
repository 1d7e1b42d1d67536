#include <algorithm>
#include <cerrno>
#include <cstring>
#include <limits>
#include <new>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <ostrel/platform/base/Exception.h>
#include <ostrel/platform/base/File.h>

namespace
{

constexpr mode_t kNewFileRights = 0666;

int CauseOf(int systemError) noexcept
{
    switch (systemError)
    {
    case ENOENT:
        return CFileException::fileNotFound;
    case ENOTDIR:
    case ENAMETOOLONG:
    case ELOOP:
        return CFileException::badPath;
    case EMFILE:
    case ENFILE:
        return CFileException::tooManyOpenFiles;
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR:
    case EBADF: // the file is open, but not for this
        return CFileException::accessDenied;
    case EINVAL:
        return CFileException::badSeek;
    case EIO:
        return CFileException::hardIO;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return CFileException::diskFull;
    default:
        return CFileException::genericException;
    }
}

int SystemFlagsOf(UINT openFlags) noexcept
{
    int flags = O_CLOEXEC;
    flags |=
        (openFlags & CFile::modeReadWrite) != 0 ? O_RDWR : ((openFlags & CFile::modeWrite) != 0 ? O_WRONLY : O_RDONLY);
    if ((openFlags & CFile::modeCreate) != 0)
    {
        flags |= O_CREAT;
        // Truncating needs the right to write, which a file opened for reading only may lack.
        bool const keeps = (openFlags & CFile::modeNoTruncate) != 0 || (flags & O_ACCMODE) == O_RDONLY;
        flags |= keeps ? 0 : O_TRUNC;
    }
    return flags;
}

int SystemOriginOf(UINT from) noexcept
{
    return from == CFile::end ? SEEK_END : (from == CFile::current ? SEEK_CUR : SEEK_SET);
}

template <class Call>
auto Retry(Call call)
{
    auto result = call();
    while (result < 0 && errno == EINTR)
    {
        result = call();
    }
    return result;
}

} // namespace

IMPLEMENT_DYNAMIC(CFile, CObject)
IMPLEMENT_DYNAMIC(CMemFile, CFile)

CFile::CFile(LPCTSTR fileName, UINT openFlags)
{
    CFileException error;
    if (!CFile::Open(fileName, openFlags, &error))
    {
        AfxThrowFileException(error.m_cause, error.m_lOsError, error.m_strFileName);
    }
}

CFile::~CFile()
{
    if (IsOpen())
    {
        ::close(m_descriptor);
    }
}

BOOL CFile::Open(LPCTSTR fileName, UINT openFlags, CFileException* error)
{
    if (IsOpen())
    {
        ::close(std::exchange(m_descriptor, -1));
    }
    m_strFileName = fileName;
    int const flags = SystemFlagsOf(openFlags);
    m_descriptor = Retry([&] { return ::open(m_strFileName, flags, kNewFileRights); });
    if (!IsOpen() && error != nullptr)
    {
        error->m_lOsError = errno;
        error->m_cause = CauseOf(error->m_lOsError);
        error->m_strFileName = m_strFileName;
    }
    return IsOpen();
}

void CFile::Close()
{
    if (IsOpen() && ::close(std::exchange(m_descriptor, -1)) != 0 && errno != EINTR)
    {
        ThrowLastError();
    }
}

UINT CFile::Read(void* buffer, UINT count)
{
    RequireOpen();
    UINT done = 0;
    while (done < count)
    {
        ssize_t const got =
            Retry([&] { return ::read(m_descriptor, static_cast<BYTE*>(buffer) + done, count - done); });
        if (got < 0)
        {
            ThrowLastError();
        }
        if (got == 0)
        {
            break;
        }
        done += static_cast<UINT>(got);
    }
    return done;
}

void CFile::Write(void const* buffer, UINT count)
{
    RequireOpen();
    for (UINT done = 0; done < count;)
    {
        ssize_t const put =
            Retry([&] { return ::write(m_descriptor, static_cast<BYTE const*>(buffer) + done, count - done); });
        if (put < 0)
        {
            ThrowLastError();
        }
        done += static_cast<UINT>(put);
    }
}

// Nothing is buffered here: what was written is with the system.
void CFile::Flush()
{
    RequireOpen();
}

ULONGLONG CFile::Seek(LONGLONG offset, UINT from)
{
    RequireOpen();
    off_t const position = ::lseek(m_descriptor, offset, SystemOriginOf(from));
    if (position < 0)
    {
        ThrowLastError();
    }
    return static_cast<ULONGLONG>(position);
}

ULONGLONG CFile::GetPosition() const
{
    RequireOpen();
    off_t const position = ::lseek(m_descriptor, 0, SEEK_CUR);
    if (position < 0)
    {
        ThrowLastError();
    }
    return static_cast<ULONGLONG>(position);
}

ULONGLONG CFile::GetLength() const
{
    RequireOpen();
    struct stat status = {};
    if (::fstat(m_descriptor, &status) != 0)
    {
        ThrowLastError();
    }
    return static_cast<ULONGLONG>(status.st_size);
}

void CFile::SetLength(ULONGLONG length)
{
    RequireOpen();
    if (Retry([&] { return ::ftruncate(m_descriptor, static_cast<off_t>(length)); }) != 0)
    {
        ThrowLastError();
    }
}

void CFile::ThrowLastError() const
{
    int const systemError = errno;
    AfxThrowFileException(CauseOf(systemError), systemError, m_strFileName);
}

void CFile::RequireOpen() const
{
    if (!IsOpen())
    {
        AfxThrowFileException(CFileException::invalidFile, 0, m_strFileName);
    }
}

CMemFile::CMemFile(std::span<BYTE const> bytes) : m_bytes(bytes.begin(), bytes.end()) {}

CMemFile::~CMemFile() = default;

void CMemFile::Attach(std::span<BYTE const> bytes)
{
    m_bytes.assign(bytes.begin(), bytes.end());
    m_position = 0;
}

std::vector<BYTE> CMemFile::Detach() noexcept
{
    m_position = 0;
    return std::exchange(m_bytes, {});
}

BOOL CMemFile::Open(LPCTSTR /*fileName*/, UINT /*openFlags*/, CFileException* /*error*/)
{
    Close();
    return TRUE;
}

void CMemFile::Close()
{
    Attach({});
}

UINT CMemFile::Read(void* buffer, UINT count)
{
    std::size_t const left = m_bytes.size() - std::min(m_position, m_bytes.size());
    std::size_t const taken = std::min<std::size_t>(count, left);
    if (taken > 0)
    {
        std::memcpy(buffer, m_bytes.data() + m_position, taken);
        m_position += taken;
    }
    return static_cast<UINT>(taken);
}

void CMemFile::Write(void const* buffer, UINT count)
{
    if (count == 0)
    {
        return;
    }
    if (m_position > m_bytes.size() || count > m_bytes.size() - m_position)
    {
        SetLength(static_cast<ULONGLONG>(m_position) + count);
    }
    std::memcpy(m_bytes.data() + m_position, buffer, count);
    m_position += count;
}

void CMemFile::Flush() {}

ULONGLONG CMemFile::Seek(LONGLONG offset, UINT from)
{
    std::size_t const origin = from == end ? m_bytes.size() : (from == current ? m_position : 0);
    LONGLONG target = 0;
    if (__builtin_add_overflow(static_cast<LONGLONG>(origin), offset, &target) || target < 0)
    {
        AfxThrowFileException(CFileException::badSeek);
    }
    m_position = static_cast<std::size_t>(target);
    return static_cast<ULONGLONG>(target);
}

ULONGLONG CMemFile::GetPosition() const
{
    return m_position;
}

ULONGLONG CMemFile::GetLength() const
{
    return m_bytes.size();
}

void CMemFile::SetLength(ULONGLONG length)
{
    if (length > m_bytes.max_size())
    {
        AfxThrowFileException(CFileException::diskFull);
    }
    try
    {
        m_bytes.resize(length);
    }
    catch (std::bad_alloc const&)
    {
        AfxThrowFileException(CFileException::diskFull);
    }
}
