// How files and addresses are opened, with stand-ins for the programs of the desktop.
#include "platform/qt/qt_shell.h"
#include "tests/shell.h"

#include <gtest/gtest.h>

#include <fstream>

namespace quillet {
namespace {

struct ShellTest : ::testing::Test {
    TempFolder temp;
    fs::path folder = temp.path;
    std::string oldPath = getenv("PATH");

    ShellTest() {
        for (const char* file : {"page.htm", "data.unheardof"})
            std::ofstream(folder / file) << "x";
        setenv("PATH", folder.c_str(), 1);
        unsetenv("BROWSER");
    }
    ~ShellTest() override { setenv("PATH", oldPath.c_str(), 1); }

    void install(const char* name, const std::string& script) const {
        std::ofstream(folder / name) << "#!/bin/sh\n" << script << "\n";
        fs::permissions(folder / name, fs::perms::owner_all);
    }

    int open(const std::string& file) const {
        return QtShell().ShellExecuteA("open", file, "", folder, 0);
    }
};

TEST_F(ShellTest, TellsWhatIsMissing) {
    EXPECT_EQ(open("none.htm"), Shell::FileNotFound);
    EXPECT_EQ(open("none/page.htm"), Shell::PathNotFound);
    EXPECT_EQ(open("page.htm"), Shell::LibraryNotFound);
    EXPECT_EQ(open("https://quillet.example/"), Shell::LibraryNotFound);
    install("xdg-open", "exit 1");
    install("xdg-mime", "exit 3");
    EXPECT_EQ(open("page.htm"), Shell::NoAssociation);
    EXPECT_EQ(open("https://quillet.example/"), Shell::NoAssociation);
    setenv("BROWSER", "lookaround", 1);
    EXPECT_GT(open("page.htm"), 32) << "whatever its own exit code is";
    EXPECT_EQ(open("data.unheardof"), Shell::NoAssociation);
}

TEST_F(ShellTest, OpensAnswersAtOnceAndFromItsFolder) {
    install("xdg-mime", "test \"$3\" = text/html && echo browser.desktop");
    install("xdg-open", "echo \"$# $1 $PWD $$\" > part; /bin/mv part seen; exec /bin/sleep 1000");
    EXPECT_GT(open("page.htm"), 32);
    ASSERT_TRUE(waitUntil([&] { return fs::exists(folder / "seen"); }));
    std::string count, page, from, process;
    std::ifstream(folder / "seen") >> count >> page >> from >> process;
    EXPECT_EQ(count + page + from, "1" + (folder / "page.htm").string() + folder.string());
    output("kill " + process);
}

} // namespace
} // namespace quillet
