#include <utility>

#include <ostrel/common/format/Format.h>
#include <ostrel/common/value/Serializer.h>
#include <ostrel/common/value/Value.h>

namespace Ostrel::Common
{

static_assert(sizeof(CValue) == 16, "a value is one payload of 64 bits and its type");

CValue::CValue(CValue const& other) : m_payload(other.m_payload), m_type(other.m_type)
{
    if (m_type == TypeMfcString)
    {
        m_payload.asMfcString = new CString(other.Get<CString>());
    }
    else if (m_type == TypeStlString)
    {
        m_payload.asStlString = new std::string(other.Get<std::string>());
    }
}

CValue::CValue(CValue&& other) noexcept
    : m_payload(std::exchange(other.m_payload, Payload{0})), m_type(std::exchange(other.m_type, TypeEmpty))
{}

CValue::CValue(CString const& value) : m_type(TypeMfcString)
{
    m_payload.asMfcString = new CString(value);
}

CValue::CValue(std::string const& value) : m_type(TypeStlString)
{
    m_payload.asStlString = new std::string(value);
}

CValue::CValue(CString&& value) : m_type(TypeMfcString)
{
    m_payload.asMfcString = new CString(std::move(value));
}

CValue::CValue(std::string&& value) : m_type(TypeStlString)
{
    m_payload.asStlString = new std::string(std::move(value));
}

CValue& CValue::operator=(CValue const& other)
{
    if (this != &other)
    {
        *this = CValue(other);
    }
    return *this;
}

CValue& CValue::operator=(CValue&& other) noexcept
{
    if (this != &other)
    {
        Release();
        m_payload = std::exchange(other.m_payload, Payload{0});
        m_type = std::exchange(other.m_type, TypeEmpty);
    }
    return *this;
}

CValue& CValue::operator=(CString const& value)
{
    if (m_type == TypeEmpty)
    {
        return *this = CValue(value);
    }
    SetMfcString(value);
    return *this;
}

CValue& CValue::operator=(std::string const& value)
{
    if (m_type == TypeEmpty)
    {
        return *this = CValue(value);
    }
    SetStlString(value);
    return *this;
}

void CValue::SetMfcString(CString const& value)
{
    if (m_type == TypeMfcString)
    {
        *m_payload.asMfcString = value;
    }
}

void CValue::SetStlString(std::string const& value)
{
    if (m_type == TypeStlString)
    {
        *m_payload.asStlString = value;
    }
}

void CValue::DeleteText() noexcept
{
    if (m_type == TypeMfcString)
    {
        delete m_payload.asMfcString;
    }
    else
    {
        delete m_payload.asStlString;
    }
}

CValue::operator CString const&() const noexcept
{
    return m_type == TypeMfcString ? Get<CString>() : GetEmptyMfcString();
}

CValue::operator std::string const&() const noexcept
{
    return m_type == TypeStlString ? Get<std::string>() : GetEmptyStlString();
}

CString const& CValue::GetEmptyMfcString() noexcept
{
    static CString const empty;
    return empty;
}

std::string const& CValue::GetEmptyStlString() noexcept
{
    static std::string const empty;
    return empty;
}

namespace
{

CFormat const& FormatOrDefault(CFormat const* format, EnType type)
{
    return format != nullptr ? *format : CFormat::GetDefaultFormat(type);
}

std::string const& AsStl(std::string const& text) noexcept
{
    return text;
}

std::string const& AsStl(CString const& text) noexcept
{
    return text.AsStd();
}

} // namespace

std::string CValue::FormatStl(CFormat const* format) const
{
    auto const typed = [&]<class T>(std::type_identity<T>) -> std::string
    {
        if constexpr (detail::FieldText<T>)
        {
            return format != nullptr ? format->FormatStl(Get<T>(), nullptr) : AsStl(Get<T>());
        }
        else
        {
            return FormatOrDefault(format, m_type).FormatStl(Get<T>(), nullptr);
        }
    };
    return detail::VisitType(m_type, typed, [] { return std::string(); });
}

CString CValue::FormatMfc(CFormat const* format) const
{
    auto const typed = [&]<class T>(std::type_identity<T>) -> CString
    {
        if constexpr (detail::FieldText<T>)
        {
            return format != nullptr ? format->FormatMfc(Get<T>(), nullptr) : CString(AsStl(Get<T>()));
        }
        else
        {
            return FormatOrDefault(format, m_type).FormatMfc(Get<T>(), nullptr);
        }
    };
    return detail::VisitType(m_type, typed, [] { return CString(); });
}

bool CValue::ParseStl(CFormat const* format, std::string const& text)
{
    auto const typed = [&]<class T>(std::type_identity<T>)
    {
        T parsed{};
        if constexpr (detail::FieldText<T>)
        {
            if (format == nullptr)
            {
                *this = T(text);
                return true;
            }
        }
        if (!FormatOrDefault(format, m_type).ParseStl(text, parsed, nullptr))
        {
            return false;
        }
        *this = parsed;
        return true;
    };
    return detail::VisitType(m_type, typed, [] { return false; });
}

bool CValue::ParseMfc(CFormat const* format, CString const& text)
{
    auto const typed = [&]<class T>(std::type_identity<T>)
    {
        T parsed{};
        if constexpr (detail::FieldText<T>)
        {
            if (format == nullptr)
            {
                *this = T(text);
                return true;
            }
        }
        if (!FormatOrDefault(format, m_type).ParseMfc(text, parsed, nullptr))
        {
            return false;
        }
        *this = parsed;
        return true;
    };
    return detail::VisitType(m_type, typed, [] { return false; });
}

void CValue::Serialize(CSerializer& serializer)
{
    if (serializer.GetMode() == CSerializer::ModeStore)
    {
        Store(serializer);
        return;
    }
    *this = CValue();
    unsigned char version = 0;
    serializer >> version;
    if (version == 0)
    {
        return;
    }
    unsigned char type = 0;
    serializer >> type;
    detail::VisitType(
        static_cast<EnType>(type), [&]<class T>(std::type_identity<T>) { Restore<T>(serializer); }, [] {});
}

void CValue::Store(CSerializer& serializer) const
{
    serializer << GetSerializeVertion() << static_cast<unsigned char>(m_type);
    detail::VisitType(
        m_type,
        [&]<class T>(std::type_identity<T>)
        {
            if constexpr (!std::same_as<T, CDataObject*>)
            {
                serializer << Get<T>();
            }
        },
        [] {});
}

template <detail::FieldValue T>
void CValue::Restore(CSerializer& serializer)
{
    if constexpr (!std::same_as<T, CDataObject*>)
    {
        T payload{};
        serializer >> payload;
        *this = CValue(std::move(payload));
    }
}

} // namespace Ostrel::Common
