// The rewrite rules against a slow and obvious reading of them.
#include "base/run_time_error.h"
#include "tests/test_window.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <tuple>

namespace quillet {
namespace {

struct Rule {
    GlyphString pattern, replacement;
};

// In the order of application, "_" for a space. Octal where a hex code would swallow the next
// glyph.
constexpr const char* ruleTable =
    "d~ D, [k~ [, x~ X, ?k~ ?, p~ P, t~ T, >~ \xD6, i~ I, Q~ \xB6, c~ C, Hk~ H, e~ E, .k~ ., "
    "r~ R, Fk~ F, /k~ /, u~ U, ;~ \xB8, y~ Y, o~ O, 'k~ ', \"k~ \", g~ \xBA, {k~ {, =~ \xAB, "
    "l~ L, Z~ ~Z, jw :, jq #, Lj lz, Dj \xD8, [j \xA3, Xj xz, ?j ?kz, Ij \xC1, \xB6j \xDD, "
    "Cj cz, Hj Hkz, Ej ez, Pj pz, N~j N\xAA, Tj tz, \xD6j >z, V~j V\xAA, B~j B\xAA, "
    "M~j M\xAA, <~j <\xAA, .j .kz, Rj =, Fj Fkz, n~j \xE6, /j /kz, Uj uz, 'j J, \"j \"kz, "
    "{j {kz, K~j Kz, \xB8j ;z, Yj yz, Oj oz, j~j jZ, j~d dZ, j~[k [kZ, j~x xZ, j~?k ?kZ, "
    "j~p pZ, j~N NZ, j~t tZ, j~> >Z, j~r rZ, j~Fk FkZ, j~n nZ, j~/k /kZ, j~u uZ, j~i iZ, "
    "j~Q QZ, j~c cZ, j~Hk HkZ, j~e eZ, j~V VZ, j~B BZ, j~M MZ, j~< <Z, j~.k .kZ, j~'k 'kZ, "
    "j~\" \"Z, j~l lZ, j~g gZ, j~; ;Z, j~y yZ, j~o oZ, j~{k {kZ, j~= =Z, j~K KZ, j~v vZ, "
    "Zk kZ, Z\xA8 \xA8Z, Zh hZ, Zs sZ, ZS SZ, Z\xA9 \xA9Z, Hn \x98, Uu \xE9, \xBA; \xE1, "
    "g` \xE2, Dr \xE4, Dd \xF4, \xBAu \xE0, \272e \xE3, D\"k {k, n~; |, n~/k ), n~o }, "
    "n~n \xCC, Rr \x9Fk, M~M \xCF, M~< \xD4, V~V \xCD, V~B \xCE, n~e \xF9, oj~YM oYMZ, "
    "dff fd_, '~k ', Hhk Hkh, 'hk 'kh, Fhk Fkh, /hk /kh, [hk [kh, .hk .kh, \"hk \"kh, "
    "?hk ?kh, ";

const std::vector<Rule> rules = [] {
    std::vector<Rule> read;
    std::istringstream in(ruleTable);
    for (Rule rule; in >> rule.pattern >> rule.replacement; read.push_back(rule)) {
        rule.replacement.pop_back(); // the comma
        std::ranges::replace(rule.replacement, '_', ' ');
    }
    return read;
}();

GlyphString rewritten(GlyphString text) {
    for (const auto& [pattern, replacement] : rules)
        for (std::size_t at = 0; (at = text.find(pattern, at)) != text.npos;) {
            text.replace(at, pattern.size(), replacement);
            at += replacement.size();
        }
    return text;
}

bool agrees(TestWindow& window, const GlyphString& text) {
    GlyphString changed = text;
    return window.check_mixed_chars(changed) == rewritten(text) && changed == rewritten(text);
}

TEST(EngineRules, AgreeOnEveryShortTextOfTellingGlyphs) {
    constexpr GlyphView alphabet = "d~kjZf?Hhn\xBA;";
    TestWindow window;
    std::size_t count = 1;
    for (std::size_t length = 0; length <= 5; ++length, count *= alphabet.size()) {
        for (std::size_t number = 0; number < count; ++number) {
            GlyphString text(length, ' ');
            std::size_t rest = number;
            for (char& glyph : text) {
                glyph = alphabet[rest % alphabet.size()];
                rest /= alphabet.size();
            }
            ASSERT_TRUE(agrees(window, text)) << testing::PrintToString(text);
        }
    }
}

TEST(EngineRules, AgreeOnEveryPairOfPatterns) {
    TestWindow window;
    EXPECT_EQ(rules.size(), 131U);
    for (const Rule& first : rules) {
        for (const Rule& second : rules) {
            const GlyphString text = first.pattern + second.pattern;
            ASSERT_TRUE(agrees(window, text)) << testing::PrintToString(text);
        }
    }
}

TEST(EngineRules, RephMovesPastOneGlyphButNotOverASpace) {
    TestWindow window;
    for (const auto& [before, after] :
         {std::pair("~Zd", "~dZ"), {"~Z d", "~Z d"}, {"ZdZ", "dZZ"}}) {
        GlyphString text = before;
        EXPECT_EQ(window.check_halant_ref_special(text), after);
        EXPECT_EQ(text, after);
    }
    for (GlyphString text : {"V~Z", "d", ""}) {
        const GlyphString before = text;
        EXPECT_THROW(window.check_halant_ref_special(text), RunTimeError) << before;
        EXPECT_EQ(text, before);
    }
}

TEST(EngineRules, ReorderingStopsWhereTheCaretStandsTooNear) {
    // What the steps before the failing one made of it.
    const std::tuple<const char*, void (InputEngine::*)(), const char*> rows[] = {
        {"f|k", &InputEngine::chhoti_e_special, "f|k"},
        {"df|k", &InputEngine::chhoti_e_special, "fd|k"},
        {"Zf|d", &InputEngine::chhoti_e_special, "\xC6|d"},
        {"fd|k", &InputEngine::convert_123_to_213, "fd|k"},
        {"Dfd|k", &InputEngine::convert_123_to_213, "fDd|k"},
        {"~fd|k", &InputEngine::convert_123_to_213_spl, "f~d|k"},
        {"Dfd|k", &InputEngine::convert_1234_to_2134, "Dfd|k"},
    };
    for (const auto& [before, step, after] : rows) {
        TestWindow window;
        place(window.txtMain, before);
        EXPECT_THROW((window.*step)(), RunTimeError) << before;
        EXPECT_EQ(marked(window.txtMain), after);
    }
}

} // namespace
} // namespace quillet
