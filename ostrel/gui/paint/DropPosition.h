/// @file
/// Where rows that are dragged over a grid would go if they were dropped now.
#pragma once

#include <ostrel/gui/grid/ContextType.h>
#include <ostrel/platform/base/Export.h>

namespace Ostrel::GUI
{

/// The place of a drop. A plain value.
class OSTREL_GUI_API CDropPosition
{
public:
    CDropPosition() noexcept = default;
    /// See the getters.
    CDropPosition(ContextType context, int dropIndex, bool dropAfter, int dropParentIndex) noexcept
        : m_context(context), m_dropIndex(dropIndex), m_dropAfter(dropAfter), m_dropParentIndex(dropParentIndex)
    {}

    /// The row area of the drop, NoContext while there is no drop.
    [[nodiscard]] ContextType GetDropContext() const noexcept { return m_context; }
    /// The row number in that area next to which the rows go, -1 for none.
    [[nodiscard]] int GetDropIndex() const noexcept { return m_dropIndex; }
    /// True when the rows go after the row at the index, false when before it.
    [[nodiscard]] bool GetDropAfter() const noexcept { return m_dropAfter; }
    /// The row number of the row that becomes the parent, -1 for none.
    [[nodiscard]] int GetDropParentIndex() const noexcept { return m_dropParentIndex; }

    /// Equality of all four.
    friend bool operator==(CDropPosition const&, CDropPosition const&) noexcept = default;

private:
    ContextType m_context = NoContext;
    int m_dropIndex = -1;
    bool m_dropAfter = true;
    int m_dropParentIndex = -1;
};

} // namespace Ostrel::GUI
