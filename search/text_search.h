// Finding and replacing glyphs, exactly as they are.
#pragma once

#include "base/glyph_string.h"
#include "base/text_buffer.h"

#include <optional>

namespace quillet {

/// Where `what`, which is not empty, first stands at or behind `from`, if it does.
std::optional<Position> findText(const TextBuffer& text, Position from, GlyphView what);

/// The text with `with` in place of every `what`, from left to right: matches do not overlap, and
/// what was put in is not searched. With an empty `what` it is the text as it was. A result longer
/// than `limit` fails with `OutOfMemory`.
TextBuffer replaceAll(const TextBuffer& text, GlyphView what, GlyphView with,
                      Position limit = maxTextLength);

} // namespace quillet
