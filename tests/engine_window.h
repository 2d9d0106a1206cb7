// The smallest window whose box types through the input engine.
#pragma once

#include "engine/input_engine.h"
#include "platform/main_state.h"
#include "tests/fake_desktop.h"

#include <string>

namespace quillet {

struct EngineDesktop {
    FakeDesktop desktop;
    FormDesign formDesign = {"frmTest", "", FormFrame::Fixed, {0}, {0}, {}};
};

struct EngineWindow : EngineDesktop, MainState, InputEngine {
    EngineWindow()
        : MainState(desktop.forms, formDesign, desktop),
          InputEngine(*this, desktop.forms) {
        txtMain.KeyDown = [this](auto code, auto mask) { txtMain_KeyDown(code, mask); };
        txtMain.KeyPress = [this](auto& code) { txtMain_KeyPress(code); };
        txtMain.KeyUp = [this](auto code, auto mask) { txtMain_KeyUp(code, mask); };
    }

    /// Sets text and selection: one "|" stands at the caret, or two around the selection.
    void place(GlyphView marked) {
        const auto first = marked.find('|');
        const auto last = marked.rfind('|');
        GlyphString text(marked);
        std::erase(text, '|');
        txtMain.Text(text);
        txtMain.SelStart(static_cast<Position>(first));
        txtMain.SelLength(static_cast<Position>(last == first ? 0 : last - first - 1));
    }

    /// Text and selection, marked in the same way.
    GlyphString marked() const {
        GlyphString text = txtMain.Text();
        const auto start = static_cast<std::size_t>(txtMain.SelStart());
        const auto length = static_cast<std::size_t>(txtMain.SelLength());
        if (length > 0)
            text.insert(start + length, 1, '|');
        return text.insert(start, 1, '|');
    }
};

} // namespace quillet
