// Painting any set of dirty rectangles gives the pixels of a full repaint inside them and touches nothing outside, with
// and without the off-screen buffer, in random states of a grid.
#include <random>

#include <gtest/gtest.h>

#include <ostrel/gui/paint/BackgroundImage.h>
#include <ostrel/gui/paint/ProgressCellPaintFormat.h>
#include <ostrel/gui/paint/detail/PaintBuffers.h>
#include <ostrel/platform/base/Clock.h>
#include <ostrel/platform/drawing/ImageList.h>

#include "PaintScene.h"

using namespace Ostrel;
using namespace Ostrel::GUI;
using namespace PaintTest;
using Platform::Surface;

namespace
{

class RandomScene
{
public:
    explicit RandomScene(unsigned seed)
        : m_random(seed),
          m_size(Below(180) + 60, Below(110) + 40),
          m_scene(m_size, {Below(110) + 1, Below(110) + 1, Below(110) + 1})
    {
        MakePictures();
        MakeRows();
        MakeColumns();
        MakeLooks();
    }

    [[nodiscard]] int Below(int limit) { return static_cast<int>(m_random() % static_cast<unsigned>(limit)); }
    [[nodiscard]] bool Maybe() { return Below(2) == 0; }
    [[nodiscard]] Scene& Grid() { return m_scene; }

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
                               .headerHeight = m_scene.grid.IsHeaderVisible() ? kHeaderHeight : 0,
                               .flickerFree = true,
                               .background = background});
        m_scene.state.offScreenBuffer = use ? m_buffers.OffScreenBuffer() : nullptr;
        m_scene.state.backgroundImage = m_buffers.Background();
        m_scene.state.backgroundImageRect = m_buffers.BackgroundRect();
    }

private:
    void MakePictures()
    {
        std::vector<DWORD> pixels(24 * 8);
        for (DWORD& pixel : pixels)
        {
            pixel = static_cast<DWORD>(m_random()) | (Maybe() ? 0xFF000000U : 0U);
        }
        m_picture.CreateBitmap(24, 8, 1, 32, pixels.data());
        m_images.Create(12, 8, ILC_COLOR32, 2, 2);
        m_images.Add(&m_picture, CLR_NONE);
    }

    void MakeRows()
    {
        std::vector<CGridItem*> parents{ScrollableRoot, ScrollableRoot, FixedRoot};
        for (int row = Below(14); row > 0; --row)
        {
            CGridItem* const parent = parents[static_cast<std::size_t>(Below(static_cast<int>(parents.size())))];
            CGridItem* const item = m_scene.AddRow(parent, "row \xC3\xA4 " + std::to_string(row), Below(120));
            parents.push_back(item);
            m_scene.grid.Expand(item, false);
            m_scene.grid.Select(item, Maybe());
            if (Maybe())
            {
                m_scene.grid.UpdateItem(item, Below(3));
            }
        }
        ContextType const focused = Maybe() ? FixedContext : ScrollableContext;
        m_scene.grid.SetFocusedRow(Below(5), focused);
    }

    void MakeColumns()
    {
        m_scene.header->SetFixedColumnsCount(Below(3));
        m_scene.header->SetImageList(Maybe() ? &m_images : nullptr);
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
        if (Maybe())
        {
            m_scene.header->SetSort(0, CSortInfo(Below(3), Maybe()));
            m_scene.header->SetSort(1, CSortInfo(Below(3), Maybe()));
        }
        m_scene.ScrollTo(Below(150));
    }

    void MakeLooks()
    {
        CGrid& grid = m_scene.grid;
        grid.GetAppearance().SetBackEvenColor(0xF0F8F0);
        grid.GetAppearance().EnableVerticalLines(Maybe());
        grid.GetAppearance().EnableHorizontalLines(Maybe());
        grid.SetImageList(Maybe() ? &m_images : nullptr, Maybe());
        grid.AllowHighlight(Maybe());
        CHighlightSettings settings = grid.GetHighlightSettings();
        settings.SetMode(static_cast<CHighlightSettings::Mode>(Below(10)));
        grid.SetHighlightSettings(settings);
        grid.SetContextSeparatorHeight(Below(5));
        if (Below(4) == 0)
        {
            grid.HideHeader();
        }
        if (Below(3) == 0)
        {
            CBackgroundImage background;
            background.SetBitmap(&m_picture);
            background.SetMode(static_cast<CBackgroundImage::Mode>(Below(3)));
            background.SetOpacity(static_cast<unsigned char>(Below(256)));
            grid.SetBackgroundImage(background);
        }
        m_scene.state.fixedRowHeight = Below(20) + 1;
        m_scene.state.scrollableRowHeight = Below(20) + 1;
        m_scene.state.hotColumn = m_scene.header->GetVisibleColumnByIndex(Below(4));
        m_scene.state.dropColumn = m_scene.state.hotColumn;
        m_scene.state.columnDropX = Below(m_size.cx);
        m_scene.state.dropPosition =
            CDropPosition(Maybe() ? FixedContext : ScrollableContext, Below(4), Maybe(), Below(4));
        if (Maybe())
        {
            m_scene.state.mouseSelection =
                CRect(CPoint(Below(m_size.cx), Below(m_size.cy)), CSize(Below(m_size.cx), Below(m_size.cy)));
        }
    }

    std::mt19937 m_random;
    CSize m_size;
    CBitmap m_picture;
    CImageList m_images;
    Detail::PaintBuffers m_buffers;
    Scene m_scene;
};

/// Which pixels lie in the areas, row by row.
std::vector<bool> MaskOf(std::vector<CRect> const& areas, CSize size)
{
    std::vector<bool> mask(static_cast<std::size_t>(size.cx * size.cy));
    for (CRect const& area : areas)
    {
        CRect const inside = area & CRect(CPoint(), size);
        for (int y = inside.top; y < inside.bottom; ++y)
        {
            auto const row = mask.begin() + y * size.cx;
            std::fill(row + inside.left, row + inside.right, true);
        }
    }
    return mask;
}

/// Empty when all is well, else the first pixel that is not as it should be.
std::string Difference(Surface const& full, Surface const& part, std::vector<bool> const& dirty)
{
    for (int y = 0; y < full.Height(); ++y)
    {
        for (int x = 0; x < full.Width(); ++x)
        {
            bool const isDirty = dirty[static_cast<std::size_t>(y * full.Width() + x)];
            if (part.ColorAt(x, y) != (isDirty ? full.ColorAt(x, y) : kUntouched))
            {
                return (isDirty ? "another pixel at " : "a touched pixel at ") + std::to_string(x) + ", " +
                       std::to_string(y);
            }
        }
    }
    return {};
}

} // namespace

TEST(DirtyAreasTest, PartsLookAsTheWhole)
{
    Platform::Clock::SetManual(1000);
    for (unsigned seed = 0; seed < 250; ++seed)
    {
        RandomScene scene(seed);
        Platform::Clock::Advance(500);
        scene.UseBuffer(false);
        Surface const full = scene.Grid().Paint();
        for (int round = 0; round < 8; ++round)
        {
            std::vector<CRect> const areas = scene.Areas();
            std::vector<bool> const dirty = MaskOf(areas, scene.Grid().state.clientRect.Size());
            scene.UseBuffer(round % 2 == 1);
            std::string const difference = Difference(full, scene.Grid().Paint(areas), dirty);
            ASSERT_EQ(difference, "") << "seed " << seed << " round " << round;
        }
    }
    Platform::Clock::SetRunning();
}
