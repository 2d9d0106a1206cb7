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

/// The desktop's services; each outlives the windows that use it.
struct Desktop {
    MessageBox& messageBox;
    FileChooser& fileChooser;
    PrinterChooser& printerChooser;
    Printer& printer;
    Files& files;
    Clipboard& clipboard;
    Screen& screen;
    FormHost& forms;
};

} // namespace quillet
