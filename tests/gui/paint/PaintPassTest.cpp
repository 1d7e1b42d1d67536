#include <gtest/gtest.h>

#include <ostrel/gui/edit/EditInPlaceSettings.h>
#include <ostrel/gui/paint/ColumnPaintInfo.h>
#include <ostrel/gui/paint/CustomDraw.h>
#include <ostrel/gui/paint/GridCell.h>
#include <ostrel/gui/paint/GridLine.h>
#include <ostrel/gui/paint/HeaderPaintInfo.h>
#include <ostrel/gui/paint/PaintContext.h>
#include <ostrel/gui/paint/PaintFilter.h>
#include <ostrel/gui/paint/PaintHelper.h>
#include <ostrel/platform/base/Clock.h>
#include <ostrel/platform/drawing/SystemLook.h>
#include <ostrel/platform/window/MessageLoop.h>
#include <ostrel/platform/window/PaintDC.h>

#include "PaintScene.h"

using namespace Ostrel::GUI;
using namespace PaintTest;
using Ostrel::Platform::Surface;

namespace
{

/// Writes down what is drawn, in order, and then draws it.
class Recorder : public CCustomDraw
{
public:
    Recorder() : CCustomDraw(false) {}

    void DrawHeader(CHeaderPaintInfo& info, CPaintContext const& context, unsigned int filter) override
    {
        calls += "header";
        CCustomDraw::DrawHeader(info, context, filter);
        calls += "; ";
    }
    void DrawColumn(CColumnPaintInfo& info, CPaintContext const& context, unsigned int filter) override
    {
        calls += info.GetColumn() != nullptr ? " " + info.GetColumn()->GetName() : " -";
        CCustomDraw::DrawColumn(info, context, filter);
    }
    void DrawLine(CGridLine& line, CPaintContext const& context, unsigned int filter) override
    {
        calls += line.GetContextType() == FixedContext ? "fixed " : "row ";
        calls += std::to_string(line.GetRow()) + (line.GetItem() == nullptr ? " empty" : "") + ":";
        CCustomDraw::DrawLine(line, context, filter);
        calls += "; ";
    }
    void DrawCell(CGridCell& cell, CPaintContext const& context, unsigned int filter) override
    {
        calls += " " + (cell.GetColumn() != nullptr ? cell.GetColumn()->GetName() : std::string("-"));
        CRect const clip = cell.GetPaintInfo().GetClipRect();
        if (!cellText.empty())
        {
            cellText += " ";
        }
        cellText += cell.GetFormattedStlString();
        lastRects = {cell.GetPaintInfo().GetVirtualRect(), cell.GetPaintInfo().GetVisibleRect(), clip};
        CCustomDraw::DrawCell(cell, context, filter);
    }

    [[nodiscard]] std::string Take() { return std::exchange(calls, {}); }

    std::string calls;
    std::string cellText;
    std::array<CRect, 3> lastRects; ///< virtual, visible, clip
};

class RecordedScene : public Scene
{
public:
    explicit RecordedScene(CSize size, std::vector<int> const& widths = {100, 60, 80}) : Scene(size, widths)
    {
        grid.SetCustomDraw(&recorder);
    }
    ~RecordedScene() { grid.SetCustomDraw(nullptr); }

    /// What is drawn when everything is painted.
    std::string Pass()
    {
        static_cast<void>(Paint());
        return recorder.Take();
    }

    Recorder recorder;
};

/// Takes the text out of a column and writes down the cells it is told of.
class ColumnEditor : public PaintingEditor
{
public:
    unsigned int PrePaintCell(CGridCell& cell, CPaintContext const& /*context*/, unsigned int flags) override
    {
        bool const isCount = cell.GetColumn() != nullptr && cell.GetColumn()->GetFid() == kCountFid;
        calls += isCount ? "count " : "cell ";
        return isCount ? flags & ~static_cast<unsigned int>(PaintText) : flags;
    }
    void PostPaintCell(CGridCell& /*cell*/, CPaintContext const& /*context*/, unsigned int flags) override
    {
        calls += (flags & PaintText) != 0 ? "done " : "bare ";
    }

    std::string calls;
};

CPaintContext ContextOf(Scene& scene, CDC& dc)
{
    return {scene.grid, scene.header, CRect(0, 0, 300, 60), dc, CDropPosition(), CRect(), NoContext, -1, nullptr, false,
            nullptr,    CRect()};
}

} // namespace

TEST(PaintPassTest, DrawsTopToBottomAndLeftToRight)
{
    RecordedScene scene({300, 70});
    scene.AddRow(FixedRoot, "f", 1);
    scene.AddRow(ScrollableRoot, "s", 2);
    EXPECT_EQ(scene.Pass(), "header Name Count Price -; fixed 0: Name Count Price -; row 0: Name Count Price -; "
                            "row 1 empty: Name Count Price -; ");
    EXPECT_EQ(scene.recorder.cellText.substr(0, 3), "f 1");
}

TEST(PaintPassTest, OneCellCostsOneCell)
{
    RecordedScene scene({300, 100});
    scene.AddRow();
    scene.AddRow();
    CRect const area(110, Scene::RowTop(1) + 2, 130, Scene::RowTop(1) + 9);
    static_cast<void>(scene.Paint({area}));
    EXPECT_EQ(scene.recorder.Take(), "row 1: Count; ");
    CRect const cell(100, Scene::RowTop(1), 160, Scene::RowTop(2));
    EXPECT_EQ(scene.recorder.lastRects, (std::array{cell, cell, area}));
    static_cast<void>(scene.Paint({}));
    EXPECT_EQ(scene.recorder.Take(), "");
}

TEST(PaintPassTest, WhatIsHiddenIsNotDrawn)
{
    RecordedScene scene({200, 36}, {50, 90, 120});
    scene.header->SetFixedColumnsCount(1);
    scene.AddRow();
    scene.ScrollTo(100);
    EXPECT_EQ(scene.Pass(), "header Name Price -; row 0: Name Price -; ") << "a column under the fixed one";
    scene.grid.HideHeader();
    EXPECT_EQ(scene.Pass(), "row 0: Name Price -; row 1 empty: Name Price -; row 2 empty: Name Price -; ");
    std::unique_ptr<CHeader> const header(scene.grid.SetHeader(nullptr));
    Surface const pixels = scene.Paint();
    EXPECT_EQ(scene.recorder.Take(), "");
    EXPECT_EQ(PixelsRight(pixels, {0, 30}, 200, GetSysColor(COLOR_WINDOW)), std::string(200, '#'));
}

TEST(PaintPassTest, WindowShowsWhatThePassPaints)
{
    Scene scene({240, 120});
    CGridItem* const item = scene.AddRow(FixedRoot, "fixed", 1);
    scene.AddRow(ScrollableRoot, "scrollable", 2);
    scene.grid.Select(0, ScrollableContext, true);
    scene.state.fixedRowHeight = scene.grid.GetItemHeight(item);
    scene.state.scrollableRowHeight = scene.state.fixedRowHeight;
    Surface const expected = scene.Paint();
    EXPECT_EQ(FirstDifference(scene.Show(), expected), "");
}

TEST(PaintPassTest, ChildWindowsAreLeftAlone)
{
    Scene scene({300, 100});
    scene.AddRow();
    CWnd child;
    child.CreateEx(0, nullptr, "", WS_CHILD | WS_VISIBLE, CRect(20, 25, 60, 40), &scene.grid, 1);
    static_cast<void>(scene.Show());
    {
        CClientDC dc(&child);
        dc.FillSolidRect(CRect(0, 0, 40, 15), kUntouched);
    }
    CRect const row(0, 20, 300, 60);
    scene.grid.RedrawWindow(&row, nullptr, RDW_INVALIDATE | RDW_NOCHILDREN | RDW_UPDATENOW);
    Surface const shown = scene.Shown();
    EXPECT_EQ(PixelsRight(shown, {18, 30}, 44, kUntouched), ".." + std::string(40, '#') + "..");
    child.DestroyWindow();
}

TEST(PaintPassTest, HighlightOverlayNeedsFilterAndPermission)
{
    Ostrel::Platform::Clock::SetManual(1000);
    Scene scene({300, 60});
    CGridItem* const item = scene.AddRow();
    scene.grid.UpdateItem(item, -1);
    scene.grid.UpdateItem(item, kCountFid);
    scene.grid.AllowHighlight(true);
    CDC dc;
    CPaintContext const context = ContextOf(scene, dc);
    CPaintInfo const info(0, 0xFFFFFF, CRect(), CRect(), CRect(), nullptr, 2, 2, scene.grid.GetHighlightSettings());
    CGridLine const line(info, ScrollableContext, 0, item, false, false);
    CGridCell const cell(info, line, &scene.Column(kCountFid), nullptr, -1, false, nullptr);
    CGridCell const filler(info, line, nullptr, nullptr, -1, false, nullptr);

    EXPECT_EQ(CPaintHelper::GetHighlightBackColorBlend(cell, context, PaintAll), CColorBlend(0x0000FF, 150));
    EXPECT_EQ(CPaintHelper::GetHighlightBackColorBlend(filler, context, PaintAll), CColorBlend(0x0000FF, 150));
    EXPECT_EQ(CPaintHelper::GetHighlightBackColorBlend(cell, context, PaintAll & ~PaintHighlight), CColorBlend());
    EXPECT_EQ(CPaintHelper::GetNextPaintDelay(cell, context, PaintAll), 30);
    EXPECT_EQ(CPaintHelper::GetNextPaintDelay(filler, context, PaintAll), 0);
    EXPECT_EQ(CPaintHelper::GetNextPaintDelay(cell, context, PaintAll & ~PaintHighlight), 0);
    scene.grid.AllowHighlight(false);
    EXPECT_EQ(CPaintHelper::GetHighlightBackColorBlend(cell, context, PaintAll), CColorBlend());
    EXPECT_EQ(CPaintHelper::GetNextPaintDelay(cell, context, PaintAll), 0);
    Ostrel::Platform::Clock::SetRunning();
}

TEST(PaintPassTest, ContextsWithoutASnapshotSeeTheSame)
{
    Scene scene({300, 60});
    CGridItem* const parent = scene.AddRow();
    CGridItem* const child = scene.AddRow(parent);
    scene.header->SetSort(0, CSortInfo(kCountFid, false));
    CDC dc;
    CPaintContext const context = ContextOf(scene, dc);
    CPaintInfo info;
    info.SetVirtualRect(CRect(0, 36, 100, 52));
    CGridLine const line(info, ScrollableContext, 1, child, false, false);
    CGridCell const name(info, line, scene.grid.GetHierarchicalColumn(), nullptr, -1, false, nullptr);
    CGridCell const count(info, line, &scene.Column(kCountFid), nullptr, -1, false, nullptr);
    EXPECT_EQ(CPaintHelper::GetIndentation(name, context, PaintAll), 32);
    EXPECT_EQ(CPaintHelper::GetIndentation(name, context, PaintAll & ~PaintHierarchy), 0);
    EXPECT_EQ(CPaintHelper::GetIndentation(count, context, PaintAll), 0);
    EXPECT_EQ(CPaintHelper::GetSortedColumnColorBlend(count, context, PaintAll), CColorBlend(0xB496B4, 50));
    EXPECT_EQ(CPaintHelper::GetSortedColumnColorBlend(name, context, PaintAll).GetOpacity(), 0);
}

TEST(PaintPassTest, EditorIsAskedBeforeACellAndDrawsAfterIt)
{
    ColumnEditor editor;
    Scene scene({200, 36}, {100, 100});
    scene.AddRow(ScrollableRoot, "", 123);
    scene.grid.SetEditInPlace(&editor);
    Surface const bare = scene.Paint();
    EXPECT_EQ(editor.calls, "cell done count bare ");
    CEditInPlaceSettings& settings = scene.grid.GetEditInPlaceSettings();
    settings.SetDrawHotFrame(false);
    settings.SetDrawHotThumb(false);
    editor.calls.clear();
    EXPECT_EQ(FirstDifference(scene.Paint(), bare), "");
    EXPECT_EQ(editor.calls, "cell count ");
    settings.SetEnabled(false);
    editor.calls.clear();
    EXPECT_NE(FirstDifference(scene.Paint(), bare), "") << "the text is back";
    EXPECT_EQ(editor.calls, "");
    scene.grid.SetEditInPlace(nullptr);
}
