// The words of a PDF file and their places, as poppler finds them.
#pragma once

#include "tests/shell.h"

#include <algorithm>
#include <cmath>
#include <regex>
#include <tuple>
#include <vector>

namespace quillet {

struct PrintedWord {
    int page;    // from 1
    double x, y; // of the top left corner, in points from that of the page
    std::string text;

    auto place() const { return std::tuple(page, std::lround(y), x); }
};

/// Page by page, line by line, from left to right.
inline std::vector<PrintedWord> printedWords(const fs::path& file) {
    const std::string found = output("pdftotext -bbox " + file.string() + " -");
    const std::regex tag("<page|<word xMin=\"(.*)\" yMin=\"(.*)\" xMax.*>(.*)</word>");
    std::vector<PrintedWord> words;
    int page = 0;
    for (std::sregex_iterator it(found.begin(), found.end(), tag), end; it != end; ++it)
        if ((*it)[1].matched)
            words.push_back({page, std::stod((*it)[1]), std::stod((*it)[2]), (*it)[3]});
        else
            ++page;
    std::ranges::sort(words, {}, &PrintedWord::place);
    return words;
}

} // namespace quillet
