// Texts of any size for the benchmarks.
#pragma once

#include "base/glyph_string.h"

namespace quillet {

/// Hindi prose: paragraphs of some 400 glyphs.
inline GlyphString prose(std::size_t size) {
    constexpr GlyphView sentence =
        "Hkkjr ,d fo'kky ns'k gS A ;gk\xA1 vusd Hkk\"kk,\xA1 cksyh tkrh gSa A ";
    constexpr std::size_t sentences = 8; // of a paragraph
    GlyphString text;
    text.reserve(size + 512);
    while (text.size() < size) {
        for (std::size_t i = 0; i < sentences; ++i)
            text += sentence;
        text += lineBreak;
    }
    return text;
}

} // namespace quillet
