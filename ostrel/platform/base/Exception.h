// The framework's exceptions. They are thrown BY POINTER to an object on the heap, and whoever catches one ends it with
// Delete():
//
//     try { object.Serialize(archive); }
//     catch (CArchiveException* exception) { int const cause = exception->m_cause; exception->Delete(); }
//
// An ExceptionPtr does the same at the end of a scope. Catching by value or by reference does not see them.
#pragma once

#include <memory>

#include <ostrel/platform/base/Export.h>
#include <ostrel/platform/base/Object.h>
#include <ostrel/platform/base/String.h>
#include <ostrel/platform/base/Types.h>

class OSTREL_BASE_API CException : public CObject
{
    DECLARE_DYNAMIC(CException)
public:
    CException() = default;
    CException(CException const&) = delete;
    CException& operator=(CException const&) = delete;
    ~CException() override;

    /// Ends the exception; the pointer is dead afterwards. For objects made with `new`.
    void Delete() { delete this; }

    /// Writes a text for people, cut to capacity - 1 bytes at a character boundary and ended by a zero byte. Returns
    /// FALSE, and an empty text where there is room for one, when the exception has none or the buffer is null or
    /// empty.
    BOOL GetErrorMessage(char* buffer, UINT capacity) const;

protected:
    /// The text for people; empty when there is none.
    [[nodiscard]] virtual CString Message() const;
};

/// What went wrong while an archive was read or written.
class OSTREL_BASE_API CArchiveException : public CException
{
    DECLARE_DYNAMIC(CArchiveException)
public:
    enum
    {
        none = 0,
        genericException = 1,
        readOnly = 2,  ///< a store into an archive that loads
        endOfFile = 3, ///< the data end before what is read
        writeOnly = 4, ///< a load from an archive that stores
        badIndex = 5,  ///< a class or object number that was never given
        badClass = 6,  ///< the class is unknown, cannot be made, or is not the one that is asked for
        badSchema = 7  ///< the class was stored in another version
    };

    explicit CArchiveException(int cause = none, LPCTSTR fileName = nullptr);
    ~CArchiveException() override;

    int m_cause;
    CString m_strFileName; ///< name of the file or stream, often empty

protected:
    [[nodiscard]] CString Message() const override;
};

/// What went wrong with a file.
class OSTREL_BASE_API CFileException : public CException
{
    DECLARE_DYNAMIC(CFileException)
public:
    enum
    {
        none = 0,
        genericException = 1,
        fileNotFound = 2,
        badPath = 3,
        tooManyOpenFiles = 4,
        accessDenied = 5,
        invalidFile = 6, ///< the file is not open
        removeCurrentDir = 7,
        directoryFull = 8,
        badSeek = 9, ///< before the begin of the file
        hardIO = 10,
        sharingViolation = 11,
        lockViolation = 12,
        diskFull = 13,
        endOfFile = 14
    };

    /// systemError is an errno value, 0 when the system was not asked.
    explicit CFileException(int cause = none, LONG systemError = 0, LPCTSTR fileName = nullptr);
    ~CFileException() override;

    int m_cause;
    LONG m_lOsError;
    CString m_strFileName;

protected:
    [[nodiscard]] CString Message() const override;
};

/// Throw a new exception of the class by pointer.
[[noreturn]] OSTREL_BASE_API void AfxThrowArchiveException(int cause, LPCTSTR fileName = nullptr);
[[noreturn]] OSTREL_BASE_API void AfxThrowFileException(int cause, LONG systemError = 0, LPCTSTR fileName = nullptr);

namespace Ostrel::Platform
{

struct ExceptionDeleter
{
    void operator()(CException* exception) const { exception->Delete(); }
};

/// Holds a caught exception and ends it with the scope:
/// `catch (CFileException* caught) { ExceptionPtr<CFileException> const exception(caught); ... }`
template <class E = CException>
using ExceptionPtr = std::unique_ptr<E, ExceptionDeleter>;

} // namespace Ostrel::Platform
