// The mail command with the real component, against servers that are real or go wrong.
#include "tests/mail_through.h"
#include "tests/shell.h"
#include "tests/smtp_relay.h"
#include "tests/test_window.h"

#include <gtest/gtest.h>

#include <QCoreApplication>

#include <fstream>
#include <random>
#include <sstream>

namespace quillet {
namespace {

using namespace std::literals;
using Fault = SmtpRelay::Fault;
using std::chrono::steady_clock;

// Sends a document and returns how what the user is told begins; the pointer is restored anyway.
std::string sent(const std::string& relay, const GlyphString& document = "k",
                 const char* recipients = "you@there", MailLimits limits = {}) {
    TestWindow form;
    form.mailComponent = std::make_shared<MailThrough>(relay, limits);
    form.txtMain.Text(document);
    form.desktop.inputs = {"me@here", recipients};
    form.mnuSendMail_Click();
    std::string last;
    int left = 0; // hourglasses
    for (const std::string& call : form.desktop.calls) {
        last = call.starts_with("ask ") ? call.substr(4, 5) : last;
        left += call == "hourglass" ? 1 : call == "default pointer" ? -1 : 0;
    }
    EXPECT_EQ(left, 0);
    return last;
}

TEST(Mail, EveryFaultIsToldInTime) {
    EXPECT_TRUE(CurlMail().limits().connecting == 10s && CurlMail().limits().whole == 60s);
    const std::string gone = SmtpRelay().address();
    EXPECT_EQ(sent(gone), "Sorry");
    EXPECT_EQ(sent("nowhere.invalid"), "Sorry");
    const auto expectTold = [](const char* told, const char* stage, Fault fault,
                               MailLimits limits) {
        SCOPED_TRACE(std::to_string(static_cast<int>(fault)) + " at " + stage);
        const SmtpRelay relay({{stage, fault}, {"QUIT", Fault::Silence}});
        const auto start = steady_clock::now();
        EXPECT_EQ(sent(relay.address(), "k", "you@there", limits), told);
        EXPECT_LT(steady_clock::now() - start, 3s);
    };
    for (const Fault fault : {Fault::Refuse, Fault::Drop, Fault::Silence}) {
        for (const char* stage : {"greeting", "EHLO", "MAIL", "RCPT", "DATA", "."})
            expectTold("Sorry", stage, fault, {.connecting = 300ms, .whole = 600ms});
        expectTold("Congr", "QUIT", fault, {});
    }
    expectTold("Sorry", "EHLO", Fault::Silence, {.connecting = 300ms, .whole = 60s});
    expectTold("Sorry", ".", Fault::Silence, {.connecting = 60s, .whole = 300ms});
}

TEST(Mail, KnowsItsOwnMachineByName) {
    for (const char* own :
         {"localhost", "LOCALHOST:25", "127.0.0.1", "127.9.9.9:1", "[::1]", "[::1]:25"})
        EXPECT_TRUE(CurlMail::isThisMachine(own)) << own;
    for (const char* other : {"0.0.0.0", "127.example", "10.127.0.1", "localhost.example", "[::2]"})
        EXPECT_FALSE(CurlMail::isThisMachine(other)) << other;
}

#ifdef SMTP_SERVER
// The server while the object lives, with a folder for what it gets.
class Server {
  public:
    explicit Server(const std::string& kind)
        : process_(popen((SMTP_SERVER " " + folder_.path.string() + " " + kind).c_str(), "w")) {}
    Server(const Server&) = delete;
    ~Server() { pclose(process_); }

    std::string address() const { return read("address"); }
    std::string nextMail() { return read("mail" + std::to_string(++mails_)); }

  private:
    std::string read(const std::string& name) const {
        waitUntil([&] { return fs::exists(folder_.path / name); });
        std::ifstream file(folder_.path / name, std::ios::binary);
        return (std::stringstream() << file.rdbuf()).str();
    }

    TempFolder folder_;
    FILE* process_;
    int mails_ = 0;
};

// The mail as the server keeps it.
std::string kept(const GlyphString& document, const char* addresses = "you@there\nme@here=me@here\n"
                                                                      "you@there=you@there\n") {
    TestWindow form;
    form.txtMain.Text(document);
    form.desktop.inputs = {"me@here", "you@there"};
    form.mnuSendMail_Click();
    for (const std::string& call : form.desktop.calls)
        if (call.starts_with("BodyText "))
            return "me@here\n" + std::string(addresses) +
                   "Mail via Quillet: Devnagari Text Editor\ntext/plain windows-1252\ndated\n"
                   "plain\n\n" +
                   call.substr(9);
    return "";
}

void expectEveryTextArrives(Server& server) {
    GlyphString large;
    large.resize(10'000'000);
    std::mt19937 random(1);
    for (char& glyph : large)
        glyph = static_cast<char>(random());
    const GlyphString longLines = GlyphString(3000, 'd') + "\r\n" + GlyphString(3000, '.');
    for (const GlyphString& text :
         {GlyphString(), allBytes(), "a\nb\rc\n\rd\n"s, longLines, ".\r\n..\r\n.\r\n"s, large}) {
        EXPECT_EQ(sent(server.address(), text), "Congr") << text.substr(0, 99);
        EXPECT_TRUE(server.nextMail() == kept(text)) << text.substr(0, 99);
    }
}

TEST(Mail, ArrivesWholeAndUnchanged) {
    Server server("plain");
    expectEveryTextArrives(server);
    EXPECT_EQ(sent(server.address(), "k", " a@b;; c@d ;"), "Congr");
    EXPECT_EQ(server.nextMail(), kept("k", "a@b\nc@d\nme@here=me@here\na@b=a@b\nc@d=c@d\n"));
    for (const char* refused : {" ", ";", "a@b\r\nRCPT TO:<c@d>"})
        EXPECT_EQ(sent(server.address(), "k", refused), "Sorry") << refused;
}

TEST(Mail, ArrivesThroughAMailServer) {
    if (access("/usr/sbin/smtpd", X_OK) != 0 || geteuid() != 0 || fs::exists("/run/smtpd.sock"))
        GTEST_SKIP() << "Needs an OpenSMTPD that does not run yet, and a superuser to start it.";
    Server server("relayed");
    expectEveryTextArrives(server);
}

TEST(Mail, AnUnknownCertificateIsNoHindranceOnThisMachineOnly) {
    Server server("tls");
    const std::string port = server.address().substr(server.address().find(':'));
    EXPECT_EQ(sent("127.0.0.1" + port), "Congr");
    EXPECT_EQ(server.nextMail(), kept("k"));
    EXPECT_EQ(sent("0.0.0.0" + port), "Sorry");
}
#endif

} // namespace
} // namespace quillet

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    const QCoreApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
