#include <cassert>
#include <limits>

#include <ostrel/common/dataobject/detail/FieldIndex.h>

namespace Ostrel::Common::detail
{

FieldIndex::FieldIndex(std::vector<Entry> const& entries)
    : m_reciprocal(std::numeric_limits<std::uint64_t>::max() / entries.size() + 1),
      m_bucketCount(static_cast<std::uint32_t>(entries.size())),
      m_starts(entries.size() + 1),
      m_entries(entries.size())
{
    assert(!entries.empty());
    for (Entry const& entry : entries)
    {
        ++m_starts[BucketOf(entry.first) + 1];
    }
    for (std::size_t bucket = 1; bucket < m_starts.size(); ++bucket)
    {
        m_starts[bucket] += m_starts[bucket - 1];
    }
    std::vector<std::uint32_t> next(m_starts.begin(), m_starts.end() - 1);
    for (Entry const& entry : entries)
    {
        m_entries[next[BucketOf(entry.first)]++] = entry;
    }
}

} // namespace Ostrel::Common::detail
