/// @file
/// The formats of the two byte types: the number, its hexadecimal digits, or the byte as one character.
#pragma once

#include <charconv>
#include <string>
#include <type_traits>

#include <ostrel/common/format/HexFormatter.h>
#include <ostrel/common/format/detail/IntegerText.h>
#include <ostrel/common/format/detail/TypedFormat.h>

namespace Ostrel::Common::detail
{

/// What CCharFormat and CUCharFormat have in common.
template <class Derived, FieldValue T>
class OSTREL_COMMON_API ByteFormat : public TypedFormat<Derived, T>
{
public:
    /// How the byte is shown.
    enum Style : int
    {
        Decimal = 0,  ///< the number
        Hex = 1,      ///< hexadecimal digits
        Character = 2 ///< the byte as one character of text; nothing for 0
    };

    /// How the byte is shown.
    [[nodiscard]] Style GetStyle() const noexcept { return m_style; }

    using TypedFormat<Derived, T>::ParseStl;
    /// Decimal: 0 to 255, with a minus sign in the signed format only, and nothing else in the text. Hexadecimal: see
    /// CHexFormatter::ToHex. Character: the first byte of the text, 0 for an empty one.
    bool ParseStl(std::string const& text, T& value, CDataObject const* object = nullptr) const override;

    /// Appends what FormatStl gives.
    void AppendStl(std::string& text, T value) const;

    /// Stores the version and the settings, or restores them; see CFormat::Serialize.
    void Serialize(CSerializer& serializer) override;

protected:
    /// The settings as the constructor of the format takes them.
    ByteFormat(Style style, bool flag, bool hexPrefix, bool leadingZeros) noexcept
        : m_style(style), m_flag(flag), m_hexPrefix(hexPrefix), m_leadingZeros(leadingZeros)
    {}
    /// Copies the settings; for Clone.
    ByteFormat(ByteFormat const&) = default;

    Style m_style; ///< how the byte is shown

private:
    static bool ParseDecimal(std::string const& text, T& value);

    bool m_flag; ///< kept and stored with the settings; no conversion reads it
    bool m_hexPrefix;
    bool m_leadingZeros;
};

template <class Derived, FieldValue T>
void ByteFormat<Derived, T>::AppendStl(std::string& text, T value) const
{
    switch (m_style)
    {
    case Decimal: {
        char digits[4];
        text.append(digits, std::to_chars(digits, digits + sizeof(digits), static_cast<int>(value)).ptr);
        break;
    }
    case Hex:
        text.append(m_hexPrefix ? "0x" : "");
        AppendHexDigits(text, static_cast<unsigned char>(value), 2, m_leadingZeros);
        break;
    case Character:
        if (value != 0)
        {
            text.push_back(static_cast<char>(value));
        }
        break;
    }
}

template <class Derived, FieldValue T>
bool ByteFormat<Derived, T>::ParseStl(std::string const& text, T& value, CDataObject const* /*object*/) const
{
    switch (m_style)
    {
    case Decimal:
        return ParseDecimal(text, value);
    case Hex:
        return CHexFormatter::ToHex(text, value);
    case Character:
        value = text.empty() ? T() : static_cast<T>(text.front());
        return true;
    }
    return false;
}

template <class Derived, FieldValue T>
bool ByteFormat<Derived, T>::ParseDecimal(std::string const& text, T& value)
{
    ByteNumber number;
    if (!ReadDecimalByte(text, number) || (number.negative && std::is_same_v<T, unsigned char>))
    {
        return false;
    }
    value = static_cast<T>(number.negative ? -number.magnitude : number.magnitude);
    return true;
}

template <class Derived, FieldValue T>
void ByteFormat<Derived, T>::Serialize(CSerializer& serializer)
{
    this->SerializeSettings(
        serializer, [&] { serializer << static_cast<int>(m_style) << m_flag << m_hexPrefix << m_leadingZeros; },
        [&]
        {
            int style = 0;
            bool flag = false;
            bool hexPrefix = false;
            bool leadingZeros = false;
            serializer >> style >> flag >> hexPrefix >> leadingZeros;
            m_style = static_cast<Style>(style);
            m_flag = flag;
            m_hexPrefix = hexPrefix;
            m_leadingZeros = leadingZeros;
        });
}

} // namespace Ostrel::Common::detail
