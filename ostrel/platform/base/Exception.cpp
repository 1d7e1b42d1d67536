#include <array>
#include <cstring>
#include <system_error>

#include <ostrel/platform/base/Exception.h>
#include <ostrel/platform/base/Utf8.h>

namespace
{

constexpr std::array<char const*, 8> kArchiveTexts = {
    "No error occurred.",
    "An unknown error occurred while accessing the archive.",
    "An attempt was made to write to the archive, which was opened for reading.",
    "The archive ended unexpectedly.",
    "An attempt was made to read from the archive, which was opened for writing.",
    "The archive has an invalid index.",
    "The archive holds an object of an unknown or unexpected class.",
    "The archive holds data of an incompatible version."};

constexpr std::array<char const*, 15> kFileTexts = {"No error occurred.",
                                                    "An unknown error occurred while accessing the file.",
                                                    "The file was not found.",
                                                    "The path of the file is invalid.",
                                                    "Too many files are open.",
                                                    "Access to the file was denied.",
                                                    "The file is not open.",
                                                    "The current directory cannot be removed.",
                                                    "The directory is full.",
                                                    "A seek went before the begin of the file.",
                                                    "The device of the file reported an error.",
                                                    "The file is in use.",
                                                    "A part of the file is locked.",
                                                    "The disk is full.",
                                                    "The file ended unexpectedly."};

template <std::size_t Count>
CString TextOf(std::array<char const*, Count> const& texts, int cause, CString const& fileName)
{
    bool const isKnown = cause >= 0 && cause < static_cast<int>(Count);
    CString const text(texts[isKnown ? static_cast<std::size_t>(cause) : 1]);
    return fileName.IsEmpty() ? text : fileName + ": " + text;
}

} // namespace

IMPLEMENT_DYNAMIC(CException, CObject)
IMPLEMENT_DYNAMIC(CArchiveException, CException)
IMPLEMENT_DYNAMIC(CFileException, CException)

CException::~CException() = default;

BOOL CException::GetErrorMessage(char* buffer, UINT capacity) const
{
    if (buffer == nullptr || capacity == 0)
    {
        return FALSE;
    }
    CString const message = Message();
    std::string const& text = message.AsStd();
    std::size_t const length = Ostrel::Platform::Utf8BoundaryAt(text, capacity - 1);
    std::memcpy(buffer, text.data(), length);
    buffer[length] = '\0';
    return text.empty() ? FALSE : TRUE;
}

CString CException::Message() const
{
    return {};
}

CArchiveException::CArchiveException(int cause, LPCTSTR fileName) : m_cause(cause), m_strFileName(fileName) {}

CArchiveException::~CArchiveException() = default;

CString CArchiveException::Message() const
{
    return TextOf(kArchiveTexts, m_cause, m_strFileName);
}

CFileException::CFileException(int cause, LONG systemError, LPCTSTR fileName)
    : m_cause(cause), m_lOsError(systemError), m_strFileName(fileName)
{}

CFileException::~CFileException() = default;

CString CFileException::Message() const
{
    CString const text = TextOf(kFileTexts, m_cause, m_strFileName);
    return m_lOsError == 0 ? text : text + " (" + std::generic_category().message(m_lOsError).c_str() + ")";
}

void AfxThrowArchiveException(int cause, LPCTSTR fileName)
{
    throw new CArchiveException(cause, fileName);
}

void AfxThrowFileException(int cause, LONG systemError, LPCTSTR fileName)
{
    throw new CFileException(cause, systemError, fileName);
}
