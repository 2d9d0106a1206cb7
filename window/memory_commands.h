// The private text memory beside the clipboard.
#pragma once

namespace quillet {

struct MainState;

/// All of them work on the whole text, deliberately never on the selection, and none touches
/// `textboxused`.
class MemoryCommands {
  public:
    explicit MemoryCommands(MainState& state) : state_(state) {}

    void mnuAddMemory_Click();

    /// Adds the text on a line of its own, also an empty one.
    void mnuAppendMemory_Click();

    /// Adds the memory at the end of the document, deliberately not at the caret, on a line of its
    /// own; the caret goes to the start.
    void mnuPasteFromMemory_Click();

    void mnuEmptyMemory_Click();

  private:
    MainState& state_;
};

} // namespace quillet
