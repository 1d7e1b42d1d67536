/// @file
/// The formats of the integers of 16 bits and more: decimal with a thousands separator, or hexadecimal.
#pragma once

#include <cstdint>
#include <string>
#include <type_traits>

#include <ostrel/common/format/HexFormatter.h>
#include <ostrel/common/format/detail/IntegerText.h>
#include <ostrel/common/format/detail/TypedFormat.h>
#include <ostrel/platform/base/Narrow.h>

namespace Ostrel::Common::detail
{

/// What the formats of the integers of 16 bits and more have in common.
template <class Derived, FieldValue T>
class OSTREL_COMMON_API WideIntegerFormat : public TypedFormat<Derived, T>
{
public:
    /// How the number is shown.
    enum Style : int
    {
        Decimal = 0, ///< the number with a thousands separator
        Hex = 1      ///< hexadecimal digits without a sign
    };

    /// How the number is shown.
    [[nodiscard]] Style GetStyle() const noexcept { return m_style; }
    /// Changes how the number is shown. Not while other threads convert.
    void SetStyle(Style style) noexcept { m_style = style; }
    /// The thousands separator of decimal text; none unless it is printable, code 32 to 127.
    [[nodiscard]] char GetSeparator() const noexcept { return m_separator; }
    /// Changes the thousands separator. Not while other threads convert.
    void SetSeparator(char separator) noexcept { m_separator = separator; }

    using TypedFormat<Derived, T>::ParseStl;
    /// Decimal text: everything but digits and minus signs is skipped, a text without digits is 0, and a number too
    /// large wraps; only the 16-bit formats refuse what exceeds 65535. Hexadecimal when the style says so or the text
    /// holds "0x": see CHexFormatter::ToHex.
    bool ParseStl(std::string const& text, T& value, CDataObject const* object = nullptr) const override;

    /// Appends what FormatStl gives.
    void AppendStl(std::string& text, T value) const;

    /// Stores the version and the settings, or restores them; see CFormat::Serialize.
    void Serialize(CSerializer& serializer) override;

protected:
    /// The settings as the constructor of the format takes them.
    WideIntegerFormat(Style style, bool showZero, char separator, bool hexPrefix, bool leadingZeros) noexcept
        : m_style(style),
          m_showZero(showZero),
          m_separator(separator),
          m_hexPrefix(hexPrefix),
          m_leadingZeros(leadingZeros)
    {}
    /// Copies the settings; for Clone.
    WideIntegerFormat(WideIntegerFormat const&) = default;

private:
    /// The documented width: `long` counts as 32 bits.
    static constexpr bool kIsLong = std::is_same_v<T, long> || std::is_same_v<T, unsigned long>;
    static constexpr int kHexDigits = kIsLong ? 8 : static_cast<int>(sizeof(T)) * 2;

    Style m_style;
    bool m_showZero;
    char m_separator;
    bool m_hexPrefix;
    bool m_leadingZeros;
};

template <class Derived, FieldValue T>
void WideIntegerFormat<Derived, T>::AppendStl(std::string& text, T value) const
{
    using Wide = std::conditional_t<std::is_signed_v<T>, std::int64_t, std::uint64_t>;
    Wide number = value;
    if constexpr (std::is_same_v<T, long>)
    {
        number = Platform::NarrowToInt32(value);
    }
    else if constexpr (std::is_same_v<T, unsigned long>)
    {
        number = Platform::NarrowToUInt32(value);
    }

    if (number == 0 && !m_showZero)
    {
        return;
    }
    if (m_style != Decimal)
    {
        text.append(m_hexPrefix ? "0x" : "");
        AppendHexDigits(text, static_cast<__int64>(number), kHexDigits, m_leadingZeros);
        return;
    }
    auto magnitude = static_cast<std::uint64_t>(number);
    if (std::is_signed_v<T> && number < 0)
    {
        text.push_back('-');
        magnitude = 0 - magnitude;
    }
    AppendGrouped(text, magnitude, m_separator);
}

template <class Derived, FieldValue T>
bool WideIntegerFormat<Derived, T>::ParseStl(std::string const& text, T& value, CDataObject const* /*object*/) const
{
    if (m_style == Hex || text.find("0x") != std::string::npos)
    {
        return CHexFormatter::ToHex(text, value);
    }
    DecimalNumber const number = PickDecimal(text);
    if constexpr (sizeof(T) == 2)
    {
        if (!number.negative && (number.exceeds32Bits || number.magnitude > 0xFFFF))
        {
            return false;
        }
    }
    if constexpr (std::is_same_v<T, long>)
    {
        value = Platform::NarrowLong(number.Value());
    }
    else if constexpr (std::is_same_v<T, unsigned long>)
    {
        value = Platform::NarrowULong(static_cast<unsigned long>(number.Value()));
    }
    else
    {
        value = static_cast<T>(number.Value());
    }
    return true;
}

template <class Derived, FieldValue T>
void WideIntegerFormat<Derived, T>::Serialize(CSerializer& serializer)
{
    this->SerializeSettings(
        serializer,
        [&] { serializer << static_cast<int>(m_style) << m_showZero << m_separator << m_hexPrefix << m_leadingZeros; },
        [&]
        {
            int style = 0;
            bool showZero = false;
            char separator = 0;
            bool hexPrefix = false;
            bool leadingZeros = false;
            serializer >> style >> showZero >> separator >> hexPrefix >> leadingZeros;
            m_style = static_cast<Style>(style);
            m_showZero = showZero;
            m_separator = separator;
            m_hexPrefix = hexPrefix;
            m_leadingZeros = leadingZeros;
        });
}

} // namespace Ostrel::Common::detail
