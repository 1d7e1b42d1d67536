/// @file
/// The library's own binary stream.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include <ostrel/common/value/CommonException.h>
#include <ostrel/platform/base/Export.h>
#include <ostrel/platform/base/String.h>
#include <ostrel/platform/base/Types.h>

namespace Ostrel::Common
{

class CDataObject;
class CFormat;
class CValue;

/// The library's own binary stream: it either stores, growing a buffer of bytes, or restores, reading one front to
/// back. The stream is nothing but the written primitives one after another, little-endian, without alignment, padding
/// or tags. Texts are a 4-byte length and, unless it is 0, the bytes with a terminating zero byte.
///
/// One thread uses a serializer at a time. Copies are deep.
class OSTREL_COMMON_API CSerializer
{
public:
    /// The direction, fixed for the serializer's life.
    enum Mode : int
    {
        ModeStore = 0,  ///< only writes
        ModeRestore = 1 ///< only reads
    };

    /// Misuse of the mode, and reading past the end.
    class OSTREL_COMMON_API SerializationException : public CommonException
    {
    public:
        using CommonException::CommonException; ///< With the message.
    };

    /// A stored version that the reader does not know.
    class OSTREL_COMMON_API BadVersionException : public CommonException
    {
    public:
        using CommonException::CommonException; ///< With the message.
    };

    /// An empty serializer. To restore, give it its bytes by LoadFromBuffer.
    explicit CSerializer(Mode mode) noexcept : m_mode(mode) {}
    ~CSerializer() = default;
    ///@{
    /// Copies take the other's mode and bytes and start reading at the beginning.
    CSerializer(CSerializer const& other);
    CSerializer& operator=(CSerializer const& other);
    ///@}

    /// The direction given at construction, or taken from the other serializer by assignment.
    [[nodiscard]] Mode GetMode() const noexcept { return m_mode; }

    /// Appends bytes. Returns false and appends nothing if `data` is null or `size` below 1. Throws
    /// SerializationException in restore mode.
    bool Write(void const* data, int size);
    /// Reads exactly `size` bytes and returns true. Throws SerializationException, and leaves the read position where
    /// it was, in store mode, if `data` is null or `size` below 1, and if fewer bytes remain.
    bool Read(void* data, int size);

    ///@{
    /// Store one primitive; throw SerializationException in restore mode. `long` is stored in 4 bytes.
    CSerializer& operator<<(char value);
    CSerializer& operator<<(unsigned char value);
    CSerializer& operator<<(short value);
    CSerializer& operator<<(unsigned short value);
    CSerializer& operator<<(int value);
    CSerializer& operator<<(unsigned int value);
    CSerializer& operator<<(long value);
    CSerializer& operator<<(unsigned long value);
    CSerializer& operator<<(float value);
    CSerializer& operator<<(double value);
    CSerializer& operator<<(__int64 value);
    CSerializer& operator<<(bool value);
    CSerializer& operator<<(std::string const& text);
    CSerializer& operator<<(CString const& text);
    ///@}
    /// A plain character pointer would be stored as a `bool`.
    CSerializer& operator<<(char const*) = delete;

    ///@{
    /// Restore one primitive; throw SerializationException in store mode and when too few bytes remain, with the
    /// operand and the read position unchanged. A text ends at its first zero byte.
    CSerializer& operator>>(char& value);
    CSerializer& operator>>(unsigned char& value);
    CSerializer& operator>>(short& value);
    CSerializer& operator>>(unsigned short& value);
    CSerializer& operator>>(int& value);
    CSerializer& operator>>(unsigned int& value);
    CSerializer& operator>>(long& value);
    CSerializer& operator>>(unsigned long& value);
    CSerializer& operator>>(float& value);
    CSerializer& operator>>(double& value);
    CSerializer& operator>>(__int64& value);
    CSerializer& operator>>(bool& value);
    CSerializer& operator>>(std::string& text);
    CSerializer& operator>>(CString& text);
    ///@}

    ///@{
    /// All of these call the argument's Serialize: the mode alone decides whether it stores or restores.
    CSerializer& operator<<(CValue const& value);
    CSerializer& operator>>(CValue& value);
    CSerializer& operator<<(CDataObject const& object);
    CSerializer& operator>>(CDataObject& object);
    CSerializer& operator<<(CFormat const& format);
    CSerializer& operator>>(CFormat& format);
    ///@}

    /// The number of bytes in the buffer.
    [[nodiscard]] int GetSavingSize() const noexcept { return static_cast<int>(m_buffer.size()); }
    /// Copies the whole buffer to `out`, which has room for GetSavingSize() bytes, and returns its length; 0 if `out`
    /// is null. Throws SerializationException in restore mode.
    int SaveToBuffer(void* out) const;
    /// Replaces the buffer by a copy of the bytes and reads from its beginning. Does nothing if `data` is null or
    /// `size` below 1. Throws SerializationException in store mode.
    void LoadFromBuffer(void const* data, int size);
    /// Empties the buffer. The mode stays.
    void Clear() noexcept;

private:
    void RequireStore(char const* message) const;
    void RequireRestore(char const* message) const;
    /// Room for `size` more bytes at the end of the buffer.
    std::uint8_t* Append(std::size_t size);
    /// The next `size` bytes, which are then consumed.
    std::uint8_t const* Consume(std::size_t size);
    template <class T>
    CSerializer& Store(T value);
    template <class T>
    T Restore();
    CSerializer& StoreText(std::string const& text);
    /// The `length` bytes behind a length; puts the position back to before the length if they are not all there.
    std::string RestoreText(std::uint32_t length, std::size_t positionBefore);

    template <class T>
    CSerializer& SerializeWith(T const& stored);

    std::vector<std::uint8_t> m_buffer;
    std::size_t m_readPosition = 0;
    Mode m_mode;
};

} // namespace Ostrel::Common
