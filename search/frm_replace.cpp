#include "search/frm_replace.h"

#include "platform/edit_box.h"
#include "platform/main_state.h"
#include "search/text_search.h"

#include <array>

namespace quillet {
namespace {

// clang-format off
constexpr std::array<ControlDesign, 6> controlDesigns = {{
    {ControlKind::Button,  "cmdcancel",     "Cancel",          {4080}, {720}, {1095}, {375}},
    {ControlKind::Button,  "cmdreplaceall", "Replace &All",    {4080}, {240}, {1095}, {375}},
    {ControlKind::TextBox, "txtreplace",    "",                {1320}, {720}, {2535}, {405},
     {krutiDev010, 12}},
    {ControlKind::TextBox, "txtwhat",       "",                {1320}, {240}, {2535}, {405},
     {krutiDev010, 12}},
    {ControlKind::Label,   "Label2",        "Re&place with:",  {240},  {720}, {975},  {195}},
    {ControlKind::Label,   "Label1",        "Fi&nd what:",     {240},  {240}, {735},  {195}},
}};
// clang-format on

constexpr FormDesign formDesign = {.name = "frmReplace",
                                   .caption = "Quilet: Replace", // spelt so deliberately
                                   .frame = FormFrame::Sizable,
                                   .width = {5550},
                                   .height = {1335},
                                   .controls = controlDesigns};

} // namespace

frmReplace::frmReplace(FormHost& forms, EditBox& txtMain)
    : Form(forms, formDesign),
      txtMain_(txtMain) {}

void frmReplace::cmdreplaceall_Click() {
    txtMain_.Text(
        replaceAll(txtMain_.buffer(), control("txtwhat").Text(), control("txtreplace").Text()));
}

void frmReplace::Form_Load() {
    control("cmdreplaceall").Click = [this] { cmdreplaceall_Click(); };
    control("cmdcancel").Click = [this] { cmdcancel_Click(); };
}

} // namespace quillet
