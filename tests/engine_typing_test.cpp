// Keys into the box, glyphs out of it. Boxes are written with "|" at the caret, or around the
// selection.
#include "tests/test_window.h"
#include "tests/typing.h"

#include <gtest/gtest.h>

namespace quillet {
namespace {

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

TEST(EngineTyping, EveryCodeHasItsGlyph) {
    GlyphString glyphs; // of the keys in the order of their codes
    for (char typed = '!'; typed <= '~'; ++typed)
        glyphs += typing::inscriptGlyphs(typed) + " ";
    EXPECT_EQ(glyphs,
              ", B ~k Z K {k V \xBC \xBD J _ ] & - ; 0 1 2 3 4 5 6 7 8 9 N p \"k ` A \\ W "
              "v\xA8 o .k v vk b m Q ?k j [k Fk 'k M /k > v\xA9 \xC3 , \xC5 \xB3   ,s   Hk $ "
              "M \x83 + = % ! \xA8 o e ~ k f q i x j d r l y n t \xA9 h s w g u S a c \xBB "
              "< v\x83 \xA5   ");
    TestWindow window;
    for (std::int16_t typed = -2; typed <= 300; ++typed) {
        if (typed > ' ' && typed <= '~')
            continue;
        const int glyph = typed == 152 ? 183 : typed > 0 && typed < ' ' ? typed : ' ';
        EXPECT_EQ(window.fetch_kruti_character(typed), std::to_string(glyph)) << typed;
    }
    window.fetch_kruti_character('E');
    window.fetch_kruti_character('k');
    EXPECT_EQ(window.spl_case, "107") << "a key of one glyph leaves it";
}

} // namespace
} // namespace quillet
