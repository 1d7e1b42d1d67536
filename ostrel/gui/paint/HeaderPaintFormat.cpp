#include <ostrel/gui/grid/Preferences.h>
#include <ostrel/gui/paint/ColumnPaintInfo.h>
#include <ostrel/gui/paint/HeaderPaintFormat.h>
#include <ostrel/gui/paint/HeaderPaintInfo.h>
#include <ostrel/gui/paint/ICustomDraw.h>
#include <ostrel/gui/paint/PaintContext.h>
#include <ostrel/gui/paint/detail/ColumnWalk.h>
#include <ostrel/platform/drawing/SystemLook.h>

namespace Ostrel::GUI
{
namespace
{

/// Paints the titles of one header band.
class TitlePainter
{
public:
    TitlePainter(CHeaderPaintInfo const& header, CPaintContext const& context, unsigned int filter,
                 ICustomDraw& customDraw)
        : m_header(header), m_context(context), m_filter(filter), m_customDraw(customDraw)
    {}

    /// The title right of the last column when `column` is null.
    void PaintTitle(CColumn const* column, int left, int right, int visibleLeft)
    {
        CRect const& band = m_header.GetVirtualRect();
        CRect const visible = CRect(visibleLeft, band.top, right, band.bottom) & m_header.GetVisibleRect();
        CRect const clip = visible & m_header.GetClipRect();
        if (clip.IsRectEmpty())
        {
            return;
        }
        CColumnPaintInfo title;
        title.SetVirtualRect(CRect(left, band.top, right, band.bottom));
        title.SetVisibleRect(visible);
        title.SetClipRect(clip);
        title.SetColumn(column);
        title.SetImageId(column != nullptr ? column->GetColumnImageId() : -1);
        title.SetFont(m_header.GetFont());
        title.SetImageList(m_header.GetImageList());
        title.SetTextColor(m_header.GetTextColor());
        title.SetState(StateOf(column));
        m_customDraw.DrawColumn(title, m_context, m_filter);
    }

private:
    [[nodiscard]] CColumnPaintInfo::State StateOf(CColumn const* column) const
    {
        if (column == nullptr || column != m_header.GetHotColumn())
        {
            return CColumnPaintInfo::Normal;
        }
        return m_header.IsCaptured() ? CColumnPaintInfo::Captured : CColumnPaintInfo::Hot;
    }

    CHeaderPaintInfo const& m_header;
    CPaintContext const& m_context;
    unsigned int m_filter;
    ICustomDraw& m_customDraw;
};

/// Where a dragged column would go: a bar over the band, wider at its ends.
void DrawDropMark(CHeaderPaintInfo const& info, CDC& dc)
{
    if (info.GetDropColumn() == nullptr || info.GetDropPosition() < 0)
    {
        return;
    }
    COLORREF const color = GetSysColor(COLOR_HIGHLIGHT);
    CRect const& band = info.GetVirtualRect();
    int const half = Platform::Scaled(1);
    int const wing = Platform::Scaled(3);
    int const x = std::clamp<int>(info.GetDropPosition(), band.left + half, band.right - half);
    for (CRect const& part :
         {CRect(x - half, band.top, x + half, band.bottom), CRect(x - wing, band.top, x + wing, band.top + half),
          CRect(x - wing, band.bottom - half, x + wing, band.bottom)})
    {
        dc.FillSolidRect(part & band, color);
    }
}

} // namespace

CString CHeaderPaintFormat::GetFormatClassName()
{
    return "GUI::CHeaderPaintFormat";
}

IHeaderPaintFormat* CHeaderPaintFormat::CreateFormat()
{
    return new CHeaderPaintFormat();
}

void CHeaderPaintFormat::DrawHeader(CHeaderPaintInfo& info, CPaintContext const& context, unsigned int filter,
                                    ICustomDraw* customDraw) const
{
    if (context.GetHeader() == nullptr)
    {
        return;
    }
    Detail::SnapshotOf const snapshot(context);
    CPaintContext shared(context);
    shared.UseSnapshot(&*snapshot);
    TitlePainter painter(info, shared, filter,
                         customDraw != nullptr ? *customDraw : *CPreferences::GetDefaultCustomDraw());
    CRect const clip = info.GetClipRect() & context.GetClipRect();
    {
        Detail::ColumnWalk columns(context.GetDC(), *snapshot, clip);
        columns.ForEach([&](Detail::PaintColumn const& column, int visibleLeft)
                        { painter.PaintTitle(column.column, column.left, column.right, visibleLeft); });
        int const right = info.GetVirtualRect().right;
        if (snapshot->columnsRight < right)
        {
            painter.PaintTitle(nullptr, snapshot->columnsRight, right, snapshot->columnsRight);
        }
        int const restLeft = std::max<int>({right, snapshot->columnsRight, clip.left});
        if (restLeft < clip.right)
        {
            context.GetDC().FillSolidRect(CRect(restLeft, clip.top, clip.right, clip.bottom),
                                          GetSysColor(COLOR_BTNFACE));
        }
    }
    DrawDropMark(info, context.GetDC());
}

int CHeaderPaintFormat::IsSerializableType() const
{
    return 1;
}

CString CHeaderPaintFormat::GetFormatName()
{
    return GetFormatClassName();
}

} // namespace Ostrel::GUI
