#include "comm/frm_web.h"

#include "comm/fixed_addresses.h"
#include "platform/screen.h"

namespace quillet {
namespace {

constexpr FormDesign webDesign = {
    "frmWeb", "Quillet: Surf Hindi News", FormFrame::Maximized, {}, {}, {}};

} // namespace

frmWeb::frmWeb(FormHost& forms, Screen& screen)
    : Form(forms, webDesign),
      startPage(newsSite),
      screen_(screen) {}

void frmWeb::Form_Load() {
    const auto width = static_cast<float>(screen_.width().value);
    const auto height = static_cast<float>(screen_.height().value);
    wBrowser.Left = 100;
    wBrowser.Top = 150;
    wBrowser.Height = height - height / 9;
    wBrowser.Width = width - width / 80;
    wBrowser.Navigate2(startPage);
}

} // namespace quillet
