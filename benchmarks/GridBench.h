// What the benchmarks of a whole grid have in common.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include <benchmark/benchmark.h>

#include "QuoteRows.h"

namespace Ostrel::Benchmarks
{

inline constexpr std::int64_t kThousand = 1'000;
inline constexpr std::int64_t kHundredThousand = 100'000;
inline constexpr std::int64_t kMillion = 1'000'000;

/// A window with so many rows that are shown and painted.
inline std::unique_ptr<QuoteRows> MakeRows(std::int64_t count)
{
    auto rows = std::make_unique<QuoteRows>(static_cast<std::size_t>(count));
    rows->AddAll();
    Platform::ProcessPending();
    return rows;
}

/// Makes the benchmark fail if the grid does not show the right rows in the right order.
inline void Check(benchmark::State& state, QuoteRows& rows)
{
    if (std::string const wrong = rows.WhatIsWrong(); !wrong.empty())
    {
        state.SkipWithError(wrong.c_str());
    }
}

inline void ForAllSizes(benchmark::internal::Benchmark* benchmark)
{
    benchmark->ArgName("rows")->Arg(kThousand)->Arg(kHundredThousand)->Arg(kMillion);
}

} // namespace Ostrel::Benchmarks
