// An embedded control: its place, its messages, and what is drawn over it.
//
// A sink may do anything, the end of the adapter and of the window included. The record therefore lives as long as a
// message of its window is on the way, and looks at both again after every call.
#include <optional>
#include <set>
#include <utility>
#include <vector>

#include <ostrel/common/dataobject/DataObject.h>
#include <ostrel/gui/edit/EmbeddedControlAdapter.h>
#include <ostrel/gui/grid/Grid.h>
#include <ostrel/gui/grid/Hooker.h>
#include <ostrel/gui/header/Column.h>
#include <ostrel/gui/paint/GridCell.h>
#include <ostrel/gui/paint/GridLine.h>
#include <ostrel/gui/paint/PaintContext.h>
#include <ostrel/gui/paint/PaintHelper.h>
#include <ostrel/gui/paint/detail/PaintSnapshot.h>
#include <ostrel/platform/base/CallbackErrors.h>
#include <ostrel/platform/window/PaintDC.h>
#include <ostrel/platform/window/Wnd.h>

namespace Ostrel::GUI
{
using Platform::CallbackErrors;

namespace
{

constexpr CPoint kAway{-10000, -10000};

/// The window in client coordinates of its parent.
CRect PlacementOf(HWND window)
{
    CRect place;
    GetWindowRect(window, &place);
    if (HWND const parent = ::GetParent(window))
    {
        CPoint corner = place.TopLeft();
        ScreenToClient(parent, &corner);
        place = CRect(corner, place.Size());
    }
    return place;
}

/// How a cell was painted, in a copy of its own.
class PaintedCell
{
public:
    PaintedCell(CGridCell const& cell, CPaintContext const& context, unsigned int filter)
        : m_line(cell.GetGridLine()),
          m_cell(cell.GetPaintInfo(), m_line, cell.GetColumn(), cell.GetImageList(), cell.GetImageId(),
                 cell.GetStretchImage(), FormatOf(cell)),
          m_context(context),
          m_filter(filter)
    {
        m_context.UseSnapshot(nullptr); // it ends with the pass
    }
    PaintedCell(PaintedCell const&) = delete;
    PaintedCell& operator=(PaintedCell const&) = delete;
    ~PaintedCell() = default;

    /// Draws what distinguishes the cell over its control. `area` is the part to be drawn, in client coordinates of the
    /// grid, which are also the context's.
    void DrawDecorations(CDC& dc, CRect const& area) const;

private:
    static Common::CFormat const* FormatOf(CGridCell const& cell)
    {
        CColumn const* const column = cell.GetColumn();
        if (column == nullptr || column->GetTextFormat() != nullptr)
        {
            return column != nullptr ? column->GetTextFormat() : nullptr;
        }
        Common::CDataObject* const object = cell.GetGridLine().GetDataObject();
        return object != nullptr ? object->GetFormat(column->GetFid()) : nullptr;
    }

    void Blend(CPaintContext const& context, CRect const& area) const;

    CGridLine m_line;
    CGridCell m_cell;
    CPaintContext m_context; ///< of a device context that is gone
    unsigned int m_filter;
};

void PaintedCell::Blend(CPaintContext const& context, CRect const& area) const
{
    for (CColorBlend const& overlay : {CPaintHelper::GetSortedColumnColorBlend(m_cell, context, m_filter),
                                       CPaintHelper::GetSelectionColorBlend(m_cell, context, m_filter),
                                       CPaintHelper::GetFocusedRowColorBlend(m_cell, context, m_filter),
                                       CPaintHelper::GetHighlightBackColorBlend(m_cell, context, m_filter)})
    {
        context.GetDC().BlendRect(area, static_cast<COLORREF>(overlay.GetColor()), overlay.GetOpacity());
    }
}

void PaintedCell::DrawDecorations(CDC& dc, CRect const& area) const
{
    CGrid const& grid = m_context.GetGrid();
    if (grid.GetHeader() == nullptr || grid.GetHeader() != m_context.GetHeader())
    {
        return;
    }
    Detail::PaintSnapshot const snapshot(grid, *grid.GetHeader());
    if (snapshot.Find(m_cell.GetColumn()) == nullptr)
    {
        return; // the column has gone since
    }
    CPaintContext context(grid, m_context.GetHeader(), area, dc, m_context.GetDropPosition(),
                          m_context.GetMouseSelection(), m_context.GetFocusedContext(), m_context.GetFocusedRow(),
                          m_context.GetImageList(), m_context.GetStretchImage(), m_context.GetBackgroundImage(),
                          m_context.GetBackgroundImageRc());
    context.UseSnapshot(&snapshot);
    Blend(context, area);
    if ((m_filter & PaintMouseSelection) != 0)
    {
        CColorBlend const blend = snapshot.appearance.GetMouseSelectionColor();
        CPaintHelper::DrawMouseTrackSelection(area, blend, blend.GetColor(), context);
    }
    if ((m_filter & PaintFocusFrame) != 0)
    {
        CPaintHelper::DrawFocus(m_cell, snapshot.appearance.GetFocusedLineColor().GetColor(), context);
    }
    if ((m_filter & PaintSelectionFrame) != 0)
    {
        CPaintHelper::DrawSelectionFrame(m_cell, snapshot.appearance.GetSelectedLineColor().GetColor(), context);
    }
}

} // namespace

/// What there is of an adapter: the watch over its control's window.
class CEmbeddedControlAdapter::Record final : public CHooker, public std::enable_shared_from_this<Record>
{
public:
    Record(CEmbeddedControlAdapter& owner, CWnd* window, CEmbeddedControlParams const& placing)
        : params(placing), control(window), m_adapter(&owner)
    {
        HWND const handle = window != nullptr ? window->GetSafeHwnd() : nullptr;
        if (Hook(handle))
        {
            natural = PlacementOf(handle);
        }
    }

    /// The adapter ends; a message that is on its way still finds its window.
    void Leave()
    {
        m_adapter = nullptr;
        sinks.clear();
        painted.reset();
        Unhook();
    }

    // CHooker
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

    CEmbeddedControlParams params;
    CWnd* control;
    CRect natural; ///< where the control was when it was embedded
    std::set<ISink*> sinks;
    std::optional<PaintedCell> painted;

private:
    void TellSinks(UINT message, WPARAM wParam, LPARAM lParam);
    void Decorate(HWND window, CRect const& updated) const;

    CEmbeddedControlAdapter* m_adapter;
};

void CEmbeddedControlAdapter::Record::TellSinks(UINT message, WPARAM wParam, LPARAM lParam)
{
    std::vector<ISink*> const told(sinks.begin(), sinks.end());
    for (ISink* const sink : told)
    {
        if (sinks.contains(sink))
        {
            CallbackErrors::Keep(
                [&]()
                { sink->OnEmbeddedControlMessage(m_adapter, message, static_cast<unsigned int>(wParam), lParam); });
        }
    }
}

LRESULT CEmbeddedControlAdapter::Record::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    std::shared_ptr<Record> const self = shared_from_this();
    CallbackErrors errors; // the window gets its message, whatever the sinks throw
    HWND const window = GetHookedWindow();
    CRect updated;
    if (message == WM_PAINT)
    {
        GetUpdateRect(window, &updated);
    }
    TellSinks(message, wParam, lParam);
    if (message == WM_NCDESTROY)
    {
        control = nullptr;
    }
    LRESULT const result = CHooker::WindowProc(message, wParam, lParam);
    if (painted.has_value() && IsWindow(window) != FALSE)
    {
        if (message == WM_KILLFOCUS)
        {
            InvalidateRect(window, nullptr);
        }
        else if (message == WM_PAINT)
        {
            Decorate(window, updated);
        }
    }
    message == WM_DESTROY || message == WM_NCDESTROY ? errors.Report() : errors.Rethrow();
    return result;
}

void CEmbeddedControlAdapter::Record::Decorate(HWND window, CRect const& updated) const
{
    HWND const grid = ::GetParent(window);
    if (updated.IsRectEmpty() || grid == nullptr)
    {
        return;
    }
    CPoint origin;
    MapWindowPoints(window, grid, &origin, 1);
    CClientDC dc(window);
    dc.IntersectClipRect(&updated);
    dc.OffsetViewportOrg(-origin.x, -origin.y);
    painted->DrawDecorations(dc, updated + origin);
}

CEmbeddedControlAdapter::CEmbeddedControlAdapter(CWnd* control, CEmbeddedControlParams const& params)
    : m_record(std::make_shared<Record>(*this, control, params))
{}

CEmbeddedControlAdapter::~CEmbeddedControlAdapter()
{
    m_record->Leave();
}

namespace
{

/// One direction: the near and the far edge of a control over those of its cell.
std::pair<int, int> Extent(bool followsNear, bool followsFar, std::pair<int, int> cell, std::pair<int, int> offsets,
                           int naturalSize)
{
    int const nearEdge = followsFar && !followsNear ? cell.second - naturalSize : cell.first + offsets.first;
    return {nearEdge, followsFar ? cell.second + offsets.second : nearEdge + naturalSize};
}

} // namespace

void CEmbeddedControlAdapter::MoveControl(CRect const& cellRect)
{
    CEmbeddedControlParams const& params = m_record->params;
    unsigned int const anchors = params.GetAnchors();
    auto const follows = [anchors](CEmbeddedControlParams::Anchor edge) { return (anchors & edge) != 0; };
    auto const [left, right] = Extent(follows(CEmbeddedControlParams::AnchorLeft),
                                      follows(CEmbeddedControlParams::AnchorRight), {cellRect.left, cellRect.right},
                                      {params.GetLeftOffset(), params.GetRightOffset()}, m_record->natural.Width());
    auto const [top, bottom] = Extent(follows(CEmbeddedControlParams::AnchorTop),
                                      follows(CEmbeddedControlParams::AnchorBottom), {cellRect.top, cellRect.bottom},
                                      {params.GetTopOffset(), params.GetBottomOffset()}, m_record->natural.Height());
    HWND const window = m_record->GetHookedWindow();
    CRect const wanted(left, top, right, bottom);
    if (window != nullptr && !(wanted == PlacementOf(window)))
    {
        MoveWindow(window, wanted.left, wanted.top, wanted.Width(), wanted.Height());
    }
}

CWnd* CEmbeddedControlAdapter::GetControl() const
{
    return m_record->control;
}

bool CEmbeddedControlAdapter::PaintControl(CGridCell& cell, CPaintContext const& context, unsigned int flags)
{
    m_record->painted.emplace(cell, context, flags);
    if (m_record->params.GetInvalidateControl())
    {
        InvalidateRect(m_record->GetHookedWindow(), nullptr);
    }
    return true;
}

void CEmbeddedControlAdapter::MoveAway()
{
    HWND const window = m_record->GetHookedWindow();
    if (window != nullptr && PlacementOf(window).TopLeft() != kAway)
    {
        SetWindowPos(window, nullptr, kAway.x, kAway.y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    }
}

void CEmbeddedControlAdapter::HideControl()
{
    ShowWindow(m_record->GetHookedWindow(), SW_HIDE);
}

void CEmbeddedControlAdapter::ShowControl()
{
    ShowWindow(m_record->GetHookedWindow(), SW_SHOWNA);
}

void CEmbeddedControlAdapter::AddSink(ISink* sink)
{
    if (sink != nullptr)
    {
        m_record->sinks.insert(sink);
    }
}

void CEmbeddedControlAdapter::RemoveSink(ISink* sink)
{
    m_record->sinks.erase(sink);
}

CEmbeddedControlParams const& CEmbeddedControlAdapter::GetParams() const
{
    return m_record->params;
}

bool CEmbeddedControlAdapter::AutoDelete() const
{
    return true;
}

bool CEmbeddedControlAdapter::IsWatching() const
{
    return m_record->GetHookedWindow() != nullptr;
}

void CEmbeddedControlAdapter::ForgetCell()
{
    m_record->painted.reset();
}

} // namespace Ostrel::GUI
