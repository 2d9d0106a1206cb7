// What a screen reader is told of the program while it is used.
#include "tests/accessibility.h"
#include "tests/desktop_session.h"

#include <gtest/gtest.h>

namespace quillet {
namespace {

struct Reader : ::testing::Test {
    DesktopSession session;
    Accessible program = Accessible::program();
    Accessible box = program.find("text", "Document");

    void SetUp() override { ASSERT_TRUE(box); }

    void open(const std::string& bytes) {
        ASSERT_TRUE(session.open("opened.qlt", bytes));
        ASSERT_EQ(box.length(), static_cast<int>(bytes.size()));
        EXPECT_EQ(box.events("text-caret-moved", "0; "), "0; ");
    }

    // The text when it has become what is expected, or else after ten seconds.
    std::string textOnce(const std::string& expected) const {
        waitUntil([&] { return box.text() == expected; });
        return box.text();
    }

    void expectEvents(const std::string& type, const std::string& events) const {
        EXPECT_EQ(box.events(type, events), events);
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
        {key('q'), "fd©", "insert 2 ©; ", "3; "},
        {"Return", "fd©\r\n", "insert 3 \r\n; ", "5; "},
        {"BackSpace", "fd©", "delete 3 \r\n; ", "3; "},
        {"Home", "fd©", "", "0; "},
        {"Shift_L Delete Right", "d©", "delete 0 f; ", "1; "},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.keys);
        session.send("key " + row.keys);
        expectEvents("text-caret-moved", row.carets);
        expectEvents("text-changed", row.changes);
        EXPECT_EQ(textOnce(row.text), row.text);
        EXPECT_EQ(std::to_string(box.caret()) + "; ", row.carets);
    }
}

TEST_F(Reader, HearsAndSetsTheSelection) {
    session.type("kcles");
    ASSERT_EQ(textOnce("derks"), "derks");
    expectEvents("text-caret-moved", "1; 2; 3; 4; 5; ");
    const struct {
        std::string keys; // none where the client does it
        int caret;
        std::pair<int, int> selection;
        const char* carets;
        const char* selections;
    } rows[] = {
        {"key shift+Left", 4, {4, 5}, "4; ", "0; "},
        {"key shift+Left", 3, {3, 5}, "3; ", "0; "},
        {"key Right", 5, {5, 5}, "5; ", "0; "},
        {DesktopSession::ctrl('a'), 5, {0, 5}, "", "0; "},
        {"key Left", 0, {0, 0}, "0; ", "0; "},
        {"", 3, {3, 3}, "3; ", ""},
        {"", 4, {1, 4}, "4; ", "0; "},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.keys + " to " + std::to_string(row.caret));
        if (!row.keys.empty())
            session.send(row.keys);
        else if (*row.selections == 0)
            box.setCaret(row.caret);
        else
            box.select(row.selection.first, row.selection.second);
        expectEvents("text-selection-changed", row.selections);
        expectEvents("text-caret-moved", row.carets);
        EXPECT_EQ(box.caret(), row.caret);
        EXPECT_EQ(box.selection(), row.selection);
    }
    session.type("k");
    EXPECT_EQ(textOnce("dds"), "dds") << "replaces what was selected";
}

TEST_F(Reader, ReadsByCharacterWordAndLine) {
    std::string text = "one two\r\n\r\n";
    for (int word = 0; word < 40; ++word)
        text += "word" + std::to_string(word) + ' ';
    open(text += "\r\nlast");
    const auto character = ATSPI_TEXT_BOUNDARY_CHAR;
    const auto word = ATSPI_TEXT_BOUNDARY_WORD_START;
    const auto line = ATSPI_TEXT_BOUNDARY_LINE_START;
    const struct {
        AtspiTextBoundaryType unit;
        int offset;
        const char* text;
    } rows[] = {{character, 4, "t"},      {word, 5, "two"},  {word, 0, "one"},
                {line, 7, "one two\r\n"}, {line, 9, "\r\n"}, {line, box.length(), "last"}};
    for (const auto& row : rows)
        EXPECT_EQ(box.textAt(row.offset, row.unit).text, row.text) << row.unit << " " << row.offset;

    // One unit after the other leads through the whole text, however it is wrapped.
    for (const auto unit : {word, line}) {
        std::string read;
        int units = 0;
        for (TextPart part{}; part.end < box.length(); ++units) {
            const int at = part.end;
            part = box.textAt(at, unit);
            ASSERT_TRUE(part.start == at && part.end > at) << at;
            read += part.text;
        }
        EXPECT_EQ(read, text);
        EXPECT_GT(units, 4) << "the long line is wrapped";
    }
}

TEST_F(Reader, FindsCharactersOnTheScreen) {
    open("one\r\n" + std::string(200, 'd') + "\r\n\x80\x99 end");
    const int left = box.areaOf(0).x;
    AtspiRect before{};
    for (int at = 0; at < box.length(); ++at) {
        const AtspiRect area = box.areaOf(at);
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

TEST_F(Reader, IsNotLostWhenATextIsTooLongForTheBus) {
    constexpr int middle = 25'000'000;
    const std::string half(middle, '\x80');
    open(half + "line\r\n" + half);
    EXPECT_TRUE(box.text().starts_with("€"));
    box.setCaret(middle);
    session.type("k");
    expectEvents("text-changed", "insert " + std::to_string(middle) + " d; ");
    EXPECT_EQ(box.textAt(middle + 3, ATSPI_TEXT_BOUNDARY_CHAR).text, "n");
    session.send(DesktopSession::ctrl('a') + "key Delete");
    session.type("k");
    EXPECT_EQ(textOnce("d"), "d");
}

TEST_F(Reader, FindsItsWayThroughTheWindows) {
    const Accessible window = program.find("frame", DesktopSession::title());
    EXPECT_EQ(window.focused().name(), "Document");
    EXPECT_TRUE(box.is(ATSPI_STATE_EDITABLE) && box.is(ATSPI_STATE_MULTI_LINE));
    EXPECT_EQ(program.find("tool bar", "").names("push button").size(), 24U);
    program.find("menu item", "About Quillet").invoke();
    const Accessible about = program.find("dialog", "About Quillet");
    EXPECT_EQ(about.names("label").at(0), "Quillet");
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
