// The page of the layouts against the engine's table.
#include "engine/inscript_table.h"
#include "tests/help_pages.h"

#include <map>

namespace quillet {
namespace {

using namespace help_pages;

GlyphString inscriptGlyphs(char typed) {
    GlyphString glyphs;
    for (const auto code : {inscriptKey(typed).glyph, inscriptKey(typed).second})
        if (!code.empty())
            glyphs += static_cast<char>(std::stoi(std::string(code)));
    return glyphs;
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

TEST(HelpLayouts, LayoutsShowWhatEveryKeyGives) {
    const std::string page = contents(help / "layouts.htm");
    const auto oldStyle = page.find("<section id=\"old-style\"");
    checkLayout(page.substr(0, oldStyle).substr(page.find("<section id=\"inscript\"")),
                inscriptGlyphs);
    checkLayout(page.substr(oldStyle), [](char typed) { return GlyphString(1, typed); });
}

} // namespace
} // namespace quillet
