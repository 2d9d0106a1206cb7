#include "search/counting.h"

#include "platform/main_state.h"
#include "platform/message_box.h"
#include "search/glyph_counts.h"

namespace quillet {
namespace {

constexpr char danda = 'A';

constexpr const char* wordsText = "Number of words in the file are: ";
constexpr const char* sentencesText = "Number of sentences in the file are: ";

// The last glyph that is no space; a space where there is none.
char lastGlyph(const TextBuffer& text) {
    std::size_t end = text.size();
    while (end > 0 && text[end - 1] == ' ')
        --end;
    return end == 0 ? ' ' : text[end - 1];
}

bool endsInSpace(const EditBox& box) {
    return box.length() > 0 && box.textAt(box.length() - 1, 1) == " ";
}

std::int64_t linesIn(const EditBox& box) {
    return 1 + countGlyph(box.buffer().spans(), '\r');
}

} // namespace

std::string Counting::CountWords() {
    EditBox& box = state_.txtMain;
    box.MousePointer(Pointer::Hourglass);
    const std::int64_t ends = countSpaces(box.buffer().spans()) + (endsInSpace(box) ? 0 : 1);
    const std::int64_t words = ends + linesIn(box) - 1;
    box.MousePointer(Pointer::Default);
    return std::to_string(words);
}

std::string Counting::CountCharacters() {
    EditBox& box = state_.txtMain;
    box.MousePointer(Pointer::Hourglass);
    const Position count = box.length();
    box.MousePointer(Pointer::Default);
    return std::to_string(count);
}

std::string Counting::CountLines() const {
    return std::to_string(linesIn(state_.txtMain));
}

std::string Counting::CountSentences() const {
    const TextBuffer& text = state_.txtMain.buffer();
    const std::int64_t ends = countEither(text.spans(), danda, '\n');
    return std::to_string(1 + ends - (lastGlyph(text) == danda ? 1 : 0));
}

void Counting::mnuWords_Click() {
    const bool isEmpty = state_.txtMain.length() == 0;
    tell(wordsText, isEmpty ? "0" : CountWords(), "Quillet: Word Count");
}

void Counting::mnuCharacters_Click() {
    tell("Number of characters in the file are: ", CountCharacters(), "Quillet: Character Count");
}

// Deliberately, the two cases have different titles.
void Counting::mnuSentences_Click() {
    if (state_.txtMain.length() == 0)
        tell(sentencesText, "0", "Quillet: Sentence Count");
    else
        tell(sentencesText, CountSentences(), "Quillet: Line Count");
}

void Counting::tell(const char* text, const std::string& count, const char* title) {
    messageBox_.show({.text = text + count, .title = title});
}

} // namespace quillet
