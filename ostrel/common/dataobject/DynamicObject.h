/// @file
/// A data object that keeps its values itself, by field number, and whose fields are declared at run time. For rows
/// whose columns are known only then, and for objects restored from a stream whose class the process does not know.
#pragma once

#include <map>

#include <ostrel/common/dataobject/DataObject.h>
#include <ostrel/common/dataobject/FieldMap.h>
#include <ostrel/common/thread/SyncObject.h>
#include <ostrel/common/value/Value.h>
#include <ostrel/platform/base/Export.h>

namespace Ostrel::Common
{

/// Any thread may read, set and declare; the lock is never held while subscribers or formats are called.
class OSTREL_COMMON_API CDynamicObject : public CDataObject
{
public:
    /// `notify`: whether setting another value calls NotifyUpdate.
    explicit CDynamicObject(bool notify) noexcept : m_notify(notify) {}
    ~CDynamicObject() override;

    /// The declared field and this object.
    [[nodiscard]] std::pair<CField*, CDataObject*> GetField(long fid) const override;
    /// The declared fields; so only their values are stored by Serialize.
    void GetAllFields(std::set<std::pair<CField*, CDataObject*>>& fields) const override;
    /// The declared numbers and those that hold a value.
    void GetAllFids(std::set<long>& fids) const override;
    /// The declared fields. Only to be looked into while nobody declares one.
    [[nodiscard]] CFieldMap const* GetFieldMap() const override;

    ///@{
    /// True when a value is stored.
    [[nodiscard]] bool HasGetMethod(long fid) const override;
    [[nodiscard]] bool HasSetMethod(long fid) const override;
    ///@}
    /// The type of the stored value, whatever was declared; TypeEmpty without one.
    [[nodiscard]] EnType GetFieldType(long fid) override;
    /// The declared name.
    [[nodiscard]] std::string GetFieldName(long fid) override;
    /// The declared format, which the field owns.
    [[nodiscard]] CFormat const* GetFormat(long fid) const override;

    ///@{
    /// What GetValue gives if it has that type, else zero, false, null or an empty text.
    [[nodiscard]] CString GetMfcString(long fid) override;
    [[nodiscard]] std::string GetStlString(long fid) override;
    [[nodiscard]] char GetChar(long fid) const override;
    [[nodiscard]] unsigned char GetUChar(long fid) const override;
    [[nodiscard]] short GetShort(long fid) const override;
    [[nodiscard]] unsigned short GetUShort(long fid) const override;
    [[nodiscard]] long GetLong(long fid) const override;
    [[nodiscard]] unsigned long GetULong(long fid) const override;
    [[nodiscard]] __int64 GetInt64(long fid) const override;
    [[nodiscard]] bool GetBool(long fid) const override;
    [[nodiscard]] float GetFloat(long fid) const override;
    [[nodiscard]] double GetDouble(long fid) const override;
    [[nodiscard]] CDataObject* GetObjectPtr(long fid) const override;
    ///@}
    /// A copy of the stored value; an empty value without one.
    [[nodiscard]] CValue GetValue(long fid) override;

    ///@{
    /// Store the value with its type, whatever was stored or declared. Return false for the numbers -1 and -2. All of
    /// them go through SetValue.
    bool SetMfcString(long fid, CString const& value) override;
    bool SetStlString(long fid, std::string const& value) override;
    bool SetChar(long fid, char value) override;
    bool SetUChar(long fid, unsigned char value) override;
    bool SetShort(long fid, short value) override;
    bool SetUShort(long fid, unsigned short value) override;
    bool SetLong(long fid, long value) override;
    bool SetULong(long fid, unsigned long value) override;
    bool SetInt64(long fid, __int64 value) override;
    bool SetBool(long fid, bool value) override;
    bool SetFloat(long fid, float value) override;
    bool SetDouble(long fid, double value) override;
    bool SetObjectPtr(long fid, CDataObject* value) override;
    bool SetValue(long fid, CValue const& value) override;
    ///@}

    /// What GetValue gives through the given format, or the declared one, or the default of the value's type.
    [[nodiscard]] CString GetFormattedMfcString(long fid, CFormat const* format) override;
    /// Reads the text as a declared field's format has it and stores the value. Where a text is stored or declared, the
    /// text is stored as it is. Returns false if the field is not declared or the text cannot be read.
    bool SetFormattedMfcString(long fid, CString const& text, CFormat const* format) override;
    /// GetFormattedMfcString on std::string.
    [[nodiscard]] std::string GetFormattedStlString(long fid, CFormat const* format) override;
    /// SetFormattedMfcString on std::string.
    bool SetFormattedStlString(long fid, std::string const& text, CFormat const* format) override;

    /// Gives a number its name, type and format; values can be stored without it. Takes ownership. Returns false, and
    /// the caller keeps the field, if it is null, its number is -1 or -2, or the number is declared already.
    virtual bool DeclareField(CField* field);

private:
    template <class T>
    [[nodiscard]] T Read(long fid) const;
    [[nodiscard]] CValue StoredValue(long fid) const;
    [[nodiscard]] CField* DeclaredField(long fid) const;
    template <class Text>
    [[nodiscard]] Text GetFormatted(long fid, CFormat const* format);
    template <class Text>
    bool SetFormatted(long fid, Text const& text, CFormat const* format);

    mutable CSyncObject m_lock;
    CFieldMap m_fieldMap OSTREL_GUARDED_BY(m_lock);
    std::map<long, CValue> m_values OSTREL_GUARDED_BY(m_lock);
    bool const m_notify;
};

} // namespace Ostrel::Common
