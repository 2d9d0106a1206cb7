// The storage of the text against a plain string.
#include "base/gap_buffer.h"

#include <gtest/gtest.h>

#include <cstring>
#include <random>

namespace quillet {
namespace {

TEST(GapBuffer, AgreesWithAPlainStringOverRandomEdits) {
    std::mt19937 random(1);
    const auto below = [&](std::size_t limit) { return random() % (limit + 1); };
    GapBuffer buffer;
    std::string plain;
    for (int step = 0; step < 20'000; ++step) {
        const std::size_t at = below(plain.size());
        const std::size_t removed = below(std::min<std::size_t>(plain.size() - at, 6));
        const std::string inserted(below(7), static_cast<char>(step));
        buffer.replace(at, removed, inserted);
        plain.replace(at, removed, inserted);
        if (step % 5 == 0)
            buffer.moveGap(below(plain.size()));
        const std::size_t from = below(plain.size());
        const std::size_t count = below(plain.size() - from);
        ASSERT_EQ(buffer.size(), plain.size()) << "step " << step;
        ASSERT_EQ(buffer.copy(from, count), plain.substr(from, count)) << "step " << step;
        ASSERT_TRUE(plain.empty() || buffer[plain.size() - 1] == plain.back()) << "step " << step;
    }
}

TEST(GapBuffer, TakesInOnlyWhatWasWrittenBehindTheText) {
    GapBuffer buffer("ab");
    buffer.moveGap(1);
    std::memcpy(buffer.prepareAppend(100), "cdef", 4);
    buffer.commitAppend(3);
    const GapBuffer taken(std::move(buffer));
    EXPECT_EQ(taken.copy(0, taken.size()), "abcde");
}

} // namespace
} // namespace quillet
