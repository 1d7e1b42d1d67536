// How fast this machine is at this moment: the time of sorting ten million random doubles, measured once per run. Every
// figure is also printed as its ratio to it, so that runs on different or busy machines compare.
#pragma once

#include <algorithm>
#include <chrono>
#include <random>
#include <vector>

#include <benchmark/benchmark.h>

namespace Ostrel::Benchmarks
{

/// Seconds that std::sort of ten million random doubles takes: the median of three runs, measured on first use.
inline double CalibrationSeconds()
{
    static double const seconds = []
    {
        constexpr std::size_t kCount = 10'000'000;
        std::vector<double> times;
        for (int run = 0; run < 3; ++run)
        {
            std::mt19937_64 random(1);
            std::uniform_real_distribution<double> distribution;
            std::vector<double> numbers(kCount);
            std::generate(numbers.begin(), numbers.end(), [&] { return distribution(random); });
            auto const start = std::chrono::steady_clock::now();
            std::sort(numbers.begin(), numbers.end());
            times.push_back(std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
            benchmark::DoNotOptimize(numbers.data());
        }
        std::sort(times.begin(), times.end());
        return times[1];
    }();
    return seconds;
}

/// Adds the ratio of one iteration's time to the calibration, in thousandths.
inline void ReportRatio(benchmark::State& state, double secondsPerIteration)
{
    state.counters["calibration_ms"] = CalibrationSeconds() * 1e3;
    state.counters["ratio_permille"] = secondsPerIteration / CalibrationSeconds() * 1e3;
}

} // namespace Ostrel::Benchmarks
