#include "platform/qt/key_translation.h"

#include "base/windows1252.h"
#include "platform/edit_box.h"
#include "platform/key_codes.h"

#include <QKeyEvent>

#include <algorithm>
#include <array>

namespace quillet {
namespace {

struct KeysymRow {
    std::uint32_t keysym;
    std::int16_t keyCode;
};

// The numeric pad: its keys are told from the others by their keysyms alone.
constexpr std::array<KeysymRow, 17> keypadKeys = {{
    {0xFFB0, 96},
    {0xFFB1, 97},
    {0xFFB2, 98},
    {0xFFB3, 99},
    {0xFFB4, 100},
    {0xFFB5, 101},
    {0xFFB6, 102},
    {0xFFB7, 103},
    {0xFFB8, 104},
    {0xFFB9, 105},
    {0xFFAA, 106},
    {0xFFAB, 107},
    {0xFFAC, 110},
    {0xFFAD, 109},
    {0xFFAE, 110},
    {0xFFAF, 111},
    {0xFF9D, 12},
}};

// The modifier keys by their places: held together they change each other's keysyms, as where
// Alt with Shift switches the layout.
struct ModifierKey {
    std::uint32_t scanCode;
    std::int16_t keyCode;
};

constexpr std::array<ModifierKey, 9> modifierKeys = {{
    {50, key::shift},
    {62, key::shift},
    {37, key::ctrl},
    {105, key::ctrl},
    {64, key::alt},
    {108, key::alt},
    {66, key::capsLock},
    {133, key::leftSuper},
    {134, key::rightSuper},
}};

// Keysyms that switch levels and layouts, and Meta: they say nothing of the key that gave them.
constexpr bool isSwitch(std::uint32_t keysym) {
    const bool isIsoLock = keysym >= 0xFE01 && keysym <= 0xFE0F;
    const bool isMeta = keysym == 0xFFE7 || keysym == 0xFFE8;
    return isIsoLock || isMeta || keysym == 0xFF7E;
}

struct NamedKey {
    int key;
    std::int16_t keyCode;
};

constexpr std::array<NamedKey, 30> namedKeys = {{
    {Qt::Key_Backspace, key::backspace},
    {Qt::Key_Tab, key::tab},
    {Qt::Key_Backtab, key::tab},
    {Qt::Key_Clear, key::clear},
    {Qt::Key_Return, key::enter},
    {Qt::Key_Enter, key::enter},
    {Qt::Key_Shift, key::shift},
    {Qt::Key_Control, key::ctrl},
    {Qt::Key_Alt, key::alt},
    {Qt::Key_AltGr, key::alt},
    {Qt::Key_Pause, 19},
    {Qt::Key_CapsLock, key::capsLock},
    {Qt::Key_Escape, key::escape},
    {Qt::Key_PageUp, key::pageUp},
    {Qt::Key_PageDown, key::pageDown},
    {Qt::Key_End, key::end},
    {Qt::Key_Home, key::home},
    {Qt::Key_Left, key::left},
    {Qt::Key_Up, key::up},
    {Qt::Key_Right, key::right},
    {Qt::Key_Down, key::down},
    {Qt::Key_Print, 44},
    {Qt::Key_Insert, key::insert},
    {Qt::Key_Delete, key::del},
    {Qt::Key_Menu, 93},
    {Qt::Key_Super_L, key::leftSuper},
    {Qt::Key_Super_R, key::rightSuper},
    {Qt::Key_Meta, key::leftSuper},
    {Qt::Key_NumLock, 144},
    {Qt::Key_ScrollLock, 145},
}};

// A key of the US layout by its place on the keyboard.
struct PlacedKey {
    std::uint32_t scanCode; // X11 keycode
    std::int16_t keyCode;
    char plain;
    char shifted;
};

constexpr std::array<PlacedKey, 49> placedKeys = {{
    {10, '1', '1', '!'},  {11, '2', '2', '@'}, {12, '3', '3', '#'},  {13, '4', '4', '$'},
    {14, '5', '5', '%'},  {15, '6', '6', '^'}, {16, '7', '7', '&'},  {17, '8', '8', '*'},
    {18, '9', '9', '('},  {19, '0', '0', ')'}, {20, 189, '-', '_'},  {21, 187, '=', '+'},
    {24, 'Q', 'q', 'Q'},  {25, 'W', 'w', 'W'}, {26, 'E', 'e', 'E'},  {27, 'R', 'r', 'R'},
    {28, 'T', 't', 'T'},  {29, 'Y', 'y', 'Y'}, {30, 'U', 'u', 'U'},  {31, 'I', 'i', 'I'},
    {32, 'O', 'o', 'O'},  {33, 'P', 'p', 'P'}, {34, 219, '[', '{'},  {35, 221, ']', '}'},
    {38, 'A', 'a', 'A'},  {39, 'S', 's', 'S'}, {40, 'D', 'd', 'D'},  {41, 'F', 'f', 'F'},
    {42, 'G', 'g', 'G'},  {43, 'H', 'h', 'H'}, {44, 'J', 'j', 'J'},  {45, 'K', 'k', 'K'},
    {46, 'L', 'l', 'L'},  {47, 186, ';', ':'}, {48, 222, '\'', '"'}, {49, 192, '`', '~'},
    {51, 220, '\\', '|'}, {52, 'Z', 'z', 'Z'}, {53, 'X', 'x', 'X'},  {54, 'C', 'c', 'C'},
    {55, 'V', 'v', 'V'},  {56, 'B', 'b', 'B'}, {57, 'N', 'n', 'N'},  {58, 'M', 'm', 'M'},
    {59, 188, ',', '<'},  {60, 190, '.', '>'}, {61, 191, '/', '?'},  {65, 32, ' ', ' '},
    {94, 226, '<', '>'},
}};

constexpr std::int16_t unknownKey = 255;
constexpr std::uint32_t capsLockMask = 2; // of the native modifiers

// The row of `table` that `test` holds for, or nullptr.
template <class Table, class Test>
auto findRow(const Table& table, Test test) -> decltype(table.data()) {
    const auto* found = std::find_if(table.begin(), table.end(), test);
    return found == table.end() ? nullptr : found;
}

// Synthetic events have no scan code: there the character has to tell the key.
const PlacedKey* placedKey(const QKeyEvent& event) {
    const std::uint32_t scanCode = event.nativeScanCode();
    const int key = event.key();
    if (scanCode != 0)
        return findRow(placedKeys, [=](const auto& row) { return row.scanCode == scanCode; });
    return findRow(placedKeys, [=](const auto& row) {
        return row.keyCode == key || row.plain == key || row.shifted == key;
    });
}

std::int16_t virtualKeyCode(const QKeyEvent& event) {
    const std::uint32_t keysym = event.nativeVirtualKey();
    const int key = event.key();
    if (const auto* row = findRow(keypadKeys, [=](const auto& it) { return it.keysym == keysym; }))
        return row->keyCode;
    if (isSwitch(keysym)) {
        const std::uint32_t scanCode = event.nativeScanCode();
        const auto* row =
            findRow(modifierKeys, [=](const auto& it) { return it.scanCode == scanCode; });
        return row != nullptr ? row->keyCode : key::alt;
    }
    if (key >= Qt::Key_F1 && key <= Qt::Key_F24)
        return static_cast<std::int16_t>(key::f1 + (key - Qt::Key_F1));
    if (const auto* row = findRow(namedKeys, [=](const auto& it) { return it.key == key; }))
        return row->keyCode;
    if (key >= Qt::Key_A && key <= Qt::Key_Z)
        return static_cast<std::int16_t>(key);
    const PlacedKey* placed = placedKey(event);
    return placed != nullptr ? placed->keyCode : unknownKey;
}

std::int16_t modifierMask(Qt::KeyboardModifiers modifiers) {
    int mask = 0;
    if (modifiers.testFlag(Qt::ShiftModifier))
        mask |= modifier::shift;
    if (modifiers.testFlag(Qt::ControlModifier))
        mask |= modifier::ctrl;
    if (modifiers.testFlag(Qt::AltModifier))
        mask |= modifier::alt;
    return static_cast<std::int16_t>(mask);
}

// The bit of a key that is a modifier itself.
int ownModifier(std::int16_t keyCode) {
    switch (keyCode) {
    case key::shift:
        return modifier::shift;
    case key::ctrl:
        return modifier::ctrl;
    case key::alt:
        return modifier::alt;
    default:
        return 0;
    }
}

// A modifier key counts at its own press and no longer at its release. The toolkit says the same,
// but the opposite of events that it has shown to assistive programs first.
std::int16_t modifiersHeld(const QKeyEvent& event, std::int16_t keyCode) {
    const int others = modifierMask(event.modifiers()) & ~ownModifier(keyCode);
    const int own = event.type() == QEvent::KeyRelease ? 0 : ownModifier(keyCode);
    return static_cast<std::int16_t>(others | own);
}

// The character of the physical key on a US keyboard.
std::optional<std::int16_t> placedCharacter(const QKeyEvent& event) {
    const PlacedKey* placed = placedKey(event);
    if (placed == nullptr)
        return std::nullopt;
    const bool isLetter = placed->keyCode >= 'A' && placed->keyCode <= 'Z';
    const bool caps = isLetter && (event.nativeModifiers() & capsLockMask) != 0;
    const bool shift = event.modifiers().testFlag(Qt::ShiftModifier);
    return shift != caps ? placed->shifted : placed->plain;
}

std::optional<std::int16_t> typedCharacter(const QKeyEvent& event, Layout layout) {
    const QString text = event.text();
    if (layout == Layout::Other && !text.isEmpty())
        if (const auto character = placedCharacter(event))
            return character;
    if (text.size() == 1)
        if (const auto byte = byteOfUnicode(text.front().unicode()))
            return *byte;
    const bool isDead =
        event.key() >= Qt::Key_Dead_Grave && event.key() <= Qt::Key_Dead_Longsolidusoverlay;
    return isDead || !text.isEmpty() ? placedCharacter(event) : std::nullopt;
}

// With Ctrl held, letters and a few others give control characters.
std::optional<std::int16_t> controlCharacter(const QKeyEvent& event, std::int16_t keyCode) {
    constexpr std::int16_t wordDelete = 127;
    constexpr std::int16_t lineFeed = 10;
    if (keyCode >= 'A' && keyCode <= 'Z')
        return static_cast<std::int16_t>(keyCode - 'A' + 1);
    if (keyCode == key::backspace)
        return wordDelete;
    if (keyCode == key::enter)
        return lineFeed;
    return placedCharacter(event);
}

std::optional<std::int16_t> characterOf(const QKeyEvent& event, std::int16_t keyCode,
                                        Layout layout) {
    if (event.modifiers().testFlag(Qt::AltModifier))
        return std::nullopt;
    const bool isNamed =
        findRow(namedKeys, [&](const auto& row) { return row.key == event.key(); });
    const bool types = keyCode == key::backspace || keyCode == key::enter || keyCode == key::tab ||
                       keyCode == key::escape;
    if (isNamed && !types)
        return std::nullopt;
    if (event.modifiers().testFlag(Qt::ControlModifier))
        return controlCharacter(event, keyCode);
    return types ? keyCode : typedCharacter(event, layout);
}

} // namespace

KeyStroke translateKey(const QKeyEvent& event, Layout layout) {
    constexpr std::uint32_t beyondScanCodes = 0x10000;
    const std::int16_t keyCode = virtualKeyCode(event);
    const std::uint32_t scanCode = event.nativeScanCode();
    return {.scanCode =
                scanCode != 0 ? scanCode : beyondScanCodes + static_cast<std::uint32_t>(keyCode),
            .keyCode = keyCode,
            .shift = modifiersHeld(event, keyCode),
            .character = characterOf(event, keyCode, layout)};
}

} // namespace quillet
