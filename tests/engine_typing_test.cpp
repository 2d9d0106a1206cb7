// Keys into the box, glyphs out of it. Boxes are written with "|" at the caret, or around the
// selection.
#include "tests/test_window.h"
#include "tests/typing.h"

#include <gtest/gtest.h>

namespace quillet {
namespace {

using typing::keyOf;
using typing::press;
using typing::release;
using typing::type;

struct TypingRow {
    const char* keys; // each released before the next is pressed
    GlyphView after;
    const char* before = "|";
};

const TypingRow inscriptRows[] = {
    // clang-format off
    // Plain keys, two-glyph keys, keys without a glyph.
    {"kfley", "fdrkc|"}, {"vcmdls", "ueLrs|"}, {"ufxor", "fganh|"}, {"kjdc", "deZ|"},
    {"hdjf/", "f\xC1;|"}, {"eE#z", "kvk~k\xBB|"}, {"zz", "\xBB\xBB|"}, {"V1X2~", " 1 2 |"},
    {"ee\bl\n\t", "kr\r\n\t|"},

    // The short-i sign goes in front of its cluster, held back by few half forms.
    {"kf", "fd|"}, {"Kf", "f[k|"}, {"kd;f", "fDp|"}, {"k]f", "fd+|"}, {"f", "CfD+|", "CD+|"},
    {"kdjf", "f\xD8|"}, {"Idjf", "f?kz|"}, {"Hdkf", "f\266d|"}, {":djf", "fN\xAA|"},
    {":d;f", "fN~p|"}, {"udkf", "\272fd|"}, {"kF", "db|"}, {"k f", "df |"},

    // The reph with the short-i sign.
    {"jdkf", "\306d|"}, {"jd;f", "\xC6p|"}, {"jdKf", "\xC6[k|"}, {"kd;$f", "D\xC6p|"},

    // The sign stays at the start of the text, does not see lines, and meets the rules first.
    {"f", "f|"}, {"f", "f|k", "|k"}, {"f", "fr|k", "r|k"}, {"f", "d\rf\n|", "d\r\n|"},
    {"f", "ffd|", "df|"},

    // Half forms, ligatures, ra and reph.
    {"kdk", "\xF4|"}, {"kdj", "\xD8|"}, {"'d'", "\xCD|"}, {"kd<", "{k|"}, {"jdk", "dZ|"},
    {"jdke", "dkZ|"}, {"jdkdk", "DdZ|"}, {"kjd kd", "dj~ D|"},

    // Only the five glyphs before the caret count.
    {"r", "d~rrrrh|", "d~rrrr|"}, {"r", "Dhhh|", "d~hh|"}, {"3", "D3|d~", "d~|d~"},
    {"j", "?kz|j", "?|j"},

    // A reph with nothing behind it leaves them selected, and the next key takes their place.
    {"'d$", "|V~Z|"}, {"'d$", "rr|rrV~Z|h", "rrrr|h"}, {"'d$k", "d|h", "rr|h"},
    {"$", "~ZZ|", "~Z|"},

    // Typing over a selection.
    {"k", "ad|d", "a|bc|d"}, {"E", "avk|d", "a|bc|d"},
    // clang-format on
};

TEST(EngineTyping, InscriptKeysGiveGlyphsInVisualOrder) {
    for (const TypingRow& row : inscriptRows) {
        SCOPED_TRACE(testing::Message() << "keys " << row.keys << " into " << row.before);
        TestWindow window;
        place(window.txtMain, row.before);
        type(window.txtMain, row.keys);
        EXPECT_EQ(marked(window.txtMain), row.after);
    }
}

// Plays events: "+E" presses a key, "-E" releases it, "=N" and "=I" switch the mode, "<<"
// selects the glyph before the caret.
void play(TestWindow& window, GlyphView events) {
    EditBox& box = window.txtMain;
    for (; !events.empty(); events.remove_prefix(2)) {
        switch (events[0]) {
        case '+':
            press(box, keyOf(events[1]));
            break;
        case '-':
            release(box, keyOf(events[1]));
            break;
        case '=':
            window.keyboard = events[1] == 'N' ? normalMode : inscriptMode;
            break;
        default:
            typing::strike(box, {key::left, modifier::shift});
        }
    }
}

TEST(EngineTyping, KeysMayOverlap) {
    const std::pair<const char*, GlyphView> rows[] = {
        {"+E+k-E-k", "vdk|"},          // rolled over
        {"+E+A-E-A", "vv\xA8|"},       // two pending, the last one stays
        {"+E+E+E-E", "vvvk|"},         // repeating
        {"+E+ - +2-2-E", "v 2k|"},     // releases that do not count
        {"+;+e+3-f", "pfk|"},          // the F key finds another glyph than its own
        {"+E<<-E", "k|v"},             // a selection ends at its start
        {"+E=N-E+x-x=I+k-k", "vxdk|"}, // not in Normal mode
    };
    for (const auto& [events, after] : rows) {
        SCOPED_TRACE(events);
        TestWindow window;
        play(window, events);
        EXPECT_EQ(marked(window.txtMain), after);
        EXPECT_EQ(window.spl_case, "");
        EXPECT_FALSE(window.keyboard_generated_character);
    }
}

TEST(EngineTyping, CtrlKeepsTheNextKeyAsItIs) {
    TestWindow window;
    place(window.txtMain, "d~|k|");
    typing::strikeWithCtrl(window.txtMain, 'c');
    EXPECT_EQ(marked(window.txtMain), "d~|k|");
    EXPECT_TRUE(window.textboxused);

    type(window.txtMain, "l"); // converted and rewritten again
    EXPECT_EQ(marked(window.txtMain), "\xE4|");

    window.txtMain.keyDown(key::ctrl, modifier::ctrl); // its release goes elsewhere
    type(window.txtMain, "kk");
    EXPECT_EQ(marked(window.txtMain), "\xE4kd|");
}

TEST(EngineTyping, ReleaseRewritesForTheKeysThatCount) {
    for (std::int16_t code = 0; code <= 255; ++code) {
        SCOPED_TRACE(code);
        TestWindow window;
        place(window.txtMain, "d~|k|");
        window.spl_case = "107"; // not pending: no key was converted
        window.txtMain.keyUp(code, 0);
        const bool counts = code >= '3' && (code < key::f1 || code > key::f12);
        EXPECT_EQ(marked(window.txtMain), counts ? "D|k" : "d~|k|");
    }
}

TEST(EngineTyping, OnlyTheTwoModesDoAnything) {
    for (const char* mode : {normalMode, "inscript", ""}) {
        TestWindow window;
        window.keyboard = mode;
        type(window.txtMain, "Ekdf3zZzz");
        EXPECT_EQ(marked(window.txtMain), "Ekdf3zZzz|") << mode;
        EXPECT_EQ(window.desktop.forms.calls.empty(), window.keyboard != normalMode);
    }
}

// The glyphs of the typed characters from 33 to 126, and the keys with a second one.
constexpr GlyphView firstGlyphs =
    ",B~ZK{V\xBC\xBDJ_]&-;0123456789Np\"`A\\Wvo.vvbmQ?j[F'M/>v\xC3,\xC5\xB3 , H$M\x83+=%"
    "!\xA8oe~kfqixjdrlynt\xA9hswguSac\xBB<v\xA5 ";
constexpr GlyphView secondGlyphs = "#k&k<kA\250CkEkIkKkLkMkOkQ\xA9WsYk|\x83";

int firstGlyph(int typed) {
    if (typed >= 33 && typed <= 126)
        return glyphCode(firstGlyphs[static_cast<std::size_t>(typed - 33)]);
    return typed == 152 ? 183 : typed >= 1 && typed < 32 ? typed : 32;
}

std::string secondGlyph(int typed) {
    for (std::size_t at = 0; at < secondGlyphs.size(); at += 2) {
        if (secondGlyphs[at] == typed)
            return std::to_string(glyphCode(secondGlyphs[at + 1]));
    }
    return "pending";
}

TEST(EngineTyping, EveryCodeIsTypedAsItsGlyph) {
    for (std::int16_t typed = -2; typed <= 300; ++typed) {
        SCOPED_TRACE(typed);
        TestWindow window;
        window.spl_case = "pending"; // stays with keys of one glyph
        EXPECT_EQ(window.fetch_kruti_character(typed), std::to_string(firstGlyph(typed)));
        EXPECT_EQ(window.spl_case, secondGlyph(typed));

        place(window.txtMain, "a|");
        window.txtMain.keyPress(typed, 0);
        GlyphString after = GlyphString("a") + static_cast<char>(firstGlyph(typed));
        if (typed > 0 && typed < 32 && typed != '\t')
            after = typed == key::enter ? "a\r\n" : typed == key::backspace ? "" : "a";
        EXPECT_EQ(window.txtMain.Text(), after);
    }
}

} // namespace
} // namespace quillet
