#include "window/memory_commands.h"

#include "platform/main_state.h"

namespace quillet {

void MemoryCommands::mnuAddMemory_Click() {
    state_.memory_box = state_.txtMain.Text();
}

void MemoryCommands::mnuAppendMemory_Click() {
    GlyphString& memory = state_.memory_box;
    if (!memory.empty())
        memory += lineBreak;
    for (const GlyphView part : state_.txtMain.spans())
        memory += part;
}

void MemoryCommands::mnuPasteFromMemory_Click() {
    GlyphString text = state_.txtMain.Text();
    if (!text.empty())
        text += lineBreak;
    text += state_.memory_box;
    state_.txtMain.Text(text);
}

void MemoryCommands::mnuEmptyMemory_Click() {
    state_.memory_box.clear();
}

} // namespace quillet
