// The grid's operations on order, filter, selection and focus: each runs on the grid's thread, wherever it was called.
#include <algorithm>

#include <ostrel/gui/grid/Grid.h>
#include <ostrel/gui/grid/detail/GridCore.h>
#include <ostrel/gui/header/Header.h>

namespace Ostrel::GUI
{
using Common::CDataObject;
using Detail::GridOperation;
using Items = std::vector<CGridItem*>;

namespace
{
/// The object's first row that can be scrolled to, or null.
CGridItem* FirstScrollableRow(CGrid const& grid, CDataObject const* object)
{
    Items const items = grid.GetHandles(object, true, ScrollableContext);
    return items.empty() ? nullptr : items.front();
}
} // namespace

// --- Sorting ---

void CGrid::AllowSort(bool allow)
{
    m_core->Thread().Call<GridOperation::AllowSort>(
        [&]()
        {
            if (CHeader* const header = m_core->Columns().Header())
            {
                header->AllowSort(allow);
            }
        });
}

bool CGrid::CanSort() const
{
    return m_core->Thread().Call<GridOperation::CanSort>(false,
                                                         [&]()
                                                         {
                                                             CHeader const* const header = m_core->Columns().Header();
                                                             return header != nullptr && header->CanSort();
                                                         });
}

void CGrid::AllowMultiSort(bool allow)
{
    m_core->Thread().Call<GridOperation::AllowMultiSort>(
        [&]()
        {
            if (CHeader* const header = m_core->Columns().Header())
            {
                header->AllowMultiSort(allow);
            }
        });
}

bool CGrid::CanMultiSort() const
{
    return m_core->Thread().Call<GridOperation::CanMultiSort>(false,
                                                              [&]()
                                                              {
                                                                  CHeader const* const header =
                                                                      m_core->Columns().Header();
                                                                  return header != nullptr && header->CanMultiSort();
                                                              });
}

void CGrid::SetSort(int level, CSortInfo const& info, bool update)
{
    m_core->Thread().Call<GridOperation::SetSort>([&]() { m_core->Sorting().SetLevel(level, info, update); });
}

CSortInfo CGrid::GetSort(int level) const
{
    CSortInfo const none(Detail::kNoField, false);
    return m_core->Thread().Call<GridOperation::GetSort>(none,
                                                         [&]()
                                                         {
                                                             CHeader const* const header = m_core->Columns().Header();
                                                             return header != nullptr ? header->GetSort(level) : none;
                                                         });
}

int CGrid::GetSortLevels() const
{
    return m_core->Thread().Call<GridOperation::GetSortLevels>(
        0,
        [&]()
        {
            CHeader const* const header = m_core->Columns().Header();
            return header != nullptr ? header->GetSortLevels() : 0;
        });
}

void CGrid::ResetSort(bool redraw)
{
    m_core->Thread().Call<GridOperation::ResetSort>([&]() { m_core->Sorting().Reset(redraw); });
}

void CGrid::UpdateSort()
{
    m_core->Thread().Call<GridOperation::UpdateSort>([&]() { m_core->Sorting().Update(); });
}

void CGrid::SetSortedContext(ContextType mask)
{
    m_core->Thread().Call<GridOperation::SetSortedContext>([&]() { m_core->Sorting().sortedAreas = mask; });
}

ContextType CGrid::GetSortedContext() const
{
    return m_core->Thread().Call<GridOperation::GetSortedContext>(NoContext,
                                                                  [&]() { return m_core->Sorting().sortedAreas; });
}

// --- Filtering ---

IGridFilter* CGrid::SetFilter(IGridFilter* filter)
{
    return m_core->Thread().Call<GridOperation::SetFilter>(static_cast<IGridFilter*>(nullptr),
                                                           [&]() { return m_core->Sorting().SetFilter(filter); });
}

IGridFilter* CGrid::GetFilter() const
{
    return m_core->Thread().Call<GridOperation::GetFilter>(static_cast<IGridFilter*>(nullptr),
                                                           [&]() { return m_core->Sorting().Filter(); });
}

void CGrid::UpdateFilter()
{
    m_core->Thread().Call<GridOperation::UpdateFilter>(
        [&]()
        {
            if (m_core->Sorting().HasFilter())
            {
                m_core->Sorting().UpdateFilter();
            }
        });
}

// --- Selection ---

void CGrid::AllowSelection(bool allow)
{
    m_core->Thread().Call<GridOperation::AllowSelection>([&]() { m_core->Selection().allowSelection = allow; });
}

bool CGrid::CanSelect() const
{
    return m_core->Thread().Call<GridOperation::CanSelect>(false, [&]() { return m_core->Selection().allowSelection; });
}

void CGrid::AllowMultiSelection(bool allow)
{
    m_core->Thread().Call<GridOperation::AllowMultiSelection>([&]()
                                                              { m_core->Selection().allowMultiSelection = allow; });
}

bool CGrid::CanMultiSelect() const
{
    return m_core->Thread().Call<GridOperation::CanMultiSelect>(false, [&]()
                                                                { return m_core->Selection().allowMultiSelection; });
}

void CGrid::AllowSelectContext(ContextType mask)
{
    m_core->Thread().Call<GridOperation::AllowSelectContext>([&]() { m_core->Selection().selectable = mask; });
}

bool CGrid::CanSelectContext(ContextType type) const
{
    return m_core->Thread().Call<GridOperation::CanSelectContext>(
        false, [&]() { return HasContext(m_core->Selection().selectable, type); });
}

void CGrid::AllowMouseTrackSelection(bool allow)
{
    m_core->Thread().Call<GridOperation::AllowMouseTrackSelection>([&]()
                                                                   { m_core->Selection().allowMouseTrack = allow; });
}

bool CGrid::CanMouseTrackSelection() const
{
    return m_core->Thread().Call<GridOperation::CanMouseTrackSelection>(
        false, [&]() { return m_core->Selection().allowMouseTrack; });
}

bool CGrid::Select(int row, ContextType type, bool select)
{
    return m_core->Thread().Call<GridOperation::SelectRow>(false, [&]()
                                                           { return m_core->Selection().Select(row, type, select); });
}

bool CGrid::Select(CGridItem* item, bool select)
{
    return m_core->Thread().Call<GridOperation::SelectItem>(
        false, [&]() { return m_core->AreaOf(item) != nullptr && m_core->Selection().Select(*item, select); });
}

bool CGrid::Select(CDataObject const* object, bool select)
{
    return m_core->Thread().Call<GridOperation::SelectItem>(false,
                                                            [&]()
                                                            {
                                                                bool hasSelected = false;
                                                                for (CGridItem* const item :
                                                                     GetHandles(object, false, AllContexts))
                                                                {
                                                                    hasSelected = Select(item, select) || hasSelected;
                                                                }
                                                                return hasSelected;
                                                            });
}

bool CGrid::IsSelected(int row, ContextType type) const
{
    return m_core->Thread().Call<GridOperation::IsRowSelected>(false,
                                                               [&]()
                                                               {
                                                                   CGridItem const* const item =
                                                                       m_core->ItemAt(row, type);
                                                                   return item != nullptr && item->IsSelected();
                                                               });
}

bool CGrid::IsSelected(CGridItem* item) const
{
    return m_core->Thread().Call<GridOperation::IsItemSelected>(
        false, [&]() { return m_core->AreaOf(item) != nullptr && item->IsSelected(); });
}

bool CGrid::IsSelected(CDataObject const* object) const
{
    return m_core->Thread().Call<GridOperation::IsItemSelected>(
        false,
        [&]()
        {
            return std::ranges::any_of(GetHandles(object, false, AllContexts),
                                       [](CGridItem const* item) { return item->IsSelected(); });
        });
}

int CGrid::GetSelectedCount() const
{
    return m_core->Thread().Call<GridOperation::GetSelectedCount>(0, [&]() { return m_core->Selection().Count(); });
}

std::vector<CGridItem*> CGrid::GetSelection(ContextType mask) const
{
    return m_core->Thread().Call<GridOperation::GetSelection>(Items(),
                                                              [&]() { return m_core->Selection().Selected(mask); });
}

void CGrid::SelectAll()
{
    m_core->Thread().Call<GridOperation::SelectAll>([&]() { m_core->Selection().SelectAll(); });
}

void CGrid::ClearSelection()
{
    m_core->Thread().Call<GridOperation::ClearSelection>([&]() { m_core->Selection().Clear(); });
}

// --- Focus and navigation ---

void CGrid::AllowFocusContext(ContextType mask)
{
    m_core->Thread().Call<GridOperation::AllowFocusContext>([&]() { m_core->Selection().focusable = mask; });
}

bool CGrid::CanFocusContext(ContextType type) const
{
    return m_core->Thread().Call<GridOperation::CanFocusContext>(
        false, [&]() { return HasContext(m_core->Selection().focusable, type); });
}

bool CGrid::SetFocusedRow(int row, ContextType type)
{
    return m_core->Thread().Call<GridOperation::SetFocusedRow>(false, [&]()
                                                               { return m_core->Selection().SetFocus(row, type); });
}

int CGrid::GetFocusedRow() const
{
    return m_core->Thread().Call<GridOperation::GetFocusedRow>(-1, [&]() { return m_core->Selection().FocusedRow(); });
}

ContextType CGrid::GetFocusedContext() const
{
    return m_core->Thread().Call<GridOperation::GetFocusedContext>(NoContext, [&]()
                                                                   { return m_core->Selection().FocusedContext(); });
}

void CGrid::AllowNavigation(ContextType mask)
{
    m_core->Thread().Call<GridOperation::AllowNavigation>([&]() { m_core->Selection().navigable = mask; });
}

bool CGrid::CanNavigate(ContextType type) const
{
    return m_core->Thread().Call<GridOperation::CanNavigate>(
        false, [&]() { return HasContext(m_core->Selection().navigable, type); });
}

IKeyManager* CGrid::SetKeyManager(IKeyManager* manager)
{
    return m_core->Thread().Call<GridOperation::SetKeyManager>(static_cast<IKeyManager*>(nullptr), [&]()
                                                               { return std::exchange(m_core->keyManager, manager); });
}

IKeyManager* CGrid::GetKeyManager() const
{
    return m_core->Thread().Call<GridOperation::GetKeyManager>(static_cast<IKeyManager*>(nullptr),
                                                               [&]() { return m_core->keyManager; });
}

// The operations of the key manager stay silent while there is nothing to go through and while a drag is on.
void CGrid::Navigate(NavigationKey key, bool shift, bool ctrl)
{
    m_core->Thread().Call<GridOperation::Navigate>(
        [&]()
        {
            bool const isPressed = m_core->Mouse().IsPressed() || GetKeyState(VK_LBUTTON) < 0;
            if (m_core->Scrollable().RowCount() > 0 && !isPressed)
            {
                (m_core->KeyManagerInUse().*key)(*this, shift, ctrl);
            }
        });
}

void CGrid::NavigateUp(bool shift, bool ctrl)
{
    Navigate(&IKeyManager::NavigateKeyUp, shift, ctrl);
}

void CGrid::NavigateDown(bool shift, bool ctrl)
{
    Navigate(&IKeyManager::NavigateKeyDown, shift, ctrl);
}

void CGrid::NavigatePageUp(bool shift, bool ctrl)
{
    Navigate(&IKeyManager::NavigateKeyPageUp, shift, ctrl);
}

void CGrid::NavigatePageDown(bool shift, bool ctrl)
{
    Navigate(&IKeyManager::NavigateKeyPageDown, shift, ctrl);
}

void CGrid::NavigateHome(bool shift, bool ctrl)
{
    Navigate(&IKeyManager::NavigateKeyHome, shift, ctrl);
}

void CGrid::NavigateEnd(bool shift, bool ctrl)
{
    Navigate(&IKeyManager::NavigateKeyEnd, shift, ctrl);
}

// --- What is on the screen ---

int CGrid::GetFirstVisibleRow() const
{
    return m_core->Thread().Call<GridOperation::GetFirstVisibleRow>(-1,
                                                                    [&]() { return m_core->Scroller().FirstRow(); });
}

int CGrid::GetLastVisibleRow(ContextType type) const
{
    return m_core->Thread().Call<GridOperation::GetLastVisibleRow>(-1,
                                                                   [&]()
                                                                   {
                                                                       Detail::RowRange const shown =
                                                                           m_core->View().ShownRows(type);
                                                                       return shown.IsEmpty() ? -1 : shown.last;
                                                                   });
}

void CGrid::SetFirstVisibleRow(int row)
{
    m_core->Thread().Call<GridOperation::SetFirstVisibleRow>(
        [&]()
        {
            if (m_core->ItemAt(row, ScrollableContext) != nullptr)
            {
                m_core->Scroller().SetFirstRow(row);
            }
        });
}

void CGrid::SetFirstVisibleItem(CGridItem* item)
{
    m_core->Thread().Call<GridOperation::SetFirstVisibleItem>(
        [&]()
        {
            int const row = GetContextType(item) == ScrollableContext ? GetRow(item) : -1;
            if (row >= 0)
            {
                m_core->Scroller().SetFirstRow(row);
            }
        });
}

void CGrid::SetFirstVisibleItem(CDataObject const* object)
{
    m_core->Thread().Call<GridOperation::SetFirstVisibleItem>(
        [&]() { SetFirstVisibleItem(FirstScrollableRow(*this, object)); });
}

void CGrid::EnsureVisible(int row)
{
    m_core->Thread().Call<GridOperation::EnsureVisible>([&]() { m_core->Scroller().EnsureVisible(row); });
}

void CGrid::EnsureVisible(CGridItem* item)
{
    m_core->Thread().Call<GridOperation::EnsureVisible>(
        [&]()
        {
            if (m_core->AreaOf(item) != nullptr)
            {
                m_core->Scroller().EnsureVisible(*item);
            }
        });
}

void CGrid::EnsureVisible(CDataObject const* object)
{
    m_core->Thread().Call<GridOperation::EnsureVisible>([&]() { EnsureVisible(FirstScrollableRow(*this, object)); });
}

bool CGrid::IsInVisibleRect(int row, ContextType type) const
{
    return m_core->Thread().Call<GridOperation::IsInVisibleRect>(false,
                                                                 [&]() { return m_core->View().IsShown(row, type); });
}

bool CGrid::IsInVisibleRect(CGridItem* item) const
{
    return m_core->Thread().Call<GridOperation::IsInVisibleRect>(
        false, [&]() { return IsInVisibleRect(GetRow(item), GetContextType(item)); });
}

void CGrid::SetCalmView(bool calm)
{
    m_core->Thread().Call<GridOperation::CalmView>([&]() { m_core->SetCalm(calm); });
}

bool CGrid::IsCalmView() const
{
    return m_core->Thread().Call<GridOperation::CalmView>(false, [&]() { return m_core->IsCalm(); });
}

void CGrid::SetOrderFreeze(bool freeze)
{
    m_core->Thread().Call<GridOperation::OrderFreeze>([&]() { m_core->Freeze().Allow(freeze); });
}

bool CGrid::IsOrderFreeze() const
{
    return m_core->Thread().Call<GridOperation::OrderFreeze>(false, [&]() { return m_core->Freeze().IsAllowed(); });
}
} // namespace Ostrel::GUI
