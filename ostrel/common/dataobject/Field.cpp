#include <ostrel/common/dataobject/DataObject.h>
#include <ostrel/common/dataobject/Field.h>
#include <ostrel/common/format/Format.h>
#include <ostrel/platform/base/Narrow.h>

namespace Ostrel::Common
{

namespace
{

std::string TextOf(char const* text)
{
    return text != nullptr ? text : "";
}

/// Declaration macros write the absent accessor as 0, which becomes the text "0".
std::string AccessorName(char const* name)
{
    return name != nullptr && *name != '0' ? name : "";
}

} // namespace

CField::CField() noexcept : m_fid(CDataObject::kNoField), m_type(TypeEmpty) {}

CField::CField(CField const& other)
    : m_fid(other.m_fid),
      m_name(other.m_name),
      m_type(other.m_type),
      m_hasGetter(other.m_hasGetter),
      m_hasSetter(other.m_hasSetter),
      m_format(other.m_format != nullptr ? other.m_format->Clone() : nullptr),
      m_getterName(other.m_getterName),
      m_setterName(other.m_setterName),
      m_getter(other.m_getter),
      m_setter(other.m_setter)
{}

CField::~CField() = default;

CField* CField::Clone() const
{
    return new CField(*this);
}

CField::CField(long fid, char const* name, EnType type, CFormat* format)
    : m_fid(Platform::NarrowLong(fid)), m_name(TextOf(name)), m_type(type), m_format(format)
{}

template <class T>
CField::CField(std::type_identity<T>, long fid, char const* name, GetMethod<T> getter, SetMethod<T> setter,
               CFormat* format, char const* getterName, char const* setterName)
    : m_fid(Platform::NarrowLong(fid)),
      m_name(TextOf(name)),
      m_type(detail::kTypeOf<T>),
      m_hasGetter(getter != nullptr),
      m_hasSetter(setter != nullptr),
      m_format(format),
      m_getterName(AccessorName(getterName)),
      m_setterName(AccessorName(setterName)),
      m_getter(getter),
      m_setter(setter)
{}

CField::CField(long fid, char const* name, GetMethod<CString> getter, SetMethod<CString> setter, CFormat* format,
               char const* getterName, char const* setterName)
    : CField(std::type_identity<CString>(), fid, name, getter, setter, format, getterName, setterName)
{}

CField::CField(long fid, char const* name, GetMethod<std::string> getter, SetMethod<std::string> setter,
               CFormat* format, char const* getterName, char const* setterName)
    : CField(std::type_identity<std::string>(), fid, name, getter, setter, format, getterName, setterName)
{}

CField::CField(long fid, char const* name, GetMethod<char> getter, SetMethod<char> setter, CFormat* format,
               char const* getterName, char const* setterName)
    : CField(std::type_identity<char>(), fid, name, getter, setter, format, getterName, setterName)
{}

CField::CField(long fid, char const* name, GetMethod<unsigned char> getter, SetMethod<unsigned char> setter,
               CFormat* format, char const* getterName, char const* setterName)
    : CField(std::type_identity<unsigned char>(), fid, name, getter, setter, format, getterName, setterName)
{}

CField::CField(long fid, char const* name, GetMethod<short> getter, SetMethod<short> setter, CFormat* format,
               char const* getterName, char const* setterName)
    : CField(std::type_identity<short>(), fid, name, getter, setter, format, getterName, setterName)
{}

CField::CField(long fid, char const* name, GetMethod<unsigned short> getter, SetMethod<unsigned short> setter,
               CFormat* format, char const* getterName, char const* setterName)
    : CField(std::type_identity<unsigned short>(), fid, name, getter, setter, format, getterName, setterName)
{}

CField::CField(long fid, char const* name, GetMethod<long> getter, SetMethod<long> setter, CFormat* format,
               char const* getterName, char const* setterName)
    : CField(std::type_identity<long>(), fid, name, getter, setter, format, getterName, setterName)
{}

CField::CField(long fid, char const* name, GetMethod<unsigned long> getter, SetMethod<unsigned long> setter,
               CFormat* format, char const* getterName, char const* setterName)
    : CField(std::type_identity<unsigned long>(), fid, name, getter, setter, format, getterName, setterName)
{}

CField::CField(long fid, char const* name, GetMethod<__int64> getter, SetMethod<__int64> setter, CFormat* format,
               char const* getterName, char const* setterName)
    : CField(std::type_identity<__int64>(), fid, name, getter, setter, format, getterName, setterName)
{}

CField::CField(long fid, char const* name, GetMethod<bool> getter, SetMethod<bool> setter, CFormat* format,
               char const* getterName, char const* setterName)
    : CField(std::type_identity<bool>(), fid, name, getter, setter, format, getterName, setterName)
{}

CField::CField(long fid, char const* name, GetMethod<float> getter, SetMethod<float> setter, CFormat* format,
               char const* getterName, char const* setterName)
    : CField(std::type_identity<float>(), fid, name, getter, setter, format, getterName, setterName)
{}

CField::CField(long fid, char const* name, GetMethod<double> getter, SetMethod<double> setter, CFormat* format,
               char const* getterName, char const* setterName)
    : CField(std::type_identity<double>(), fid, name, getter, setter, format, getterName, setterName)
{}

CField::CField(long fid, char const* name, GetMethod<CDataObject*> getter, SetMethod<CDataObject*> setter,
               CFormat* format, char const* getterName, char const* setterName)
    : CField(std::type_identity<CDataObject*>(), fid, name, getter, setter, format, getterName, setterName)
{}

} // namespace Ostrel::Common
