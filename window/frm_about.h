// The About window.
#pragma once

#include "platform/form.h"

namespace quillet {

class frmAbout : public Form {
  public:
    explicit frmAbout(FormHost& forms);

    void cmdClose_Click() { unload(); }

  protected:
    void Form_Load() override;
};

} // namespace quillet
