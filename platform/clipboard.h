// The system clipboard as plain 8-bit text.
#pragma once

#include "base/glyph_string.h"

namespace quillet {

class Clipboard {
  public:
    virtual ~Clipboard() = default;

    virtual void setText(GlyphView text) = 0;

    /// The text on the clipboard; empty when it holds anything else or nothing.
    virtual GlyphString text() = 0;
};

} // namespace quillet
