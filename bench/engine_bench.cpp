// What typing costs in the input engine.
#include "bench/documents.h"
#include "tests/test_window.h"
#include "tests/typing.h"

#include <benchmark/benchmark.h>

#include <chrono>

namespace quillet {
namespace {

// Hindi prose as its Inscript keys.
constexpr GlyphView paragraph =
    "Yejl Sk bfMen osM uw> ufvdor ucejr Ye<e uw> bfod/e ms bfv/ Ele uw Ewj bfv/ ms Ojdc> "
    "hdjkeM ks yfve kjdc vurx uale> jec vs Md/ec ka hldj nfKe> mld/ kr bfp/ ualr uw> "
    "kd/e Eh kn cfnsxis> cwx kejd/en/ pe jue utx> ";

using Clock = std::chrono::steady_clock;

// A window with a document of so many glyphs, wrapped as on a screen, and the caret in its middle.
void prepare(TestWindow& window, std::int64_t size) {
    LineMetrics metrics;
    metrics.advances.fill(10 * advancePerPixel);
    metrics.width = 800 * advancePerPixel;
    window.txtMain.setMetrics(metrics);
    const GlyphString text = prose(static_cast<std::size_t>(size));
    window.txtMain.load(TextBuffer(text));
    window.txtMain.SelStart(static_cast<Position>(text.size() / 2));
}

// Types the paragraph and returns the time between the marks that `strike` takes.
template <class Strike>
void typeParagraph(benchmark::State& state, Strike strike) {
    TestWindow window;
    prepare(window, state.range(0));
    for ([[maybe_unused]] auto _ : state) {
        Clock::duration spent{};
        for (const char character : paragraph)
            spent += strike(window.txtMain, typing::keyOf(character));
        const std::chrono::duration<double> seconds = spent;
        state.SetIterationTime(seconds.count() / static_cast<double>(paragraph.size()));
    }
}

// The time of one release, the reading of the clock included.
void oneRelease(benchmark::State& state) {
    typeParagraph(state, [](EditBox& box, typing::Key struck) {
        typing::press(box, struck);
        const auto start = Clock::now();
        typing::release(box, struck);
        return Clock::now() - start;
    });
}

// The time of one keystroke: down, press and release.
void oneKeystroke(benchmark::State& state) {
    typeParagraph(state, [](EditBox& box, typing::Key struck) {
        const auto start = Clock::now();
        typing::strike(box, struck);
        return Clock::now() - start;
    });
}

// By the times of single keys the library would choose millions of paragraphs.
void measure(benchmark::internal::Benchmark* work) {
    work->UseManualTime()->Iterations(2000)->Arg(0)->Arg(100'000'000);
}

BENCHMARK(oneRelease)->Apply(measure);
BENCHMARK(oneKeystroke)->Apply(measure);

} // namespace
} // namespace quillet
