// What reading, formatting, notifying and serializing an object costs, without a grid.
#include <array>
#include <memory>
#include <string>
#include <vector>

#include <malloc.h>

#include <ostrel/Common.h>

#include "Calibration.h"

namespace Ostrel::Benchmarks
{
namespace
{

using namespace Common;

constexpr std::int64_t kCalls = 1'000'000;

class CTrade : public CDataObject
{
public:
    enum Fid : long
    {
        kPrice,
        kQuantity,
        kVenue
    };

    static CFieldMap const* Fields()
    {
        static auto const map = CFieldMapBuilder<CTrade>()
                                    .Field(kPrice, "Price", &CTrade::GetPrice, &CTrade::SetPrice)
                                    .Field(kQuantity, "Quantity", &CTrade::GetQuantity, &CTrade::SetQuantity)
                                    .Field(kVenue, "Venue", &CTrade::GetVenue, &CTrade::SetVenue)
                                    .Build();
        return map.get();
    }
    CFieldMap const* GetFieldMap() const override { return Fields(); }

private:
    [[nodiscard]] double GetPrice() const { return m_price; }
    void SetPrice(double price) { m_price = price; }
    [[nodiscard]] long GetQuantity() const { return m_quantity; }
    void SetQuantity(long quantity) { m_quantity = quantity; }
    [[nodiscard]] std::string GetVenue() const { return m_venue; }
    void SetVenue(std::string const& venue) { m_venue = venue; }

    double m_price = 12'345.678;
    long m_quantity = 1'234'567;
    std::string m_venue = "Main";
};

/// An object of no field.
class CEmpty : public CDataObject
{
public:
    CFieldMap const* GetFieldMap() const override { return nullptr; }
};

class CountingSink : public CDataObject::ISink
{
public:
    using ISink::OnUpdate;
    void OnUpdate(long /*fid*/, CDataObject const* /*object*/) override { ++calls; }

    std::int64_t calls = 0;
};

/// Nanoseconds of one call, out of a million.
template <class Function>
void MeasureCall(benchmark::State& state, Function call)
{
    Measure(state, {.operations = kCalls, .repeats = 7},
            [&]
            {
                for (std::int64_t i = 0; i < kCalls; ++i)
                {
                    call();
                }
            });
}

void GetDouble(benchmark::State& state)
{
    CTrade trade;
    MeasureCall(state, [&] { benchmark::DoNotOptimize(trade.GetDouble(CTrade::kPrice)); });
}
OSTREL_BENCHMARK(GetDouble);

void GetText(benchmark::State& state)
{
    CTrade trade;
    MeasureCall(state, [&] { benchmark::DoNotOptimize(trade.GetStlString(CTrade::kVenue)); });
}
OSTREL_BENCHMARK(GetText);

void GetValue(benchmark::State& state)
{
    CTrade trade;
    MeasureCall(state, [&] { benchmark::DoNotOptimize(trade.GetValue(CTrade::kPrice)); });
}
OSTREL_BENCHMARK(GetValue);

void FormatDouble(benchmark::State& state)
{
    CDoubleFormat const format(3, true);
    if (format.FormatStl(12'345.678) != "12 345,678")
    {
        state.SkipWithError("the number is not written as it should be");
        return;
    }
    MeasureCall(state, [&] { benchmark::DoNotOptimize(format.FormatStl(12'345.678)); });
}
OSTREL_BENCHMARK(FormatDouble);

void FormatLong(benchmark::State& state)
{
    CLongFormat const format;
    if (format.FormatStl(1'234'567L) != "1 234 567")
    {
        state.SkipWithError("the number is not written as it should be");
        return;
    }
    MeasureCall(state, [&] { benchmark::DoNotOptimize(format.FormatStl(1'234'567L)); });
}
OSTREL_BENCHMARK(FormatLong);

/// The text of a field of an object, as a cell shows it.
void FormatField(benchmark::State& state)
{
    CTrade trade;
    MeasureCall(state, [&] { benchmark::DoNotOptimize(trade.GetFormattedStlString(CTrade::kPrice, nullptr)); });
}
OSTREL_BENCHMARK(FormatField);

void Notify(benchmark::State& state)
{
    CTrade trade;
    std::vector<CountingSink> sinks(static_cast<std::size_t>(state.range(0)));
    for (CountingSink& sink : sinks)
    {
        trade.AddSink(&sink);
    }
    MeasureCall(state, [&] { trade.NotifyUpdate(CTrade::kPrice); });
    for (CountingSink& sink : sinks)
    {
        trade.RemoveSink(&sink);
        if (sink.calls == 0)
        {
            state.SkipWithError("a sink was not called");
        }
    }
}
OSTREL_BENCHMARK(Notify)->ArgName("sinks")->Arg(0)->Arg(1);

/// A record as programs store it: a number, an identifier, a flag and a short text.
struct Record
{
    double price = 0;
    long quantity = 0;
    bool isBuy = false;
    std::string venue;
};

constexpr int kRecords = 500'000;

void WriteRecords(CSerializer& serializer)
{
    std::string const venue = "Main market";
    for (int i = 0; i < kRecords; ++i)
    {
        serializer << i * 0.25 << static_cast<long>(i) << (i % 2 == 0) << venue;
    }
}

void ReportBytes(benchmark::State& state, int bytes)
{
    state.SetItemsProcessed(0);
    state.SetBytesProcessed(bytes);
}

void SerializerStore(benchmark::State& state)
{
    int bytes = 0;
    Measure(state, {},
            [&]
            {
                CSerializer serializer(CSerializer::ModeStore);
                WriteRecords(serializer);
                bytes = serializer.GetSavingSize();
            });
    ReportBytes(state, bytes);
}
OSTREL_BENCHMARK(SerializerStore)->Unit(benchmark::kMillisecond);

void SerializerRestore(benchmark::State& state)
{
    CSerializer stored(CSerializer::ModeStore);
    WriteRecords(stored);
    std::vector<char> bytes(static_cast<std::size_t>(stored.GetSavingSize()));
    stored.SaveToBuffer(bytes.data());
    Record record;
    Measure(state, {},
            [&]
            {
                CSerializer serializer(CSerializer::ModeRestore);
                serializer.LoadFromBuffer(bytes.data(), static_cast<int>(bytes.size()));
                for (int i = 0; i < kRecords; ++i)
                {
                    serializer >> record.price >> record.quantity >> record.isBuy >> record.venue;
                }
            });
    ReportBytes(state, static_cast<int>(bytes.size()));
    if (record.quantity != kRecords - 1 || record.venue != "Main market")
    {
        state.SkipWithError("what was read is not what was written");
    }
}
OSTREL_BENCHMARK(SerializerRestore)->Unit(benchmark::kMillisecond);

std::int64_t HeapBytes()
{
    struct mallinfo2 const info = mallinfo2();
    return static_cast<std::int64_t>(info.uordblks + info.hblkhd);
}

/// Bytes of an object that has no field, and what its first subscriber adds.
void BytesAnObject(benchmark::State& state)
{
    constexpr int kObjects = 100'000;
    for (auto _ : state)
    {
        CountingSink sink;
        std::vector<std::unique_ptr<CEmpty>> objects(kObjects);
        std::int64_t const before = HeapBytes();
        for (auto& object : objects)
        {
            object = std::make_unique<CEmpty>();
        }
        std::int64_t const plain = HeapBytes();
        for (auto& object : objects)
        {
            object->AddSink(&sink);
        }
        state.counters["sizeof"] = sizeof(CEmpty);
        state.counters["on_heap"] = static_cast<double>(plain - before) / kObjects;
        state.counters["first_sink_adds"] = static_cast<double>(HeapBytes() - plain) / kObjects;
        state.SetIterationTime(0);
    }
}
OSTREL_BENCHMARK(BytesAnObject);

} // namespace
} // namespace Ostrel::Benchmarks

BENCHMARK_MAIN();
