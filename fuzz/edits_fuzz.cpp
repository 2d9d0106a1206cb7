// Editing operations on the box beside a plain string, all taken back and done again at the end.
#include "fuzz/input.h"
#include "platform/edit_box.h"
#include "platform/key_codes.h"

#include <algorithm>

namespace quillet::fuzz {
namespace {

class Edits {
  public:
    Edits() { box_.setMetrics({.tabStop = 8, .width = 64}); }

    void run(Input input) {
        while (!input.isEmpty()) {
            step(input);
            check(box_.Text() == plain_, "the text is the plain one");
        }
        while (box_.canUndo())
            box_.undo();
        check(box_.length() == 0, "everything can be taken back");
        while (box_.canRedo())
            box_.redo();
        check(box_.Text() == plain_, "and be done again");
    }

  private:
    void step(Input& input) {
        const auto length = static_cast<Position>(plain_.size());
        switch (input.byte() % 7) {
        case 0: {
            const GlyphView text = input.text(input.byte() % 16);
            replaceSelection(text);
            box_.SelText(text);
            break;
        }
        case 1:
            box_.SelStart(input.upTo(length));
            box_.SelLength(input.upTo(length));
            break;
        case 2: {
            const std::uint8_t character = input.byte() | 0x20; // no control character
            replaceSelection(GlyphString(1, static_cast<char>(character)));
            box_.keyPress(character, 0);
            break;
        }
        case 3:
            replaceSelection(lineBreak);
            box_.keyPress(key::enter, 0);
            break;
        case 4: {
            constexpr std::int16_t moves[] = {key::left, key::right, key::up,     key::down,
                                              key::home, key::end,   key::pageUp, key::pageDown};
            box_.keyDown(moves[input.byte() % std::size(moves)],
                         static_cast<std::int16_t>(input.byte() % 4));
            break;
        }
        case 5: {
            const GlyphView text = input.text(input.byte());
            plain_ = text;
            box_.Text(text);
            break;
        }
        default:
            box_.catchUp();
        }
    }

    void replaceSelection(GlyphView text) {
        plain_.replace(static_cast<std::size_t>(box_.SelStart()),
                       static_cast<std::size_t>(box_.SelLength()), text);
    }

    EditBox box_{{}};
    GlyphString plain_;
};

} // namespace
} // namespace quillet::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    quillet::fuzz::Edits().run({data, size});
    return 0;
}
