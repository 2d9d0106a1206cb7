#include "window/toolbar_table.h"

#include "window/frm_quillet.h"

#include <array>

namespace quillet {
namespace {

// clang-format off
constexpr std::array<ToolbarButton, 32> buttons = {{
    {"New",             "New",                                 "New"},
    {"Open",            "Open",                                "Open"},
    {"Save",            "Save",                                "Save"},
    {"Print",           "Print",                               "Print"},
    {},
    {"Cut",             "Cut",                                 "Cut"},
    {"Copy",            "Copy",                                "Copy"},
    {"Paste",           "Paste",                               "Paste"},
    {},
    {"Bold",            "Bold",                                "Bold"},
    {"Italic",          "Italic",                              "Italic"},
    {"Underline",       "Underline",                           "Underline"},
    {},
    {"ClearAll",        "Clear All Text",                      "ClearScreen"},
    {},
    {"KeyboardOld",     "Keyboard Old (Remington)",            "KeyboardRemington"},
    {"KeyboardNew",     "Keyboard Inscript",                   "KeyboardInscript"},
    {},
    {"Sentences",       "Count Lines",                         "Lines"},
    {"Characters",      "Count Characters",                    "Characters"},
    {"Words",           "Count Words",                         "Words"},
    {},
    {"AddMemory",       "Clear memory and add new text to it", "AddMemory"},
    {"AppendMemory",    "Append more text to memory",          "AppendMemory"},
    {"PasteFromMemory", "Paste text from memory",              "PasteFromMemory"},
    {"EmptyMemory",     "Empty memory",                        "ClearMemory"},
    {},
    {"Email",           "Email text",                          "Email"},
    {"Web",             "Surf Hindi News Website",             "Web"},
    {},
    {"Layout",          "Keyboard Layouts",                    "Layout"},
    {"Help",            "How to use Quillet",                  "Help"},
}};

constexpr std::array<ToolbarCommand, 25> commands = {{
    {"Open",            &frmQuillet::mnuOpen_Click},
    {"Save",            &frmQuillet::mnuSave_Click},
    {"Print",           &frmQuillet::mnuPrint_Click},
    {"Cut",             &frmQuillet::mnuCut_Click},
    {"Copy",            &frmQuillet::mnuCopy_Click},
    {"Paste",           &frmQuillet::mnuPaste_Click},
    {"Bold",            &frmQuillet::toggleBold},
    {"Italic",          &frmQuillet::toggleItalic},
    {"Underline",       &frmQuillet::toggleUnderline},
    {"ClearAll",        &frmQuillet::mnuClearAll_Click},
    {"KeyboardNew",     &frmQuillet::mnuInscript_Click},
    {"KeyboardOld",     &frmQuillet::mnuNormal_Click},
    {"Characters",      &frmQuillet::mnuCharacters_Click},
    {"Sentences",       &frmQuillet::mnuSentences_Click},
    {"Words",           &frmQuillet::mnuWords_Click},
    {"New",             &frmQuillet::mnuNew_Click},
    {"AddMemory",       &frmQuillet::mnuAddMemory_Click},
    {"AppendMemory",    &frmQuillet::mnuAppendMemory_Click},
    {"PasteFromMemory", &frmQuillet::mnuPasteFromMemory_Click},
    {"EmptyMemory",     &frmQuillet::mnuEmptyMemory_Click},
    {"Convert",         &frmQuillet::ConvertToPdf},
    {"Email",           &frmQuillet::mnuSendMail_Click},
    {"Web",             &frmQuillet::mnuSurfNews_Click},
    {"Layout",          &frmQuillet::mnuLayouts_Click},
    {"Help",            &frmQuillet::mnuTips_Click},
}};
// clang-format on

} // namespace

std::span<const ToolbarButton> toolbarButtons() {
    return buttons;
}

std::span<const ToolbarCommand> toolbarCommands() {
    return commands;
}

} // namespace quillet
