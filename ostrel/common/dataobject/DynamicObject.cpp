#include <ostrel/common/dataobject/DynamicObject.h>
#include <ostrel/common/dataobject/Field.h>
#include <ostrel/common/dataobject/detail/TextAccess.h>
#include <ostrel/common/format/Format.h>
#include <ostrel/common/thread/Lock.h>
#include <ostrel/platform/base/CallbackErrors.h>
#include <ostrel/platform/base/Narrow.h>

namespace Ostrel::Common
{

namespace
{

bool IsReserved(long fid) noexcept
{
    return fid == CDataObject::kAllFields || fid == CDataObject::kNoField;
}

} // namespace

CDynamicObject::~CDynamicObject()
{
    Platform::CallbackErrors errors;
    Platform::CallbackErrors::Keep([this]() { NotifyDelete(); });
    errors.Report();
}

bool CDynamicObject::DeclareField(CField* field)
{
    if (field == nullptr || IsReserved(field->GetFid()))
    {
        return false;
    }
    CLock const lock(m_lock);
    return m_fieldMap.AddField(field->GetFid(), field);
}

CField* CDynamicObject::DeclaredField(long fid) const
{
    CLock const lock(m_lock);
    return m_fieldMap.GetField(fid);
}

CValue CDynamicObject::StoredValue(long fid) const
{
    CLock const lock(m_lock);
    auto const found = m_values.find(Platform::NarrowLong(fid));
    return found != m_values.end() ? found->second : CValue();
}

std::pair<CField*, CDataObject*> CDynamicObject::GetField(long fid) const
{
    return {DeclaredField(fid), const_cast<CDynamicObject*>(this)};
}

void CDynamicObject::GetAllFields(std::set<std::pair<CField*, CDataObject*>>& fields) const
{
    CLock const lock(m_lock);
    CDataObject::GetAllFields(fields);
}

void CDynamicObject::GetAllFids(std::set<long>& fids) const
{
    CLock const lock(m_lock);
    CDataObject::GetAllFids(fids);
    for (auto const& [fid, value] : m_values)
    {
        fids.insert(fid);
    }
}

CFieldMap const* CDynamicObject::GetFieldMap() const
{
    return &m_fieldMap;
}

bool CDynamicObject::HasGetMethod(long fid) const
{
    CLock const lock(m_lock);
    return m_values.contains(Platform::NarrowLong(fid));
}

bool CDynamicObject::HasSetMethod(long fid) const
{
    return CDynamicObject::HasGetMethod(fid);
}

EnType CDynamicObject::GetFieldType(long fid)
{
    return StoredValue(fid).GetType();
}

std::string CDynamicObject::GetFieldName(long fid)
{
    CField const* const field = DeclaredField(fid);
    return field != nullptr ? field->GetName() : std::string();
}

CFormat const* CDynamicObject::GetFormat(long fid) const
{
    CField const* const field = DeclaredField(fid);
    return field != nullptr ? field->GetFormat() : nullptr;
}

/// Through GetValue, as the setters go through SetValue: a derived class that overrides the two has overridden all.
template <class T>
T CDynamicObject::Read(long fid) const
{
    return static_cast<detail::Argument<T>>(const_cast<CDynamicObject*>(this)->GetValue(fid)); // reads only
}

CString CDynamicObject::GetMfcString(long fid)
{
    return Read<CString>(fid);
}
std::string CDynamicObject::GetStlString(long fid)
{
    return Read<std::string>(fid);
}
char CDynamicObject::GetChar(long fid) const
{
    return Read<char>(fid);
}
unsigned char CDynamicObject::GetUChar(long fid) const
{
    return Read<unsigned char>(fid);
}
short CDynamicObject::GetShort(long fid) const
{
    return Read<short>(fid);
}
unsigned short CDynamicObject::GetUShort(long fid) const
{
    return Read<unsigned short>(fid);
}
long CDynamicObject::GetLong(long fid) const
{
    return Read<long>(fid);
}
unsigned long CDynamicObject::GetULong(long fid) const
{
    return Read<unsigned long>(fid);
}
__int64 CDynamicObject::GetInt64(long fid) const
{
    return Read<__int64>(fid);
}
bool CDynamicObject::GetBool(long fid) const
{
    return Read<bool>(fid);
}
float CDynamicObject::GetFloat(long fid) const
{
    return Read<float>(fid);
}
double CDynamicObject::GetDouble(long fid) const
{
    return Read<double>(fid);
}
CDataObject* CDynamicObject::GetObjectPtr(long fid) const
{
    return Read<CDataObject*>(fid);
}

CValue CDynamicObject::GetValue(long fid)
{
    return StoredValue(fid);
}

bool CDynamicObject::SetMfcString(long fid, CString const& value)
{
    return SetValue(fid, CValue(value));
}
bool CDynamicObject::SetStlString(long fid, std::string const& value)
{
    return SetValue(fid, CValue(value));
}
bool CDynamicObject::SetChar(long fid, char value)
{
    return SetValue(fid, CValue(value));
}
bool CDynamicObject::SetUChar(long fid, unsigned char value)
{
    return SetValue(fid, CValue(value));
}
bool CDynamicObject::SetShort(long fid, short value)
{
    return SetValue(fid, CValue(value));
}
bool CDynamicObject::SetUShort(long fid, unsigned short value)
{
    return SetValue(fid, CValue(value));
}
bool CDynamicObject::SetLong(long fid, long value)
{
    return SetValue(fid, CValue(value));
}
bool CDynamicObject::SetULong(long fid, unsigned long value)
{
    return SetValue(fid, CValue(value));
}
bool CDynamicObject::SetInt64(long fid, __int64 value)
{
    return SetValue(fid, CValue(value));
}
bool CDynamicObject::SetBool(long fid, bool value)
{
    return SetValue(fid, CValue(value));
}
bool CDynamicObject::SetFloat(long fid, float value)
{
    return SetValue(fid, CValue(value));
}
bool CDynamicObject::SetDouble(long fid, double value)
{
    return SetValue(fid, CValue(value));
}
bool CDynamicObject::SetObjectPtr(long fid, CDataObject* value)
{
    return SetValue(fid, CValue(value));
}

bool CDynamicObject::SetValue(long fid, CValue const& value)
{
    long const key = Platform::NarrowLong(fid);
    if (IsReserved(key))
    {
        return false;
    }
    bool changed = false;
    {
        CLock const lock(m_lock);
        CValue& stored = m_values[key];
        changed = stored.GetType() == TypeEmpty || stored != value;
        stored = value;
    }
    if (changed && m_notify)
    {
        NotifyUpdate(key);
    }
    return true;
}

template <class Text>
Text CDynamicObject::GetFormatted(long fid, CFormat const* format)
{
    CValue const value = GetValue(fid);
    CFormat const* const declared = format != nullptr ? format : CDynamicObject::GetFormat(fid);
    CFormat const& chosen = declared != nullptr ? *declared : CFormat::GetDefaultFormat(value.GetType());
    return detail::FormatAs<Text>(chosen, value, this);
}

template <class Text>
bool CDynamicObject::SetFormatted(long fid, Text const& text, CFormat const* format)
{
    CField const* const field = DeclaredField(fid);
    EnType const stored = StoredValue(fid).GetType();
    EnType const type = stored == TypeEmpty && field != nullptr ? field->GetType() : stored;
    if (type == TypeMfcString)
    {
        return SetMfcString(fid, detail::ConvertText<CString>(text));
    }
    if (type == TypeStlString)
    {
        return SetStlString(fid, detail::ConvertText<std::string>(text));
    }
    CValue value;
    return field != nullptr && detail::ParseFrom(detail::ChooseFormat(format, *field), text, value, this) &&
           SetValue(fid, value);
}

CString CDynamicObject::GetFormattedMfcString(long fid, CFormat const* format)
{
    return GetFormatted<CString>(fid, format);
}

bool CDynamicObject::SetFormattedMfcString(long fid, CString const& text, CFormat const* format)
{
    return SetFormatted(fid, text, format);
}

std::string CDynamicObject::GetFormattedStlString(long fid, CFormat const* format)
{
    return GetFormatted<std::string>(fid, format);
}

bool CDynamicObject::SetFormattedStlString(long fid, std::string const& text, CFormat const* format)
{
    return SetFormatted(fid, text, format);
}

} // namespace Ostrel::Common
