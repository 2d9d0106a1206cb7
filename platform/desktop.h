// All that the program needs of a desktop.
#pragma once

namespace quillet {

class Clipboard;
class FileChooser;
class Files;
class FormHost;
class MessageBox;
class Printer;
class PrinterChooser;
class Screen;
class Shell;

/// The desktop's services; each outlives the windows that use it.
struct Desktop {
    MessageBox& messageBox;
    FileChooser& fileChooser;
    PrinterChooser& printerChooser;
    Printer& printer;
    Files& files;
    Clipboard& clipboard;
    Screen& screen;
    Shell& shell;
    FormHost& forms;
};

} // namespace quillet
