// Printing from the real window: through the print dialog into a file, and to a real print server.
#include "tests/desktop_session.h"
#include "tests/printed_words.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <fstream>

namespace quillet {
namespace {

namespace fs = std::filesystem;

// A CUPS server of our own with one printer. What it has printed stays in its spool folder.
class PrintServer {
  public:
    PrintServer() {
        std::string pattern = fs::temp_directory_path() / "quillet-print-XXXXXX";
        folder_ = mkdtemp(pattern.data());
        for (const char* part : {"spool", "spool/tmp", "cache", "state", "root"})
            fs::create_directories(folder_ / part);
        fs::permissions(folder_, fs::perms::others_exec, fs::perm_options::add);
        const std::string socket = folder_ / "socket";
        write("cupsd.conf", "Listen " + socket +
                                "\nBrowsing Off\nWebInterface No\nPreserveJobFiles Yes\n"
                                "<Location />\nAllow all\n</Location>\n"
                                "<Policy default>\n<Limit All>\nOrder deny,allow\n</Limit>\n"
                                "</Policy>\n");
        const std::string at = folder_;
        write("cups-files.conf", "ServerRoot " + at + "/root\nRequestRoot " + at +
                                     "/spool\nTempDir " + at + "/spool/tmp\nCacheDir " + at +
                                     "/cache\nStateDir " + at + "/state\nErrorLog " + at +
                                     "/error\nAccessLog " + at + "/access\nPageLog " + at +
                                     "/page\nFileDevice Yes\n");
        write("printers.conf", "<DefaultPrinter paper>\nDeviceURI file:///dev/null\nState Idle\n"
                               "Accepting Yes\n</DefaultPrinter>\n");
        setenv("CUPS_SERVER", socket.c_str(), 1);
        server_ = std::make_unique<Process>(
            std::vector<std::string>{"/usr/sbin/cupsd", "-f", "-c", folder_ / "root/cupsd.conf",
                                     "-s", folder_ / "root/cups-files.conf"});
        if (!waitUntil([this] { return fs::exists(folder_ / "socket"); }))
            throw std::runtime_error("no print server could be started");
    }

    ~PrintServer() {
        server_.reset();
        fs::remove_all(folder_);
    }
    PrintServer(const PrintServer&) = delete;
    PrintServer& operator=(const PrintServer&) = delete;

    // The document of a job, by its number from 1, once it is there; or an empty path.
    fs::path job(int number) const {
        const fs::path document = folder_ / "spool" / ("d0000" + std::to_string(number) + "-001");
        const auto isWhole = [&] { return output("tail -c 6 " + document.string()) == "%%EOF"; };
        return waitUntil(isWhole) ? document : fs::path();
    }

    // What the server is asked to do with a job, as its bytes, once they are there.
    std::string requests(int number) const {
        const std::string control = folder_ / "spool" / ("c0000" + std::to_string(number));
        EXPECT_TRUE(waitUntil([&] { return !output("grep -a number-up " + control).empty(); }));
        return output("tr -d '\\0' < " + control);
    }

  private:
    void write(const char* name, const std::string& text) const {
        std::ofstream(folder_ / "root" / name) << text;
    }

    fs::path folder_;
    std::unique_ptr<Process> server_;
};

const std::string printKey = "keydown ctrl key 33 keyup ctrl"; // P by its place

struct Printing : ::testing::Test {
    PrintServer server; // the program asks for it at its start
    DesktopSession session;

    void open(const std::string& text) {
        session.write("letter.txt", text);
        session.send("keydown ctrl key 32 keyup ctrl");
        ASSERT_TRUE(DesktopSession::waitForTitle("Open"));
        session.type(session.path("letter.txt"));
        session.send("key Return");
        ASSERT_TRUE(DesktopSession::waitForTitle(title()));
    }

    std::string title() const {
        return "Quillet: Hindi Word Processor  " + session.path("letter.txt");
    }

    void answerDialog(const std::string& keys) {
        session.send(printKey);
        ASSERT_TRUE(DesktopSession::waitForTitle("Print"));
        session.send(keys);
        ASSERT_TRUE(DesktopSession::waitForTitle(title()));
    }
};

TEST_F(Printing, IntoAFileAndToAServer) {
    std::string text;
    for (int line = 1; line <= 70; ++line)
        text += std::to_string(line) + "\tdkxt\r\n";
    open(text);

    answerDialog("key Escape"); // prints nothing
    answerDialog("key Return");
    const auto words = printedWords(server.job(1));
    ASSERT_EQ(words.size(), 140U);
    EXPECT_EQ(words.back().page, 2);
    EXPECT_EQ(words[0].text + words[138].text, "170");
    const double left = words[0].x;
    const double lineHeight = words[2].y - words[0].y;
    for (std::size_t i = 2; i < words.size(); i += 2) {
        EXPECT_NEAR(words[i].x, left, 1) << words[i].text;
        if (words[i].page == words[i - 2].page)
            EXPECT_NEAR(words[i].y - words[i - 2].y, lineHeight, 1) << words[i].text;
        else
            EXPECT_NEAR(words[i].y, words[0].y, 1) << words[i].text;
    }

    session.send("key ctrl+Home key shift+Right"); // the selection alone
    answerDialog("key Return");
    const auto selected = printedWords(server.job(2));
    ASSERT_EQ(selected.size(), 1U);
    EXPECT_EQ(selected[0].text, "1");

    // The server must not choose once more among the pages that were chosen: even ones, from 2 on.
    session.send("key ctrl+Home " + printKey);
    ASSERT_TRUE(DesktopSession::waitForTitle("Print"));
    session.send("key alt+n key Tab key Tab key Tab key space key alt+n key Tab key Tab key Tab "
                 "key Tab key Down key Down key Tab");
    session.type("2-3");
    session.send("key Tab key Down key Down key Return");
    ASSERT_TRUE(DesktopSession::waitForTitle(title()));
    const auto second = printedWords(server.job(3));
    ASSERT_FALSE(second.empty());
    EXPECT_EQ(words[words.size() - second.size()].page, 2);
    EXPECT_EQ(second[0].text, words[words.size() - second.size()].text);
    EXPECT_EQ(second.back().page, 1);
    EXPECT_EQ(server.requests(3).find("page-"), std::string::npos);

    // All of it again. The list of printers ends with the file. A second answer lets it be
    // replaced.
    const std::string file = session.path("printed.pdf");
    session.send("key ctrl+Home " + printKey);
    ASSERT_TRUE(DesktopSession::waitForTitle("Print"));
    session.send("key alt+n key End key alt+f key ctrl+a");
    session.type(file);
    session.send("key Return");
    ASSERT_TRUE(DesktopSession::waitForTitle(title()));
    ASSERT_TRUE(waitUntil([&] { return printedWords(file).size() == 140; }));
    EXPECT_NE(output("pdffonts " + file).find("QuilletDevanagari"), std::string::npos);
    EXPECT_EQ(session.read("letter.txt"), text);
}

} // namespace
} // namespace quillet
