// The icons of the toolbar.
#pragma once

#include <array>

namespace quillet {

struct ImageRow {
    const char* key;
    const char* tag; // what the image stands for, where the key alone does not say it
};

/// `ImageList1` in its order. No button uses "Convert", and nothing shows the tags.
inline constexpr std::array<ImageRow, 25> imageList = {{
    {"Underline", ""},
    {"Copy", ""},
    {"Cut", ""},
    {"Italic", ""},
    {"New", ""},
    {"Open", ""},
    {"Paste", ""},
    {"Print", ""},
    {"Save", ""},
    {"Bold", ""},
    {"KeyboardRemington", "Keyboard Remington"},
    {"KeyboardInscript", "Keyboard Inscript"},
    {"ClearScreen", "Clear Screen"},
    {"Lines", "Count Lines"},
    {"Words", ""},
    {"Characters", ""},
    {"AddMemory", ""},
    {"AppendMemory", ""},
    {"PasteFromMemory", ""},
    {"ClearMemory", ""},
    {"Email", "Send Email"},
    {"Web", "Surf Hindi News"},
    {"Help", "How To Use Quillet"},
    {"Layout", "Keyboard Layouts"},
    {"Convert", "Convert to PDF"},
}};

} // namespace quillet
