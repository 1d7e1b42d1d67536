/// @file
/// The format of `std::string` fields.
#pragma once

#include <ostrel/common/format/detail/TypedFormat.h>

namespace Ostrel::Common
{

/// The text as it is, both ways.
class OSTREL_COMMON_API CDefaultStlStringFormat : public detail::TypedFormat<CDefaultStlStringFormat, std::string>
{
public:
    static constexpr char const* kClassName = "CDefaultStlStringFormat"; ///< the bare class name

    CDefaultStlStringFormat() noexcept = default;

    using TypedFormat::ParseStl;
    bool ParseStl(std::string const& text, std::string& value, CDataObject const* /*object*/ = nullptr) const override
    {
        value = text;
        return true;
    }

    /// Appends what FormatStl gives.
    void AppendStl(std::string& text, std::string const& value) const { text.append(value); }
};

} // namespace Ostrel::Common
