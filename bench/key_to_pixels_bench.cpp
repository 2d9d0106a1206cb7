// How long it takes from a key to its glyph on the screen, beside a bare editor, and beside a bare
// widget and a bare window, which tell what the toolkit and the display take of that.
#include "bench/side_by_side.h"
#include "bench/typist.h"

#include <benchmark/benchmark.h>

#include <iostream>

namespace quillet {
namespace {

constexpr int strokes = 400;

void measure(const std::string& name, int paragraph) {
    const Program ours;
    Typist quillet({"quillet", {ours.path}, ours.title}, paragraph);
    Typist editor({"bare editor", {BARE_EDITOR}, "Bare editor"}, paragraph);
    Typist widget({"bare widget", {BARE_WIDGET}, "Bare widget"}, 0);
    Typist window({"bare window", {BARE_WINDOW}, "Bare window"}, 0);
    measureSideBySide(name,
                      {{"quillet", [&] { return quillet.strike(); }},
                       {"bare_editor", [&] { return editor.strike(); }},
                       {"bare_widget", [&] { return widget.strike(); }},
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
