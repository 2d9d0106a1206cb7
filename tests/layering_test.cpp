// The floors of the house: every include points down, and only one folder knows the toolkit.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <string>
#include <vector>

namespace quillet {
namespace {

namespace fs = std::filesystem;

// The folders that a folder may include from, itself aside.
const std::map<std::string, std::vector<std::string>> below = {
    {"base", {}},
    {"platform", {"base"}},
    {"platform/posix", {"base", "platform"}},
    {"engine", {"base", "platform"}},
    {"comm", {"base", "platform"}},
    {"help", {"base", "engine"}},
    {"output", {"base", "platform"}},
    {"search", {"base", "platform"}},
    {"window", {"base", "platform", "comm", "engine", "output", "search"}},
    {"platform/qt",
     {"base", "platform", "platform/posix", "comm", "engine", "output", "search", "window"}},
    {"platform/qt/browser", {"base", "platform/qt"}},
};

const fs::path root = QUILLET_SOURCE_DIR;

TEST(Layering, IncludesPointDownAndTheToolkitStaysInItsFolder) {
    const std::regex include("#include [<\"](.*)[>\"].*");
    const std::regex toolkit("(Q|qt|xcb/|xkbcommon/|curl/).*");
    int files = 0;
    for (const auto& [folder, allowed] : below) {
        for (const auto& entry : fs::directory_iterator(root / folder)) {
            if (entry.path().extension() != ".h" && entry.path().extension() != ".cpp")
                continue;
            ++files;
            std::ifstream in(entry.path());
            std::smatch match;
            for (std::string line; std::getline(in, line);) {
                if (!std::regex_match(line, match, include))
                    continue;
                const std::string name = match[1];
                const std::string from = fs::path(name).parent_path();
                EXPECT_TRUE(line.find('"') == line.npos || from == folder ||
                            std::ranges::find(allowed, from) != allowed.end())
                    << entry.path() << line;
                EXPECT_TRUE(folder.starts_with("platform/qt") || !std::regex_match(name, toolkit))
                    << entry.path() << line;
            }
        }
    }
    EXPECT_GT(files, 50);
}

} // namespace
} // namespace quillet
