// The dialogs for files and printers of a window, and what it asks of the desktop.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillet {

/// One entry of a dialog's file type list. `patterns` may hold several, separated by ";".
struct FileFilter {
    std::string description;
    std::string patterns;

    friend bool operator==(const FileFilter&, const FileFilter&) = default;
};

/// The pairs of a filter text "description|pattern|description|pattern". A trailing "|" and a
/// description without a pattern add nothing.
std::vector<FileFilter> parseFilters(std::string_view text);

class FileChooser {
  public:
    enum class Purpose { Open, Save };

    virtual ~FileChooser() = default;

    /// Lets the user choose a file, starting at `startName` (which may be empty) with the first
    /// filter. Returns the full path as it was chosen, or nothing on cancel. A name that does not
    /// exist, or does already, is accepted without a further question.
    virtual std::optional<std::string> choose(Purpose purpose,
                                              const std::vector<FileFilter>& filters,
                                              const std::string& startName) = 0;
};

class PrinterChooser {
  public:
    virtual ~PrinterChooser() = default;

    /// Lets the user choose the printer and its settings for the job that begins then. False on
    /// cancel.
    virtual bool choosePrinter() = 0;
};

/// The one dialog that all commands of a window share. It keeps its file name between uses.
class CommonDialog {
  public:
    CommonDialog(FileChooser& files, PrinterChooser& printers)
        : files_(files),
          printers_(printers) {}

    /// Whether a cancelled dialog fails with an error; without it a cancel goes unnoticed.
    bool CancelError = false;

    /// File types as "description|pattern" pairs joined by "|".
    std::string Filter;

    /// The full path chosen last; a cancel leaves it as it was.
    std::string FileName;

    void ShowOpen() { show(FileChooser::Purpose::Open); }
    void ShowSave() { show(FileChooser::Purpose::Save); }
    void ShowPrinter();

  private:
    void show(FileChooser::Purpose purpose);

    void cancelled() const;

    FileChooser& files_;
    PrinterChooser& printers_;
};

} // namespace quillet
