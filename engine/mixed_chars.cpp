#include "base/run_time_error.h"
#include "engine/glyphs.h"
#include "engine/input_engine.h"
#include "engine/mixed_char_rules.h"
#include "platform/main_state.h"

#include <algorithm>
#include <utility>

namespace quillet {
namespace {

constexpr Position windowLength = 5;

// Replaces from left to right, never inside a replacement. Tells whether there was anything.
bool replaceAll(GlyphString& text, const MixedCharRule& rule) {
    std::size_t at = text.find(rule.pattern);
    const bool found = at != GlyphString::npos;
    while (at != GlyphString::npos) {
        text.replace(at, rule.pattern.size(), rule.replacement);
        at = text.find(rule.pattern, at + rule.replacement.size());
    }
    return found;
}

} // namespace

void InputEngine::check_keyup() {
    EditBox& box = state_.txtMain;
    const Position count = std::min(box.SelStart(), windowLength);
    box.SelStart(box.SelStart() - count);
    box.SelLength(count);
    GlyphString window = box.SelText();
    const bool movesReph = window.find("~Z") != GlyphString::npos;
    check_mixed_chars(window);
    if (movesReph)
        check_halant_ref_special(window);
    box.SelText(window);
}

GlyphString InputEngine::check_mixed_chars(GlyphString& txt_check) {
    GlyphSet present(txt_check);
    for (const MixedCharRule& rule : mixedCharRules()) {
        if (present.mayContain(rule.needed) && replaceAll(txt_check, rule))
            present = GlyphSet(txt_check);
    }
    return txt_check;
}

GlyphString InputEngine::check_halant_ref_special(GlyphString& text_check) {
    const std::size_t at = text_check.find(glyph::reph);
    if (at == GlyphString::npos || at + 1 == text_check.size())
        throw RunTimeError(ErrorNumber::InvalidProcedureCall);
    if (text_check[at + 1] != ' ')
        std::swap(text_check[at], text_check[at + 1]);
    return text_check;
}

} // namespace quillet
