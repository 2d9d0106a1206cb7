// Prints the document.
#pragma once

namespace quillet {

class Printer;
class Screen;
struct Desktop;
struct MainState;

class PrintCommand {
  public:
    PrintCommand(MainState& state, const Desktop& desktop);

    /// Prints the selection, or the whole text where nothing is selected, in the font of the box
    /// without its styles. An empty text is not printed. A cancelled dialog and every failure end
    /// it silently; a failure leaves the hourglass.
    void mnuPrint_Click();

  private:
    void print();

    MainState& state_;
    Printer& printer_;
    Screen& screen_;
};

} // namespace quillet
