// The program's deliberate 16-bit limits.
#pragma once

#include <cstdint>

namespace quillet {

/// `value` as a signed 16-bit number; beyond 32,767 or below -32,768 it fails with `Overflow`.
std::int16_t toInt16(std::int64_t value);

/// The nearest whole number, the even one of two, with the same limits.
std::int16_t roundToInt16(double value);

} // namespace quillet
