#include "platform/pointer_selection.h"

#include "platform/edit_box.h"

#include <algorithm>

namespace quillet {

void PointerSelection::press(Position place, int clicks, bool extend) {
    clicks_ = clicks;
    if (extend) {
        const Position anchor = box_.selection().anchor;
        origin_ = {.anchor = anchor, .caret = anchor};
        drag(place);
    } else {
        origin_ = unitAt(place);
        box_.select(origin_);
    }
}

void PointerSelection::drag(Position place) {
    const Selection unit = unitAt(place);
    if (place < origin_.start())
        box_.select({.anchor = origin_.end(), .caret = unit.start()});
    else
        box_.select({.anchor = origin_.start(), .caret = std::max(unit.end(), origin_.end())});
}

Selection PointerSelection::unitAt(Position place) const {
    if (clicks_ <= 1)
        return {.anchor = place, .caret = place};
    return clicks_ == 2 ? box_.wordAt(place) : box_.paragraphAt(place);
}

} // namespace quillet
