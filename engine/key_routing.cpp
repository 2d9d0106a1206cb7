#include "base/run_time_error.h"
#include "engine/input_engine.h"
#include "engine/inscript_table.h"
#include "platform/key_codes.h"
#include "platform/main_state.h"

#include <charconv>

namespace quillet {
namespace {

constexpr std::int16_t keyF = 'F';

// The last of the codes whose release rewrites nothing: control keys, arrows, "0" to "2".
constexpr std::int16_t lastSilentKey = 50;

// What the "z" key types twice in Inscript mode.
constexpr GlyphView doubleZ = "\xBB\xBB";

bool isSilent(std::int16_t KeyCode) {
    return KeyCode <= lastSilentKey || (KeyCode >= key::f1 && KeyCode <= key::f12);
}

std::int16_t codeOf(std::string_view decimal) {
    std::int16_t code = 0;
    std::from_chars(decimal.data(), decimal.data() + decimal.size(), code);
    return code;
}

} // namespace

InputEngine::InputEngine(MainState& state, FormHost& forms)
    : state_(state),
      specialCharacters_(forms, state.txtMain) {}

void InputEngine::txtMain_KeyDown(std::int16_t /*KeyCode*/, std::int16_t Shift) {
    if ((Shift & modifier::ctrl) != 0)
        state_.Control_key_pressed = true;
}

void InputEngine::txtMain_KeyPress(std::int16_t& KeyAscii) {
    state_.textboxused = true;
    if (state_.Control_key_pressed)
        return;
    if (state_.keyboard == normalMode)
        noteZ(KeyAscii == 'z');
    else if (state_.keyboard == inscriptMode)
        KeyAscii = codeOf(fetch_kruti_character(KeyAscii));
}

void InputEngine::noteZ(bool isZ) {
    const bool isSecond = isZ && state_.IsCharz;
    if (isSecond)
        specialCharacters_.show();
    state_.IsCharz = isZ && !isSecond;
}

void InputEngine::txtMain_KeyUp(std::int16_t KeyCode, std::int16_t /*Shift*/) {
    if (state_.Control_key_pressed) {
        state_.Control_key_pressed = false;
        return;
    }
    if (state_.keyboard != inscriptMode || isSilent(KeyCode))
        return;
    const auto moveSign = [&] {
        if (KeyCode == keyF)
            chhoti_e_special();
    };
    resumeNext([this] { insert_spl_case(); }, [this] { check_keyup(); }, moveSign);
}

std::string InputEngine::fetch_kruti_character(const std::int16_t& input_char) {
    const InscriptKey& key = inscriptKey(input_char);
    if (!key.second.empty())
        state_.spl_case = key.second;
    state_.keyboard_generated_character = true;
    return std::string(key.glyph);
}

void InputEngine::insert_spl_case() {
    if (!state_.keyboard_generated_character)
        return;
    state_.keyboard_generated_character = false;
    if (state_.spl_case.empty())
        return;
    EditBox& box = state_.txtMain;
    box.SelStart(box.SelStart());
    box.SelText(GlyphString(1, static_cast<char>(codeOf(state_.spl_case))));
    state_.spl_case.clear();
}

void InputEngine::spl_char_check() {
    const GlyphString text = state_.txtMain.Text();
    const Position caret = state_.txtMain.SelStart();
    if (caret < 2)
        throw RunTimeError(ErrorNumber::InvalidProcedureCall);
    if (text.compare(static_cast<std::size_t>(caret - 2), doubleZ.size(), doubleZ) == 0)
        specialCharacters_.show();
}

} // namespace quillet
