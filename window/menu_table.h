// The menu bar of the main window.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

namespace quillet {

class frmQuillet;

/// A handler of the main window.
using Command = void (frmQuillet::*)();

/// One entry. The entries of a menu stand behind its heading, one level deeper.
struct MenuRow {
    int level; // 0 in the menu bar, 1 in a menu, 2 in a submenu
    const char* name;
    const char* caption;       // "&" marks the access key; "-" alone is a separator
    char shortcut = 0;         // the letter that chooses the entry with Ctrl
    Command command = nullptr; // nothing for headings and separators
};

/// The whole menu tree in its order. No entry is ever checked, greyed or hidden.
std::span<const MenuRow> menuTable();

/// What a key that is pressed in the box commands.
struct KeyCommand {
    std::int16_t keyCode; // virtual-key code
    std::int16_t shift;   // exactly these modifiers
    Command command;

    /// The command works on the box's own text: the key reaches the box first. Every other one
    /// is taken by the menu bar and raises no key-press in the box.
    bool throughBox;
};

/// The command of a key, or nothing. Besides the shortcuts of the menu these are the keys that
/// text boxes know for Cut, Copy and Paste.
std::optional<KeyCommand> findKeyCommand(std::int16_t keyCode, std::int16_t shift);

} // namespace quillet
