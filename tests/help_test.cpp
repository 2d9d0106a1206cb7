// The help pages as they are built against the program: what they say of keys, layouts and
// commands, and what they refer to.
#include "tests/test_window.h"
#include "tests/typing.h"
#include "window/menu_table.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>

namespace quillet {
namespace {

const std::filesystem::path help = QUILLET_HELP_DIR;

using Match = std::vector<std::string>; // the whole, then the groups

std::string contents(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    EXPECT_TRUE(in) << file;
    return {std::istreambuf_iterator<char>(in), {}};
}

std::vector<Match> matches(const std::string& text, const char* pattern) {
    const std::regex regex(pattern);
    std::vector<Match> found;
    for (std::sregex_iterator it(text.begin(), text.end(), regex), end; it != end; ++it)
        found.emplace_back(it->begin(), it->end());
    return found;
}

// The bytes at the hexadecimal digits that the pattern finds.
GlyphString bytes(const std::string& text, const char* pattern) {
    GlyphString read;
    for (const Match& match : matches(text, pattern))
        read += static_cast<char>(std::stoi(match[1], nullptr, 16));
    return read;
}

// The glyphs that markup draws; the pale letter that signs stand on is none of them.
GlyphString drawn(const std::string& markup) {
    const std::regex paleLetter(R"(<(t?span) class="base">[^<]*</\1>)");
    return bytes(std::regex_replace(markup, paleLetter, ""), "&#xF0(..);");
}

// The characters of <kbd> elements.
std::string keys(const std::string& markup) {
    std::string typed;
    for (const Match& key : matches(markup, "<kbd>(.[^<]*)</kbd>"))
        typed += key[1] == "&lt;" ? '<' : key[1] == "&gt;" ? '>' : key[1].front();
    return typed;
}

TEST(Help, ExamplesAreWhatTheirKeysType) {
    const std::string page = contents(help / "how_to_use_quillet.htm");
    const auto rows =
        matches(page, "<th scope=\"row\">(<kbd>.*)</th>\n<td>(<span class=\"glyphs\".*)");
    EXPECT_GT(rows.size(), 20U);
    for (const Match& row : rows) {
        TestWindow window;
        typing::type(window.txtMain, keys(row[1]));
        EXPECT_EQ(window.txtMain.Text(), drawn(row[2])) << keys(row[1]);
    }
}

TEST(Help, CommandsAreThoseOfTheMenu) {
    const std::string page = contents(help / "how_to_use_quillet.htm");
    for (const MenuRow& row : menuTable()) {
        if (row.level != 1 || row.caption[0] == '-')
            continue;
        std::string expected = ">" + std::string(row.caption) + "</th><td>";
        std::erase(expected, '&');
        if (row.shortcut != 0)
            expected += std::string("<kbd>Ctrl+") + row.shortcut + "</kbd>";
        EXPECT_NE(page.find(expected + "</td>"), page.npos) << expected;
    }
}

TEST(Help, EverythingReferredToIsThere) {
    for (const std::string name : {"how_to_use_quillet.htm", "layouts.htm", "help.css"})
        for (const Match& link :
             matches(contents(help / name), R"re((?:href|src|url)[=(]"([^"#]*)#?([^"]*)")re")) {
            const std::string target = link[1].empty() ? name : link[1];
            const std::string id = link[2].empty() ? "" : "id=\"" + link[2] + '"';
            EXPECT_NE(contents(help / target).find(id), std::string::npos) << name << link[0];
        }
}

// Of one layout: the rows of its tables.
void checkLayout(const std::string& section, GlyphString (*glyphsOf)(char typed)) {
    std::map<char, Match> rows;
    for (const Match& row :
         matches(section, "<th scope=\"row\">(.*)</th><td>(.*)</td><td lang=\"hi\""
                          ">(.*)</td><td.*>(.*)</td><td>(.*)</td>"))
        rows[keys(row[1]).at(0)] = row;
    for (char typed = '!'; typed <= '~'; ++typed) {
        const GlyphString glyphs = glyphsOf(typed);
        const Match& row = rows[typed];
        ASSERT_EQ(row.size(), 6U) << typed;
        EXPECT_EQ(drawn(row[2]), glyphs == " " ? "" : glyphs) << typed;
        EXPECT_EQ(row[4] == "two glyphs", glyphs.size() == 2) << typed;
        EXPECT_EQ(bytes(row[5], "(..) ?"), glyphs) << typed;
    }
}

TEST(Help, LayoutsShowWhatEveryKeyGives) {
    const std::string page = contents(help / "layouts.htm");
    const auto oldStyle = page.find("<section id=\"old-style\"");
    checkLayout(page.substr(0, oldStyle).substr(page.find("<section id=\"inscript\"")),
                typing::inscriptGlyphs);
    checkLayout(page.substr(oldStyle), [](char typed) { return GlyphString(1, typed); });
}

} // namespace
} // namespace quillet
