// The counts of the whole document.
#pragma once

#include <string>

namespace quillet {

class MessageBox;
struct MainState;

/// Tests on single glyph codes, deliberately no more: words are told by spaces and carriage
/// returns, sentences by dandas and line feeds. Counts are decimal digits.
class Counting {
  public:
    Counting(MainState& state, MessageBox& messageBox) : state_(state), messageBox_(messageBox) {}

    /// Both show the hourglass over the box while they count. A run of 32,767 glyphs without a
    /// space before one fails with `Overflow`, which leaves the hourglass.
    std::string CountWords();
    std::string CountCharacters();

    /// A lone line feed starts no line. No command shows it by itself.
    std::string CountLines() const;

    /// A danda at the end, before spaces or none, opens no further sentence.
    std::string CountSentences() const;

    /// Show a count.
    void mnuWords_Click();
    void mnuCharacters_Click();
    void mnuSentences_Click();

  private:
    void tell(const char* text, const std::string& count, const char* title);

    MainState& state_;
    MessageBox& messageBox_;
};

} // namespace quillet
