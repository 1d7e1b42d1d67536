#include <memory>

#include <ostrel/gui/clipboard/ICopyPaste.h>
#include <ostrel/gui/clipboard/IDragDrop.h>
#include <ostrel/gui/grid/Preferences.h>
#include <ostrel/gui/grid/detail/Dispatcher.h>
#include <ostrel/gui/grid/detail/GridCore.h>
#include <ostrel/gui/grid/detail/ObjectRegistry.h>
#include <ostrel/gui/header/Header.h>
#include <ostrel/gui/paint/ICustomDraw.h>
#include <ostrel/gui/tooltip/ITooltip.h>
#include <ostrel/gui/tooltip/ITooltipCtrl.h>

namespace Ostrel::GUI::Detail
{
namespace
{
template <class Part>
void DeleteIfWanted(Part* part)
{
    if (part != nullptr && part->AutoDelete())
    {
        delete part;
    }
}
} // namespace

GridCore::GridCore(CGrid& grid)
    : m_grid(grid),
      m_notifier(*this),
      m_cells(*this),
      m_fixed(FixedContext, &m_cells, *this),
      m_scrollable(ScrollableContext, &m_cells, *this),
      m_columns(*this),
      m_looks(*this),
      m_view(*this),
      m_scroller(*this),
      m_selection(*this),
      m_sorting(*this),
      m_controls(*this),
      m_rows(*this),
      m_repaints(*this),
      m_updates(*this),
      m_mouse(*this),
      m_input(*this),
      m_search(*this),
      m_freeze(*this)
{
    Dispatcher::EnsureWindow();
}

GridCore::~GridCore()
{
    m_notifier.Allow(false);
    m_rows.DeleteAll(AllContexts);
    DeleteIfWanted(m_sorting.SetFilter(nullptr));
    DeleteIfWanted(m_columns.SetHeader(nullptr));
    DeleteIfWanted(customDraw);
    DeleteIfWanted(keyManager);
    DeleteIfWanted(copyPaste);
    DeleteIfWanted(dragDrop);
    DeleteIfWanted(editInPlace);
    DeleteIfWanted(tooltip);
    DeleteIfWanted(tooltipCtrl);
    DeleteIfWanted(inPlaceTooltipCtrl);
}

GridArea* GridCore::Area(ContextType type) noexcept
{
    switch (type)
    {
    case FixedContext:
        return &m_fixed;
    case ScrollableContext:
        return &m_scrollable;
    default:
        return nullptr;
    }
}

GridArea* GridCore::AreaOf(CGridItem const* handle) noexcept
{
    if (handle == nullptr || IsReservedHandle(handle))
    {
        return nullptr;
    }
    for (GridArea* const area : {&m_scrollable, &m_fixed})
    {
        if (area->Contains(handle))
        {
            return handle->IsRoot() ? nullptr : area;
        }
    }
    return nullptr;
}

CGridItem* GridCore::ItemAt(int row, ContextType type) noexcept
{
    GridArea const* const area = Area(type);
    return area != nullptr ? area->ItemAt(row) : nullptr;
}

IKeyManager& GridCore::KeyManagerInUse() const
{
    return keyManager != nullptr ? *keyManager : *CPreferences::GetDefaultKeyManager();
}

void GridCore::OnBound()
{
    DWORD const before = m_thread.Home();
    m_thread.Bind(m_grid.GetSafeHwnd());
    if (m_thread.Home() == before)
    {
        return;
    }
    Dispatcher::EnsureWindow();
    for (GridArea* const area : {&m_fixed, &m_scrollable})
    {
        ObjectRegistry::Instance().SetHome(RowArea::DeletionOrder(area->Root()), m_thread.Home());
    }
}

void GridCore::FinishCreation()
{
    if (m_isCreated || m_grid.GetSafeHwnd() == nullptr)
    {
        return;
    }
    m_isCreated = true;
    CRect client;
    m_grid.GetClientRect(&client);
    m_view.SetClientSize(client.Size());
    m_scroller.ReadWheelLines();
    m_looks.RebuildBuffers();
    m_scroller.OnResized();
}

void GridCore::OnSize(CSize client)
{
    m_view.SetClientSize(client);
    m_looks.RebuildBuffers();
    m_scroller.OnResized();
}

void GridCore::OnDestroy()
{
    m_rows.DeleteAll(AllContexts);
    for (UINT_PTR const timerId :
         {RepaintTimer, MouseSelectionTimer, LayoutTimer, EnsureVisibleTimer, ColumnResizeTimer, OrderFreezeTimer})
    {
        m_grid.KillTimer(timerId);
    }
    m_repaints.OnDestroy();
    m_scroller.OnDestroy();
    m_freeze.OnDestroy();
    m_looks.DropBuffers();
    m_thread.Unbind();
    m_isCreated = false;
}

void GridCore::OnTimer(UINT_PTR timerId)
{
    switch (timerId)
    {
    case RepaintTimer:
        m_repaints.OnTimer();
        break;
    case MouseSelectionTimer:
        m_mouse.OnTimer();
        break;
    case LayoutTimer:
        m_grid.KillTimer(timerId);
        m_scroller.UpdateBars();
        break;
    case EnsureVisibleTimer:
        m_scroller.OnEnsureVisibleTimer();
        break;
    case OrderFreezeTimer:
        m_freeze.OnTimer();
        break;
    case ColumnResizeTimer:
        m_grid.KillTimer(timerId);
        m_scroller.OnResized();
        m_view.InvalidateAll();
        break;
    default:
        break;
    }
}

LRESULT GridCore::OnSyncMessage(WPARAM code, LPARAM argument)
{
    switch (static_cast<GridOperation>(code))
    {
    case GridOperation::FinishCreation:
        FinishCreation();
        break;
    case GridOperation::Update:
        m_updates.OnPosted();
        break;
    case GridOperation::DeferredLayout:
        m_scroller.OnPostedUpdateBars();
        break;
    default:
        return GridThread::Run(reinterpret_cast<CarriedCall const*>(argument));
    }
    return 0;
}
} // namespace Ostrel::GUI::Detail
