/// @file
/// A format of one type, in the two string worlds: the conversions are written once, on std::string, and the CString
/// ones follow from them. A derived class has `AppendStl(std::string&, T) const` and overrides ParseStl.
#pragma once

#include <string>

#include <ostrel/common/format/detail/RegisteredFormat.h>
#include <ostrel/common/value/detail/TypeTraits.h>

namespace Ostrel::Common::detail
{

/// A format of one type, written once on std::string.
template <class Derived, FieldValue T>
class OSTREL_COMMON_API TypedFormat : public RegisteredFormat<Derived>
{
public:
    /// Of other types: an empty text.
    using CFormat::FormatMfc;
    /// Of other types: an empty text.
    using CFormat::FormatStl;
    /// Of other types: false.
    using CFormat::ParseMfc;
    /// Of other types: false.
    using CFormat::ParseStl;

    /// FormatStl as CString.
    [[nodiscard]] CString FormatMfc(Argument<T> value, CDataObject const* object = nullptr) const override
    {
        return CString(FormatStl(value, object));
    }
    /// ParseStl of the text as std::string.
    bool ParseMfc(CString const& text, T& value, CDataObject const* object = nullptr) const override
    {
        return ParseStl(text.AsStd(), value, object);
    }
    /// The text of a value.
    [[nodiscard]] std::string FormatStl(Argument<T> value, CDataObject const* /*object*/ = nullptr) const override
    {
        std::string text;
        static_cast<Derived const&>(*this).AppendStl(text, value);
        return text;
    }
    /// Reads a text. Returns false and changes nothing if the format does not accept it.
    bool ParseStl(std::string const& text, T& value, CDataObject const* object = nullptr) const override = 0;

protected:
    TypedFormat() noexcept : RegisteredFormat<Derived>(kTypeOf<T>) {}
    /// Copies the type; for Clone.
    TypedFormat(TypedFormat const&) = default;
};

} // namespace Ostrel::Common::detail
