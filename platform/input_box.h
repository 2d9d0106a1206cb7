// A modal question for a line of text.
#pragma once

#include <string>

namespace quillet {

class InputBox {
  public:
    virtual ~InputBox() = default;

    /// What the user types into a field that starts empty; the empty text on Cancel. Everything
    /// is UTF-8.
    virtual std::string ask(const std::string& prompt, const std::string& title) = 0;
};

} // namespace quillet
