#include "search/text_search.h"

#include "base/run_time_error.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <span>
#include <utility>

namespace quillet {
namespace {

constexpr std::size_t sampleLength = 4096;
constexpr int maxMisses = 64;

// Looks for the glyph of `what` that a sample of the text has the fewest of, and only there for the
// rest. The text comes in parts, one of which has every match as a whole.
class Searcher {
  public:
    Searcher(const TextBuffer& text, GlyphView what) : text_(text), what_(what) {
        std::array<std::size_t, 256> counts{};
        for (const GlyphView part : text.spans(0, std::min(sampleLength, text.size())))
            for (const char glyph : part)
                ++counts[glyphCode(glyph)];
        const auto rarest = std::min_element(what.begin(), what.end(), [&](char one, char other) {
            return counts[glyphCode(one)] < counts[glyphCode(other)];
        });
        key_ = static_cast<std::size_t>(rarest - what.begin());
    }

    // The part that begins at `from`, valid until the next is asked for; empty where less than one
    // match is left. The last `reach` glyphs of a part also begin the next one.
    GlyphView partFrom(std::size_t from) {
        const std::size_t left = text_.size() - from;
        if (left <= reach())
            return {};
        const GlyphView part = text_.contiguous(from, left);
        if (part.size() > reach())
            return part;
        acrossSeam_ = text_.copy(from, std::min(left, 2 * reach()));
        return acrossSeam_;
    }

    std::size_t reach() const { return what_.size() - 1; }

    // Where the first match in a part or in the rest of one starts, or `none`.
    std::size_t findIn(GlyphView part) const {
        if (part.size() <= reach())
            return none;
        const char* at = part.data();
        const char* const end = at + (part.size() - reach());
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

    static constexpr std::size_t none = GlyphView::npos;

  private:
    // Never much slower than the text is long, whatever the two are.
    std::size_t findSteadily(GlyphView part, std::size_t from) const {
        const void* found =
            ::memmem(part.data() + from, part.size() - from, what_.data(), what_.size());
        if (found == nullptr)
            return none;
        return static_cast<std::size_t>(static_cast<const char*>(found) - part.data());
    }

    const TextBuffer& text_;
    GlyphView what_;
    std::size_t key_;
    GlyphString acrossSeam_;
};

// Writes a text from its start to its end.
class Writer {
  public:
    explicit Writer(Position limit) : limit_(static_cast<std::size_t>(limit)) {}

    void add(GlyphView part) {
        while (part.size() > room_.size()) {
            const std::size_t fits = room_.size();
            copy(part.substr(0, fits));
            part.remove_prefix(fits);
            makeRoom(part.size());
        }
        copy(part);
    }

    TextBuffer take() {
        commit();
        return std::move(text_);
    }

  private:
    static constexpr std::size_t leastRoom = 4096;

    void copy(GlyphView part) {
        if (part.empty())
            return;
        std::memcpy(room_.data(), part.data(), part.size());
        room_ = room_.subspan(part.size());
    }

    void commit() {
        if (roomSize_ > 0)
            text_.commitAppend(roomSize_ - room_.size());
        roomSize_ = room_.size();
    }

    void makeRoom(std::size_t count) {
        commit();
        const std::size_t left = limit_ - text_.size();
        if (count > left)
            throw RunTimeError(ErrorNumber::OutOfMemory);
        room_ = text_.prepareAppend(std::min(left, std::max({count, text_.size(), leastRoom})));
        roomSize_ = room_.size();
    }

    std::size_t limit_;
    TextBuffer text_;
    std::span<char> room_;     // what is left of it
    std::size_t roomSize_ = 0; // of what has not been committed
};

} // namespace

std::optional<Position> findText(const TextBuffer& text, Position from, GlyphView what) {
    Searcher searcher(text, what);
    std::size_t at = static_cast<std::size_t>(from);
    for (GlyphView part = searcher.partFrom(at); !part.empty(); part = searcher.partFrom(at)) {
        const std::size_t found = searcher.findIn(part);
        if (found != Searcher::none)
            return static_cast<Position>(at + found);
        at += part.size() - searcher.reach();
    }
    return std::nullopt;
}

TextBuffer replaceAll(const TextBuffer& text, GlyphView what, GlyphView with, Position limit) {
    Writer result(limit);
    std::size_t done = 0;
    if (!what.empty()) {
        Searcher searcher(text, what);
        for (GlyphView part = searcher.partFrom(0); !part.empty(); part = searcher.partFrom(done)) {
            done += part.size();
            std::size_t found = searcher.findIn(part);
            for (; found != Searcher::none; found = searcher.findIn(part)) {
                result.add(part.substr(0, found));
                result.add(with);
                part.remove_prefix(found + what.size());
            }
            const std::size_t kept = std::min(part.size(), searcher.reach());
            part.remove_suffix(kept);
            result.add(part);
            done -= kept;
        }
    }
    for (const GlyphView rest : text.spans(done, text.size() - done))
        result.add(rest);
    return result.take();
}

} // namespace quillet
