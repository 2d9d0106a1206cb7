// The real main window on a desktop of stand-ins.
#pragma once

#include "tests/fake_desktop.h"
#include "window/frm_quillet.h"

namespace quillet {

struct OwnDesktop {
    FakeDesktop desktop;
};

/// Loaded and shown, with nothing asked of its desktop yet.
struct TestWindow : OwnDesktop, frmQuillet {
    TestWindow() : frmQuillet(desktop.services()) {
        frmQuillet::show();
        desktop.forms.calls.clear();
        desktop.calls.clear();
    }
};

/// Sets text and selection: one "|" stands at the caret, or two around the selection.
inline void place(EditBox& box, GlyphView marked) {
    const auto first = marked.find('|');
    const auto last = marked.rfind('|');
    GlyphString text(marked);
    std::erase(text, '|');
    box.Text(text);
    box.SelStart(static_cast<Position>(first));
    box.SelLength(static_cast<Position>(last == first ? 0 : last - first - 1));
}

/// Text and selection, marked in the same way.
inline GlyphString marked(const EditBox& box) {
    GlyphString text = box.Text();
    const Position end = box.SelStart() + box.SelLength();
    if (box.SelLength() > 0)
        text.insert(text.begin() + end, '|');
    text.insert(text.begin() + box.SelStart(), '|');
    return text;
}

} // namespace quillet
