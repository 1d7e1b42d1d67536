/// @file
/// Declares the fields of an application class in one expression.
#pragma once

#include <concepts>
#include <cstddef>
#include <memory>
#include <type_traits>
#include <utility>

#include <ostrel/common/dataobject/DataObject.h>
#include <ostrel/common/dataobject/Field.h>
#include <ostrel/common/dataobject/FieldMap.h>
#include <ostrel/common/format/Format.h>

/// The accessors of a field with their names as text, for CFieldMapBuilder::Field.
#define OSTREL_FIELD(Class, Getter, Setter)                                                                            \
    ::Ostrel::Common::CFieldAccessors                                                                                  \
    {                                                                                                                  \
        &Class::Getter, &Class::Setter, #Getter, #Setter                                                               \
    }
/// The getter of a field that cannot be set, with its name as text, for CFieldMapBuilder::Field.
#define OSTREL_READONLY_FIELD(Class, Getter)                                                                           \
    ::Ostrel::Common::CFieldAccessors                                                                                  \
    {                                                                                                                  \
        &Class::Getter, nullptr, #Getter, nullptr                                                                      \
    }

namespace Ostrel::Common
{

/// What OSTREL_FIELD makes: the two accessors, of which one may be nullptr, and their names, which may be null.
template <class Getter, class Setter>
struct CFieldAccessors
{
    Getter getter;          ///< reads the value
    Setter setter;          ///< writes the value
    char const* getterName; ///< the getter's name as text
    char const* setterName; ///< the setter's name as text
};
/// The types follow from the accessors.
template <class Getter, class Setter>
CFieldAccessors(Getter, Setter, char const*, char const*) -> CFieldAccessors<Getter, Setter>;

namespace detail
{

/// The field type and the class of an accessor; nothing for what is no accessor.
template <class Method>
struct GetterTraits
{};
template <FieldValue T, std::derived_from<CDataObject> Class>
struct GetterTraits<T (Class::*)() const>
{
    using Value = T;
};
template <FieldValue T, class Class>
struct GetterTraits<T (Class::*)() const noexcept> : GetterTraits<T (Class::*)() const>
{};

template <class Method>
struct SetterTraits
{};
template <class A, class Class>
requires FieldValue<std::remove_cvref_t<A>> && std::is_same_v<A, Argument<std::remove_cvref_t<A>>>
struct SetterTraits<void (Class::*)(A)>
{
    using Value = std::remove_cvref_t<A>;
};
template <class A, class Class>
struct SetterTraits<void (Class::*)(A) noexcept> : SetterTraits<void (Class::*)(A)>
{};

template <class Method>
concept FieldGetter = requires
{
    typename GetterTraits<Method>::Value;
};
template <class Method>
concept FieldSetter = requires
{
    typename SetterTraits<Method>::Value;
};

/// A getter and a setter that fit together; one of them may be nullptr.
template <class Getter, class Setter>
concept FieldAccessorPair =
    (FieldGetter<Getter> && std::is_null_pointer_v<Setter>) ||
    (std::is_null_pointer_v<Getter> && FieldSetter<Setter>) ||
    (FieldGetter<Getter> && FieldSetter<Setter> &&
     std::is_same_v<typename GetterTraits<Getter>::Value, typename SetterTraits<Setter>::Value>);

template <class Getter, class Setter>
struct AccessorPairTraits : GetterTraits<Getter>
{};
template <class Setter>
struct AccessorPairTraits<std::nullptr_t, Setter> : SetterTraits<Setter>
{};

} // namespace detail

/// Declares the fields of an application class in one expression, checked by the compiler: the type of a field is
/// deduced from its accessors, and accessors of any other than the thirteen field types do not compile.
///
///     CFieldMap const* CQuote::GetFieldMap() const
///     {
///         static auto const map = CFieldMapBuilder<CQuote>(CInstrument::Fields())
///                                     .Field(kBid, "Bid", OSTREL_FIELD(CQuote, GetBid, SetBid), new CDoubleFormat(2))
///                                     .Field(kAge, "Age", OSTREL_READONLY_FIELD(CQuote, GetAge))
///                                     .Field(kNote, "Note", &CQuote::GetNote, &CQuote::SetNote)
///                                     .Build();
///         return map.get();
///     }
///
/// A getter is `T Get() const`; a setter is `void Set(T)`, for the text types `void Set(T const&)`. T is CString,
/// std::string, char, unsigned char, short, unsigned short, long, unsigned long, __int64, bool, float, double or
/// CDataObject*. They may be private (inside the class's own functions), noexcept, and declared in a base class that is
/// itself derived from CDataObject.
///
/// `Class` derives from CDataObject, without virtual inheritance on the way.
template <class Class>
class CFieldMapBuilder
{
    static_assert(std::is_base_of_v<CDataObject, Class>, "fields are declared for classes derived from CDataObject");

public:
    /// With the map of the parent class, or without. The parent is only read and must outlive the map.
    explicit CFieldMapBuilder(CFieldMap const* parent = nullptr)
        : m_map(std::make_unique<CFieldMap>(const_cast<CFieldMap*>(parent)))
    {}

    /// Adds a field. Either accessor may be nullptr. Takes ownership of the format; null means the type's default. The
    /// first field of a number stays; a second one is dropped with its format.
    template <class Getter, class Setter = std::nullptr_t>
    requires detail::FieldAccessorPair<Getter, Setter> CFieldMapBuilder&
    Field(long fid, char const* name, Getter getter, Setter setter = nullptr, CFormat* format = nullptr,
          char const* getterName = nullptr, char const* setterName = nullptr)
    {
        using Value = typename detail::AccessorPairTraits<Getter, Setter>::Value;
        auto field =
            std::make_unique<CField>(fid, name, ToDataObject<CField::GetMethod<Value>>(getter),
                                     ToDataObject<CField::SetMethod<Value>>(setter), format, getterName, setterName);
        if (m_map->AddField(fid, field.get()))
        {
            static_cast<void>(field.release());
        }
        return *this;
    }

    /// Adds a field with the accessors that OSTREL_FIELD or OSTREL_READONLY_FIELD names.
    template <class Getter, class Setter>
    requires detail::FieldAccessorPair<Getter, Setter> CFieldMapBuilder&
    Field(long fid, char const* name, CFieldAccessors<Getter, Setter> accessors, CFormat* format = nullptr)
    {
        return Field(fid, name, accessors.getter, accessors.setter, format, accessors.getterName, accessors.setterName);
    }

    /// The finished map with its index. The builder is empty afterwards.
    [[nodiscard]] std::unique_ptr<CFieldMap> Build()
    {
        m_map->InitHash();
        return std::move(m_map);
    }

private:
    /// The one place where an accessor of the application class becomes an accessor of CDataObject. It is only ever
    /// called on objects of the class, since the map that holds it is theirs.
    template <class Target, class Method>
    static Target ToDataObject(Method method)
    {
        if constexpr (std::is_null_pointer_v<Method>)
        {
            return nullptr;
        }
        else
        {
            return static_cast<Target>(InClass(method));
        }
    }
    template <class Result, class Declaring>
    static auto InClass(Result (Declaring::*method)() const)
    {
        return static_cast<Result (Class::*)() const>(method);
    }
    template <class A, class Declaring>
    static auto InClass(void (Declaring::*method)(A))
    {
        return static_cast<void (Class::*)(A)>(method);
    }

    std::unique_ptr<CFieldMap> m_map;
};

} // namespace Ostrel::Common
