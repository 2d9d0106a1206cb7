// Keyboard modes and the style of the box.
#pragma once

#include "platform/main_state.h"

namespace quillet {

/// None of them changes the text or `textboxused`.
class LookCommands {
  public:
    explicit LookCommands(MainState& state) : state_(state) {}

    /// Set the keyboard mode for the next key; the font stays.
    void mnuInscript_Click() { state_.keyboard = inscriptMode; }
    void mnuNormal_Click() { state_.keyboard = normalMode; }

    /// Turn a style of the whole text on or off.
    void toggleBold() { state_.txtMain.FontBold(!state_.txtMain.FontBold()); }
    void toggleItalic() { state_.txtMain.FontItalic(!state_.txtMain.FontItalic()); }
    void toggleUnderline() { state_.txtMain.FontUnderline(!state_.txtMain.FontUnderline()); }

  private:
    MainState& state_;
};

} // namespace quillet
