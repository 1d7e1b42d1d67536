// One row of a grid as it is painted: its place, its item and what its neighbours are. Lives on the stack of a paint
// pass; painters keep no reference to it.
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

class OSTREL_GUI_API CGridLine
{
public:
    CGridLine(CPaintInfo const& paintInfo, ContextType context, int row, CGridItem* item, bool previousRowSelected,
              bool nextRowSelected) noexcept
        : m_paintInfo(paintInfo),
          m_context(context),
          m_row(row),
          m_item(item),
          m_previousRowSelected(previousRowSelected),
          m_nextRowSelected(nextRowSelected)
    {}

    [[nodiscard]] CPaintInfo const& GetPaintInfo() const noexcept { return m_paintInfo; }
    [[nodiscard]] CPaintInfo& GetPaintInfo() noexcept { return m_paintInfo; }

    [[nodiscard]] ContextType GetContextType() const noexcept { return m_context; }
    /// The row's number in its area, counted on through the empty lines below the last row.
    [[nodiscard]] int GetRow() const noexcept { return m_row; }
    /// Null for an empty line below the last row.
    [[nodiscard]] CGridItem* GetItem() const noexcept { return m_item; }
    [[nodiscard]] bool IsPreviusRowSelected() const noexcept { return m_previousRowSelected; }
    [[nodiscard]] bool IsNextRowSelected() const noexcept { return m_nextRowSelected; }

    /// False without an item.
    [[nodiscard]] bool IsRowSelected() const noexcept;
    /// 0 for a top-level row and without an item, one more for each level below.
    [[nodiscard]] int GetHierarchicalLevel() const noexcept;
    /// False without an item.
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
