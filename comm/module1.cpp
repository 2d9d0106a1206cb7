#include "comm/module1.h"

#include "platform/message_box.h"
#include "platform/shell.h"

namespace quillet {

void Module1::ShellOpen(const std::string& target) {
    constexpr int hideWindow = 0;
    const int result = shell_.ShellExecuteA("open", target, "", shell_.programFolder(), hideWindow);
    if (result < Shell::NoAssociation)
        complain("Problem running your web browser. You should check that your browser is "
                 "correctly installed. (Error " +
                 std::to_string(result) + ")");
    else if (result == Shell::LibraryNotFound)
        complain(applicationTitle + (" could not find a file association for " + target) +
                 " on your system. You should check that your browser is correctly installed and "
                 "associated with this type of file.");
}

void Module1::complain(const std::string& text) {
    messageBox_.show(
        {.text = text, .title = "Browser Unavailable", .icon = MessageIcon::Exclamation});
}

} // namespace quillet
