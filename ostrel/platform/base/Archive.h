/// @file
/// A binary stream of numbers, texts and objects over a file.
#pragma once

#include <array>
#include <concepts>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include <ostrel/platform/base/Export.h>
#include <ostrel/platform/base/LittleEndian.h>
#include <ostrel/platform/base/Narrow.h>
#include <ostrel/platform/base/Object.h>
#include <ostrel/platform/base/String.h>
#include <ostrel/platform/base/Types.h>

class CFile;

/// A binary stream of numbers, texts and objects over a file, in one direction for its whole life.
///
///     CMemFile file;
///     CArchive archive(&file, CArchive::store);
///     archive << 1 << CString("name");
///     archive.Close();
///
/// Layout: numbers are fixed-width little-endian without padding or tags; `int`, `long`, `unsigned long` take 4 bytes,
/// `bool` one. A text is its length in bytes (a byte; from 255 on 0xFF and a WORD; from 0xFFFE on 0xFF, WORD 0xFFFF and
/// a DWORD) and its bytes. Classes and objects share one numbering that begins at 1, in the order in which they are
/// first met:
///
///     null object            WORD 0
///     class, first time      WORD 0xFFFF, WORD schema, WORD length, the name's bytes
///     class, met before      WORD 0x8000 | number; from 0x7FFF on WORD 0x7FFF, DWORD 0x80000000 | number
///     object, first time     its class as above, then what its Serialize writes
///     object, met before     WORD number; from 0x7FFF on WORD 0x7FFF, DWORD number
///
/// Failures are CArchiveException objects thrown by pointer, and those of the file. After one the archive can only be
/// closed or destroyed. One thread at a time.
class OSTREL_BASE_API CArchive
{
public:
    /// The direction, fixed for the archive's life.
    enum Mode : UINT
    {
        store = 0,           ///< writes
        load = 1,            ///< reads
        bNoFlushOnDelete = 2 ///< with store or load: the destructor abandons instead of closing
    };

    /// Does not take ownership of the file, which must outlive the archive and stand where the archive begins.
    CArchive(CFile* file, UINT mode, int bufferSize = 4096);
    /// Closes; a failure goes unnoticed. Close first where it matters.
    ~CArchive();
    CArchive(CArchive const&) = delete;
    CArchive& operator=(CArchive const&) = delete;

    ///@{
    /// The direction.
    [[nodiscard]] BOOL IsLoading() const noexcept { return (m_mode & load) != 0; }
    [[nodiscard]] BOOL IsStoring() const noexcept { return (m_mode & load) == 0; }
    ///@}
    /// The file given at construction; null after Close and Abort.
    [[nodiscard]] CFile* GetFile() const noexcept { return m_file; }

    /// Brings the file to the archive's place: writes what is buffered, or seeks back over what was read ahead.
    void Flush();
    /// Flushes and lets go of the file; the file stays open. A closed archive stays closed.
    void Close();
    /// Lets go of the file without flushing. Does not throw.
    void Abort() noexcept;

    /// Reads up to `count` bytes and returns how many there were, fewer only at the end of the data. Throws writeOnly.
    UINT Read(void* buffer, UINT count);
    /// Reads all bytes or throws endOfFile.
    void EnsureRead(void* buffer, UINT count);
    /// Writes all bytes. Throws readOnly.
    void Write(void const* buffer, UINT count);

    ///@{
    /// Writes a number; `long` and `unsigned long` in 4 bytes. Throws readOnly.
    CArchive& operator<<(char value) { return Put(value); }
    CArchive& operator<<(signed char value) { return Put(value); }
    CArchive& operator<<(BYTE value) { return Put(value); }
    CArchive& operator<<(short value) { return Put(value); }
    CArchive& operator<<(WORD value) { return Put(value); }
    CArchive& operator<<(int value) { return Put(value); }
    CArchive& operator<<(UINT value) { return Put(value); }
    CArchive& operator<<(long value) { return Put(Ostrel::Platform::NarrowToInt32(value)); }
    CArchive& operator<<(unsigned long value) { return Put(Ostrel::Platform::NarrowToUInt32(value)); }
    CArchive& operator<<(long long value) { return Put(value); }
    CArchive& operator<<(unsigned long long value) { return Put(value); }
    CArchive& operator<<(float value) { return Put(value); }
    CArchive& operator<<(double value) { return Put(value); }
    ///@}
    /// Writes a byte, 0 or 1. A template, so that no pointer becomes a bool.
    template <std::same_as<bool> Bool>
    CArchive& operator<<(Bool value)
    {
        return Put(static_cast<BYTE>(value ? 1 : 0));
    }
    ///@{
    /// Writes a text; a null pointer as an empty one. Throws readOnly.
    CArchive& operator<<(CString const& text) { return PutText(text.AsStd()); }
    CArchive& operator<<(std::string const& text) { return PutText(text); }
    CArchive& operator<<(char const* text) { return PutText(text != nullptr ? text : ""); }
    ///@}

    ///@{
    /// Reads a number; `long` and `unsigned long` from 4 bytes, widened with the sign, or with zero. Throws writeOnly
    /// or endOfFile and leaves the number as it was.
    CArchive& operator>>(char& value) { return Get(value); }
    CArchive& operator>>(signed char& value) { return Get(value); }
    CArchive& operator>>(BYTE& value) { return Get(value); }
    CArchive& operator>>(short& value) { return Get(value); }
    CArchive& operator>>(WORD& value) { return Get(value); }
    CArchive& operator>>(int& value) { return Get(value); }
    CArchive& operator>>(UINT& value) { return Get(value); }
    CArchive& operator>>(long& value);
    CArchive& operator>>(unsigned long& value);
    CArchive& operator>>(long long& value) { return Get(value); }
    CArchive& operator>>(unsigned long long& value) { return Get(value); }
    CArchive& operator>>(float& value) { return Get(value); }
    CArchive& operator>>(double& value) { return Get(value); }
    ///@}
    /// Reads a byte; every other value than 0 is true. Fails as for numbers.
    CArchive& operator>>(bool& value);
    ///@{
    /// Reads a text. Throws writeOnly, endOfFile, or badSchema for a text of 16-bit characters, and leaves the text as
    /// it was. No more is allocated than there is to read.
    CArchive& operator>>(CString& text);
    CArchive& operator>>(std::string& text);
    ///@}

    /// Writes a class record. Throws badClass for null, for a class that was not declared SERIAL, or a name too long.
    void WriteClass(CRuntimeClass const* runtimeClass);
    /// Reads a class record. With `schema` the stored schema is handed out, otherwise another one than the class's
    /// throws badSchema. Throws badClass when the class is unknown or not below `required`; the record has then been
    /// read and numbered, so that what follows can still be read. Throws badIndex when no class record is there.
    CRuntimeClass* ReadClass(CRuntimeClass const* required = nullptr, UINT* schema = nullptr);

    /// Writes an object, or null, or the number of one that was written before. The object must live until the archive
    /// is closed.
    void WriteObject(CObject const* object);
    /// The next object, or null. The caller owns an object that is met for the first time. `required` as in ReadClass;
    /// an object that was read before and is of another class throws badClass. When the object's own Serialize throws,
    /// the object is destroyed. Objects nested more than kMaxDepth deep throw genericException.
    [[nodiscard]] CObject* ReadObject(CRuntimeClass const* required = nullptr);

    static constexpr int kMaxDepth = 1000; ///< how deep objects may be nested in one another

    CString m_strFileName; ///< put into the exceptions; the file's name at first

private:
    struct Loaded
    {
        CRuntimeClass* runtimeClass; ///< of a class that was met; null for an unknown one, and for an object
        CObject* object;             ///< of an object; null when it failed to load
        UINT schema;
        bool isClass;
    };
    struct Tag
    {
        DWORD number;
        bool isClass;
        bool isNewClass;
    };

    template <Ostrel::Platform::FixedWidth T>
    CArchive& Put(T value)
    {
        std::array<BYTE, sizeof(T)> bytes;
        Ostrel::Platform::PutLittleEndian(bytes.data(), value);
        Write(bytes.data(), sizeof(T));
        return *this;
    }
    template <Ostrel::Platform::FixedWidth T>
    CArchive& Get(T& value)
    {
        std::array<BYTE, sizeof(T)> bytes;
        EnsureRead(bytes.data(), sizeof(T));
        value = Ostrel::Platform::GetLittleEndian<T>(bytes.data());
        return *this;
    }
    CArchive& PutText(std::string_view text);
    std::string GetText();
    DWORD GetTextLength();
    std::string GetBytes(DWORD count);

    void RequireFile() const;
    void RequireStoring() const;
    void RequireLoading() const;
    [[noreturn]] void Throw(int cause) const;
    void WriteBuffered();

    void PutTag(DWORD number, bool isClass);
    /// Numbers what is met for the first time; returns its number, or 0 when it is new.
    DWORD NumberOf(void const* met);
    Tag GetTag();
    /// The entry of a number that was given, or badIndex.
    Loaded const& LoadedAt(DWORD number) const;
    CRuntimeClass* ReadClassOf(Tag tag, CRuntimeClass const* required, UINT* schema);
    void ReadNewClass();
    CObject* ReadNewObject(CRuntimeClass const* runtimeClass);

    CFile* m_file;
    UINT m_mode;
    std::vector<BYTE> m_buffer;
    std::size_t m_bufferBegin = 0; ///< loading: the next byte to hand out
    std::size_t m_bufferEnd = 0;   ///< storing: bytes that wait; loading: end of what was read ahead
    std::unordered_map<void const*, DWORD> m_stored;
    std::vector<Loaded> m_loaded; ///< number n at n - 1
    int m_depth = 0;              ///< of the object that is being read
};

/// Writes an object, see CArchive::WriteObject.
inline CArchive& operator<<(CArchive& archive, CObject const* object)
{
    archive.WriteObject(object);
    return archive;
}
/// Reads an object, see CArchive::ReadObject. Classes that are declared SERIAL also have `>>` for pointers to their own
/// class.
inline CArchive& operator>>(CArchive& archive, CObject*& object)
{
    object = archive.ReadObject();
    return archive;
}
