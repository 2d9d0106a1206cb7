#include "base/int16.h"

#include "base/run_time_error.h"

#include <cmath>
#include <sstream>
#include <string>
#include <utility>

namespace quillet {
namespace {

double numberIn(std::string_view text) {
    constexpr const char* blanks = " \t";
    std::istringstream in{std::string(text.substr(0, text.find_last_not_of(blanks) + 1))};
    double number = 0;
    in >> number; // 0 where there is none, the largest where it is too large
    if ((in.fail() && number == 0) || in.peek() != std::istringstream::traits_type::eof())
        throw RunTimeError(ErrorNumber::TypeMismatch);
    return number;
}

} // namespace

std::int16_t toInt16(std::int64_t value) {
    if (!std::in_range<std::int16_t>(value))
        throw RunTimeError(ErrorNumber::Overflow);
    return static_cast<std::int16_t>(value);
}

std::int16_t nearestInt16(double value) {
    constexpr double wellBeyond = 1e6; // and no number is as well
    return toInt16(std::llrint(std::fmax(std::fmin(value, wellBeyond), -wellBeyond)));
}

std::int16_t nearestInt16(std::string_view text) {
    return nearestInt16(numberIn(text));
}

} // namespace quillet
