// Keys, edits, undo and redo in the box beside a plain string.
#include "fuzz/input.h"
#include "platform/edit_box.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace quillet::fuzz {
namespace {

// What the box should hold after operations that each are one step, or none where they change
// nothing.
struct PlainBox {
    GlyphString text;
    Selection selection;
    std::vector<GlyphString> past, future;

    void replace(Position from, Position to, GlyphView inserted) {
        GlyphString changed = text;
        changed.replace(from, to - from, inserted);
        const Position end = from + static_cast<Position>(inserted.size());
        selection = {end, end};
        if (changed == text)
            return;
        past.push_back(std::exchange(text, changed));
        future.clear();
    }
    void type(GlyphView typed) { replace(selection.start(), selection.end(), typed); }
    void backspace() {
        const bool pair = text.substr(0, selection.end()).ends_with(lineBreak);
        const Position before = std::max(0, selection.end() - (pair ? 2 : 1));
        replace(selection.isEmpty() ? before : selection.start(), selection.end(), "");
    }
    void del() {
        const bool pair = text.substr(selection.start()).starts_with(lineBreak);
        const auto size = static_cast<Position>(text.size());
        const Position behind = std::min(size, selection.start() + (pair ? 2 : 1));
        replace(selection.start(), selection.isEmpty() ? behind : selection.end(), "");
    }
    void goTo(std::vector<GlyphString>& from, std::vector<GlyphString>& to) {
        if (from.empty())
            return;
        to.push_back(std::exchange(text, from.back()));
        from.pop_back();
    }
};

class Edits {
  public:
    Edits() {
        box_.load(TextBuffer({}, fewGlyphs));
        box_.setMetrics({.tabStop = 8, .width = 64});
    }

    void run(Input input) {
        while (!input.isEmpty()) {
            step(input);
            checkSame();
        }
        while (box_.canUndo()) {
            undo();
            checkSame();
        }
    }

  private:
    // Of a chunk of the text: some changes cross chunks, and in others one chunk's storage grows.
    static constexpr std::size_t fewGlyphs = 24;
    static constexpr std::size_t manyGlyphs = 16384;

    void step(Input& input) {
        const std::uint8_t kind = input.byte() % 13;
        const Position place = input.upTo(box_.length());
        const GlyphView text = kind < 3 ? input.text(input.byte() % 16) : GlyphView();
        switch (kind) {
        case 0:
            box_.SelText(text);
            return plain_.type(text);
        case 1:
            box_.dropText(text, place);
            plain_.replace(place, place, text);
            plain_.selection.anchor = place;
            return;
        case 2:
            box_.Text(TextBuffer(text, text.size() % 2 == 0 ? fewGlyphs : manyGlyphs));
            plain_.replace(0, static_cast<Position>(plain_.text.size()), text);
            plain_.selection = {};
            return;
        case 3:
            plain_.selection = {place, input.byte() < 64 ? input.upTo(box_.length()) : place};
            return box_.select(plain_.selection);
        case 4: {
            const std::uint8_t character = input.byte() | 0x20; // no control character
            box_.keyPress(character, 0);
            return plain_.type(GlyphString(1, static_cast<char>(character)));
        }
        case 5:
            box_.keyPress(key::enter, 0);
            return plain_.type(lineBreak);
        case 6:
            box_.keyPress(key::backspace, 0);
            return plain_.backspace();
        case 7:
            box_.keyDown(key::del, 0);
            return plain_.del();
        case 8: {
            constexpr std::int16_t moves[] = {key::left, key::right, key::up,     key::down,
                                              key::home, key::end,   key::pageUp, key::pageDown};
            box_.keyDown(moves[input.byte() % std::size(moves)],
                         static_cast<std::int16_t>(input.byte() % 4));
            break;
        }
        case 9:
            return undo();
        case 10:
            box_.redo();
            plain_.goTo(plain_.future, plain_.past);
            break;
        case 11: {
            constexpr std::size_t share = 16; // together more than storage grows by
            const GlyphString run(input.byte() * share, 'x');
            box_.SelText(run);
            return plain_.type(run);
        }
        default:
            box_.catchUp();
            return;
        }
        plain_.selection = box_.selection(); // where keys, undo and redo leave it
    }

    void undo() {
        box_.undo();
        plain_.goTo(plain_.past, plain_.future);
        plain_.selection = box_.selection();
    }

    void checkSame() const {
        const Selection& selected = plain_.selection;
        check(box_.Text() == plain_.text, "the text is the plain one");
        check(box_.selection() == selected, "the selection is the plain one");
        check(selected.start() >= 0 && selected.end() <= box_.length(), "and in the text");
        check(box_.SelText() == plain_.text.substr(selected.start(), box_.SelLength()),
              "the selected text is the plain one");
        check(box_.canUndo() != plain_.past.empty(), "there are as many steps back");
        check(box_.canRedo() != plain_.future.empty(), "and forth");
    }

    EditBox box_{{}};
    PlainBox plain_;
};

} // namespace
} // namespace quillet::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    quillet::fuzz::Edits().run({data, size});
    return 0;
}
