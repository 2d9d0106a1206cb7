// How long it takes until the main window is painted, and what it holds in memory then, beside a
// program with one empty window.
#include "bench/side_by_side.h"
#include "tests/desktop_session.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace quillet {
namespace {

constexpr int starts = 40;

// Runs a program to its end and returns the seconds. Its memory at the most counts as well.
double run(const char* program, double& megabytes) {
    const auto start = std::chrono::steady_clock::now();
    const pid_t child = ::fork();
    if (child == 0) {
        ::execl(program, program, nullptr);
        ::_exit(127);
    }
    int status = 0;
    rusage usage{};
    ::wait4(child, &status, 0, &usage);
    if (status != 0)
        std::abort();
    megabytes = std::max(megabytes, static_cast<double>(usage.ru_maxrss) / 1000);
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

} // namespace
} // namespace quillet

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    const quillet::VirtualScreen screen;
    double ours = 0;
    double bare = 0;
    quillet::measureSideBySide(
        "start",
        {{"main_window", [&] { return quillet::run(START_MAIN_WINDOW, ours); },
          [&] { return ours; }},
         {"empty_widget", [&] { return quillet::run(START_EMPTY_WIDGET, bare); },
          [&] { return bare; }}},
        quillet::starts);
    benchmark::RunSpecifiedBenchmarks();
}
