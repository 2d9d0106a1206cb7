// The storage of the text beside a plain string.
#include "base/text_buffer.h"

#include <gtest/gtest.h>

#include <random>

namespace quillet {
namespace {

struct Both {
    TextBuffer text;
    GlyphString plain;

    void replace(std::size_t at, std::size_t removed, const GlyphString& inserted, bool stays) {
        const GlyphString gone = plain.substr(at, removed);
        TextBuffer::Replaced change = text.replace(at, removed, inserted);
        if (stays)
            plain.replace(at, removed, inserted);
        else
            text.takeBack(change, at, inserted.size(), gone);
    }

    // All ways to read it.
    void check(std::size_t from, std::size_t count) const {
        ASSERT_EQ(text.size(), plain.size());
        ASSERT_EQ(text.copy(from, count), plain.substr(from, count));
        for (const GlyphView part : text.spans(from, count))
            ASSERT_FALSE(part.empty());
        for (std::size_t at = plain.size(); at-- > 0;)
            ASSERT_EQ(text[at], plain[at]);
        ASSERT_EQ(text, TextBuffer(plain));
        ASSERT_NE(text, TextBuffer(plain + "x"));
        if (!plain.empty()) {
            ASSERT_NE(text, TextBuffer(plain.substr(0, plain.size() - 1) + '\0'));
        }
    }
};

TEST(TextBuffer, AgreesWithAPlainString) {
    std::mt19937 random(7);
    const auto below = [&](std::size_t limit) { return random() % (limit + 1); };
    for (int round = 0; round < 300; ++round) {
        Both both{TextBuffer({}, 1 + below(20)), {}};
        for (int step = 0; step < 60; ++step) {
            const std::size_t at = below(both.plain.size());
            const std::size_t removed = below(below(both.plain.size() - at));
            const GlyphString inserted(below(below(100)), static_cast<char>('a' + step % 26));
            both.replace(at, removed, inserted, random() % 4 != 0);
            if (random() % 4 == 0)
                both.text.expectChange(below(both.plain.size()));
            if (random() % 4 == 0) {
                const std::span<char> room = both.text.prepareAppend(1 + below(50));
                std::fill(room.begin(), room.end(), '+');
                const std::size_t written = below(room.size());
                both.text.commitAppend(written);
                both.plain.append(written, '+');
            }
            const std::size_t from = below(both.plain.size());
            SCOPED_TRACE(testing::Message() << "round " << round << " step " << step);
            ASSERT_NO_FATAL_FAILURE(both.check(from, below(both.plain.size() - from)));
        }
    }
}

} // namespace
} // namespace quillet
