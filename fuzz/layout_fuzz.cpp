// The incremental wrap beside a full one, for any text, metrics and order of changes.
#include "fuzz/input.h"
#include "platform/line_layout.h"

#include <algorithm>
#include <utility>

namespace quillet::fuzz {
namespace {

LineMetrics metricsFrom(Input& input) {
    LineMetrics metrics;
    metrics.advances.fill(1 + input.byte() % 32);
    metrics.advances[input.byte()] = 0;
    metrics.tabStop = 1 + input.byte();
    metrics.width = input.upTo(300);
    return metrics;
}

void checkSame(const LineLayout& layout, const LineMetrics& metrics, const TextBuffer& text) {
    LineLayout full;
    full.setMetrics(metrics, text);
    check(layout.lineCount() == full.lineCount(), "as many lines");
    for (Position line = 0; line <= full.lineCount(); ++line)
        check(layout.lineStart(line) == full.lineStart(line), "the same starts");
    for (Position line = 0; line < full.lineCount(); ++line)
        check(layout.lineOf(full.lineStart(line)) == line, "found by their places");
}

// Lines that wait for `settle` fit all the same, and break only where lines may.
void checkSound(const LineLayout& layout, const LineMetrics& metrics, const TextBuffer& text) {
    const Position last = layout.lineCount() - 1;
    for (Position line = 0; line < last || (line == last && layout.isSettled()); ++line) {
        const Position start = layout.lineStart(line);
        const Position end = layout.lineEnd(text, line);
        check(start <= end && end <= layout.lineStart(line + 1), "lines in order");
        Advance x = 0;
        for (Position at = start; at < end; ++at) {
            const Advance left = std::exchange(x, layout.advanceFrom(x, text[at]));
            check(!endsLine(text[at]), "no line break inside a line");
            const bool hangs = at == start || x == left || isBlank(text[at]);
            check(x <= metrics.width || hangs, "every line fits");
        }
    }
}

constexpr std::size_t chunkLength = 5; // of lines, and of text

void run(Input input) {
    const LineMetrics metrics = metricsFrom(input);
    LineLayout layout(input.upTo(40), chunkLength); // follows one change so far
    TextBuffer text({}, chunkLength);
    layout.setMetrics(metrics, text);
    while (!input.isEmpty()) {
        const auto size = static_cast<Position>(text.size());
        const Position at = input.upTo(size);
        const Position removed = input.upTo(std::min(size - at, 8));
        const GlyphView inserted = input.text(input.byte() % 16);
        text.replace(at, removed, inserted);
        Position lines = layout.lineCount();
        const auto count = [&](const LineChange& change) { lines += change.after - change.before; };
        count(layout.replaced(text, at, static_cast<Position>(inserted.size())));
        const std::uint8_t next = input.byte();
        if (next % 8 == 1)
            count(layout.wrapTo(text, static_cast<Position>(text.size()) / 2));
        if (next % 4 == 2)
            count(layout.settle(text));
        if (next % 64 == 3) {
            layout.wrapAll(text);
            lines = layout.lineCount();
        }
        check(layout.lineCount() == lines, "as many lines as the changes tell");
        checkSound(layout, metrics, text);
        if (layout.isSettled())
            checkSame(layout, metrics, text);
    }
    while (!layout.isSettled())
        layout.settle(text);
    checkSame(layout, metrics, text);
}

} // namespace
} // namespace quillet::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    quillet::fuzz::run({data, size});
    return 0;
}
