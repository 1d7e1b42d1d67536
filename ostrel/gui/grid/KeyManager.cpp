#include <algorithm>
#include <optional>

#include <ostrel/gui/grid/Grid.h>
#include <ostrel/gui/grid/KeyManager.h>
#include <ostrel/platform/window/Wnd.h>

namespace Ostrel::GUI
{
namespace
{
/// A row by its area and its number there.
struct Position
{
    int row = -1;
    ContextType type = NoContext;
};

using Target = std::optional<Position>;

int RowCount(CGrid const& grid, ContextType type)
{
    return static_cast<int>(grid.GetRowCount(type));
}

/// Whether keys may go to the area: it has rows and is navigable.
bool IsReachable(CGrid const& grid, ContextType type)
{
    return RowCount(grid, type) > 0 && grid.CanNavigate(type);
}

/// The focus as navigation sees it: none when its area is not navigable.
Position NavigableFocus(CGrid const& grid)
{
    Position const focus{grid.GetFocusedRow(), grid.GetFocusedContext()};
    return focus.row >= 0 && grid.CanNavigate(focus.type) ? focus : Position{};
}

/// Both areas as one sequence, the fixed rows first.
int ToSequence(CGrid const& grid, Position position)
{
    return position.type == FixedContext ? position.row : RowCount(grid, FixedContext) + position.row;
}

Position FromSequence(CGrid const& grid, int place)
{
    int const fixedRows = RowCount(grid, FixedContext);
    return place < fixedRows ? Position{place, FixedContext} : Position{place - fixedRows, ScrollableContext};
}

void SelectPosition(CGrid& grid, Position position, bool select)
{
    grid.Select(position.row, position.type, select);
}

bool IsPositionSelected(CGrid const& grid, Position position)
{
    return grid.IsSelected(position.row, position.type);
}

/// Goes from one row to another step by step. A step onto a selected row gives up the row that it leaves, so that going
/// back shrinks the selection.
void ExtendSelection(CGrid& grid, Position from, Position to)
{
    int const last = ToSequence(grid, to);
    int place = ToSequence(grid, from);
    if (place == last)
    {
        SelectPosition(grid, to, true);
        return;
    }
    int const step = place < last ? 1 : -1;
    for (; place != last; place += step)
    {
        Position const left = FromSequence(grid, place);
        Position const entered = FromSequence(grid, place + step);
        bool const shrinks = IsPositionSelected(grid, entered);
        SelectPosition(grid, left, !shrinks);
        SelectPosition(grid, entered, true);
    }
}

void SelectRange(CGrid& grid, Position from, Position to)
{
    auto const [first, last] = std::minmax({ToSequence(grid, from), ToSequence(grid, to)});
    for (int place = first; place <= last; ++place)
    {
        SelectPosition(grid, FromSequence(grid, place), true);
    }
}

enum class ShiftMeans
{
    Extend,
    SelectWholeRange
};

void UpdateSelection(CGrid& grid, Position from, Position to, bool shift, ShiftMeans shiftMeans)
{
    if (!shift || from.row < 0 || !grid.CanMultiSelect())
    {
        grid.ClearSelection();
        SelectPosition(grid, to, true);
    }
    else if (shiftMeans == ShiftMeans::Extend)
    {
        ExtendSelection(grid, from, to);
    }
    else
    {
        SelectRange(grid, from, to);
    }
}

void MoveTo(CGrid& grid, Target target, bool shift, bool ctrl, ShiftMeans shiftMeans = ShiftMeans::Extend)
{
    if (!target || !grid.CanNavigate(target->type) || target->row < 0 || target->row >= RowCount(grid, target->type))
    {
        return;
    }
    Position const old = NavigableFocus(grid);
    if (target->type == ScrollableContext)
    {
        grid.EnsureVisible(target->row);
    }
    if (grid.SetFocusedRow(target->row, target->type) && !ctrl)
    {
        UpdateSelection(grid, old, *target, shift, shiftMeans);
    }
}

Target FirstShown(CGrid const& grid)
{
    return IsReachable(grid, ScrollableContext) ? Target({grid.GetFirstVisibleRow(), ScrollableContext}) : std::nullopt;
}

Target FirstFixed(CGrid const& grid)
{
    return IsReachable(grid, FixedContext) ? Target({0, FixedContext}) : std::nullopt;
}

Target LastFixed(CGrid const& grid)
{
    return IsReachable(grid, FixedContext) ? Target({RowCount(grid, FixedContext) - 1, FixedContext}) : std::nullopt;
}

Target Either(Target first, Target second)
{
    return first ? first : second;
}

int BottomOfPage(CGrid const& grid)
{
    return grid.GetFirstVisibleRow() + std::max(1, grid.GetLinesPerPage(true)) - 1;
}

int RowsOfPageStep(CGrid const& grid, bool down)
{
    return std::max(1, grid.GetLinesPerPage(down) - 1);
}

Target BottomRow(CGrid const& grid)
{
    if (IsReachable(grid, ScrollableContext))
    {
        return Position{BottomOfPage(grid), ScrollableContext};
    }
    return IsReachable(grid, FixedContext) ? Target({grid.GetLastVisibleRow(FixedContext), FixedContext})
                                           : std::nullopt;
}

Target UpTarget(CGrid const& grid)
{
    Position const focus = NavigableFocus(grid);
    if (focus.row < 0)
    {
        return Either(FirstFixed(grid), FirstShown(grid));
    }
    if (focus.row > 0)
    {
        return Position{focus.row - 1, focus.type};
    }
    return focus.type == ScrollableContext ? LastFixed(grid) : std::nullopt;
}

Target DownTarget(CGrid const& grid)
{
    Position const focus = NavigableFocus(grid);
    if (focus.row < 0)
    {
        return BottomRow(grid);
    }
    int const lastRow = RowCount(grid, focus.type) - 1;
    if (focus.type == FixedContext && focus.row >= lastRow)
    {
        return FirstShown(grid);
    }
    return Position{std::min(focus.row + 1, lastRow), focus.type};
}

Target PageDownTarget(CGrid const& grid)
{
    Position const focus = NavigableFocus(grid);
    if (focus.row < 0)
    {
        return BottomRow(grid);
    }
    if (focus.type == FixedContext)
    {
        return Either(FirstShown(grid), LastFixed(grid));
    }
    int const lastRow = RowCount(grid, ScrollableContext) - 1;
    int const bottom = BottomOfPage(grid);
    int const row = focus.row < bottom ? bottom : focus.row + RowsOfPageStep(grid, true);
    return Position{std::min(row, lastRow), ScrollableContext};
}

Target PageUpTarget(CGrid const& grid)
{
    Position const focus = NavigableFocus(grid);
    if (focus.row < 0)
    {
        return Either(FirstFixed(grid), FirstShown(grid));
    }
    if (focus.type == FixedContext)
    {
        return Position{0, FixedContext};
    }
    int const top = grid.GetFirstVisibleRow();
    if (focus.row > top)
    {
        return Position{top, ScrollableContext};
    }
    if (top > 0)
    {
        return Position{std::max(0, focus.row - RowsOfPageStep(grid, true)), ScrollableContext};
    }
    return Either(FirstFixed(grid), Position{0, ScrollableContext});
}

Target HomeTarget(CGrid const& grid)
{
    return Either(FirstFixed(grid),
                  IsReachable(grid, ScrollableContext) ? Target({0, ScrollableContext}) : std::nullopt);
}

Target EndTarget(CGrid const& grid)
{
    if (IsReachable(grid, ScrollableContext))
    {
        return Position{RowCount(grid, ScrollableContext) - 1, ScrollableContext};
    }
    return LastFixed(grid);
}

bool ShowsChildren(CGrid const& grid, CGridItem* item)
{
    CGridItem* const next = grid.GetNextItem(item, false);
    return grid.IsExpanded(item) && next != nullptr && grid.GetParent(next) == item;
}

Target PositionOf(CGrid const& grid, CGridItem* item)
{
    return item != nullptr ? Target({grid.GetRow(item), grid.GetContextType(item)}) : std::nullopt;
}

/// The parent row, or for a top-level row the nearest top-level row above it.
Target OutwardTarget(CGrid const& grid, CGridItem* item)
{
    if (grid.GetHierarchicalLevel(item) > 0)
    {
        return PositionOf(grid, grid.GetParent(item));
    }
    CGridItem* above = grid.GetPreviousItem(item, true);
    while (above != nullptr && grid.GetHierarchicalLevel(above) > 0)
    {
        above = grid.GetParent(above);
    }
    return PositionOf(grid, above);
}

CGridItem* NavigableFocusedItem(CGrid const& grid)
{
    Position const focus = NavigableFocus(grid);
    return focus.row >= 0 ? grid.GetItem(focus.row, focus.type) : nullptr;
}

bool IsDown(int virtualKey)
{
    return GetKeyState(virtualKey) < 0;
}
} // namespace

CKeyManager::CKeyManager(bool autoDelete) : m_autoDelete(autoDelete) {}
CKeyManager::~CKeyManager() = default;

int CKeyManager::OnKeyDown(CGrid& grid, unsigned int key, unsigned int, unsigned int)
{
    bool const shift = IsDown(VK_SHIFT);
    bool const ctrl = IsDown(VK_CONTROL);
    switch (key)
    {
    case VK_RETURN:
        OnReturn(grid);
        return 1;
    case VK_ESCAPE:
        OnEscape(grid);
        return 1;
    case VK_SPACE:
        shift ? NavigateKeyPageUp(grid, false, false) : NavigateKeyPageDown(grid, false, false);
        return 1;
    case VK_PRIOR:
        NavigateKeyPageUp(grid, shift, ctrl);
        return 1;
    case VK_NEXT:
        NavigateKeyPageDown(grid, shift, ctrl);
        return 1;
    case VK_HOME:
        NavigateKeyHome(grid, shift, ctrl);
        return 1;
    case VK_END:
        NavigateKeyEnd(grid, shift, ctrl);
        return 1;
    case VK_LEFT:
        NavigateKeyLeft(grid, shift, ctrl);
        return 1;
    case VK_RIGHT:
        NavigateKeyRight(grid, shift, ctrl);
        return 1;
    case VK_UP:
        NavigateKeyUp(grid, shift, ctrl);
        return 1;
    case VK_DOWN:
        NavigateKeyDown(grid, shift, ctrl);
        return 1;
    default:
        return ctrl && !shift ? OnShortcut(grid, key) : 0;
    }
}

int CKeyManager::OnShortcut(CGrid& grid, unsigned int key)
{
    switch (key)
    {
    case 'A':
        OnSelectAll(grid);
        return 1;
    case 'C':
        OnCopySelection(grid);
        return 1;
    case 'X':
        OnCutSelection(grid);
        return 1;
    case 'V':
        OnPasteSelection(grid);
        return 1;
    default:
        return 0;
    }
}

int CKeyManager::OnKeyUp(CGrid&, unsigned int, unsigned int, unsigned int)
{
    return 0;
}

void CKeyManager::NavigateKeyUp(CGrid& grid, bool shift, bool ctrl)
{
    MoveTo(grid, UpTarget(grid), shift, ctrl);
}

void CKeyManager::NavigateKeyDown(CGrid& grid, bool shift, bool ctrl)
{
    MoveTo(grid, DownTarget(grid), shift, ctrl);
}

void CKeyManager::NavigateKeyPageUp(CGrid& grid, bool shift, bool ctrl)
{
    MoveTo(grid, PageUpTarget(grid), shift, ctrl);
}

void CKeyManager::NavigateKeyPageDown(CGrid& grid, bool shift, bool ctrl)
{
    MoveTo(grid, PageDownTarget(grid), shift, ctrl);
}

void CKeyManager::NavigateKeyHome(CGrid& grid, bool shift, bool ctrl)
{
    MoveTo(grid, HomeTarget(grid), shift, ctrl, ShiftMeans::SelectWholeRange);
}

void CKeyManager::NavigateKeyEnd(CGrid& grid, bool shift, bool ctrl)
{
    MoveTo(grid, EndTarget(grid), shift, ctrl, ShiftMeans::SelectWholeRange);
}

void CKeyManager::NavigateKeyLeft(CGrid& grid, bool shift, bool ctrl)
{
    CGridItem* const item = NavigableFocusedItem(grid);
    if (item == nullptr)
    {
        return;
    }
    if (ShowsChildren(grid, item))
    {
        grid.Collapse(item, false);
        return;
    }
    MoveTo(grid, OutwardTarget(grid, item), shift, ctrl);
}

void CKeyManager::NavigateKeyRight(CGrid& grid, bool shift, bool ctrl)
{
    CGridItem* const item = NavigableFocusedItem(grid);
    if (item == nullptr)
    {
        return;
    }
    if (!grid.IsExpanded(item) && grid.HasChildren(item))
    {
        grid.Expand(item, false);
        return;
    }
    MoveTo(grid, PositionOf(grid, grid.GetNextItem(item, true)), shift, ctrl);
}

void CKeyManager::OnEscape(CGrid& grid)
{
    grid.ClearSelection();
    grid.SetFocusedRow(-1, NoContext);
}

void CKeyManager::OnReturn(CGrid& grid)
{
    CGridItem* const item = grid.GetItem(grid.GetFocusedRow(), grid.GetFocusedContext());
    if (item != nullptr)
    {
        grid.IsExpanded(item) ? grid.Collapse(item, false) : grid.Expand(item, false);
    }
}

void CKeyManager::OnSelectAll(CGrid& grid)
{
    grid.SelectAll();
}

void CKeyManager::OnCopySelection(CGrid& grid)
{
    grid.Copy();
}

void CKeyManager::OnCutSelection(CGrid& grid)
{
    grid.Cut();
}

void CKeyManager::OnPasteSelection(CGrid& grid)
{
    grid.Paste();
}
} // namespace Ostrel::GUI
