#include <algorithm>
#include <cstring>
#include <limits>

#include <ostrel/platform/base/Archive.h>
#include <ostrel/platform/base/Exception.h>
#include <ostrel/platform/base/File.h>

namespace
{

constexpr int kSmallestBuffer = 128;

constexpr BYTE kLongText = 0xFF;          ///< the length follows as a WORD
constexpr WORD kVeryLongText = 0xFFFF;    ///< the length follows as a DWORD
constexpr WORD kOtherCharacters = 0xFFFE; ///< a text of 16-bit characters follows, which is not written here
constexpr std::size_t kTextStep = 4096;

} // namespace

CArchive::CArchive(CFile* file, UINT mode, int bufferSize)
    : m_strFileName(file != nullptr ? file->GetFilePath() : CString()),
      m_file(file),
      m_mode(mode),
      m_buffer(static_cast<std::size_t>(std::max(bufferSize, kSmallestBuffer)))
{}

CArchive::~CArchive()
{
    if ((m_mode & bNoFlushOnDelete) != 0)
    {
        return;
    }
    try
    {
        Close();
    }
    catch (CException* exception)
    {
        exception->Delete();
    }
}

void CArchive::Flush()
{
    RequireFile();
    if (IsStoring())
    {
        WriteBuffered();
    }
    else if (m_bufferBegin != m_bufferEnd)
    {
        m_file->Seek(-static_cast<LONGLONG>(m_bufferEnd - m_bufferBegin), CFile::current);
        m_bufferBegin = m_bufferEnd = 0;
    }
}

void CArchive::Close()
{
    if (m_file == nullptr)
    {
        return;
    }
    try
    {
        Flush();
    }
    catch (...)
    {
        Abort();
        throw;
    }
    Abort();
}

void CArchive::Abort() noexcept
{
    m_file = nullptr;
    m_bufferBegin = m_bufferEnd = 0;
}

UINT CArchive::Read(void* buffer, UINT count)
{
    RequireLoading();
    BYTE* out = static_cast<BYTE*>(buffer);
    UINT left = count;
    while (left > 0)
    {
        if (m_bufferBegin == m_bufferEnd)
        {
            m_bufferBegin = m_bufferEnd = 0;
            m_bufferEnd = m_file->Read(m_buffer.data(), static_cast<UINT>(m_buffer.size()));
            if (m_bufferEnd == 0)
            {
                break;
            }
        }
        UINT const taken = static_cast<UINT>(std::min<std::size_t>(left, m_bufferEnd - m_bufferBegin));
        std::memcpy(out, m_buffer.data() + m_bufferBegin, taken);
        m_bufferBegin += taken;
        out += taken;
        left -= taken;
    }
    return count - left;
}

void CArchive::EnsureRead(void* buffer, UINT count)
{
    if (Read(buffer, count) != count)
    {
        Throw(CArchiveException::endOfFile);
    }
}

void CArchive::Write(void const* buffer, UINT count)
{
    RequireStoring();
    if (count > m_buffer.size() - m_bufferEnd)
    {
        WriteBuffered();
        if (count >= m_buffer.size())
        {
            m_file->Write(buffer, count);
            return;
        }
    }
    if (count > 0)
    {
        std::memcpy(m_buffer.data() + m_bufferEnd, buffer, count);
        m_bufferEnd += count;
    }
}

CArchive& CArchive::operator>>(long& value)
{
    std::int32_t narrow = 0;
    Get(narrow);
    value = narrow;
    return *this;
}

CArchive& CArchive::operator>>(unsigned long& value)
{
    std::uint32_t narrow = 0;
    Get(narrow);
    value = narrow;
    return *this;
}

CArchive& CArchive::operator>>(bool& value)
{
    BYTE byte = 0;
    Get(byte);
    value = byte != 0;
    return *this;
}

CArchive& CArchive::operator>>(CString& text)
{
    text = CString(GetText());
    return *this;
}

CArchive& CArchive::operator>>(std::string& text)
{
    text = GetText();
    return *this;
}

CArchive& CArchive::PutText(std::string_view text)
{
    if (text.size() > static_cast<std::size_t>(std::numeric_limits<int>::max()))
    {
        Throw(CArchiveException::genericException);
    }
    DWORD const length = static_cast<DWORD>(text.size());
    if (length < kLongText)
    {
        Put(static_cast<BYTE>(length));
    }
    else if (length < kOtherCharacters)
    {
        Put(kLongText).Put(static_cast<WORD>(length));
    }
    else
    {
        Put(kLongText).Put(kVeryLongText).Put(length);
    }
    Write(text.data(), length);
    return *this;
}

DWORD CArchive::GetTextLength()
{
    BYTE shortLength = 0;
    Get(shortLength);
    if (shortLength < kLongText)
    {
        return shortLength;
    }
    WORD wordLength = 0;
    Get(wordLength);
    if (wordLength == kOtherCharacters)
    {
        Throw(CArchiveException::badSchema);
    }
    if (wordLength < kVeryLongText)
    {
        return wordLength;
    }
    DWORD length = 0;
    Get(length);
    return length;
}

std::string CArchive::GetText()
{
    DWORD const length = GetTextLength();
    if (length > static_cast<DWORD>(std::numeric_limits<int>::max()))
    {
        Throw(CArchiveException::endOfFile); // no text is that long: the data cannot be there
    }
    return GetBytes(length);
}

// Grows with what is really there, so that a damaged length cannot ask for more memory than the data deserve.
std::string CArchive::GetBytes(DWORD count)
{
    std::string bytes;
    while (bytes.size() < count)
    {
        std::size_t const done = bytes.size();
        std::size_t const step = std::min(count - done, std::max(done, kTextStep));
        bytes.resize(done + step);
        EnsureRead(bytes.data() + done, static_cast<UINT>(step));
    }
    return bytes;
}

void CArchive::RequireFile() const
{
    if (m_file == nullptr)
    {
        Throw(CArchiveException::genericException);
    }
}

void CArchive::RequireStoring() const
{
    if (IsLoading())
    {
        Throw(CArchiveException::readOnly);
    }
    RequireFile();
}

void CArchive::RequireLoading() const
{
    if (IsStoring())
    {
        Throw(CArchiveException::writeOnly);
    }
    RequireFile();
}

void CArchive::Throw(int cause) const
{
    AfxThrowArchiveException(cause, m_strFileName);
}

void CArchive::WriteBuffered()
{
    if (m_bufferEnd > 0)
    {
        m_file->Write(m_buffer.data(), static_cast<UINT>(m_bufferEnd));
        m_bufferEnd = 0;
    }
}
