// Commands in the real window: by menu, shortcut and toolbar, their boxes read back as assistive
// programs see them, and the clipboard shared with another program.
#include "tests/accessibility.h"
#include "tests/desktop_session.h"
#include "tests/smtp_relay.h"

#include <gtest/gtest.h>

namespace quillet {
namespace {

struct Commands : ::testing::Test {
    explicit Commands(const quillet::Program& started = {}) : session(started) {}

    DesktopSession session;
    Accessible program = Accessible::program();
    Accessible box = program.find("text", "Document");

    void ctrl(char letter) { session.send(DesktopSession::ctrl(letter)); }
    void menu(const char* item) { program.find("menu item", item).invoke(); }
    void button(const char* name) { program.find("push button", name).invoke(); }

    // The text and the buttons of the message box with this title; closes it by its OK.
    std::string message(const std::string& title) {
        const Accessible shown = program.find("alert", title);
        std::string text;
        for (const std::string& label : shown.names("label"))
            text += label;
        for (const std::string& button : shown.names("push button"))
            text += " [" + button + "]";
        session.send("key Return");
        waitUntil([&] { return DesktopSession::title() != title; });
        return text;
    }

    bool becomes(const std::string& text) {
        return waitUntil([&] { return box.text() == text; });
    }
    bool selects(int start, int end) {
        return waitUntil([&] { return box.selection() == std::pair(start, end); });
    }
    bool focuses(const std::string& name) {
        return waitUntil([&] { return program.focused().name() == name; });
    }
};

TEST_F(Commands, CountByMenuShortcutAndToolbar) {
    session.type("k k]");
    menu("Words");
    EXPECT_EQ(message("Quillet: Word Count"), "Number of words in the file are: 2 [OK]");
    ctrl('h');
    EXPECT_EQ(message("Quillet: Character Count"), "Number of characters in the file are: 4 [OK]");
    button("Count Lines");
    EXPECT_EQ(message("Quillet: Line Count"), "Number of sentences in the file are: 1 [OK]");
    menu("Arial");
    ctrl('k');
    EXPECT_EQ(message("Quillet: Keyboard Info"), "Keyboard currently being used is: Normal [OK]");
}

TEST_F(Commands, FindAndReplaceInTheirWindows) {
    session.type("kkeke"); // ddkdk
    ctrl('f');
    ASSERT_TRUE(DesktopSession::waitForTitle("Quillet: Find"));
    EXPECT_TRUE(focuses("Cancel"));
    session.send("key Tab");
    EXPECT_TRUE(focuses("Find "));
    session.send("key Tab");
    session.type("dk");
    session.send("key ctrl+a ctrl+c");
    EXPECT_TRUE(waitUntil([] { return output("xclip -o -selection clipboard") == "dk"; }));
    session.send("key shift+Tab space");
    EXPECT_TRUE(selects(1, 3) && focuses("Find Next"));
    session.send("key space");
    EXPECT_TRUE(selects(3, 5));
    session.send("key space");
    EXPECT_EQ(message("Quillet: Find Next"), "No further matches found. [OK]");

    ctrl('r'); // to the main window, which has the focus again
    const Accessible replace = program.find("dialog", "Quilet: Replace");
    ASSERT_TRUE(replace && DesktopSession::waitForTitle("Quilet: Replace"));
    EXPECT_EQ(replace.names("push button"), (std::vector<std::string>{"Cancel", "Replace All"}));
    session.send("key alt+n");
    session.type("dk");
    session.send("key alt+p");
    session.type("m");
    session.send("key alt+a");
    EXPECT_TRUE(becomes("dmm") && focuses("Replace All"));
    session.send("key shift+Tab space"); // to Cancel
    ASSERT_TRUE(waitUntil([] { return DesktopSession::title().starts_with("Quillet: Ins"); }));
    ctrl('z');
    EXPECT_TRUE(becomes("ddkdk"));
}

TEST_F(Commands, TheClipboardIsSharedWithOtherPrograms) {
    const std::string bytes = allBytes().substr(1); // not NUL
    ASSERT_TRUE(session.open("opened.qlt", bytes));
    ctrl('a');
    ctrl('c');
    const std::string theirs = output("xclip -o -selection clipboard | iconv -f utf8 -t utf16le | "
                                      "od -An -v -tu2 -w2 | tr -d '\\n'");
    EXPECT_NE(theirs.find(" 8364   129  8218 "), std::string::npos) << theirs;
    EXPECT_EQ(theirs.size(), 6U * bytes.size());

    output("printf 'a™क' | xclip -selection clipboard >/dev/null");
    ctrl('v');
    EXPECT_TRUE(becomes("a™?")) << box.text();
    output("printf 'no text' | xclip -selection clipboard -t image/png >/dev/null");
    ctrl('a');
    ctrl('v');
    EXPECT_TRUE(becomes("")) << box.text();
}

TEST_F(Commands, AnOverflowIsSilentFromTheToolbarAndEndsTheProgramFromTheMenu) {
    ASSERT_TRUE(session.open("opened.qlt", std::string(32'767, 'd') + " "));
    button("Count Words");
    button("Count Characters");
    EXPECT_EQ(message("Quillet: Character Count"),
              "Number of characters in the file are: 32768 [OK]");
    ctrl('w');
    EXPECT_EQ(message("Quillet1.0"), "Run-time error '6':\n\nOverflow [OK]");
    EXPECT_EQ(session.program().waitForExit(), 1);
}

struct RelayOfProgram {
    RelayOfProgram() { setenv("QUILLET_TEST_RELAY", relay.address().c_str(), 1); }
    SmtpRelay relay;
};

struct MailCommand : RelayOfProgram, Commands {
    MailCommand() : Commands({.path = ELSEWHERE_PROGRAM}) {}
};

TEST_F(MailCommand, KeysWaitAndTheWindowStaysUntilItIsSent) {
    session.type("k");
    relay.hold();
    button("Email text");
    for (const char* question :
         {"Email address of the sender (yours)", "Email address of the recipient"}) {
        EXPECT_TRUE(program.find("label", question));
        EXPECT_TRUE(DesktopSession::waitForTitle("Quillet Email"));
        session.type("a@b");
        session.send("key Return");
    }
    ASSERT_TRUE(waitUntil([&] { return relay.holds(); }));
    session.type("ek");
    ctrl('h');
    session.send("key alt+F4 sleep 1.5");
    EXPECT_EQ(box.text(), "d");
    EXPECT_EQ(program.children().size(), 1U) << "no box is open";
    relay.release();
    EXPECT_EQ(message("Quillet1.0"), "Congratulations! Mail is sent [OK]");
    EXPECT_EQ(message("Quillet: Character Count"), "Number of characters in the file are: 3 [OK]");
    EXPECT_EQ(box.text(), "dkd");
}

TEST(Start, TheSplashStaysSixSecondsWhateverIsPressed) {
    using namespace std::chrono_literals;
    const auto start = std::chrono::steady_clock::now();
    const DesktopSession session({}, [] {
        EXPECT_TRUE(waitUntil([] {
            return output("xdotool search --onlyvisible --class quillet getwindowgeometry")
                       .find("358x287") != std::string::npos;
        }));
        DesktopSession::send("mousemove 640 430 click 1 key Return Escape space");
    });
    const auto passed = std::chrono::steady_clock::now() - start;
    EXPECT_TRUE(passed >= 6s && passed < 9s);
}

} // namespace
} // namespace quillet
