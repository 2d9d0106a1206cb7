// The toolbar of the main window.
#pragma once

#include "window/menu_table.h"

#include <span>

namespace quillet {

/// A button of `Toolbar1`, or a separator, which has no key.
struct ToolbarButton {
    const char* key = nullptr;
    const char* tooltip = nullptr;
    const char* image = nullptr; // key in the image list

    bool isSeparator() const { return key == nullptr; }
};

/// The buttons from left to right.
std::span<const ToolbarButton> toolbarButtons();

struct ToolbarCommand {
    const char* key;
    Command command;
};

/// What each key runs. "Convert" is among them although no button carries it.
std::span<const ToolbarCommand> toolbarCommands();

} // namespace quillet
