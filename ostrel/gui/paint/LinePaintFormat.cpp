#include <ostrel/common/dataobject/DataObject.h>
#include <ostrel/gui/grid/Preferences.h>
#include <ostrel/gui/paint/GridCell.h>
#include <ostrel/gui/paint/GridLine.h>
#include <ostrel/gui/paint/ICustomDraw.h>
#include <ostrel/gui/paint/LinePaintFormat.h>
#include <ostrel/gui/paint/PaintContext.h>
#include <ostrel/gui/paint/detail/ColumnWalk.h>

namespace Ostrel::GUI
{
namespace
{

/// Paints the cells of one line.
class LinePainter
{
public:
    LinePainter(CGridLine const& line, CPaintContext const& context, unsigned int filter, ICustomDraw& customDraw)
        : m_line(line), m_context(context), m_filter(filter), m_customDraw(customDraw), m_cellInfo(line.GetPaintInfo())
    {}

    void PaintColumn(Detail::PaintColumn const& column, int visibleLeft)
    {
        if (!Place(column.left, column.right, visibleLeft))
        {
            return;
        }
        Common::CFormat const* format = column.textFormat;
        if (format == nullptr)
        {
            Common::CDataObject* const object = m_line.GetDataObject(); // asked anew: the cell before may have ended it
            format = object != nullptr ? object->GetFormat(column.fid) : nullptr;
        }
        CGridCell cell(m_cellInfo, m_line, column.column, m_context.GetImageList(), column.cellImageId,
                       m_context.GetStretchImage(), format);
        m_customDraw.DrawCell(cell, m_context, m_filter);
    }

    /// The space right of the last column.
    void PaintFiller(int columnsRight)
    {
        int const right = m_line.GetPaintInfo().GetVirtualRect().right;
        if (columnsRight < right && Place(columnsRight, right, columnsRight))
        {
            CGridCell cell(m_cellInfo, m_line, nullptr, m_context.GetImageList(), -1, m_context.GetStretchImage(),
                           nullptr);
            m_customDraw.DrawCell(cell, m_context, m_filter);
        }
    }

private:
    /// Sets the rectangles of the next cell. False when nothing of it is to be painted.
    bool Place(int left, int right, int visibleLeft)
    {
        CPaintInfo const& line = m_line.GetPaintInfo();
        CRect const& band = line.GetVirtualRect();
        CRect const visible = CRect(visibleLeft, band.top, right, band.bottom) & line.GetVisibleRect();
        CRect const clip = visible & line.GetClipRect();
        m_cellInfo.SetVirtualRect(CRect(left, band.top, right, band.bottom));
        m_cellInfo.SetVisibleRect(visible);
        m_cellInfo.SetClipRect(clip);
        return !clip.IsRectEmpty();
    }

    CGridLine const& m_line;
    CPaintContext const& m_context;
    unsigned int m_filter;
    ICustomDraw& m_customDraw;
    CPaintInfo m_cellInfo; ///< the line's, with the rectangles of the cell in turn
};

} // namespace

CString CLinePaintFormat::GetFormatClassName()
{
    return "GUI::CLinePaintFormat";
}

ILinePaintFormat* CLinePaintFormat::CreateFormat()
{
    return new CLinePaintFormat();
}

void CLinePaintFormat::DrawLine(CGridLine& line, CPaintContext const& context, unsigned int filter,
                                ICustomDraw* customDraw) const
{
    if (context.GetHeader() == nullptr)
    {
        return;
    }
    Detail::SnapshotOf const snapshot(context);
    CPaintContext shared(context);
    shared.UseSnapshot(&*snapshot);
    LinePainter painter(line, shared, filter,
                        customDraw != nullptr ? *customDraw : *CPreferences::GetDefaultCustomDraw());
    CRect const clip = line.GetPaintInfo().GetClipRect() & context.GetClipRect();
    Detail::ColumnWalk columns(context.GetDC(), *snapshot, clip);
    columns.ForEach([&](Detail::PaintColumn const& column, int visibleLeft)
                    { painter.PaintColumn(column, visibleLeft); });
    painter.PaintFiller(snapshot->columnsRight);
}

int CLinePaintFormat::IsSerializableType() const
{
    return 1;
}

CString CLinePaintFormat::GetFormatName()
{
    return GetFormatClassName();
}

} // namespace Ostrel::GUI
