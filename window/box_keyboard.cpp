#include "window/box_keyboard.h"

#include "window/frm_quillet.h"

#include <algorithm>
#include <utility>

namespace quillet {

void BoxKeyboard::press(const KeyStroke& key) {
    const bool repeats = findHeld(key.scanCode) != held_.end();
    if (!repeats)
        held_.push_back({key.scanCode, key.keyCode});
    ignoresLoneReleases_ = false;
    const auto command = findKeyCommand(key.keyCode, key.shift);
    if (!command || command->throughBox)
        pressInBox(key, command ? command->command : nullptr);
    else if (!repeats) // a held shortcut runs once
        (form_.*command->command)();
}

void BoxKeyboard::pressInBox(const KeyStroke& key, Command command) {
    EditBox& box = form_.txtMain;
    box.keyDown(key.keyCode, key.shift);
    if (key.character)
        box.keyPress(*key.character, key.shift);
    if (command != nullptr)
        box.runCommand([&] { (form_.*command)(); });
}

void BoxKeyboard::release(const KeyStroke& key) {
    const auto held = findHeld(key.scanCode);
    const bool isLone = held == held_.end();
    if (isLone && (ignoresLoneReleases_ || isGone(key.scanCode)))
        return;
    const std::int16_t keyCode = isLone ? key.keyCode : held->keyCode;
    if (!isLone)
        held_.erase(held);
    form_.txtMain.keyUp(keyCode, key.shift);
}

void BoxKeyboard::focusGained(FocusFrom from) {
    ignoresLoneReleases_ = from == FocusFrom::Menu;
    gone_.clear();
}

void BoxKeyboard::focusLost() {
    gone_ = std::exchange(held_, {});
    for (auto key = gone_.rbegin(); key != gone_.rend(); ++key)
        form_.txtMain.keyUp(key->keyCode, 0);
}

bool BoxKeyboard::isGone(std::uint32_t scanCode) const {
    return std::any_of(gone_.begin(), gone_.end(),
                       [scanCode](const HeldKey& key) { return key.scanCode == scanCode; });
}

std::vector<BoxKeyboard::HeldKey>::iterator BoxKeyboard::findHeld(std::uint32_t scanCode) {
    return std::find_if(held_.begin(), held_.end(),
                        [scanCode](const HeldKey& held) { return held.scanCode == scanCode; });
}

} // namespace quillet
