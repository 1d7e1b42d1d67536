/// @file
/// The formats of the two floating-point types.
#pragma once

#include <string>

#include <ostrel/common/format/detail/FloatText.h>
#include <ostrel/common/format/detail/TypedFormat.h>

namespace Ostrel::Common::detail
{

/// What CFloatFormat and CDoubleFormat have in common.
template <class Derived, FieldValue F>
class OSTREL_COMMON_API FloatingFormat : public TypedFormat<Derived, F>
{
public:
    using TypedFormat<Derived, F>::ParseStl;
    /// Reads ',' and '.' as the decimal separator, skips blanks and the thousands separator. Always succeeds: a text
    /// without a number is 0.
    bool ParseStl(std::string const& text, F& value, CDataObject const* /*object*/ = nullptr) const override
    {
        value = static_cast<F>(ParseFloat(text, m_settings.separator));
        return true;
    }

    /// Appends what FormatStl gives.
    void AppendStl(std::string& text, F value) const { AppendFloat<F>(text, m_settings, value); }

    /// Stores the version and the settings, or restores them; see CFormat::Serialize.
    void Serialize(CSerializer& serializer) override
    {
        this->SerializeSettings(
            serializer,
            [&]
            {
                serializer << m_settings.precision << m_settings.showZero << m_settings.trailingZeros
                           << m_settings.prefix << m_settings.suffix << m_settings.separator;
            },
            [&]
            {
                FloatSettings restored{};
                serializer >> restored.precision >> restored.showZero >> restored.trailingZeros >> restored.prefix >>
                    restored.suffix >> restored.separator;
                restored.precision = ClampPrecision<F>(restored.precision);
                m_settings = restored;
            });
    }

protected:
    /// The settings, with the precision brought into the range of the type.
    explicit FloatingFormat(FloatSettings const& settings) noexcept : m_settings(settings)
    {
        m_settings.precision = ClampPrecision<F>(settings.precision);
    }
    /// Copies the settings; for Clone.
    FloatingFormat(FloatingFormat const&) = default;

private:
    FloatSettings m_settings;
};

} // namespace Ostrel::Common::detail
