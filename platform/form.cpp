#include "platform/form.h"

#include "base/run_time_error.h"
#include "platform/form_host.h"

#include <algorithm>

namespace quillet {

void Control::Caption(std::string caption) {
    caption_ = std::move(caption);
    if (Changed)
        Changed();
}

void Control::Text(GlyphString text) {
    text_ = std::move(text);
    if (Changed)
        Changed();
}

void Control::click() {
    const auto handler = Click; // a copy, because the handler may end this control
    if (handler)
        handler();
}

void Control::choose(int index) {
    ListIndex = index;
    click();
}

Form::Form(FormHost& host, const FormDesign& design)
    : host_(host),
      design_(design),
      caption_(design.caption) {}

void Form::Caption(std::string caption) {
    caption_ = std::move(caption);
    if (loaded_)
        host_.captionChanged(*this);
}

Control& Form::control(std::string_view name) {
    load();
    const auto found = std::find_if(controls_.begin(), controls_.end(),
                                    [name](const Control& it) { return it.design().name == name; });
    if (found == controls_.end())
        throw RunTimeError(ErrorNumber::InvalidProcedureCall);
    return *found;
}

void Form::load() {
    if (loaded_)
        return;
    loaded_ = true;
    caption_ = design_.caption;
    for (const ControlDesign& row : design_.controls)
        controls_.emplace_back(row);
    Form_Load();
}

void Form::show() {
    load();
    const bool first = !visible_;
    visible_ = true;
    host_.show(*this);
    if (first)
        Form_Resize();
}

void Form::hide() {
    if (!visible_)
        return;
    visible_ = false;
    host_.hide(*this);
}

void Form::unload() {
    hide();
    controls_.clear();
    loaded_ = false;
}

void Form::close() {
    std::int16_t cancel = 0;
    Form_Unload(cancel);
    if (cancel == 0)
        unload();
}

} // namespace quillet
