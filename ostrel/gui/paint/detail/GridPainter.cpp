#include <algorithm>
#include <optional>

#include <ostrel/gui/grid/Grid.h>
#include <ostrel/gui/grid/Preferences.h>
#include <ostrel/gui/grid/detail/GridItem.h>
#include <ostrel/gui/grid/detail/ItemPool.h>
#include <ostrel/gui/grid/detail/RowArea.h>
#include <ostrel/gui/header/Header.h>
#include <ostrel/gui/paint/BackgroundImage.h>
#include <ostrel/gui/paint/GridLine.h>
#include <ostrel/gui/paint/HeaderPaintInfo.h>
#include <ostrel/gui/paint/HighlightSettings.h>
#include <ostrel/gui/paint/ICustomDraw.h>
#include <ostrel/gui/paint/PaintContext.h>
#include <ostrel/gui/paint/detail/GridPainter.h>
#include <ostrel/gui/paint/detail/PaintSnapshot.h>
#include <ostrel/gui/paint/detail/Primitives.h>
#include <ostrel/platform/base/CallbackErrors.h>
#include <ostrel/platform/drawing/SystemLook.h>

namespace Ostrel::GUI::Detail
{
using Platform::CallbackErrors;

namespace
{

/// A memory device context with a bitmap selected into it.
class BitmapContext
{
public:
    BitmapContext(CDC& like, CBitmap& bitmap)
    {
        m_dc.CreateCompatibleDC(&like);
        m_previous = m_dc.SelectObject(&bitmap);
    }
    BitmapContext(BitmapContext const&) = delete;
    BitmapContext& operator=(BitmapContext const&) = delete;
    ~BitmapContext() { m_dc.SelectObject(m_previous); }

    [[nodiscard]] CDC& Get() noexcept { return m_dc; }

private:
    CDC m_dc;
    CBitmap* m_previous = nullptr;
};

void Copy(CDC& target, CDC& source, CRect const& rect)
{
    target.BitBlt(rect.left, rect.top, rect.Width(), rect.Height(), &source, rect.left, rect.top, SRCCOPY);
}

/// A height that the application may have set to anything, so that sums of it with others stay numbers.
int Drawable(int height) noexcept
{
    constexpr int kTallest = 32767;
    return std::clamp(height, -kTallest, kTallest);
}

bool IsSelected(CGridItem const* item) noexcept
{
    return item != nullptr && item->IsSelected();
}

/// Paints one area after the other, top to bottom: y is where the next band begins.
class PaintPass
{
public:
    PaintPass(CGrid const& grid, GridPaintState const& state)
        : m_grid(grid),
          m_state(state),
          m_header(*grid.GetHeader()),
          m_snapshot(grid, m_header),
          m_customDraw(grid.GetCustomDraw() != nullptr ? *grid.GetCustomDraw() : *CPreferences::GetDefaultCustomDraw()),
          m_filter(grid.GetPaintFilter()),
          m_font(grid.GetFont() != nullptr ? grid.GetFont() : CPreferences::GetFont())
    {}

    [[nodiscard]] CFont* Font() const noexcept { return m_font; }

    void PaintArea(CDC& dc, CRect const& area)
    {
        ClipScope const clip(dc, area);
        CPaintContext context = MakeContext(dc, area);
        context.UseSnapshot(&m_snapshot);
        int y = m_state.clientRect.top;
        PaintHeader(context, y);
        PaintRows(context, FixedContext, 0, m_state.fixedRowHeight, y);
        PaintSeparator(context, y);
        int const firstRow = std::max(m_grid.GetFirstVisibleRow(), 0);
        int const row = PaintRows(context, ScrollableContext, firstRow, m_state.scrollableRowHeight, y);
        PaintEmptyLines(context, row, y);
    }

private:
    [[nodiscard]] CPaintContext MakeContext(CDC& dc, CRect const& area) const
    {
        return {m_grid,
                &m_header,
                area,
                dc,
                m_state.dropPosition,
                m_state.mouseSelection,
                m_grid.GetFocusedContext(),
                m_grid.GetFocusedRow(),
                m_grid.GetImageList(),
                m_grid.CanStretchImageInCell(),
                m_state.backgroundImage,
                m_state.backgroundImageRect};
    }

    void PaintHeader(CPaintContext const& context, int& y)
    {
        if (!m_grid.IsHeaderVisible())
        {
            return;
        }
        CRect const band(m_state.clientRect.left, y, m_state.clientRect.right,
                         y + Drawable(m_header.GetHeaderHeight()));
        y = band.bottom;
        CRect const clip = band & context.GetClipRect();
        if (clip.IsRectEmpty())
        {
            return;
        }
        CHeaderPaintInfo info;
        info.SetVirtualRect(band);
        info.SetVisibleRect(band & m_state.clientRect);
        info.SetClipRect(clip);
        info.SetFont(m_header.GetFont() != nullptr ? m_header.GetFont() : m_font);
        info.SetImageList(m_header.GetImageList());
        info.SetTextColor(GetSysColor(COLOR_BTNTEXT));
        info.SetHotColumn(m_state.hotColumn);
        info.SetCaptured(m_state.headerCaptured);
        info.SetDropColumn(m_state.dropColumn);
        info.SetDropPosition(m_state.columnDropX);
        CallbackErrors::Keep([&]() { m_customDraw.DrawHeader(info, context, m_filter); });
    }

    void PaintSeparator(CPaintContext const& context, int& y)
    {
        int const height = Drawable(m_grid.GetContextSeparatorHeight());
        if (!m_grid.CanDrawContextSeparator() || height <= 0 || m_grid.GetRowCount(FixedContext) == 0)
        {
            return;
        }
        CRect band(m_state.clientRect.left, y, m_state.clientRect.right, y + height);
        y = band.bottom;
        if ((band & context.GetClipRect()).IsRectEmpty())
        {
            return;
        }
        CDC& dc = context.GetDC();
        DrawFrame(dc, band, GetSysColor(COLOR_BTNHIGHLIGHT), GetSysColor(COLOR_BTNSHADOW));
        band.DeflateRect(LineWidth(), LineWidth());
        dc.FillSolidRect(band, GetSysColor(COLOR_BTNFACE));
    }

    /// Paints the rows of an area from the first on. Returns the number of the row behind the last one, at y.
    int PaintRows(CPaintContext const& context, ContextType type, int firstRow, int height, int& y)
    {
        int const count = static_cast<int>(m_grid.GetRowCount(type));
        CRect const& clip = context.GetClipRect();
        if (height <= 0 || firstRow >= count)
        {
            return firstRow;
        }
        int const top = y;
        int const rowsAbove = std::clamp((clip.top - top) / height, 0, count - firstRow);
        int row = firstRow + rowsAbove;
        y = top + rowsAbove * height;
        CGridItem* item = m_grid.GetItem(row, type);
        bool isPreviousSelected = item != nullptr && IsSelected(RowBefore(row, type));
        for (; item != nullptr && y < clip.bottom; ++row, y += height)
        {
            CGridItem* const next = RowArea::NextVisible(*item);
            bool const isNextSelected =
                IsSelected(next != nullptr || type == ScrollableContext ? next : m_grid.GetItem(0, ScrollableContext));
            bool const isSelected = IsSelected(item);
            PaintLine(context, {type, row, item, isPreviousSelected, isNextSelected}, y, height);
            isPreviousSelected = isSelected;
            item = ItemPool::IsLive(next) ? next : m_grid.GetItem(row + 1, type); // what was drawn may have deleted it
        }
        if (item != nullptr)
        {
            // The area ends here: what follows lies below it.
            y = std::max<int>(y, clip.bottom);
            return row;
        }
        return count;
    }

    [[nodiscard]] CGridItem* RowBefore(int row, ContextType type) const
    {
        if (row > 0)
        {
            return m_grid.GetItem(row - 1, type);
        }
        int const fixedRows = static_cast<int>(m_grid.GetRowCount(FixedContext));
        return type == ScrollableContext && fixedRows > 0 ? m_grid.GetItem(fixedRows - 1, FixedContext) : nullptr;
    }

    void PaintEmptyLines(CPaintContext const& context, int row, int y)
    {
        CRect const& clip = context.GetClipRect();
        int const height = std::max(m_state.scrollableRowHeight, 1);
        if (y < clip.top)
        {
            int const linesAbove = (clip.top - y) / height;
            row += linesAbove;
            y += linesAbove * height;
        }
        for (; y < clip.bottom; ++row, y += height)
        {
            bool const isPreviousSelected = IsSelected(RowBefore(row, ScrollableContext));
            PaintLine(context, {ScrollableContext, row, nullptr, isPreviousSelected, false}, y, height);
        }
    }

    struct Row
    {
        ContextType type;
        int number;
        CGridItem* item;
        bool isPreviousSelected;
        bool isNextSelected;
    };

    void PaintLine(CPaintContext const& context, Row const& row, int y, int height)
    {
        CRect const band(m_state.clientRect.left, y, m_state.clientRect.right, y + height);
        // The first row of an area is an odd one.
        bool const isOdd = row.number % 2 == 0;
        CAppearance const& appearance = m_snapshot.appearance;
        CPaintInfo const info(isOdd ? appearance.GetTextOddColor() : appearance.GetTextEvenColor(),
                              isOdd ? appearance.GetBackOddColor() : appearance.GetBackEvenColor(),
                              band & m_state.clientRect, band, band & context.GetClipRect(), m_font, m_textOffset,
                              m_textOffset, m_grid.GetHighlightSettings());
        CGridLine line(info, row.type, row.number, row.item, row.isPreviousSelected, row.isNextSelected);
        CallbackErrors::Keep([&]() { m_customDraw.DrawLine(line, context, m_filter); });
    }

    CGrid const& m_grid;
    GridPaintState const& m_state;
    CHeader const& m_header;
    PaintSnapshot m_snapshot;
    ICustomDraw& m_customDraw;
    unsigned int m_filter;
    CFont* m_font;
    int m_textOffset = TextOffset();
};

} // namespace

void PaintGrid(CGrid const& grid, GridPaintState const& state, CDC& target, std::span<CRect const> areas)
{
    if (areas.empty())
    {
        return;
    }
    if (grid.GetHeader() == nullptr)
    {
        target.FillSolidRect(state.clientRect, GetSysColor(COLOR_WINDOW));
        return;
    }
    PaintPass pass(grid, state);
    FontScope const targetFont(target, pass.Font());
    bool const hasPicture = state.backgroundImage != nullptr && !state.backgroundImageRect.IsRectEmpty() &&
                            grid.GetBackgroundImage().GetOpacity() < 255;
    std::optional<BitmapContext> picture;
    if (hasPicture)
    {
        picture.emplace(target, *state.backgroundImage);
    }
    std::optional<BitmapContext> buffer;
    std::optional<FontScope> bufferFont;
    if (state.offScreenBuffer != nullptr)
    {
        buffer.emplace(target, *state.offScreenBuffer);
        bufferFont.emplace(buffer->Get(), pass.Font());
    }
    CDC& dc = buffer.has_value() ? buffer->Get() : target;
    for (CRect const& dirty : areas)
    {
        CRect const area = dirty & state.clientRect;
        if (area.IsRectEmpty())
        {
            continue;
        }
        if (hasPicture)
        {
            Copy(dc, picture->Get(), area & state.backgroundImageRect);
        }
        pass.PaintArea(dc, area);
        if (buffer.has_value())
        {
            Copy(target, buffer->Get(), area);
        }
    }
}

} // namespace Ostrel::GUI::Detail
