/// @file
/// The format of `CString` fields.
#pragma once

#include <ostrel/common/format/detail/RegisteredFormat.h>

namespace Ostrel::Common
{

/// The text as it is, both ways. Its own string world is CString; the std::string operations follow from it.
class OSTREL_COMMON_API CDefaultMfcStringFormat : public detail::RegisteredFormat<CDefaultMfcStringFormat>
{
public:
    static constexpr char const* kClassName = "CDefaultMfcStringFormat"; ///< the bare class name

    CDefaultMfcStringFormat() noexcept : RegisteredFormat(TypeMfcString) {}

    using CFormat::FormatMfc;
    using CFormat::FormatStl;
    using CFormat::ParseMfc;
    using CFormat::ParseStl;
    [[nodiscard]] CString FormatMfc(CString const& value, CDataObject const* /*object*/ = nullptr) const override
    {
        return value;
    }
    bool ParseMfc(CString const& text, CString& value, CDataObject const* /*object*/ = nullptr) const override
    {
        value = text;
        return true;
    }
    [[nodiscard]] std::string FormatStl(CString const& value, CDataObject const* object = nullptr) const override
    {
        return FormatMfc(value, object).AsStd();
    }
    bool ParseStl(std::string const& text, CString& value, CDataObject const* object = nullptr) const override
    {
        return ParseMfc(CString(text), value, object);
    }
};

} // namespace Ostrel::Common
