// What the keys of a layout give, and how the page writes it.
#pragma once

#include "base/glyph_string.h"
#include "help/encoding_table.h"

#include <string>

namespace quillet::help {

struct Layout {
    const char* id; // on the page
    const char* name;
    GlyphString (*glyphs)(char typed);
};

extern const Layout inscript;
extern const Layout oldStyle;

/// Whether the key only moves the caret on.
bool isEmpty(GlyphView glyphs);

/// The glyphs as Unicode text; the parts of a letter that takes two are joined.
std::string unicodeOf(GlyphView glyphs, const EncodingTable& table);

/// A word for what they are.
std::string kindOf(GlyphView glyphs, const EncodingTable& table);

/// Markup that draws them with the program's font. A sign stands on a pale ma, the letter that the
/// font's signs are made for; `element` is what marks that in HTML or SVG.
std::string drawn(GlyphView glyphs, const EncodingTable& table, const std::string& element);

/// A Latin character as markup.
std::string escaped(char character);

} // namespace quillet::help
