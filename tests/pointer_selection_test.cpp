// What clicks and drags select.
#include "platform/pointer_selection.h"
#include "tests/test_window.h"

#include <gtest/gtest.h>

namespace quillet {
namespace {

TEST(PointerSelection, SelectsByGlyphsWordsAndLines) {
    const GlyphView text = "ab;c  de\r\n\r\nfg";
    const struct {
        const char* name;
        Position press;
        int clicks;
        Position drag;
        Selection selected;
    } rows[] = {
        {"a click", 3, 1, 3, {3, 3}},
        {"a drag back", 3, 1, 1, {3, 1}},
        {"a word, punctuation and all", 2, 2, 2, {0, 4}},
        {"its end belongs to the blanks", 4, 2, 4, {4, 6}},
        {"but not the end of a line", 8, 2, 8, {6, 8}},
        {"an empty line", 10, 2, 10, {10, 10}},
        {"the end of the text", 14, 2, 14, {12, 14}},
        {"words forward", 1, 2, 7, {0, 8}},
        {"words back", 7, 2, 1, {8, 0}},
        {"a line", 2, 3, 2, {0, 10}},
        {"between CR and LF", 9, 3, 9, {0, 10}},
        {"an empty line, whole", 10, 3, 10, {10, 12}},
        {"the last line", 13, 3, 13, {12, 14}},
        {"lines back", 13, 3, 1, {14, 0}},
    };
    for (const auto& row : rows) {
        EditBox box({});
        box.Text(text);
        PointerSelection pointer(box);
        pointer.press(row.press, row.clicks, false);
        pointer.drag(row.drag);
        EXPECT_EQ(box.selection().anchor, row.selected.anchor) << row.name;
        EXPECT_EQ(box.selection().caret, row.selected.caret) << row.name;
    }
}

TEST(PointerSelection, ShiftMovesTheEndOfTheSelection) {
    EditBox box({});
    box.Text("abcdef");
    PointerSelection pointer(box);
    pointer.press(2, 1, false);
    pointer.press(4, 1, true);
    EXPECT_EQ(box.SelText(), "cd");
    pointer.press(0, 1, true);
    EXPECT_EQ(box.SelText(), "ab");
}

TEST(PointerSelection, DroppedTextIsOneStep) {
    const struct {
        const char* name;
        Position place;
        bool moves;
        const char* after;
    } rows[] = {
        {"forward", 6, true, "abef|cd|"},   {"back", 0, true, "|cd|abef"},
        {"inside", 3, true, "ab|cd|ef"},    {"at its own end", 4, true, "ab|cd|ef"},
        {"a copy", 1, false, "a|XY|bcdef"}, {"into the selection", 3, false, "abc|XY|def"},
    };
    for (const auto& row : rows) {
        EditBox box({});
        place(box, "ab|cd|ef");
        row.moves ? box.moveSelectionTo(row.place) : box.dropText("XY", row.place);
        EXPECT_EQ(marked(box), row.after) << row.name;
        if (box.Text() != "abcdef")
            box.undo();
        EXPECT_EQ(marked(box), "ab|cd|ef") << row.name;
    }
}

} // namespace
} // namespace quillet
