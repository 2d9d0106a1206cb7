// What a box needs to take back and repeat its changes.
#pragma once

#include "base/glyph_string.h"
#include "base/text_buffer.h"
#include "platform/selection.h"

#include <cstddef>
#include <deque>
#include <memory>
#include <vector>

namespace quillet {

/// At `at`, `removed` gave way to `inserted`. Or the whole text was exchanged: then `other` is the
/// one that is not in the box at present, so that neither has to be copied.
struct TextEdit {
    Position at = 0;
    GlyphString removed;
    GlyphString inserted;
    std::unique_ptr<TextBuffer> other;

    std::size_t size() const;
};

/// The edits that one undo takes back together, with the selection before and after them.
struct UndoStep {
    std::vector<TextEdit> edits;
    Selection before;
    Selection after;
    std::size_t size = 0; // bytes of the edits when they were recorded
};

/// The steps behind and ahead of the present text. Beyond `maxSteps` and `maxSize` the oldest are
/// forgotten, but never the last one.
class UndoHistory {
  public:
    static constexpr std::size_t maxSteps = 10'000;
    static constexpr std::size_t maxSize = 1'000'000'000; // bytes

    /// The next edit opens a step of its own.
    void closeStep() { open_ = false; }

    /// Adds an edit to the open step, or opens one; steps that were taken back are gone then.
    void record(TextEdit edit, const Selection& before, const Selection& after);

    bool canUndo() const { return done_ > 0; }
    bool canRedo() const { return done_ < steps_.size(); }

    /// The step to take back or to repeat now; only where `canUndo` or `canRedo` says so.
    UndoStep& undo();
    UndoStep& redo();

    void clear();

  private:
    void openStep(const Selection& before);

    std::deque<UndoStep> steps_;
    std::size_t size_ = 0; // of all steps
    std::size_t done_ = 0; // the first `done_` steps are in the text
    bool open_ = false;    // the last of them still takes edits
};

} // namespace quillet
