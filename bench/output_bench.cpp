// The conversion of a text file to PDF from file to file, beside the print system's own.
#include "bench/samples.h"
#include "output/pdf_writer.h"
#include "platform/posix/posix_files.h"
#include "tests/fake_desktop.h"

#include <array>
#include <cstdlib>
#include <filesystem>

namespace quillet {
namespace {

constexpr int lineCount = 22'000; // about as many as a PDF of 60 a page can have

const std::string folder = std::filesystem::temp_directory_path();
const std::string source = folder + "/quillet-bench.txt";
const std::string target = folder + "/quillet-bench.pdf";
const std::string peer = "/usr/lib/cups/filter/texttopdf";

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

void convertByPeer() {
    const std::string command = peer + " 1 user title 1 '' " + source + " >" + target;
    if (std::system((command + " 2>/dev/null").c_str()) != 0)
        std::abort();
}

template <class Work>
double secondsOf(Work work) {
    const auto start = Clock::now();
    work();
    return std::chrono::duration<double>(Clock::now() - start).count();
}

// Both in turns. The other one's time has the start of its process in it, this one's the flush
// to the device.
void convertToPdf(benchmark::State& state) {
    PosixFiles files;
    files.write(source, std::array{GlyphView(lines())});
    const bool hasPeer = std::filesystem::exists(peer);
    std::vector<double> own;
    std::vector<double> others;
    for ([[maybe_unused]] auto _ : state) {
        others.push_back(hasPeer ? secondsOf(convertByPeer) : 0);
        own.push_back(secondsOf([&] { convert(files); }));
        state.SetIterationTime(own.back());
    }
    std::filesystem::remove(source);
    std::filesystem::remove(target);
    state.counters["lines_per_s"] = lineCount / quantile(own, 0.5);
    state.counters["times_the_peer"] = quantile(others, 0.5) / quantile(own, 0.5);
}

BENCHMARK(convertToPdf)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(20);

} // namespace
} // namespace quillet
