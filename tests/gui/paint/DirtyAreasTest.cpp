// Painting any set of dirty rectangles gives the pixels of a full repaint inside them and touches nothing outside, with
// and without the off-screen buffer, in random states of a grid.
#include <gtest/gtest.h>

#include <ostrel/gui/edit/EditInPlaceSettings.h>
#include <ostrel/gui/grid/Preferences.h>
#include <ostrel/gui/paint/BackgroundImage.h>
#include <ostrel/gui/paint/GridCell.h>
#include <ostrel/gui/paint/GridLine.h>
#include <ostrel/gui/paint/PaintContext.h>
#include <ostrel/gui/paint/PaintFilter.h>
#include <ostrel/gui/paint/ProgressCellPaintFormat.h>
#include <ostrel/gui/paint/SpaciousDraw.h>
#include <ostrel/gui/paint/detail/PaintBuffers.h>
#include <ostrel/platform/base/Clock.h>
#include <ostrel/platform/drawing/ImageList.h>
#include <ostrel/platform/drawing/SystemLook.h>

#include "PaintScene.h"

using namespace Ostrel;
using namespace Ostrel::GUI;
using namespace PaintTest;
using Platform::Surface;

namespace
{

/// An application's own drawing: room around the texts, another image and colour in some rows, a strike over others.
class OwnDraw : public CSpaciousDraw
{
public:
    OwnDraw() : CSpaciousDraw(false) {}

    void DrawCell(CGridCell& cell, CPaintContext const& context, unsigned int filter) override
    {
        if (cell.GetGridLine().GetRow() % 3 == 1)
        {
            cell.SetImageId(0);
            cell.SetStretchImage(!cell.GetStretchImage());
            cell.GetPaintInfo().SetBackColor(0xC0E0FF);
        }
        CSpaciousDraw::DrawCell(cell, context, filter);
        if (cell.GetGridLine().GetRow() % 3 == 2)
        {
            CRect strike = cell.GetPaintInfo().GetVirtualRect();
            strike.DeflateRect(3, strike.Height() / 2);
            context.GetDC().FillSolidRect(strike & cell.GetPaintInfo().GetVisibleRect(), 0x2020FF);
        }
    }
};

/// Frames the cell under the pointer, as editors do, and keeps the text out of it.
class HotCellEditor : public PaintingEditor
{
public:
    int hotRow = 0;
    long hotFid = 0;

    unsigned int PrePaintCell(CGridCell& cell, CPaintContext const& /*context*/, unsigned int flags) override
    {
        return IsHot(cell) ? flags & ~static_cast<unsigned int>(PaintText) : flags;
    }
    void PostPaintCell(CGridCell& cell, CPaintContext const& context, unsigned int /*flags*/) override
    {
        if (IsHot(cell))
        {
            context.GetDC().Draw3dRect(&cell.GetPaintInfo().GetVirtualRect(), 0x0000FF, 0x00FF00);
        }
    }

private:
    [[nodiscard]] bool IsHot(CGridCell const& cell) const
    {
        return cell.GetColumn() != nullptr && cell.GetColumn()->GetFid() == hotFid &&
               cell.GetGridLine().GetRow() == hotRow;
    }
};

constexpr char const* kNames[] = {"",
                                  "row",
                                  "Größe 12",
                                  "日本語の行",
                                  "نص عربي",
                                  "e\xCC\x81 ok",
                                  "bad \xE9\xFF",
                                  "WWWWWWWWWWWWWWWWWWWW",
                                  "👩‍💻 emoji"};

class RandomScene : public Random
{
public:
    explicit RandomScene(unsigned seed)
        : Random(seed),
          m_size(Below(180) + 60, Below(110) + 40),
          m_pictures({12, 8}, Pixels(24 * 8, Opacity::Any)), // of two images

          m_scene(m_size, {Below(110) + 1, Below(110) + 1, Below(110) + 1})
    {
        MakeRows();
        MakeColumns();
    }
    ~RandomScene()
    {
        m_scene.grid.SetEditInPlace(nullptr);
        m_scene.grid.SetCustomDraw(nullptr);
    }

    [[nodiscard]] Scene& Grid() { return m_scene; }

    /// All that can look different about the same rows and columns.
    void Change()
    {
        ChangeRows();
        ChangeLooks();
        ChangeParts();
        ChangePassingState();
    }

    std::vector<CRect> Areas()
    {
        std::vector<CRect> areas;
        for (int count = Below(4) + 1; count > 0; --count)
        {
            CPoint const at(Below(m_size.cx), Below(m_size.cy));
            areas.emplace_back(at, CSize(Below(m_size.cx) + 1, Below(Maybe() ? m_size.cy : 20) + 1));
        }
        return areas;
    }

    void UseBuffer(bool use)
    {
        CBackgroundImage background = m_scene.grid.GetBackgroundImage();
        CDC dc;
        m_buffers.Rebuild(dc, {.clientRect = m_scene.state.clientRect,
                               .headerHeight = m_scene.grid.IsHeaderVisible() ? m_scene.header->GetHeaderHeight() : 0,
                               .flickerFree = true,
                               .background = background});
        m_scene.state.offScreenBuffer = use ? m_buffers.OffScreenBuffer() : nullptr;
        m_scene.state.backgroundImage = m_buffers.Background();
        m_scene.state.backgroundImageRect = m_buffers.BackgroundRect();
    }

private:
    void MakeRows()
    {
        std::vector<CGridItem*> parents{ScrollableRoot, ScrollableRoot, FixedRoot};
        for (int row = Below(14); row > 0; --row)
        {
            CGridItem* const parent = parents[static_cast<std::size_t>(Below(static_cast<int>(parents.size())))];
            CGridItem* const item = m_scene.AddRow(parent, kNames[Below(std::size(kNames))], Below(120));
            parents.push_back(item);
            m_rows.push_back(item);
        }
    }

    void MakeColumns()
    {
        m_scene.header->SetHeaderHeight(Below(30) + 1);
        m_scene.header->SetFixedColumnsCount(Below(3));
        for (long fid = 0; fid < 3; ++fid)
        {
            CColumn& column = m_scene.Column(fid);
            column.SetAlignment(static_cast<CColumn::Alignment>(Below(4)));
            column.SetCellImageId(Below(4) - 2);
            column.SetColumnImageId(Below(4) - 2);
            column.SetVisible(Below(8) != 0);
        }
        delete m_scene.Column(kCountFid).SetCellPaintFormat(Maybe() ? new CProgressCellPaintFormat(0x30A030, 0, 100)
                                                                    : nullptr);
    }

    void ChangeRows()
    {
        CGrid& grid = m_scene.grid;
        for (CGridItem* const item : m_rows)
        {
            Maybe() ? grid.Expand(item, false) : grid.Collapse(item, false);
            grid.Select(item, Maybe());
            if (Maybe())
            {
                grid.UpdateItem(item, Below(4) - 1);
                Platform::Clock::Advance(Below(300)); // so that cells fade from different moments on
            }
        }
        grid.SetFocusedRow(Below(5), Maybe() ? FixedContext : ScrollableContext);
        m_scene.header->ResetSort();
        if (Maybe())
        {
            m_scene.header->SetSort(0, CSortInfo(Below(3), Maybe()));
            m_scene.header->SetSort(1, CSortInfo(Below(3), Maybe()));
        }
    }

    void ChangeLooks()
    {
        CPreferences::SetColorScheme(Maybe() ? Platform::ColorScheme::Light : Platform::ColorScheme::Dark);
        CGrid& grid = m_scene.grid;
        grid.GetAppearance().SetBackEvenColor(Maybe() ? 0xF0F8F0 : 0x302838);
        grid.GetAppearance().EnableVerticalLines(Maybe());
        grid.GetAppearance().EnableHorizontalLines(Maybe());
        grid.SetPaintFilter(Maybe() ? PaintAll : static_cast<unsigned>(Below(PaintAll)) | PaintBackground);
        grid.AllowHighlight(Maybe());
        CHighlightSettings settings = grid.GetHighlightSettings();
        settings.SetMode(static_cast<CHighlightSettings::Mode>(Below(10)));
        settings.SetForeColor(0x008000);
        grid.SetHighlightSettings(settings);
        grid.SetContextSeparatorHeight(Below(5));
        Below(4) == 0 ? grid.HideHeader() : grid.ShowHeader();
    }

    void ChangeParts()
    {
        CGrid& grid = m_scene.grid;
        m_scene.header->SetImageList(Maybe() ? &m_pictures.list : nullptr);
        grid.SetImageList(Maybe() ? &m_pictures.list : nullptr, Maybe());
        CBackgroundImage background;
        background.SetBitmap(Below(3) == 0 ? &m_pictures.bitmap : nullptr);
        background.SetMode(static_cast<CBackgroundImage::Mode>(Below(3)));
        background.SetOpacity(static_cast<unsigned char>(Below(256)));
        grid.SetBackgroundImage(background);
        ICustomDraw* const draws[] = {nullptr, &m_spacious, &m_own};
        grid.SetCustomDraw(draws[Below(3)]);
        m_editor.hotRow = Below(6);
        m_editor.hotFid = Below(3);
        grid.SetEditInPlace(Maybe() ? &m_editor : nullptr);
        m_scene.ScrollTo(Below(150)); // a change of the layout before would limit it
    }

    void ChangePassingState()
    {
        Detail::GridPaintState& state = m_scene.state;
        state.fixedRowHeight = Below(20) + 1;
        state.scrollableRowHeight = Below(20) + 1;
        state.hotColumn = m_scene.header->GetVisibleColumnByIndex(Below(4));
        state.headerCaptured = Maybe();
        state.dropColumn = Maybe() ? state.hotColumn : nullptr;
        state.columnDropX = Below(m_size.cx);
        state.dropPosition = CDropPosition(Maybe() ? FixedContext : ScrollableContext, Below(4), Maybe(), Below(4));
        state.mouseSelection = CRect();
        if (Maybe())
        {
            state.mouseSelection =
                CRect(CPoint(Below(m_size.cx), Below(m_size.cy)), CSize(Below(m_size.cx), Below(m_size.cy)));
        }
    }

    CSize m_size;
    Pictures m_pictures;
    Detail::PaintBuffers m_buffers;
    CSpaciousDraw m_spacious{false};
    OwnDraw m_own;
    HotCellEditor m_editor;
    Scene m_scene;
    std::vector<CGridItem*> m_rows;
};

/// What painting the areas must leave: the page inside them, the ground outside.
Surface Expected(Surface const& full, std::vector<CRect> const& areas)
{
    Surface expected(full.Width(), full.Height());
    CDC dc;
    dc.AttachSurface(expected);
    dc.FillSolidRect(expected.Bounds(), kUntouched);
    for (CRect const& area : areas)
    {
        expected.CopyFrom(full, area & full.Bounds(), (area & full.Bounds()).TopLeft());
    }
    return expected;
}

} // namespace

TEST(DirtyAreasTest, PartsLookAsTheWhole)
{
    Platform::Clock::SetManual(1000);
    for (unsigned seed = 0; seed < 500; ++seed)
    {
        Platform::SetScale(seed % 4 == 0 ? 2 : 1);
        RandomScene scene(seed);
        for (int state = 0; state < 4; ++state)
        {
            scene.Change();
            scene.UseBuffer(false);
            Surface const full = scene.Grid().Paint();
            for (bool const isBuffered : {false, true})
            {
                std::vector<CRect> const areas = scene.Areas();
                scene.UseBuffer(isBuffered);
                ASSERT_EQ(FirstDifference(scene.Grid().Paint(areas), Expected(full, areas)), "")
                    << "seed " << seed << " state " << state << (isBuffered ? " buffered" : "");
            }
        }
    }
    Platform::SetScale(1);
    CPreferences::SetColorScheme(Platform::ColorScheme::Light);
    Platform::Clock::SetRunning();
}
