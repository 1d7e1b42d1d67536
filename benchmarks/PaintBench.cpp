// What painting a grid costs. For processor instructions instead of times: scripts/count-instructions.
#include <algorithm>

#include <benchmark/benchmark.h>

#include "Calibration.h"
#include "GridBench.h"

namespace Ostrel::Benchmarks
{
namespace
{

using namespace GUI;
using Platform::ProcessPending;

/// Must not depend on the number of rows.
void Repaint(benchmark::State& state)
{
    auto const rows = MakeRows(state.range(0));
    constexpr int kFrames = 20;
    auto const repaint = [&]
    {
        for (int i = 0; i < kFrames; ++i)
        {
            rows->Grid().Invalidate();
            ProcessPending();
        }
    };
    repaint(); // fonts and texts are known afterwards
    Measure(state, {.operations = kFrames}, repaint);
    state.counters["rows"] = rows->Grid().GetLastVisibleRow(ScrollableContext) + 1;
}
OSTREL_BENCHMARK(Repaint)->Apply(ForAllSizes)->Unit(benchmark::kMillisecond);

/// Every text is one that was not shown before.
void RepaintNewPage(benchmark::State& state)
{
    auto const rows = MakeRows(kHundredThousand);
    constexpr int kFrames = 20;
    int row = 0;
    Measure(state, {.operations = kFrames},
            [&]
            {
                for (int i = 0; i < kFrames; ++i)
                {
                    row += rows->Grid().GetLinesPerPage(true);
                    rows->Grid().SetFirstVisibleRow(row);
                    ProcessPending();
                }
            });
    if (rows->Grid().GetFirstVisibleRow() != row)
    {
        state.SkipWithError("the view is not where it was scrolled to");
    }
}
OSTREL_BENCHMARK(RepaintNewPage)->Unit(benchmark::kMillisecond);

void ScrollOneRow(benchmark::State& state)
{
    auto const rows = MakeRows(kHundredThousand);
    constexpr int kSteps = 200;
    int row = 0;
    Measure(state, {.operations = kSteps},
            [&]
            {
                for (int i = 0; i < kSteps; ++i)
                {
                    rows->Grid().SetFirstVisibleRow(++row);
                    ProcessPending();
                }
            });
    if (rows->Grid().GetFirstVisibleRow() != row)
    {
        state.SkipWithError("the view is not where it was scrolled to");
    }
}
OSTREL_BENCHMARK(ScrollOneRow)->Unit(benchmark::kMillisecond);

/// One cell on the screen changes and is painted.
void UpdateOneCell(benchmark::State& state)
{
    auto const rows = MakeRows(kHundredThousand);
    constexpr int kCells = 1000;
    constexpr std::size_t kRowsOnScreen = 40;
    Measure(state, {.operations = kCells},
            [&]
            {
                for (int i = 0; i < kCells; ++i)
                {
                    rows->Quote(rows->Numbers().Below(kRowsOnScreen)).ChangeLast(rows->Numbers());
                    ProcessPending();
                }
            });
    Check(state, *rows);
}
OSTREL_BENCHMARK(UpdateOneCell)->Unit(benchmark::kMicrosecond);

/// A thousand cells fade in steps of 30 ms: what one step takes. The clock is turned by hand, so that every step is one
/// repaint of all of them, however long it takes.
void FadeThousandCells(benchmark::State& state)
{
    constexpr int kRows = 90;
    constexpr int kStepMs = 30;
    constexpr int kSteps = 20;
    constexpr int kPeriodMs = 1000;
    Platform::Clock::SetManual();
    {
        auto const rows = MakeRows(kHundredThousand);
        rows->Frame().SetWindowPos(nullptr, 0, 0, 1600, 1700, SWP_NOZORDER); // the usual window shows 564 cells
        ProcessPending();
        GUI::CHighlightSettings const fading(kPeriodMs, 0, 0x00FF00, 255, 255, kStepMs,
                                             GUI::CHighlightSettings::BackFading);
        rows->Grid().SetHighlightSettings(fading);
        rows->Grid().AllowHighlight(true);
        auto const light = [&]
        {
            Platform::TurnClock(2 * kPeriodMs);
            for (std::size_t row = 0; row < kRows; ++row)
            {
                for (long fid = 0; fid < CQuote::kFieldCount; ++fid)
                {
                    rows->Quote(row).NotifyUpdate(fid);
                }
            }
            ProcessPending();
        };
        Measure(state, {.operations = kSteps}, light,
                [&]
                {
                    for (int step = 0; step < kSteps; ++step)
                    {
                        Platform::TurnClock(kStepMs);
                    }
                });
        int const shown = rows->Grid().GetLastVisibleRow(ScrollableContext) + 1;
        state.counters["cells"] = std::min(shown, kRows) * static_cast<int>(CQuote::kFieldCount);
    }
    Platform::Clock::SetRunning();
}
OSTREL_BENCHMARK(FadeThousandCells)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace Ostrel::Benchmarks
