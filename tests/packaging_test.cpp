// The Debian package: what is in it, what Debian's checkers say of it, and the program started
// from where it was built and from a place that it was not built for.
#include "tests/desktop_session.h"

#include <gtest/gtest.h>

#include <fstream>

namespace quillet {
namespace {

struct Package : ::testing::Test {
    static inline std::unique_ptr<TempFolder> temp;
    static inline fs::path root;
    static inline std::string deb;

    static void SetUpTestSuite() {
        temp = std::make_unique<TempFolder>();
        root = temp->path / "a place/elsewhere/usr";
        const std::string log = output(QUILLET_CPACK " -G DEB -B " + temp->path.string() + " 2>&1");
        deb = output("echo " + temp->path.string() + "/quillet_" QUILLET_VERSION "-1_*.deb");
        ASSERT_TRUE(fs::exists(deb)) << log;
        fs::create_directories(root);
        output("dpkg-deb -x " + deb + " '" + root.parent_path().string() + "'");
    }
    static void TearDownTestSuite() { temp.reset(); }

    static void writeScript(const fs::path& file, const std::string& script) {
        fs::create_directories(file.parent_path());
        std::ofstream(file) << "#!/bin/sh\n" << script << "\n";
        fs::permissions(file, fs::perms::owner_all);
    }
};

TEST_F(Package, PassesTheChecksOfDebian) {
    // Only a package for Debian's own archive would close a bug there.
    const std::string lintian = "lintian --fail-on error,warning "
                                "--suppress-tags initial-upload-closes-no-bugs ";
    const std::string commands[] = {
        lintian + deb,
        "desktop-file-validate --warn-kde applications/quillet.desktop",
        "test -f ../bin/$(sed -n s/^Exec=//p applications/*)",
        "test -f icons/hicolor/scalable/apps/$(sed -n s/^Icon=//p applications/*).svg",
        "test -f icons/hicolor/scalable/mimetypes/application-x-quillet.svg",
        "zcat man/man1/quillet.1.gz | grep -q Devanagari",
        "grep -q '^License: OFL-1.1' doc/quillet/copyright",
        "appstreamcli validate --no-net metainfo/*.xml",
        "update-mime-database mime && grep -q ':application/x-quillet:\\*.qlt$' mime/globs2",
        "../libexec/quillet/quillet-browser; test $? = 2", // wants arguments
    };
    for (const std::string& command : commands) {
        const std::string said = output("cd '" + (root / "share").string() + "' && { " + command +
                                        "; } 2>&1; echo exit $?");
        EXPECT_TRUE(said.ends_with("exit 0")) << command << ": " << said;
    }
}

TEST_F(Package, RunsWhereItWasBuiltAndWhereItWasUnpacked) {
    const std::string bin = temp->path / "bin";
    const std::string seen = temp->path / "seen";
    const std::string helper = root / "libexec/quillet/quillet-browser";
    const std::string tell = "echo \"$0 $*\" >>" + seen;
    writeScript(bin + "/xdg-mime", "echo browser.desktop");
    writeScript(bin + "/xdg-open", tell);
    writeScript(helper, tell); // the real one would go to the web
    setenv("PATH", (bin + ":" + getenv("PATH")).c_str(), 1);

    const auto sees = [&](const std::string& text) {
        return waitUntil([&] { return output("cat " + seen).find(text) != std::string::npos; });
    };
    const auto helps = [&](DesktopSession& session, const fs::path& help) {
        session.send("key alt+h key h");
        return sees("/xdg-open " + (help / "how_to_use_quillet.htm").string());
    };
    DesktopSession built;
    EXPECT_TRUE(helps(built, fs::path(QUILLET_PROGRAM).parent_path() / "help"));
    DesktopSession session({.path = root / "bin/quillet"});
    EXPECT_TRUE(helps(session, root / "share/quillet/help"));
    session.send("key alt+w key Up key Return"); // the last entry of the menu
    ASSERT_TRUE(DesktopSession::waitForTitle("Quillet1.0"));
    session.send("key Return");
    EXPECT_TRUE(sees(helper + " Quillet: Surf Hindi News"));
}

} // namespace
} // namespace quillet
