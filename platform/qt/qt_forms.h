// The native windows of the program's forms.
#pragma once

#include "platform/form_host.h"

#include <map>

class QWidget;

namespace quillet {

/// Makes a window when a form is shown and drops it when the form disappears. The program ends
/// when no window is left.
class QtForms : public FormHost {
  public:
    void show(Form& form) override;
    void hide(Form& form) override;
    void captionChanged(Form& form) override;

    /// Drops all windows, while the forms that they show still live.
    void dropWindows();

  private:
    std::map<Form*, QWidget*> windows_;
};

} // namespace quillet
