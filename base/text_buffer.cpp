#include "base/text_buffer.h"

#include "base/exchange.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace quillet {

TextBuffer::TextBuffer(GlyphView text, std::size_t chunkLength) : chunkLength_(chunkLength) {
    append(text);
}

GlyphString TextBuffer::copy(std::size_t at, std::size_t count) const {
    GlyphString text;
    text.reserve(count);
    for (const GlyphView part : spans(at, count))
        text.append(part);
    return text;
}

bool operator==(const TextBuffer& one, const TextBuffer& other) {
    const std::size_t size = one.size();
    if (size != other.size())
        return false;
    std::size_t same = 0;
    while (same < size) {
        const GlyphView mine = one.contiguous(same, size);
        const GlyphView theirs = other.contiguous(same, mine.size());
        if (mine.substr(0, theirs.size()) != theirs)
            return false;
        same += theirs.size();
    }
    return true;
}

TextBuffer::Replaced TextBuffer::replace(std::size_t at, std::size_t removed, GlyphView inserted) {
    if (chunks_.empty())
        chunks_.emplace_back();
    const std::size_t first = chunkAt(at);
    Chunk& chunk = chunks_[first];
    const bool isWithin = at + removed <= endOf(chunk);
    if (!isWithin || chunk.bytes.size() - removed + inserted.size() > 2 * chunkLength_)
        return replaceChunks(at, removed, inserted);
    chunk.bytes.replace(at - chunk.start, removed, inserted);
    shift(first + 1, inserted.size() - removed);
    return {.first = first, .count = 1, .chunks = {}};
}

// All that may fail comes before the exchange.
TextBuffer::Replaced TextBuffer::replaceChunks(std::size_t at, std::size_t removed,
                                               GlyphView inserted) {
    const std::size_t first = chunkAt(at);
    const std::size_t behind = at + removed;
    const std::size_t last = removed == 0 ? first : chunkAt(behind - 1);
    const std::size_t count = last + 1 - first;
    const std::size_t start = chunks_[first].start;
    TextBuffer made({}, chunkLength_);
    made.append(spans(start, at - start));
    made.append(inserted);
    made.append(spans(behind, endOf(chunks_[last]) - behind));
    Replaced change{
        .first = first, .count = made.chunks_.size(), .chunks = std::move(made.chunks_)};
    change.chunks.reserve(count);
    chunks_.reserve(chunks_.size() + change.count);
    exchangeChunks(first, count, change.chunks);
    return change;
}

void TextBuffer::takeBack(Replaced& change, std::size_t at, std::size_t inserted,
                          GlyphView removed) {
    if (!change.chunks.empty())
        return exchangeChunks(change.first, change.count, change.chunks);
    Chunk& chunk = chunks_[change.first]; // which has the room that it had
    chunk.bytes.replace(at - chunk.start, inserted, removed);
    shift(change.first + 1, removed.size() - inserted);
}

void TextBuffer::append(GlyphView text) {
    while (!text.empty()) {
        const std::span<char> room = prepareAppend(text.size());
        std::memcpy(room.data(), text.data(), room.size());
        commitAppend(room.size());
        text.remove_prefix(room.size());
    }
}

void TextBuffer::append(const Spans& text) {
    for (const GlyphView part : text)
        append(part);
}

void TextBuffer::expectChange(std::size_t at) {
    if (chunks_.empty())
        return;
    Chunk& chunk = chunks_[chunkAt(at)];
    chunk.bytes.moveGap(at - chunk.start);
}

std::span<char> TextBuffer::prepareAppend(std::size_t expected) {
    if (chunks_.empty() || chunks_.back().bytes.size() >= chunkLength_)
        chunks_.push_back({.start = size(), .bytes = {}});
    GapBuffer& last = chunks_.back().bytes;
    const std::size_t count = std::min(expected, chunkLength_ - last.size());
    return {last.prepareAppend(count), count};
}

// The last chunk that starts at or before `at`.
std::size_t TextBuffer::seek(std::size_t at) const {
    const auto behind =
        std::upper_bound(chunks_.begin(), chunks_.end(), at,
                         [](std::size_t place, const Chunk& chunk) { return place < chunk.start; });
    current_ = static_cast<std::size_t>(behind - chunks_.begin()) - 1;
    return current_;
}

void TextBuffer::exchangeChunks(std::size_t first, std::size_t count, std::vector<Chunk>& chunks) {
    exchange(chunks_, first, count, chunks);
    for (std::size_t i = first; i < chunks_.size(); ++i)
        chunks_[i].start = i == 0 ? 0 : endOf(chunks_[i - 1]);
}

// A distance to the left is one that wraps around.
void TextBuffer::shift(std::size_t first, std::size_t distance) {
    if (distance == 0)
        return;
    for (std::size_t i = first; i < chunks_.size(); ++i)
        chunks_[i].start += distance;
}

} // namespace quillet
