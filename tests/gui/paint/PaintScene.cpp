#include "PaintScene.h"

#include <algorithm>

#include <ostrel/common/dataobject/FieldMapBuilder.h>
#include <ostrel/gui/grid/Preferences.h>
#include <ostrel/platform/display/headless/HeadlessDisplay.h>
#include <ostrel/platform/window/MessageLoop.h>

namespace PaintTest
{

using namespace Ostrel;

Common::CFieldMap const* Row::GetFieldMap() const
{
    static auto const map = Common::CFieldMapBuilder<Row>()
                                .Field(kNameFid, "Name", &Row::GetName)
                                .Field(kCountFid, "Count", &Row::GetCount)
                                .Field(kPriceFid, "Price", &Row::GetPrice)
                                .Build();
    return map.get();
}

namespace
{
int g_scenes = 0; ///< that exist
}

Scene::Scene(CSize clientSize, std::vector<int> const& widths) : header(new GUI::CHeader)
{
    if (g_scenes++ == 0)
    {
        // One that keeps what was presented: what was drawn and not presented is missing there.
        Platform::SetThreadDisplay(std::make_unique<Platform::HeadlessDisplay>());
    }
    frame.Create(nullptr, "scene", WS_OVERLAPPEDWINDOW, CRect(0, 0, clientSize.cx, clientSize.cy));
    grid.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, clientSize.cx, clientSize.cy), &frame, 1);
    grid.SetFont(GUI::CPreferences::GetFont());
    char const* const names[] = {"Name", "Count", "Price"};
    for (std::size_t fid = 0; fid < widths.size(); ++fid)
    {
        header->Add(new GUI::CColumn(static_cast<long>(fid), names[fid], widths[fid], GUI::CColumn::AlignAuto, false,
                                     -1, -1, nullptr, nullptr, nullptr, ""));
    }
    grid.SetHeader(header);
    header->SetHeaderHeight(kHeaderHeight);
    state.clientRect = CRect(0, 0, clientSize.cx, clientSize.cy);
    state.fixedRowHeight = kRowHeight;
    state.scrollableRowHeight = kRowHeight;
}

Scene::~Scene()
{
    grid.DeleteAll(GUI::AllContexts);
    frame.DestroyWindow();
    --g_scenes;
}

GUI::CGridItem* Scene::AddRow(GUI::CGridItem* parent, std::string const& name, long count)
{
    m_rows.push_back(std::make_unique<Row>(name, count));
    return grid.Add(m_rows.back().get(), parent, GUI::LastPosition);
}

void Scene::ScrollTo(int x)
{
    SCROLLINFO info{};
    info.cbSize = sizeof(info);
    info.fMask = SIF_RANGE | SIF_POS;
    info.nMax = 10000;
    info.nPos = x;
    grid.SetScrollInfo(SB_HORZ, &info, FALSE);
}

Platform::Surface Scene::Paint()
{
    return Paint({state.clientRect});
}

Platform::Surface Scene::Paint(std::vector<CRect> const& areas)
{
    Platform::Surface surface(state.clientRect.Width(), state.clientRect.Height());
    CDC dc;
    dc.AttachSurface(surface);
    dc.FillSolidRect(state.clientRect, kUntouched);
    GUI::Detail::PaintGrid(grid, state, dc, areas);
    return surface;
}

Platform::Surface Scene::Show()
{
    frame.ShowWindow(SW_SHOW);
    return Shown();
}

Platform::Surface Scene::Shown()
{
    Platform::ProcessPending();
    CRect window;
    grid.GetWindowRect(&window);
    Platform::HeadlessWindow const* const top = Platform::HeadlessDisplay::OfThread().WindowAt(window.TopLeft());
    window.OffsetRect(-top->Bounds().left, -top->Bounds().top);
    Platform::Surface shown(window.Width(), window.Height());
    shown.CopyFrom(top->Pixels(), window, CPoint(0, 0));
    return shown;
}

std::vector<DWORD> Random::Pixels(std::size_t count, Opacity opacity)
{
    std::vector<DWORD> pixels(count);
    for (DWORD& pixel : pixels)
    {
        pixel = static_cast<DWORD>(m_random()) | (opacity == Opacity::Full || Maybe() ? 0xFF000000U : 0U);
    }
    return pixels;
}

Pictures::Pictures(CSize imageSize, std::vector<DWORD> const& pixels)
{
    int const count = static_cast<int>(pixels.size()) / (imageSize.cx * imageSize.cy);
    bitmap.CreateBitmap(count * imageSize.cx, imageSize.cy, 1, 32, pixels.data());
    list.Create(imageSize.cx, imageSize.cy, ILC_COLOR32, count, count);
    list.Add(&bitmap, CLR_NONE);
}

Pictures::Pictures(CSize imageSize, DWORD pixel)
    : Pictures(imageSize, std::vector<DWORD>(static_cast<std::size_t>(imageSize.cx) * imageSize.cy, pixel))
{}

std::string FirstDifference(Platform::Surface const& a, Platform::Surface const& b)
{
    for (int y = 0; y < a.Height(); ++y)
    {
        auto const* const rowOfA = a.Row(y);
        auto const [inA, inB] = std::mismatch(rowOfA, rowOfA + a.Width(), b.Row(y));
        if (inA != rowOfA + a.Width())
        {
            return "pixel " + std::to_string(inA - rowOfA) + ", " + std::to_string(y);
        }
    }
    return {};
}

std::string PixelsRight(Platform::Surface const& surface, CPoint from, int count, COLORREF ink)
{
    std::string pixels;
    for (int x = from.x; x < from.x + count; ++x)
    {
        pixels += surface.ColorAt(x, from.y) == ink ? '#' : '.';
    }
    return pixels;
}

std::string PixelsDown(Platform::Surface const& surface, CPoint from, int count, COLORREF ink)
{
    std::string pixels;
    for (int y = from.y; y < from.y + count; ++y)
    {
        pixels += surface.ColorAt(from.x, y) == ink ? '#' : '.';
    }
    return pixels;
}

} // namespace PaintTest
