#include "window/context_menu.h"

#include "window/frm_quillet.h"

#include <array>

namespace quillet {
namespace {

bool always(const EditBox& /*box*/) {
    return true;
}

bool canUndo(const EditBox& box) {
    return box.canUndo();
}

bool canRedo(const EditBox& box) {
    return box.canRedo();
}

bool hasSelection(const EditBox& box) {
    return box.SelLength() != 0;
}

bool hasText(const EditBox& box) {
    return box.length() != 0;
}

// clang-format off
constexpr std::array<ContextRow, 9> rows = {{
    {"&Undo",       &frmQuillet::undo,               canUndo},
    {"&Redo",       &frmQuillet::redo,               canRedo},
    {"-"},
    {"Cu&t",        &frmQuillet::mnuCut_Click,       hasSelection},
    {"&Copy",       &frmQuillet::mnuCopy_Click,      hasSelection},
    {"&Paste",      &frmQuillet::mnuPaste_Click,     always},
    {"&Delete",     &frmQuillet::deleteSelection,    hasSelection},
    {"-"},
    {"Select &All", &frmQuillet::mnuSelectAll_Click, hasText},
}};
// clang-format on

} // namespace

std::span<const ContextRow> contextMenu() {
    return rows;
}

} // namespace quillet
