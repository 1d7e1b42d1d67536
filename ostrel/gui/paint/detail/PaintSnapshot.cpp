#include <ostrel/gui/edit/EditInPlaceSettings.h>
#include <ostrel/gui/edit/IEditInPlace.h>
#include <ostrel/gui/grid/Grid.h>
#include <ostrel/gui/grid/Preferences.h>
#include <ostrel/gui/header/Header.h>
#include <ostrel/gui/header/detail/HeaderLayout.h>
#include <ostrel/gui/paint/detail/PaintSnapshot.h>

namespace Ostrel::GUI::Detail
{
namespace
{

int HorizontalScrollPosition(CGrid const& grid)
{
    SCROLLINFO info{};
    info.cbSize = sizeof(info);
    info.fMask = SIF_POS;
    return grid.GetScrollInfo(SB_HORZ, &info, SIF_POS) ? info.nPos : 0;
}

} // namespace

CellEditors CellEditors::Of(CGrid const& grid)
{
    CEditInPlaceSettings const& settings = grid.GetEditInPlaceSettings();
    if (!settings.IsEnabled())
    {
        return {};
    }
    IEditInPlace* const own = grid.GetEditInPlace();
    bool const hasHints = settings.CanDrawHotFrame() || settings.CanDrawHotThumb() || settings.CanDrawThumbsAlways();
    IEditInPlace* const hints = own != nullptr ? own : CPreferences::GetDefaultEditInPlace();
    return {own, hasHints ? hints : nullptr};
}

PaintSnapshot::PaintSnapshot(CGrid const& grid, CHeader const& header)
    : layout(header.GetLayout()),
      hierarchicalColumn(grid.GetHierarchicalColumn()),
      appearance(grid.GetAppearance()),
      highlightAllowed(grid.CanHighlight()),
      editors(CellEditors::Of(grid))
{
    int const scroll = HorizontalScrollPosition(grid);
    columns.reserve(layout->VisibleColumns().size());
    for (VisibleColumn const& visible : layout->VisibleColumns())
    {
        if (visible.right <= visible.left)
        {
            continue;
        }
        CRect const rect = layout->VirtualRect(visible, scroll);
        CColumn const& column = *visible.column;
        columns.push_back({.column = &column,
                           .fid = visible.fid,
                           .left = rect.left,
                           .right = rect.right,
                           .isFixed = layout->IsFixed(visible),
                           .sortLevel = visible.sortLevel,
                           .reverseSort = visible.reverseSort,
                           .alignment = column.GetAlignment(),
                           .textFormat = column.GetTextFormat(),
                           .cellImageId = column.GetCellImageId()});
    }
    fixedRight = layout->FixedWidth();
    columnsRight = columns.empty() ? 0 : std::max<int>(columns.back().right, fixedRight);
}

PaintSnapshot::~PaintSnapshot() = default;

PaintColumn const* PaintSnapshot::Find(CColumn const* column) const noexcept
{
    if (m_lastFound == nullptr || m_lastFound->column != column)
    {
        auto const found = std::find_if(columns.begin(), columns.end(),
                                        [column](PaintColumn const& candidate) { return candidate.column == column; });
        if (found == columns.end())
        {
            return nullptr;
        }
        m_lastFound = &*found;
    }
    return m_lastFound;
}

int PaintSnapshot::ElapsedSinceUpdate(CGrid const& grid, CGridItem* item, long fid) const
{
    if (item == nullptr)
    {
        return -1;
    }
    if (m_elapsedItem != item || m_elapsedFid != fid)
    {
        m_elapsed = grid.GetTimeElapsedSinceLastUpdate(item, fid);
        m_elapsedItem = item;
        m_elapsedFid = fid;
    }
    return m_elapsed;
}

} // namespace Ostrel::GUI::Detail
