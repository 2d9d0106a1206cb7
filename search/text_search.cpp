#include "search/text_search.h"

#include "base/run_time_error.h"

#include <algorithm>
#include <cstring>

namespace quillet {
namespace {

using Parts = GapBuffer::Spans;

std::optional<std::size_t> findIn(GlyphView part, std::size_t from, GlyphView what) {
    if (from >= part.size())
        return std::nullopt;
    const void* found = ::memmem(part.data() + from, part.size() - from, what.data(), what.size());
    if (found == nullptr)
        return std::nullopt;
    return static_cast<std::size_t>(static_cast<const char*>(found) - part.data());
}

// A match that begins in the first part and ends in the second.
std::optional<std::size_t> findAcross(const Parts& text, std::size_t from, GlyphView what) {
    const std::size_t reach = what.size() - 1;
    const std::size_t start = std::max(from, text[0].size() - std::min(text[0].size(), reach));
    if (start >= text[0].size() || text[1].empty())
        return std::nullopt;
    GlyphString both(text[0].substr(start));
    both += text[1].substr(0, reach);
    const auto found = findIn(both, 0, what);
    return found ? std::optional(start + *found) : std::nullopt;
}

std::optional<std::size_t> find(const Parts& text, std::size_t from, GlyphView what) {
    const std::size_t first = text[0].size();
    if (const auto found = findIn(text[0], from, what))
        return found;
    if (const auto found = findAcross(text, from, what))
        return found;
    const auto found = findIn(text[1], std::max(from, first) - first, what);
    return found ? std::optional(first + *found) : std::nullopt;
}

void append(GapBuffer& result, GlyphView part) {
    if (part.size() > static_cast<std::size_t>(maxTextLength) - result.size())
        throw RunTimeError(ErrorNumber::OutOfMemory);
    result.replace(result.size(), 0, part);
}

void append(GapBuffer& result, const Parts& text, std::size_t from, std::size_t to) {
    const std::size_t first = text[0].size();
    if (from < first)
        append(result, text[0].substr(from, to - from));
    if (to > first)
        append(result, text[1].substr(std::max(from, first) - first, to - std::max(from, first)));
}

} // namespace

std::optional<Position> findText(const Parts& text, Position from, GlyphView what) {
    const auto found = find(text, static_cast<std::size_t>(from), what);
    return found ? std::optional(static_cast<Position>(*found)) : std::nullopt;
}

GapBuffer replaceAll(const Parts& text, GlyphView what, GlyphView with) {
    GapBuffer result;
    std::size_t done = 0;
    if (!what.empty()) {
        while (const auto found = find(text, done, what)) {
            append(result, text, done, *found);
            append(result, with);
            done = *found + what.size();
        }
    }
    append(result, text, done, text[0].size() + text[1].size());
    return result;
}

} // namespace quillet
