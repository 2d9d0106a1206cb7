#include "platform/line_layout.h"

#include <algorithm>
#include <cstdint>
#include <new>
#include <utility>

namespace quillet {
namespace {

constexpr Advance looksAt = maxAdvance + 1; // the step of glyphs that need more than an addition
constexpr std::size_t blockLength = 16;

// The state of wrapping one line, fed with the text in contiguous parts.
class LineScan {
  public:
    LineScan(const LineLayout& layout, const std::array<Advance, 256>& steps, Position start)
        : layout_(layout),
          steps_(steps),
          width_(layout.metrics().width),
          start_(start),
          at_(start) {}

    // Goes on through `part`. True when the line is complete. Most of it goes by whole blocks,
    // for as long as they surely fit.
    bool feed(GlyphView part) {
        while (part.size() >= blockLength) {
            Advance sum = 0;
            for (std::size_t i = 0; i < blockLength; ++i)
                sum += steps_[glyphCode(part[i])];
            if (std::int64_t{x_} + sum <= width_) {
                x_ += sum;
                at_ += static_cast<Position>(blockLength);
            } else if (feedSingly(part.substr(0, blockLength))) {
                return true;
            }
            part.remove_prefix(blockLength);
        }
        return feedSingly(part);
    }

    // Behind the line break that ended the scan, or else the glyph that no longer fits.
    Position at() const { return at_; }
    std::optional<char> ending() const { return ending_; }

  private:
    bool feedSingly(GlyphView part) {
        for (const char glyph : part) {
            const Advance left = x_;
            if (endsLine(glyph)) {
                ending_ = glyph;
                ++at_;
                return true;
            }
            x_ = layout_.advanceFrom(left, glyph);
            if (x_ > width_ && x_ != left && !isBlank(glyph) && at_ != start_)
                return true;
            ++at_;
        }
        return false;
    }

    const LineLayout& layout_;
    const std::array<Advance, 256>& steps_;
    const Advance width_;
    const Position start_;
    Position at_;
    Advance x_ = 0;
    std::optional<char> ending_;
};

// Where a line breaks that has room up to `end`: behind its last blank, or else there.
Position breakBefore(const TextBuffer& text, Position start, Position end) {
    for (Position at = end; at > start; --at)
        if (isBlank(text[at - 1]))
            return at;
    return end;
}

} // namespace

void LineLayout::setMetrics(const LineMetrics& metrics, const TextBuffer& text) {
    LineLayout other(wrappedAtOnce_, starts_.chunkLength());
    other.metrics_ = metrics;
    other.steps_ = metrics.advances;
    for (const char glyph : {'\r', '\n', '\t'})
        other.steps_[glyphCode(glyph)] = looksAt;
    other.size_ = static_cast<Position>(text.size());
    other.hasRest_ = true;
    other.settle(text);
    *this = std::move(other);
}

LineChange LineLayout::replaced(const TextBuffer& text, Position at, Position inserted) {
    // The line before the changed one comes first: a shorter word may fit at its end now. Where
    // not even one glyph fits into a line, what broke a line may stand two lines below.
    const Position changed = lineOf(at);
    const Position first = std::max(changed - 2, 0);
    const std::array oldStarts = {lineStart(first), lineStart(first + 1), lineStart(first + 2)};
    const Position removed = size_ + inserted - static_cast<Position>(text.size());
    std::vector<Position> joins;
    for (const Position join : joins_) {
        if (join <= at)
            joins.push_back(join);
        else if (join > at + removed)
            joins.push_back(join - removed + inserted);
    }
    LineChange change = rewrap(text, first, at + inserted, std::move(joins));
    while (change.first < changed && change.after > 1 &&
           lineStart(change.first + 1) == oldStarts[change.first + 1 - first])
        change = {change.first + 1, change.before - 1, change.after - 1};
    return change;
}

LineChange LineLayout::settle(const TextBuffer& text) {
    if (!joins_.empty())
        return rewrap(text, lineOf(joins_.front()) - 1, 0, joins_);
    return hasRest_ ? rewrap(text, lineCount() - 1, 0, {}) : LineChange{};
}

LineChange LineLayout::wrapTo(const TextBuffer& text, Position at) {
    const Position rest = lineCount() - 1;
    while (hasRest_ && at >= lineStart(lineCount() - 1))
        rewrap(text, lineCount() - 1, 0, joins_);
    return {.first = rest, .before = 1, .after = lineCount() - rest};
}

// Wraps from line `first` on, at least to `changeEnd`. `joins` are those of the new text.
LineChange LineLayout::rewrap(const TextBuffer& text, Position first, Position changeEnd,
                              std::vector<Position> joins) {
    const auto size = static_cast<Position>(text.size());
    const Position distance = size - size_;
    const Position from = starts_[first];
    const Wrapped wrapped = wrapFrom(text, first, changeEnd);

    std::erase_if(joins, [&, end = wrapped.end](Position join) {
        return join > from && (!end || join <= *end);
    });
    const Position left = lineCount() - wrapped.kept;
    if (left > 0 && !wrapped.meets) {
        const Position join = starts_[wrapped.kept] + distance;
        const auto place = std::lower_bound(joins.begin(), joins.end(), join);
        if (place == joins.end() || *place != join)
            joins.insert(place, join);
    }
    const auto after = static_cast<std::int64_t>(wrapped.starts.size()) + 1;
    if (first + after + left > maxTextLength)
        throw std::bad_alloc(); // more lines than can be counted

    const Position before = wrapped.kept - first;
    starts_.replace(first + 1, before - 1, wrapped.starts, distance);
    joins_ = std::move(joins); // from here on nothing can fail
    hasRest_ = hasRest_ && wrapped.end;
    size_ = size;
    return {.first = first, .before = before, .after = static_cast<Position>(after)};
}

LineLayout::Wrapped LineLayout::wrapFrom(const TextBuffer& text, Position first,
                                         Position changeEnd) const {
    const Position count = lineCount();
    const auto size = static_cast<Position>(text.size());
    const Position distance = size - size_;
    Position start = starts_[first];
    Wrapped wrapped{.starts = {}, .kept = first + 1, .end = start, .meets = false};
    auto& [starts, kept, end, meets] = wrapped;
    if (changeEnd > distance)
        kept = std::max(kept, starts_.lineOf(changeEnd - distance - 1) + 1);
    const Position goal = std::max(start, changeEnd);
    const Position stop = goal + std::min(size - goal, wrappedAtOnce_);
    while (end && !meets && start <= stop) {
        end = nextStart(text, start);
        while (kept < count && (!end || starts_[kept] + distance < *end))
            ++kept;
        meets = kept < count && starts_[kept] + distance == *end;
        if (end && !meets)
            starts.push_back(start = *end);
    }
    return wrapped;
}

Position LineLayout::lineStart(Position line) const {
    return line < lineCount() ? starts_[line] : size_;
}

Position LineLayout::lineEnd(const TextBuffer& text, Position line) const {
    const Position start = lineStart(line);
    Position end = lineStart(line + 1);
    if (line + 1 == lineCount())
        return end;
    const char last = text[end - 1];
    --end;
    const bool pair = last == '\n' && end > start && text[end - 1] == '\r';
    return pair ? end - 1 : end;
}

Advance LineLayout::xOf(const TextBuffer& text, Position at) const {
    const Position start = lineStart(lineOf(at));
    Advance x = 0;
    for (const GlyphView part : text.spans(start, at - start))
        for (const char glyph : part)
            x = advanceFrom(x, glyph);
    return x;
}

Position LineLayout::placeAt(const TextBuffer& text, Position line, Advance x) const {
    const Position end = lineEnd(text, line);
    Advance left = 0;
    for (Position at = lineStart(line); at < end; ++at) {
        const Advance right = advanceFrom(left, text[at]);
        const bool behindOthers = at > lineStart(line);
        if (x < left + (right - left) / 2 && !(right == left && behindOthers))
            return at;
        left = right;
    }
    return end;
}

Advance LineLayout::advanceFrom(Advance x, char glyph) const {
    if (glyph == '\t')
        return (x / metrics_.tabStop + 1) * metrics_.tabStop;
    return x + metrics_.advances[glyphCode(glyph)];
}

std::optional<Position> LineLayout::nextStart(const TextBuffer& text, Position start) const {
    LineScan scan(*this, steps_, start);
    const auto size = static_cast<Position>(text.size());
    const Position count = std::min(size - start, maxLineLength);
    const auto parts = text.spans(start, count);
    const bool complete =
        std::ranges::any_of(parts, [&scan](GlyphView part) { return scan.feed(part); });
    if (!complete && count == size - start)
        return std::nullopt;
    const Position next = scan.at();
    if (!scan.ending())
        return breakBefore(text, start, next);
    const bool splitsPair = scan.ending() == '\r' && next < size && text[next] == '\n';
    return splitsPair ? next + 1 : next;
}

} // namespace quillet
