// The input engine: keystrokes in, glyphs in visual order out.
#pragma once

#include "base/glyph_string.h"
#include "engine/frm_spl.h"

#include <cstdint>
#include <string>

namespace quillet {

struct MainState;

/// The part of the main window that serves the keys of `txtMain`. A press gives one glyph in place
/// of the typed character; a release adds the second glyph of a two-glyph key and then rewrites
/// the last few glyphs before the caret. The procedures meet only in the box and in the variables
/// of `MainState`, both of which must outlive the engine.
class InputEngine {
  public:
    InputEngine(MainState& state, FormHost& forms);

    /// Notes that Ctrl is held. `Shift` is a mask of `modifier` bits.
    void txtMain_KeyDown(std::int16_t KeyCode, std::int16_t Shift);

    /// Marks the document as changed, whatever the key, and turns the typed character into the
    /// one to insert. In Normal mode a second "z" in a row opens the special characters.
    void txtMain_KeyPress(std::int16_t& KeyAscii);

    /// Rewrites the glyphs before the caret, in Inscript mode only. A step that fails is skipped
    /// silently and the next one runs.
    void txtMain_KeyUp(std::int16_t KeyCode, std::int16_t Shift);

    /// The decimal text of the glyph code that the character types. Leaves the second code of a
    /// two-glyph key in `spl_case`; other keys do not clear it.
    std::string fetch_kruti_character(const std::int16_t& input_char);

    /// Rewrites the up to five glyphs before the caret by the ordered rules. Where the rewrite
    /// fails those glyphs stay as they are, selected, and the next key replaces them.
    void check_keyup();

    /// Applies the rules to `txt_check` in place and returns it.
    GlyphString check_mixed_chars(GlyphString& txt_check);

    /// Moves the first reph of `text_check` one glyph to the right, but not over a space; returns
    /// the text. Fails with `InvalidProcedureCall` where nothing follows the reph.
    GlyphString check_halant_ref_special(GlyphString& text_check);

    /// Moves the short-i sign before the caret in front of its consonant cluster. It and the four
    /// procedures below it look at the glyphs directly before the caret; they do nothing where
    /// the whole text is shorter than that, and fail with `InvalidPropertyValue`, the text as it
    /// is by then, where the caret stands closer to the start.
    void chhoti_e_special();

    /// Swaps the first two of three glyphs, then looks at four.
    void convert_123_to_213();

    /// Swaps them only behind a half form or a halant, or before a nukta or ra.
    void convert_123_to_213_spl();

    /// Swaps the first two of four glyphs behind a half form or before a halant.
    void convert_1234_to_2134();

    /// Opens the special characters if the caret stands behind the glyphs of two "z" keys. No key
    /// calls it. Fails with `InvalidProcedureCall` with fewer than two glyphs before the caret.
    void spl_char_check();

    /// The window of special characters.
    frmSpl& specialCharacters() { return specialCharacters_; }

  private:
    void insert_spl_case();
    void noteZ(bool isZ);
    void moveShortI(char before, char typed);

    MainState& state_;
    frmSpl specialCharacters_;
};

} // namespace quillet
