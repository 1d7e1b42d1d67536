/// @file
/// The framework's exceptions.
#pragma once

#include <memory>

#include <ostrel/platform/base/Export.h>
#include <ostrel/platform/base/Object.h>
#include <ostrel/platform/base/String.h>
#include <ostrel/platform/base/Types.h>

/// The framework's exceptions. They are thrown BY POINTER to an object on the heap, and whoever catches one ends it
/// with Delete():
///
///     try { object.Serialize(archive); }
///     catch (CArchiveException* exception) { int const cause = exception->m_cause; exception->Delete(); }
///
/// An ExceptionPtr does the same at the end of a scope. Catching by value or by reference does not see them.
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
    /// The causes.
    enum
    {
        none = 0,             ///< nothing is known
        genericException = 1, ///< what the others do not say
        readOnly = 2,         ///< a store into an archive that loads
        endOfFile = 3,        ///< the data end before what is read
        writeOnly = 4,        ///< a load from an archive that stores
        badIndex = 5,         ///< a class or object number that was never given
        badClass = 6,         ///< the class is unknown, cannot be made, or is not the one that is asked for
        badSchema = 7         ///< the class was stored in another version
    };

    /// An exception with one of the causes and the name of the file or stream, null for none.
    explicit CArchiveException(int cause = none, LPCTSTR fileName = nullptr);
    ~CArchiveException() override;

    int m_cause;           ///< one of the causes
    CString m_strFileName; ///< name of the file or stream, often empty

protected:
    [[nodiscard]] CString Message() const override;
};

/// What went wrong with a file.
class OSTREL_BASE_API CFileException : public CException
{
    DECLARE_DYNAMIC(CFileException)
public:
    /// The causes.
    enum
    {
        none = 0,              ///< nothing is known
        genericException = 1,  ///< what the others do not say
        fileNotFound = 2,      ///< there is no such file
        badPath = 3,           ///< part of the path is no directory, or the path is too long
        tooManyOpenFiles = 4,  ///< the process or the system has no room for another open file
        accessDenied = 5,      ///< the rights do not allow it, or the file was opened for something else
        invalidFile = 6,       ///< the file is not open
        removeCurrentDir = 7,  ///< not used on this platform
        directoryFull = 8,     ///< not used on this platform
        badSeek = 9,           ///< before the begin of the file
        hardIO = 10,           ///< the device failed
        sharingViolation = 11, ///< not used on this platform
        lockViolation = 12,    ///< not used on this platform
        diskFull = 13,         ///< no room left, or the file would be too large
        endOfFile = 14         ///< the data end before what is read
    };

    /// An exception with one of the causes, an errno value (0 when the system was not asked) and the name of the file,
    /// null for none.
    explicit CFileException(int cause = none, LONG systemError = 0, LPCTSTR fileName = nullptr);
    ~CFileException() override;

    int m_cause;           ///< one of the causes
    LONG m_lOsError;       ///< what the system said, an errno value; 0 when it was not asked
    CString m_strFileName; ///< name of the file, often empty

protected:
    [[nodiscard]] CString Message() const override;
};

///@{
/// Throws a new exception of the class by pointer.
[[noreturn]] OSTREL_BASE_API void AfxThrowArchiveException(int cause, LPCTSTR fileName = nullptr);
[[noreturn]] OSTREL_BASE_API void AfxThrowFileException(int cause, LONG systemError = 0, LPCTSTR fileName = nullptr);
///@}

namespace Ostrel::Platform
{

/// Ends a caught exception; for ExceptionPtr.
struct ExceptionDeleter
{
    /// Ends the exception, which is not null.
    void operator()(CException* exception) const { exception->Delete(); }
};

/// Holds a caught exception and ends it with the scope:
/// `catch (CFileException* caught) { ExceptionPtr<CFileException> const exception(caught); ... }`
template <class E = CException>
using ExceptionPtr = std::unique_ptr<E, ExceptionDeleter>;

} // namespace Ostrel::Platform
