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
    for (const GlyphView part : state_.txtMain.spans())
        memory += part;
}

void MemoryCommands::mnuPasteFromMemory_Click() {
    GapBuffer text;
    const auto add = [&text](GlyphView part) { text.replace(text.size(), 0, part); };
    for (const GlyphView part : state_.txtMain.spans())
        add(part);
    if (text.size() != 0)
        add(lineBreak);
    add(state_.memory_box);
    state_.txtMain.Text(std::move(text));
}

void MemoryCommands::mnuEmptyMemory_Click() {
    state_.memory_box.clear();
}

} // namespace quillet
