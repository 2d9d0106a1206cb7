// Commands of the shell, and patience with what they have started.
#pragma once

#include <array>
#include <chrono>
#include <cstdio>
#include <functional>
#include <string>
#include <thread>

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

/// Waits until `condition` holds; false after ten seconds.
inline bool waitUntil(const std::function<bool()>& condition) {
    using namespace std::chrono_literals;
    const auto end = std::chrono::steady_clock::now() + 10s;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end)
            return false;
        std::this_thread::sleep_for(10ms);
    }
    return true;
}

} // namespace quillet
