// The Debian package: what is in it, what Debian's checkers say of it, and the program started
// from a place that it was not built for.
#include "tests/desktop_session.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>

#include <unistd.h>

namespace quillet {
namespace {

namespace fs = std::filesystem;

struct Package : ::testing::Test {
    static inline fs::path folder;
    static inline fs::path root;
    static inline std::string deb;

    static void SetUpTestSuite() {
        folder = fs::path(testing::TempDir()) / ("quillet-package-" + std::to_string(getpid()));
        root = folder / "a place/elsewhere";
        fs::create_directories(root);
        const std::string log = output(QUILLET_CPACK " -G DEB -B '" + folder.string() + "' 2>&1");
        deb = folder / ("quillet_" QUILLET_VERSION "-1_" + output("dpkg --print-architecture"));
        deb += ".deb";
        ASSERT_TRUE(fs::exists(deb)) << log;
        output("dpkg-deb -x '" + deb + "' '" + root.string() + "'");
    }
    static void TearDownTestSuite() { fs::remove_all(folder); }

    static void writeScript(const fs::path& file, const std::string& script) {
        fs::create_directories(file.parent_path());
        std::ofstream(file) << "#!/bin/sh\n" << script << "\n";
        fs::permissions(file, fs::perms::owner_all);
    }
};

std::set<std::string> expectedFiles() {
    std::set<std::string> files = {
        "bin/quillet",
        "libexec/quillet/quillet-browser",
        "share/applications/quillet.desktop",
        "share/doc/quillet/changelog.Debian.gz",
        "share/doc/quillet/copyright",
        "share/man/man1/quillet.1.gz",
        "share/metainfo/org.quillet.quillet.metainfo.xml",
        "share/mime/packages/quillet.xml",
    };
    for (const std::string icon : {"apps/quillet", "mimetypes/application-x-quillet"}) {
        for (const char* size : {"16", "24", "32", "48", "64", "96", "128", "256"})
            files.insert(std::string("share/icons/hicolor/") + size + "x" + size + "/" + icon +
                         ".png");
        files.insert("share/icons/hicolor/scalable/" + icon + ".svg");
    }
    for (const auto& entry : fs::recursive_directory_iterator(QUILLET_HELP))
        if (entry.is_regular_file())
            files.insert("share/quillet/help" / fs::relative(entry.path(), QUILLET_HELP));
    return files;
}

TEST_F(Package, HoldsWhatBelongsToTheProgram) {
    std::set<std::string> files;
    for (const auto& entry : fs::recursive_directory_iterator(root))
        if (entry.is_regular_file())
            files.insert(fs::relative(entry.path(), root / "usr"));
    EXPECT_EQ(files, expectedFiles());
}

TEST_F(Package, PassesTheChecksOfDebian) {
    // Only a package for Debian's own archive would close a bug there.
    const std::string lintian = "lintian --fail-on error,warning "
                                "--suppress-tags initial-upload-closes-no-bugs '" +
                                deb + "'";
    const struct {
        const char* name;
        std::string command;
    } rows[] = {
        {"package", lintian},
        {"desktop entry", "desktop-file-validate --warn-kde applications/quillet.desktop"},
        {"menu", "test -f ../bin/$(sed -n s/^Exec=//p applications/*) && "
                 "test -f icons/hicolor/scalable/apps/$(sed -n s/^Icon=//p applications/*).svg"},
        {"metadata", "appstreamcli validate --no-net metainfo/*.xml"},
        {"file type", "update-mime-database mime && grep -q ':application/x-quillet:\\*.qlt$' "
                      "mime/globs2"},
        {"helper starts", "../libexec/quillet/quillet-browser; test $? = 2"}, // wants arguments
    };
    const std::string into = "cd '" + (root / "usr/share").string() + "' && { ";
    for (const auto& row : rows) {
        const std::string said = output(into + row.command + "; } 2>&1; echo exit $?");
        EXPECT_TRUE(said.ends_with("exit 0")) << row.name << ": " << said;
    }
}

TEST_F(Package, RunsWhereItWasUnpacked) {
    const fs::path data = root / "usr/share/quillet";
    const std::string page = data / "help/how_to_use_quillet.htm";
    const std::string helper = root / "usr/libexec/quillet/quillet-browser";
    const std::string seen = "echo \"$0 $*\" >>'" + (folder / "seen").string() + "'";
    writeScript(folder / "bin/xdg-mime", "echo browser.desktop");
    writeScript(folder / "bin/xdg-open", seen);
    writeScript(helper, seen); // the real one would go to the web
    setenv("PATH", ((folder / "bin").string() + ":" + getenv("PATH")).c_str(), 1);

    DesktopSession session({.path = root / "usr/bin/quillet"});
    const auto sees = [&](const std::string& text) {
        return waitUntil([&] {
            return output("cat '" + (folder / "seen").string() + "'").find(text) !=
                   std::string::npos;
        });
    };
    session.send("key alt+h key h");
    EXPECT_TRUE(sees("/bin/xdg-open " + page));
    session.send("key alt+w key Up key Return"); // the last entry of the menu
    ASSERT_TRUE(DesktopSession::waitForTitle("Quillet1.0"));
    session.send("key Return");
    EXPECT_TRUE(sees(helper + " Quillet: Surf Hindi News"));
}

} // namespace
} // namespace quillet
