// Commands of the shell.
#pragma once

#include <array>
#include <cstdio>
#include <string>

namespace quillet {

/// Runs a shell command and returns what it printed, without the line ends behind it.
inline std::string output(const std::string& command) {
    std::string text;
    FILE* pipe = popen((command + " 2>/dev/null").c_str(), "r");
    std::array<char, 4096> part{};
    while (const std::size_t count = fread(part.data(), 1, part.size(), pipe))
        text.append(part.data(), count);
    pclose(pipe);
    while (!text.empty() && text.back() == '\n')
        text.pop_back();
    return text;
}

} // namespace quillet
