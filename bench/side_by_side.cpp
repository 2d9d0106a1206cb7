#include "bench/side_by_side.h"

#include "bench/samples.h"

namespace quillet {

void measureSideBySide(const std::string& name, const std::vector<Subject>& subjects, int rounds) {
    std::vector<std::vector<double>> all(subjects.size());
    for (int round = 0; round < rounds; ++round)
        for (std::size_t i = 0; i < subjects.size(); ++i)
            all[i].push_back(subjects[i].measure());

    const double reference = quantile(all.at(1), 0.5);
    for (std::size_t i = 0; i < subjects.size(); ++i) {
        const double megabytes = subjects[i].megabytes ? subjects[i].megabytes() : 0;
        const auto report = [series = all[i], reference, megabytes](benchmark::State& state) {
            auto next = series.begin();
            for ([[maybe_unused]] auto _ : state)
                state.SetIterationTime(*next++);
            constexpr double milliseconds = 1000;
            state.counters["median_ms"] = quantile(series, 0.5) * milliseconds;
            state.counters["p95_ms"] = quantile(series, 0.95) * milliseconds;
            state.counters["of_bare"] = quantile(series, 0.5) / reference;
            if (megabytes > 0)
                state.counters["MB"] = megabytes;
        };
        benchmark::RegisterBenchmark((name + "/" + subjects[i].name).c_str(), report)
            ->Iterations(rounds)
            ->UseManualTime()
            ->Unit(benchmark::kMillisecond);
    }
}

} // namespace quillet
