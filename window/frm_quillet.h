// The main window: the document's state and every command on it.
#pragma once

#include "comm/send_mail.h"
#include "comm/web_commands.h"
#include "engine/input_engine.h"
#include "output/convert_command.h"
#include "output/print_command.h"
#include "platform/desktop.h"
#include "platform/main_state.h"
#include "search/counting.h"
#include "search/frm_find.h"
#include "search/frm_replace.h"
#include "window/document_files.h"
#include "window/edit_commands.h"
#include "window/frm_about.h"
#include "window/look_commands.h"
#include "window/memory_commands.h"

#include <string_view>

namespace quillet {

class Screen;

/// One document window, made of its facets: each brings the handlers of one kind of command.
class frmQuillet : public MainState,
                   public InputEngine,
                   public DocumentFiles,
                   public EditCommands,
                   public MemoryCommands,
                   public LookCommands,
                   public Counting,
                   public PrintCommand,
                   public ConvertCommand,
                   public SendMail,
                   public WebCommands {
  public:
    explicit frmQuillet(const Desktop& desktop);

    /// Runs what belongs to the key of a toolbar button, exactly and with regard to case; an
    /// unknown key does nothing. A command that fails ends silently.
    void Toolbar1_ButtonClick(std::string_view Key);

    /// Show a window, or bring it forward as it is.
    void mnuFind_Click() { find_.show(); }
    void mnuReplace_Click() { replace_.show(); }
    void mnuAbout_Click() { about_.show(); }

    frmFind& findWindow() { return find_; }
    frmReplace& replaceWindow() { return replace_; }

  protected:
    void Form_Load() override;
    void Form_Resize() override { layOut(); }

    /// Asks about a changed document and then ends the program at once, with or without Save As.
    void Form_Unload(std::int16_t& Cancel) override;

  private:
    void layOut();

    Screen& screen_;
    MessageBox& messageBox_;
    MailFactory makeMailComponent_;
    frmFind find_;
    frmReplace replace_;
    frmAbout about_;
};

} // namespace quillet
