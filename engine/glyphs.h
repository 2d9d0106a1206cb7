// The glyph codes that the engine names.
#pragma once

namespace quillet::glyph {

inline constexpr char halant = '~';
inline constexpr char nukta = '+';
inline constexpr char stroke = 'k';        // also the aa sign
inline constexpr char raBelow = 'z';       // ra as a stroke below its consonant
inline constexpr char raCaret = '\xAA';    // ra as a caret below its consonant
inline constexpr char reph = 'Z';          // ra above, written behind its consonant
inline constexpr char shortI = 'f';        // written before its consonant
inline constexpr char shortIReph = '\xC6'; // both in one glyph
inline constexpr char independentI = 'b';  // the vowel i as a letter
inline constexpr char halfTta = '\xB6';    // half form made of "Q"

} // namespace quillet::glyph
