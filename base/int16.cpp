#include "base/int16.h"

#include "base/run_time_error.h"

#include <cmath>
#include <utility>

namespace quillet {

std::int16_t toInt16(std::int64_t value) {
    if (!std::in_range<std::int16_t>(value))
        throw RunTimeError(ErrorNumber::Overflow);
    return static_cast<std::int16_t>(value);
}

std::int16_t roundToInt16(double value) {
    const double rounded = std::nearbyint(value);
    if (!(rounded >= INT16_MIN && rounded <= INT16_MAX)) // what is no number neither
        throw RunTimeError(ErrorNumber::Overflow);
    return static_cast<std::int16_t>(rounded);
}

} // namespace quillet
