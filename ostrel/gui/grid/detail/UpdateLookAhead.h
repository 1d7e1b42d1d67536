// Fetches ahead the memory that the next updates will need. A random row of very many lies in no cache, and neither
// does its object, its slot in the registry or its leaf in the tree, each of which leads to the next. Found one after
// the other that is a wait of a microsecond and more; looked for some updates ahead, sixteen rows at a time, most of
// the waits overlap.
//
// Nothing here changes anything, and what it finds are hints: by the time an update is applied its row may be gone.
#pragma once

#include <array>
#include <cstddef>

#include <ostrel/platform/base/Types.h>

namespace Ostrel::GUI
{
class CGridItem;
}

namespace Ostrel::GUI::Detail
{

/// The dispatcher's thread only.
class UpdateLookAhead
{
public:
    /// Says that an update is about to be applied. The updates behind it are found among the posted messages with that
    /// number, whose lParam is an UpdateRecord.
    void Step(UINT message);

private:
    static constexpr std::size_t kGroup = 16;

    using Rows = std::array<CGridItem*, kGroup>; ///< null where an update has no row

    void LookAhead(UINT message);
    void FetchBranches() const noexcept;
    void FetchLeaves() const noexcept;
    void FindRows(UINT message);

    std::size_t m_step = 0;
    Rows m_found{};   ///< whose own memory was fetched a group ago
    Rows m_fetched{}; ///< whose leaf was fetched a group ago
};

} // namespace Ostrel::GUI::Detail
