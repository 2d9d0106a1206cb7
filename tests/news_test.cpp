// The news window with its real browser, on a page served on this machine.
#include "tests/desktop_session.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include <unistd.h>

namespace quillet {
namespace {

namespace fs = std::filesystem;

const char* const newsTitle = "Quillet: Surf Hindi News";

class NewsSite {
  public:
    NewsSite() {
        std::string pattern = fs::temp_directory_path() / "quillet-news-XXXXXX";
        folder_ = mkdtemp(pattern.data());
        write("index.html", "<title>News</title><h1>News</h1>");
        const std::string serve = "cd " + folder_.string() +
                                  " && exec python3 -u -m http.server --bind 127.0.0.1 0 >log 2>&1";
        server_ = std::make_unique<Process>(std::vector<std::string>{"sh", "-c", serve});
        std::string address;
        waitUntil([&] {
            address = output("sed -n 's/.*(\\(http[^)]*\\)).*/\\1/p' " + log());
            return !address.empty();
        });
        setenv("QUILLET_TEST_NEWS", address.c_str(), 1);
    }
    ~NewsSite() {
        close();
        fs::remove_all(folder_);
    }
    NewsSite(const NewsSite&) = delete;
    NewsSite& operator=(const NewsSite&) = delete;

    void write(const char* name, const char* page) const { std::ofstream(folder_ / name) << page; }

    // How often a page was fetched; the start page is "".
    std::string visits(const std::string& name = "") const {
        return output("grep -c 'GET /" + name + " ' " + log());
    }

    void close() { server_.reset(); }

  private:
    std::string log() const { return folder_ / "log"; }

    fs::path folder_;
    std::unique_ptr<Process> server_;
};

// Stands in for the program that opens things on this desktop.
struct Opener {
    fs::path folder = fs::path(testing::TempDir()) / ("quillet-open-" + std::to_string(getpid()));
    std::string oldPath = getenv("PATH");

    Opener() {
        fs::create_directories(folder);
        std::ofstream(folder / "xdg-open") << "#!/bin/sh\n: >'" << folder.string() << "/opened'\n";
        fs::permissions(folder / "xdg-open", fs::perms::owner_all);
        setenv("PATH", (folder.string() + ":" + oldPath).c_str(), 1);
    }
    ~Opener() {
        setenv("PATH", oldPath.c_str(), 1);
        fs::remove_all(folder);
    }
    Opener(const Opener&) = delete;
    Opener& operator=(const Opener&) = delete;
};

struct News : ::testing::Test {
    NewsSite site;
    Opener opener;
    DesktopSession session{{.path = ELSEWHERE_PROGRAM}};

    void surf() {
        session.send("search --name '^Quillet: (Inscript|Hindi Text)' windowactivate --sync");
        session.send("key alt+w key Down key Return");
        ASSERT_TRUE(DesktopSession::waitForTitle("Quillet1.0"));
        session.send("key Return");
        ASSERT_TRUE(DesktopSession::waitForTitle(newsTitle));
    }

    // The process of the browser, or nothing.
    std::string browser() {
        return output("pgrep -x quillet-browser -P " + std::to_string(session.program().id()));
    }

    static bool runs(const std::string& process) {
        return !process.empty() && fs::exists("/proc/" + process);
    }

    // More than once: the window manager may not have it in the foreground yet.
    void closeBrowser() {
        const std::string process = browser();
        EXPECT_TRUE(waitUntil([&] {
            if (DesktopSession::title() == newsTitle)
                session.send("key alt+F4 sleep 0.2");
            return !runs(process);
        }));
    }
};

TEST_F(News, OpenCloseAndCrashBesideTheDocument) {
    EXPECT_EQ(browser(), "") << "before it is used";
    session.type("kfley");
    surf();
    EXPECT_TRUE(waitUntil([&] { return site.visits() == "1"; }));
    surf(); // brings it forward
    closeBrowser();
    EXPECT_EQ(site.visits(), "1");
    surf();
    EXPECT_TRUE(waitUntil([&] { return site.visits() == "2"; }));

    output("kill -KILL " + browser());
    EXPECT_TRUE(
        DesktopSession::waitForTitle("Quillet: Inscript Based Basic Devnagari Word Processor"));
    EXPECT_EQ(session.saveAs("after.qlt"), "fdrkc\r\n");

    site.close();
    surf();
    const std::string last = browser();
    session.send("search --name '^Quillet: Hindi Text' windowactivate --sync");
    session.send("keydown ctrl key 26 keyup ctrl"); // E by its place: Exit
    ASSERT_TRUE(DesktopSession::waitForTitle("Quillet1.0"));
    session.send("key alt+n");
    EXPECT_EQ(session.program().waitForExit(), 0);
    EXPECT_TRUE(waitUntil([&] { return !runs(last); }));
}

TEST_F(News, KeepTheProgramRunningWithoutItsMainWindow) {
    surf();
    session.send("search --name '^Quillet: Inscript' windowactivate --sync key alt+F4");
    EXPECT_TRUE(DesktopSession::waitForTitle(newsTitle));
    EXPECT_EQ(output("xdotool search --name '^Quillet: Inscript'"), "");
    closeBrowser();
    EXPECT_EQ(session.program().waitForExit(), 0);
}

TEST_F(News, APageCannotHoldItsWindowWithQuestions) {
    site.write("index.html", "<title>News</title><script>for (;;) alert()</script>");
    surf();
    for (int question = 0; question < 5; ++question) {
        EXPECT_TRUE(
            waitUntil([] { return DesktopSession::title().starts_with("Javascript Alert"); }));
        session.send("key Return sleep 0.5");
    }
    closeBrowser();
}

TEST_F(News, APageReachesNeitherFilesNorPrograms) {
    site.write("index.html",
               "<body style='margin: 0'><iframe src=frame.html style='width: 400px'></iframe>"
               "<button style='position: fixed; left: 500px; top: 0; width: 200px; height: 200px' "
               "onclick='showSaveFilePicker().catch(() => fetch(\"refused\"))'>Save</button>");
    site.write("frame.html", "<a href='quillet:x' target=_self onclick='fetch(\"clicked\")' "
                             "style='position: fixed; inset: 0'>Run</a>");
    surf();
    EXPECT_TRUE(waitUntil([&] { return site.visits("frame.html") == "1"; }));
    EXPECT_TRUE(waitUntil([&] {
        session.send("mousemove 200 100 click 1 sleep 0.5");
        return site.visits("clicked") != "0";
    }));
    session.send("mousemove 600 100 click 1");
    EXPECT_TRUE(waitUntil([&] { return site.visits("refused") == "1"; }));
    EXPECT_FALSE(fs::exists(opener.folder / "opened")) << "a program of the desktop was run";
}

} // namespace
} // namespace quillet
