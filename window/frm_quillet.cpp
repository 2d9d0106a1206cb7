#include "window/frm_quillet.h"

#include "base/run_time_error.h"
#include "platform/message_box.h"
#include "platform/screen.h"
#include "window/toolbar_table.h"

#include <algorithm>

namespace quillet {
namespace {

constexpr FormDesign mainDesign = {"frmQuillet",
                                   "Quillet: Inscript Based Basic Devnagari Word Processor",
                                   FormFrame::Maximized,
                                   {},
                                   {},
                                   {}};

} // namespace

frmQuillet::frmQuillet(const Desktop& desktop)
    : MainState(desktop, mainDesign),
      InputEngine(*this, desktop.forms),
      DocumentFiles(*this, desktop),
      EditCommands(*this, desktop),
      MemoryCommands(static_cast<MainState&>(*this)), // a plain *this would mean to copy
      LookCommands(*this, desktop.messageBox),
      Counting(*this, desktop.messageBox),
      PrintCommand(*this, desktop),
      ConvertCommand(*this, desktop),
      SendMail(*this, desktop),
      WebCommands(desktop),
      screen_(desktop.screen),
      messageBox_(desktop.messageBox),
      makeMailComponent_(desktop.makeMailComponent),
      find_(desktop.forms, desktop.messageBox, txtMain),
      replace_(desktop.forms, txtMain),
      about_(desktop.forms) {
    txtMain.KeyDown = [this](auto KeyCode, auto Shift) { txtMain_KeyDown(KeyCode, Shift); };
    txtMain.KeyPress = [this](auto& KeyAscii) { txtMain_KeyPress(KeyAscii); };
    txtMain.KeyUp = [this](auto KeyCode, auto Shift) { txtMain_KeyUp(KeyCode, Shift); };
}

void frmQuillet::Toolbar1_ButtonClick(std::string_view Key) {
    const auto commands = toolbarCommands();
    const auto row = std::find_if(commands.begin(), commands.end(),
                                  [Key](const ToolbarCommand& it) { return Key == it.key; });
    if (row != commands.end())
        resumeNext([&] { (this->*row->command)(); });
}

void frmQuillet::Form_Load() {
    FontUsed = krutiDev010;
    keyboard = inscriptMode;
    layOut();
    IsCharz = false;
    NewFile = true;
    mailComponent = makeMailComponent_();
}

void frmQuillet::Form_Unload(std::int16_t& /*Cancel*/) {
    if (!textboxused)
        return;
    const Answer answer =
        messageBox_.show({.text = "Do you want to save the file?", .buttons = Buttons::YesNo});
    if (answer == Answer::Yes)
        mnuSaveAs_Click();
    throw EndOfProgram{};
}

// By the size of the screen, deliberately not of the window: in a small window the box goes on
// beyond the edges.
void frmQuillet::layOut() {
    const Twips screenWidth = screen_.width();
    const Twips screenHeight = screen_.height();
    txtMain.Left({100});
    txtMain.Top({550}); // room for the toolbar
    txtMain.Height(screenHeight - screenHeight / 6);
    txtMain.Width(screenWidth - screenWidth / 80);
}

} // namespace quillet
