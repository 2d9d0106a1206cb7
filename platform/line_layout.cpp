#include "platform/line_layout.h"

#include <algorithm>
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
    LineLayout other(wrappedAtOnce_);
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
    const Position linesBefore = lineCount();
    splitAt(first + 1);

    const auto size = static_cast<Position>(text.size());
    const auto dropBefore = [&](std::size_t kept, Position place) {
        while (kept > 0 && size - tail_[kept - 1] < place)
            --kept;
        return kept;
    };
    std::size_t kept = dropBefore(tail_.size(), changeEnd);
    std::vector<Position> starts;
    const Position from = head_.back();
    Position start = from;
    const Position goal = std::max(start, changeEnd);
    const Position stop = goal + std::min(size - goal, wrappedAtOnce_);
    bool met = false;
    std::optional<Position> next = start;
    while (next && !met && start <= stop) {
        next = nextStart(text, start);
        kept = next ? dropBefore(kept, *next) : 0;
        met = kept > 0 && size - tail_[kept - 1] == *next;
        if (next && !met)
            starts.push_back(start = *next);
    }
    std::erase_if(joins, [&](Position join) { return join > from && (!next || join <= *next); });
    if (kept > 0 && !met) {
        const Position join = size - tail_[kept - 1];
        const auto place = std::lower_bound(joins.begin(), joins.end(), join);
        if (place == joins.end() || *place != join)
            joins.insert(place, join);
    }

    if (head_.size() + starts.size() > static_cast<std::size_t>(maxTextLength) - kept)
        throw std::bad_alloc(); // more lines than can be counted

    head_.insert(head_.end(), starts.begin(), starts.end());
    tail_.resize(kept); // from here on nothing can fail
    joins_ = std::move(joins);
    hasRest_ = hasRest_ && next;
    size_ = size;
    const auto after = static_cast<Position>(head_.size()) - first;
    return {.first = first, .before = linesBefore - lineCount() + after, .after = after};
}

void LineLayout::expectChange(Position at) {
    splitAt(std::max(lineOf(at), 1));
}

Position LineLayout::lineCount() const {
    return static_cast<Position>(head_.size() + tail_.size());
}

Position LineLayout::lineStart(Position line) const {
    const std::size_t index = line;
    if (index < head_.size())
        return head_[index];
    const std::size_t behind = index - head_.size();
    return behind < tail_.size() ? tailStart(tail_.size() - 1 - behind) : size_;
}

Position LineLayout::lineOf(Position at) const {
    if (tail_.empty() || at < tailStart(tail_.size() - 1)) {
        const auto above = std::upper_bound(head_.begin(), head_.end(), at);
        return static_cast<Position>(above - head_.begin()) - 1;
    }
    // The distances grow from the end of the text towards its start, and so does the index.
    const auto found = std::lower_bound(tail_.begin(), tail_.end(), size_ - at);
    return lineCount() - 1 - static_cast<Position>(found - tail_.begin());
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

void LineLayout::splitAt(Position line) {
    const std::size_t count = line;
    while (head_.size() > count) {
        tail_.push_back(size_ - head_.back());
        head_.pop_back();
    }
    while (head_.size() < count) {
        head_.push_back(tailStart(tail_.size() - 1));
        tail_.pop_back();
    }
}

} // namespace quillet
