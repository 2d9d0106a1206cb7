// The file commands: New, Open, Save, Save As, Close, Exit.
#pragma once

#include "platform/main_state.h"

#include <string>

namespace quillet {

struct Desktop;
class Files;
class MessageBox;

/// A document file is the text byte for byte and a CR LF that every save appends and no open
/// takes away, so that a document grows by one at each open and save; this is deliberate.
///
/// No command reports a failure: a step that fails is skipped and the next one runs. So a
/// cancelled Open reads the file chosen last, or fails to, and takes its name all the same.
class DocumentFiles {
  public:
    DocumentFiles(MainState& state, const Desktop& desktop);

    void mnuNew_Click();
    void mnuOpen_Click();
    void mnuSave_Click();
    void mnuSaveAs_Click();
    void mnuClose_Click();

    /// Does nothing while the document is unchanged; otherwise asks and ends the program at once.
    void mnuExit_Click();

  private:
    void countTextAsChange();
    void offerSaving();
    void saveFirst();
    void showSaveDialog();
    void write(const std::string& path);
    void saveUnder(const std::string& path);
    void startNewDocument(const char* title);

    MainState& state_;
    Files& files_;
    MessageBox& messageBox_;
};

} // namespace quillet
