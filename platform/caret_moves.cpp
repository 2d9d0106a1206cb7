#include "platform/caret_moves.h"

#include "platform/key_codes.h"

#include <algorithm>
#include <array>

namespace quillet {
namespace {

bool isWord(char glyph) {
    return !endsLine(glyph) && !isBlank(glyph);
}

template <class Test>
Position skipLeft(const TextBuffer& text, Position at, Test test) {
    while (at > 0 && test(text[at - 1]))
        --at;
    return at;
}

template <class Test>
Position skipRight(const TextBuffer& text, Position at, Test test) {
    const auto size = static_cast<Position>(text.size());
    while (at < size && test(text[at]))
        ++at;
    return at;
}

Position lineHome(const CaretContext& from) {
    return from.lines.lineStart(from.lines.lineOf(from.caret));
}

Position lineEnd(const CaretContext& from) {
    return from.lines.lineEnd(from.text, from.lines.lineOf(from.caret));
}

Position textHome(const CaretContext& /*from*/) {
    return 0;
}

Position textEnd(const CaretContext& from) {
    return static_cast<Position>(from.text.size());
}

Position linesDown(const CaretContext& from, Position count) {
    const Position line = from.lines.lineOf(from.caret);
    const Position last = from.lines.lineCount() - 1;
    const Position target = std::clamp<Position>(line + std::min(count, last), 0, last);
    return target == line ? from.caret : from.lines.placeAt(from.text, target, from.goalX);
}

Position lineUp(const CaretContext& from) {
    return linesDown(from, -1);
}

Position lineDown(const CaretContext& from) {
    return linesDown(from, 1);
}

Position pageUp(const CaretContext& from) {
    return linesDown(from, -from.pageLines);
}

Position pageDown(const CaretContext& from) {
    return linesDown(from, from.pageLines);
}

constexpr std::array<CaretKey, 16> caretKeys = {{
    // key, Ctrl, vertical, move
    {key::left, false, false, glyphLeft},
    {key::right, false, false, glyphRight},
    {key::home, false, false, lineHome},
    {key::end, false, false, lineEnd},
    {key::up, false, true, lineUp},
    {key::down, false, true, lineDown},
    {key::pageUp, false, true, pageUp},
    {key::pageDown, false, true, pageDown},

    {key::left, true, false, wordLeft},
    {key::right, true, false, wordRight},
    {key::home, true, false, textHome},
    {key::end, true, false, textEnd},
    {key::up, true, true, lineUp},
    {key::down, true, true, lineDown},
    {key::pageUp, true, true, pageUp},
    {key::pageDown, true, true, pageDown},
}};

} // namespace

Position glyphLeft(const CaretContext& from) {
    const Position at = std::max(from.caret - 1, 0);
    const bool inPair = at > 0 && from.text[at] == '\n' && from.text[at - 1] == '\r';
    return inPair ? at - 1 : at;
}

Position glyphRight(const CaretContext& from) {
    const auto size = static_cast<Position>(from.text.size());
    if (from.caret == size)
        return size;
    const Position at = from.caret + 1;
    const bool inPair = at < size && from.text[at - 1] == '\r' && from.text[at] == '\n';
    return inPair ? at + 1 : at;
}

Position wordLeft(const CaretContext& from) {
    const Position blanks = skipLeft(from.text, from.caret, isBlank);
    const Position word = skipLeft(from.text, blanks, isWord);
    return word == from.caret ? glyphLeft(from) : word;
}

Position wordRight(const CaretContext& from) {
    const Position word = skipRight(from.text, from.caret, isWord);
    const Position blanks = skipRight(from.text, word, isBlank);
    return blanks == from.caret ? glyphRight(from) : blanks;
}

Selection wordAt(const TextBuffer& text, Position place) {
    const bool atEnd = place == static_cast<Position>(text.size()) || endsLine(text[place]);
    if (atEnd && (place == 0 || endsLine(text[place - 1])))
        return {.anchor = place, .caret = place};
    const auto test = isBlank(text[atEnd ? place - 1 : place]) ? isBlank : isWord;
    return {.anchor = skipLeft(text, place, test), .caret = skipRight(text, place, test)};
}

Selection paragraphAt(const TextBuffer& text, Position place) {
    const auto noBreak = [](char glyph) { return !endsLine(glyph); };
    const auto size = static_cast<Position>(text.size());
    const bool inPair = place > 0 && place < size && text[place - 1] == '\r' && text[place] == '\n';
    const Position from = skipLeft(text, inPair ? place - 1 : place, noBreak);
    Position to = skipRight(text, inPair ? place - 1 : place, noBreak);
    if (to < size)
        to += text[to] == '\r' && to + 1 < size && text[to + 1] == '\n' ? 2 : 1;
    return {.anchor = from, .caret = to};
}

const CaretKey* findCaretKey(std::int16_t keyCode, bool ctrl) {
    const auto* found =
        std::find_if(caretKeys.begin(), caretKeys.end(), [keyCode, ctrl](const CaretKey& row) {
            return row.keyCode == keyCode && row.ctrl == ctrl;
        });
    return found == caretKeys.end() ? nullptr : found;
}

} // namespace quillet
