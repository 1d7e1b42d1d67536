/// @file
/// One value of any field type.
#pragma once

#include <compare>
#include <cstdint>
#include <cstring>
#include <string>

#include <ostrel/common/value/Type.h>
#include <ostrel/common/value/detail/TypeTraits.h>
#include <ostrel/platform/base/Export.h>
#include <ostrel/platform/base/Narrow.h>
#include <ostrel/platform/base/String.h>
#include <ostrel/platform/base/Types.h>

namespace Ostrel::Common
{

class CFormat;
class CSerializer;

/// One value of any field type: a payload of 64 bits and a tag. A value is strict: it never converts. A typed read of
/// another type yields zero or an empty text, a typed write of another type is ignored, and values of different types
/// are neither equal nor ordered.
///
/// A value is used by one thread at a time; copies are independent. Scalars never allocate; each of the two text types
/// owns one string object.
class OSTREL_COMMON_API CValue
{
public:
    /// An empty value.
    CValue() noexcept = default;
    /// A value with the type and a copy of the payload.
    CValue(CValue const& other);
    /// Takes the payload; the other value becomes empty.
    CValue(CValue&& other) noexcept;
    ~CValue() { Release(); }

    ///@{
    /// A value of the argument's type. `long` and `unsigned long` keep their low 32 bits. An object is not owned.
    CValue(CString const& value);
    CValue(std::string const& value);
    CValue(CString&& value);
    CValue(std::string&& value);
    CValue(char value) noexcept : m_type(TypeChar) { Put(value); }
    CValue(unsigned char value) noexcept : m_type(TypeUChar) { Put(value); }
    CValue(short value) noexcept : m_type(TypeShort) { Put(value); }
    CValue(unsigned short value) noexcept : m_type(TypeUShort) { Put(value); }
    CValue(long value) noexcept : m_type(TypeLong) { Put(value); }
    CValue(unsigned long value) noexcept : m_type(TypeULong) { Put(value); }
    CValue(__int64 value) noexcept : m_type(TypeInt64) { Put(value); }
    CValue(bool value) noexcept : m_type(TypeBool) { Put(value); }
    CValue(float value) noexcept : m_type(TypeFloat) { Put(value); }
    CValue(double value) noexcept : m_type(TypeDouble) { Put(value); }
    CValue(CDataObject* value) noexcept : m_type(TypeObjectPtr) { Put(value); }
    ///@}
    /// A plain character pointer, or any pointer but a data object's, would become a `bool`: say which text type is
    /// meant, CValue(std::string("text")) or CValue(CString("text")).
    template <detail::ForeignPointer P>
    CValue(P) = delete;

    /// The type of the payload; TypeEmpty for an empty value.
    [[nodiscard]] EnType GetType() const noexcept { return m_type; }

    ///@{
    /// Takes the other value's type and payload, whatever the type was.
    CValue& operator=(CValue const& other);
    CValue& operator=(CValue&& other) noexcept;
    ///@}

    ///@{
    /// Typed writes: replace the payload of a value of that type, or give an empty value the type and the payload.
    /// Nothing happens to a value of any other type.
    CValue& operator=(CString const& value);
    CValue& operator=(std::string const& value);
    CValue& operator=(char value) noexcept { return Assign(value); }
    CValue& operator=(unsigned char value) noexcept { return Assign(value); }
    CValue& operator=(short value) noexcept { return Assign(value); }
    CValue& operator=(unsigned short value) noexcept { return Assign(value); }
    CValue& operator=(long value) noexcept { return Assign(value); }
    CValue& operator=(unsigned long value) noexcept { return Assign(value); }
    CValue& operator=(__int64 value) noexcept { return Assign(value); }
    CValue& operator=(bool value) noexcept { return Assign(value); }
    CValue& operator=(float value) noexcept { return Assign(value); }
    CValue& operator=(double value) noexcept { return Assign(value); }
    CValue& operator=(CDataObject* value) noexcept { return Assign(value); }
    template <detail::ForeignPointer P>
    CValue& operator=(P) = delete;
    ///@}

    ///@{
    /// Typed reads: the payload when the type is exactly that one, else zero, false, null or a shared empty text.
    /// References stay valid until the value changes.
    operator CString const&() const noexcept;
    operator std::string const&() const noexcept;
    operator char() const noexcept { return Read<char>(); }
    operator unsigned char() const noexcept { return Read<unsigned char>(); }
    operator short() const noexcept { return Read<short>(); }
    operator unsigned short() const noexcept { return Read<unsigned short>(); }
    operator long() const noexcept { return Read<long>(); }
    operator unsigned long() const noexcept { return Read<unsigned long>(); }
    operator __int64() const noexcept { return Read<__int64>(); }
    operator bool() const noexcept { return Read<bool>(); }
    operator float() const noexcept { return Read<float>(); }
    operator double() const noexcept { return Read<double>(); }
    operator CDataObject*() const noexcept { return Read<CDataObject*>(); }
    ///@}

    /// Equality of type and payload. Two empty values are equal. CString compares up to its first zero byte.
    [[nodiscard]] friend bool operator==(CValue const& a, CValue const& b) noexcept { return a.EqualsValue(b); }
    /// The order of the payloads; unordered when the types differ, when both are empty, and for not-a-number.
    [[nodiscard]] friend std::partial_ordering operator<=>(CValue const& a, CValue const& b) noexcept
    {
        return a.OrderValue(b);
    }

    ///@{
    /// The same against an operand of one type; a value of any other type is neither equal to it nor ordered.
    [[nodiscard]] bool operator==(CString const& operand) const noexcept { return Equals(operand); }
    [[nodiscard]] bool operator==(std::string const& operand) const noexcept { return Equals(operand); }
    [[nodiscard]] bool operator==(char operand) const noexcept { return Equals(operand); }
    [[nodiscard]] bool operator==(unsigned char operand) const noexcept { return Equals(operand); }
    [[nodiscard]] bool operator==(short operand) const noexcept { return Equals(operand); }
    [[nodiscard]] bool operator==(unsigned short operand) const noexcept { return Equals(operand); }
    [[nodiscard]] bool operator==(long operand) const noexcept { return Equals(operand); }
    [[nodiscard]] bool operator==(unsigned long operand) const noexcept { return Equals(operand); }
    [[nodiscard]] bool operator==(__int64 operand) const noexcept { return Equals(operand); }
    [[nodiscard]] bool operator==(bool operand) const noexcept { return Equals(operand); }
    [[nodiscard]] bool operator==(float operand) const noexcept { return Equals(operand); }
    [[nodiscard]] bool operator==(double operand) const noexcept { return Equals(operand); }
    [[nodiscard]] bool operator==(CDataObject* operand) const noexcept { return Equals(operand); }
    template <detail::ForeignPointer P>
    bool operator==(P) const = delete;
    [[nodiscard]] std::partial_ordering operator<=>(CString const& operand) const noexcept { return Order(operand); }
    [[nodiscard]] std::partial_ordering operator<=>(std::string const& operand) const noexcept
    {
        return Order(operand);
    }
    [[nodiscard]] std::partial_ordering operator<=>(char operand) const noexcept { return Order(operand); }
    [[nodiscard]] std::partial_ordering operator<=>(unsigned char operand) const noexcept { return Order(operand); }
    [[nodiscard]] std::partial_ordering operator<=>(short operand) const noexcept { return Order(operand); }
    [[nodiscard]] std::partial_ordering operator<=>(unsigned short operand) const noexcept { return Order(operand); }
    [[nodiscard]] std::partial_ordering operator<=>(long operand) const noexcept { return Order(operand); }
    [[nodiscard]] std::partial_ordering operator<=>(unsigned long operand) const noexcept { return Order(operand); }
    [[nodiscard]] std::partial_ordering operator<=>(__int64 operand) const noexcept { return Order(operand); }
    [[nodiscard]] std::partial_ordering operator<=>(bool operand) const noexcept { return Order(operand); }
    [[nodiscard]] std::partial_ordering operator<=>(float operand) const noexcept { return Order(operand); }
    [[nodiscard]] std::partial_ordering operator<=>(double operand) const noexcept { return Order(operand); }
    [[nodiscard]] std::partial_ordering operator<=>(CDataObject* operand) const noexcept { return Order(operand); }
    template <detail::ForeignPointer P>
    std::partial_ordering operator<=>(P) const = delete;
    ///@}

    ///@{
    /// The text of the value through a format; a null format means the type's default format, and for the text types
    /// the text itself. Empty for an empty value and for a type that the format does not handle.
    [[nodiscard]] std::string FormatStl(CFormat const* format) const;
    [[nodiscard]] CString FormatMfc(CFormat const* format) const;
    ///@}

    ///@{
    /// Reads a text as the value's own type. Returns false and changes nothing if the value is empty or the format
    /// rejects the text. A null format as above.
    bool ParseStl(CFormat const* format, std::string const& text);
    bool ParseMfc(CFormat const* format, CString const& text);
    ///@}

    /// Stores the record (version, type, payload) or restores one, as the serializer's mode tells. An object pointer
    /// is stored without its payload and comes back empty. On restoring, an exception of the serializer leaves the
    /// value empty.
    void Serialize(CSerializer& serializer);
    /// The version of the record that is written. Any later version is read as this one.
    [[nodiscard]] static unsigned char GetSerializeVertion() noexcept { return 1; }

    ///@{
    /// The texts that a read of the wrong type yields; they live as long as the process.
    [[nodiscard]] static CString const& GetEmptyMfcString() noexcept;
    [[nodiscard]] static std::string const& GetEmptyStlString() noexcept;
    ///@}

private:
    union Payload {
        __int64 asInt64;
        CString* asMfcString;
        std::string* asStlString;
        char asChar;
        unsigned char asUChar;
        short asShort;
        unsigned short asUShort;
        std::int32_t asLong;
        std::uint32_t asULong;
        bool asBool;
        float asFloat;
        double asDouble;
        CDataObject* asObjectPtr;
    };

    void Put(char value) noexcept { m_payload.asChar = value; }
    void Put(unsigned char value) noexcept { m_payload.asUChar = value; }
    void Put(short value) noexcept { m_payload.asShort = value; }
    void Put(unsigned short value) noexcept { m_payload.asUShort = value; }
    void Put(long value) noexcept { m_payload.asLong = Platform::NarrowToInt32(value); }
    void Put(unsigned long value) noexcept { m_payload.asULong = Platform::NarrowToUInt32(value); }
    void Put(__int64 value) noexcept { m_payload.asInt64 = value; }
    void Put(bool value) noexcept { m_payload.asBool = value; }
    void Put(float value) noexcept { m_payload.asFloat = value; }
    void Put(double value) noexcept { m_payload.asDouble = value; }
    void Put(CDataObject* value) noexcept { m_payload.asObjectPtr = value; }

    /// The payload of a value that is known to have the type.
    template <detail::FieldValue T>
    [[nodiscard]] detail::Argument<T> Get() const noexcept;
    template <detail::FieldValue T>
    [[nodiscard]] T Read() const noexcept
    {
        return m_type == detail::kTypeOf<T> ? Get<T>() : T();
    }
    template <detail::FieldValue T>
    CValue& Assign(T value) noexcept
    {
        if (m_type == detail::kTypeOf<T> || m_type == TypeEmpty)
        {
            Put(value);
            m_type = detail::kTypeOf<T>;
        }
        return *this;
    }
    template <detail::FieldValue T>
    [[nodiscard]] bool Equals(T const& operand) const noexcept;
    template <detail::FieldValue T>
    [[nodiscard]] std::partial_ordering Order(T const& operand) const noexcept;
    [[nodiscard]] bool EqualsValue(CValue const& other) const noexcept;
    [[nodiscard]] std::partial_ordering OrderValue(CValue const& other) const noexcept;

    void SetMfcString(CString const& value);
    void SetStlString(std::string const& value);
    template <detail::FieldValue T>
    void Restore(CSerializer& serializer);
    void Store(CSerializer& serializer) const;
    void Release() noexcept
    {
        if (m_type == TypeMfcString || m_type == TypeStlString)
        {
            DeleteText();
        }
    }
    void DeleteText() noexcept;

    Payload m_payload{0};
    EnType m_type = TypeEmpty;
};

template <detail::FieldValue T>
inline detail::Argument<T> CValue::Get() const noexcept
{
    if constexpr (std::same_as<T, CString>)
    {
        return m_payload.asMfcString != nullptr ? *m_payload.asMfcString : GetEmptyMfcString();
    }
    else if constexpr (std::same_as<T, std::string>)
    {
        return m_payload.asStlString != nullptr ? *m_payload.asStlString : GetEmptyStlString();
    }
    else if constexpr (std::same_as<T, char>)
    {
        return m_payload.asChar;
    }
    else if constexpr (std::same_as<T, unsigned char>)
    {
        return m_payload.asUChar;
    }
    else if constexpr (std::same_as<T, short>)
    {
        return m_payload.asShort;
    }
    else if constexpr (std::same_as<T, unsigned short>)
    {
        return m_payload.asUShort;
    }
    else if constexpr (std::same_as<T, long>)
    {
        return m_payload.asLong;
    }
    else if constexpr (std::same_as<T, unsigned long>)
    {
        return m_payload.asULong;
    }
    else if constexpr (std::same_as<T, __int64>)
    {
        return m_payload.asInt64;
    }
    else if constexpr (std::same_as<T, bool>)
    {
        return m_payload.asBool;
    }
    else if constexpr (std::same_as<T, float>)
    {
        return m_payload.asFloat;
    }
    else if constexpr (std::same_as<T, double>)
    {
        return m_payload.asDouble;
    }
    else
    {
        return m_payload.asObjectPtr;
    }
}

namespace detail
{

/// The order of two payloads of one type. Byte texts of the framework compare as unsigned bytes up to the first zero.
template <FieldValue T>
[[nodiscard]] std::partial_ordering OrderPayloads(T const& a, T const& b) noexcept
{
    if constexpr (std::same_as<T, CString>)
    {
        return std::strcmp(a.GetString(), b.GetString()) <=> 0;
    }
    else if constexpr (std::same_as<T, long>)
    {
        return Platform::NarrowToInt32(a) <=> Platform::NarrowToInt32(b);
    }
    else if constexpr (std::same_as<T, unsigned long>)
    {
        return Platform::NarrowToUInt32(a) <=> Platform::NarrowToUInt32(b);
    }
    else if constexpr (std::same_as<T, CDataObject*>)
    {
        return reinterpret_cast<std::uintptr_t>(a) <=> reinterpret_cast<std::uintptr_t>(b);
    }
    else
    {
        return a <=> b;
    }
}

} // namespace detail

template <detail::FieldValue T>
inline bool CValue::Equals(T const& operand) const noexcept
{
    return m_type == detail::kTypeOf<T> && detail::OrderPayloads<T>(Get<T>(), operand) == 0;
}

template <detail::FieldValue T>
inline std::partial_ordering CValue::Order(T const& operand) const noexcept
{
    return m_type == detail::kTypeOf<T> ? detail::OrderPayloads<T>(Get<T>(), operand)
                                        : std::partial_ordering::unordered;
}

inline std::partial_ordering CValue::OrderValue(CValue const& other) const noexcept
{
    if (m_type != other.m_type)
    {
        return std::partial_ordering::unordered;
    }
    return detail::VisitType(
        m_type,
        [&]<class T>(std::type_identity<T>) -> std::partial_ordering
        { return detail::OrderPayloads<T>(Get<T>(), other.Get<T>()); },
        [] { return std::partial_ordering::unordered; });
}

inline bool CValue::EqualsValue(CValue const& other) const noexcept
{
    return m_type == other.m_type && (m_type == TypeEmpty || OrderValue(other) == 0);
}

} // namespace Ostrel::Common
