// What a process holds in memory, in megabytes.
#pragma once

#include <fstream>
#include <string>

namespace quillet {

/// A line of a process's status, such as "VmRSS:" (now) or "VmHWM:" (at most so far).
inline double statusMegabytes(const std::string& name, const std::string& process = "self") {
    std::ifstream status("/proc/" + process + "/status");
    std::string word;
    while (status >> word && word != name) {
    }
    double kilobytes = 0;
    status >> kilobytes;
    return kilobytes / 1000;
}

/// From here on "VmHWM:" counts anew.
inline void resetPeak() {
    std::ofstream("/proc/self/clear_refs") << '5';
}

} // namespace quillet
