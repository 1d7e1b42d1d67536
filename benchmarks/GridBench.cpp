// What the whole grid costs: a window of 1600 x 900 that shows quotes of twelve fields. Order and number of the rows
// are checked at the end of every benchmark; one that ends with wrong rows reports no figure.
#include "GridBench.h"

#include <cstdlib>
#include <functional>
#include <memory>
#include <thread>
#include <vector>

#include <malloc.h>
#include <unistd.h>

#include <benchmark/benchmark.h>

#include "Calibration.h"
#include "QuoteRows.h"

namespace Ostrel::Benchmarks
{
namespace
{

using namespace GUI;
using Platform::ProcessPending;

// --- Memory. First, while the process holds no freed memory that rows could take without growing it. ---

double ResidentBytes()
{
    std::int64_t pages = 0;
    std::int64_t resident = 0;
    if (FILE* const file = std::fopen("/proc/self/statm", "r"))
    {
        if (std::fscanf(file, "%ld %ld", &pages, &resident) != 2)
        {
            resident = 0;
        }
        std::fclose(file);
    }
    return static_cast<double>(resident * sysconf(_SC_PAGESIZE));
}

/// Bytes that rows add to the objects: resident memory, so that everything counts, wherever it was taken from.
void BytesARow(benchmark::State& state)
{
    for (auto _ : state)
    {
        QuoteRows rows(kMillion);
        double const before = ResidentBytes();
        rows.AddAll();
        ProcessPending();
        malloc_trim(0);
        double const plain = ResidentBytes();
        LoopTurns turns;
        for (std::size_t i = 0; i < rows.Count(); ++i)
        {
            rows.Quote(i).ChangeLast(rows.Numbers());
            turns.AfterChange();
        }
        ProcessPending();
        malloc_trim(0);
        double const oneField = ResidentBytes();
        for (std::size_t i = 0; i < rows.Count(); ++i)
        {
            for (long fid = CQuote::kSymbol; fid < CQuote::kSymbol + 8; ++fid) // kLast is the one from before
            {
                rows.Quote(i).NotifyUpdate(fid);
            }
            turns.AfterChange();
        }
        ProcessPending();
        malloc_trim(0);
        state.counters["plain"] = (plain - before) / kMillion;
        state.counters["one_updated_field"] = (oneField - before) / kMillion;
        state.counters["eight_updated_fields"] = (ResidentBytes() - before) / kMillion;
        state.SetIterationTime(0);
        Check(state, rows);
    }
}
OSTREL_BENCHMARK(BytesARow);

// --- Adding, sorting, filtering, selecting and deleting many. ---

void AddOneByOne(benchmark::State& state)
{
    QuoteRows rows(static_cast<std::size_t>(state.range(0)));
    int const repeats = state.range(0) == kThousand ? 51 : 3;
    Measure(
        state, {.things = state.range(0), .repeats = repeats},
        [&]
        {
            rows.Grid().DeleteAll(AllContexts);
            ProcessPending();
        },
        [&] { rows.AddAll(); });
    Check(state, rows);
}
OSTREL_BENCHMARK(AddOneByOne)
    ->ArgName("rows")
    ->Arg(kThousand)
    ->Arg(kHundredThousand)
    ->Arg(kMillion)
    ->Unit(benchmark::kMillisecond);

/// From the order of another field to that of the levels, of which only the first changes.
void MeasureSort(benchmark::State& state, std::vector<CSortInfo> const& levels)
{
    auto const rows = MakeRows(kMillion);
    CSortInfo const other(CQuote::kVolume, false);
    auto const sortByOther = [&] { levels.size() == 1 ? rows->Sort({other}) : rows->Sort({other, levels[1]}); };
    Measure(state, {.things = kMillion, .repeats = 3}, sortByOther, [&] { rows->ReplaceFirstLevel(levels[0]); });
    Check(state, *rows);
}

void SortByOneNumber(benchmark::State& state)
{
    MeasureSort(state, {CSortInfo(CQuote::kLast, false)});
}
OSTREL_BENCHMARK(SortByOneNumber)->Unit(benchmark::kMillisecond);

void SortByTwoNumbers(benchmark::State& state)
{
    MeasureSort(state, {CSortInfo(CQuote::kBidSize, false), CSortInfo(CQuote::kLast, true)});
}
OSTREL_BENCHMARK(SortByTwoNumbers)->Unit(benchmark::kMillisecond);

void SortByText(benchmark::State& state)
{
    MeasureSort(state, {CSortInfo(CQuote::kSymbol, false)});
}
OSTREL_BENCHMARK(SortByText)->Unit(benchmark::kMillisecond);

void FilterAll(benchmark::State& state)
{
    auto const rows = MakeRows(kMillion);
    QuoteFilter byChange(QuoteFilter::Shows::PositiveChange);
    QuoteFilter byLast(QuoteFilter::Shows::LastAbove505);
    Measure(
        state, {.things = kMillion}, [&] { rows->SetFilter(&byChange); }, [&] { rows->SetFilter(&byLast); });
    Check(state, *rows);
    rows->SetFilter(nullptr);
}
OSTREL_BENCHMARK(FilterAll)->Unit(benchmark::kMillisecond);

void SelectAll(benchmark::State& state)
{
    auto const rows = MakeRows(kMillion);
    rows->Grid().AllowMultiSelection(true);
    auto const clear = [&]
    {
        rows->Grid().ClearSelection();
        ProcessPending();
    };
    auto const select = [&]
    {
        rows->Grid().SelectAll();
        ProcessPending();
    };
    Measure(state, {.things = kMillion, .repeats = 3}, clear, select);
    if (rows->Grid().GetSelectedCount() != kMillion)
    {
        state.SkipWithError("not all rows are selected");
    }
}
OSTREL_BENCHMARK(SelectAll)->Unit(benchmark::kMillisecond);

void DeleteAll(benchmark::State& state)
{
    QuoteRows rows(kMillion);
    auto const deleteAll = [&]
    {
        rows.Grid().DeleteAll(AllContexts);
        ProcessPending();
    };
    Measure(
        state, {.things = kMillion, .repeats = 3},
        [&]
        {
            rows.AddAll();
            ProcessPending();
        },
        deleteAll);
    if (rows.Grid().GetRowCount(ScrollableContext) != 0)
    {
        state.SkipWithError("rows are left");
    }
}
OSTREL_BENCHMARK(DeleteAll)->Unit(benchmark::kMillisecond);

/// Each row by itself, in the order in which they were added; the parent is told of each.
void DeleteOneByOne(benchmark::State& state)
{
    QuoteRows rows(static_cast<std::size_t>(state.range(0)));
    Measure(
        state, {.things = state.range(0), .repeats = state.range(0) == kThousand ? 51 : 3},
        [&]
        {
            rows.AddAll();
            ProcessPending();
        },
        [&]
        {
            LoopTurns turns;
            for (std::size_t i = 0; i < rows.Count(); ++i)
            {
                rows.Grid().Delete(rows.Grid().GetItem(&rows.Quote(i)));
                turns.AfterChange();
            }
        });
    if (rows.Grid().GetRowCount(ScrollableContext) != 0)
    {
        state.SkipWithError("rows are left");
    }
}
OSTREL_BENCHMARK(DeleteOneByOne)->Apply(ForAllSizes)->Unit(benchmark::kMillisecond);

/// A row with a hundred thousand children; the parent window is told of each that appears.
void ExpandAndCollapse(benchmark::State& state)
{
    QuoteRows rows(kHundredThousand + 1);
    CGrid& grid = rows.Grid();
    CGridItem* const parent = grid.Add(&rows.Quote(0), ScrollableRoot, LastPosition);
    for (std::size_t i = 1; i < rows.Count(); ++i)
    {
        grid.Add(&rows.Quote(i), parent, LastPosition);
    }
    Measure(state, {.things = kHundredThousand},
            [&]
            {
                grid.Expand(parent, false);
                ProcessPending();
                if (grid.GetRowCount(ScrollableContext) != kHundredThousand + 1)
                {
                    state.SkipWithError("the children are not shown");
                }
                grid.Collapse(parent, false);
                ProcessPending();
            });
}
OSTREL_BENCHMARK(ExpandAndCollapse)->Unit(benchmark::kMillisecond);

/// The number of a random row, and back from the number to the row.
void RandomRowNumbers(benchmark::State& state)
{
    auto const rows = MakeRows(state.range(0));
    rows->SortByLast();
    std::vector<CGridItem*> items;
    for (int row = 0; row < state.range(0); ++row)
    {
        items.push_back(rows->Grid().GetItem(row, ScrollableContext));
    }
    constexpr int kBatch = 200'000;
    int wrong = 0;
    Measure(state, {.operations = kBatch},
            [&]
            {
                for (int i = 0; i < kBatch; ++i)
                {
                    CGridItem* const item = items[rows->Numbers().Below(items.size())];
                    int const row = rows->Grid().GetRow(item);
                    wrong += rows->Grid().GetItem(row, ScrollableContext) == item ? 0 : 1;
                }
            });
    if (wrong != 0)
    {
        state.SkipWithError("a row has a wrong number");
    }
}
OSTREL_BENCHMARK(RandomRowNumbers)->Apply(ForAllSizes);

// --- Updates from the grid's own thread. ---

using Change = void (CQuote::*)(Random& random);

void UpdateMany(QuoteRows& rows, Change change, std::int64_t updates)
{
    LoopTurns turns;
    for (std::int64_t i = 0; i < updates; ++i)
    {
        CQuote& quote = rows.Quote(rows.Numbers().Below(rows.Count()));
        (quote.*change)(rows.Numbers());
        turns.AfterChange();
    }
    ProcessPending();
}

/// Every update is applied and told to the parent by itself, in the order in which they came.
void MeasureUpdates(benchmark::State& state, QuoteRows& rows, Change change)
{
    constexpr std::int64_t kBatch = 300'000;
    UpdateMany(rows, change, state.range(0)); // the structures get the shape of a list in use
    std::int64_t const before = rows.Frame().UpdatesHeard();
    Work const work{.operations = kBatch};
    Measure(state, work, [&] { UpdateMany(rows, change, kBatch); });
    Check(state, rows);
    bool const mayVanish = rows.Grid().GetFilter() != nullptr; // what vanishes is not told as updated
    if (!mayVanish && rows.Frame().UpdatesHeard() - before != work.repeats * kBatch)
    {
        state.SkipWithError("updates were lost");
    }
}

void UpdateUnsorted(benchmark::State& state)
{
    auto const rows = MakeRows(state.range(0));
    MeasureUpdates(state, *rows, &CQuote::ChangeAnyNumber);
}

/// Each update moves its row by a third of the list on average.
void UpdateSorted(benchmark::State& state)
{
    auto const rows = MakeRows(state.range(0));
    rows->SortByLast();
    MeasureUpdates(state, *rows, &CQuote::ChangeLast);
}

/// Half of the updates make the row appear or vanish.
void UpdateFiltered(benchmark::State& state)
{
    QuoteFilter filter(QuoteFilter::Shows::LastAbove505);
    auto const rows = MakeRows(state.range(0));
    rows->SetFilter(&filter);
    MeasureUpdates(state, *rows, &CQuote::ChangeLast);
    rows->SetFilter(nullptr);
}

OSTREL_BENCHMARK(UpdateUnsorted)->Apply(ForAllSizes);
OSTREL_BENCHMARK(UpdateSorted)->Apply(ForAllSizes)->Arg(10 * kThousand);
OSTREL_BENCHMARK(UpdateFiltered)->Apply(ForAllSizes);

/// A million rows sorted by the changing field and filtered by it, 1,000 updates a second in frames of 1/60 s: what the
/// worst frame of five seconds takes of the thread.
void LiveMillion(benchmark::State& state)
{
    QuoteFilter filter(QuoteFilter::Shows::LastAbove505);
    auto const rows = MakeRows(kMillion);
    rows->SortByLast();
    rows->SetFilter(&filter);
    constexpr int kFrames = 300;
    constexpr int kUpdates = 5'000;
    for (auto _ : state)
    {
        double worstSeconds = 0;
        int done = 0;
        for (int frame = 1; frame <= kFrames; ++frame)
        {
            Stopwatch const watch;
            for (; done < kUpdates * frame / kFrames; ++done)
            {
                rows->Quote(rows->Numbers().Below(kMillion)).ChangeLast(rows->Numbers());
            }
            ProcessPending();
            worstSeconds = std::max(worstSeconds, watch.Seconds());
        }
        state.counters["updates"] = done;
        Report(state, {}, worstSeconds);
    }
    Check(state, *rows);
    rows->SetFilter(nullptr);
}
OSTREL_BENCHMARK(LiveMillion)->Unit(benchmark::kMillisecond);

// --- Updates from other threads, in real time. ---

/// Each worker changes rows of its own, as fast as it can, while the grid's thread runs its loop.
void UpdateFromThreads(benchmark::State& state)
{
    auto const rows = MakeRows(state.range(0));
    bool const isSorted = state.range(2) != 0;
    if (isSorted)
    {
        rows->SortByLast();
    }
    auto const threads = static_cast<std::size_t>(state.range(1));
    std::size_t const updatesAThread = 600'000 / threads;
    std::int64_t const total = static_cast<std::int64_t>(updatesAThread * threads);
    Change const change = isSorted ? &CQuote::ChangeLast : &CQuote::ChangeAnyNumber;
    auto const work = [&](std::size_t thread)
    {
        Random random(thread + 1);
        std::size_t const share = rows->Count() / threads;
        for (std::size_t i = 0; i < updatesAThread; ++i)
        {
            (rows->Quote(thread * share + random.Below(share)).*change)(random);
        }
    };
    std::vector<double> stalls;
    std::vector<double> processorSeconds; // of the grid's thread
    auto const run = [&]
    {
        Stopwatch const processor;
        constexpr double kPatienceSeconds = 60;
        std::int64_t const goal = rows->Frame().UpdatesHeard() + total;
        Stopwatch const watch(CLOCK_MONOTONIC);
        rows->Frame().StartHeartbeat();
        {
            std::vector<std::jthread> workers;
            for (std::size_t thread = 0; thread < threads; ++thread)
            {
                workers.emplace_back(work, thread);
            }
            std::int64_t heardBefore = 0;
            Platform::RunModalLoop(
                [&]
                {
                    std::int64_t const heard = rows->Frame().UpdatesHeard();
                    bool const isIdle = heard == heardBefore; // the heartbeat wakes the loop if updates are lost
                    heardBefore = heard;
                    return heard >= goal || (isIdle && watch.Seconds() > kPatienceSeconds);
                });
            stalls.push_back(rows->Frame().StopHeartbeat());
        }
        processorSeconds.push_back(processor.Seconds());
        if (rows->Frame().UpdatesHeard() != goal)
        {
            state.SkipWithError("updates were lost");
        }
    };
    Measure(state, {.operations = total, .repeats = 3, .clock = CLOCK_MONOTONIC}, run);
    state.counters["worst_stall_ms"] = Median(stalls);
    state.counters["grid_thread_ns"] = Median(processorSeconds) * 1e9 / static_cast<double>(total);
    ProcessPending();
    Check(state, *rows);
}
OSTREL_BENCHMARK(UpdateFromThreads)
    ->ArgNames({"rows", "threads", "sorted"})
    ->ArgsProduct({{kThousand, kHundredThousand, kMillion}, {1, 4}, {0, 1}});

} // namespace
} // namespace Ostrel::Benchmarks

int main(int argc, char** argv)
{
    setenv("OSTREL_DISPLAY", "headless", 0); // NOLINT(concurrency-mt-unsafe): before any other thread
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
    {
        return 1;
    }
    Ostrel::Benchmarks::CalibrationSeconds();
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
