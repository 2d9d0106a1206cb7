// The counts, their messages and their deliberate limit.
#include "base/run_time_error.h"
#include "search/glyph_counts.h"
#include "tests/test_window.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace quillet {
namespace {

TEST(Counting, CountsSmallTexts) {
    const std::pair<const char*, const char*> rows[] = {
        // characters, words, lines, sentences
        {"", "0 1 1 1"},          {"abc", "3 1 1 1"},   {"a  b", "4 3 1 1"},
        {"ab ", "3 1 1 1"},       {" ab", "3 2 1 1"},   {"a\r\nb", "4 2 2 2"},
        {"a\r\n", "3 2 2 2"},     {"   ", "3 3 1 1"},   {"a\r\n\r\nb", "6 3 3 3"},
        {"xA yA  ", "7 3 1 2"},   {"xA yA", "5 2 1 2"}, {"xA\t", "3 1 1 2"},
        {"xA yA\r\n", "7 3 2 4"}, {"A\r\n", "3 2 2 3"}, {"a\nb", "3 1 1 2"},
        {"a\rb", "3 2 2 1"},
    };
    TestWindow form;
    for (const auto& [text, counts] : rows) {
        form.txtMain.Text(text);
        EXPECT_EQ(form.CountCharacters() + " " + form.CountWords() + " " + form.CountLines() + " " +
                      form.CountSentences(),
                  counts)
            << text;
    }
}

// Both counters walk in blocks, in each part of the text.
TEST(Counting, AgreesWithASlowCountHoweverTheTextLies) {
    std::mt19937 random(4);
    for (int round = 0; round < 300; ++round) {
        GlyphString text(random() % 40'000, 'd');
        for (char& glyph : text)
            if (random() % 4 == 0)
                glyph = random() % 2 == 0 ? ' ' : 'A';
        const std::int64_t spaces = std::count(text.begin(), text.end(), ' ');
        const std::int64_t dandas = std::count(text.begin(), text.end(), 'A');
        TextBuffer buffer(text, 1 + random() % 40'000);
        buffer.expectChange(random() % (text.size() + 1));
        ASSERT_EQ(countSpaces(buffer.spans()), spaces) << "round " << round;
        ASSERT_EQ(countGlyph(buffer.spans(), 'A'), dandas) << "round " << round;
        ASSERT_EQ(countEither(buffer.spans(), ' ', 'A'), spaces + dandas) << "round " << round;
    }
}

TEST(Counting, ALongRunFailsOnlyWithASpaceBehindIt) {
    const std::tuple<std::size_t, std::size_t, const char*, bool> rows[] = {
        {0, 32'766, " ", false}, {0, 32'767, " ", true},       {0, 32'767, "", false},
        {9, 32'767, " x", true}, {16'384, 32'766, " ", false}, {16'383, 32'767, " ", true},
        {9, 40'000, "\r", false}};
    for (const auto& [before, run, end, fails] : rows) {
        const GlyphString text = GlyphString(before, ' ') + GlyphString(run, 'd') + end;
        for (const std::size_t gap : {std::size_t{0}, before + run / 2, text.size()}) {
            TextBuffer buffer(text);
            buffer.expectChange(gap);
            const auto count = [&] { countSpaces(buffer.spans()); };
            SCOPED_TRACE(testing::Message() << before << " " << run << " gap " << gap);
            if (fails)
                EXPECT_THROW(count(), RunTimeError);
            else
                EXPECT_NO_THROW(count());
        }
    }
}

TEST(Counting, AnEmptyTextHasNothingAndAnOverflowLeavesTheHourglass) {
    TestWindow form;
    form.mnuWords_Click();
    form.mnuCharacters_Click();
    form.mnuSentences_Click();
    const std::vector<std::string> expected = {
        "ask Number of words in the file are: 0 [OK] Quillet: Word Count",
        "ask Number of characters in the file are: 0 [OK] Quillet: Character Count",
        "ask Number of sentences in the file are: 0 [OK] Quillet: Sentence Count"};
    EXPECT_EQ(form.desktop.calls, expected);
    form.txtMain.Text(GlyphString(32'767, 'd') + " ");
    EXPECT_THROW(form.mnuWords_Click(), RunTimeError);
    EXPECT_EQ(form.txtMain.MousePointer(), Pointer::Hourglass);
    form.mnuCharacters_Click();
    EXPECT_EQ(form.txtMain.MousePointer(), Pointer::Default);
}

} // namespace
} // namespace quillet
