// Prepares the updates that lie behind the one that is being applied, a group of sixteen at a time.
//
// It finds their rows, under one lock for the group. And where there are more rows than a cache holds, it fetches the
// memory that will be needed: a random row of very many lies in no cache, and neither does its object, its slot in the
// registry or its leaf in the tree, each of which leads to the next. Found one after the other that is a wait of a
// microsecond and more; looked for in stages, each a group of updates ahead of the next, most of the waits overlap.
//
// Nothing here changes anything. A row that was found counts only while the registry has not changed since.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include <ostrel/platform/base/Types.h>

namespace Ostrel::Common
{
class CDataObject;
}

namespace Ostrel::GUI
{
class CGridItem;
}

namespace Ostrel::GUI::Detail
{

/// The thread of the grids only, while there is one.
class UpdateLookAhead
{
public:
    /// To be called for each update before it is applied. Returns the object's row if it has exactly one, null where
    /// that was not found out ahead. The updates behind it are found among the posted messages with that number, whose
    /// lParam is an UpdateCargo.
    CGridItem* Step(UINT message, Common::CDataObject const* object);

private:
    static constexpr std::size_t kGroup = 16;

    struct Found
    {
        Common::CDataObject const* object = nullptr;
        CGridItem* row = nullptr;
        std::uint64_t changes = 0; ///< of the registry when the row was found
    };
    using Objects = std::array<Common::CDataObject const*, kGroup>;

    void LookAhead(UINT message);
    void FindRows(Objects const& objects, std::size_t distance);
    void FetchLeaves(std::size_t distance) const noexcept;
    void FetchBranches(std::size_t distance) const noexcept;
    /// The updates so many and more steps from now.
    [[nodiscard]] Found& At(std::size_t distance) noexcept { return m_found[(m_step + distance) % m_found.size()]; }
    [[nodiscard]] Found const& At(std::size_t distance) const noexcept
    {
        return m_found[(m_step + distance) % m_found.size()];
    }

    std::size_t m_step = 0;
    std::array<Found, 4 * kGroup> m_found{}; ///< a ring; wrong or old entries do no harm
};

} // namespace Ostrel::GUI::Detail
