// The starts of lines beside a plain list.
#include "platform/line_starts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace quillet {
namespace {

struct BothStarts {
    LineStarts starts;
    std::vector<Position> plain = {0};

    void replace(Position first, Position removed, const std::vector<Position>& made,
                 Position distance) {
        starts.replace(first, removed, made, distance);
        plain.erase(plain.begin() + first, plain.begin() + first + removed);
        for (auto behind = plain.begin() + first; behind != plain.end(); ++behind)
            *behind += distance;
        plain.insert(plain.begin() + first, made.begin(), made.end());
    }

    void check() const {
        ASSERT_EQ(starts.count(), static_cast<Position>(plain.size()));
        for (Position line = 0; line < starts.count(); ++line) {
            ASSERT_EQ(starts[line], plain[line]) << "line " << line;
            ASSERT_EQ(starts.lineOf(plain[line]), line);
            ASSERT_EQ(starts.lineOf(plain[line] + 1), line); // lines are longer than one glyph
        }
    }
};

TEST(LineStarts, AgreeWithAPlainList) {
    std::mt19937 random(11);
    const auto below = [&](Position limit) {
        return static_cast<Position>(random() % (limit + 1));
    };
    for (int round = 0; round < 300; ++round) {
        BothStarts both{LineStarts(1 + random() % 6)};
        for (int step = 0; step < 80; ++step) {
            const auto count = static_cast<Position>(both.plain.size());
            const Position first = 1 + below(count - 1);
            const bool takesAll = step % 20 == 19;
            const Position removed = takesAll ? count - first : below(std::min(count - first, 4));
            std::vector<Position> made(random() % 3 == 0 ? removed : below(10));
            Position last = both.plain[first - 1];
            for (Position& start : made)
                start = last += 2 + below(3);
            const Position behind = first + removed < count ? both.plain[first + removed] : 0;
            both.replace(first, removed, made, last + 2 + below(3) - behind);
            SCOPED_TRACE(testing::Message() << "round " << round << " step " << step);
            ASSERT_NO_FATAL_FAILURE(both.check());
        }
    }
}

} // namespace
} // namespace quillet
