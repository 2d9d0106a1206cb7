// Qt's key events as virtual-key codes and Windows-1252 characters.
#pragma once

#include "window/box_keyboard.h"

class QKeyEvent;

namespace quillet {

/// Whether the letters of the active keyboard layout are Latin ones.
enum class Layout { Latin, Other };

/// What the event says, independent of the keyboard layout where that is not a Latin one: then
/// the US character of the physical key counts.
KeyStroke translateKey(const QKeyEvent& event, Layout layout);

} // namespace quillet
