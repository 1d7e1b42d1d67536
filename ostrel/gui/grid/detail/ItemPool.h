// Where all rows of the process live. The pool answers whether any address at all is that of a live row, without
// touching it: that is how a grid tells a stale or foreign handle without keeping a set of its rows.
#pragma once

#include <cstddef>

#include <ostrel/gui/grid/GridItem.h>

namespace Ostrel::Common
{
class CDataObject;
}

namespace Ostrel::GUI::Detail
{

/// Any thread.
class ItemPool
{
public:
    ItemPool() = delete;

    [[nodiscard]] static CGridItem* Create(Common::CDataObject* object);
    /// The item must be live, and in no tree.
    static void Destroy(CGridItem* item) noexcept;
    /// True if the address is that of a live row. Any value may be asked.
    [[nodiscard]] static bool IsLive(CGridItem const* item) noexcept;
    [[nodiscard]] static std::size_t LiveCount() noexcept;
};

} // namespace Ostrel::GUI::Detail
