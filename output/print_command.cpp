#include "output/print_command.h"

#include "base/run_time_error.h"
#include "output/printer_word_wrap.h"
#include "platform/desktop.h"
#include "platform/main_state.h"
#include "platform/printer.h"

namespace quillet {

PrintCommand::PrintCommand(MainState& state, const Desktop& desktop)
    : state_(state),
      printer_(desktop.printer),
      screen_(desktop.screen) {}

void PrintCommand::mnuPrint_Click() {
    if (state_.txtMain.length() > 0)
        resumeNext([this] { print(); });
}

void PrintCommand::print() {
    const EditBox& box = state_.txtMain;
    state_.cdbOpenSave.CancelError = true;
    state_.cdbOpenSave.ShowPrinter();
    printer_.Print(" "); // opens the first page
    printer_.FontName(box.FontName());
    printer_.FontSize(box.FontSize());
    CPrinterWordWrap wordWrap(printer_, screen_);
    wordWrap.HeaderText(" ");
    wordWrap.PrintText(box.SelLength() > 0 ? box.SelText() : box.Text());
}

} // namespace quillet
