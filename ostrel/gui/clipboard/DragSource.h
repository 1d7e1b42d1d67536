/// @file
/// The rows that are being dragged out of a grid.
#pragma once

#include <utility>
#include <vector>

#include <ostrel/gui/clipboard/DragImage.h>
#include <ostrel/gui/grid/ContextType.h>
#include <ostrel/platform/base/Export.h>

namespace Ostrel::GUI
{
class CGrid;
class CGridItem;
class CHeader;

/// Refers to the grid, the rows and the header and owns none; lives for one drag.
class OSTREL_GUI_API CDragSource
{
public:
    /// The rows of an area of a grid; the list must outlive the drag.
    CDragSource(CGrid& grid, ContextType context, std::vector<CGridItem*>& items, CHeader const* header) noexcept
        : m_grid(grid), m_context(context), m_items(items), m_header(header)
    {}
    CDragSource(CDragSource const&) = delete;
    CDragSource& operator=(CDragSource const&) = delete;
    ~CDragSource() = default;

    /// The grid that the rows come from.
    [[nodiscard]] CGrid& GetGrid() const noexcept { return m_grid; }
    ///@{
    /// The area of the rows.
    [[nodiscard]] ContextType GetContextType() const noexcept { return m_context; }
    void SetContextType(ContextType context) noexcept { m_context = context; }
    ///@}
    /// The rows, each followed by those of its descendants that go along.
    [[nodiscard]] std::vector<CGridItem*>& GetItems() const noexcept { return m_items; }
    ///@{
    /// The columns that the rows are shown in; null for none.
    [[nodiscard]] CHeader const* GetHeader() const noexcept { return m_header; }
    void SetHeader(CHeader const* header) noexcept { m_header = header; }
    ///@}
    /// The picture that goes with the pointer.
    [[nodiscard]] CDragImage const& GetDragImage() const noexcept { return m_image; }
    /// Returns the old picture.
    CDragImage SetDragImage(CDragImage const& image) noexcept { return std::exchange(m_image, image); }

private:
    CGrid& m_grid;
    ContextType m_context;
    std::vector<CGridItem*>& m_items;
    CHeader const* m_header;
    CDragImage m_image;
};
} // namespace Ostrel::GUI
