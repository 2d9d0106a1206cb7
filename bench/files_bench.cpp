// What a save costs beside writing and flushing the same bytes.
#include "bench/documents.h"
#include "bench/samples.h"

#include <array>
#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>

namespace quillet {
namespace {

void writeAndFlush(const std::string& path, GlyphView text) {
    const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    while (!text.empty()) {
        const ssize_t count = ::write(file, text.data(), text.size());
        if (count < 0)
            std::abort();
        text.remove_prefix(static_cast<std::size_t>(count));
    }
    if (::fsync(file) != 0 || ::close(file) != 0)
        std::abort();
}

// Both in turns, over existing files, because a disk is not equally fast at all times.
void save(benchmark::State& state) {
    const GlyphString text = prose(static_cast<std::size_t>(state.range(0)));
    const DocumentFile file(text);
    PosixFiles files;
    std::vector<double> bare;
    std::vector<double> saved;
    for ([[maybe_unused]] auto _ : state) {
        const auto start = Clock::now();
        writeAndFlush(file.path(), text);
        const auto between = Clock::now();
        files.write(file.path(), std::array{GlyphView(text)});
        const auto end = Clock::now();
        bare.push_back(std::chrono::duration<double>(between - start).count());
        saved.push_back(std::chrono::duration<double>(end - between).count());
        state.SetIterationTime(saved.back());
    }
    state.counters["ratio"] = quantile(saved, 0.5) / quantile(bare, 0.5);
}

BENCHMARK(save)->UseManualTime()->Unit(benchmark::kMillisecond)->Arg(100'000'000)->Iterations(20);

} // namespace
} // namespace quillet
