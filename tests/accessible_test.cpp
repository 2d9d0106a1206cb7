// What a screen reader is told of the program while it is used.
#include "tests/accessibility.h"
#include "tests/desktop_session.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace quillet {
namespace {

constexpr const char* selectAll = "keydown ctrl key 38 keyup ctrl "; // A by its place

struct Reader : ::testing::Test {
    DesktopSession session;
    Accessible program = Accessible::program();
    Accessible box = program.find("text", "Document");

    void SetUp() override { ASSERT_TRUE(box); }

    void open(const std::string& bytes) {
        const std::string path = session.path("opened.qlt");
        session.write("opened.qlt", bytes);
        session.send("keydown ctrl key 32 keyup ctrl"); // O by its place
        ASSERT_TRUE(session.waitForTitle("Open"));
        session.type(path);
        session.send("key Return");
        ASSERT_TRUE(session.waitForTitle("Quillet: Hindi Word Processor  " + path));
        ASSERT_EQ(box.length(), static_cast<int>(bytes.size()));
        EXPECT_EQ(box.events("text-caret-moved", "0; "), "0; ");
    }

    // The text when it has become what is expected, or else after ten seconds.
    std::string textOnce(const std::string& expected) const {
        waitUntil([&] { return box.text() == expected; });
        return box.text();
    }
};

TEST_F(Reader, HearsTextAndCaretOfEveryKey) {
    const auto key = DesktopSession::keyOf;
    const struct {
        std::string keys;
        const char* text;
        const char* changes;
        std::string carets; // the last one is where it stays
    } rows[] = {
        {key('k'), "d", "insert 0 d; ", "1; "},
        {key('f'), "fd", "insert 1 f; delete 0 df; insert 0 fd; ", "2; "},
        {key('l'), "fdr", "insert 2 r; ", "3; "},
        {key('e'), "fdrk", "insert 3 k; ", "4; "},
        {key('y'), "fdrkc", "insert 4 c; ", "5; "},
        {key('q'), "fdrkc©", "insert 5 ©; ", "6; "},
        {"Return", "fdrkc©\r\n", "insert 6 \r\n; ", "8; "},
        {"BackSpace", "fdrkc©", "delete 6 \r\n; ", "6; "},
        {"BackSpace", "fdrkc", "delete 5 ©; ", "5; "},
        {"Home", "fdrkc", "", "0; "},
        {"Shift_L Delete Right", "drkc", "delete 0 f; ", "1; "},
    };
    for (const auto& row : rows) {
        session.send("key " + row.keys);
        EXPECT_EQ(box.events("text-caret-moved", row.carets), row.carets) << row.keys;
        EXPECT_EQ(box.events("text-changed", row.changes), row.changes) << row.keys;
        EXPECT_EQ(textOnce(row.text), row.text) << row.keys;
        EXPECT_EQ(std::to_string(box.caret()) + "; ", row.carets) << row.keys;
    }
}

TEST_F(Reader, HearsAndSetsTheSelection) {
    session.type("kcles");
    ASSERT_EQ(textOnce("derks"), "derks");
    ASSERT_EQ(box.caret(), 5);
    box.events("text-caret-moved");
    const struct {
        const char* name;
        std::string keys; // none where the client does it
        int anchor;
        int caret;
        const char* carets;
        const char* selections;
    } rows[] = {
        {"shift and left", "key shift+Left", 5, 4, "4; ", "0; "},
        {"and again", "key shift+Left", 5, 3, "3; ", "0; "},
        {"to its other end", "key Right", 5, 5, "5; ", "0; "},
        {"all", selectAll, 0, 5, "", "0; "},
        {"to its left end", "key Left", 0, 0, "0; ", "0; "},
        {"set from outside", "", 3, 3, "3; ", ""},
        {"selected from outside", "", 1, 4, "4; ", "0; "},
    };
    for (const auto& row : rows) {
        if (!row.keys.empty())
            session.send(row.keys);
        else
            EXPECT_TRUE(row.anchor == row.caret ? box.setCaret(row.caret)
                                                : box.select(row.anchor, row.caret));
        EXPECT_EQ(box.events("text-selection-changed", row.selections), row.selections) << row.name;
        EXPECT_EQ(box.events("text-caret-moved", row.carets), row.carets) << row.name;
        EXPECT_EQ(box.caret(), row.caret) << row.name;
        const auto [start, end] = std::minmax(row.anchor, row.caret);
        EXPECT_EQ(box.selection().start, start) << row.name;
        EXPECT_EQ(box.selection().end, end) << row.name;
    }
    session.type("k");
    EXPECT_EQ(textOnce("dds"), "dds") << "replaces what was selected";
    box.setCaret(0);
    session.type("c");
    EXPECT_EQ(textOnce("edds"), "edds") << "goes where the caret was set";
}

TEST_F(Reader, ReadsByCharacterWordAndLine) {
    std::string text = "one two\r\n\r\n";
    for (int word = 0; word < 40; ++word)
        text += "word" + std::to_string(word) + ' ';
    open(text += "\r\nlast");
    const int length = box.length();
    const struct {
        const char* name;
        AtspiTextBoundaryType unit;
        int offset;
        const char* text;
    } rows[] = {
        {"character", ATSPI_TEXT_BOUNDARY_CHAR, 4, "t"},
        {"word", ATSPI_TEXT_BOUNDARY_WORD_START, 5, "two"},
        {"first word", ATSPI_TEXT_BOUNDARY_WORD_START, 0, "one"},
        {"line", ATSPI_TEXT_BOUNDARY_LINE_START, 7, "one two\r\n"},
        {"empty line", ATSPI_TEXT_BOUNDARY_LINE_START, 9, "\r\n"},
        {"last line", ATSPI_TEXT_BOUNDARY_LINE_START, length, "last"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(box.textAt(row.offset, row.unit).text, row.text) << row.name;

    // One unit after the other leads through the whole text, however it is wrapped.
    for (const auto unit : {ATSPI_TEXT_BOUNDARY_WORD_START, ATSPI_TEXT_BOUNDARY_LINE_START}) {
        std::string read;
        int units = 0;
        for (int at = 0; at < length; ++units) {
            const TextPart part = box.textAt(at, unit);
            ASSERT_EQ(part.start, at);
            ASSERT_GT(part.end, at);
            read += part.text;
            at = part.end;
        }
        EXPECT_EQ(read, text);
        EXPECT_GT(units, 4) << "the long line is wrapped";
    }
}

TEST_F(Reader, FindsCharactersOnTheScreen) {
    open("one\r\n" + std::string(200, 'd') + "\r\n\x80\x99 end");
    const AtspiRect window = box.area();
    const int left = box.areaOf(0).x;
    AtspiRect before{};
    for (int at = 0; at < box.length(); ++at) {
        const AtspiRect area = box.areaOf(at);
        EXPECT_TRUE(area.x >= window.x && area.x + area.width <= window.x + window.width) << at;
        EXPECT_TRUE(area.y >= window.y && area.y + area.height <= window.y + window.height) << at;
        const bool sameLine = area.y == before.y;
        EXPECT_EQ(area.x, sameLine ? before.x + before.width : left) << at;
        EXPECT_TRUE(sameLine || area.y >= before.y + before.height) << at;
        before = area;
        if (box.textAt(at, ATSPI_TEXT_BOUNDARY_CHAR).text < " ")
            continue; // a line break is wherever there is nothing else
        EXPECT_EQ(box.offsetAt(area.x, area.y), at);
        EXPECT_EQ(box.offsetAt(area.x + area.width - 1, area.y + area.height - 1), at);
    }
    EXPECT_GT(before.y, box.areaOf(0).y + 2 * before.height) << "the long line is wrapped";
}

TEST_F(Reader, ReadsEveryByte) {
    std::string bytes;
    for (int code = 0; code < 256; ++code)
        bytes.push_back(static_cast<char>(code));
    open(bytes);
    const std::string read = box.text();
    EXPECT_TRUE(read.starts_with("\uFFFD\x01\x02")) << "in place of NUL: " << read;
    EXPECT_NE(read.find("\x7F€"), std::string::npos) << read;
    EXPECT_TRUE(read.ends_with("ýþÿ")) << read;
}

TEST_F(Reader, ReadsAndHearsInTheMiddleOfALongText) {
    std::string text;
    while (text.size() < 5'000'000)
        text += "line " + std::to_string(1'000'000 + text.size()) + "\r\n";
    open(text);
    const int middle = 14 * 180'000;
    const std::string line = text.substr(middle, 14);
    EXPECT_EQ(box.textAt(middle + 5, ATSPI_TEXT_BOUNDARY_LINE_START).text, line);
    EXPECT_TRUE(box.setCaret(middle));
    session.type("k");
    const std::string change = "insert " + std::to_string(middle) + " d; ";
    EXPECT_EQ(box.events("text-changed", change), change);
    EXPECT_EQ(box.textAt(middle, ATSPI_TEXT_BOUNDARY_LINE_START).text, "d" + line);
}

TEST_F(Reader, IsNotLostWhenATextIsTooLongForTheBus) {
    std::string text;
    text.resize(50'000'000, '\x80');
    open(text);
    EXPECT_TRUE(box.text().starts_with("€"));
    session.send(std::string(selectAll) + "key Delete");
    session.type("k");
    EXPECT_EQ(textOnce("d"), "d");
    EXPECT_EQ(box.events("text-changed", "insert 0 d; "), "insert 0 d; ");
}

TEST_F(Reader, FindsItsWayThroughTheWindows) {
    for (const auto state : {ATSPI_STATE_EDITABLE, ATSPI_STATE_MULTI_LINE, ATSPI_STATE_FOCUSED})
        EXPECT_TRUE(waitUntil([&] { return box.is(state); })) << state;
    const Accessible window = program.find("frame", DesktopSession::title());
    EXPECT_EQ(window.focused().name(), "Document");
    const auto buttons = program.find("tool bar", "").names("push button");
    EXPECT_EQ(buttons.size(), 24U);
    for (const char* name : {"New", "Bold", "Keyboard Inscript", "Count Words", "Email text"})
        EXPECT_EQ(std::count(buttons.begin(), buttons.end(), name), 1) << name;
    const Accessible menu = program.find("menu bar", "").find("menu item", "Keyboard");
    EXPECT_EQ(menu.names("menu item"), (std::vector<std::string>{"Inscript", "Old Style"}));

    program.find("menu item", "Open").invoke();
    program.find("dialog", "Open").find("push button", "Cancel").invoke();
    ASSERT_TRUE(waitUntil([&] { return program.children().size() == 1; }));
    program.find("menu item", "About Quillet").invoke();
    const Accessible about = program.find("dialog", "About Quillet");
    ASSERT_FALSE(about.names("label").empty());
    EXPECT_EQ(about.names("label").front(), "Quillet");
    about.find("push button", "Close").invoke();
    ASSERT_TRUE(session.waitForTitle(window.name()));

    session.type("k");
    ASSERT_EQ(textOnce("d"), "d");
    program.find("menu item", "Exit").invoke();
    const Accessible question = program.find("alert", "Quillet1.0");
    EXPECT_EQ(question.names("label"), std::vector<std::string>{"Do you want to save the file?"});
    EXPECT_EQ(question.focused().name(), "Yes");
    session.send("key Tab");
    EXPECT_TRUE(waitUntil([&] { return question.focused().name() == "No"; }));
    question.focused().invoke();
    EXPECT_EQ(session.program().waitForExit(), 0);
}

} // namespace
} // namespace quillet
