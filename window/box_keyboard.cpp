#include "window/box_keyboard.h"

#include "window/frm_quillet.h"
#include "window/menu_table.h"

#include <algorithm>

namespace quillet {

void BoxKeyboard::press(const KeyStroke& key) {
    const bool repeats = findHeld(key.scanCode) != held_.end();
    if (!repeats)
        held_.push_back({key.scanCode, key.keyCode});
    const auto command = findKeyCommand(key.keyCode, key.shift);
    if (!command || command->throughBox) {
        form_.txtMain.keyDown(key.keyCode, key.shift);
        if (key.character)
            form_.txtMain.keyPress(*key.character, key.shift);
    } else if (repeats) {
        return; // a held shortcut runs its command once
    }
    if (command && command->command != nullptr)
        (form_.*command->command)();
}

void BoxKeyboard::release(const KeyStroke& key) {
    std::int16_t keyCode = key.keyCode;
    if (const auto held = findHeld(key.scanCode); held != held_.end()) {
        keyCode = held->keyCode;
        held_.erase(held);
    }
    form_.txtMain.keyUp(keyCode, key.shift);
}

void BoxKeyboard::focusLost() {
    while (!held_.empty()) {
        const std::int16_t keyCode = held_.back().keyCode;
        held_.pop_back();
        form_.txtMain.keyUp(keyCode, 0);
    }
}

std::vector<BoxKeyboard::HeldKey>::iterator BoxKeyboard::findHeld(std::uint32_t scanCode) {
    return std::find_if(held_.begin(), held_.end(),
                        [scanCode](const HeldKey& held) { return held.scanCode == scanCode; });
}

} // namespace quillet
