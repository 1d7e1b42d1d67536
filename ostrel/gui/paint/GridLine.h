/// @file
/// One row of a grid as it is painted: its place, its item and what its neighbours are. Lives on the stack of a paint
/// pass; painters keep no reference to it.
#pragma once

#include <ostrel/gui/grid/ContextType.h>
#include <ostrel/gui/paint/PaintInfo.h>

namespace Ostrel::Common
{
class CDataObject;
}

namespace Ostrel::GUI
{

class CGridItem;

/// One line: its place and looks, and the row it shows.
class OSTREL_GUI_API CGridLine
{
public:
    /// See the getters.
    CGridLine(CPaintInfo const& paintInfo, ContextType context, int row, CGridItem* item, bool previousRowSelected,
              bool nextRowSelected) noexcept
        : m_paintInfo(paintInfo),
          m_context(context),
          m_row(row),
          m_item(item),
          m_previousRowSelected(previousRowSelected),
          m_nextRowSelected(nextRowSelected)
    {}

    ///@{
    /// Place and looks.
    [[nodiscard]] CPaintInfo const& GetPaintInfo() const noexcept { return m_paintInfo; }
    [[nodiscard]] CPaintInfo& GetPaintInfo() noexcept { return m_paintInfo; }
    ///@}

    /// The area of the line.
    [[nodiscard]] ContextType GetContextType() const noexcept { return m_context; }
    /// The row's number in its area, counted on through the empty lines below the last row.
    [[nodiscard]] int GetRow() const noexcept { return m_row; }
    /// The row; null for an empty line below the last row, and once the row is gone.
    [[nodiscard]] CGridItem* GetItem() const noexcept;
    ///@{
    /// Whether the row above, or below, is selected; the areas meet at the last fixed and the first scrollable row.
    [[nodiscard]] bool IsPreviusRowSelected() const noexcept { return m_previousRowSelected; }
    [[nodiscard]] bool IsNextRowSelected() const noexcept { return m_nextRowSelected; }
    ///@}

    /// Whether the row is selected; false without one.
    [[nodiscard]] bool IsRowSelected() const noexcept;
    /// 0 for a top-level row and without an item, one more for each level below.
    [[nodiscard]] int GetHierarchicalLevel() const noexcept;
    /// Whether the row shows its children; false without one.
    [[nodiscard]] bool IsExpanded() const noexcept;
    /// The row's object or null.
    [[nodiscard]] Common::CDataObject* GetDataObject() const noexcept;

private:
    CPaintInfo m_paintInfo;
    ContextType m_context;
    int m_row;
    CGridItem* m_item;
    bool m_previousRowSelected;
    bool m_nextRowSelected;
};

} // namespace Ostrel::GUI
