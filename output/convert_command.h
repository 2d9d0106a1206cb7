// The conversion of the document's file to PDF.
#pragma once

namespace quillet {

struct Desktop;
class Files;
class MessageBox;
struct MainState;

/// Works on the file as it was saved last, not on the text in the box.
class ConvertCommand {
  public:
    ConvertCommand(MainState& state, const Desktop& desktop);

    /// Writes the PDF beside the document's file and says so, even where that failed. A document
    /// that has no file yet is refused.
    void ConvertToPdf();

  private:
    MainState& state_;
    Files& files_;
    MessageBox& messageBox_;
};

} // namespace quillet
