#include "platform/line_starts.h"

#include "base/exchange.h"

#include <algorithm>

namespace quillet {

LineStarts::LineStarts(std::size_t chunkLength)
    : chunkLength_(chunkLength),
      chunks_{{.first = {}, .offsets = {0}}} {}

Position LineStarts::count() const {
    return firstOf(chunks_.size() - 1).number +
           static_cast<Position>(chunks_.back().offsets.size());
}

Position LineStarts::operator[](Position line) const {
    const std::size_t chunk = chunkBy(&Line::number, line);
    const Line first = firstOf(chunk);
    return first.start + chunks_[chunk].offsets[line - first.number];
}

Position LineStarts::lineOf(Position place) const {
    const std::size_t chunk = chunkBy(&Line::start, place);
    const Line first = firstOf(chunk);
    const std::vector<Position>& offsets = chunks_[chunk].offsets;
    const auto behind = std::upper_bound(offsets.begin(), offsets.end(), place - first.start);
    return first.number + static_cast<Position>(behind - offsets.begin()) - 1;
}

void LineStarts::replace(Position first, Position removed, std::span<const Position> starts,
                         Position distance) {
    const std::size_t from = first < count() ? chunkBy(&Line::number, first) : chunks_.size() - 1;
    const std::size_t to = removed == 0 ? from : chunkBy(&Line::number, first + removed - 1);
    const auto added = static_cast<Position>(starts.size());
    if (from == to && added == removed)
        return overwrite(from, first, starts, distance);

    std::vector<Position> all;
    const auto add = [&all](Line base, std::span<const Position> offsets, Position moved) {
        for (const Position offset : offsets)
            all.push_back(base.start + offset + moved);
    };
    const Line head = firstOf(from);
    const Line tail = firstOf(to);
    add(head, std::span(chunks_[from].offsets).first(first - head.number), 0);
    all.insert(all.end(), starts.begin(), starts.end());
    add(tail, std::span(chunks_[to].offsets).subspan(first + removed - tail.number), distance);
    std::vector<Chunk> made = chunksOf(all, head.number);
    const std::size_t madeCount = made.size();
    made.reserve(to + 1 - from);
    chunks_.reserve(chunks_.size() + madeCount); // from here on nothing can fail
    moveShift(to + 1);
    exchange(chunks_, from, to + 1 - from, made);
    shiftedFrom_ = from + madeCount;
    shiftMore(added - removed, distance);
}

// Within one chunk, line by line.
void LineStarts::overwrite(std::size_t chunk, Position first, std::span<const Position> starts,
                           Position distance) {
    moveShift(chunk + 1);
    auto& [head, offsets] = chunks_[chunk];
    auto offset = offsets.begin() + (first - head.number);
    for (const Position start : starts)
        *offset++ = start - head.start;
    for (; offset != offsets.end(); ++offset)
        *offset += distance;
    if (const Position moved = offsets.front(); moved != 0) {
        head.start += moved;
        for (Position& each : offsets)
            each -= moved;
    }
    shiftMore(0, distance);
}

std::vector<LineStarts::Chunk> LineStarts::chunksOf(const std::vector<Position>& starts,
                                                    Position number) const {
    std::vector<Chunk> chunks;
    std::span<const Position> left(starts);
    while (!left.empty()) {
        const bool isLast = left.size() <= 2 * chunkLength_;
        const auto taken = left.first(isLast ? left.size() : chunkLength_);
        const Position start = taken.front();
        Chunk& chunk = chunks.emplace_back(Chunk{{.number = number, .start = start}, {}});
        chunk.offsets.reserve(taken.size());
        for (const Position each : taken)
            chunk.offsets.push_back(each - start);
        number += static_cast<Position>(taken.size());
        left = left.subspan(taken.size());
    }
    return chunks;
}

LineStarts::Line LineStarts::firstOf(std::size_t chunk) const {
    const Line& first = chunks_[chunk].first;
    if (chunk < shiftedFrom_)
        return first;
    return {.number = first.number + shift_.number, .start = first.start + shift_.start};
}

// The last chunk whose first line has a `key` up to `value`.
std::size_t LineStarts::chunkBy(Position Line::*key, Position value) const {
    const auto middle = chunks_.begin() + static_cast<std::ptrdiff_t>(shiftedFrom_);
    const bool isShifted = middle != chunks_.end() && value >= firstOf(shiftedFrom_).*key;
    const auto behind = std::upper_bound(
        isShifted ? middle : chunks_.begin(), isShifted ? chunks_.end() : middle,
        isShifted ? value - shift_.*key : value,
        [key](Position wanted, const Chunk& chunk) { return wanted < chunk.first.*key; });
    return static_cast<std::size_t>(behind - chunks_.begin()) - 1;
}

void LineStarts::moveShift(std::size_t to) {
    for (; shiftedFrom_ < to; ++shiftedFrom_)
        chunks_[shiftedFrom_].first = firstOf(shiftedFrom_);
    while (shiftedFrom_ > to) {
        Line& first = chunks_[--shiftedFrom_].first;
        first = {.number = first.number - shift_.number, .start = first.start - shift_.start};
    }
}

// Where nothing is shifted, nothing adds up either.
void LineStarts::shiftMore(Position number, Position start) {
    if (shiftedFrom_ == chunks_.size())
        shift_ = {};
    else
        shift_ = {.number = shift_.number + number, .start = shift_.start + start};
}

} // namespace quillet
