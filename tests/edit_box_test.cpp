// The box as the program sees it: text, selection, undo, keys.
#include "base/run_time_error.h"
#include "platform/edit_box.h"
#include "tests/typing.h"

#include <gtest/gtest.h>

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
    box.load(TextBuffer("new"));
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
    box.load(TextBuffer("d~"));
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
    box.load(TextBuffer(GlyphString(600'000, 'd')));
    box.SelStart(500'050);
    metrics.width = 1000;
    box.setMetrics(metrics);
    box.keyDown(key::home, 0);
    EXPECT_EQ(box.SelStart(), 500'000);
    box.keyDown(key::end, 0);
    EXPECT_LT(box.SelStart(), 501'001);
}

} // namespace
} // namespace quillet
