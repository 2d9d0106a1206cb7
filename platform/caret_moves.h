// Where keys take the caret.
#pragma once

#include "base/glyph_string.h"
#include "base/text_buffer.h"
#include "platform/line_layout.h"
#include "platform/selection.h"

#include <cstdint>

namespace quillet {

/// What a move starts from.
struct CaretContext {
    const TextBuffer& text;
    const LineLayout& lines;
    Position caret;
    Position pageLines; // lines that a page moves, 1 or more
    Advance goalX;      // the distance from the left that vertical moves aim at
};

/// The caret's new place, which is the old one at the ends of the text.
using CaretMove = Position (*)(const CaretContext&);

/// A glyph is one byte, but CR LF counts as one. A word is what stands between blanks, tabs and
/// line breaks; a move by words ends at the start of one.
Position glyphLeft(const CaretContext& from);
Position glyphRight(const CaretContext& from);
Position wordLeft(const CaretContext& from);
Position wordRight(const CaretContext& from);

/// The word at `place`, or the run of blanks and tabs there; empty between two line breaks.
Selection wordAt(const TextBuffer& text, Position place);

/// The text between the line breaks around `place`, with the one behind it.
Selection paragraphAt(const TextBuffer& text, Position place);

struct CaretKey {
    std::int16_t keyCode; // virtual-key code
    bool ctrl;
    bool vertical;
    CaretMove move;
};

/// The move of a key, or nullptr where the key moves nothing.
const CaretKey* findCaretKey(std::int16_t keyCode, bool ctrl);

} // namespace quillet
