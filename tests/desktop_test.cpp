// The program as its user runs it: a real window, real keys, real files.
#include "tests/desktop_session.h"

#include <gtest/gtest.h>

#include <regex>

namespace quillet {
namespace {

struct Desktop : ::testing::Test {
    DesktopSession session;

    // The letter goes up before Ctrl: the other way round its release rewrites text and drops
    // the selection.
    static std::string ctrl(int keycode) {
        return "keydown ctrl key " + std::to_string(keycode) + " keyup ctrl ";
    }

    void clear() { session.send(ctrl(38) + "key Delete"); }
};

TEST_F(Desktop, TypesEveryWorkedSequence) {
    const struct {
        const char* keys;
        std::string glyphs;
    } rows[] = {
        {"kfley", "fdrkc"},
        {"vcmdls", "ueLrs"},
        {"ufxor", "fganh"},
        {"kjdc", "deZ"},
        {"hdjf/", "f\xC1;"},
        {"kf", "fd"},
        {"Kf", "f[k"},
        {"kd;f", "fDp"},
        {"k]f", "fd+"},
        {"kdjf", "f\xD8"},
        {"jdkf", "\xC6"
                 "d"},
        {"jd;f", "\xC6p"},
        {"kdk", "\xF4"},
        {"kdj", "\xD8"},
        {"'d'", "\xCD"},
        {"jdk", "dZ"},
        {"jdke", "dkZ"},
        {"jdkdk", "DdZ"},
        {"kd<", "{k"},
        {"k f", "df "},
        {"E?|", "vk\\v\x83"},
    };
    std::size_t count = 0;
    for (const auto& row : rows) {
        clear();
        session.type(row.keys);
        EXPECT_EQ(session.saveAs("s" + std::to_string(++count) + ".qlt"), row.glyphs + "\r\n")
            << row.keys;
    }
}

TEST_F(Desktop, HeldRolledAndKeypadKeys) {
    const std::string e = "26";
    session.send("keydown shift keydown " + e + " sleep 1.5 keyup " + e + " keyup shift");
    const std::string held = session.saveAs("held.qlt");
    EXPECT_TRUE(std::regex_match(held, std::regex("vvv+k\r\n"))) << held;

    const struct {
        const char* name;
        std::string events;
        const char* glyphs;
    } rows[] = {
        {"the release of the first key adds its second glyph",
         "keydown shift keydown 26 keyup shift keydown 45 keyup 26 keyup 45", "vdk"},
        {"Shift released before its key", "keydown shift keydown 59 keyup shift keyup 59", "\"k"},
        {"a keypad key is processed at its release",
         "key Num_Lock keydown shift keydown 26 keyup shift key 87 11 keyup 26 key Num_Lock",
         "v1k2"},
        {"a digit is not", "keydown shift keydown 26 keyup shift key 10 11 keyup 26", "v12k"},
        {"Undo takes back a keystroke with its rewriting",
         "key 45 40 44 keydown ctrl key 52 keyup ctrl", "D"},
        {"a key replaces a selection", "key 45 38 shift+Left 54 Return", "de\r\n"},
    };
    for (const auto& row : rows) {
        clear();
        session.send(row.events);
        EXPECT_EQ(session.saveAs(row.name + std::string(".qlt")), row.glyphs + std::string("\r\n"))
            << row.name;
    }
}

TEST_F(Desktop, OtherLayoutsTypeAndCommandLikeTheUsOne) {
    for (const char* layout : {"us", "in -variant deva", "ru", "gr", "us,in -variant ,deva"}) {
        session.setLayout(std::string("-option '' -layout ") + layout);
        clear();
        session.type("kfleyE/@#$^&?q;");
        session.send(ctrl(39)); // S
        ASSERT_TRUE(session.waitForTitle("Save As")) << layout;
        session.setLayout("-layout us");
        const std::string name = "by-" + std::string(layout, 2) + ".qlt";
        std::filesystem::remove(session.path(name));
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

TEST_F(Desktop, OpensEditsAndSavesAllBytes) {
    std::string bytes;
    for (int code = 0; code < 256; ++code)
        bytes.push_back(static_cast<char>(code));
    session.write("bytes.htm", bytes);
    session.send(ctrl(32)); // O
    ASSERT_TRUE(session.waitForTitle("Open"));
    session.type(session.path("bytes.htm"));
    session.send("key Return");
    ASSERT_TRUE(
        session.waitForTitle("Quillet: Hindi Word Processor  " + session.path("bytes.htm")));
    session.type("k");
    session.send("key ctrl+End");
    session.type("c");
    EXPECT_EQ(session.saveAs("bytes.qlt"), "d" + bytes + "e\r\n");
}

TEST_F(Desktop, PromptsWaitForAnAnswerAndFailuresStaySilent) {
    session.send(ctrl(26)); // Exit does nothing yet
    session.type("k");
    session.write("locked.qlt", "old");
    output("chmod 444 " + session.path("locked.qlt"));
    session.saveAs("locked.qlt");
    EXPECT_EQ(session.read("locked.qlt"), "old");
    EXPECT_EQ(session.saveAs("nowhere/x.qlt"), "");
    EXPECT_EQ(session.title(),
              "Quillet: Hindi Text Editor (" + session.path("nowhere/x.qlt") + ")");

    session.send(ctrl(57)); // New
    ASSERT_TRUE(session.waitForTitle("Quillet1.0"));
    session.send("key Escape sleep 0.3");
    EXPECT_EQ(session.title(), "Quillet1.0") << "Esc is no answer";
    session.send("key alt+n");
    EXPECT_TRUE(session.waitForTitle("Quillet: Hindi Word Processor  (New Unsaved File)"));

    session.type("k");
    session.send(ctrl(26)); // Exit
    ASSERT_TRUE(session.waitForTitle("Quillet1.0"));
    session.send("key Escape");
    ASSERT_TRUE(session.waitForTitle("Quillet: Hindi Word Processor  (New Unsaved File)"));
    session.send("key alt+F4");
    ASSERT_TRUE(session.waitForTitle("Quillet1.0"));
    session.send("key alt+n");
    EXPECT_EQ(session.program().waitForExit(), 0);
}

// Each step with the title that it ends under.
TEST_F(Desktop, CancelledAndFailingFileCommandsGoOn) {
    const std::string a = session.path("a.qlt");
    const std::string missing = session.path("missing");
    const std::string opened = "Quillet: Hindi Word Processor  ";
    const std::string close = "key alt+f Up Up Return";
    const std::vector<std::pair<std::string, std::string>> steps = {
        {ctrl(32), "Open"}, // O, cancelled before any name was chosen
        {"key Escape", opened},
        {"key 45 " + ctrl(39), "Save As"}, // k and S, cancelled too
        {"key Escape", opened},
        {ctrl(32), "Quillet1.0"}, // O, saving first, under a name
        {"key alt+y", "Save As"},
        {"type --delay 4 " + a, "Save As"},
        {"key Return", "Open"},
        {"type --delay 4 " + missing, "Open"},
        {"key Return", opened + missing},
        {close, "Quillet1.0"},
        {"key Escape", opened + missing},
        {close, "Quillet1.0"},
        {"key alt+y", "Quillet: Hindi Word Processor"},
        {"key 45 " + ctrl(26), "Quillet1.0"}, // k and E
        {"key alt+y", "Save As"},
    };
    for (const auto& [commands, title] : steps) {
        session.send(commands);
        ASSERT_TRUE(session.waitForTitle(title)) << commands << " ends under " << session.title();
    }
    session.send("key Escape"); // writes under the last name all the same
    EXPECT_EQ(session.program().waitForExit(), 0);
    EXPECT_EQ(session.read("a.qlt") + session.read("missing") + session.read("missing.qlt"),
              "d\r\nd\r\nd\r\n");
}

TEST_F(Desktop, MouseSelectsAndAboutOutlivesTheMainWindow) {
    session.type("vvvvvvvvvvvvvvvvvvvv");
    session.send("mousemove 9 90 mousedown 1 mousemove 400 95 mousemove 900 95 mouseup 1 click 3");
    session.send("key d"); // Delete of the context menu
    session.type("k");
    EXPECT_EQ(session.saveAs("mouse.qlt"), "d\r\n");

    session.send("key alt+f Up Up Return"); // Close
    ASSERT_TRUE(session.waitForTitle("Quillet1.0"));
    session.send("key alt+n");
    ASSERT_TRUE(session.waitForTitle("Quillet: Hindi Word Processor"));
    session.send(ctrl(58)); // About
    ASSERT_TRUE(session.waitForTitle("About Quillet"));
    const std::string mainWindow = "xdotool search --name '^Quillet: Hindi Word Processor$'";
    output(mainWindow + " windowactivate --sync");
    session.send("key alt+F4");
    ASSERT_TRUE(waitUntil([&] { return output(mainWindow).empty(); }));
    ASSERT_TRUE(session.waitForTitle("About Quillet"));
    session.send("key alt+c");
    EXPECT_EQ(session.program().waitForExit(), 0);
}

} // namespace
} // namespace quillet
