#include "engine/frm_spl.h"

#include "base/glyph_string.h"
#include "platform/edit_box.h"
#include "platform/main_state.h"

#include <array>

namespace quillet {
namespace {

constexpr const char* listName = "cmbSpecial";

// "W" stands twice on purpose, in the fourth and in the last place.
constexpr GlyphView specialGlyphs = "$@GW(!Z^`sz\xAA\xB7\xB3\xDB\xE5\x83"
                                    "\x84\x85\x86\x87\x88\x89\x8A\x8BW";
static_assert(specialGlyphs.size() == 26);

constexpr Twips width{1500};
constexpr Twips height{600};

constexpr std::array<ControlDesign, 1> controlDesigns = {{
    {ControlKind::DropDownList,
     listName,
     "ugha",
     {0},
     {0},
     width,
     height,
     {krutiDev010, 20.25, true}},
}};

constexpr FormDesign formDesign = {.name = "frmSpl",
                                   .caption = "Chars",
                                   .frame = FormFrame::Fixed,
                                   .width = width,
                                   .height = height,
                                   .controls = controlDesigns};

} // namespace

frmSpl::frmSpl(FormHost& forms, EditBox& txtMain) : Form(forms, formDesign), txtMain_(txtMain) {}

void frmSpl::cmbSpecial_Click() {
    const Control& list = control(listName);
    const GlyphString chosen = list.List.at(static_cast<std::size_t>(list.ListIndex));
    txtMain_.SelStart(txtMain_.SelStart() - 2);
    txtMain_.SelLength(2);
    txtMain_.SelText(chosen);
    hide();
}

void frmSpl::Form_Load() {
    Control& list = control(listName);
    for (const char special : specialGlyphs)
        list.List.emplace_back(1, special);
    list.Click = [this] { cmbSpecial_Click(); };
}

void frmSpl::Form_Unload(std::int16_t& Cancel) {
    Cancel = 1;
    hide();
}

} // namespace quillet
