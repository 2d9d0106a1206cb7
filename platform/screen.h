// The screen that the windows are laid out for.
#pragma once

#include "base/twips.h"

namespace quillet {

class Screen {
  public:
    virtual ~Screen() = default;

    virtual Twips width() const = 0;
    virtual Twips height() const = 0;
};

} // namespace quillet
