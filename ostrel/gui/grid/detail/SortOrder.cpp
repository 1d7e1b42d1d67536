#include "SortOrder.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>

#include <ostrel/common/value/Value.h>
#include <ostrel/gui/grid/detail/GridItem.h>
#include <ostrel/gui/grid/detail/ItemPool.h>
#include <ostrel/gui/grid/detail/MergeSort.h>

namespace Ostrel::GUI::Detail
{
namespace
{

using Common::CValue;

constexpr std::uint64_t kSignBit = std::uint64_t{1} << 63;

std::uint64_t PrefixOf(std::int64_t number) noexcept
{
    return static_cast<std::uint64_t>(number) ^ kSignBit;
}

/// NaN is the lowest; both zeros are one.
std::uint64_t PrefixOf(double number) noexcept
{
    if (std::isnan(number))
    {
        return 0;
    }
    auto const bits = std::bit_cast<std::uint64_t>(number + 0.0);
    return (bits & kSignBit) != 0 ? ~bits : bits | kSignBit;
}

/// The first eight bytes, the first of them the most significant.
std::uint64_t PrefixOf(char const* text, std::size_t length) noexcept
{
    unsigned char bytes[8] = {};
    std::memcpy(bytes, text, std::min(length, sizeof(bytes)));
    std::uint64_t prefix = 0;
    for (unsigned char const byte : bytes)
    {
        prefix = prefix << 8U | byte;
    }
    return prefix;
}

std::uint64_t PrefixOf(CString const& text) noexcept
{
    char const* const begin = text.GetString();
    return PrefixOf(begin, strnlen(begin, 8));
}

std::uint64_t PrefixOf(std::string const& text) noexcept
{
    return PrefixOf(text.data(), text.size());
}

/// Unsigned order of prefixes is the ascending order of values of that type; equal prefixes of texts say nothing.
std::uint64_t PrefixOf(CValue const& value) noexcept
{
    using namespace Common;
    switch (value.GetType())
    {
    case TypeEmpty:
        return 0;
    case TypeMfcString:
        return PrefixOf(static_cast<CString const&>(value));
    case TypeStlString:
        return PrefixOf(static_cast<std::string const&>(value));
    case TypeChar:
        return PrefixOf(std::int64_t{static_cast<signed char>(static_cast<char>(value))});
    case TypeUChar:
        return static_cast<unsigned char>(value);
    case TypeShort:
        return PrefixOf(std::int64_t{static_cast<short>(value)});
    case TypeUShort:
        return static_cast<unsigned short>(value);
    case TypeLong:
        return PrefixOf(std::int64_t{static_cast<long>(value)});
    case TypeULong:
        return static_cast<unsigned long>(value);
    case TypeInt64:
        return PrefixOf(std::int64_t{static_cast<__int64>(value)});
    case TypeBool:
        return static_cast<bool>(value) ? 1 : 0;
    case TypeFloat:
        return PrefixOf(double{static_cast<float>(value)});
    case TypeDouble:
        return PrefixOf(static_cast<double>(value));
    case TypeObjectPtr:
        return reinterpret_cast<std::uintptr_t>(static_cast<CDataObject*>(value));
    }
    return 0;
}

bool IsText(std::uint8_t tag) noexcept
{
    return tag == Common::TypeMfcString || tag == Common::TypeStlString;
}

Ordering Reversed(Ordering ordering) noexcept
{
    return ordering == Ordering::Before ? Ordering::After : ordering == Ordering::After ? Ordering::Before : ordering;
}

Ordering CompareTexts(CValue const& a, CValue const& b) noexcept
{
    std::partial_ordering const order = a <=> b;
    return order < 0 ? Ordering::Before : order > 0 ? Ordering::After : Ordering::Equal;
}

Ordering CompareAscending(CValue const& a, CValue const& b) noexcept
{
    if (a.GetType() != b.GetType() || a.GetType() == Common::TypeEmpty)
    {
        return Ordering::Incomparable;
    }
    if (IsText(static_cast<std::uint8_t>(a.GetType())))
    {
        return CompareTexts(a, b);
    }
    std::uint64_t const prefixA = PrefixOf(a);
    std::uint64_t const prefixB = PrefixOf(b);
    return prefixA < prefixB ? Ordering::Before : prefixA > prefixB ? Ordering::After : Ordering::Equal;
}

} // namespace

void SortOrder::SetLevels(std::span<SortLevel const> levels)
{
    m_count = static_cast<unsigned>(std::min<std::size_t>(levels.size(), kMaxLevels));
    std::ranges::copy(levels.first(m_count), m_levels);
}

void SortOrder::ComputeKeys(CGridItem& item, IRowValues& values) const
{
    CValue keys[kMaxLevels];
    for (unsigned level = 0; level < m_count; ++level)
    {
        keys[level] = values.GetSortValue(item, m_levels[level].fieldId);
    }
    if (!ItemPool::IsLive(&item))
    {
        return; // the row is gone that was asked
    }
    item.m_sortTag = static_cast<std::uint8_t>(keys[0].GetType());
    item.m_sortPrefix = m_levels[0].descending ? ~PrefixOf(keys[0]) : PrefixOf(keys[0]);
    bool const needsValues = m_count > 1 || IsText(item.m_sortTag);
    unsigned const count = needsValues ? m_count : 0;
    if (item.m_sortValueCount != count)
    {
        item.m_sortValues.reset(count ? new CValue[count] : nullptr);
        item.m_sortValueCount = static_cast<std::uint8_t>(count);
    }
    if (count != 0) // else what the row has besides its key need not be touched
    {
        std::move(keys, keys + count, item.m_sortValues.get());
    }
}

Ordering SortOrder::Compare(CGridItem const& a, CGridItem const& b) const noexcept
{
    return Compare(a.m_sortPrefix, a.m_sortTag, a, b.m_sortPrefix, b.m_sortTag, b);
}

/// For items whose first keys are of one type and have equal prefixes.
Ordering SortOrder::CompareValues(CGridItem const& a, CGridItem const& b) const noexcept
{
    unsigned const known = std::min(a.m_sortValueCount, b.m_sortValueCount);
    for (unsigned level = IsText(a.m_sortTag) ? 0 : 1; level < m_count; ++level)
    {
        if (level >= known)
        {
            return Ordering::Incomparable;
        }
        Ordering const ordering = CompareAscending(a.m_sortValues[level], b.m_sortValues[level]);
        if (ordering != Ordering::Equal)
        {
            return m_levels[level].descending ? Reversed(ordering) : ordering;
        }
    }
    return Ordering::Equal;
}

namespace
{
struct Keyed
{
    std::uint64_t prefix;
    CGridItem* item;
};

struct TwiceKeyed
{
    std::uint64_t prefix;
    std::uint64_t secondPrefix;
    CGridItem* item;
};
} // namespace

void SortOrder::Sort(std::vector<CGridItem*>& items) const
{
    if (items.size() < 2)
    {
        return;
    }
    std::uint8_t const tag = items.front()->m_sortTag;
    bool isOneType = tag != kEmptyTag;
    std::vector<Keyed> keyed;
    keyed.reserve(items.size());
    for (CGridItem* const item : items)
    {
        keyed.push_back({item->m_sortPrefix, item});
        isOneType = isOneType && item->m_sortTag == tag;
    }
    if (!isOneType)
    {
        MergeSort(items, [this](CGridItem* a, CGridItem* b) { return Compare(*a, *b) == Ordering::Before; });
        return;
    }
    if (m_count == 1 && !IsText(tag))
    {
        RadixSort(keyed, &Keyed::prefix);
    }
    else if (m_count == 2 && !IsText(tag) && HasOneNumberType(items, 1))
    {
        SortByTwoNumbers(items);
        return;
    }
    else
    {
        MergeSort(keyed,
                  [this](Keyed const& a, Keyed const& b) {
                      return a.prefix != b.prefix ? a.prefix < b.prefix
                                                  : CompareValues(*a.item, *b.item) == Ordering::Before;
                  });
    }
    std::ranges::transform(keyed, items.begin(), &Keyed::item);
}

bool SortOrder::HasOneNumberType(std::span<CGridItem* const> items, unsigned level) noexcept
{
    Common::EnType const type = items.front()->m_sortValues[level].GetType();
    return type != Common::TypeEmpty && !IsText(static_cast<std::uint8_t>(type)) &&
           std::ranges::all_of(items, [=](CGridItem* item) { return item->m_sortValues[level].GetType() == type; });
}

/// By the lesser level first; the sort by the greater one keeps that order among equals.
void SortOrder::SortByTwoNumbers(std::vector<CGridItem*>& items) const
{
    std::vector<TwiceKeyed> keyed;
    keyed.reserve(items.size());
    for (CGridItem* const item : items)
    {
        std::uint64_t const second = PrefixOf(item->m_sortValues[1]);
        keyed.push_back({item->m_sortPrefix, m_levels[1].descending ? ~second : second, item});
    }
    RadixSort(keyed, &TwiceKeyed::secondPrefix);
    RadixSort(keyed, &TwiceKeyed::prefix);
    std::ranges::transform(keyed, items.begin(), &TwiceKeyed::item);
}

} // namespace Ostrel::GUI::Detail
