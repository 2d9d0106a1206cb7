#include "engine/inscript_table.h"

#include <algorithm>
#include <array>

namespace quillet {
namespace {

constexpr auto inscriptKeys = std::to_array<InscriptKey>({
    // Control codes keep their meaning.
    // clang-format off
    {"1"}, {"2"}, {"3"}, {"4"}, {"5"}, {"6"}, {"7"}, {"8"}, // 1
    {"9"}, {"10"}, {"11"}, {"12"}, {"13"}, {"14"}, {"15"}, {"16"}, // 9
    {"17"}, {"18"}, {"19"}, {"20"}, {"21"}, {"22"}, {"23"}, {"24"}, // 17
    {"25"}, {"26"}, {"27"}, {"28"}, {"29"}, {"30"}, {"31"}, // 25
    // clang-format on

    // Space, symbols and digits.
    {"32"},         // space
    {"44"},         // !
    {"66"},         // "
    {"126", "107"}, // #
    {"90"},         // $
    {"75"},         // %
    {"123", "107"}, // &
    {"86"},         // '
    {"188"},        // (
    {"189"},        // )
    {"74"},         // *
    {"95"},         // +
    {"93"},         // ,
    {"38"},         // -
    {"45"},         // .
    {"59"},         // /
    {"48"},         // 0
    {"49"},         // 1
    {"50"},         // 2
    {"51"},         // 3
    {"52"},         // 4
    {"53"},         // 5
    {"54"},         // 6
    {"55"},         // 7
    {"56"},         // 8
    {"57"},         // 9
    {"78"},         // :
    {"112"},        // ;
    {"34", "107"},  // <
    {"96"},         // =
    {"65"},         // >
    {"92"},         // ?
    {"87"},         // @

    // Upper-case letters and symbols.
    {"118", "168"}, // A
    {"111"},        // B
    {"46", "107"},  // C
    {"118"},        // D
    {"118", "107"}, // E
    {"98"},         // F
    {"109"},        // G
    {"81"},         // H
    {"63", "107"},  // I
    {"106"},        // J
    {"91", "107"},  // K
    {"70", "107"},  // L
    {"39", "107"},  // M
    {"77"},         // N
    {"47", "107"},  // O
    {"62"},         // P
    {"118", "169"}, // Q
    {"195"},        // R
    {"44"},         // S
    {"197"},        // T
    {"179"},        // U
    {"32"},         // V
    {"44", "115"},  // W
    {"32"},         // X
    {"72", "107"},  // Y
    {"36"},         // Z
    {"77"},         // [
    {"131"},        // backslash
    {"43"},         // ]
    {"61"},         // ^
    {"37"},         // _
    {"33"},         // `

    // Lower-case letters and symbols.
    {"168"},        // a
    {"111"},        // b
    {"101"},        // c
    {"126"},        // d
    {"107"},        // e
    {"102"},        // f
    {"113"},        // g
    {"105"},        // h
    {"120"},        // i
    {"106"},        // j
    {"100"},        // k
    {"114"},        // l
    {"108"},        // m
    {"121"},        // n
    {"110"},        // o
    {"116"},        // p
    {"169"},        // q
    {"104"},        // r
    {"115"},        // s
    {"119"},        // t
    {"103"},        // u
    {"117"},        // v
    {"83"},         // w
    {"97"},         // x
    {"99"},         // y
    {"187"},        // z
    {"60"},         // {
    {"118", "131"}, // |
    {"165"},        // }
    {"32"},         // ~

    // Codes without a glyph of their own, and the one that has one.
    // clang-format off
    {"32"}, {"32"}, {"32"}, {"32"}, {"32"}, {"32"}, {"32"}, {"32"}, // 127
    {"32"}, {"32"}, {"32"}, {"32"}, {"32"}, {"32"}, {"32"}, {"32"}, // 135
    {"32"}, {"32"}, {"32"}, {"32"}, {"32"}, {"32"}, {"32"}, {"32"}, // 143
    {"32"}, // 151
    // clang-format on
    {"183"}, // 152
});

constexpr std::int16_t firstKey = 1;
constexpr std::int16_t lastKey = 152;
static_assert(inscriptKeys.size() == lastKey - firstKey + 1);

// A code as the box can insert it: decimal digits, 1 to 255.
constexpr bool isGlyphCode(std::string_view text) {
    int code = 0;
    for (const char digit : text)
        code = digit >= '0' && digit <= '9' && code <= 255 ? code * 10 + (digit - '0') : 256;
    return code >= 1 && code <= 255;
}

constexpr bool isWellFormed(const InscriptKey& key) {
    return isGlyphCode(key.glyph) && (key.second.empty() || isGlyphCode(key.second));
}

static_assert(std::all_of(inscriptKeys.begin(), inscriptKeys.end(), isWellFormed));

constexpr InscriptKey unknownKey = {"32"};

} // namespace

const InscriptKey& inscriptKey(std::int16_t typed) {
    if (typed < firstKey || typed > lastKey)
        return unknownKey;
    return inscriptKeys[static_cast<std::size_t>(typed - firstKey)];
}

} // namespace quillet
