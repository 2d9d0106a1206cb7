// Stand-ins for the desktop, which keep what they were asked as text.
#pragma once

#include "platform/form.h"
#include "platform/form_host.h"

#include <string>
#include <vector>

namespace quillet {

/// A desktop without windows.
class FakeForms : public FormHost {
  public:
    void show(Form& form) override { note("show", form); }
    void hide(Form& form) override { note("hide", form); }
    void captionChanged(Form& form) override { note("caption", form); }

    std::vector<std::string> calls; // such as "show frmSpl"

  private:
    void note(const char* call, const Form& form) {
        calls.push_back(std::string(call) + ' ' + form.design().name);
    }
};

} // namespace quillet
