// The window with the Hindi news.
#pragma once

#include "platform/form.h"
#include "platform/web_browser.h"

namespace quillet {

class Screen;

/// The browser takes its place by the screen whenever the window is opened, and then
/// deliberately keeps it whatever size the window has.
class frmWeb : public Form {
  public:
    frmWeb(FormHost& forms, Screen& screen);

    WebBrowser wBrowser;
    std::string startPage;

  protected:
    void Form_Load() override;

  private:
    Screen& screen_;
};

} // namespace quillet
