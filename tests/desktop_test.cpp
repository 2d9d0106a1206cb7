// The program as its user runs it: a real window, real keys, real files.
#include "tests/desktop_session.h"

#include <gtest/gtest.h>

#include <csignal>
#include <regex>

namespace quillet {
namespace {

struct Desktop : ::testing::Test {
    DesktopSession session;

    static std::string ctrl(char letter) { return DesktopSession::ctrl(letter); }
    void clear() { session.send(ctrl('a') + "key Delete"); }

    // Each step with the title that it ends under.
    void go(const std::vector<std::pair<std::string, std::string>>& steps) {
        for (const auto& [keys, title] : steps) {
            session.send(keys);
            ASSERT_TRUE(session.waitForTitle(title)) << keys << " ends under " << session.title();
        }
    }
};

TEST_F(Desktop, TypesEveryWorkedSequence) {
    const std::pair<const char*, std::string> rows[] = {
        {"kfley", "fdrkc"},  {"vcmdls", "ueLrs"}, {"ufxor", "fganh"}, {"kjdc", "deZ"},
        {"hdjf/", "f\xC1;"}, {"kf", "fd"},        {"Kf", "f[k"},      {"kd;f", "fDp"},
        {"k]f", "fd+"},      {"kdjf", "f\xD8"},   {"jdkf", "\306d"},  {"jd;f", "\xC6p"},
        {"kdk", "\xF4"},     {"kdj", "\xD8"},     {"'d'", "\xCD"},    {"jdk", "dZ"},
        {"jdke", "dkZ"},     {"jdkdk", "DdZ"},    {"kd<", "{k"},      {"k f", "df "},
        {"E?|", "vk\\v\x83"}};
    int file = 0;
    for (const auto& [keys, glyphs] : rows) {
        clear();
        session.type(keys);
        EXPECT_EQ(session.saveAs(std::to_string(++file) + ".qlt"), glyphs + "\r\n") << keys;
    }
}

TEST_F(Desktop, HeldRolledAndKeypadKeys) {
    session.send("keydown shift keydown 26 sleep 1.5 keyup 26 keyup shift"); // E
    const std::string held = session.saveAs("held.qlt");
    EXPECT_TRUE(std::regex_match(held, std::regex("vvv+k\r\n"))) << held;

    const std::string shiftE = "keydown shift keydown 26 keyup shift ";
    const struct {
        std::string name;
        std::string events;
        std::string glyphs;
    } rows[] = {
        {"the release of the first key adds its second glyph",
         shiftE + "keydown 45 keyup 26 keyup 45", "vdk"},
        {"Shift released before its key", "keydown shift keydown 59 keyup shift keyup 59", "\"k"},
        {"a keypad key is processed at its release",
         "key Num_Lock " + shiftE + "key 87 11 keyup 26 key Num_Lock", "v1k2"},
        {"a digit is not", shiftE + "key 10 11 keyup 26", "v12k"},
        {"Undo takes back a keystroke with its rewriting", "key 45 40 44 " + ctrl('z'), "D"},
        {"a key replaces a selection", "key 45 38 shift+Left 54 Return", "de\r\n"},
    };
    for (const auto& row : rows) {
        clear();
        session.send(row.events);
        EXPECT_EQ(session.saveAs(row.name + ".qlt"), row.glyphs + "\r\n") << row.name;
    }
}

TEST_F(Desktop, OtherLayoutsTypeAndCommandLikeTheUsOne) {
    for (const char* layout : {"us", "in -variant deva", "ru", "gr", "us,in -variant ,deva"}) {
        session.setLayout(std::string("-option '' -layout ") + layout);
        clear();
        session.type("kfleyE/@#$^&?q;");
        go({{ctrl('s'), "Save As"}});
        session.setLayout("-layout us");
        const std::string name = "by-" + std::string(layout, 2) + ".qlt";
        fs::remove(session.path(name));
        session.type(session.path(name));
        session.send("key Return");
        EXPECT_TRUE(waitUntil([&] { return !session.read(name).empty(); }));
        EXPECT_EQ(session.read(name), "fdrkcvk;W~kZ={k\\\xA9p\r\n") << layout;
    }
}

TEST_F(Desktop, SwitchingTheLayoutLeavesTheTextAlone) {
    session.setLayout("-layout us,in -variant ,deva -option grp:alt_shift_toggle");
    session.type("jdkd"); // the reph is the last glyph: a rewrite now would select it all
    session.send("keydown 50 keydown 64 keyup 64 keyup 50 keydown 64 keydown 50 keyup 50 keyup 64");
    session.type("k");
    EXPECT_EQ(session.saveAs("switched.qlt"), "DdZ\r\n");
}

TEST_F(Desktop, KeysThatAreQuickerThanAMenuClosesGoToTheBox) {
    const struct {
        std::string name;
        std::string opens;
        std::string choose;
    } rows[] = {
        {"a menu", "key alt+m", "key Return "},
        {"a menu in a menu", "key alt+o Return", "key Down Return "},
        {"the context menu", "key Menu", "key p "},
    };
    for (const auto& row : rows) {
        clear();
        session.send("key 45 " + row.opens + " sleep 0.5");
        kill(session.program().id(), SIGSTOP);
        session.send(row.choose + "45 26 " + ctrl('a') + "key End 45");
        kill(session.program().id(), SIGCONT);
        session.send("sleep 0.5");
        EXPECT_EQ(session.saveAs(row.name + ".qlt"), "ddkd\r\n") << row.name;
    }
}

const std::string opened = "Quillet: Hindi Word Processor  ";
const std::string fresh = opened + "(New Unsaved File)";

TEST_F(Desktop, PromptsWaitForAnAnswerAndFailuresStaySilent) {
    const std::string nowhere = session.path("nowhere/x.qlt");
    session.send(ctrl('e')); // Exit does nothing yet
    session.type("k");
    output("echo old > " + session.path("locked.qlt"));
    output("chmod 444 " + session.path("locked.qlt"));
    session.saveAs("locked.qlt");
    EXPECT_EQ(session.read("locked.qlt"), "old\n");
    session.saveAs("nowhere/x.qlt");
    go({{"sleep 0", "Quillet: Hindi Text Editor (" + nowhere + ")"},
        {ctrl('n'), "Quillet1.0"},
        {"key Escape sleep 0.3", "Quillet1.0"}, // no answer
        {"key alt+n", fresh},
        {"key 45 " + ctrl('e'), "Quillet1.0"},
        {"key Escape", fresh},
        {"key alt+F4", "Quillet1.0"}});
    session.send("key alt+n");
    EXPECT_EQ(session.program().waitForExit(), 0);
}

TEST_F(Desktop, CancelledAndFailingFileCommandsGoOn) {
    const std::string a = session.path("a.qlt");
    const std::string missing = session.path("missing");
    const std::string close = "key alt+f Up Up Return";
    go({{ctrl('o'), "Open"}, // cancelled before any name was chosen
        {"key Escape", opened},
        {"key 45 " + ctrl('s'), "Save As"},
        {"key Escape", opened},
        {ctrl('o'), "Quillet1.0"}, // saves first, under a name
        {"key alt+y", "Save As"},
        {"type --delay 4 " + a, "Save As"},
        {"key Return", "Open"},
        {"type --delay 4 " + missing, "Open"},
        {"key Return", opened + missing},
        {close, "Quillet1.0"},
        {"key Escape", opened + missing},
        {close, "Quillet1.0"},
        {"key alt+y", "Quillet: Hindi Word Processor"},
        {"key 45 " + ctrl('e'), "Quillet1.0"},
        {"key alt+y", "Save As"}});
    session.send("key Escape"); // writes under the last name all the same
    EXPECT_EQ(session.program().waitForExit(), 0);
    EXPECT_EQ(session.read("a.qlt") + session.read("missing") + session.read("missing.qlt"),
              "d\r\nd\r\nd\r\n");
}

TEST_F(Desktop, MouseSelectsAndOpensTheContextMenu) {
    session.type("vvvvvvvvvvvvvvvvvvvv");
    session.send("mousemove 9 90 mousedown 1 mousemove 400 95 mousemove 900 95 mouseup 1 click 3");
    session.send("key d"); // Delete
    session.type("k");
    EXPECT_EQ(session.saveAs("mouse.qlt"), "d\r\n");
}

} // namespace
} // namespace quillet
