// How the X server reports a held key.
#pragma once

namespace quillet {

/// Asks the X server to report the repeats of a held key as presses only. Without it a held key
/// looks like one pressed and released over and over. Does nothing on other platforms. To be
/// called once, after the application object exists.
void requestDetectableAutoRepeat();

} // namespace quillet
