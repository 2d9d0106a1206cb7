// Selecting with the mouse.
#pragma once

#include "platform/selection.h"

namespace quillet {

class EditBox;

/// Follows one press of the main button and the drag behind it. Places are in the text.
class PointerSelection {
  public:
    explicit PointerSelection(EditBox& box) : box_(box) {}

    /// The button went down for the `clicks`th time in a row: once sets the caret, or with
    /// `extend` moves the selection's end; twice selects the word up to the blanks around it, or
    /// a run of blanks; three times the line with its line break.
    void press(Position place, int clicks, bool extend);

    /// The pointer moved while the button is down: selects from the first press on, by whole
    /// words or lines after a double or triple click.
    void drag(Position place);

  private:
    Selection unitAt(Position place) const;

    EditBox& box_;
    int clicks_ = 1;
    Selection origin_; // what the press selected; a drag keeps all of it
};

} // namespace quillet
