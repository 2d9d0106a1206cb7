// The help pages as they are built, taken apart.
#pragma once

#include "base/glyph_string.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <string>
#include <vector>

namespace quillet::help_pages {

inline const std::filesystem::path help = QUILLET_HELP_DIR;

using Match = std::vector<std::string>; // the whole, then the groups

inline std::string contents(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    EXPECT_TRUE(in) << file;
    return {std::istreambuf_iterator<char>(in), {}};
}

inline std::vector<Match> matches(const std::string& text, const char* pattern) {
    const std::regex regex(pattern);
    std::vector<Match> found;
    for (std::sregex_iterator it(text.begin(), text.end(), regex), end; it != end; ++it)
        found.emplace_back(it->begin(), it->end());
    return found;
}

// The bytes at the hexadecimal digits that the pattern finds.
inline GlyphString bytes(const std::string& text, const char* pattern) {
    GlyphString read;
    for (const Match& match : matches(text, pattern))
        read += static_cast<char>(std::stoi(match[1], nullptr, 16));
    return read;
}

// The glyphs that markup draws; the pale letter that signs stand on is none of them.
inline GlyphString drawn(const std::string& markup) {
    const std::regex paleLetter(R"(<(t?span) class="base">[^<]*</\1>)");
    return bytes(std::regex_replace(markup, paleLetter, ""), "&#xF0(..);");
}

// The characters of <kbd> elements.
inline std::string keys(const std::string& markup) {
    std::string typed;
    for (const Match& key : matches(markup, "<kbd>(.[^<]*)</kbd>"))
        typed += key[1] == "&lt;" ? '<' : key[1] == "&gt;" ? '>' : key[1].front();
    return typed;
}

} // namespace quillet::help_pages
