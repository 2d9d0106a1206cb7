// Counting, finding and replacing in 100 MB, beside the tools of the system on the same bytes.
#include "bench/documents.h"
#include "bench/memory.h"
#include "bench/samples.h"
#include "search/text_search.h"
#include "tests/test_window.h"

#include <cstdlib>
#include <cstring>
#include <optional>

namespace quillet {
namespace {

constexpr std::size_t size = 100'000'000;
constexpr const char* frequent = "gS";              // in every sentence
constexpr const char* replacement = "'s/gS/Fkk/g'"; // of perl and sed

struct Document : TestWindow {
    Document() {
        txtMain.load(TextBuffer(prose(size)));
        txtMain.SelStart(txtMain.length() / 2);
        while (txtMain.catchUp()) { // brings the gap there
        }
    }
};

// The best of three times in seconds, as the tool starts with a warm cache at least once.
double secondsOf(const std::string& command) {
    double best = 1e9;
    for (int round = 0; round < 3; ++round) {
        const auto start = Clock::now();
        if (std::system(command.c_str()) != 0)
            std::abort();
        best = std::min(best, std::chrono::duration<double>(Clock::now() - start).count());
    }
    return best;
}

struct Peer {
    const char* counter;
    double seconds;
};

// Times `work` behind `prepare`, and shows its speed and how many times faster it is than peers.
template <class Prepare, class Work>
void measure(benchmark::State& state, const std::vector<Peer>& peers, Prepare prepare, Work work) {
    std::vector<double> times;
    for ([[maybe_unused]] auto _ : state) {
        prepare();
        const auto start = Clock::now();
        work();
        times.push_back(std::chrono::duration<double>(Clock::now() - start).count());
        state.SetIterationTime(times.back());
    }
    const double median = quantile(times, 0.5);
    state.counters["GB_per_s"] = static_cast<double>(size) / median / 1e9;
    for (const Peer& peer : peers)
        state.counters[peer.counter] = peer.seconds / median;
}

Peer wordCount() {
    const DocumentFile file(prose(size)); // for the tools
    return {"times_wc", secondsOf("wc -w <" + file.path() + " >/dev/null")};
}

void countWords(benchmark::State& state) {
    Document form;
    measure(
        state, {wordCount()}, [] {}, [&] { benchmark::DoNotOptimize(form.CountWords()); });
}

void countSentences(benchmark::State& state) {
    Document form;
    measure(
        state, {wordCount()}, [] {}, [&] { benchmark::DoNotOptimize(form.CountSentences()); });
}

// Of what stands nowhere, but whose parts do.
void findNothing(benchmark::State& state) {
    constexpr GlyphView what = "ns'k gS B";
    const Document form;
    const GlyphString text = form.txtMain.Text();
    double best = 1e9;
    for (int round = 0; round < 5; ++round) {
        const auto start = Clock::now();
        benchmark::DoNotOptimize(::memmem(text.data(), text.size(), what.data(), what.size()));
        best = std::min(best, std::chrono::duration<double>(Clock::now() - start).count());
    }
    measure(
        state, {{"times_memmem", best}}, [] {},
        [&] { benchmark::DoNotOptimize(findText(form.txtMain.buffer(), 0, what)); });
}

// Each time on a document of its own, as nothing that was taken back before takes up memory.
void replaceEverywhere(benchmark::State& state) {
    const DocumentFile file(prose(size)); // for the tools
    const std::string rest = std::string(replacement) + " <" + file.path() + " >/dev/null";
    const std::vector<Peer> peers = {{"times_perl", secondsOf("perl -0777 -pe " + rest)},
                                     {"times_sed", secondsOf("LC_ALL=C sed " + rest)}};
    double before = 0;
    std::optional<Document> form;
    const auto prepare = [&] {
        form.emplace();
        form->mnuReplace_Click();
        form->replaceWindow().control("txtwhat").Text(frequent);
        form->replaceWindow().control("txtreplace").Text("Fkk");
        resetPeak();
        before = statusMegabytes("VmRSS:");
    };
    measure(state, peers, prepare, [&] { form->replaceWindow().cmdreplaceall_Click(); });
    const double growth = statusMegabytes("VmHWM:") - before;
    state.counters["peak_per_byte"] = 1 + growth * 1e6 / static_cast<double>(size);
}

BENCHMARK(countWords)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(20);
BENCHMARK(countSentences)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(20);
BENCHMARK(findNothing)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(20);
BENCHMARK(replaceEverywhere)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(5);

} // namespace
} // namespace quillet
