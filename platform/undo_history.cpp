#include "platform/undo_history.h"

#include <utility>

namespace quillet {

std::size_t TextEdit::size() const {
    return removed.size() + inserted.size() + (other ? other->size() : 0);
}

void UndoHistory::record(TextEdit edit, const Selection& before, const Selection& after) {
    if (!open_)
        openStep(before);
    const std::size_t size = edit.size();
    UndoStep& step = steps_.back();
    step.edits.push_back(std::move(edit));
    step.after = after;
    step.size += size;
    size_ += size;
    while (steps_.size() > maxSteps || (size_ > maxSize && steps_.size() > 1)) {
        size_ -= steps_.front().size;
        steps_.pop_front();
    }
    done_ = steps_.size();
}

void UndoHistory::openStep(const Selection& before) {
    while (canRedo()) {
        size_ -= steps_.back().size;
        steps_.pop_back();
    }
    steps_.push_back({.edits = {}, .before = before, .after = before});
    open_ = true;
}

UndoStep& UndoHistory::undo() {
    closeStep();
    return steps_[--done_];
}

UndoStep& UndoHistory::redo() {
    closeStep();
    return steps_[done_++];
}

void UndoHistory::clear() {
    steps_.clear();
    size_ = 0;
    done_ = 0;
    closeStep();
}

} // namespace quillet
