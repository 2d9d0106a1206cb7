// Where keys take the caret and the selection, in the box itself.
#include "platform/key_codes.h"
#include "tests/test_window.h"
#include "tests/typing.h"

#include <gtest/gtest.h>

#include <tuple>

namespace quillet {
namespace {

using typing::Key;

constexpr std::int16_t shift = modifier::shift;
constexpr std::int16_t ctrl = modifier::ctrl;

// In lines of up to ten glyphs, three of them a page.
TEST(CaretMoves, EveryKeyFromEveryKindOfPlace) {
    LineMetrics metrics{.tabStop = 40, .width = 100};
    metrics.advances.fill(10);
    const struct {
        const char* name;
        Position from;
        std::vector<Key> keys;
        Selection to;
    } rows[] = {
        // clang-format off
        {"left over CR LF", 8, {{key::left}}, {6, 6}},
        {"right over CR LF", 6, {{key::right}}, {8, 8}},
        {"right at the end", 37, {{key::right}}, {37, 37}},
        {"right extends", 0, {{key::right, shift}, {key::right, shift}}, {0, 2}},
        {"left drops at the start", 0, {{key::right, shift}, {key::left}}, {0, 0}},
        {"right drops at the end", 2, {{key::left, shift}, {key::right}}, {2, 2}},
        {"word right skips blanks", 0, {{key::right, ctrl}}, {4, 4}},
        {"word right stops at a line break", 4, {{key::right, ctrl}}, {6, 6}},
        {"word right over a line break", 6, {{key::right, ctrl}}, {8, 8}},
        {"word left", 6, {{key::left, ctrl}}, {4, 4}},
        {"word left over a line break", 8, {{key::left, ctrl}}, {6, 6}},
        {"home of a wrapped line", 20, {{key::home}}, {18, 18}},
        {"end of a wrapped line", 10, {{key::end}}, {17, 17}},
        {"end of a line", 0, {{key::end}}, {6, 6}},
        {"start of the text", 20, {{key::home, ctrl}}, {0, 0}},
        {"selecting to its end", 20, {{key::end, ctrl | shift}}, {20, 37}},
        {"down keeps its column over an empty line", 5, {{key::down}, {key::down}}, {15, 15}},
        {"up at the top", 3, {{key::up}}, {3, 3}},
        {"down at the bottom", 35, {{key::down}}, {35, 35}},
        {"a page down", 5, {{key::pageDown}}, {23, 23}},
        {"a page down and up", 5, {{key::pageDown}, {key::pageUp}}, {5, 5}},
        {"another move forgets the column", 5, {{key::down}, {key::left}, {key::down}}, {8, 8}},
        {"Alt moves nothing", 5, {{key::left, modifier::alt}}, {5, 5}},
        // clang-format on
    };
    for (const auto& row : rows) {
        EditBox box({});
        box.Text("ab  cd\r\n\r\nwrapped line of words\r\nlast");
        box.setMetrics(metrics);
        box.setPageLines(3);
        box.SelStart(row.from);
        for (const Key& key : row.keys)
            box.keyDown(key.code, key.shift);
        EXPECT_EQ(box.selection().anchor, row.to.anchor) << row.name;
        EXPECT_EQ(box.selection().caret, row.to.caret) << row.name;
    }
}

TEST(CaretMoves, DeletingKeysTakePairsAndWords) {
    const std::tuple<const char*, Key, const char*> rows[] = {
        {"a\r\n\n|b", {key::backspace, 0, 8}, "a\r\n|b"}, // a lone LF alone
        {"ab cd |e", {key::backspace, ctrl, 127}, "ab |e"},
        {"a|\r\nb", {key::del}, "a|b"},
        {"a |cd e", {key::del, ctrl}, "a |e"},
        {"a|b|", {27, 0, 27}, "a|b|"}};
    for (const auto& [before, key, after] : rows) {
        EditBox box({});
        place(box, before);
        typing::strike(box, key);
        EXPECT_EQ(marked(box), after) << before;
    }
}

} // namespace
} // namespace quillet
