#include "window/memory_commands.h"

#include "platform/main_state.h"

#include <utility>

namespace quillet {

void MemoryCommands::mnuAddMemory_Click() {
    state_.memory_box = state_.txtMain.Text();
}

void MemoryCommands::mnuAppendMemory_Click() {
    GlyphString& memory = state_.memory_box;
    const auto length = static_cast<std::size_t>(state_.txtMain.length());
    memory.reserve(memory.size() + lineBreak.size() + length); // all of it fits, or nothing changes
    if (!memory.empty())
        memory += lineBreak;
    for (const GlyphView part : state_.txtMain.buffer().spans())
        memory += part;
}

void MemoryCommands::mnuPasteFromMemory_Click() {
    TextBuffer text;
    for (const GlyphView part : state_.txtMain.buffer().spans())
        text.append(part);
    if (text.size() != 0)
        text.append(lineBreak);
    text.append(state_.memory_box);
    state_.txtMain.Text(std::move(text));
}

void MemoryCommands::mnuEmptyMemory_Click() {
    state_.memory_box.clear();
}

} // namespace quillet
