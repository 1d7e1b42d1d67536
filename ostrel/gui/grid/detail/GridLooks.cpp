#include <utility>
#include <vector>

#include <ostrel/gui/grid/Preferences.h>
#include <ostrel/gui/grid/detail/GridCore.h>
#include <ostrel/gui/grid/detail/GridLooks.h>
#include <ostrel/gui/header/Header.h>
#include <ostrel/gui/paint/ICustomDraw.h>
#include <ostrel/gui/paint/detail/GridPainter.h>
#include <ostrel/gui/paint/detail/Primitives.h>
#include <ostrel/platform/base/CallbackErrors.h>
#include <ostrel/platform/drawing/DeviceContext.h>
#include <ostrel/platform/window/PaintDC.h>
#include <ostrel/platform/window/WindowApi.h>

namespace Ostrel::GUI::Detail
{
using Platform::CallbackErrors;

namespace
{
// A region of more rectangles, whose data pass 4096 bytes, is painted as its bounds.
constexpr std::size_t kMostAreas = 254;

std::vector<CRect> AreasToPaint(HWND window)
{
    Platform::Region region;
    if (!Platform::GetUpdateRegion(window, region))
    {
        return {};
    }
    auto const rects = region.Rects();
    if (rects.size() > kMostAreas)
    {
        return {region.Bounds()};
    }
    return {rects.begin(), rects.end()};
}

/// Where windows lie in the grid, those that are out of sight left out.
std::vector<CRect> ShownChildren(CGrid const& grid)
{
    struct Search
    {
        CGrid const& grid;
        CRect client;
        std::vector<CRect> places;
    };
    Search search{.grid = grid, .client = {}, .places = {}};
    grid.GetClientRect(&search.client);
    auto const look = [](HWND child, LPARAM context) -> BOOL
    {
        Search& found = *reinterpret_cast<Search*>(context);
        CRect place;
        ::GetWindowRect(child, &place);
        found.grid.ScreenToClient(&place);
        if (::GetParent(child) == found.grid.GetSafeHwnd() && ::IsWindowVisible(child) != FALSE &&
            !(place & found.client).IsRectEmpty())
        {
            found.places.push_back(place);
        }
        return TRUE;
    };
    ::EnumChildWindows(grid.GetSafeHwnd(), look, reinterpret_cast<LPARAM>(&search));
    return search.places;
}
} // namespace

GridLooks::GridLooks(GridCore& core)
    : m_core(core),
      m_light(CPreferences::GetDefaultAppearance(Platform::ColorScheme::Light)),
      m_dark(CPreferences::GetDefaultAppearance(Platform::ColorScheme::Dark))
{}

CAppearance& GridLooks::Appearance(Platform::ColorScheme scheme) noexcept
{
    return scheme == Platform::ColorScheme::Dark ? m_dark : m_light;
}

void GridLooks::SetFont(CFont const* font)
{
    LOGFONT description{};
    bool const isKnown = font != nullptr && font->GetLogFont(&description) != 0;
    RestoreFont(isKnown ? &description : nullptr);
    MeasureHeights();
}

void GridLooks::RestoreFont(LOGFONT const* description)
{
    m_font.reset();
    if (description != nullptr)
    {
        m_font = std::make_unique<CFont>();
        m_font->CreateFontIndirect(description);
    }
}

CFont* GridLooks::FontInUse() const
{
    return m_font != nullptr ? m_font.get() : CPreferences::GetFont();
}

ICustomDraw& GridLooks::CustomDrawInUse() const
{
    return m_core.customDraw != nullptr ? *m_core.customDraw : *CPreferences::GetDefaultCustomDraw();
}

int GridLooks::OptimalRowHeight(ContextType type) const
{
    if (m_core.Area(type) == nullptr)
    {
        return 0;
    }
    CDC dc;
    dc.CreateCompatibleDC(nullptr);
    return CallbackErrors::Ask([&]() { return CustomDrawInUse().GetOptimalRowHeight(FontInUse(), dc); });
}

void GridLooks::SetRowHeight(ContextType type, int height)
{
    GridArea& area = *m_core.Area(type);
    if (height >= 1 && height != area.RowHeight())
    {
        area.SetRowHeight(height);
    }
}

void GridLooks::MeasureRowHeights()
{
    for (ContextType const type : {FixedContext, ScrollableContext})
    {
        SetRowHeight(type, OptimalRowHeight(type));
    }
    m_core.Scroller().OnResized();
    m_core.View().InvalidateAll();
}

void GridLooks::MeasureHeights()
{
    if (CHeader* const header = m_core.Columns().Header())
    {
        CallbackErrors::Keep([&]() { header->SetHeaderHeight(m_core.Columns().OptimalHeaderHeight()); });
    }
    MeasureRowHeights();
}

void GridLooks::RebuildBuffers()
{
    CGrid& grid = m_core.Grid();
    if (grid.GetSafeHwnd() == nullptr)
    {
        return;
    }
    PaintBuffers::Options options;
    grid.GetClientRect(&options.clientRect);
    options.headerHeight = m_core.Columns().ShownHeight();
    options.flickerFree = flickerFree;
    options.background = backgroundImage;
    CClientDC dc(&grid);
    m_buffers.Rebuild(dc, options);
}

bool GridLooks::CanScrollPixels(int distance) const
{
    CAppearance const& appearance = std::as_const(m_core.Grid()).GetAppearance();
    bool const hasDots = appearance.IsVerticalLinesEnabled() && (paintFilter & PaintVerticalLines) != 0;
    bool const keepsDots = !hasDots || NextDot(distance) == distance;
    return keepsDots && m_buffers.Background() == nullptr && m_core.Mouse().RubberBand().IsRectEmpty() &&
           ShownChildren(m_core.Grid()).empty();
}

void GridLooks::Paint()
{
    CGrid& grid = m_core.Grid();
    m_core.Controls().Place(); // what it uncovers is to be painted now
    std::vector<CRect> const areas = AreasToPaint(grid.GetSafeHwnd());
    CPaintDC dc(&grid);
    m_core.Scroller().OnPainted();
    if (areas.empty())
    {
        return;
    }
    GridPaintState state;
    grid.GetClientRect(&state.clientRect);
    state.fixedRowHeight = m_core.Fixed().RowHeight();
    state.scrollableRowHeight = m_core.Scrollable().RowHeight();
    state.offScreenBuffer = m_buffers.OffScreenBuffer();
    state.backgroundImage = m_buffers.Background();
    state.backgroundImageRect = m_buffers.BackgroundRect();
    m_core.Mouse().DescribePaintState(state);
    if ((grid.GetStyle() & WS_CLIPCHILDREN) == 0)
    {
        for (CRect const& child : ShownChildren(grid)) // it paints itself
        {
            dc.ExcludeClipRect(&child);
        }
    }
    PaintGrid(grid, state, dc, areas);
}
} // namespace Ostrel::GUI::Detail
