// The shapes of the mouse pointer.
#pragma once

namespace quillet {

/// `Default` is whatever the desktop shows at the place.
enum class Pointer { Default, Hourglass };

} // namespace quillet
