// Word wrap: where the displayed lines of a text start.
#pragma once

#include "base/gap_buffer.h"
#include "base/glyph_string.h"

#include <array>
#include <optional>
#include <vector>

namespace quillet {

/// A horizontal distance in 1/64 pixel.
using Advance = std::int32_t;

inline constexpr Advance advancePerPixel = 64;

/// No line is longer, whatever it holds: that bounds the cost of one line and keeps distances
/// small.
inline constexpr Position maxLineLength = 4096;

/// What the wrap needs to know of a font and a box.
struct LineMetrics {
    std::array<Advance, 256> advances{}; // width of every glyph code, 0 or more
    Advance tabStop = 1;                 // tabs go to the next multiple of this, above 0
    Advance width = 0;                   // room for a line
};

/// Lines `first` to `first + before - 1` gave way to `first` to `first + after - 1`; the lines
/// behind them only moved.
struct LineChange {
    Position first = 0;
    Position before = 0;
    Position after = 0;
};

/// The displayed lines of one text. CR LF, a lone CR and a lone LF each end a line. A line too
/// long for the width is broken behind its last blank or tab, or else inside the word. Blanks at
/// the end of a line may hang over the width. There is always at least one line, and none is
/// longer than `maxLineLength`.
///
/// The text itself stays outside; every call gets the same one, in its current state. A call that
/// fails for lack of memory changes nothing.
class LineLayout {
  public:
    void setMetrics(const LineMetrics& metrics, const GapBuffer& text);
    const LineMetrics& metrics() const { return metrics_; }

    /// Wraps the whole text.
    void wrapAll(const GapBuffer& text);

    /// Wraps again after what stood at `at` was replaced by `inserted` glyphs; `text` is already
    /// the new one. Costs what lies between the change and the first old line start that the new
    /// wrap meets again.
    LineChange replaced(const GapBuffer& text, Position at, Position inserted);

    Position lineCount() const;

    /// Where `line` starts; for `lineCount()` the end of the text.
    Position lineStart(Position line) const;

    /// The line that shows the glyph at `at`; the place where a line is broken belongs to the
    /// line behind it.
    Position lineOf(Position at) const;

    /// The last place for the caret in `line`: before its line break or the glyph it broke at.
    Position lineEnd(const GapBuffer& text, Position line) const;

    /// The distance of `at` from the left end of its line, unwrapped blanks included.
    Advance xOf(const GapBuffer& text, Position at) const;

    /// The place in `line` nearest to the distance `x`.
    Position placeAt(const GapBuffer& text, Position line, Advance x) const;

    /// The distance behind a glyph that begins at `x`.
    Advance advanceFrom(Advance x, char glyph) const;

  private:
    std::optional<Position> nextStart(const GapBuffer& text, Position start) const;
    void splitAt(Position line);
    Position tailStart(std::size_t fromEnd) const { return size_ - tail_[fromEnd]; }

    LineMetrics metrics_;
    std::array<Advance, 256> steps_{}; // advances, with a mark for glyphs the wrap looks at
    Position size_ = 0;

    // Starts before the last change, in order, and behind it, the nearest last. Those behind are
    // kept as distances from the end of the text, so that no change has to shift them.
    std::vector<Position> head_ = {0};
    std::vector<Position> tail_;
};

} // namespace quillet
