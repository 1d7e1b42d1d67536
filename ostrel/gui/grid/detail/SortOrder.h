// The order of rows among their siblings: up to five levels, each a field and a direction, over cached keys.
//
// The first level's key of every item is held as a prefix: 64 bits whose unsigned order is the order of the values,
// direction included, and the type as a tag. For numbers the prefix says all; texts need the value when prefixes are
// equal. Items hold whole values only when prefixes do not suffice (a text at the first level, or several levels).
//
// Values of different types, or empty ones, are equal to anything and end the comparison; such an order is no strict
// weak one. Searches and the merge sort here therefore never rely on more than a comparison's answer: they stay in
// bounds whatever it is. NaN comes before every number and is equal to itself.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include <ostrel/gui/grid/GridItem.h>

namespace Ostrel::Common
{
class CValue;
}

namespace Ostrel::GUI::Detail
{

/// Where sort keys come from. Called on the grid's thread while rows are inserted, updated and sorted; must change no
/// row.
class IRowValues
{
public:
    virtual ~IRowValues() = default;
    [[nodiscard]] virtual Common::CValue GetSortValue(CGridItem& item, long fieldId) = 0;
};

struct SortLevel
{
    long fieldId = 0;
    bool descending = false;

    friend bool operator==(SortLevel const&, SortLevel const&) = default;
};

/// Three-way answer, and the fourth: the values do not compare, which counts as equal.
enum class Ordering : std::int8_t
{
    Before = -1,
    Equal = 0,
    After = 1,
    Incomparable = 2
};

class SortOrder
{
public:
    static constexpr unsigned kMaxLevels = 5;

    SortOrder() = default;

    /// Takes the first five levels. Items keep their keys: sort afterwards.
    void SetLevels(std::span<SortLevel const> levels);
    [[nodiscard]] std::span<SortLevel const> Levels() const noexcept { return {m_levels, m_count}; }
    [[nodiscard]] bool IsEmpty() const noexcept { return m_count == 0; }

    /// Recomputes an item's keys.
    void ComputeKeys(CGridItem& item, IRowValues& values) const;

    [[nodiscard]] Ordering Compare(CGridItem const& a, CGridItem const& b) const noexcept;
    /// The same with the cached first keys of both at hand.
    [[nodiscard]] Ordering Compare(std::uint64_t prefixA, std::uint8_t tagA, CGridItem const& a, std::uint64_t prefixB,
                                   std::uint8_t tagB, CGridItem const& b) const noexcept
    {
        if (tagA != tagB || tagA == kEmptyTag)
        {
            return Ordering::Incomparable;
        }
        if (prefixA != prefixB)
        {
            return prefixA < prefixB ? Ordering::Before : Ordering::After;
        }
        return m_count <= 1 && tagA > kLastTextTag ? Ordering::Equal : CompareValues(a, b);
    }

    /// Sorts stably. O(n log n).
    void Sort(std::vector<CGridItem*>& items) const;

private:
    static constexpr std::uint8_t kEmptyTag = 0;
    static constexpr std::uint8_t kLastTextTag = 2;

    [[nodiscard]] static bool HasOneNumberType(std::span<CGridItem* const> items, unsigned level) noexcept;
    void SortByTwoNumbers(std::vector<CGridItem*>& items) const;
    [[nodiscard]] Ordering CompareValues(CGridItem const& a, CGridItem const& b) const noexcept;

    SortLevel m_levels[kMaxLevels];
    unsigned m_count = 0;
};

} // namespace Ostrel::GUI::Detail
