// The program's deliberate 16-bit limits.
#pragma once

#include <cstdint>
#include <string_view>

namespace quillet {

/// `value` as a signed 16-bit number; beyond 32,767 or below -32,768 it fails with `Overflow`.
std::int16_t toInt16(std::int64_t value);

/// The same for the nearest integer, of two the even one. The text of a number is one in decimals,
/// perhaps with a sign, an exponent and blanks around it; any other fails with `TypeMismatch`.
std::int16_t nearestInt16(double value);
std::int16_t nearestInt16(std::string_view text);

} // namespace quillet
