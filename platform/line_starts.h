// Where the lines of a text start.
#pragma once

#include "base/glyph_string.h"

#include <cstddef>
#include <span>
#include <vector>

namespace quillet {

/// The starts of lines, in order; the first one is 0 and always there. Lines are kept in chunks,
/// of which all behind a change move at once: it hardly matters where the last change was.
class LineStarts {
  public:
    static constexpr std::size_t usualChunkLength = 512;

    /// A chunk holds up to twice `chunkLength` lines.
    explicit LineStarts(std::size_t chunkLength);

    std::size_t chunkLength() const { return chunkLength_; }

    Position count() const;

    /// Where `line`, which is below `count()`, starts.
    Position operator[](Position line) const;

    /// The last line that starts at or before `place`, which is not negative.
    Position lineOf(Position place) const;

    /// Puts lines that start at `starts` in place of `removed` lines from `first`, which is above
    /// 0, and moves those behind by `distance`. Without memory it throws and changes nothing.
    void replace(Position first, Position removed, std::span<const Position> starts,
                 Position distance);

  private:
    struct Line {
        Position number = 0;
        Position start = 0;
    };
    struct Chunk {
        Line first;
        std::vector<Position> offsets; // of the starts of all its lines from that of the first
    };

    Line firstOf(std::size_t chunk) const;
    std::size_t chunkBy(Position Line::*key, Position value) const;
    void overwrite(std::size_t chunk, Position first, std::span<const Position> starts,
                   Position distance);
    std::vector<Chunk> chunksOf(const std::vector<Position>& starts, Position number) const;
    void moveShift(std::size_t to);
    void shiftMore(Position number, Position start);

    std::size_t chunkLength_;
    std::vector<Chunk> chunks_;
    Line shift_;                  // to be added to the chunks
    std::size_t shiftedFrom_ = 1; // from this one on
};

} // namespace quillet
