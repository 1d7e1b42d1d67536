#include <ostrel/common/format/BoolFormat.h>
#include <ostrel/common/format/CharFormat.h>
#include <ostrel/common/format/DefaultMfcStringFormat.h>
#include <ostrel/common/format/DefaultStlStringFormat.h>
#include <ostrel/common/format/DoubleFormat.h>
#include <ostrel/common/format/EmptyFormat.h>
#include <ostrel/common/format/FloatFormat.h>
#include <ostrel/common/format/Format.h>
#include <ostrel/common/format/Int64Format.h>
#include <ostrel/common/format/LongFormat.h>
#include <ostrel/common/format/ShortFormat.h>
#include <ostrel/common/format/UCharFormat.h>
#include <ostrel/common/format/ULongFormat.h>
#include <ostrel/common/format/UShortFormat.h>
#include <ostrel/common/value/Serializer.h>
#include <ostrel/common/value/Value.h>

namespace Ostrel::Common
{

namespace
{

/// The types of a value and of a format fit: the same, or two text types.
bool Fits(EnType value, EnType format) noexcept
{
    auto const isText = [](EnType type) { return type == TypeMfcString || type == TypeStlString; };
    return value == format || (isText(value) && isText(format));
}

struct DefaultFormats
{
    CDefaultMfcStringFormat mfcString;
    CDefaultStlStringFormat stlString;
    CCharFormat character;
    CUCharFormat uchar;
    CShortFormat shortInteger;
    CUShortFormat ushort;
    CLongFormat longInteger;
    CULongFormat ulong;
    CInt64Format int64;
    CBoolFormat boolean;
    CFloatFormat floating;
    CDoubleFormat doubleFloating;
    CEmptyFormat objectPtr{TypeObjectPtr};
    CEmptyFormat empty{TypeEmpty};
};

} // namespace

CFormat::~CFormat() = default;

CFormat& CFormat::GetDefaultFormat(EnType type)
{
    // Never destroyed: objects that outlive the end of main may still be formatted.
    static DefaultFormats& formats = *new DefaultFormats;
    switch (type)
    {
    case TypeMfcString:
        return formats.mfcString;
    case TypeStlString:
        return formats.stlString;
    case TypeChar:
        return formats.character;
    case TypeUChar:
        return formats.uchar;
    case TypeShort:
        return formats.shortInteger;
    case TypeUShort:
        return formats.ushort;
    case TypeLong:
        return formats.longInteger;
    case TypeULong:
        return formats.ulong;
    case TypeInt64:
        return formats.int64;
    case TypeBool:
        return formats.boolean;
    case TypeFloat:
        return formats.floating;
    case TypeDouble:
        return formats.doubleFloating;
    case TypeObjectPtr:
        return formats.objectPtr;
    case TypeEmpty:
        break;
    }
    return formats.empty;
}

// The generic operations pass a value on to the typed ones.

CString CFormat::FormatMfc(CValue const& value, CDataObject const* object) const
{
    auto const typed = [&]<class T>(std::type_identity<T>)
    { return FormatMfc(static_cast<detail::Argument<T>>(value), object); };
    return Fits(value.GetType(), m_type) ? detail::VisitType(value.GetType(), typed, [] { return CString(); })
                                         : CString();
}

std::string CFormat::FormatStl(CValue const& value, CDataObject const* object) const
{
    auto const typed = [&]<class T>(std::type_identity<T>)
    { return FormatStl(static_cast<detail::Argument<T>>(value), object); };
    return Fits(value.GetType(), m_type) ? detail::VisitType(value.GetType(), typed, [] { return std::string(); })
                                         : std::string();
}

// A typed write into the value is just what is wanted: it takes an empty value and one of the type, and leaves another.

bool CFormat::ParseMfc(CString const& text, CValue& value, CDataObject const* object) const
{
    auto const typed = [&]<class T>(std::type_identity<T>)
    {
        T parsed{};
        if (!ParseMfc(text, parsed, object))
        {
            return false;
        }
        value = parsed;
        return true;
    };
    return detail::VisitType(m_type, typed, [] { return false; });
}

bool CFormat::ParseStl(std::string const& text, CValue& value, CDataObject const* object) const
{
    auto const typed = [&]<class T>(std::type_identity<T>)
    {
        T parsed{};
        if (!ParseStl(text, parsed, object))
        {
            return false;
        }
        value = parsed;
        return true;
    };
    return detail::VisitType(m_type, typed, [] { return false; });
}

bool CFormat::IsDate() const
{
    return false;
}

bool CFormat::IsEnum() const
{
    return false;
}

std::string CFormat::GetFormatName()
{
    return {};
}

bool CFormat::IsSerializableType() const
{
    return false;
}

void CFormat::Serialize(CSerializer& serializer)
{
    if (serializer.GetMode() == CSerializer::ModeStore)
    {
        serializer << GetSerializeVertion();
        return;
    }
    int version = 0;
    serializer >> version;
}

// The typed operations of a type that the format does not handle.

#define OSTREL_UNHANDLED(T)                                                                                            \
    CString CFormat::FormatMfc(detail::Argument<T> /*value*/, CDataObject const* /*object*/) const                     \
    {                                                                                                                  \
        return {};                                                                                                     \
    }                                                                                                                  \
    bool CFormat::ParseMfc(CString const& /*text*/, T& /*value*/, CDataObject const* /*object*/) const                 \
    {                                                                                                                  \
        return false;                                                                                                  \
    }                                                                                                                  \
    std::string CFormat::FormatStl(detail::Argument<T> /*value*/, CDataObject const* /*object*/) const                 \
    {                                                                                                                  \
        return {};                                                                                                     \
    }                                                                                                                  \
    bool CFormat::ParseStl(std::string const& /*text*/, T& /*value*/, CDataObject const* /*object*/) const             \
    {                                                                                                                  \
        return false;                                                                                                  \
    }

OSTREL_UNHANDLED(CString)
OSTREL_UNHANDLED(std::string)
OSTREL_UNHANDLED(char)
OSTREL_UNHANDLED(unsigned char)
OSTREL_UNHANDLED(short)
OSTREL_UNHANDLED(unsigned short)
OSTREL_UNHANDLED(long)
OSTREL_UNHANDLED(unsigned long)
OSTREL_UNHANDLED(__int64)
OSTREL_UNHANDLED(bool)
OSTREL_UNHANDLED(float)
OSTREL_UNHANDLED(double)
OSTREL_UNHANDLED(CDataObject*)
#undef OSTREL_UNHANDLED

} // namespace Ostrel::Common
