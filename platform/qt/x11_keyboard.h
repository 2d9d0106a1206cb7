// What has to be asked of the X server about the keyboard.
#pragma once

#include <cstdint>

namespace quillet {

/// Asks the X server to report the repeats of a held key as presses only. Without it a held key
/// looks like one pressed and released over and over. Does nothing on other platforms. To be
/// called once, after the application object exists.
void requestDetectableAutoRepeat();

/// What is typed goes to an open menu until the X server has heard that it is closed. Where the
/// program is late, those keys would be lost, or choose entries that nobody sees any more; from now
/// on they go to the window below. Does nothing on other platforms. To be called once, after the
/// application object exists.
void keepKeysBehindMenus();

/// Whether the letters of the keyboard layout in use are Latin ones. `nativeModifiers` are those
/// of a key event; they tell which of several layouts is active. Where nobody knows, yes.
bool isLatinLayout(std::uint32_t nativeModifiers);

} // namespace quillet
