/// @file
/// The format of what has no text: object pointers and empty values.
#pragma once

#include <ostrel/common/format/detail/RegisteredFormat.h>

namespace Ostrel::Common
{

/// Writes every value as an empty text and reads none. Restored from a stream it has TypeEmpty.
class OSTREL_COMMON_API CEmptyFormat : public detail::RegisteredFormat<CEmptyFormat>
{
public:
    static constexpr char const* kClassName = "CEmptyFormat"; ///< the bare class name

    /// A format of a type, of whose values it shows nothing.
    explicit CEmptyFormat(EnType type) noexcept : RegisteredFormat(type) {}

    using CFormat::FormatMfc;
    using CFormat::FormatStl;
    using CFormat::ParseMfc;
    using CFormat::ParseStl;
    [[nodiscard]] CString FormatMfc(CValue const& value, CDataObject const* object = nullptr) const override;
    bool ParseMfc(CString const& text, CValue& value, CDataObject const* object = nullptr) const override;
    [[nodiscard]] std::string FormatStl(CValue const& value, CDataObject const* object = nullptr) const override;
    bool ParseStl(std::string const& text, CValue& value, CDataObject const* object = nullptr) const override;

private:
    friend class detail::RegisteredFormat<CEmptyFormat>;
    CEmptyFormat() noexcept : RegisteredFormat(TypeEmpty) {}
};

} // namespace Ostrel::Common
