// The ordered rules that turn glyphs as typed into glyphs as drawn.
#pragma once

#include "engine/glyph_set.h"

#include <span>

namespace quillet {

/// Every occurrence of `pattern` becomes `replacement`. Both are exact glyph codes.
struct MixedCharRule {
    constexpr MixedCharRule(const char* from, const char* to)
        : pattern(from),
          replacement(to),
          needed(from) {}

    GlyphView pattern;
    GlyphView replacement;
    GlyphSet needed; // the pattern's glyphs
};

/// The 131 rules in their order of application. Each works on what the earlier ones left, so the
/// order is part of their meaning.
std::span<const MixedCharRule> mixedCharRules();

} // namespace quillet
