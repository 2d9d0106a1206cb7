// How files and addresses are opened, with stand-ins for the programs of the desktop.
#include "platform/qt/program_parts.h"
#include "platform/qt/qt_shell.h"
#include "tests/shell.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace quillet {
namespace {

namespace fs = std::filesystem;

struct ShellTest : ::testing::Test {
    fs::path folder = fs::path(testing::TempDir()) / ("quillet-shell-" + std::to_string(getpid()));
    std::string oldPath = getenv("PATH");

    ShellTest() {
        fs::create_directories(folder / "help");
        std::ofstream(folder / "help/page.htm") << "<html>";
        std::ofstream(folder / "help/data.unheardof") << "x";
        setenv("PATH", folder.c_str(), 1);
        unsetenv("BROWSER");
    }
    ~ShellTest() override {
        setenv("PATH", oldPath.c_str(), 1);
        fs::remove_all(folder);
    }

    void install(const char* name, const std::string& script) const {
        std::ofstream(folder / name) << "#!/bin/sh\n" << script << "\n";
        fs::permissions(folder / name, fs::perms::owner_all);
    }

    int open(const std::string& file) const {
        return QtShell().ShellExecuteA("open", file, "", folder, 0);
    }

    std::string opened() const {
        const std::string seen = folder / "seen";
        return waitUntil([&] { return fs::exists(seen); })
                   ? output("PATH=/bin:/usr/bin; cat '" + seen + "'")
                   : "nothing";
    }
};

TEST_F(ShellTest, TellsWhatIsMissing) {
    EXPECT_EQ(open("help/none.htm"), Shell::FileNotFound);
    EXPECT_EQ(open("none/page.htm"), Shell::PathNotFound);
    EXPECT_EQ(open("help/page.htm"), Shell::LibraryNotFound);
    EXPECT_EQ(open("https://quillet.example/"), Shell::LibraryNotFound);
    install("xdg-open", "exit 1");
    install("xdg-mime", "exit 3");
    EXPECT_EQ(open("help/page.htm"), Shell::NoAssociation);
    EXPECT_EQ(open("help/data.unheardof"), Shell::NoAssociation);
    EXPECT_EQ(open("https://quillet.example/"), Shell::NoAssociation);
    setenv("BROWSER", "lookaround", 1);
    EXPECT_GT(open("help/page.htm"), 32) << "whatever its own exit code is";
    EXPECT_EQ(open("help/data.unheardof"), Shell::NoAssociation);
}

TEST_F(ShellTest, OpensAnswersAtOnceAndFromItsFolder) {
    install("xdg-mime", "test \"$3\" = text/html && echo browser.desktop");
    install("xdg-open",
            "echo $$ > pid; echo \"$# $1 $PWD\" > part; /bin/mv part seen; exec /bin/sleep 1000");
    const fs::path page = folder / "help/page.htm";
    EXPECT_GT(open("help/page.htm"), 32);
    EXPECT_EQ(opened(), "1 " + page.string() + " " + folder.string());
    output("PATH=/bin; kill $(cat '" + (folder / "pid").string() + "')");
}

TEST_F(ShellTest, PartsLieBesideTheProgramOrWhereTheyAreInstalled) {
    const struct {
        const char* made;
        const char* found;
    } rows[] = {{"usr/none", "usr/bin"},
                {"usr/share/quillet/part", "usr/share/quillet"},
                {"usr/bin/part", "usr/bin"}};
    for (const auto& row : rows) {
        fs::create_directories(folder / "usr/bin");
        fs::create_directories(folder / row.made);
        const std::string found =
            folderWith("part", "../share/quillet", QString((folder / "usr/bin").c_str()))
                .toStdString();
        EXPECT_EQ(found, folder / row.found) << row.made;
    }
}

} // namespace
} // namespace quillet
