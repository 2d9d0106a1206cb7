#include "platform/undo_history.h"

#include <utility>

namespace quillet {

void UndoHistory::record(TextEdit edit, const Selection& before, const Selection& after) {
    if (!open_) {
        steps_.resize(done_);
        steps_.push_back({.edits = {}, .before = before, .after = after});
        if (steps_.size() > maxSteps)
            steps_.pop_front();
        done_ = steps_.size();
        open_ = true;
    }
    steps_.back().edits.push_back(std::move(edit));
    steps_.back().after = after;
}

const UndoStep& UndoHistory::undo() {
    closeStep();
    return steps_[--done_];
}

const UndoStep& UndoHistory::redo() {
    closeStep();
    return steps_[done_++];
}

void UndoHistory::clear() {
    steps_.clear();
    done_ = 0;
    closeStep();
}

} // namespace quillet
