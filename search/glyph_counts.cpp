#include "search/glyph_counts.h"

#include "base/int16.h"

#include <algorithm>
#include <array>

namespace quillet {
namespace {

constexpr std::size_t laneCount = 32; // whole vector registers on every machine
constexpr std::size_t laneLimit = 255;

// Lanes of bytes count side by side, and are added up before one of them can overflow.
template <class Matches>
std::int64_t countWhere(GlyphView text, Matches matches) {
    std::int64_t count = 0;
    while (text.size() >= laneCount) {
        std::array<std::uint8_t, laneCount> lanes{};
        const std::size_t rounds = std::min(text.size() / laneCount, laneLimit);
        for (std::size_t round = 0; round < rounds; ++round)
            for (std::size_t lane = 0; lane < laneCount; ++lane)
                lanes[lane] = static_cast<std::uint8_t>(
                    lanes[lane] + (matches(text[round * laneCount + lane]) ? 1 : 0));
        for (const std::uint8_t lane : lanes)
            count += lane;
        text.remove_prefix(rounds * laneCount);
    }
    return count + std::count_if(text.begin(), text.end(), matches);
}

template <class Matches>
std::int64_t countWhere(const TextBuffer::Spans& text, Matches matches) {
    std::int64_t count = 0;
    for (const GlyphView part : text)
        count += countWhere(part, matches);
    return count;
}

auto isGlyph(char glyph) {
    return [glyph](char it) { return it == glyph; };
}

// Half of the longest run that passes: where every block of a text has a space, no run fails.
constexpr std::size_t blockLength = 16384;

struct Spaces {
    std::int64_t count = 0;
    bool inEveryBlock = true;
};

Spaces spacesIn(GlyphView text) {
    Spaces spaces;
    for (; !text.empty(); text.remove_prefix(std::min(blockLength, text.size()))) {
        const std::int64_t count = countWhere(text.substr(0, blockLength), isGlyph(' '));
        spaces.count += count;
        spaces.inEveryBlock = spaces.inEveryBlock && count > 0;
    }
    return spaces;
}

// Fails as the way from one space to the next does.
void checkRuns(const TextBuffer::Spans& text) {
    std::int64_t run = 0;
    for (const GlyphView part : text) {
        for (const char glyph : part) {
            if (glyph == ' ')
                static_cast<void>(toInt16(run + 1));
            run = glyph == ' ' ? 0 : run + 1;
        }
    }
}

} // namespace

std::int64_t countGlyph(const TextBuffer::Spans& text, char glyph) {
    return countWhere(text, isGlyph(glyph));
}

std::int64_t countEither(const TextBuffer::Spans& text, char one, char other) {
    const auto matches = [=](char it) { return it == one || it == other; };
    return countWhere(text, matches);
}

std::int64_t countSpaces(const TextBuffer::Spans& text) {
    std::int64_t count = 0;
    bool inEveryBlock = true;
    for (const GlyphView part : text) {
        const Spaces spaces = spacesIn(part);
        count += spaces.count;
        inEveryBlock = inEveryBlock && spaces.inEveryBlock;
    }
    if (!inEveryBlock)
        checkRuns(text);
    return count;
}

} // namespace quillet
