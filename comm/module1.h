// What several commands share.
#pragma once

#include <string>

namespace quillet {

class MessageBox;
class Shell;

class Module1 {
  public:
    Module1(Shell& shell, MessageBox& messageBox) : shell_(shell), messageBox_(messageBox) {}

    /// Opens a web address, or a file that may be named from the program's folder, and says why
    /// it could not. Deliberately, a file without an associated program (31) is passed over in
    /// silence, and the message about such files goes with 32.
    void ShellOpen(const std::string& target);

  private:
    void complain(const std::string& text);

    Shell& shell_;
    MessageBox& messageBox_;
};

} // namespace quillet
