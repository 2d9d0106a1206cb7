// The help pages against the program: what they say of keys and commands, and what they refer to.
#include "tests/help_pages.h"
#include "tests/test_window.h"
#include "tests/typing.h"
#include "window/menu_table.h"

namespace quillet {
namespace {

using namespace help_pages;

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

} // namespace
} // namespace quillet
