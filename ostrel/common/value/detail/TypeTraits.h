// What the thirteen value types have in common, written once: their EnType, how they are passed, and one switch that
// turns an EnType back into the C++ type.
#pragma once

#include <concepts>
#include <string>
#include <type_traits>
#include <utility>

#include <ostrel/common/value/Type.h>
#include <ostrel/platform/base/String.h>
#include <ostrel/platform/base/Types.h>

namespace Ostrel::Common
{
class CDataObject;
}

namespace Ostrel::Common::detail
{

template <class T>
inline constexpr EnType kTypeOf = TypeEmpty;
template <>
inline constexpr EnType kTypeOf<CString> = TypeMfcString;
template <>
inline constexpr EnType kTypeOf<std::string> = TypeStlString;
template <>
inline constexpr EnType kTypeOf<char> = TypeChar;
template <>
inline constexpr EnType kTypeOf<unsigned char> = TypeUChar;
template <>
inline constexpr EnType kTypeOf<short> = TypeShort;
template <>
inline constexpr EnType kTypeOf<unsigned short> = TypeUShort;
template <>
inline constexpr EnType kTypeOf<long> = TypeLong;
template <>
inline constexpr EnType kTypeOf<unsigned long> = TypeULong;
template <>
inline constexpr EnType kTypeOf<__int64> = TypeInt64;
template <>
inline constexpr EnType kTypeOf<bool> = TypeBool;
template <>
inline constexpr EnType kTypeOf<float> = TypeFloat;
template <>
inline constexpr EnType kTypeOf<double> = TypeDouble;
template <>
inline constexpr EnType kTypeOf<CDataObject*> = TypeObjectPtr;

/// One of the thirteen types, exactly: `int` is none of them.
template <class T>
concept FieldValue = kTypeOf<T>
!= TypeEmpty;

template <class T>
concept FieldText = std::same_as<T, CString> || std::same_as<T, std::string>;

/// How a value of the type is passed: texts by reference, everything else by value.
template <FieldValue T>
using Argument = std::conditional_t<FieldText<T>, T const&, T>;

/// A pointer that would quietly become `bool` where a value is expected: everything but a data object.
template <class P>
concept ForeignPointer = std::is_pointer_v<P> && !std::is_convertible_v<P, CDataObject*>;

/// Calls `visit` with std::type_identity of the C++ type that `type` names, or `none` when it names none.
template <class Visit, class None>
constexpr decltype(auto) VisitType(EnType type, Visit&& visit, None&& none)
{
    switch (type)
    {
    case TypeMfcString:
        return visit(std::type_identity<CString>());
    case TypeStlString:
        return visit(std::type_identity<std::string>());
    case TypeChar:
        return visit(std::type_identity<char>());
    case TypeUChar:
        return visit(std::type_identity<unsigned char>());
    case TypeShort:
        return visit(std::type_identity<short>());
    case TypeUShort:
        return visit(std::type_identity<unsigned short>());
    case TypeLong:
        return visit(std::type_identity<long>());
    case TypeULong:
        return visit(std::type_identity<unsigned long>());
    case TypeInt64:
        return visit(std::type_identity<__int64>());
    case TypeBool:
        return visit(std::type_identity<bool>());
    case TypeFloat:
        return visit(std::type_identity<float>());
    case TypeDouble:
        return visit(std::type_identity<double>());
    case TypeObjectPtr:
        return visit(std::type_identity<CDataObject*>());
    case TypeEmpty:
        break;
    }
    return none();
}

} // namespace Ostrel::Common::detail
