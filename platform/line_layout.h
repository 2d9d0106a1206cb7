// Word wrap: where the displayed lines of a text start.
#pragma once

#include "base/glyph_string.h"
#include "base/text_buffer.h"
#include "platform/line_starts.h"

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

/// What the wrap needs to know of a font and a box. No distance may exceed `maxAdvance`.
struct LineMetrics {
    std::array<Advance, 256> advances{}; // width of every glyph code, 0 or more
    Advance tabStop = 1;                 // tabs go to the next multiple of this, above 0
    Advance width = 0;                   // room for a line
};

inline constexpr Advance maxAdvance = (1 << 26) - 1;

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
/// fails for lack of memory changes nothing; `wrapTo` keeps the lines that it has made by then.
class LineLayout {
  public:
    /// `wrappedAtOnce` is how far one change is followed, in glyphs.
    explicit LineLayout(Position wrappedAtOnce = 1 << 18,
                        std::size_t chunkLength = LineStarts::usualChunkLength)
        : wrappedAtOnce_(wrappedAtOnce),
          starts_(chunkLength) {}

    /// Wrap a whole text anew, `wrappedAtOnce` glyphs of it at first. The rest is the last line
    /// until `settle` or `wrapTo` has gone on.
    void setMetrics(const LineMetrics& metrics, const TextBuffer& text);
    const LineMetrics& metrics() const { return metrics_; }
    void wrapAll(const TextBuffer& text) { setMetrics(metrics_, text); }

    /// Wraps again after what stood at `at` was replaced by `inserted` glyphs; `text` is already
    /// the new one. Goes on to the first old line start that the new wrap meets again, but no
    /// further than `wrappedAtOnce` behind the change. There the old lines follow as they were,
    /// behind a line that may break too early.
    LineChange replaced(const TextBuffer& text, Position at, Position inserted);

    /// Whether all lines are as a full wrap makes them. While they are not, `settle` goes on where
    /// the wrap stopped first, again through `wrappedAtOnce` glyphs.
    bool isSettled() const { return joins_.empty() && !hasRest_; }
    LineChange settle(const TextBuffer& text);

    /// Goes on until `at` is in a line of its own, not in a rest.
    LineChange wrapTo(const TextBuffer& text, Position at);

    Position lineCount() const { return starts_.count(); }

    /// Where `line` starts; for `lineCount()` the end of the text.
    Position lineStart(Position line) const;

    /// The line that shows the glyph at `at`; the place where a line is broken belongs to the
    /// line behind it.
    Position lineOf(Position at) const { return starts_.lineOf(at); }

    /// The last place for the caret in `line`: before its line break or the glyph it broke at.
    Position lineEnd(const TextBuffer& text, Position line) const;

    /// The distance of `at` from the left end of its line, unwrapped blanks included.
    Advance xOf(const TextBuffer& text, Position at) const;

    /// The place in `line` nearest to the distance `x`.
    Position placeAt(const TextBuffer& text, Position line, Advance x) const;

    /// The distance behind a glyph that begins at `x`.
    Advance advanceFrom(Advance x, char glyph) const;

  private:
    // What a wrap from one line on has made.
    struct Wrapped {
        std::vector<Position> starts; // of lines that are new
        Position kept;                // the first line behind these that stays
        std::optional<Position> end;  // where the wrap stopped; none at the end of the text
        bool meets;                   // that line starts there
    };

    std::optional<Position> nextStart(const TextBuffer& text, Position start) const;
    Wrapped wrapFrom(const TextBuffer& text, Position first, Position changeEnd) const;
    LineChange rewrap(const TextBuffer& text, Position first, Position changeEnd,
                      std::vector<Position> joins);

    Position wrappedAtOnce_;
    bool hasRest_ = false; // the last line is what has not been wrapped yet
    LineMetrics metrics_;
    std::array<Advance, 256> steps_{}; // advances, with a mark for glyphs the wrap looks at
    Position size_ = 0;

    LineStarts starts_;

    // In order, the starts that only stand where they stood before the last changes: the line
    // before each of them may break too early.
    std::vector<Position> joins_;
};

} // namespace quillet
