// The rules of the word wrap.
#include "platform/line_layout.h"

#include <gtest/gtest.h>

#include <string>

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

// The text with a "|" where a line begins.
std::string wrapped(const std::string& text) {
    const TextBuffer buffer(text);
    LineLayout layout;
    layout.setMetrics(metrics(), buffer);
    std::string lines = text;
    for (Position line = layout.lineCount() - 1; line > 0; --line)
        lines.insert(static_cast<std::size_t>(layout.lineStart(line)), "|");
    return lines;
}

TEST(LineLayout, BreaksLinesByTheRules) {
    const std::pair<const char*, std::string> rows[] = {
        {"empty", ""},
        {"too long a word", "abcdefghij|k"},
        {"a word that does not fit moves", "abcdef |ghijk"},
        {"blanks hang over", "abcdefghij   |k"},
        {"a tab breaks too", "abc\t|abcdefg"},
        {"zero width stays with its word", "abcdefghijzzz|k"},
        {"every kind of line break", "a\r\n|b\n|c\r|d"},
        {"LF CR are two", "a\n|\r|b"},
        {"a break at the end", "a\r\n|"},
        {"no break at bytes of other code pages", "ab-cd\x96/fgh|ij"},
        {"no line without end", std::string(maxLineLength, ' ') + "| a"},
    };
    for (const auto& [name, lines] : rows) {
        std::string text = lines;
        std::erase(text, '|');
        EXPECT_EQ(wrapped(text), lines) << name;
    }
}

TEST(LineLayout, FindsPlacesInLines) {
    const TextBuffer text("ab\tc\r\nxzy w");
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

} // namespace
} // namespace quillet
