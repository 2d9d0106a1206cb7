// A US keyboard, and the two ways to show a layout on it.
#pragma once

#include "help/key_text.h"

#include <array>
#include <ostream>
#include <string_view>

namespace quillet::help {

/// A row of keys between two that type no character. The last key reaches to the right edge where
/// none follows.
struct KeyRow {
    const char* name;
    const char* before; // empty where the row begins with a key that types
    int beforeWidth;    // in quarters of a key
    std::string_view plain;
    std::string_view shifted;
    const char* after;
};

inline constexpr std::array<KeyRow, 4> keyRows = {{
    {"Number row", "", 0, "`1234567890-=", "~!@#$%^&*()_+", "Backspace"},
    {"Upper row", "Tab", 6, "qwertyuiop[]\\", "QWERTYUIOP{}|", ""},
    {"Home row", "Caps", 7, "asdfghjkl;'", "ASDFGHJKL:\"", "Enter"},
    {"Lower row", "Shift", 9, "zxcvbnm,./", "ZXCVBNM<>?", "Shift"},
}};

/// The keyboard as an SVG picture.
void writePicture(std::ostream& page, const Layout& layout, const EncodingTable& table);

/// The same as tables, one for each row of keys.
void writeTables(std::ostream& page, const Layout& layout, const EncodingTable& table);

} // namespace quillet::help
