// How fast this machine is at this moment: the time of sorting ten million random doubles, measured once per run. Every
// figure is also printed as its ratio to it, so that runs on different or busy machines compare. What runs on one
// thread is measured in that thread's processor time, since other programs share the cores.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <random>
#include <vector>

#include <benchmark/benchmark.h>

#if __has_include(<valgrind/callgrind.h>)
#include <valgrind/callgrind.h>
#endif

namespace Ostrel::Benchmarks
{

/// Seconds since it was made: of the calling thread's processor time or, where several threads work together, of real
/// time.
class Stopwatch
{
public:
    explicit Stopwatch(clockid_t clock = CLOCK_THREAD_CPUTIME_ID) : m_clock(clock), m_start(Now()) {}

    [[nodiscard]] double Seconds() const { return Now() - m_start; }

private:
    [[nodiscard]] double Now() const
    {
        timespec time{};
        clock_gettime(m_clock, &time);
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
    }

    clockid_t m_clock;
    double m_start;
};

inline double Median(std::vector<double> numbers)
{
    auto const middle = numbers.begin() + static_cast<std::ptrdiff_t>(numbers.size() / 2);
    std::nth_element(numbers.begin(), middle, numbers.end());
    return *middle;
}

/// Seconds that std::sort of ten million random doubles takes: the median of three runs, measured on first use. A tool
/// that slows the program down sets it by the environment variable OSTREL_CALIBRATION_MS.
inline double CalibrationSeconds()
{
    static double const seconds = []
    {
        if (char const* const given = std::getenv("OSTREL_CALIBRATION_MS")) // NOLINT(concurrency-mt-unsafe)
        {
            return std::atof(given) / 1e3;
        }
        constexpr std::size_t kCount = 10'000'000;
        std::vector<double> times;
        for (int run = 0; run < 3; ++run)
        {
            std::mt19937_64 random(1);
            std::uniform_real_distribution<double> distribution;
            std::vector<double> numbers(kCount);
            std::generate(numbers.begin(), numbers.end(), [&] { return distribution(random); });
            Stopwatch const watch;
            std::sort(numbers.begin(), numbers.end());
            times.push_back(watch.Seconds());
            benchmark::DoNotOptimize(numbers.data());
        }
        return Median(times);
    }();
    return seconds;
}

/// What one measurement of a benchmark is made of.
struct Work
{
    /// Equal operations in one measured call. The time that is reported is that of one of them.
    std::int64_t operations = 1;
    /// Rows, or what else there are many of, that one operation handles.
    std::int64_t things = 1;
    /// Measured calls; their median counts.
    int repeats = 5;
    clockid_t clock = CLOCK_THREAD_CPUTIME_ID;
};

/// Reports the time of one operation, how many things a second that makes, and the ratio of the time to the
/// calibration. The benchmark is registered by OSTREL_BENCHMARK.
inline void Report(benchmark::State& state, Work const& work, double secondsPerOperation)
{
    state.SetIterationTime(secondsPerOperation);
    state.SetItemsProcessed(work.things);
    state.counters["calibration_ms"] = CalibrationSeconds() * 1e3;
    state.counters["ratio"] = secondsPerOperation / CalibrationSeconds();
}

/// Lets an instruction counter (scripts/count-instructions) count what the function does, and nothing else.
template <class Function>
void Count(Function& function)
{
#ifdef CALLGRIND_TOGGLE_COLLECT
    CALLGRIND_TOGGLE_COLLECT;
    function();
    CALLGRIND_TOGGLE_COLLECT;
#else
    function();
#endif
}

/// Measures the function on fresh preparations and reports the median.
template <class Prepare, class Function>
void Measure(benchmark::State& state, Work const& work, Prepare prepare, Function function)
{
    for (auto _ : state)
    {
        std::vector<double> times;
        for (int run = 0; run < work.repeats; ++run)
        {
            prepare();
            Stopwatch const watch(work.clock);
            Count(function);
            times.push_back(watch.Seconds() / static_cast<double>(work.operations));
        }
        Report(state, work, Median(times));
        state.counters["measured"] = static_cast<double>(work.operations * work.repeats);
    }
}

template <class Function>
void Measure(benchmark::State& state, Work const& work, Function function)
{
    Measure(
        state, work, [] {}, function);
}

} // namespace Ostrel::Benchmarks

/// A benchmark that repeats by itself.
#define OSTREL_BENCHMARK(function) BENCHMARK(function)->Iterations(1)->UseManualTime()
