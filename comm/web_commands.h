// The commands that lead to web pages: the news, the help pages and the website.
#pragma once

#include "comm/frm_web.h"
#include "comm/module1.h"

namespace quillet {

struct Desktop;

class WebCommands {
  public:
    explicit WebCommands(const Desktop& desktop);

    /// Announces the news and shows their window, or brings it forward as it is.
    void mnuSurfNews_Click();

    /// Open a page in the system's browser.
    void mnuTips_Click();
    void mnuLayouts_Click();
    void mnuVisitSite_Click();

    frmWeb& webWindow() { return web_; }

  private:
    MessageBox& messageBox_;
    Module1 module1_;
    frmWeb web_;
};

} // namespace quillet
