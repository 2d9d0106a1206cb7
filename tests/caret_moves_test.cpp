// Where keys take the caret and the selection, in the box itself.
#include "platform/edit_box.h"
#include "platform/key_codes.h"
#include "tests/test_window.h"
#include "tests/typing.h"

#include <gtest/gtest.h>

namespace quillet {
namespace {

using typing::Key;

constexpr std::int16_t shift = modifier::shift;
constexpr std::int16_t ctrl = modifier::ctrl;

// Lines of up to ten glyphs, three of them a page.
void setUp(EditBox& box, GlyphView text) {
    LineMetrics metrics;
    metrics.advances.fill(10);
    metrics.tabStop = 40;
    metrics.width = 100;
    box.Text(text);
    box.setMetrics(metrics);
    box.setPageLines(3);
}

TEST(CaretMoves, EveryKeyFromEveryKindOfPlace) {
    const GlyphView text = "ab  cd\r\n\r\nwrapped line of words\r\nlast";
    const struct {
        const char* name;
        Position from;
        std::vector<Key> keys;
        Selection to;
    } rows[] = {
        {"left at the start", 0, {{key::left}}, {0, 0}},
        {"left over CR LF", 8, {{key::left}}, {6, 6}},
        {"right over CR LF", 6, {{key::right}}, {8, 8}},
        {"right at the end", 37, {{key::right}}, {37, 37}},
        {"right extends", 0, {{key::right, shift}, {key::right, shift}}, {0, 2}},
        {"left drops at the start",
         0,
         {{key::right, shift}, {key::right, shift}, {key::left}},
         {0, 0}},
        {"right drops at the end",
         2,
         {{key::left, shift}, {key::left, shift}, {key::right}},
         {2, 2}},
        {"word right skips blanks", 0, {{key::right, ctrl}}, {4, 4}},
        {"word right stops at a line break", 4, {{key::right, ctrl}}, {6, 6}},
        {"word right over a line break", 6, {{key::right, ctrl}}, {8, 8}},
        {"word left", 6, {{key::left, ctrl}}, {4, 4}},
        {"word left over a line break", 8, {{key::left, ctrl}}, {6, 6}},
        {"home of a wrapped line", 20, {{key::home}}, {18, 18}},
        {"end of a wrapped line", 10, {{key::end}}, {17, 17}},
        {"end of a line", 0, {{key::end}}, {6, 6}},
        {"start of the text", 20, {{key::home, ctrl}}, {0, 0}},
        {"selecting to its end",
         20,
         {{key::end, static_cast<std::int16_t>(ctrl | shift)}},
         {20, 37}},
        {"down keeps its column over an empty line", 5, {{key::down}, {key::down}}, {15, 15}},
        {"up at the top", 3, {{key::up}}, {3, 3}},
        {"down at the bottom", 35, {{key::down}}, {35, 35}},
        {"a page down and up", 5, {{key::pageDown}, {key::pageUp}}, {5, 5}},
        {"another move forgets the column",
         5,
         {{key::down}, {key::down}, {key::left}, {key::down}},
         {22, 22}},
        {"Alt moves nothing", 5, {{key::left, modifier::alt}}, {5, 5}},
    };
    for (const auto& row : rows) {
        EditBox box({});
        setUp(box, text);
        box.SelStart(row.from);
        for (const Key& key : row.keys)
            box.keyDown(key.code, key.shift);
        EXPECT_EQ(box.selection().anchor, row.to.anchor) << row.name;
        EXPECT_EQ(box.selection().caret, row.to.caret) << row.name;
    }
}

TEST(CaretMoves, DeletingKeysTakePairsWordsAndSelections) {
    const struct {
        const char* name;
        const char* before; // "|" at the caret or around the selection
        Key key;
        const char* after;
    } rows[] = {
        {"Backspace", "ab|c", {key::backspace, 0, 8}, "a|c"},
        {"Backspace at the start", "|ab", {key::backspace, 0, 8}, "|ab"},
        {"Backspace takes CR LF as one", "a\r\n|b", {key::backspace, 0, 8}, "a|b"},
        {"Backspace takes a lone LF alone", "a\r\n\n|b", {key::backspace, 0, 8}, "a\r\n|b"},
        {"Backspace takes the selection", "a|bc|d", {key::backspace, 0, 8}, "a|d"},
        {"Ctrl+Backspace takes a word", "ab cd |e", {key::backspace, ctrl, 127}, "ab |e"},
        {"Delete", "a|bc", {key::del}, "a|c"},
        {"Delete at the end", "ab|", {key::del}, "ab|"},
        {"Delete takes CR LF as one", "a|\r\nb", {key::del}, "a|b"},
        {"Delete takes the selection", "a|bc|d", {key::del}, "a|d"},
        {"Ctrl+Delete takes a word", "a |cd e", {key::del, ctrl}, "a |e"},
        {"Enter over a selection", "a|bc|d", {key::enter, 0, 13}, "a\r\n|d"},
        {"Tab", "a|b", {9, 0, 9}, "a\t|b"},
        {"Escape types nothing", "a|b|", {27, 0, 27}, "a|b|"},
    };
    for (const auto& row : rows) {
        EditBox box({});
        place(box, row.before);
        typing::strike(box, row.key);
        EXPECT_EQ(marked(box), row.after) << row.name;
    }
}

} // namespace
} // namespace quillet
