// What is selected in a box.
#pragma once

#include "base/glyph_string.h"

#include <algorithm>

namespace quillet {

/// The two ends of a selection; the caret is the one that moves.
struct Selection {
    Position anchor = 0;
    Position caret = 0;

    Position start() const { return std::min(anchor, caret); }
    Position end() const { return std::max(anchor, caret); }
    bool isEmpty() const { return anchor == caret; }

    friend bool operator==(const Selection&, const Selection&) = default;
};

} // namespace quillet
