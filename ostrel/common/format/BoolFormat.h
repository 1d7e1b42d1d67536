/// @file
/// The format of `bool` fields.
#pragma once

#include <ostrel/common/format/detail/TypedFormat.h>

namespace Ostrel::Common
{

/// "true" and "false".
class OSTREL_COMMON_API CBoolFormat : public detail::TypedFormat<CBoolFormat, bool>
{
public:
    static constexpr char const* kClassName = "CBoolFormat"; ///< the bare class name

    CBoolFormat() noexcept = default;

    using TypedFormat::ParseStl;
    /// True for "true" in any case and with blanks, tabs and line ends anywhere; false for every other text. Always
    /// succeeds.
    bool ParseStl(std::string const& text, bool& value, CDataObject const* object = nullptr) const override;

    /// Appends what FormatStl gives.
    void AppendStl(std::string& text, bool value) const { text.append(value ? "true" : "false"); }
};

} // namespace Ostrel::Common
