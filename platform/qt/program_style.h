// The desktop's style, but quicker to start with.
#pragma once

namespace quillet {

/// Has the picture of a toolbar's extension button read when it is painted, which it hardly ever
/// is. The toolkit wants it with every toolbar, and loads all its image plugins to read it. To be
/// called before a window is made.
void deferToolbarExtension();

} // namespace quillet
