// The window of special characters.
#pragma once

#include "platform/form.h"

namespace quillet {

class EditBox;

/// A list of glyphs that are awkward to type. The chosen one takes the place of the two glyphs
/// before the caret of the box, normally the two "z" that opened the window.
///
/// The list's entries are glyph codes, one byte each and not UTF-8: the desktop shows them as
/// their Windows-1252 characters.
class frmSpl : public Form {
  public:
    frmSpl(FormHost& forms, EditBox& txtMain);

    /// Inserts the chosen entry and hides the window. Only after a choice. With fewer than two
    /// glyphs before the caret it fails with `InvalidPropertyValue` and changes nothing.
    void cmbSpecial_Click();

  protected:
    void Form_Load() override;

    /// The close box only hides the window, so that it keeps the chosen entry.
    void Form_Unload(std::int16_t& Cancel) override;

  private:
    EditBox& txtMain_;
};

} // namespace quillet
