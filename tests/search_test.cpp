// Find and Replace: the search itself, and the windows' lives.
#include "search/text_search.h"
#include "tests/test_window.h"

#include <gtest/gtest.h>

#include <array>
#include <random>

namespace quillet {
namespace {

TEST(TextSearch, AgreesWithAPlainStringHoweverTheTextLies) {
    std::mt19937 random(5);
    const auto below = [&](std::size_t limit) { return random() % (limit + 1); };
    const auto textOf = [](const TextBuffer& buffer) { return buffer.copy(0, buffer.size()); };
    const auto word = [&](std::size_t atMost) {
        GlyphString text(below(atMost), 'a');
        for (char& glyph : text)
            glyph = "ab\xFF"[random() % 3];
        return text;
    };
    for (int round = 0; round < 20'000; ++round) {
        const GlyphString text = word(30);
        const GlyphString what = word(below(9)) + 'a';
        const GlyphString with = word(4);
        TextBuffer buffer(text, 1 + below(30));
        buffer.expectChange(below(text.size()));
        const std::size_t from = below(text.size());
        const std::size_t expected = text.find(what, from);
        const auto found = findText(buffer, static_cast<Position>(from), what);
        ASSERT_EQ(found.has_value(), expected != GlyphString::npos) << "round " << round;
        ASSERT_TRUE(!found || *found == static_cast<Position>(expected)) << "round " << round;

        GlyphString replaced = text;
        for (std::size_t at = 0; (at = replaced.find(what, at)) != GlyphString::npos;) {
            replaced.replace(at, what.size(), with);
            at += with.size();
        }
        ASSERT_EQ(textOf(replaceAll(buffer, what, with)), replaced) << "round " << round;
        ASSERT_EQ(textOf(replaceAll(buffer, "", with)), text);
    }
}

struct Search : testing::Test {
    TestWindow form;
    EditBox& box = form.txtMain;
    frmFind& find = form.findWindow();
    frmReplace& replace = form.replaceWindow();
    std::vector<std::string>& asked = form.desktop.calls;

    void SetUp() override {
        form.mnuFind_Click();
        form.mnuReplace_Click();
    }

    // A click on Find, and what it leaves: the text with its selection, the place of the next
    // search, the caption of the button and whether the window is there.
    std::string click() {
        asked.clear();
        find.control("cmdfind").click();
        return marked(box) + " " + std::to_string(find.position) + " '" +
               find.control("cmdfind").Caption() + "'" + (find.isVisible() ? "" : " hidden") +
               (asked.empty() ? "" : " " + asked.back());
    }

    void lookFor(const char* text, const char* what) {
        box.Text(text);
        form.mnuFind_Click();
        find.control("txtfind").Text(what);
    }
};

constexpr const char* noMore =
    " 1 'Find Next' hidden ask No further matches found. [OK] Quillet: Find Next";

TEST_F(Search, FindSelectsMatchAfterMatchAndThenGoes) {
    lookFor("ababab", "ab");
    EXPECT_EQ(click(), "|ab|abab 3 'Find Next'");
    EXPECT_EQ(click(), "ab|ab|ab 5 'Find Next'");
    EXPECT_EQ(click(), "abab|ab| 7 'Find Next'");
    EXPECT_EQ(click(), "abab|ab|" + std::string(noMore));

    lookFor("aaa", "aa");
    EXPECT_EQ(find.control("cmdfind").Caption(), "Find Next");
    EXPECT_EQ(click(), "|aa|a 3 'Find Next'");
    box.Text("aaaaa");
    EXPECT_EQ(click(), "aa|aa|a 5 'Find Next'") << "the place stays when the text changes";

    find.control("cmdcancel").click();
    lookFor("aA", "A");
    EXPECT_EQ(find.control("cmdfind").Caption(), "&Find ");
    EXPECT_EQ(click(), "a|A| 3 'Find Next'");
    form.mnuFind_Click();
    EXPECT_EQ(find.position, 3) << "showing it again changes nothing";
}

TEST_F(Search, FindsTheEmptyTextWhereItStands) {
    lookFor("ab", "");
    box.SelStart(2);
    EXPECT_EQ(click(), "|ab 1 'Find Next'");
    EXPECT_EQ(click(), "|ab 1 'Find Next'");
    lookFor("ab", "ab");
    EXPECT_EQ(click(), "|ab| 3 'Find Next'");
    find.control("txtfind").Text("");
    EXPECT_EQ(click(), "|ab|" + std::string(noMore));
}

TEST_F(Search, APlaceBeyond16BitsFailsWithTheMatchSelected) {
    lookFor("", "ab");
    for (const Position at : {32'764, 32'765}) {
        box.Text(GlyphString(at, 'x') + "ab");
        find.position = 1;
        find.control("txtfind").Text("ab");
        click();
        EXPECT_EQ(box.SelStart(), at);
        EXPECT_EQ(box.SelLength(), 2);
        EXPECT_EQ(find.isVisible(), at == 32'764);
    }
}

TEST(TextSearch, AResultBeyondTheLimitFails) {
    const TextBuffer text(GlyphString(30'000, 'a'));
    const GlyphString with(100, 'b');
    EXPECT_EQ(replaceAll(text, "a", with, 3'000'000).size(), 3'000'000U);
    EXPECT_THROW(replaceAll(text, "a", with, 2'999'999), RunTimeError);
}

TEST_F(Search, ReplaceAllAssignsTheWholeText) {
    const std::array<std::string, 4> rows[] = {{"aaa", "aa", "b", "|ba"},
                                               {"aa", "a", "aa", "|aaaa"},
                                               {"abc", "B", "x", "|abc"},
                                               {"", "a", "b", "|"}};
    for (const auto& [text, what, with, result] : rows) {
        place(box, text + "|");
        replace.control("txtwhat").Text(what);
        replace.control("txtreplace").Text(with);
        replace.control("cmdreplaceall").click();
        EXPECT_EQ(marked(box), result);
        if (box.Text() != text)
            box.undo();
        EXPECT_EQ(box.Text(), text);
    }
    EXPECT_TRUE(replace.isVisible() && !form.textboxused && asked.empty());
}

} // namespace
} // namespace quillet
