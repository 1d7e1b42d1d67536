// How large cells, columns and the header want to be: asked of the paint formats with a device context that draws
// nowhere.
#include <algorithm>

#include <ostrel/common/dataobject/DataObject.h>
#include <ostrel/gui/grid/detail/GridCore.h>
#include <ostrel/gui/grid/detail/ItemPool.h>
#include <ostrel/gui/grid/detail/ObjectRegistry.h>
#include <ostrel/gui/header/Column.h>
#include <ostrel/gui/header/detail/HeaderLayout.h>
#include <ostrel/gui/paint/GridCell.h>
#include <ostrel/gui/paint/GridLine.h>
#include <ostrel/gui/paint/HeaderPaintInfo.h>
#include <ostrel/gui/paint/ICustomDraw.h>
#include <ostrel/gui/paint/PaintContext.h>
#include <ostrel/gui/paint/detail/Primitives.h>
#include <ostrel/platform/base/CallbackErrors.h>
#include <ostrel/platform/drawing/DeviceContext.h>

namespace Ostrel::GUI::Detail
{
namespace
{
CPaintContext MeasuringContext(GridCore& core, CDC& dc)
{
    return {core.Grid(),
            core.Columns().Header(),
            CRect(),
            dc,
            {},
            CRect(),
            NoContext,
            -1,
            core.Looks().imageList,
            core.Looks().stretchImages,
            nullptr,
            CRect()};
}
} // namespace

int GridColumns::MeasureCell(CDC& dc, CGridItem* item, int row, ContextType type, CColumn const& column) const
{
    GridLooks& looks = m_core.Looks();
    CRect const rect(0, 0, 0, item->Area()->RowHeight());
    int const textOffset = TextOffset();
    CPaintInfo const info(0, 0, rect, rect, rect, looks.FontInUse(), textOffset, textOffset, looks.highlight);
    CGridLine const line(info, type, row, item, false, false);
    Common::CFormat const* format = column.GetTextFormat();
    if (Common::CDataObject* const object = ObjectToAsk(*item); format == nullptr && object != nullptr)
    {
        format = object->GetFormat(column.GetFid());
    }
    CGridCell cell(info, line, &column, looks.imageList, column.GetCellImageId(), looks.stretchImages, format);
    return looks.CustomDrawInUse().GetOptimalCellWidth(cell, MeasuringContext(m_core, dc), looks.paintFilter);
}

int GridColumns::OptimalCellWidth(int row, ContextType type, long fieldId) const
{
    GridArea const* const area = m_core.Area(type);
    CGridItem* const item = area != nullptr ? area->ItemAt(row) : nullptr;
    auto const layout = Layout();
    CColumn const* const column = layout != nullptr ? layout->ColumnOf(fieldId) : nullptr;
    if (item == nullptr || column == nullptr)
    {
        return 0;
    }
    CDC dc;
    dc.CreateCompatibleDC(nullptr);
    return MeasureCell(dc, item, row, type, *column);
}

int GridColumns::OptimalColumnWidth(ContextType mask, long fieldId) const
{
    auto const layout = Layout();
    CColumn const* const column = layout != nullptr ? layout->ColumnOf(fieldId) : nullptr;
    if (column == nullptr)
    {
        return 0;
    }
    CDC dc;
    dc.CreateCompatibleDC(nullptr);
    int width = 0;
    for (GridArea const* const area : {&m_core.Fixed(), &m_core.Scrollable()})
    {
        CGridItem* item = HasContext(mask, area->Type()) ? area->FirstVisible() : nullptr;
        for (int row = 0; item != nullptr; ++row)
        {
            width = std::max(width, MeasureCell(dc, item, row, area->Type(), *column));
            // What was measured is the application's, which may have deleted the row.
            item = ItemPool::IsLive(item) ? RowArea::NextVisible(*item) : area->ItemAt(row);
        }
    }
    return width;
}

int GridColumns::OptimalHeaderHeight() const
{
    if (m_header == nullptr)
    {
        return 0;
    }
    CDC dc;
    dc.CreateCompatibleDC(nullptr);
    CHeaderPaintInfo info;
    info.SetFont(m_header->GetFont() != nullptr ? m_header->GetFont() : m_core.Looks().FontInUse());
    return m_core.Looks().CustomDrawInUse().GetOptimalHeaderHeight(info, MeasuringContext(m_core, dc),
                                                                   m_core.Looks().paintFilter);
}

void GridColumns::Adjust(CColumn* column)
{
    if (column != nullptr)
    {
        column->SetWidth(OptimalColumnWidth(AllContexts, column->GetFid()));
    }
}

void GridColumns::AdjustAll()
{
    if (auto const layout = Layout())
    {
        for (VisibleColumn const& column : layout->VisibleColumns())
        {
            Platform::CallbackErrors::Keep([&]() { Adjust(column.column); });
        }
    }
}
} // namespace Ostrel::GUI::Detail
