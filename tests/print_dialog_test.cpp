// Printing from the real window: through the print dialog into a file, and to a real print server.
#include "tests/desktop_session.h"
#include "tests/printed_words.h"

#include <gtest/gtest.h>

#include <fstream>

namespace quillet {
namespace {

// The settings of a print server with one printer. "@" is its folder.
const std::pair<const char*, const char*> settings[] = {
    {"cupsd.conf", "Listen @/socket\nBrowsing Off\nWebInterface No\nPreserveJobFiles Yes\n"
                   "<Location />\nAllow all\n</Location>\n"
                   "<Policy default>\n<Limit All>\nOrder deny,allow\n</Limit>\n</Policy>\n"},
    {"cups-files.conf", "ServerRoot @\nRequestRoot @/spool\nTempDir @/spool/tmp\n"
                        "CacheDir @/cache\nStateDir @/state\nErrorLog @/error\n"
                        "AccessLog @/access\nPageLog @/page\nFileDevice Yes\n"},
    {"printers.conf", "<DefaultPrinter paper>\nDeviceURI file:///dev/null\nState Idle\n"
                      "Accepting Yes\n</DefaultPrinter>\n"}};

// A CUPS server of our own. What it has printed stays in its spool folder.
class PrintServer {
  public:
    PrintServer() {
        for (const char* part : {"spool/tmp", "cache", "state"})
            fs::create_directories(folder_.path / part);
        fs::permissions(folder_.path, fs::perms::others_exec, fs::perm_options::add);
        for (const auto& [name, text] : settings)
            std::ofstream(folder_.path / name)
                << std::regex_replace(text, std::regex("@"), folder_.path.string());
        const fs::path socket = folder_.path / "socket";
        setenv("CUPS_SERVER", socket.c_str(), 1);
        server_ = std::make_unique<Process>(
            std::vector<std::string>{"/usr/sbin/cupsd", "-f", "-c", folder_.path / "cupsd.conf",
                                     "-s", folder_.path / "cups-files.conf"});
        if (!waitUntil([&] { return fs::exists(socket); }))
            throw std::runtime_error("no print server could be started");
    }

    // The document of a job, by its number from 1, once it is there; or an empty path.
    fs::path job(int number) const {
        const std::string document = spooled("d", number) + "-001";
        const auto isWhole = [&] { return output("tail -c 6 " + document) == "%%EOF"; };
        return waitUntil(isWhole) ? document : "";
    }

    // What the server is asked to do with a job, as its bytes, once they are there.
    std::string requests(int number) const {
        const std::string control = spooled("c", number);
        EXPECT_TRUE(waitUntil([&] { return !output("grep -a number-up " + control).empty(); }));
        return output("tr -d '\\0' < " + control);
    }

  private:
    std::string spooled(const std::string& kind, int number) const {
        return folder_.path / "spool" / (kind + "0000" + std::to_string(number));
    }

    TempFolder folder_;
    std::unique_ptr<Process> server_;
};

struct Printing : ::testing::Test {
    PrintServer server; // the program asks for it at its start
    DesktopSession session;

    // Answers the dialog by keys, typed text and keys again.
    void print(const char* keys, const std::string& typed, const char* last) {
        const std::string before = session.title();
        session.send(DesktopSession::ctrl('p'));
        ASSERT_TRUE(session.waitForTitle("Print"));
        session.send(keys);
        session.type(typed);
        session.send(last);
        ASSERT_TRUE(session.waitForTitle(before));
        session.send("key ctrl+Home");
    }
};

TEST_F(Printing, IntoAFileAndToAServer) {
    std::string text;
    for (int line = 1; line <= 70; ++line)
        text += std::to_string(line) + "\tdkxt\r\n";
    ASSERT_TRUE(session.open("letter.txt", text));

    print("key Escape", "", ""); // prints nothing
    print("key Return", "", "");
    const auto words = printedWords(server.job(1));
    ASSERT_EQ(words.size(), 140U);
    EXPECT_EQ(words.back().page, 2);
    EXPECT_EQ(words[0].text + words[138].text, "170");
    for (std::size_t i = 2; i < words.size(); i += 2) {
        const bool samePage = words[i].page == words[i - 2].page;
        EXPECT_NEAR(words[i].x, words[0].x, 1) << words[i].text;
        EXPECT_NEAR(words[i].y, samePage ? words[i - 2].y + words[2].y - words[0].y : words[0].y, 1)
            << words[i].text;
    }

    session.send("key shift+Right"); // the selection alone
    print("key Return", "", "");
    const auto selected = printedWords(server.job(2));
    ASSERT_EQ(selected.size(), 1U);
    EXPECT_EQ(selected[0].text, "1");

    // The server must not choose once more among the pages that were chosen: even ones, from 2 on.
    print("key alt+n key Tab key Tab key Tab key space key alt+n key Tab key Tab key Tab "
          "key Tab key Down key Down key Tab",
          "2-3", "key Tab key Down key Down key Return");
    const auto second = printedWords(server.job(3));
    ASSERT_FALSE(second.empty());
    EXPECT_EQ(words[words.size() - second.size()].page, 2);
    EXPECT_EQ(second[0].text, words[words.size() - second.size()].text);
    EXPECT_EQ(second.back().page, 1);
    EXPECT_EQ(server.requests(3).find("page-"), std::string::npos);

    // All of it again. The list of printers ends with the file.
    const std::string file = session.path("printed.pdf");
    print("key alt+n key End key alt+f key ctrl+a", file, "key Return");
    ASSERT_TRUE(waitUntil([&] { return printedWords(file).size() == 140; }));
    EXPECT_NE(output("pdffonts " + file).find("QuilletDevanagari"), std::string::npos);
    EXPECT_EQ(session.read("letter.txt"), text);
}

} // namespace
} // namespace quillet
