/// @file
/// Names the cell that is edited in place.
#pragma once

#include <ostrel/platform/base/Export.h>

namespace Ostrel::Common
{
class CDataObject;
}

namespace Ostrel::GUI
{
class CColumn;
class CGrid;
class CGridItem;

/// Refers to everything and owns nothing; lives for one operation.
class OSTREL_GUI_API CEditInPlaceContext
{
public:
    /// The cell of a row in a column.
    CEditInPlaceContext(CGrid& grid, CGridItem* item, Common::CDataObject* object, CColumn const* column) noexcept
        : m_grid(grid), m_item(item), m_object(object), m_column(column)
    {}

    ///@{
    /// The grid of the cell.
    [[nodiscard]] CGrid& GetGrid() noexcept { return m_grid; }
    [[nodiscard]] CGrid const& GetGrid() const noexcept { return m_grid; }
    ///@}
    /// The row.
    [[nodiscard]] CGridItem* GetItem() const noexcept { return m_item; }
    ///@{
    /// The object that the row shows.
    [[nodiscard]] Common::CDataObject* GetDataObject() noexcept { return m_object; }
    [[nodiscard]] Common::CDataObject const* GetDataObject() const noexcept { return m_object; }
    ///@}
    /// The column of the cell.
    [[nodiscard]] CColumn const* GetColumn() const noexcept { return m_column; }

private:
    CGrid& m_grid;
    CGridItem* m_item;
    Common::CDataObject* m_object;
    CColumn const* m_column;
};
} // namespace Ostrel::GUI
