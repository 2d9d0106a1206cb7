// Document text: 8-bit glyph codes of the Kruti Dev encoding.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quillet {

/// Text as the document holds it: one byte per glyph, every value from 0 to 255 allowed.
using GlyphString = std::string;

/// A part of such text that belongs to somebody else.
using GlyphView = std::string_view;

/// A place between two glyphs, counted from 0 at the start of the text; also a count of glyphs.
/// A text is at most `maxTextLength` glyphs long, so every place fits.
using Position = std::int32_t;

inline constexpr Position maxTextLength = 0x7FFFFFFF;

/// The line break of documents, joined texts and written files.
inline constexpr GlyphView lineBreak = "\r\n";

/// Either of the two codes that end lines.
constexpr bool endsLine(char glyph) {
    return glyph == '\r' || glyph == '\n';
}

/// What stands between words besides line breaks.
constexpr bool isBlank(char glyph) {
    return glyph == ' ' || glyph == '\t';
}

/// The code of a glyph, 0 to 255, whatever the sign of `char`.
constexpr std::uint8_t glyphCode(char glyph) {
    return static_cast<std::uint8_t>(glyph);
}

} // namespace quillet
