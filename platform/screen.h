// The screen that the windows are laid out for, and the mouse pointer on it.
#pragma once

#include "base/twips.h"
#include "platform/pointer.h"

namespace quillet {

class Screen {
  public:
    virtual ~Screen() = default;

    virtual Twips width() const = 0;
    virtual Twips height() const = 0;

    /// The pointer over all windows of the program, until it is set again; `Default` gives each
    /// its own back.
    virtual void MousePointer(Pointer pointer) = 0;
};

} // namespace quillet
