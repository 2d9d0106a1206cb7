// Cut, Copy, Paste and the other commands on the text of the box.
#pragma once

#include "platform/main_state.h"

namespace quillet {

class Clipboard;
struct Desktop;

/// None of them touches `textboxused`: only keys count as changes.
class EditCommands {
  public:
    EditCommands(MainState& state, const Desktop& desktop);

    /// With nothing selected the clipboard receives the empty text.
    void mnuCut_Click();
    void mnuCopy_Click();

    /// Without text on the clipboard the selection is deleted.
    void mnuPaste_Click();

    void mnuSelectAll_Click();

    /// Empties the box at once, without a question.
    void mnuClearAll_Click();

    // The box's own entries of its context menu.
    void undo() { state_.txtMain.undo(); }
    void redo() { state_.txtMain.redo(); }
    void deleteSelection() { state_.txtMain.SelText(""); }

  private:
    MainState& state_;
    Clipboard& clipboard_;
};

} // namespace quillet
