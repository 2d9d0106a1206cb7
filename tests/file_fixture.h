// Tests with real files: a folder for them, and a look at what they leave behind.
#pragma once

#include "base/run_time_error.h"
#include "platform/posix/posix_files.h"
#include "tests/shell.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <sys/stat.h>

namespace quillet {

/// The number of the error that `step` throws, or 0.
template <class Step>
int errorOf(Step step) {
    try {
        step();
    } catch (const RunTimeError& error) {
        return error.number();
    }
    return 0;
}

inline struct stat statusOf(const fs::path& path) {
    struct stat status {};
    ::stat(path.c_str(), &status);
    return status;
}

inline auto openDescriptors() {
    return std::distance(fs::directory_iterator("/proc/self/fd"), fs::directory_iterator());
}

/// Every test has a folder of its own and leaves no temporary file and no open descriptor.
struct FileFixture : testing::Test {
    ~FileFixture() override { expectNothingLeft(); }

    static bool isTemporary(const fs::path& file) {
        return file.filename().native().starts_with(".quillet");
    }
    void expectNothingLeft() {
        EXPECT_EQ(openDescriptors(), descriptors);
        for (const auto& entry : fs::recursive_directory_iterator(folder))
            EXPECT_FALSE(isTemporary(entry.path())) << entry;
    }

    void write(const fs::path& path, GlyphView text) {
        const std::size_t half = text.size() / 2;
        const std::array parts{text.substr(0, half), GlyphView(), text.substr(half)};
        files.write(path.native(), parts);
    }
    GlyphString read(const fs::path& path) {
        const TextBuffer text = files.read(path.native());
        return text.copy(0, text.size());
    }

    /// Makes a file with a path so long that no other name fits beside it, not even the
    /// superuser's.
    fs::path makeLonelyFile(GlyphView text) {
        fs::path path = folder;
        while (path.native().size() < 4089)
            path /= std::string(std::min<std::size_t>(200, 4089 - path.native().size()), 'd');
        fs::create_directories(path);
        path /= "f";
        std::ofstream(path) << text;
        return path;
    }

    PosixFiles files;
    TempFolder temporary;
    const fs::path& folder = temporary.path;
    std::ptrdiff_t descriptors = openDescriptors();
};

} // namespace quillet
