// The box as the program sees it: text, selection, undo, keys.
#include "base/run_time_error.h"
#include "platform/edit_box.h"
#include "platform/key_codes.h"
#include "tests/typing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <random>
#include <utility>

namespace quillet {
namespace {

TEST(EditBox, SelectionFollowsTheRulesOfItsProperties) {
    EditBox box({});
    box.Text("abcdef");
    EXPECT_EQ(box.SelStart(), 0);
    box.SelStart(2);
    box.SelLength(3);
    EXPECT_THROW(box.SelStart(-1), RunTimeError);
    EXPECT_THROW(box.SelLength(-1), RunTimeError);
    EXPECT_EQ(box.SelText(), "cde") << "a refused value changes nothing";
    box.SelStart(99);
    EXPECT_EQ(box.SelStart(), 6);
    box.SelStart(4);
    box.SelLength(99);
    EXPECT_EQ(box.SelText(), "ef");
    box.SelStart(1);
    EXPECT_EQ(box.SelLength(), 0);
    box.Text("abcdef");
    EXPECT_EQ(box.SelStart(), 0) << "writing even the same text moves the caret";
}

// One keystroke is one step with all that its release rewrites, also when keys overlap.
TEST(EditBox, UndoTakesBackWholeKeystrokes) {
    EditBox box({});
    box.KeyUp = [&](auto code, auto) {
        if (code == 'B' || code == 'D')
            box.SelText("+");
    };
    const typing::Key a{'A', 0, 'a'};
    const typing::Key b{'B', 0, 'b'};
    typing::strike(box, a);
    typing::strike(box, b);
    typing::press(box, a);
    typing::press(box, b);
    typing::release(box, a);
    typing::release(box, b);
    box.SelStart(0);
    box.SelText("123");
    EXPECT_EQ(box.Text(), "123ab+ab+");
    for (const char* text : {"ab+ab+", "ab+a", "ab+", "a", ""}) {
        box.undo();
        EXPECT_EQ(box.Text(), text);
    }
}

TEST(EditBox, UndoByKeysAndWhatEndsTheHistory) {
    EditBox box({});
    typing::type(box, "ab");
    typing::strikeWithCtrl(box, 'Z');
    EXPECT_EQ(box.Text(), "a");
    box.keyPress(26, modifier::ctrl | modifier::shift);
    EXPECT_EQ(box.Text(), "ab");
    box.load(GapBuffer("new"));
    EXPECT_FALSE(box.canUndo());
    for (std::size_t step = 0; step < UndoHistory::maxSteps + 5; ++step)
        box.keyPress('x', 0);
    while (box.canUndo())
        box.undo();
    EXPECT_EQ(box.Text(), "xxxxxnew") << "the oldest steps are forgotten";
}

TEST(EditBox, AReleaseBelongsToItsKeystrokeAndSelectsNothing) {
    EditBox box({});
    box.KeyUp = [&](auto, auto) { // rewrites the last two glyphs
        box.SelStart(0);
        box.SelLength(2);
        box.SelText("D");
    };
    box.load(GapBuffer("d~"));
    box.SelStart(2);
    box.keyUp('V', 0);
    box.undo();
    EXPECT_EQ(box.Text(), "d~");
    EXPECT_EQ(box.SelLength(), 0) << "or the next key would replace it";
    EXPECT_EQ(box.SelStart(), 2);

    box.load({});
    box.keyPress(22, modifier::ctrl);
    box.runCommand([&] { box.SelText("d~"); });
    box.keyUp('V', 0);
    EXPECT_EQ(box.Text(), "D");
    box.undo();
    EXPECT_EQ(box.Text(), "") << "a paste and what its release rewrites are one step";
}

TEST(EditBox, TheCaretKeepsItsLineWhenALongTextIsWrappedAnew) {
    EditBox box({});
    LineMetrics metrics{.width = 100};
    metrics.advances.fill(1);
    box.setMetrics(metrics);
    box.load(GapBuffer(GlyphString(600'000, 'd')));
    box.SelStart(500'050);
    metrics.width = 1000;
    box.setMetrics(metrics);
    box.keyDown(key::home, 0);
    EXPECT_EQ(box.SelStart(), 500'000);
    box.keyDown(key::end, 0);
    EXPECT_LT(box.SelStart(), 501'001);
}

// What the box should hold after operations that each are one step, or none where they change
// nothing.
struct PlainBox {
    std::string text;
    Position start = 0;
    Position end = 0;
    std::deque<std::string> past, future;

    void select(Position from, Position to) {
        start = std::min(from, to);
        end = std::max(from, to);
    }
    void replace(Position from, Position to, std::string_view inserted) {
        std::string changed = text;
        changed.replace(from, to - from, inserted);
        start = end = from + static_cast<Position>(inserted.size());
        if (changed == text)
            return;
        past.push_back(std::exchange(text, std::move(changed)));
        if (past.size() > UndoHistory::maxSteps)
            past.pop_front();
        future.clear();
    }
    void backspace() {
        const bool pair = text.substr(0, end).ends_with("\r\n");
        replace(start == end ? std::max(0, start - (pair ? 2 : 1)) : start, end, "");
    }
    void del() {
        const Position length = text.substr(start).starts_with("\r\n") ? 2 : 1;
        const auto size = static_cast<Position>(text.size());
        replace(start, start == end ? std::min(size, start + length) : end, "");
    }
    void goTo(std::deque<std::string>& from, std::deque<std::string>& to) {
        if (from.empty())
            return;
        to.push_back(std::exchange(text, std::move(from.back())));
        from.pop_back();
    }
};

TEST(EditBox, AgreesWithAPlainStringAndTakesEverythingBack) {
    std::mt19937 random(3);
    const auto below = [&](Position limit) {
        return static_cast<Position>(random() % (limit + 1));
    };
    const auto glyphs = [&] {
        std::string text(below(4), '\n');
        for (char& glyph : text)
            glyph = static_cast<char>(random() % 4 == 0 ? "\r\n \t"[random() % 4] : random());
        return text;
    };
    EditBox box({});
    PlainBox plain;
    const auto step = [&] {
        const std::string text = glyphs();
        switch (random() % 10) {
        case 0:
            box.SelText(text);
            return plain.replace(plain.start, plain.end, text);
        case 1:
            box.keyPress('x', 0);
            return plain.replace(plain.start, plain.end, "x");
        case 2:
            box.keyPress(key::enter, 0);
            return plain.replace(plain.start, plain.end, "\r\n");
        case 3:
            box.keyPress(key::backspace, 0);
            return plain.backspace();
        case 4:
            box.keyDown(key::del, 0);
            return plain.del();
        case 5:
            box.dropText(text, plain.start);
            plain.replace(plain.start, plain.start, text);
            plain.start -= static_cast<Position>(text.size());
            return;
        case 6:
            if (random() % 16 != 0)
                return;
            box.Text(text);
            plain.replace(0, static_cast<Position>(plain.text.size()), text);
            return plain.select(0, 0);
        case 7:
            box.undo();
            plain.goTo(plain.past, plain.future);
            return plain.select(box.SelStart(), box.SelStart() + box.SelLength());
        case 8:
            box.redo();
            plain.goTo(plain.future, plain.past);
            return plain.select(box.SelStart(), box.SelStart() + box.SelLength());
        default:
            box.catchUp();
        }
    };
    box.setMetrics({.width = 64});
    for (int number = 0; number < 1'000'000; ++number) {
        if (random() % 2 == 0) {
            const Position length = box.length();
            plain.select(below(length), random() % 64 == 0 ? below(length) : plain.end);
            box.select({.anchor = plain.start, .caret = plain.end});
        }
        step();
        ASSERT_TRUE(std::ranges::equal(box.Text(), plain.text)) << "step " << number;
        ASSERT_EQ(box.SelStart(), plain.start) << "step " << number;
        ASSERT_EQ(box.SelLength(), plain.end - plain.start) << "step " << number;
        ASSERT_EQ(box.canUndo(), !plain.past.empty()) << "step " << number;
    }
}

} // namespace
} // namespace quillet
