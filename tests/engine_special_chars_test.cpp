// The window of special characters: when it opens, and what a choice does.
#include "base/run_time_error.h"
#include "tests/test_window.h"
#include "tests/typing.h"

#include <gtest/gtest.h>

namespace quillet {
namespace {

using Calls = std::vector<std::string>;

void choose(TestWindow& window, int index) {
    window.specialCharacters().control("cmbSpecial").choose(index);
}

TEST(EngineSpecialChars, DoubleZOpensThemInNormalMode) {
    struct Row {
        const char* keys;
        std::size_t shows;
        bool zIsPending;
    };
    const Row rows[] = {
        {"z", 0, true},   {"zz", 1, false}, {"zzz", 1, true},  {"zzzz", 2, false},
        {"zxz", 0, true}, {"zZ", 0, false}, {"z\nz", 0, true}, {"ZZ", 0, false},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.keys);
        TestWindow window;
        window.keyboard = normalMode;
        typing::type(window.txtMain, row.keys);
        EXPECT_EQ(window.desktop.forms.calls, Calls(row.shows, "show frmSpl"));
        EXPECT_EQ(window.IsCharz, row.zIsPending);
    }
}

TEST(EngineSpecialChars, FirstZWaitsThroughInscriptMode) {
    TestWindow window;
    for (const char* mode : {normalMode, inscriptMode, normalMode}) {
        EXPECT_TRUE(window.desktop.forms.calls.empty());
        window.keyboard = mode;
        typing::type(window.txtMain, "z");
    }
    EXPECT_EQ(window.desktop.forms.calls, Calls{"show frmSpl"});
}

TEST(EngineSpecialChars, EveryEntryTakesThePlaceOfTheDoubleZ) {
    constexpr GlyphView entries =
        "$@GW(!Z^`sz\xAA\xB7\xB3\xDB\xE5\x83\x84\x85\x86\x87\x88\x89\x8A\x8BW";
    TestWindow window;
    window.keyboard = normalMode;
    Control& list = window.specialCharacters().control("cmbSpecial");
    EXPECT_EQ(list.Caption(), "ugha");
    ASSERT_EQ(list.List.size(), entries.size());
    for (std::size_t at = 0; at < entries.size(); ++at) {
        SCOPED_TRACE(at);
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
    window.keyboard = normalMode;
    typing::type(window.txtMain, "zz");
    choose(window, 25);
    typing::type(window.txtMain, "zz");
    window.specialCharacters().close();
    EXPECT_FALSE(window.specialCharacters().isVisible());
    EXPECT_EQ(marked(window.txtMain), "Wzz|");

    typing::type(window.txtMain, "ab"); // whatever stands before the caret is replaced
    window.specialCharacters().show();
    EXPECT_EQ(window.specialCharacters().control("cmbSpecial").ListIndex, 25);
    choose(window, 25);
    EXPECT_EQ(marked(window.txtMain), "WzzW|");
}

TEST(EngineSpecialChars, AChoiceTooNearTheStartFailsAndChangesNothing) {
    for (const char* before : {"|zz", "z|z"}) {
        SCOPED_TRACE(before);
        TestWindow window;
        place(window.txtMain, before);
        window.specialCharacters().show();
        EXPECT_THROW(choose(window, 0), RunTimeError);
        EXPECT_EQ(marked(window.txtMain), before);
        EXPECT_TRUE(window.specialCharacters().isVisible());
    }
}

TEST(EngineSpecialChars, CheckOpensThemBehindTwoInscriptZ) {
    const std::pair<const char*, bool> rows[] = {
        {"\xBB\xBB|", true}, {"d\xBB\xBB|d", true}, {"d\xBB|\xBB", false}, {"zz|", false}};
    for (const auto& [before, opens] : rows) {
        SCOPED_TRACE(testing::PrintToString(GlyphString(before)));
        TestWindow window;
        place(window.txtMain, before);
        window.spl_char_check();
        EXPECT_EQ(window.specialCharacters().isVisible(), opens);
    }
    TestWindow window;
    place(window.txtMain, "\xBB|\xBB");
    EXPECT_THROW(window.spl_char_check(), RunTimeError);
}

} // namespace
} // namespace quillet
