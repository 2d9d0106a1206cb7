// The Replace window.
#pragma once

#include "platform/form.h"

namespace quillet {

class EditBox;

/// Replaces every occurrence in the box at once, and stays open.
class frmReplace : public Form {
  public:
    frmReplace(FormHost& forms, EditBox& txtMain);

    /// Always assigns the text, so that the caret goes to its start also where nothing matches.
    void cmdreplaceall_Click();
    void cmdcancel_Click() { unload(); }

  protected:
    void Form_Load() override;

  private:
    EditBox& txtMain_;
};

} // namespace quillet
