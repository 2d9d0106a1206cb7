// The code page that ties glyph codes to Unicode.
#pragma once

#include <cstdint>
#include <optional>

namespace quillet {

/// The Unicode character of a Windows-1252 byte. The five bytes that the code page leaves open
/// (0x81, 0x8D, 0x8F, 0x90, 0x9D) stand for the control characters of the same number.
char16_t unicodeOfByte(std::uint8_t byte);

/// The byte that stands for `character`, or nothing where the code page has none.
std::optional<std::uint8_t> byteOfUnicode(char32_t character);

} // namespace quillet
