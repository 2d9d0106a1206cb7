// The page of the layouts against the engine's table and that of the encoding.
#include "engine/inscript_table.h"
#include "tests/help_pages.h"

#include <map>
#include <string_view>

namespace quillet {
namespace {

using namespace help_pages;

const std::filesystem::path encoding = QUILLET_SOURCE_DIR "/fonts/kruti-dev-encoding.tsv";

// The keys as the pictures have them, each with Shift first.
constexpr std::string_view keyboard = "~`!1@2#3$4%5^6&7*8(9)0_-+=QqWwEeRrTtYyUuIiOoPp{[}]|\\"
                                      "AaSsDdFfGgHhJjKkLl:;\"'ZzXxCcVvBbNnMm<,>.?/";

// What glyphs are in Unicode, by the table of the encoding; a space and joined pairs come first.
std::map<GlyphString, std::string> unicodeTexts() {
    // clang-format off
    std::map<GlyphString, std::string> texts = {
        {" ", ""},   {".k", "ण"}, {"vk", "आ"},  {"?k", "घ"},    {"[k", "ख"},    {"Fk", "थ"},
        {"'k", "श"}, {"/k", "ध"}, {",s", "ऐ"},  {"Hk", "भ"},    {"v\xA8", "ओ"}, {"v\xA9", "औ"},
        {"{k", "क्ष"}, {"\"k", "ष"}, {"v\x83", "अ१"}, {"~k", "\u094D\u093E"},
    };
    // clang-format on
    for (const Match& row :
         matches(contents(encoding), "\n(0x[3-9A-F].|0x2[1-F])\t.*?\t(U.*?)\t")) {
        std::u32string text;
        for (const Match& code : matches(row[2], R"(U\+(\w+))"))
            text += static_cast<char32_t>(std::stoul(code[1], nullptr, 16));
        texts[bytes(row[1], "0x(..)")] = std::filesystem::path(text).string();
    }
    return texts;
}

GlyphString inscriptGlyphs(char typed) {
    GlyphString glyphs;
    for (const auto code : {inscriptKey(typed).glyph, inscriptKey(typed).second})
        if (!code.empty())
            glyphs += static_cast<char>(std::stoi(std::string(code)));
    return glyphs;
}

// Of one layout: its tables and its picture.
void checkLayout(const std::string& section, GlyphString (*glyphsOf)(char typed)) {
    SCOPED_TRACE(section.substr(0, section.find('>')));
    static const auto unicode = unicodeTexts();
    std::map<char, Match> rows;
    for (const Match& row :
         matches(section, "<th scope=\"row\">(.*)</th><td>(.*)</td><td lang=\"hi\""
                          ">(.*)</td><td.*>(.*)</td><td>(.*)</td>"))
        rows[keys(row[1]).at(0)] = row;
    for (char typed = '!'; typed <= '~'; ++typed) {
        SCOPED_TRACE(typed);
        const GlyphString glyphs = glyphsOf(typed);
        const bool isEmpty = glyphs == " ";
        const Match& row = rows[typed];
        ASSERT_EQ(row.size(), 6U);
        EXPECT_EQ(drawn(row[2]), isEmpty ? "" : glyphs);
        EXPECT_EQ(row[3], unicode.at(glyphs));
        EXPECT_EQ(row[4] == "two glyphs", glyphs.size() == 2);
        EXPECT_EQ(row[4] == "space", isEmpty);
        EXPECT_EQ(bytes(row[5], "(..) ?"), glyphs);
    }
    std::vector<GlyphString> given;
    std::vector<GlyphString> pictured;
    for (const char typed : keyboard)
        given.push_back(glyphsOf(typed));
    for (const Match& each :
         matches(section, "<text class=\"glyphs\".*?</text>|<rect class=\"empty\""))
        pictured.push_back(each[0].starts_with("<rect") ? " " : drawn(each[0]));
    EXPECT_EQ(pictured, given);
}

TEST(HelpLayouts, LayoutsShowWhatEveryKeyGives) {
    const std::string page = contents(help / "layouts.htm");
    const auto oldStyle = page.find("<section id=\"old-style\"");
    checkLayout(page.substr(0, oldStyle).substr(page.find("<section id=\"inscript\"")),
                inscriptGlyphs);
    checkLayout(page.substr(oldStyle), [](char typed) { return GlyphString(1, typed); });
}

} // namespace
} // namespace quillet
