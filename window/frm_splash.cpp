#include "window/frm_splash.h"

#include <array>

namespace quillet {
namespace {

constexpr std::int16_t ticksBefore = 5; // the main window comes at the next one

constexpr std::array<ControlDesign, 2> controlDesigns = {{
    {.kind = ControlKind::Picture,
     .name = "Image1",
     .caption = "Splash",
     .left = {0},
     .top = {0},
     .width = {5400},
     .height = {4230}},
    {.kind = ControlKind::Timer, .name = "Timer1", .interval = 1000},
}};

constexpr FormDesign formDesign = {.name = "frmSplash",
                                   .caption = "",
                                   .frame = FormFrame::Splash,
                                   .width = {5370},
                                   .height = {4305},
                                   .controls = controlDesigns};

} // namespace

frmSplash::frmSplash(FormHost& forms, Form& mainWindow)
    : Form(forms, formDesign),
      mainWindow_(mainWindow) {}

void frmSplash::Timer1_Timer() {
    if (ticks_ != ticksBefore) {
        ++ticks_;
        return;
    }
    mainWindow_.show();
    unload();
}

void frmSplash::Form_Load() {
    ticks_ = 0;
    control("Timer1").Click = [this] { Timer1_Timer(); };
}

} // namespace quillet
