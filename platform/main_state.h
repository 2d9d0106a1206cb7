// The main window's variables, below all that works on them.
#pragma once

#include "platform/common_dialog.h"
#include "platform/desktop.h"
#include "platform/edit_box.h"
#include "platform/form.h"

#include <memory>
#include <string>

namespace quillet {

class CKpoSendMail;

/// The two keyboard modes. Any other text in `keyboard` switches the input engine off.
inline constexpr const char* inscriptMode = "Inscript";
inline constexpr const char* normalMode = "Normal";

inline constexpr const char* krutiDev010 = "Kruti Dev 010";

/// What every command of the main window may read and change.
struct MainState : Form {
    MainState(const Desktop& desktop, const FormDesign& design)
        : Form(desktop.forms, design),
          cdbOpenSave(desktop.fileChooser, desktop.printerChooser) {}

    /// The document: there is no other than the text of this box.
    EditBox txtMain{{.name = krutiDev010, .size = 15.75}};
    CommonDialog cdbOpenSave;

    bool textboxused = false; // changed, as far as keys and New, Open and Close tell
    bool NewFile = false;     // without a file of its own; True once loaded
    std::string NameofFile;   // full path, kept by New and Close
    std::string FontUsed;     // the font chosen last
    std::string keyboard = inscriptMode;
    GlyphString memory_box; // the private text memory

    std::shared_ptr<CKpoSendMail> mailComponent; // made at each load

    // The input engine's own.
    bool Control_key_pressed = false;          // Ctrl held at a key-down, no key-up since
    bool IsCharz = false;                      // the last character was an unpaired "z"
    std::string spl_case;                      // pending second glyph, in decimal; or ""
    bool keyboard_generated_character = false; // a key was converted, its release not seen
};

} // namespace quillet
