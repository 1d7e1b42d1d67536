#include <array>
#include <cstdint>
#include <string_view>
#include <utility>

#include <ostrel/common/format/LongMsecTimeFormat.h>
#include <ostrel/common/format/detail/DigitText.h>
#include <ostrel/platform/base/Narrow.h>

namespace Ostrel::Common
{

namespace
{

using Format = CLongMsecTimeFormat;

struct Unit
{
    unsigned long bit;
    std::uint32_t milliseconds;
    std::uint32_t countInNext; ///< how many make one of the next larger unit; 0 for the largest
    int width;
};

/// From the largest to the smallest.
constexpr std::array<Unit, 5> kUnits = {{{Format::Days, 86'400'000, 0, 1},
                                         {Format::Hours, 3'600'000, 24, 2},
                                         {Format::Minutes, 60'000, 60, 2},
                                         {Format::Seconds, 1000, 60, 2},
                                         {Format::Milliseconds, 1, 1000, 3}}};

constexpr unsigned long kTimeBits = Format::Hours | Format::Minutes | Format::Seconds | Format::Milliseconds;

/// True when the set bits stand side by side.
constexpr bool IsRun(unsigned long bits) noexcept
{
    unsigned long const lowest = bits & (~bits + 1);
    return bits != 0 && ((bits + lowest) & bits) == 0;
}

/// The time without the days; empty if its units have a gap.
void AppendTime(std::string& text, std::uint32_t magnitude, unsigned long style, bool leadingZeros)
{
    unsigned long const timeBits = style & kTimeBits;
    if (!IsRun(timeBits))
    {
        return;
    }
    bool started = false;
    bool isLargest = (style & Format::Days) == 0;
    for (Unit const& unit : kUnits)
    {
        if ((timeBits & unit.bit) == 0)
        {
            continue;
        }
        std::uint32_t const total = magnitude / unit.milliseconds;
        std::uint32_t const count = isLargest ? total : total % unit.countInNext;
        bool const isSmallest = timeBits < 2 * unit.bit;
        isLargest = false;
        if (count == 0 && !started && !leadingZeros && !isSmallest)
        {
            continue;
        }
        if (started)
        {
            text.push_back(unit.bit == Format::Milliseconds ? '.' : ':');
        }
        detail::AppendDigits(text, count, started || leadingZeros ? unit.width : 1);
        started = true;
    }
}

/// The smallest unit whose text is shown, null when none is.
Unit const* SmallestShown(unsigned long style) noexcept
{
    unsigned long const timeBits = style & kTimeBits;
    unsigned long const shown = IsRun(timeBits) ? timeBits : style & Format::Days;
    Unit const* smallest = nullptr;
    for (Unit const& unit : kUnits)
    {
        smallest = (shown & unit.bit) != 0 ? &unit : smallest;
    }
    return smallest;
}

/// Whether the units of a style can be told apart in a text.
bool IsReadable(unsigned long style) noexcept
{
    return (style & (kTimeBits | Format::Days)) == 0 || IsRun(style & (kTimeBits | Format::Days));
}

/// Takes the last run of digits off a text; empty when there is none.
std::string_view TakeLastDigits(std::string_view& text) noexcept
{
    std::size_t const last = text.find_last_of(detail::kDigits);
    if (last == std::string_view::npos)
    {
        return {};
    }
    std::size_t const before = text.find_last_not_of(detail::kDigits, last);
    std::size_t const first = before == std::string_view::npos ? 0 : before + 1;
    std::string_view const digits = text.substr(first, last + 1 - first);
    text = text.substr(0, first);
    return digits;
}

} // namespace

CLongMsecTimeFormat::CLongMsecTimeFormat(unsigned long style, bool leadingZeros, std::string const& timeSuffix,
                                         std::string const& daysSuffix)
    : m_style(Platform::NarrowULong(style)),
      m_leadingZeros(leadingZeros),
      m_daysSuffix(daysSuffix),
      m_timeSuffix(timeSuffix)
{}

void CLongMsecTimeFormat::AppendStl(std::string& text, long value) const
{
    std::int32_t const number = Platform::NarrowToInt32(value);
    auto const bits = static_cast<std::uint32_t>(number);
    std::uint32_t const magnitude = number < 0 ? 0 - bits : bits;

    Unit const* const smallest = SmallestShown(m_style);
    if (number < 0 && smallest != nullptr && magnitude >= smallest->milliseconds)
    {
        text.push_back('-');
    }
    std::string time;
    AppendTime(time, magnitude, m_style, m_leadingZeros);
    std::uint32_t const days = magnitude / kUnits[0].milliseconds;
    if ((m_style & Days) != 0 && (m_leadingZeros || days != 0 || m_style == Days))
    {
        detail::AppendDigits(text, days, 1);
        text.append(m_daysSuffix).append(time.empty() ? "" : " ");
    }
    if (!time.empty())
    {
        text.append(time).append(m_timeSuffix);
    }
}

bool CLongMsecTimeFormat::ParseStl(std::string const& text, long& value, CDataObject const* /*object*/) const
{
    if (!IsReadable(m_style))
    {
        return false;
    }
    std::size_t const begin = text.find_first_of("0123456789-");
    bool const negative = begin != std::string::npos && text[begin] == '-';
    std::string digits(detail::DigitSpanOrNothing(text));
    std::erase_if(digits, [](char character)
                  { return std::string_view("0123456789.,:;/ \t").find(character) == std::string_view::npos; });

    std::string_view time = digits;
    std::string_view days;
    if (std::size_t const blank = time.find_first_of(" \t"); blank != std::string_view::npos)
    {
        days = detail::DigitSpanOrNothing(time.substr(0, blank));
        time = time.substr(blank);
    }
    std::uint32_t sum = 0; // modulo 2^32, as documented
    for (auto unit = kUnits.rbegin(); unit != kUnits.rend(); ++unit)
    {
        if ((m_style & unit->bit) == 0)
        {
            continue;
        }
        std::string_view piece = TakeLastDigits(time);
        if (piece.empty())
        {
            piece = std::exchange(days, {});
        }
        sum += static_cast<std::uint32_t>(detail::ReadNumber(piece)) * unit->milliseconds;
    }
    value = static_cast<std::int32_t>(negative ? 0 - sum : sum);
    return true;
}

void CLongMsecTimeFormat::Serialize(CSerializer& serializer)
{
    SerializeSettings(
        serializer, [&] { serializer << m_style << m_leadingZeros << m_daysSuffix << m_timeSuffix; },
        [&]
        {
            unsigned long style = 0;
            bool leadingZeros = false;
            std::string daysSuffix;
            std::string timeSuffix;
            serializer >> style >> leadingZeros >> daysSuffix >> timeSuffix;
            m_style = style;
            m_leadingZeros = leadingZeros;
            m_daysSuffix = std::move(daysSuffix);
            m_timeSuffix = std::move(timeSuffix);
        });
}

} // namespace Ostrel::Common
