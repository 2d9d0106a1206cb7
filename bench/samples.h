// Times that are judged by their distribution.
#pragma once

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <vector>

namespace quillet {

using Clock = std::chrono::steady_clock;

/// The time that `share` (0 to 1) of the times do not exceed; there must be some.
inline double quantile(std::vector<double> times, double share) {
    std::sort(times.begin(), times.end());
    const auto last = static_cast<double>(times.size() - 1);
    return times[static_cast<std::size_t>(last * share)];
}

/// Collects the times of a benchmark's iterations and shows their median and 95th percentile, in
/// milliseconds. Needs `UseManualTime`.
class Samples {
  public:
    explicit Samples(benchmark::State& state) : state_(state) {}
    Samples(const Samples&) = delete;
    Samples& operator=(const Samples&) = delete;
    ~Samples() {
        if (seconds_.empty())
            return;
        state_.counters["median_ms"] = 1e3 * quantile(seconds_, 0.5);
        state_.counters["p95_ms"] = 1e3 * quantile(seconds_, 0.95);
    }

    void add(Clock::duration time) {
        seconds_.push_back(std::chrono::duration<double>(time).count());
        state_.SetIterationTime(seconds_.back());
    }

  private:
    benchmark::State& state_;
    std::vector<double> seconds_;
};

} // namespace quillet
