// Key events of any order and kind into box, engine and menu, and commands in between.
#include "base/run_time_error.h"
#include "fuzz/input.h"
#include "tests/test_window.h"
#include "window/box_keyboard.h"

namespace quillet::fuzz {
namespace {

KeyStroke strokeFrom(Input& input) {
    const std::uint8_t key = input.byte();
    const std::uint8_t held = input.byte();
    constexpr std::uint8_t types = 8;
    KeyStroke stroke{.scanCode = key,
                     .keyCode = key,
                     .shift = static_cast<std::int16_t>(held & 7),
                     .character = {}};
    if ((held & types) == 0)
        stroke.character = input.byte();
    return stroke;
}

void step(TestWindow& form, BoxKeyboard& keyboard, Input& input) {
    switch (input.byte() % 8) {
    case 0:
    case 1:
        keyboard.press(strokeFrom(input));
        break;
    case 2:
        keyboard.release(strokeFrom(input));
        break;
    case 3: { // as it is typed
        const KeyStroke stroke = strokeFrom(input);
        keyboard.press(stroke);
        keyboard.release(stroke);
        break;
    }
    case 4:
        keyboard.focusLost();
        break;
    case 5:
        keyboard.focusGained(input.byte() % 2 == 0 ? FocusFrom::Menu : FocusFrom::Elsewhere);
        break;
    case 6:
        form.txtMain.SelStart(input.upTo(form.txtMain.length()));
        form.txtMain.SelLength(input.upTo(form.txtMain.length()));
        break;
    default: {
        const MenuRow& row = menuTable()[input.byte() % menuTable().size()];
        if (row.command != nullptr)
            (form.*row.command)();
    }
    }
}

void run(Input input) {
    TestWindow form;
    BoxKeyboard keyboard(form);
    form.desktop.choices = {"/a", "/b"};
    while (!input.isEmpty()) {
        try {
            step(form, keyboard, input);
        } catch (const RunTimeError&) {
            return; // ends the program with a message
        } catch (const EndOfProgram&) {
            return;
        }
        const EditBox& box = form.txtMain;
        check(box.SelStart() >= 0 && box.SelStart() + box.SelLength() <= box.length(),
              "the selection is in the text");
        check(box.lines().lineStart(box.lines().lineCount()) == box.length(),
              "the lines are those of the text");
    }
}

} // namespace
} // namespace quillet::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    quillet::fuzz::run({data, size});
    return 0;
}
