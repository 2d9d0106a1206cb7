#include "help/keyboard.h"

#include <array>
#include <cstdio>

namespace quillet::help {
namespace {

std::string codesOf(GlyphView glyphs) {
    std::string codes;
    for (const char glyph : glyphs) {
        std::array<char, 4> text{};
        std::snprintf(text.data(), text.size(), "%02X", glyphCode(glyph));
        codes += codes.empty() ? "" : " ";
        codes += text.data();
    }
    return codes;
}

std::string look(GlyphView glyphs, const EncodingTable& table) {
    if (isEmpty(glyphs))
        return "<span class=\"empty\"></span>";
    return "<span class=\"glyphs\" aria-hidden=\"true\">" + drawn(glyphs, table, "span") +
           "</span>";
}

void writeKey(std::ostream& page, char typed, const Layout& layout, const EncodingTable& table) {
    const GlyphString glyphs = layout.glyphs(typed);
    const std::string kind = kindOf(glyphs, table);
    page << "<tr><th scope=\"row\"><kbd>" << escaped(typed) << "</kbd></th><td>"
         << look(glyphs, table) << "</td><td lang=\"hi\">"
         << (isEmpty(glyphs) ? "" : unicodeOf(glyphs, table)) << "</td><td"
         << (kind == "two glyphs" ? " class=\"two\"" : "") << ">" << kind << "</td><td>"
         << codesOf(glyphs) << "</td></tr>\n";
}

} // namespace

void writeTables(std::ostream& page, const Layout& layout, const EncodingTable& table) {
    page << "<div class=\"tables\" id=\"" << layout.id << "-keys\">\n";
    for (const KeyRow& row : keyRows) {
        page << "<table>\n<caption>" << layout.name << ": " << row.name
             << "</caption>\n<thead><tr><th scope=\"col\">Key</th><th scope=\"col\">Looks</th>"
                "<th scope=\"col\">Unicode</th><th scope=\"col\">Kind</th>"
                "<th scope=\"col\">Code</th></tr></thead>\n<tbody>\n";
        for (std::size_t key = 0; key < row.plain.size(); ++key)
            for (const char typed : {row.plain[key], row.shifted[key]})
                writeKey(page, typed, layout, table);
        page << "</tbody>\n</table>\n";
    }
    page << "</div>\n";
}

} // namespace quillet::help
