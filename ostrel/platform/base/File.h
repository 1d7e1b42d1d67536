/// @file
/// Files as the framework's archives see them: a file of the system, and one in memory.
/// Failures are CFileException objects thrown by pointer, except where a function says otherwise. One thread at a time.
#pragma once

#include <span>
#include <vector>

#include <ostrel/platform/base/Export.h>
#include <ostrel/platform/base/Object.h>
#include <ostrel/platform/base/String.h>
#include <ostrel/platform/base/Types.h>

class CFileException;

/// A file of the system, and the interface of every other file.
class OSTREL_BASE_API CFile : public CObject
{
    DECLARE_DYNAMIC(CFile)
public:
    /// One access mode, with create flags. The share flags are accepted and mean nothing: files are shared here.
    enum OpenFlags : UINT
    {
        modeRead = 0x0000,       ///< reading only
        modeWrite = 0x0001,      ///< writing only
        modeReadWrite = 0x0002,  ///< both
        shareCompat = 0x0000,    ///< no meaning here
        shareExclusive = 0x0010, ///< no meaning here
        shareDenyWrite = 0x0020, ///< no meaning here
        shareDenyRead = 0x0030,  ///< no meaning here
        shareDenyNone = 0x0040,  ///< how files are always shared here
        modeCreate = 0x1000,     ///< makes the file, or empties the one that exists
        modeNoTruncate = 0x2000, ///< with modeCreate: keeps what the file holds
        typeBinary = 0x8000      ///< always the case
    };
    /// What an offset counts from.
    enum SeekPosition : UINT
    {
        begin = 0,   ///< the first byte
        current = 1, ///< the present position
        end = 2      ///< behind the last byte
    };

    /// A file that is not open.
    CFile() = default;
    /// Opens the file or throws. `openFlags` is a combination of OpenFlags.
    CFile(LPCTSTR fileName, UINT openFlags);
    /// Closes; a failure goes unnoticed. Close first where it matters.
    ~CFile() override;
    CFile(CFile const&) = delete;
    CFile& operator=(CFile const&) = delete;

    /// Closes what is open, then opens. Returns FALSE and fills `error`, when given, if that fails. Does not throw.
    virtual BOOL Open(LPCTSTR fileName, UINT openFlags, CFileException* error = nullptr);
    /// Closes the file; a closed one stays closed.
    virtual void Close();
    /// True between Open and Close.
    [[nodiscard]] bool IsOpen() const noexcept { return m_descriptor >= 0; }

    /// Reads up to `count` bytes; returns how many there were, fewer only at the end of the file.
    virtual UINT Read(void* buffer, UINT count);
    /// Writes all bytes.
    virtual void Write(void const* buffer, UINT count);
    /// Hands everything written to the system.
    virtual void Flush();

    /// Moves the position, also behind the end; returns it from the begin. Before the begin is badSeek.
    virtual ULONGLONG Seek(LONGLONG offset, UINT from);
    /// Moves the position to the first byte.
    void SeekToBegin() { Seek(0, begin); }
    /// Moves the position behind the last byte; returns the length.
    ULONGLONG SeekToEnd() { return Seek(0, end); }
    /// The position in bytes from the begin.
    [[nodiscard]] virtual ULONGLONG GetPosition() const;
    /// The length in bytes.
    [[nodiscard]] virtual ULONGLONG GetLength() const;
    /// Cuts the file, or fills it up with zero bytes.
    virtual void SetLength(ULONGLONG length);

    /// The name it was opened with; empty for files in memory.
    [[nodiscard]] CString const& GetFilePath() const noexcept { return m_strFileName; }

private:
    [[noreturn]] void ThrowLastError() const;
    void RequireOpen() const;

    int m_descriptor = -1;
    CString m_strFileName;
};

/// A file in memory that grows as it is written. Never needs to be opened.
class OSTREL_BASE_API CMemFile final : public CFile
{
    DECLARE_DYNAMIC(CMemFile)
public:
    /// An empty file.
    CMemFile() = default;
    /// A file that holds a copy of the bytes, at its begin.
    explicit CMemFile(std::span<BYTE const> bytes);
    ~CMemFile() override;

    /// Replaces the contents by a copy of the bytes and goes to the begin.
    void Attach(std::span<BYTE const> bytes);
    /// Gives the contents away and is empty afterwards.
    [[nodiscard]] std::vector<BYTE> Detach() noexcept;
    /// The contents, valid until the next change.
    [[nodiscard]] std::vector<BYTE> const& Bytes() const noexcept { return m_bytes; }

    // CFile
    BOOL Open(LPCTSTR fileName, UINT openFlags, CFileException* error = nullptr) override;
    /// Empties the file.
    void Close() override;
    UINT Read(void* buffer, UINT count) override;
    void Write(void const* buffer, UINT count) override;
    void Flush() override;
    ULONGLONG Seek(LONGLONG offset, UINT from) override;
    [[nodiscard]] ULONGLONG GetPosition() const override;
    [[nodiscard]] ULONGLONG GetLength() const override;
    void SetLength(ULONGLONG length) override;

private:
    std::vector<BYTE> m_bytes;
    std::size_t m_position = 0;
};
