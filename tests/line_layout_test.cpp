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

// Every start, and the line of every place around it.
void expectSame(const LineLayout& layout, const LineLayout& full, int step) {
    ASSERT_EQ(layout.lineCount(), full.lineCount()) << "step " << step;
    for (Position line = 0; line <= full.lineCount(); ++line)
        ASSERT_EQ(layout.lineStart(line), full.lineStart(line)) << "step " << step;
    for (Position line = 0; line < full.lineCount(); ++line)
        ASSERT_EQ(layout.lineOf(full.lineStart(line)), line) << "step " << step;
}

// Lines that wait for `settle` fit all the same, and break only where lines may.
void expectSound(const LineLayout& layout, const GapBuffer& text, int step) {
    const Position rest = layout.isSettled() ? 0 : 1;
    for (Position line = 0; line < layout.lineCount() - rest; ++line) {
        const Position end = layout.lineEnd(text, line);
        ASSERT_LE(layout.lineStart(line), end) << "step " << step;
        const GlyphString shown = text.copy(layout.lineStart(line), end - layout.lineStart(line));
        ASSERT_EQ(shown.find_first_of("\r\n"), GlyphString::npos) << "step " << step;
        const auto letter = static_cast<Position>(shown.find_last_not_of(" \tz"));
        if (letter > 0) {
            ASSERT_LE(layout.xOf(text, layout.lineStart(line) + letter), 90) << "step " << step;
        }
    }
}

// A text and its lines under edits of all kinds.
class RandomEdits {
  public:
    explicit RandomEdits(Position wrappedAtOnce) : layout_(wrappedAtOnce) {
        layout_.setMetrics(metrics(), text_);
    }

    void run(int steps) {
        for (int step = 0; step < steps && !testing::Test::HasFatalFailure(); ++step) {
            edit(step % 50 == 0 ? 200 : 5);
            expectSound(layout_, text_, step);
            if (step % 16 == 0)
                while (!layout_.isSettled())
                    layout_.settle(text_);
            LineLayout full;
            full.setMetrics(metrics(), text_);
            if (layout_.isSettled())
                expectSame(layout_, full, step);
        }
    }

  private:
    void edit(Position atMost) {
        const auto size = static_cast<Position>(text_.size());
        const Position at = below(size);
        const Position removed = below(std::min(size - at, atMost));
        const std::string inserted = glyphs(below(size > 300 ? 4 : 8));
        text_.replace(at, removed, inserted);
        const auto count = static_cast<Position>(inserted.size());
        expectCount([&] { return layout_.replaced(text_, at, count); });
        if (below(7) == 0)
            layout_.expectChange(below(static_cast<Position>(text_.size())));
        if (below(7) == 0)
            expectCount([&] { return layout_.settle(text_); });
        if (below(63) == 0)
            layout_.wrapAll(text_);
        if (below(63) == 0)
            expectCount([&] { return layout_.wrapTo(text_, size / 2); });
    }

    template <class Step>
    void expectCount(Step step) {
        const Position before = layout_.lineCount();
        const LineChange change = step();
        ASSERT_EQ(before - change.before + change.after, layout_.lineCount());
    }

    // Mostly letters, so that words get long.
    std::string glyphs(Position count) {
        constexpr std::string_view others = "abz  \t\r\n\n\r";
        std::string text(count, 'a');
        for (char& glyph : text) {
            const Position kind = below(127);
            if (kind == 0)
                glyph = static_cast<char>(random_());
            else if (kind < 16)
                glyph = others[random_() % others.size()];
        }
        return text;
    }

    Position below(Position limit) { return static_cast<Position>(random_() % (limit + 1)); }

    std::mt19937 random_{2};
    GapBuffer text_;
    LineLayout layout_;
};

TEST(LineLayout, IncrementalWrapAgreesWithAFullOne) {
    RandomEdits(maxTextLength).run(500'000);
}

TEST(LineLayout, AWrapThatStopsAndGoesOnAgreesWithAFullOne) {
    RandomEdits(0).run(250'000);
    RandomEdits(30).run(250'000);
}

} // namespace
} // namespace quillet
