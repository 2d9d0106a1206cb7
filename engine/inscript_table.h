// The Inscript layout: which glyphs a typed character gives.
#pragma once

#include <cstdint>
#include <string_view>

namespace quillet {

/// What one key types, as decimal texts of glyph codes, "1" to "255". Every key has a glyph; the
/// table's build fails on an entry without one, so the texts always convert.
struct InscriptKey {
    std::string_view glyph;       // typed at the press
    std::string_view second = {}; // added at the release; empty for most keys
};

/// The key of a typed ANSI character. Codes without an entry, 0 and negative ones too, give a
/// space.
const InscriptKey& inscriptKey(std::int16_t typed);

} // namespace quillet
