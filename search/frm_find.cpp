#include "search/frm_find.h"

#include "base/int16.h"
#include "platform/edit_box.h"
#include "platform/main_state.h"
#include "platform/message_box.h"
#include "search/text_search.h"

#include <array>

namespace quillet {
namespace {

// clang-format off
constexpr std::array<ControlDesign, 4> controlDesigns = {{
    {ControlKind::Button,  "cmdcancel", "&Cancel",   {4200}, {840}, {1095}, {375}},
    {ControlKind::Button,  "cmdfind",   "&Find ",    {4200}, {240}, {1095}, {375}},
    {ControlKind::TextBox, "txtfind",   "",          {1080}, {240}, {2895}, {405},
     {krutiDev010, 12}},
    {ControlKind::Label,   "Label1",    "Find What", {240},  {240}, {735},  {195}},
}};
// clang-format on

constexpr FormDesign formDesign = {.name = "frmFind",
                                   .caption = "Quillet: Find",
                                   .frame = FormFrame::Sizable,
                                   .width = {5730},
                                   .height = {1380},
                                   .controls = controlDesigns};

// Where `what` first stands from the place `start` on, both 1-based; 0 where it does not.
Position findFrom(const EditBox& box, Position start, GlyphView what) {
    if (start < 1 || start > box.length())
        return 0;
    if (what.empty())
        return start;
    const auto found = findText(box.buffer(), start - 1, what);
    return found ? *found + 1 : 0;
}

} // namespace

frmFind::frmFind(FormHost& forms, MessageBox& messageBox, EditBox& txtMain)
    : Form(forms, formDesign),
      messageBox_(messageBox),
      txtMain_(txtMain) {}

void frmFind::find_word(std::int16_t startwhere) {
    try {
        selectMatch(startwhere);
    } catch (const std::exception&) {
        messageBox_.show({.text = "No further matches found.", .title = "Quillet: Find Next"});
        unload();
    }
}

void frmFind::cmdfind_Click() {
    find_word(position);
    clicked = true;
    control("cmdfind").Caption("Find Next"); // this loads the window again if it has gone
}

void frmFind::Form_Load() {
    position = 1;
    control("cmdfind").Click = [this] { cmdfind_Click(); };
    control("cmdcancel").Click = [this] { cmdcancel_Click(); };
}

// Without a match the box refuses the place before its first one.
void frmFind::selectMatch(std::int16_t startwhere) {
    const GlyphString what = control("txtfind").Text();
    const auto length = static_cast<Position>(what.size());
    const Position at = findFrom(txtMain_, startwhere, what);
    txtMain_.SelStart(at - 1);
    txtMain_.SelLength(length);
    position = toInt16(std::int64_t{at} + length);
}

} // namespace quillet
