/// @file
/// One numbered field of an application class: name, type, format, and the member functions that read and write it.
#pragma once

#include <memory>
#include <string>
#include <type_traits>
#include <variant>

#include <ostrel/common/value/Type.h>
#include <ostrel/common/value/detail/TypeTraits.h>
#include <ostrel/platform/base/Export.h>

namespace Ostrel::Common
{

class CDataObject;
class CFormat;

/// Immutable once made, so that any thread may read it. Owns its format.
///
/// The accessors are member functions of a class derived from CDataObject, cast to member functions of CDataObject;
/// CFieldMapBuilder does the cast and checks it. The path from CDataObject to the class has no virtual inheritance.
class OSTREL_COMMON_API CField
{
public:
    /// A getter of a type; texts are returned by value.
    template <class T>
    using GetMethod = T (CDataObject::*)() const;
    /// A setter of a type; texts are taken by constant reference.
    template <class T>
    using SetMethod = void (CDataObject::*)(detail::Argument<T>);

    /// No field: identifier -2, no name, TypeEmpty.
    CField() noexcept;
    /// Copies the names and takes a clone of the format.
    CField(CField const& other);
    CField& operator=(CField const&) = delete;
    virtual ~CField();
    /// A new copy. The caller owns it.
    [[nodiscard]] virtual CField* Clone() const;

    /// A field without accessors. A null name is empty. Takes ownership of the format, which may be null.
    CField(long fid, char const* name, EnType type, CFormat* format = nullptr);

    ///@{
    /// A field with accessors; either may be null. Takes ownership of the format, which may be null. An accessor's name
    /// that is null, empty or begins with the digit 0 is no name.
    CField(long fid, char const* name, GetMethod<CString> getter, SetMethod<CString> setter, CFormat* format = nullptr,
           char const* getterName = nullptr, char const* setterName = nullptr);
    CField(long fid, char const* name, GetMethod<std::string> getter, SetMethod<std::string> setter,
           CFormat* format = nullptr, char const* getterName = nullptr, char const* setterName = nullptr);
    CField(long fid, char const* name, GetMethod<char> getter, SetMethod<char> setter, CFormat* format = nullptr,
           char const* getterName = nullptr, char const* setterName = nullptr);
    CField(long fid, char const* name, GetMethod<unsigned char> getter, SetMethod<unsigned char> setter,
           CFormat* format = nullptr, char const* getterName = nullptr, char const* setterName = nullptr);
    CField(long fid, char const* name, GetMethod<short> getter, SetMethod<short> setter, CFormat* format = nullptr,
           char const* getterName = nullptr, char const* setterName = nullptr);
    CField(long fid, char const* name, GetMethod<unsigned short> getter, SetMethod<unsigned short> setter,
           CFormat* format = nullptr, char const* getterName = nullptr, char const* setterName = nullptr);
    CField(long fid, char const* name, GetMethod<long> getter, SetMethod<long> setter, CFormat* format = nullptr,
           char const* getterName = nullptr, char const* setterName = nullptr);
    CField(long fid, char const* name, GetMethod<unsigned long> getter, SetMethod<unsigned long> setter,
           CFormat* format = nullptr, char const* getterName = nullptr, char const* setterName = nullptr);
    CField(long fid, char const* name, GetMethod<__int64> getter, SetMethod<__int64> setter, CFormat* format = nullptr,
           char const* getterName = nullptr, char const* setterName = nullptr);
    CField(long fid, char const* name, GetMethod<bool> getter, SetMethod<bool> setter, CFormat* format = nullptr,
           char const* getterName = nullptr, char const* setterName = nullptr);
    CField(long fid, char const* name, GetMethod<float> getter, SetMethod<float> setter, CFormat* format = nullptr,
           char const* getterName = nullptr, char const* setterName = nullptr);
    CField(long fid, char const* name, GetMethod<double> getter, SetMethod<double> setter, CFormat* format = nullptr,
           char const* getterName = nullptr, char const* setterName = nullptr);
    CField(long fid, char const* name, GetMethod<CDataObject*> getter, SetMethod<CDataObject*> setter,
           CFormat* format = nullptr, char const* getterName = nullptr, char const* setterName = nullptr);
    ///@}

    /// The number by which the field is known; -2 for no field.
    [[nodiscard]] long GetFid() const noexcept { return m_fid; }
    /// The type of the field's values, fixed at construction.
    [[nodiscard]] EnType GetType() const noexcept { return m_type; }
    /// The field's own format, owned by the field; null when the type's default format serves.
    [[nodiscard]] CFormat* GetFormat() const noexcept { return m_format.get(); }
    /// The display name.
    [[nodiscard]] std::string GetName() const { return m_name; }
    ///@{
    /// The accessors' names as text, empty when not told.
    [[nodiscard]] std::string GetPfnGetName() const { return m_getterName; }
    [[nodiscard]] std::string GetPfnSetName() const { return m_setterName; }
    ///@}

    ///@{
    /// Whether a getter, and a setter, was given.
    [[nodiscard]] bool HasGetMethod() const noexcept { return m_hasGetter; }
    [[nodiscard]] bool HasSetMethod() const noexcept { return m_hasSetter; }
    ///@}

    ///@{
    /// The accessors by type; null when the field has none or another type.
    template <detail::FieldValue T>
    [[nodiscard]] GetMethod<T> GetterOf() const noexcept
    {
        auto const* getter = std::get_if<GetMethod<T>>(&m_getter);
        return getter != nullptr ? *getter : nullptr;
    }
    template <detail::FieldValue T>
    [[nodiscard]] SetMethod<T> SetterOf() const noexcept
    {
        auto const* setter = std::get_if<SetMethod<T>>(&m_setter);
        return setter != nullptr ? *setter : nullptr;
    }
    ///@}

    ///@{
    /// The getter if the field has exactly this type, else null.
    [[nodiscard]] GetMethod<CString> PfnGetMfcString() const noexcept { return GetterOf<CString>(); }
    [[nodiscard]] GetMethod<std::string> PfnGetStlString() const noexcept { return GetterOf<std::string>(); }
    [[nodiscard]] GetMethod<char> PfnGetChar() const noexcept { return GetterOf<char>(); }
    [[nodiscard]] GetMethod<unsigned char> PfnGetUChar() const noexcept { return GetterOf<unsigned char>(); }
    [[nodiscard]] GetMethod<short> PfnGetShort() const noexcept { return GetterOf<short>(); }
    [[nodiscard]] GetMethod<unsigned short> PfnGetUShort() const noexcept { return GetterOf<unsigned short>(); }
    [[nodiscard]] GetMethod<long> PfnGetLong() const noexcept { return GetterOf<long>(); }
    [[nodiscard]] GetMethod<unsigned long> PfnGetULong() const noexcept { return GetterOf<unsigned long>(); }
    [[nodiscard]] GetMethod<__int64> PfnGetInt64() const noexcept { return GetterOf<__int64>(); }
    [[nodiscard]] GetMethod<bool> PfnGetBool() const noexcept { return GetterOf<bool>(); }
    [[nodiscard]] GetMethod<float> PfnGetFloat() const noexcept { return GetterOf<float>(); }
    [[nodiscard]] GetMethod<double> PfnGetDouble() const noexcept { return GetterOf<double>(); }
    [[nodiscard]] GetMethod<CDataObject*> PfnGetObjectPtr() const noexcept { return GetterOf<CDataObject*>(); }
    ///@}

    ///@{
    /// The setter if the field has exactly this type, else null.
    [[nodiscard]] SetMethod<CString> PfnSetMfcString() const noexcept { return SetterOf<CString>(); }
    [[nodiscard]] SetMethod<std::string> PfnSetStlString() const noexcept { return SetterOf<std::string>(); }
    [[nodiscard]] SetMethod<char> PfnSetChar() const noexcept { return SetterOf<char>(); }
    [[nodiscard]] SetMethod<unsigned char> PfnSetUChar() const noexcept { return SetterOf<unsigned char>(); }
    [[nodiscard]] SetMethod<short> PfnSetShort() const noexcept { return SetterOf<short>(); }
    [[nodiscard]] SetMethod<unsigned short> PfnSetUShort() const noexcept { return SetterOf<unsigned short>(); }
    [[nodiscard]] SetMethod<long> PfnSetLong() const noexcept { return SetterOf<long>(); }
    [[nodiscard]] SetMethod<unsigned long> PfnSetULong() const noexcept { return SetterOf<unsigned long>(); }
    [[nodiscard]] SetMethod<__int64> PfnSetInt64() const noexcept { return SetterOf<__int64>(); }
    [[nodiscard]] SetMethod<bool> PfnSetBool() const noexcept { return SetterOf<bool>(); }
    [[nodiscard]] SetMethod<float> PfnSetFloat() const noexcept { return SetterOf<float>(); }
    [[nodiscard]] SetMethod<double> PfnSetDouble() const noexcept { return SetterOf<double>(); }
    [[nodiscard]] SetMethod<CDataObject*> PfnSetObjectPtr() const noexcept { return SetterOf<CDataObject*>(); }
    ///@}

private:
    template <template <class> class Method>
    using AnyOf =
        std::variant<std::monostate, Method<CString>, Method<std::string>, Method<char>, Method<unsigned char>,
                     Method<short>, Method<unsigned short>, Method<long>, Method<unsigned long>, Method<__int64>,
                     Method<bool>, Method<float>, Method<double>, Method<CDataObject*>>;

    template <class T>
    CField(std::type_identity<T>, long fid, char const* name, GetMethod<T> getter, SetMethod<T> setter, CFormat* format,
           char const* getterName, char const* setterName);

    long m_fid;
    std::string m_name;
    EnType m_type;
    bool m_hasGetter = false;
    bool m_hasSetter = false;
    std::unique_ptr<CFormat> m_format;
    std::string m_getterName;
    std::string m_setterName;
    /// The accessors in their own types, so that none is ever called through another signature.
    AnyOf<GetMethod> m_getter;
    AnyOf<SetMethod> m_setter;
};

} // namespace Ostrel::Common
