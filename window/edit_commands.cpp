#include "window/edit_commands.h"

#include "platform/clipboard.h"
#include "platform/desktop.h"

namespace quillet {

EditCommands::EditCommands(MainState& state, const Desktop& desktop)
    : state_(state),
      clipboard_(desktop.clipboard) {}

void EditCommands::mnuCut_Click() {
    mnuCopy_Click();
    state_.txtMain.SelText("");
}

void EditCommands::mnuCopy_Click() {
    clipboard_.setText(state_.txtMain.SelText());
}

void EditCommands::mnuPaste_Click() {
    state_.txtMain.SelText(clipboard_.text());
}

void EditCommands::mnuSelectAll_Click() {
    state_.txtMain.SelStart(0);
    state_.txtMain.SelLength(state_.txtMain.length());
}

void EditCommands::mnuClearAll_Click() {
    state_.txtMain.Text("");
}

} // namespace quillet
