// The box while the memory for its work fails, at each request in turn.
#include "platform/edit_box.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <new>

namespace {

int left = -1; // requests until one fails; below 0 none does

bool fails() {
    return left >= 0 && left-- == 0;
}

} // namespace

void* operator new(std::size_t count) {
    void* bytes = fails() ? nullptr : std::malloc(count);
    if (bytes == nullptr)
        throw std::bad_alloc();
    return bytes;
}

void operator delete(void* bytes) noexcept {
    std::free(bytes);
}

void operator delete(void* bytes, std::size_t /*count*/) noexcept {
    std::free(bytes);
}

// The linker lets the box's own calls come here.
extern "C" void* __real_realloc(void* bytes, std::size_t count); // NOLINT: so the linker names it
extern "C" void* __wrap_realloc(void* bytes, std::size_t count); // NOLINT

void* __wrap_realloc(void* bytes, std::size_t count) { // NOLINT
    return fails() ? nullptr : __real_realloc(bytes, count);
}

namespace quillet {
namespace {

struct MemoryRow {
    const char* name;
    void (*work)(EditBox&);
};

const GlyphString longText(300, 'y');

const MemoryRow memoryRows[] = {
    {"a key", [](EditBox& box) { box.keyPress('x', 0); }},
    {"Backspace", [](EditBox& box) { box.keyPress(8, 0); }},
    {"Enter", [](EditBox& box) { box.keyPress(13, 0); }},
    {"text over a selection",
     [](EditBox& box) {
         box.select({10, 90});
         box.SelText("over it");
     }},
    {"a long text", [](EditBox& box) { box.SelText(longText + longText + longText); }},
    {"deleting most",
     [](EditBox& box) {
         box.select({3, 200});
         box.keyDown(key::del, 0);
     }},
    {"another text", [](EditBox& box) { box.Text(longText); }},
    {"another document", [](EditBox& box) { box.load(TextBuffer(longText)); }},
    {"dropping", [](EditBox& box) { box.dropText(longText, 40); }},
    {"moving down",
     [](EditBox& box) {
         box.select({20, 80});
         box.moveSelectionTo(150);
     }},
    {"moving up",
     [](EditBox& box) {
         box.select({120, 180});
         box.moveSelectionTo(30);
     }},
    {"undo", [](EditBox& box) { box.undo(); }},
    {"redo", [](EditBox& box) { box.redo(); }},
    {"when no key waits", [](EditBox& box) { box.catchUp(); }},
    {"a narrower box",
     [](EditBox& box) {
         box.setMetrics({.advances = box.lines().metrics().advances, .width = 9});
     }},
};

// Lines of words, in chunks of 16, with one step to take back and one to repeat.
void prepare(EditBox& box) {
    LineMetrics metrics{.width = 20};
    metrics.advances.fill(1);
    box.setMetrics(metrics);
    GlyphString text;
    while (text.size() < 240)
        text += text.size() % 5 == 0 ? "words, and\r\n" : "more words ";
    box.load(TextBuffer(text, 16));
    box.select({50, 100});
    box.SelText("one step");
    box.SelText(longText);
    box.undo();
}

// The text, and whether lines and history fit it.
GlyphString soundText(EditBox& box) {
    LineLayout lines;
    lines.setMetrics(box.lines().metrics(), box.buffer());
    while (box.catchUp())
        continue;
    EXPECT_EQ(box.lines().lineCount(), lines.lineCount());
    for (Position line = 0; line < lines.lineCount(); ++line)
        EXPECT_EQ(box.lines().lineStart(line), lines.lineStart(line)) << "line " << line;
    GlyphString text = box.Text();
    EXPECT_LE(box.selection().end(), box.length());
    int steps = 0;
    for (; box.canUndo(); ++steps)
        box.undo();
    for (; steps > 0; --steps)
        box.redo();
    EXPECT_EQ(box.Text(), text) << "after undo and redo";
    return text;
}

TEST(Memory, FailingAtAnyRequestKeepsTheLinesStarts) {
    bool isHit = true;
    for (int request = 0; isHit; ++request) {
        SCOPED_TRACE(testing::Message() << "request " << request);
        LineStarts starts(2);
        starts.replace(1, 0, std::array{2, 4, 6, 8, 10, 12}, 0);
        bool isDone = true;
        left = request;
        try {
            starts.replace(2, 3, std::array{5, 7, 8, 9, 10, 11, 12, 13, 14}, 5);
        } catch (const std::bad_alloc&) {
            isDone = false;
        }
        isHit = left < 0;
        left = -1;
        EXPECT_NE(isHit, isDone);
        EXPECT_EQ(starts.count(), isDone ? 13 : 7);
        EXPECT_EQ(starts[starts.count() - 1], isDone ? 17 : 12);
        EXPECT_EQ(starts.lineOf(9), isDone ? 5 : 4);
    }
}

TEST(Memory, FailingAtAnyRequestLosesNothing) {
    for (const MemoryRow& row : memoryRows) {
        EditBox whole({});
        prepare(whole);
        const GlyphString before = whole.Text();
        row.work(whole);
        const GlyphString after = whole.Text();
        bool isHit = true;
        for (int request = 0; isHit; ++request) {
            SCOPED_TRACE(testing::Message() << row.name << ", request " << request);
            EditBox box({});
            prepare(box);
            left = request;
            try {
                row.work(box);
            } catch (const std::bad_alloc&) { // NOLINT(bugprone-empty-catch): it may say so
            }
            isHit = left < 0;
            left = -1;
            const GlyphString text = soundText(box);
            if (text == before || text == after)
                continue;
            EXPECT_GT(text.size(), after.size()) << "what is moved may be there twice";
            box.undo();
            EXPECT_EQ(box.Text(), before);
        }
    }
}

} // namespace
} // namespace quillet
