// What the row model alone costs, without a window, a header or an object registry.
#include <array>
#include <cstdint>
#include <fstream>
#include <memory>
#include <random>
#include <span>
#include <vector>

#include <unistd.h>

#include <benchmark/benchmark.h>

#include <ostrel/common/value/Value.h>
#include <ostrel/gui/grid/detail/RowArea.h>

#include "Calibration.h"

namespace Ostrel::Benchmarks
{
namespace
{

using Common::CValue;
using GUI::CGridItem;
using GUI::Detail::IRowFilter;
using GUI::Detail::IRowValues;
using GUI::Detail::RowArea;
using GUI::Detail::RowChanges;
using GUI::Detail::SortLevel;

/// Stands for an application's object; its address is the row's object pointer.
struct Quote
{
    double last = 0;
    double change = 0;
};

class Quotes : public IRowValues, public IRowFilter
{
public:
    explicit Quotes(std::size_t count) : m_quotes(count)
    {
        for (Quote& quote : m_quotes)
        {
            quote = {NewLast(), static_cast<double>(m_random() % 100)};
        }
    }

    double NewLast() { return 1000.0 * static_cast<double>(m_random() >> 11U) * 0x1p-53; }
    std::size_t Random(std::size_t below) { return m_random() % below; }
    Quote& operator[](std::size_t index) { return m_quotes[index]; }
    [[nodiscard]] std::size_t Size() const { return m_quotes.size(); }

    CValue GetSortValue(CGridItem& item, long fieldId) override
    {
        Quote const& quote = QuoteOf(item);
        return CValue(fieldId == 0 ? quote.last : quote.change);
    }
    bool IsHidden(CGridItem& item) override { return (QuoteOf(item).last > 505) != isInverted; }

    bool isInverted = false;

private:
    static Quote& QuoteOf(CGridItem& item) { return *reinterpret_cast<Quote*>(item.Object()); }

    std::mt19937_64 m_random{42};
    std::vector<Quote> m_quotes;
};

SortLevel const kByLast[] = {{0, false}};
SortLevel const kByChangeThenLast[] = {{1, false}, {0, true}};

/// An area with a row per quote.
struct Rows
{
    explicit Rows(std::size_t count, std::span<SortLevel const> levels = {})
        : quotes(count), area(GUI::ScrollableContext, &quotes)
    {
        area.Sort(levels);
        AddAll();
    }

    void AddAll()
    {
        items.clear();
        items.reserve(quotes.Size());
        RowChanges changes;
        changes.wantsEvents = false;
        for (std::size_t i = 0; i < quotes.Size(); ++i)
        {
            items.push_back(RowArea::CreateItem(reinterpret_cast<Common::CDataObject*>(&quotes[i])));
            area.Insert(*items.back(), area.Root(), GUI::LastPosition, changes);
        }
    }

    Quotes quotes;
    RowArea area;
    std::vector<CGridItem*> items;
};

std::int64_t ResidentBytes()
{
    std::ifstream file("/proc/self/statm");
    std::int64_t pages = 0;
    file >> pages >> pages;
    return pages * sysconf(_SC_PAGESIZE);
}

/// Runs first, while the process holds no freed memory that rows could take without growing it.
void BytesARow(benchmark::State& state)
{
    constexpr std::size_t kRows = 1'000'000;
    for (auto _ : state)
    {
        auto rows = std::make_unique<Rows>(0, kByLast);
        rows->quotes = Quotes(kRows);
        rows->items.assign(kRows, nullptr);
        std::int64_t const before = ResidentBytes();
        rows->AddAll();
        std::int64_t const plain = ResidentBytes();
        for (CGridItem* const item : rows->items)
        {
            item->Updates().FindOrAdd(3, 1);
        }
        state.counters["plain"] = static_cast<double>(plain - before) / kRows;
        state.counters["one_updated_field"] = static_cast<double>(ResidentBytes() - before) / kRows;
        state.SetIterationTime(0);
    }
}
OSTREL_BENCHMARK(BytesARow);

void AddRows(benchmark::State& state)
{
    Rows rows(static_cast<std::size_t>(state.range(0)),
              state.range(1) != 0 ? std::span(kByLast) : std::span<SortLevel const>());
    Measure(
        state, {.things = state.range(0), .repeats = state.range(0) == 1000 ? 51 : 3}, [&] { rows.area.DestroyAll(); },
        [&] { rows.AddAll(); });
}
OSTREL_BENCHMARK(AddRows)
    ->ArgNames({"rows", "sorted"})
    ->ArgsProduct({{1000, 100'000, 1'000'000}, {0, 1}})
    ->Unit(benchmark::kMillisecond);

void FullSort(benchmark::State& state)
{
    Rows rows(1'000'000);
    Measure(
        state, {.things = 1'000'000},
        [&] {
            rows.area.Sort(std::array{SortLevel{0, true}, SortLevel{1, true}});
        },
        [&] { rows.area.Sort(state.range(0) == 1 ? std::span<SortLevel const>(kByLast) : kByChangeThenLast); });
}
OSTREL_BENCHMARK(FullSort)->ArgName("levels")->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond);

/// From the order in which the rows were added.
void FirstSort(benchmark::State& state)
{
    std::unique_ptr<Rows> rows;
    Measure(
        state, {.things = 1'000'000, .repeats = 3}, [&] { rows = std::make_unique<Rows>(1'000'000); },
        [&] { rows->area.Sort(kByLast); });
}
OSTREL_BENCHMARK(FirstSort)->Unit(benchmark::kMillisecond);

void Reposition(benchmark::State& state)
{
    Rows rows(static_cast<std::size_t>(state.range(0)), kByLast);
    auto const update = [&]
    {
        std::size_t const index = rows.quotes.Random(rows.quotes.Size());
        rows.quotes[index].last = rows.quotes.NewLast();
        benchmark::DoNotOptimize(rows.area.Reposition(*rows.items[index]));
    };
    for (std::int64_t i = 0; i < state.range(0); ++i)
    {
        update(); // nodes get the fill of a list in use
    }
    constexpr int kBatch = 200'000;
    Measure(state, {.operations = kBatch},
            [&]
            {
                for (int i = 0; i < kBatch; ++i)
                {
                    update();
                }
            });
}
OSTREL_BENCHMARK(Reposition)->ArgName("rows")->Arg(1000)->Arg(10'000)->Arg(100'000)->Arg(1'000'000)->Arg(5'000'000);

/// An update that leaves the row in its place.
void UpdateInPlace(benchmark::State& state)
{
    Rows rows(1'000'000, kByLast);
    constexpr int kBatch = 200'000;
    Measure(state, {.operations = kBatch},
            [&]
            {
                for (int i = 0; i < kBatch; ++i)
                {
                    rows.area.Reposition(*rows.items[rows.quotes.Random(rows.quotes.Size())]);
                }
            });
}
OSTREL_BENCHMARK(UpdateInPlace);

/// Half of the updates make the row appear or vanish.
void FilterOne(benchmark::State& state)
{
    Rows rows(static_cast<std::size_t>(state.range(0)));
    RowChanges changes;
    changes.wantsEvents = false;
    rows.area.SetFilter(&rows.quotes);
    rows.area.ApplyFilter(changes);
    constexpr int kBatch = 200'000;
    Measure(state, {.operations = kBatch},
            [&]
            {
                for (int i = 0; i < kBatch; ++i)
                {
                    std::size_t const index = rows.quotes.Random(rows.quotes.Size());
                    rows.quotes[index].last = rows.quotes.NewLast();
                    rows.area.ApplyFilterTo(*rows.items[index], changes);
                }
            });
}
OSTREL_BENCHMARK(FilterOne)->ArgName("rows")->Arg(1000)->Arg(100'000)->Arg(1'000'000);

void FilterAll(benchmark::State& state)
{
    Rows rows(1'000'000);
    RowChanges changes;
    changes.wantsEvents = false;
    rows.area.SetFilter(&rows.quotes);
    Measure(
        state, {.things = 1'000'000, .repeats = 3}, [&] { rows.quotes.isInverted = !rows.quotes.isInverted; },
        [&] { rows.area.ApplyFilter(changes); });
}
OSTREL_BENCHMARK(FilterAll)->Unit(benchmark::kMillisecond);

void RandomRows(benchmark::State& state)
{
    Rows rows(1'000'000, kByLast);
    constexpr int kBatch = 200'000;
    bool const fromItem = state.range(0) != 0;
    Measure(state, {.operations = kBatch},
            [&]
            {
                for (int i = 0; i < kBatch; ++i)
                {
                    std::size_t const index = rows.quotes.Random(rows.quotes.Size());
                    if (fromItem)
                    {
                        benchmark::DoNotOptimize(RowArea::RowOf(*rows.items[index]));
                    }
                    else
                    {
                        benchmark::DoNotOptimize(rows.area.ItemAt(static_cast<int>(index)));
                    }
                }
            });
}
OSTREL_BENCHMARK(RandomRows)->ArgName("row_of_item")->Arg(0)->Arg(1);

void ExpandAndCollapse(benchmark::State& state)
{
    Quotes quotes(100'001);
    RowArea area(GUI::ScrollableContext, &quotes);
    RowChanges changes;
    CGridItem* const parent = RowArea::CreateItem(nullptr);
    area.Insert(*parent, area.Root(), nullptr, changes);
    for (std::size_t i = 0; i < 100'000; ++i)
    {
        area.Insert(*RowArea::CreateItem(reinterpret_cast<Common::CDataObject*>(&quotes[i])), *parent, nullptr,
                    changes);
    }
    Measure(
        state, {.things = 200'000}, [&] { changes = RowChanges(); },
        [&]
        {
            area.Expand(*parent, GUI::Detail::Recursion::ItemOnly, changes);
            area.Collapse(*parent, GUI::Detail::Recursion::ItemOnly, changes);
        });
}
OSTREL_BENCHMARK(ExpandAndCollapse)->Unit(benchmark::kMillisecond);

void SelectAll(benchmark::State& state)
{
    Rows rows(1'000'000, kByLast);
    std::vector<CGridItem*> changed;
    Measure(
        state, {.things = 1'000'000, .repeats = 3},
        [&]
        {
            for (CGridItem* const item : changed)
            {
                RowArea::Select(*item, false);
            }
            changed.clear();
        },
        [&] { rows.area.SelectAllVisible(&changed); });
}
OSTREL_BENCHMARK(SelectAll)->Unit(benchmark::kMillisecond);

void DeleteAll(benchmark::State& state)
{
    Rows rows(1'000'000, kByLast);
    Measure(
        state, {.things = 1'000'000, .repeats = 3},
        [&]
        {
            rows.area.DestroyAll();
            rows.AddAll();
        },
        [&] { rows.area.DestroyAll(); });
}
OSTREL_BENCHMARK(DeleteAll)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace Ostrel::Benchmarks

BENCHMARK_MAIN();
