// The editing box: the document's text itself, with caret, undo and keys.
#pragma once

#include "base/glyph_string.h"
#include "base/text_buffer.h"
#include "base/twips.h"
#include "platform/caret_moves.h"
#include "platform/key_codes.h"
#include "platform/line_layout.h"
#include "platform/pointer.h"
#include "platform/selection.h"
#include "platform/undo_history.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace quillet {

/// The one font of a whole box.
struct BoxFont {
    std::string name;
    double size = 0; // points
    bool bold = false;
    bool italic = false;
    bool underline = false;
};

/// At `at`, `removed` gave way to `inserted`.
struct TextChange {
    Position at;
    GlyphView removed;
    GlyphView inserted;
    LineChange lines;
};

/// Told of a box's changes, after each of them.
class EditBoxObserver {
  public:
    virtual ~EditBoxObserver() = default;

    virtual void textChanged(const TextChange& change) = 0;
    virtual void textLoaded() = 0;                           // all of it is another one
    virtual void linesChanged(const LineChange& change) = 0; // the text has not
    virtual void selectionChanged() = 0;
    virtual void fontChanged() = 0;
    virtual void geometryChanged() = 0;
    virtual void pointerChanged() = 0;
};

/// A multi-line text box for 8-bit glyph codes in one font. The text is everything between the
/// keys and the file; a view only paints it.
///
/// The operations with capital names are the program's own. They raise no key events, and each
/// change of the text that they make outside a key event is one undo step.
class EditBox {
  public:
    explicit EditBox(BoxFont font);
    EditBox(const EditBox&) = delete;
    EditBox& operator=(const EditBox&) = delete;

    /// The whole text. Writing it puts the caret at 0 with nothing selected.
    GlyphString Text() const { return text_.copy(0, text_.size()); }
    void Text(GlyphView text) { Text(TextBuffer(text)); }
    void Text(TextBuffer text);

    /// The same text where it lies, and its length.
    const TextBuffer& buffer() const { return text_; }
    GlyphString textAt(Position at, Position count) const { return text_.copy(at, count); }
    Position length() const { return static_cast<Position>(text_.size()); }

    /// The caret, or the start of the selection. Writing it drops the selection; a place beyond
    /// the end means the end; a negative one fails with `InvalidPropertyValue`.
    Position SelStart() const { return selection_.start(); }
    void SelStart(Position start);

    /// The number of glyphs selected. Writing it selects from `SelStart` on, at most to the end
    /// of the text; a negative value fails with `InvalidPropertyValue`.
    Position SelLength() const { return selection_.end() - selection_.start(); }
    void SelLength(Position length);

    /// The selected text. Writing it replaces the selection and leaves the caret behind the new
    /// text. A text that grows beyond `maxTextLength` fails with `OutOfMemory`.
    GlyphString SelText() const;
    void SelText(GlyphView text);

    const std::string& FontName() const { return font_.name; }
    double FontSize() const { return font_.size; } // points
    bool FontBold() const { return font_.bold; }
    bool FontItalic() const { return font_.italic; }
    bool FontUnderline() const { return font_.underline; }
    void FontName(std::string name);
    void FontSize(double points);
    void FontBold(bool on);
    void FontItalic(bool on);
    void FontUnderline(bool on);

    /// Place and size in the client area of the window.
    Twips Left() const { return left_; }
    Twips Top() const { return top_; }
    Twips Width() const { return width_; }
    Twips Height() const { return height_; }
    void Left(Twips left);
    void Top(Twips top);
    void Width(Twips width);
    void Height(Twips height);

    /// The mouse pointer over the box.
    Pointer MousePointer() const { return pointer_; }
    void MousePointer(Pointer pointer);

    /// Takes over a whole new document: caret at 0, no undo back beyond it.
    void load(TextBuffer text);

    /// What happens at real keystrokes. `KeyPress` may change the character, which is typed as
    /// it comes back.
    std::function<void(std::int16_t KeyCode, std::int16_t Shift)> KeyDown;
    std::function<void(std::int16_t& KeyAscii)> KeyPress;
    std::function<void(std::int16_t KeyCode, std::int16_t Shift)> KeyUp;

    /// A key went down: runs `KeyDown`, then moves the caret or deletes where the key does that.
    /// Codes are virtual-key codes, `Shift` a mask of `modifier` bits.
    void keyDown(std::int16_t KeyCode, std::int16_t Shift);

    /// A key gave a character, a Windows-1252 code: runs `KeyPress`, then types the character
    /// over the selection. Enter types CR LF. With Ctrl held nothing is typed, but Ctrl+Z undoes,
    /// Ctrl+Shift+Z redoes and Ctrl+Backspace (127) deletes a word. A character for which the
    /// memory or the text's limit leaves no room is refused.
    void keyPress(std::int16_t KeyAscii, std::int16_t Shift);

    /// A key went up: runs `KeyUp`. What that changes belongs to the undo step of the keystroke.
    void keyUp(std::int16_t KeyCode, std::int16_t Shift);

    /// A key in the box commands something: what that changes is one undo step, to which the
    /// changes of the key's release belong as well.
    void runCommand(const std::function<void()>& command);

    /// Undo and redo take and give back whole steps with their selections; without a step they
    /// do nothing.
    bool canUndo() const { return history_.canUndo(); }
    bool canRedo() const { return history_.canRedo(); }
    void undo();
    void redo();

    /// The selection as the user sees it, and as mouse and keys set it. Places must be in the
    /// text.
    const Selection& selection() const { return selection_; }
    void select(const Selection& selection);

    /// Text is dropped at a place and selected there: one undo step each. `moveSelectionTo` takes
    /// the selected text along; to a place inside the selection it does nothing. Both need room for
    /// the text beside what is there, or else fail with `OutOfMemory`.
    void dropText(GlyphView text, Position place);
    void moveSelectionTo(Position place);

    /// What a double and a triple click select at a place.
    Selection wordAt(Position place) const { return quillet::wordAt(text_, place); }
    Selection paragraphAt(Position place) const { return quillet::paragraphAt(text_, place); }

    /// The displayed lines. The view sets their metrics and how many of them a page shows.
    const LineLayout& lines() const { return lines_; }
    void setMetrics(const LineMetrics& metrics);
    void setPageLines(Position lines) { pageLines_ = lines; }

    /// What can wait until no key does: brings the text's storage to the caret, so that the next
    /// key there costs little, and goes on wrapping what was left. True while there is
    /// more to do.
    bool catchUp();

    /// Places and lines, as in `LineLayout`; `lineOf` wraps first as far as it must.
    Position lineOf(Position at);
    Position caretLine() const { return lines_.lineOf(selection_.caret); }
    Advance xOf(Position at) const { return lines_.xOf(text_, at); }
    Position lineEnd(Position line) const { return lines_.lineEnd(text_, line); }
    Position placeAt(Position line, Advance x) const { return lines_.placeAt(text_, line, x); }
    GlyphString lineText(Position line) const; // at most `maxLineLength` glyphs of it

    void setObserver(EditBoxObserver* observer) { observer_ = observer; }

  private:
    /// Lets the changes made while it lives belong to one undo step.
    class OneStep;

    void needRoom(GlyphView inserted, Position removed) const;
    void exchangeText(TextBuffer& other);
    template <class Steps>
    void keepingHistory(Steps steps);
    void repeat(const TextEdit& edit, GlyphView removed, GlyphView inserted);
    void wrapTo(Position at);
    void replace(Position at, Position removed, GlyphView inserted, const Selection& after);
    void apply(Position at, GlyphView removed, GlyphView inserted);
    void record(TextEdit edit, const Selection& before, const Selection& after);
    void type(std::int16_t KeyAscii, std::int16_t Shift);
    void eraseTo(Position place);
    void moveCaret(const CaretKey& key, bool extend);
    CaretContext caretContext() const;
    void fontChanged();
    void geometryChanged();

    TextBuffer text_;
    Selection selection_;
    UndoHistory history_;
    LineLayout lines_;
    BoxFont font_;
    Twips left_, top_, width_, height_;
    Pointer pointer_ = Pointer::Default;
    Position pageLines_ = 1;
    std::optional<Advance> goalX_;        // where vertical moves aim, once they have begun
    std::optional<Selection> stepBefore_; // while a `OneStep` lives: the selection at its start
    EditBoxObserver* observer_ = nullptr;
};

} // namespace quillet
