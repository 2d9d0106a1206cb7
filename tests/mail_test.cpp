// The mail command with the real component, against servers that are real or go wrong.
#include "platform/posix/posix_files.h"
#include "tests/mail_through.h"
#include "tests/smtp_relay.h"
#include "tests/test_window.h"

#include <gtest/gtest.h>

#include <QCoreApplication>

#include <filesystem>
#include <random>
#include <thread>

#include <unistd.h>

namespace quillet {
namespace {

using namespace std::chrono_literals;
using Fault = SmtpRelay::Fault;
using std::chrono::steady_clock;

constexpr MailLimits shortLimits{.connecting = 300ms, .whole = 600ms};

// Sends a document and returns what the user is told; the pointer is restored in any case.
std::string sent(const std::string& relay, const GlyphString& document = "k",
                 const char* recipients = "you@there", MailLimits limits = shortLimits) {
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
    EXPECT_EQ(CurlMail().limits().connecting, 10s);
    EXPECT_EQ(CurlMail().limits().whole, 60s);
    const std::string gone = SmtpRelay().address();
    EXPECT_EQ(sent(gone), "Sorry");
    EXPECT_EQ(sent("nowhere.invalid"), "Sorry");
    const char* const stages[] = {"greeting", "EHLO", "MAIL", "RCPT", "DATA", "."};
    const struct {
        const char* name;
        Fault fault;
    } faults[] = {
        {"refuses", Fault::Refuse}, {"drops", Fault::Drop}, {"keeps silent", Fault::Silence}};
    for (const auto& [name, fault] : faults) {
        for (const char* stage : stages) {
            const SmtpRelay relay({{stage, fault}, {"QUIT", Fault::Silence}});
            const auto start = steady_clock::now();
            EXPECT_EQ(sent(relay.address()), "Sorry") << name << " at " << stage;
            EXPECT_LT(steady_clock::now() - start, 3s) << name << " at " << stage;
        }
        const SmtpRelay relay({{"QUIT", fault}});
        const auto start = steady_clock::now();
        EXPECT_EQ(sent(relay.address(), "k", "you@there", {}), "Congr") << name << " at QUIT";
        EXPECT_LT(steady_clock::now() - start, 3s) << name << " at QUIT";
    }
}

TEST(Mail, EachLimitHoldsByItself) {
    for (const auto& [stage, limits] :
         {std::pair<std::string, MailLimits>{"EHLO", {300ms, 60s}}, {".", {60s, 300ms}}}) {
        const SmtpRelay relay({{stage, Fault::Silence}});
        const auto start = steady_clock::now();
        EXPECT_EQ(sent(relay.address(), "k", "you@there", limits), "Sorry") << stage;
        EXPECT_LT(steady_clock::now() - start, 5s) << stage;
    }
}

TEST(Mail, KnowsItsOwnMachineByName) {
    const struct {
        const char* relay;
        bool isOwn;
    } rows[] = {
        {"localhost", true},          {"LOCALHOST:25", true}, {"127.0.0.1", true},
        {"127.9.9.9:1", true},        {"[::1]", true},        {"[::1]:25", true},
        {"0.0.0.0", false},           {"127.example", false}, {"10.127.0.1", false},
        {"localhost.example", false}, {"[::2]", false},
    };
    for (const auto& row : rows)
        EXPECT_EQ(CurlMail::isThisMachine(row.relay), row.isOwn) << row.relay;
}

#ifdef SMTP_SERVER
// The server's folder, and the server itself while the object lives.
class Server {
  public:
    explicit Server(const std::string& kind) {
        std::string pattern = std::filesystem::temp_directory_path() / "quillet-mail-XXXXXX";
        folder_ = mkdtemp(pattern.data());
        process_ = popen((SMTP_SERVER " " + folder_.string() + " " + kind).c_str(), "w");
    }
    ~Server() {
        pclose(process_);
        std::filesystem::remove_all(folder_);
    }
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;

    std::string address() const { return read("address"); }
    std::string nextMail() { return read("mail" + std::to_string(++mails_)); }

  private:
    std::string read(const std::string& name) const {
        for (int times = 0; times < 1000 && !std::filesystem::exists(folder_ / name); ++times)
            std::this_thread::sleep_for(10ms);
        const GapBuffer bytes = PosixFiles().read(folder_ / name);
        return bytes.copy(0, bytes.size());
    }

    std::filesystem::path folder_;
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
    GlyphString all;
    for (int code = 0; code < 256; ++code)
        all.push_back(static_cast<char>(code));
    GlyphString large;
    large.resize(10'000'000);
    std::mt19937 random(1);
    for (char& glyph : large)
        glyph = static_cast<char>(random());
    const struct {
        const char* name;
        GlyphString text;
    } rows[] = {
        {"empty", ""},
        {"all bytes", all},
        {"lone line breaks", "a\nb\rc\n\rd\n"},
        {"long lines", GlyphString(3000, 'd') + "\r\n" + GlyphString(3000, '.')},
        {"dots", ".\r\n..\r\n.\r\n"},
        {"10 MB", large},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(sent(server.address(), row.text, "you@there", {}), "Congr") << row.name;
        EXPECT_TRUE(server.nextMail() == kept(row.text)) << row.name;
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
    if (access("/usr/sbin/smtpd", X_OK) != 0 || geteuid() != 0 ||
        std::filesystem::exists("/run/smtpd.sock"))
        GTEST_SKIP() << "Needs an OpenSMTPD that does not run yet, and a superuser to start it.";
    Server server("relayed");
    expectEveryTextArrives(server);
}

TEST(Mail, AnUnknownCertificateIsNoHindranceOnThisMachineOnly) {
    Server server("tls");
    const std::string port = server.address().substr(server.address().find(':'));
    EXPECT_EQ(sent("127.0.0.1" + port, "k", "you@there", {}), "Congr");
    EXPECT_EQ(server.nextMail(), kept("k"));
    EXPECT_EQ(sent("0.0.0.0" + port, "k", "you@there", {}), "Sorry");
}
#endif

} // namespace
} // namespace quillet

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    const QCoreApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
