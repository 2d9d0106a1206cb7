#include "window/menu_table.h"

#include "platform/key_codes.h"
#include "window/frm_quillet.h"

#include <algorithm>
#include <array>

namespace quillet {
namespace {

// clang-format off
constexpr std::array<MenuRow, 60> rows = {{
    {0, "mnuFile",             "&File"},
    {1, "mnuNew",              "New",                'N', &frmQuillet::mnuNew_Click},
    {1, "mnuOpen",             "Open",               'O', &frmQuillet::mnuOpen_Click},
    {1, "mnuSeparatorFile1",   "-"},
    {1, "mnuSave",             "Save",               0,   &frmQuillet::mnuSave_Click},
    {1, "mnuSaveAs",           "Save As",            'S', &frmQuillet::mnuSaveAs_Click},
    {1, "mnuSeparaterFile2",   "-"},
    {1, "mnuPrint",            "Print",              'P', &frmQuillet::mnuPrint_Click},
    {1, "mnuClose",            "Close",              0,   &frmQuillet::mnuClose_Click},
    {1, "mnuSeparaterFile3",   "-"},
    {1, "mnuExit",             "Exit",               'E', &frmQuillet::mnuExit_Click},

    {0, "mnuEdit",             "&Edit"},
    {1, "mnuCut",              "Cut",                'X', &frmQuillet::mnuCut_Click},
    {1, "mnuCopy",             "Copy",               'C', &frmQuillet::mnuCopy_Click},
    {1, "mnuPaste",            "Paste",              'V', &frmQuillet::mnuPaste_Click},
    {1, "mnuSpaceEdit",        "-"},
    {1, "mnuSelectAll",        "Select All",         'A', &frmQuillet::mnuSelectAll_Click},
    {1, "mnuClearAll",         "Clear All",          'L', &frmQuillet::mnuClearAll_Click},
    {1, "mnuSpacerEdit1",      "-"},
    {1, "mnuFind",             "Find",               'F', &frmQuillet::mnuFind_Click},
    {1, "mnuReplace",          "Replace",            'R', &frmQuillet::mnuReplace_Click},

    {0, "mnuKeyboard",         "&Keyboard"},
    {1, "mnuInscript",         "Inscript",           'I', &frmQuillet::mnuInscript_Click},
    {1, "mnuNormal",           "Old Style",          'D', &frmQuillet::mnuNormal_Click},

    {0, "mnuFormat",           "F&ormat"},
    {1, "mnuChangeFont",       "Change Font"},
    {2, "mnuArial",            "&Arial",             0,   &frmQuillet::mnuArial_Click},
    {2, "mnuKruti10",          "&Kruti Dev 010",     0,   &frmQuillet::mnuKruti10_Click},
    {2, "mnuKruti20",          "&Kruti Dev 020",     0,   &frmQuillet::mnuKruti20_Click},
    {1, "mnuChangeFontSize",   "&Change Font Size"},
    {2, "mnuFontSize8",        "8",                  0,   &frmQuillet::mnuFontSize8_Click},
    {2, "mnuFontSize10",       "10",                 0,   &frmQuillet::mnuFontSize10_Click},
    {2, "mnuFontSize12",       "12",                 0,   &frmQuillet::mnuFontSize12_Click},
    {2, "mnuFontSize14",       "14",                 0,   &frmQuillet::mnuFontSize14_Click},
    {2, "mnuFontSize16",       "16",                 0,   &frmQuillet::mnuFontSize16_Click},
    {2, "mnuFontSize20",       "20",                 0,   &frmQuillet::mnuFontSize20_Click},
    {2, "mnuFontSize24",       "24",                 0,   &frmQuillet::mnuFontSize24_Click},
    {2, "mnuFontSize28",       "28",                 0,   &frmQuillet::mnuFontSize28_Click},
    {2, "mnuFontSize32",       "32",                 0,   &frmQuillet::mnuFontSize32_Click},
    {2, "mnuFontSize36",       "36",                 0,   &frmQuillet::mnuFontSize36_Click},
    {2, "mnuFontSize40",       "40",                 0,   &frmQuillet::mnuFontSize40_Click},
    {1, "mnuFontUsed",         "Font In Use",        0,   &frmQuillet::mnuFontUsed_Click},
    {1, "mnuKeyboardUsed",     "&Keyboard In Use",   'K', &frmQuillet::mnuKeyboardUsed_Click},

    {0, "mnuCalculate",        "&Calculate"},
    {1, "mnuWords",            "&Words",             'W', &frmQuillet::mnuWords_Click},
    {1, "mnuCharacters",       "C&haracters",        'H', &frmQuillet::mnuCharacters_Click},
    {1, "mnuSentences",        "&Sentences",         'Y', &frmQuillet::mnuSentences_Click},

    {0, "mnuWeb",              "&Web"},
    {1, "mnuSendMail",         "&Send Mail",        0,   &frmQuillet::mnuSendMail_Click},
    {1, "mnuSurfNews",         "&Surf Hindi News",  0,   &frmQuillet::mnuSurfNews_Click},

    {0, "mnuClipboard",        "&Memory"},
    {1, "mnuAddMemory",        "&Put to memory",     0,   &frmQuillet::mnuAddMemory_Click},
    {1, "mnuAppendMemory",     "&Append to memory",  0,   &frmQuillet::mnuAppendMemory_Click},
    {1, "mnuPasteFromMemory",  "Paste &from memory", 0,   &frmQuillet::mnuPasteFromMemory_Click},
    {1, "mnuEmptyMemory",      "&Empty memory",      0,   &frmQuillet::mnuEmptyMemory_Click},

    {0, "mnuHelp",             "&Help"},
    {1, "mnuTips",             "&How to use Quillet", 0, &frmQuillet::mnuTips_Click},
    {1, "mnuLayouts",          "&Keyboard Layouts", 0,   &frmQuillet::mnuLayouts_Click},
    {1, "mnuAbout",            "About &Quillet",     'M', &frmQuillet::mnuAbout_Click},
    {1, "mnuVisitSite",        "&Visit Website",    0,   &frmQuillet::mnuVisitSite_Click},
}};

// What text boxes everywhere offer beside Ctrl+X, C and V.
constexpr std::array<KeyCommand, 3> boxKeys = {{
    {key::del,    modifier::shift, &frmQuillet::mnuCut_Click,   true},
    {key::insert, modifier::ctrl,  &frmQuillet::mnuCopy_Click,  true},
    {key::insert, modifier::shift, &frmQuillet::mnuPaste_Click, true},
}};

// The commands whose shortcuts the box sees too.
constexpr std::array<Command, 5> boxCommands = {
    &frmQuillet::mnuCut_Click,       &frmQuillet::mnuCopy_Click, &frmQuillet::mnuPaste_Click,
    &frmQuillet::mnuSelectAll_Click, &frmQuillet::mnuClearAll_Click,
};
// clang-format on

} // namespace

std::span<const MenuRow> menuTable() {
    return rows;
}

std::optional<KeyCommand> findKeyCommand(std::int16_t keyCode, std::int16_t shift) {
    for (const KeyCommand& row : boxKeys)
        if (row.keyCode == keyCode && row.shift == shift)
            return row;
    if (shift != modifier::ctrl)
        return std::nullopt;
    for (const MenuRow& row : rows) {
        if (row.shortcut == 0 || row.shortcut != keyCode)
            continue;
        const bool throughBox =
            std::find(boxCommands.begin(), boxCommands.end(), row.command) != boxCommands.end();
        return KeyCommand{keyCode, shift, row.command, throughBox};
    }
    return std::nullopt;
}

} // namespace quillet
