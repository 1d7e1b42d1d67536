// What the window shows after any change is what painting all of it anew would show: nothing is left behind by moved
// pixels or by areas that were not invalidated. And the grid is the same before and after it is painted: its settings,
// rows, selection, scroll positions and update times, and nobody is told anything.
#include <algorithm>
#include <functional>
#include <limits>

#include <gtest/gtest.h>

#include <ostrel/gui/grid/Preferences.h>
#include <ostrel/gui/paint/BackgroundImage.h>
#include <ostrel/gui/paint/PaintFilter.h>
#include <ostrel/gui/paint/SpaciousDraw.h>
#include <ostrel/platform/base/Clock.h>
#include <ostrel/platform/drawing/ImageList.h>
#include <ostrel/platform/drawing/SystemLook.h>
#include <ostrel/platform/window/MessageLoop.h>

#include "../header/ArchiveBytes.h"
#include "PaintScene.h"

using namespace Ostrel;
using namespace Ostrel::GUI;
using namespace PaintTest;
using Platform::ColorScheme;
using Platform::Surface;

namespace
{

enum class Sizes
{
    Usual,
    Extreme ///< now and then far outside of what makes sense
};

class AnyHeight : public CCustomDraw
{
public:
    AnyHeight() : CCustomDraw(false) {}
    int GetOptimalRowHeight(CFont* /*font*/, CDC& /*dc*/) const override { return height; }

    int height = 14;
};

class RandomUser : public Random
{
public:
    RandomUser(unsigned seed, Sizes sizes)
        : Random(seed),
          m_sizes(sizes),
          m_pictures({12, 8}, Pixels(12 * 8, Opacity::Any)),
          m_scene(CSize(Below(160) + 90, Below(110) + 60), {Below(90) + 10, Below(90) + 10, Below(90) + 10})
    {
        CAppearance appearance;
        appearance.SetBackEvenColor(0xF0F8F0);
        appearance.EnableVerticalLines(Maybe());
        appearance.EnableHorizontalLines(Maybe());
        m_scene.grid.SetAppearance(appearance);
        m_scene.grid.AllowHighlight(true);
        // Steps would leave cells of different ages on the screen.
        m_scene.grid.SetHighlightSettings({500, 0, 0x80FF80, 255, 255, 0, CHighlightSettings::Back});
        m_scene.grid.SetFlickerFreeDrawing(Maybe());
        CFont font;
        font.CreatePointFont(60 + 10 * Below(6), "DejaVu Sans");
        m_scene.grid.SetFont(&font);
        m_scene.Column(kCountFid).SetCellImageId(0);
        for (int row = Below(25); row > 0; --row)
        {
            Act(kAddRow);
        }
        static_cast<void>(m_scene.Show());
    }

    std::string Step()
    {
        Act(Below(kActions));
        Platform::TurnClock(20); // a change of widths is painted a little later
        Surface const shown = m_scene.Shown();
        std::string const state = State();
        m_scene.grid.Invalidate(FALSE);
        std::string const difference = FirstDifference(shown, m_scene.Shown());
        return State() == state ? difference : "painting has changed the grid";
    }
    [[nodiscard]] int LastAction() const { return m_last; }

private:
    int Size(int limit)
    {
        using Int = std::numeric_limits<int>;
        constexpr int kExtremes[] = {0, 1, -1, 7, -100'000, 32768, 1 << 24, 1 << 30, Int::max(), Int::min()};
        bool const isExtreme = m_sizes == Sizes::Extreme && Below(3) == 0;
        return isExtreme ? kExtremes[Below(std::size(kExtremes))] : Below(limit);
    }

    /// All that can be asked for.
    std::string State()
    {
        CGrid& grid = m_scene.grid;
        std::vector<int> numbers{static_cast<int>(grid.GetFocusedContext()), grid.GetFocusedRow(),
                                 grid.GetFirstVisibleRow(), grid.GetScrollPos(SB_HORZ), grid.GetScrollPos(SB_VERT)};
        for (ContextType const area : {FixedContext, ScrollableContext})
        {
            for (int row = 0; row < static_cast<int>(grid.GetRowCount(area)); ++row)
            {
                numbers.push_back(grid.IsSelected(row, area));
                numbers.push_back(grid.IsExpanded(grid.GetItem(row, area)));
                for (long const fid : {kNameFid, kCountFid, kPriceFid, -1L})
                {
                    numbers.push_back(grid.GetTimeElapsedSinceLastUpdate(row, area, fid));
                }
            }
        }
        std::string state = GUI::Testing::Hex(GUI::Testing::Store(grid)) + m_scene.frame.Text();
        std::ranges::for_each(numbers, [&](int number) { state += ' ' + std::to_string(number); });
        return state;
    }

    ContextType AnyContext() { return Below(4) == 0 ? FixedContext : ScrollableContext; }
    CGridItem* AnyRow()
    {
        ContextType const context = AnyContext();
        int const count = static_cast<int>(m_scene.grid.GetRowCount(context));
        return count > 0 ? m_scene.grid.GetItem(Below(count), context) : nullptr;
    }

    /// One of these actions; the number is for whoever looks for the reason of a difference.
    void Act(int action)
    {
        m_last = action;
        CGrid& grid = m_scene.grid;
        CGridItem* const row = AnyRow();
        std::function<void()> const actions[kActions] = {
            [&] { grid.SendMessage(WM_VSCROLL, static_cast<WPARAM>(Below(4))); },
            [&] { grid.SendMessage(WM_HSCROLL, static_cast<WPARAM>(Below(4))); },
            [&] { grid.Select(row, Maybe()); },
            [&] { grid.SetFocusedRow(Below(12), AnyContext()); },
            [&] { Maybe() ? grid.Expand(row, false) : grid.Collapse(row, false); },
            [&] { grid.UpdateItem(row, Below(4) - 1); },
            [&]
            {
                m_scene.AddRow(Maybe() && row != nullptr ? row : (Below(6) == 0 ? FixedRoot : ScrollableRoot),
                               "row " + std::to_string(Below(100)), Below(100));
            },
            [&] { grid.Delete(row); },
            [&] { m_scene.Column(Below(3)).SetWidth(Size(120)); },
            [&] { m_scene.header->SetSort(0, CSortInfo(Below(3), Maybe())); },
            [&] { m_scene.header->SetFixedColumnsCount(Size(3)); },
            [&] { Platform::TurnClock(Below(300)); },
            [&] { SendMouse(WM_MOUSEMOVE); },
            [&]
            {
                SendMouse(WM_LBUTTONDOWN);
                SendMouse(WM_MOUSEMOVE);
            },
            [&] { SendMouse(WM_LBUTTONUP); },
            [&] { CPreferences::SetColorScheme(Maybe() ? ColorScheme::Light : ColorScheme::Dark); },
            [&] { ChangePicture(); },
            [&]
            {
                grid.SetImageList(Maybe() ? &m_pictures.list : nullptr, Maybe());
                grid.SetCustomDraw(Maybe() ? &m_spacious : nullptr);
            },
            [&] { ChangeSwitches(); },
            [&] { ChangeSizes(); }};
        actions[action]();
    }

    void SendMouse(UINT message)
    {
        CRect client;
        m_scene.grid.GetClientRect(&client);
        int const x = Below(client.right + 10);
        int const y = Below(Maybe() ? client.bottom + 10 : kHeaderHeight);
        m_scene.grid.SendMessage(message, message == WM_LBUTTONUP ? 0 : MK_LBUTTON, (y << 16) | x);
    }

    void ChangePicture()
    {
        CBackgroundImage background;
        background.SetBitmap(Below(3) == 0 ? &m_pictures.bitmap : nullptr);
        background.SetMode(static_cast<CBackgroundImage::Mode>(Below(3)));
        background.SetOpacity(static_cast<unsigned char>(Below(256)));
        m_scene.grid.SetBackgroundImage(background);
    }

    void ChangeSwitches()
    {
        CGrid& grid = m_scene.grid;
        Below(3) == 0 ? grid.HideHeader() : grid.ShowHeader();
        grid.AllowHighlight(Maybe());
        grid.SetContextSeparatorHeight(Size(5));
        grid.SetPaintFilter(Maybe() ? PaintAll : static_cast<unsigned>(Below(PaintAll)) | PaintBackground);
    }

    void ChangeSizes()
    {
        CGrid& grid = m_scene.grid;
        m_scene.header->SetHeaderHeight(Size(40));
        m_scene.Column(kCountFid).SetCellImageId(Size(2));
        m_scene.Column(kCountFid).SetColumnImageId(Size(2));
        grid.InvalidateCell(AnyRow(), kCountFid, Size(50));
        m_high.height = Size(24);
        grid.SetCustomDraw(nullptr);
        grid.SetCustomDraw(&m_high);
    }

    static constexpr int kActions = 20;
    static constexpr int kAddRow = 6;

    Sizes m_sizes;
    Pictures m_pictures;
    CSpaciousDraw m_spacious{false};
    AnyHeight m_high;
    Scene m_scene;
    int m_last = 0;
};

} // namespace

TEST(RepaintTest, ChangesLeaveNothingBehind)
{
    Platform::Clock::SetManual(1000);
    for (unsigned seed = 0; seed < 70; ++seed)
    {
        Platform::SetScale(seed % 3 == 0 ? 2 : 1);
        RandomUser user(seed, seed < 60 ? Sizes::Usual : Sizes::Extreme);
        for (int step = 0; step < 60; ++step)
        {
            ASSERT_EQ(user.Step(), "") << "seed " << seed << " step " << step << " action " << user.LastAction();
        }
    }
    Platform::SetScale(1);
    CPreferences::SetColorScheme(ColorScheme::Light);
    Platform::Clock::SetRunning();
}
