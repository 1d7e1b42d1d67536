// The look-up table of a field map: as many buckets as there are fields, a field in the bucket of its number modulo
// the number of buckets. The buckets lie in one array and the remainder is taken by multiplication, so that finding a
// field costs a few nanoseconds.
#pragma once

#include <cstdint>
#include <utility>
#include <vector>

#include <ostrel/platform/base/Export.h>

namespace Ostrel::Common
{
class CField;
}

namespace Ostrel::Common::detail
{

class OSTREL_COMMON_API FieldIndex
{
public:
    using Entry = std::pair<std::int32_t, CField*>;

    /// `entries` are not empty and in ascending order of their numbers, each number once. The fields are not owned.
    explicit FieldIndex(std::vector<Entry> const& entries);

    /// Null when the number is not there. Any number is fine.
    [[nodiscard]] CField* Find(std::int32_t fid) const noexcept
    {
        std::uint32_t const bucket = BucketOf(fid);
        Entry const* const end = m_entries.data() + m_starts[bucket + 1];
        for (Entry const* entry = m_entries.data() + m_starts[bucket]; entry != end; ++entry)
        {
            if (entry->first == fid)
            {
                return entry->second;
            }
        }
        return nullptr;
    }

    /// The number modulo the count of buckets, never negative: a negative remainder counts from the last bucket.
    [[nodiscard]] std::uint32_t BucketOf(std::int32_t fid) const noexcept
    {
        if (fid >= 0)
        {
            return Remainder(static_cast<std::uint32_t>(fid));
        }
        std::uint32_t const remainder = Remainder(~static_cast<std::uint32_t>(fid));
        return m_bucketCount - 1 - remainder;
    }

private:
    /// The exact remainder: the fraction of value / count in 64 bits, times count.
    [[nodiscard]] std::uint32_t Remainder(std::uint32_t value) const noexcept
    {
        __extension__ using Wide = unsigned __int128;
        std::uint64_t const fraction = m_reciprocal * value;
        return static_cast<std::uint32_t>((static_cast<Wide>(fraction) * m_bucketCount) >> 64U);
    }

    std::uint64_t m_reciprocal; ///< 2^64 / count, rounded up
    std::uint32_t m_bucketCount;
    std::vector<std::uint32_t> m_starts; ///< the first entry of each bucket, and the end
    std::vector<Entry> m_entries;        ///< bucket after bucket
};

} // namespace Ostrel::Common::detail
