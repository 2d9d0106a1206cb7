// One row of elements in place of another.
#pragma once

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <vector>

namespace quillet {

/// Puts `others` in place of `count` elements from `first`, and these into `others`. Cannot fail
/// where both vectors have the room.
template <class T>
void exchange(std::vector<T>& elements, std::size_t first, std::size_t count,
              std::vector<T>& others) {
    const auto both = static_cast<std::ptrdiff_t>(std::min(count, others.size()));
    const auto begin = elements.begin() + static_cast<std::ptrdiff_t>(first);
    const auto end = begin + static_cast<std::ptrdiff_t>(count);
    std::swap_ranges(begin, begin + both, others.begin());
    if (begin + both < end) {
        others.insert(others.end(), std::move_iterator(begin + both), std::move_iterator(end));
        elements.erase(begin + both, end);
    } else {
        const auto rest = others.begin() + both;
        elements.insert(end, std::move_iterator(rest), std::move_iterator(others.end()));
        others.erase(rest, others.end());
    }
}

} // namespace quillet
