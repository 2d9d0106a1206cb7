#include "search/text_search.h"

#include "base/run_time_error.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

namespace quillet {
namespace {

using Parts = GapBuffer::Spans;

constexpr std::size_t sampleLength = 4096;
constexpr int maxMisses = 64;

// One search, for many matches in a row. It looks for the glyph of `what` that a sample of the
// text has the fewest of, and only there for the rest.
class Searcher {
  public:
    Searcher(const Parts& text, GlyphView what) : text_(text), what_(what) {
        std::array<std::size_t, 256> counts{};
        for (const GlyphView part : text)
            for (const char glyph : part.substr(0, sampleLength))
                ++counts[glyphCode(glyph)];
        const auto rarest = std::min_element(what.begin(), what.end(), [&](char one, char other) {
            return counts[glyphCode(one)] < counts[glyphCode(other)];
        });
        key_ = static_cast<std::size_t>(rarest - what.begin());
    }

    // Where the next match at or behind `from` starts, or `none`.
    std::size_t find(std::size_t from) const {
        const std::size_t first = text_[0].size();
        std::size_t found = from < first ? findIn(text_[0], from) : none;
        if (found != none)
            return found;
        found = findAcross(from);
        if (found != none)
            return found;
        found = findIn(text_[1], from < first ? 0 : from - first);
        return found == none ? none : first + found;
    }

    static constexpr std::size_t none = GlyphView::npos;

  private:
    std::size_t findIn(GlyphView part, std::size_t from) const {
        if (part.size() < what_.size())
            return none;
        const char* at = part.data() + from;
        const char* const end = part.data() + (part.size() - what_.size()) + 1;
        for (int misses = 0; at < end && misses < maxMisses; ++misses, ++at) {
            const auto room = static_cast<std::size_t>(end - at);
            const void* key = std::memchr(at + key_, what_[key_], room);
            if (key == nullptr)
                return none;
            at = static_cast<const char*>(key) - key_;
            if (std::memcmp(at, what_.data(), what_.size()) == 0)
                return static_cast<std::size_t>(at - part.data());
        }
        return at < end ? findSteadily(part, static_cast<std::size_t>(at - part.data())) : none;
    }

    // Never much slower than the text is long, whatever the two are.
    std::size_t findSteadily(GlyphView part, std::size_t from) const {
        const void* found =
            ::memmem(part.data() + from, part.size() - from, what_.data(), what_.size());
        if (found == nullptr)
            return none;
        return static_cast<std::size_t>(static_cast<const char*>(found) - part.data());
    }

    // A match that begins in the first part and ends in the second.
    std::size_t findAcross(std::size_t from) const {
        const std::size_t first = text_[0].size();
        const std::size_t reach = what_.size() - 1;
        const std::size_t start = std::max(from, first - std::min(first, reach));
        if (start >= first || text_[1].empty())
            return none;
        GlyphString both(text_[0].substr(start));
        both += text_[1].substr(0, reach);
        const std::size_t found = findIn(both, 0);
        return found == none ? none : start + found;
    }

    Parts text_;
    GlyphView what_;
    std::size_t key_;
};

// Writes a text from its start to its end.
class Writer {
  public:
    explicit Writer(Position limit) : limit_(static_cast<std::size_t>(limit)) {}

    void add(GlyphView part) {
        if (part.empty())
            return;
        if (end_ == nullptr || part.size() > room_)
            makeRoom(part.size());
        std::memcpy(end_, part.data(), part.size());
        end_ += part.size();
        room_ -= part.size();
    }

    void add(const Parts& text, std::size_t from, std::size_t to) {
        const std::size_t first = text[0].size();
        if (from < first)
            add(text[0].substr(from, to - from));
        if (to > first)
            add(text[1].substr(std::max(from, first) - first, to - std::max(from, first)));
    }

    GapBuffer take() {
        commit();
        return std::move(text_);
    }

  private:
    static constexpr std::size_t leastRoom = 4096;
    static constexpr std::size_t mostRoom = 1 << 20;

    void commit() {
        text_.commitAppend(static_cast<std::size_t>(end_ - start_));
        start_ = end_;
    }

    void makeRoom(std::size_t count) {
        commit();
        const std::size_t left = limit_ - text_.size();
        if (count > left)
            throw RunTimeError(ErrorNumber::OutOfMemory);
        const std::size_t wanted = std::clamp(text_.size(), leastRoom, mostRoom);
        room_ = std::min(left, std::max(count, wanted));
        start_ = end_ = text_.prepareAppend(room_);
    }

    std::size_t limit_;
    GapBuffer text_;
    char* start_ = nullptr; // of what has not been committed
    char* end_ = nullptr;
    std::size_t room_ = 0;
};

} // namespace

std::optional<Position> findText(const Parts& text, Position from, GlyphView what) {
    const std::size_t found = Searcher(text, what).find(static_cast<std::size_t>(from));
    return found == Searcher::none ? std::nullopt : std::optional(static_cast<Position>(found));
}

GapBuffer replaceAll(const Parts& text, GlyphView what, GlyphView with, Position limit) {
    Writer result(limit);
    std::size_t done = 0;
    if (!what.empty()) {
        const Searcher searcher(text, what);
        std::size_t found = searcher.find(0);
        while (found != Searcher::none) {
            result.add(text, done, found);
            result.add(with);
            done = found + what.size();
            found = searcher.find(done);
        }
    }
    result.add(text, done, text[0].size() + text[1].size());
    return result.take();
}

} // namespace quillet
