#include "engine/glyphs.h"
#include "engine/input_engine.h"
#include "platform/main_state.h"

#include <utility>

namespace quillet {
namespace {

// The glyphs that a short-i sign moves past after its consonant. Not every half form is among
// them: 0xB6 and "?" have rules of their own, 0xBA and 0xAB have none.
constexpr GlyphView halfForms = "\"'./CDEFHILOPRTUXY[{\xB8\xCB\xD6\xD9\xDC\xE8\x9F\x99";
static_assert(halfForms.size() == 28);

bool isHalfForm(char glyph) {
    return halfForms.find(glyph) != GlyphView::npos;
}

// Selects the glyphs before the caret; false, with nothing done, where the text has fewer. The
// caret may stand too close to the start all the same, and then this fails.
bool selectBefore(EditBox& box, Position count) {
    if (box.length() < count)
        return false;
    box.SelStart(box.SelStart() - count);
    box.SelLength(count);
    return true;
}

// Writes the selected glyphs back with the first two swapped, or as they are.
void writeBack(EditBox& box, GlyphString window, bool swapped) {
    if (swapped)
        std::swap(window[0], window[1]);
    box.SelText(window);
}

} // namespace

void InputEngine::chhoti_e_special() {
    EditBox& box = state_.txtMain;
    if (!selectBefore(box, 2))
        return;
    const GlyphString window = box.SelText();
    const char before = window[0];
    const char typed = window[1];
    if (typed == glyph::independentI) {
        box.SelText(window);
    } else if (before == glyph::reph && typed == glyph::shortI) {
        box.SelText(GlyphString(1, glyph::shortIReph));
        chhoti_e_special(); // once: the typed glyph is another now
    } else if (typed == glyph::shortIReph) {
        box.SelText(GlyphString{glyph::shortIReph, before});
        if (before == glyph::stroke)
            convert_123_to_213();
    } else {
        moveShortI(before, typed);
    }
}

// What is written is always the short-i sign, even where a rule has changed the typed glyph.
void InputEngine::moveShortI(char before, char typed) {
    state_.txtMain.SelText(GlyphString{glyph::shortI, before});
    if (typed == glyph::shortI && (before == glyph::stroke || before == glyph::raBelow))
        convert_123_to_213();
    else
        convert_123_to_213_spl();
}

void InputEngine::convert_123_to_213() {
    EditBox& box = state_.txtMain;
    if (!selectBefore(box, 3))
        return;
    writeBack(box, box.SelText(), true);
    convert_1234_to_2134();
}

void InputEngine::convert_123_to_213_spl() {
    EditBox& box = state_.txtMain;
    if (!selectBefore(box, 3))
        return;
    const GlyphString window = box.SelText();
    const char first = window[0];
    const char third = window[2];
    const bool isShortI = window[1] == glyph::shortI;
    const bool isBehindHalf = isHalfForm(first);
    const bool isInside =
        third == glyph::nukta || third == glyph::raCaret || first == glyph::halant;
    writeBack(box, window, isShortI && (isBehindHalf || isInside || first == glyph::halfTta));
    if (isShortI && isInside && !isBehindHalf)
        convert_1234_to_2134();
}

void InputEngine::convert_1234_to_2134() {
    EditBox& box = state_.txtMain;
    if (!selectBefore(box, 4))
        return;
    const GlyphString window = box.SelText();
    const bool mayMove = isHalfForm(window[0]) || window[2] == glyph::halant || window == "?fkz";
    writeBack(box, window, window[1] == glyph::shortI && mayMove);
}

} // namespace quillet
