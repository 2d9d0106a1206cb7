// The conversion of a text file to PDF from file to file, beside what else makes pages of text.
#include "bench/samples.h"
#include "output/pdf_writer.h"
#include "platform/posix/posix_files.h"
#include "tests/fake_desktop.h"
#include "tests/shell.h"

#include <array>
#include <cstdlib>
#include <map>

namespace quillet {
namespace {

constexpr int lineCount = 22'000; // about as many as a PDF of 60 a page can have

const TempFolder folder;
const std::string source = folder.path / "lines.txt";
const std::string target = folder.path / "lines.pdf";

struct Peer {
    const char* counter;
    const char* program;
    std::string command;
};

const Peer peers[] = {
    {"times_texttopdf", "/usr/lib/cups/filter/texttopdf",
     "/usr/lib/cups/filter/texttopdf 1 user title 1 '' " + source + " >" + target},
    {"times_enscript", "/usr/bin/enscript", "enscript -q -B -p " + target + " " + source},
};

GlyphString lines() {
    GlyphString text;
    for (int i = 0; i < lineCount; ++i)
        text.append("Hkkjr ,d fo'kky ns'k gS A ;gk vusd Hkk'kk,d cksyh tkrh gSa A")
            .append(lineBreak);
    return text;
}

void convert(PosixFiles& files) {
    FakeDesktop desktop;
    CPdfWriter writer(files, desktop);
    writer.SourceFile(source);
    writer.TargetFile(target);
    writer.RecordsPerPage(60);
    writer.Width(80);
    writer.FontSize(12);
    writer.Font("Kruti Dev 020");
    writer.CreatePDFFile();
}

void convertBy(const Peer& peer) {
    if (std::system((peer.command + " 2>/dev/null").c_str()) != 0)
        std::abort();
}

template <class Work>
double secondsOf(Work work) {
    const auto start = Clock::now();
    work();
    return std::chrono::duration<double>(Clock::now() - start).count();
}

// All in turns. The time of the others has the start of a process in it, ours the flush to the
// device.
void convertToPdf(benchmark::State& state) {
    PosixFiles files;
    files.write(source, std::array{GlyphView(lines())});
    std::vector<double> own;
    std::map<const Peer*, std::vector<double>> others;
    for ([[maybe_unused]] auto _ : state) {
        for (const Peer& peer : peers)
            if (std::filesystem::exists(peer.program))
                others[&peer].push_back(secondsOf([&] { convertBy(peer); }));
        own.push_back(secondsOf([&] { convert(files); }));
        state.SetIterationTime(own.back());
    }
    state.counters["lines_per_s"] = lineCount / quantile(own, 0.5);
    for (const auto& [peer, times] : others)
        state.counters[peer->counter] = quantile(times, 0.5) / quantile(own, 0.5);
}

BENCHMARK(convertToPdf)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(20);

} // namespace
} // namespace quillet
