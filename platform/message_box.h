// Modal questions and messages.
#pragma once

#include <string>

namespace quillet {

/// The title of every box that has none of its own.
inline constexpr const char* applicationTitle = "Quillet1.0";

enum class Buttons { Ok, YesNo, YesNoCancel };
enum class MessageIcon { None, Information, Exclamation };
enum class Answer { Ok, Yes, No, Cancel };

/// What a message box shows. Text and title are UTF-8.
struct Message {
    std::string text;
    Buttons buttons = Buttons::Ok;
    std::string title = applicationTitle;
    MessageIcon icon = MessageIcon::None;
};

class MessageBox {
  public:
    virtual ~MessageBox() = default;

    /// Shows the box until a button is pressed. With Yes and No alone neither Esc nor a close
    /// button answers; with Cancel both mean Cancel.
    virtual Answer show(const Message& message) = 0;
};

} // namespace quillet
