// Controls over cells: their places, their messages, and what the grid draws over them.
#include <functional>
#include <stdexcept>

#include <ostrel/gui/edit/EmbeddedControlAdapter.h>
#include <ostrel/gui/edit/UserInputHelper.h>
#include <ostrel/gui/paint/Appearance.h>
#include <ostrel/gui/paint/MsImg32.h>
#include <ostrel/gui/paint/PaintFilter.h>
#include <ostrel/platform/window/PaintDC.h>

#include "GridFixture.h"

namespace Ostrel::Testing
{
namespace
{

using GUI::CEmbeddedControlAdapter;
using GUI::CEmbeddedControlParams;
using GUI::CGridItem;

constexpr COLORREF kPaper = RGB(250, 240, 200);
constexpr UINT kQuestion = WM_USER + 1;

class Control : public CWnd
{
public:
    Control(CWnd& parent, CSize size)
    {
        Create(nullptr, "", WS_CHILD | WS_VISIBLE, CRect(CPoint(0, 0), size), &parent, 1);
    }

    std::function<void()> onQuestion;
    int questions = 0;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        switch (message)
        {
        case WM_PAINT: {
            CPaintDC dc(this);
            dc.FillSolidRect(dc.m_ps.rcPaint, kPaper);
            return 0;
        }
        case kQuestion:
            ++questions;
            return 42;
        default:
            return CWnd::WindowProc(message, wParam, lParam);
        }
    }
};

class Sink : public CEmbeddedControlAdapter::ISink
{
public:
    explicit Sink(Control& control) : m_control(control) {}

    void OnEmbeddedControlMessage(CEmbeddedControlAdapter* adapter, unsigned int message, unsigned int wParam,
                                  long lParam) override
    {
        if (message == kQuestion)
        {
            heard += std::to_string(wParam) + "," + std::to_string(lParam) + " before " +
                     std::to_string(m_control.questions) + "; ";
            if (meanwhile)
            {
                meanwhile(*adapter);
            }
        }
    }

    std::string heard;
    std::function<void(CEmbeddedControlAdapter&)> meanwhile;

private:
    Control& m_control;
};

/// In client coordinates of the parent.
CRect PlaceOf(CWnd const& window)
{
    CRect place;
    window.GetWindowRect(&place);
    window.GetParent()->ScreenToClient(&place);
    return place;
}

/// The paper under an overlay.
bool IsBlended(COLORREF color, GUI::CColorBlend const& overlay)
{
    return color == GUI::CMsImg32::AlphaBlend(kPaper, overlay.GetColor(), overlay.GetOpacity());
}

class EmbeddedControlTest : public GridTest
{
protected:
    EmbeddedControlTest()
    {
        grid.AddMany(40);
        grid.SetKeyColumn("Name");
        driver.RunUntilIdle();
    }

    CEmbeddedControlAdapter* Attach(std::string_view row, CEmbeddedControlParams const& params = {})
    {
        CEmbeddedControlAdapter* const adapter = Grid().AttachControl(&control, Item(row), kPrice, params);
        driver.RunUntilIdle();
        return adapter;
    }
    [[nodiscard]] CRect PriceCell(std::string_view row) { return Grid().GetCellVisibleRect(Item(row), kPrice); }
    void ScrollTo(int x) { Grid().SendMessage(WM_HSCROLL, MAKEWPARAM(SB_THUMBPOSITION, x)); }
    [[nodiscard]] bool IsAway() const { return PlaceOf(control).TopLeft() == CPoint(-10000, -10000); }
    [[nodiscard]] COLORREF PixelAt(CPoint clientPoint)
    {
        driver.RunUntilIdle();
        return driver.ColorAt(Grid(), clientPoint);
    }

    Control control{Grid(), CSize(30, 9)};
};

TEST_F(EmbeddedControlTest, RefusesWhatIsNoPlaceForIt)
{
    CGridItem* const item = Item("row1");
    CWnd windowless;
    EXPECT_EQ(Grid().AttachControl(nullptr, item, kPrice, {}), nullptr);
    EXPECT_EQ(Grid().AttachControl(&windowless, item, kPrice, {}), nullptr);
    EXPECT_EQ(Grid().AttachControl(&control, item, -1, {}), nullptr);
    EXPECT_EQ(Grid().AttachControl(&control, item, -2, {}), nullptr);
    EXPECT_EQ(Grid().AttachControl(&control, nullptr, kPrice, {}), nullptr);
    EXPECT_EQ(Grid().AttachControl(&control, GUI::ScrollableRoot, kPrice, {}), nullptr);
    EXPECT_EQ(PlaceOf(control), CRect(0, 0, 30, 9));

    ASSERT_NE(Attach("row1"), nullptr);
    EXPECT_EQ(Attach("row1"), nullptr) << "the cell has one";
    EXPECT_TRUE(Grid().HasControl(item, kPrice));
    EXPECT_TRUE(Grid().HasControl(1, GUI::ScrollableContext, kPrice));
    EXPECT_FALSE(Grid().HasControl(1, GUI::ScrollableContext, kQuantity));
    EXPECT_FALSE(Grid().HasControl(2, GUI::ScrollableContext, kPrice));
    EXPECT_FALSE(Grid().DetachControl(&control));
    EXPECT_FALSE(Grid().DetachControl(item, kPrice, true));
    EXPECT_TRUE(Grid().HasControl(item, kPrice));

    control.DestroyWindow();
    EXPECT_FALSE(Grid().HasControl(item, kPrice));
    Control second(Grid(), CSize(5, 5));
    EXPECT_NE(Grid().AttachControl(&second, item, kPrice, {}), nullptr) << "in the place of a window that is gone";
    EXPECT_EQ(PlaceOf(second), PriceCell("row1"));
}

TEST_F(EmbeddedControlTest, LiesOverItsCellAsItsParametersSay)
{
    struct Case
    {
        CEmbeddedControlParams params;
        CRect expected; ///< added to the edges of the cell at (100, 200, 180, 220)
    };
    CRect const cell(100, 200, 180, 220);
    constexpr unsigned kTopBottom = 10;
    for (auto const& [params, expected] : {
             Case{{}, cell},
             Case{{15, 1, 2, -3, -4, true}, {101, 202, 177, 216}},
             Case{{7, 0, 0, 0, 0, false}, {100, 200, 180, 209}},
             Case{{kTopBottom | 1, 5, 0, 9, 0, true}, {105, 200, 135, 220}},
             Case{{kTopBottom | 4, 5, 0, 9, 0, true}, {150, 200, 189, 220}},
             Case{{kTopBottom, 5, 0, 9, 0, true}, {105, 200, 135, 220}},
             Case{{5 | 8, 0, 3, 0, 2, true}, {100, 211, 180, 222}},
             Case{{0, 1, 2, 3, 4, true}, {101, 202, 131, 211}},
         })
    {
        control.MoveWindow(0, 0, 30, 9);
        CEmbeddedControlAdapter adapter(&control, params);
        adapter.MoveControl(cell);
        EXPECT_EQ(PlaceOf(control), expected) << params.GetAnchors();
        adapter.MoveAway();
        EXPECT_EQ(PlaceOf(control), CRect(CPoint(-10000, -10000), expected.Size()));
    }
}

TEST_F(EmbeddedControlTest, FollowsItsCell)
{
    Attach("row3");
    CRect const before = PlaceOf(control);
    EXPECT_EQ(before, PriceCell("row3"));

    CRect client;
    Grid().GetClientRect(&client);
    auto const expectOverCell = [&](char const* step)
    {
        driver.RunUntilIdle();
        EXPECT_FALSE(PriceCell("row3").IsRectEmpty()) << step;
        EXPECT_EQ(PlaceOf(control) & client, PriceCell("row3")) << step;
        EXPECT_EQ(PlaceOf(control).Size(), before.Size()) << step;
    };
    Grid().SetFirstVisibleRow(2);
    expectOverCell("scrolled");
    EXPECT_EQ(PlaceOf(control).top, before.top - 2 * before.Height());
    grid.Header().MoveToPosition(kQuantity, 0);
    expectOverCell("a column moved");
    EXPECT_EQ(PlaceOf(control).left, before.left + 60);
    grid.Column("Name").SetWidth(150);
    driver.Advance(50);
    expectOverCell("a column was resized");
    grid.Column("Name").SetWidth(300);
    driver.Advance(50);
    ScrollTo(20);
    EXPECT_EQ(Grid().GetScrollPos(SB_HORZ), 20);
    expectOverCell("scrolled horizontally");
    Grid().HideHeader();
    expectOverCell("the header was hidden");
    Grid().Add(&grid.Object("row9"), GUI::FixedRoot, GUI::LastPosition);
    expectOverCell("a fixed row came");
    Grid().Delete(Item("row2"));
    expectOverCell("a row above went");
}

TEST_F(EmbeddedControlTest, GoesAwayWhileItsCellIsOutOfSight)
{
    Attach("row3");
    CRect const place = PlaceOf(control);
    auto const check = [&](char const* step, std::function<void()> const& leave, std::function<void()> const& comeBack)
    {
        leave();
        driver.RunUntilIdle();
        EXPECT_TRUE(IsAway()) << step;
        EXPECT_EQ(PlaceOf(control).Size(), place.Size()) << step;
        comeBack();
        driver.RunUntilIdle();
        EXPECT_EQ(PlaceOf(control), place) << step;
    };
    check(
        "scrolled", [&] { Grid().SetFirstVisibleRow(20); }, [&] { Grid().SetFirstVisibleRow(0); });
    check(
        "column hidden", [&] { grid.Header().HideColumn(kPrice); }, [&] { grid.Header().ShowColumn(kPrice); });
    check(
        "too small", [&] { Grid().MoveWindow(0, 0, 400, 40); }, [&] { Grid().MoveWindow(0, 0, 400, 300); });
    check(
        "behind the fixed columns",
        [&]
        {
            grid.Header().SetFixedColumnsCount(1);
            grid.Column("Quantity").SetWidth(700);
            driver.Advance(50);
            ScrollTo(90);
        },
        [&] { ScrollTo(0); });
    Grid().SetFirstVisibleRow(20);
    driver.RunUntilIdle();
    Control late(Grid(), CSize(12, 12));
    ASSERT_NE(Grid().AttachControl(&late, Item("row4"), kPrice, {}), nullptr);
    EXPECT_EQ(PlaceOf(late), CRect(CPoint(-10000, -10000), CSize(12, 12)));
}

TEST_F(EmbeddedControlTest, IsHiddenWithItsRow)
{
    HideIf filter([](TestObject& object) { return object.GetQuantity() % 2 == 1; });
    TestObject& child = grid.AddChild("row0", {.name = "child", .quantity = 1});
    Grid().Expand(Item("row0"), false);
    CEmbeddedControlAdapter* const adapter = Attach("child");
    ASSERT_TRUE(control.IsWindowVisible());

    Grid().Collapse(Item("row0"), false);
    EXPECT_FALSE(control.IsWindowVisible());
    Grid().Expand(GUI::ScrollableRoot, true);
    EXPECT_TRUE(control.IsWindowVisible());
    Grid().SetFilter(&filter);
    EXPECT_FALSE(control.IsWindowVisible());
    child.SetQuantity(2);
    driver.RunUntilIdle();
    EXPECT_TRUE(control.IsWindowVisible());
    EXPECT_EQ(PlaceOf(control), PriceCell("child"));
    child.SetQuantity(3);
    driver.RunUntilIdle();
    EXPECT_FALSE(control.IsWindowVisible());
    Grid().SetFilter(nullptr);
    EXPECT_TRUE(control.IsWindowVisible());

    CGridItem* const item = Item("child");
    CGridItem* const parent = Item("row0");
    Grid().Detach(parent);
    EXPECT_FALSE(control.IsWindowVisible());
    EXPECT_FALSE(Grid().HasControl(item, kPrice));
    Grid().Attach(parent, GUI::ScrollableRoot, GUI::LastPosition);
    EXPECT_TRUE(Grid().HasControl(item, kPrice));
    driver.RunUntilIdle();
    EXPECT_TRUE(control.IsWindowVisible());
    EXPECT_TRUE(IsAway()) << "the row is the last one now";

    GridWindow other(driver, {.title = "Other"});
    Grid().Detach(parent);
    other.Grid().Attach(parent, GUI::ScrollableRoot, GUI::LastPosition);
    driver.RunUntilIdle();
    EXPECT_EQ(control.GetParent(), &other.Grid());
    EXPECT_EQ(PlaceOf(control), other.Grid().GetCellVisibleRect(item, kPrice));
    EXPECT_EQ(adapter->GetControl(), &control);
    other.Grid().DeleteAll(GUI::AllContexts);
    EXPECT_FALSE(control.IsWindowVisible());
}

TEST_F(EmbeddedControlTest, TheAdapterEndsWithTheRowAndTheControlStays)
{
    Sink sink(control);
    Attach("row3")->AddSink(&sink);
    control.SendMessage(kQuestion, 1, 2);
    EXPECT_EQ(sink.heard, "1,2 before 0; ");
    grid.Destroy("row3");
    EXPECT_FALSE(control.IsWindowVisible());
    EXPECT_EQ(control.SendMessage(kQuestion), 42);
    EXPECT_EQ(sink.heard, "1,2 before 0; ") << "nobody listens any more";
    EXPECT_NE(Attach("row4"), nullptr);
}

TEST_F(EmbeddedControlTest, SinksHearMessagesFirst)
{
    Sink leaving(control);
    Sink staying(control);
    CEmbeddedControlAdapter* const adapter = Attach("row1");
    leaving.meanwhile = [&](CEmbeddedControlAdapter& told)
    {
        EXPECT_EQ(&told, adapter);
        told.RemoveSink(&leaving);
    };
    for (int i = 0; i < 2; ++i) // each hears once
    {
        adapter->AddSink(&leaving);
        adapter->AddSink(&staying);
    }
    adapter->AddSink(nullptr);
    EXPECT_EQ(control.SendMessage(kQuestion, 7, -1), 42);
    EXPECT_EQ(control.SendMessage(kQuestion, 8, 3), 42);
    EXPECT_EQ(leaving.heard, "7,-1 before 0; ");
    EXPECT_EQ(staying.heard, "7,-1 before 0; 8,3 before 1; ");
    EXPECT_EQ(control.questions, 2);
    adapter->RemoveSink(&staying);
}

TEST_F(EmbeddedControlTest, ASinkMayEndEverything)
{
    Sink deleting(control);
    deleting.meanwhile = [&](CEmbeddedControlAdapter&) { Grid().Delete(Item("row1")); };
    Attach("row1")->AddSink(&deleting);
    EXPECT_EQ(control.SendMessage(kQuestion), 42) << "the window still gets its message";
    EXPECT_EQ(control.questions, 1);

    Control second(Grid(), CSize(5, 5));
    Sink destroying(second);
    destroying.meanwhile = [&](CEmbeddedControlAdapter& adapter)
    {
        second.DestroyWindow();
        EXPECT_EQ(adapter.GetControl(), nullptr);
    };
    Grid().AttachControl(&second, Item("row2"), kPrice, {})->AddSink(&destroying);
    second.SendMessage(kQuestion);
    EXPECT_EQ(second.questions, 0);
    driver.RunUntilIdle();
}

TEST_F(EmbeddedControlTest, WhatASinkThrowsComesAfterTheMessageAndTheOperation)
{
    struct Throwing : CEmbeddedControlAdapter::ISink
    {
        void OnEmbeddedControlMessage(CEmbeddedControlAdapter*, unsigned int message, unsigned int, long) override
        {
            if (message == kQuestion || message == WM_SHOWWINDOW)
            {
                throw std::runtime_error("a sink");
            }
        }
    } sink;
    Attach("row1")->AddSink(&sink);
    EXPECT_THROW(control.SendMessage(kQuestion), std::runtime_error);
    EXPECT_EQ(control.questions, 1);
    EXPECT_THROW(Grid().Delete(Item("row1")), std::runtime_error);
    EXPECT_FALSE(grid.HasRow("row1"));
}

TEST_F(EmbeddedControlTest, LooksSelectedAndSortedLikeItsCell)
{
    Attach("row3");
    CRect const cell = PriceCell("row3");
    CPoint const middle = cell.CenterPoint();
    EXPECT_EQ(PixelAt(middle), kPaper);

    GUI::CAppearance const& appearance = std::as_const(Grid()).GetAppearance();
    GUI::CColorBlend const selection = appearance.GetSelectedLineColor();
    Grid().Select(Item("row3"), true);
    EXPECT_TRUE(IsBlended(PixelAt(middle), selection));
    EXPECT_EQ(PixelAt({middle.x, cell.top}), selection.GetColor()) << "the frame";
    Grid().Select(Item("row3"), false);
    EXPECT_EQ(PixelAt(middle), kPaper);

    GUI::CColorBlend const focus = appearance.GetFocusedLineColor();
    Grid().SetFocusedRow(3, GUI::ScrollableContext);
    EXPECT_TRUE(IsBlended(PixelAt(middle), focus));
    CPoint const dot{(cell.left + 1) / 2 * 2, cell.top};
    EXPECT_EQ(PixelAt(dot), focus.GetColor());
    EXPECT_TRUE(IsBlended(PixelAt({dot.x + 1, dot.y}), focus));
    Grid().SetFocusedRow(-1, GUI::NoContext);

    SortByPrice();
    EXPECT_TRUE(IsBlended(PixelAt(middle), appearance.GetSortedColumnColor()));
    control.Invalidate();
    EXPECT_TRUE(IsBlended(PixelAt(middle), appearance.GetSortedColumnColor())) << "painted by itself";
}

TEST_F(EmbeddedControlTest, IsNotToldOfItsCellWithoutThatBitOfThePaintFilter)
{
    Grid().SetPaintFilter(Grid().GetPaintFilter() & ~GUI::PaintControls);
    Attach("row3");
    Grid().Select(Item("row3"), true);
    EXPECT_EQ(PixelAt(PriceCell("row3").CenterPoint()), kPaper);
}

TEST_F(EmbeddedControlTest, OutlivesTheColumnAndTheHeaderThatItWasPaintedWith)
{
    Attach("row3");
    Grid().Select(Item("row3"), true);
    driver.RunUntilIdle();
    std::unique_ptr<GUI::CHeader> before(Grid().SetHeader(nullptr));
    before.reset();
    control.Invalidate();
    control.UpdateWindow();
    driver.RunUntilIdle();
    EXPECT_TRUE(IsAway());
}

TEST_F(EmbeddedControlTest, OtherThreadsAskTheGridsThread)
{
    CGridItem* const item = Item("row2");
    Workers workers;
    workers.Add("attaching",
                [&]
                {
                    EXPECT_FALSE(Grid().HasControl(item, kPrice));
                    CEmbeddedControlAdapter* const adapter = Grid().AttachControl(&control, item, kPrice, {});
                    EXPECT_NE(adapter, nullptr);
                    EXPECT_TRUE(Grid().HasControl(2, GUI::ScrollableContext, kPrice));
                });
    workers.Run();
    driver.RunUntilIdle();
    EXPECT_EQ(PlaceOf(control), PriceCell("row2"));
}

TEST_F(EmbeddedControlTest, FarMoreControlsThanTheScreenHolds)
{
    std::vector<std::unique_ptr<Control>> controls;
    CGridItem* const parent = Item("row0");
    for (int i = 0; i < 100; ++i)
    {
        grid.AddChild("row0", {.name = "child" + std::to_string(i)});
        controls.push_back(std::make_unique<Control>(Grid(), CSize(9, 9)));
    }
    Grid().Expand(parent, false);
    for (int i = 0; i < 100; ++i)
    {
        Grid().AttachControl(controls[i].get(), Item("child" + std::to_string(i)), kPrice, {});
    }
    driver.RunUntilIdle();
    EXPECT_EQ(PlaceOf(*controls[0]), PriceCell("child0"));
    EXPECT_EQ(PlaceOf(*controls[99]).left, -10000);
    Grid().Collapse(parent, false);
    EXPECT_FALSE(controls[0]->IsWindowVisible());
    EXPECT_FALSE(controls[99]->IsWindowVisible());
    Grid().Delete(parent);
    driver.RunUntilIdle();
}

} // namespace
} // namespace Ostrel::Testing
