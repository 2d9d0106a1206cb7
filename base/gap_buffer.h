// A piece of a document's text.
#pragma once

#include "base/glyph_string.h"

#include <cstddef>
#include <cstdlib>
#include <memory>

namespace quillet {

/// Bytes with a gap at the place of the last change, so that the next change there copies only
/// what it inserts. Sizes are in bytes.
class GapBuffer {
  public:
    GapBuffer() = default;
    GapBuffer(GapBuffer&& other) noexcept;
    GapBuffer& operator=(GapBuffer&& other) noexcept;

    std::size_t size() const { return capacity_ - gapSize(); }

    /// The byte at `at`, which is below `size()`.
    char operator[](std::size_t at) const {
        return bytes_.get()[at < gapStart_ ? at : at + gapSize()];
    }

    /// The bytes from `at` to the gap or else to the end, valid until the next change.
    GlyphView contiguous(std::size_t at) const {
        return at < gapStart_ ? GlyphView(bytes_.get() + at, gapStart_ - at)
                              : GlyphView(bytes_.get() + at + gapSize(), size() - at);
    }

    /// Replaces `removed` bytes from `at`. Without memory it throws and changes nothing; what fits
    /// where it stood before needs none. `inserted` must not point into this buffer.
    void replace(std::size_t at, std::size_t removed, GlyphView inserted);

    /// Brings the gap to `at` ahead of changes there. The text stays the same.
    void moveGap(std::size_t at);

    /// Room for `count` more bytes behind the text, to be filled and then taken in by
    /// `commitAppend` with the number of bytes that were really written.
    char* prepareAppend(std::size_t count);
    void commitAppend(std::size_t count) { gapStart_ += count; }

  private:
    struct Free {
        void operator()(char* bytes) const { std::free(bytes); }
    };

    std::size_t gapSize() const { return gapEnd_ - gapStart_; }
    void ensureGap(std::size_t needed);

    // malloc and realloc, because realloc moves large blocks by remapping pages, not by copying.
    std::unique_ptr<char, Free> bytes_;
    std::size_t capacity_ = 0;
    std::size_t gapStart_ = 0;
    std::size_t gapEnd_ = 0;
};

} // namespace quillet
