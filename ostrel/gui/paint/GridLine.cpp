#include <algorithm>

#include <ostrel/gui/grid/detail/GridItem.h>
#include <ostrel/gui/grid/detail/ObjectRegistry.h>
#include <ostrel/gui/grid/detail/RowArea.h>
#include <ostrel/gui/paint/GridLine.h>

namespace Ostrel::GUI
{

bool CGridLine::IsRowSelected() const noexcept
{
    return m_item != nullptr && m_item->IsSelected();
}

int CGridLine::GetHierarchicalLevel() const noexcept
{
    return m_item != nullptr ? std::max(Detail::RowArea::Level(*m_item), 0) : 0;
}

bool CGridLine::IsExpanded() const noexcept
{
    return m_item != nullptr && m_item->IsExpanded();
}

Common::CDataObject* CGridLine::GetDataObject() const noexcept
{
    return m_item != nullptr ? Detail::ObjectToAsk(*m_item) : nullptr;
}

} // namespace Ostrel::GUI
