// How fast this machine is at this moment: the time of sorting ten million random doubles, measured once per run. Every
// figure is also printed as its ratio to it, so that runs on different or busy machines compare. What runs on one
// thread is measured in that thread's processor time, since other programs share the cores.
#pragma once

#include <algorithm>
#include <ctime>
#include <random>
#include <vector>

#include <benchmark/benchmark.h>

namespace Ostrel::Benchmarks
{

/// Processor seconds of the calling thread since it was made.
class Stopwatch
{
public:
    [[nodiscard]] double Seconds() const { return Now() - m_start; }

private:
    static double Now()
    {
        timespec time{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
    }

    double m_start = Now();
};

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
            Stopwatch const watch;
            std::sort(numbers.begin(), numbers.end());
            times.push_back(watch.Seconds());
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
