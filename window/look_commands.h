// Fonts, sizes, styles and keyboard modes, and what is said of them.
#pragma once

#include <string>

namespace quillet {

class MessageBox;
struct MainState;

/// None of them changes the text or `textboxused`.
class LookCommands {
  public:
    LookCommands(MainState& state, MessageBox& messageBox)
        : state_(state),
          messageBox_(messageBox) {}

    /// Set the keyboard mode for the next key; the font stays.
    void mnuInscript_Click();
    void mnuNormal_Click();

    /// Set the font of the whole text and deliberately the keyboard mode that goes with it as
    /// well. Size and style stay.
    void mnuArial_Click();
    void mnuKruti10_Click();
    void mnuKruti20_Click();

    /// Set the size of the whole text, in points.
    void mnuFontSize8_Click() { setSize(8); }
    void mnuFontSize10_Click() { setSize(10); }
    void mnuFontSize12_Click() { setSize(12); }
    void mnuFontSize14_Click() { setSize(14); }
    void mnuFontSize16_Click() { setSize(16); }
    void mnuFontSize20_Click() { setSize(20); }
    void mnuFontSize24_Click() { setSize(24); }
    void mnuFontSize28_Click() { setSize(28); }
    void mnuFontSize32_Click() { setSize(32); }
    void mnuFontSize36_Click() { setSize(36); }
    void mnuFontSize40_Click() { setSize(40); }

    /// Turn a style of the whole text on or off.
    void toggleBold();
    void toggleItalic();
    void toggleUnderline();

    /// Tell the font chosen last, installed or not, and the keyboard mode.
    void mnuFontUsed_Click();
    void mnuKeyboardUsed_Click();

  private:
    void setFont(const char* name, const char* keyboardMode);
    void setSize(double points);
    void tell(const std::string& text, const char* title);

    MainState& state_;
    MessageBox& messageBox_;
};

} // namespace quillet
