#include "platform/edit_box.h"

#include "base/run_time_error.h"

#include <algorithm>
#include <new>
#include <utility>

namespace quillet {
namespace {

constexpr std::int16_t ctrlZ = 26;
constexpr std::int16_t ctrlBackspace = 127;

// The glyphs at the start of `text` that already stand in `buffer` from `at` on.
Position commonPrefix(const TextBuffer& buffer, Position at, Position count, GlyphView text) {
    const Position limit = std::min(count, static_cast<Position>(text.size()));
    Position same = 0;
    while (same < limit && buffer[at + same] == text[same])
        ++same;
    return same;
}

// The glyphs at the end of `text` that already stand in `buffer` before `end`.
Position commonSuffix(const TextBuffer& buffer, Position end, Position count, GlyphView text) {
    const Position limit = std::min(count, static_cast<Position>(text.size()));
    Position same = 0;
    while (same < limit && buffer[end - 1 - same] == text[text.size() - 1 - same])
        ++same;
    return same;
}

} // namespace

class EditBox::OneStep {
  public:
    explicit OneStep(EditBox& box) : box_(box) { box_.stepBefore_ = box.selection_; }
    ~OneStep() { box_.stepBefore_.reset(); }
    OneStep(const OneStep&) = delete;
    OneStep& operator=(const OneStep&) = delete;

  private:
    EditBox& box_;
};

EditBox::EditBox(BoxFont font) : font_(std::move(font)) {}

void EditBox::Text(TextBuffer text) {
    if (text.size() > static_cast<std::size_t>(maxTextLength))
        throw RunTimeError(ErrorNumber::OutOfMemory);
    if (text != text_) {
        auto other = std::make_unique<TextBuffer>(std::move(text));
        const Selection before = selection_;
        exchangeText(*other);
        record({.at = 0, .removed = {}, .inserted = {}, .other = std::move(other)}, before, {});
    }
    select({});
}

void EditBox::SelStart(Position start) {
    if (start < 0)
        throw RunTimeError(ErrorNumber::InvalidPropertyValue);
    const Position caret = std::min(start, length());
    select({.anchor = caret, .caret = caret});
}

void EditBox::SelLength(Position length) {
    if (length < 0)
        throw RunTimeError(ErrorNumber::InvalidPropertyValue);
    const Position start = SelStart();
    select({.anchor = start, .caret = start + std::min(length, this->length() - start)});
}

GlyphString EditBox::SelText() const {
    return text_.copy(SelStart(), SelLength());
}

void EditBox::SelText(GlyphView text) {
    needRoom(text, SelLength());
    const Position caret = SelStart() + static_cast<Position>(text.size());
    replace(SelStart(), SelLength(), text, {.anchor = caret, .caret = caret});
}

void EditBox::FontName(std::string name) {
    font_.name = std::move(name);
    fontChanged();
}

void EditBox::FontSize(double points) {
    font_.size = points;
    fontChanged();
}

void EditBox::FontBold(bool on) {
    font_.bold = on;
    fontChanged();
}

void EditBox::FontItalic(bool on) {
    font_.italic = on;
    fontChanged();
}

void EditBox::FontUnderline(bool on) {
    font_.underline = on;
    fontChanged();
}

void EditBox::Left(Twips left) {
    left_ = left;
    geometryChanged();
}

void EditBox::Top(Twips top) {
    top_ = top;
    geometryChanged();
}

void EditBox::Width(Twips width) {
    width_ = width;
    geometryChanged();
}

void EditBox::Height(Twips height) {
    height_ = height;
    geometryChanged();
}

void EditBox::MousePointer(Pointer pointer) {
    pointer_ = pointer;
    if (observer_ != nullptr)
        observer_->pointerChanged();
}

void EditBox::load(TextBuffer text) {
    exchangeText(text);
    history_.clear();
    if (observer_ != nullptr)
        observer_->selectionChanged();
}

void EditBox::keyDown(std::int16_t KeyCode, std::int16_t Shift) {
    if (KeyDown)
        KeyDown(KeyCode, Shift);
    if ((Shift & modifier::alt) != 0)
        return;
    const bool ctrl = (Shift & modifier::ctrl) != 0;
    const bool shift = (Shift & modifier::shift) != 0;
    if (const CaretKey* moves = findCaretKey(KeyCode, ctrl)) {
        moveCaret(*moves, shift);
    } else if (KeyCode == key::del && !shift) {
        const OneStep step(*this);
        history_.closeStep();
        eraseTo(ctrl ? wordRight(caretContext()) : glyphRight(caretContext()));
    }
}

void EditBox::keyPress(std::int16_t KeyAscii, std::int16_t Shift) {
    const OneStep step(*this);
    history_.closeStep();
    if (KeyPress)
        KeyPress(KeyAscii);
    resumeNext([&] { type(KeyAscii, Shift); }); // without room the key is refused
}

void EditBox::keyUp(std::int16_t KeyCode, std::int16_t Shift) {
    const OneStep step(*this);
    if (KeyUp)
        KeyUp(KeyCode, Shift);
}

void EditBox::runCommand(const std::function<void()>& command) {
    const OneStep step(*this);
    history_.closeStep();
    command();
}

// A step that fails halfway leaves a text that the others do not fit.
template <class Steps>
void EditBox::keepingHistory(Steps steps) {
    try {
        steps();
    } catch (...) {
        history_.clear();
        throw;
    }
}

void EditBox::undo() {
    if (!canUndo())
        return;
    UndoStep& step = history_.undo();
    keepingHistory([&] {
        for (auto edit = step.edits.rbegin(); edit != step.edits.rend(); ++edit)
            repeat(*edit, edit->inserted, edit->removed);
        select(step.before);
    });
}

void EditBox::redo() {
    if (!canRedo())
        return;
    UndoStep& step = history_.redo();
    keepingHistory([&] {
        for (const TextEdit& edit : step.edits)
            repeat(edit, edit.removed, edit.inserted);
        select(step.after);
    });
}

// In one direction or the other.
void EditBox::repeat(const TextEdit& edit, GlyphView removed, GlyphView inserted) {
    if (edit.other)
        exchangeText(*edit.other);
    else
        apply(edit.at, removed, inserted);
}

void EditBox::dropText(GlyphView text, Position place) {
    const OneStep step(*this);
    history_.closeStep();
    needRoom(text, 0);
    const auto end = place + static_cast<Position>(text.size());
    replace(place, 0, text, {.anchor = place, .caret = end});
    history_.closeStep();
}

void EditBox::moveSelectionTo(Position place) {
    const Selection from = selection_;
    if (place >= from.start() && place <= from.end())
        return;
    const GlyphString text = SelText();
    const auto count = static_cast<Position>(text.size());
    needRoom(text, 0);
    const OneStep step(*this);
    history_.closeStep();
    replace(place, 0, text, from); // what fails behind this leaves it twice, but never lost
    const Position old = place < from.start() ? from.start() + count : from.start();
    const Position to = place < from.start() ? place : place - count;
    replace(old, count, "", {.anchor = to, .caret = to + count});
    history_.closeStep();
}

void EditBox::setMetrics(const LineMetrics& metrics) {
    lines_.setMetrics(metrics, text_);
    lines_.wrapTo(text_, selection_.end()); // the caret always stands in a line of its own
    goalX_.reset();
}

bool EditBox::catchUp() {
    text_.expectChange(SelStart());
    if (lines_.isSettled())
        return false;
    bool settled = false;
    resumeNext([&] { // without memory the lines stay as they are until the next change
        const LineChange change = lines_.settle(text_);
        settled = true;
        if (observer_ != nullptr)
            observer_->linesChanged(change);
    });
    return settled;
}

Position EditBox::lineOf(Position at) {
    wrapTo(at);
    return lines_.lineOf(at);
}

GlyphString EditBox::lineText(Position line) const {
    const Position start = lines_.lineStart(line);
    return text_.copy(start, std::min(lines_.lineStart(line + 1) - start, maxLineLength));
}

void EditBox::wrapTo(Position at) {
    const LineChange change = lines_.wrapTo(text_, at);
    if (observer_ != nullptr && change.after != change.before)
        observer_->linesChanged(change);
}

void EditBox::needRoom(GlyphView inserted, Position removed) const {
    if (inserted.size() > static_cast<std::size_t>(maxTextLength - (length() - removed)))
        throw RunTimeError(ErrorNumber::OutOfMemory);
}

void EditBox::exchangeText(TextBuffer& other) {
    lines_.wrapAll(other); // the one step that may fail comes first
    std::swap(text_, other);
    selection_ = {};
    goalX_.reset();
    if (observer_ != nullptr)
        observer_->textLoaded();
}

// Only what differs is replaced: a rewrite that changes nothing costs no undo step and no paint.
void EditBox::replace(Position at, Position removed, GlyphView inserted, const Selection& after) {
    const Position prefix = commonPrefix(text_, at, removed, inserted);
    inserted.remove_prefix(prefix);
    at += prefix;
    removed -= prefix;
    const Position suffix = commonSuffix(text_, at + removed, removed, inserted);
    inserted.remove_suffix(suffix);
    removed -= suffix;
    if (removed != 0 || !inserted.empty()) {
        TextEdit edit{.at = at,
                      .removed = text_.copy(at, removed),
                      .inserted = GlyphString(inserted),
                      .other = nullptr};
        const Selection before = selection_;
        apply(at, edit.removed, inserted);
        record(std::move(edit), before, after);
    }
    select(after);
}

void EditBox::apply(Position at, GlyphView removed, GlyphView inserted) {
    TextBuffer::Replaced change = text_.replace(at, removed.size(), inserted);
    LineChange lines;
    try {
        lines = lines_.replaced(text_, at, static_cast<Position>(inserted.size()));
    } catch (...) {
        text_.takeBack(change, at, inserted.size(), removed);
        throw;
    }
    // The caller sets the selection; until then it must at least lie in the text.
    selection_ = {.anchor = std::min(selection_.anchor, length()),
                  .caret = std::min(selection_.caret, length())};
    if (observer_ != nullptr)
        observer_->textChanged(
            {.at = at, .removed = removed, .inserted = inserted, .lines = lines});
}

void EditBox::record(TextEdit edit, const Selection& before, const Selection& after) {
    if (!stepBefore_)
        history_.closeStep();
    try {
        history_.record(std::move(edit), stepBefore_.value_or(before), after);
    } catch (const std::bad_alloc&) {
        history_.clear(); // the text is right, only its past is lost
    }
    if (!stepBefore_)
        history_.closeStep();
}

void EditBox::select(const Selection& selection) {
    goalX_.reset();
    if (selection == selection_)
        return;
    wrapTo(selection.end());
    selection_ = selection;
    if (observer_ != nullptr)
        observer_->selectionChanged();
}

void EditBox::type(std::int16_t KeyAscii, std::int16_t Shift) {
    const bool ctrl = (Shift & modifier::ctrl) != 0;
    if (ctrl && KeyAscii == ctrlZ) {
        (Shift & modifier::shift) != 0 ? redo() : undo();
    } else if (ctrl && KeyAscii == ctrlBackspace) {
        eraseTo(wordLeft(caretContext()));
    } else if (ctrl) {
        return;
    } else if (KeyAscii == key::backspace) {
        eraseTo(glyphLeft(caretContext()));
    } else if (KeyAscii == key::enter) {
        SelText(lineBreak);
    } else if (KeyAscii == '\t' || (KeyAscii >= ' ' && KeyAscii <= 0xFF)) {
        SelText(GlyphString(1, static_cast<char>(KeyAscii)));
    }
}

void EditBox::eraseTo(Position place) {
    Selection erased = selection_;
    if (erased.isEmpty())
        erased.caret = place;
    const Position start = erased.start();
    replace(start, erased.end() - start, "", {.anchor = start, .caret = start});
}

void EditBox::moveCaret(const CaretKey& key, bool extend) {
    const Advance goalX = goalX_.value_or(key.vertical ? xOf(selection_.caret) : 0);
    CaretContext from = caretContext();
    from.goalX = goalX;
    Position place = key.move(from);
    const bool drops = !extend && !key.vertical && !selection_.isEmpty();
    if (drops && key.move == glyphLeft)
        place = selection_.start();
    if (drops && key.move == glyphRight)
        place = selection_.end();
    select({.anchor = extend ? selection_.anchor : place, .caret = place});
    if (key.vertical)
        goalX_ = goalX;
}

CaretContext EditBox::caretContext() const {
    return {.text = text_,
            .lines = lines_,
            .caret = selection_.caret,
            .pageLines = pageLines_,
            .goalX = 0};
}

void EditBox::fontChanged() {
    if (observer_ != nullptr)
        observer_->fontChanged();
}

void EditBox::geometryChanged() {
    if (observer_ != nullptr)
        observer_->geometryChanged();
}

} // namespace quillet
