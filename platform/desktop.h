// All that the program needs of a desktop.
#pragma once

#include <functional>
#include <memory>

namespace quillet {

class CKpoSendMail;
class Clipboard;
class FileChooser;
class Files;
class FormHost;
class InputBox;
class MessageBox;
class Printer;
class PrinterChooser;
class Screen;
class Shell;

/// Makes the component that a window sends its mail with.
using MailFactory = std::function<std::shared_ptr<CKpoSendMail>()>;

/// The desktop's services; each outlives the windows that use it.
struct Desktop {
    MessageBox& messageBox;
    InputBox& inputBox;
    FileChooser& fileChooser;
    PrinterChooser& printerChooser;
    Printer& printer;
    Files& files;
    Clipboard& clipboard;
    Screen& screen;
    Shell& shell;
    FormHost& forms;
    MailFactory makeMailComponent;
};

} // namespace quillet
