// Counting glyph codes in a text, some gigabytes of it a second.
#pragma once

#include "base/text_buffer.h"

#include <cstdint>

namespace quillet {

/// How often `glyph` stands in the text.
std::int64_t countGlyph(const TextBuffer::Spans& text, char glyph);

/// How often one of two different glyphs does.
std::int64_t countEither(const TextBuffer::Spans& text, char one, char other);

/// The number of spaces. Deliberately the way from one space to the next is a 16-bit number: a
/// run of 32,767 or more other glyphs with a space behind it fails with `Overflow`.
std::int64_t countSpaces(const TextBuffer::Spans& text);

} // namespace quillet
