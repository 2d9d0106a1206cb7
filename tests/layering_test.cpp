// The floors of the house: every include points down, and only one folder knows the toolkit.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
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
};

const fs::path root = QUILLET_SOURCE_DIR;

bool mayInclude(const std::string& folder, const std::string& header) {
    const std::string from = fs::path(header).parent_path();
    const auto& allowed = below.at(folder);
    return from == folder || std::find(allowed.begin(), allowed.end(), from) != allowed.end();
}

// The names that a file includes, matched by `kind`.
std::vector<std::string> includes(const fs::path& file, const std::regex& kind) {
    std::ifstream in(file);
    std::vector<std::string> names;
    std::smatch match;
    for (std::string line; std::getline(in, line);)
        if (std::regex_match(line, match, kind))
            names.push_back(match[1]);
    return names;
}

TEST(Layering, IncludesPointDownAndTheToolkitStaysInItsFolder) {
    const std::regex own("#include \"(.*)\".*");
    const std::regex toolkit("#include [<\"](Q.*|qt.*|xcb/.*|xkbcommon/.*|curl/.*)[>\"].*");
    int files = 0;
    for (const auto& [folder, allowed] : below) {
        for (const auto& entry : fs::directory_iterator(root / folder)) {
            if (entry.path().extension() != ".h" && entry.path().extension() != ".cpp")
                continue;
            ++files;
            SCOPED_TRACE(entry.path());
            for (const std::string& header : includes(entry.path(), own))
                EXPECT_TRUE(mayInclude(folder, header)) << header;
            const bool clean = includes(entry.path(), toolkit).empty();
            EXPECT_TRUE(clean || folder == "platform/qt");
        }
    }
    EXPECT_GT(files, 50);
}

TEST(Layering, NoHeaderIncludesItselfInTheEnd) {
    const std::regex own("#include \"(.*)\".*");
    std::map<std::string, int> state; // 1: being walked, 2: done
    const std::function<void(const std::string&)> walk = [&](const std::string& header) {
        ASSERT_NE(state[header], 1) << header;
        if (state[header] == 2)
            return;
        state[header] = 1;
        for (const std::string& next : includes(root / header, own))
            walk(next);
        state[header] = 2;
    };
    for (const auto& [folder, allowed] : below)
        for (const auto& entry : fs::directory_iterator(root / folder))
            if (entry.path().extension() == ".h")
                walk(fs::relative(entry.path(), root));
    EXPECT_GT(state.size(), 30U);
}

} // namespace
} // namespace quillet
