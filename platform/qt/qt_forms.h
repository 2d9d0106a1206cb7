// The native windows of the program's forms.
#pragma once

#include "platform/form_host.h"

#include <map>
#include <memory>

class QWidget;

namespace quillet {

class BrowserProcess;
class frmWeb;

/// Makes a window when a form is shown and drops it when the form disappears. The program ends
/// when no window is left.
class QtForms : public FormHost {
  public:
    QtForms();
    ~QtForms() override;

    void show(Form& form) override;
    void hide(Form& form) override;
    void captionChanged(Form& form) override;

    /// Drops all windows, while the forms that they show still live.
    void dropWindows();

  private:
    void showWeb(frmWeb& form);
    void dropWindow(Form& form);

    std::map<Form*, QWidget*> windows_;
    std::unique_ptr<BrowserProcess> browser_; // while its form is shown
};

} // namespace quillet
