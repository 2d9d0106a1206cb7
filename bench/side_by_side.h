// Several programs, measured in turn and reported beside each other.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace quillet {

struct Subject {
    std::string name;
    std::function<double()> measure;        // in seconds
    std::function<double()> megabytes = {}; // asked in the end, where it matters
};

/// Measures every subject once a round, so that whatever disturbs the machine meets all of them
/// alike. Then registers a row for each: mean, median, 95th percentile, the median as a multiple
/// of the one of the second subject, and the memory.
void measureSideBySide(const std::string& name, const std::vector<Subject>& subjects, int rounds);

} // namespace quillet
