#include "base/int16.h"

#include "base/run_time_error.h"

#include <utility>

namespace quillet {

std::int16_t toInt16(std::int64_t value) {
    if (!std::in_range<std::int16_t>(value))
        throw RunTimeError(ErrorNumber::Overflow);
    return static_cast<std::int16_t>(value);
}

} // namespace quillet
