#include <algorithm>

#include <ostrel/platform/base/Utf8.h>

namespace Ostrel::Platform
{

namespace
{

constexpr char32_t kReplacement = 0xFFFD;
constexpr std::size_t kMaxLength = 4;

constexpr unsigned char ByteAt(std::string_view text, std::size_t position) noexcept
{
    return static_cast<unsigned char>(text[position]);
}

constexpr bool IsContinuation(unsigned char byte) noexcept
{
    return (byte & 0xC0U) == 0x80U;
}

constexpr bool IsScalar(char32_t codePoint) noexcept
{
    return codePoint <= 0x10FFFF && (codePoint < 0xD800 || codePoint > 0xDFFF);
}

/// The length that a lead byte promises; 1 for ASCII and for what cannot lead.
constexpr unsigned PromisedLength(unsigned char lead) noexcept
{
    if (lead < 0xC2 || lead > 0xF4)
    {
        return 1;
    }
    return lead < 0xE0 ? 2 : (lead < 0xF0 ? 3 : 4);
}

/// The smallest code point that needs so many bytes.
constexpr char32_t SmallestOf(unsigned length) noexcept
{
    return length == 2 ? 0x80 : (length == 3 ? 0x800 : 0x10000);
}

char Continuation(char32_t codePoint, unsigned shift) noexcept
{
    return static_cast<char>(0x80U | ((codePoint >> shift) & 0x3FU));
}

} // namespace

Utf8Character DecodeUtf8(std::string_view text, std::size_t position) noexcept
{
    if (position >= text.size())
    {
        return {0, 0, false};
    }
    unsigned char const lead = ByteAt(text, position);
    Utf8Character const single = {lead, 1, lead < 0x80};
    unsigned const length = PromisedLength(lead);
    if (length == 1 || text.size() - position < length)
    {
        return single;
    }
    char32_t codePoint = lead & (0x7FU >> length);
    for (unsigned i = 1; i < length; ++i)
    {
        unsigned char const byte = ByteAt(text, position + i);
        if (!IsContinuation(byte))
        {
            return single;
        }
        codePoint = (codePoint << 6U) | (byte & 0x3FU);
    }
    return IsScalar(codePoint) && codePoint >= SmallestOf(length) ? Utf8Character{codePoint, length, true} : single;
}

void AppendUtf8(std::string& text, char32_t codePoint)
{
    char32_t const scalar = IsScalar(codePoint) ? codePoint : kReplacement;
    if (scalar < 0x80)
    {
        text += static_cast<char>(scalar);
    }
    else if (scalar < 0x800)
    {
        text += {static_cast<char>(0xC0U | (scalar >> 6U)), Continuation(scalar, 0)};
    }
    else if (scalar < 0x10000)
    {
        text += {static_cast<char>(0xE0U | (scalar >> 12U)), Continuation(scalar, 6), Continuation(scalar, 0)};
    }
    else
    {
        text += {static_cast<char>(0xF0U | (scalar >> 18U)), Continuation(scalar, 12), Continuation(scalar, 6),
                 Continuation(scalar, 0)};
    }
}

std::size_t Utf8BoundaryAt(std::string_view text, std::size_t position) noexcept
{
    if (position >= text.size())
    {
        return text.size();
    }
    // A valid character is never cut by the one before it, so whatever valid one reaches over the position holds it.
    for (std::size_t back = 1; back < kMaxLength && back <= position; ++back)
    {
        if (DecodeUtf8(text, position - back).length > back)
        {
            return position - back;
        }
    }
    return position;
}

std::size_t NextUtf8(std::string_view text, std::size_t position) noexcept
{
    std::size_t const boundary = Utf8BoundaryAt(text, position);
    return boundary + DecodeUtf8(text, boundary).length;
}

std::size_t PreviousUtf8(std::string_view text, std::size_t position) noexcept
{
    std::size_t const end = std::min(position, text.size());
    return end == 0 ? 0 : Utf8BoundaryAt(text, end - 1);
}

bool IsValidUtf8(std::string_view text) noexcept
{
    for (std::size_t position = 0; position < text.size();)
    {
        Utf8Character const character = DecodeUtf8(text, position);
        if (!character.isValid)
        {
            return false;
        }
        position += character.length;
    }
    return true;
}

std::string CleanUtf8(std::string_view text)
{
    std::string clean;
    clean.reserve(text.size());
    for (std::size_t position = 0; position < text.size();)
    {
        Utf8Character const character = DecodeUtf8(text, position);
        AppendUtf8(clean, character.codePoint);
        position += character.length;
    }
    return clean;
}

std::size_t CountUtf8(std::string_view text) noexcept
{
    std::size_t count = 0;
    for (std::size_t position = 0; position < text.size(); ++count)
    {
        position += DecodeUtf8(text, position).length;
    }
    return count;
}

} // namespace Ostrel::Platform
