// From the keys of a keyboard to the key events of the box and the shortcuts of the menu.
#pragma once

#include "window/menu_table.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace quillet {

class frmQuillet;

/// A physical key as the desktop reports it.
struct KeyStroke {
    std::uint32_t scanCode = 0;            // tells the physical keys apart
    std::int16_t keyCode = 0;              // virtual-key code
    std::int16_t shift = 0;                // modifiers held, this key included
    std::optional<std::int16_t> character; // Windows-1252 code that the key types, if it types
};

/// What had the focus before the box.
enum class FocusFrom { Menu, Elsewhere };

/// Decides for every key pressed in the box whether the box or the menu bar gets it, and keeps
/// account of the keys that are held.
class BoxKeyboard {
  public:
    explicit BoxKeyboard(frmQuillet& form) : form_(form) {}

    /// A key went down, or repeats while it is held.
    void press(const KeyStroke& key);

    /// A key went up. It is released under the code that it was pressed with; a release without
    /// a press counts as it comes, but for keys that went down in a menu.
    void release(const KeyStroke& key);

    /// The releases of all held keys will go elsewhere: reports them now, the last pressed
    /// first, so that neither Ctrl nor a pending second glyph sticks. Where one of them comes here
    /// all the same, as it does with assistive programs in between, it is ignored.
    void focusLost();

    /// The box has the focus again. A key that chose a command in a menu raises no event here,
    /// although its release comes; the one that closed a dialog box does.
    void focusGained(FocusFrom from);

  private:
    struct HeldKey {
        std::uint32_t scanCode;
        std::int16_t keyCode;
    };

    void pressInBox(const KeyStroke& key, Command command);
    std::vector<HeldKey>::iterator findHeld(std::uint32_t scanCode);
    bool isGone(std::uint32_t scanCode) const;

    frmQuillet& form_;
    std::vector<HeldKey> held_; // in the order of their presses
    std::vector<HeldKey> gone_; // whose releases were reported when the focus went
    bool ignoresLoneReleases_ = false;
};

} // namespace quillet
