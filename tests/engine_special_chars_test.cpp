// The window of special characters: when it opens, and what a choice does.
#include "base/run_time_error.h"
#include "tests/test_window.h"
#include "tests/typing.h"

#include <gtest/gtest.h>

#include <tuple>

namespace quillet {
namespace {

using Calls = std::vector<std::string>;

void choose(TestWindow& window, int index) {
    window.specialCharacters().control("cmbSpecial").choose(index);
}

TEST(EngineSpecialChars, DoubleZOpensThemInNormalMode) {
    const std::tuple<const char*, std::size_t, bool> rows[] = {
        {"z", 0, true},   {"zz", 1, false}, {"zzz", 1, true}, {"zzzz", 2, false},
        {"zxz", 0, true}, {"zZ", 0, false}, {"z\nz", 0, true}};
    for (const auto& [keys, shows, zIsPending] : rows) {
        TestWindow window;
        window.keyboard = normalMode;
        typing::type(window.txtMain, keys);
        EXPECT_EQ(window.desktop.forms.calls, Calls(shows, "show frmSpl")) << keys;
        EXPECT_EQ(window.IsCharz, zIsPending) << keys;
    }
}

TEST(EngineSpecialChars, EveryEntryTakesThePlaceOfTheDoubleZ) {
    constexpr GlyphView entries =
        "$@GW(!Z^`sz\xAA\xB7\xB3\xDB\xE5\x83\x84\x85\x86\x87\x88\x89\x8A\x8BW";
    TestWindow window;
    window.keyboard = normalMode;
    Control& list = window.specialCharacters().control("cmbSpecial");
    ASSERT_EQ(list.List.size(), entries.size());
    for (std::size_t at = 0; at < entries.size(); ++at) {
        place(window.txtMain, "r|h");
        window.desktop.forms.calls.clear();
        typing::type(window.txtMain, "kzz");
        choose(window, static_cast<int>(at));
        EXPECT_EQ(marked(window.txtMain), GlyphString("rk") + entries[at] + "|h");
        EXPECT_EQ(window.desktop.forms.calls, (Calls{"show frmSpl", "hide frmSpl"}));
    }
}

TEST(EngineSpecialChars, TheChosenEntryStaysAndCanBeChosenAgain) {
    TestWindow window;
    place(window.txtMain, "zz|");
    choose(window, 25);
    place(window.txtMain, "Wab|"); // whatever stands before the caret is replaced
    window.specialCharacters().show();
    EXPECT_EQ(window.specialCharacters().control("cmbSpecial").ListIndex, 25);
    choose(window, 25);
    EXPECT_EQ(marked(window.txtMain), "WW|");
    place(window.txtMain, "z|z");
    EXPECT_THROW(choose(window, 0), RunTimeError) << "too near to the start";
    EXPECT_EQ(marked(window.txtMain), "z|z");
}

TEST(EngineSpecialChars, CheckOpensThemBehindTwoInscriptZ) {
    const std::pair<const char*, bool> rows[] = {
        {"\xBB\xBB|", true}, {"d\xBB\xBB|d", true}, {"d\xBB|\xBB", false}, {"zz|", false}};
    for (const auto& [before, opens] : rows) {
        TestWindow window;
        place(window.txtMain, before);
        window.spl_char_check();
        EXPECT_EQ(window.specialCharacters().isVisible(), opens) << testing::PrintToString(before);
    }
}

} // namespace
} // namespace quillet
