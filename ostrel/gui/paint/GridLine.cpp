#include <algorithm>

#include <ostrel/gui/grid/detail/GridItem.h>
#include <ostrel/gui/grid/detail/ItemPool.h>
#include <ostrel/gui/grid/detail/ObjectRegistry.h>
#include <ostrel/gui/grid/detail/RowArea.h>
#include <ostrel/gui/paint/GridLine.h>

namespace Ostrel::GUI
{

CGridItem* CGridLine::GetItem() const noexcept
{
    return Detail::ItemPool::IsLive(m_item) ? m_item : nullptr;
}

bool CGridLine::IsRowSelected() const noexcept
{
    CGridItem const* const item = GetItem();
    return item != nullptr && item->IsSelected();
}

int CGridLine::GetHierarchicalLevel() const noexcept
{
    CGridItem const* const item = GetItem();
    return item != nullptr ? std::max(Detail::RowArea::Level(*item), 0) : 0;
}

bool CGridLine::IsExpanded() const noexcept
{
    CGridItem const* const item = GetItem();
    return item != nullptr && item->IsExpanded();
}

Common::CDataObject* CGridLine::GetDataObject() const noexcept
{
    CGridItem const* const item = GetItem();
    return item != nullptr ? Detail::ObjectToAsk(*item) : nullptr;
}

} // namespace Ostrel::GUI
