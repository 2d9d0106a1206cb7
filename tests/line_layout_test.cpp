// Word wrap: its rules, and the incremental wrap against a full one.
#include "platform/line_layout.h"

#include <gtest/gtest.h>

#include <random>
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
    const GapBuffer buffer(text);
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
        {"exactly full", "abcdefghij"},
        {"too long a word", "abcdefghij|k"},
        {"a word that does not fit moves", "abcdef |ghijk"},
        {"blanks hang over", "abcdefghij   |k"},
        {"a tab breaks too", "abc\t|abcdefg"},
        {"a tab goes to the next stop", "a\tabcde"},
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

// A text and its lines under edits of all kinds.
class RandomEdits {
  public:
    explicit RandomEdits(Position wrappedAtOnce) : layout_(wrappedAtOnce) {
        layout_.setMetrics(metrics(), text_);
    }

    void run(int steps) {
        for (int step = 0; step < steps && !testing::Test::HasFatalFailure(); ++step) {
            edit(step % 50 == 0 ? 200 : 5);
            expectSound(step);
            while (step % 16 == 0 && !layout_.isSettled())
                layout_.settle(text_);
            if (layout_.isSettled())
                expectSame(step);
        }
    }

  private:
    // Every start, and the line of every place around it.
    void expectSame(int step) const {
        LineLayout full;
        full.setMetrics(metrics(), text_);
        ASSERT_EQ(layout_.lineCount(), full.lineCount()) << "step " << step;
        for (Position line = 0; line < full.lineCount(); ++line) {
            ASSERT_EQ(layout_.lineStart(line), full.lineStart(line)) << "step " << step;
            ASSERT_EQ(layout_.lineOf(full.lineStart(line)), line) << "step " << step;
        }
    }

    // Lines that wait for `settle` fit all the same, and break only where lines may.
    void expectSound(int step) const {
        const Position rest = layout_.isSettled() ? 0 : 1;
        for (Position line = 0; line < layout_.lineCount() - rest; ++line) {
            const Position start = layout_.lineStart(line);
            const Position end = layout_.lineEnd(text_, line);
            ASSERT_LE(start, end) << "step " << step;
            const GlyphString shown = text_.copy(start, end - start);
            ASSERT_EQ(shown.find_first_of("\r\n"), GlyphString::npos) << "step " << step;
            const auto letter = static_cast<Position>(shown.find_last_not_of(" \tz"));
            ASSERT_TRUE(letter <= 0 || layout_.xOf(text_, start + letter) <= 90) << "step " << step;
        }
    }

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
        for (char& glyph : text)
            if (below(7) == 0)
                glyph = static_cast<char>(below(15) == 0 ? random_() : others[random_() % 10]);
        return text;
    }

    Position below(Position limit) { return static_cast<Position>(random_() % (limit + 1)); }

    std::mt19937 random_{2};
    GapBuffer text_;
    LineLayout layout_;
};

TEST(LineLayout, IncrementalWrapAgreesWithAFullOne) {
    RandomEdits(maxTextLength).run(500'000);
    RandomEdits(0).run(250'000); // stops and goes on
    RandomEdits(30).run(250'000);
}

} // namespace
} // namespace quillet
