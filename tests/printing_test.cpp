// The word wrap of the printer and the command that uses it, on a printer of round numbers: every
// glyph is 100 twips wide and 300 high, the page 11,000 by 15,000.
#include "output/printer_word_wrap.h"
#include "tests/test_window.h"

#include <gtest/gtest.h>

#include <functional>

namespace quillet {
namespace {

using Calls = std::vector<std::string>;

Calls printed(GlyphView text, const std::function<void(FakeDesktop&, CPrinterWordWrap&)>& prepare) {
    FakeDesktop desktop;
    CPrinterWordWrap wordWrap(desktop.printer, desktop);
    wordWrap.HeaderText("");
    prepare(desktop, wordWrap);
    wordWrap.PrintText(text);
    EXPECT_EQ(desktop.calls, (Calls{"hourglass", "default pointer"}));
    EXPECT_EQ(desktop.printer.calls.back(), "end in Printer@0");
    desktop.printer.calls.pop_back();
    return desktop.printer.calls;
}

TEST(WordWrap, LinesBreakAsDescribed) {
    const GlyphString full(94, 'f'); // with a space behind it, ends at 10,300 - 100
    const GlyphString line = "800,1000 " + full;
    const struct {
        const char* name;
        GlyphString text;
        Calls calls;
    } rows[] = {
        {"nothing", "", {}},
        {"one word", "word", {"800,1000 word"}},
        {"a line feed", "a\nb", {"800,1000 a", "800,1300 b"}},
        {"with a carriage return", "a\r\nb", {"800,1000 a", "800,1300 b"}},
        {"a carriage return alone", "a\rb", {"800,1000 a", "900,1000 b"}},
        {"an empty line", "a\n\nb", {"800,1000 a", "800,1600 b"}},
        {"spaces",
         "a   b",
         {"800,1000 a", "900,1000  ", "1000,1000  ", "1100,1000  ", "1200,1000 b"}},
        {"a separator first", "\n b", {"800,1300  ", "900,1300 b"}},
        {"control codes",
         GlyphString("a\0\x01\x1F"
                     "b\x7F\xA0",
                     7),
         {"800,1000 a", "900,1000 b\x7F\xA0"}},
        {"what just fits", full, {line}},
        {"what does not fit", full + " b", {line, "10200,1000  ", "800,1300 b"}},
        {"spaces are never tested",
         full + "   b",
         {line, "10200,1000  ", "10300,1000  ", "10400,1000  ", "800,1300 b"}},
        {"too wide for any line",
         GlyphString(200, 'w') + " b",
         {"800,1300 " + GlyphString(200, 'w'), "20800,1300  ", "800,1600 b"}},
        {"a tab", "\tb", {"1800,1000 b"}},
        {"a tab behind three", "abc\tb", {"800,1000 abc", "1800,1000 b"}},
        {"a tab at its stop", "0123456789\tb", {"800,1000 0123456789", "2800,1000 b"}},
        {"tabs reach over the margin", GlyphString(10, '\t') + "b", {"800,1300 b"}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(printed(row.text, [](auto&, auto&) {}), row.calls) << row.name;
}

TEST(WordWrap, OddMeasuresCountAsTheyAre) {
    using Prepare = std::function<void(FakePrinter&, CPrinterWordWrap&)>;
    const struct {
        const char* name;
        GlyphString text;
        Prepare prepare;
        Calls calls;
    } rows[] = {
        {"a limit reached exactly",
         "abc de",
         [](auto& printer, auto&) { printer.width = 800 + 600 + 720; },
         {"800,1000 abc", "1100,1000  ", "1200,1000 de"}},
        {"and passed by a little",
         "abc de",
         [](auto& printer, auto&) { printer.width = 800 + 599 + 720; },
         {"800,1000 abc", "1100,1000  ", "800,1300 de"}},
        {"tab stops stay when the margin moves",
         "\tb",
         [](auto&, auto& wrap) { wrap.MarginLeft(1000); },
         {"1800,1000 b"}},
        {"left of the origin they go on from a negative remainder",
         "\tb",
         [](auto&, auto& wrap) { wrap.MarginLeft(500); },
         {"1800,1000 b"}}, // column -3, remainder -3: 10 + 3 columns on
        {"half a column counts to the even side",
         "\tb",
         [](auto&, auto& wrap) { wrap.MarginLeft(800 + 950); },
         {"2800,1000 b"}}, // 9.5 columns are 10
        {"a header in its middle",
         "",
         [](auto&, auto& wrap) { wrap.HeaderText("head"); },
         {"5300,350 head"}},
        {"a page as low as the limit",
         "a\nb\nc",
         [](auto& printer, auto&) { printer.height = 1300 + 600; },
         {"800,1000 a", "800,1300 b", "new page", "800,1000 c"}},
        {"a header on each page",
         "a\nb",
         [](auto& printer, auto& wrap) {
             printer.height = 1000 + 600;
             wrap.HeaderText("h");
         },
         {"5450,350 h", "800,1000 a", "new page", "5450,350 h", "800,1000 b"}},
        {"a first word that is too wide for the last line",
         GlyphString(200, 'w'),
         [](auto& printer, auto&) { printer.height = 1000 + 600; },
         {"new page", "800,1000 " + GlyphString(200, 'w')}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(printed(row.text,
                          [&](auto& desktop, auto& wrap) { row.prepare(desktop.printer, wrap); }),
                  row.calls)
            << row.name;
}

TEST(WordWrap, FailuresLeaveTheJobAndTheHourglass) {
    const struct {
        const char* name;
        GlyphString text;
        std::function<void(FakePrinter&, CPrinterWordWrap&)> prepare;
        ErrorNumber error;
        std::size_t texts; // drawn before
    } rows[] = {
        {"one glyph too many", GlyphString(16383, '\r') + "a" + GlyphString(16383, '\r'),
         [](auto&, auto&) {}, ErrorNumber::Overflow, 1},
        {"a word that passes the limit", "a " + GlyphString(40000, 'w'), [](auto&, auto&) {},
         ErrorNumber::Overflow, 2},
        {"a tab without a width", "a\t", [](auto& printer, auto&) { printer.glyphWidth = 0; },
         ErrorNumber::DivisionByZero, 1},
        {"a tab too far to count", "a\t",
         [](auto& printer, auto& wrap) {
             printer.glyphWidth = 0.001F;
             wrap.MarginLeft(900);
         },
         ErrorNumber::Overflow, 1},
        {"the printer", "a b", [](auto& printer, auto&) { printer.failsAt = 2; },
         ErrorNumber::PathFileAccess, 1},
    };
    for (const auto& row : rows) {
        FakeDesktop desktop;
        CPrinterWordWrap wordWrap(desktop.printer, desktop);
        wordWrap.HeaderText("");
        row.prepare(desktop.printer, wordWrap);
        try {
            wordWrap.PrintText(row.text);
            ADD_FAILURE() << row.name;
        } catch (const RunTimeError& error) {
            EXPECT_EQ(error.number(), static_cast<int>(row.error)) << row.name;
        }
        EXPECT_EQ(desktop.printer.calls.size(), row.texts) << row.name;
        EXPECT_EQ(desktop.calls, Calls{"hourglass"}) << row.name;
    }
    EXPECT_EQ(printed(GlyphString(32766, '\r'), [](auto&, auto&) {}), Calls{}) << "just fits";
}

TEST(WordWrap, PropertiesHaveTheirDefaults) {
    FakeDesktop desktop;
    const CPrinterWordWrap wrap(desktop.printer, desktop);
    EXPECT_EQ(wrap.HeaderText(), "CPrinterWordWrap Class");
    EXPECT_EQ(wrap.MarginLeft(), 800);
    EXPECT_EQ(wrap.MarginTop(), 1000);
    EXPECT_EQ(wrap.MarginRight(), 720);
    EXPECT_EQ(wrap.MarginBottom(), 600);
}

TEST(PrintCommand, PrintsTextOrSelectionInTheFontOfTheBox) {
    const Calls asked = {"choose printer", "hourglass", "default pointer"};
    const struct {
        const char* name;
        const char* marked;
        Calls asked, printed;
    } rows[] = {
        {"nothing", "|", {}, {}},
        {"all",
         "ab|c",
         asked,
         {"0,0  ", "5450,350  ", "800,1000 abc", "end in Kruti Dev 010@15.75"}},
        {"the selection",
         "a|b|c",
         asked,
         {"0,0  ", "5450,350  ", "800,1000 b", "end in Kruti Dev 010@15.75"}},
    };
    for (const auto& row : rows) {
        TestWindow form;
        place(form.txtMain, row.marked);
        form.txtMain.FontBold(true);
        form.mnuPrint_Click();
        EXPECT_EQ(form.desktop.calls, row.asked) << row.name;
        EXPECT_EQ(form.desktop.printer.calls, row.printed) << row.name;
        EXPECT_EQ(marked(form.txtMain), row.marked) << row.name;
        EXPECT_FALSE(form.textboxused) << row.name;
    }
}

TEST(PrintCommand, FailuresEndItSilently) {
    TestWindow form;
    form.txtMain.Text("a b");
    form.desktop.choosesPrinter = false;
    form.mnuPrint_Click();
    EXPECT_EQ(form.desktop.calls, Calls{"choose printer"});
    form.desktop.choosesPrinter = true;
    form.desktop.printer.failsAt = 3;
    form.mnuPrint_Click();
    EXPECT_EQ(form.desktop.calls, (Calls{"choose printer", "choose printer", "hourglass"}));
    EXPECT_EQ(form.desktop.printer.calls.back(), "800,1000 a");
}

} // namespace
} // namespace quillet
