// The document as a mail.
#pragma once

#include <string>

namespace quillet {

class InputBox;
class MessageBox;
class Screen;
struct Desktop;
struct MainState;

class SendMail {
  public:
    SendMail(MainState& state, const Desktop& desktop);

    /// Asks for both addresses and sends the whole document. Deliberately, every failure ends
    /// with the same message, whatever it was.
    void mnuSendMail_Click();

  private:
    void send();

    MainState& state_;
    InputBox& inputBox_;
    MessageBox& messageBox_;
    Screen& screen_;
};

} // namespace quillet
