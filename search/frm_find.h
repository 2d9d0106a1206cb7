// The Find window.
#pragma once

#include "platform/form.h"

#include <cstdint>

namespace quillet {

class EditBox;
class MessageBox;

/// Selects one match after the other in the box, exactly and with regard to case. Deliberately,
/// the window goes with the first search that fails, and is loaded again at once, hidden: the
/// next time it is shown its button reads "Find Next" all the same.
class frmFind : public Form {
  public:
    frmFind(FormHost& forms, MessageBox& messageBox, EditBox& txtMain);

    /// Selects the first match from the 1-based place `startwhere` on and moves `position` behind
    /// it. Says so and unloads the window where there is none, or where `position` would go
    /// beyond 32,767, a deliberate limit; the match is selected then all the same.
    void find_word(std::int16_t startwhere);

    void cmdfind_Click();
    void cmdcancel_Click() { unload(); }

    std::int16_t position = 1; // where the next search starts, 1-based
    bool clicked = false;      // Find was clicked; nothing asks

  protected:
    void Form_Load() override;

  private:
    void selectMatch(std::int16_t startwhere);

    MessageBox& messageBox_;
    EditBox& txtMain_;
};

} // namespace quillet
