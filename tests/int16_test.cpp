// The 16-bit numbers of settings.
#include "base/int16.h"
#include "base/run_time_error.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace quillet {
namespace {

std::string rounded(auto value) {
    try {
        return std::to_string(nearestInt16(value));
    } catch (const RunTimeError& error) {
        return error.what();
    }
}

TEST(Int16, IsTheNearestOfANumberOrItsText) {
    const std::pair<double, const char*> numbers[] = {{2.5, "2"},
                                                      {3.5, "4"},
                                                      {-2.5, "-2"},
                                                      {32767.4, "32767"},
                                                      {32767.5, "Overflow"},
                                                      {-32768.5, "-32768"},
                                                      {-32768.6, "Overflow"},
                                                      {NAN, "Overflow"}};
    for (const auto& [number, result] : numbers)
        EXPECT_EQ(rounded(number), result) << number;
    const std::pair<const char*, const char*> texts[] = {{"80", "80"},
                                                         {" +1.5e1\t", "15"},
                                                         {"-2.5", "-2"},
                                                         {"1e-400", "0"},
                                                         {"40000", "Overflow"},
                                                         {"-1e999", "Overflow"},
                                                         {"", "Type mismatch"},
                                                         {"80a", "Type mismatch"},
                                                         {"1,5", "Type mismatch"},
                                                         {"inf", "Type mismatch"},
                                                         {"1 2", "Type mismatch"}};
    for (const auto& [text, result] : texts)
        EXPECT_EQ(rounded(std::string_view(text)), result) << text;
}

} // namespace
} // namespace quillet
