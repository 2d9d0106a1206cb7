// Commands in the real window: by menu, shortcut and toolbar, their boxes read back as assistive
// programs see them, and the clipboard shared with another program.
#include "tests/accessibility.h"
#include "tests/desktop_session.h"
#include "tests/smtp_relay.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>

namespace quillet {
namespace {

struct Commands : ::testing::Test {
    explicit Commands(const quillet::Program& started = {}) : session(started) {}

    DesktopSession session;
    Accessible program = Accessible::program();
    Accessible box = program.find("text", "Document");

    // A key by its place, with Ctrl let go last.
    void ctrl(char letter) {
        session.send("keydown ctrl key " + DesktopSession::keyOf(letter) + " keyup ctrl");
    }

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

    void open(const std::string& bytes) {
        session.write("opened.qlt", bytes);
        ctrl('o');
        ASSERT_TRUE(DesktopSession::waitForTitle("Open"));
        session.type(session.path("opened.qlt"));
        session.send("key Return");
        ASSERT_TRUE(waitUntil([&] { return box.length() == static_cast<int>(bytes.size()); }));
    }

    bool selects(int start, int end) {
        return waitUntil([&] {
            const TextPart part = box.selection();
            return part.start == start && part.end == end;
        });
    }
};

TEST_F(Commands, CountAndTellByMenuShortcutAndToolbar) {
    session.type("k k]");
    const struct {
        const char* item;
        char shortcut; // 0: none
        const char* button;
        const char* title;
        const char* text;
    } rows[] = {
        {"Words", 'w', "Count Words", "Quillet: Word Count",
         "Number of words in the file are: 2 [OK]"},
        {"Characters", 'h', "Count Characters", "Quillet: Character Count",
         "Number of characters in the file are: 4 [OK]"},
        {"Sentences", 'y', "Count Lines", "Quillet: Line Count",
         "Number of sentences in the file are: 1 [OK]"},
        {"Font In Use", 0, nullptr, "Quillet: Font Info",
         "Font currently being used is: Kruti Dev 010 [OK]"},
        {"Keyboard In Use", 'k', nullptr, "Quillet: Keyboard Info",
         "Keyboard currently being used is: Inscript [OK]"},
    };
    for (const auto& row : rows) {
        program.find("menu item", row.item).invoke();
        EXPECT_EQ(message(row.title), row.text) << row.item;
        if (row.shortcut != 0) {
            ctrl(row.shortcut);
            EXPECT_EQ(message(row.title), row.text) << row.shortcut;
        }
        if (row.button != nullptr) {
            program.find("push button", row.button).invoke();
            EXPECT_EQ(message(row.title), row.text) << row.button;
        }
    }
    program.find("menu item", "Arial").invoke();
    ctrl('k');
    EXPECT_EQ(message("Quillet: Keyboard Info"), "Keyboard currently being used is: Normal [OK]");
}

TEST_F(Commands, FindAndReplaceInTheirWindows) {
    session.type("kkeke"); // ddkdk
    ctrl('f');
    const Accessible find = program.find("dialog", "Quillet: Find");
    ASSERT_TRUE(find && DesktopSession::waitForTitle("Quillet: Find"));
    EXPECT_EQ(find.names("label"), (std::vector<std::string>{"Find What"}));
    EXPECT_TRUE(waitUntil([&] { return program.focused().name() == "Cancel"; }));
    session.send("key Tab");
    EXPECT_TRUE(waitUntil([&] { return program.focused().name() == "Find "; }));
    session.send("key Tab");
    session.type("dk");
    session.send("key ctrl+a ctrl+c");
    EXPECT_TRUE(waitUntil([] { return output("xclip -o -selection clipboard") == "dk"; }));
    session.send("key shift+Tab space");
    EXPECT_TRUE(selects(1, 3));
    EXPECT_EQ(program.focused().name(), "Find Next");
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
    EXPECT_TRUE(waitUntil([&] { return box.text() == "dmm"; }));
    EXPECT_EQ(program.focused().name(), "Replace All");
    session.send("key shift+Tab space"); // to Cancel
    ASSERT_TRUE(waitUntil([] { return DesktopSession::title().starts_with("Quillet: Ins"); }));
    ctrl('z');
    EXPECT_TRUE(waitUntil([&] { return box.text() == "ddkdk"; }));
}

TEST_F(Commands, FindOutlivesTheMainWindow) {
    ctrl('f');
    ASSERT_TRUE(DesktopSession::waitForTitle("Quillet: Find"));
    session.send("search --name 'Quillet: Inscript' windowactivate --sync key alt+F4");
    const auto windows = [&] { return program.children().size(); };
    EXPECT_TRUE(waitUntil([&] { return windows() == 1; }));
    ASSERT_TRUE(DesktopSession::waitForTitle("Quillet: Find"));
    program.find("push button", "Cancel").invoke();
    EXPECT_EQ(session.program().waitForExit(), 0);
}

TEST_F(Commands, TheClipboardIsSharedWithOtherPrograms) {
    std::string bytes; // every one that a Windows-1252 text has, but for NUL
    for (int code = 1; code < 256; ++code)
        bytes.push_back(static_cast<char>(code));
    open(bytes);
    ctrl('a');
    ctrl('c');
    const std::string theirs = output("xclip -o -selection clipboard | iconv -f utf8 -t utf16le | "
                                      "od -An -v -tu2 -w2 | tr -d '\\n'");
    EXPECT_NE(theirs.find(" 8364   129  8218 "), std::string::npos) << theirs;
    EXPECT_EQ(theirs.size(), 6U * bytes.size());

    output("printf 'a™क' | xclip -selection clipboard >/dev/null");
    ctrl('v');
    EXPECT_TRUE(waitUntil([&] { return box.text() == "a™?"; })) << box.text();
    output("printf 'no text' | xclip -selection clipboard -t image/png >/dev/null");
    ctrl('a');
    ctrl('v');
    EXPECT_TRUE(waitUntil([&] { return box.length() == 0; })) << box.text();
}

TEST_F(Commands, MemoryByMenuAndToolbar) {
    session.type("k");
    program.find("menu item", "Put to memory").invoke();
    program.find("push button", "Append more text to memory").invoke();
    program.find("push button", "Paste text from memory").invoke();
    EXPECT_TRUE(waitUntil([&] { return box.text() == "d\r\nd\r\nd"; })) << box.text();
    program.find("menu item", "Empty memory").invoke();
    program.find("menu item", "Paste from memory").invoke();
    EXPECT_TRUE(waitUntil([&] { return box.text() == "d\r\nd\r\nd\r\n"; })) << box.text();
}

TEST_F(Commands, AnOverflowIsSilentFromTheToolbarAndEndsTheProgramFromTheMenu) {
    open(std::string(32'767, 'd') + " ");
    program.find("push button", "Count Words").invoke();
    program.find("push button", "Count Characters").invoke();
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

    // Answers both questions in the same way.
    void answer(const std::string& text, const std::string& key) {
        EXPECT_TRUE(program.find("label", "Email address of the sender (yours)"));
        EXPECT_TRUE(DesktopSession::waitForTitle("Quillet Email"));
        session.type(text);
        session.send(key);
        EXPECT_TRUE(program.find("label", "Email address of the recipient"));
        session.type(text);
        session.send(key);
    }
};

TEST_F(MailCommand, KeysWaitAndTheWindowStaysUntilItIsSent) {
    session.type("k");
    relay.hold();
    program.find("push button", "Email text").invoke();
    answer("a@b", "key Return");
    ASSERT_TRUE(waitUntil([&] { return relay.holds(); }));
    session.type("ek");
    ctrl('h');
    session.send("key alt+F4 sleep 1.5");
    EXPECT_EQ(box.text(), "d");
    if (0)
        for (const auto& c : program.children())
            std::printf("%s|%s\n", c.role().c_str(), c.name().c_str());
    EXPECT_EQ(program.children().size(), 1U) << "no box is open";
    relay.release();
    EXPECT_EQ(message("Quillet1.0"), "Congratulations! Mail is sent [OK]");
    EXPECT_EQ(message("Quillet: Character Count"), "Number of characters in the file are: 3 [OK]");
    EXPECT_EQ(box.text(), "dkd");
}

TEST_F(MailCommand, BothQuestionsComeWhateverIsCancelled) {
    for (const char* key : {"key Escape", "key Return"}) {
        program.find("menu item", "Send Mail").invoke();
        answer("", key);
        EXPECT_EQ(message("Quillet1.0"), "Sorry! You did not specify a necessary value [OK]");
    }
}

TEST(Start, TheSplashStaysSixSecondsWhateverIsPressed) {
    const auto start = std::chrono::steady_clock::now();
    bool sawSplash = false;
    const DesktopSession session({}, [&] {
        sawSplash = waitUntil([] {
            return output("xdotool search --onlyvisible --class quillet getwindowgeometry")
                       .find("358x287") != std::string::npos;
        });
        output("xdotool mousemove 640 430 click 1 key Return Escape space");
    });
    EXPECT_TRUE(sawSplash);
    const auto seconds = std::chrono::steady_clock::now() - start;
    EXPECT_GE(seconds, std::chrono::seconds(6));
    EXPECT_LT(seconds, std::chrono::seconds(9));
}

} // namespace
} // namespace quillet
