#include "window/frm_about.h"

#include "comm/fixed_addresses.h"

#include <array>

namespace quillet {
namespace {

const std::array<ControlDesign, 6> controls = {{
    {ControlKind::Picture, "imgProduct", "Product", {240}, {240}, {960}, {960}},
    {ControlKind::Label,
     "lblProduct",
     "Quillet",
     {1440},
     {240},
     {4320},
     {960},
     {nullptr, 28, true}},
    {ControlKind::Label,
     "lblDescription",
     "A basic word processor for languages written in Devanagari: Hindi, Sanskrit, Marathi, "
     "Konkani, Nepali and others. Type with the official Inscript keyboard.",
     {240},
     {1380},
     {5520},
     {900}},
    {ControlKind::Label, "lblDeveloper", "The Quillet developers", {240}, {2340}, {5520}, {300}},
    {ControlKind::Label, "lblWebsite", website, {240}, {2640}, {5520}, {300}},
    {ControlKind::Button, "cmdClose", "&Close", {4560}, {3120}, {1200}, {420}},
}};

const FormDesign aboutDesign = {"frmAbout", "About Quillet", FormFrame::Fixed,
                                {6000},     {3780},          controls};

} // namespace

frmAbout::frmAbout(FormHost& forms) : Form(forms, aboutDesign) {}

void frmAbout::Form_Load() {
    control("cmdClose").Click = [this] { cmdClose_Click(); };
}

} // namespace quillet
