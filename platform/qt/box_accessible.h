// The editing box for screen readers.
#pragma once

#include "platform/edit_box.h"

namespace quillet {

class EditView;

/// Lets the toolkit offer every view's text, caret and selection to assistive programs, glyph
/// codes as their Windows-1252 characters. To be called once.
void installBoxAccessible();

/// Tell assistive programs, where there are any, of a change, and of caret and selection when
/// they are not what they were before.
void tellTextChange(EditView& view, const TextChange& change);
void tellSelection(EditView& view, const Selection& before);

} // namespace quillet
