#include "base/gap_buffer.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <malloc.h>
#include <new>
#include <sys/mman.h>
#include <utility>

namespace quillet {
namespace {

constexpr std::size_t minimumGrowth = 4096;
constexpr std::size_t growthShare = 16; // a full gap grows by 1/16 of the text

void moveBytes(char* to, const char* from, std::size_t count) {
    if (count != 0)
        std::memmove(to, from, count);
}

// Asks the system for all pages of a large room at once; one by one, at their first use, they
// take longer. Where it cannot do that, they come then.
void populate(char* room, std::size_t count) {
#ifdef MADV_POPULATE_WRITE
    constexpr std::size_t pageSize = 4096;
    constexpr std::size_t worthwhile = 64 * pageSize;
    const std::size_t before = pageSize - reinterpret_cast<std::uintptr_t>(room) % pageSize;
    if (count >= worthwhile)
        static_cast<void>(::madvise(room + before, count - before, MADV_POPULATE_WRITE));
#else
    static_cast<void>(room);
    static_cast<void>(count);
#endif
}

// Lets every large block have pages of its own, which go back to the system with it. The C library
// begins so as well, but once one of them was freed it keeps the others.
void keepLargeBlocksApart() {
#ifdef M_MMAP_THRESHOLD
    constexpr int largeFrom = 128 * 1024;
    static const int isSet = ::mallopt(M_MMAP_THRESHOLD, largeFrom);
    static_cast<void>(isSet);
#endif
}

} // namespace

GapBuffer::GapBuffer(GapBuffer&& other) noexcept
    : bytes_(std::move(other.bytes_)),
      capacity_(std::exchange(other.capacity_, 0)),
      gapStart_(std::exchange(other.gapStart_, 0)),
      gapEnd_(std::exchange(other.gapEnd_, 0)) {}

GapBuffer& GapBuffer::operator=(GapBuffer&& other) noexcept {
    bytes_ = std::move(other.bytes_);
    capacity_ = std::exchange(other.capacity_, 0);
    gapStart_ = std::exchange(other.gapStart_, 0);
    gapEnd_ = std::exchange(other.gapEnd_, 0);
    return *this;
}

void GapBuffer::replace(std::size_t at, std::size_t removed, GlyphView inserted) {
    if (inserted.size() > removed)
        ensureGap(inserted.size() - removed);
    moveGap(at);
    gapEnd_ += removed;
    moveBytes(bytes_.get() + gapStart_, inserted.data(), inserted.size());
    gapStart_ += inserted.size();
}

void GapBuffer::moveGap(std::size_t at) {
    char* bytes = bytes_.get();
    if (at < gapStart_)
        moveBytes(bytes + at + gapSize(), bytes + at, gapStart_ - at);
    else
        moveBytes(bytes + gapStart_, bytes + gapEnd_, at - gapStart_);
    gapEnd_ = at + gapSize();
    gapStart_ = at;
}

char* GapBuffer::prepareAppend(std::size_t count) {
    moveGap(size());
    ensureGap(count);
    populate(bytes_.get() + gapStart_, count);
    return bytes_.get() + gapStart_;
}

void GapBuffer::ensureGap(std::size_t needed) {
    if (gapSize() >= needed)
        return;
    const std::size_t capacity = size() + needed + std::max(minimumGrowth, size() / growthShare);
    keepLargeBlocksApart();
    auto* grown = static_cast<char*>(std::realloc(bytes_.get(), capacity));
    if (grown == nullptr)
        throw std::bad_alloc();
    static_cast<void>(bytes_.release()); // realloc has taken the old block
    bytes_.reset(grown);
    const std::size_t behind = capacity_ - gapEnd_;
    moveBytes(grown + capacity - behind, grown + gapEnd_, behind);
    gapEnd_ = capacity - behind;
    capacity_ = capacity;
}

} // namespace quillet
