// What a paint pass reads once for all its cells: the columns with their places and settings, and the grid's switches.
// The cells then need no header look-up and no lock. It keeps the columns of its moment alive.
//
// The mutable members are memos of the pass, not state of the grid: the last time look-up, the last column found, the
// images stretched so far. A snapshot belongs to the grid's thread.
#pragma once

#include <algorithm>
#include <memory>
#include <optional>
#include <vector>

#include <ostrel/gui/header/Column.h>
#include <ostrel/gui/paint/Appearance.h>
#include <ostrel/gui/paint/PaintContext.h>
#include <ostrel/gui/paint/detail/StretchedImages.h>

namespace Ostrel::GUI
{
class CGridItem;
class CHeader;
class HeaderLayout;
class IEditInPlace;
} // namespace Ostrel::GUI

namespace Ostrel::GUI::Detail
{

/// A visible column with a width; left and right in client pixels, scrolled as the grid is.
struct PaintColumn
{
    CColumn const* column = nullptr;
    long fid = -2;
    int left = 0;
    int right = 0;
    bool isFixed = false;
    int sortLevel = -1; ///< -1 when no level sorts by it
    bool reverseSort = false;
    CColumn::Alignment alignment = CColumn::AlignLeft;
    Common::CFormat const* textFormat = nullptr;
    int cellImageId = -1;
};

/// Who is asked before a cell is painted, and who draws over it afterwards; null for nobody.
struct CellEditors
{
    IEditInPlace* before = nullptr;
    IEditInPlace* after = nullptr;

    [[nodiscard]] static CellEditors Of(CGrid const& grid);
};

struct PaintSnapshot
{
    /// Reads the header, which is that of the grid unless an application's own context says otherwise. Grid thread
    /// only.
    PaintSnapshot(CGrid const& grid, CHeader const& header);
    PaintSnapshot(PaintSnapshot const&) = delete;
    PaintSnapshot& operator=(PaintSnapshot const&) = delete;
    ~PaintSnapshot();

    /// Null when the column is not shown.
    [[nodiscard]] PaintColumn const* Find(CColumn const* column) const noexcept;

    /// Milliseconds since the field's last update in the row, negative for never. Asks the grid once for each cell.
    [[nodiscard]] int ElapsedSinceUpdate(CGrid const& grid, CGridItem* item, long fid) const;

    [[nodiscard]] StretchedImages& Images() const noexcept { return m_images; }

    std::shared_ptr<HeaderLayout const> layout;
    std::vector<PaintColumn> columns; ///< in visual order, the fixed ones first
    int fixedRight = 0;               ///< right edge of the fixed columns
    int columnsRight = 0;             ///< right edge of the last column
    CColumn const* hierarchicalColumn = nullptr;
    CAppearance const& appearance;
    bool highlightAllowed = false;
    CellEditors editors;

private:
    mutable PaintColumn const* m_lastFound = nullptr;
    mutable CGridItem* m_elapsedItem = nullptr;
    mutable long m_elapsedFid = 0;
    mutable int m_elapsed = -1;
    mutable StretchedImages m_images;
};

/// The context's snapshot, or one taken now for a context that has none.
class SnapshotOf
{
public:
    /// The context must have a header.
    explicit SnapshotOf(CPaintContext const& context) : m_shared(context.Snapshot())
    {
        if (m_shared == nullptr)
        {
            m_own.emplace(context.GetGrid(), *context.GetHeader());
        }
    }

    PaintSnapshot const& operator*() const noexcept { return m_shared != nullptr ? *m_shared : *m_own; }
    PaintSnapshot const* operator->() const noexcept { return &**this; }

private:
    PaintSnapshot const* m_shared;
    std::optional<PaintSnapshot> m_own;
};

/// Calls visit(column, visibleLeft) for every column of which a pixel of [left, right) is to be seen, from left to
/// right.
template <class Visit>
void ForEachColumn(PaintSnapshot const& snapshot, int left, int right, Visit&& visit)
{
    for (PaintColumn const& column : snapshot.columns)
    {
        int const visibleLeft = column.isFixed ? column.left : std::max(column.left, snapshot.fixedRight);
        if (visibleLeft >= right)
        {
            break;
        }
        if (column.right > visibleLeft && column.right > left)
        {
            visit(column, visibleLeft);
        }
    }
}

} // namespace Ostrel::GUI::Detail
