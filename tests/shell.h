// Commands of the shell, folders for a while, and patience with what was started.
#pragma once

#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <string>
#include <thread>

namespace quillet {

namespace fs = std::filesystem;

/// A folder that goes with its object.
struct TempFolder {
    TempFolder() = default;
    TempFolder(const TempFolder&) = delete;
    ~TempFolder() { fs::remove_all(path); }

    std::string pattern = fs::temp_directory_path() / "quillet-test-XXXXXX";
    fs::path path = mkdtemp(pattern.data());
};

/// The 256 bytes in their order.
inline std::string allBytes() {
    std::string bytes;
    for (int code = 0; code < 256; ++code)
        bytes.push_back(static_cast<char>(code));
    return bytes;
}

/// Runs a shell command and returns what it printed, without the line ends behind it.
inline std::string output(const std::string& command) {
    std::string text;
    FILE* pipe = popen(("exec 2>/dev/null; " + command).c_str(), "r");
    std::array<char, 4096> part{};
    while (const std::size_t count = fread(part.data(), 1, part.size(), pipe))
        text.append(part.data(), count);
    pclose(pipe);
    text.erase(text.find_last_not_of('\n') + 1);
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
