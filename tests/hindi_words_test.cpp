// Hindi words typed by their keys, and read again from the glyphs that this leaves in the box.
#include "tests/test_window.h"
#include "tests/typing.h"

#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <utility>

namespace quillet {
namespace {

using Letters = std::u16string;

constexpr char16_t joiner = u'\u200D'; // makes a half form of the letter and halant before it
constexpr char16_t halant = u'\u094D';
constexpr char16_t nukta = u'\u093C';
constexpr char16_t shortI = u'\u093F';

bool isConsonant(char16_t letter) {
    return letter >= u'\u0915' && letter <= u'\u0939';
}

bool isSign(char16_t letter) {
    return letter >= u'\u0900' && letter < halant && !(letter > u'\u0903' && letter < nukta);
}

Letters fromUtf8(const std::string& text) {
    return std::filesystem::path(text).u16string();
}

// What the table of the fonts says of every glyph.
std::array<Letters, 256> readEncoding() {
    std::array<Letters, 256> encoding;
    std::ifstream table(QUILLET_SOURCE_DIR "/fonts/kruti-dev-encoding.tsv");
    for (std::string row; std::getline(table, row);) {
        std::istringstream codes(row.substr(row.find('\t', 5) + 1)); // behind byte and character
        for (std::string code; codes >> code && code.starts_with("U+");)
            encoding[std::stoul(row, nullptr, 16)] +=
                static_cast<char16_t>(std::stoul(code.substr(2), nullptr, 16));
    }
    return encoding;
}

bool endsInHalf(const Letters& letters) {
    return letters.ends_with(Letters{halant, joiner});
}

// The stroke completes most half forms. Those of ka, pha and ha belong to letters without one.
bool lacksStroke(const Letters& letters) {
    return endsInHalf(letters) &&
           Letters(u"\u0915\u092B\u0939").find(letters[letters.size() - 3]) == Letters::npos;
}

// Where the last cluster starts, which a reph stands behind; nowhere else while it is not whole.
std::size_t clusterStart(const Letters& letters) {
    std::size_t at = letters.size();
    while (at > 0 && isSign(letters[at - 1]))
        --at;
    while (at > 0 && isConsonant(letters[at - 1])) {
        --at;
        if (at == 0 || letters[at - 1] != halant)
            break;
        at -= at > 1 && letters[at - 2] == nukta ? 2 : 1;
    }
    return at;
}

// Where the cluster ends that starts at `at`, which the short i stands before.
std::size_t clusterEnd(const Letters& letters, std::size_t at) {
    while (at < letters.size() && isConsonant(letters[at])) {
        ++at;
        if (letters.substr(at, 1) == Letters{nukta})
            ++at;
        if (letters.substr(at, 1) != Letters{halant})
            break;
        ++at;
    }
    return at;
}

void moveShortI(Letters& letters) {
    for (std::size_t at = letters.size(); at-- > 0;) {
        if (letters[at] != shortI)
            continue;
        const std::size_t end = clusterEnd(letters, at + 1);
        if (end == at + 1 && at > 0)
            letters.insert(end, 1, joiner);
        letters.insert(end, 1, shortI);
        letters.erase(at, 1);
    }
}

void replaceAll(Letters& letters, const Letters& what, const Letters& by) {
    for (auto at = letters.find(what); at != Letters::npos; at = letters.find(what, at))
        letters.replace(at, what.size(), by);
}

// The spoken order of glyphs that stand in visual order.
Letters read(const GlyphString& glyphs) {
    static const std::array<Letters, 256> encoding = readEncoding();
    constexpr GlyphView beforeReph = "khsS\xA8\xA9"; // the signs that go before it
    Letters letters;
    char last = ' ';
    for (const char glyph : glyphs) {
        const Letters& part = encoding[glyphCode(glyph)];
        if (std::exchange(last, glyph) == 'Z' && beforeReph.find(glyph) != GlyphView::npos)
            letters += joiner;
        if (glyph == 'Z') {
            letters.insert(clusterStart(letters), part);
        } else if (glyph == 'k' && lacksStroke(letters)) {
            letters.resize(letters.size() - 2);
        } else {
            if (endsInHalf(letters) && (isConsonant(part[0]) || part[0] == halant))
                letters.pop_back();
            letters += part;
        }
    }
    moveShortI(letters);
    replaceAll(letters, u"\u0905\u093E", u"\u0906"); // aa
    replaceAll(letters, u"\u0905\u094B", u"\u0913"); // o
    replaceAll(letters, u"\u0905\u094C", u"\u0914"); // au
    replaceAll(letters, u"\u090F\u0947", u"\u0910"); // ai
    replaceAll(letters, Letters{joiner}, u"-");
    return letters;
}

// The engine's table the other way round: the key of a letter, or of a conjunct. Three letters that
// the layout has are not in it; for them the layout's key.
std::map<Letters, char> keysOfLetters() {
    std::map<Letters, char> keys = {{u"\u0901", 'X'}, {u"\u0949", '\\'}, {u"\u0933", 'N'}};
    for (char typed = '!'; typed <= '~'; ++typed)
        keys[read(typing::inscriptGlyphs(typed))] = typed;
    return keys;
}

// The keys of a word, with those of conjuncts or letter by letter.
std::string keysOf(Letters word, std::size_t longest) {
    static const std::map<Letters, char> keys = keysOfLetters();
    std::string typed;
    while (!word.empty()) {
        std::size_t length = longest;
        while (length > 1 && (length == 2 || !keys.contains(word.substr(0, length))))
            --length; // a reph or a halant with an aa is not typed as one
        typed += keys.at(word.substr(0, length));
        word.erase(0, length);
    }
    return typed;
}

TEST(HindiWords, AreGivenByTheirKeys) {
    std::ifstream list(QUILLET_SOURCE_DIR "/tests/hindi_words.tsv");
    int words = 0;
    for (std::string row; std::getline(list, row);) {
        if (row.empty() || row.starts_with('#'))
            continue;
        ++words;
        const std::string word = row.substr(0, row.find('\t'));
        const std::string expected = row.substr(row.find('\t') + 1); // the word where there is none
        for (const std::size_t longestKey : {1U, 3U}) {
            const std::string keys = keysOf(fromUtf8(word), longestKey);
            TestWindow window;
            typing::type(window.txtMain, keys);
            const GlyphString glyphs = window.txtMain.Text();
            EXPECT_TRUE(read(glyphs) == fromUtf8(expected))
                << word << " typed " << keys << " gave " << testing::PrintToString(glyphs);
        }
    }
    EXPECT_GT(words, 900);
}

} // namespace
} // namespace quillet
