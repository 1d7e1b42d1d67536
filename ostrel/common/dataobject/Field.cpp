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

#define OSTREL_TYPED_FIELD(T)                                                                                          \
    CField::CField(long fid, char const* name, GetMethod<T> getter, SetMethod<T> setter, CFormat* format,              \
                   char const* getterName, char const* setterName)                                                     \
        : CField(std::type_identity<T>(), fid, name, getter, setter, format, getterName, setterName)                   \
    {}

OSTREL_TYPED_FIELD(CString)
OSTREL_TYPED_FIELD(std::string)
OSTREL_TYPED_FIELD(char)
OSTREL_TYPED_FIELD(unsigned char)
OSTREL_TYPED_FIELD(short)
OSTREL_TYPED_FIELD(unsigned short)
OSTREL_TYPED_FIELD(long)
OSTREL_TYPED_FIELD(unsigned long)
OSTREL_TYPED_FIELD(__int64)
OSTREL_TYPED_FIELD(bool)
OSTREL_TYPED_FIELD(float)
OSTREL_TYPED_FIELD(double)
OSTREL_TYPED_FIELD(CDataObject*)
#undef OSTREL_TYPED_FIELD

} // namespace Ostrel::Common
