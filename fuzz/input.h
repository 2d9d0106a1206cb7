// What a fuzzer hands over, taken apart into the values that a target needs.
#pragma once

#include "base/glyph_string.h"

#include <cstdint>
#include <cstdlib>
#include <iostream>

namespace quillet::fuzz {

/// Gives zeros and empty texts once it is used up.
class Input {
  public:
    Input(const std::uint8_t* data, std::size_t size)
        : rest_(reinterpret_cast<const char*>(data), size) {}

    bool isEmpty() const { return rest_.empty(); }

    std::uint8_t byte() {
        const GlyphView taken = text(1);
        return taken.empty() ? 0 : glyphCode(taken[0]);
    }

    /// From 0 to `limit`.
    Position upTo(Position limit) {
        const int number = byte() << 8 | byte();
        return static_cast<Position>(number % (std::int64_t{limit} + 1));
    }

    GlyphView text(std::size_t length) {
        const GlyphView taken = rest_.substr(0, length);
        rest_.remove_prefix(taken.size());
        return taken;
    }

    GlyphView rest() { return text(rest_.size()); }

  private:
    GlyphView rest_;
};

/// Ends the run as a finding where `holds` is false.
inline void check(bool holds, const char* what) {
    if (holds)
        return;
    std::cerr << "does not hold: " << what << '\n';
    std::abort();
}

} // namespace quillet::fuzz
