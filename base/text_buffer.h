// The storage of a document's text.
#pragma once

#include "base/gap_buffer.h"
#include "base/glyph_string.h"

#include <cstddef>
#include <iterator>
#include <span>
#include <vector>

namespace quillet {

/// The bytes of a text in chunks, each with a gap at the place of its last change: what a change
/// costs hardly depends on where the last one was or on the text's length. Sizes are in bytes.
class TextBuffer {
  public:
    class Spans;

    static constexpr std::size_t usualChunkLength = 1 << 18;

    TextBuffer() = default;

    /// Chunks are filled up to `chunkLength`, and grow to twice of it.
    explicit TextBuffer(GlyphView text, std::size_t chunkLength = usualChunkLength);

    std::size_t size() const { return chunks_.empty() ? 0 : endOf(chunks_.back()); }

    /// The byte at `at`, which is below `size()`.
    char operator[](std::size_t at) const {
        const Chunk& chunk = chunks_[chunkAt(at)];
        return chunk.bytes[at - chunk.start];
    }

    /// The `count` bytes from `at` where they lie, or all of them; valid until the next change.
    Spans spans(std::size_t at, std::size_t count) const;
    Spans spans() const;

    /// The bytes from `at` on that lie side by side, but no more than `count`. Empty only where
    /// `count` is 0 or `at` the end.
    GlyphView contiguous(std::size_t at, std::size_t count) const {
        if (count == 0 || at == size())
            return {};
        const Chunk& chunk = chunks_[chunkAt(at)];
        return chunk.bytes.contiguous(at - chunk.start).substr(0, count);
    }

    GlyphString copy(std::size_t at, std::size_t count) const;

    friend bool operator==(const TextBuffer& one, const TextBuffer& other);

    /// What a change has left behind for `takeBack`.
    struct Replaced;

    /// Replaces `removed` bytes from `at`. Without memory it throws and changes nothing.
    /// `inserted` must not point into this buffer.
    Replaced replace(std::size_t at, std::size_t removed, GlyphView inserted);

    /// Takes back the last change, which put `inserted` bytes in place of `removed`. Cannot fail.
    void takeBack(Replaced& change, std::size_t at, std::size_t inserted, GlyphView removed);

    void append(GlyphView text);

    /// Brings a gap to `at` ahead of changes there. The text stays the same.
    void expectChange(std::size_t at);

    /// Room behind the text for some of the `expected` bytes, above 0, to be filled and then taken
    /// in by `commitAppend` with the number of bytes that were really written.
    std::span<char> prepareAppend(std::size_t expected);
    void commitAppend(std::size_t count) { chunks_.back().bytes.commitAppend(count); }

  private:
    struct Chunk {
        std::size_t start = 0;
        GapBuffer bytes; // sometimes none
    };

    static std::size_t endOf(const Chunk& chunk) { return chunk.start + chunk.bytes.size(); }
    std::size_t chunkAt(std::size_t at) const {
        const bool same = current_ < chunks_.size() && at >= chunks_[current_].start &&
                          at < endOf(chunks_[current_]);
        return same ? current_ : seek(at);
    }
    std::size_t seek(std::size_t at) const;
    void append(const Spans& text);
    Replaced replaceChunks(std::size_t at, std::size_t removed, GlyphView inserted);
    void exchangeChunks(std::size_t first, std::size_t count, std::vector<Chunk>& chunks);
    void shift(std::size_t first, std::size_t distance);

    std::size_t chunkLength_ = usualChunkLength;
    std::vector<Chunk> chunks_;
    mutable std::size_t current_ = 0; // where the last byte was looked up, and the next one may be
};

/// The parts of a range of the text in order, none of them empty.
class TextBuffer::Spans {
  public:
    class Iterator {
      public:
        using value_type = GlyphView;
        using difference_type = std::ptrdiff_t;

        Iterator(const TextBuffer& text, std::size_t at, std::size_t count)
            : text_(&text),
              at_(at),
              left_(count),
              part_(text.contiguous(at, count)) {}

        GlyphView operator*() const { return part_; }
        Iterator& operator++() {
            at_ += part_.size();
            left_ -= part_.size();
            part_ = text_->contiguous(at_, left_);
            return *this;
        }
        void operator++(int) { ++*this; }
        bool operator==(std::default_sentinel_t /*end*/) const { return part_.empty(); }

      private:
        const TextBuffer* text_;
        std::size_t at_;
        std::size_t left_;
        GlyphView part_;
    };

    Spans(const TextBuffer& text, std::size_t at, std::size_t count)
        : text_(&text),
          at_(at),
          count_(count) {}

    Iterator begin() const { return {*text_, at_, count_}; }
    static std::default_sentinel_t end() { return {}; }

  private:
    const TextBuffer* text_;
    std::size_t at_;
    std::size_t count_;
};

struct TextBuffer::Replaced {
    std::size_t first;         // the chunk that the change was in, or the first of `count` that
    std::size_t count;         // stand there now
    std::vector<Chunk> chunks; // instead of these
};

inline TextBuffer::Spans TextBuffer::spans(std::size_t at, std::size_t count) const {
    return {*this, at, count};
}

inline TextBuffer::Spans TextBuffer::spans() const {
    return spans(0, size());
}

} // namespace quillet
