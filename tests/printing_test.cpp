// The word wrap of the printer and the command that uses it, on a printer of round numbers: every
// glyph is 100 twips wide and 300 high, the page 11,000 by 15,000.
#include "output/printer_word_wrap.h"
#include "tests/test_window.h"

#include <gtest/gtest.h>

namespace quillet {
namespace {

struct Device {
    float width = 11000, height = 15000, left = 800;
    const char* header = "";
    float glyphWidth = 100;
    int fault = -1;
};

// What is printed, or how often before which error.
std::string printed(GlyphView text, const Device& device) {
    FakeDesktop desktop;
    FakePrinter& printer = desktop.printer;
    printer.width = device.width;
    printer.height = device.height;
    printer.glyphWidth = device.glyphWidth;
    desktop.fault = device.fault;
    CPrinterWordWrap wordWrap(printer, desktop);
    wordWrap.HeaderText(device.header);
    wordWrap.MarginLeft(device.left);
    try {
        wordWrap.PrintText(text);
    } catch (const RunTimeError& error) {
        EXPECT_EQ(joined(desktop.calls), "hourglass|");
        return std::to_string(printer.calls.size()) + ", error " + std::to_string(error.number());
    }
    EXPECT_EQ(joined(desktop.calls), "hourglass|default pointer|");
    EXPECT_EQ(printer.calls.back(), "end in Printer@0");
    printer.calls.pop_back();
    return joined(printer.calls);
}

TEST(WordWrap, LinesBreakAsDescribed) {
    const GlyphString full(94, 'f'); // with a space behind it, ends at 10,300 - 100
    const GlyphString line = "800,1000 " + full;
    const GlyphString wide(200, 'w');
    const struct {
        const char* name;
        GlyphString text;
        std::string calls;
        Device device = {};
    } rows[] = {
        // clang-format off
        {"nothing", "", ""},
        {"a line feed", "a\nb", "800,1000 a|800,1300 b|"},
        {"a carriage return alone", "a\rb", "800,1000 a|900,1000 b|"},
        {"spaces", "a  b", "800,1000 a|900,1000  |1000,1000  |1100,1000 b|"},
        {"a separator first", "\n b", "800,1300  |900,1300 b|"},
        {"control codes", {'a', '\0', '\x1F', 'b', '\xA0'}, "800,1000 a|900,1000 b\xA0|"},
        {"what just fits", full, line + "|"},
        {"what does not fit", full + " b", line + "|10200,1000  |800,1300 b|"},
        {"spaces are never tested", full + "  b", line + "|10200,1000  |10300,1000  |800,1300 b|"},
        {"too wide for any line", wide + " b", "800,1300 " + wide + "|20800,1300  |800,1600 b|"},
        {"a tab", "\tb", "1800,1000 b|"},
        {"a tab at its stop", "0123456789\tb", "800,1000 0123456789|2800,1000 b|"},
        {"tabs reach over the margin", GlyphString(10, '\t') + "b", "800,1300 b|"},
        {"a limit reached exactly", "abc de", "800,1000 abc|1100,1000  |1200,1000 de|",
         {.width = 800 + 600 + 720}},
        {"and passed by a little", "abc de", "800,1000 abc|1100,1000  |800,1300 de|",
         {.width = 800 + 599 + 720}},
        {"tab stops stay when the margin moves", "\tb", "1800,1000 b|", {.left = 1000}},
        {"column -3, remainder -3: 10 + 3 columns on", "\tb", "1800,1000 b|", {.left = 500}},
        {"9.5 columns are 10", "\tb", "2800,1000 b|", {.left = 800 + 950}},
        {"a header in its middle", "", "5300,350 head|", {.header = "head"}},
        {"a page as low as the limit", "a\nb\nc", "800,1000 a|800,1300 b|new page|800,1000 c|",
         {.height = 1300 + 600}},
        {"a header on each page", "a\nb",
         "5450,350 h|800,1000 a|new page|5450,350 h|800,1000 b|",
         {.height = 1000 + 600, .header = "h"}},
        {"a first word that is too wide for the last line", wide, "new page|800,1000 " + wide + "|",
         {.height = 1000 + 600}},
        {"just fits", GlyphString(32766, '\r'), ""},
        {"too long", GlyphString(16383, '\r') + "a" + GlyphString(16383, '\r'), "1, error 6"},
        {"a word that passes the limit", "a " + GlyphString(40000, 'w'), "2, error 6"},
        {"a tab without a width", "a\t", "1, error 11", {.glyphWidth = 0}},
        {"a tab too far to count", "a\t", "1, error 6", {.left = 900, .glyphWidth = 0.001F}},
        {"a printer that fails", "a b", "1, error 7", {.fault = 10}},
        // clang-format on
    };
    for (const auto& row : rows)
        EXPECT_EQ(printed(row.text, row.device), row.calls) << row.name;
}

TEST(PrintCommand, PrintsTextOrSelectionInTheFontOfTheBox) {
    const std::string end = "|end in Kruti Dev 010@15.75|";
    const struct {
        const char* marked;
        std::string asked, printed;
        bool chooses = true;
    } rows[] = {
        {"|", "", ""},
        {"a |b", "choose printer|", "", false},
        {"ab|c", "choose printer|hourglass|default pointer|",
         "0,0  |5450,350  |800,1000 abc" + end},
        {"a|b|c", "choose printer|hourglass|default pointer|", "0,0  |5450,350  |800,1000 b" + end},
    };
    for (const auto& row : rows) {
        TestWindow form;
        form.desktop.choosesPrinter = row.chooses;
        place(form.txtMain, row.marked);
        form.mnuPrint_Click();
        EXPECT_EQ(joined(form.desktop.calls), row.asked) << row.marked;
        EXPECT_EQ(joined(form.desktop.printer.calls), row.printed) << row.marked;
        EXPECT_EQ(marked(form.txtMain), row.marked);
        EXPECT_FALSE(form.textboxused) << row.marked;
    }
}

} // namespace
} // namespace quillet
