#include "base/windows1252.h"

#include <algorithm>
#include <array>

namespace quillet {
namespace {

constexpr std::uint8_t firstSpecial = 0x80;

// Bytes 0x80 to 0x9F in order; every other byte is the character of its own number.
constexpr std::array<char16_t, 32> specials = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, // 80
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F, // 88
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014, // 90
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178, // 98
};

constexpr bool isSpecial(char32_t code) {
    return code >= firstSpecial && code < firstSpecial + specials.size();
}

} // namespace

char16_t unicodeOfByte(std::uint8_t byte) {
    return isSpecial(byte) ? specials[byte - firstSpecial] : byte;
}

std::optional<std::uint8_t> byteOfUnicode(char32_t character) {
    if (character <= 0xFF && !isSpecial(character))
        return static_cast<std::uint8_t>(character);
    const auto* found = std::find(specials.begin(), specials.end(), character);
    if (found == specials.end())
        return std::nullopt;
    return static_cast<std::uint8_t>(firstSpecial + (found - specials.begin()));
}

} // namespace quillet
