// The context menu of the editing box.
#pragma once

#include "window/menu_table.h"

#include <span>

namespace quillet {

class EditBox;

struct ContextRow {
    const char* caption; // "-" alone is a separator
    Command command = nullptr;
    bool (*isEnabled)(const EditBox& box) = nullptr;
};

std::span<const ContextRow> contextMenu();

} // namespace quillet
