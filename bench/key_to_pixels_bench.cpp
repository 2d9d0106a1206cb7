// How long it takes from a key to its glyph on the screen, beside a bare editor and a bare window.
#include "bench/key_probe.h"
#include "bench/side_by_side.h"
#include "tests/desktop_session.h"

#include <benchmark/benchmark.h>

#include <iostream>
#include <random>
#include <thread>

namespace quillet {
namespace {

constexpr int strokes = 400;
constexpr int lastLine = 25;

// A program on a display of its own, which is typed into.
class Typist {
  public:
    Typist(const std::string& program, const std::string& title, int paragraph)
        : session_({.path = program, .title = title}),
          paragraph_(paragraph) {}

    double strike() {
        // A third of 40 ms with a quarter of it either way, for there are three programs.
        std::this_thread::sleep_for(std::chrono::microseconds(pause_(random_)));
        if (count_ % lastLine == 0)
            probe_.beginParagraph(keys[0], paragraph_);
        const std::uint8_t key = keys[count_++ % keys.size()];
        return std::chrono::duration<double>(probe_.strike(key)).count();
    }

  private:
    // V L N H P U: each gives one glyph in every program.
    static constexpr std::array<std::uint8_t, 6> keys = {55, 46, 57, 43, 33, 30};

    DesktopSession session_;
    KeyProbe probe_; // on the display of the session, which was the last to begin
    int paragraph_;
    std::size_t count_ = 0;
    std::minstd_rand random_;
    std::uniform_int_distribution<int> pause_{3'000, 9'000};
};

void measure(const std::string& name, int paragraph) {
    const Program ours;
    Typist quillet(ours.path, ours.title, paragraph);
    Typist editor(BARE_EDITOR, "Bare editor", paragraph);
    Typist window(BARE_WINDOW, "Bare window", 0);
    measureSideBySide(name,
                      {{"quillet", [&] { return quillet.strike(); }},
                       {"bare_editor", [&] { return editor.strike(); }},
                       {"bare_window", [&] { return window.strike(); }}},
                      strokes);
}

} // namespace
} // namespace quillet

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    try {
        quillet::measure("keyToPixels", 0);
        quillet::measure("keyToPixels/behind_500_glyphs", 500);
        benchmark::RunSpecifiedBenchmarks();
    } catch (const std::exception& error) {
        std::cerr << "key_to_pixels_bench: " << error.what() << '\n';
        return 1;
    }
}
