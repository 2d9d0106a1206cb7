// Typing into a box as the user does: Latin characters as key events.
#pragma once

#include "engine/inscript_table.h"
#include "platform/edit_box.h"
#include "platform/key_codes.h"

#include <cctype>
#include <cstdint>
#include <iterator>
#include <string_view>

namespace quillet::typing {

/// A key of a US keyboard with the modifiers that are held.
struct Key {
    std::int16_t code;
    std::int16_t shift = 0;
    std::int16_t character = 0; // 0 for keys that give none
};

/// The key of an ASCII character; any other character gets a key code that no ASCII one has.
inline Key keyOf(char character) {
    constexpr std::string_view plain = ";=,-./`[\\]'0123456789";
    constexpr std::string_view shifted = ":+<_>?~{|}\")!@#$%^&*(";
    constexpr std::int16_t codes[] = {186, 187, 188, 189, 190, 191, 192, 219, 220, 221, 222};
    constexpr std::size_t digits = std::size(codes);
    const auto code = [&](std::size_t at) {
        return at < digits ? codes[at] : static_cast<std::int16_t>(plain[at]);
    };
    if (character == '\n')
        return {key::enter, 0, key::enter};
    const auto ascii = static_cast<std::int16_t>(glyphCode(character));
    if (std::isupper(ascii) != 0)
        return {ascii, modifier::shift, ascii};
    if (std::islower(ascii) != 0)
        return {static_cast<std::int16_t>(std::toupper(ascii)), 0, ascii};
    if (const auto at = plain.find(character); at != plain.npos)
        return {code(at), 0, ascii};
    if (const auto at = shifted.find(character); at != shifted.npos)
        return {code(at), modifier::shift, ascii};
    constexpr std::int16_t foreignKey = 226;
    return {ascii > ' ' ? foreignKey : ascii, 0, ascii};
}

/// The glyphs that the Inscript layout has for a character.
inline GlyphString inscriptGlyphs(char typed) {
    GlyphString glyphs;
    for (const std::string_view code : {inscriptKey(typed).glyph, inscriptKey(typed).second})
        if (!code.empty())
            glyphs += static_cast<char>(std::stoi(std::string(code)));
    return glyphs;
}

/// The key goes down, and stays there. Repeated calls are the key's auto-repeat.
inline void press(EditBox& box, Key pressed) {
    box.keyDown(pressed.code, pressed.shift);
    if (pressed.character != 0)
        box.keyPress(pressed.character, pressed.shift);
}

inline void release(EditBox& box, Key released) {
    box.keyUp(released.code, released.shift);
}

inline void strike(EditBox& box, Key struck) {
    press(box, struck);
    release(box, struck);
}

/// A letter with Ctrl held from before it to after it.
inline void strikeWithCtrl(EditBox& box, char letter) {
    const auto code = keyOf(letter).code;
    box.keyDown(key::ctrl, modifier::ctrl);
    strike(box, {code, modifier::ctrl, static_cast<std::int16_t>(code - '@')});
    box.keyUp(key::ctrl, 0);
}

/// Every key is released before the next is pressed; Shift goes down and up as needed.
inline void type(EditBox& box, std::string_view characters) {
    for (const char character : characters) {
        const Key struck = keyOf(character);
        if (struck.shift != 0)
            box.keyDown(key::shift, modifier::shift);
        strike(box, struck);
        if (struck.shift != 0)
            box.keyUp(key::shift, 0);
    }
}

} // namespace quillet::typing
