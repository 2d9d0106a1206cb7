// Word wrap: its rules, and the incremental wrap against a full one.
#include "platform/line_layout.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace quillet {
namespace {

// Every glyph 10 wide but "z" 0, lines 100 wide, tabs every 40.
LineMetrics metrics() {
    LineMetrics metrics;
    metrics.advances.fill(10);
    metrics.advances['z'] = 0;
    metrics.tabStop = 40;
    metrics.width = 100;
    return metrics;
}

std::vector<std::string> linesOf(const std::string& text) {
    const GapBuffer buffer(text);
    LineLayout layout;
    layout.setMetrics(metrics(), buffer);
    std::vector<std::string> lines;
    for (Position line = 0; line < layout.lineCount(); ++line) {
        const Position start = layout.lineStart(line);
        lines.push_back(buffer.copy(start, layout.lineStart(line + 1) - start));
    }
    return lines;
}

TEST(LineLayout, BreaksLinesByTheRules) {
    const std::string longBlanks(maxLineLength, ' ');
    const struct {
        const char* name;
        std::string text;
        std::vector<std::string> lines;
    } rows[] = {
        {"empty", "", {""}},
        {"exactly full", "abcdefghij", {"abcdefghij"}},
        {"too long a word", "abcdefghijk", {"abcdefghij", "k"}},
        {"a word that does not fit moves", "abcdef ghijk", {"abcdef ", "ghijk"}},
        {"blanks hang over", "abcdefghij   k", {"abcdefghij   ", "k"}},
        {"a tab breaks too", "abc\tabcdefg", {"abc\t", "abcdefg"}},
        {"a tab goes to the next stop", "a\tabcde", {"a\tabcde"}},
        {"zero width stays with its word", "abcdefghijzzzk", {"abcdefghijzzz", "k"}},
        {"every kind of line break", "a\r\nb\nc\rd", {"a\r\n", "b\n", "c\r", "d"}},
        {"LF CR are two", "a\n\rb", {"a\n", "\r", "b"}},
        {"a break at the end", "a\r\n", {"a\r\n", ""}},
        {"no break at bytes of other code pages",
         "ab-cd\x96"
         "efgh|ij",
         {"ab-cd\x96"
          "efgh",
          "|ij"}},
        {"no line without end", longBlanks + " a", {longBlanks, " a"}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(linesOf(row.text), row.lines) << row.name;
}

TEST(LineLayout, FindsPlacesInLines) {
    const GapBuffer text("ab\tc\r\nxzy w");
    LineLayout layout;
    layout.setMetrics(metrics(), text);
    EXPECT_EQ(layout.xOf(text, 3), 40);
    EXPECT_EQ(layout.lineEnd(text, 0), 4);
    EXPECT_EQ(layout.lineEnd(text, 1), 11);
    EXPECT_EQ(layout.placeAt(text, 0, 29), 2); // the nearer side of the tab
    EXPECT_EQ(layout.placeAt(text, 0, 31), 3);
    EXPECT_EQ(layout.placeAt(text, 0, 500), 4);
    EXPECT_EQ(layout.placeAt(text, 1, -5), 6);
    EXPECT_EQ(layout.placeAt(text, 1, 9), 8) << "behind the sign, not between it and its letter";
}

void expectSame(const LineLayout& one, const LineLayout& other, const char* what, int step) {
    ASSERT_EQ(one.lineCount(), other.lineCount()) << what << " at step " << step;
    for (Position line = 0; line <= one.lineCount(); ++line)
        ASSERT_EQ(one.lineStart(line), other.lineStart(line)) << what << " at step " << step;
}

TEST(LineLayout, IncrementalWrapAgreesWithAFullOne) {
    constexpr std::string_view alphabet = "abz  \t\r\n\n\r";
    std::mt19937 random(2);
    const auto below = [&](Position limit) {
        return static_cast<Position>(random() % (limit + 1));
    };
    GapBuffer text;
    LineLayout layout;
    layout.setMetrics(metrics(), text);
    for (int step = 0; step < 30'000; ++step) {
        const auto size = static_cast<Position>(text.size());
        const Position at = below(size);
        const Position removed = below(std::min<Position>(size - at, step % 50 == 0 ? 200 : 5));
        std::string inserted(below(size > 400 ? 4 : 8), ' ');
        for (char& glyph : inserted) // mostly letters, so that words get long
            glyph = random() % 3 == 0 ? alphabet[random() % alphabet.size()] : 'a';
        text.replace(at, removed, inserted);
        const Position before = layout.lineCount();
        const LineChange change = layout.replaced(text, at, static_cast<Position>(inserted.size()));
        LineLayout full;
        full.setMetrics(metrics(), text);
        expectSame(layout, full, "starts", step);
        ASSERT_EQ(before - change.before + change.after, full.lineCount()) << "step " << step;
        for (Position line = 0; line < full.lineCount(); ++line)
            ASSERT_EQ(layout.lineOf(full.lineStart(line)), line) << "step " << step;
    }
}

} // namespace
} // namespace quillet
