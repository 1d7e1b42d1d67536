// A format of one type, in the two string worlds: the conversions are written once, on std::string, and the CString
// ones follow from them. A derived class has `AppendStl(std::string&, T) const` and overrides ParseStl.
#pragma once

#include <string>

#include <ostrel/common/format/detail/RegisteredFormat.h>
#include <ostrel/common/value/detail/TypeTraits.h>

namespace Ostrel::Common::detail
{

template <class Derived, FieldValue T>
class OSTREL_COMMON_API TypedFormat : public RegisteredFormat<Derived>
{
public:
    using CFormat::FormatMfc;
    using CFormat::FormatStl;
    using CFormat::ParseMfc;
    using CFormat::ParseStl;

    [[nodiscard]] CString FormatMfc(Argument<T> value, CDataObject const* object = nullptr) const override
    {
        return CString(FormatStl(value, object));
    }
    bool ParseMfc(CString const& text, T& value, CDataObject const* object = nullptr) const override
    {
        return ParseStl(text.AsStd(), value, object);
    }
    [[nodiscard]] std::string FormatStl(Argument<T> value, CDataObject const* /*object*/ = nullptr) const override
    {
        std::string text;
        static_cast<Derived const&>(*this).AppendStl(text, value);
        return text;
    }
    bool ParseStl(std::string const& text, T& value, CDataObject const* object = nullptr) const override = 0;

protected:
    TypedFormat() noexcept : RegisteredFormat<Derived>(kTypeOf<T>) {}
    TypedFormat(TypedFormat const&) = default;
};

} // namespace Ostrel::Common::detail
