// A quick test whether a text can hold certain glyphs.
#pragma once

#include "base/glyph_string.h"

#include <cstdint>

namespace quillet {

/// The glyphs of a text, where codes that are 64 or 128 apart count as the same glyph.
class GlyphSet {
  public:
    constexpr explicit GlyphSet(GlyphView text) {
        for (const char glyph : text)
            bits_ |= std::uint64_t{1} << (glyphCode(glyph) % 64);
    }

    /// False only when some glyph of `other` is surely missing here.
    constexpr bool mayContain(const GlyphSet& other) const { return (other.bits_ & ~bits_) == 0; }

  private:
    std::uint64_t bits_ = 0;
};

} // namespace quillet
