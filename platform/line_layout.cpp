#include "platform/line_layout.h"

#include <algorithm>
#include <new>
#include <utility>

namespace quillet {
namespace {

constexpr Advance looksAt = -1; // the mark of CR, LF, tab and blank in the table of steps

bool endsLine(char glyph) {
    return glyph == '\r' || glyph == '\n';
}

// The state of wrapping one line, fed with the text in contiguous parts.
class LineScan {
  public:
    LineScan(const LineLayout& layout, const std::array<Advance, 256>& steps, Position start)
        : layout_(layout),
          steps_(steps),
          start_(start),
          at_(start) {}

    // Goes on through `part`. True when the next line's start is known.
    bool feed(GlyphView part) {
        const Advance width = layout_.metrics().width;
        for (const char glyph : part) {
            const Advance step = steps_[glyphCode(glyph)];
            if (step == looksAt) {
                if (look(glyph))
                    return true;
            } else {
                x_ += step;
                if (x_ > width && step != 0 && at_ != start_)
                    return true;
            }
            ++at_;
        }
        return false;
    }

    // Behind the line break that ended the scan, or else where a line that is too long breaks.
    Position next() const { return breakAt_ > start_ ? breakAt_ : at_; }
    bool sawCarriageReturn() const { return carriageReturn_; }

  private:
    bool look(char glyph) {
        breakAt_ = at_ + 1;
        carriageReturn_ = glyph == '\r';
        if (endsLine(glyph))
            return true;
        x_ = layout_.advanceFrom(x_, glyph);
        return false;
    }

    const LineLayout& layout_;
    const std::array<Advance, 256>& steps_;
    const Position start_;
    Position at_;
    Position breakAt_ = 0;
    Advance x_ = 0;
    bool carriageReturn_ = false;
};

} // namespace

void LineLayout::setMetrics(const LineMetrics& metrics, const GapBuffer& text) {
    LineLayout other;
    other.metrics_ = metrics;
    other.steps_ = metrics.advances;
    for (const char glyph : {'\r', '\n', '\t', ' '})
        other.steps_[glyphCode(glyph)] = looksAt;
    other.wrapAll(text);
    *this = std::move(other);
}

void LineLayout::wrapAll(const GapBuffer& text) {
    std::vector<Position> starts = {0};
    while (const auto next = nextStart(text, starts.back())) {
        if (starts.size() == static_cast<std::size_t>(maxTextLength))
            throw std::bad_alloc(); // more lines than can be counted
        starts.push_back(*next);
    }
    head_ = std::move(starts);
    tail_.clear();
    size_ = static_cast<Position>(text.size());
}

LineChange LineLayout::replaced(const GapBuffer& text, Position at, Position inserted) {
    // The line before the changed one comes first: a shorter word may fit at its end now.
    const Position first = std::max(lineOf(at) - 1, 0);
    const Position linesBefore = lineCount();
    splitAt(first + 1);

    const auto size = static_cast<Position>(text.size());
    const auto dropBefore = [&](std::size_t kept, Position place) {
        while (kept > 0 && size - tail_[kept - 1] < place)
            --kept;
        return kept;
    };
    std::size_t kept = dropBefore(tail_.size(), at + inserted);
    std::vector<Position> starts;
    Position start = head_.back();
    while (true) {
        const auto next = nextStart(text, start);
        kept = next ? dropBefore(kept, *next) : 0;
        const bool met = kept > 0 && size - tail_[kept - 1] == *next;
        if (!next || met)
            break;
        starts.push_back(start = *next);
    }

    head_.insert(head_.end(), starts.begin(), starts.end());
    tail_.resize(kept); // from here on nothing can fail
    size_ = size;
    const auto after = static_cast<Position>(head_.size()) - first;
    return {.first = first, .before = linesBefore - lineCount() + after, .after = after};
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

Position LineLayout::lineEnd(const GapBuffer& text, Position line) const {
    const Position start = lineStart(line);
    Position end = lineStart(line + 1);
    if (line + 1 == lineCount())
        return end;
    const char last = text[end - 1];
    --end;
    const bool pair = last == '\n' && end > start && text[end - 1] == '\r';
    return pair ? end - 1 : end;
}

Advance LineLayout::xOf(const GapBuffer& text, Position at) const {
    const Position start = lineStart(lineOf(at));
    Advance x = 0;
    for (const GlyphView part : text.spans(start, at - start))
        for (const char glyph : part)
            x = advanceFrom(x, glyph);
    return x;
}

Position LineLayout::placeAt(const GapBuffer& text, Position line, Advance x) const {
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

std::optional<Position> LineLayout::nextStart(const GapBuffer& text, Position start) const {
    LineScan scan(*this, steps_, start);
    const auto size = static_cast<Position>(text.size());
    const Position count = std::min(size - start, maxLineLength);
    const auto parts = text.spans(start, count);
    const bool found = scan.feed(parts[0]) || scan.feed(parts[1]);
    if (!found && count == size - start)
        return std::nullopt;
    const Position next = scan.next();
    const bool splitsPair = scan.sawCarriageReturn() && next < size && text[next] == '\n';
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
