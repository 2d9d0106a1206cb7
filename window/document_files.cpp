#include "window/document_files.h"

#include "base/run_time_error.h"
#include "platform/desktop.h"
#include "platform/files.h"
#include "platform/message_box.h"

#include <vector>

namespace quillet {
namespace {

// The patterns end in "*", so that they list longer extensions as well, and only the list of
// Open ends in a bar: both are as they should be.
constexpr const char* openFilter =
    "Quillet Files|*.qlt*|Text Files|*.txt*|HTML Files|*.htm*|All Files|*.*|";
constexpr const char* saveFilter = "Quillet Files|*.qlt*|Text Files|*.txt*|All Files|*.*";

constexpr const char* extension = ".qlt";

constexpr const char* newTitle = "Quillet: Hindi Word Processor  (New Unsaved File)";
constexpr const char* openTitle = "Quillet: Hindi Word Processor  ";
constexpr const char* saveTitle = "Quillet: Hindi Text Editor ";
constexpr const char* closeTitle = "Quillet: Hindi Word Processor";

// The comparison is exact: "LETTER.QLT" gets a second extension.
std::string withExtension(const std::string& path) {
    return path.ends_with(extension) ? path : path + extension;
}

} // namespace

DocumentFiles::DocumentFiles(MainState& state, const Desktop& desktop)
    : state_(state),
      files_(desktop.files),
      messageBox_(desktop.messageBox) {}

void DocumentFiles::mnuNew_Click() {
    resumeNext([this] { countTextAsChange(); }, [this] { offerSaving(); },
               [this] { startNewDocument(newTitle); });
}

void DocumentFiles::mnuOpen_Click() {
    CommonDialog& dialog = state_.cdbOpenSave;
    resumeNext([&] { countTextAsChange(); }, [&] { offerSaving(); },
               [&] { dialog.CancelError = true; }, [&] { dialog.Filter = openFilter; },
               [&] { dialog.ShowOpen(); },
               [&] { state_.txtMain.load(files_.read(dialog.FileName)); },
               [&] { state_.Caption(openTitle + dialog.FileName); },
               [&] { state_.NameofFile = dialog.FileName; }, [&] { state_.NewFile = false; },
               [&] { state_.textboxused = false; });
}

void DocumentFiles::mnuSave_Click() {
    if (state_.NewFile || state_.NameofFile.empty())
        mnuSaveAs_Click();
    else
        resumeNext([this] { write(state_.NameofFile); });
}

void DocumentFiles::mnuSaveAs_Click() {
    resumeNext([this] { showSaveDialog(); });
    const std::string path = withExtension(state_.cdbOpenSave.FileName);
    if (path != extension)
        saveUnder(path);
}

void DocumentFiles::mnuClose_Click() {
    countTextAsChange();
    if (!state_.textboxused)
        return;
    const Answer answer = messageBox_.show(
        {.text = "Do you want to save changes made since you last opened the file?",
         .buttons = Buttons::YesNoCancel});
    if (answer == Answer::Cancel)
        return;
    if (answer == Answer::Yes)
        saveFirst();
    resumeNext([this] { startNewDocument(closeTitle); });
}

void DocumentFiles::mnuExit_Click() {
    if (!state_.textboxused)
        return;
    const Answer answer = messageBox_.show(
        {.text = "Do you want to save the file?", .buttons = Buttons::YesNoCancel});
    if (answer == Answer::Cancel)
        return;
    if (answer == Answer::Yes)
        mnuSaveAs_Click();
    throw EndOfProgram{};
}

void DocumentFiles::countTextAsChange() {
    if (state_.txtMain.length() != 0)
        state_.textboxused = true;
}

void DocumentFiles::offerSaving() {
    if (!state_.textboxused)
        return;
    const Answer answer = messageBox_.show(
        {.text = "Do you want to save changes made to file?", .buttons = Buttons::YesNo});
    if (answer == Answer::Yes)
        saveFirst();
}

void DocumentFiles::saveFirst() {
    if (state_.NewFile)
        mnuSaveAs_Click();
    else
        mnuSave_Click();
}

void DocumentFiles::showSaveDialog() {
    CommonDialog& dialog = state_.cdbOpenSave;
    dialog.CancelError = true;
    dialog.Filter = saveFilter;
    dialog.ShowSave();
}

void DocumentFiles::write(const std::string& path) {
    std::vector<GlyphView> parts;
    for (const GlyphView part : state_.txtMain.buffer().spans())
        parts.push_back(part);
    parts.push_back(lineBreak);
    files_.write(path, parts);
}

// Takes the name even where nothing could be written.
void DocumentFiles::saveUnder(const std::string& path) {
    resumeNext([&] { write(path); }, [&] { state_.NameofFile = path; },
               [&] { state_.Caption(saveTitle + ("(" + path + ")")); },
               [&] { state_.NewFile = false; });
}

void DocumentFiles::startNewDocument(const char* title) {
    state_.txtMain.load({});
    state_.Caption(title);
    state_.NewFile = true;
    state_.textboxused = false;
}

} // namespace quillet
