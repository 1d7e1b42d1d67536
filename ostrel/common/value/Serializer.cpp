#include <algorithm>
#include <climits>
#include <cstring>
#include <stdexcept>
#include <utility>

#include <ostrel/common/dataobject/DataObject.h>
#include <ostrel/common/format/Format.h>
#include <ostrel/common/value/Serializer.h>
#include <ostrel/common/value/Value.h>
#include <ostrel/platform/base/LittleEndian.h>
#include <ostrel/platform/base/Narrow.h>

namespace Ostrel::Common
{

namespace
{

constexpr char const* kNotStoring = "Serializer was opened for restore operations";
constexpr char const* kNotRestoring = "Serializer was opened for store operations";
constexpr char const* kNotEnough = "Not enough space to restore the value";

} // namespace

CSerializer::CSerializer(CSerializer const& other) : m_buffer(other.m_buffer), m_mode(other.m_mode) {}

CSerializer& CSerializer::operator=(CSerializer const& other)
{
    m_buffer = other.m_buffer;
    m_mode = other.m_mode;
    m_readPosition = 0;
    return *this;
}

void CSerializer::RequireStore(char const* message) const
{
    if (m_mode != ModeStore)
    {
        throw SerializationException(message);
    }
}

void CSerializer::RequireRestore(char const* message) const
{
    if (m_mode != ModeRestore)
    {
        throw SerializationException(message);
    }
}

std::uint8_t* CSerializer::Append(std::size_t size)
{
    std::size_t const end = m_buffer.size();
    if (size > static_cast<std::size_t>(INT_MAX) - end)
    {
        throw std::length_error("a serializer holds less than 2 GB");
    }
    m_buffer.resize(end + size);
    return m_buffer.data() + end;
}

std::uint8_t const* CSerializer::Consume(std::size_t size)
{
    if (size > m_buffer.size() - m_readPosition)
    {
        throw SerializationException(kNotEnough);
    }
    std::uint8_t const* const bytes = m_buffer.data() + m_readPosition;
    m_readPosition += size;
    return bytes;
}

bool CSerializer::Write(void const* data, int size)
{
    RequireStore(kNotStoring);
    if (data == nullptr || size < 1)
    {
        return false;
    }
    std::memcpy(Append(static_cast<std::size_t>(size)), data, static_cast<std::size_t>(size));
    return true;
}

bool CSerializer::Read(void* data, int size)
{
    RequireRestore(kNotRestoring);
    if (data == nullptr || size < 1)
    {
        throw SerializationException(kNotEnough);
    }
    std::memcpy(data, Consume(static_cast<std::size_t>(size)), static_cast<std::size_t>(size));
    return true;
}

template <class T>
CSerializer& CSerializer::Store(T value)
{
    RequireStore(kNotStoring);
    Platform::PutLittleEndian(Append(sizeof(T)), value);
    return *this;
}

template <class T>
T CSerializer::Restore()
{
    RequireRestore(kNotRestoring);
    return Platform::GetLittleEndian<T>(Consume(sizeof(T)));
}

CSerializer& CSerializer::operator<<(char value)
{
    return Store(value);
}
CSerializer& CSerializer::operator<<(unsigned char value)
{
    return Store(value);
}
CSerializer& CSerializer::operator<<(short value)
{
    return Store(value);
}
CSerializer& CSerializer::operator<<(unsigned short value)
{
    return Store(value);
}
CSerializer& CSerializer::operator<<(int value)
{
    return Store(value);
}
CSerializer& CSerializer::operator<<(unsigned int value)
{
    return Store(value);
}
CSerializer& CSerializer::operator<<(long value)
{
    return Store(Platform::NarrowToInt32(value));
}
CSerializer& CSerializer::operator<<(unsigned long value)
{
    return Store(Platform::NarrowToUInt32(value));
}
CSerializer& CSerializer::operator<<(float value)
{
    return Store(value);
}
CSerializer& CSerializer::operator<<(double value)
{
    return Store(value);
}
CSerializer& CSerializer::operator<<(__int64 value)
{
    return Store(value);
}
CSerializer& CSerializer::operator<<(bool value)
{
    return Store(static_cast<std::uint8_t>(value ? 1 : 0));
}

CSerializer& CSerializer::operator<<(std::string const& text)
{
    return StoreText(text);
}

CSerializer& CSerializer::operator<<(CString const& text)
{
    return StoreText(text.AsStd());
}

CSerializer& CSerializer::StoreText(std::string const& text)
{
    RequireStore(kNotStoring);
    std::size_t const tail = text.empty() ? 0 : text.size() + 1;
    std::uint8_t* const bytes = Append(sizeof(std::uint32_t) + tail);
    Platform::PutLittleEndian(bytes, static_cast<std::uint32_t>(text.size()));
    if (tail != 0)
    {
        std::memcpy(bytes + sizeof(std::uint32_t), text.c_str(), tail);
    }
    return *this;
}

CSerializer& CSerializer::operator>>(char& value)
{
    value = Restore<char>();
    return *this;
}
CSerializer& CSerializer::operator>>(unsigned char& value)
{
    value = Restore<unsigned char>();
    return *this;
}
CSerializer& CSerializer::operator>>(short& value)
{
    value = Restore<short>();
    return *this;
}
CSerializer& CSerializer::operator>>(unsigned short& value)
{
    value = Restore<unsigned short>();
    return *this;
}
CSerializer& CSerializer::operator>>(int& value)
{
    value = Restore<int>();
    return *this;
}
CSerializer& CSerializer::operator>>(unsigned int& value)
{
    value = Restore<unsigned int>();
    return *this;
}
CSerializer& CSerializer::operator>>(long& value)
{
    value = Restore<std::int32_t>();
    return *this;
}
CSerializer& CSerializer::operator>>(unsigned long& value)
{
    value = Restore<std::uint32_t>();
    return *this;
}
CSerializer& CSerializer::operator>>(float& value)
{
    value = Restore<float>();
    return *this;
}
CSerializer& CSerializer::operator>>(double& value)
{
    value = Restore<double>();
    return *this;
}
CSerializer& CSerializer::operator>>(__int64& value)
{
    value = Restore<__int64>();
    return *this;
}
CSerializer& CSerializer::operator>>(bool& value)
{
    value = Restore<std::uint8_t>() != 0;
    return *this;
}

CSerializer& CSerializer::operator>>(std::string& text)
{
    std::size_t const before = m_readPosition;
    auto const length = Restore<std::uint32_t>();
    text = RestoreText(length, before);
    return *this;
}

CSerializer& CSerializer::operator>>(CString& text)
{
    std::size_t const before = m_readPosition;
    auto const length = Restore<std::int32_t>();
    text = CString(RestoreText(length > 0 ? static_cast<std::uint32_t>(length) : 0, before));
    return *this;
}

std::string CSerializer::RestoreText(std::uint32_t length, std::size_t positionBefore)
{
    if (length == 0)
    {
        return {};
    }
    std::size_t const stored = std::size_t{length} + 1;
    if (stored > m_buffer.size() - m_readPosition)
    {
        m_readPosition = positionBefore;
        throw SerializationException(kNotEnough);
    }
    std::uint8_t const* const first = Consume(stored);
    std::uint8_t const* const end = std::find(first, first + length, std::uint8_t{0});
    return {first, end};
}

CSerializer& CSerializer::operator<<(CValue const& value)
{
    return SerializeWith(value);
}
CSerializer& CSerializer::operator>>(CValue& value)
{
    return SerializeWith(value);
}
CSerializer& CSerializer::operator<<(CDataObject const& object)
{
    return SerializeWith(object);
}
CSerializer& CSerializer::operator>>(CDataObject& object)
{
    return SerializeWith(object);
}
CSerializer& CSerializer::operator<<(CFormat const& format)
{
    return SerializeWith(format);
}
CSerializer& CSerializer::operator>>(CFormat& format)
{
    return SerializeWith(format);
}

template <class T>
CSerializer& CSerializer::SerializeWith(T const& stored)
{
    // Serialize is one operation for both directions and so cannot be const; storing changes nothing.
    const_cast<T&>(stored).Serialize(*this);
    return *this;
}

int CSerializer::SaveToBuffer(void* out) const
{
    if (out == nullptr)
    {
        return 0;
    }
    RequireStore("Serializer was opened for the restore operation");
    if (!m_buffer.empty())
    {
        std::memcpy(out, m_buffer.data(), m_buffer.size());
    }
    return GetSavingSize();
}

void CSerializer::LoadFromBuffer(void const* data, int size)
{
    if (data == nullptr || size < 1)
    {
        return;
    }
    RequireRestore("Serializer was opened for the store operation");
    auto const* const first = static_cast<std::uint8_t const*>(data);
    m_buffer.assign(first, first + size);
    m_readPosition = 0;
}

void CSerializer::Clear() noexcept
{
    m_buffer.clear();
    m_readPosition = 0;
}

} // namespace Ostrel::Common
