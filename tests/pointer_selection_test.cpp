// What clicks and drags select.
#include "platform/pointer_selection.h"
#include "tests/test_window.h"

#include <gtest/gtest.h>

#include <tuple>

namespace quillet {
namespace {

TEST(PointerSelection, SelectsByGlyphsWordsAndLines) {
    const std::tuple<const char*, Position, int, Position, Position, Position> rows[] = {
        // the press, the clicks, the end of the drag; anchor and caret
        {"a drag back", 3, 1, 1, 3, 1},
        {"a word, punctuation and all", 2, 2, 2, 0, 4},
        {"its end belongs to the blanks", 4, 2, 4, 4, 6},
        {"but not the end of a line", 8, 2, 8, 6, 8},
        {"an empty line", 10, 2, 10, 10, 10},
        {"the end of the text", 14, 2, 14, 12, 14},
        {"words forward", 1, 2, 7, 0, 8},
        {"words back", 7, 2, 1, 8, 0},
        {"a line", 2, 3, 2, 0, 10},
        {"between CR and LF", 9, 3, 9, 0, 10},
        {"an empty line, whole", 10, 3, 10, 10, 12},
        {"the last line", 13, 3, 13, 12, 14},
        {"lines back", 13, 3, 1, 14, 0},
    };
    for (const auto& [name, press, clicks, drag, anchor, caret] : rows) {
        EditBox box({});
        box.Text("ab;c  de\r\n\r\nfg");
        PointerSelection pointer(box);
        pointer.press(press, clicks, false);
        pointer.drag(drag);
        EXPECT_EQ(box.selection().anchor, anchor) << name;
        EXPECT_EQ(box.selection().caret, caret) << name;
    }
}

TEST(PointerSelection, ShiftMovesTheEndOfTheSelection) {
    EditBox box({});
    box.Text("abcdef");
    PointerSelection pointer(box);
    pointer.press(2, 1, false);
    pointer.press(4, 1, true);
    EXPECT_EQ(marked(box), "ab|cd|ef");
    pointer.press(0, 1, true);
    EXPECT_EQ(marked(box), "|ab|cdef");
}

TEST(PointerSelection, DroppedTextIsOneStep) {
    const std::tuple<const char*, Position, bool, const char*> rows[] = {
        {"forward", 6, true, "abef|cd|"},   {"back", 0, true, "|cd|abef"},
        {"inside", 3, true, "ab|cd|ef"},    {"at its own end", 4, true, "ab|cd|ef"},
        {"a copy", 1, false, "a|XY|bcdef"}, {"into the selection", 3, false, "abc|XY|def"},
    };
    for (const auto& [name, to, moves, after] : rows) {
        EditBox box({});
        place(box, "ab|cd|ef");
        moves ? box.moveSelectionTo(to) : box.dropText("XY", to);
        EXPECT_EQ(marked(box), after) << name;
        if (box.Text() != "abcdef")
            box.undo();
        EXPECT_EQ(marked(box), "ab|cd|ef") << name;
    }
}

} // namespace
} // namespace quillet
