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

CString CFormat::FormatMfc(CDataObject* /*value*/, CDataObject const* /*object*/) const
{
    return {};
}
CString CFormat::FormatMfc(double /*value*/, CDataObject const* /*object*/) const
{
    return {};
}
CString CFormat::FormatMfc(float /*value*/, CDataObject const* /*object*/) const
{
    return {};
}
CString CFormat::FormatMfc(bool /*value*/, CDataObject const* /*object*/) const
{
    return {};
}
CString CFormat::FormatMfc(__int64 /*value*/, CDataObject const* /*object*/) const
{
    return {};
}
CString CFormat::FormatMfc(unsigned long /*value*/, CDataObject const* /*object*/) const
{
    return {};
}
CString CFormat::FormatMfc(long /*value*/, CDataObject const* /*object*/) const
{
    return {};
}
CString CFormat::FormatMfc(unsigned short /*value*/, CDataObject const* /*object*/) const
{
    return {};
}
CString CFormat::FormatMfc(short /*value*/, CDataObject const* /*object*/) const
{
    return {};
}
CString CFormat::FormatMfc(unsigned char /*value*/, CDataObject const* /*object*/) const
{
    return {};
}
CString CFormat::FormatMfc(char /*value*/, CDataObject const* /*object*/) const
{
    return {};
}
CString CFormat::FormatMfc(std::string const& /*value*/, CDataObject const* /*object*/) const
{
    return {};
}
CString CFormat::FormatMfc(CString const& /*value*/, CDataObject const* /*object*/) const
{
    return {};
}
std::string CFormat::FormatStl(CDataObject* /*value*/, CDataObject const* /*object*/) const
{
    return {};
}
std::string CFormat::FormatStl(double /*value*/, CDataObject const* /*object*/) const
{
    return {};
}
std::string CFormat::FormatStl(float /*value*/, CDataObject const* /*object*/) const
{
    return {};
}
std::string CFormat::FormatStl(bool /*value*/, CDataObject const* /*object*/) const
{
    return {};
}
std::string CFormat::FormatStl(__int64 /*value*/, CDataObject const* /*object*/) const
{
    return {};
}
std::string CFormat::FormatStl(unsigned long /*value*/, CDataObject const* /*object*/) const
{
    return {};
}
std::string CFormat::FormatStl(long /*value*/, CDataObject const* /*object*/) const
{
    return {};
}
std::string CFormat::FormatStl(unsigned short /*value*/, CDataObject const* /*object*/) const
{
    return {};
}
std::string CFormat::FormatStl(short /*value*/, CDataObject const* /*object*/) const
{
    return {};
}
std::string CFormat::FormatStl(unsigned char /*value*/, CDataObject const* /*object*/) const
{
    return {};
}
std::string CFormat::FormatStl(char /*value*/, CDataObject const* /*object*/) const
{
    return {};
}
std::string CFormat::FormatStl(std::string const& /*value*/, CDataObject const* /*object*/) const
{
    return {};
}
std::string CFormat::FormatStl(CString const& /*value*/, CDataObject const* /*object*/) const
{
    return {};
}
bool CFormat::ParseMfc(CString const& /*text*/, double& /*value*/, CDataObject const* /*object*/) const
{
    return false;
}
bool CFormat::ParseMfc(CString const& /*text*/, CDataObject*& /*value*/, CDataObject const* /*object*/) const
{
    return false;
}
bool CFormat::ParseMfc(CString const& /*text*/, float& /*value*/, CDataObject const* /*object*/) const
{
    return false;
}
bool CFormat::ParseMfc(CString const& /*text*/, bool& /*value*/, CDataObject const* /*object*/) const
{
    return false;
}
bool CFormat::ParseMfc(CString const& /*text*/, __int64& /*value*/, CDataObject const* /*object*/) const
{
    return false;
}
bool CFormat::ParseMfc(CString const& /*text*/, unsigned long& /*value*/, CDataObject const* /*object*/) const
{
    return false;
}
bool CFormat::ParseMfc(CString const& /*text*/, long& /*value*/, CDataObject const* /*object*/) const
{
    return false;
}
bool CFormat::ParseMfc(CString const& /*text*/, unsigned short& /*value*/, CDataObject const* /*object*/) const
{
    return false;
}
bool CFormat::ParseMfc(CString const& /*text*/, short& /*value*/, CDataObject const* /*object*/) const
{
    return false;
}
bool CFormat::ParseMfc(CString const& /*text*/, unsigned char& /*value*/, CDataObject const* /*object*/) const
{
    return false;
}
bool CFormat::ParseMfc(CString const& /*text*/, char& /*value*/, CDataObject const* /*object*/) const
{
    return false;
}
bool CFormat::ParseMfc(CString const& /*text*/, std::string& /*value*/, CDataObject const* /*object*/) const
{
    return false;
}
bool CFormat::ParseMfc(CString const& /*text*/, CString& /*value*/, CDataObject const* /*object*/) const
{
    return false;
}
bool CFormat::ParseStl(std::string const& /*text*/, double& /*value*/, CDataObject const* /*object*/) const
{
    return false;
}
bool CFormat::ParseStl(std::string const& /*text*/, CDataObject*& /*value*/, CDataObject const* /*object*/) const
{
    return false;
}
bool CFormat::ParseStl(std::string const& /*text*/, float& /*value*/, CDataObject const* /*object*/) const
{
    return false;
}
bool CFormat::ParseStl(std::string const& /*text*/, bool& /*value*/, CDataObject const* /*object*/) const
{
    return false;
}
bool CFormat::ParseStl(std::string const& /*text*/, __int64& /*value*/, CDataObject const* /*object*/) const
{
    return false;
}
bool CFormat::ParseStl(std::string const& /*text*/, unsigned long& /*value*/, CDataObject const* /*object*/) const
{
    return false;
}
bool CFormat::ParseStl(std::string const& /*text*/, long& /*value*/, CDataObject const* /*object*/) const
{
    return false;
}
bool CFormat::ParseStl(std::string const& /*text*/, unsigned short& /*value*/, CDataObject const* /*object*/) const
{
    return false;
}
bool CFormat::ParseStl(std::string const& /*text*/, short& /*value*/, CDataObject const* /*object*/) const
{
    return false;
}
bool CFormat::ParseStl(std::string const& /*text*/, unsigned char& /*value*/, CDataObject const* /*object*/) const
{
    return false;
}
bool CFormat::ParseStl(std::string const& /*text*/, char& /*value*/, CDataObject const* /*object*/) const
{
    return false;
}
bool CFormat::ParseStl(std::string const& /*text*/, std::string& /*value*/, CDataObject const* /*object*/) const
{
    return false;
}
bool CFormat::ParseStl(std::string const& /*text*/, CString& /*value*/, CDataObject const* /*object*/) const
{
    return false;
}

} // namespace Ostrel::Common
